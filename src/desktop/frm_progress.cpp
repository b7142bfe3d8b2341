#include "desktop/frm_progress.h"

namespace norvale {

namespace {

constexpr int kSteps = 100;
constexpr int kBlink = 300;  // milliseconds

}  // namespace

frmProgress::frmProgress(const QString& text, QWidget* parent) : QProgressDialog(text, tr("&Cancel"), 0, kSteps, parent) {
  setObjectName(QStringLiteral("frmProgress"));
  setWindowTitle(tr("Please Wait"));
  setWindowModality(Qt::WindowModal);
  setMinimumDuration(kBlink);
  setAutoReset(false);
  setValue(0);
}

std::function<void(double)> frmProgress::Report() {
  return [this](double done) {
    setValue(static_cast<int>(done * (kSteps - 1)));
    if (wasCanceled()) throw GivenUp();
  };
}

}  // namespace norvale
