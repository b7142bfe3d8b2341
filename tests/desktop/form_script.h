// Drives a whole task: the modal forms that open one after the other, or one out of the other, each by a step of its own.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "desktop/form_driver.h"

namespace norvale {

class FormScript {
 public:
  /// The next modal form that opens, which must be a `Form`, is driven by `drive`; forms that it opens belong to the steps
  /// behind. `drive` ends with what closes the form or leaves it to those steps. A form that was there before has its turn
  /// when it is `ready` for it.
  template <typename Form, typename Drive>
  FormScript& Then(
      Drive drive, std::function<bool(QWidget&)> ready = [](QWidget&) { return true; }) {
    steps_.push_back({Form::staticMetaObject.className(), [drive](QWidget& form) { drive(static_cast<Form&>(form)); }, std::move(ready)});
    return *this;
  }

  /// The next modal form, a `Form`, is driven by one key.
  template <typename Form>
  FormScript& Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    return Then<Form>([key, modifiers](Form&) { Key(key, modifiers); });
  }

  /// Runs `open` and the steps, and fails where one of them never has its turn.
  template <typename Open>
  void Run(Open open) {
    next_ = 0;
    Arm();
    QTimer watchdog;
    QObject::connect(&watchdog, &QTimer::timeout, [this] {
      if (QWidget* const open = QApplication::activeModalWidget()) {
        ADD_FAILURE() << open->objectName().toStdString() << " was left open in step " << next_;
        qobject_cast<QDialog*>(open)->done(0);
      }
    });
    watchdog.start(kLongestWait * 4);
    open();
    EXPECT_EQ(next_, steps_.size()) << "the step never had its turn: " << (next_ < steps_.size() ? steps_[next_].form : std::string());
    timers_.clear();
  }

 private:
  struct Step {
    std::string form;
    std::function<void(QWidget&)> drive;
    std::function<bool(QWidget&)> ready;
  };

  // A timer of its own for each step: that of the step at hand rests while it drives.
  void Arm() {
    if (next_ == steps_.size()) return;
    auto* const poll = timers_.emplace_back(std::make_unique<QTimer>()).get();
    QObject::connect(poll, &QTimer::timeout, [this, poll, mine = next_] {
      QWidget* const form = QApplication::activeModalWidget();
      if (mine != next_ || form == nullptr || steps_[mine].form != form->metaObject()->className() || !steps_[mine].ready(*form)) return;
      poll->stop();
      ++next_;
      Arm();
      try {
        ShowActive(*form);
        steps_[mine].drive(*form);
      } catch (const std::logic_error& error) {
        ADD_FAILURE() << steps_[mine].form << ": " << error.what();
      }
    });
    poll->start(5);
  }

  std::vector<Step> steps_;
  std::size_t next_ = 0;
  std::vector<std::unique_ptr<QTimer>> timers_;
};

}  // namespace norvale
