// The form for the waste factors: one percentage for each of 95 items, on five panels.
#pragma once

#include <QDialog>
#include <array>

#include "desktop/program.h"
#include "prices/waste_editor.h"

class QButtonGroup;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;

namespace norvale {

class frmWaste : public QDialog {
  Q_OBJECT

 public:
  /// Throws FileError where the file of the factors cannot be used.
  explicit frmWaste(Program& program, QWidget* parent = nullptr);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* MakePanel(const WastePanel& panel);
  QLineEdit* MakeBox(std::size_t item, const QString& label, const QString& panel);
  QWidget* MakePanelButtons();
  QLayout* MakeButtons();
  QPushButton* MakeButton(const char* name, const QString& caption, const QKeySequence& key);
  void ShowPanel(int index);
  void StepPanel(int direction);
  void Restore();
  void Store();

  Program& program_;
  std::array<QLineEdit*, kWasteItems> txtWF_{};
  QButtonGroup* panelButtons_ = nullptr;
  QStackedWidget* panels_ = nullptr;
  QLabel* lbldisplay_ = nullptr;
  QLabel* head_ = nullptr;
  QLabel* lblHint_ = nullptr;
};

}  // namespace norvale
