// Many prices before they are changed: what changes, what does not and why.
#pragma once

#include <QDialog>
#include <vector>

#include "prices/price_csv.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QTabWidget;
class QVBoxLayout;

namespace norvale {

class RowsModel;

class frmPricePreview : public QDialog {
  Q_OBJECT

 public:
  /// A change that is already worked out. `items` must outlive the form.
  frmPricePreview(const QString& heading, const std::vector<PriceItem>& items, PriceUpdate update, QWidget* parent = nullptr);

  /// The import of a file: how its rows are matched and what is taken can be chosen. `csv` and `items` must outlive the form.
  /// Throws GivenUp where the operator has not waited for a file of very many rows.
  frmPricePreview(const QString& heading, const std::vector<PriceItem>& items, const PriceCsv& csv, QWidget* parent = nullptr);

  /// What is to be changed when the form has been accepted.
  [[nodiscard]] const PriceUpdate& Update() const { return update_; }

 private:
  void MakeForm(const QString& heading);
  void MakeOptions(QVBoxLayout* layout);
  void AddPage(const char* name, RowsModel* model);
  void Match();  // throws GivenUp
  void MatchAgain();
  void ShowUpdate();

  const std::vector<PriceItem>& items_;
  const PriceCsv* csv_ = nullptr;
  PriceUpdate update_;

  QComboBox* cboMatch_ = nullptr;
  QCheckBox* chkZero_ = nullptr;
  QCheckBox* chkTexts_ = nullptr;
  QLabel* lblSummary_ = nullptr;
  QTabWidget* tabs_ = nullptr;
  RowsModel* changes_ = nullptr;
  RowsModel* notTaken_ = nullptr;
  QPushButton* cmdOK_ = nullptr;
};

}  // namespace norvale
