#include "entry/frm_boxes.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QWheelEvent>
#include <algorithm>

#include "entry/number_entry.h"

namespace norvale {

namespace {

constexpr int kSearchPause = 1500;  // milliseconds after which a letter begins anew
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
  const bool isCommand = (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != Qt::NoModifier;
  const bool isCharacter = !isCommand && !typed.isEmpty() && typed.front().isPrint();
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
  // These turn the screens, not the rows.
  if (event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown) return event->ignore();
  const QString typed = event->text();
  const bool isPlain = (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier;
  // A blank opens the list, unless it stands within what is being typed.
  const bool begins = !typed.isEmpty() && (typed == QLatin1String(" ") ? IsSearching() : typed.front().isPrint());
  if (isPlain && begins) return SearchFor(typed);
  QComboBox::keyPressEvent(event);
}

bool ChoiceList::IsSearching() const { return sinceLetter_.isValid() && sinceLetter_.elapsed() < kSearchPause && !searched_.isEmpty(); }

void ChoiceList::SearchFor(const QString& letter) {
  const bool goesOn = IsSearching();
  if (!goesOn) searched_.clear();
  sinceLetter_.start();
  const auto find = [this](int from, const auto& matches) {
    for (int step = 0; step < count(); ++step)
      if (const int row = (from + step) % count(); matches(itemText(row))) return row;
    return -1;
  };
  const auto begins = [](const QString& part) { return [part](const QString& row) { return row.startsWith(part, Qt::CaseInsensitive); }; };
  const auto holds = [](const QString& part) { return [part](const QString& row) { return row.contains(part, Qt::CaseInsensitive); }; };
  // A longer text may be for the row that is chosen; a letter by itself, and the same one again, is for another.
  const QString longer = searched_ + letter;
  const int here = std::max(0, currentIndex());
  int row = find(goesOn ? here : here + 1, begins(longer));
  if (row < 0 && searched_ == letter) {
    row = find(here + 1, begins(letter));
  } else {
    searched_ = longer;
    if (row < 0) row = find(here, holds(longer));
  }
  if (row < 0 || row == currentIndex()) return;
  setCurrentIndex(row);
  emit activated(row);
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
