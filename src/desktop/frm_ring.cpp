#include "desktop/frm_ring.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPushButton>

#include "desktop/frm_look.h"

namespace norvale {

RingLabel::RingLabel(const QString& ringName, const QString& name, const QString& caption, QWidget* band)
    : QLabel(band), button_(new QPushButton(caption, this)) {
  constexpr int kRingWidth = 3;
  setObjectName(ringName);
  setAutoFillBackground(true);
  button_->setObjectName(name);
  button_->setAccessibleName(QString(caption).remove(QLatin1Char('&')).simplified());
  button_->installEventFilter(this);
  auto* const around = new QHBoxLayout(this);
  around->setContentsMargins(kRingWidth, kRingWidth, kRingWidth, kRingWidth);
  around->addWidget(button_);
  Colour(false);
}

QSize RingLabel::sizeHint() const { return layout()->sizeHint(); }

QSize RingLabel::minimumSizeHint() const { return layout()->minimumSize(); }

bool RingLabel::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) Colour(true);
  if (event->type() == QEvent::FocusOut) Colour(false);
  return QLabel::eventFilter(watched, event);
}

void RingLabel::Colour(bool hasFocus) {
  const QColor colour = hasFocus ? ColoursOfLook().ring : ColoursOfLook().band;
  setStyleSheet(QStringLiteral("QLabel#%1 { background: %2; border-radius: 6px; }").arg(objectName(), colour.name()));
}

QWidget* MakeBand(QWidget* form) {
  auto* const band = new QWidget(form);
  band->setProperty("band", true);
  band->setAttribute(Qt::WA_StyledBackground);
  return band;
}

}  // namespace norvale
