// The fields of the data-entry form, as a form in a window shows them: what each holds, whether it can be used, whether it
// is in sight. The rules of the other files of this folder work on this record; a window only shows it.
//
// Captions, rows and texts are in the Windows-1252 of the data files.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "data/plan_choices.h"
#include "prices/screen_lines.h"

namespace norvale {

inline constexpr std::size_t kNumberBoxes = 54;
inline constexpr std::size_t kJoistBoxes = 10;

/// The index of the last screen.
inline constexpr int ScreenCount = 10;

/// How a plan was reached. Loading: the plans are shown again after one was deleted.
enum class PlanMode { New, Existing, Loading };

/// Whether the plan was on file before.
constexpr bool IsOpened(PlanMode mode) { return mode != PlanMode::New; }

/// What has happened to a plan since it was loaded. Choosing: a list's row is being changed at this moment.
enum class ChangeMark { None, Choosing, Modified };

struct SelectionBox {
  bool enabled = true;
  bool visible = false;
  int ListIndex = -1;  // from 0; -1: nothing chosen
  std::vector<std::string> rows;
  std::string unlistedText;  // the plan's stock where no row has it any more; shown while nothing is chosen
};

struct NumberBox {
  bool enabled = true;
  bool visible = false;
  std::string text;
  bool isTouched = false;  // has had the focus: what is computed no longer replaces it
};

struct JoistBox {
  bool enabled = true;
  bool visible = false;
  bool isHidden = false;  // out of sight even while its line is in sight
  std::string text;       // feet
};

enum class ControlKind { None, Selection, Number };

/// The box of a line.
struct LineControl {
  ControlKind kind = ControlKind::None;  // None: the line is only a caption
  int index = -1;

  bool operator==(const LineControl&) const = default;
};

struct CaptionLine {
  bool enabled = true;
  bool visible = false;
  std::string caption;
  std::string hint;         // what to enter, in which unit
  bool isIndented = false;  // stands in under the line above
  LineControl control;
};

struct PlanForm {
  PlanMode mode = PlanMode::New;
  std::int16_t PlanType = 0;

  std::array<SelectionBox, kSelectionLists> combo1;
  std::array<NumberBox, kNumberBoxes> TxtDisp;
  std::array<JoistBox, kJoistBoxes> TxtDispJoist;  // 0 to 4 go with TxtDisp 26 to 30, 5 to 9 with TxtDisp 37 to 41
  std::array<CaptionLine, kScreenLines> lblLine;
  std::array<int, kSelectionLists> LineOfCombo{};  // -1: the box has no line
  std::array<int, kNumberBoxes> LineOfNumber{};    // -1: the box has no line
  int LastLine = -1;
  std::int16_t CarportSqFtUnmulled = 0;  // goes with TxtDisp 36: the carport area that has no mull

  int CurrentScreen = 0;
  bool isPrintEnabled = false;
  bool isTypeChanged = false;  // the type of an opened plan has just been changed on the checklist
  bool isLoading = false;      // changes are not the operator's and leave no mark
  ChangeMark mark = ChangeMark::None;
  std::optional<int> RefocusPending;  // the number box to which a message has just sent the focus back
};

/// The chosen row's text, or the stock that no row has any more; empty where nothing is chosen.
std::string ShownText(const SelectionBox& box);

/// The number in number box `box`, 0 where it is empty.
double NumberOf(const PlanForm& form, int box);

/// Puts a text into number box `box` and marks the plan as modified where that changes anything.
void SetNumberText(PlanForm& form, int box, const std::string& text);

/// The same for joist box `box`.
void SetJoistText(PlanForm& form, int box, const std::string& text);

/// The joist box in the line of a number box, -1 where it has none.
int JoistBoxOf(int numberBox);

/// The box that a control code of the screen file names, such as "C:07" or "T:53".
LineControl ParseControlCode(std::string_view code);

/// Lays the lines of the screen file on the form: captions, hints and which box stands in which line. Lines beyond the 94th
/// are left out.
void PlaceLines(PlanForm& form, const std::vector<ScreenLine>& lines);

}  // namespace norvale
