#include "entry/frm_roof_view.h"

#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <algorithm>
#include <cmath>
#include <vector>

#include "desktop/frm_look.h"
#include "desktop/frm_text.h"
#include "entry/roof.h"

namespace norvale {

namespace {

// A point of the roof in feet: x across the ridge, y along it into the picture, z upward from the eaves.
struct Corner {
  double x = 0;
  double y = 0;
  double z = 0;
};

// What lies along the ridge goes up and to the right, shortened; what stands across it is seen as it is, pitch included.
// Steeper than the steepest pitch, so that both sides of every roof are seen.
constexpr double kDepthRight = 0.38;
constexpr double kDepthUp = 0.45;

// A roof longer than this many runs is drawn with a break, so that its profile can still be read.
constexpr double kLongestDepth = 9;

QPointF Project(const Corner& corner) { return {corner.x + corner.y * kDepthRight, -(corner.z + corner.y * kDepthUp)}; }

enum class Face { Left, Right, Hip, Gable, MainRoof };

struct Surface {
  Face face;
  std::vector<Corner> corners;
};

struct Edge {
  Corner from;
  Corner to;
};

// A section as it is drawn.
struct Shape {
  std::vector<Surface> surfaces;  // those behind first
  std::vector<Edge> hidden;       // the profile where no surface shows it
  double run = 0;
  double rise = 0;
  double profileAt = 0;       // where along the length the profile stands
  Edge length;                // the eave, as far as it counts
  std::optional<Edge> ridge;  // with the eave, for the marks of a break
  bool isBroken = false;
  bool countsBothSides = true;
};

// The measures behind the drawing; those that are missing yet have the proportions of a usual roof.
struct Measures {
  double length = 0;  // of one side
  double run = 0;
  double loadWall = 0;
  double pitch = 0;  // rise over run
  bool hasLength = false;
  bool hasRun = false;
};

Measures MeasuresOf(const RoofPlane& section) {
  constexpr double kUsualRun = 12;
  constexpr double kUsualRunsInLength = 2;
  const double sides = section.SectionType == kShedSection ? 1 : 2;
  Measures measures{.length = LengthOf(section) / sides,
                    .run = RunOf(section),
                    .loadWall = LoadWallRunOf(section),
                    .pitch = RiseInFoot(section) / 12.0,
                    .hasLength = section.SectionLength > 0,
                    .hasRun = section.RafterRun > 0};
  if (!measures.hasRun) measures.run = measures.hasLength ? measures.length / kUsualRunsInLength : kUsualRun;
  if (!measures.hasLength) measures.length = measures.run * kUsualRunsInLength;
  return measures;
}

// The plane of the roof that a section with valleys runs into, from the eave line at `eave` upward.
Surface MainRoof(double run, double rise, double eave) {
  constexpr double kBeyond = 1.25;
  const double side = run * kBeyond;
  return {Face::MainRoof, {{-side, eave, 0}, {side, eave, 0}, {side, eave + side, rise * kBeyond}, {-side, eave + side, rise * kBeyond}}};
}

// Both sides of a ridge from `ridgeFrom` to `ridgeTo` above eaves that end at `eaveTo`.
void AddSides(Shape& shape, double ridgeFrom, double ridgeTo, double eaveTo) {
  const double run = shape.run;
  const Corner from{0, ridgeFrom, shape.rise};
  const Corner to{0, ridgeTo, shape.rise};
  shape.surfaces.push_back({Face::Left, {{-run, 0, 0}, from, to, {-run, eaveTo, 0}}});
  shape.surfaces.push_back({Face::Right, {{run, 0, 0}, from, to, {run, eaveTo, 0}}});
  shape.ridge = Edge{from, to};
}

// The end in front: a gable where the ridge begins at 0, a hip where it begins further back.
void AddFront(Shape& shape, double ridgeFrom) {
  const Corner top{0, ridgeFrom, shape.rise};
  shape.surfaces.push_back({ridgeFrom > 0 ? Face::Hip : Face::Gable, {{-shape.run, 0, 0}, {shape.run, 0, 0}, top}});
  shape.profileAt = ridgeFrom;
  shape.hidden.push_back({top, {0, ridgeFrom, 0}});
  if (ridgeFrom > 0) shape.hidden.push_back({{0, ridgeFrom, 0}, {shape.run, ridgeFrom, 0}});
}

Shape ShapeOf(int type, const Measures& measures) {
  Shape shape;
  const double run = shape.run = measures.run;
  shape.rise = run * measures.pitch;
  shape.isBroken = measures.length > kLongestDepth * run;
  const double length = shape.isBroken ? kLongestDepth * run : measures.length;
  shape.length = {{run, 0, 0}, {run, length, 0}};
  switch (type) {
    case kGableWithValley: {
      // The ridge goes on to the main roof by one run, the eaves end before: on the average they are as long as was typed.
      const double eave = std::max(0.0, length - run / 2);
      shape.surfaces.push_back(MainRoof(run, shape.rise, eave));
      AddSides(shape, 0, eave + run, eave);
      AddFront(shape, 0);
      break;
    }
    case kHipSection: {
      const double end = std::max(run, length);
      AddSides(shape, run, end, end);
      AddFront(shape, run);
      break;
    }
    case kHipWithValley:
      shape.surfaces.push_back(MainRoof(run, shape.rise, length));
      AddSides(shape, run, run + length, length);
      AddFront(shape, run);
      break;
    case kShedSection:
      shape.countsBothSides = false;
      shape.surfaces.push_back({Face::Right, {{run, 0, 0}, {0, 0, shape.rise}, {0, length, shape.rise}, {run, length, 0}}});
      shape.surfaces.push_back({Face::Gable, {{0, 0, 0}, {run, 0, 0}, {0, 0, shape.rise}}});
      shape.ridge = Edge{{0, 0, shape.rise}, {0, length, shape.rise}};
      break;
    default:
      AddSides(shape, 0, length, length);
      AddFront(shape, 0);
      break;
  }
  return shape;
}

QColor Mixed(const QColor& ground, const QColor& colour, double share) {
  const auto mix = [share](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * share)); };
  return {mix(ground.red(), colour.red()), mix(ground.green(), colour.green()), mix(ground.blue(), colour.blue())};
}

// Draws in pixels what the shape holds in feet.
class Drafter {
 public:
  /// `below` is the room under the front, `lengthText` what `DrawAlong` will write.
  Drafter(QPainter& painter, const QRectF& area, const Shape& shape, double below, const QString& lengthText)
      : painter_(painter), area_(area), colours_(ColoursOfLook()), em_(QFontMetricsF(painter.font()).height()) {
    QPolygonF outline;
    for (const Surface& surface : shape.surfaces)
      for (const Corner& corner : surface.corners) outline << Project(corner);
    const QRectF bounds = outline.boundingRect();
    QRectF room = area.adjusted(em_, em_, -em_ * 2, -below);
    // Narrower until the text beside the eave has its place.
    const double least = room.width() * 0.4;
    constexpr double kStep = 1;
    for (double missing = kStep; missing > 0; room.setWidth(std::max(least, room.width() - std::max(kStep, missing)))) {
      scale_ = std::max(0.0, std::min(room.width() / bounds.width(), room.height() / bounds.height()));
      origin_ = room.center() - bounds.center() * scale_;
      missing = TextPlace(shape.length).x() + WidthOf(lengthText) + em_ - area.right();
      if (room.width() <= least) break;
    }
    // What the text did not need goes back to both sides.
    const double spare = area.right() - em_ - std::max(At(RightmostOf(shape)).x(), TextPlace(shape.length).x() + WidthOf(lengthText));
    origin_.rx() += std::max(0.0, (spare - (origin_.x() + bounds.left() * scale_ - area.left() - em_)) / 2);
  }

  [[nodiscard]] QPointF At(const Corner& corner) const { return origin_ + Project(corner) * scale_; }

  void Draw(const Surface& surface) {
    QPolygonF outline;
    for (const Corner& corner : surface.corners) outline << At(corner);
    const bool isMainRoof = surface.face == Face::MainRoof;
    painter_.setPen(isMainRoof ? Pen(colours_.edge, 1) : Pen(colours_.text, 1.6));
    painter_.setBrush(FillOf(surface.face));
    painter_.drawPolygon(outline);
  }

  void DrawHidden(const Edge& edge) {
    painter_.setPen(QPen(colours_.quietText, 1, Qt::DashLine));
    painter_.drawLine(At(edge.from), At(edge.to));
  }

  // A wall that carries the rafters, from the ceiling up to them.
  void DrawLoadWall(const Edge& post, const Edge& along) {
    painter_.setPen(QPen(colours_.focus, 1.4, Qt::DashLine));
    painter_.drawLine(At(along.from), At(along.to));
    painter_.setPen(Pen(colours_.focus, 2.4));
    painter_.drawLine(At(post.from), At(post.to));
  }

  // Two short strokes across a line that is drawn shorter than it is.
  void DrawBreak(const Edge& edge) {
    const QPointF from = At(edge.from);
    const QPointF to = At(edge.to);
    const QPointF middle = (from + to) / 2;
    const QPointF along = (to - from) / std::max(1.0, std::hypot(to.x() - from.x(), to.y() - from.y()));
    const QPointF stroke = QPointF(-along.y() - along.x() * 0.5, along.x() - along.y() * 0.5) * em_ * 0.45;
    for (const double shift : {-0.16, 0.16}) {
      const QPointF at = middle + along * em_ * shift;
      painter_.setPen(Pen(colours_.card, 5));
      painter_.drawLine(at - stroke * 0.9, at + stroke * 0.9);
    }
    for (const double shift : {-0.22, 0.22}) {
      const QPointF at = middle + along * em_ * shift;
      painter_.setPen(Pen(colours_.text, 1.2));
      painter_.drawLine(at - stroke, at + stroke);
    }
  }

  // A line below two points of the front, with its ends marked and its text under it.
  void DrawAcross(const Edge& edge, double down, const QString& text) {
    const QPointF aside(0, down);
    DrawMeasure(At(edge.from), At(edge.to), aside);
    DrawText((At(edge.from) + At(edge.to)) / 2 + QPointF(0, down + em_ * 0.15), Qt::AlignHCenter, text);
  }

  // A line beside an eave, with its text to the right of it and below.
  void DrawAlong(const Edge& edge, const QString& text) {
    DrawMeasure(At(edge.from), At(edge.to), BesideEave());
    DrawText(TextPlace(edge), Qt::AlignLeft, text);
  }

 private:
  static QPen Pen(const QColor& colour, double width) { return {colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin}; }

  void DrawMeasure(const QPointF& from, const QPointF& to, const QPointF& aside) {
    painter_.setPen(Pen(colours_.edge, 1));
    const QPointF witness = aside * (1 + 0.3 * em_ / std::max(1.0, std::hypot(aside.x(), aside.y())));
    painter_.drawLine(from, from + witness);
    painter_.drawLine(to, to + witness);
    painter_.setPen(Pen(colours_.quietText, 1));
    painter_.drawLine(from + aside, to + aside);
    const QPointF tick(em_ * 0.2, -em_ * 0.2);
    for (const QPointF& end : {from + aside, to + aside}) painter_.drawLine(end - tick, end + tick);
  }

  [[nodiscard]] QPointF BesideEave() const { return QPointF(0.76, 0.65) * em_ * 0.8; }

  [[nodiscard]] QPointF TextPlace(const Edge& eave) const {
    return (At(eave.from) + At(eave.to)) / 2 + BesideEave() + QPointF(em_ * 0.4, 0);
  }

  static Corner RightmostOf(const Shape& shape) {
    Corner rightmost;
    for (const Surface& surface : shape.surfaces)
      for (const Corner& corner : surface.corners)
        if (Project(corner).x() > Project(rightmost).x()) rightmost = corner;
    return rightmost;
  }

  [[nodiscard]] double WidthOf(const QString& text) const { return QFontMetricsF(painter_.font()).horizontalAdvance(text); }

  // With the middle or the left end of its upper edge at a point, within the area.
  void DrawText(const QPointF& at, Qt::Alignment side, const QString& text) {
    const double width = WidthOf(text) + 2;
    const double left = std::clamp(side == Qt::AlignLeft ? at.x() : at.x() - width / 2, area_.left() + em_ / 2,
                                   std::max(area_.left() + em_ / 2, area_.right() - em_ / 2 - width));
    const QRectF box(left, at.y(), width, em_);
    painter_.fillRect(box, colours_.card);
    painter_.setPen(colours_.text);
    painter_.drawText(box, Qt::AlignCenter, text);
  }

  [[nodiscard]] QColor FillOf(Face face) const {
    switch (face) {
      case Face::Left:
        return Mixed(colours_.card, colours_.focus, 0.10);
      case Face::Right:
        return Mixed(colours_.card, colours_.focus, 0.22);
      case Face::Hip:
        return Mixed(colours_.card, colours_.focus, 0.16);
      case Face::Gable:
        return Mixed(colours_.card, colours_.text, 0.06);
      case Face::MainRoof:
        break;
    }
    return Mixed(colours_.card, colours_.text, 0.03);
  }

  QPainter& painter_;
  QRectF area_;
  const Colours& colours_;
  double em_;
  double scale_ = 1;
  QPointF origin_;
};

QString Feet(int inches) { return Shown(LengthReading(inches)); }

// The pitch as a triangle of its own, in the corner: 12 across, the rise beside it.
void DrawPitch(QPainter& painter, const QRectF& area, int rise) {
  const Colours& colours = ColoursOfLook();
  const double em = QFontMetricsF(painter.font()).height();
  const double across = em * 2.6;
  const double up = across * rise / 12;
  const QPointF foot = area.topLeft() + QPointF(em * 2.6, em * 0.9 + across);
  painter.setPen(QPen(colours.quietText, 1.2));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolygon(QPolygonF({foot, foot + QPointF(across, 0), foot + QPointF(across, -up)}));
  painter.setPen(colours.text);
  painter.drawText(QRectF(foot.x(), foot.y() + em * 0.1, across, em), Qt::AlignCenter, QStringLiteral("12"));
  painter.drawText(QRectF(foot.x() + across + em * 0.3, foot.y() - up / 2 - em / 2, em * 2, em), Qt::AlignLeft | Qt::AlignVCenter,
                   QString::number(rise));
}

}  // namespace

RoofView::RoofView(QWidget* parent) : QWidget(parent) { setAccessibleName(tr("Drawing of the roof section")); }

void RoofView::Show(const std::optional<RoofPlane>& section, const QStringList& notes) {
  if (section == section_ && notes == notes_) return;
  section_ = section;
  notes_ = notes;
  setAccessibleDescription(section ? tr("%1, length %2, run %3, pitch %4 in 12. %5")
                                         .arg(Shown(CaptionOfRoofType(section->SectionType)), Feet(section->SectionLength),
                                              Feet(section->RafterRun), QString::number(RiseInFoot(*section)), notes.join(QLatin1Char(' ')))
                                   : QString());
  update();
}

QRectF RoofView::DrawNotes(QPainter& painter, const QRectF& area) {
  const double em = QFontMetricsF(painter.font()).height();
  QRectF rest = area;
  const auto draw = [&](const QString& text, const QColor& colour) {
    const QRectF room = rest.adjusted(em * 0.7, 0, -em * 0.7, -em * 0.2);
    const QRectF box = painter.boundingRect(room, Qt::AlignLeft | Qt::AlignBottom | Qt::TextWordWrap, text);
    painter.setPen(colour);
    painter.drawText(box, Qt::AlignLeft | Qt::TextWordWrap, text);
    rest.setBottom(box.top());
  };
  rest.adjust(0, 0, 0, -em * 0.2);
  for (const QString& note : notes_) draw(note, ColoursOfLook().warning);
  if (section_->SectionType != kShedSection) draw(tr("Length: both sides together"), ColoursOfLook().quietText);
  return rest;
}

QSize RoofView::sizeHint() const { return {fontMetrics().height() * 30, fontMetrics().height() * 18}; }

QSize RoofView::minimumSizeHint() const { return {fontMetrics().height() * 16, fontMetrics().height() * 10}; }

void RoofView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Colours& colours = ColoursOfLook();
  painter.setPen(QPen(colours.edge, 1));
  painter.setBrush(colours.card);
  const QRectF frame = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  painter.drawRoundedRect(frame, 6, 6);
  if (!section_) {
    painter.setPen(colours.quietText);
    painter.drawText(frame, Qt::AlignCenter | Qt::TextWordWrap, tr("No roof sections yet.\nADD NEW SECTION begins the roof."));
    return;
  }

  const QRectF area = DrawNotes(painter, frame);
  const Measures measures = MeasuresOf(*section_);
  const Shape shape = ShapeOf(section_->SectionType, measures);
  const bool isWallInside = measures.loadWall > 0 && measures.hasRun && measures.loadWall <= measures.run;
  const double em = QFontMetricsF(painter.font()).height();
  const QString length = tr("Length %1").arg(measures.hasLength ? Feet(section_->SectionLength) : tr("?"));
  const double below = em * (isWallInside ? 4.6 : 2.7);
  Drafter drafter(painter, area, shape, below, length);
  // Faint as long as its proportions are only a usual roof's.
  if (!measures.hasLength || !measures.hasRun) painter.setOpacity(0.5);
  for (const Surface& surface : shape.surfaces) drafter.Draw(surface);
  for (const Edge& edge : shape.hidden) drafter.DrawHidden(edge);
  if (isWallInside) {
    const double x = measures.loadWall;
    const double y = shape.profileAt;
    const double top = shape.rise * (1 - measures.loadWall / measures.run);
    drafter.DrawLoadWall({{x, y, 0}, {x, y, top}}, {{x, y, 0}, {x, shape.length.to.y, 0}});
  }
  if (shape.isBroken) {
    drafter.DrawBreak(shape.length);
    if (shape.ridge) drafter.DrawBreak(*shape.ridge);
  }
  painter.setOpacity(1);

  // The run lies under the front, the load wall's part of it above that line.
  double down = em * 0.8;
  const double wallDown = down;
  if (isWallInside) down += em * 1.9;
  drafter.DrawAcross({{0, 0, 0}, {shape.run, 0, 0}}, down, tr("Run %1").arg(measures.hasRun ? Feet(section_->RafterRun) : tr("?")));
  if (isWallInside)
    drafter.DrawAcross({{0, 0, 0}, {measures.loadWall, 0, 0}}, wallDown, tr("Load wall %1").arg(Feet(section_->LoadWallRun)));
  drafter.DrawAlong(shape.length, length);
  DrawPitch(painter, area, RiseInFoot(*section_));
}

}  // namespace norvale
