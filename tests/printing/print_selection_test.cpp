#include "printing/print_selection.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "delivered/sample_house.h"
#include "entry/entry_form.h"
#include "prices/delivered.h"

namespace norvale {
namespace {

// A letter for each box by its index: X ticked, "." open, "-" shut.
std::string Letters(const PrintBoxes& boxes) {
  std::string letters;
  for (std::size_t i = 0; i < kPrintBoxes; ++i) {
    EXPECT_TRUE(boxes.enabled[i] || !boxes.ticked[i]) << "box " << i << " is shut and ticked";
    letters += boxes.ticked[i] ? 'X' : boxes.enabled[i] ? '.' : '-';
  }
  return letters;
}

// Every type that the checklist can make: a foundation and any of the additions that go with it.
TEST(PrintSelection, OpensWithWhatThePlanHas) {
  struct Row {
    int foundation;
    const char* inside;  // as the plan stores it
    bool hasUpperFloor;
    const char* letters;
  };
  // First floor: floor, wall; second: floor, wall; roof; flooring, sheetrock, interior trim; exterior trim; specifications; prices.
  const Row rows[] = {
      {1, "UNFINISHED", false, "-X--X---XX."},                                         // a slab needs no floor to be framed
      {1, "", false, "-X--X---XX."},           {1, "FINISHED", false, "-X--X-XXXX."},  // finished, but all floors are concrete
      {2, "UNFINISHED", true, "-XXXX---XX."},  {2, "FINISHED", true, "-XXXXXXXXX."},  {4, "", false, "XX--XXXXXX."},
      {4, "UNFINISHED", false, "XX--XXXXXX."}, {8, "", true, "XXXXXXXXXX."},
  };
  for (const Row& row : rows)
    for (const int type : PlanTypes()) {
      if ((type & 15) != row.foundation) continue;
      EstimateRecord plan;
      plan.PlanType = static_cast<std::int16_t>(type);
      plan.SlabInterior.Assign(row.inside);
      plan.SecondFloorType = row.hasUpperFloor ? 2 : 1;
      EXPECT_EQ(Letters(BoxesOf(PartsOf(plan))), row.letters) << type << " " << row.inside;
      EXPECT_EQ(DefaultSections(plan) & kWithPrices, 0) << type;
    }
}

// The data-entry form and the record that it stores ask for the same.
TEST(PrintSelection, ReadsTheFormAsItReadsTheRecord) {
  const std::vector<ScreenLine> lines = DeliveredScreenLines();
  for (const int type : {1, 1 + 32, 2, 2 + 1024, 4 + 16, 8 + 2048})
    for (const int inside : {0, 1}) {
      EstimateRecord plan = NewPlan(type);
      PlanForm form = OpenPlanForm(PlanMode::Existing, false, plan, lines, DeliveredMaterialRows());
      form.lists[SelectionList::SlabInterior].ListIndex = inside;
      EstimateRecord stored = plan;
      StorePlanFromForm(form, stored);
      EXPECT_EQ(BoxesOf(PartsOf(form)), BoxesOf(PartsOf(stored))) << type << " " << inside;
      EXPECT_EQ(PartsOf(form).isFinished, inside == 0) << type;
    }
}

TEST(PrintSelection, AsksForTheCustomersOfItsBoxes) {
  const struct {
    bool isAll;
    const char* from;
    const char* to;
    int first;
    int last;
    bool withCompany;
  } rows[] = {
      {true, " 1", " LAST", 1, 32767, true}, {false, " 1", " LAST", 1, 32767, false}, {false, "7", "12", 7, 12, false},
      {false, "7", "7", 7, 7, false},        {false, "7", "Last", 7, 32767, false},   {false, "7 a", "9.6", 7, 10, false},
  };
  for (const auto& row : rows) {
    const RangeBoxes boxes{.isAll = row.isAll, .txtCustFrom = row.from, .txtCustTo = row.to};
    EXPECT_EQ(CheckCustFrom(boxes).message + CheckCustTo(boxes).message, "");
    const CustomerRange range = RangeOf(boxes);
    EXPECT_EQ(range.PrintFrom, row.first) << row.from;
    EXPECT_EQ(range.PrintTo, row.last) << row.to;
    EXPECT_EQ(range.Holds(0), row.withCompany) << row.from;
  }
}

TEST(PrintSelection, PrintsAtLeastOneCopy) {
  const std::pair<const char*, int> rows[] = {{"1", 1}, {"0", 1},   {"", 1},    {"-3", 1},   {"x", 1},
                                              {"3", 3}, {"2.5", 2}, {"3.5", 4}, {"999", 999}};
  for (const auto& [text, copies] : rows) EXPECT_EQ(CopiesOf(text), copies) << text;
}

}  // namespace
}  // namespace norvale
