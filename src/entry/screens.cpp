#include "entry/screens.h"

#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"
#include "data/plan_type.h"
#include "entry/field_rules.h"
#include "entry/number_entry.h"

namespace norvale {

namespace {

constexpr int kWallAreaScreen = 5;
constexpr int kGirderScreen = 3;

// What the message names where a group has no entry.
struct GroupName {
  BoxGroup group;
  std::string_view name;
};
constexpr GroupName kGroupNames[] = {
    {BoxGroup::MajorGirder, " LFT MAJOR GIRDERS"},
    {BoxGroup::DropGirder, " LFT DROP GIRDERS"},
    {BoxGroup::Sill, " LFT SILLS"},
    {BoxGroup::FirstFloorBays, " LFT BAY AREAS-FL.JOIST"},
    {BoxGroup::SecondFloorBays, " LFT 2-FL. BAY AREAS-FL.JOIST"},
};

bool MayBe(const PlanForm& form, MayBeEmpty rule) {
  return rule == MayBeEmpty::Always || (rule == MayBeEmpty::OnHalfStory && (form.PlanType & kHalfStory) != 0);
}

bool HasOpenValue(const PlanForm& form, NumberBox box) { return form.numbers[box].enabled && NumberOf(form, box) != 0; }

bool HasOpenValue(const PlanForm& form, BoxGroup group) {
  return std::ranges::any_of(kAllNumberBoxes, [&](NumberBox box) { return RowOf(box).group == group && HasOpenValue(form, box); });
}

std::optional<NumberBox> FirstOpenBox(const PlanForm& form, BoxGroup group) {
  for (const NumberBox box : kAllNumberBoxes)
    if (RowOf(box).group == group && form.numbers[box].enabled) return box;
  return std::nullopt;
}

constexpr NumberBox LastBoxOf(BoxGroup group) {
  NumberBox last{};
  for (const NumberBox box : kAllNumberBoxes)
    if (RowOf(box).group == group) last = box;
  return last;
}

// The box of the same stock in another group.
NumberBox BoxBeside(NumberBox box, BoxGroup group) {
  return *std::ranges::find_if(
      kAllNumberBoxes, [&](NumberBox other) { return RowOf(other).group == group && RowOf(other).place.row == RowOf(box).place.row; });
}

// Whether an empty box is asked for when it is left. A row of the wider girder counts only where its row of the major girder
// does.
bool IsRequiredOnLeaving(const PlanForm& form, NumberBox box) {
  const NumberBoxRow& row = RowOf(box);
  if (!form.numbers[box].enabled || MayBe(form, row.mayBeLeftEmpty)) return false;
  if (row.group == BoxGroup::None) return true;
  if (row.group == BoxGroup::MajorGirder && HasOpenValue(form, BoxBeside(box, BoxGroup::WiderGirder))) return true;
  if (row.group == BoxGroup::WiderGirder && HasOpenValue(form, BoxGroup::MajorGirder)) return false;
  return !HasOpenValue(form, row.group);
}

// What a screen lacks because of one of its boxes. Only all of a group's rows together can be found wanting, at their last.
std::optional<ScreenCheck> LackAt(const PlanForm& form, NumberBox box) {
  const NumberBoxRow& row = RowOf(box);
  if (row.group == BoxGroup::None) {
    const bool isLacking = form.numbers[box].enabled && NumberOf(form, box) == 0 && !MayBe(form, row.mayPrintEmpty);
    return isLacking ? std::optional(ScreenCheck{.isComplete = false, .focus = box, .message = ""}) : std::nullopt;
  }
  if (row.group == BoxGroup::WiderGirder) {
    const NumberBox major = BoxBeside(box, BoxGroup::MajorGirder);
    const bool standsAlone = HasOpenValue(form, box) && form.numbers[major].enabled && NumberOf(form, major) == 0;
    return standsAlone ? std::optional(ScreenCheck{.isComplete = false, .focus = major, .message = ""}) : std::nullopt;
  }
  if (box != LastBoxOf(row.group) || HasOpenValue(form, row.group)) return std::nullopt;
  const auto first = FirstOpenBox(form, row.group);
  if (!first) return std::nullopt;
  const std::string_view name = std::ranges::find(kGroupNames, row.group, &GroupName::group)->name;
  return ScreenCheck{.isComplete = false, .focus = first, .message = "0 There are no entries for:" + std::string(name) + "|"};
}

ScreenCheck TestScreen(const PlanForm& form, int screen) {
  if (screen < 1 || screen > ScreenCount) return {};
  for (const NumberBox box : kAllNumberBoxes)
    if (kPlanLines[LineOf(box)].screen == screen)
      if (auto lack = LackAt(form, box)) return *std::move(lack);
  return {};
}

bool IsScreen(int screen) { return screen >= 0 && screen <= ScreenCount; }

void ShowField(PlanForm& form, LineField field, bool visible) {
  if (field.IsList()) form.lists[field.List()].visible = visible;
  if (!field.IsNumber()) return;
  form.numbers[field.Number()].visible = visible;
  if (const auto joist = JoistBoxBehind(field.Number())) form.joists[*joist].visible = visible && !form.joists[*joist].isHidden;
}

// Puts the current screen's lines in sight and the others out of it.
void PutInSight(PlanForm& form) {
  const LineSpan span = LinesOn(form, form.CurrentScreen);
  for (int number = 0; number < static_cast<int>(kScreenLines); ++number) {
    LineState& line = form.lines[static_cast<std::size_t>(number)];
    line.visible = number >= span.first && number <= span.last;
    ShowField(form, line.field, line.visible);
    if (line.visible && line.field.kind != LineField::Kind::None) line.enabled = IsEnabled(form, line.field);
  }
  if (form.CurrentScreen == ScreenCount) form.isPrintEnabled = true;
}

// A computed value; the operator sees it as if it were typed, and may change it.
void SetComputed(PlanForm& form, NumberBox box, double value) {
  if (IsOpened(form.mode) || form.numbers[box].isTouched) return;
  SetNumberText(form, box, WholeNumberText(std::clamp(value, 0.0, kLargestEntry)));
}

BoxLeaving Refusal(std::string_view message) { return {.message = std::string(message), .focusReturns = true}; }

std::string RangeMessage(std::string_view text) {
  const double value = Val(text);
  if (value < 0) return std::string(kEntryTooSmall);
  return value > kLargestEntry ? std::string(kEntryTooLarge) : std::string();
}

}  // namespace

LineSpan LinesOn(const PlanForm& form, int screen) {
  const auto lines = std::ranges::equal_range(kPlanLines, screen, {}, &PlanLine::screen);
  const int first = static_cast<int>(lines.begin() - std::begin(kPlanLines));
  return {.first = first, .last = screen == ScreenCount ? form.LastLine : first + static_cast<int>(lines.size()) - 1};
}

int FirstUsableLine(const PlanForm& form, int screen) {
  if (!IsScreen(screen)) return -1;
  const LineSpan span = LinesOn(form, screen);
  for (int line = span.first; line <= span.last; ++line)
    if (form.lines[static_cast<std::size_t>(line)].enabled && form.lines[static_cast<std::size_t>(line)].visible) return line;
  return -1;
}

bool HasUsableLine(const PlanForm& form, int screen) {
  if (!IsScreen(screen)) return false;
  const LineSpan span = LinesOn(form, screen);
  for (int line = span.first; line <= span.last; ++line)
    if (IsEnabled(form, form.lines[static_cast<std::size_t>(line)].field)) return true;
  return false;
}

int ScreenOfNumber(const PlanForm& form, NumberBox box) {
  const int line = form.lineOfNumber[box];
  return line < 0 ? -1 : kPlanLines[line].screen;
}

void EnterNumberBox(PlanForm& form, NumberBox box) { form.numbers[box].isTouched = true; }

BoxLeaving LeaveNumberBox(PlanForm& form, NumberBox box) {
  const bool wasSentBack = form.RefocusPending == box;
  form.RefocusPending.reset();
  if (wasSentBack && RangeMessage(form.numbers[box].text).empty()) return {};

  const NumberEntry entry = EnterNumber(form.numbers[box].text);
  SetNumberText(form, box, entry.text);
  if (entry.message == kEntryTooSmall) form.RefocusPending = box;
  if (!entry.message.empty()) return Refusal(entry.message);
  if (NumberOf(form, box) == 0 && IsRequiredOnLeaving(form, box)) {
    form.RefocusPending = box;
    return Refusal(kEntryRequired);
  }
  return {};
}

BoxLeaving LeaveJoistBox(PlanForm& form, JoistBox box) {
  const NumberEntry entry = EnterJoistLength(form.joists[box].text);
  SetJoistText(form, box, entry.text);
  return entry.message.empty() ? BoxLeaving{} : Refusal(entry.message);
}

void RoundNumberBox(PlanForm& form, NumberBox box) { SetNumberText(form, box, RoundedUp(form.numbers[box].text)); }

void RoundJoistBox(PlanForm& form, JoistBox box) {
  const NumberEntry entry = EnterJoistLength(form.joists[box].text);
  if (entry.message.empty()) SetJoistText(form, box, entry.text);
}

void ClickSelectionList(PlanForm& form, SelectionList list, int row) {
  if (!form.lists[list].enabled) return;
  SelectRow(form, list, row);
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
  for (const NumberBox box : kAllNumberBoxes)
    if (std::string message = RangeMessage(form.numbers[box].text); !message.empty())
      return NumberFault{.box = box, .message = std::move(message)};
  for (const JoistBox box : kAllJoistBoxes)
    if (std::string message = RangeMessage(form.joists[box].text); !message.empty())
      return NumberFault{.box = box, .message = std::move(message)};
  return std::nullopt;
}

void ComputeWallArea(PlanForm& form) {
  const double length = NumberOf(form, NumberBox::ExtWallLftFirstFloor) +
                        2 * (NumberOf(form, NumberBox::OverallLength) - NumberOf(form, NumberBox::HeatedLength));
  SetComputed(form, NumberBox::ExtWallSidingFirstFloor, length * (form.lists[SelectionList::WallSheetHeight].ListIndex + 8));
}

void ComputeLengths(PlanForm& form) {
  if ((form.PlanType & kDetachedGarage) == 0)
    SetComputed(form, NumberBox::IntWallLftFirstFloor, 0.11 * NumberOf(form, NumberBox::HeatedSqFtFirstFloor));
  SetComputed(form, NumberBox::HeaderLft, NumberOf(form, NumberBox::ExtWallLftFirstFloor) / 3);
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
    if (const int line = FirstUsableLine(form, screen); line >= 0) return line;
  }
  form.CurrentScreen = start;
  PutInSight(form);
  return FirstUsableLine(form, start);
}

int GoToScreen(PlanForm& form, int screen) {
  if (screen != form.CurrentScreen) return ShowScreen(form, screen - form.CurrentScreen);
  PutInSight(form);
  return FirstUsableLine(form, screen);
}

ScreenFrame FrameOf(const PlanForm& form) {
  const int screen = form.CurrentScreen;
  ScreenFrame frame;
  frame.PageLabel = "Screen" + PlainNumber(screen + 1) + " Of" + PlainNumber(ScreenCount + 1);
  frame.canGoNext = screen < ScreenCount;
  frame.canGoBack = screen > 0;
  frame.showsRoofButton = screen == 0 || screen == ScreenCount;
  const int members = form.lists[SelectionList::GirderPly].ListIndex + 1;
  if (screen == kGirderScreen && members >= 2 && members <= 4) {
    frame.girderMembers = Digits(members) + " Mbr";
    frame.widerGirderMembers = Digits(members + 1) + " Mbr";
  }
  return frame;
}

ExitStep StepOfExit(const PlanForm& form, bool isPlanChanged) {
  if (form.mark == ChangeMark::None && !isPlanChanged) return ExitStep::Leave;
  return IsOpened(form.mode) ? ExitStep::AskToExit : ExitStep::AskToSave;
}

std::string ExitQuestion(std::string_view planNumber) {
  std::string number(Trim(planNumber));
  // A bar would end the question.
  std::replace(number.begin(), number.end(), '|', ' ');
  return "2 Exit Data Entry for Plan: " + number + "|Exit";
}

}  // namespace norvale
