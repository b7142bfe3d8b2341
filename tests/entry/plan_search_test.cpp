#include "entry/plan_search.h"

#include <gtest/gtest.h>

#include "support/data_fixture.h"

namespace norvale {
namespace {

TEST(PlanSearch, PassesCustomersOfThatNameWithoutAPlan) {
  const std::unique_ptr<MemoryDisk> disk = SampleDisk();
  DataFolder folder("", *disk);
  Session session;
  EXPECT_TRUE(FindPlanByCustomerName(folder, session, "re").hasRecord);
  EXPECT_EQ(session.CurrentEstimate.CustomerNumber, 7) << "Oak Street Builders; Reed has none";
  EXPECT_EQ(session.CustomerSearchText, "") << "later look-ups are by number";
}

}  // namespace
}  // namespace norvale
