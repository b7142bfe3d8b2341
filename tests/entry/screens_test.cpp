#include "entry/screens.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "entry/entry_form.h"
#include "entry/field_lists.h"
#include "entry/number_entry.h"

namespace norvale {
namespace {

constexpr const char* kSmall = "0 This Entry is TOO SMALL for calculations!|";
constexpr const char* kLarge = "0 This Entry is TOO LARGE for calculations!|";
constexpr const char* kRequired = "0 This Entry is REQUIRED for calculations!|";
constexpr int kFullStories = kTwoLevelCrawl | kAttachedGarage | kCarport;

// A crawl-space house of two levels with everything attached: all rows of all tables are open.
PlanForm OpenHouse() {
  PlanForm form = NewForm(kFullStories | kFieldFramedHalfStory);
  SelectRow(form, 16, 1);
  SelectRow(form, 19, 1);
  SelectRow(form, 25, 0);
  return form;
}

PlanForm Filled(PlanForm form) {
  for (int box = 0; box < static_cast<int>(kNumberBoxes); ++box)
    if (form.TxtDisp[box].enabled) SetNumberText(form, box, "10");
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
    SetNumberText(form, 0, c.typed);
    const BoxLeaving leaving = LeaveNumberBox(form, 0);
    EXPECT_EQ(form.TxtDisp[0].text, c.shown) << c.typed;
    EXPECT_EQ(leaving.message, c.message) << c.typed;
    EXPECT_EQ(leaving.focusReturns, *c.message != '\0') << c.typed;
  }
}

TEST(NumberBox, EveryOpenEmptyBoxIsAskedForButTheExempt) {
  const std::vector<int> exempt = {3, 25, 33, 36, 50, 51, 53};
  for (const bool halfStory : {true, false}) {
    PlanForm start = OpenHouse();
    if (!halfStory) start.PlanType = kFullStories;
    for (int box = 0; box < static_cast<int>(kNumberBoxes); ++box) {
      PlanForm form = start;
      const bool isExempt = std::ranges::count(exempt, box) > 0 || (box == 43 && halfStory);
      form.TxtDisp[box].enabled = true;
      EXPECT_EQ(LeaveNumberBox(form, box).message, isExempt ? "" : kRequired) << box;
      form.TxtDisp[box].enabled = false;
      EXPECT_EQ(LeaveNumberBox(form, box).message, "") << box << " is shut";
    }
  }
}

TEST(NumberBox, IsAskedForOnceAndWhatIsTypedThenIsJudgedAnew) {
  PlanForm form = NewForm(kOneStoryCrawl);
  EXPECT_EQ(LeaveNumberBox(form, 1).message, kRequired);
  EXPECT_EQ(LeaveNumberBox(form, 1).message, "");
  EXPECT_EQ(LeaveNumberBox(form, 1).message, kRequired) << "coming back begins anew";
  SetNumberText(form, 1, "99999");
  EXPECT_EQ(LeaveNumberBox(form, 1).message, kLarge);
  EXPECT_EQ(LeaveNumberBox(form, 1).message, kLarge) << "a number that does not fit never passes";
  SetNumberText(form, 1, "2.5");
  EXPECT_EQ(LeaveNumberBox(form, 1).message, "");
  EXPECT_EQ(form.TxtDisp[1].text, "3");
  SetNumberText(form, 1, "-40000");
  EXPECT_EQ(LeaveNumberBox(form, 1).message, kSmall);
  EXPECT_EQ(LeaveNumberBox(form, 1).message, kLarge);
}

TEST(NumberBox, OneRowOfATableIsEnough) {
  struct Case {
    int filled;
    int left;
    bool isAsked;
  };
  for (const Case& c : {Case{6, 4, false}, Case{6, 9, false}, Case{9, 4, true}, Case{9, 5, true}, Case{4, 19, true}, Case{18, 14, false},
                        Case{14, 19, true}, Case{19, 18, true}, Case{20, 23, false}, Case{26, 30, false}, Case{26, 31, true},
                        Case{31, 26, true}, Case{41, 37, false}, Case{30, 37, true}}) {
    PlanForm form = OpenHouse();
    SetNumberText(form, c.filled, "40");
    EXPECT_EQ(LeaveNumberBox(form, c.left).message, c.isAsked ? kRequired : "") << c.filled << " filled, " << c.left << " left";
  }
  PlanForm form = OpenHouse();
  for (const int box : {4, 10}) SetNumberText(form, box, "40");
  EXPECT_EQ(LeaveNumberBox(form, 5).message, kRequired) << "a wider girder needs its row";
}

TEST(NumberBox, NothingOutOfRangeIsStoredUnseen) {
  PlanForm form = NewForm(kOneStoryCrawl);
  EXPECT_FALSE(FirstNumberFault(form).has_value());
  SetJoistText(form, 3, "40000");
  ASSERT_TRUE(FirstNumberFault(form).has_value());
  EXPECT_EQ(std::pair(FirstNumberFault(form)->isJoistBox, FirstNumberFault(form)->box), std::pair(true, 3));
  SetNumberText(form, 47, "-1");
  EXPECT_EQ(std::pair(FirstNumberFault(form)->isJoistBox, FirstNumberFault(form)->box), std::pair(false, 47));
  EXPECT_EQ(FirstNumberFault(form)->message, kSmall);
}

// A button rounds as well, but leaves alone what is to be told.
TEST(JoistBox, HoldsEvenFeetFromEight) {
  for (const Typed& c : {Typed{"", "", ""}, Typed{"0", "", ""}, Typed{"1", "8", ""}, Typed{"7", "8", ""}, Typed{"8", "8", ""},
                         Typed{"8.2", "10", ""}, Typed{"9", "10", ""}, Typed{"10", "10", ""}, Typed{"-9", "10", kSmall},
                         Typed{"32766", "32766", ""}, Typed{"32767", "32767", kLarge}, Typed{"32768", "32768", kLarge}}) {
    PlanForm form = NewForm(kOneStoryCrawl);
    SetJoistText(form, 0, c.typed);
    PlanForm pressed = form;
    const BoxLeaving leaving = LeaveJoistBox(form, 0);
    EXPECT_EQ(form.TxtDispJoist[0].text, c.shown) << c.typed;
    EXPECT_EQ(leaving.message, c.message) << c.typed;
    EXPECT_EQ(leaving.focusReturns, *c.message != '\0') << c.typed;
    RoundJoistBox(pressed, 0);
    EXPECT_EQ(pressed.TxtDispJoist[0].text, *c.message == '\0' ? c.shown : c.typed);
  }
}

// Each box emptied alone, in a filled house where every box is open.
TEST(Completeness, AnEmptyBoxIsNamedByItsScreen) {
  const std::vector<std::pair<int, std::vector<int>>> needed = {
      {1, {0}}, {2, {1, 2, 3}}, {5, {25}}, {6, {31, 32, 34}}, {7, {35, 36}}, {8, {42, 43, 44, 45, 46}}, {9, {47}}, {10, {48, 49, 50, 52}}};
  std::vector<int> screenOf(kNumberBoxes, -1);
  for (const auto& [screen, boxes] : needed)
    for (const int box : boxes) screenOf[static_cast<std::size_t>(box)] = screen;
  for (const bool halfStory : {true, false})
    for (int box = 0; box < static_cast<int>(kNumberBoxes); ++box) {
      PlanForm form = Filled(OpenHouse());
      if (!halfStory) form.PlanType = kFullStories;
      EXPECT_EQ(CheckBeforePrint(form).screen, -1);
      for (NumberBox& number : form.TxtDisp) number.isTouched = true;
      if (box < 4 || box > 8) form.TxtDisp[box].text = "";
      const PrintCheck print = CheckBeforePrint(form);
      const bool isExempt = halfStory && (box == 43 || box == 50);
      EXPECT_EQ(print.screen, isExempt ? -1 : screenOf[static_cast<std::size_t>(box)]) << box;
      if (print.screen < 0) continue;
      EXPECT_EQ(print.message, "0 Screen " + std::to_string(print.screen + 1) + " Needs Additional Input|");
      const ScreenCheck check = CheckScreenComplete(form, print.screen);
      EXPECT_EQ(check.focus, box);
      EXPECT_EQ(check.message, "");
      EXPECT_FALSE(CheckScreenComplete(form, -print.screen).focus.has_value()) << "asked silently";
      form.TxtDisp[box].enabled = false;
      EXPECT_EQ(CheckBeforePrint(form).screen, -1) << box << " is shut";
    }
}

TEST(Completeness, ATableNeedsOneRow) {
  struct Case {
    int first, last, screen;
    const char* message;
  };
  for (const Case& c :
       {Case{4, 8, 3, "0 There are no entries for: LFT MAJOR GIRDERS|"}, Case{14, 18, 4, "0 There are no entries for: LFT DROP GIRDERS|"},
        Case{19, 23, 5, "0 There are no entries for: LFT SILLS|"}, Case{26, 30, 6, "0 There are no entries for: LFT BAY AREAS-FL.JOIST|"},
        Case{37, 41, 8, "0 There are no entries for: LFT 2-FL. BAY AREAS-FL.JOIST|"}}) {
    PlanForm empty = Filled(OpenHouse());
    for (int box = c.first; box <= c.last; ++box) SetNumberText(empty, box, "");
    for (int box = 9; box <= 13; ++box) SetNumberText(empty, box, "");
    const ScreenCheck check = CheckScreenComplete(empty, c.screen);
    EXPECT_EQ(check.message, c.message);
    EXPECT_EQ(check.focus, c.first) << c.message;
    EXPECT_FALSE(IsScreenComplete(empty, c.screen));
    for (int box = c.first; box <= c.last; ++box) {
      PlanForm one = empty;
      SetNumberText(one, box, "10");
      EXPECT_TRUE(CheckScreenComplete(one, c.screen).isComplete) << box;
    }
    PlanForm partly = empty;
    partly.TxtDisp[c.first].enabled = false;
    partly.TxtDisp[c.first].text = "10";
    EXPECT_EQ(CheckScreenComplete(partly, c.screen).focus, c.first + 1) << "a shut row does not count";
    for (int box = c.first; box <= c.last; ++box) partly.TxtDisp[box].enabled = false;
    EXPECT_TRUE(CheckScreenComplete(partly, c.screen).isComplete) << "all shut";
  }
  PlanForm form = Filled(OpenHouse());
  SetNumberText(form, 6, "");
  EXPECT_EQ(CheckScreenComplete(form, 3).focus, 6) << "a wider girder needs its row";
  SetNumberText(form, 11, "");
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
    form.TxtDisp[0].text = c.wall, form.TxtDisp[2].text = "48", form.TxtDisp[3].text = c.overall;
    form.combo1[13].ListIndex = c.height;
    CheckScreenComplete(form, -5);
    EXPECT_EQ(form.TxtDisp[48].text, c.area) << c.wall;
  }
}

TEST(Computed, ShowsWhenItsScreenIsLeftAndStopsOnceTouched) {
  PlanForm form = NewForm(kOneStoryCrawl);
  const auto computed = [&form] { return form.TxtDisp[24].text + " " + form.TxtDisp[45].text + " " + form.TxtDisp[48].text; };
  SetNumberText(form, 0, "156");
  SetNumberText(form, 25, "1440");
  ShowScreen(form, 1);
  EXPECT_EQ(computed(), "158 52 ");
  GoToScreen(form, 5);
  ShowScreen(form, 1);
  EXPECT_EQ(computed(), "158 52 1248");
  for (const int box : {24, 45, 48}) EnterNumberBox(form, box);
  SetNumberText(form, 0, "300");
  SetNumberText(form, 25, "3000");
  GoToScreen(form, 5);
  ShowScreen(form, 1);
  CheckScreenComplete(form, 5);
  EXPECT_EQ(computed(), "158 52 1248");

  form = NewForm(kOneStoryCrawl);
  SetNumberText(form, 0, "156");
  GoToScreen(form, 10);
  EXPECT_EQ(form.TxtDisp[48].text, "1248") << "a jump leaves its screen too";

  EstimateRecord plan = BlankPlan();
  plan.PlanType = kOneStoryCrawl;
  plan.ExtWallLftFirstFloor = 156, plan.HeatedSqFtFirstFloor = 1440;
  form = OpenedForm(plan);
  for (int screen = 0; screen <= ScreenCount; ++screen) ShowScreen(form, 1);
  CheckBeforePrint(form);
  EXPECT_EQ(computed(), "  ") << "nothing on an opened plan";
  EXPECT_EQ(form.mark, ChangeMark::None);
  SetNumberText(form, 0, "156");
  EXPECT_EQ(form.mark, ChangeMark::None) << "the same text again";
}

TEST(Screens, ShowTheirBoxesAndNoOthers) {
  PlanForm form = OpenHouse();
  const int firstLines[] = {0, 7, 14, 20, 33, 42, 51, 62, 69, 80, 87, 94};
  for (int screen = 0; screen <= ScreenCount; ++screen) {
    GoToScreen(form, screen);
    for (int line = 0; line < static_cast<int>(kScreenLines); ++line) {
      const auto& [kind, box] = form.lblLine[line].control;
      const bool isSeen = kind == ControlKind::Number ? form.TxtDisp[box].visible : form.combo1[box].visible;
      EXPECT_EQ(isSeen, line >= firstLines[screen] && line < firstLines[screen + 1]) << line;
      EXPECT_EQ(form.lblLine[line].visible, isSeen) << line;
    }
    for (int joist = 0; joist < 10; ++joist) EXPECT_EQ(form.TxtDispJoist[joist].visible, screen == (joist < 5 ? 6 : 8)) << joist;
    const ScreenFrame frame = FrameOf(form);
    EXPECT_EQ(frame.showsRoofButton, screen == 0 || screen == 10);
    EXPECT_EQ(frame.showsLabel1, screen == 2);
    EXPECT_EQ(frame.lblc1.empty(), screen != 3);
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
  SetFieldList(form, "T484950515253", false);
  SetFieldList(form, "C3839", false);
  EXPECT_EQ(ShowScreen(form, 1), 80);
  EXPECT_EQ(form.CurrentScreen, 9);
  EXPECT_TRUE(form.lblLine[80].visible);
  EXPECT_FALSE(form.lblLine[87].visible);
}

TEST(Screens, CaptionsAndMemberHeadingsFollowTheListsAtOnce) {
  PlanForm form = NewForm(kTwoLevelCrawl);
  GoToScreen(form, 3);
  const char* const headings[] = {"", "2 Mbr3 Mbr", "3 Mbr4 Mbr", "4 Mbr5 Mbr", ""};
  for (int row = 0; row < 5; ++row) {
    ClickSelectionBox(form, 17, row);
    EXPECT_EQ(FrameOf(form).lblc1 + FrameOf(form).lblc2, headings[row]);
    EXPECT_EQ(form.lblLine[23].enabled, row != 0);
  }
}

TEST(Exit, AQuestionHoldsAnyPlanNumber) { EXPECT_EQ(ExitQuestion("A|100   "), "2 Exit Data Entry for Plan: A 100|Exit"); }

}  // namespace
}  // namespace norvale
