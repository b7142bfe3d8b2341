#include "entry/plan_form.h"

#include <algorithm>
#include <array>
#include <limits>

#include "base/numbers.h"
#include "base/text.h"
#include "data/plan_type.h"
#include "entry/field_lists.h"
#include "entry/number_entry.h"

namespace norvale {

namespace {

constexpr std::size_t kRecordTextWidth = 20;  // a row's text may be longer; the record keeps its beginning
constexpr int kInteriorList = 15;
constexpr int kWallFinishList = 34;
constexpr std::string_view kFinished = "FINISHED";

// Where a number box is kept: a field of its own, or a row of a table.
struct NumberPlace {
  std::int16_t EstimateRecord::*field = nullptr;
  FiveRows EstimateRecord::*rows = nullptr;
  std::size_t row = 0;
};

constexpr std::array<NumberPlace, kNumberBoxes> NumberPlaces() {
  std::array<NumberPlace, kNumberBoxes> places{};
  const auto table = [&places](std::size_t first, FiveRows EstimateRecord::*rows) {
    for (std::size_t row = 0; row < std::tuple_size_v<FiveRows>; ++row) places[first + row] = {nullptr, rows, row};
  };
  places[0].field = &EstimateRecord::ExtWallLftFirstFloor;
  places[1].field = &EstimateRecord::OutsideCornersFirstFloor;
  places[2].field = &EstimateRecord::HeatedLength;
  places[3].field = &EstimateRecord::OverallLength;
  table(4, &EstimateRecord::MajorGirderLft);
  table(9, &EstimateRecord::WiderGirderLft);
  table(14, &EstimateRecord::DropGirderLft);
  table(19, &EstimateRecord::SillLft);
  places[24].field = &EstimateRecord::IntWallLftFirstFloor;
  places[25].field = &EstimateRecord::HeatedSqFtFirstFloor;
  table(26, &EstimateRecord::BayAreaLftFirstFloor);
  places[31].field = &EstimateRecord::OakFlooringSqFt;
  places[32].field = &EstimateRecord::GarageWallLftSheathed;
  places[33].field = &EstimateRecord::GarageWallLftUnsheathed;
  places[34].field = &EstimateRecord::GarageSqFt;
  places[35].field = &EstimateRecord::CarportBeamLft;
  places[36].field = &EstimateRecord::CarportSqFt;
  table(37, &EstimateRecord::BayAreaLftSecondFloor);
  places[42].field = &EstimateRecord::ExtWallLftSecondFloor;
  places[43].field = &EstimateRecord::IntWallLftSecondFloor;
  places[44].field = &EstimateRecord::HeatedSqFtSecondFloor;
  places[45].field = &EstimateRecord::HeaderLft;
  places[46].field = &EstimateRecord::FasciaLft;
  places[47].field = &EstimateRecord::RoofSqFt;
  places[48].field = &EstimateRecord::ExtWallSidingFirstFloor;
  places[49].field = &EstimateRecord::ExtWallSidingSecondFloor;
  places[50].field = &EstimateRecord::OutsideCornersSecondFloor;
  places[51].field = &EstimateRecord::GableSqFt;
  places[52].field = &EstimateRecord::KneeWallLft;
  places[53].field = &EstimateRecord::HalfStoryBaseMouldLft;
  return places;
}

constexpr std::array<NumberPlace, kNumberBoxes> kNumberPlaces = NumberPlaces();
static_assert(std::ranges::all_of(kNumberPlaces,
                                  [](const NumberPlace& place) { return (place.field != nullptr) != (place.rows != nullptr); }),
              "every number box has its one place");

// The stocks of the five rows, in feet.
constexpr std::array<int, 5> kStockLengths = {8, 10, 12, 14, 16};

std::int16_t StoredNumber(const std::string& text) {
  using Limits = std::numeric_limits<std::int16_t>;
  return static_cast<std::int16_t>(std::clamp<double>(RoundEven(Val(text)), Limits::min(), Limits::max()));
}

std::string RecordText(std::string_view row) { return std::string(Trim(row.substr(0, kRecordTextWidth))); }

void FillLists(PlanForm& form, const std::vector<MaterialRow>& rows) {
  std::array<bool, kSelectionLists> isEnded{};
  for (SelectionBox& box : form.combo1) box.rows.clear(), box.ListIndex = -1, box.unlistedText.clear();
  for (const MaterialRow& row : rows) {
    if (row.ListNumber < 0 || row.ListNumber >= static_cast<int>(kSelectionLists)) continue;
    const auto list = static_cast<std::size_t>(row.ListNumber);
    const std::string text = row.ListText.Trimmed();
    if (text == kListEnd) isEnded[list] = true;
    if (isEnded[list]) continue;
    SelectionBox& box = form.combo1[list];
    box.rows.push_back(text);
    if (row.ListDefaultFlag == -1) box.ListIndex = static_cast<int>(box.rows.size()) - 1;
  }
}

void LoadChoice(SelectionBox& box, const PlanChoice& choice, const EstimateRecord& plan) {
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
  return lines.size() >= kScreenLines && std::ranges::none_of(form.LineOfNumber, [](int line) { return line < 0; });
}

bool HaveEveryList(const std::vector<MaterialRow>& rows) {
  PlanForm form;
  FillLists(form, rows);
  return std::ranges::none_of(form.combo1, [](const SelectionBox& box) { return box.rows.empty(); });
}

std::string RefusalOfPlan(const std::vector<ScreenLine>& lines, const std::vector<MaterialRow>& rows) {
  const auto refusal = [](std::string_view file) {
    return "0 No plan can be opened: " + std::string(file) + " is missing or incomplete.|";
  };
  if (!HaveEveryBox(lines)) return refusal(kScreenFileName);
  return HaveEveryList(rows) ? std::string() : refusal(kMaterialFileName);
}

std::int16_t& NumberField(EstimateRecord& plan, int box) {
  const NumberPlace& place = kNumberPlaces[static_cast<std::size_t>(box)];
  return place.field != nullptr ? plan.*place.field : (plan.*place.rows)[place.row];
}

std::int16_t& JoistField(EstimateRecord& plan, int box) {
  const auto row = static_cast<std::size_t>(box % 5);
  return box < 5 ? plan.JoistLengthFirstFloor[row] : plan.JoistLengthSecondFloor[row];
}

void LoadPlanIntoForm(PlanForm& form, PlanMode mode, const EstimateRecord& plan, const std::vector<MaterialRow>& rows) {
  form.mode = mode;
  const bool wasLoading = form.isLoading;
  form.isLoading = true;
  FillLists(form, rows);
  EstimateRecord source = plan;  // the fields are reached through one accessor, which also stores
  for (int box = 0; box < static_cast<int>(kNumberBoxes); ++box) {
    SetNumberText(form, box, IsOpened(mode) ? NumberText(NumberField(source, box)) : "");
    form.TxtDisp[box].isTouched = false;
  }
  for (int box = 0; box < static_cast<int>(kJoistBoxes); ++box)
    SetJoistText(form, box, NumberText(IsOpened(mode) ? JoistField(source, box) : kStockLengths[static_cast<std::size_t>(box % 5)]));
  form.CarportSqFtUnmulled = IsOpened(mode) ? plan.CarportSqFtUnmulled : std::int16_t{0};
  if (IsOpened(mode)) {
    for (std::size_t list = 0; list < kSelectionLists; ++list) LoadChoice(form.combo1[list], kPlanChoices[list], plan);
    // The interior has no row in the record; its one known text stands for the first row, whatever that is called.
    SelectionBox& interior = form.combo1[kInteriorList];
    if (plan.SlabInterior.Trimmed() == kFinished && !interior.rows.empty()) interior.ListIndex = 0, interior.unlistedText.clear();
  }
  form.isLoading = wasLoading;
  form.mark = ChangeMark::None;
}

void StorePlanFromForm(const PlanForm& form, EstimateRecord& plan) {
  for (int box = 0; box < static_cast<int>(kNumberBoxes); ++box) NumberField(plan, box) = StoredNumber(form.TxtDisp[box].text);
  for (int box = 0; box < static_cast<int>(kJoistBoxes); ++box) JoistField(plan, box) = StoredNumber(form.TxtDispJoist[box].text);
  plan.CarportSqFtUnmulled = form.CarportSqFtUnmulled;
  for (std::size_t list = 0; list < kSelectionLists; ++list) {
    const SelectionBox& box = form.combo1[list];
    const PlanChoice& choice = kPlanChoices[list];
    if (choice.index != nullptr) plan.*choice.index = static_cast<std::int16_t>(box.ListIndex + 1);
    if (choice.text != nullptr) (plan.*choice.text).Assign(ShownText(box));
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

std::vector<int> ShutBoxesWithValues(const PlanForm& form) {
  constexpr int kFirstFloorSiding = 48;
  constexpr int kSecondFloorSiding = 49;
  const bool twoLevels = (form.PlanType & (kTwoLevelSlab | kTwoLevelCrawl)) != 0;
  std::vector<int> boxes;
  for (int box = 0; box < static_cast<int>(kNumberBoxes); ++box) {
    if (form.TxtDisp[box].enabled || NumberOf(form, box) == 0) continue;
    if (box == kFirstFloorSiding || (box == kSecondFloorSiding && twoLevels)) continue;
    boxes.push_back(box);
  }
  return boxes;
}

void ClearShutBoxes(PlanForm& form) {
  for (const int box : ShutBoxesWithValues(form)) SetNumberText(form, box, "");
}

void ChooseWholeHouseVinyl(PlanForm& form) {
  constexpr int kVinylRow = 4;
  const SelectionBox& finish = form.combo1[kWallFinishList];
  if (IsOpened(form.mode) || !finish.enabled || finish.rows.size() <= static_cast<std::size_t>(kVinylRow)) return;
  SelectRow(form, kWallFinishList, kVinylRow);
}

}  // namespace norvale
