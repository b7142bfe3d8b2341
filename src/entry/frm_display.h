// The data-entry form: eleven screens of lines, each with its caption, its box and what to enter there.
#pragma once

#include <QDialog>
#include <array>
#include <functional>
#include <variant>

#include "desktop/program.h"
#include "entry/form_fields.h"

class QBoxLayout;
class QLabel;
class QPushButton;
class QSplitter;
class QStackedWidget;
class QTimer;

namespace norvale {

class LivePanel;
class PlanPage;
class ScreenMark;

/// What the data-entry form asks of those who opened it. What is not given is not offered.
struct DisplayTasks {
  /// Prints the plan, which stands stored in the session's record.
  std::function<void(const PlanForm& form, QWidget* parent)> printEstimate;
  /// Called after each change of screen, the form's record being current.
  std::function<void()> keepDraft;
  /// Makes the panel for the list of the plan as typed so far.
  std::function<LivePanel*(QWidget* parent)> makeLivePanel;
};

class frmDisplay : public QDialog {
  Q_OBJECT

 public:
  /// Shows `form`, which `OpenPlanForm` has made from the session's current plan. The form may be shown again, as it was
  /// left. `isPlanChanged`: plan type or pricing level were changed on the checklist.
  frmDisplay(Program& program, PlanForm& form, bool isPlanChanged, DisplayTasks tasks, QWidget* parent = nullptr);

  /// Whether nothing is to be appended behind this form: left without saving, or saved in place already.
  [[nodiscard]] bool PlanCancelled() const { return planCancelled_; }

  /// Accepted where a plan is to be appended.
  int exec() override;

  /// Esc and closing the window press Exit.
  void reject() override;

 protected:
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QWidget* MakeHead();
  void MakePage(int screen);
  QWidget* MakeButtons();
  QPushButton* MakeButton(const char* ring, const char* name, const QString& caption, QBoxLayout* row);
  QWidget* MakeFoot();
  void FitLines(int heightOfFrame);

  void ShowForm();  // from the record into the window
  [[nodiscard]] PlanPage* CurrentPage() const;
  void ShowFrame();  // what stands around the lines
  void FormChanged();
  void BoxEntered(QWidget* box, int line);
  void ShowStatus();
  void BackToBox();
  void FocusLine(int line);
  void FocusFault(std::variant<NumberBox, JoistBox> box);
  void Tell(const std::string& message);

  void Go(int delta);
  void GoTo(int screen);
  void ScreenChanged(int line);
  void Print();
  void Exit();
  bool ToldNumberFault();
  bool SaveInPlace();
  void Leave(bool planCancelled);
  void OpenPreliminary();
  void OpenRoof();
  void AskAboutShutBoxes();
  void ToggleLive(bool shown);

  Program& program_;
  PlanForm& form_;
  const bool isPlanChanged_;
  const DisplayTasks tasks_;
  bool planCancelled_ = false;
  bool wasAskedAboutShutBoxes_ = false;
  bool isShownOnce_ = false;

  std::array<PlanPage*, kScreens> pages_{};
  std::array<ScreenMark*, kScreens> marks_{};
  QWidget* boxAtHand_ = nullptr;  // the one that had the focus last
  int lineAtHand_ = -1;           // where it stands

  QLabel* PageLabel_ = nullptr;
  QLabel* lblStatus_ = nullptr;
  QPushButton* cmdNext_ = nullptr;
  QPushButton* cmdPrev_ = nullptr;
  QPushButton* cmdPrint_ = nullptr;
  QPushButton* cmdExit_ = nullptr;
  QPushButton* cmdRoof_ = nullptr;
  QPushButton* cmdPreliminary_ = nullptr;
  QPushButton* cmdLive_ = nullptr;
  QStackedWidget* Page_ = nullptr;
  QSplitter* splitter_ = nullptr;
  LivePanel* live_ = nullptr;
  QTimer* liveTimer_ = nullptr;
};

}  // namespace norvale
