// All items of the price list in one table: sort, filter, edit in place, and change many prices at once.
#pragma once

#include <QDialog>
#include <vector>

#include "desktop/program.h"
#include "prices/price_changes.h"
#include "prices/price_editor.h"

class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace norvale {

class PriceFilter;
class PriceTableModel;

class frmPriceTable : public QDialog {
  Q_OBJECT

 public:
  /// Works on `prices`, which nothing here writes to the disk, and shows `item` first. `history` holds what can be undone.
  frmPriceTable(Program& program, PriceEditor& prices, PriceHistory& history, std::size_t item, QWidget* parent = nullptr);

  /// The item in the table's current row.
  [[nodiscard]] std::size_t CurrentItem() const { return item_; }

 private:
  void MakeTable();
  void SetColumnWidths();
  void MakeFilterRow(QHBoxLayout* row);
  void MakePercentRow(QHBoxLayout* row);
  void MakeButtons(QHBoxLayout* row);
  QPushButton* AddButton(const char* name, const QString& caption, QHBoxLayout* row, void (frmPriceTable::*press)());

  void Filter();
  void Sort();
  void Import();
  void Export();
  void ChangePercent();
  void Undo();
  void Apply(std::string what, const PriceUpdate& update);
  void Say(const QString& text);
  void ShowCounts();
  void Select(std::size_t item);
  [[nodiscard]] std::vector<std::size_t> ShownItems() const;

  Program& program_;
  PriceEditor& prices_;
  PriceHistory& history_;
  std::size_t item_;

  PriceTableModel* model_ = nullptr;
  PriceFilter* filter_ = nullptr;
  QTableView* tblPrices_ = nullptr;
  QLineEdit* txtFilter_ = nullptr;
  QComboBox* cboSort_ = nullptr;
  QComboBox* cboLevel_ = nullptr;
  QLineEdit* txtPercent_ = nullptr;
  QLabel* lblCount_ = nullptr;
  QLabel* lblSaid_ = nullptr;
  QPushButton* cmdUndo_ = nullptr;
};

}  // namespace norvale
