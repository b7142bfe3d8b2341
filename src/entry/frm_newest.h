// The sheet for the preliminary measurements, from which the data-entry screens get their first values.
#pragma once

#include <QDialog>
#include <array>

#include "desktop/program.h"
#include "entry/preliminary.h"

class QLabel;
class QGridLayout;
class QPushButton;

namespace norvale {

class NumberEdit;

class Frmnewest : public QDialog {
  Q_OBJECT

 public:
  /// `form` is the data-entry form of the session's current plan.
  Frmnewest(Program& program, PlanForm& form, QWidget* parent = nullptr);

  // exec() gives Accepted where the measurements were handed over to the form and to the session's current plan, Rejected
  // where the sheet was left without that.

  /// Esc and closing the window press Cancel; a sheet with entries is dropped only after a question.
  void reject() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MakeBoxes(QGridLayout* grid);
  QWidget* MakeGables();
  void ShowSheet();
  void LeaveBox(std::size_t box);
  void LeaveGable(std::size_t gable);
  bool TakeEverything();
  void Tell(const std::string& message, NumberEdit* focus);
  void HandOverSheet();

  Program& program_;
  PlanForm& form_;
  PreliminarySheet sheet_;
  bool wasAskedForWidth_ = false;
  std::array<NumberEdit*, kFootages> txtfootage_{};
  std::array<NumberEdit*, kMostGables> GableWidths_{};
  std::array<QLabel*, kMostGables> lblGable_{};
  QLabel* lblNoGables_ = nullptr;
  QLabel* lblResult_ = nullptr;
  QPushButton* cmdOK_ = nullptr;
  QPushButton* cmdCANCEL_ = nullptr;
};

}  // namespace norvale
