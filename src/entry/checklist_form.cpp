#include "entry/checklist_form.h"

#include <functional>
#include <limits>

#include "base/file_error.h"
#include "base/numbers.h"
#include "data/estimate_file.h"
#include "entry/plan_form.h"
#include "entry/plan_search.h"

namespace norvale {

namespace {

constexpr std::string_view kFieldHint = " TAB or SHIFT+TAB To Move; ENTER=Execute F1=Help ALT+F2=Calculator  ESC=Exit";
constexpr std::string_view kFindHint = " Part of a name, a customer number or part of a plan number; ENTER=Find ESC=End";
constexpr std::string_view kCopyHint = " Type the number of the new plan; OK saves it, ESC goes back to data entry";
constexpr std::string_view kNoPlanHint = " No plan is on file any more; ESC=Exit";

// Whether the fields of an opened plan say anything else than its record does.
bool HasChanges(const Session& session, const ChecklistForm& form) {
  if (form.purpose != ChecklistPurpose::ExistingPlans || !form.hasPlan || form.isFinding) return false;
  ChecklistEntry stored = ChecklistOf(session.CurrentEstimate);
  stored.checks.isEnabled = form.entry.checks.isEnabled;
  return form.entry != stored;
}

bool MayLeavePlan(Program& program, const ChecklistForm& form) {
  constexpr const char* kQuestion = "2 What you changed on this form is not saved. Go on without it?|Plan CheckList";
  return !HasChanges(program.session, form) || program.messages.ShowMessage(kQuestion) == Answer::Yes;
}

void ShowNoPlan(Program& program, ChecklistForm& form) {
  program.session.CurrentEstimate = {};
  program.session.CurrentEstimateEntry = {};
  program.session.CurrentCustomer = {};
  form.entry = {};
  form.entry.checks.isEnabled = false;
  form.txtCustName.clear();
  form.hasPlan = form.isTypeChanging = form.isPlanChanged = false;
  form.focus = ChecklistControl::cmdCANCEL;
}

void BeginFind(ChecklistForm& form) {
  form.isFinding = true;
  form.entry.txtcustnum.clear();
  form.entry.txtPlanNbr.clear();
  form.txtCustName.clear();
  form.focus = ChecklistControl::txtCustName;
}

// The cursor comes back where the files cannot be read: it must never stand on another plan than the one at hand.
void WithCursor(Session& session, const std::function<void()>& move) {
  const std::int32_t cursor = session.EstimateCursor;
  const EstimateIndexEntry entry = session.CurrentEstimateEntry;
  try {
    move();
  } catch (const FileError&) {
    session.EstimateCursor = cursor;
    session.CurrentEstimateEntry = entry;
    throw;
  }
}

void CancelFind(Program& program, ChecklistForm& form) {
  WithCursor(program.session, [&] {
    program.session.EstimateCursor = 1;
    StepPlan(program, form, 0);
  });
  form.isFinding = false;
}

void DeletePlan(Program& program, ChecklistForm& form) {
  if (program.messages.ShowMessage(std::string(kDeleteEstimateQuestion)) != Answer::Yes) return;
  if (DeleteEstimate(program.folder, program.session) == EstimateChange::NothingOnFile) program.session.EstimateCursor = 1;
  StepPlan(program, form, 0);
}

void BeginTypeChange(ChecklistForm& form) {
  form.isTypeChanging = form.isPlanChanged = true;
  form.entry.checks.isEnabled = true;
  form.focus = ChecklistControl::FoundationBox;
}

// Whether another plan on file has the number that the plan at hand is about to get.
bool IsNumberTaken(Program& program, const EstimateRecord& plan) {
  if (EstimateKey(plan) == program.session.CurrentEstimateEntry.Key) return false;
  Session there = program.session;
  return FindEstimateOfPlan(program.folder, there, plan.CustomerNumber, plan.PlanNumber.Padded());
}

std::string NumberTakenQuestion(const ChecklistEntry& entry) {
  return "2 Customer " + WithoutBars(Trim(entry.txtcustnum)) + " has a plan " + WithoutBars(Trim(entry.txtPlanNbr)) +
         " on file already. Go on, and have two plans of that number?|Plan CheckList";
}

ChecklistControl ControlOf(ChecklistFocus focus) {
  switch (focus) {
    case ChecklistFocus::txtcustnum:
      return ChecklistControl::txtcustnum;
    case ChecklistFocus::txtPlanNbr:
      return ChecklistControl::txtPlanNbr;
    case ChecklistFocus::txtdate:
      return ChecklistControl::txtdate;
    case ChecklistFocus::chkSlab10:
      break;
  }
  return ChecklistControl::FoundationBox;
}

}  // namespace

ChecklistForm OpenChecklist(Program& program, ChecklistPurpose purpose) {
  ChecklistForm form;
  form.purpose = purpose;
  if (purpose == ChecklistPurpose::NewPlan) {
    program.session.CurrentEstimate = BlankPlan();
    program.session.CurrentEstimateEntry = {};
    form.hasPlan = true;
  } else {
    program.session.EstimateCursor = 1;
    StepPlan(program, form, 0);
  }
  return form;
}

void TakeCurrentCustomer(const Session& session, ChecklistForm& form) {
  form.entry.txtcustnum = std::to_string(session.CurrentCustomer.CustomerRecordNumber);
  form.txtCustName = ToUtf8(session.CurrentCustomer.CustomerName.Trimmed());
  form.focus = ChecklistControl::txtPlanNbr;
}

void ShowCurrentPlan(Program& program, ChecklistForm& form) {
  form.entry = ChecklistOf(program.session.CurrentEstimate);
  form.entry.checks.isEnabled = false;
  form.hasPlan = true;
  form.isTypeChanging = form.isPlanChanged = false;
  form.focus = ChecklistControl::cmdOK;
  LookUpCustomer(program, form);
}

void StepPlan(Program& program, ChecklistForm& form, int direction) {
  const StepResult step = MoveEstimate(program.folder, program.session, direction);
  if (!step.notice.empty() && direction != 0) program.messages.ShowMessage(WithTitle(step.notice));
  if (step.hasRecord)
    ShowCurrentPlan(program, form);
  else
    ShowNoPlan(program, form);
}

void LookUpCustomer(Program& program, ChecklistForm& form) {
  if (Trim(form.entry.txtcustnum).empty()) {
    program.session.CurrentCustomer = {};
    form.txtCustName.clear();
    return;
  }
  const double number = Int(Val(form.entry.txtcustnum));
  const bool canBe = number >= 0 && number <= std::numeric_limits<std::int16_t>::max();
  form.txtCustName = LookUpPlanCustomer(program.folder, program.session, canBe ? static_cast<int>(number) : -1);
}

void PressButton(Program& program, ChecklistForm& form, ChecklistButton button) {
  if (!IsShown(form, button) || !IsEnabled(form, button)) return;
  switch (button) {
    case ChecklistButton::OK:
      break;
    case ChecklistButton::Cancel:
      if (form.isFinding)
        CancelFind(program, form);
      else if (MayLeavePlan(program, form))
        form.isOpen = false;
      break;
    case ChecklistButton::Next:
      if (MayLeavePlan(program, form)) StepPlan(program, form, +1);
      break;
    case ChecklistButton::Prev:
      if (MayLeavePlan(program, form)) StepPlan(program, form, -1);
      break;
    case ChecklistButton::Find:
      if (MayLeavePlan(program, form)) BeginFind(form);
      break;
    case ChecklistButton::Delete:
      DeletePlan(program, form);
      break;
    case ChecklistButton::Change:
      BeginTypeChange(form);
      break;
  }
}

void FindBy(Program& program, ChecklistForm& form, ChecklistBox box) {
  if (!form.isFinding) return;
  DataFolder& folder = program.folder;
  Session& session = program.session;
  StepResult found;
  const auto search = [&](const std::string& text, StepResult (*find)(DataFolder&, Session&, std::string_view)) {
    if (Trim(text).empty()) return false;
    form.isFinding = false;  // a message takes the focus from the field, which must not start another search
    try {
      WithCursor(session, [&] { found = find(folder, session, Trim(text)); });
    } catch (const FileError&) {
      form.isFinding = true;  // the fields still hold what is searched for
      throw;
    }
    return true;
  };
  bool hasSearched = false;
  if (box == ChecklistBox::txtCustName) hasSearched = search(form.txtCustName, FindPlanByCustomerName);
  if (box == ChecklistBox::txtcustnum) hasSearched = search(form.entry.txtcustnum, FindPlanByCustomerNumber);
  if (box == ChecklistBox::txtPlanNbr) hasSearched = search(form.entry.txtPlanNbr, FindPlanByPlanNumber);
  if (!hasSearched) return;
  if (!found.notice.empty()) program.messages.ShowMessage(WithTitle(found.notice));
  StepPlan(program, form, 0);
}

void PickPriceLevel(ChecklistForm& form, int level) {
  form.entry.priceLevel = level;
  form.isPlanChanged = true;
}

bool AcceptChecklist(Program& program, ChecklistForm& form) {
  if (const auto refusal = RefusalOfOk(form.entry)) {
    if (!refusal->message.empty()) program.messages.ShowMessage(WithTitle(refusal->message));
    form.focus = ControlOf(refusal->focus);
    return false;
  }
  EstimateRecord plan = program.session.CurrentEstimate;
  StoreChecklist(form.entry, plan);
  if (IsNumberTaken(program, plan) && program.messages.ShowMessage(NumberTakenQuestion(form.entry)) != Answer::Yes) {
    form.focus = ChecklistControl::txtPlanNbr;
    return false;
  }
  LookUpCustomer(program, form);
  program.session.CurrentEstimate = plan;
  form.focus = ChecklistControl::cmdOK;
  return true;
}

bool IsShown(const ChecklistForm& form, ChecklistButton button) {
  switch (button) {
    case ChecklistButton::OK:
    case ChecklistButton::Cancel:
      return true;
    case ChecklistButton::Next:
    case ChecklistButton::Prev:
    case ChecklistButton::Find:
      return form.purpose != ChecklistPurpose::NewPlan;
    case ChecklistButton::Delete:
    case ChecklistButton::Change:
      break;
  }
  return form.purpose == ChecklistPurpose::ExistingPlans;
}

bool IsEnabled(const ChecklistForm& form, ChecklistButton button) {
  if (button == ChecklistButton::Cancel) return true;
  if (form.isFinding || !form.hasPlan) return false;
  if (button == ChecklistButton::OK) return true;
  if (form.CopyPlanActive) return false;
  const bool leavesPlan = button == ChecklistButton::Next || button == ChecklistButton::Prev || button == ChecklistButton::Find;
  return !leavesPlan || !form.isTypeChanging;
}

FieldState StateOf(const ChecklistForm& form, ChecklistBox box) {
  if (!form.hasPlan) return FieldState::Shut;
  if (form.isFinding) return box == ChecklistBox::txtdate ? FieldState::Shut : FieldState::Open;
  if (box == ChecklistBox::txtCustName || form.purpose == ChecklistPurpose::PrintPlans) return FieldState::Shown;
  return FieldState::Open;
}

bool MayPickPriceLevel(const ChecklistForm& form) { return form.hasPlan && !form.isFinding; }

std::string_view CaptionOf(const ChecklistForm& form, ChecklistButton button) {
  switch (button) {
    case ChecklistButton::OK:
      return form.purpose == ChecklistPurpose::PrintPlans ? "&PRINT" : "&OK";
    case ChecklistButton::Cancel:
      return "&Cancel";
    case ChecklistButton::Next:
      return "&Next";
    case ChecklistButton::Prev:
      return "&Prev.";
    case ChecklistButton::Find:
      return "&Find";
    case ChecklistButton::Delete:
      return "&Delete";
    case ChecklistButton::Change:
      return "CHANGE PLAN  &TYPE";
  }
  return {};
}

std::string_view HintOf(const ChecklistForm& form) {
  if (form.isFinding) return kFindHint;
  if (form.CopyPlanActive) return kCopyHint;
  return form.hasPlan ? kFieldHint : kNoPlanHint;
}

}  // namespace norvale
