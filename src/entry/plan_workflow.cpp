#include "entry/plan_workflow.h"

#include "data/estimate_file.h"
#include "entry/plan_form.h"
#include "entry/plan_search.h"

namespace norvale {

namespace {

struct ScreenFiles {
  std::vector<ScreenLine> lines;
  std::vector<MaterialRow> rows;
};

// Nothing, after a notice, where one of the two files is missing.
std::optional<ScreenFiles> LoadScreenFiles(Program& program) {
  ScreenFiles files{.lines = LoadScreenLines(program.folder.Folder()), .rows = LoadMaterialRows(program.folder.Folder())};
  if (const std::string refusal = RefusalOfPlan(files.lines, files.rows); !refusal.empty()) {
    program.messages.ShowMessage(WithTitle(refusal));
    return std::nullopt;
  }
  return files;
}

EstimateRecord ReadOnFile(Program& program) {
  Session there = program.session;
  return MoveEstimate(program.folder, there, 0).hasRecord ? there.CurrentEstimate : EstimateRecord{};
}

// One plan in data entry, until it is saved or given up.
class Workflow {
 public:
  Workflow(Program& program, ChecklistForm& checklist, const WorkflowWindows& windows, PlanForm& form, const EstimateRecord& onFile,
           bool isResumed)
      : program_(program),
        session_(program.session),
        checklist_(checklist),
        windows_(windows),
        form_(form),
        onFile_(onFile),
        isResumed_(isResumed) {}

  WorkflowEnd Run(bool isPlanChanged) {
    Keep(form_.mode);
    for (;;) {
      const bool isOver = windows_.enterPlan(form_, isPlanChanged, [this] { Keep(form_.mode); });
      const WorkflowEnd end = isOver ? Leave() : WorkflowEnd::ClosesChecklist;
      if (isOver || Append()) {
        Try(program_.messages, [this] { RemoveDraft(program_.folder); });
        return end;
      }
      form_.mark = ChangeMark::Modified;  // it is still not saved
      Keep(form_.mode);
    }
  }

 private:
  void Keep(PlanMode mode) {
    PlanDraft draft = DraftOf(form_, session_.CurrentEstimate, onFile_, checklist_.isTypeChanging);
    if (mode != form_.mode) draft = AsNewPlan(std::move(draft));
    try {
      KeepDraft(program_.folder, draft);
      isDraftRefused_ = false;
    } catch (const FileError& error) {
      // Told once: it is no reason to stop the operator at every screen.
      if (!isDraftRefused_)
        program_.messages.ShowMessage(Notice("What you type cannot be kept against a crash at the moment. Go on, and save soon.\n\n" +
                                             error.File() + ": " + error.Reason()));
      isDraftRefused_ = true;
    }
  }

  WorkflowEnd Leave() {
    if (!IsOpened(form_.mode) || checklist_.entry.checks.isEnabled) return WorkflowEnd::ClosesChecklist;
    const bool isShown = Try(program_.messages, [this] { StepPlan(program_, checklist_, 0); });
    return isShown ? WorkflowEnd::StaysOnChecklist : WorkflowEnd::ClosesChecklist;
  }

  // Puts the plan beside those on file. Where that comes to nothing, checklist and record are as they were.
  bool Append() {
    ChecklistForm checklist = checklist_;
    EstimateRecord plan = session_.CurrentEstimate;
    bool isSaved = false;
    Try(program_.messages, [&] {
      if (NeedsNumber() && !NameCopy(checklist, plan)) return;
      StorePlanFromForm(form_, session_.CurrentEstimate);
      const bool isCopy = EstimateKey(session_.CurrentEstimate) != session_.CurrentEstimateEntry.Key;
      // A draft that outlives the next step must be seen to be saved, and a copy must not come back as its original.
      Keep(isCopy ? PlanMode::New : form_.mode);
      if (isCopy || UpdateEstimate(program_.folder, session_) == EstimateChange::NothingOnFile) AddEstimate(program_.folder, session_);
      isSaved = true;
    });
    if (isSaved) return true;
    checklist_ = checklist;
    session_.CurrentEstimate = plan;
    Try(program_.messages, [this] { LookUpCustomer(program_, checklist_); });
    return false;
  }

  // An opened plan that is to be saved as a new one; and a draft, when somebody has used its number meanwhile.
  bool NeedsNumber() {
    if (IsOpened(form_.mode)) return true;
    Session there = session_;
    const EstimateRecord& plan = session_.CurrentEstimate;
    return isResumed_ && FindEstimateOfPlan(program_.folder, there, plan.CustomerNumber, plan.PlanNumber.Padded());
  }

  bool NameCopy(ChecklistForm& checklist, EstimateRecord& plan) {
    const bool isChosen = windows_.chooseCustomer();
    FollowCustomer(checklist, plan);
    if (!isChosen) return false;
    TakeCurrentCustomer(session_, checklist_);
    checklist_.entry.txtPlanNbr.clear();
    checklist_.entry.checks.isEnabled = false;  // the type is the one that the data is for
    checklist_.CopyPlanActive = true;
    const bool isNamed = windows_.nameCopy();
    checklist_.CopyPlanActive = false;
    return isNamed;
  }

  // Where customers are picked they can be renumbered as well, and their plans with them: then the opened plan's entry has
  // moved, and its customer has another number.
  void FollowCustomer(ChecklistForm& checklist, EstimateRecord& plan) {
    Session there = session_;
    if (!IsOpened(form_.mode) || !FindEstimateAt(program_.folder, there, session_.CurrentEstimateEntry.RecordPosition)) return;
    session_.EstimateCursor = there.EstimateCursor;
    session_.CurrentEstimateEntry = there.CurrentEstimateEntry;
    if (plan.CustomerNumber == onFile_.CustomerNumber) {
      plan.CustomerNumber = session_.CurrentEstimate.CustomerNumber = there.CurrentEstimate.CustomerNumber;
      checklist.entry.txtcustnum = std::to_string(plan.CustomerNumber);
    }
    onFile_ = there.CurrentEstimate;
  }

  Program& program_;
  Session& session_;
  ChecklistForm& checklist_;
  const WorkflowWindows& windows_;
  PlanForm& form_;
  EstimateRecord onFile_;
  bool isResumed_;
  bool isDraftRefused_ = false;
};

}  // namespace

WorkflowEnd RunPlanWorkflow(Program& program, ChecklistForm& checklist, const WorkflowWindows& windows) {
  Session& session = program.session;
  const bool isNew = checklist.purpose == ChecklistPurpose::NewPlan;
  const EstimateRecord onFile = isNew ? BlankPlan() : ReadOnFile(program);
  const auto files = LoadScreenFiles(program);
  if (!files) {
    session.CurrentEstimate = onFile;
    return WorkflowEnd::StaysOnChecklist;
  }
  const bool isHeadChanged = ChecklistOf(session.CurrentEstimate) != ChecklistOf(onFile);
  PlanForm form = OpenPlanForm(isNew ? PlanMode::New : PlanMode::Existing, checklist.isTypeChanging, session.CurrentEstimate, files->lines,
                               files->rows);
  if (isNew && checklist.entry.checks.Has(PlanCheck::chkwhvinyl)) ChooseWholeHouseVinyl(form);
  if (isNew && !windows.measure(form)) {
    session.CurrentEstimate = onFile;
    return WorkflowEnd::StaysOnChecklist;
  }
  return Workflow(program, checklist, windows, form, onFile, false).Run(checklist.isPlanChanged || isHeadChanged);
}

WorkflowEnd ResumePlanWorkflow(Program& program, ChecklistForm& checklist, const PlanDraft& draft, const WorkflowWindows& windows) {
  const auto files = LoadScreenFiles(program);
  if (!files) return WorkflowEnd::ClosesChecklist;
  PlanForm form = FormOfDraft(draft, program.session.CurrentEstimate, files->lines, files->rows);
  return Workflow(program, checklist, windows, form, draft.onFile, true).Run(true);
}

ChecklistForm ChecklistOfDraft(Program& program, const PlanDraft& draft) {
  program.session.CurrentEstimate = draft.plan;
  if (!IsOpened(draft.mode)) program.session.CurrentEstimateEntry = {};
  ChecklistForm form;
  form.purpose = IsOpened(draft.mode) ? ChecklistPurpose::ExistingPlans : ChecklistPurpose::NewPlan;
  ShowCurrentPlan(program, form);
  form.isTypeChanging = draft.isTypeChanged;
  form.isPlanChanged = true;
  form.entry.checks.isEnabled = !IsOpened(draft.mode) || draft.isTypeChanged;
  return form;
}

std::optional<PlanForm> PreparePrint(Program& program, const ChecklistForm& checklist) {
  const auto files = LoadScreenFiles(program);
  if (!files) return std::nullopt;
  EstimateRecord& plan = program.session.CurrentEstimate;
  plan.PriceLevel.Assign(std::to_string(checklist.entry.priceLevel));
  PlanForm form = OpenPlanForm(PlanMode::Existing, false, plan, files->lines, files->rows);
  StorePlanFromForm(form, plan);
  return form;
}

}  // namespace norvale
