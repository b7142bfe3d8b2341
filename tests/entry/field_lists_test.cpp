// Which lines are open, held against a plain reading of the house: what each line asks for, and when a house has it.
#include "entry/field_lists.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "entry/entry_form.h"
#include "entry/screens.h"

namespace norvale {
namespace {

// What decides about the lines: the parts of the house and the rows (from 1) chosen in the deciding lists.
struct House {
  int type;
  int wallSheathing, soffit, foundationWall, girder, dropGirder, oak, secondFloor, finish;

  [[nodiscard]] bool Is(int bits) const { return (type & bits) != 0; }
  [[nodiscard]] bool OneLevelSlab() const { return Is(1 | 32); }
  [[nodiscard]] bool Crawl() const { return Is(4 | 8); }
  [[nodiscard]] bool TwoLevels() const { return Is(2 | 8); }
  [[nodiscard]] bool Veneer() const { return Is(512); }
  [[nodiscard]] bool Brick() const { return Veneer() || finish == 1; }
  [[nodiscard]] bool NoSiding() const { return Brick() || finish == 4; }
};

House HouseOf(const PlanForm& form) {
  const auto row = [&form](int list) { return form.combo1[list].ListIndex + 1; };
  return {form.PlanType, row(4), row(10), row(16), row(17), row(19), row(25), row(29), row(34)};
}

std::set<int> Lines(int first, int last) {
  std::set<int> lines;
  for (int line = first; line <= last; ++line) lines.insert(line);
  return lines;
}

struct OpenLines {
  const char* what;
  std::set<int> lines;
  bool (*isOpen)(const House&);
};

const std::vector<OpenLines>& Reading() {
  static const std::vector<OpenLines> reading = {
      {"framing grade and floor sheathing", {0, 1}, [](const House& h) { return !h.OneLevelSlab(); }},
      {"stock of every house", Lines(2, 16), [](const House&) { return true; }},
      {"sheet height, unless the sheet comes in one height", {17}, [](const House& h) { return h.wallSheathing != 3; }},
      {"fixed by the type: floor, garage, carport, second floor", {18, 57, 62, 65}, [](const House&) { return false; }},
      {"interior of a slab building", {19}, [](const House& h) { return !h.Crawl(); }},
      {"foundation wall, girder, drop girder, joists", {20, 21, 33, 48}, [](const House& h) { return h.Crawl(); }},
      {"girder", Lines(22, 32), [](const House& h) { return h.Crawl() && h.girder != 1; }},
      {"drop girder", Lines(34, 39), [](const House& h) { return h.Crawl() && h.dropGirder != 1; }},
      {"sills on piers", Lines(40, 46), [](const House& h) { return h.Crawl() && h.foundationWall != 1; }},
      {"sill plate of a crawl space with more than its foundation", {47}, [](const House& h) { return h.Crawl() && h.type > 12; }},
      {"interior walls, heated area", {49, 50}, [](const House&) { return true; }},
      {"bays of the first floor", Lines(51, 55), [](const House& h) { return h.Crawl(); }},
      {"oak, yes or no", {56}, [](const House& h) { return !h.OneLevelSlab(); }},
      {"oak area", {58}, [](const House& h) { return !h.OneLevelSlab() && h.oak == 1; }},
      {"attached garage", Lines(59, 61), [](const House& h) { return h.Is(16); }},
      {"carport or porch", {63, 64}, [](const House& h) { return h.Is(64 | 128); }},
      {"second floor", {66, 68, 74, 75, 76, 77, 90}, [](const House& h) { return h.TwoLevels(); }},
      {"joists of the second floor", {67, 69, 70, 71, 72, 73}, [](const House& h) { return h.TwoLevels() && h.secondFloor == 1; }},
      {"headers, fascia, roof, overhang, gables", {78, 79, 80, 81, 91}, [](const House&) { return true; }},
      {"wall finish", {82}, [](const House& h) { return !h.Veneer(); }},
      {"frieze board", {83}, [](const House& h) { return h.NoSiding(); }},
      {"lap or vinyl siding", {84}, [](const House& h) { return h.NoSiding() ? h.soffit == 5 : h.finish != 2; }},
      {"panels and their height", {85, 89}, [](const House& h) { return !h.NoSiding() && h.finish == 2; }},
      {"corners and wall area", {86, 87}, [](const House& h) { return !h.NoSiding(); }},
      {"wall area of the second floor", {88}, [](const House& h) { return h.TwoLevels() && !h.NoSiding(); }},
      {"knee walls", {92}, [](const House& h) { return h.Is(1024); }},
      {"rooms under the roof", {93}, [](const House& h) { return h.Is(1024 | 2048); }},
  };
  return reading;
}

std::set<int> ExpectedLines(const House& house) {
  std::set<int> open;
  for (const OpenLines& group : Reading())
    if (group.isOpen(house)) open.insert(group.lines.begin(), group.lines.end());
  return open;
}

std::set<int> OpenBoxes(const PlanForm& form) {
  std::set<int> open;
  for (int line = 0; line < static_cast<int>(kScreenLines); ++line) {
    const LineControl& control = form.lblLine[line].control;
    const bool enabled = control.kind == ControlKind::Selection ? form.combo1[control.index].enabled : form.TxtDisp[control.index].enabled;
    if (enabled) open.insert(line);
  }
  return open;
}

std::set<int> OpenJoists(const PlanForm& form) {
  std::set<int> open;
  for (int box = 0; box < static_cast<int>(kJoistBoxes); ++box)
    if (form.TxtDispJoist[box].enabled) open.insert(box);
  return open;
}

void ExpectAsRead(const PlanForm& form, const std::string& where) {
  const House house = HouseOf(form);
  EXPECT_EQ(OpenBoxes(form), ExpectedLines(house)) << where;
  std::set<int> joists;
  if (house.Crawl()) joists.merge(Lines(0, 4));
  if (house.TwoLevels() && house.secondFloor == 1) joists.merge(Lines(5, 9));
  EXPECT_EQ(OpenJoists(form), joists) << where;
}

void ExpectCaptionsAsBoxes(const PlanForm& form, const std::string& where) {
  std::set<int> captions;
  for (int line = 0; line < static_cast<int>(kScreenLines); ++line)
    if (form.lblLine[line].enabled) captions.insert(line);
  EXPECT_EQ(captions, OpenBoxes(form)) << where;
}

TEST(FieldLists, TheReadingNamesEveryLineOnce) {
  std::multiset<int> named;
  for (const OpenLines& group : Reading()) named.insert(group.lines.begin(), group.lines.end());
  EXPECT_EQ(named.size(), kScreenLines);
  EXPECT_EQ(std::set<int>(named.begin(), named.end()), Lines(0, 93));
}

TEST(FieldLists, NewPlansOfEveryTypeOpenWhatTheirHouseHas) {
  for (const int type : PlanTypes()) {
    const PlanForm form = NewForm(type);
    ExpectAsRead(form, "type " + std::to_string(type));
    ExpectCaptionsAsBoxes(form, "type " + std::to_string(type));
    EXPECT_EQ(form.mark, ChangeMark::None) << type;
  }
}

// One choice after another, so that a rule must also take back what the choice before has opened or shut.
TEST(FieldLists, EveryRowAfterEveryOtherOpensWhatItNeeds) {
  for (const int type : PlanTypes()) {
    const PlanForm start = NewForm(type);
    for (const int list : {4, 10, 16, 17, 19, 24, 25, 29, 34}) {
      const int rows = static_cast<int>(start.combo1[list].rows.size());
      for (int first = 0; first < rows; ++first)
        for (int second = 0; second < rows; ++second) {
          if (list == 24 && second != first) continue;
          PlanForm form = start;
          ClickSelectionBox(form, list, first);
          ClickSelectionBox(form, list, second);
          const std::string where = "type " + std::to_string(type) + ", list " + std::to_string(list) + ", row " +
                                    std::to_string(second + 1) + " after " + std::to_string(first + 1);
          ExpectAsRead(form, where);
          ExpectCaptionsAsBoxes(form, where);
          EXPECT_EQ(form.mark, form.combo1[list].enabled ? ChangeMark::Modified : ChangeMark::None) << where;
        }
    }
  }
}

TEST(FieldLists, SoffitAndFinishDecideTogether) {
  for (const int type : {kOneStoryCrawl, kTwoLevelSlab, kTwoLevelCrawl | kBrickVeneer})
    for (int finish = 0; finish < 5; ++finish)
      for (int soffit = 0; soffit < 6; ++soffit)
        for (const bool finishFirst : {true, false}) {
          PlanForm form = NewForm(type);
          if (finishFirst) ClickSelectionBox(form, 34, finish);
          ClickSelectionBox(form, 10, soffit);
          if (!finishFirst) ClickSelectionBox(form, 34, finish);
          ExpectAsRead(form, "type " + std::to_string(type) + ", finish " + std::to_string(finish) + ", soffit " + std::to_string(soffit));
        }
}

TEST(FieldLists, AReopenedPlanIsOpenWhereItWasWhenItWasStored) {
  for (const int type : PlanTypes()) {
    const PlanForm start = NewForm(type);
    for (const int list : {16, 19, 25, 29, 34})
      for (std::size_t row = 0; row < start.combo1[list].rows.size(); ++row) {
        PlanForm form = start;
        ClickSelectionBox(form, list, static_cast<int>(row));
        EstimateRecord plan = BlankPlan();
        plan.PlanType = static_cast<std::int16_t>(type);
        StorePlanFromForm(form, plan);
        const PlanForm reopened = OpenedForm(plan);
        const std::string where = "type " + std::to_string(type) + ", list " + std::to_string(list) + ", row " + std::to_string(row + 1);
        EXPECT_EQ(OpenBoxes(reopened), OpenBoxes(form)) << where;
        EXPECT_EQ(OpenJoists(reopened), OpenJoists(form)) << where;
      }
  }
}

// What a stored choice shuts before the rules of the lines look at the lists.
TEST(FieldLists, StoredChoicesShutTheirFields) {
  struct Case {
    std::int16_t EstimateRecord::*field;
    int value;
    std::set<int> shut;
  };
  const int type = kTwoLevelCrawl | kAttachedGarage | kCarport | kFieldFramedHalfStory;
  const auto open = [](EstimateRecord& plan) {
    PlanForm form;
    form.PlanType = plan.PlanType;
    PlaceLines(form, DeliveredScreenLines());
    LoadPlanIntoForm(form, PlanMode::Existing, plan, DeliveredMaterialRows());
    ApplyPlanTypeRules(form, plan);
    return form;
  };
  EstimateRecord plain = BlankPlan();
  plain.PlanType = type;
  const std::set<int> all = OpenBoxes(open(plain));
  for (const Case& c :
       {Case{&EstimateRecord::FoundationType, 1, {47}}, Case{&EstimateRecord::FoundationType, 2, Lines(40, 46)},
        Case{&EstimateRecord::Combo19Index, 1, Lines(34, 39)}, Case{&EstimateRecord::Combo19Index, 2, {}},
        Case{&EstimateRecord::Combo25Index, 1, {}}, Case{&EstimateRecord::Combo25Index, 2, {58}},
        Case{&EstimateRecord::SecondFloorFramed, 1, {}}, Case{&EstimateRecord::SecondFloorFramed, 2, {67, 69, 70, 71, 72, 73}},
        Case{&EstimateRecord::Combo34Index, 1, Lines(84, 89)}, Case{&EstimateRecord::Combo34Index, 2, {84}},
        Case{&EstimateRecord::Combo34Index, 3, {85, 89}}, Case{&EstimateRecord::Combo34Index, 4, {}}}) {
    EstimateRecord plan = plain;
    plan.*c.field = static_cast<std::int16_t>(c.value);
    const PlanForm form = open(plan);
    std::set<int> expected = all;
    for (const int line : c.shut) expected.erase(line);
    EXPECT_EQ(OpenBoxes(form), expected) << c.value;
    ExpectCaptionsAsBoxes(form, std::to_string(c.value));
  }
}

TEST(FieldLists, CodedListsReachTheirFieldsOnly) {
  struct Case {
    const char* list;
    std::size_t boxes, numbers, lines;  // how many are shut afterwards
  };
  for (const Case& c :
       {Case{"C0139", 2, 0, 0}, Case{"T005309", 0, 3, 0}, Case{"L0093", 0, 0, 2}, Case{"X0102", 0, 0, 0}, Case{"C", 0, 0, 0},
        Case{"", 0, 0, 0}, Case{"C4099", 0, 0, 0}, Case{"T54", 0, 0, 0}, Case{"L94", 0, 0, 0}, Case{"T1", 0, 0, 0}}) {
    PlanForm form;
    SetFieldList(form, c.list, false);
    const auto shut = [](const auto& fields) {
      return static_cast<std::size_t>(std::count_if(fields.begin(), fields.end(), [](const auto& field) { return !field.enabled; }));
    };
    EXPECT_EQ(shut(form.combo1), c.boxes) << c.list;
    EXPECT_EQ(shut(form.TxtDisp), c.numbers) << c.list;
    EXPECT_EQ(shut(form.lblLine), c.lines) << c.list;
    SetFieldList(form, c.list, true);
    EXPECT_EQ(shut(form.combo1) + shut(form.TxtDisp) + shut(form.lblLine), 0U) << c.list;
  }
}

TEST(FieldLists, TheTypeFixesItsBoxes) {
  struct Case {
    int type;
    int list;
    int row;
  };
  for (const Case& c : {Case{1, 14, 0}, Case{4, 14, 1}, Case{8, 14, 1}, Case{1, 28, 0}, Case{2, 28, 1}, Case{4, 28, 0}, Case{8, 28, 1},
                        Case{2, 17, 0}, Case{8, 17, 1}, Case{4, 26, 1}, Case{20, 26, 0}, Case{4, 27, 1}, Case{68, 27, 0}, Case{132, 27, 0},
                        Case{516, 34, 0}, Case{8, 29, 0}, Case{2056, 29, 1}, Case{2050, 29, 1}, Case{1032, 29, 0}}) {
    EXPECT_EQ(NewForm(c.type).combo1[static_cast<std::size_t>(c.list)].ListIndex, c.row) << "type " << c.type << ", list " << c.list;
    if (c.list == 29) continue;  // the operator's own once the plan is stored
    EstimateRecord contrary = BlankPlan();
    contrary.PlanType = static_cast<std::int16_t>(c.type);
    contrary.*kPlanChoices[static_cast<std::size_t>(c.list)].index = c.row == 0 ? 2 : 1;
    const int row = c.list == 17 && c.row == 1 ? 0 : c.row;  // a crawl space keeps its girder
    EXPECT_EQ(OpenedForm(contrary).combo1[static_cast<std::size_t>(c.list)].ListIndex, row) << "type " << c.type << ", list " << c.list;
  }
}

TEST(FieldLists, AnOpenedPlanKeepsItsFramingUnderAtticTrusses) {
  EstimateRecord plan = BlankPlan();
  plan.PlanType = kTwoLevelCrawl | kAtticTrussHalfStory;
  plan.SecondFloorFramed = 1;
  EXPECT_EQ(OpenedForm(plan).combo1[29].ListIndex, 0);
}

TEST(FieldLists, BrickVeneerFixesTheFinishInTheRecordToo) {
  EstimateRecord plan = BlankPlan();
  plan.PlanType = kOneStoryCrawl | kBrickVeneer;
  plan.Combo34Index = 3;
  OpenedForm(plan);
  EXPECT_EQ(plan.Combo34Index, 1);
}

TEST(FieldLists, JoistBoxesOfATrussedFloorAreOutOfSightUntilJoistsAreChosen) {
  EstimateRecord plan = BlankPlan();
  plan.PlanType = kTwoLevelCrawl;
  plan.SecondFloorFramed = 2;
  PlanForm form = OpenedForm(plan);
  GoToScreen(form, 8);
  EXPECT_TRUE(form.TxtDisp[37].visible);
  EXPECT_FALSE(form.TxtDispJoist[5].visible);
  ClickSelectionBox(form, 29, 0);
  EXPECT_TRUE(form.TxtDispJoist[5].visible);
}

TEST(FieldLists, ASillPlateNeedsMoreThanAFoundation) {
  for (const auto& [type, isOpen] :
       std::vector<std::pair<int, bool>>{{4, false}, {8, false}, {12, false}, {20, true}, {72, true}, {520, true}})
    EXPECT_EQ(NewForm(type).combo1[23].enabled, isOpen) << type;
}

TEST(FieldLists, AnEightFootSheetTakesTheHeightWithIt) {
  PlanForm form = NewForm(kOneStoryCrawl);
  ClickSelectionBox(form, 4, 0);
  ClickSelectionBox(form, 13, 2);
  ClickSelectionBox(form, 4, 2);
  EXPECT_EQ(form.combo1[13].ListIndex, 0);
}

TEST(FieldLists, FinishesOfSidingOnBrickStartWithNoWallArea) {
  for (const int row : {5, 6}) {
    PlanForm form = NewForm(kTwoLevelSlab);
    SetNumberText(form, 48, "900");
    SelectRow(form, 34, row);
    EXPECT_EQ(form.TxtDisp[48].text, "0") << row;
    EXPECT_TRUE(form.combo1[35].enabled && form.TxtDisp[48].enabled && form.TxtDisp[49].enabled) << row;
    EXPECT_EQ(form.combo1[36].enabled, row == 6) << row;
    EXPECT_EQ(form.combo1[37].enabled, row == 5) << row;

    EstimateRecord plan = BlankPlan();
    plan.PlanType = kTwoLevelSlab;
    plan.ExtWallSidingA = 900;
    PlanForm opened = OpenedForm(plan);
    SelectRow(opened, 34, row);
    EXPECT_EQ(opened.TxtDisp[48].text, "900") << row;
  }
}

TEST(Worksheet, AsksForWhatAChoiceCouldOpen) {
  struct Case {
    int type;
    std::set<int> added;
  };
  const std::set<int> sills = Lines(40, 47);
  const auto with = [&sills](std::set<int> lines) {
    lines.insert(sills.begin(), sills.end());
    return lines;
  };
  for (const Case& c :
       {Case{1, with({17, 58, 83, 85, 89})}, Case{2, with({17, 58, 83, 85, 89})},
        Case{4, with({17, 34, 35, 36, 37, 38, 39, 58, 83, 85, 89})}, Case{8, with({17, 34, 35, 36, 37, 38, 39, 58, 83, 85, 89})}}) {
    PlanForm form = NewForm(c.type);
    const std::set<int> before = OpenBoxes(form);
    for (int line = 0; line < static_cast<int>(kScreenLines); ++line) EnableLabelsForPrint(form, line);
    std::set<int> expected = before;
    expected.insert(c.added.begin(), c.added.end());
    std::set<int> asked;
    for (int line = NextEnabledLine(form, -1); line >= 0; line = NextEnabledLine(form, line)) asked.insert(line);
    EXPECT_EQ(asked, expected) << c.type;
    EXPECT_EQ(OpenBoxes(form), before) << "only captions are for printing";
  }
}

TEST(Worksheet, OpensGirderAndJoistCaptionsAgain) {
  PlanForm form = NewForm(kTwoLevelCrawl);
  SelectRow(form, 17, 0);
  SelectRow(form, 29, 1);
  ASSERT_FALSE(form.lblLine[23].enabled || form.lblLine[69].enabled);
  EnableLabelsForPrint(form, 21);
  EnableLabelsForPrint(form, 66);
  EXPECT_TRUE(form.lblLine[22].enabled && form.lblLine[27].enabled && form.lblLine[67].enabled && form.lblLine[73].enabled);
  EXPECT_FALSE(form.lblLine[28].enabled) << "the wider girder is not asked for";
  SelectRow(form, 34, 0);
  ASSERT_FALSE(form.lblLine[88].enabled);
  EnableLabelsForPrint(form, 82);
  EXPECT_TRUE(form.lblLine[88].enabled);
  EXPECT_EQ(NextEnabledLine(form, 93), -1);
}

}  // namespace
}  // namespace norvale
