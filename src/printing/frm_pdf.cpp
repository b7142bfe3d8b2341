#include "printing/frm_pdf.h"

#include <QGuiApplication>

#include "printing/frm_page_painter.h"

namespace norvale {

std::string PdfWithoutScreen(const Document& document) {
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});  // of windows that are not there
  qputenv("QT_QPA_PLATFORM", "offscreen");
  int words = 1;
  char name[] = "norvale-tool";
  char* word[] = {name, nullptr};
  const QGuiApplication fonts(words, word);
  return DocumentPdf(document, {});
}

}  // namespace norvale
