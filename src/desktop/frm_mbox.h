// The message box, and the program's way to it.
#pragma once

#include <QDialog>
#include <vector>

#include "base/message.h"

class QLabel;
class QPushButton;

namespace norvale {

class frmMbox : public QDialog {
  Q_OBJECT

 public:
  explicit frmMbox(const Message& message, QWidget* parent = nullptr);

  /// What was pressed.
  [[nodiscard]] Answer GivenAnswer() const { return answer_; }

  /// Esc and closing the window answer what the message says.
  void reject() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Give(Answer answer);
  void StepFocus(int direction);

  Answer answer_;
  std::vector<QPushButton*> buttons_;  // those shown, from left to right
};

/// Shows each message in a `frmMbox` above the form at hand.
class ScreenMessages final : public Messages {
 public:
  Answer ShowMessage(const std::string& text) override;
};

}  // namespace norvale
