// Drives forms as an operator does: controls by their name, with keys and clicks.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <string>
#include <vector>

#include "support/asked_messages.h"

namespace norvale {

inline constexpr int kLongestWait = 5000;  // milliseconds

/// The control of that name; the test ends where there is none.
template <typename Control = QWidget>
Control* Find(QWidget& form, const char* name) {
  auto* const control = form.findChild<Control*>(QString::fromLatin1(name));
  if (control == nullptr) throw std::logic_error(std::string("no control ") + name);
  return control;
}

/// Shows a form that is not modal, with the focus in it.
inline void ShowActive(QWidget& form) {
  form.show();
  form.activateWindow();
  if (!QTest::qWaitForWindowActive(&form, kLongestWait)) throw std::logic_error("the form does not become active");
  // Without a screen, a window that is shown again counts as active already and nobody tells the program.
  QApplication::setActiveWindow(&form);
}

/// Sends a key to the control that has the focus.
inline void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  if (QApplication::focusWidget() == nullptr) throw std::logic_error("nothing has the focus");
  QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  QApplication::processEvents();
}

/// A letter that the test library has no key for.
inline void Letter(const QString& letter) {
  QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, letter);
  QApplication::sendEvent(QApplication::focusWidget(), &press);
  QApplication::processEvents();
}

/// Types a text. "<Return>", "<Alt+N>" and the like in it are keys.
inline void Keys(const char* text) {
  const QString keys = QString::fromUtf8(text);
  for (qsizetype at = 0; at < keys.size(); ++at) {
    const qsizetype end = keys[at] == QLatin1Char('<') ? keys.indexOf(QLatin1Char('>'), at) : -1;
    if (end > at) {
      const QKeyCombination key = QKeySequence::fromString(keys.mid(at + 1, end - at - 1))[0];
      Key(key.key(), key.keyboardModifiers());
      at = end;
    } else if (keys[at].unicode() > '~') {
      Letter(keys[at]);
    } else {
      if (QApplication::focusWidget() == nullptr) throw std::logic_error("nothing has the focus");
      QTest::keyClick(QApplication::focusWidget(), keys[at].toLatin1());
    }
  }
  QApplication::processEvents();
}

/// Puts the focus into a box and types over what stands there.
inline void Type(QWidget& form, const char* box, const char* text) {
  auto* const edit = Find<QLineEdit>(form, box);
  edit->setFocus();
  edit->selectAll();
  if (*text == '\0')
    QTest::keyClick(edit, Qt::Key_Delete);
  else
    Keys(text);
}

inline void Click(QWidget& form, const char* button) {
  QTest::mouseClick(Find<QPushButton>(form, button), Qt::LeftButton);
  QApplication::processEvents();
}

/// The same with time between pressing and letting go, as a hand takes it.
inline void SlowClick(QWidget& form, const char* button) {
  QTest::mousePress(Find<QPushButton>(form, button), Qt::LeftButton);
  QApplication::processEvents();
  QTest::mouseRelease(Find<QPushButton>(form, button), Qt::LeftButton);
  QApplication::processEvents();
}

/// What a box, a label or a button shows.
inline std::string Text(QWidget& form, const char* control) { return Find(form, control)->property("text").toString().toStdString(); }

/// The name of the control that has the focus.
inline std::string Focus() {
  const QWidget* const focus = QApplication::focusWidget();
  return focus == nullptr ? "" : focus->objectName().toStdString();
}

/// Runs `drive` in the next modal form of the type, once, while `open` keeps it open. Fails where no such form opens; one
/// that `drive` leaves open is closed.
template <typename Form, typename Drive, typename Open>
void DriveModal(Open open, Drive drive) {
  bool opened = false;
  QTimer poll;
  QElapsedTimer since;
  since.start();
  QObject::connect(&poll, &QTimer::timeout, [&] {
    auto* const form = qobject_cast<Form*>(QApplication::activeModalWidget());
    if (form == nullptr) {
      if (since.elapsed() > kLongestWait)
        if (QWidget* const other = QApplication::activeModalWidget()) other->close();
      return;
    }
    poll.stop();
    opened = true;
    // A click in `drive` may open another form in turn, whose loop lets other timers run: this one is stopped.
    try {
      ShowActive(*form);
      drive(*form);
    } catch (const std::logic_error& error) {
      ADD_FAILURE() << error.what();
    }
    if (form->isVisible()) {
      ADD_FAILURE() << form->objectName().toStdString() << " was left open";
      static_cast<QDialog&>(*form).done(0);
    }
  });
  poll.start(5);
  open();
  EXPECT_TRUE(opened) << "the form never opened";
  // A window manager gives the focus back to the form below; without a screen nobody does.
  QWidget* below = QApplication::activeModalWidget();
  for (QWidget* const window : QApplication::topLevelWidgets())
    if (below == nullptr && window->isVisible()) below = window;
  if (below != nullptr) ShowActive(*below);
}

/// The keys of a step that closes the window by its frame.
inline constexpr const char* kCloseWindow = "<close>";

/// What the operator does, what he sees then, and the message that comes in between.
struct Step {
  const char* keys;
  std::string seen;
  std::string message = {};
  Answer answer = Answer::Ok;
};

/// Takes the steps; `see` tells what the form shows.
template <typename See>
void TakeSteps(const std::vector<Step>& steps, AskedMessages& asked, See see) {
  for (const Step& step : steps) {
    if (!step.message.empty()) asked.Expect(step.message, step.answer);
    if (step.keys == kCloseWindow)
      QApplication::activeWindow()->close();
    else
      Keys(step.keys);
    // What follows from an event may come behind it.
    const bool isSeen = QTest::qWaitFor([&] { return see() == step.seen; }, kLongestWait);
    asked.ExpectAllAsked();
    if (!isSeen) {
      ADD_FAILURE() << step.keys << "\nshows: " << see() << "\n  not: " << step.seen;
      return;
    }
  }
}

}  // namespace norvale
