// Whatever the moment at which the power fails, the folder holds the state before the operation or the state after it.
#include <gtest/gtest.h>

#include <iostream>
#include <set>

#include "data/journal.h"
#include "support/data_fixture.h"

namespace norvale {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kOldBackup = "2025-03-13-080000-start";
const std::chrono::local_seconds kOldTime = std::chrono::local_days(std::chrono::year(2025) / 3 / 13) + std::chrono::hours(8);
const std::chrono::local_seconds kNow = kOldTime + std::chrono::hours(24);

const Operation kBackup{"make a backup", [](DataFolder& f, Session&) { (void)MakeBackup(f, BackupReason::Start, kNow); }};
const Operation kRestoreBack{"restore what was there",
                             [](DataFolder& f, Session&) { RestoreBackup(f, "2025-03-14-080000-restore", kNow + std::chrono::hours(1)); }};
const Operation kRestore{"restore a backup", [](DataFolder& f, Session&) { RestoreBackup(f, kOldBackup, kNow); }};

struct Aftermath {
  Survival survival;
  unsigned seed;
};
constexpr std::array<Aftermath, 6> kAftermaths = {{{Survival::Nothing, 0},
                                                   {Survival::Everything, 0},
                                                   {Survival::Something, 1},
                                                   {Survival::Something, 2},
                                                   {Survival::Something, 3},
                                                   {Survival::Something, 4}}};

// What opening the folder finds there.
FolderBytes Reopened(MemoryDisk& disk) {
  const DataFolder folder("", disk);
  return BytesOf(disk);
}

struct CutCounts {
  int cuts = 0;
  int recoveryCuts = 0;
  int wrong = 0;  // a state that is neither the one before nor the one after
  std::string firstWrong;
};

// Operations one after another, cut at every change that they make.
class CutRun {
 public:
  CutRun(const MemoryDisk& before, std::vector<Operation> operations, int leaveOutSync = -1)
      : before_(before), operations_(std::move(operations)), leaveOutSync_(leaveOutSync) {
    const auto whole = before.Copy();
    states_.push_back(BytesOf(*whole));
    for (const Operation& operation : operations_) {
      Run(*whole, operation);
      states_.push_back(BytesOf(*whole));
    }
  }

  CutCounts All() {
    std::size_t finished = 0;
    for (int cut = 0; finished < operations_.size(); ++cut) {
      for (const bool torn : {false, true}) {
        const auto disk = before_.Copy();
        disk->cutBefore = cut;
        disk->tearsWrite = torn;
        disk->leaveOutSync = leaveOutSync_;
        finished = 0;
        while (finished < operations_.size() && Run(*disk, operations_[finished])) ++finished;
        ++counts_.cuts;
        for (const Aftermath aftermath : kAftermaths)
          Judge(*disk->AfterPowerCut(aftermath.survival, aftermath.seed + static_cast<unsigned>(cut) * 7), finished, cut);
      }
    }
    return counts_;
  }

 private:
  // Returns whether the operation came to its end.
  static bool Run(MemoryDisk& disk, const Operation& operation) {
    try {
      DataFolder folder("", disk);
      Session session;
      operation.run(folder, session);
      return true;
    } catch (const PowerCut&) {
      return false;
    }
  }

  void Judge(MemoryDisk& survivor, std::size_t finished, int cut) {
    if (leaveOutSync_ < 0) CutRecovery(survivor, finished, cut);
    JudgeBackups(survivor, finished, cut);
    const FolderBytes found = Reopened(survivor);
    Expect(found, finished, cut);
    if (Reopened(survivor) != found) Wrong(cut, "recovering twice is not recovering once");
  }

  // Each backup that counts is whole: it holds a state that there was. One that was made stays; what a restore has replaced and
  // what was there before are among them.
  void JudgeBackups(MemoryDisk& survivor, std::size_t finished, int cut) {
    const auto holds = [](const MemoryDisk& disk, std::string_view name) { return BytesOf(disk, fs::path(kBackupFolder) / name); };
    std::set<FolderBytes> wanted;
    if (before_.Has(fs::path(kBackupFolder) / kOldBackup / kBackupList)) wanted.insert(holds(before_, kOldBackup));
    if (operations_.front().name == kBackup.name && finished > 0) wanted.insert(states_.front());
    if (operations_.front().name == kRestore.name && Reopened(*survivor.Copy()) != states_.front()) wanted.insert(states_.front());
    for (const Backup& backup : ListBackups(survivor, "")) {
      const FolderBytes bytes = holds(survivor, backup.name);
      if (wanted.erase(bytes) == 0 && std::find(states_.begin(), states_.end(), bytes) == states_.end())
        Wrong(cut, "a backup is not whole");
    }
    if (!wanted.empty()) Wrong(cut, "a backup is lost");
  }

  void CutRecovery(const MemoryDisk& survivor, std::size_t finished, int cut) {
    if (!Journal::IsPending(*survivor.Copy(), "")) return;
    for (int stop = 0;; ++stop) {
      const auto disk = survivor.Copy();
      disk->cutBefore = stop;
      disk->tearsWrite = stop % 2 == 1;
      bool recovered = true;
      try {
        Reopened(*disk);
      } catch (const PowerCut&) {
        recovered = false;
      }
      ++counts_.recoveryCuts;
      for (const Aftermath aftermath : {kAftermaths[0], kAftermaths[1], kAftermaths[2]})
        Expect(Reopened(*disk->AfterPowerCut(aftermath.survival, aftermath.seed + static_cast<unsigned>(stop))), finished, cut);
      if (recovered) return;
    }
  }

  // The state that the last finished operation left, or that of the one that was cut.
  void Expect(const FolderBytes& found, std::size_t finished, int cut) {
    if (found == states_[finished] || (finished < operations_.size() && found == states_[finished + 1])) return;
    Wrong(cut, "neither before nor after");
  }

  void Wrong(int cut, const char* what) {
    if (counts_.wrong++ == 0) counts_.firstWrong = std::string(operations_.front().name) + ", change " + std::to_string(cut) + ": " + what;
  }

  const MemoryDisk& before_;
  std::vector<Operation> operations_;
  int leaveOutSync_;
  std::vector<FolderBytes> states_;
  CutCounts counts_;
};

// The sample folder with both indexes lost, so that a rebuild has something to do.
std::unique_ptr<MemoryDisk> WithoutIndexes(const MemoryDisk& sample) {
  auto disk = sample.Copy();
  disk->SetBytes(CustomerIndexFile, "");
  disk->SetBytes(EstimateIndexFile, "");
  return disk;
}

// A folder with a backup, in which plans, prices and waste factors have changed since.
std::unique_ptr<MemoryDisk> WithBackup() {
  auto disk = SampleDisk();
  disk->SetBytes("NVdata03.db", "prices of yesterday");
  disk->SetBytes("NVdata04.dat", "waste");
  DataFolder folder("", *disk);
  Session session;
  (void)MakeBackup(folder, BackupReason::Start, kOldTime);
  session.CurrentEstimate = PlanOf(3, "NEW");
  AddEstimate(folder, session);
  disk->SetBytes("NVdata03.db", "prices of today");
  disk->SetBytes("NVdata03.BAK", "not there yesterday");
  return disk;
}

TEST(PowerCut, LeavesTheStateBeforeOrAfter) {
  const auto sample = SampleDisk();
  int cuts = 0;
  int recoveryCuts = 0;
  for (const Operation& operation : AllOperations()) {
    const CutCounts counts = CutRun(*sample, {operation}).All();
    EXPECT_EQ(counts.wrong, 0) << counts.firstWrong;
    EXPECT_GE(counts.cuts, 10) << operation.name;
    cuts += counts.cuts;
    recoveryCuts += counts.recoveryCuts;
  }
  const Operation start{"start", [](DataFolder& f, Session& s) { (void)StartFolder(f, s); }};
  const Operation rebuild{"rebuild of both", [](DataFolder& f, Session&) { RebuildIndexes(f); }};
  const MemoryDisk empty;
  const auto lost = WithoutIndexes(*sample);
  const auto changed = WithBackup();
  for (CutRun run : {CutRun(empty, {start}), CutRun(*lost, {rebuild}), CutRun(*sample, {kBackup}), CutRun(*changed, {kBackup}),
                     CutRun(*changed, {kRestore})}) {
    const CutCounts counts = run.All();
    EXPECT_EQ(counts.wrong, 0) << counts.firstWrong;
    cuts += counts.cuts;
    recoveryCuts += counts.recoveryCuts;
  }
  std::cout << cuts << " cuts of operations, each with " << kAftermaths.size() << " aftermaths; " << recoveryCuts
            << " cuts of recoveries\n";
  RecordProperty("cuts", cuts);
}

// The test above is worth something only if it notices a missing sync. Each one is needed by itself; some show only when
// another operation follows.
TEST(PowerCut, NoticesEachSyncThatIsLeftOut) {
  const auto sample = SampleDisk();
  const auto lost = WithoutIndexes(*sample);
  const Operation deleteFirst{"delete the first plan", [](DataFolder& f, Session& s) { (void)DeleteEstimate(f, s); }};
  const Operation abandonAnother{"abandon another customer", AbandonLast};
  int leftOut = 0;
  for (const Operation& operation : AllOperations()) {
    const MemoryDisk& before = operation.name == std::string_view("rebuild") ? *lost : *sample;
    // One that writes the same working files.
    const Operation& next = operation.name == std::string_view("abandon a new customer") ? abandonAnother : deleteFirst;
    const auto whole = before.Copy();
    {
      DataFolder folder("", *whole);
      Session session;
      whole->syncs = 0;
      operation.run(folder, session);
    }
    ASSERT_GE(whole->syncs, 3) << operation.name;
    for (int left = 0; left < whole->syncs; ++left, ++leftOut)
      EXPECT_GT(CutRun(before, {operation, next}, left).All().wrong, 0) << operation.name << ", sync " << left << " of " << whole->syncs;
  }
  const auto changed = WithBackup();
  const struct {
    const MemoryDisk& before;
    Operation operation;
    Operation next;
  } rows[] = {{*sample, kBackup, deleteFirst}, {*changed, kBackup, deleteFirst}, {*changed, kRestore, kRestoreBack}};
  for (const auto& [before, operation, next] : rows) {
    const auto whole = before.Copy();
    {
      DataFolder folder("", *whole);
      Session session;
      whole->syncs = 0;
      operation.run(folder, session);
    }
    for (int left = 0; left < whole->syncs; ++left, ++leftOut)
      EXPECT_GT(CutRun(before, {operation, next}, left).All().wrong, 0) << operation.name << ", sync " << left << " of " << whole->syncs;
  }
  std::cout << leftOut << " syncs left out, one at a time\n";
}

// A repair takes several steps; each is whole, and what is cut off is on the disk elsewhere before.
TEST(PowerCut, ARepairLosesNothing) {
  const auto damaged = SampleDisk();
  damaged->SetBytes(EstimateDataFile, damaged->Bytes(EstimateDataFile) + "leftover");
  damaged->SetBytes(CustomerDataFile, damaged->Bytes(CustomerDataFile).substr(CustomerRecordSize) + "rest");
  damaged->SetBytes(EstimateIndexFile, "");
  const auto repair = [](MemoryDisk& disk) {
    DataFolder folder("", disk);
    return RepairFolder(folder).size();
  };
  const auto records = [](const MemoryDisk& disk) {
    FolderBytes bytes = BytesOf(disk);
    std::erase_if(bytes, [](const auto& file) { return file.first == kCustomerLeftovers || file.first == kEstimateLeftovers; });
    return bytes;
  };
  const auto whole = damaged->Copy();
  ASSERT_EQ(repair(*whole), 0U);
  ASSERT_EQ(whole->Bytes(EstimateDataFile).size(), 9 * EstimateRecordSize);
  ASSERT_EQ(whole->Bytes(CustomerDataFile).size(), 5 * CustomerRecordSize);
  for (int cut = 0;; ++cut) {
    const auto disk = damaged->Copy();
    disk->cutBefore = cut;
    bool finished = true;
    try {
      (void)repair(*disk);
    } catch (const PowerCut&) {
      finished = false;
    }
    for (const Aftermath aftermath : kAftermaths) {
      const auto survivor = disk->AfterPowerCut(aftermath.survival, aftermath.seed);
      ASSERT_EQ(repair(*survivor), 0U) << cut;
      ASSERT_TRUE(records(*survivor) == records(*whole)) << cut;
      ASSERT_TRUE(Has(survivor->Bytes(kEstimateLeftovers), "leftover")) << cut;
      ASSERT_TRUE(Has(survivor->Bytes(kCustomerLeftovers), "rest")) << cut;
    }
    if (finished) break;
  }
}

}  // namespace
}  // namespace norvale
