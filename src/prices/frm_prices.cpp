#include "prices/frm_prices.h"

#include <QApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <algorithm>

#include "base/text.h"
#include "desktop/frm_keys.h"
#include "desktop/frm_look.h"
#include "desktop/frm_text.h"
#include "prices/frm_price_entry.h"
#include "prices/frm_price_table.h"

namespace norvale {

namespace {

constexpr const char* kPrintQuestion =
    "3 This printout is over 60 pages long!!   Press OK to print, cancel to abort!|PRINT ITEM PRICING LIST";
constexpr const char* kCancelQuestion = "2 Cancel All Price File Changes and Exit ?|CANCEL PRICE EDIT";

constexpr std::size_t kOptionalTextFrom = kPriceLineWidth - kPriceOptionalWidth;
constexpr qsizetype kLinesNamed = 5;

// Shows "&&" as "&" and any other "&" as a line under the next letter, without making that letter a key of the form.
class KeyLabel : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    style()->drawItemText(&painter, contentsRect(), static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic), palette(),
                          isEnabled(), text(), QPalette::WindowText);
  }
};

QString FromFile(std::string_view text) { return Shown(ToUtf8(text)); }

std::string ForFile(const QLineEdit* box) { return FromUtf8(Typed(box->text())).value_or(std::string()); }

// Hidden, it leaves its place empty.
void KeepRoom(QWidget* control) {
  QSizePolicy policy = control->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  control->setSizePolicy(policy);
}

bool LeavesForGood(const QFocusEvent& event) {
  return event.reason() != Qt::ActiveWindowFocusReason && event.reason() != Qt::PopupFocusReason;
}

}  // namespace

frmPrices::frmPrices(Program& program, PrintPrices printPrices, QWidget* parent)
    : QDialog(parent), program_(program), printPrices_(std::move(printPrices)) {
  setObjectName(QStringLiteral("frmPrices"));
  setWindowTitle(tr("Maintain Item Pricing"));
  setProperty(kHelpPage, QStringLiteral("prices"));

  const int space = fontMetrics().height();
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(space * 3 / 2, space * 3 / 2, space * 3 / 2, space);
  lblDesc_ = new KeyLabel(this);
  lblDesc_->setObjectName(QStringLiteral("lblDesc"));
  lblDesc_->setTextFormat(Qt::PlainText);
  MakeTitle(lblDesc_);
  // The longest description must not make the form wider while one walks through the items.
  lblDesc_->setMinimumWidth(QFontMetrics(lblDesc_->font()).averageCharWidth() * (static_cast<int>(kPriceKeyWidth) + 3));
  lblCount_ = new QLabel(this);
  lblCount_->setObjectName(QStringLiteral("lblCount"));
  lblCount_->setProperty("role", QStringLiteral("quiet"));
  auto* const top = new QHBoxLayout;
  top->addWidget(lblDesc_, 1);
  top->addWidget(lblCount_, 0, Qt::AlignRight | Qt::AlignBottom);
  layout->addLayout(top);
  layout->addSpacing(space);

  auto* const grid = new QGridLayout;
  grid->setHorizontalSpacing(space);
  grid->setVerticalSpacing(space / 4);
  MakeBoxes(grid);
  layout->addLayout(grid);
  layout->addSpacing(space);
  lblWarning_ = new QLabel(this);
  lblWarning_->setObjectName(QStringLiteral("lblWarning"));
  lblWarning_->setWordWrap(true);
  lblWarning_->setTextFormat(Qt::PlainText);
  lblWarning_->setMinimumHeight(fontMetrics().lineSpacing() * 3);
  lblWarning_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  QPalette warning = lblWarning_->palette();
  warning.setColor(QPalette::WindowText, ColoursOfLook().warning);
  lblWarning_->setPalette(warning);
  layout->addWidget(lblWarning_, 1);
  layout->addSpacing(space / 2);
  auto* const row = new QHBoxLayout;
  row->setSpacing(space / 2);
  MakeButtons(row);
  layout->addLayout(row);

  // A window that is shown for the first time would otherwise be as narrow as two thirds of a small screen.
  resize(layout->sizeHint());

  Try(program.messages, [&] { form_ = OpenPriceForm(OpenPrices(program.folder.Folder())); });
  if (form_) ShowForm();
  txtInum_->setFocus();
}

QLineEdit* frmPrices::AddBox(const char* name, const QString& label, QGridLayout* grid, int row, int column, int span) {
  auto* const box = new QLineEdit(this);
  box->setObjectName(QString::fromLatin1(name));
  box->setAccessibleName(label);
  box->installEventFilter(this);
  auto* const caption = new QLabel(label, this);
  caption->setBuddy(box);
  grid->addWidget(caption, row, column, 1, span);
  grid->addWidget(box, row + 1, column, 1, span);
  return box;
}

void frmPrices::MakeBoxes(QGridLayout* grid) {
  const int space = fontMetrics().height();
  const int figure = fontMetrics().horizontalAdvance(QLatin1Char('0'));
  txtInum_ = AddBox("txtInum", tr("SKU / Item # / Product code"), grid, 0, 0, 2);
  MakeTextBox(txtInum_, PriceColumn::Sku, program_.messages);
  lblmsgfind_ = new QLabel(tr("Type in the SKU to find then press  <Enter> to locate."), this);
  lblmsgfind_->setObjectName(QStringLiteral("lblmsgfind"));
  grid->addWidget(lblmsgfind_, 2, 0, 1, 5);
  txtFindText_ = AddBox("txtFindText", tr("Or words of the description"), grid, 0, 2, 3);
  lblFindText_ = qobject_cast<QLabel*>(grid->itemAtPosition(0, 2)->widget());
  for (QWidget* const shownInSearch :
       {static_cast<QWidget*>(lblmsgfind_), static_cast<QWidget*>(lblFindText_), static_cast<QWidget*>(txtFindText_)}) {
    KeepRoom(shownInSearch);
    shownInSearch->hide();
  }
  grid->setRowMinimumHeight(3, space / 2);
  for (std::size_t level = 0; level < kPriceLevels; ++level) {
    const auto column = static_cast<int>(level);
    QLineEdit* const box = AddBox(qPrintable(InArray("txtprices", level)), Shown(CaptionOf(ColumnOfLevel(level))), grid, 4, column, 1);
    box->setMinimumWidth(figure * (static_cast<int>(kPriceWidth) + 2) + 16);
    box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);  // five of the usual width are too wide for a small screen
    MakePriceBox(box);
    txtprices_[level] = box;
    grid->setColumnStretch(column, 1);
  }
  grid->setRowMinimumHeight(6, space / 2);
  txtdescnew_ = AddBox("txtdescnew", tr("Optional description to print out on material estimate"), grid, 7, 0, 3);
  MakeTextBox(txtdescnew_, PriceColumn::OptionalText, program_.messages);
}

QPushButton* frmPrices::AddButton(const char* name, const QString& caption, QHBoxLayout* row, void (frmPrices::*press)()) {
  auto* const button = new QPushButton(caption, this);
  button->setObjectName(QString::fromLatin1(name));
  button->setAccessibleName(QString(caption).remove(QLatin1Char('&')).remove(QLatin1Char('<')).remove(QLatin1Char('>')).trimmed());
  button->setAutoDefault(false);
  KeepRoom(button);
  connect(button, &QPushButton::clicked, this, press);
  row->addWidget(button);
  buttons_.push_back(button);
  return button;
}

void frmPrices::MakeButtons(QHBoxLayout* row) {
  QPushButton* const cmdPREV = AddButton("cmdPREV", tr("<< &Prev"), row, &frmPrices::Previous);
  cmdNEXT_ = AddButton("cmdNEXT", tr("&Next  >>"), row, &frmPrices::Next);
  QPushButton* const cmdFind = AddButton("cmdFind", tr("&Find"), row, &frmPrices::Find);
  AddButton("cmdTable", tr("&All Items"), row, &frmPrices::OpenTable);
  AddButton("cmdprint", tr("&Print"), row, &frmPrices::Print);
  row->addStretch();
  row->addSpacing(fontMetrics().height());
  AddButton("cmdSave", tr("&Save / Exit"), row, &frmPrices::Save);
  cmdCANCEL_ = AddButton("cmdCANCEL", tr("&Cancel"), row, &frmPrices::Cancel);
  // Behind the last box comes the next item.
  setTabOrder(txtdescnew_, cmdNEXT_);
  setTabOrder(cmdNEXT_, cmdPREV);
  setTabOrder(cmdPREV, cmdFind);
}

int frmPrices::exec() { return form_ ? QDialog::exec() : static_cast<int>(Rejected); }

void frmPrices::reject() {
  if (form_ && form_->PriceFindMode)
    GiveUpFind();
  else
    Cancel();
}

void frmPrices::keyPressEvent(QKeyEvent* event) {
  const bool walks = form_ && !form_->IsEmpty() && !form_->PriceFindMode && event->modifiers() == Qt::NoModifier;
  if (walks && event->key() == Qt::Key_PageDown) return Next();
  if (walks && event->key() == Qt::Key_PageUp) return Previous();
  QDialog::keyPressEvent(event);
}

bool frmPrices::eventFilter(QObject* watched, QEvent* event) {
  if (!form_) return QDialog::eventFilter(watched, event);
  if (event->type() == QEvent::KeyPress && form_->PriceFindMode) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return QDialog::eventFilter(watched, event);
    if (watched == txtInum_) FindTypedSku();
    if (watched == txtFindText_) FindTypedDescription();
    return true;
  }
  if (event->type() == QEvent::FocusOut && LeavesForGood(*static_cast<QFocusEvent*>(event))) {
    const auto at = std::find(txtprices_.begin(), txtprices_.end(), watched);
    if (at != txtprices_.end()) LeavePrice(static_cast<std::size_t>(at - txtprices_.begin()));
    // An SKU that is typed is looked for wherever the focus goes. After this event, when it has arrived.
    const bool isTyped = !txtInum_->text().trimmed().isEmpty();
    if (watched == txtInum_ && form_->PriceFindMode && (isTyped || QApplication::focusWidget() != txtFindText_))
      QMetaObject::invokeMethod(
          this,
          [this] {
            if (form_->PriceFindMode) FindTypedSku();
          },
          Qt::QueuedConnection);
  }
  return QDialog::eventFilter(watched, event);
}

void frmPrices::LeavePrice(std::size_t level) {
  const std::string price = FormatPrice(Typed(txtprices_[level]->text()));
  if (FitsPriceFile(price)) {
    txtprices_[level]->setText(Shown(price));
    return;
  }
  form_->boxes.prices[level] = price;
  // A button tells it by itself. After this event: a message must not open while the focus is on its way.
  if (BoxTooLong(*form_) == level && qobject_cast<QLineEdit*>(QApplication::focusWidget()) != nullptr)
    QMetaObject::invokeMethod(
        this,
        [this, level] {
          if (!FitsPriceFile(FormatPrice(Typed(txtprices_[level]->text())))) RefusePrice(level);
        },
        Qt::QueuedConnection);
}

void frmPrices::RefusePrice(std::size_t level) {
  program_.messages.ShowMessage(Notice(PriceTooLong(FormatPrice(Typed(txtprices_[level]->text())))));
  txtprices_[level]->setFocus();
  txtprices_[level]->selectAll();
}

bool frmPrices::TakeScreen() {
  form_->boxes.sku = ForFile(txtInum_);
  for (std::size_t level = 0; level < kPriceLevels; ++level) form_->boxes.prices[level] = Typed(txtprices_[level]->text());
  form_->boxes.optionalText = ForFile(txtdescnew_);
  const auto tooLong = BoxTooLong(*form_);
  if (tooLong) RefusePrice(*tooLong);
  return !tooLong;
}

void frmPrices::Next() {
  if (!TakeScreen()) return;
  ShowNext(*form_);
  ShowForm();
}

void frmPrices::Previous() {
  if (!TakeScreen()) return;
  ShowPrevious(*form_);
  ShowForm();
}

void frmPrices::Find() {
  if (!TakeScreen()) return;
  BeginFind(*form_);
  ShowForm();
}

void frmPrices::FindTypedSku() {
  const bool found = FindSku(*form_, ForFile(txtInum_));
  ShowForm();
  if (found) txtprices_.front()->setFocus(Qt::TabFocusReason);
}

void frmPrices::FindTypedDescription() {
  const QString words = txtFindText_->text();
  const bool found = FindDescription(*form_, ForFile(txtFindText_));
  ShowForm();
  if (found) txtprices_.front()->setFocus(Qt::TabFocusReason);
  if (!found && !words.trimmed().isEmpty()) lblWarning_->setText(tr("No description holds “%1”.").arg(words.trimmed()));
}

void frmPrices::GiveUpFind() {
  FindSku(*form_, {});
  ShowForm();
}

void frmPrices::Print() {
  if (!TakeScreen()) return;
  if (program_.messages.ShowMessage(kPrintQuestion) != Answer::Ok) return;
  Try(program_.messages, [&] { printPrices_(ListOnScreen(*form_), this); });
}

void frmPrices::OpenTable() {
  if (!TakeScreen()) return;
  StoreScreen(*form_, Blanks::Trim);
  frmPriceTable table(program_, form_->editor, history_, form_->CurrentPriceItem, this);
  table.exec();
  form_->CurrentPriceItem = table.CurrentItem();
  ShowCurrentItem(*form_);
  ShowForm();
}

void frmPrices::Save() {
  if (!TakeScreen()) return;
  StoreScreen(*form_, Blanks::Trim);
  if (Try(program_.messages, [&] { SavePrices(program_.folder.Files(), program_.folder.Folder(), form_->editor); })) accept();
}

void frmPrices::Cancel() {
  if (program_.messages.ShowMessage(kCancelQuestion) == Answer::Yes) QDialog::reject();
}

void frmPrices::ShowForm() {
  const QString label = FromFile(DescriptionLabel(*form_));
  const std::size_t items = form_->editor.Items().size();
  lblDesc_->setText(label);
  lblDesc_->setAccessibleName(form_->IsEmpty() ? tr("No item") : FromFile(form_->editor.Items()[form_->CurrentPriceItem].PriceItemKey));
  lblCount_->setText(form_->IsEmpty() ? tr("The price list is empty.") : tr("Item %1 of %2").arg(form_->CurrentPriceItem + 1).arg(items));
  txtInum_->setText(FromFile(form_->boxes.sku));
  for (std::size_t level = 0; level < kPriceLevels; ++level) txtprices_[level]->setText(Shown(form_->boxes.prices[level]));
  txtdescnew_->setText(FromFile(form_->boxes.optionalText));
  lblWarning_->setText(WarningText());
  ShowFindMode();
  // What has the focus shows its text selected, ready to be typed over.
  if (auto* const box = qobject_cast<QLineEdit*>(QApplication::focusWidget()); box != nullptr && box->window() == this) box->selectAll();
}

void frmPrices::ShowFindMode() {
  const bool finds = form_->PriceFindMode;
  const bool wasFinding = lblmsgfind_->isVisibleTo(this);
  const bool hasItems = !form_->IsEmpty();
  txtInum_->setEnabled(hasItems);
  // The focus first: a control that is shut or hidden while it has the focus would hand it on to anything.
  if (finds || wasFinding) txtInum_->setFocus(Qt::OtherFocusReason);
  for (QLineEdit* const box : txtprices_) box->setEnabled(hasItems && !finds);
  txtdescnew_->setEnabled(hasItems && !finds);
  for (QPushButton* const button : buttons_) {
    button->setVisible(!finds);
    button->setEnabled(hasItems || button == cmdCANCEL_);
  }
  if (!hasItems) cmdCANCEL_->setFocus(Qt::OtherFocusReason);
  if (finds != wasFinding) txtFindText_->clear();
  for (QWidget* const shownInSearch :
       {static_cast<QWidget*>(lblmsgfind_), static_cast<QWidget*>(lblFindText_), static_cast<QWidget*>(txtFindText_)})
    shownInSearch->setVisible(finds);
  txtInum_->setProperty(kTakesEnter, finds);
  txtFindText_->setProperty(kTakesEnter, true);
}

QString frmPrices::WarningText() const {
  if (form_->IsEmpty()) return {};
  if (const auto odd = form_->editor.OddLineOf(form_->CurrentPriceItem)) {
    const QString how =
        odd->width <= kOptionalTextFrom
            ? tr("The line of this item in the price file ends after %1 of its 130 characters. Estimates print the end of it, "
                 "“%2”, as the optional description. ")
            : tr("The line of this item in the price file has %1 characters instead of 130. Its last 25, “%2”, are taken for "
                 "the optional description: check it. ");
    return how.arg(odd->width).arg(FromFile(odd->printedText)) +
           tr("When you go on or save, the line is written in full, as you see the item here.");
  }
  QStringList odd;
  for (std::size_t i = 0; i < form_->editor.Items().size(); ++i)
    if (form_->editor.OddLineOf(i)) odd.append(QString::number(i + 1));
  if (odd.isEmpty()) return {};
  const qsizetype more = odd.size() - kLinesNamed;
  QString lines = odd.mid(0, kLinesNamed).join(QStringLiteral(", "));
  if (more > 0) lines += tr(" and %1 more").arg(more);
  return tr("Not 130 characters long in the price file: the lines of items %1. Estimates print the last 25 characters of such a line as "
            "the "
            "optional description. Lines stay as they are unless you show their items here.")
      .arg(lines);
}

}  // namespace norvale
