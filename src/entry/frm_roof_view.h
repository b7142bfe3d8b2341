// The drawing of one roof section: its shape as its type makes it, to the scale of its measures, with dimension lines.
#pragma once

#include <QWidget>
#include <optional>

#include "data/estimate_record.h"

namespace norvale {

class RoofView : public QWidget {
  Q_OBJECT

 public:
  explicit RoofView(QWidget* parent = nullptr);

  /// Draws the section, with what is to be noted about it; none: a line that says how to begin.
  void Show(const std::optional<RoofPlane>& section, const QStringList& notes);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  // Draws the notes at the foot of the area, and returns what they leave of it.
  QRectF DrawNotes(QPainter& painter, const QRectF& area);

  std::optional<RoofPlane> section_;
  QStringList notes_;
};

}  // namespace norvale
