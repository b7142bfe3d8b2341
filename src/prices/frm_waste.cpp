#include "prices/frm_waste.h"

#include <QApplication>
#include <QButtonGroup>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <algorithm>

#include "base/message.h"
#include "desktop/frm_keys.h"
#include "desktop/frm_look.h"
#include "desktop/frm_ring.h"
#include "desktop/frm_text.h"
#include "prices/delivered.h"

namespace norvale {

namespace {

constexpr int kColumns = 3;
constexpr int kLeastWidth = 780;
constexpr int kLeastHeight = 520;
constexpr int kMostHeight = 660;  // with its frame on the smallest screen; large type moves the rows closer together
constexpr const char* kHint = "hint";

// The heading of the columns: one text, each word of it drawn above the column that it names.
class ColumnHead : public QLabel {
 public:
  ColumnHead(const QString& text, QStackedWidget* panels) : QLabel(text, panels->parentWidget()), panels_(panels) {
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    const QStringList words = text().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const auto* const grid = qobject_cast<const QGridLayout*>(panels_->currentWidget()->layout());
    for (int i = 0; i < words.size(); ++i) {
      const QRect cell = grid->cellRect(0, i / 2 * kColumns + i % 2);
      painter.drawText(QRect(cell.x(), 0, std::max(cell.width(), fontMetrics().horizontalAdvance(words[i])), height()),
                       Qt::AlignLeft | Qt::AlignVCenter, words[i]);
    }
  }

 private:
  QStackedWidget* panels_;
};

// A caption as a label without a key of its own shows it.
QString WithoutKey(std::string_view caption) { return Shown(caption).replace(QLatin1String("&&"), QLatin1String("&")); }

std::vector<const WasteItem*> ItemsOf(const WastePanel& panel) {
  std::vector<const WasteItem*> items;
  for (const WasteItem& item : DeliveredWasteItems())
    if (item.panel == panel.name) items.push_back(&item);
  return items;
}

// The items go down one column and then the next.
int RowsOf(const std::vector<const WasteItem*>& items) { return (static_cast<int>(items.size()) + kColumns - 1) / kColumns; }

// On all panels, so that the columns stand still when another one is shown.
int WidestLabel(int column, const QFontMetrics& metrics) {
  int widest = 0;
  for (const WastePanel& panel : kWastePanels) {
    const std::vector<const WasteItem*> items = ItemsOf(panel);
    for (int i = 0; i < static_cast<int>(items.size()); ++i)
      if (i / RowsOf(items) == column)
        widest = std::max(widest, metrics.horizontalAdvance(Shown(items[static_cast<std::size_t>(i)]->label)));
  }
  return widest;
}

}  // namespace

frmWaste::frmWaste(Program& program, QWidget* parent) : QDialog(parent), program_(program) {
  const WasteTexts texts = OpenWasteFactors(program.folder.Files(), program.folder.Folder());
  setObjectName(QStringLiteral("frmWaste"));
  setWindowTitle(tr("Adjusting Norvale Formulas"));
  setProperty(kHelpPage, QStringLiteral("waste"));
  const int space = fontMetrics().height();

  auto* const instruction = new QLabel(
      tr("For any item, you can adjust plus or minus including ea and Lft. items. Each calculated items may require larger "
         "adjustment factor to change output amount.  In all cases a higher number calculates more material.  Zero in any field "
         "below means that industry standard waste factors are used to calculate waste. To zero out all material for an item the "
         "value below would have to be -100"),
      this);
  instruction->setObjectName(QStringLiteral("lblInstruction"));
  instruction->setProperty("role", QStringLiteral("quiet"));
  instruction->setWordWrap(true);

  auto* const panelButtons = MakePanelButtons();
  lbldisplay_ = new QLabel(this);
  lbldisplay_->setObjectName(QStringLiteral("lbldisplay"));
  MakeTitle(lbldisplay_);
  auto* const range = new QLabel(tr("Range Allowed:  -100 to 100"), this);
  range->setObjectName(QStringLiteral("Label2"));
  auto* const band = MakeBand(this);
  auto* const titles = new QHBoxLayout(band);
  titles->setContentsMargins(space, space / 2, space, space / 2);
  titles->addWidget(lbldisplay_, 1);
  titles->addWidget(range);

  panels_ = new QStackedWidget(this);
  for (const WastePanel& panel : kWastePanels) panels_->addWidget(MakePanel(panel));
  head_ = new ColumnHead(tr("Item                    Adjustment      Item                     Adjustment       Item             "
                            "       Adjustment"),
                         panels_);
  head_->setObjectName(QStringLiteral("lblHead"));
  head_->setProperty("role", QStringLiteral("quiet"));
  lblHint_ = new QLabel(this);
  lblHint_->setObjectName(QStringLiteral("lblHint"));
  lblHint_->setProperty("role", QStringLiteral("quiet"));

  auto* const whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->setSpacing(0);
  whole->addWidget(band);
  auto* const layout = new QVBoxLayout;
  layout->setContentsMargins(space, space, space, space);
  layout->setSpacing(space / 2);
  whole->addLayout(layout, 1);
  layout->addWidget(panelButtons);
  layout->addWidget(instruction);
  layout->addSpacing(space / 4);
  layout->addWidget(head_);
  layout->addWidget(panels_);
  layout->addStretch();
  layout->addWidget(lblHint_);
  layout->addLayout(MakeButtons());

  for (std::size_t item = 0; item < kWasteItems; ++item) txtWF_[item]->setText(Shown(texts[item]));
  for (const int direction : {-1, 1}) {
    auto* const key = new QShortcut(direction < 0 ? Qt::Key_PageUp : Qt::Key_PageDown, this);
    connect(key, &QShortcut::activated, this, [this, direction] { StepPanel(direction); });
  }
  // Only a control that has its style knows its size.
  for (QWidget* const control : findChildren<QWidget*>()) control->ensurePolished();
  const int width = std::max(kLeastWidth, sizeHint().width());
  resize(width, std::clamp(whole->totalHeightForWidth(width), kLeastHeight, kMostHeight));
  ShowPanel(0);
  panels_->currentWidget()->findChild<QLineEdit*>()->setFocus();
}

// --- Controls

QWidget* frmWaste::MakePanel(const WastePanel& panel) {
  auto* const page = new QWidget;
  page->setObjectName(Shown(panel.name));
  auto* const grid = new QGridLayout(page);
  const int space = fontMetrics().height();
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setVerticalSpacing(space / 4);
  grid->setHorizontalSpacing(space / 2);

  const std::vector<const WasteItem*> items = ItemsOf(panel);
  const int rows = RowsOf(items);
  for (int i = 0; i < static_cast<int>(items.size()); ++i) {
    const WasteItem& item = *items[static_cast<std::size_t>(i)];
    auto* const box = MakeBox(static_cast<std::size_t>(item.item), Shown(item.label), WithoutKey(panel.title));
    box->setProperty(
        kHint,
        tr("Item %1, delivered with %2   PAGE UP, PAGE DOWN=Panels   ALT+S=Store   F1=Help   ESC=Cancel").arg(item.item).arg(item.value));
    auto* const label = new QLabel(Shown(item.label), page);
    label->setTextFormat(Qt::PlainText);
    const int column = i / rows * kColumns;
    grid->addWidget(label, i % rows, column);
    grid->addWidget(box, i % rows, column + 1);
  }
  for (int column = 0; column < kColumns; ++column) {
    grid->setColumnMinimumWidth(column * kColumns, WidestLabel(column, fontMetrics()));
    grid->setColumnMinimumWidth(column * kColumns + 1, fontMetrics().horizontalAdvance(tr("Adjustment")));
    if (column < kColumns - 1) grid->setColumnStretch(column * kColumns + 2, 1);
  }
  grid->setRowStretch(rows, 1);
  return page;
}

QLineEdit* frmWaste::MakeBox(std::size_t item, const QString& label, const QString& panel) {
  auto* const box = new QLineEdit;
  box->setObjectName(InArray("txtWF", item));
  // Two items of the roof share a label.
  box->setAccessibleName(tr("%1, item %2, %3").arg(label).arg(item).arg(panel));
  box->setAlignment(Qt::AlignRight);
  box->setMaxLength(24);
  box->setMinimumWidth(fontMetrics().averageCharWidth() * 8);
  box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  box->installEventFilter(this);
  txtWF_[item] = box;
  return box;
}

QWidget* frmWaste::MakePanelButtons() {
  auto* const part = new QWidget(this);
  auto* const row = new QHBoxLayout(part);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(fontMetrics().height() / 2);
  panelButtons_ = new QButtonGroup(this);
  for (std::size_t i = 0; i < kWastePanels.size(); ++i) {
    auto* const button = MakeButton(kWastePanels[i].button.data(), Shown(kWastePanels[i].caption),
                                    QKeySequence(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + static_cast<int>(i))));
    button->setCheckable(true);
    button->setAccessibleName(WithoutKey(kWastePanels[i].caption));
    panelButtons_->addButton(button, static_cast<int>(i));
    row->addWidget(button);
  }
  row->addStretch();
  // A button's own least width is that of a short word.
  for (QAbstractButton* const button : panelButtons_->buttons()) button->ensurePolished();
  part->setMinimumWidth(row->sizeHint().width());
  connect(panelButtons_, &QButtonGroup::idClicked, this, &frmWaste::ShowPanel);
  return part;
}

QLayout* frmWaste::MakeButtons() {
  auto* const row = new QHBoxLayout;
  row->setSpacing(fontMetrics().height() / 2);
  auto* const restore = MakeButton("cmdrestore", tr("Restore Zero Defaults"), Qt::ALT | Qt::Key_R);
  auto* const store = MakeButton("cmdStore", tr("Store - Exit"), Qt::ALT | Qt::Key_S);
  auto* const cancel = MakeButton("Command1", tr("Cancel"), Qt::ALT | Qt::Key_C);
  connect(restore, &QPushButton::clicked, this, &frmWaste::Restore);
  connect(store, &QPushButton::clicked, this, &frmWaste::Store);
  connect(cancel, &QPushButton::clicked, this, &frmWaste::reject);
  row->addWidget(restore);
  row->addStretch();
  row->addWidget(store);
  row->addWidget(cancel);
  return row;
}

QPushButton* frmWaste::MakeButton(const char* name, const QString& caption, const QKeySequence& key) {
  auto* const button = new QPushButton(caption, this);
  button->setObjectName(QString::fromLatin1(name));
  button->setAccessibleName(caption);
  button->setShortcut(key);
  button->setAutoDefault(false);
  button->setToolTip(key.toString(QKeySequence::NativeText));
  return button;
}

// --- Events

bool frmWaste::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) lblHint_->setText(watched->property(kHint).toString());
  return QDialog::eventFilter(watched, event);
}

void frmWaste::ShowPanel(int index) {
  panels_->setCurrentIndex(index);
  panelButtons_->button(index)->setChecked(true);
  lbldisplay_->setText(WithoutKey(kWastePanels[static_cast<std::size_t>(index)].title));
  head_->update();
}

void frmWaste::StepPanel(int direction) {
  ShowPanel(std::clamp(panels_->currentIndex() + direction, 0, panels_->count() - 1));
  panels_->currentWidget()->findChild<QLineEdit*>()->setFocus(Qt::TabFocusReason);
}

void frmWaste::Restore() {
  for (QLineEdit* const box : txtWF_) box->setText(QStringLiteral("0"));
}

void frmWaste::Store() {
  WasteTexts texts;
  std::transform(txtWF_.begin(), txtWF_.end(), texts.begin(), [](const QLineEdit* box) { return Typed(box->text()); });
  std::vector<std::string> changes;
  const auto store = [&] { changes = StoreWasteFactors(program_.folder.Files(), program_.folder.Folder(), texts); };
  if (!Try(program_.messages, store)) return;
  if (!changes.empty()) {
    std::string told = "The factors are stored. What was not a whole number from -100 to 100 was made one:\n";
    for (const std::string& change : changes) told += "\n" + change;
    program_.messages.ShowMessage(Notice(told));
  }
  accept();
}

}  // namespace norvale
