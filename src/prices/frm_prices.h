// The form for the price list, one item at a time.
#pragma once

#include <QDialog>
#include <array>
#include <functional>
#include <optional>

#include "desktop/program.h"
#include "prices/price_changes.h"
#include "prices/price_editor.h"

class QGridLayout;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace norvale {

/// Prints the list: the items as they stand on the form, and the form to show dialogs above.
using PrintPrices = std::function<void(const PriceList& prices, QWidget* form)>;

class frmPrices : public QDialog {
  Q_OBJECT

 public:
  frmPrices(Program& program, PrintPrices printPrices, QWidget* parent = nullptr);

  /// A form whose file cannot be read returns at once.
  int exec() override;

  /// Esc ends a search; else it presses Cancel.
  void reject() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void MakeBoxes(QGridLayout* grid);
  void MakeButtons(QHBoxLayout* row);
  QLineEdit* AddBox(const char* name, const QString& label, QGridLayout* grid, int row, int column, int span);
  QPushButton* AddButton(const char* name, const QString& caption, QHBoxLayout* row, void (frmPrices::*press)());

  void Next();
  void Previous();
  void Find();
  void Print();
  void OpenTable();
  void Save();
  void Cancel();

  void LeavePrice(std::size_t level);
  bool TakeScreen();  // into the record; false where a price has no room, which is told
  void RefusePrice(std::size_t level);
  void FindTypedSku();
  void FindTypedDescription();
  void GiveUpFind();
  void ShowForm();  // from the record into the window
  void ShowFindMode();
  [[nodiscard]] QString WarningText() const;

  Program& program_;
  PrintPrices printPrices_;
  std::optional<PriceForm> form_;  // nothing where the file cannot be read
  PriceHistory history_;

  QLabel* lblDesc_ = nullptr;
  QLabel* lblCount_ = nullptr;
  QLineEdit* txtInum_ = nullptr;
  std::array<QLineEdit*, kPriceLevels> txtprices_{};
  QLineEdit* txtdescnew_ = nullptr;
  QLabel* lblmsgfind_ = nullptr;
  QLabel* lblFindText_ = nullptr;
  QLineEdit* txtFindText_ = nullptr;
  QLabel* lblWarning_ = nullptr;
  std::vector<QPushButton*> buttons_;
  QPushButton* cmdNEXT_ = nullptr;
  QPushButton* cmdCANCEL_ = nullptr;
};

}  // namespace norvale
