// The plan checklist as a record: what stands in its fields, which of its controls may be used, and what its buttons do.
//
// The form in the window shows a `ChecklistForm` and hands every event to a function here. Texts are UTF-8. Files that
// cannot be used throw FileError.
#pragma once

#include <string>

#include "desktop/program.h"
#include "entry/checklist.h"

namespace norvale {

/// Why the checklist was opened.
enum class ChecklistPurpose { NewPlan, ExistingPlans, PrintPlans };

enum class ChecklistButton : std::size_t { OK, Cancel, Next, Prev, Find, Delete, Change };
inline constexpr std::size_t kChecklistButtons = 7;

/// Where the operator goes on after an event.
enum class ChecklistControl { txtcustnum, txtCustName, txtPlanNbr, txtdate, FoundationBox, cmdOK, cmdCANCEL };

struct ChecklistForm {
  ChecklistPurpose purpose = ChecklistPurpose::NewPlan;
  ChecklistEntry entry;  // its `checks.isEnabled`: the type may be changed
  std::string txtCustName;
  bool hasPlan = false;         // the fields show a plan; not so when none is on file
  bool isFinding = false;       // a Find waits for its text
  bool isTypeChanging = false;  // CHANGE PLAN TYPE has been pressed
  bool isPlanChanged = false;   // that, or a pricing level has been picked
  bool CopyPlanActive = false;  // the form is shown a second time, to name a copy
  bool isOpen = true;
  ChecklistControl focus = ChecklistControl::txtcustnum;
};

/// A new plan begins with a blank record; otherwise the session goes to the first plan on file.
ChecklistForm OpenChecklist(Program& program, ChecklistPurpose purpose);

/// Puts the current customer's number and name into the fields.
void TakeCurrentCustomer(const Session& session, ChecklistForm& form);

/// Fills the form from the current plan.
void ShowCurrentPlan(Program& program, ChecklistForm& form);

/// Moves `direction` plans on (0: reads the current one again) and shows it. Past an end a notice says so; where no plan is
/// on file, the form is blank.
void StepPlan(Program& program, ChecklistForm& form, int direction);

/// Shows whose number stands in the field, and makes him the current customer.
void LookUpCustomer(Program& program, ChecklistForm& form);

/// Every button but OK. Cancel ends a Find, or closes the form.
void PressButton(Program& program, ChecklistForm& form, ChecklistButton button);

/// Runs the search for what stands in the field, which ends the Find. Nothing while the field is empty.
void FindBy(Program& program, ChecklistForm& form, ChecklistBox box);

/// The operator picks pricing level `level` (1 to 5).
void PickPriceLevel(ChecklistForm& form, int level);

/// What OK does before anything opens: tests the fields, looks the customer up, and copies the form into the current plan.
/// Returns whether to go on; if not, `focus` is where something is missing.
bool AcceptChecklist(Program& program, ChecklistForm& form);

bool IsShown(const ChecklistForm& form, ChecklistButton button);
bool IsEnabled(const ChecklistForm& form, ChecklistButton button);

/// Whether a field takes keys, only shows what is in it, or is of no use now.
enum class FieldState { Open, Shown, Shut };
FieldState StateOf(const ChecklistForm& form, ChecklistBox box);
bool MayPickPriceLevel(const ChecklistForm& form);

std::string_view CaptionOf(const ChecklistForm& form, ChecklistButton button);

/// The line at the foot of the form.
std::string_view HintOf(const ChecklistForm& form);

}  // namespace norvale
