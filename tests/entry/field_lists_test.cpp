// Which lines are open, held against a plain reading of the house: what each line asks for, and when a house has it.
#include "entry/field_lists.h"

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

std::set<int> OpenBoxes(const PlanForm& form) {
  std::set<int> open;
  for (int line = 0; line < static_cast<int>(kScreenLines); ++line) {
    const LineControl& control = form.lblLine[line].control;
    if (control.kind == ControlKind::Selection ? form.combo1[control.index].enabled : form.TxtDisp[control.index].enabled)
      open.insert(line);
  }
  return open;
}

std::set<int> OpenCaptions(const PlanForm& form) {
  std::set<int> open;
  for (int line = NextEnabledLine(form, -1); line >= 0; line = NextEnabledLine(form, line)) open.insert(line);
  return open;
}

void ExpectAsRead(const PlanForm& form, const std::string& where) {
  const House house = HouseOf(form);
  std::set<int> lines;
  for (const OpenLines& group : Reading())
    if (group.isOpen(house)) lines.insert(group.lines.begin(), group.lines.end());
  EXPECT_EQ(OpenBoxes(form), lines) << where;
  EXPECT_EQ(OpenCaptions(form), lines) << where;
  for (int box = 0; box < static_cast<int>(kJoistBoxes); ++box)
    EXPECT_EQ(form.TxtDispJoist[box].enabled, box < 5 ? house.Crawl() : house.TwoLevels() && house.secondFloor == 1) << where << box;
}

// One choice after another, so that a rule must also take back what the choice before has opened or shut. A plan that is
// stored and opened again is open where it was.
TEST(FieldLists, EveryRowAfterEveryOtherOpensWhatItNeeds) {
  constexpr std::pair<int, int> kLists[] = {{4, 4},   {10, 10}, {10, 34}, {34, 10}, {34, 34}, {16, 16},
                                            {17, 17}, {19, 19}, {24, 24}, {25, 25}, {29, 29}};
  const auto rowsOf = [](const PlanForm& form, int list) { return list == 24 ? 1 : static_cast<int>(form.combo1[list].rows.size()); };
  for (const int type : PlanTypes()) {
    const PlanForm start = NewForm(type);
    ExpectAsRead(start, "type " + std::to_string(type));
    EXPECT_EQ(start.mark, ChangeMark::None) << type;
    for (const auto& [list, next] : kLists)
      for (int first = 0; first < rowsOf(start, list); ++first)
        for (int second = 0; second < rowsOf(start, next); ++second) {
          PlanForm form = start;
          ClickSelectionBox(form, list, first);
          ClickSelectionBox(form, next, second);
          const std::string where = "type " + std::to_string(type) + ", list " + std::to_string(list) + " row " +
                                    std::to_string(first + 1) + ", then list " + std::to_string(next) + " row " +
                                    std::to_string(second + 1);
          ExpectAsRead(form, where);
          EXPECT_EQ(form.mark, form.combo1[list].enabled || form.combo1[next].enabled ? ChangeMark::Modified : ChangeMark::None) << where;
          if (list != next || first != second) continue;
          EstimateRecord plan = BlankPlan();
          plan.PlanType = static_cast<std::int16_t>(type);
          StorePlanFromForm(form, plan);
          const PlanForm reopened = OpenedForm(plan);
          EXPECT_EQ(OpenBoxes(reopened), OpenBoxes(form)) << where;
          ExpectAsRead(reopened, where + ", opened again");
          plan.PlanType = kOneStorySlab;
          ExpectAsRead(OpenedForm(plan), where + ", made a slab");
        }
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
    const std::string where = "type " + std::to_string(c.type) + ", list " + std::to_string(c.list);
    const auto list = static_cast<std::size_t>(c.list);
    EXPECT_EQ(NewForm(c.type).combo1[list].ListIndex, c.row) << where;
    EstimateRecord contrary = BlankPlan();
    contrary.PlanType = static_cast<std::int16_t>(c.type);
    contrary.*kPlanChoices[list].index = c.row == 0 ? 2 : 1;
    // A crawl space keeps its girder, and the floor is the operator's own once the plan is stored.
    const bool isKept = (c.list == 17 && c.row == 1) || c.list == 29;
    EXPECT_EQ(OpenedForm(contrary).combo1[list].ListIndex, isKept ? 1 - c.row : c.row) << where;
    if (c.list == 34) {
      EXPECT_EQ(contrary.WallFinishIndex, 1) << "brick veneer, in the record too";
    }
  }
}

TEST(FieldLists, JoistBoxesOfATrussedFloorAreOutOfSightUntilJoistsAreChosen) {
  for (const std::int16_t framing : {1, 2}) {
    EstimateRecord plan = BlankPlan();
    plan.PlanType = kTwoLevelCrawl;
    plan.SecondFloorFramed = framing;
    PlanForm form = OpenedForm(plan);
    GoToScreen(form, 8);
    EXPECT_TRUE(form.TxtDisp[37].visible);
    EXPECT_EQ(form.TxtDispJoist[5].visible, framing == 1);
    ClickSelectionBox(form, 29, 0);
    EXPECT_TRUE(form.TxtDispJoist[5].visible);
  }
}

TEST(FieldLists, AChoiceTakesWhatHangsOnItAlong) {
  PlanForm sheet = NewForm(kOneStoryCrawl);
  for (const auto& [list, row] : {std::pair{4, 0}, {13, 2}, {4, 2}}) ClickSelectionBox(sheet, list, row);
  EXPECT_EQ(sheet.combo1[13].ListIndex, 0) << "the height of an eight-foot sheet";
  // Siding on brick starts with no wall area.
  for (const int row : {5, 6})
    for (const bool isNew : {true, false}) {
      EstimateRecord plan = BlankPlan();
      plan.PlanType = kTwoLevelSlab;
      plan.ExtWallSidingFirstFloor = 900;
      PlanForm form = isNew ? NewForm(kTwoLevelSlab) : OpenedForm(plan);
      SelectRow(form, 34, row);
      EXPECT_EQ(form.TxtDisp[48].text, isNew ? "0" : "900") << row;
      EXPECT_TRUE(form.combo1[35].enabled && form.TxtDisp[48].enabled && form.TxtDisp[49].enabled) << row;
      EXPECT_EQ(std::pair(form.combo1[36].enabled, form.combo1[37].enabled), std::pair(row == 6, row == 5));
    }
}

// A blank worksheet asks for what a choice could open; only captions are for printing.
TEST(Worksheet, AsksForWhatAChoiceCouldOpen) {
  const std::set<int> ofSlab = {17, 40, 41, 42, 43, 44, 45, 46, 47, 58, 83, 85, 89};
  std::set<int> ofCrawl = Lines(34, 39);
  ofCrawl.insert(ofSlab.begin(), ofSlab.end());
  for (const int type : {1, 2, 4, 8}) {
    PlanForm form = NewForm(type);
    const std::set<int> before = OpenBoxes(form);
    std::set<int> asked = type < 4 ? ofSlab : ofCrawl;
    asked.insert(before.begin(), before.end());
    // What the defaults leave open comes back as well.
    if (type == 8) SelectRow(form, 17, 0), SelectRow(form, 29, 1), SelectRow(form, 34, 0);
    const std::set<int> shut = OpenBoxes(form);
    for (int line = 0; line < static_cast<int>(kScreenLines); ++line) EnableLabelsForPrint(form, line);
    // ... but for the wider girder.
    if (type == 8) std::erase_if(asked, [](int line) { return line >= 28 && line <= 32; });
    EXPECT_EQ(OpenCaptions(form), asked) << type;
    EXPECT_EQ(OpenBoxes(form), shut) << type;
  }
}

}  // namespace
}  // namespace norvale
