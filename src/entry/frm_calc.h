// The calculator that opens over any form.
#pragma once

#include <QAbstractItemView>
#include <QDialog>
#include <QLineEdit>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QRect>
#include <array>
#include <optional>

#include "base/message.h"
#include "entry/calculator.h"

class QLabel;
class QPushButton;

namespace norvale {

/// What takes the result: a box, or a cell of a table, whose own box is gone while the calculator is open.
struct CalculatorTarget {
  QPointer<QLineEdit> box;
  QPointer<QAbstractItemView> table;
  QPersistentModelIndex cell;

  [[nodiscard]] bool CanTake() const;
};

class frmCalc : public QDialog {
  Q_OBJECT

 public:
  frmCalc(Messages& messages, CalculatorTarget target, const QString& hint, QWidget* parent = nullptr);

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
  CalculatorTarget target_;
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
