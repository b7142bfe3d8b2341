// The print dialog of the four kinds of print.
#pragma once

#include <QDialog>
#include <array>

#include "desktop/program.h"
#include "printing/frm_printer.h"
#include "printing/print_request.h"
#include "printing/print_selection.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTreeWidget;

namespace norvale {

class frmPrtSel : public QDialog {
  Q_OBJECT

 public:
  /// `form`: the plan as it stands on the data-entry form, for an estimate; without it, the program's current plan counts.
  frmPrtSel(Program& program, PrintKind kind, const PlanForm* form, Printers& printers, QWidget* parent = nullptr);

  /// What is asked for, as the dialog stands.
  [[nodiscard]] PrintRequest Request() const;
  [[nodiscard]] int Copies() const;
  [[nodiscard]] PrintSetup& Setup() { return setup_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QWidget* MakeHead(const QString& about);
  QWidget* MakeCustRange();
  QWidget* MakePlanType();
  QWidget* MakeWorkSheet();
  QWidget* MakePrintSelect(const PrintBoxes& boxes);
  QWidget* MakeUnpriced();
  QLayout* MakeCopies();
  QLayout* MakeButtons();

  [[nodiscard]] RangeBoxes Range() const;
  [[nodiscard]] PrintBoxes Boxes() const;
  void LeaveBox(QLineEdit* box);
  bool CheckBox(QLineEdit* box);
  bool IsReady();
  void PressOk();
  void ChooseRange(bool isAll);
  void TogglePlanDesc(std::size_t index);
  void ShowPlanDesc();
  void ShowUnpriced();
  void ShowPrinter();
  void SelectPrinter();
  void Preview();
  void SaveAs();

  Program& program_;
  const PrintKind kind_;
  Printers& printers_;
  PrintSetup setup_;
  PlanChecks planChecks_;

  std::array<QCheckBox*, kPrintBoxes> chkPrtSel_{};
  std::array<QCheckBox*, kPlanChecks> chkPlanDesc_{};
  std::array<QRadioButton*, 3> optWorkSheet_{};
  QGroupBox* fraUnpriced_ = nullptr;
  QLabel* lblUnpriced_ = nullptr;
  QTreeWidget* lstUnpriced_ = nullptr;
  QComboBox* cboList_ = nullptr;
  QLabel* lblPrinter_ = nullptr;
  QRadioButton* optCustAll_ = nullptr;
  QRadioButton* optCustSel_ = nullptr;
  QLineEdit* txtCustFrom_ = nullptr;
  QLineEdit* txtCustTo_ = nullptr;
  QLineEdit* txtPrintCopies_ = nullptr;
  QPushButton* cmdPrintOK_ = nullptr;
  QPushButton* cmdPrintCancel_ = nullptr;
};

}  // namespace norvale
