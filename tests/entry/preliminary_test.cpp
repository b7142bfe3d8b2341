#include "entry/preliminary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "entry/entry_form.h"
#include "entry/number_entry.h"

namespace norvale {
namespace {

constexpr int kEverything = kTwoLevelCrawl | kAttachedGarage | kCarport | kPorch;

// Heated area, porches, carport, garage, pitch, eaves, rakes, overhang, gables.
using Texts = std::array<std::string, kFootages>;

PreliminarySheet Sheet(int planType, const Texts& texts, std::vector<std::string> widths = {}) {
  PreliminarySheet sheet = OpenPreliminarySheet(static_cast<std::int16_t>(planType));
  sheet.txtfootage = texts;
  sheet.GableWidths = std::move(widths);
  return sheet;
}

TEST(Preliminary, ComesToTheFiguresWorkedByHand) {
  struct Case {
    const char* what;
    PreliminarySheet sheet;
    double fascia, roof, garage, carport, gables;
  };
  for (const Case& c :
       {Case{"nothing", Sheet(kEverything, {}), 0, 0, 0, 0, 0},
        Case{"only eaves, with their overhang", Sheet(kEverything, {"", "", "", "", "", "120", "", "", ""}), 120, 240, 0, 0, 0},
        // 2 x Sqr(7.5^2 + 10^2) for rakes of 20 at 9/12 is 25; the flat roof of no area leaves its overhang, rounded.
        Case{"rakes at 9/12", Sheet(kEverything, {"", "", "", "", "9", "100.3", "20", "", ""}), 125, 251, 0, 0, 0},
        // Half side 50: rise 37.5, slope 62.5, two slopes of 100 x 62.5.
        Case{"a square of 100 ft", Sheet(kEverything, {"", "2000", "1000", "7000", "9", "", "", "", ""}), 0, 12500, 7000, 3000, 0},
        // 10000 x 1.02 as a square has half a side of 50.497; flat, both slopes are 2 x half x half.
        Case{"2 % more heated area", Sheet(kOneStorySlab, {"10000", "", "", "", "0", "", "", "", ""}), 0, 10200, 0, 0, 0},
        // 24 ft at 6/12: half a rise of 6 by 12 on each side.
        Case{"two gables", Sheet(kEverything, {"", "", "", "", "6", "", "", "", "2"}, {"24", "10"}), 0, 0, 0, 0, 85},
        Case{"parts that the type lacks", Sheet(kOneStorySlab, {"", "500", "500", "500", "0", "", "", "", ""}), 0, 0, 0, 0, 0}}) {
    const Preliminary result = ComputePreliminary(c.sheet);
    EXPECT_EQ(result.fascia, c.fascia) << c.what;
    EXPECT_EQ(result.roofArea, c.roof) << c.what;
    EXPECT_EQ(result.garageArea, c.garage) << c.what;
    EXPECT_EQ(result.carportArea, c.carport) << c.what;
    EXPECT_EQ(result.gableArea, c.gables) << c.what;
  }
}

TEST(Preliminary, OverhangLimitsHoldForWhatWasMeasured) {
  for (const auto& [inches, row] :
       {std::pair{"", 0}, {"14.5", 0}, {"14.51", 1}, {"15", 1}, {"16", 1}, {"19.99", 1}, {"20", 0}, {"20.01", 2}, {"24", 2}}) {
    PreliminarySheet sheet = OpenPreliminarySheet(kOneStorySlab);
    sheet.Text(Footage::Overhang) = inches;
    EXPECT_EQ(LeaveFootage(sheet, Footage::Overhang), "");
    EXPECT_EQ(ComputePreliminary(sheet).overhangRow, row) << inches;
  }
}

TEST(Preliminary, EachGableHasItsBox) {
  PreliminarySheet sheet = OpenPreliminarySheet(kOneStorySlab);
  const auto count = [&sheet](const char* gables) { return sheet.Text(Footage::Gables) = gables, LeaveFootage(sheet, Footage::Gables); };
  EXPECT_EQ(count("3"), "");
  EXPECT_EQ(FirstGableWithoutWidth(sheet), 0U);
  sheet.GableWidths = {"24", "9.5", "30"};
  EXPECT_EQ(LeaveGableWidth(sheet, 1), "");
  EXPECT_FALSE(FirstGableWithoutWidth(sheet).has_value());
  EXPECT_EQ(count("4"), "");
  EXPECT_THAT(sheet.GableWidths, testing::ElementsAre("24", "10", "30", "")) << "what is there stays";
  EXPECT_EQ(FirstGableWithoutWidth(sheet), 3U);
  EXPECT_EQ(count("41"), kEntryTooLarge);
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
  HandOver(ComputePreliminary(Sheet(kEverything, {"1500", "60", "240", "484", "6", "96", "64", "16", "2"}, {"28", "28"})), form, plan);
  StorePlanFromForm(form, plan);
  // The fascia is 96 + 2 x Sqr(16^2 + 32^2), the interior walls follow the heated area.
  const std::array handed = {plan.EavesLft,    plan.RoofOverhangIndex, plan.FasciaLft,
                             plan.RoofSqFt,    plan.HeatedSqFtFirstFloor,  plan.GarageSqFt,
                             plan.CarportSqFt, plan.GableSqFt,    plan.IntWallLftFirstFloor};
  EXPECT_THAT(handed, testing::ElementsAre(96, 2, 167, 2922, 1500, 484, 300, 196, 165));
  EXPECT_EQ(form.mark, ChangeMark::Modified) << "an Exit must not lose it";
  PlanForm garage = NewForm(kOneStorySlab | kDetachedGarage);
  HandOver(ComputePreliminary(Sheet(kOneStorySlab, {"600", "", "", "", "", "", "", "", ""})), garage, plan);
  EXPECT_EQ(garage.numbers[NumberBox::IntWallLftFirstFloor].text, "") << "a detached garage has no rooms";
}

}  // namespace
}  // namespace norvale
