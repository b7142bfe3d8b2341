// Paints the pages of a document: the same cells on paper, on the screen and in a PDF.
//
// Needs only a QGuiApplication, so that a PDF can be made without a screen.
#pragma once

#include <QFont>
#include <QPageLayout>
#include <QPointF>
#include <QSizeF>
#include <functional>
#include <optional>
#include <string>

#include "printing/document.h"

class QPagedPaintDevice;
class QPainter;

namespace norvale {

/// The paper of the print set-up, always upright.
struct PaperSetup {
  QPageSize::PageSizeId size = QPageSize::Letter;
  qreal margin = 0.5;  // inches, on all four sides

  bool operator==(const PaperSetup&) const = default;
};

inline constexpr qreal kLeastMargin = 0.25;
inline constexpr qreal kLargestMargin = 1.5;

/// The layout for a device that is painted from the corner of the sheet.
QPageLayout LayoutOf(const PaperSetup& setup);

/// How the cells of a document lie on the sheet: 80 columns and 66 lines fill the space between the margins; where the
/// document has longer lines or pages, they still fit. All in points, 72 to the inch.
struct Cells {
  QSizeF sheet;
  QPointF corner;  // the upper left one of line 1, column 1
  qreal width = 0;
  qreal height = 0;
  qreal fontScale = 1;  // from the font's own size
};
Cells CellsOf(const Document& document, const PaperSetup& setup);

/// The fixed-pitch font of every page.
const QFont& PaperFont();

enum class Marks { Hidden, Shown };

/// Paints page `page` (from 0) onto a sheet whose corner is the painter's origin and whose units are points. The document's
/// marks are for the eye at the screen; paper shows none.
void PaintPage(QPainter& painter, const Document& document, std::size_t page, const Cells& cells, Marks marks);

/// Asked before each page, by its number from 0, whether to go on.
using GoOn = std::function<bool(std::size_t)>;

/// Paints page after page on a device on which `painter` has begun and whose origin is the corner of the sheet. Returns
/// whether the device took them all.
bool PaintPages(QPainter& painter, QPagedPaintDevice& device, const Document& document, const PaperSetup& setup);

/// The document as a PDF file, its text as text; nothing where `goOn` has said no.
std::optional<std::string> DocumentPdf(const Document& document, const PaperSetup& setup, const GoOn& goOn);
std::string DocumentPdf(const Document& document, const PaperSetup& setup);

}  // namespace norvale
