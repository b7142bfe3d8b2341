#include "printing/frm_page_painter.h"

#include <QBuffer>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QPainter>
#include <QPdfWriter>
#include <QPolygonF>
#include <algorithm>

#include "base/text.h"

namespace norvale {

namespace {

constexpr qreal kPointsPerInch = 72;
constexpr int kFontSize = 100;        // in units of its own: large, so that no rounding moves a column
constexpr qreal kLoosestLines = 1.4;  // of the font's height; a long sheet is not spread out any further
constexpr QColor kMarkBand(0xFF, 0xEB, 0xB8);
constexpr QColor kMark(0xB2, 0x5A, 0x00);

QString TextOf(std::string_view line) { return QString::fromStdString(ToUtf8(line)); }

}  // namespace

QPageLayout LayoutOf(const PaperSetup& setup) {
  const qreal margin = std::clamp(setup.margin, kLeastMargin, kLargestMargin);
  QPageLayout layout(QPageSize(setup.size), QPageLayout::Portrait, QMarginsF(margin, margin, margin, margin), QPageLayout::Inch);
  layout.setMode(QPageLayout::FullPageMode);
  return layout;
}

const QFont& PaperFont() {
  static const QFont font = [] {
    QFont paper(QStringLiteral("DejaVu Sans Mono"));
    paper.setStyleHint(QFont::Monospace);
    if (!QFontInfo(paper).fixedPitch()) paper.setFamily(QFontDatabase::systemFont(QFontDatabase::FixedFont).family());
    paper.setHintingPreference(QFont::PreferNoHinting);
    paper.setKerning(false);
    paper.setPixelSize(kFontSize);
    return paper;
  }();
  return font;
}

Cells CellsOf(const Document& document, const PaperSetup& setup) {
  std::size_t columns = kPaperColumns;
  std::size_t lines = kPaperLines;
  for (const PageText& page : document.pages) {
    lines = std::max(lines, page.size());
    for (const std::string& line : page) columns = std::max(columns, line.size());
  }
  const QFontMetricsF metrics(PaperFont());
  const qreal fontWidth = metrics.horizontalAdvance(QString(static_cast<qsizetype>(kPaperColumns), QLatin1Char('0'))) / kPaperColumns;
  const qreal fontHeight = metrics.ascent() + metrics.descent();

  const QPageLayout layout = LayoutOf(setup);
  const QMarginsF margins = layout.margins(QPageLayout::Point);
  Cells cells;
  cells.sheet = layout.fullRect(QPageLayout::Point).size();
  const qreal width = cells.sheet.width() - margins.left() - margins.right();
  const qreal height = cells.sheet.height() - margins.top() - margins.bottom();
  cells.height = height / static_cast<qreal>(lines);
  cells.fontScale = std::min(cells.height / fontHeight, width / static_cast<qreal>(columns) / fontWidth);
  cells.height = std::min(cells.height, cells.fontScale * fontHeight * kLoosestLines);
  cells.width = cells.fontScale * fontWidth;
  // The 80 columns stand in the middle of the sheet; a longer line makes use of the space to their right before they move.
  const qreal inMiddle = (width - cells.width * kPaperColumns) / 2;
  const qreal leftmost = width - cells.width * static_cast<qreal>(columns);
  cells.corner = {margins.left() + std::min(inMiddle, leftmost), margins.top()};
  return cells;
}

void PaintPage(QPainter& painter, const Document& document, std::size_t page, const Cells& cells, Marks marks) {
  painter.save();
  if (marks == Marks::Shown) {
    painter.setPen(Qt::NoPen);
    for (const PagePlace& mark : document.marks) {
      if (mark.page != page) continue;
      const qreal top = cells.corner.y() + static_cast<qreal>(mark.line) * cells.height;
      const qreal left = cells.corner.x() - 2 * cells.width;
      painter.setBrush(kMarkBand);
      painter.drawRect(QRectF(left, top, (kPaperColumns + 3) * cells.width, cells.height));
      painter.setBrush(kMark);
      painter.drawPolygon(QPolygonF({{left + cells.width * 0.3, top + cells.height * 0.2},
                                     {left + cells.width * 1.3, top + cells.height * 0.5},
                                     {left + cells.width * 0.3, top + cells.height * 0.8}}));
    }
  }
  painter.setPen(Qt::black);
  painter.setFont(PaperFont());
  painter.translate(cells.corner);
  painter.scale(cells.fontScale, cells.fontScale);
  const QFontMetricsF metrics(PaperFont());
  const qreal baseline = (cells.height / cells.fontScale + metrics.ascent() - metrics.descent()) / 2;
  qreal top = 0;
  for (const std::string& line : document.pages[page]) {
    const std::size_t first = line.find_first_not_of(' ');
    if (first != std::string::npos)
      painter.drawText(QPointF(static_cast<qreal>(first) * cells.width / cells.fontScale, top + baseline),
                       TextOf(std::string_view(line).substr(first)));
    top += cells.height / cells.fontScale;
  }
  painter.restore();
}

namespace {

bool Paint(QPainter& painter, QPagedPaintDevice& device, const Document& document, const PaperSetup& setup, const GoOn& goOn) {
  const Cells cells = CellsOf(document, setup);
  painter.scale(device.logicalDpiX() / kPointsPerInch, device.logicalDpiY() / kPointsPerInch);
  for (std::size_t page = 0; page < document.pages.size(); ++page) {
    if (!goOn(page) || (page > 0 && !device.newPage())) return false;
    PaintPage(painter, document, page, cells, Marks::Hidden);
  }
  return true;
}

bool Always(std::size_t /*page*/) { return true; }

}  // namespace

bool PaintPages(QPainter& painter, QPagedPaintDevice& device, const Document& document, const PaperSetup& setup) {
  return Paint(painter, device, document, setup, Always);
}

std::optional<std::string> DocumentPdf(const Document& document, const PaperSetup& setup, const GoOn& goOn) {
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  bool isWhole = false;
  {
    QPdfWriter pdf(&bytes);
    pdf.setTitle(TextOf(document.title));
    pdf.setCreator(QStringLiteral("Norvale"));
    pdf.setPageLayout(LayoutOf(setup));
    QPainter painter(&pdf);
    isWhole = Paint(painter, pdf, document, setup, goOn);
  }
  if (!isWhole) return std::nullopt;
  return bytes.data().toStdString();
}

std::string DocumentPdf(const Document& document, const PaperSetup& setup) { return *DocumentPdf(document, setup, Always); }

}  // namespace norvale
