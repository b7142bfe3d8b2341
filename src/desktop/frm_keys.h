// The keys that work on every form: Enter moves on, F1 opens the help of the form at hand, ALT+F2 the calculator.
//
// Esc is each form's own: a QDialog's `reject` presses its cancel button. ALT+Down is Qt's own on a list.
#pragma once

#include <QObject>
#include <functional>

class QWidget;

namespace norvale {

/// The property of a form that names its page of the guide, without folder and ending.
inline constexpr const char* kHelpPage = "helpPage";

/// The property of a box that does something of its own with Enter.
inline constexpr const char* kTakesEnter = "takesEnter";

class FormKeys : public QObject {
  Q_OBJECT

 public:
  /// Works for every form of the program as long as it lives.
  explicit FormKeys(QObject* parent = nullptr);

  /// What ALT+F2 does, given the control that has the focus.
  void SetCalculator(std::function<void(QWidget*)> calculator) { calculator_ = std::move(calculator); }

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::function<void(QWidget*)> calculator_;
};

/// The page of the guide for a control: that of its form, or of the nearest one around it.
QString HelpPageOf(const QWidget* control);

}  // namespace norvale
