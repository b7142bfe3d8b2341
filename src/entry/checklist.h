// The rules of the plan checklist: the twelve boxes that make the plan type, the fields that name the plan, and what follows
// from them. Texts of fields are UTF-8.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "data/estimate_record.h"
#include "entry/form_fields.h"

namespace norvale {

// --- The twelve boxes

/// The boxes in the order in which they are shown.
enum class PlanCheck : std::size_t {
  chkSlab10,
  chkSlab15_20,
  chkCrawl10,
  chkCrawl15_20,
  chkGarage_Attatch,
  chkGarage_Detatch,
  chkCarport,
  chkPorch,
  chkectvinyl,
  chk12field,
  chk12truss,
  chkwhvinyl,
};
inline constexpr std::size_t kPlanChecks = 12;

struct PlanCheckInfo {
  std::string_view name;
  std::string_view caption;
  int bit = 0;  // of the plan type; 0: none
};
const PlanCheckInfo& InfoOf(PlanCheck box);

/// The boxes as they stand, on the checklist and on the dialog for the worksheet.
struct PlanChecks {
  bool isEnabled = true;
  std::array<bool, kPlanChecks> ticked{};

  [[nodiscard]] bool Has(PlanCheck box) const { return ticked[static_cast<std::size_t>(box)]; }
  [[nodiscard]] bool& Tick(PlanCheck box) { return ticked[static_cast<std::size_t>(box)]; }
  bool operator==(const PlanChecks&) const = default;
};

/// The operator ticks or unticks a box, by mouse or by the blank key; the boxes that it excludes are cleared. Boxes that are
/// changed that way exclude nothing themselves. Nothing while the boxes are disabled.
void ToggleCheck(PlanChecks& checks, PlanCheck box);

/// Any key in a box: a 1 1/2 story box without a two-level foundation clears itself. With the blank key (32), for a box that
/// has just changed, the exclusions as well.
void KeyOnCheck(PlanChecks& checks, PlanCheck box, int key);

/// Whether one of the four foundation boxes is ticked.
bool HasFoundation(const PlanChecks& checks);

/// The plan type that the boxes make. With several foundations the last one counts.
std::int16_t PlanTypeOf(const PlanChecks& checks);

/// The boxes of a plan type. "Whole House Vinyl" is in no type and comes back unticked.
PlanChecks ChecksOf(std::int16_t planType);

// --- The fields

enum class ChecklistBox { txtcustnum, txtCustName, txtPlanNbr, txtdate };

/// Whether a field takes a character: the customer number digits, the date digits and "-", the others any.
bool TakesCharacter(ChecklistBox box, int character);

/// The pricing level of a plan, 1 to 5. What is no level counts as 1.
int PriceLevelOf(const EstimateRecord& plan);

/// What the operator has entered on the checklist.
struct ChecklistEntry {
  std::string txtcustnum;
  std::string txtPlanNbr;
  std::string txtdate;
  int priceLevel = 1;  // 1 to 5; any other: no option is set
  PlanChecks checks;

  bool operator==(const ChecklistEntry&) const = default;
};

/// The entry that shows a plan.
ChecklistEntry ChecklistOf(const EstimateRecord& plan);

/// Where OK goes instead of on.
enum class ChecklistFocus { txtcustnum, txtPlanNbr, txtdate, chkSlab10 };
struct ChecklistRefusal {
  ChecklistFocus focus;
  std::string message;  // empty: none; lacks its title
};

/// What keeps OK from going on, in the order of the tests: customer, plan number, date, foundation, and then what the
/// record could not hold. Nothing where all is well.
std::optional<ChecklistRefusal> RefusalOfOk(const ChecklistEntry& entry);

/// Puts an entry that OK does not refuse into the head of the record. Without an option set the pricing level stays.
void StoreChecklist(const ChecklistEntry& entry, EstimateRecord& plan);

/// The title of the data-entry form: 80 columns with customer and plan.
std::string DisplayTitle(std::string_view customerName, std::string_view planNumber);

// --- After data entry

/// What the operator chose on the save prompt, under the prompt's own results.
enum class SaveChoice : char { AsNew = '0', NoSave = '1', Save = '2', Cancel = '3' };

/// What a choice leads to. `UpdateEstimate` and `StorePlanFromForm` belong together; appending is the checklist's own last
/// step, so nothing is appended here.
struct SaveOutcome {
  bool staysOnForm = false;
  bool updatesRecord = false;
  bool PlanCancelled = false;  // nothing is appended
};
SaveOutcome OutcomeOfSave(PlanMode mode, SaveChoice choice);

}  // namespace norvale
