// The plan checklist: the door to every plan. It says who the plan is for, its number, date, pricing level and type, and
// walks a plan on OK through data entry to the files.
#pragma once

#include <QDialog>
#include <array>
#include <functional>

#include "entry/checklist_form.h"
#include "entry/draft.h"
#include "entry/plan_workflow.h"

class QCheckBox;
class QEventLoop;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace norvale {

class LivePanel;
class RingLabel;

/// What the workflow of a plan needs of forms that are not entry's.
struct PlanTasks {
  /// Picks the customer of a plan. True: the session's current customer is the one chosen.
  std::function<bool(QWidget* parent)> chooseCustomer;
  /// Prints the plan, which stands stored in the session's record.
  std::function<void(const PlanForm& form, QWidget* parent)> printEstimate;
  /// Makes the panel beside the data-entry screens; nothing: there is none.
  std::function<LivePanel*(QWidget* parent)> makeLivePanel;
};

class frmChecklst : public QDialog {
  Q_OBJECT

 public:
  frmChecklst(Program& program, ChecklistPurpose purpose, PlanTasks tasks, QWidget* parent = nullptr);

  /// The checklist of an unsaved plan, which goes straight on into data entry. The session is where `PlaceDraft` has put it.
  frmChecklst(Program& program, PlanDraft draft, PlanTasks tasks, QWidget* parent = nullptr);

  /// A form that could not be opened returns at once. A new plan begins with the choice of its customer.
  int exec() override;

  /// Esc presses Cancel.
  void reject() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  enum Box { kNumber, kName, kPlan, kDate };
  static constexpr std::size_t kBoxes = 4;
  static constexpr std::size_t kLevels = 5;

  void MakeForm();
  QWidget* MakeBrowseBand();
  QWidget* MakeOkBand();
  void MakeBoxes(QGridLayout* grid);
  QWidget* MakeLevels();
  QWidget* MakeChecks();
  RingLabel* MakeButton(ChecklistButton button, QWidget* band);
  void SetTabOrder();

  void Press(ChecklistButton button);
  void PressOk();
  void Print();
  void Run(const std::function<WorkflowEnd(const WorkflowWindows&)>& workflow);
  WorkflowWindows Windows();
  bool NameCopy();
  void LeaveBox(std::size_t box);
  void Toggle(PlanCheck box);
  void TakeBoxes();  // from the window into the record
  void ShowForm();   // from the record into the window
  void ShowFocus();
  void SetStatus(const QString& text);
  void EndIfClosed();

  Program& program_;
  const PlanTasks tasks_;
  ChecklistForm form_;
  std::optional<PlanDraft> draft_;
  bool isBusy_ = false;             // a workflow runs, or a message is shown
  QEventLoop* copyLoop_ = nullptr;  // runs while a copy is named
  bool isCopyNamed_ = false;

  std::array<QLineEdit*, kBoxes> boxes_{};
  std::array<QRadioButton*, kLevels> optprice_{};
  QGroupBox* frachklist_ = nullptr;
  std::array<QCheckBox*, kPlanChecks> checks_{};
  std::array<RingLabel*, kChecklistButtons> buttons_{};
  QWidget* browseBand_ = nullptr;
  QLabel* lblDescription_ = nullptr;
  QLabel* lblStatus_ = nullptr;
};

/// Asks whether to go on with a plan that the program was ended over, and opens data entry on it or removes it. Nothing
/// where there is none.
void OfferDraft(Program& program, const PlanTasks& tasks, QWidget* parent = nullptr);

}  // namespace norvale
