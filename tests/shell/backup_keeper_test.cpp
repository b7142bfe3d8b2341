#include "shell/backup_keeper.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/files.h"
#include "support/data_fixture.h"
#include "support/refusing_disk.h"
#include "support/scratch_folder.h"

namespace norvale {
namespace {

using testing::ElementsAre;
const std::chrono::local_seconds kMorning = std::chrono::local_days(std::chrono::year(2025) / 3 / 14) + std::chrono::hours(8);

class BackupKeeperTest : public testing::Test {
 protected:
  BackupKeeperTest() { (void)StartFolder(folder, session); }
  void AddPlan() {
    session.CurrentEstimate = PlanOf(1, "A");
    AddEstimate(folder, session);
  }
  std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const Backup& backup : ListBackups(disk, scratch.Path())) names.push_back(backup.name);
    return names;
  }

  ScratchFolder scratch;
  RefusingDisk disk;
  WatchedDisk watched{disk, scratch.Path()};
  DataFolder folder{scratch.Path(), watched};
  Session session;
  BackupKeeper keeper{folder, watched};
};

TEST_F(BackupKeeperTest, CopiesAtTheStartAndAfterEachDaysFirstChange) {
  using std::chrono::hours;
  keeper.BackUpStart(kMorning);
  keeper.BackUpChange(kMorning + hours(1));
  EXPECT_THAT(Names(), ElementsAre("2025-03-14-080000-start")) << "nothing has changed";
  AddPlan();
  keeper.BackUpChange(kMorning + hours(2));
  AddPlan();
  keeper.BackUpChange(kMorning + hours(3));
  const auto firstDay = ElementsAre("2025-03-14-100000-change", "2025-03-14-080000-start");
  EXPECT_THAT(Names(), firstDay) << "once a day";
  keeper.BackUpChange(kMorning + hours(20));
  EXPECT_THAT(Names(), firstDay) << "a change of yesterday is none of today";
  ReplaceFile(watched, scratch / "NVdata03.db", "prices");
  keeper.BackUpChange(kMorning + hours(24));
  EXPECT_THAT(Names(), testing::Contains("2025-03-15-080000-change")) << "prices count as well";

  // Started once more on that day.
  BackupKeeper again(folder, watched);
  again.BackUpStart(kMorning + hours(25));
  AddPlan();
  again.BackUpChange(kMorning + hours(26));
  EXPECT_EQ(Names().size(), 3U);
  EXPECT_EQ(keeper.TakeFailure(), std::nullopt);
}

TEST_F(BackupKeeperTest, AFailureIsToldOnceAndStopsNothing) {
  for (const char* const reason : {"No space left on device", "Read-only file system"}) {
    disk.reason = reason;
    keeper.BackUpStart(kMorning);
    EXPECT_THAT(keeper.TakeFailure().value_or(""),
                testing::MatchesRegex("0 Norvale could not make a backup.*\n.*: " + std::string(reason) + ".*"));
    EXPECT_EQ(keeper.TakeFailure(), std::nullopt);
    disk.reason.clear();
    AddPlan();
  }
  keeper.BackUpChange(kMorning);
  EXPECT_THAT(Names(), ElementsAre("2025-03-14-080000-change"));
}

}  // namespace
}  // namespace norvale
