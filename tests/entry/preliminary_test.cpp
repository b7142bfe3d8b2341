#include "entry/preliminary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "entry/entry_form.h"
#include "entry/number_entry.h"

namespace norvale {
namespace {

constexpr int kEverything = kTwoLevelCrawl | kAttachedGarage | kCarport | kPorch;

PreliminarySheet Sheet(int planType, const std::array<std::string, kFootages>& texts, std::vector<std::string> widths = {}) {
  PreliminarySheet sheet = OpenPreliminarySheet(static_cast<std::int16_t>(planType));
  sheet.txtfootage = texts;
  sheet.GableWidths = std::move(widths);
  return sheet;
}

TEST(Preliminary, ComesToTheFiguresWorkedByHand) {
  struct Case {
    const char* what;
    PreliminarySheet sheet;
    double fascia, roof, heated, garage, carport, gables;
    int row;
  };
  // 1600 x 1.02 = 1632 and 292 more: a square of 1924 / 4 = 481 from its half side; at 12/12 each slope is half x Sqr(2).
  for (const Case& c : {
           Case{"nothing", Sheet(kEverything, {}), 0, 0, 0, 0, 0, 0, 0},
           Case{"only eaves", Sheet(kEverything, {"", "", "", "", "", "120", "", "", ""}), 120, 240, 0, 0, 0, 0, 0},
           // 2 x Sqr(7.5^2 + 10^2) for rakes of 20 at 9/12 is 25; the flat roof of no area leaves its overhang.
           Case{"rakes at 9/12", Sheet(kEverything, {"", "", "", "", "9", "100", "20", "", ""}), 125, 250, 0, 0, 0, 0, 0},
           // Half side 50: rise 37.5, slope 62.5, two slopes of 100 x 62.5.
           Case{"a square of 100 ft at 9/12", Sheet(kEverything, {"", "2000", "1000", "7000", "9", "", "", "", ""}), 0, 12500, 0, 7000,
                3000, 0, 0},
           // 24 ft at 6/12: half a rise of 6 by 12 on each side.
           Case{"gables of 24 and 10 ft at 6/12", Sheet(kEverything, {"", "", "", "", "6", "", "", "", "2"}, {"24", "10"}), 0, 0, 0, 0, 0,
                85, 0},
           Case{"parts that the type lacks", Sheet(kOneStorySlab, {"", "500", "500", "500", "0", "", "", "", ""}), 0, 0, 0, 0, 0, 0, 0},
           Case{"16 inches", Sheet(kEverything, {"", "", "", "", "", "", "", "16", ""}), 0, 0, 0, 0, 0, 0, 1},
       }) {
    const Preliminary result = ComputePreliminary(c.sheet);
    EXPECT_EQ(result.fascia, c.fascia) << c.what;
    EXPECT_EQ(result.roofArea, c.roof) << c.what;
    EXPECT_EQ(result.heatedArea, c.heated) << c.what;
    EXPECT_EQ(result.garageArea, c.garage) << c.what;
    EXPECT_EQ(result.carportArea, c.carport) << c.what;
    EXPECT_EQ(result.gableArea, c.gables) << c.what;
    EXPECT_EQ(result.overhangRow, c.row) << c.what;
  }
}

TEST(Preliminary, HeatedAreaCountsTwoPercentMore) {
  // 10000 x 1.02 as a square has half a side of 50.497; flat, both slopes are 2 x half x half.
  EXPECT_EQ(ComputePreliminary(Sheet(kOneStorySlab, {"10000", "", "", "", "0", "", "", "", ""})).roofArea, 10200);
}

TEST(Preliminary, OverhangLimitsHoldForWhatWasMeasured) {
  for (const auto& [inches, row] : std::vector<std::pair<const char*, int>>{
           {"", 0}, {"12", 0}, {"14.5", 0}, {"14.51", 1}, {"15", 1}, {"16", 1}, {"19.99", 1}, {"20", 0}, {"20.01", 2}, {"24", 2}}) {
    PreliminarySheet sheet = OpenPreliminarySheet(kOneStorySlab);
    sheet.Text(Footage::Overhang) = inches;
    EXPECT_EQ(LeaveFootage(sheet, Footage::Overhang), "");
    EXPECT_EQ(ComputePreliminary(sheet).overhangRow, row) << inches;
  }
}

TEST(Preliminary, BoxesAreRoundedAndHeldToTheirLimits) {
  struct Case {
    const char *typed, *shown;
    std::string_view message;
  };
  for (std::size_t box = 0; box < kFootages; ++box) {
    const auto footage = static_cast<Footage>(box);
    if (footage == Footage::Overhang || footage == Footage::Gables) continue;
    for (const Case& c : {Case{"", "", ""}, Case{"0", "", ""}, Case{"7.01", "8", ""}, Case{"32767", "32767", ""},
                          Case{"32768", "32768", kEntryTooLarge}, Case{"-3", "3", kEntryTooSmall}}) {
      PreliminarySheet sheet = OpenPreliminarySheet(kEverything);
      sheet.Text(footage) = c.typed;
      EXPECT_EQ(LeaveFootage(sheet, footage), c.message) << CaptionOf(footage) << c.typed;
      EXPECT_EQ(sheet.Text(footage), c.shown) << CaptionOf(footage) << c.typed;
    }
  }
}

TEST(Preliminary, EachGableHasItsBox) {
  PreliminarySheet sheet = OpenPreliminarySheet(kOneStorySlab);
  sheet.Text(Footage::Gables) = "3";
  EXPECT_EQ(LeaveFootage(sheet, Footage::Gables), "");
  EXPECT_EQ(sheet.GableWidths.size(), 3U);
  EXPECT_EQ(FirstGableWithoutWidth(sheet), 0U);
  sheet.GableWidths = {"24", "9.5", "30"};
  EXPECT_EQ(LeaveGableWidth(sheet, 1), "");
  EXPECT_FALSE(FirstGableWithoutWidth(sheet).has_value());
  sheet.Text(Footage::Gables) = "4";
  EXPECT_EQ(LeaveFootage(sheet, Footage::Gables), "");
  EXPECT_THAT(sheet.GableWidths, testing::ElementsAre("24", "10", "30", "")) << "what is there stays";
  EXPECT_EQ(FirstGableWithoutWidth(sheet), 3U);
  sheet.Text(Footage::Gables) = "41";
  EXPECT_EQ(LeaveFootage(sheet, Footage::Gables), kEntryTooLarge);
  EXPECT_EQ(sheet.GableWidths.size(), 4U);
}

TEST(Preliminary, ResultsThatNoPlanCanKeepAreRefused) {
  struct Case {
    const char* what;
    PreliminarySheet sheet;
    Footage focus;
  };
  for (const Case& c :
       {Case{"carport and porches together", Sheet(kEverything, {"", "20000", "12768", "", "", "", "", "", ""}), Footage::Carport},
        Case{"steep rakes", Sheet(kEverything, {"", "", "", "", "12", "", "30000", "", ""}), Footage::Rakes},
        Case{"roof", Sheet(kEverything, {"32767", "", "", "", "12", "", "", "", ""}), Footage::HeatedArea},
        Case{"gables", Sheet(kEverything, {"", "", "", "", "12", "", "", "", "1"}, {"400"}), Footage::Gables},
        Case{"eaves", Sheet(kEverything, {"", "", "", "", "", "40000", "", "", ""}), Footage::Eaves}}) {
    const auto refusal = RefusalOfPreliminary(ComputePreliminary(c.sheet));
    ASSERT_TRUE(refusal.has_value()) << c.what;
    EXPECT_EQ(refusal->focus, c.focus) << c.what;
    EXPECT_EQ(refusal->message, kEntryTooLarge) << c.what;
  }
  EXPECT_FALSE(RefusalOfPreliminary(ComputePreliminary(Sheet(kEverything, {"", "20000", "12767", "", "", "", "", "", ""}))).has_value());
}

TEST(Preliminary, HandsOverToTheDataEntry) {
  PlanForm form = NewForm(kEverything);
  EstimateRecord plan = BlankPlan();
  const PreliminarySheet sheet = Sheet(kEverything, {"1500", "60", "240", "484", "6", "96", "64", "16", "2"}, {"28", "28"});
  const Preliminary result = ComputePreliminary(sheet);
  HandOver(result, form, plan);
  StorePlanFromForm(form, plan);
  EXPECT_EQ(plan.EavesLft, 96);
  EXPECT_EQ(plan.Combo33Index, 2);
  EXPECT_EQ(plan.FasciaLft, 167);  // 96 + 2 x Sqr(16^2 + 32^2)
  EXPECT_EQ(plan.RoofSqFt, result.roofArea);
  EXPECT_GT(plan.RoofSqFt, 2600);
  EXPECT_EQ(plan.HeatedSqFtA, 1500);
  EXPECT_EQ(plan.GarageSqFt, 484);
  EXPECT_EQ(plan.CarportSqFt, 300);
  EXPECT_EQ(plan.GableSqFt, 196);
  EXPECT_EQ(plan.IntWallLftFirstFloor, 165) << "follows the heated area";
  EXPECT_EQ(form.mark, ChangeMark::Modified) << "an Exit must not lose it";

  PlanForm empty = NewForm(kOneStorySlab | kDetachedGarage);
  HandOver(ComputePreliminary(Sheet(kOneStorySlab, {"600", "", "", "", "", "", "", "", ""})), empty, plan);
  EXPECT_EQ(empty.TxtDisp[51].text, "0");
  EXPECT_EQ(empty.TxtDisp[24].text, "") << "a detached garage has no rooms";
}

}  // namespace
}  // namespace norvale
