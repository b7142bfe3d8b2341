#include "printing/print_selection.h"

#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"
#include "data/plan_type.h"
#include "takeoff/takeoff_run.h"

namespace norvale {

namespace {

constexpr std::string_view kFinished = "FINISHED";

// clang-format off
struct BoxInfo {
  std::string_view caption;
  int bit;
};
constexpr std::array<BoxInfo, kPrintBoxes> kInfo = {{
    {"1st floor - Floor System",                kFirstFloorFloorSystem},
    {"1st floor - Wall System",                 kFirstFloorWallSystem},
    {"2nd floor - Floor System",                kSecondFloorFloorSystem},
    {"2nd floor - Wall System",                 kSecondFloorWallSystem},
    {"Roof System",                             kRoofSystem},
    {"Flooring",                                kFlooring},
    {"Sheetrock",                               kSheetrock},
    {"Interior Trim",                           kInteriorTrim},
    {"exterior Trim",                           kExteriorTrim},
    {"Specifications",                          kSpecifications},
    {"Print pricing && extended Information",   kWithPrices},
}};
// clang-format on

constexpr bool BitsFollowTheBoxes() {
  for (std::size_t box = 0; box < kPrintBoxes; ++box)
    if (kInfo[box].bit != 1 << box) return false;
  return true;
}
static_assert(BitsFollowTheBoxes(), "the mask is the sum of 2 to the power of each box");

constexpr std::string_view kOutOfRange = "0 Valid Values range from 1 to 32767,  Please re-Enter a Valid Value|";
constexpr std::string_view kBelowFrom =
    "0 Value needs to be Equal To or Greater Than the print from value,  Please re-Enter a larger Value|";
constexpr std::string_view kLast = "LAST";

double NumberIn(std::string_view text) { return RoundEven(Val(text)); }

bool IsCustomerNumber(double number) { return number >= 1 && number <= kLastCustomer; }

bool IsLast(std::string_view text) { return UpperCase(Trim(text)) == kLast; }

}  // namespace

std::string_view CaptionOf(PrintBox box) { return kInfo[static_cast<std::size_t>(box)].caption; }

PlanParts PartsOf(const EstimateRecord& plan) {
  return {.PlanType = plan.PlanType, .isFinished = plan.SlabInterior.Trimmed() == kFinished, .hasUpperFloor = plan.SecondFloorType != 1};
}

// By the text of the inside's row, not by its place in the list: the run goes by the text too, and what is ticked must print.
PlanParts PartsOf(const PlanForm& form) {
  return {.PlanType = form.PlanType,
          .isFinished = Trim(ShownText(form.lists[SelectionList::SlabInterior])) == kFinished,
          .hasUpperFloor = form.lists[SelectionList::SecondFloorType].ListIndex != 0};
}

PrintBoxes BoxesOf(const PlanParts& parts) {
  const bool slab = (parts.PlanType & kSlab) != 0;
  PrintBoxes boxes;
  boxes.enabled.fill(true);
  boxes.ticked.fill(true);
  boxes.ticked[static_cast<std::size_t>(PrintBox::Pricing)] = false;
  const auto shut = [&boxes](PrintBox box) {
    boxes.enabled[static_cast<std::size_t>(box)] = false;
    boxes.ticked[static_cast<std::size_t>(box)] = false;
  };
  if (slab) shut(PrintBox::FirstFloorFloorSystem);
  if ((parts.PlanType & (kTwoLevelSlab | kTwoLevelCrawl)) == 0) {
    shut(PrintBox::SecondFloorFloorSystem);
    shut(PrintBox::SecondFloorWallSystem);
  }
  if (slab && !parts.isFinished) {
    shut(PrintBox::Flooring);
    shut(PrintBox::Sheetrock);
    shut(PrintBox::InteriorTrim);
  }
  if (!parts.hasUpperFloor && (parts.PlanType & kCrawlSpace) == 0) shut(PrintBox::Flooring);
  return boxes;
}

int PrintSections(const PrintBoxes& boxes) {
  int mask = 0;
  for (std::size_t box = 0; box < kPrintBoxes; ++box)
    if (boxes.ticked[box]) mask += kInfo[box].bit;
  return mask;
}

int DefaultSections(const EstimateRecord& plan) { return PrintSections(BoxesOf(PartsOf(plan))); }

RangeCheck CheckCustFrom(const RangeBoxes& boxes) {
  if (boxes.isAll || IsCustomerNumber(NumberIn(boxes.txtCustFrom))) return {.text = boxes.txtCustFrom, .message = {}};
  return {.text = "1", .message = std::string(kOutOfRange)};
}

RangeCheck CheckCustTo(const RangeBoxes& boxes) {
  if (boxes.isAll || IsLast(boxes.txtCustTo)) return {.text = boxes.txtCustTo, .message = {}};
  const double to = NumberIn(boxes.txtCustTo);
  if (!IsCustomerNumber(to)) return {.text = std::to_string(kLastCustomer), .message = std::string(kOutOfRange)};
  if (to < NumberIn(boxes.txtCustFrom)) return {.text = boxes.txtCustTo, .message = std::string(kBelowFrom)};
  return {.text = boxes.txtCustTo, .message = {}};
}

CustomerRange RangeOf(const RangeBoxes& boxes) {
  if (boxes.isAll) return kEverybody;
  return {.PrintFrom = static_cast<int>(NumberIn(boxes.txtCustFrom)),
          .PrintTo = IsLast(boxes.txtCustTo) ? kLastCustomer : static_cast<int>(NumberIn(boxes.txtCustTo)),
          .withCompany = false};
}

int CopiesOf(std::string_view text) {
  constexpr double kMost = 999;
  return static_cast<int>(std::clamp(NumberIn(text), 1.0, kMost));
}

}  // namespace norvale
