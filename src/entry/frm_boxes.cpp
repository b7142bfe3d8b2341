#include "entry/frm_boxes.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QWheelEvent>

#include "entry/number_entry.h"

namespace norvale {

namespace {

constexpr int kLongestNumber = 12;  // more than any measure has: what is too large is told and not cut off

// The focus comes back from another window, or from the box's own menu: nobody has gone to the box.
bool IsReturn(Qt::FocusReason reason) {
  return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason;
}

}  // namespace

NumberEdit::NumberEdit(QWidget* parent) : QLineEdit(parent) {
  setMaxLength(kLongestNumber);
  setAlignment(Qt::AlignRight);
  connect(this, &QLineEdit::textEdited, this, &NumberEdit::Edit);
}

void NumberEdit::Show(const QString& text) {
  if (this->text() == text) return;
  const bool wasWholeText = hasFocus() && (selectedText() == this->text());
  setText(text);
  if (wasWholeText) selectAll();
}

void NumberEdit::TakeFocusBack() {
  isTakingBack_ = true;
  setFocus(Qt::OtherFocusReason);
  isTakingBack_ = false;
  selectAll();
}

void NumberEdit::Edit() {
  // "1,200" is pasted from elsewhere; read as it stands it would be 1.
  if (QString whole = text(); whole.contains(QLatin1Char(','))) setText(whole.remove(QLatin1Char(',')));
  emit Changed();
}

void NumberEdit::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Undo)) {
    setText(before_);
    selectAll();
    emit Changed();
    return;
  }
  const QString typed = event->text();
  const bool isCharacter = !typed.isEmpty() && typed.front().isPrint();
  if (isCharacter && (typed.size() != 1 || typed.front().unicode() > 127 || !IsNumberKey(typed.front().unicode()))) return;
  QLineEdit::keyPressEvent(event);
}

void NumberEdit::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  // A window that is activated hands its focus to a box for the first time, too.
  if (IsReturn(event->reason()) && hasEntered_) return;
  hasEntered_ = true;
  if (!isTakingBack_) before_ = text();
  selectAll();
  // A mouse button places the cursor once the focus has come.
  if (event->reason() == Qt::MouseFocusReason) QMetaObject::invokeMethod(this, &QLineEdit::selectAll, Qt::QueuedConnection);
  emit Entered();
}

void NumberEdit::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  const Qt::FocusReason reason = event->reason();
  if (!IsReturn(reason)) hasEntered_ = false;
  const bool isKey = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
  if (!isKey && reason != Qt::MouseFocusReason && reason != Qt::ShortcutFocusReason) return;
  const QWidget* const now = QApplication::focusWidget();
  if (now == nullptr || now->window() != window()) return;
  const bool isBox = qobject_cast<const QLineEdit*>(now) != nullptr || qobject_cast<const QComboBox*>(now) != nullptr;
  if (isKey || isBox)
    QMetaObject::invokeMethod(this, &NumberEdit::LeftForBox, Qt::QueuedConnection);
  else
    emit LeftForButton();
}

ChoiceList::ChoiceList(QWidget* parent) : QComboBox(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setMaxVisibleItems(20);
}

void ChoiceList::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Undo)) return emit UndoAsked();
  QComboBox::keyPressEvent(event);
}

void ChoiceList::focusInEvent(QFocusEvent* event) {
  QComboBox::focusInEvent(event);
  if (IsReturn(event->reason()) && hasEntered_) return;
  hasEntered_ = true;
  emit Entered();
}

void ChoiceList::focusOutEvent(QFocusEvent* event) {
  QComboBox::focusOutEvent(event);
  if (!IsReturn(event->reason())) hasEntered_ = false;
}

void ChoiceList::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace norvale
