// Whatever the moment at which the power fails, the folder holds the state before the operation or the state after it.
#include <gtest/gtest.h>

#include <set>

#include "data/folder_reader.h"
#include "data/journal.h"
#include "support/data_fixture.h"

namespace norvale {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kOldBackup = "2025-03-13-080000-start";
const std::chrono::local_seconds kOldTime = std::chrono::local_days(std::chrono::year(2025) / 3 / 13) + std::chrono::hours(8);
const std::chrono::local_seconds kNow = kOldTime + std::chrono::hours(24);

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

// Returns whether the operation came to its end.
template <typename Call>
bool Finishes(MemoryDisk& disk, const Call& operation) {
  try {
    operation(disk);
    return true;
  } catch (const PowerCut&) {
    return false;
  }
}

// What opening the folder finds there.
FolderBytes Reopened(MemoryDisk& disk) {
  const DataFolder folder("", disk);
  return BytesOf(disk);
}

// Operations one after another, cut at every change that they make.
class CutRun {
 public:
  CutRun(const MemoryDisk& before, std::vector<Operation> operations, int leaveOutSync = -1)
      : before_(before), operations_(std::move(operations)), leaveOutSync_(leaveOutSync) {
    const auto whole = before.Copy();
    states_.push_back(BytesOf(*whole));
    for (const Operation& operation : operations_) {
      operation(*whole);
      states_.push_back(BytesOf(*whole));
    }
  }

  // What is found wrong first; empty where nothing is.
  std::string FirstWrong() {
    std::size_t finished = 0;
    for (int cut = 0; finished < operations_.size(); ++cut) {
      for (const bool torn : {false, true}) {
        const auto disk = before_.Copy();
        disk->cutBefore = cut;
        disk->tearsWrite = torn;
        disk->leaveOutSync = leaveOutSync_;
        finished = 0;
        while (finished < operations_.size() && Finishes(*disk, operations_[finished])) ++finished;
        ++cuts_;
        for (const Aftermath aftermath : kAftermaths)
          Judge(*disk->AfterPowerCut(aftermath.survival, aftermath.seed + static_cast<unsigned>(cut) * 7), finished, cut);
      }
    }
    EXPECT_GE(cuts_, 20);
    return wrong_;
  }

 private:
  void Judge(MemoryDisk& survivor, std::size_t finished, int cut) {
    if (leaveOutSync_ < 0) CutRecovery(survivor, finished, cut);
    JudgeBackups(survivor, finished, cut);
    const auto read = survivor.Copy();
    const FolderBytes found = Reopened(survivor);
    Expect(found, finished, cut);
    if (Reopened(survivor) != found) Wrong(cut, "recovering twice is not recovering once");
    (void)ErrorOf([&] { (void)ReadAllCustomers("", *read); });
    if (BytesOf(*read) != found) Wrong(cut, "who only reads finds another state");
  }

  // Each backup that counts is whole: it holds a state that there was. One that was made stays; what a restore has replaced and
  // what was there before are among them.
  void JudgeBackups(MemoryDisk& survivor, std::size_t finished, int cut) {
    const auto holds = [](const MemoryDisk& disk, std::string_view name) { return BytesOf(disk, fs::path(kBackupFolder) / name); };
    std::set<FolderBytes> wanted;
    if (before_.Has(fs::path(kBackupFolder) / kOldBackup / kBackupList)) wanted.insert(holds(before_, kOldBackup));
    const bool replaced = operations_.front().name == "restore" && Reopened(*survivor.Copy()) != states_.front();
    if (replaced || (operations_.front().name == "backup" && finished > 0)) wanted.insert(states_.front());
    for (const Backup& backup : ListBackups(survivor, "")) {
      const FolderBytes bytes = holds(survivor, backup.name);
      if (wanted.erase(bytes) == 0 && std::find(states_.begin(), states_.end(), bytes) == states_.end())
        Wrong(cut, "a backup is not whole");
    }
    if (!wanted.empty()) Wrong(cut, "a backup is lost");
  }

  void CutRecovery(const MemoryDisk& survivor, std::size_t finished, int cut) {
    bool recovered = !Journal::IsPending(*survivor.Copy(), "");
    for (int stop = 0; !recovered; ++stop) {
      const auto disk = survivor.Copy();
      disk->cutBefore = stop;
      disk->tearsWrite = stop % 2 == 1;
      recovered = Finishes(*disk, Reopened);
      for (const Aftermath aftermath : {kAftermaths[0], kAftermaths[1], kAftermaths[2]})
        Expect(Reopened(*disk->AfterPowerCut(aftermath.survival, aftermath.seed + static_cast<unsigned>(stop))), finished, cut);
    }
  }

  // The state that the last finished operation left, or that of the one that was cut.
  void Expect(const FolderBytes& found, std::size_t finished, int cut) {
    if (found == states_[finished] || (finished < operations_.size() && found == states_[finished + 1])) return;
    Wrong(cut, "neither before nor after");
  }

  void Wrong(int cut, const char* what) {
    if (wrong_.empty()) wrong_ = std::string(operations_.front().name) + ", change " + std::to_string(cut) + ": " + what;
  }

  const MemoryDisk& before_;
  std::vector<Operation> operations_;
  int leaveOutSync_;
  std::vector<FolderBytes> states_;
  int cuts_ = 0;
  std::string wrong_;
};

struct Case {
  std::shared_ptr<const MemoryDisk> before;
  Operation operation;
  Operation next;  // writes the same working files
};

std::vector<Case> Cases() {
  const std::shared_ptr<const MemoryDisk> sample = SampleDisk();
  const std::shared_ptr<MemoryDisk> lost = SampleDisk();  // so that a rebuild has something to do
  lost->SetBytes(CustomerIndexFile, "");
  lost->SetBytes(EstimateIndexFile, "");
  // A backup, and plans, prices and waste factors that have changed since.
  const std::shared_ptr<MemoryDisk> changed = SampleDisk();
  changed->SetBytes("NVdata03.db", "prices of yesterday");
  changed->SetBytes("NVdata04.dat", "waste");
  Operation{"", [](DataFolder& f, Session&) { (void)MakeBackup(f, BackupReason::Start, kOldTime); }}(*changed);
  AllOperations().front()(*changed);
  changed->SetBytes("NVdata03.db", "prices of today");
  changed->SetBytes("NVdata03.BAK", "not there yesterday");

  const Operation start{"start", [](DataFolder& f, Session& s) { (void)StartFolder(f, s); }};
  const Operation deleteFirst{"delete the first plan", [](DataFolder& f, Session& s) { (void)DeleteEstimate(f, s); }};
  const Operation backup{"backup", [](DataFolder& f, Session&) { (void)MakeBackup(f, BackupReason::Start, kNow); }};
  const Operation restore{"restore", [](DataFolder& f, Session&) { RestoreBackup(f, kOldBackup, kNow); }};
  const Operation restoreBack{"restore back",
                              [](DataFolder& f, Session&) { RestoreBackup(f, "2025-03-14-080000-restore", kNow + std::chrono::hours(1)); }};
  std::vector<Case> cases = {{std::make_shared<MemoryDisk>(), start, AllOperations().front()},
                             {sample, backup, deleteFirst},
                             {changed, backup, deleteFirst},
                             {changed, restore, restoreBack}};
  for (const Operation& operation : AllOperations())
    cases.push_back({operation.name == "rebuild" ? lost : sample, operation,
                     operation.name == "abandon a new customer" ? Operation{"abandon another", AbandonLast} : deleteFirst});
  return cases;
}

TEST(PowerCut, LeavesTheStateBeforeOrAfter) {
  for (const Case& c : Cases()) EXPECT_EQ(CutRun(*c.before, {c.operation, c.next}).FirstWrong(), "");
}

// The test above is worth something only if it notices a missing sync. Each one is needed by itself; some show only when
// another operation follows.
TEST(PowerCut, NoticesEachSyncThatIsLeftOut) {
  for (const Case& c : Cases()) {
    const auto whole = c.before->Copy();
    c.operation(*whole);
    ASSERT_GE(whole->syncs, 3) << c.operation.name;
    for (int left = 0; left < whole->syncs; ++left)
      EXPECT_NE(CutRun(*c.before, {c.operation, c.next}, left).FirstWrong(), "")
          << c.operation.name << ", sync " << left << " of " << whole->syncs;
  }
}

// What fails is taken back, and the power may fail during that as well.
TEST(PowerCut, LeavesTheStateBeforeOrAfterAFailure) {
  const auto sample = SampleDisk();
  const Operation renumber{"renumber a plan", UpdatePlan(3, "A", 10)};
  const auto whole = sample->Copy();
  renumber(*whole);
  for (int call = 0; call < whole->calls; ++call) {
    bool finished = false;
    for (int cut = 0; !finished; ++cut) {
      const auto disk = sample->Copy();
      disk->failCall = call;
      disk->cutBefore = cut;
      (void)ErrorOf([&] { renumber(*disk); });
      finished = disk->changes <= cut;
      for (const Aftermath aftermath : kAftermaths) {
        const FolderBytes found = Reopened(*disk->AfterPowerCut(aftermath.survival, aftermath.seed + static_cast<unsigned>(cut)));
        EXPECT_TRUE(found == BytesOf(*sample) || found == BytesOf(*whole)) << call << ' ' << cut;
      }
    }
  }
}

// A repair takes several steps; each is whole, and what is cut off is on the disk elsewhere before.
TEST(PowerCut, ARepairLosesNothing) {
  const auto damaged = SampleDisk();
  damaged->SetBytes(EstimateDataFile, damaged->Bytes(EstimateDataFile) + "leftover");
  damaged->SetBytes(CustomerDataFile, damaged->Bytes(CustomerDataFile).substr(CustomerRecordSize) + "rest");
  damaged->SetBytes(EstimateIndexFile, "");
  const Operation repair{"repair", [](DataFolder& folder, Session&) { ASSERT_TRUE(RepairFolder(folder).empty()); }};
  const auto records = [](const MemoryDisk& disk) {
    FolderBytes bytes = BytesOf(disk);
    std::erase_if(bytes, [](const auto& file) { return file.first == kCustomerLeftovers || file.first == kEstimateLeftovers; });
    return bytes;
  };
  const auto whole = damaged->Copy();
  repair(*whole);
  ASSERT_EQ(whole->Bytes(EstimateDataFile).size(), 9 * EstimateRecordSize);
  ASSERT_EQ(whole->Bytes(CustomerDataFile).size(), 5 * CustomerRecordSize);
  bool finished = false;
  for (int cut = 0; !finished; ++cut) {
    const auto disk = damaged->Copy();
    disk->cutBefore = cut;
    finished = Finishes(*disk, repair);
    for (const Aftermath aftermath : kAftermaths) {
      const auto survivor = disk->AfterPowerCut(aftermath.survival, aftermath.seed);
      repair(*survivor);
      ASSERT_TRUE(records(*survivor) == records(*whole)) << cut;
      ASSERT_TRUE(Has(survivor->Bytes(kEstimateLeftovers), "leftover")) << cut;
      ASSERT_TRUE(Has(survivor->Bytes(kCustomerLeftovers), "rest")) << cut;
    }
  }
}

}  // namespace
}  // namespace norvale
