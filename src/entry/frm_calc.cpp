#include "entry/frm_calc.h"

#include <QApplication>
#include <QFrame>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <QValidator>

#include "desktop/frm_keys.h"
#include "desktop/frm_look.h"
#include "desktop/frm_text.h"

namespace norvale {

namespace {

constexpr int kBackspace = 8;
constexpr int kEnter = 13;
constexpr int kEscape = 27;
constexpr int kDelete = 127;
constexpr int kCarryBack = -2;
constexpr int kNoKey = -1;

// The sign that the locale writes in a number, as far as the readout knows it.
char DecimalSign() { return QLocale().decimalPoint() == QLatin1String(",") ? ',' : '.'; }

// The key by its character.
int KeyOf(const QKeyEvent& event) {
  const bool isShift = (event.modifiers() & ~Qt::KeypadModifier) == Qt::ShiftModifier;
  if (event.key() == Qt::Key_Insert && isShift) return kCarryBack;
  switch (event.key()) {
    case Qt::Key_Backspace:
      return kBackspace;
    case Qt::Key_Delete:
      return kDelete;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return kEnter;
    case Qt::Key_Escape:
      return kEscape;
    default:
      break;
  }
  if ((event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0) return kNoKey;
  const QString text = event.text();
  return text.size() == 1 && text.front().unicode() < kDelete ? text.front().unicode() : kNoKey;
}

bool IsTaken(const QLineEdit& box, QString text) {
  int cursor = static_cast<int>(text.size());
  if (cursor > box.maxLength()) return false;
  return box.validator() == nullptr || box.validator()->validate(text, cursor) != QValidator::Invalid;
}

// The number as the box takes it: with fewer decimals where it must, but at least two. Empty: not at all.
QString Taken(const QLineEdit& box, const QString& number) {
  if (IsTaken(box, number)) return number;
  constexpr int kLeastDecimals = 2;
  const auto point = number.indexOf(QLatin1Char('.'));
  if (point < 0) return {};
  for (auto decimals = static_cast<int>(number.size() - point) - 2; decimals >= kLeastDecimals; --decimals)
    if (const QString text = QString::number(number.toDouble(), 'f', decimals); IsTaken(box, text)) return text;
  return {};
}

std::string RefusalOf(const QString& number) { return Notice("The box cannot take the number " + Typed(number) + "."); }

CalculatorTarget TargetOf(QWidget* control) {
  CalculatorTarget target;
  for (QWidget* at = control; at != nullptr; at = at->parentWidget()) {
    auto* const table = qobject_cast<QAbstractItemView*>(at);
    if (table == nullptr) continue;
    target.table = table;
    if (table->editTriggers() != QAbstractItemView::NoEditTriggers) target.cell = table->currentIndex();
    return target;
  }
  target.box = qobject_cast<QLineEdit*>(control);
  // Other boxes have the one that is typed into inside.
  if (target.box == nullptr) target.box = control->findChild<QLineEdit*>(QString(), Qt::FindDirectChildrenOnly);
  return target;
}

QString NameOf(const CalculatorTarget& target) {
  if (!target.CanTake()) return frmCalc::tr("No box takes the number");
  const QString name = target.box != nullptr ? target.box->accessibleName() : target.table->accessibleName();
  return name.isEmpty() ? frmCalc::tr("For the box") : frmCalc::tr("For %1").arg(name);
}

// The box of the target, with the focus; a cell is opened for it.
QLineEdit* OpenBox(const CalculatorTarget& target) {
  if (!target.CanTake()) return nullptr;
  if (target.box != nullptr) {
    target.box->setFocus(Qt::OtherFocusReason);
    return target.box;
  }
  target.table->setCurrentIndex(target.cell);
  target.table->edit(target.cell);
  // The window may not be active yet.
  return qobject_cast<QLineEdit*>(target.table->window()->focusWidget());
}

// Beside the control where the screen has room for it; else at the foot of the screen.
QPoint PlaceBeside(const QRect& control, const QSize& size, const QRect& screen) {
  const int gap = size.height() / 16;
  const auto across = [&](int x) { return std::clamp(x, screen.left(), std::max(screen.left(), screen.right() - size.width())); };
  const auto down = [&](int y) { return std::clamp(y, screen.top(), std::max(screen.top(), screen.bottom() - size.height())); };
  for (const QPoint& place : {QPoint(control.right() + gap, down(control.top())), QPoint(across(control.left()), control.bottom() + gap),
                              QPoint(across(control.left()), control.top() - gap - size.height()),
                              QPoint(control.left() - gap - size.width(), down(control.top()))})
    if (screen.contains(QRect(place, size))) return place;
  return {across(control.left()), down(screen.bottom())};
}

}  // namespace

bool CalculatorTarget::CanTake() const {
  if (box != nullptr) return box->isEnabled() && !box->isReadOnly();
  return table != nullptr && cell.isValid() && (cell.flags() & Qt::ItemIsEditable) != 0;
}

frmCalc::frmCalc(Messages& messages, CalculatorTarget target, const QString& hint, QWidget* parent)
    : QDialog(parent), messages_(messages), target_(std::move(target)), calculator_{.decimalSign = DecimalSign()} {
  setObjectName(QStringLiteral("frmCalc"));
  setWindowTitle(tr("Norvale Calculator"));
  setProperty(kHelpPage, QStringLiteral("calculator"));
  auto* const lblField = new QLabel(this);
  lblField->setObjectName(QStringLiteral("lblField"));
  lblField->setProperty("role", QStringLiteral("quiet"));
  lblField->setText(NameOf(target_));
  auto* const lblHint = new QLabel(this);
  lblHint->setTextFormat(Qt::PlainText);
  lblHint->setText(hint.trimmed());
  lblHint->setObjectName(QStringLiteral("lblHint"));
  lblHint->setProperty("role", QStringLiteral("quiet"));
  lblHint->setWordWrap(true);
  const int space = fontMetrics().height();
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(space, space, space, space);
  layout->setSpacing(space / 2);
  layout->addWidget(MakeReadout());
  layout->addWidget(lblField);
  layout->addWidget(MakeKeys(), 1);
  layout->addWidget(lblHint);
  pctKeyTrap_->setFocus(Qt::OtherFocusReason);
}

QWidget* frmCalc::MakeReadout() {
  auto* const trap = new QFrame(this);
  trap->setObjectName(QStringLiteral("pctKeyTrap"));
  trap->setAccessibleName(tr("Calculator"));
  trap->setFocusPolicy(Qt::StrongFocus);
  trap->setProperty("role", QStringLiteral("readout"));
  lblReadout_ = new QLabel(trap);
  lblReadout_->setObjectName(QStringLiteral("lblReadout"));
  MakeTitle(lblReadout_);
  lblReadout_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  lblReadout_->setTextFormat(Qt::PlainText);
  lblReadout_->setText(Shown(calculator_.readout));
  lblReadout_->setMinimumWidth(QFontMetrics(lblReadout_->font()).horizontalAdvance(QStringLiteral("-0.0000000000000000")));
  auto* const layout = new QVBoxLayout(trap);
  layout->addWidget(lblReadout_);
  pctKeyTrap_ = trap;
  return trap;
}

QPushButton* frmCalc::MakeKey(const QString& name, const QString& caption, const QString& spoken, int key) {
  auto* const button = new QPushButton(caption, this);
  button->setObjectName(name);
  button->setAccessibleName(spoken);
  button->setAutoDefault(false);
  button->setProperty("role", QStringLiteral("key"));
  // The keyboard stays with the readout: Enter is "=", whatever was clicked last.
  button->setFocusPolicy(Qt::NoFocus);
  button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  button->setMinimumSize(fontMetrics().height() * 3, fontMetrics().height() * 2);
  connect(button, &QPushButton::clicked, this, [this, key] { Press(key); });
  return button;
}

QWidget* frmCalc::MakeKeys() {
  struct Key {
    QString name;
    QString caption;
    QString spoken;
    int key;
    int row;
    int column;
  };
  const QString sign(QLatin1Char(calculator_.decimalSign));
  const Key keys[] = {{QStringLiteral("cmdCancelEntry"), tr("CE"), tr("Cancel entry"), kBackspace, 0, 0},
                      {QStringLiteral("cmdCANCEL"), tr("C"), tr("Cancel"), kDelete, 0, 1},
                      {QStringLiteral("cmdPercent"), QStringLiteral("%"), tr("Percent"), '%', 0, 2},
                      {InArray("cmdOperate", 3), QStringLiteral("/"), tr("Divided by"), '/', 0, 3},
                      {InArray("cmdOperate", 2), QStringLiteral("*"), tr("Times"), '*', 1, 3},
                      {InArray("cmdOperate", 1), QStringLiteral("-"), tr("Minus"), '-', 2, 3},
                      {InArray("cmdOperate", 0), QStringLiteral("+"), tr("Plus"), '+', 3, 3},
                      {QStringLiteral("cmdDecimal"), sign, tr("Decimal sign"), '.', 4, 1},
                      {InArray("cmdOperate", 4), QStringLiteral("="), tr("Equals"), '=', 4, 2}};
  auto* const box = new QWidget(this);
  auto* const grid = new QGridLayout(box);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(fontMetrics().height() / 3);
  for (int digit = 0; digit <= 9; ++digit) {
    const QString caption = QString::number(digit);
    const int row = digit == 0 ? 4 : 3 - (digit - 1) / 3;
    grid->addWidget(MakeKey(InArray("cmdNumbr", static_cast<std::size_t>(digit)), caption, caption, '0' + digit), row,
                    digit == 0 ? 0 : (digit - 1) % 3);
  }
  for (const Key& key : keys)
    grid->addWidget(MakeKey(key.name, key.caption, key.spoken, key.key), key.row, key.column, 1, key.key == '=' ? 2 : 1);
  grid->addWidget(MakeKey(QStringLiteral("cmdInsert"), tr("Insert"), tr("Insert the number into the box"), kCarryBack), 5, 0, 1, 2);
  grid->addWidget(MakeKey(QStringLiteral("cmdleave"), tr("Exit"), tr("Exit"), kEscape), 5, 2, 1, 2);
  return box;
}

void frmCalc::Press(int key) {
  if (key == kCarryBack) return CarryBack();
  const CalcKey pressed = PressKey(calculator_, key);
  lblReadout_->setText(Shown(calculator_.readout));
  pctKeyTrap_->setAccessibleDescription(lblReadout_->text());
  if (!pressed.message.empty()) messages_.ShowMessage(WithTitle(pressed.message));
  if (pressed.leaves) reject();
}

void frmCalc::CarryBack() {
  if (!target_.CanTake()) {
    messages_.ShowMessage(Notice("There is no box to take the number. Go to a box, then open the calculator with ALT+F2."));
    return;
  }
  carried_ = Shown(CarriedText(calculator_));
  if (target_.box != nullptr && Taken(*target_.box, carried_).isEmpty())
    messages_.ShowMessage(RefusalOf(carried_));
  else
    accept();
}

void frmCalc::keyPressEvent(QKeyEvent* event) { Press(KeyOf(*event)); }

void OpenCalculator(Messages& messages, QWidget* control, const QString& hint, CalculatorPlace& place) {
  if (qobject_cast<frmCalc*>(control->window()) != nullptr) return;
  // An open list would stay above the calculator.
  while (QWidget* const popup = QApplication::activePopupWidget()) {
    if (popup->parentWidget() != nullptr) control = popup->parentWidget();
    if (!popup->close()) break;
  }
  const CalculatorTarget target = TargetOf(control);
  frmCalc calculator(messages, target, hint, control->window());
  const QRect box(control->mapToGlobal(QPoint()), control->size());
  const QRect screen = control->screen()->availableGeometry();
  calculator.resize(place.frame ? place.frame->size() : calculator.sizeHint());
  const bool isFree = place.frame && screen.contains(*place.frame) && !place.frame->intersects(box);
  calculator.move(isFree ? place.frame->topLeft() : PlaceBeside(box, calculator.size(), screen));
  const bool isCarried = calculator.exec() == QDialog::Accepted;
  place.frame = QRect(calculator.pos(), calculator.size());
  if (!isCarried) return;
  QLineEdit* const field = OpenBox(target);
  if (field == nullptr) return;
  const QString text = Taken(*field, calculator.CarriedNumber());
  if (text.isEmpty()) {
    messages.ShowMessage(RefusalOf(calculator.CarriedNumber()));
    return;
  }
  // As typing does it, so that the form sees an entry.
  field->selectAll();
  field->insert(text);
}

}  // namespace norvale
