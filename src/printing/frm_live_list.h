// The itemised list of the plan as typed so far, beside the data-entry screens.
#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <functional>
#include <string>
#include <vector>

#include "desktop/program.h"
#include "entry/frm_live_panel.h"
#include "takeoff/print_estimate.h"

class QLabel;
class QTreeView;

namespace norvale {

/// One row of the panel: the heading of a section with its subtotal, or a line of it.
struct LiveRow {
  bool isSection = false;
  bool isPriced = true;
  QString section;
  QString description;
  QString label;  // what the line is for; nothing for a heading
  QString quantity;
  QString amount;

  bool operator==(const LiveRow&) const = default;
};

class LiveListModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { Description, Quantity, Amount, kColumns };

  using QAbstractTableModel::QAbstractTableModel;

  /// Shows other rows in the place of those before.
  void SetRows(std::vector<LiveRow> rows);
  [[nodiscard]] const std::vector<LiveRow>& Rows() const { return rows_; }

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  std::vector<LiveRow> rows_;
};

class LiveList : public LivePanel {
  Q_OBJECT

 public:
  explicit LiveList(Program& program, QWidget* parent = nullptr);

  void ShowPlan(const EstimateRecord& plan) override;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void KeepPlace(const std::function<void()>& change);

  Program& program_;
  TakeoffData data_;
  bool isLoaded_ = false;
  Page page_;  // keeps its memory from run to run
  LiveListModel* model_;
  QTreeView* lstLive_;
  QLabel* lblTotal_;
  QLabel* lblUnpriced_;
};

}  // namespace norvale
