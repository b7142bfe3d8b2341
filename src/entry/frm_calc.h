// The calculator that opens over any form.
#pragma once

#include <QDialog>
#include <QPointer>
#include <QRect>
#include <array>
#include <optional>

#include "base/message.h"
#include "entry/calculator.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace norvale {

class frmCalc : public QDialog {
  Q_OBJECT

 public:
  /// `field` is the box that takes the result; none: the calculator says so when it is to be carried back.
  frmCalc(Messages& messages, QLineEdit* field, const QString& hint, QWidget* parent = nullptr);

  /// What goes into the box after `Accepted`.
  [[nodiscard]] const QString& CarriedNumber() const { return carried_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QWidget* MakeReadout();
  QWidget* MakeKeys();
  QPushButton* MakeKey(const QString& name, const QString& caption, const QString& spoken, int key);
  void Press(int key);
  void CarryBack();

  Messages& messages_;
  QPointer<QLineEdit> field_;
  Calculator calculator_;
  QString carried_;
  QWidget* pctKeyTrap_ = nullptr;
  QLabel* lblReadout_ = nullptr;
};

/// Where the calculator stood when it was closed.
struct CalculatorPlace {
  std::optional<QRect> frame;
};

/// Opens the calculator over the form of `control`, which has the focus. With Shift+Insert its result goes into that box as if
/// it had been typed there. `hint` tells the keys; `place` is remembered from one time to the next.
void OpenCalculator(Messages& messages, QWidget* control, const QString& hint, CalculatorPlace& place);

}  // namespace norvale
