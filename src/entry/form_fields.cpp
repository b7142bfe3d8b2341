#include "entry/form_fields.h"

#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"

namespace norvale {

namespace {

constexpr int kUsualPosition = 360;  // of a line that does not stand in

template <typename Box>
void SetText(PlanForm& form, Box& box, const std::string& text) {
  if (box.text == text) return;
  box.text = text;
  if (!form.isLoading) form.mark = ChangeMark::Modified;
}

}  // namespace

std::string ShownText(const ListState& list) {
  if (list.ListIndex < 0) return list.unlistedText;
  const auto row = static_cast<std::size_t>(list.ListIndex);
  return row < list.rows.size() ? list.rows[row] : std::string();
}

bool IsEnabled(const PlanForm& form, LineField field) {
  if (field.IsList()) return form.lists[field.List()].enabled;
  return field.IsNumber() && form.numbers[field.Number()].enabled;
}

double NumberOf(const PlanForm& form, NumberBox box) { return Val(form.numbers[box].text); }

void SetNumberText(PlanForm& form, NumberBox box, const std::string& text) {
  // A new text is a new entry: it is not let pass because the one before was asked about.
  if (form.RefocusPending == box && form.numbers[box].text != text) form.RefocusPending.reset();
  SetText(form, form.numbers[box], text);
}

void SetJoistText(PlanForm& form, JoistBox box, const std::string& text) { SetText(form, form.joists[box], text); }

void PlaceLines(PlanForm& form, const std::vector<ScreenLine>& lines) {
  form.lineOfList.values.fill(-1);
  form.lineOfNumber.values.fill(-1);
  const std::size_t count = std::min(lines.size(), kScreenLines);
  for (std::size_t line = 0; line < count; ++line) {
    LineState& placed = form.lines[line];
    placed.caption = TrimRight(lines[line].Caption.Padded());
    placed.hint = TrimRight(lines[line].LineText.Padded());
    placed.isIndented = lines[line].LeftPosition > kUsualPosition;
    placed.field = FieldOfLine(lines[line]);
    if (placed.field.IsList()) form.lineOfList[placed.field.List()] = static_cast<int>(line);
    if (placed.field.IsNumber()) form.lineOfNumber[placed.field.Number()] = static_cast<int>(line);
  }
  form.LastLine = static_cast<int>(count) - 1;
}

}  // namespace norvale
