// The fields of the data-entry form, as a form in a window shows them: what each holds, whether it can be used, whether it
// is in sight. The rules of the other files of this folder work on this record; a window only shows it.
//
// Captions, rows and texts are in the Windows-1252 of the data files.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "data/plan_fields.h"
#include "prices/screen_lines.h"

namespace norvale {

/// How a plan was reached. Loading: the plans are shown again after one was deleted.
enum class PlanMode { New, Existing, Loading };

/// Whether the plan was on file before.
constexpr bool IsOpened(PlanMode mode) { return mode != PlanMode::New; }

/// What has happened to a plan since it was loaded. Choosing: a list's row is being changed at this moment.
enum class ChangeMark { None, Choosing, Modified };

struct ListState {
  bool enabled = true;
  bool visible = false;
  int ListIndex = -1;  // from 0; -1: nothing chosen
  std::vector<std::string> rows;
  std::string unlistedText;  // the plan's stock where no row has it any more; shown while nothing is chosen
};

struct NumberState {
  bool enabled = true;
  bool visible = false;
  std::string text;
  bool isTouched = false;  // has had the focus: what is computed no longer replaces it
};

struct JoistState {
  bool enabled = true;
  bool visible = false;
  bool isHidden = false;  // out of sight even while its line is in sight
  std::string text;       // feet
};

struct LineState {
  bool enabled = true;  // the caption; it follows its field while the line is in sight
  bool visible = false;
  std::string caption;
  std::string hint;         // what to enter, in which unit
  bool isIndented = false;  // stands in under the line above
  LineField field;
};

struct PlanForm {
  PlanMode mode = PlanMode::New;
  std::int16_t PlanType = 0;

  BySelectionList<ListState> lists;
  ByNumberBox<NumberState> numbers;
  ByJoistBox<JoistState> joists;
  std::array<LineState, kScreenLines> lines;
  BySelectionList<int> lineOfList{};  // -1: the list has no line
  ByNumberBox<int> lineOfNumber{};    // -1: the box has no line
  int LastLine = -1;
  std::int16_t CarportSqFtUnmulled = 0;  // goes with the box of the carport area

  int CurrentScreen = 0;
  bool isPrintEnabled = false;
  bool isTypeChanged = false;  // the type of an opened plan has just been changed on the checklist
  bool isLoading = false;      // changes are not the operator's and leave no mark
  ChangeMark mark = ChangeMark::None;
  std::optional<NumberBox> RefocusPending;  // the box to which a message has just sent the focus back
};

/// The chosen row's text, or the stock that no row has any more; empty where nothing is chosen.
std::string ShownText(const ListState& list);

/// Whether the box or list of a line can be used; false for a line without one.
bool IsEnabled(const PlanForm& form, LineField field);

/// The number in a box, 0 where it is empty.
double NumberOf(const PlanForm& form, NumberBox box);

/// Puts a text into a box and marks the plan as modified where that changes anything.
void SetNumberText(PlanForm& form, NumberBox box, const std::string& text);
void SetJoistText(PlanForm& form, JoistBox box, const std::string& text);

/// Lays the lines of the screen file on the form: captions, hints and which box stands in which line. Lines beyond the last
/// screen's are left out.
void PlaceLines(PlanForm& form, const std::vector<ScreenLine>& lines);

}  // namespace norvale
