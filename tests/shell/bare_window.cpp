// The least that a Qt program with an opening form and a window can be: what the start of the program is measured against.
#include <QApplication>
#include <QDialog>
#include <QPushButton>
#include <QVBoxLayout>

int main(int argc, char** argv) {
  const QApplication app(argc, argv);
  QDialog start;
  start.setWindowTitle(QStringLiteral("Bare start"));
  QPushButton ok(QStringLiteral("OK"));
  QVBoxLayout startLayout(&start);
  startLayout.addWidget(&ok);
  QObject::connect(&ok, &QPushButton::clicked, &start, &QDialog::accept);
  start.exec();
  QDialog window;
  window.setWindowTitle(QStringLiteral("Bare window"));
  QVBoxLayout windowLayout(&window);
  for (int i = 0; i < 5; ++i) windowLayout.addWidget(new QPushButton(QString::number(i)));
  window.resize(1024, 700);
  window.exec();
  return 0;
}
