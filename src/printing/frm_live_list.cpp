#include "printing/frm_live_list.h"

#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "base/numbers.h"
#include "base/text.h"
#include "desktop/frm_look.h"
#include "desktop/frm_text.h"
#include "printing/estimate_document.h"
#include "printing/print_selection.h"
#include "takeoff/sections.h"

namespace norvale {

namespace {

QString MoneyOf(double amount) { return Shown(FormatNumber(amount, kMoney)); }

// A line for each row of the paper, and above those of a section its heading. A row may be priced under two keys.
std::vector<LiveRow> RowsOf(const std::vector<PrintedLine>& lines) {
  std::vector<LiveRow> rows;
  std::size_t heading = 0;
  double subTotal = 0;
  for (auto line = lines.begin(); line != lines.end();) {
    const QString section = Shown(ToUtf8(line->section)).simplified();
    if (rows.empty() || rows[heading].section != section) {
      heading = rows.size();
      subTotal = 0;
      rows.push_back(
          {.isSection = true, .isPriced = true, .section = section, .description = section, .label = {}, .quantity = {}, .amount = {}});
    }
    const auto next = std::find_if(line, lines.end(), [&](const PrintedLine& other) { return other.place != line->place; });
    double extension = 0;
    bool isPriced = false;
    for (auto part = line; part != next; ++part) {
      extension += part->extension;
      isPriced = isPriced || (part->stock != nullptr && part->price > 0);
    }
    subTotal += extension;
    rows.push_back({.isSection = false,
                    .isPriced = isPriced,
                    .section = section,
                    .description = Shown(ToUtf8(line->description)),
                    .label = Shown(ToUtf8(line->label)),
                    .quantity = Shown(Digits(line->quantity) + " " + ToUtf8(line->unit)),
                    .amount = isPriced ? MoneyOf(extension) : QObject::tr("no price")});
    rows[heading].amount = MoneyOf(subTotal);
    line = next;
  }
  return rows;
}

}  // namespace

void LiveListModel::SetRows(std::vector<LiveRow> rows) {
  const auto before = static_cast<int>(rows_.size());
  const auto after = static_cast<int>(rows.size());
  // The rows in common are changed in place: a reset would lose the view's position and selection.
  if (after < before) {
    beginRemoveRows({}, after, before - 1);
    rows_.resize(rows.size());
    endRemoveRows();
  } else if (after > before) {
    beginInsertRows({}, before, after - 1);
    rows_.resize(rows.size());
    endInsertRows();
  }
  if (rows_ == rows) return;
  rows_ = std::move(rows);
  emit dataChanged(index(0, 0), index(after - 1, kColumns - 1));
}

int LiveListModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : static_cast<int>(rows_.size()); }

int LiveListModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : kColumns; }

QVariant LiveListModel::data(const QModelIndex& index, int role) const {
  const LiveRow& row = rows_[static_cast<std::size_t>(index.row())];
  switch (role) {
    case Qt::DisplayRole:
      if (index.column() == Quantity) return row.quantity;
      return index.column() == Amount ? row.amount : row.description;
    case Qt::ToolTipRole:  // a narrow list cuts the description
      return QString(row.description + QStringLiteral("   ") + row.label).trimmed();
    case Qt::AccessibleDescriptionRole:
      return row.label;
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(index.column() == Amount ? Qt::AlignRight | Qt::AlignVCenter : Qt::AlignLeft | Qt::AlignVCenter);
    case Qt::FontRole: {
      QFont font;
      font.setBold(row.isSection);
      font.setItalic(!row.isPriced && index.column() == Amount);
      return font;
    }
    case Qt::ForegroundRole:
      return row.isPriced ? QVariant() : QVariant(ColoursOfLook().focus);
    default:
      return {};
  }
}

QVariant LiveListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole && section == Amount) return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
  if (role != Qt::DisplayRole) return {};
  return section == Quantity ? tr("Quantity") : section == Amount ? tr("Amount") : tr("Description");
}

LiveList::LiveList(Program& program, QWidget* parent)
    : LivePanel(parent),
      program_(program),
      model_(new LiveListModel(this)),
      lstLive_(new QTreeView(this)),
      lblTotal_(new QLabel(this)),
      lblUnpriced_(new QLabel(this)) {
  setObjectName(QStringLiteral("pctLive"));
  setAccessibleName(tr("List of the plan so far"));
  lstLive_->setObjectName(QStringLiteral("lstLive"));
  lstLive_->setAccessibleName(tr("Material list so far"));
  lstLive_->setModel(model_);
  lstLive_->setRootIsDecorated(false);
  lstLive_->setUniformRowHeights(true);
  lstLive_->setAllColumnsShowFocus(true);
  lstLive_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  QHeaderView* const header = lstLive_->header();
  header->setStretchLastSection(false);
  header->setSectionResizeMode(LiveListModel::Description, QHeaderView::Stretch);
  QFont bold = font();
  bold.setBold(true);
  // No wider than they need, for what is left is the description's.
  const int letter = fontMetrics().averageCharWidth();
  header->resizeSection(LiveListModel::Quantity, fontMetrics().horizontalAdvance(QStringLiteral("9999 pcs.")) + letter);
  header->resizeSection(LiveListModel::Amount, QFontMetrics(bold).horizontalAdvance(QStringLiteral("99,999.99")) + letter);
  setMinimumWidth(letter * 50);

  lblTotal_->setObjectName(QStringLiteral("lblTotal"));
  lblTotal_->setFont(bold);
  lblUnpriced_->setObjectName(QStringLiteral("lblUnpriced"));
  lblUnpriced_->setTextFormat(Qt::PlainText);
  lblUnpriced_->setProperty("role", QStringLiteral("quiet"));
  lblUnpriced_->setWordWrap(true);
  auto* const foot = new QHBoxLayout;
  foot->addWidget(lblUnpriced_, 1);
  foot->addWidget(lblTotal_);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(lstLive_, 1);
  layout->addLayout(foot);
}

// The prices may have been edited since the panel was last in sight.
void LiveList::showEvent(QShowEvent* event) {
  LivePanel::showEvent(event);
  try {
    data_ = LoadTakeoffData(program_.folder.Folder(), kWithPrices);
    isLoaded_ = true;
  } catch (const FileError& error) {
    isLoaded_ = false;
    model_->SetRows({});
    lblTotal_->clear();
    lblUnpriced_->setText(Shown(error.what()));
  }
}

void LiveList::ShowPlan(const EstimateRecord& plan) {
  if (!isLoaded_) return;
  EstimatePrint print;
  print.plan = plan;
  print.sectionMask = (DefaultSections(plan) & kAllSections) | kWithPrices;
  page_.Clear();
  const EstimateTotals totals = PrintEstimate(print, data_, page_);
  KeepPlace([&] { model_->SetRows(RowsOf(totals.lines)); });
  const std::size_t unpriced = UnpricedLines(totals.lines).size();
  lblTotal_->setText(tr("Grand total %1").arg(MoneyOf(totals.GrandTotal)));
  lblUnpriced_->setText(unpriced == 0   ? tr("Every line has a price.")
                        : unpriced == 1 ? tr("1 line has no price.")
                                        : tr("%1 lines have no price.").arg(unpriced));
}

// The line at the top of the view stays there, wherever it has gone in the list.
void LiveList::KeepPlace(const std::function<void()>& change) {
  const QModelIndex top = lstLive_->indexAt({0, 0});
  if (!top.isValid() || top.row() == 0) return change();
  const LiveRow row = model_->Rows()[static_cast<std::size_t>(top.row())];
  const int offset = lstLive_->visualRect(top).top();
  change();
  const auto& rows = model_->Rows();
  const auto isSame = [&row](const LiveRow& other) {
    return other.section == row.section && other.label == row.label && other.isSection == row.isSection;
  };
  auto found = std::find_if(rows.begin(), rows.end(), [&](const LiveRow& r) { return isSame(r) && r.description == row.description; });
  if (found == rows.end()) found = std::find_if(rows.begin(), rows.end(), isSame);
  if (found == rows.end() || found - rows.begin() == top.row()) return;
  lstLive_->scrollTo(model_->index(static_cast<int>(found - rows.begin()), 0), QAbstractItemView::PositionAtTop);
  lstLive_->verticalScrollBar()->setValue(lstLive_->verticalScrollBar()->value() - offset);
}

}  // namespace norvale
