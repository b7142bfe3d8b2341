#include "desktop/frm_keys.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRadioButton>
#include <QShortcutEvent>
#include <QTimer>
#include <QVariant>
#include <chrono>

#include "desktop/frm_help.h"

namespace norvale {

namespace {

bool IsEnter(const QKeyEvent& key) {
  const bool isPlain = (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  return isPlain && (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter);
}

bool MovesOnWithEnter(const QWidget* control) {
  return qobject_cast<const QLineEdit*>(control) != nullptr || qobject_cast<const QComboBox*>(control) != nullptr ||
         qobject_cast<const QAbstractSpinBox*>(control) != nullptr || qobject_cast<const QCheckBox*>(control) != nullptr ||
         qobject_cast<const QRadioButton*>(control) != nullptr;
}

// The control after `from` in the tab order of its window.
void MoveOn(QWidget* from) {
  for (QWidget* next = from->nextInFocusChain(); next != nullptr && next != from; next = next->nextInFocusChain()) {
    if (next->window() != from->window() || !next->isEnabled() || !next->isVisible()) continue;
    if ((next->focusPolicy() & Qt::TabFocus) == 0 || next->focusProxy() != nullptr) continue;
    next->setFocus(Qt::TabFocusReason);
    return;
  }
}

// Where forms close one behind the other, a window manager may give the focus to nobody: the operator would type into nothing.
void KeepFocus() {
  QWidget* const front = QApplication::activeModalWidget();
  if (front != nullptr && front->isVisible() && QGuiApplication::focusWindow() == nullptr) front->activateWindow();
}

// Long enough for a window manager to have done its part.
constexpr std::chrono::milliseconds kFocusChecks[] = {std::chrono::milliseconds(100), std::chrono::milliseconds(400)};

}  // namespace

FormKeys::FormKeys(QObject* parent) : QObject(parent) { qApp->installEventFilter(this); }

bool FormKeys::eventFilter(QObject* watched, QEvent* event) {
  if (!watched->isWidgetType()) return false;
  const bool isShownOrGone = event->type() == QEvent::Show || event->type() == QEvent::Hide;
  if (isShownOrGone && qobject_cast<QDialog*>(watched) != nullptr)
    for (const auto check : kFocusChecks) QTimer::singleShot(check, this, KeepFocus);
  if (event->type() == QEvent::Shortcut) {
    // A button's own answer to ALT with its letter is a click a tenth of a second later: what is typed meanwhile would go
    // into the boxes of the record before.
    auto* const button = qobject_cast<QAbstractButton*>(watched);
    if (button == nullptr || static_cast<QShortcutEvent*>(event)->isAmbiguous()) return false;
    button->setFocus(Qt::ShortcutFocusReason);
    button->click();
    return true;
  }
  if (event->type() != QEvent::KeyPress) return false;
  auto* const control = static_cast<QWidget*>(watched);
  const auto& key = *static_cast<QKeyEvent*>(event);
  if (key.key() == Qt::Key_F1 && key.modifiers() == Qt::NoModifier) {
    const QString page = HelpPageOf(control);
    if (page.isEmpty()) return false;
    frmHelp(page, control->window()).exec();
    return true;
  }
  if (key.key() == Qt::Key_F2 && key.modifiers() == Qt::AltModifier) {
    if (!calculator_) return false;
    calculator_(control);
    return true;
  }
  // ALT with a letter that no button has must not type the letter.
  if (key.modifiers() == Qt::AltModifier && !key.text().isEmpty() && qobject_cast<QLineEdit*>(control) != nullptr) return true;
  // Where a file is picked, Enter picks it.
  if (IsEnter(key) && qobject_cast<QFileDialog*>(control->window()) != nullptr) return false;
  if (IsEnter(key) && MovesOnWithEnter(control)) {
    if (control->property(kTakesEnter).toBool()) return false;
    MoveOn(control);
    return true;
  }
  if (IsEnter(key)) {
    if (auto* const button = qobject_cast<QAbstractButton*>(control)) {
      button->click();
      return true;
    }
  }
  return false;
}

QString HelpPageOf(const QWidget* control) {
  for (const QWidget* at = control; at != nullptr; at = at->parentWidget())
    if (const QVariant page = at->property(kHelpPage); page.isValid()) return page.toString();
  return {};
}

}  // namespace norvale
