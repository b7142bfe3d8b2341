#include "entry/screens.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "entry/entry_form.h"
#include "entry/field_rules.h"
#include "entry/number_entry.h"

namespace norvale {
namespace {

using enum NumberBox;

constexpr const char* kSmall = "0 This Entry is TOO SMALL for calculations!|";
constexpr const char* kLarge = "0 This Entry is TOO LARGE for calculations!|";
constexpr const char* kRequired = "0 This Entry is REQUIRED for calculations!|";
constexpr int kFullStories = kTwoLevelCrawl | kAttachedGarage | kCarport;

// A crawl-space house of two levels with everything attached: all rows of all tables are open.
PlanForm OpenHouse() {
  PlanForm form = NewForm(kFullStories | kFieldFramedHalfStory);
  SelectRow(form, SelectionList::FoundationType, 1);
  SelectRow(form, SelectionList::DropGirderPly, 1);
  SelectRow(form, SelectionList::OakFlooring, 0);
  return form;
}

PlanForm Filled(PlanForm form) {
  for (const NumberBox box : kAllNumberBoxes)
    if (form.numbers[box].enabled) SetNumberText(form, box, "10");
  return form;
}

struct Typed {
  const char* typed;
  const char* shown;
  const char* message;
};

TEST(NumberBox, IsRoundedAndHeldToItsLimits) {
  for (const Typed& c :
       {Typed{"", "", kRequired}, Typed{"0", "", kRequired}, Typed{"0.001", "", kRequired}, Typed{"0.01", "1", ""}, Typed{"1", "1", ""},
        Typed{"1.009", "1", ""}, Typed{"1.01", "2", ""}, Typed{"1.5", "2", ""}, Typed{"-0.4", "", kRequired}, Typed{"-1", "1", kSmall},
        Typed{"32767", "32767", ""}, Typed{"32767.01", "32768", kLarge}, Typed{"1e300", "1000000000000", kLarge},
        Typed{"twelve", "", kRequired}, Typed{"12 ft", "12", ""}}) {
    PlanForm form = NewForm(kOneStoryCrawl);
    SetNumberText(form, NumberBox::ExtWallLftFirstFloor, c.typed);
    const BoxLeaving leaving = LeaveNumberBox(form, NumberBox::ExtWallLftFirstFloor);
    EXPECT_EQ(form.numbers[NumberBox::ExtWallLftFirstFloor].text, c.shown) << c.typed;
    EXPECT_EQ(leaving.message, c.message) << c.typed;
    EXPECT_EQ(leaving.focusReturns, *c.message != '\0') << c.typed;
  }
}

TEST(NumberBox, EveryOpenEmptyBoxIsAskedForButTheExempt) {
  const std::vector exempt = {OverallLength, HeatedSqFtFirstFloor, GarageWallLftUnsheathed, CarportSqFt, OutsideCornersSecondFloor,
                              GableSqFt,     HalfStoryBaseMouldLft};
  for (const bool halfStory : {true, false}) {
    PlanForm start = OpenHouse();
    if (!halfStory) start.PlanType = kFullStories;
    for (const NumberBox box : kAllNumberBoxes) {
      PlanForm form = start;
      const bool isExempt = std::ranges::count(exempt, box) > 0 || (box == IntWallLftSecondFloor && halfStory);
      form.numbers[box].enabled = true;
      EXPECT_EQ(LeaveNumberBox(form, box).message, isExempt ? "" : kRequired) << RowOf(box).name;
      form.numbers[box].enabled = false;
      EXPECT_EQ(LeaveNumberBox(form, box).message, "") << RowOf(box).name << " is shut";
    }
  }
}

TEST(NumberBox, IsAskedForOnceAndWhatIsTypedThenIsJudgedAnew) {
  PlanForm form = NewForm(kOneStoryCrawl);
  EXPECT_EQ(LeaveNumberBox(form, NumberBox::OutsideCornersFirstFloor).message, kRequired);
  EXPECT_EQ(LeaveNumberBox(form, NumberBox::OutsideCornersFirstFloor).message, "");
  EXPECT_EQ(LeaveNumberBox(form, NumberBox::OutsideCornersFirstFloor).message, kRequired) << "coming back begins anew";
  SetNumberText(form, NumberBox::OutsideCornersFirstFloor, "99999");
  EXPECT_EQ(LeaveNumberBox(form, NumberBox::OutsideCornersFirstFloor).message, kLarge);
  EXPECT_EQ(LeaveNumberBox(form, NumberBox::OutsideCornersFirstFloor).message, kLarge) << "a number that does not fit never passes";
  SetNumberText(form, NumberBox::OutsideCornersFirstFloor, "2.5");
  EXPECT_EQ(LeaveNumberBox(form, NumberBox::OutsideCornersFirstFloor).message, "");
  EXPECT_EQ(form.numbers[NumberBox::OutsideCornersFirstFloor].text, "3");
  SetNumberText(form, NumberBox::OutsideCornersFirstFloor, "-40000");
  EXPECT_EQ(LeaveNumberBox(form, NumberBox::OutsideCornersFirstFloor).message, kSmall);
  EXPECT_EQ(LeaveNumberBox(form, NumberBox::OutsideCornersFirstFloor).message, kLarge);
}

TEST(NumberBox, OneRowOfATableIsEnough) {
  struct Case {
    NumberBox filled;
    NumberBox left;
    bool isAsked;
  };
  for (const Case& c :
       {Case{MajorGirderLft12, MajorGirderLft8, false}, Case{MajorGirderLft12, WiderGirderLft8, false},
        Case{WiderGirderLft8, MajorGirderLft8, true}, Case{WiderGirderLft8, MajorGirderLft10, true}, Case{MajorGirderLft8, SillLft8, true},
        Case{DropGirderLft16, DropGirderLft8, false}, Case{DropGirderLft8, SillLft8, true}, Case{SillLft8, DropGirderLft16, true},
        Case{SillLft10, SillLft16, false}, Case{BayAreaLftFirstFloor1, BayAreaLftFirstFloor5, false},
        Case{BayAreaLftFirstFloor1, OakFlooringSqFt, true}, Case{OakFlooringSqFt, BayAreaLftFirstFloor1, true},
        Case{BayAreaLftSecondFloor5, BayAreaLftSecondFloor1, false}, Case{BayAreaLftFirstFloor5, BayAreaLftSecondFloor1, true}}) {
    PlanForm form = OpenHouse();
    SetNumberText(form, c.filled, "40");
    EXPECT_EQ(LeaveNumberBox(form, c.left).message, c.isAsked ? kRequired : "")
        << RowOf(c.filled).name << " filled, " << RowOf(c.left).name << " left";
  }
  PlanForm form = OpenHouse();
  for (const NumberBox box : {MajorGirderLft8, WiderGirderLft10}) SetNumberText(form, box, "40");
  EXPECT_EQ(LeaveNumberBox(form, MajorGirderLft10).message, kRequired) << "a wider girder needs its row";
}

TEST(NumberBox, NothingOutOfRangeIsStoredUnseen) {
  PlanForm form = NewForm(kOneStoryCrawl);
  EXPECT_FALSE(FirstNumberFault(form).has_value());
  SetJoistText(form, JoistBox::FirstFloorBay4, "40000");
  ASSERT_TRUE(FirstNumberFault(form).has_value());
  EXPECT_TRUE(FirstNumberFault(form)->box == decltype(NumberFault::box)(JoistBox::FirstFloorBay4));
  SetNumberText(form, NumberBox::RoofSqFt, "-1");
  EXPECT_TRUE(FirstNumberFault(form)->box == decltype(NumberFault::box)(RoofSqFt));
  EXPECT_EQ(FirstNumberFault(form)->message, kSmall);
}

// A button rounds as well, but leaves alone what is to be told.
TEST(JoistBox, HoldsEvenFeetFromEight) {
  for (const Typed& c : {Typed{"", "", ""}, Typed{"0", "", ""}, Typed{"1", "8", ""}, Typed{"7", "8", ""}, Typed{"8", "8", ""},
                         Typed{"8.2", "10", ""}, Typed{"9", "10", ""}, Typed{"10", "10", ""}, Typed{"-9", "10", kSmall},
                         Typed{"32766", "32766", ""}, Typed{"32767", "32767", kLarge}, Typed{"32768", "32768", kLarge}}) {
    PlanForm form = NewForm(kOneStoryCrawl);
    SetJoistText(form, JoistBox::FirstFloorBay1, c.typed);
    PlanForm pressed = form;
    const BoxLeaving leaving = LeaveJoistBox(form, JoistBox::FirstFloorBay1);
    EXPECT_EQ(form.joists[JoistBox::FirstFloorBay1].text, c.shown) << c.typed;
    EXPECT_EQ(leaving.message, c.message) << c.typed;
    EXPECT_EQ(leaving.focusReturns, *c.message != '\0') << c.typed;
    RoundJoistBox(pressed, JoistBox::FirstFloorBay1);
    EXPECT_EQ(pressed.joists[JoistBox::FirstFloorBay1].text, *c.message == '\0' ? c.shown : c.typed);
  }
}

// Each box emptied alone, in a filled house where every box is open.
TEST(Completeness, AnEmptyBoxIsNamedByItsScreen) {
  const std::vector<std::pair<int, std::vector<NumberBox>>> needed = {
      {1, {ExtWallLftFirstFloor}},
      {2, {OutsideCornersFirstFloor, HeatedLength, OverallLength}},
      {5, {HeatedSqFtFirstFloor}},
      {6, {OakFlooringSqFt, GarageWallLftSheathed, GarageSqFt}},
      {7, {CarportBeamLft, CarportSqFt}},
      {8, {ExtWallLftSecondFloor, IntWallLftSecondFloor, HeatedSqFtSecondFloor, HeaderLft, FasciaLft}},
      {9, {RoofSqFt}},
      {10, {ExtWallSidingFirstFloor, ExtWallSidingSecondFloor, OutsideCornersSecondFloor, KneeWallLft}}};
  ByNumberBox<int> screenOf;
  screenOf.values.fill(-1);
  for (const auto& [screen, boxes] : needed)
    for (const NumberBox box : boxes) screenOf[box] = screen;
  for (const bool halfStory : {true, false})
    for (const NumberBox box : kAllNumberBoxes) {
      PlanForm form = Filled(OpenHouse());
      if (!halfStory) form.PlanType = kFullStories;
      EXPECT_EQ(CheckBeforePrint(form).screen, -1);
      for (NumberState& number : form.numbers) number.isTouched = true;
      if (RowOf(box).group != BoxGroup::MajorGirder) form.numbers[box].text = "";
      const PrintCheck print = CheckBeforePrint(form);
      const bool isExempt = halfStory && (box == IntWallLftSecondFloor || box == OutsideCornersSecondFloor);
      EXPECT_EQ(print.screen, isExempt ? -1 : screenOf[box]) << RowOf(box).name;
      if (print.screen < 0) continue;
      EXPECT_EQ(print.message, "0 Screen " + std::to_string(print.screen + 1) + " Needs Additional Input|");
      const ScreenCheck check = CheckScreenComplete(form, print.screen);
      EXPECT_EQ(check.focus, box);
      EXPECT_EQ(check.message, "");
      EXPECT_FALSE(CheckScreenComplete(form, -print.screen).focus.has_value()) << "asked silently";
      form.numbers[box].enabled = false;
      EXPECT_EQ(CheckBeforePrint(form).screen, -1) << RowOf(box).name << " is shut";
    }
}

TEST(Completeness, ATableNeedsOneRow) {
  struct Case {
    BoxGroup group;
    int screen;
    const char* message;
  };
  for (const Case& c : {Case{BoxGroup::MajorGirder, 3, "0 There are no entries for: LFT MAJOR GIRDERS|"},
                        Case{BoxGroup::DropGirder, 4, "0 There are no entries for: LFT DROP GIRDERS|"},
                        Case{BoxGroup::Sill, 5, "0 There are no entries for: LFT SILLS|"},
                        Case{BoxGroup::FirstFloorBays, 6, "0 There are no entries for: LFT BAY AREAS-FL.JOIST|"},
                        Case{BoxGroup::SecondFloorBays, 8, "0 There are no entries for: LFT 2-FL. BAY AREAS-FL.JOIST|"}}) {
    std::vector<NumberBox> rows;
    PlanForm empty = Filled(OpenHouse());
    for (const NumberBox box : kAllNumberBoxes) {
      if (RowOf(box).group == c.group) rows.push_back(box);
      if (RowOf(box).group == c.group || RowOf(box).group == BoxGroup::WiderGirder) SetNumberText(empty, box, "");
    }
    const ScreenCheck check = CheckScreenComplete(empty, c.screen);
    EXPECT_EQ(check.message, c.message);
    EXPECT_EQ(check.focus, rows.front()) << c.message;
    EXPECT_FALSE(IsScreenComplete(empty, c.screen));
    for (const NumberBox box : rows) {
      PlanForm one = empty;
      SetNumberText(one, box, "10");
      EXPECT_TRUE(CheckScreenComplete(one, c.screen).isComplete) << RowOf(box).name;
    }
    PlanForm partly = empty;
    partly.numbers[rows.front()].enabled = false;
    partly.numbers[rows.front()].text = "10";
    EXPECT_EQ(CheckScreenComplete(partly, c.screen).focus, rows[1]) << "a shut row does not count";
    for (const NumberBox box : rows) partly.numbers[box].enabled = false;
    EXPECT_TRUE(CheckScreenComplete(partly, c.screen).isComplete) << "all shut";
  }
  PlanForm form = Filled(OpenHouse());
  SetNumberText(form, MajorGirderLft12, "");
  EXPECT_EQ(CheckScreenComplete(form, 3).focus, MajorGirderLft12) << "a wider girder needs its row";
  SetNumberText(form, WiderGirderLft12, "");
  EXPECT_TRUE(CheckScreenComplete(form, 3).isComplete);
}

TEST(Computed, WallAreaFollowsLengthsAndHeight) {
  struct Case {
    const char *wall, *overall;
    int height;
    const char* area;
  };
  for (const Case& c : {Case{"156", "48", 0, "1248"}, Case{"156", "70", 0, "1600"}, Case{"156", "70", 2, "2000"}, Case{"50", "", 0, ""},
                        Case{"32767", "48", 0, "32767"}}) {
    PlanForm form = NewForm(kOneStoryCrawl);
    form.numbers[NumberBox::ExtWallLftFirstFloor].text = c.wall, form.numbers[NumberBox::HeatedLength].text = "48",
    form.numbers[NumberBox::OverallLength].text = c.overall;
    form.lists[SelectionList::WallSheetHeight].ListIndex = c.height;
    CheckScreenComplete(form, -5);
    EXPECT_EQ(form.numbers[NumberBox::ExtWallSidingFirstFloor].text, c.area) << c.wall;
  }
}

TEST(Computed, ShowsWhenItsScreenIsLeftAndStopsOnceTouched) {
  PlanForm form = NewForm(kOneStoryCrawl);
  const auto computed = [&form] {
    return form.numbers[NumberBox::IntWallLftFirstFloor].text + " " + form.numbers[NumberBox::HeaderLft].text + " " +
           form.numbers[NumberBox::ExtWallSidingFirstFloor].text;
  };
  SetNumberText(form, NumberBox::ExtWallLftFirstFloor, "156");
  SetNumberText(form, NumberBox::HeatedSqFtFirstFloor, "1440");
  ShowScreen(form, 1);
  EXPECT_EQ(computed(), "158 52 ");
  GoToScreen(form, 5);
  ShowScreen(form, 1);
  EXPECT_EQ(computed(), "158 52 1248");
  for (const NumberBox box : {IntWallLftFirstFloor, HeaderLft, ExtWallSidingFirstFloor}) EnterNumberBox(form, box);
  SetNumberText(form, NumberBox::ExtWallLftFirstFloor, "300");
  SetNumberText(form, NumberBox::HeatedSqFtFirstFloor, "3000");
  GoToScreen(form, 5);
  ShowScreen(form, 1);
  CheckScreenComplete(form, 5);
  EXPECT_EQ(computed(), "158 52 1248");

  form = NewForm(kOneStoryCrawl);
  SetNumberText(form, NumberBox::ExtWallLftFirstFloor, "156");
  GoToScreen(form, 10);
  EXPECT_EQ(form.numbers[NumberBox::ExtWallSidingFirstFloor].text, "1248") << "a jump leaves its screen too";

  EstimateRecord plan = BlankPlan();
  plan.PlanType = kOneStoryCrawl;
  plan.ExtWallLftFirstFloor = 156, plan.HeatedSqFtFirstFloor = 1440;
  form = OpenedForm(plan);
  for (int screen = 0; screen <= ScreenCount; ++screen) ShowScreen(form, 1);
  CheckBeforePrint(form);
  EXPECT_EQ(computed(), "  ") << "nothing on an opened plan";
  EXPECT_EQ(form.mark, ChangeMark::None);
  SetNumberText(form, NumberBox::ExtWallLftFirstFloor, "156");
  EXPECT_EQ(form.mark, ChangeMark::None) << "the same text again";
}

TEST(Screens, ShowTheirBoxesAndNoOthers) {
  PlanForm form = OpenHouse();
  const int firstLines[] = {0, 7, 14, 20, 33, 42, 51, 62, 69, 80, 87, 94};
  for (int screen = 0; screen <= ScreenCount; ++screen) {
    GoToScreen(form, screen);
    for (int line = 0; line < static_cast<int>(kScreenLines); ++line) {
      const LineField field = form.lines[line].field;
      const bool isSeen = field.IsNumber() ? form.numbers[field.Number()].visible : form.lists[field.List()].visible;
      EXPECT_EQ(isSeen, line >= firstLines[screen] && line < firstLines[screen + 1]) << line;
      EXPECT_EQ(form.lines[line].visible, isSeen) << line;
    }
    for (const JoistBox joist : kAllJoistBoxes)
      EXPECT_EQ(form.joists[joist].visible, screen == (joist < JoistBox::SecondFloorBay1 ? 6 : 8));
    const ScreenFrame frame = FrameOf(form);
    EXPECT_EQ(frame.showsRoofButton, screen == 0 || screen == 10);
    EXPECT_EQ(frame.girderMembers.empty(), screen != 3);
    EXPECT_EQ(form.isPrintEnabled, screen == ScreenCount);
  }
  GoToScreen(form, 3);
  EXPECT_TRUE(form.isPrintEnabled) << "for good";
}

TEST(Screens, AStepPassesOverScreensWithoutAnOpenLine) {
  struct Case {
    int type, from, delta, screen, line;
  };
  // A one-story slab has nothing to enter on screens 3 and 4, and below the joists of screen 6 nothing either.
  for (const Case& c : {Case{1, 0, 1, 1, 7}, Case{1, 2, 1, 5, 49}, Case{1, 5, -1, 2, 14}, Case{1, 5, 1, 8, 78}, Case{1, 8, -1, 5, 49},
                        Case{4, 2, 1, 3, 20}, Case{1, 0, -1, 0, 2}, Case{4, 1, -1, 0, 0}, Case{4, 10, 1, 10, 87}, Case{17, 5, 1, 6, 59}}) {
    PlanForm form = NewForm(c.type);
    GoToScreen(form, c.from);
    ASSERT_EQ(form.CurrentScreen, c.from);
    EXPECT_EQ(ShowScreen(form, c.delta), c.line) << c.type << " from " << c.from;
    EXPECT_EQ(form.CurrentScreen, c.screen) << c.type << " from " << c.from;
  }
}

TEST(Screens, AnEndWithoutAnOpenLineLeavesTheFormWhereItWas) {
  PlanForm form = NewForm(kOneStoryCrawl);
  GoToScreen(form, 9);
  for (const PlanLine& line : kPlanLines)
    if (line.screen == ScreenCount)
      SetFields(form, line.field.IsList() ? FieldSet(line.field.List()) : FieldSet(line.field.Number()), false);
  EXPECT_EQ(ShowScreen(form, 1), 80);
  EXPECT_EQ(form.CurrentScreen, 9);
  EXPECT_TRUE(form.lines[80].visible);
  EXPECT_FALSE(form.lines[87].visible);
}

TEST(Screens, CaptionsAndMemberHeadingsFollowTheListsAtOnce) {
  PlanForm form = NewForm(kTwoLevelCrawl);
  GoToScreen(form, 3);
  const char* const headings[] = {"", "2 Mbr3 Mbr", "3 Mbr4 Mbr", "4 Mbr5 Mbr", ""};
  for (int row = 0; row < 5; ++row) {
    ClickSelectionList(form, SelectionList::GirderPly, row);
    EXPECT_EQ(FrameOf(form).girderMembers + FrameOf(form).widerGirderMembers, headings[row]);
    EXPECT_EQ(form.lines[23].enabled, row != 0);
  }
}

TEST(Exit, AQuestionHoldsAnyPlanNumber) { EXPECT_EQ(ExitQuestion("A|100   "), "2 Exit Data Entry for Plan: A 100|Exit"); }

}  // namespace
}  // namespace norvale
