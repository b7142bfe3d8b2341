// Draws the program's picture in the sizes that desktops ask for: render_icons PICTURE.svg FOLDER SIZE...
// The files lie as they are installed: FOLDER/48x48/apps/norvale.png.
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

int main(int argc, char** argv) {
  if (argc < 4) return std::fputs("render_icons PICTURE.svg FOLDER SIZE...\n", stderr), 2;
  QSvgRenderer picture(QString::fromLocal8Bit(argv[1]));
  for (int i = 3; i < argc; ++i) {
    const int side = QByteArray(argv[i]).toInt();
    const QString folder = QStringLiteral("%1/%2x%2/apps").arg(QString::fromLocal8Bit(argv[2])).arg(side);
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    picture.render(&painter);
    painter.end();
    if (!picture.isValid() || !QDir().mkpath(folder) || !image.save(folder + QStringLiteral("/norvale.png"))) {
      std::fprintf(stderr, "%s cannot be drawn at %d into %s\n", argv[1], side, argv[2]);
      return 1;
    }
  }
  return 0;
}
