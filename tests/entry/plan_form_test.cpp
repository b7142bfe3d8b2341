#include "entry/plan_form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "base/files.h"
#include "data/keyed_files.h"
#include "entry/entry_form.h"
#include "entry/field_lists.h"
#include "entry/screens.h"
#include "prices/exchange.h"

namespace norvale {
namespace {

constexpr int kLists = static_cast<int>(kSelectionLists);

// Each field that a box holds has a value of its own, those that no box holds as well.
EstimateRecord PlanOfOwnValues() {
  std::string bytes(EstimateRecordSize, '\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>('0' + i % 64);
  EstimateRecord plan;
  DecodeValue(bytes.data(), plan);
  plan.PlanType = kTwoLevelCrawl;
  const PlanForm form = NewForm(kTwoLevelCrawl);
  StorePlanFromForm(form, plan);  // choices that the lists have
  for (int box = 0; box < static_cast<int>(kNumberBoxes); ++box) NumberField(plan, box) = static_cast<std::int16_t>(100 + box);
  for (int box = 0; box < static_cast<int>(kJoistBoxes); ++box) JoistField(plan, box) = static_cast<std::int16_t>(20 + 2 * box);
  plan.Disp36Tag = 77;
  return plan;
}

TEST(PlanForm, LoadAndStoreAreTheReverseOfOneAnother) {
  const EstimateRecord before = PlanOfOwnValues();
  EstimateRecord plan = before;
  const PlanForm form = OpenedForm(plan);
  StorePlanFromForm(form, plan);
  EXPECT_EQ(plan, before);
}

TEST(PlanForm, SamplePlansAreTheSameAfterTheyWereOpened) {
  int plans = 0;
  for (const auto& file : std::filesystem::directory_iterator(std::filesystem::path(NORVALE_SOURCE_DIR) / "samples")) {
    if (!file.path().filename().string().starts_with("plan-")) continue;
    for (EstimateRecord plan : ImportTables(ReadWholeFile(file.path())).plans) {
      PadTexts(plan);
      EstimateRecord stored = plan;
      const PlanForm form = OpenedForm(stored);
      StorePlanFromForm(form, stored);
      EXPECT_EQ(ExportTables({}, {stored}), ExportTables({}, {plan})) << file.path();
      EXPECT_EQ(stored, plan) << file.path();
      EXPECT_FALSE(FirstNumberFault(form).has_value()) << file.path();
      ++plans;
    }
  }
  EXPECT_GT(plans, 10);
}

TEST(PlanForm, EveryDeliveredRowComesBack) {
  const EstimateRecord start = PlanOfOwnValues();
  for (int list = 0; list < kLists; ++list) {
    const std::size_t rows = NewForm(kTwoLevelCrawl).combo1[static_cast<std::size_t>(list)].rows.size();
    ASSERT_GT(rows, 0U) << list;
    for (int row = -1; row < static_cast<int>(rows); ++row) {
      PlanForm form;
      LoadPlanIntoForm(form, PlanMode::Existing, start, DeliveredMaterialRows());
      form.combo1[list].ListIndex = row;
      EstimateRecord stored = start;
      StorePlanFromForm(form, stored);
      PlanForm again;
      LoadPlanIntoForm(again, PlanMode::Existing, stored, DeliveredMaterialRows());
      EXPECT_EQ(again.combo1[list].ListIndex, row) << "list " << list;
      EstimateRecord twice = stored;
      StorePlanFromForm(again, twice);
      EXPECT_EQ(twice, stored) << "list " << list << ", row " << row;
    }
  }
}

TEST(PlanForm, EachBoxHasTheFieldThatItsNameSays) {
  EstimateRecord plan;
  struct Case {
    int box;
    const std::int16_t* field;
  };
  for (const Case& c : {Case{0, &plan.ExtWallLftFirstFloor},
                        Case{3, &plan.Disp03},
                        Case{4, &plan.MajorGirderLft[0]},
                        Case{8, &plan.MajorGirderLft[4]},
                        Case{9, &plan.Disp09[0]},
                        Case{13, &plan.Disp09[4]},
                        Case{18, &plan.DropGirderLft[4]},
                        Case{19, &plan.SillLft[0]},
                        Case{24, &plan.IntWallLftFirstFloor},
                        Case{25, &plan.HeatedSqFtA},
                        Case{26, &plan.BayAreaLftFirstFloor[0]},
                        Case{31, &plan.Disp31},
                        Case{34, &plan.GarageSqFt},
                        Case{36, &plan.CarportSqFt},
                        Case{41, &plan.BayAreaLftSecondFloor[4]},
                        Case{42, &plan.ExtWallLftSecondFloor},
                        Case{44, &plan.HeatedSqFtB},
                        Case{47, &plan.RoofSqFt},
                        Case{48, &plan.ExtWallSidingA},
                        Case{50, &plan.Disp50},
                        Case{51, &plan.GableSqFt},
                        Case{52, &plan.Disp52},
                        Case{53, &plan.Disp53}})
    EXPECT_EQ(&NumberField(plan, c.box), c.field) << c.box;
  EXPECT_EQ(&JoistField(plan, 4), &plan.Joist0[4]);
  EXPECT_EQ(&JoistField(plan, 5), &plan.Joist5[0]);
}

TEST(PlanForm, ANewPlanHasTheDefaultsAndNothingElse) {
  EstimateRecord old = PlanOfOwnValues();
  old.PlanType = kTwoLevelCrawl;
  const PlanForm form = OpenPlanForm(PlanMode::New, false, old, DeliveredScreenLines(), DeliveredMaterialRows());
  for (int box = 0; box < static_cast<int>(kNumberBoxes); ++box) EXPECT_EQ(form.TxtDisp[box].text, "") << box;
  const std::vector<std::string> lengths = {"8", "10", "12", "14", "16", "8", "10", "12", "14", "16"};
  for (std::size_t box = 0; box < kJoistBoxes; ++box) EXPECT_EQ(form.TxtDispJoist[box].text, lengths[box]) << box;
  EXPECT_EQ(form.Disp36Tag, 0);
  EXPECT_EQ(ShownText(form.combo1[0]), "#2 SYP");
  EXPECT_EQ(ShownText(form.combo1[34]), "VINYL SIDING");
  EXPECT_EQ(form.mark, ChangeMark::None);
  EXPECT_FALSE(form.isPrintEnabled);
}

TEST(PlanForm, ListsEndWhereTheFileSaysSo) {
  for (const SelectionBox& box : NewForm(kOneStoryCrawl).combo1)
    EXPECT_THAT(box.rows, testing::Not(testing::Contains(std::string(kListEnd))));
  std::vector<MaterialRow> rows;
  const auto add = [&rows](std::int16_t list, const char* text, std::int16_t flag) {
    MaterialRow& row = rows.emplace_back();
    row.ListNumber = list, row.ListDefaultFlag = flag;
    row.ListText.Assign(text);
  };
  add(3, "A", 0), add(3, "B", -1), add(3, "List End", 0), add(3, "C", -1), add(40, "D", -1), add(-1, "E", 0);
  PlanForm form;
  LoadPlanIntoForm(form, PlanMode::New, BlankPlan(), rows);
  EXPECT_THAT(form.combo1[3].rows, testing::ElementsAre("A", "B"));
  EXPECT_EQ(form.combo1[3].ListIndex, 1);
  EXPECT_EQ(form.combo1[4].ListIndex, -1);
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
    EXPECT_EQ(form.combo1[24].ListIndex, c.row) << c.what;
    EXPECT_EQ(ShownText(form.combo1[24]), c.shown) << c.what;
    StorePlanFromForm(form, plan);
    EXPECT_EQ(plan.FloorJoistSizeIndex, c.storedIndex) << c.what;
    SelectRow(form, 24, 0);
    SelectRow(form, 24, -1);
    EXPECT_EQ(ShownText(form.combo1[24]), "") << c.what << ", once another row was chosen";
  }
}

TEST(PlanForm, TheInteriorIsFoundByItsTextAlone) {
  EstimateRecord plan = BlankPlan();
  PlanForm form;
  for (const auto& [text, row] : std::vector<std::pair<const char*, int>>{{"FINISHED", 0}, {"UNFINISHED", 1}, {"", -1}}) {
    plan.Combo15Text.Assign(text);
    LoadPlanIntoForm(form, PlanMode::Existing, plan, DeliveredMaterialRows());
    EXPECT_EQ(form.combo1[15].ListIndex, row) << text;
  }
}

TEST(PlanForm, NoNumberWrapsOnItsWayIntoTheRecord) {
  struct Case {
    const char* text;
    int stored;
  };
  for (const Case& c : {Case{"", 0}, Case{"32767", 32767}, Case{"32768", 32767}, Case{"99999999999", 32767}, Case{"-40000", -32768},
                        Case{"2.5", 2}, Case{"3.5", 4}, Case{"abc", 0}}) {
    PlanForm form;
    form.TxtDisp[47].text = c.text;
    form.TxtDispJoist[9].text = c.text;
    EstimateRecord plan;
    StorePlanFromForm(form, plan);
    EXPECT_EQ(plan.RoofSqFt, c.stored) << c.text;
    EXPECT_EQ(plan.Joist5[4], c.stored) << c.text;
  }
}

TEST(PlanForm, ShutBoxesKeepWhatTheyShow) {
  PlanForm form = NewForm(kOneStorySlab);
  ASSERT_FALSE(form.TxtDisp[42].enabled);
  SetNumberText(form, 42, "140");
  EstimateRecord plan;
  StorePlanFromForm(form, plan);
  EXPECT_EQ(plan.ExtWallLftSecondFloor, 140);
}

TEST(PlanForm, AChangedTypeNamesTheShutBoxesThatStillCount) {
  EstimateRecord plan = BlankPlan();
  plan.PlanType = kOneStoryCrawl | kBrickVeneer;
  plan.ExtWallLftFirstFloor = 156, plan.ExtWallLftSecondFloor = 140, plan.GarageSqFt = 484, plan.ExtWallSidingA = 1248,
  plan.ExtWallSidingB = 1100;
  PlanForm form = OpenPlanForm(PlanMode::Existing, true, plan, DeliveredScreenLines(), DeliveredMaterialRows());
  EXPECT_TRUE(form.isPrintEnabled);
  EXPECT_THAT(ShutBoxesWithValues(form), testing::ElementsAre(34, 42, 49));
  ClearShutBoxes(form);
  StorePlanFromForm(form, plan);
  EXPECT_EQ(plan.ExtWallLftFirstFloor, 156);
  EXPECT_EQ(plan.ExtWallSidingA, 1248) << "only the finish shuts this wall";
  EXPECT_EQ(plan.ExtWallLftSecondFloor + plan.GarageSqFt + plan.ExtWallSidingB, 0);
  EXPECT_EQ(form.mark, ChangeMark::Modified);
}

TEST(PlanForm, AFormWithoutItsFilesIsRefused) {
  EXPECT_EQ(RefusalOfPlan(DeliveredScreenLines(), DeliveredMaterialRows()), "");
  EXPECT_THAT(RefusalOfPlan({}, DeliveredMaterialRows()), testing::HasSubstr("NVdata01.idx"));
  EXPECT_THAT(RefusalOfPlan(DeliveredScreenLines(), {}), testing::HasSubstr("NVdata02.idx"));
  std::vector<MaterialRow> withoutLast = DeliveredMaterialRows();
  std::erase_if(withoutLast, [](const MaterialRow& row) { return row.ListNumber == 39; });
  EXPECT_THAT(RefusalOfPlan(DeliveredScreenLines(), withoutLast), testing::HasSubstr("NVdata02.idx"));
}

TEST(PlanForm, WholeHouseOfVinylChoosesVinylWhereTheFinishIsFree) {
  PlanForm form = NewForm(kTwoLevelSlab);
  SelectRow(form, 34, 0);
  ChooseWholeHouseVinyl(form);
  EXPECT_EQ(ShownText(form.combo1[34]), "VINYL SIDING");
  PlanForm brick = NewForm(kTwoLevelSlab | kBrickVeneer);
  ChooseWholeHouseVinyl(brick);
  EXPECT_EQ(ShownText(brick.combo1[34]), "BRICK VENEER");
}

TEST(ControlCode, NamesABoxOrNone) {
  struct Case {
    const char* code;
    LineControl control;
  };
  for (const Case& c : {Case{"C:00", {ControlKind::Selection, 0}}, Case{"C:39", {ControlKind::Selection, 39}}, Case{"C:40", {}},
                        Case{"T:53", {ControlKind::Number, 53}}, Case{"T:54", {}}, Case{"    ", {}}, Case{"", {}}, Case{"T:5", {}},
                        Case{"T053", {}}, Case{"X:01", {}}, Case{"C: 1", {}}})
    EXPECT_EQ(ParseControlCode(c.code), c.control) << c.code;
}

TEST(ControlCode, EveryBoxHasItsLineOnTheDeliveredScreens) {
  const PlanForm form = NewForm(kOneStorySlab);
  EXPECT_EQ(form.LastLine, 93);
  EXPECT_THAT(form.LineOfCombo, testing::Each(testing::Ge(0)));
  EXPECT_THAT(form.LineOfNumber, testing::Each(testing::Ge(0)));
  for (const auto& [list, line] :
       std::vector<std::pair<std::size_t, int>>{{4, 4}, {16, 20}, {17, 21}, {19, 33}, {24, 48}, {25, 56}, {29, 66}, {34, 82}})
    EXPECT_EQ(form.LineOfCombo[list], line) << list;
}

}  // namespace
}  // namespace norvale
