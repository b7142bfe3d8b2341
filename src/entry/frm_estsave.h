// The save prompt, with which the edit of a plan ends.
#pragma once

#include <QDialog>
#include <array>

#include "entry/checklist.h"

class QPushButton;

namespace norvale {

class frmEstsave : public QDialog {
  Q_OBJECT

 public:
  explicit frmEstsave(PlanMode mode, QWidget* parent = nullptr);

  /// What was pressed; Cancel where the prompt was closed without it.
  [[nodiscard]] SaveChoice Choice() const { return choice_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  std::array<QPushButton*, 4> pctSaveOpt_{};
  SaveChoice choice_ = SaveChoice::Cancel;
};

}  // namespace norvale
