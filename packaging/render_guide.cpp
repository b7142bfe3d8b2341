// Sets the whole user guide as one PDF: render_guide OUTPUT CONTENTS
//
// CONTENTS lies among the pages and names them in the order in which they are read, one a line, without ".md".
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>
#include <cstdio>

namespace {

constexpr int kResolution = 96;  // dots an inch: the measures of the pictures
constexpr double kTextWidth = 6.3 * kResolution;

bool ReadText(const QString& name, QString& text) {
  QFile file(name);
  if (!file.open(QIODevice::ReadOnly))
    return std::fprintf(stderr, "render_guide: %s: %s\n", qPrintable(name), qPrintable(file.errorString())), false;
  text = QString::fromUtf8(file.readAll());
  return true;
}

void DressTables(QTextFrame& frame) {
  for (QTextFrame* const child : frame.childFrames()) {
    DressTables(*child);
    auto* const table = qobject_cast<QTextTable*>(child);
    if (table == nullptr) continue;
    QTextTableFormat format = table->format();
    format.setCellPadding(4);
    format.setCellSpacing(0);
    format.setBorderCollapse(true);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorder(0.5);
    format.setBorderBrush(QColor(0xC9, 0xD1, 0xDB));
    format.setTopMargin(6);
    format.setBottomMargin(12);
    table->setFormat(format);
  }
}

// Pictures of forms, no wider than the text. False where one is missing.
bool FitPictures(QTextDocument& document, const QDir& folder) {
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
    for (auto at = block.begin(); !at.atEnd(); ++at) {
      const QTextCharFormat format = at.fragment().charFormat();
      if (!format.isImageFormat()) continue;
      QTextImageFormat picture = format.toImageFormat();
      const QImage image(folder.filePath(picture.name()));
      if (image.isNull()) {
        std::fprintf(stderr, "render_guide: %s is no picture\n", qPrintable(picture.name()));
        return false;
      }
      document.addResource(QTextDocument::ImageResource, QUrl(picture.name()), image);
      picture.setWidth(std::min(kTextWidth, image.width() * 0.7));
      picture.setHeight(image.height() * picture.width() / image.width());
      QTextCursor cursor(&document);
      cursor.setPosition(at.fragment().position());
      cursor.setPosition(at.fragment().position() + at.fragment().length(), QTextCursor::KeepAnchor);
      cursor.setCharFormat(picture);
      break;
    }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication app(argc, argv);
  if (argc != 3) return std::fputs("render_guide OUTPUT CONTENTS\n", stderr), 2;
  const QString contents = QString::fromLocal8Bit(argv[2]);
  const QDir folder = QFileInfo(contents).dir();
  QString pages;
  if (!ReadText(contents, pages)) return 1;

  QTextDocument guide;
  guide.setDefaultFont(QFont(QStringLiteral("DejaVu Sans"), 9));
  QTextCursor cursor(&guide);
  bool isFirst = true;
  for (const QString& page : pages.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
    QString text;
    if (!ReadText(folder.filePath(page + QStringLiteral(".md")), text)) return 1;
    if (!isFirst) cursor.insertBlock(QTextBlockFormat());
    const int start = cursor.position();
    cursor.insertMarkdown(text);
    QTextCursor head(&guide);
    head.setPosition(start);
    QTextBlockFormat format = head.blockFormat();
    if (!isFirst) format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    head.setBlockFormat(format);
    cursor.movePosition(QTextCursor::End);
    isFirst = false;
  }
  DressTables(*guide.rootFrame());
  if (!FitPictures(guide, folder)) return 1;

  QPdfWriter writer(QString::fromLocal8Bit(argv[1]));
  writer.setTitle(QStringLiteral("Norvale: user guide"));
  writer.setPageSize(QPageSize(QPageSize::Letter));
  guide.print(&writer);
  return 0;
}
