// Which lines are open, held against a plain reading of the house: what each line asks for, and when a house has it.
#include "entry/field_rules.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "entry/entry_form.h"
#include "entry/screens.h"

namespace norvale {
namespace {

using enum NumberBox;
using enum SelectionList;

constexpr FieldSet kJoistsBelow = {JoistBox::FirstFloorBay1, JoistBox::FirstFloorBay2, JoistBox::FirstFloorBay3, JoistBox::FirstFloorBay4,
                                   JoistBox::FirstFloorBay5};
constexpr FieldSet kJoistsAbove = {JoistBox::SecondFloorBay1, JoistBox::SecondFloorBay2, JoistBox::SecondFloorBay3,
                                   JoistBox::SecondFloorBay4, JoistBox::SecondFloorBay5};

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
  const auto row = [&form](SelectionList list) { return form.lists[list].ListIndex + 1; };
  return {form.PlanType,      row(WallSheathing), row(SoffitMaterial),    row(FoundationType), row(GirderPly),
          row(DropGirderPly), row(OakFlooring),   row(SecondFloorFramed), row(WallFinish)};
}

struct OpenFields {
  const char* what;
  FieldSet fields;
  bool (*isOpen)(const House&);
};

// clang-format off
const OpenFields kReading[] = {
    {"framing grade and floor sheathing", {FramingGrade, FloorSheathing}, [](const House& h) { return !h.OneLevelSlab(); }},
    {"stock of every house", {ShoePlates, PreCutStuds, WallSheathing, CornerBracing, RoofSheathing, Roofing, ExteriorTrim, FasciaBoard, SoffitMaterial, FriezeMould, BaseMouldFirstFloor, ExtWallLftFirstFloor, OutsideCornersFirstFloor, HeatedLength, OverallLength}, [](const House&) { return true; }},
    {"sheet height, unless the sheet comes in one height", WallSheetHeight, [](const House& h) { return h.wallSheathing != 3; }},
    {"interior of a slab building", SlabInterior, [](const House& h) { return !h.Crawl(); }},
    {"foundation wall, girder, drop girder, joists", {FoundationType, GirderPly, DropGirderPly, FloorJoistSize}, [](const House& h) { return h.Crawl(); }},
    {"girder", {GirderSize, MajorGirderLft8, MajorGirderLft10, MajorGirderLft12, MajorGirderLft14, MajorGirderLft16, WiderGirderLft8, WiderGirderLft10, WiderGirderLft12, WiderGirderLft14, WiderGirderLft16}, [](const House& h) { return h.Crawl() && h.girder != 1; }},
    {"drop girder", {DropGirderSize, DropGirderLft8, DropGirderLft10, DropGirderLft12, DropGirderLft14, DropGirderLft16}, [](const House& h) { return h.Crawl() && h.dropGirder != 1; }},
    {"sills on piers", {SillPly, SillSize, SillLft8, SillLft10, SillLft12, SillLft14, SillLft16}, [](const House& h) { return h.Crawl() && h.foundationWall != 1; }},
    {"sill plate of a crawl space with more than its foundation", SillPlate, [](const House& h) { return h.Crawl() && h.type > 12; }},
    {"interior walls, heated area", {IntWallLftFirstFloor, HeatedSqFtFirstFloor}, [](const House&) { return true; }},
    {"bays of the first floor", {BayAreaLftFirstFloor1, BayAreaLftFirstFloor2, BayAreaLftFirstFloor3, BayAreaLftFirstFloor4, BayAreaLftFirstFloor5, kJoistsBelow}, [](const House& h) { return h.Crawl(); }},
    {"oak, yes or no", OakFlooring, [](const House& h) { return !h.OneLevelSlab(); }},
    {"oak area", OakFlooringSqFt, [](const House& h) { return !h.OneLevelSlab() && h.oak == 1; }},
    {"attached garage", {GarageWallLftSheathed, GarageWallLftUnsheathed, GarageSqFt}, [](const House& h) { return h.Is(16); }},
    {"carport or porch", {CarportBeamLft, CarportSqFt}, [](const House& h) { return h.Is(64 | 128); }},
    {"second floor", {SecondFloorFramed, BaseMouldSecondFloor, ExtWallLftSecondFloor, IntWallLftSecondFloor, PreCutStudsSecondFloor, HeatedSqFtSecondFloor, OutsideCornersSecondFloor}, [](const House& h) { return h.TwoLevels(); }},
    {"joists of the second floor", {SecondFloorJoistSize, BayAreaLftSecondFloor1, BayAreaLftSecondFloor2, BayAreaLftSecondFloor3, BayAreaLftSecondFloor4, BayAreaLftSecondFloor5, kJoistsAbove}, [](const House& h) { return h.TwoLevels() && h.secondFloor == 1; }},
    {"headers, fascia, roof, overhang, gables", {HeaderLft, FasciaLft, RoofSqFt, RoofOverhang, GableSqFt}, [](const House&) { return true; }},
    {"wall finish", WallFinish, [](const House& h) { return !h.Veneer(); }},
    {"frieze board", FriezeBoard, [](const House& h) { return h.NoSiding(); }},
    {"lap or vinyl siding", Siding, [](const House& h) { return h.NoSiding() ? h.soffit == 5 : h.finish != 2; }},
    {"panels and their height", {PanelSiding, PanelHeight}, [](const House& h) { return !h.NoSiding() && h.finish == 2; }},
    {"corners and wall area", {CornerBoards, ExtWallSidingFirstFloor}, [](const House& h) { return !h.NoSiding(); }},
    {"wall area of the second floor", ExtWallSidingSecondFloor, [](const House& h) { return h.TwoLevels() && !h.NoSiding(); }},
    {"knee walls", KneeWallLft, [](const House& h) { return h.Is(1024); }},
    {"rooms under the roof", HalfStoryBaseMouldLft, [](const House& h) { return h.Is(1024 | 2048); }},
};
// clang-format on

std::string Names(const FieldSet& set) {
  std::string names;
  for (const PlanLine& line : kPlanLines)
    if (line.field.IsList() ? set.Has(line.field.List()) : set.Has(line.field.Number())) names.append(line.field.Name()).append(" ");
  for (const JoistBox box : kAllJoistBoxes)
    if (set.Has(box)) names.append(RowOf(box).name).append(" ");
  return names;
}

FieldSet OpenBoxes(const PlanForm& form) {
  FieldSet open;
  for (const SelectionList list : kAllSelectionLists)
    if (form.lists[list].enabled) open = open | list;
  for (const NumberBox box : kAllNumberBoxes)
    if (form.numbers[box].enabled) open = open | box;
  for (const JoistBox box : kAllJoistBoxes)
    if (form.joists[box].enabled) open = open | box;
  return open;
}

void ExpectAsRead(const PlanForm& form, const std::string& where) {
  const House house = HouseOf(form);
  FieldSet read;
  for (const OpenFields& group : kReading)
    if (group.isOpen(house)) read = read | group.fields;
  const FieldSet open = OpenBoxes(form);
  EXPECT_EQ(Names(open), Names(read)) << where;
  for (const LineState& line : form.lines) EXPECT_EQ(line.enabled, IsEnabled(form, line.field)) << where << line.caption;
}

// One choice after another, so that a rule must also take back what the choice before has opened or shut. A plan that is
// stored and opened again is open where it was.
TEST(FieldRules, EveryRowAfterEveryOtherOpensWhatItNeeds) {
  constexpr std::pair<SelectionList, SelectionList> kLists[] = {{WallSheathing, WallSheathing},
                                                                {SoffitMaterial, SoffitMaterial},
                                                                {SoffitMaterial, WallFinish},
                                                                {WallFinish, SoffitMaterial},
                                                                {WallFinish, WallFinish},
                                                                {FoundationType, FoundationType},
                                                                {GirderPly, GirderPly},
                                                                {DropGirderPly, DropGirderPly},
                                                                {FloorJoistSize, FloorJoistSize},
                                                                {OakFlooring, OakFlooring},
                                                                {SecondFloorFramed, SecondFloorFramed}};
  const auto rowsOf = [](const PlanForm& form, SelectionList list) {
    return list == FloorJoistSize ? 1 : static_cast<int>(form.lists[list].rows.size());
  };
  for (const int type : PlanTypes()) {
    const PlanForm start = NewForm(type);
    ExpectAsRead(start, "type " + std::to_string(type));
    EXPECT_EQ(start.mark, ChangeMark::None) << type;
    for (const auto& [list, next] : kLists)
      for (int first = 0; first < rowsOf(start, list); ++first)
        for (int second = 0; second < rowsOf(start, next); ++second) {
          PlanForm form = start;
          ClickSelectionList(form, list, first);
          ClickSelectionList(form, next, second);
          std::ostringstream where;
          where << "type " << type << ", " << RowOf(list).name << " row " << first + 1 << ", then " << RowOf(next).name << " row "
                << second + 1;
          ExpectAsRead(form, where.str());
          EXPECT_EQ(form.mark, form.lists[list].enabled || form.lists[next].enabled ? ChangeMark::Modified : ChangeMark::None)
              << where.str();
          if (list != next || first != second) continue;
          EstimateRecord plan = BlankPlan();
          plan.PlanType = static_cast<std::int16_t>(type);
          StorePlanFromForm(form, plan);
          const PlanForm reopened = OpenedForm(plan);
          EXPECT_EQ(Names(OpenBoxes(reopened)), Names(OpenBoxes(form))) << where.str();
          ExpectAsRead(reopened, where.str() + ", opened again");
          plan.PlanType = kOneStorySlab;
          ExpectAsRead(OpenedForm(plan), where.str() + ", made a slab");
        }
  }
}

TEST(FieldRules, TheTypeFixesItsBoxes) {
  struct Case {
    int type;
    SelectionList list;
    int row;
    bool isKept = false;  // what the operator chose for a stored plan stays his own
  };
  for (const Case& c :
       {Case{1, SlabOrCrawl, 0}, Case{4, SlabOrCrawl, 1}, Case{8, SlabOrCrawl, 1}, Case{1, SecondFloorType, 0}, Case{2, SecondFloorType, 1},
        Case{4, SecondFloorType, 0}, Case{8, SecondFloorType, 1}, Case{2, GirderPly, 0}, Case{8, GirderPly, 1, true},
        Case{4, GarageOrStorage, 1}, Case{20, GarageOrStorage, 0}, Case{4, CarportOrPorch, 1}, Case{68, CarportOrPorch, 0},
        Case{132, CarportOrPorch, 0}, Case{516, WallFinish, 0}, Case{8, SecondFloorFramed, 0, true}, Case{2056, SecondFloorFramed, 1, true},
        Case{2050, SecondFloorFramed, 1, true}, Case{1032, SecondFloorFramed, 0, true}}) {
    const std::string where = "type " + std::to_string(c.type) + ", " + std::string(RowOf(c.list).name);
    EXPECT_EQ(NewForm(c.type).lists[c.list].ListIndex, c.row) << where;
    EstimateRecord contrary = BlankPlan();
    contrary.PlanType = static_cast<std::int16_t>(c.type);
    contrary.*RowOf(c.list).index = c.row == 0 ? 2 : 1;
    EXPECT_EQ(OpenedForm(contrary).lists[c.list].ListIndex, c.isKept ? 1 - c.row : c.row) << where;
    if (c.list == WallFinish) {
      EXPECT_EQ(contrary.WallFinishIndex, 1) << "brick veneer, in the record too";
    }
  }
}

TEST(FieldRules, JoistBoxesOfATrussedFloorAreOutOfSightUntilJoistsAreChosen) {
  for (const std::int16_t framing : {1, 2}) {
    EstimateRecord plan = BlankPlan();
    plan.PlanType = kTwoLevelCrawl;
    plan.SecondFloorFramed = framing;
    PlanForm form = OpenedForm(plan);
    GoToScreen(form, 8);
    EXPECT_TRUE(form.numbers[NumberBox::BayAreaLftSecondFloor1].visible);
    EXPECT_EQ(form.joists[JoistBox::SecondFloorBay1].visible, framing == 1);
    ClickSelectionList(form, SelectionList::SecondFloorFramed, 0);
    EXPECT_TRUE(form.joists[JoistBox::SecondFloorBay1].visible);
  }
}

TEST(FieldRules, AChoiceTakesWhatHangsOnItAlong) {
  PlanForm sheet = NewForm(kOneStoryCrawl);
  for (const auto& [list, row] : {std::pair{WallSheathing, 0}, {WallSheetHeight, 2}, {WallSheathing, 2}})
    ClickSelectionList(sheet, list, row);
  EXPECT_EQ(sheet.lists[SelectionList::WallSheetHeight].ListIndex, 0) << "the height of an eight-foot sheet";
  // Siding on brick starts with no wall area.
  for (const int row : {5, 6})
    for (const bool isNew : {true, false}) {
      EstimateRecord plan = BlankPlan();
      plan.PlanType = kTwoLevelSlab;
      plan.ExtWallSidingFirstFloor = 900;
      PlanForm form = isNew ? NewForm(kTwoLevelSlab) : OpenedForm(plan);
      SelectRow(form, SelectionList::WallFinish, row);
      EXPECT_EQ(form.numbers[NumberBox::ExtWallSidingFirstFloor].text, isNew ? "0" : "900") << row;
      EXPECT_TRUE(form.lists[SelectionList::FriezeBoard].enabled && form.numbers[NumberBox::ExtWallSidingFirstFloor].enabled &&
                  form.numbers[NumberBox::ExtWallSidingSecondFloor].enabled)
          << row;
      EXPECT_EQ(std::pair(form.lists[SelectionList::Siding].enabled, form.lists[SelectionList::PanelSiding].enabled),
                std::pair(row == 6, row == 5));
    }
}

}  // namespace
}  // namespace norvale
