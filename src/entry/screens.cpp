#include "entry/screens.h"

#include <algorithm>
#include <array>

#include "base/numbers.h"
#include "base/text.h"
#include "data/plan_type.h"
#include "entry/field_lists.h"
#include "entry/number_entry.h"

namespace norvale {

namespace {

constexpr std::array<int, ScreenCount + 1> kFirstLines = {0, 7, 14, 20, 33, 42, 51, 62, 69, 80, 87};

// Indexed by screen; the first has no number boxes to test.
constexpr std::array<BoxRange, ScreenCount + 1> kScreenFields = {{
    {0, -1},
    {0, 0},
    {1, 3},
    {4, 13},
    {14, 18},
    {19, 25},
    {26, 34},
    {35, 36},
    {37, 46},
    {47, 47},
    {48, 52},
}};

// Rows of one table: one value among them is enough.
struct BoxGroup {
  int first;
  int last;
  std::string_view name;

  [[nodiscard]] constexpr bool Holds(int box) const { return box >= first && box <= last; }
};

constexpr std::array<BoxGroup, 5> kGroups = {{
    {4, 8, " LFT MAJOR GIRDERS"},
    {14, 18, " LFT DROP GIRDERS"},
    {19, 23, " LFT SILLS"},
    {26, 30, " LFT BAY AREAS-FL.JOIST"},
    {37, 41, " LFT 2-FL. BAY AREAS-FL.JOIST"},
}};

// Girders with one member more stand in the rows of the major girder: each belongs to the box five before it.
constexpr BoxGroup kMajorGirder = kGroups[0];
constexpr BoxGroup kWiderGirder = {9, 13, ""};

constexpr int kWallAreaScreen = 5;
constexpr int kWallAreaBox = 48;
constexpr int kInteriorWallBox = 24;
constexpr int kHeatedAreaBox = 25;
constexpr int kHeaderBox = 45;
constexpr int kSheetHeightList = 13;
constexpr int kGirderList = 17;
constexpr int kRoofScreenFirst = 0;
constexpr int kRoofScreenLast = 10;
constexpr int kGirderScreen = 3;

// Boxes that may be left at 0 on the way through the screens.
constexpr std::array<int, 7> kMayBeLeftEmpty = {3, 25, 33, 36, 50, 51, 53};
// Boxes that may be 0 in a print.
constexpr std::array<int, 4> kMayPrintEmpty = {24, 33, 51, 53};

template <std::size_t Size>
bool IsOneOf(const std::array<int, Size>& boxes, int box) {
  return std::find(boxes.begin(), boxes.end(), box) != boxes.end();
}

bool IsHalfStory(const PlanForm& form) { return (form.PlanType & kHalfStory) != 0; }

bool HasOpenValue(const PlanForm& form, const BoxGroup& group) {
  for (int box = group.first; box <= group.last; ++box)
    if (form.TxtDisp[box].enabled && NumberOf(form, box) != 0) return true;
  return false;
}

int FirstOpenBox(const PlanForm& form, const BoxGroup& group) {
  for (int box = group.first; box <= group.last; ++box)
    if (form.TxtDisp[box].enabled) return box;
  return -1;
}

// A row of the wider girder counts only where its row of the major girder does.
bool HasWiderGirder(const PlanForm& form, int majorGirderBox) {
  const int wider = majorGirderBox + (kWiderGirder.first - kMajorGirder.first);
  return form.TxtDisp[wider].enabled && NumberOf(form, wider) != 0;
}

// Whether an empty box is asked for when it is left.
bool IsRequiredOnLeaving(const PlanForm& form, int box) {
  constexpr int kSecondFloorInterior = 43;
  if (!form.TxtDisp[box].enabled || IsOneOf(kMayBeLeftEmpty, box)) return false;
  if (box == kSecondFloorInterior && IsHalfStory(form)) return false;
  if (kMajorGirder.Holds(box)) return HasWiderGirder(form, box) || !HasOpenValue(form, kMajorGirder);
  if (kWiderGirder.Holds(box)) return !HasOpenValue(form, kMajorGirder) && !HasOpenValue(form, kWiderGirder);
  for (const BoxGroup& group : kGroups)
    if (group.Holds(box)) return !HasOpenValue(form, group);
  return true;
}

// Whether an empty box that is in no group stands against a print.
bool IsRequiredForPrint(const PlanForm& form, int box) {
  if (!form.TxtDisp[box].enabled || IsOneOf(kMayPrintEmpty, box)) return false;
  return !((box == 43 || box == 50) && IsHalfStory(form));
}

const BoxGroup* GroupOf(int box) {
  const auto group = std::find_if(kGroups.begin(), kGroups.end(), [box](const BoxGroup& rows) { return rows.Holds(box); });
  return group == kGroups.end() ? nullptr : &*group;
}

ScreenCheck TestScreen(const PlanForm& form, int screen) {
  if (screen < 1 || screen > ScreenCount) return {};
  const BoxRange range = ScreenFields(screen);
  for (int box = range.first; box <= range.last; ++box) {
    if (kWiderGirder.Holds(box)) {
      const int major = box - (kWiderGirder.first - kMajorGirder.first);
      const bool standsAlone = HasWiderGirder(form, major) && form.TxtDisp[major].enabled && NumberOf(form, major) == 0;
      if (standsAlone) return {.isComplete = false, .focus = major, .message = ""};
      continue;
    }
    if (const BoxGroup* group = GroupOf(box)) {
      // Only all of a group's rows together can be found wanting.
      const int first = box == group->last && !HasOpenValue(form, *group) ? FirstOpenBox(form, *group) : -1;
      if (first >= 0)
        return {.isComplete = false, .focus = first, .message = "0 There are no entries for:" + std::string(group->name) + "|"};
      continue;
    }
    if (IsRequiredForPrint(form, box) && NumberOf(form, box) == 0) return {.isComplete = false, .focus = box, .message = ""};
  }
  return {};
}

bool IsEnabled(const PlanForm& form, const LineControl& control) {
  return control.kind == ControlKind::Selection ? form.combo1[control.index].enabled : form.TxtDisp[control.index].enabled;
}

int LastLineOf(const PlanForm& form, int screen) {
  return screen == ScreenCount ? form.LastLine : kFirstLines[static_cast<std::size_t>(screen) + 1] - 1;
}

void ShowControl(PlanForm& form, const LineControl& control, bool visible) {
  if (control.kind == ControlKind::Selection) form.combo1[control.index].visible = visible;
  if (control.kind != ControlKind::Number) return;
  form.TxtDisp[control.index].visible = visible;
  if (const int joist = JoistBoxOf(control.index); joist >= 0) {
    JoistBox& box = form.TxtDispJoist[joist];
    box.visible = visible && !box.isHidden;
  }
}

// Puts the current screen's lines in sight and the others out of it.
void PutInSight(PlanForm& form) {
  const int first = kFirstLines[static_cast<std::size_t>(form.CurrentScreen)];
  const int last = LastLineOf(form, form.CurrentScreen);
  for (int line = 0; line < static_cast<int>(kScreenLines); ++line) {
    CaptionLine& caption = form.lblLine[line];
    caption.visible = line >= first && line <= last;
    ShowControl(form, caption.control, caption.visible);
    if (caption.visible && caption.control.kind != ControlKind::None) caption.enabled = IsEnabled(form, caption.control);
  }
  if (form.CurrentScreen == ScreenCount) form.isPrintEnabled = true;
}

// A computed value; the operator sees it as if it were typed, and may change it.
void SetComputed(PlanForm& form, int box, double value) {
  if (IsOpened(form.mode) || form.TxtDisp[box].isTouched) return;
  SetNumberText(form, box, WholeNumberText(std::clamp(value, 0.0, kLargestEntry)));
}

BoxLeaving Refusal(std::string_view message) { return {.message = std::string(message), .focusReturns = true}; }

std::string RangeMessage(std::string_view text) {
  const double value = Val(text);
  if (value < 0) return std::string(kEntryTooSmall);
  return value > kLargestEntry ? std::string(kEntryTooLarge) : std::string();
}

}  // namespace

int LineRange(const PlanForm& form, int screen) {
  const int index = screen >= kLineBounds ? screen - kLineBounds : screen;
  if (index < 0 || index > ScreenCount) return -1;
  const int first = kFirstLines[static_cast<std::size_t>(index)];
  const int last = LastLineOf(form, index);
  if (screen >= kLineBounds) return first * 256 + last;
  for (int line = first; line <= last; ++line)
    if (form.lblLine[line].enabled && form.lblLine[line].visible) return line;
  return -1;
}

BoxRange ScreenFields(int screen) {
  if (screen < 0 || screen > ScreenCount) return {};
  return kScreenFields[static_cast<std::size_t>(screen)];
}

bool HasUsableLine(const PlanForm& form, int screen) {
  if (screen < 0 || screen > ScreenCount) return false;
  for (int line = kFirstLines[static_cast<std::size_t>(screen)]; line <= LastLineOf(form, screen); ++line)
    if (const LineControl& control = form.lblLine[line].control; control.kind != ControlKind::None && IsEnabled(form, control)) return true;
  return false;
}

int ScreenOfNumber(const PlanForm& form, int box) {
  const int line = form.LineOfNumber[box];
  int screen = -1;
  for (const int first : kFirstLines)
    if (line >= first) ++screen;
  return screen;
}

void EnterNumberBox(PlanForm& form, int box) { form.TxtDisp[box].isTouched = true; }

BoxLeaving LeaveNumberBox(PlanForm& form, int box) {
  const bool wasSentBack = form.RefocusPending == box;
  form.RefocusPending.reset();
  if (wasSentBack && RangeMessage(form.TxtDisp[box].text).empty()) return {};

  const NumberEntry entry = EnterNumber(form.TxtDisp[box].text);
  SetNumberText(form, box, entry.text);
  if (entry.message == kEntryTooSmall) form.RefocusPending = box;
  if (!entry.message.empty()) return Refusal(entry.message);
  if (NumberOf(form, box) == 0 && IsRequiredOnLeaving(form, box)) {
    form.RefocusPending = box;
    return Refusal(kEntryRequired);
  }
  return {};
}

BoxLeaving LeaveJoistBox(PlanForm& form, int box) {
  const NumberEntry entry = EnterJoistLength(form.TxtDispJoist[box].text);
  SetJoistText(form, box, entry.text);
  return entry.message.empty() ? BoxLeaving{} : Refusal(entry.message);
}

void RoundNumberBox(PlanForm& form, int box) { SetNumberText(form, box, RoundedUp(form.TxtDisp[box].text)); }

void RoundJoistBox(PlanForm& form, int box) {
  const NumberEntry entry = EnterJoistLength(form.TxtDispJoist[box].text);
  if (entry.message.empty()) SetJoistText(form, box, entry.text);
}

void ClickSelectionBox(PlanForm& form, int box, int row) {
  if (!form.combo1[box].enabled) return;
  SelectRow(form, box, row);
  ShowScreen(form, 0);
}

ScreenCheck CheckScreenComplete(PlanForm& form, int n) {
  const int screen = n < 0 ? -n : n;
  if (screen == kWallAreaScreen) ComputeWallArea(form);
  ScreenCheck check = TestScreen(form, screen);
  if (n < 0) check.focus.reset(), check.message.clear();
  return check;
}

bool IsScreenComplete(const PlanForm& form, int screen) { return TestScreen(form, screen).isComplete; }

PrintCheck CheckBeforePrint(PlanForm& form) {
  for (int screen = 1; screen <= ScreenCount; ++screen)
    if (!CheckScreenComplete(form, -screen).isComplete)
      return {.screen = screen, .message = "0 Screen" + PlainNumber(screen + 1) + " Needs Additional Input|"};
  return {};
}

std::optional<NumberFault> FirstNumberFault(const PlanForm& form) {
  for (int box = 0; box < static_cast<int>(kNumberBoxes); ++box)
    if (const std::string message = RangeMessage(form.TxtDisp[box].text); !message.empty())
      return NumberFault{.isJoistBox = false, .box = box, .message = message};
  for (int box = 0; box < static_cast<int>(kJoistBoxes); ++box)
    if (const std::string message = RangeMessage(form.TxtDispJoist[box].text); !message.empty())
      return NumberFault{.isJoistBox = true, .box = box, .message = message};
  return std::nullopt;
}

void ComputeWallArea(PlanForm& form) {
  const double length = NumberOf(form, 0) + 2 * (NumberOf(form, 3) - NumberOf(form, 2));
  SetComputed(form, kWallAreaBox, length * (form.combo1[kSheetHeightList].ListIndex + 8));
}

void ComputeLengths(PlanForm& form) {
  if ((form.PlanType & kDetachedGarage) == 0) SetComputed(form, kInteriorWallBox, 0.11 * NumberOf(form, kHeatedAreaBox));
  SetComputed(form, kHeaderBox, NumberOf(form, 0) / 3);
}

int ShowScreen(PlanForm& form, int delta) {
  if (delta == 0) {
    PutInSight(form);
    return -1;
  }
  ComputeLengths(form);
  if (form.CurrentScreen <= kWallAreaScreen && form.CurrentScreen + delta > kWallAreaScreen) ComputeWallArea(form);
  const int start = form.CurrentScreen;
  const int step = delta > 0 ? 1 : -1;
  for (int screen = std::clamp(start + delta, 0, ScreenCount); screen >= 0 && screen <= ScreenCount; screen += step) {
    form.CurrentScreen = screen;
    PutInSight(form);
    if (const int line = LineRange(form, screen); line >= 0) return line;
  }
  form.CurrentScreen = start;
  PutInSight(form);
  return LineRange(form, start);
}

int GoToScreen(PlanForm& form, int screen) {
  if (screen != form.CurrentScreen) return ShowScreen(form, screen - form.CurrentScreen);
  PutInSight(form);
  return LineRange(form, screen);
}

ScreenFrame FrameOf(const PlanForm& form) {
  ScreenFrame frame{
      .PageLabel = "Screen" + PlainNumber(form.CurrentScreen + 1) + " Of" + PlainNumber(ScreenCount + 1),
      .canGoNext = form.CurrentScreen<ScreenCount, .canGoBack = form.CurrentScreen> 0,
      .showsLabel1 = form.CurrentScreen == 2,
      .showsRoofButton = form.CurrentScreen == kRoofScreenFirst || form.CurrentScreen == kRoofScreenLast,
      .lblc1 = "",
      .lblc2 = "",
  };
  const int members = form.combo1[kGirderList].ListIndex + 1;
  if (form.CurrentScreen == kGirderScreen && members >= 2 && members <= 4) {
    frame.lblc1 = Digits(members) + " Mbr";
    frame.lblc2 = Digits(members + 1) + " Mbr";
  }
  return frame;
}

ExitRoad RoadOfExit(const PlanForm& form, bool isPlanChanged) {
  if (form.mark == ChangeMark::None && !isPlanChanged) return ExitRoad::Leave;
  return IsOpened(form.mode) ? ExitRoad::AskToExit : ExitRoad::AskToSave;
}

std::string ExitQuestion(std::string_view planNumber) {
  std::string number(Trim(planNumber));
  // A bar would end the question.
  std::replace(number.begin(), number.end(), '|', ' ');
  return "2 Exit Data Entry for Plan: " + number + "|Exit";
}

}  // namespace norvale
