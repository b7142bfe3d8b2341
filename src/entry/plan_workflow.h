// The workflow of a plan from the checklist's OK through data entry to the files. It decides; what is seen on the way is handed
// in, so that it can run without a window.
#pragma once

#include <functional>

#include "entry/checklist_form.h"
#include "entry/draft.h"

namespace norvale {

/// What the workflow shows. Each returns when its window has closed.
struct WorkflowWindows {
  /// The preliminary measurements of a new plan. False: cancelled.
  std::function<bool(PlanForm& form)> measure;

  /// Data entry, the second time with all that stood there. `keepDraft` is called after each change of screen. True: left
  /// without saving, or saved in place already.
  std::function<bool(PlanForm& form, bool isPlanChanged, const std::function<void()>& keepDraft)> enterPlan;

  /// True: the session's current customer is the one chosen.
  std::function<bool()> chooseCustomer;

  /// The checklist a second time, until `AcceptChecklist` has taken the copy's number. False: cancelled.
  std::function<bool()> nameCopy;
};

enum class WorkflowEnd {
  StaysOnChecklist,  // nothing has happened, or an opened plan has been left: the form shows it as it is on file
  ClosesChecklist,
};

/// From the checklist's OK, which `AcceptChecklist` has taken, to the end. Throws FileError only before data entry opens;
/// later the operator is told and is back in data entry, with all that he typed.
WorkflowEnd RunPlanWorkflow(Program& program, ChecklistForm& checklist, const WorkflowWindows& windows);

/// Goes on with a draft: straight into data entry. The session is where `PlaceDraft` has put it. A new plan whose number
/// somebody has used meanwhile gets a number of its own when it is saved.
WorkflowEnd ResumePlanWorkflow(Program& program, ChecklistForm& checklist, const PlanDraft& draft, const WorkflowWindows& windows);

/// The checklist of a draft's plan.
ChecklistForm ChecklistOfDraft(Program& program, const PlanDraft& draft);

/// What a print from the checklist prints: the current plan with the pricing level picked, put through the form's rules into
/// the session's record. Nothing, after a notice, where the screen files are missing.
std::optional<PlanForm> PreparePrint(Program& program, const ChecklistForm& checklist);

}  // namespace norvale
