#include "prices/frm_price_preview.h"

#include <QAbstractTableModel>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QTabWidget>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <functional>

#include "base/numbers.h"
#include "base/text.h"
#include "desktop/frm_keys.h"
#include "desktop/frm_look.h"
#include "desktop/frm_progress.h"
#include "desktop/frm_text.h"

namespace norvale {

namespace {

// Leaves room for the frame of the window on a screen of 1024 x 700.
constexpr int kWidth = 980;
constexpr int kHeight = 620;

constexpr double kLargeChange = 50;  // percent; more is rather a slip than a new price
constexpr NumberFormat kTenths{.wholeDigits = 1, .decimals = 1};

QString FromFile(std::string_view text) { return Shown(ToUtf8(text)); }

}  // namespace

/// Rows to look at, sorted by a click on a heading.
class RowsModel : public QAbstractTableModel {
 public:
  struct Column {
    QString caption;
    bool isNumber = false;
  };
  /// The text of a cell and what it is sorted by; the same for texts.
  struct Cell {
    QString text;
    QVariant sortedBy;
    bool isWarning = false;
  };
  using CellOf = std::function<Cell(std::size_t row, int column)>;

  RowsModel(std::vector<Column> columns, CellOf cellOf, QObject* parent)
      : QAbstractTableModel(parent), columns_(std::move(columns)), cellOf_(std::move(cellOf)) {}

  void SetRows(std::size_t rows) {
    beginResetModel();
    rows_ = static_cast<int>(rows);
    endResetModel();
  }

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : rows_; }
  int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : static_cast<int>(columns_.size()); }

  QVariant data(const QModelIndex& index, int role) const override {
    const bool isNumber = columns_[static_cast<std::size_t>(index.column())].isNumber;
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue((isNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole && role != Qt::UserRole && role != Qt::ForegroundRole) return {};
    const Cell cell = cellOf_(static_cast<std::size_t>(index.row()), index.column());
    if (role == Qt::ForegroundRole) return cell.isWarning ? QVariant(ColoursOfLook().warning) : QVariant();
    return role == Qt::UserRole && cell.sortedBy.isValid() ? cell.sortedBy : QVariant(cell.text);
  }

  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (orientation != Qt::Horizontal) return {};
    const Column& column = columns_[static_cast<std::size_t>(section)];
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue((column.isNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    return role == Qt::DisplayRole ? QVariant(column.caption) : QVariant();
  }

 private:
  std::vector<Column> columns_;
  CellOf cellOf_;
  int rows_ = 0;
};

namespace {

RowsModel::Cell ChangeCell(const PriceChange& change, const PriceItem& item, int column) {
  const bool isPrice = LevelOf(change.column).has_value();
  switch (column) {
    case 0:
      return {FromFile(item.PriceItemKey), {}};
    case 1:
      return {FromFile(item.PriceItemSku), {}};
    case 2:
      return {Shown(CaptionOf(change.column)), {}};
    case 3:
      return {FromFile(change.before), isPrice ? QVariant(Val(change.before)) : QVariant()};
    case 4:
      return {FromFile(change.after), isPrice ? QVariant(Val(change.after)) : QVariant()};
    case 5: {
      const auto percent = change.Percent();
      if (!percent) return {{}, QVariant(0.0)};
      return {(*percent > 0 ? QStringLiteral("+") : QString()) + Shown(FormatNumber(*percent, kTenths)) + QStringLiteral(" %"),
              QVariant(*percent), std::abs(*percent) > kLargeChange};
    }
    default:
      return {Shown(change.note), {}};
  }
}

RowsModel::Cell NotTakenCell(const NotTaken& entry, int column) {
  switch (column) {
    case 0:
      return {entry.line > 0 ? QString::number(entry.line) : QString(), QVariant(static_cast<qulonglong>(entry.line))};
    case 1:
      return {Shown(CaptionOf(entry.kind)), {}};
    case 2:
      return {Shown(entry.name), {}};
    case 3:
      return {Shown(entry.cell), {}};
    default:
      return {Shown(entry.reason), {}};
  }
}

}  // namespace

frmPricePreview::frmPricePreview(const QString& heading, const std::vector<PriceItem>& items, PriceUpdate update, QWidget* parent)
    : QDialog(parent), items_(items), update_(std::move(update)) {
  MakeForm(heading);
  ShowUpdate();
}

frmPricePreview::frmPricePreview(const QString& heading, const std::vector<PriceItem>& items, const PriceCsv& csv, QWidget* parent)
    : QDialog(parent), items_(items), csv_(&csv) {
  MakeForm(heading);
  Match();
}

void frmPricePreview::MakeForm(const QString& heading) {
  setObjectName(QStringLiteral("frmPricePreview"));
  setWindowTitle(tr("Price Changes"));
  setProperty(kHelpPage, QStringLiteral("prices"));
  const int space = fontMetrics().height();
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(space, space, space, space);
  layout->setSpacing(space / 2);
  auto* const lblHeading = new QLabel(heading, this);
  lblHeading->setObjectName(QStringLiteral("lblHeading"));
  lblHeading->setTextFormat(Qt::PlainText);
  lblHeading->setWordWrap(true);
  MakeTitle(lblHeading);
  layout->addWidget(lblHeading);
  if (csv_ != nullptr) MakeOptions(layout);
  lblSummary_ = new QLabel(this);
  lblSummary_->setObjectName(QStringLiteral("lblSummary"));
  lblSummary_->setTextFormat(Qt::PlainText);
  lblSummary_->setWordWrap(true);
  layout->addWidget(lblSummary_);

  tabs_ = new QTabWidget(this);
  tabs_->setObjectName(QStringLiteral("tabPreview"));
  changes_ = new RowsModel(
      {{tr("Description")}, {tr("SKU")}, {tr("Column")}, {tr("Old"), true}, {tr("New"), true}, {tr("Change"), true}, {tr("Note")}},
      [this](std::size_t row, int column) { return ChangeCell(update_.changes[row], items_[update_.changes[row].item], column); }, this);
  notTaken_ = new RowsModel(
      {{tr("Line"), true}, {tr("Kind")}, {tr("Name")}, {tr("Cell")}, {tr("Reason")}},
      [this](std::size_t row, int column) { return NotTakenCell(update_.notTaken[row], column); }, this);
  AddPage("tblChanges", changes_);
  AddPage("tblNotTaken", notTaken_);
  layout->addWidget(tabs_, 1);

  auto* const row = new QHBoxLayout;
  row->addStretch();
  cmdOK_ = new QPushButton(tr("&Apply"), this);
  cmdOK_->setObjectName(QStringLiteral("cmdOK"));
  cmdOK_->setAccessibleName(tr("Apply"));
  auto* const cmdCANCEL = new QPushButton(tr("&Cancel"), this);
  cmdCANCEL->setObjectName(QStringLiteral("cmdCANCEL"));
  cmdCANCEL->setAccessibleName(tr("Cancel"));
  for (QPushButton* const button : {cmdOK_, cmdCANCEL}) {
    button->setAutoDefault(false);
    row->addWidget(button);
  }
  layout->addLayout(row);
  connect(cmdOK_, &QPushButton::clicked, this, &QDialog::accept);
  connect(cmdCANCEL, &QPushButton::clicked, this, &QDialog::reject);
  resize(kWidth, kHeight);
}

void frmPricePreview::MakeOptions(QVBoxLayout* layout) {
  auto* const row = new QHBoxLayout;
  auto* const lblMatch = new QLabel(tr("&Match rows by"), this);
  cboMatch_ = new QComboBox(this);
  cboMatch_->setObjectName(QStringLiteral("cboMatch"));
  cboMatch_->setAccessibleName(tr("Match rows by"));
  lblMatch->setBuddy(cboMatch_);
  if (csv_->Has(PriceColumn::Description)) cboMatch_->addItem(tr("Description"), static_cast<int>(PriceMatch::Description));
  if (csv_->Has(PriceColumn::Sku)) cboMatch_->addItem(tr("SKU"), static_cast<int>(PriceMatch::Sku));
  frmProgress progress(tr("Comparing the file with the price list"), parentWidget());
  cboMatch_->setCurrentIndex(cboMatch_->findData(static_cast<int>(BestMatch(*csv_, items_, progress.Report()))));
  chkZero_ = new QCheckBox(tr("Blank and &zero prices too"), this);
  chkZero_->setObjectName(QStringLiteral("chkZero"));
  chkTexts_ = new QCheckBox(tr("SKUs and optional &descriptions too"), this);
  chkTexts_->setObjectName(QStringLiteral("chkTexts"));
  row->addWidget(lblMatch);
  row->addWidget(cboMatch_);
  row->addSpacing(fontMetrics().height());
  auto* const ticks = new QVBoxLayout;
  ticks->addWidget(chkZero_);
  ticks->addWidget(chkTexts_);
  row->addLayout(ticks);
  row->addStretch();
  layout->addLayout(row);
  connect(cboMatch_, &QComboBox::currentIndexChanged, this, &frmPricePreview::MatchAgain);
  connect(chkZero_, &QCheckBox::toggled, this, &frmPricePreview::MatchAgain);
  connect(chkTexts_, &QCheckBox::toggled, this, &frmPricePreview::MatchAgain);
  if (csv_->unused.empty()) return;
  QStringList unused;
  for (const std::string& caption : csv_->unused) unused.append(Shown(caption));
  auto* const lblUnused = new QLabel(tr("Columns not used: %1").arg(unused.join(QStringLiteral(", "))), this);
  lblUnused->setObjectName(QStringLiteral("lblUnused"));
  lblUnused->setProperty("role", QStringLiteral("quiet"));
  lblUnused->setTextFormat(Qt::PlainText);
  lblUnused->setWordWrap(true);
  layout->addWidget(lblUnused);
}

void frmPricePreview::AddPage(const char* name, RowsModel* model) {
  auto* const table = new QTableView(this);
  table->setObjectName(QString::fromLatin1(name));
  table->setSelectionBehavior(QAbstractItemView::SelectRows);
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->setTabKeyNavigation(false);
  table->setAlternatingRowColors(true);
  table->setShowGrid(false);
  table->setWordWrap(false);
  table->verticalHeader()->hide();
  table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
  auto* const sorted = new QSortFilterProxyModel(table);
  sorted->setSourceModel(model);
  sorted->setSortRole(Qt::UserRole);
  table->setModel(sorted);
  table->setSortingEnabled(true);
  table->sortByColumn(-1, Qt::AscendingOrder);
  table->horizontalHeader()->setHighlightSections(false);
  table->horizontalHeader()->setStretchLastSection(true);
  tabs_->addTab(table, QString());
}

void frmPricePreview::Match() {
  const ImportOptions options{.match = static_cast<PriceMatch>(cboMatch_->currentData().toInt()),
                              .zeroPrices = chkZero_->isChecked(),
                              .texts = chkTexts_->isChecked()};
  frmProgress progress(tr("Comparing the file with the price list"), isVisible() ? this : parentWidget());
  update_ = PreviewImport(*csv_, items_, options, progress.Report());
  ShowUpdate();
}

void frmPricePreview::MatchAgain() {
  try {
    Match();
  } catch (const GivenUp&) {
    reject();  // what is shown no longer goes with what is ticked
  }
}

void frmPricePreview::ShowUpdate() {
  changes_->SetRows(update_.changes.size());
  notTaken_->SetRows(update_.notTaken.size());
  lblSummary_->setText(Shown(SummaryOf(update_)));
  tabs_->setTabText(0, tr("C&hanges (%1)").arg(update_.changes.size()));
  tabs_->setTabText(1, tr("&Not taken (%1)").arg(update_.notTaken.size()));
  for (int page = 0; page < tabs_->count(); ++page) {
    auto* const table = qobject_cast<QTableView*>(tabs_->widget(page));
    table->setAccessibleName(QString(tabs_->tabText(page)).remove(QLatin1Char('&')));
    for (int column = 0; column + 1 < table->model()->columnCount(); ++column) {
      table->resizeColumnToContents(column);
      table->setColumnWidth(column, std::min(table->columnWidth(column), kWidth / 3) + fontMetrics().height() / 2);
    }
  }
  cmdOK_->setEnabled(!update_.changes.empty());
  tabs_->setCurrentIndex(update_.changes.empty() && !update_.notTaken.empty() ? 1 : 0);
  if (!isVisible()) tabs_->currentWidget()->setFocus();  // to look through it first, not to change how rows are matched
}

}  // namespace norvale
