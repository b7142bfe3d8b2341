// What the print dialog asks for, by the kind of print: parts of the estimate, customers, copies, plan type and worksheet.
// The rules behind the dialog; a window only shows them.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "data/estimate_record.h"
#include "entry/checklist.h"
#include "entry/form_fields.h"
#include "printing/lists.h"
#include "takeoff/sections.h"

namespace norvale {

enum class PrintKind { CustomerList, EstimateList, Estimate, Worksheet };

// --- The parts of an estimate

/// The boxes in the order of their bits in the section mask: first those of the sections.
inline constexpr std::size_t kSpecificationsBox = std::size(kSections);
inline constexpr std::size_t kPricingBox = kSpecificationsBox + 1;
inline constexpr std::size_t kPrintBoxes = kPricingBox + 1;

/// The box of a bit of the mask.
constexpr std::size_t BoxOfBit(int bit) { return static_cast<std::size_t>(std::countr_zero(static_cast<unsigned>(bit))); }

/// The boxes as they stand on the screen, from the top: in the order in which their parts are printed.
constexpr std::array<std::size_t, kPrintBoxes> BoxesOnScreen() {
  std::array<std::size_t, kPrintBoxes> boxes{};
  std::size_t place = 0;
  for (const Section& section : kSections) boxes[place++] = BoxOfBit(section.bit);
  boxes[place++] = kSpecificationsBox;
  boxes[place] = kPricingBox;
  return boxes;
}
inline constexpr std::array<std::size_t, kPrintBoxes> kPrintBoxesOnScreen = BoxesOnScreen();

/// As on a button: "&&" is one "&" in sight.
std::string_view CaptionOfPrintBox(std::size_t box);

/// What of a plan decides which parts it has.
struct PlanParts {
  std::int16_t PlanType = 0;
  bool isFinished = false;     // the inside of a slab building
  bool hasUpperFloor = false;  // the choice of floors is beyond its first row
};
PlanParts PartsOf(const EstimateRecord& plan);
PlanParts PartsOf(const PlanForm& form);

struct PrintBoxes {
  std::array<bool, kPrintBoxes> enabled{};
  std::array<bool, kPrintBoxes> ticked{};

  bool operator==(const PrintBoxes&) const = default;
};

/// The boxes with which the dialog opens: all that the plan has, without the prices. What a plan does not have is shut.
PrintBoxes BoxesOf(const PlanParts& parts);

/// The section mask of the ticked boxes.
int PrintSections(const PrintBoxes& boxes);

/// The mask of the boxes with which the dialog opens for a plan.
int DefaultSections(const EstimateRecord& plan);

// --- Customers and copies

/// The largest customer number that can be typed, and what " LAST" stands for.
inline constexpr int kLastCustomer = 32767;

/// The range as the boxes hold it. Print All takes the company's own plans as well, which no number can be typed for.
struct RangeBoxes {
  bool isAll = true;
  std::string txtCustFrom = " 1";
  std::string txtCustTo = " LAST";
};

/// What a box becomes when it is left, and the message that tells why; lacks its title. No message: all is well.
struct RangeCheck {
  std::string text;
  std::string message;
};
RangeCheck CheckCustFrom(const RangeBoxes& boxes);
RangeCheck CheckCustTo(const RangeBoxes& boxes);

/// The customers that the boxes ask for. The boxes have passed their checks.
CustomerRange RangeOf(const RangeBoxes& boxes);

/// The number of copies in a text: rounded, at least 1.
int CopiesOf(std::string_view text);

// --- The worksheet

/// The boxes of the plan type in the order of this dialog: the foundations first, the half stories last.
inline constexpr std::array<PlanCheck, kPlanChecks> kPlanDescBoxes = {
    PlanCheck::chkSlab10,         PlanCheck::chkSlab15_20,      PlanCheck::chkCrawl10, PlanCheck::chkCrawl15_20,
    PlanCheck::chkGarage_Attatch, PlanCheck::chkGarage_Detatch, PlanCheck::chkCarport, PlanCheck::chkPorch,
    PlanCheck::chkectvinyl,       PlanCheck::chkwhvinyl,        PlanCheck::chk12field, PlanCheck::chk12truss};

/// What is said where no foundation is ticked; lacks its title.
inline constexpr std::string_view kNoPlanType = "0 Please Select a Valid PLAN TYPE.|";

}  // namespace norvale
