// The label behind a button of a band: a ring around the button that has the focus.
#pragma once

#include <QLabel>

class QPushButton;

namespace norvale {

class RingLabel : public QLabel {
  Q_OBJECT

 public:
  /// Makes the ring and the button in it, which is the button's parent from then on. `name` is the button's.
  RingLabel(const QString& ringName, const QString& name, const QString& caption, QWidget* band);

  [[nodiscard]] QPushButton* Button() const { return button_; }

  // A label is as large as its text; this one as the button in it.
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Colour(bool hasFocus);

  QPushButton* button_;
};

/// A part of a form, in the colour of titles, that holds such buttons.
QWidget* MakeBand(QWidget* form);

}  // namespace norvale
