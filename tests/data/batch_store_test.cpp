#include "data/batch_store.h"

#include <gtest/gtest.h>

#include "data/folder_reader.h"
#include "support/data_fixture.h"

namespace norvale {
namespace {

std::vector<int> MarksOf(const std::vector<EstimateRecord>& plans) {
  std::vector<int> marks;
  for (const EstimateRecord& plan : plans) marks.push_back(plan.RoofSqFt);
  return marks;
}

TEST(StoreAll, TheNthPlanOfAKeyMeetsTheNthOnFile) {
  const auto disk = SampleDisk();
  DataFolder folder("", *disk);
  // Two plans "A" of customer 7 are on file, 3 and 5.
  const StoredCounts counts =
      StoreAll(folder, std::vector{Customer(5, "Reed"), Customer(6, "Six"), Customer(6, "Six again")},
               std::vector{PlanOf(7, "A", 60), PlanOf(1, "A", 61), PlanOf(7, "A", 62), PlanOf(7, "A", 63), PlanOf(7, "A", 64)});
  EXPECT_EQ(counts.customersAdded, 1U);
  EXPECT_EQ(counts.customersUpdated, 2U);
  EXPECT_EQ(counts.plansAdded, 3U);
  EXPECT_EQ(counts.plansUpdated, 2U);
  EXPECT_EQ(MarksOf(ReadEstimatesOfCustomer("", 7, *disk)), (std::vector{8, 60, 62, 63, 64, 1}));
  EXPECT_EQ(FindCustomerRecord("", 6, *disk)->CustomerName.Trimmed(), "Six again");
  EXPECT_TRUE(CheckFolder(*disk, "").empty());
}

TEST(StoreAll, BytesStayAsTheyAreAndZerosInAKeyCountAsBlanks) {
  MemoryDisk disk;
  DataFolder folder("", disk);
  Session session;
  (void)StartFolder(folder, session);
  EstimateRecord raw;  // its texts hold bytes of 0
  raw.PlanNumber.bytes[0] = 'A';
  StoreAll(folder, std::vector{CustomerRecord{}}, std::vector{raw});
  EXPECT_EQ(disk.Bytes(EstimateDataFile), Encoded(raw, EstimateRecordSize));
  EXPECT_EQ(disk.Bytes(CustomerDataFile), std::string(CustomerRecordSize, '\0'));
  StoreAll(folder, {}, std::vector{PlanOf(0, "A", 5)});
  EXPECT_EQ(MarksOf(ReadAllEstimates("", disk)), (std::vector{5}));
}

// A large import is one pass, not one search and shift for each record; and its index is longer than what is read, sorted and
// moved at once.
TEST(StoreAll, ALargeBatchIsOnePass) {
  MemoryDisk disk;
  DataFolder folder("", disk);
  Session session;
  (void)StartFolder(folder, session);
  std::vector<EstimateRecord> plans;
  for (int i = 0; i < 20000; ++i) plans.push_back(PlanOf(static_cast<std::int16_t>(i * 7919 % 30000), "P" + std::to_string(i)));
  disk.calls = 0;
  StoreAll(folder, {}, plans);
  EXPECT_LT(disk.calls, 1000);
  EXPECT_EQ(disk.Bytes(EstimateDataFile).substr(1462 * 19999), Encoded(plans.back(), EstimateRecordSize));

  session.CurrentEstimate = PlanOf(0, "A");
  AddEstimate(folder, session);
  EXPECT_EQ(session.EstimateCursor, 1);
  session.CurrentEstimate = PlanOf(32000, "Z");
  EXPECT_EQ(UpdateEstimate(folder, session), EstimateChange::Done);
  EXPECT_EQ(session.EstimateCursor, 20000 * 24 + 1);
  EXPECT_TRUE(CheckFolder(disk, "").empty());
  for (std::size_t i = 0; i < plans.size(); i += 97)
    ASSERT_EQ(FindEstimate("", plans[i].CustomerNumber, plans[i].PlanNumber.Trimmed(), disk), plans[i]) << i;

  const std::string sorted = disk.Bytes(EstimateIndexFile);
  disk.SetBytes(EstimateIndexFile, "");
  RebuildIndexes(folder);
  EXPECT_TRUE(disk.Bytes(EstimateIndexFile) == sorted);
}

}  // namespace
}  // namespace norvale
