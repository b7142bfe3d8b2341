// What stands on paper, on the screen and in a PDF is what stands in the text.
#include "printing/frm_page_painter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QStandardPaths>
#include <QSvgGenerator>
#include <QTransform>
#include <QXmlStreamReader>
#include <cmath>
#include <map>

#include "base/text.h"
#include "printing/estimate_document.h"
#include "printing/frm_preview.h"
#include "printing/print_selection.h"
#include "samples/samples.h"
#include "support/scratch_folder.h"

namespace norvale {
namespace {

using Lines = std::vector<std::string>;

// Every sample plan with its prices, as the dialog would print it.
std::vector<Document> SampleDocuments() {
  const Samples& samples = RepositorySamples();
  std::vector<Document> documents;
  for (const EstimateRecord& plan : samples.plans)
    documents.push_back(MakeEstimateDocument({.plan = plan,
                                              .company = samples.Customer(kCompanyNumber),
                                              .customer = samples.Customer(plan.CustomerNumber),
                                              .date = "01-01-2026",
                                              .sectionMask = DefaultSections(plan) | kWithPrices},
                                             samples.data)
                            .document);
  return documents;
}

Lines Utf8LinesOf(const PageText& page) {
  Lines lines;
  for (const std::string& line : page) lines.push_back(ToUtf8(line));
  while (!lines.empty() && lines.back().empty()) lines.pop_back();
  return lines;
}

// The texts that were painted, back in their cells: a reading of the drawing, not of the document.
Lines ReadDrawing(const QByteArray& svg, const QTransform& toPoints, const Cells& cells) {
  std::map<int, std::string> lines;
  std::vector<QTransform> transforms{QTransform()};
  QXmlStreamReader xml(svg);
  while (!xml.atEnd()) {
    const auto token = xml.readNext();
    if (token == QXmlStreamReader::EndElement) transforms.pop_back();
    if (token != QXmlStreamReader::StartElement) continue;
    transforms.push_back(transforms.back());
    const QString matrix = xml.attributes().value(QLatin1String("transform")).toString();
    if (matrix.startsWith(QLatin1String("matrix("))) {
      const QStringList m = matrix.mid(7).chopped(1).split(QLatin1Char(','));
      transforms.back() = QTransform(m[0].toDouble(), m[1].toDouble(), m[2].toDouble(), m[3].toDouble(), m[4].toDouble(), m[5].toDouble());
    }
    if (xml.name() != QLatin1String("text")) continue;
    const QPointF at(xml.attributes().value(QLatin1String("x")).toDouble(), xml.attributes().value(QLatin1String("y")).toDouble());
    const QPointF place = toPoints.map(transforms.back().map(at)) - cells.corner;
    const auto row = static_cast<int>(std::floor(place.y() / cells.height));
    const double column = place.x() / cells.width;
    EXPECT_NEAR(column, std::round(column), 0.02) << "beside its column";
    std::string& line = lines[row];
    const QString text = xml.readElementText();
    transforms.pop_back();
    if (const auto gap = static_cast<int>(std::lround(column)) - QString::fromStdString(line).size(); gap > 0)
      line.append(static_cast<std::size_t>(gap), ' ');
    line += text.toStdString();
  }
  Lines read;
  for (const auto& [row, text] : lines) {
    if (row < 0 || row >= static_cast<int>(kPaperLines)) continue;  // of the sheet before or after
    read.resize(static_cast<std::size_t>(row));
    read.push_back(text);
  }
  return read;
}

TEST(PagePainter, PreviewShowsEveryLineOfEverySampleInItsColumn) {
  for (const Document& document : SampleDocuments()) {
    PageView view;
    view.SetDocument(document, {});
    view.resize(900, 1100);
    view.SetZoom(Zoom::FitPage);
    const Cells cells = CellsOf(document, {});
    for (int page = 0; page < view.PageCount(); ++page) {
      view.GoToPage(page);
      ASSERT_EQ(view.CurrentPage(), page);
      QBuffer svg;
      QSvgGenerator generator;
      generator.setOutputDevice(&svg);
      generator.setSize(view.viewport()->size());
      view.viewport()->render(&generator);
      const QRectF sheet = view.SheetRect(page);
      const qreal scale = cells.sheet.width() / sheet.width();
      const QTransform toPoints = QTransform::fromTranslate(-sheet.left(), -sheet.top()) * QTransform::fromScale(scale, scale);
      ASSERT_EQ(ReadDrawing(svg.data(), toPoints, cells), Utf8LinesOf(document.pages[static_cast<std::size_t>(page)]))
          << document.title << " page " << page + 1;
    }
  }
}

// Runs of blanks as one: a reader of PDF files measures gaps in letters of its own.
Lines Squeezed(const Lines& lines) {
  Lines squeezed;
  for (const std::string& line : lines) squeezed.push_back(QString::fromStdString(line).simplified().toStdString());
  return squeezed;
}

TEST(PagePainter, APdfReadsAsTheTextOfEverySample) {
  const QString reader = QStandardPaths::findExecutable(QStringLiteral("pdftotext"));
  if (reader.isEmpty()) GTEST_SKIP() << "pdftotext (poppler-utils) is not installed: the PDFs are not read";
  const ScratchFolder scratch;
  const QString file = QString::fromStdString((scratch / "list.pdf").string());
  for (const QPageSize::PageSizeId size : {QPageSize::Letter, QPageSize::A4})
    for (const Document& document : SampleDocuments()) {
      WriteBytes(scratch / "list.pdf", DocumentPdf(document, {.size = size}));
      QProcess read;
      read.start(reader, {QStringLiteral("-layout"), QStringLiteral("-enc"), QStringLiteral("UTF-8"), file, QStringLiteral("-")});
      ASSERT_TRUE(read.waitForFinished());
      ASSERT_EQ(read.exitCode(), 0);
      const QStringList pages = QString::fromUtf8(read.readAllStandardOutput()).split(QLatin1Char('\f'));
      ASSERT_EQ(pages.size(), static_cast<qsizetype>(document.pages.size()) + 1) << document.title;
      for (std::size_t page = 0; page < document.pages.size(); ++page) {
        Lines lines;
        for (const QString& line : pages[static_cast<qsizetype>(page)].split(QLatin1Char('\n'))) lines.push_back(line.toStdString());
        while (!lines.empty() && lines.back().empty()) lines.pop_back();
        ASSERT_EQ(Squeezed(lines), Squeezed(Utf8LinesOf(document.pages[page]))) << document.title << " page " << page + 1;
      }
    }
}

TEST(PagePainter, TheCellsStayWithinTheMargins) {
  Document usual{.title = "usual", .pages = {PageText(kPaperLines, std::string(kPaperColumns, 'M'))}, .marks = {}};
  Document wide = usual;
  wide.pages[0][3] = std::string(97, 'M');
  Document tall = usual;
  tall.pages[0].resize(72, "x");
  for (const QPageSize::PageSizeId size : {QPageSize::Letter, QPageSize::Legal, QPageSize::A4, QPageSize::A5})
    for (const qreal margin : {kLeastMargin, 0.5, kLargestMargin})
      for (const Document* document : {&usual, &wide, &tall}) {
        const Cells cells = CellsOf(*document, {.size = size, .margin = margin});
        const qreal edge = margin * 72 - 0.6;  // paper sizes are whole points
        const auto columns = static_cast<qreal>(document == &wide ? 97 : 80);
        const auto lines = static_cast<qreal>(document == &tall ? 72 : 66);
        const QRectF text(cells.corner, QSizeF(cells.width * columns, cells.height * lines));
        EXPECT_TRUE(QRectF(QPointF(), cells.sheet).adjusted(edge, edge, -edge, -edge).contains(text))
            << document->title << ", paper " << size << ", margin " << margin;
        EXPECT_GT(cells.height, cells.width) << size;
      }
}

TEST(PagePainter, MarksAreForTheEyeAlone) {
  Document document{.title = "marks", .pages = {{"one", "two", "three"}, {"four"}}, .marks = {{0, 1}, {1, 0}}};
  const Cells cells = CellsOf(document, {});
  const auto picture = [&cells](const Document& shown, std::size_t page, Marks marks) {
    QImage image(cells.sheet.toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    PaintPage(painter, shown, page, cells, marks);
    return image;
  };
  Document plain = document;
  plain.marks.clear();
  EXPECT_EQ(DocumentPdf(document, {}).size(), DocumentPdf(plain, {}).size());
  for (const std::size_t page : {std::size_t{0}, std::size_t{1}}) {
    const QImage paper = picture(plain, page, Marks::Shown);
    EXPECT_EQ(picture(document, page, Marks::Hidden), paper);
    const QImage screen = picture(document, page, Marks::Shown);
    const auto marked = static_cast<int>(page == 0 ? 1 : 0);
    for (int line = 0; line < 3; ++line) {
      const auto y = static_cast<int>(cells.corner.y() + (line + 0.5) * cells.height);
      const auto x = static_cast<int>(cells.corner.x() + 40 * cells.width);
      EXPECT_EQ(screen.pixel(x, y) != paper.pixel(x, y), line == marked) << page << " " << line;
    }
  }
}

}  // namespace
}  // namespace norvale
