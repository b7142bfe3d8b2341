// The opening form.
#pragma once

#include <QDialog>

namespace norvale {

class frmStart : public QDialog {
  Q_OBJECT

 public:
  explicit frmStart(QWidget* parent = nullptr);
};

}  // namespace norvale
