// Making backups and bringing one back, on a disk that does what it is told. Power cuts are in power_cut_test.cpp.
#include "data/backup.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/data_fixture.h"

namespace norvale {
namespace {

namespace fs = std::filesystem;
using std::chrono::hours;
using testing::ElementsAre;
using testing::EndsWith;

const std::chrono::local_seconds kMorning = std::chrono::local_days(std::chrono::year(2025) / 12 / 31) + hours(8);
const std::string kMorningName = "2025-12-31-080000-start";

fs::path In(const std::string& backup) { return fs::path(kBackupFolder) / backup; }
fs::path In(const std::string& backup, std::string_view name) { return In(backup) / name; }

class BackupTest : public testing::Test {
 protected:
  // Adds a plan and makes a backup of that.
  std::optional<Backup> Next(hours after, BackupReason reason = BackupReason::Start) {
    AddPlan();
    return MakeBackup(folder, reason, kMorning + after);
  }
  void AddPlan() {
    session.CurrentEstimate = PlanOf(3, "NEXT");
    AddEstimate(folder, session);
  }
  std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const Backup& backup : ListBackups(*disk, "")) names.push_back(backup.name);
    return names;
  }

  std::unique_ptr<MemoryDisk> disk = SampleDisk();
  DataFolder folder{"", *disk};
  Session session;
};

TEST_F(BackupTest, KeepsTheLastTenThatDiffer) {
  disk->SetBytes("house.pdf", "the dealer's own");
  for (unsigned day = 0; day < 12; ++day) {
    const auto made = Next(hours(24 * day), day == 0 ? BackupReason::Start : BackupReason::Change);
    ASSERT_TRUE(made);
    EXPECT_EQ(made->customers, 4U);
    EXPECT_EQ(made->plans, 10U + day);
    EXPECT_FALSE(MakeBackup(folder, BackupReason::Start, kMorning + hours(24 * day + 1))) << "nothing new";
  }
  const std::vector<Backup> backups = ListBackups(*disk, "");
  ASSERT_EQ(backups.size(), kBackupsKept);
  EXPECT_EQ(backups.front().name, "2026-01-11-080000-change");
  EXPECT_EQ(DateOf(backups.front()) + ' ' + TimeOf(backups.front()), "01-11-2026 08:00");
  EXPECT_EQ(backups.front().plans, 21U);
  EXPECT_EQ(backups.back().name, "2026-01-02-080000-change");
  EXPECT_EQ(disk->Names(kBackupFolder).size(), kBackupsKept) << "the older ones are gone altogether";
  EXPECT_FALSE(disk->Has(In(backups.front().name, "house.pdf")));
  EXPECT_TRUE(BytesOf(*disk, In(backups.front().name)) == BytesOf(*disk));
  for (const char* waste : {"", "5", "6"}) {  // a file more, even an empty one, and one byte that is another
    disk->SetBytes("NVdata04.dat", waste);
    EXPECT_TRUE(MakeBackup(folder, BackupReason::Start, kMorning + hours(24 * 12))) << waste;
  }
}

// Backups of a clock that ran ahead go first; the one just made never does.
TEST_F(BackupTest, AWrongClockCostsNoNewBackup) {
  for (int hour = 0; hour < 10; ++hour) (void)Next(hours(9 * 365 * 24 + hour));
  for (int i = 0; i < 3; ++i) (void)Next(hours(0));  // and none takes the name of another
  const auto names = Names();
  ASSERT_EQ(names.size(), kBackupsKept);
  EXPECT_THAT(std::vector(names.end() - 3, names.end()),
              ElementsAre("2025-12-31-080002-start", "2025-12-31-080001-start", "2025-12-31-080000-start"));
}

TEST_F(BackupTest, ClearsAwayOnlyWhatIsItsOwn) {
  (void)Next(hours(0));
  for (const char* name : {"2025-12-30-080000-start.new", "2025-12-30-080000-start.gone", "2025-12-30x080000-start.new", "mine"}) {
    disk->MakeFolder(In(name));
    disk->SetBytes(In(name, CustomerDataFile), "half a");
  }
  disk->SetBytes("NVdata03.db.restored", "left by an interrupted restore");
  (void)Next(hours(1), BackupReason::Hand);
  EXPECT_THAT(disk->Names(kBackupFolder), ElementsAre("2025-12-30x080000-start.new", kMorningName, "2025-12-31-090000-hand", "mine"));
  EXPECT_FALSE(disk->Has("NVdata03.db.restored"));
  EXPECT_THAT(Names(), ElementsAre("2025-12-31-090000-hand", kMorningName));
}

TEST_F(BackupTest, ARestoreBringsAllBackAndKeepsWhatItReplaces) {
  disk->SetBytes("NVdata03.db", "prices");
  (void)Next(hours(0));
  const FolderBytes morning = BytesOf(*disk);
  AddPlan();
  disk->SetBytes("NVdata03.db", "other prices");
  disk->SetBytes("NVdata03.BAK", "prices");
  disk->SetBytes("house.pdf", "the dealer's own");
  const FolderBytes noon = BytesOf(*disk);

  RestoreBackup(folder, kMorningName, kMorning + hours(4));
  EXPECT_TRUE(BytesOf(*disk) == morning);
  EXPECT_TRUE(disk->Has("house.pdf") && !disk->Has("NVdata03.BAK"));
  const std::string kept = "2025-12-31-120000-restore";
  EXPECT_THAT(Names(), ElementsAre(kept, kMorningName));
  RestoreBackup(folder, kept, kMorning + hours(5));
  EXPECT_TRUE(BytesOf(*disk) == noon);
  EXPECT_THAT(Names(), ElementsAre("2025-12-31-130000-restore", kept, kMorningName));
}

// The tenth backup can be brought back although keeping the present state makes eleven.
TEST_F(BackupTest, TheOldestCanBeBroughtBack) {
  (void)Next(hours(0));
  const FolderBytes oldest = BytesOf(*disk);
  for (int day = 1; day < 10; ++day) (void)Next(hours(24 * day));
  AddPlan();
  RestoreBackup(folder, kMorningName, kMorning + hours(24 * 20));
  EXPECT_TRUE(BytesOf(*disk) == oldest);
  EXPECT_EQ(Names().size(), kBackupsKept);
}

TEST_F(BackupTest, WhatIsNotAsItWasMadeIsRefused) {
  (void)Next(hours(0));
  AddPlan();
  const auto plans = disk->Bytes(In(kMorningName, EstimateDataFile));
  const auto list = disk->Bytes(In(kMorningName, kBackupList));
  const std::string noSuch = ": there is no backup of that name";
  const std::string changed = In(kMorningName, EstimateDataFile).string() + ": the file is not as it was when the backup was made";
  std::string flipped = plans;
  flipped[1400] ^= 1;
  const struct {
    std::string name;
    std::string_view file;
    std::string bytes;
    std::string error;
  } rows[] = {
      {"2025-12-31-080000-change", EstimateDataFile, plans, "2025-12-31-080000-change" + noSuch},
      {"../backups/2025-12-31-080000-start", EstimateDataFile, plans, "../backups/2025-12-31-080000-start" + noSuch},
      {"", EstimateDataFile, plans, noSuch},
      {kMorningName, kBackupList, list.substr(0, list.size() / 2), kMorningName + noSuch},
      {kMorningName, kBackupList, "Norvale backup, files: 1\n../customer.db 1 1\n", kMorningName + noSuch},
      {kMorningName, EstimateDataFile, flipped, changed},
      {kMorningName, EstimateDataFile, plans.substr(0, plans.size() - 1), changed},
  };
  for (const auto& row : rows) {
    const auto damaged = disk->Copy();
    damaged->SetBytes(In(kMorningName, row.file), row.bytes);
    const FolderBytes before = BytesOf(*damaged);
    DataFolder own("", *damaged);
    EXPECT_EQ(ErrorOf([&] { RestoreBackup(own, row.name, kMorning + hours(1)); }), row.error);
    EXPECT_TRUE(BytesOf(*damaged) == before);
  }
}

// A copy of damaged files is no backup to rely on, but a restore keeps even those.
TEST_F(BackupTest, DamagedFilesAreNoBackupButAreKeptByARestore) {
  (void)Next(hours(0));
  disk->SetBytes(EstimateDataFile, disk->Bytes(EstimateDataFile) + "xyz");
  const auto refusal = EndsWith("the last 3 bytes, from position 14621, are no whole record");
  EXPECT_THAT(ErrorOf([&] { (void)MakeBackup(folder, BackupReason::Start, kMorning + hours(1)); }), refusal);
  EXPECT_THAT(disk->Names(kBackupFolder), ElementsAre(kMorningName));
  RestoreBackup(folder, kMorningName, kMorning + hours(2));
  EXPECT_TRUE(CheckFolder(*disk, "").empty());
  const std::string kept = "2025-12-31-100000-restore";
  EXPECT_THAT(disk->Bytes(In(kept, EstimateDataFile)), EndsWith("xyz"));
  EXPECT_THAT(ErrorOf([&] { RestoreBackup(folder, kept, kMorning + hours(3)); }), refusal);
}

// Whichever call to the disk fails, once or from then on: a backup counts wholly or not at all, a restore has happened wholly
// or not at all, and neither takes room from the work when it is over.
TEST_F(BackupTest, AFailingDiskLeavesNothingHalfDone) {
  (void)Next(hours(0));
  const FolderBytes morning = BytesOf(*disk);
  AddPlan();
  const FolderBytes noon = BytesOf(*disk);
  const struct {
    std::function<void(DataFolder&)> run;
    const FolderBytes& after;
  } rows[] = {{[](DataFolder& own) { (void)MakeBackup(own, BackupReason::Change, kMorning + hours(4)); }, noon},
              {[](DataFolder& own) { RestoreBackup(own, kMorningName, kMorning + hours(4)); }, morning}};
  for (const auto& [run, after] : rows) {
    for (const bool failsOn : {false, true}) {
      bool failed = true;
      for (int call = 0; failed; ++call) {
        SCOPED_TRACE(call);
        const auto failing = disk->Copy();
        {
          DataFolder own("", *failing);
          failing->calls = 0;
          failing->failCall = call;
          failing->failsOn = failsOn;
          const std::string error = ErrorOf([&] { run(own); });
          failed = failing->calls > call;
          failing->failCall = -1;
          EXPECT_TRUE(error.empty() || (failed && Has(error, "No space left on device"))) << error;
        }
        DataFolder again("", *failing);
        const FolderBytes found = BytesOf(*failing);
        EXPECT_TRUE(found == noon || found == after);
        (void)MakeBackup(again, BackupReason::Hand, kMorning + hours(5));
        const auto backups = ListBackups(*failing, "");
        EXPECT_EQ(failing->Names(kBackupFolder).size(), backups.size());
        EXPECT_EQ(backups.back().name, kMorningName);
        for (const Backup& backup : backups) {
          const FolderBytes copied = BytesOf(*failing, In(backup.name));
          EXPECT_TRUE(copied == noon || copied == morning) << backup.name;
        }
      }
    }
  }
}

}  // namespace
}  // namespace norvale
