#include "entry/plan_form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "base/files.h"
#include "data/keyed_files.h"
#include "entry/entry_form.h"
#include "entry/field_rules.h"
#include "entry/screens.h"
#include "prices/exchange.h"

namespace norvale {
namespace {

// Each field that a box holds has a value of its own, those that no box holds as well.
EstimateRecord PlanOfOwnValues() {
  std::string bytes(EstimateRecordSize, '\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>('0' + i % 64);
  EstimateRecord plan;
  DecodeValue(bytes.data(), plan);
  plan.PlanType = kTwoLevelCrawl;
  StorePlanFromForm(NewForm(kTwoLevelCrawl), plan);  // choices that the lists have
  for (const NumberBox box : kAllNumberBoxes) RowOf(box).place.In(plan) = static_cast<std::int16_t>(100 + static_cast<int>(box));
  for (const JoistBox box : kAllJoistBoxes) RowOf(box).place.In(plan) = static_cast<std::int16_t>(20 + 2 * static_cast<int>(box));
  plan.CarportSqFtUnmulled = 77;
  return plan;
}

TEST(PlanForm, PlansAreTheSameAfterTheyWereOpened) {
  std::vector<EstimateRecord> plans = {PlanOfOwnValues()};
  for (const auto& file : std::filesystem::directory_iterator(std::filesystem::path(NORVALE_SOURCE_DIR) / "samples")) {
    if (!file.path().filename().string().starts_with("plan-")) continue;
    for (const EstimateRecord& plan : ImportTables(ReadWholeFile(file.path())).plans) plans.push_back(plan);
  }
  EXPECT_GT(plans.size(), 11U);
  for (EstimateRecord& plan : plans) {
    PadTexts(plan);
    EstimateRecord stored = plan;
    const PlanForm form = OpenedForm(stored);
    StorePlanFromForm(form, stored);
    EXPECT_EQ(ExportTables({}, {stored}), ExportTables({}, {plan}));
    EXPECT_EQ(stored, plan) << plan.PlanNumber.Raw();
    EXPECT_FALSE(FirstNumberFault(form).has_value()) << plan.PlanNumber.Raw();
  }
}

TEST(PlanForm, ANewPlanHasTheDefaultsAndNothingElse) {
  EstimateRecord old = PlanOfOwnValues();
  const PlanForm form = OpenPlanForm(PlanMode::New, false, old, DeliveredScreenLines(), DeliveredMaterialRows());
  EXPECT_THAT(form.numbers.values, testing::Each(testing::Field(&NumberState::text, "")));
  const char* const lengths[] = {"8", "10", "12", "14", "16", "8", "10", "12", "14", "16"};
  for (std::size_t box = 0; box < kJoistBoxes; ++box) EXPECT_EQ(form.joists.values[box].text, lengths[box]) << box;
  EXPECT_EQ(form.CarportSqFtUnmulled, 0);
  EXPECT_EQ(ShownText(form.lists[SelectionList::FramingGrade]) + ShownText(form.lists[SelectionList::WallFinish]), "#2 SYPVINYL SIDING");
  EXPECT_EQ(form.mark, ChangeMark::None);
  EXPECT_FALSE(form.isPrintEnabled);
}

TEST(PlanForm, ListsEndWhereTheFileSaysSo) {
  std::vector<MaterialRow> rows;
  const auto add = [&rows](std::int16_t list, const char* text, std::int16_t flag) {
    MaterialRow& row = rows.emplace_back();
    row.ListNumber = list, row.ListDefaultFlag = flag;
    row.ListText.Assign(text);
  };
  add(3, "A", 0), add(3, "B", -1), add(3, "List End", 0), add(3, "C", -1), add(40, "D", -1), add(-1, "E", 0), add(15, "DRYWALL", 0);
  PlanForm form;
  LoadPlanIntoForm(form, PlanMode::New, BlankPlan(), rows);
  EXPECT_THAT(form.lists[SelectionList::PreCutStuds].rows, testing::ElementsAre("A", "B"));
  EXPECT_EQ(form.lists[SelectionList::PreCutStuds].ListIndex, 1);
  EXPECT_EQ(form.lists[SelectionList::WallSheathing].ListIndex, -1);
  EstimateRecord finished = BlankPlan();
  finished.SlabInterior.Assign("FINISHED");
  LoadPlanIntoForm(form, PlanMode::Existing, finished, rows);
  EXPECT_EQ(form.lists[SelectionList::SlabInterior].ListIndex, 0) << "the first row of the interior, whatever it is called";
}

TEST(PlanForm, AStoredChoiceIsFoundByRowThenByText) {
  struct Case {
    const char* what;
    int index;
    const char* text;
    int row;
    const char* shown;
    int storedIndex;
  };
  // List 24: sawn joists in rows 1 to 3; row 8 is longer than what the record keeps of it.
  for (const Case& c : {Case{"both agree", 2, "2X10", 1, "2X10", 2}, Case{"the rows have moved", 1, "2X12", 2, "2X12", 3},
                        Case{"cut text", 8, "11 7/8\" PRI-400 19.2 OC", 7, "11 7/8\" PRI-400 19.2 OC", 8},
                        Case{"beyond the list, text known", 90, "2X8", 0, "2X8", 1}, Case{"beyond the list", 90, "", -1, "", 0},
                        Case{"no text", 3, "", 2, "2X12", 3}, Case{"nothing chosen", 0, "", -1, "", 0},
                        Case{"a stock that is gone", 2, "2X14", -1, "2X14", 0}, Case{"damaged", -7, "", -1, "", 0}}) {
    EstimateRecord plan = BlankPlan();
    plan.FloorJoistSizeIndex = static_cast<std::int16_t>(c.index);
    plan.FloorJoistSize.Assign(c.text);
    PlanForm form;
    LoadPlanIntoForm(form, PlanMode::Existing, plan, DeliveredMaterialRows());
    EXPECT_EQ(form.lists[SelectionList::FloorJoistSize].ListIndex, c.row) << c.what;
    EXPECT_EQ(ShownText(form.lists[SelectionList::FloorJoistSize]), c.shown) << c.what;
    StorePlanFromForm(form, plan);
    EXPECT_EQ(plan.FloorJoistSizeIndex, c.storedIndex) << c.what;
    SelectRow(form, SelectionList::FloorJoistSize, 0);
    SelectRow(form, SelectionList::FloorJoistSize, -1);
    EXPECT_EQ(ShownText(form.lists[SelectionList::FloorJoistSize]), "") << c.what << ", once another row was chosen";
  }
}

TEST(PlanForm, NoNumberWrapsOnItsWayIntoTheRecord) {
  for (const auto& [text, stored] :
       {std::pair{"", 0}, {"32767", 32767}, {"32768", 32767}, {"99999999999", 32767}, {"-40000", -32768}, {"2.5", 2}, {"3.5", 4}}) {
    PlanForm form;
    form.numbers[NumberBox::RoofSqFt].text = form.joists[JoistBox::SecondFloorBay5].text = text;
    EstimateRecord plan;
    StorePlanFromForm(form, plan);
    EXPECT_EQ(plan.RoofSqFt, stored) << text;
    EXPECT_EQ(plan.JoistLengthSecondFloor[4], stored) << text;
  }
}

TEST(PlanForm, AChangedTypeNamesTheShutBoxesThatStillCount) {
  EstimateRecord plan = BlankPlan();
  plan.PlanType = kOneStoryCrawl | kBrickVeneer;
  plan.ExtWallLftFirstFloor = 156, plan.ExtWallLftSecondFloor = 140, plan.GarageSqFt = 484, plan.ExtWallSidingFirstFloor = 1248,
  plan.ExtWallSidingSecondFloor = 1100;
  PlanForm form = OpenPlanForm(PlanMode::Existing, true, plan, DeliveredScreenLines(), DeliveredMaterialRows());
  EXPECT_TRUE(form.isPrintEnabled);
  EXPECT_THAT(ShutBoxesWithValues(form),
              testing::ElementsAre(NumberBox::GarageSqFt, NumberBox::ExtWallLftSecondFloor, NumberBox::ExtWallSidingSecondFloor));
  ClearShutBoxes(form);
  StorePlanFromForm(form, plan);
  EXPECT_EQ(plan.ExtWallLftFirstFloor, 156);
  EXPECT_EQ(plan.ExtWallSidingFirstFloor, 1248) << "only the finish shuts this wall";
  EXPECT_EQ(plan.ExtWallLftSecondFloor + plan.GarageSqFt + plan.ExtWallSidingSecondFloor, 0);
  EXPECT_EQ(form.mark, ChangeMark::Modified);
}

TEST(PlanForm, AFormWithoutItsFilesIsRefused) {
  EXPECT_EQ(RefusalOfPlan(DeliveredScreenLines(), DeliveredMaterialRows()), "");
  EXPECT_THAT(RefusalOfPlan({}, DeliveredMaterialRows()), testing::HasSubstr("NVdata01.idx"));
  std::vector<MaterialRow> withoutLast = DeliveredMaterialRows();
  std::erase_if(withoutLast, [](const MaterialRow& row) { return row.ListNumber == 39; });
  EXPECT_THAT(RefusalOfPlan(DeliveredScreenLines(), withoutLast), testing::HasSubstr("NVdata02.idx"));
}

TEST(PlanForm, WholeHouseOfVinylChoosesVinylWhereTheFinishIsFree) {
  for (const int type : {kTwoLevelSlab, kTwoLevelSlab | kBrickVeneer}) {
    PlanForm form = NewForm(type);
    SelectRow(form, SelectionList::WallFinish, 0);
    ChooseWholeHouseVinyl(form);
    EXPECT_EQ(ShownText(form.lists[SelectionList::WallFinish]), type == kTwoLevelSlab ? "VINYL SIDING" : "BRICK VENEER");
  }
}

TEST(ControlCode, NamesABoxOrNone) {
  struct Case {
    const char* code;
    LineField field;
  };
  for (const Case& c : {Case{"C:39", SelectionList::PanelHeight}, Case{"C:40", {}}, Case{"T:53", NumberBox::HalfStoryBaseMouldLft},
                        Case{"T:54", {}}, Case{"    ", {}}, Case{"T:5", {}}, Case{"T053", {}}, Case{"X:01", {}}, Case{"C: 1", {}}}) {
    ScreenLine line;
    line.ControlCode.Assign(c.code);
    EXPECT_EQ(FieldOfLine(line), c.field) << c.code;
  }
}

}  // namespace
}  // namespace norvale
