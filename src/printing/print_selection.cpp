#include "printing/print_selection.h"

#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"
#include "data/plan_type.h"

namespace norvale {

namespace {

constexpr std::string_view kSpecificationsCaption = "Specifications";
constexpr std::string_view kPricingCaption = "Print pricing && extended Information";
static_assert(BoxOfBit(kSpecifications) == kSpecificationsBox && BoxOfBit(kWithPrices) == kPricingBox);

constexpr std::string_view kOutOfRange = "0 Valid Values range from 1 to 32767,  Please re-Enter a Valid Value|";
constexpr std::string_view kBelowFrom =
    "0 Value needs to be Equal To or Greater Than the print from value,  Please re-Enter a larger Value|";
constexpr std::string_view kLast = "LAST";

double NumberIn(std::string_view text) { return RoundEven(Val(text)); }

bool IsCustomerNumber(double number) { return number >= 1 && number <= kLastCustomer; }

bool IsLast(std::string_view text) { return UpperCase(Trim(text)) == kLast; }

}  // namespace

std::string_view CaptionOfPrintBox(std::size_t box) {
  const auto* const section = std::ranges::find(kSections, 1 << box, &Section::bit);
  if (section != std::end(kSections)) return section->caption;
  return box == kSpecificationsBox ? kSpecificationsCaption : kPricingCaption;
}

PlanParts PartsOf(const EstimateRecord& plan) {
  return {.PlanType = plan.PlanType,
          .isFinished = plan.SlabInterior.Trimmed() == kFinishedInterior,
          .hasUpperFloor = plan.SecondFloorType != 1};
}

// By the text of the inside's row, not by its place in the list: the run goes by the text too, and what is ticked must print.
PlanParts PartsOf(const PlanForm& form) {
  return {.PlanType = form.PlanType,
          .isFinished = Trim(ShownText(form.lists[SelectionList::SlabInterior])) == kFinishedInterior,
          .hasUpperFloor = form.lists[SelectionList::SecondFloorType].ListIndex != 0};
}

PrintBoxes BoxesOf(const PlanParts& parts) {
  const bool slab = (parts.PlanType & kSlab) != 0;
  const bool interior = !slab || parts.isFinished;
  const auto has = [&](HousePart part) {
    switch (part) {
      case HousePart::FramedFloor:
        return !slab;
      case HousePart::SecondFloor:
        return (parts.PlanType & kTwoLevel) != 0;
      case HousePart::Interior:
        return interior;
      case HousePart::CoveredFloor:
        return interior && (parts.hasUpperFloor || (parts.PlanType & kCrawlSpace) != 0);
      case HousePart::Always:
        break;
    }
    return true;
  };
  PrintBoxes boxes;
  boxes.enabled.fill(true);
  for (const Section& section : kSections) boxes.enabled[BoxOfBit(section.bit)] = has(section.part);
  boxes.ticked = boxes.enabled;
  boxes.ticked[kPricingBox] = false;
  return boxes;
}

int PrintSections(const PrintBoxes& boxes) {
  int mask = 0;
  for (std::size_t box = 0; box < kPrintBoxes; ++box)
    if (boxes.ticked[box]) mask += 1 << box;
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
