// A page of data entry: the lines of one screen, each with its caption, its box and what to enter there.
#pragma once

#include <QWidget>
#include <string>
#include <variant>
#include <vector>

#include "entry/form_fields.h"

class QGridLayout;
class QLabel;

namespace norvale {

class BracketLabel;
class ChoiceList;
class CutLabel;
class NumberEdit;

/// The widths that the columns of a page want.
struct PageWidths {
  int caption = 0;
  int box = 0;
  int hint = 0;

  void Hold(const PageWidths& other);
  [[nodiscard]] int Whole() const { return caption + box + hint; }
};

/// Shows the lines of a screen from the record and puts into the record what the operator types and chooses.
class PlanPage : public QWidget {
  Q_OBJECT

 public:
  PlanPage(PlanForm& form, int screen, QWidget* parent = nullptr);

  /// Shows the record as it is now. Only what differs is touched.
  void ShowLines();

  /// The box or list of line `line` of the screen file; null where this page has none.
  [[nodiscard]] QWidget* BoxOfLine(int line) const;

  /// The box of a number on this page; null where it stands on another one.
  [[nodiscard]] NumberEdit* EditOf(std::variant<NumberBox, JoistBox> box) const;

  /// What to enter in line `line` where the page cuts it off, empty where it stands there whole.
  [[nodiscard]] QString CutHint(int line) const;

  /// Rounds the number in the box that has the focus, as leaving it would, and asks nothing.
  void RoundBoxAtHand();

  // --- Room for the lines

  [[nodiscard]] int LineCount() const { return static_cast<int>(rows_.size()); }
  [[nodiscard]] int LineHeight() const;
  [[nodiscard]] PageWidths Widths() const;

  /// Places the columns at least `widths` wide (the hints get what is left) and the lines `apart` pixels apart.
  void Place(const PageWidths& widths, int apart);
  void SetHintFont(const QFont& font);

 signals:
  /// The operator has changed the record.
  void Changed();

  /// The focus has come to `box`, which stands in line `line`.
  void Entered(QWidget* box, int line);

  /// A box that was left holds what is refused; `message` lacks its title.
  void Refused(const std::string& message, NumberEdit* edit, bool focusReturns);

 private:
  struct Row {
    int line = 0;
    LineField field;
    CutLabel* caption = nullptr;
    CutLabel* hint = nullptr;
    ChoiceList* list = nullptr;
    NumberEdit* number = nullptr;
    NumberEdit* joist = nullptr;
    QLabel* lblJoist = nullptr;
  };
  struct Choice {
    int row = -1;
    std::string unlistedText;
  };

  void MakeLine(QGridLayout* grid, int line, int gridRow);
  void MakeList(Row& row);
  void MakeNumber(Row& row);
  QWidget* MakeJoist(Row& row, JoistBox box);
  void MakeBrackets(QGridLayout* grid, int firstLine);
  void Name(QWidget* box, const Row& row, const char* kind);

  void ShowRow(const Row& row);
  void ShowMembers();
  void LeaveNumber(NumberEdit* edit, NumberBox box);
  void LeaveJoist(NumberEdit* edit, JoistBox box);
  void Choose(SelectionList list, int row);
  void UndoChoice(SelectionList list);
  [[nodiscard]] const Row* RowOfLine(int line) const;
  [[nodiscard]] int BoxWidth(const Row& row) const;
  [[nodiscard]] int NumberWidth() const;
  [[nodiscard]] int Spacing() const;

  PlanForm& form_;
  const int screen_;
  std::vector<Row> rows_;
  Choice choiceBefore_;  // of the list that has the focus
  QLabel* lblLengths_ = nullptr;
  BracketLabel* lblGirder_ = nullptr;
  BracketLabel* lblWiderGirder_ = nullptr;
};

}  // namespace norvale
