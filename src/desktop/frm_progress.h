// How far a long job is, with a way to give it up. A job that is over in a blink shows nothing.
#pragma once

#include <QProgressDialog>
#include <functional>

namespace norvale {

/// What a job throws that the operator has given up.
struct GivenUp {};

class frmProgress : public QProgressDialog {
  Q_OBJECT

 public:
  frmProgress(const QString& text, QWidget* parent);

  /// Hand it to the job, which calls it with what is done, from 0 to 1. It throws GivenUp.
  [[nodiscard]] std::function<void(double)> Report();
};

}  // namespace norvale
