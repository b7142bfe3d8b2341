#include "shell/frm_address.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>
#include <algorithm>

#include "base/text.h"
#include "desktop/frm_keys.h"
#include "desktop/frm_text.h"

namespace norvale {

namespace {

// Where each box stands: boxes of one row share the line.
struct Place {
  int row;
  int column;  // of the label; the box is in the next one
  int span;    // columns of the box
};
constexpr std::array<Place, kCustomerBoxes> kPlaces = {{
    {0, 0, 1},  // number
    {1, 0, 5},  // name
    {2, 0, 5},  // address
    {3, 0, 5},
    {4, 0, 1},  // city
    {4, 2, 1},  // state
    {4, 4, 1},  // zip
    {5, 0, 5},  // contact
    {6, 0, 1},  // telephone
    {6, 2, 3},  // fax
    {7, 0, 5},  // notes
    {8, 0, 5},
}};

}  // namespace

frmAddress::frmAddress(Program& program, CustomerFormMode mode, QWidget* parent)
    : QDialog(parent), program_(program), form_(OpenCustomerForm(program, mode)) {
  setObjectName(QStringLiteral("frmAddress"));
  setWindowTitle(Shown(TitleOf(mode)));
  setProperty(kHelpPage, mode == CustomerFormMode::Company ? QStringLiteral("company") : QStringLiteral("customers"));

  auto* const grid = new QGridLayout;
  const int space = fontMetrics().height();
  grid->setHorizontalSpacing(space);
  grid->setVerticalSpacing(space / 2);
  MakeBoxes(grid);
  lblHint_ = new QLabel(this);
  lblHint_->setObjectName(QStringLiteral("lblHint"));
  lblHint_->setProperty("role", QStringLiteral("quiet"));
  lblHint_->setMinimumHeight(fontMetrics().height());
  auto* const row = new QHBoxLayout;
  row->setSpacing(space / 2);
  MakeButtons(row);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(space * 3 / 2, space * 3 / 2, space * 3 / 2, space);
  layout->addLayout(grid);
  layout->addStretch();
  layout->addSpacing(space / 2);
  layout->addWidget(lblHint_);
  layout->addSpacing(space / 2);
  layout->addLayout(row);
  ShowForm();
}

void frmAddress::MakeBoxes(QGridLayout* grid) {
  for (std::size_t i = 0; i < kCustomerBoxes; ++i) {
    const CustomerBoxInfo& info = InfoOf(static_cast<CustomerBox>(i));
    auto* const box = new QLineEdit(this);
    box->setObjectName(InArray("txtAddress", i));
    box->setAccessibleName(Shown(info.label));
    box->setMaxLength(static_cast<int>(info.width));
    const int wide = std::min<int>(static_cast<int>(info.width), 36) + 3;
    box->setMinimumWidth(fontMetrics().averageCharWidth() * wide);
    box->installEventFilter(this);
    connect(box, &QLineEdit::textEdited, this, [this, i] { RefuseCharacters(i); });
    auto* const label = new QLabel(Shown(info.label), this);
    label->setObjectName(InArray("lbladdress", i));
    label->setBuddy(box);
    const Place& place = kPlaces[i];
    grid->addWidget(label, place.row, place.column, Qt::AlignLeft | Qt::AlignVCenter);
    grid->addWidget(box, place.row, place.column + 1, 1, place.span);
    lbladdress_[i] = label;
    txtAddress_[i] = box;
  }
  QLineEdit* const number = txtAddress_.front();
  number->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), number));
  number->setMaximumWidth(number->minimumWidth() * 2);
  const bool isCompany = form_.mode == CustomerFormMode::Company;
  number->setVisible(!isCompany);
  lbladdress_.front()->setVisible(!isCompany);
  grid->setColumnStretch(1, 3);
  grid->setColumnStretch(5, 1);
}

void frmAddress::MakeButtons(QHBoxLayout* row) {
  for (std::size_t i = 0; i < kCustomerButtons; ++i) {
    const auto which = static_cast<CustomerButton>(i);
    auto* const button = new QPushButton(this);
    button->setObjectName(InArray("cmdAddress", i));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, which] { Press(which); });
    if (which == CustomerButton::Ok) {
      row->addStretch();
      row->addSpacing(fontMetrics().height());
    }
    row->addWidget(button);
    // The company is one record: there is nothing to step to, to add or to delete.
    button->setVisible(form_.mode != CustomerFormMode::Company || which == CustomerButton::Ok || which == CustomerButton::Cancel);
    cmdAddress_[i] = button;
  }
}

int frmAddress::exec() { return form_.isOpen ? QDialog::exec() : static_cast<int>(Rejected); }

void frmAddress::reject() { Press(CustomerButton::Cancel); }

void frmAddress::closeEvent(QCloseEvent* event) {
  CloseCustomerForm(program_, form_);
  event->accept();
  QDialog::reject();
}

bool frmAddress::eventFilter(QObject* watched, QEvent* event) {
  const auto at = std::find(txtAddress_.begin(), txtAddress_.end(), watched);
  if (at == txtAddress_.end() || !form_.isLookingUp) return QDialog::eventFilter(watched, event);
  const auto box = static_cast<CustomerBox>(at - txtAddress_.begin());
  const bool isEmpty = (*at)->text().trimmed().isEmpty();
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    if (isEmpty && box == CustomerBox::Number)
      txtAddress_[static_cast<std::size_t>(CustomerBox::Name)]->setFocus(Qt::TabFocusReason);
    else
      LookUpIn(box);
    return true;
  }
  if (event->type() == QEvent::FocusOut) {
    const auto& left = *static_cast<QFocusEvent*>(event);
    QWidget* const now = QApplication::focusWidget();
    const bool staysInForm = now != nullptr && now->window() == this;
    const bool isCancelling = now == cmdAddress_[static_cast<std::size_t>(CustomerButton::Cancel)] && left.reason() == Qt::MouseFocusReason;
    const bool isOtherBox = now == txtAddress_[0] || now == txtAddress_[1];
    // After this event: a message must not open while the focus is on its way.
    if (staysInForm && !isCancelling && !(isEmpty && isOtherBox))
      QMetaObject::invokeMethod(
          this, [this, box] { LookUpIn(box); }, Qt::QueuedConnection);
  }
  return QDialog::eventFilter(watched, event);
}

void frmAddress::Press(CustomerButton button) {
  TakeBoxes();
  PressButton(program_, form_, button);
  ShowForm();
  EndIfClosed();
}

void frmAddress::LookUpIn(CustomerBox box) {
  if (!form_.isLookingUp) return;
  TakeBoxes();
  LookUp(program_, form_, box);
  ShowForm();
}

void frmAddress::RefuseCharacters(std::size_t box) {
  const QString text = txtAddress_[box]->text();
  if (FromUtf8(Typed(text))) {
    kept_[box] = text;
    return;
  }
  const int cursor = txtAddress_[box]->cursorPosition();
  txtAddress_[box]->setText(kept_[box]);
  txtAddress_[box]->setCursorPosition(std::max(0, cursor - static_cast<int>(text.size() - kept_[box].size())));
  program_.messages.ShowMessage(Notice("The customer file cannot hold that character. Type it another way."));
  txtAddress_[box]->setFocus();
}

void frmAddress::TakeBoxes() {
  for (std::size_t i = 0; i < kCustomerBoxes; ++i) form_.boxes[i] = Typed(txtAddress_[i]->text());
}

void frmAddress::ShowForm() {
  for (std::size_t i = 0; i < kCustomerBoxes; ++i) {
    kept_[i] = Shown(form_.boxes[i]);
    if (txtAddress_[i]->text() != kept_[i]) txtAddress_[i]->setText(kept_[i]);
    const bool isEnabled = IsEnabled(form_, static_cast<CustomerBox>(i));
    txtAddress_[i]->setEnabled(isEnabled);
    txtAddress_[i]->setProperty(kTakesEnter, form_.isLookingUp);
    lbladdress_[i]->setEnabled(isEnabled);
  }
  for (std::size_t i = 0; i < kCustomerButtons; ++i) {
    const auto button = static_cast<CustomerButton>(i);
    const QString caption = Shown(CaptionOf(program_.session, button));
    cmdAddress_[i]->setText(caption);
    cmdAddress_[i]->setAccessibleName(QString(caption).remove(QLatin1Char('&')));
  }
  // The focus first: a button that is shut while it has the focus would hand it on to anything.
  QLineEdit* const focus = txtAddress_[static_cast<std::size_t>(form_.focus)];
  if (focus->isEnabled())
    focus->setFocus(Qt::OtherFocusReason);
  else
    cmdAddress_[static_cast<std::size_t>(CustomerButton::Add)]->setFocus(Qt::OtherFocusReason);
  for (std::size_t i = 0; i < kCustomerButtons; ++i) cmdAddress_[i]->setEnabled(IsEnabled(form_, static_cast<CustomerButton>(i)));
  lblHint_->setText(Shown(HintOf(program_.session, form_)));
}

void frmAddress::EndIfClosed() {
  if (form_.isOpen) return;
  done(form_.isAccepted ? Accepted : Rejected);
}

}  // namespace norvale
