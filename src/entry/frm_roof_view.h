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

  /// Draws the section; none: a line that says how to begin.
  void Show(const std::optional<RoofPlane>& section);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::optional<RoofPlane> section_;
};

}  // namespace norvale
