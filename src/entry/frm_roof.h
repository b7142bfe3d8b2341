// The roof calculator on the screen.
#pragma once

#include <QDialog>
#include <array>

#include "desktop/program.h"
#include "entry/roof.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QStackedWidget;
class QTreeWidget;

namespace norvale {

class NumberEdit;
class RoofView;

class frmROOF : public QDialog {
  Q_OBJECT

 public:
  /// Works on a copy of the plan's roof. Closed by DONE, the roof is in `plan` and, where the operator wants it so, its area
  /// in `form`; closed in any other way, both are as before.
  frmROOF(Program& program, EstimateRecord& plan, PlanForm& form, QWidget* parent = nullptr);

  /// Esc: from the ceiling joists back to the sections, from there out.
  void reject() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  static constexpr std::size_t kLengthBoxes = 3;
  static constexpr std::size_t kPanelBoxes = 2 * kCeilingJoistRows;

  QWidget* MakeSections();
  QWidget* MakeTypes();
  QWidget* MakeBoxes();
  QWidget* MakeJoists();
  QWidget* MakeList();
  QWidget* MakeButtons();
  QPushButton* MakeButton(const char* name, const QString& caption, void (frmROOF::*press)());

  void TakeBoxes();  // from the window into the record
  void ShowForm();   // from the record into the window
  void ShowSums();   // what follows from the boxes: readings, areas, drawing, list
  void ShowReading(std::size_t box);
  void ShowList();

  void Next();
  void Previous();
  void Add();
  void Remove();
  void Undo();
  void Done();
  void FinishWithJoists();
  void BackToSections();
  void StepBy(RoofStep (*step)(RoofForm&));
  void ChooseInList(int section);

  bool Took(const RoofStep& step);
  void FocusBox(RoofBox box);
  void CheckLength(std::size_t box);
  void CheckJoist(std::size_t box);
  bool MayDiscard();

  Program& program_;
  EstimateRecord& plan_;
  PlanForm& dataEntry_;
  RoofForm form_;
  bool isShowing_ = false;  // what changes in the boxes is not the operator's

  QStackedWidget* pages_ = nullptr;
  QWidget* sections_ = nullptr;
  QWidget* pctjoist_ = nullptr;
  QWidget* boxes_ = nullptr;
  RoofView* pctVIEW_ = nullptr;
  std::array<QRadioButton*, kRoofTypes> optRoof_{};
  std::array<QLineEdit*, kLengthBoxes> lengths_{};  // in the order of RoofBox
  std::array<QLabel*, kLengthBoxes> readings_{};
  QComboBox* cboPitch_ = nullptr;
  QComboBox* cboRafter_ = nullptr;
  QComboBox* cboRFType_ = nullptr;
  std::array<NumberEdit*, kPanelBoxes> joists_{};
  QTreeWidget* lstSections_ = nullptr;
  QLabel* lblsection_ = nullptr;
  QLabel* lblsqft_ = nullptr;
  QPushButton* cmdNEXT_ = nullptr;
  QPushButton* cmdPREV_ = nullptr;
  QPushButton* cmdADD_ = nullptr;
  QPushButton* cmdREMOVE_ = nullptr;
  QPushButton* cmdUNDO_ = nullptr;
  QPushButton* cmdDONE_ = nullptr;
};

}  // namespace norvale
