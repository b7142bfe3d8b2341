// What the data-entry screens are made of besides boxes and buttons.
#pragma once

#include <QAbstractButton>
#include <QKeySequence>
#include <QLabel>

namespace norvale {

/// A text that is cut with dots where the window leaves no room; its tip has it whole.
class CutLabel : public QLabel {
  Q_OBJECT

 public:
  CutLabel(const QString& text, QWidget* parent);

  [[nodiscard]] bool IsCut() const;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// The heading of rows, behind a bracket that takes them together.
class BracketLabel : public QLabel {
  Q_OBJECT

 public:
  explicit BracketLabel(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// The mark of a screen: its number, and a tick where it is complete. Pressing it leaves the focus where it is.
class ScreenMark : public QAbstractButton {
  Q_OBJECT

 public:
  enum class State { Open, Complete, Unused };

  /// `screen` counts from 0.
  ScreenMark(int screen, QWidget* parent);

  void Set(State state, bool isCurrent);

  /// ALT with the screen's digit; the tenth and the eleventh have the two keys behind 9 on the keyboard.
  [[nodiscard]] QKeySequence Key() const;

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int screen_;
  State state_ = State::Open;
  bool isCurrent_ = false;
};

}  // namespace norvale
