#include "entry/plan_form.h"

#include <algorithm>
#include <array>
#include <limits>

#include "base/numbers.h"
#include "base/text.h"
#include "data/plan_type.h"
#include "entry/field_rules.h"
#include "entry/number_entry.h"

namespace norvale {

namespace {

constexpr std::size_t kRecordTextWidth = 20;  // a row's text may be longer; the record keeps its beginning

// The stocks of the five rows, in feet.
constexpr std::array<int, 5> kStockLengths = {8, 10, 12, 14, 16};

std::int16_t StoredNumber(const std::string& text) {
  using Limits = std::numeric_limits<std::int16_t>;
  return static_cast<std::int16_t>(std::clamp<double>(RoundEven(Val(text)), Limits::min(), Limits::max()));
}

std::string RecordText(std::string_view row) { return std::string(Trim(row.substr(0, kRecordTextWidth))); }

void FillLists(PlanForm& form, const std::vector<MaterialRow>& rows) {
  BySelectionList<bool> isEnded{};
  for (ListState& list : form.lists) list.rows.clear(), list.ListIndex = -1, list.unlistedText.clear();
  for (const MaterialRow& row : rows) {
    if (row.ListNumber < 0 || row.ListNumber >= static_cast<int>(kSelectionLists)) continue;
    const auto name = static_cast<SelectionList>(row.ListNumber);
    const std::string text = row.ListText.Trimmed();
    if (text == kListEnd) isEnded[name] = true;
    if (isEnded[name]) continue;
    ListState& list = form.lists[name];
    list.rows.push_back(text);
    if (row.ListDefaultFlag == -1) list.ListIndex = static_cast<int>(list.rows.size()) - 1;
  }
}

void LoadChoice(ListState& box, const SelectionListRow& choice, const EstimateRecord& plan) {
  box.ListIndex = -1;
  const std::string stored = choice.text != nullptr ? (plan.*choice.text).Trimmed() : std::string();
  const int index = choice.index != nullptr ? plan.*choice.index - 1 : -1;
  const bool isInList = index >= 0 && index < static_cast<int>(box.rows.size());
  // Without a text there is nothing that could contradict the row.
  if (isInList && (stored.empty() || RecordText(box.rows[static_cast<std::size_t>(index)]) == stored)) {
    box.ListIndex = index;
    return;
  }
  if (stored.empty()) return;
  const auto row =
      std::find_if(box.rows.begin(), box.rows.end(), [&stored](const std::string& text) { return RecordText(text) == stored; });
  if (row != box.rows.end())
    box.ListIndex = static_cast<int>(row - box.rows.begin());
  else
    box.unlistedText = stored;
}

}  // namespace

bool HaveEveryBox(const std::vector<ScreenLine>& lines) {
  PlanForm form;
  PlaceLines(form, lines);
  return lines.size() >= kScreenLines && std::ranges::none_of(form.lineOfNumber, [](int line) { return line < 0; });
}

bool HaveEveryList(const std::vector<MaterialRow>& rows) {
  PlanForm form;
  FillLists(form, rows);
  return std::ranges::none_of(form.lists, [](const ListState& list) { return list.rows.empty(); });
}

std::string RefusalOfPlan(const std::vector<ScreenLine>& lines, const std::vector<MaterialRow>& rows) {
  const auto refusal = [](std::string_view file) {
    return "0 No plan can be opened: " + std::string(file) + " is missing or incomplete.|";
  };
  if (!HaveEveryBox(lines)) return refusal(kScreenFileName);
  return HaveEveryList(rows) ? std::string() : refusal(kMaterialFileName);
}

void LoadPlanIntoForm(PlanForm& form, PlanMode mode, const EstimateRecord& plan, const std::vector<MaterialRow>& rows) {
  form.mode = mode;
  const bool wasLoading = form.isLoading;
  form.isLoading = true;
  FillLists(form, rows);
  for (const NumberBox box : kAllNumberBoxes) {
    SetNumberText(form, box, IsOpened(mode) ? NumberText(RowOf(box).place.In(plan)) : "");
    form.numbers[box].isTouched = false;
  }
  for (const JoistBox box : kAllJoistBoxes) {
    const NumberPlace& place = RowOf(box).place;
    SetJoistText(form, box, NumberText(IsOpened(mode) ? place.In(plan) : kStockLengths[place.row]));
  }
  form.CarportSqFtUnmulled = IsOpened(mode) ? plan.CarportSqFtUnmulled : std::int16_t{0};
  if (IsOpened(mode)) {
    for (const SelectionList list : kAllSelectionLists) LoadChoice(form.lists[list], RowOf(list), plan);
    // The interior has no row in the record; its one known text stands for the first row, whatever that is called.
    ListState& interior = form.lists[SelectionList::SlabInterior];
    if (plan.SlabInterior.Trimmed() == kFinishedInterior && !interior.rows.empty()) interior.ListIndex = 0, interior.unlistedText.clear();
  }
  form.isLoading = wasLoading;
  form.mark = ChangeMark::None;
}

void StorePlanFromForm(const PlanForm& form, EstimateRecord& plan) {
  for (const NumberBox box : kAllNumberBoxes) RowOf(box).place.In(plan) = StoredNumber(form.numbers[box].text);
  for (const JoistBox box : kAllJoistBoxes) RowOf(box).place.In(plan) = StoredNumber(form.joists[box].text);
  plan.CarportSqFtUnmulled = form.CarportSqFtUnmulled;
  for (const SelectionList list : kAllSelectionLists) {
    const SelectionListRow& row = RowOf(list);
    if (row.index != nullptr) plan.*row.index = static_cast<std::int16_t>(form.lists[list].ListIndex + 1);
    if (row.text != nullptr) (plan.*row.text).Assign(ShownText(form.lists[list]));
  }
}

PlanForm OpenPlanForm(PlanMode mode, bool isTypeChanged, EstimateRecord& plan, const std::vector<ScreenLine>& lines,
                      const std::vector<MaterialRow>& rows) {
  PlanForm form;
  form.PlanType = plan.PlanType;
  form.isPrintEnabled = IsOpened(mode) || isTypeChanged;
  form.isTypeChanged = isTypeChanged;
  PlaceLines(form, lines);
  LoadPlanIntoForm(form, mode, plan, rows);
  form.isLoading = true;
  ApplyPlanTypeRules(form, plan);
  ApplyAllFieldRules(form);
  form.isLoading = false;
  return form;
}

EstimateRecord BlankPlan() {
  EstimateRecord plan;
  plan.PriceLevel.Assign("1");
  plan.ReservedText.Assign("");  // as a plan that is imported has it
  return plan;
}

std::vector<NumberBox> ShutBoxesWithValues(const PlanForm& form) {
  const bool twoLevels = (form.PlanType & kTwoLevel) != 0;
  std::vector<NumberBox> boxes;
  for (const NumberBox box : kAllNumberBoxes) {
    if (form.numbers[box].enabled || NumberOf(form, box) == 0) continue;
    if (box == NumberBox::ExtWallSidingFirstFloor || (box == NumberBox::ExtWallSidingSecondFloor && twoLevels)) continue;
    boxes.push_back(box);
  }
  return boxes;
}

void ClearShutBoxes(PlanForm& form) {
  for (const NumberBox box : ShutBoxesWithValues(form)) SetNumberText(form, box, "");
}

void ChooseWholeHouseVinyl(PlanForm& form) {
  constexpr int kVinylRow = 4;
  const ListState& finish = form.lists[SelectionList::WallFinish];
  if (IsOpened(form.mode) || !finish.enabled || finish.rows.size() <= static_cast<std::size_t>(kVinylRow)) return;
  SelectRow(form, SelectionList::WallFinish, kVinylRow);
}

}  // namespace norvale
