// The form for the material lists: the rows of each list and the one that a new plan starts with.
#pragma once

#include <QDialog>
#include <optional>

#include "desktop/program.h"
#include "prices/material_editor.h"

class QComboBox;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace norvale {

class frmMatDefault : public QDialog {
  Q_OBJECT

 public:
  /// Throws FileError where the lists cannot be read.
  explicit frmMatDefault(Program& program, QWidget* parent = nullptr);

  /// Esc and closing the window press Cancel.
  void reject() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // What was typed for a list and waits for the operator's yes.
  struct Addition {
    int list = 0;
    std::string listName;
    QString text;
  };

  QWidget* MakeTitles();
  QWidget* MakeLists();
  QWidget* MakeRows();
  void MakeAdding(QGridLayout* grid, int row);
  QHBoxLayout* MakeButtons();
  QPushButton* MakeButton(const char* name, const QString& caption, const QString& hint);

  void ShowList();     // from the record into the window
  void ShowDefault();  // the same for the row that stands out
  void GoTo(int line);
  void Step(int direction);
  void Pick(int index);
  void LeaveAddItem();
  void FinishAddition();
  void RefuseCharacters();
  void NoteOnWidth();
  void Save();
  void Hint(const QString& text);

  Program& program_;
  MaterialEditor editor_;
  std::vector<std::size_t> shown_;    // the rows in the two list controls
  std::optional<Addition> addition_;  // left the box and is not yet in the list
  QString kept_;                      // the last text of the box that the file can hold

  QListWidget* lstLists_ = nullptr;
  QLabel* lblListName_ = nullptr;
  QLabel* lblListOf_ = nullptr;
  QComboBox* cboSelDefault_ = nullptr;
  QLabel* lblComboLst_ = nullptr;
  QListWidget* lstComboLst_ = nullptr;
  QLabel* lblPlace_ = nullptr;
  QLineEdit* txtAddItem_ = nullptr;
  QLabel* lblWidth_ = nullptr;
  QPushButton* cmdCANCEL_ = nullptr;
  QLabel* lblHint_ = nullptr;
};

}  // namespace norvale
