// The commands that look after the data files, as a script meets them.
#include <gtest/gtest.h>

#include "data/batch_store.h"
#include "data/folder_reader.h"
#include "data/folder_start.h"
#include "tool/tool_call.h"

namespace norvale {
namespace {

class DataCommands : public testing::Test {
 protected:
  DataCommands() {
    std::vector<CustomerRecord> customers(2);
    customers[0].CustomerRecordNumber = 3;
    customers[1].CustomerRecordNumber = 7;
    std::vector<EstimateRecord> plans(3);
    for (std::size_t i = 0; i < plans.size(); ++i) {
      plans[i].CustomerNumber = 7;
      plans[i].PlanNumber.Assign(i == 0 ? "B" : "A");
      plans[i].RoofSqFt = static_cast<std::int16_t>(i);
    }
    DataFolder folder(scratch_.Path());
    Session session;
    (void)StartFolder(folder, session);
    StoreAll(folder, customers, plans);
  }

  Outcome Call(const std::string& words) { return CallTool(other_, "--folder '" + scratch_.Path().string() + "' " + words); }

  [[nodiscard]] std::string InFolder(const std::string& rest) const { return "norvale-tool: " + scratch_.Path().string() + rest; }

  ScratchFolder scratch_;
  ScratchFolder other_;
};

TEST_F(DataCommands, DeleteTakesTheFirstOfSeveralPlansAndLeavesPlansToTheCompany) {
  EXPECT_EQ(Call("delete plan --customer 7 --plan A").status, 0);
  const auto left = ReadEstimatesOfCustomer(scratch_.Path(), 7);
  ASSERT_EQ(left.size(), 2U);
  EXPECT_EQ(left[0].RoofSqFt, 2);
  EXPECT_EQ(Call("delete customer 7").status, 0);
  EXPECT_EQ(ReadEstimatesOfCustomer(scratch_.Path(), 0).size(), 2U);
  for (const auto& [words, error] : std::vector<std::pair<std::string, std::string>>{
           {"delete customer 7", "norvale-tool: customer 7: not on file\n"},
           {"delete plan --customer 3 --plan A", "norvale-tool: plan \"A\" of customer 3: not on file\n"}}) {
    const Outcome outcome = Call(words);
    EXPECT_EQ(outcome.status, 1) << words;
    EXPECT_EQ(outcome.err, error);
  }
  EXPECT_EQ(Call("delete customer 0").status, 2);  // the company stays
  EXPECT_EQ(Call("delete").status, 2);
}

TEST_F(DataCommands, CheckTellsAndRepairMends) {
  EXPECT_EQ(Call("check").out, "no faults\n");
  WriteBytes(scratch_ / "estimate.dbr", ReadBytes(scratch_ / "estimate.dbr") + "xyz");
  const std::string fault = "estimate.dbr: the last 3 bytes, from position 4387, are no whole record";
  const Outcome told = Call("check");
  EXPECT_EQ(told.status, 1);
  EXPECT_EQ(told.out, fault + "\n");
  EXPECT_EQ(told.err, InFolder(": 1 fault\n"));
  const Outcome refused = Call("delete customer 3");
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.err, InFolder(": " + fault + "; \"check --repair\" can mend it\n"));
  const Outcome mended = Call("check --repair");
  EXPECT_EQ(mended.status, 0);
  EXPECT_EQ(mended.out, fault + "\n1 fault mended\n");
  EXPECT_EQ(ReadBytes(scratch_ / "estimate.rest"), "xyz");
  EXPECT_EQ(Call("check").out, "no faults\n");

  WriteBytes(scratch_ / "NVdata04.dat", std::string(192, ' '));
  EXPECT_EQ(Call("check --repair").status, 1);  // no repair for the other files, and no silence
}

TEST_F(DataCommands, BackupsAreMadeListedAndBroughtBack) {
  const std::string made = Call("backup").out;
  EXPECT_TRUE(made.ends_with("-hand  customers 2, plans 3\n")) << made;
  const std::string plans = ReadBytes(scratch_ / "estimate.dbr");
  EXPECT_EQ(Call("delete customer 3").status, 0);
  EXPECT_EQ(Call("backup --list").out, made);
  EXPECT_EQ(Call("restore " + made.substr(0, made.find(' '))).status, 0);
  EXPECT_EQ(ReadBytes(scratch_ / "estimate.dbr"), plans);
  EXPECT_TRUE(Call("backup --list").out.ends_with("-restore  customers 1, plans 3\n" + made));
  EXPECT_EQ(Call("restore none").err, "norvale-tool: none: there is no backup of that name\n");
}

TEST_F(DataCommands, RebuildBringsLostIndexesBack) {
  const std::string customers = ReadBytes(scratch_ / "customer.ix");
  const std::string plans = ReadBytes(scratch_ / "estimate.ix");
  WriteBytes(scratch_ / "customer.ix", "");
  WriteBytes(scratch_ / "estimate.ix", plans.substr(24));
  EXPECT_EQ(Call("rebuild").status, 0);
  EXPECT_EQ(ReadBytes(scratch_ / "customer.ix"), customers);
  EXPECT_EQ(Call("check").status, 0);
}

TEST_F(DataCommands, ListsGoToTheOutputOrAFile) {
  EXPECT_TRUE(Call("print customers --from 4").out.starts_with("CUSTOMER LIST"));
  EXPECT_EQ(Call("print estimates --to 7 --output '" + (other_ / "list").string() + "'").out, "");
  EXPECT_TRUE(ReadBytes(other_ / "list").starts_with("ESTIMATE LIST: Customer 1 to 7"));
  for (const char* words : {"print customers --from 9 --to 3", "print customers --from 0", "print estimates --to 32768"})
    EXPECT_EQ(Call(words).status, 2) << words;
  EXPECT_TRUE(Call("print estimates --format csv").out.starts_with("customer,customer name,"));
  EXPECT_EQ(Call("delete customer 3").status + Call("delete customer 7").status, 0);
  EXPECT_TRUE(Call("print estimates").out.starts_with("ESTIMATE LIST: Customer 1 to LAST"));  // the company has the plans now
  EXPECT_EQ(Call("print estimates --to 9").err, "norvale-tool: customer.db: Customer File Is EMPTY!\n");
  EXPECT_EQ(Call("print customers").err, "norvale-tool: customer.db: Customer File Is EMPTY!\n");
}

TEST_F(DataCommands, AFolderInUseIsRefused) {
  const DataFolder held(scratch_.Path());
  const Outcome outcome = Call("rebuild");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, InFolder(": the folder is in use by another program; close it there first\n"));
  EXPECT_EQ(Call("print customers").status, 0);
}

}  // namespace
}  // namespace norvale
