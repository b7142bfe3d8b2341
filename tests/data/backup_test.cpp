// Making backups and bringing one back, on a disk that does what it is told. Power cuts are in power_cut_test.cpp.
#include "data/backup.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/data_fixture.h"

namespace norvale {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

const std::chrono::local_seconds kMorning = std::chrono::local_days(std::chrono::year(2025) / 12 / 31) + std::chrono::hours(8);
constexpr std::string_view kMorningName = "2025-12-31-080000-start";

class BackupTest : public testing::Test {
 protected:
  void AddPlan(std::string_view number) {
    Session session;
    session.CurrentEstimate = PlanOf(3, number);
    AddEstimate(folder, session);
  }
  std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const Backup& backup : ListBackups(*disk, "")) names.push_back(backup.name);
    return names;
  }
  static fs::path In(std::string_view backup) { return fs::path(kBackupFolder) / backup; }
  static fs::path In(std::string_view backup, std::string_view name) { return In(backup) / name; }

  // What is said where the call fails; empty where it does not.
  template <typename Call>
  static std::string ErrorOf(Call call) {
    try {
      call();
    } catch (const FileError& error) {
      return error.what();
    }
    return "";
  }

  std::unique_ptr<MemoryDisk> disk = SampleDisk();
  DataFolder folder{"", *disk};
};

TEST_F(BackupTest, KeepsTheLastTenThatDiffer) {
  disk->SetBytes("house.pdf", "the dealer's own");
  for (int day = 0; day < 12; ++day) {
    AddPlan("D" + std::to_string(day));
    const auto made = MakeBackup(folder, day == 0 ? BackupReason::Start : BackupReason::Change, kMorning + std::chrono::days(day));
    ASSERT_TRUE(made);
    EXPECT_EQ(made->customers, 4U);
    EXPECT_EQ(made->plans, 10U + day);
    EXPECT_FALSE(MakeBackup(folder, BackupReason::Start, kMorning + std::chrono::days(day) + std::chrono::hours(1))) << "nothing new";
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
}

// Backups of a clock that ran ahead go first; the one just made never does.
TEST_F(BackupTest, AWrongClockCostsNoNewBackup) {
  for (int i = 0; i < 10; ++i) {
    AddPlan("F" + std::to_string(i));
    (void)MakeBackup(folder, BackupReason::Start, kMorning + std::chrono::years(9) + std::chrono::hours(i));
  }
  for (int i = 0; i < 3; ++i) {
    AddPlan("N" + std::to_string(i));
    (void)MakeBackup(folder, BackupReason::Start, kMorning);  // and none takes the name of another
  }
  const auto names = Names();
  ASSERT_EQ(names.size(), kBackupsKept);
  EXPECT_THAT(std::vector(names.end() - 3, names.end()),
              ElementsAre("2025-12-31-080002-start", "2025-12-31-080001-start", "2025-12-31-080000-start"));
}

TEST_F(BackupTest, ClearsAwayOnlyWhatIsItsOwn) {
  (void)MakeBackup(folder, BackupReason::Start, kMorning);
  for (const std::string_view name :
       {"2025-12-30-080000-start.new", "2025-12-30-080000-start.gone", "2025-13-30-080000-start.new", "mine"}) {
    disk->MakeFolder(In(name));
    disk->SetBytes(In(name, CustomerDataFile), "half a");
  }
  disk->SetBytes("NVdata03.db.restored", "left by an interrupted restore");
  AddPlan("NEXT");
  (void)MakeBackup(folder, BackupReason::Hand, kMorning + std::chrono::hours(1));
  EXPECT_THAT(disk->Names(kBackupFolder),
              ElementsAre("2025-12-31-080000-start", "2025-12-31-090000-hand", "2025-13-30-080000-start.new", "mine"));
  EXPECT_FALSE(disk->Has("NVdata03.db.restored"));
  EXPECT_THAT(Names(), ElementsAre("2025-12-31-090000-hand", "2025-12-31-080000-start"));
}

TEST_F(BackupTest, ARestoreBringsAllBackAndKeepsWhatItReplaces) {
  disk->SetBytes("NVdata03.db", "prices");
  const FolderBytes morning = BytesOf(*disk);
  (void)MakeBackup(folder, BackupReason::Start, kMorning);
  AddPlan("LATER");
  disk->SetBytes("NVdata03.db", "other prices");
  disk->SetBytes("NVdata03.BAK", "prices");
  disk->SetBytes("house.pdf", "the dealer's own");
  const FolderBytes noon = BytesOf(*disk);

  RestoreBackup(folder, kMorningName, kMorning + std::chrono::hours(4));
  EXPECT_TRUE(BytesOf(*disk) == morning);
  EXPECT_FALSE(disk->Has("NVdata03.BAK"));
  EXPECT_TRUE(disk->Has("house.pdf"));
  const std::string kept = "2025-12-31-120000-restore";
  EXPECT_THAT(Names(), ElementsAre(kept, kMorningName));
  RestoreBackup(folder, kept, kMorning + std::chrono::hours(5));
  EXPECT_TRUE(BytesOf(*disk) == noon);
  EXPECT_THAT(Names(), ElementsAre("2025-12-31-130000-restore", kept, kMorningName));
}

// The tenth backup can be brought back although keeping the present state makes eleven.
TEST_F(BackupTest, TheOldestCanBeBroughtBack) {
  FolderBytes oldest;
  for (int day = 0; day < 10; ++day) {
    AddPlan("D" + std::to_string(day));
    if (day == 0) oldest = BytesOf(*disk);
    (void)MakeBackup(folder, BackupReason::Start, kMorning + std::chrono::days(day));
  }
  AddPlan("NOW");
  RestoreBackup(folder, kMorningName, kMorning + std::chrono::days(20));
  EXPECT_TRUE(BytesOf(*disk) == oldest);
  EXPECT_EQ(Names().size(), kBackupsKept);
}

TEST_F(BackupTest, WhatIsNotAsItWasMadeIsRefused) {
  (void)MakeBackup(folder, BackupReason::Start, kMorning);
  AddPlan("LATER");
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
      {std::string(kMorningName), kBackupList, list.substr(0, list.size() / 2), std::string(kMorningName) + noSuch},
      {std::string(kMorningName), kBackupList, "Norvale backup, files: 1\n../customer.db 1 1\n", std::string(kMorningName) + noSuch},
      {std::string(kMorningName), EstimateDataFile, flipped, changed},
      {std::string(kMorningName), EstimateDataFile, plans.substr(0, plans.size() - 1), changed},
  };
  for (const auto& row : rows) {
    const auto damaged = disk->Copy();
    damaged->SetBytes(In(kMorningName, row.file), row.bytes);
    const FolderBytes before = BytesOf(*damaged);
    DataFolder own("", *damaged);
    EXPECT_EQ(ErrorOf([&] { RestoreBackup(own, row.name, kMorning + std::chrono::hours(1)); }), row.error);
    EXPECT_TRUE(BytesOf(*damaged) == before);
  }
}

// A copy of damaged files is no backup to rely on, but a restore keeps even those.
TEST_F(BackupTest, DamagedFilesAreNoBackupButAreKeptByARestore) {
  (void)MakeBackup(folder, BackupReason::Start, kMorning);
  disk->SetBytes(EstimateDataFile, disk->Bytes(EstimateDataFile) + "xyz");
  EXPECT_THAT(ErrorOf([&] { (void)MakeBackup(folder, BackupReason::Start, kMorning + std::chrono::hours(1)); }),
              testing::HasSubstr("the last 3 bytes, from position 13159, are no whole record"));
  EXPECT_THAT(disk->Names(kBackupFolder), ElementsAre(kMorningName));
  RestoreBackup(folder, kMorningName, kMorning + std::chrono::hours(2));
  EXPECT_THAT(CheckFolder(*disk, ""), IsEmpty());
  EXPECT_TRUE(disk->Bytes(In("2025-12-31-100000-restore", EstimateDataFile)).ends_with("xyz"));
  EXPECT_THAT(ErrorOf([&] { RestoreBackup(folder, "2025-12-31-100000-restore", kMorning + std::chrono::hours(3)); }),
              testing::HasSubstr("are no whole record"));
}

// Whichever call to the disk fails, once or from then on: a backup counts wholly or not at all, a restore has happened wholly
// or not at all, and neither takes room from the work when it is over.
TEST_F(BackupTest, AFailingDiskLeavesNothingHalfDone) {
  (void)MakeBackup(folder, BackupReason::Start, kMorning);
  const FolderBytes morning = BytesOf(*disk);
  AddPlan("LATER");
  const FolderBytes noon = BytesOf(*disk);
  const auto sample = disk->Copy();
  const auto noonTime = kMorning + std::chrono::hours(4);
  for (const bool restores : {false, true}) {
    for (const bool failsOn : {false, true}) {
      bool failed = true;
      for (int call = 0; failed; ++call) {
        const auto failing = sample->Copy();
        {
          DataFolder own("", *failing);
          failing->calls = 0;
          failing->failCall = call;
          failing->failsOn = failsOn;
          const std::string error = ErrorOf([&] {
            if (restores)
              RestoreBackup(own, kMorningName, noonTime);
            else
              (void)MakeBackup(own, BackupReason::Change, noonTime);
          });
          failed = failing->calls > call;
          failing->failCall = -1;
          EXPECT_TRUE(error.empty() || Has(error, "No space left on device")) << error;
          EXPECT_TRUE(failed || error.empty()) << error;
        }
        DataFolder again("", *failing);
        const FolderBytes found = BytesOf(*failing);
        EXPECT_TRUE(found == noon || (restores && found == morning)) << call;
        (void)MakeBackup(again, BackupReason::Hand, noonTime + std::chrono::hours(1));
        const auto backups = ListBackups(*failing, "");
        EXPECT_EQ(failing->Names(kBackupFolder).size(), backups.size()) << call;
        ASSERT_FALSE(backups.empty());
        EXPECT_EQ(backups.back().name, kMorningName);
        for (const Backup& backup : backups) {
          const FolderBytes bytes = BytesOf(*failing, In(backup.name));
          EXPECT_TRUE(bytes == noon || bytes == morning) << call << ' ' << backup.name;
        }
      }
    }
  }
}

}  // namespace
}  // namespace norvale
