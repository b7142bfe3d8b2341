#include "entry/plan_search.h"

#include <gtest/gtest.h>

#include "support/data_fixture.h"

namespace norvale {
namespace {

// Customers 3 "Hill Homes", 5 "Reed" without a plan, 7 "Oak Street Builders", 12 "Smith & Oakley"; a plan of nobody on file
// under 9, plans of the company.
class PlanSearch : public testing::Test {
 protected:
  PlanSearch() {
    session.CompanyRecord.CustomerName.Assign("Our Own Yard");
    (void)MoveEstimate(folder, session, 0);
  }

  // Customer and number of the current plan.
  [[nodiscard]] std::string Current() const {
    return std::to_string(session.CurrentEstimate.CustomerNumber) + session.CurrentEstimate.PlanNumber.Padded().substr(0, 2);
  }

  std::unique_ptr<MemoryDisk> disk = SampleDisk();
  DataFolder folder{"", *disk};
  Session session;
};

using Find = StepResult (*)(DataFolder&, Session&, std::string_view);

TEST_F(PlanSearch, FindsTheFirstThatFits) {
  struct Case {
    const char* what;
    Find find;
    const char* text;
    const char* plan;    // empty: the session stays
    const char* notice;  // behind the usual words; null: none
  };
  for (const Case& c :
       {Case{"part of a name", FindPlanByCustomerName, "homes", "3A ", nullptr},
        Case{"the next of that name who has a plan", FindPlanByCustomerName, "re", "7 C", nullptr},
        Case{"nobody of that name has a plan", FindPlanByCustomerName, "reed", "", nullptr},
        Case{"no such name", FindPlanByCustomerName, "Zed", "", "Zed"},
        Case{"number, whatever the plan", FindPlanByCustomerNumber, "12", "12Z ", nullptr},
        Case{"number that is not on file", FindPlanByCustomerNumber, " 9 ", "9Q ", nullptr},
        Case{"the company", FindPlanByCustomerNumber, "0", "0A ", nullptr},
        Case{"customer without a plan", FindPlanByCustomerNumber, "5", "", "5"},
        Case{"1 is no part of 12", FindPlanByCustomerNumber, "1", "", "1"},
        Case{"too large", FindPlanByCustomerNumber, "99999", "", "99999"}, Case{"plan number", FindPlanByPlanNumber, "z", "12Z ", nullptr},
        Case{"digits of the customer are no plan number", FindPlanByPlanNumber, "12", "", "12"},
        Case{"no byte for it", FindPlanByPlanNumber, "\xE6\x97\xA5", "", "\xE6\x97\xA5"}}) {
    FindPlanByPlanNumber(folder, session, "Q");
    const std::string before = Current();
    const std::int32_t cursor = session.EstimateCursor;
    const StepResult result = c.find(folder, session, c.text);
    EXPECT_EQ(Current().substr(0, std::string(c.plan).size()), c.plan) << c.what;
    if (*c.plan == '\0') {
      EXPECT_EQ(Current(), before) << c.what;
      EXPECT_EQ(session.EstimateCursor, cursor) << c.what;
    }
    EXPECT_EQ(result.notice, c.notice == nullptr ? "" : "0 End of file, Find unable to locate " + std::string(c.notice) + "|") << c.what;
    EXPECT_EQ(result.hasRecord, *c.plan != '\0') << c.what;
    EXPECT_EQ(session.CustomerSearchText, "") << c.what;
  }
}

TEST_F(PlanSearch, APlansCustomerIsLookedUpOrBlank) {
  EXPECT_EQ(LookUpPlanCustomer(folder, session, 5), "Reed");
  EXPECT_EQ(session.CurrentCustomer.CustomerRecordNumber, 5);
  EXPECT_EQ(LookUpPlanCustomer(folder, session, 9), "NOT ON FILE! ");
  EXPECT_EQ(session.CurrentCustomer, CustomerRecord{}) << "nobody else's name may be printed";
  EXPECT_EQ(LookUpPlanCustomer(folder, session, 0), "Our Own Yard");
  session.CustomerSearchText = "OAK";
  EXPECT_EQ(LookUpPlanCustomer(folder, session, 3), "Hill Homes") << "a search text that was left behind";
}

}  // namespace
}  // namespace norvale
