#include "prices/frm_price_table.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSortFilterProxyModel>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

#include "base/files.h"
#include "base/numbers.h"
#include "base/text.h"
#include "desktop/frm_keys.h"
#include "desktop/frm_progress.h"
#include "desktop/frm_text.h"
#include "prices/frm_price_entry.h"
#include "prices/frm_price_preview.h"
#include "prices/price_csv.h"

namespace norvale {

namespace {

// Leaves room for the frame of the window on a screen of 1024 x 700.
constexpr int kWidth = 980;
constexpr int kHeight = 640;

PriceColumn ColumnAt(int section) { return static_cast<PriceColumn>(section); }

Qt::Alignment AlignmentOf(PriceColumn column) { return (LevelOf(column) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter; }

QString FileName(const QString& path) { return path.section(QLatin1Char('/'), -1); }

}  // namespace

class PriceTableModel : public QAbstractTableModel {
 public:
  PriceTableModel(PriceEditor& prices, Messages& messages, QObject* parent)
      : QAbstractTableModel(parent), prices_(prices), messages_(messages) {}

  void ShowAll() {
    if (rowCount() > 0) emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
  }

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : static_cast<int>(prices_.Items().size()); }
  int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : static_cast<int>(kPriceColumns); }

  QVariant data(const QModelIndex& index, int role) const override {
    const PriceColumn column = ColumnAt(index.column());
    const std::string& text = TextOf(ItemAt(index), column);
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue(AlignmentOf(column));
    if (role == Qt::UserRole) return LevelOf(column) ? QVariant(Val(text)) : QVariant(Shown(ToUtf8(text)));
    if (role != Qt::DisplayRole && role != Qt::EditRole && role != Qt::ToolTipRole) return {};
    return LevelOf(column) ? Shown(FormatPrice(text)) : Shown(ToUtf8(text));
  }

  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue(AlignmentOf(ColumnAt(section)));
    const auto level = LevelOf(ColumnAt(section));
    const QString caption = Shown(CaptionOf(ColumnAt(section)));
    if (role == Qt::ToolTipRole || role == Qt::AccessibleTextRole) return caption;
    return role != Qt::DisplayRole ? QVariant() : level ? QVariant(QObject::tr("Level %1").arg(*level + 1)) : QVariant(caption);
  }

  Qt::ItemFlags flags(const QModelIndex& index) const override {
    const Qt::ItemFlags usual = QAbstractTableModel::flags(index);
    return ColumnAt(index.column()) == PriceColumn::Description ? usual : usual | Qt::ItemIsEditable;
  }

  // A cell that is left as it was shown keeps the file's own text.
  bool setData(const QModelIndex& index, const QVariant& value, int role) override {
    if (role != Qt::EditRole || value.toString() == data(index, Qt::EditRole).toString()) return false;
    const PriceColumn column = ColumnAt(index.column());
    std::string text = Typed(value.toString());
    if (LevelOf(column)) {
      text = FormatPrice(text);
      if (!FitsPriceFile(text)) {
        // After this event: the box of the cell would hand its text in a second time when a message takes the focus.
        QMetaObject::invokeMethod(
            qApp, [&messages = messages_, text] { messages.ShowMessage(Notice(PriceTooLong(text))); }, Qt::QueuedConnection);
        return false;
      }
    } else {
      const auto bytes = FromUtf8(text);
      if (!bytes) return false;  // the box has refused it
      text = Trim(*bytes);
    }
    prices_.SetText(static_cast<std::size_t>(index.row()), column, std::move(text));
    emit dataChanged(index, index);
    return true;
  }

  [[nodiscard]] const PriceItem& ItemAt(const QModelIndex& index) const { return prices_.Items()[static_cast<std::size_t>(index.row())]; }

 private:
  PriceEditor& prices_;
  Messages& messages_;
};

// Items that hold all words in description, SKU and optional description together. A row keeps its place while it is edited.
class PriceFilter : public QSortFilterProxyModel {
 public:
  explicit PriceFilter(PriceTableModel* model) : QSortFilterProxyModel(model), model_(model) {
    setSourceModel(model);
    setSortRole(Qt::UserRole);
    setSortCaseSensitivity(Qt::CaseInsensitive);
    setDynamicSortFilter(false);
  }

  void SetWords(std::string words) {
    words_ = std::move(words);
    invalidateFilter();
  }

 protected:
  bool filterAcceptsRow(int row, const QModelIndex& /*parent*/) const override {
    const PriceItem& item = model_->ItemAt(model_->index(row, 0));
    return HoldsWords(item.PriceItemKey + "\n" + item.PriceItemSku + "\n" + item.PriceItemOptionalText, words_);
  }

 private:
  PriceTableModel* model_;
  std::string words_;
};

namespace {

class PriceDelegate : public QStyledItemDelegate {
 public:
  PriceDelegate(Messages& messages, QObject* parent) : QStyledItemDelegate(parent), messages_(messages) {}

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/, const QModelIndex& index) const override {
    auto* const box = new QLineEdit(parent);
    box->setObjectName(QStringLiteral("txtCell"));
    box->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    box->setProperty(kTakesEnter, true);
    box->setFrame(false);
    if (LevelOf(ColumnAt(index.column())))
      MakePriceBox(box);
    else
      MakeTextBox(box, ColumnAt(index.column()), messages_);
    return box;
  }

 private:
  Messages& messages_;
};

// Enter begins to edit a cell and ends it one row further down.
class PriceTable : public QTableView {
 public:
  using QTableView::QTableView;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && state() != EditingState && currentIndex().isValid())
      edit(currentIndex());
    else
      QTableView::keyPressEvent(event);
  }

  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override {
    QTableView::closeEditor(editor, hint);
    if (hint != QAbstractItemDelegate::SubmitModelCache) return;
    const QModelIndex below = currentIndex().siblingAtRow(currentIndex().row() + 1);
    if (below.isValid()) setCurrentIndex(below);
  }
};

}  // namespace

frmPriceTable::frmPriceTable(Program& program, PriceEditor& prices, PriceHistory& history, std::size_t item, QWidget* parent)
    : QDialog(parent), program_(program), prices_(prices), history_(history), item_(item) {
  setObjectName(QStringLiteral("frmPriceTable"));
  setWindowTitle(tr("All Prices"));
  setProperty(kHelpPage, QStringLiteral("prices"));
  const int space = fontMetrics().height();
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(space, space, space, space);
  layout->setSpacing(space / 2);
  auto* const filterRow = new QHBoxLayout;
  MakeFilterRow(filterRow);
  layout->addLayout(filterRow);
  MakeTable();
  layout->addWidget(tblPrices_, 1);
  auto* const percentRow = new QHBoxLayout;
  MakePercentRow(percentRow);
  layout->addLayout(percentRow);
  lblSaid_ = new QLabel(this);
  lblSaid_->setObjectName(QStringLiteral("lblSaid"));
  lblSaid_->setProperty("role", QStringLiteral("quiet"));
  lblSaid_->setTextFormat(Qt::PlainText);
  lblSaid_->setWordWrap(true);
  layout->addWidget(lblSaid_);
  auto* const row = new QHBoxLayout;
  row->setSpacing(space / 2);
  MakeButtons(row);
  layout->addLayout(row);
  resize(kWidth, kHeight);
  Say(tr("Nothing is written to the price file before Save / Exit."));
  ShowCounts();
  Select(item);
  tblPrices_->horizontalScrollBar()->setValue(0);  // a large type may push the description off
  tblPrices_->setFocus();
}

void frmPriceTable::MakeFilterRow(QHBoxLayout* row) {
  auto* const lblFilter = new QLabel(tr("&Filter"), this);
  txtFilter_ = new QLineEdit(this);
  txtFilter_->setObjectName(QStringLiteral("txtFilter"));
  txtFilter_->setAccessibleName(tr("Filter"));
  txtFilter_->setPlaceholderText(tr("words of description, SKU or optional description"));
  txtFilter_->setClearButtonEnabled(true);
  txtFilter_->setProperty(kTakesEnter, true);
  connect(txtFilter_, &QLineEdit::returnPressed, this, [this] { tblPrices_->setFocus(); });
  lblFilter->setBuddy(txtFilter_);
  lblCount_ = new QLabel(this);
  lblCount_->setObjectName(QStringLiteral("lblCount"));
  lblCount_->setProperty("role", QStringLiteral("quiet"));
  auto* const lblSort = new QLabel(tr("&Sort by"), this);
  cboSort_ = new QComboBox(this);
  cboSort_->setObjectName(QStringLiteral("cboSort"));
  cboSort_->setAccessibleName(tr("Sort by"));
  lblSort->setBuddy(cboSort_);
  cboSort_->addItem(tr("Order of the file"));
  for (std::size_t i = 0; i < kPriceColumns; ++i) {
    const QString caption = Shown(CaptionOf(static_cast<PriceColumn>(i)));
    cboSort_->addItem(caption);
    cboSort_->addItem(tr("%1, last first").arg(caption));
  }
  row->addWidget(lblFilter);
  row->addWidget(txtFilter_, 1);
  row->addWidget(lblCount_);
  row->addSpacing(fontMetrics().height());
  row->addWidget(lblSort);
  row->addWidget(cboSort_);
  connect(txtFilter_, &QLineEdit::textChanged, this, &frmPriceTable::Filter);
  connect(cboSort_, &QComboBox::activated, this, &frmPriceTable::Sort);
}

void frmPriceTable::MakeTable() {
  model_ = new PriceTableModel(prices_, program_.messages, this);
  filter_ = new PriceFilter(model_);
  tblPrices_ = new PriceTable(this);
  tblPrices_->setObjectName(QStringLiteral("tblPrices"));
  tblPrices_->setAccessibleName(tr("Items of the price list"));
  tblPrices_->setModel(filter_);
  tblPrices_->setItemDelegate(new PriceDelegate(program_.messages, this));
  tblPrices_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
  tblPrices_->setTabKeyNavigation(false);
  tblPrices_->setAlternatingRowColors(true);
  tblPrices_->setShowGrid(false);
  tblPrices_->setWordWrap(false);
  tblPrices_->verticalHeader()->hide();
  tblPrices_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 7 / 4);
  QHeaderView* const header = tblPrices_->horizontalHeader();
  header->setHighlightSections(false);
  header->setSortIndicator(-1, Qt::AscendingOrder);
  header->setStretchLastSection(true);
  tblPrices_->setSortingEnabled(true);
  SetColumnWidths();
  connect(header, &QHeaderView::sortIndicatorChanged, this, [this](int section, Qt::SortOrder order) {
    cboSort_->setCurrentIndex(section < 0 ? 0 : 1 + 2 * section + (order == Qt::DescendingOrder ? 1 : 0));
  });
  connect(tblPrices_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& now) {
    if (now.isValid()) item_ = static_cast<std::size_t>(filter_->mapToSource(now).row());
  });
}

// In the usual type all columns fit a small screen; in a large one the long texts are shortened, prices never.
void frmPriceTable::SetColumnWidths() {
  const int figure = fontMetrics().horizontalAdvance(QLatin1Char('0'));
  const bool isLarge = figure * 100 > kWidth;
  std::size_t longest = FormatPrice("1000").size();
  for (const PriceItem& item : prices_.Items())
    for (const std::string& price : item.PriceItemPrice) longest = std::max(longest, FormatPrice(price).size());
  for (std::size_t i = 0; i + 1 < kPriceColumns; ++i) {
    const auto column = static_cast<PriceColumn>(i);
    const int figures = LevelOf(column)              ? static_cast<int>(longest) + 2
                        : column == PriceColumn::Sku ? (isLarge ? 14 : 21)
                                                     : (isLarge ? 21 : 28);
    tblPrices_->setColumnWidth(static_cast<int>(i), figure * figures);
  }
}

void frmPriceTable::MakePercentRow(QHBoxLayout* row) {
  auto* const lblLevel = new QLabel(tr("C&hange of the items shown"), this);
  cboLevel_ = new QComboBox(this);
  cboLevel_->setObjectName(QStringLiteral("cboLevel"));
  cboLevel_->setAccessibleName(tr("Price level to change"));
  for (std::size_t level = 0; level < kPriceLevels; ++level) cboLevel_->addItem(Shown(CaptionOf(ColumnOfLevel(level))));
  lblLevel->setBuddy(cboLevel_);
  auto* const lblPercent = new QLabel(tr("&by percent"), this);
  txtPercent_ = new QLineEdit(this);
  txtPercent_->setObjectName(QStringLiteral("txtPercent"));
  txtPercent_->setAccessibleName(tr("Percent"));
  txtPercent_->setPlaceholderText(tr("-2.5"));
  txtPercent_->setAlignment(Qt::AlignRight);
  txtPercent_->setMaximumWidth(fontMetrics().averageCharWidth() * 12);
  lblPercent->setBuddy(txtPercent_);
  row->addWidget(lblLevel);
  row->addWidget(cboLevel_);
  row->addWidget(lblPercent);
  row->addWidget(txtPercent_);
  AddButton("cmdPercent", tr("Pre&view..."), row, &frmPriceTable::ChangePercent);
  row->addStretch();
}

QPushButton* frmPriceTable::AddButton(const char* name, const QString& caption, QHBoxLayout* row, void (frmPriceTable::*press)()) {
  auto* const button = new QPushButton(caption, this);
  button->setObjectName(QString::fromLatin1(name));
  button->setAccessibleName(QString(caption).remove(QLatin1Char('&')).remove(QLatin1Char('.')));
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this, press);
  row->addWidget(button);
  return button;
}

void frmPriceTable::MakeButtons(QHBoxLayout* row) {
  AddButton("cmdImport", tr("&Import..."), row, &frmPriceTable::Import);
  AddButton("cmdExport", tr("&Export..."), row, &frmPriceTable::Export);
  cmdUndo_ = AddButton("cmdUndo", tr("&Undo"), row, &frmPriceTable::Undo);
  row->addStretch();
  auto* const cmdClose = new QPushButton(tr("&Close"), this);
  cmdClose->setObjectName(QStringLiteral("cmdClose"));
  cmdClose->setAccessibleName(tr("Close"));
  cmdClose->setAutoDefault(false);
  connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
  row->addWidget(cmdClose);
}

void frmPriceTable::Filter() {
  filter_->SetWords(FromUtf8(Typed(txtFilter_->text())).value_or(std::string()));
  ShowCounts();
}

void frmPriceTable::Sort() {
  const int chosen = cboSort_->currentIndex() - 1;
  if (chosen < 0)
    tblPrices_->sortByColumn(-1, Qt::AscendingOrder);
  else
    tblPrices_->sortByColumn(chosen / 2, chosen % 2 == 0 ? Qt::AscendingOrder : Qt::DescendingOrder);
  Select(item_);
}

void frmPriceTable::Import() {
  const QString path = QFileDialog::getOpenFileName(this, tr("Import Prices"), QString(), tr("Tables (*.csv *.tsv *.txt);;All files (*)"));
  if (path.isEmpty()) return;
  Try(program_.messages, [&] {
    const std::string bytes = ReadWholeFile(PathFromUtf8(Typed(path)));
    try {
      const PriceCsv csv = [&] {
        frmProgress progress(tr("Reading %1").arg(FileName(path)), this);
        return ReadPriceCsv(bytes, progress.Report());
      }();
      frmPricePreview preview(tr("Prices from %1").arg(FileName(path)), prices_.Items(), csv, this);
      if (preview.exec() == QDialog::Accepted) Apply("The import of " + Typed(FileName(path)), preview.Update());
    } catch (const GivenUp&) {
      Say(tr("The import was given up; nothing has changed."));
    } catch (const CsvError& error) {
      program_.messages.ShowMessage(Notice(Typed(FileName(path)) + ": " + error.what()));
    }
  });
}

void frmPriceTable::Export() {
  QString path = QFileDialog::getSaveFileName(this, tr("Export Prices"), QStringLiteral("prices.csv"), tr("Tables (*.csv)"));
  if (path.isEmpty()) return;
  if (!FileName(path).contains(QLatin1Char('.'))) path += QStringLiteral(".csv");
  Try(program_.messages, [&] {
    ReplaceFile(program_.folder.Files(), PathFromUtf8(Typed(path)), ExportPrices(prices_.Items()));
    Say(tr("All %1 items are in %2.").arg(prices_.Items().size()).arg(path));
  });
}

void frmPriceTable::ChangePercent() {
  const auto percent = ReadPercent(Typed(txtPercent_->text()));
  if (!percent) {
    program_.messages.ShowMessage(
        Notice("Type by how many percent the prices change, such as 5 or -2.5. More than -100 and at most 1000."));
    txtPercent_->setFocus();
    txtPercent_->selectAll();
    return;
  }
  const auto level = static_cast<std::size_t>(cboLevel_->currentIndex());
  const QString what = tr("%1 by %2 percent").arg(cboLevel_->currentText(), Shown(Digits(*percent)));
  frmPricePreview preview(tr("%1, rounded to the cent").arg(what), prices_.Items(),
                          ChangeByPercent(prices_.Items(), ShownItems(), level, *percent), this);
  if (preview.exec() == QDialog::Accepted) Apply("The change of " + Typed(what), preview.Update());
}

void frmPriceTable::Apply(std::string what, const PriceUpdate& update) {
  ApplyChanges(prices_, update.changes);
  Say(Shown(what) + tr(": ") + Shown(SummaryOf(update)) + tr(" Nothing is written to the price file before Save / Exit."));
  history_.push_back({std::move(what), update.changes});
  model_->ShowAll();
  SetColumnWidths();
  ShowCounts();
  tblPrices_->setFocus();
}

void frmPriceTable::Undo() {
  if (history_.empty()) return;
  const std::size_t kept = UndoChanges(prices_, history_.back().changes);
  QString said = tr("%1 is undone.").arg(Shown(history_.back().what));
  if (kept > 0) said += tr(" %1 of its prices were changed again since; they stay as they are.").arg(kept);
  history_.pop_back();
  tblPrices_->setFocus();  // before the button is shut
  Say(said);
  model_->ShowAll();
  ShowCounts();
}

void frmPriceTable::Say(const QString& text) { lblSaid_->setText(text); }

void frmPriceTable::ShowCounts() {
  lblCount_->setText(tr("%1 of %2 items").arg(filter_->rowCount()).arg(model_->rowCount()));
  cmdUndo_->setEnabled(!history_.empty());
  cmdUndo_->setToolTip(history_.empty() ? QString() : Shown(history_.back().what));
}

void frmPriceTable::Select(std::size_t item) {
  const QModelIndex source = model_->index(static_cast<int>(item), static_cast<int>(PriceColumn::Level1));
  const QModelIndex index = filter_->mapFromSource(source);
  if (!index.isValid()) return;
  tblPrices_->setCurrentIndex(index);
  tblPrices_->scrollTo(index);
}

std::vector<std::size_t> frmPriceTable::ShownItems() const {
  std::vector<std::size_t> items;
  for (int row = 0; row < filter_->rowCount(); ++row)
    items.push_back(static_cast<std::size_t>(filter_->mapToSource(filter_->index(row, 0)).row()));
  return items;
}

}  // namespace norvale
