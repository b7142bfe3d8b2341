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

// A crawl-space house of two levels with everything attached: all rows of all tables are open.
PlanForm OpenHouse() {
  PlanForm form = NewForm(kTwoLevelCrawl | kAttachedGarage | kCarport | kFieldFramedHalfStory);
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

TEST(NumberBox, IsRoundedAndHeldToItsLimits) {
  struct Case {
    const char* typed;
    const char* shown;
    const char* message;
  };
  for (const Case& c :
       {Case{"", "", kRequired}, Case{"0", "", kRequired}, Case{"0.001", "", kRequired}, Case{"0.01", "1", ""}, Case{"1", "1", ""},
        Case{"1.0", "1", ""}, Case{"1.009", "1", ""}, Case{"1.01", "2", ""}, Case{"1.5", "2", ""}, Case{"-0.4", "", kRequired},
        Case{"-1", "1", kSmall}, Case{"-5", "5", kSmall}, Case{"32767", "32767", ""}, Case{"32767.01", "32768", kLarge},
        Case{"32768", "32768", kLarge}, Case{"1e300", "1000000000000", kLarge}, Case{"twelve", "", kRequired}, Case{"12 ft", "12", ""}}) {
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
    if (!halfStory) start.PlanType = kTwoLevelCrawl | kAttachedGarage | kCarport;
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

TEST(NumberBox, AnEmptyBoxIsAskedForOnce) {
  PlanForm form = NewForm(kOneStoryCrawl);
  EXPECT_EQ(LeaveNumberBox(form, 1).message, kRequired);
  EXPECT_EQ(form.RefocusPending, 1);
  EXPECT_EQ(LeaveNumberBox(form, 1).message, "");
  EXPECT_EQ(LeaveNumberBox(form, 1).message, kRequired) << "coming back begins anew";
}

TEST(NumberBox, WhatIsTypedAfterAMessageIsJudgedAnew) {
  PlanForm form = NewForm(kOneStoryCrawl);
  LeaveNumberBox(form, 1);
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
}

TEST(NumberBox, AButtonRoundsAndAsksNothing) {
  PlanForm form = NewForm(kOneStoryCrawl);
  RoundNumberBox(form, 0);
  EXPECT_EQ(form.TxtDisp[0].text, "");
  SetNumberText(form, 0, "156.2");
  RoundNumberBox(form, 0);
  EXPECT_EQ(form.TxtDisp[0].text, "157");
}

TEST(NumberBox, NothingOutOfRangeIsStoredUnseen) {
  PlanForm form = NewForm(kOneStoryCrawl);
  EXPECT_FALSE(FirstNumberFault(form).has_value());
  SetJoistText(form, 3, "40000");
  ASSERT_TRUE(FirstNumberFault(form).has_value());
  EXPECT_TRUE(FirstNumberFault(form)->isJoistBox);
  EXPECT_EQ(FirstNumberFault(form)->box, 3);
  SetNumberText(form, 47, "-1");
  EXPECT_FALSE(FirstNumberFault(form)->isJoistBox);
  EXPECT_EQ(FirstNumberFault(form)->box, 47);
  EXPECT_EQ(FirstNumberFault(form)->message, kSmall);
}

TEST(JoistBox, HoldsEvenFeetFromEight) {
  struct Case {
    const char* typed;
    const char* shown;
    const char* message;
  };
  for (const Case& c : {Case{"", "", ""}, Case{"0", "", ""}, Case{"1", "8", ""}, Case{"5", "8", ""}, Case{"7", "8", ""}, Case{"8", "8", ""},
                        Case{"8.2", "10", ""}, Case{"9", "10", ""}, Case{"10", "10", ""}, Case{"-9", "10", kSmall},
                        Case{"32766", "32766", ""}, Case{"32767", "32767", kLarge}, Case{"32768", "32768", kLarge}}) {
    PlanForm form = NewForm(kOneStoryCrawl);
    SetJoistText(form, 0, c.typed);
    const BoxLeaving leaving = LeaveJoistBox(form, 0);
    EXPECT_EQ(form.TxtDispJoist[0].text, c.shown) << c.typed;
    EXPECT_EQ(leaving.message, c.message) << c.typed;
    EXPECT_EQ(leaving.focusReturns, *c.message != '\0') << c.typed;
  }
}

TEST(JoistBox, AButtonRoundsAndAsksNothing) {
  PlanForm form = NewForm(kOneStoryCrawl);
  for (const auto& [typed, shown] :
       std::vector<std::pair<const char*, const char*>>{{"9", "10"}, {"3", "8"}, {"32767", "32767"}, {"-9", "-9"}}) {
    SetJoistText(form, 0, typed);
    RoundJoistBox(form, 0);
    EXPECT_EQ(form.TxtDispJoist[0].text, shown);
  }
}

TEST(NumberKeys, AreDigitsPointAndTheKeysThatDelete) {
  std::string taken;
  for (int key = 0; key < 256; ++key)
    if (IsNumberKey(key)) taken.push_back(static_cast<char>(key));
  EXPECT_EQ(taken, "\b.0123456789\x7F");
}

TEST(Marks, FollowWhatTheOperatorChanges) {
  PlanForm form = NewForm(kOneStoryCrawl);
  SetNumberText(form, 0, "");
  EXPECT_EQ(form.mark, ChangeMark::None) << "the same text again";
  SetJoistText(form, 0, "12");
  EXPECT_EQ(form.mark, ChangeMark::Modified);
}

TEST(Completeness, OnlyAFilledFormIsComplete) {
  PlanForm form = Filled(OpenHouse());
  EXPECT_EQ(CheckBeforePrint(form).screen, -1);
  EXPECT_EQ(CheckBeforePrint(form).message, "");
}

// Each box emptied alone, in a house of two full stories where every box is open.
TEST(Completeness, AnEmptyBoxIsNamedByItsScreen) {
  PlanForm full = Filled(OpenHouse());
  full.PlanType = kTwoLevelCrawl | kAttachedGarage | kCarport;
  const std::vector<std::pair<int, std::vector<int>>> needed = {
      {1, {0}}, {2, {1, 2, 3}}, {5, {25}}, {6, {31, 32, 34}}, {7, {35, 36}}, {8, {42, 43, 44, 45, 46}}, {9, {47}}, {10, {48, 49, 50, 52}}};
  std::vector<int> screenOf(kNumberBoxes, -1);
  for (const auto& [screen, boxes] : needed)
    for (const int box : boxes) screenOf[static_cast<std::size_t>(box)] = screen;
  for (int box = 0; box < static_cast<int>(kNumberBoxes); ++box) {
    PlanForm form = full;
    for (NumberBox& number : form.TxtDisp) number.isTouched = true;
    form.TxtDisp[box].text = box >= 4 && box <= 8 ? form.TxtDisp[box].text : "";
    const PrintCheck print = CheckBeforePrint(form);
    EXPECT_EQ(print.screen, screenOf[static_cast<std::size_t>(box)]) << box;
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

TEST(Completeness, AHalfStoryNeedsNoInteriorWallsOrCornersAbove) {
  for (const int box : {43, 50}) {
    PlanForm form = Filled(OpenHouse());
    SetNumberText(form, box, "");
    EXPECT_EQ(CheckBeforePrint(form).screen, -1) << box;
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
    EXPECT_FALSE(check.isComplete) << c.message;
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
}

TEST(Completeness, OakIsJudgedByItself) {
  PlanForm slab = Filled(NewForm(kTwoLevelSlab));
  ClickSelectionBox(slab, 25, 0);
  const ScreenCheck check = CheckScreenComplete(slab, 6);
  EXPECT_EQ(check.focus, 31);
  EXPECT_EQ(check.message, "");
  PlanForm crawl = Filled(OpenHouse());
  SetNumberText(crawl, 31, "");
  EXPECT_EQ(CheckScreenComplete(crawl, 6).focus, 31) << "bays do not stand for oak";
}

TEST(Completeness, AWiderGirderNeedsItsRow) {
  PlanForm form = Filled(OpenHouse());
  SetNumberText(form, 6, "");
  EXPECT_EQ(CheckScreenComplete(form, 3).focus, 6);
  SetNumberText(form, 11, "");
  EXPECT_TRUE(CheckScreenComplete(form, 3).isComplete);
}

TEST(Completeness, OtherScreensAreComplete) {
  PlanForm form = OpenHouse();
  for (const int screen : {-11, 0, 11, 128}) EXPECT_TRUE(CheckScreenComplete(form, screen).isComplete) << screen;
}

TEST(Computed, WallAreaFollowsLengthsAndHeight) {
  struct Case {
    const char *wall, *heated, *overall;
    int height;
    const char* area;
  };
  for (const Case& c : {Case{"156", "48", "48", 0, "1248"}, Case{"156", "48", "70", 0, "1600"}, Case{"156", "48", "70", 2, "2000"},
                        Case{"50", "48", "", 0, ""}, Case{"", "", "", 0, ""}, Case{"32767", "48", "48", 0, "32767"}}) {
    PlanForm form = NewForm(kOneStoryCrawl);
    SetNumberText(form, 0, c.wall);
    SetNumberText(form, 2, c.heated);
    SetNumberText(form, 3, c.overall);
    form.combo1[13].ListIndex = c.height;
    CheckScreenComplete(form, -5);
    EXPECT_EQ(form.TxtDisp[48].text, c.area) << c.wall;
  }
}

TEST(Computed, ShowsWhenItsScreenIsLeftAndStopsOnceTouched) {
  PlanForm form = NewForm(kOneStoryCrawl);
  SetNumberText(form, 0, "156");
  SetNumberText(form, 25, "1440");
  ShowScreen(form, 1);
  EXPECT_EQ(form.TxtDisp[45].text, "52");
  EXPECT_EQ(form.TxtDisp[24].text, "158");
  EXPECT_EQ(form.TxtDisp[48].text, "");
  GoToScreen(form, 5);
  ShowScreen(form, 1);
  EXPECT_EQ(form.TxtDisp[48].text, "1248");
  for (const int box : {24, 45, 48}) EnterNumberBox(form, box);
  SetNumberText(form, 0, "300");
  SetNumberText(form, 25, "3000");
  GoToScreen(form, 5);
  ShowScreen(form, 1);
  CheckScreenComplete(form, 5);
  EXPECT_EQ(form.TxtDisp[24].text + " " + form.TxtDisp[45].text + " " + form.TxtDisp[48].text, "158 52 1248");
}

TEST(Computed, NothingOnAnOpenedPlan) {
  EstimateRecord plan = BlankPlan();
  plan.PlanType = kOneStoryCrawl;
  plan.ExtWallLftFirstFloor = 156, plan.HeatedSqFtA = 1440;
  PlanForm form = OpenedForm(plan);
  for (int screen = 0; screen <= ScreenCount; ++screen) ShowScreen(form, 1);
  CheckBeforePrint(form);
  EXPECT_EQ(form.TxtDisp[24].text + form.TxtDisp[45].text + form.TxtDisp[48].text, "");
  EXPECT_EQ(form.mark, ChangeMark::None);
}

TEST(Screens, HoldTheirLines) {
  const PlanForm form = NewForm(kOneStoryCrawl);
  const std::vector<std::pair<int, int>> bounds = {{0, 6},   {7, 13},  {14, 19}, {20, 32}, {33, 41}, {42, 50},
                                                   {51, 61}, {62, 68}, {69, 79}, {80, 86}, {87, 93}};
  for (int screen = 0; screen <= ScreenCount; ++screen) {
    const auto& [first, last] = bounds[static_cast<std::size_t>(screen)];
    EXPECT_EQ(LineRange(form, screen + 128), first * 256 + last) << screen;
    const BoxRange boxes = ScreenFields(screen);
    for (int box = boxes.first; box <= boxes.last; ++box) EXPECT_EQ(ScreenOfNumber(form, box), screen) << box;
  }
  EXPECT_EQ(LineRange(form, 11), -1);
  EXPECT_EQ(LineRange(form, -1), -1);
}

TEST(Screens, ShowTheirBoxesAndNoOthers) {
  PlanForm form = OpenHouse();
  GoToScreen(form, 6);
  for (int line = 0; line < static_cast<int>(kScreenLines); ++line) {
    const bool inSight = line >= 51 && line <= 61;
    const LineControl& control = form.lblLine[line].control;
    EXPECT_EQ(form.lblLine[line].visible, inSight) << line;
    EXPECT_EQ(control.kind == ControlKind::Number ? form.TxtDisp[control.index].visible : form.combo1[control.index].visible, inSight)
        << line;
  }
  for (int joist = 0; joist < 10; ++joist) EXPECT_EQ(form.TxtDispJoist[joist].visible, joist < 5) << joist;
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
  for (int line = 87; line <= 93; ++line) {
    const LineControl& control = form.lblLine[line].control;
    if (control.kind == ControlKind::Number) form.TxtDisp[control.index].enabled = false;
    if (control.kind == ControlKind::Selection) form.combo1[control.index].enabled = false;
  }
  EXPECT_EQ(ShowScreen(form, 1), 80);
  EXPECT_EQ(form.CurrentScreen, 9);
  EXPECT_TRUE(form.lblLine[80].visible);
  EXPECT_FALSE(form.lblLine[87].visible);
}

TEST(Screens, PrintOpensOnTheLastScreenForGood) {
  PlanForm form = NewForm(kOneStoryCrawl);
  GoToScreen(form, 9);
  EXPECT_FALSE(form.isPrintEnabled);
  ShowScreen(form, 1);
  EXPECT_TRUE(form.isPrintEnabled);
  ShowScreen(form, -1);
  EXPECT_TRUE(form.isPrintEnabled);
}

TEST(Screens, CaptionsFollowTheListsAtOnce) {
  PlanForm form = NewForm(kOneStoryCrawl);
  GoToScreen(form, 4);
  EXPECT_FALSE(form.lblLine[35].enabled);
  ClickSelectionBox(form, 19, 1);
  EXPECT_TRUE(form.lblLine[35].enabled);
}

TEST(Screens, FrameSaysWhereOneIs) {
  PlanForm form = NewForm(kTwoLevelCrawl);
  std::string roof, label1;
  for (int screen = 0; screen <= ScreenCount; ++screen) {
    GoToScreen(form, screen);
    const ScreenFrame frame = FrameOf(form);
    EXPECT_EQ(frame.PageLabel, "Screen " + std::to_string(screen + 1) + " Of 11");
    EXPECT_EQ(frame.canGoBack, screen > 0);
    EXPECT_EQ(frame.canGoNext, screen < 10);
    if (frame.showsRoofButton) roof += std::to_string(screen) + " ";
    if (frame.showsLabel1) label1 += std::to_string(screen) + " ";
    EXPECT_EQ(frame.lblc1.empty(), screen != 3);
  }
  EXPECT_EQ(roof, "0 10 ");
  EXPECT_EQ(label1, "2 ");
}

TEST(Screens, MemberHeadingsFollowTheGirder) {
  PlanForm form = NewForm(kTwoLevelCrawl);
  GoToScreen(form, 3);
  const std::vector<std::pair<std::string, std::string>> headings = {
      {"", ""}, {"2 Mbr", "3 Mbr"}, {"3 Mbr", "4 Mbr"}, {"4 Mbr", "5 Mbr"}, {"", ""}};
  for (int row = 0; row < 5; ++row) {
    ClickSelectionBox(form, 17, row);
    EXPECT_EQ(std::pair(FrameOf(form).lblc1, FrameOf(form).lblc2), headings[static_cast<std::size_t>(row)]) << row;
  }
}

TEST(Exit, AsksOnlyWhereSomethingChanged) {
  struct Case {
    PlanMode mode;
    ChangeMark mark;
    bool isPlanChanged;
    ExitRoad road;
  };
  for (const Case& c : {Case{PlanMode::New, ChangeMark::None, false, ExitRoad::Leave},
                        Case{PlanMode::New, ChangeMark::Modified, false, ExitRoad::AskToSave},
                        Case{PlanMode::Existing, ChangeMark::None, false, ExitRoad::Leave},
                        Case{PlanMode::Existing, ChangeMark::Choosing, false, ExitRoad::AskToExit},
                        Case{PlanMode::Existing, ChangeMark::None, true, ExitRoad::AskToExit},
                        Case{PlanMode::Loading, ChangeMark::Modified, false, ExitRoad::AskToExit}}) {
    PlanForm form;
    form.mode = c.mode, form.mark = c.mark;
    EXPECT_EQ(RoadOfExit(form, c.isPlanChanged), c.road);
  }
  EXPECT_EQ(ExitQuestion("A|100   "), "2 Exit Data Entry for Plan: A 100|Exit");
}

}  // namespace
}  // namespace norvale
