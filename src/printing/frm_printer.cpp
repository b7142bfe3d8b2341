#include "printing/frm_printer.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLibrary>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProgressDialog>
#include <QPushButton>
#include <QSettings>
#include <QStandardPaths>
#include <algorithm>

#include "base/message.h"
#include "base/text.h"
#include "desktop/frm_text.h"

namespace norvale {

namespace {

constexpr int kPatience = 400;  // milliseconds before a print shows its progress

QSettings Settings() { return {QSettings::IniFormat, QSettings::UserScope, QStringLiteral("norvale"), QStringLiteral("printing")}; }
const QString kPaper = QStringLiteral("paper");
const QString kMargin = QStringLiteral("margin");
const QString kFolder = QStringLiteral("folder");
const QString kPrinter = QStringLiteral("printer");

QPageSize::PageSizeId PageSizeOf(const QString& key) {
  for (int id = 0; id <= QPageSize::LastPageSize; ++id)
    if (QPageSize::key(static_cast<QPageSize::PageSizeId>(id)) == key) return static_cast<QPageSize::PageSizeId>(id);
  return PaperSetup{}.size;
}

// The print spooler's own word on the last job of this thread. Qt hands a job over without looking at the answer.
class Spooler {
 public:
  Spooler()
      : lastError_(reinterpret_cast<int (*)()>(QLibrary::resolve(QStringLiteral("cups"), 2, "cupsLastError"))),
        lastErrorString_(reinterpret_cast<const char* (*)()>(QLibrary::resolve(QStringLiteral("cups"), 2, "cupsLastErrorString"))) {}

  /// Why it did not take the job; empty where it did, and where the system has another kind of spooler.
  [[nodiscard]] std::string Refusal() const {
    constexpr int kLastSuccess = 0x0007;
    if (lastError_ == nullptr || lastErrorString_ == nullptr || lastError_() <= kLastSuccess) return {};
    const char* const text = lastErrorString_();
    return text == nullptr || *text == '\0' ? "the print service did not take the job" : text;
  }

 private:
  int (*lastError_)();
  const char* (*lastErrorString_)();
};

// Its own button reads "Print", which it does not do here.
void NameButtons(QPrintDialog& dialog) {
  auto* const buttons = dialog.findChild<QDialogButtonBox*>();
  if (buttons == nullptr) return;  // the platform's own window
  if (QPushButton* const ok = buttons->button(QDialogButtonBox::Ok)) ok->setText(QObject::tr("&Select"));
}

}  // namespace

PrintSetup LoadPrintSetup() {
  const QSettings settings = Settings();
  PrintSetup setup;
  setup.paper.size = PageSizeOf(settings.value(kPaper).toString());
  bool isNumber = false;
  const double margin = settings.value(kMargin).toDouble(&isNumber);
  if (isNumber) setup.paper.margin = std::clamp(margin, kLeastMargin, kLargestMargin);
  setup.printer = settings.value(kPrinter).toString();
  return setup;
}

void SavePrintSetup(const PrintSetup& setup) {
  QSettings settings = Settings();
  settings.setValue(kPaper, QPageSize::key(setup.paper.size));
  settings.setValue(kMargin, setup.paper.margin);
  settings.setValue(kPrinter, setup.printer);
}

QString LoadSaveFolder() {
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  const QString folder = Settings().value(kFolder, documents).toString();
  return QFileInfo(folder).isDir() ? folder : documents;
}

void SaveSaveFolder(const QString& folder) { Settings().setValue(kFolder, folder); }

SystemPrinters::SystemPrinters() = default;
SystemPrinters::~SystemPrinters() = default;

bool SystemPrinters::HasAny() const { return !QPrinterInfo::availablePrinterNames().isEmpty(); }

QPrinter& SystemPrinters::PrinterOf(const PrintSetup& setup) {
  if (printer_ == nullptr) {
    printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    if (!setup.printer.isEmpty()) printer_->setPrinterName(setup.printer);
  }
  printer_->setPageLayout(LayoutOf(setup.paper));
  printer_->setFullPage(true);
  return *printer_;
}

PrintOutcome SystemPrinters::Print(const Document& document, const PrintSetup& setup, const GoOn& goOn) {
  const std::string name = setup.printer.isEmpty() ? "The printer" : "The printer " + Typed(setup.printer);
  const auto failed = [&name](const std::string& reason) {
    return PrintOutcome{.end = PrintEnd::Failed, .copies = 0, .reason = name + " cannot be used: " + reason + "."};
  };
  // One that has been taken away since is not printed on in silence, and nor is another one in its place.
  if (!setup.printer.isEmpty() && QPrinterInfo::printerInfo(setup.printer).isNull()) return failed("it is not installed any more");
  // A job that has begun cannot be taken back on every system, so the pages are made once for nobody, who can be stopped.
  if (!DocumentPdf(document, setup.paper, goOn)) return {.end = PrintEnd::Stopped, .copies = 0, .reason = {}};

  QPrinter& printer = PrinterOf(setup);
  printer.setDocName(Shown(ToUtf8(document.title)));
  printer.setCreator(QStringLiteral("Norvale"));
  QPainter painter;
  if (!painter.begin(&printer)) return failed("it does not answer");
  const bool isWhole = PaintPages(painter, printer, document, setup.paper);
  const bool isClosed = painter.end();
  if (!isWhole || !isClosed || printer.printerState() == QPrinter::Error) return failed("it stopped taking pages");
  if (printer.outputFormat() == QPrinter::NativeFormat)
    if (const std::string refusal = Spooler().Refusal(); !refusal.empty()) return failed(refusal);
  return {.end = PrintEnd::Done, .copies = 1, .reason = {}};
}

bool SystemPrinters::Choose(PrintSetup& setup, int& copies, QWidget* parent) {
  QPrinter& printer = PrinterOf(setup);
  printer.setCopyCount(copies);
  QPrintDialog dialog(&printer, parent);
  dialog.setObjectName(QStringLiteral("frmPrinter"));
  dialog.setWindowTitle(QObject::tr("Select Printer"));
  dialog.setOptions(QAbstractPrintDialog::PrintShowPageSize);
  NameButtons(dialog);
  const bool isChosen = dialog.exec() == QDialog::Accepted;
  // Each copy is a job of its own, so that each begins on a sheet of its own.
  if (isChosen) copies = printer.copyCount();
  printer.setCopyCount(1);
  if (!isChosen) return false;
  setup.printer = printer.printerName();
  if (printer.pageLayout().pageSize().id() != QPageSize::Custom) setup.paper.size = printer.pageLayout().pageSize().id();
  return true;
}

PrintOutcome PrintCopies(Printers& printers, const Document& document, int copies, const PrintSetup& setup, QWidget* parent) {
  const auto pages = static_cast<int>(document.pages.size());
  QProgressDialog progress(parent);
  progress.setObjectName(QStringLiteral("frmProgress"));
  progress.setWindowTitle(QObject::tr("Print"));
  progress.setWindowModality(Qt::ApplicationModal);
  progress.setMinimumDuration(kPatience);
  progress.setRange(0, copies * pages);
  progress.setCancelButtonText(QObject::tr("&Cancel"));
  PrintOutcome outcome;
  for (int copy = 0; copy < copies; ++copy) {
    const PrintOutcome one = printers.Print(document, setup, [&](std::size_t page) {
      const int number = static_cast<int>(page);
      progress.setLabelText(QObject::tr("Page %1 of %2, copy %3 of %4").arg(number + 1).arg(pages).arg(copy + 1).arg(copies));
      progress.setValue(copy * pages + number);  // looks for the Cancel button once its window is up
      return !progress.wasCanceled();
    });
    outcome.copies += one.copies;
    outcome.end = one.end;
    outcome.reason = one.reason;
    if (one.end != PrintEnd::Done) break;
  }
  progress.reset();
  return outcome;
}

std::string NoticeOf(const PrintOutcome& outcome, int copies) {
  const std::string went =
      copies == 1 ? "" : " " + std::to_string(outcome.copies) + " of " + std::to_string(copies) + " copies went to the printer.";
  switch (outcome.end) {
    case PrintEnd::Stopped:
      return Notice("Printing was stopped." + went);
    case PrintEnd::Failed:
      return Notice(outcome.reason + went + " What you chose is kept: select another printer, or save the pages as a PDF.");
    case PrintEnd::Done:
      break;
  }
  return {};
}

}  // namespace norvale
