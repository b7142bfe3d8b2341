// The backups of the working folder: making one, and bringing one back.
#pragma once

#include <QDialog>

#include "shell/restore_form.h"

class QLabel;
class QPushButton;
class QTreeWidget;

namespace norvale {

class frmRestore : public QDialog {
  Q_OBJECT

 public:
  /// Throws FileError where the backups cannot be read.
  explicit frmRestore(Program& program, QWidget* parent = nullptr);

 private:
  void ShowForm();
  void BackUp();
  void Restore();

  Program& program_;
  RestoreForm form_;
  QTreeWidget* lstBackups_ = nullptr;
  QLabel* lblNone_ = nullptr;
  QPushButton* cmdRestore_ = nullptr;
};

}  // namespace norvale
