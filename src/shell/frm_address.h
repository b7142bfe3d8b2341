// The customer form: customers, the customer of an estimate, and the company.
#pragma once

#include <QDialog>
#include <QLabel>
#include <array>

#include "shell/customer_form.h"

class QGridLayout;
class QHBoxLayout;
class QLineEdit;
class QPushButton;

namespace norvale {

class frmAddress : public QDialog {
  Q_OBJECT

 public:
  frmAddress(Program& program, CustomerFormMode mode, QWidget* parent = nullptr);

  /// Closed by OK.
  [[nodiscard]] bool IsAccepted() const { return form_.isAccepted; }

  /// A form that could not be opened returns at once.
  int exec() override;

  /// Esc presses Cancel.
  void reject() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void MakeBoxes(QGridLayout* grid);
  void MakeButtons(QHBoxLayout* row);
  void Press(CustomerButton button);
  void LookUpIn(CustomerBox box);
  void RefuseCharacters(std::size_t box);
  void TakeBoxes();  // from the window into the record
  void ShowForm();   // from the record into the window
  void EndIfClosed();

  Program& program_;
  CustomerForm form_;
  std::array<QLabel*, kCustomerBoxes> lbladdress_{};
  std::array<QLineEdit*, kCustomerBoxes> txtAddress_{};
  std::array<QPushButton*, kCustomerButtons> cmdAddress_{};
  std::array<QString, kCustomerBoxes> kept_;  // the last text of each box that the files can hold
  QLabel* lblHint_ = nullptr;
};

}  // namespace norvale
