// The eleven screens of the data-entry form: their lines, what a box becomes when it is left, when a screen is complete, and
// the steps from screen to screen. Screens count from 0, lines from 0.
//
// Messages lack their title, which belongs behind the "|" at their end.
#pragma once

#include <optional>
#include <string>
#include <variant>

#include "entry/form_fields.h"

namespace norvale {

/// The lines of a screen, as they stand in the screen file; the last screen ends with the file.
struct LineSpan {
  int first = 0;
  int last = -1;
};
LineSpan LinesOn(const PlanForm& form, int screen);

/// The first line of the screen whose caption is enabled and in sight, -1 where there is none, or no such screen.
int FirstUsableLine(const PlanForm& form, int screen);

/// Whether the screen has a box that can be used.
bool HasUsableLine(const PlanForm& form, int screen);

/// The screen on which a number box stands, -1 where it has no line.
int ScreenOfNumber(const PlanForm& form, NumberBox box);

// --- Boxes

/// What leaving a box came to.
struct BoxLeaving {
  std::string message;        // empty: none
  bool focusReturns = false;  // to the box that was left
};

/// The box has got the focus: what the program would compute for it no longer replaces what stands there.
void EnterNumberBox(PlanForm& form, NumberBox box);

/// Applies the rules for a number box that is left for another one: rounded up, not negative, not empty where a value is
/// needed, 0 to 32767. An entry that was asked for once is let pass the second time. Buttons that leave the screen, Esc and
/// closing do not come here; `RoundNumberBox` and `RoundJoistBox` serve them.
BoxLeaving LeaveNumberBox(PlanForm& form, NumberBox box);

/// The same for a joist box: even feet, 8 or more, or 0.
BoxLeaving LeaveJoistBox(PlanForm& form, JoistBox box);

/// Rounds the box as leaving it would, and asks nothing. What leaving it would refuse stays for `FirstNumberFault`.
void RoundNumberBox(PlanForm& form, NumberBox box);
void RoundJoistBox(PlanForm& form, JoistBox box);

/// The operator chooses a row (from 0) of a list: the field rule of its line runs, the plan is marked, and the captions in
/// sight follow. Nothing where the list is shut.
void ClickSelectionList(PlanForm& form, SelectionList list, int row);

// --- Completeness

/// Whether a screen has all that the estimate needs, and what to say where it has not.
struct ScreenCheck {
  bool isComplete = true;
  std::optional<NumberBox> focus;  // the box that needs an entry
  std::string message;
};

/// Tests screen n, or, with less to say, screen -n: then neither focus nor message. Screens outside 1 to 10 are complete.
/// For screen 5 the wall area of a new plan is computed first.
ScreenCheck CheckScreenComplete(PlanForm& form, int n);

/// Whether the screen is complete, without changing anything.
bool IsScreenComplete(const PlanForm& form, int screen);

/// What stands against a print: nothing, or the first incomplete screen with the notice that names it.
struct PrintCheck {
  int screen = -1;  // -1: every screen is complete
  std::string message;
};
PrintCheck CheckBeforePrint(PlanForm& form);

/// A number that the record could not hold, left unseen behind a button: the box, and what to say. Asked before a plan is
/// saved or printed.
struct NumberFault {
  std::variant<NumberBox, JoistBox> box;
  std::string message;
};
std::optional<NumberFault> FirstNumberFault(const PlanForm& form);

// --- What the program computes for a new plan

/// The first-floor wall area from wall lengths and wall height, 0 to 32767; nothing on an opened plan, and nothing once
/// its box has been touched.
void ComputeWallArea(PlanForm& form);

/// Interior walls from the heated area and headers from the exterior walls, under the same conditions. A detached garage
/// has no interior walls to begin with.
void ComputeLengths(PlanForm& form);

// --- Navigation

/// Goes `delta` screens on and puts the lines of that screen in sight, their captions enabled as their boxes are. A screen
/// without a usable line is passed over; where the end has none, the form stays where it was. Returns the line that gets the
/// focus, -1 with a `delta` of 0.
int ShowScreen(PlanForm& form, int delta);

/// Shows screen `screen` (0 to `ScreenCount`) and returns the line that gets the focus.
int GoToScreen(PlanForm& form, int screen);

/// What stands around the lines of the current screen.
struct ScreenFrame {
  std::string PageLabel;  // "Screen 1 Of 11"
  bool canGoNext = false;
  bool canGoBack = false;
  bool showsRoofButton = false;
  std::string girderMembers;  // headings of the girder rows; empty: hidden
  std::string widerGirderMembers;
};
ScreenFrame FrameOf(const PlanForm& form);

// --- Leaving the form

/// What Exit does.
enum class ExitStep { Leave, AskToExit, AskToSave };

/// Leave where nothing has changed. Else an opened plan is asked about first, a new one goes to the save prompt at once.
/// `isPlanChanged`: plan type or pricing level were changed on the checklist.
ExitStep StepOfExit(const PlanForm& form, bool isPlanChanged);

/// The question of an opened plan; on Yes the save prompt follows. `planNumber` may hold any text.
std::string ExitQuestion(std::string_view planNumber);

}  // namespace norvale
