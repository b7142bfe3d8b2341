#include "entry/form_fields.h"

#include <algorithm>
#include <string_view>

#include "base/numbers.h"
#include "base/text.h"

namespace norvale {

namespace {

constexpr int kUsualPosition = 360;  // of a line that does not stand in

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

template <typename Box>
void SetText(PlanForm& form, Box& box, const std::string& text) {
  if (box.text == text) return;
  box.text = text;
  if (!form.isLoading) form.mark = ChangeMark::Modified;
}

}  // namespace

std::string ShownText(const SelectionBox& box) {
  if (box.ListIndex < 0) return box.unlistedText;
  const auto row = static_cast<std::size_t>(box.ListIndex);
  return row < box.rows.size() ? box.rows[row] : std::string();
}

double NumberOf(const PlanForm& form, int box) { return Val(form.TxtDisp[box].text); }

void SetNumberText(PlanForm& form, int box, const std::string& text) {
  // A new text is a new entry: it is not let pass because the one before was asked about.
  if (form.RefocusPending == box && form.TxtDisp[box].text != text) form.RefocusPending.reset();
  SetText(form, form.TxtDisp[box], text);
}

void SetJoistText(PlanForm& form, int box, const std::string& text) { SetText(form, form.TxtDispJoist[box], text); }

int JoistBoxOf(int numberBox) {
  if (numberBox >= 26 && numberBox <= 30) return numberBox - 26;
  if (numberBox >= 37 && numberBox <= 41) return numberBox - 32;
  return -1;
}

LineControl ParseControlCode(std::string_view code) {
  if (code.size() < 4 || code[1] != ':' || !IsDigit(code[2]) || !IsDigit(code[3])) return {};
  const int index = (code[2] - '0') * 10 + (code[3] - '0');
  if (code[0] == 'C' && index < static_cast<int>(kSelectionLists)) return {ControlKind::Selection, index};
  if (code[0] == 'T' && index < static_cast<int>(kNumberBoxes)) return {ControlKind::Number, index};
  return {};
}

void PlaceLines(PlanForm& form, const std::vector<ScreenLine>& lines) {
  form.LineOfCombo.fill(-1);
  form.LineOfNumber.fill(-1);
  const std::size_t count = std::min(lines.size(), kScreenLines);
  for (std::size_t line = 0; line < count; ++line) {
    CaptionLine& placed = form.lblLine[line];
    placed.caption = TrimRight(lines[line].Caption.Padded());
    placed.hint = TrimRight(lines[line].LineText.Padded());
    placed.isIndented = lines[line].LeftPosition > kUsualPosition;
    placed.control = ParseControlCode(lines[line].ControlCode.Padded());
    if (placed.control.kind == ControlKind::Selection) form.LineOfCombo[placed.control.index] = static_cast<int>(line);
    if (placed.control.kind == ControlKind::Number) form.LineOfNumber[placed.control.index] = static_cast<int>(line);
  }
  form.LastLine = static_cast<int>(count) - 1;
}

}  // namespace norvale
