// The boxes of the data-entry forms: one for a measure, one for a choice.
#pragma once

#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>

namespace norvale {

/// Takes a measure. With the focus the whole text is selected; Ctrl+Z gives back what stood there when the focus came.
class NumberEdit : public QLineEdit {
  Q_OBJECT

 public:
  explicit NumberEdit(QWidget* parent = nullptr);

  /// Shows a text that the program has set.
  void Show(const QString& text);

  /// Takes the focus after a message about the box; Ctrl+Z still knows what stood there before.
  void TakeFocusBack();

 signals:
  /// The operator has changed the text.
  void Changed();

  /// The focus has come.
  void Entered();

  /// The focus has gone on to another control, or by mouse to another box. Sent after the focus has moved, so that a message
  /// can be shown.
  void LeftForBox();

  /// The focus has gone to a button that the operator pressed. Sent at once, before the button does what it does.
  void LeftForButton();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void Edit();

  QString before_;  // what stood there when the focus came
  bool isTakingBack_ = false;
  bool hasEntered_ = false;
};

/// Takes a choice. F4 and ALT+Down open the list; typing finds the next row that begins with what is typed, or else holds it;
/// the wheel turns only an open list. Ctrl+Z gives back the row that was chosen when the focus came.
class ChoiceList : public QComboBox {
  Q_OBJECT

 public:
  explicit ChoiceList(QWidget* parent = nullptr);

 signals:
  void Entered();

  /// Ctrl+Z.
  void UndoAsked();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  [[nodiscard]] bool IsSearching() const;
  void SearchFor(const QString& letter);

  bool hasEntered_ = false;
  QString searched_;  // typed so far
  QElapsedTimer sinceLetter_;
};

}  // namespace norvale
