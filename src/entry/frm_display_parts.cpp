#include "entry/frm_display_parts.h"

#include <QPainter>
#include <QPainterPath>
#include <array>

#include "desktop/frm_look.h"
#include "desktop/frm_text.h"
#include "entry/form_fields.h"

namespace norvale {

CutLabel::CutLabel(const QString& text, QWidget* parent) : QLabel(text, parent) {
  setTextFormat(Qt::PlainText);
  setToolTip(text);
}

bool CutLabel::IsCut() const { return fontMetrics().horizontalAdvance(text()) > contentsRect().width(); }

QSize CutLabel::minimumSizeHint() const { return {0, QLabel::minimumSizeHint().height()}; }

void CutLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, foregroundRole()));
  painter.drawText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter,
                   fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width()));
}

BracketLabel::BracketLabel(QWidget* parent) : QLabel(parent) { setContentsMargins(fontMetrics().height(), 0, 0, 0); }

void BracketLabel::paintEvent(QPaintEvent* event) {
  QLabel::paintEvent(event);
  QPainter painter(this);
  painter.setPen(ColoursOfLook().quietText);
  const int depth = fontMetrics().height() / 3;
  painter.drawPolyline(QPolygon({{0, 1}, {depth, 1}, {depth, height() - 2}, {0, height() - 2}}));
}

ScreenMark::ScreenMark(int screen, QWidget* parent) : QAbstractButton(parent), screen_(screen) {
  setObjectName(InArray("cmdScreen", static_cast<std::size_t>(screen)));
  // The box at hand keeps the focus: going to another screen asks nothing about it.
  setFocusPolicy(Qt::NoFocus);
  setAttribute(Qt::WA_Hover);
}

void ScreenMark::Set(State state, bool isCurrent) {
  if (state == state_ && isCurrent == isCurrent_ && !accessibleName().isEmpty()) return;
  state_ = state;
  isCurrent_ = isCurrent;
  const QString words = state == State::Open       ? tr("Screen %1, needs input")
                        : state == State::Complete ? tr("Screen %1, complete")
                                                   : tr("Screen %1, nothing to enter for this plan type");
  setAccessibleName(words.arg(screen_ + 1));
  setToolTip(tr("%1 (%2)").arg(accessibleName(), Key().toString(QKeySequence::NativeText)));
  update();
}

QKeySequence ScreenMark::Key() const {
  constexpr std::array kKeys = {Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4, Qt::Key_5,    Qt::Key_6,
                                Qt::Key_7, Qt::Key_8, Qt::Key_9, Qt::Key_0, Qt::Key_Minus};
  static_assert(kKeys.size() == ScreenCount + 1);
  return {Qt::ALT | kKeys.at(static_cast<std::size_t>(screen_))};
}

QSize ScreenMark::sizeHint() const {
  const int height = fontMetrics().height();
  return {height * 9 / 5, height * 5 / 2};
}

void ScreenMark::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Colours& colours = ColoursOfLook();
  const QColor edge = isCurrent_ ? colours.ring : colours.bandQuiet;
  QColor ground = colours.bandText;
  ground.setAlphaF(underMouse() ? 0.25F : isCurrent_ ? 0.15F : 0.0F);
  painter.setPen(QPen(edge, isCurrent_ ? 2 : 1, state_ == State::Unused && !isCurrent_ ? Qt::DotLine : Qt::SolidLine));
  painter.setBrush(ground);
  painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 4, 4);

  const int height = fontMetrics().height();
  painter.setPen(isCurrent_ ? colours.ring : state_ == State::Unused ? colours.bandQuiet : colours.bandText);
  painter.drawText(QRect(0, height / 5, width(), height), Qt::AlignCenter, QString::number(screen_ + 1));
  if (state_ != State::Complete) return;
  const QPointF middle(width() / 2.0, height * 1.75);
  const qreal size = height / 4.0;
  QPainterPath tick(middle + QPointF(-size, 0));
  tick.lineTo(middle + QPointF(-size / 4, size * 0.7));
  tick.lineTo(middle + QPointF(size, -size * 0.7));
  painter.setPen(QPen(colours.bandText, height / 8.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(tick);
}

}  // namespace norvale
