// The printers of the system, and what is remembered of them.
#pragma once

#include <QString>
#include <memory>
#include <string>

#include "printing/frm_page_painter.h"

class QPrinter;
class QWidget;

namespace norvale {

/// What the print set-up remembers from one print to the next.
struct PrintSetup {
  PaperSetup paper;
  QString printer;  // empty: the system's default
};

/// The set-up of this user on this machine. It stands in the user's own settings and not in the working folder: printers
/// and their paper belong to the machine, while the folder may be shared, moved to another one or restored from a copy.
PrintSetup LoadPrintSetup();
void SavePrintSetup(const PrintSetup& setup);

/// Where the operator has last saved a print; at first his documents.
QString LoadSaveFolder();
void SaveSaveFolder(const QString& folder);

enum class PrintEnd { Done, Stopped, Failed };

/// How a print ended.
struct PrintOutcome {
  PrintEnd end = PrintEnd::Done;
  int copies = 0;      // that went to the printer whole
  std::string reason;  // why it failed, in a sentence; UTF-8
};

/// Where documents go on paper. The program has the system's printers; a test has its own.
class Printers {
 public:
  Printers() = default;
  Printers(const Printers&) = delete;
  Printers& operator=(const Printers&) = delete;
  virtual ~Printers() = default;

  /// Whether there is any printer to print on.
  [[nodiscard]] virtual bool HasAny() const = 0;

  /// Prints the document once, as a job of its own. Where `goOn` says no, nothing of it comes out.
  virtual PrintOutcome Print(const Document& document, const PrintSetup& setup, const GoOn& goOn) = 0;

  /// Lets the operator choose a printer and its paper. Returns whether he did; `copies` is changed where he set it there.
  virtual bool Choose(PrintSetup& setup, int& copies, QWidget* parent) = 0;
};

class SystemPrinters final : public Printers {
 public:
  SystemPrinters();
  ~SystemPrinters() override;

  [[nodiscard]] bool HasAny() const override;
  PrintOutcome Print(const Document& document, const PrintSetup& setup, const GoOn& goOn) override;
  bool Choose(PrintSetup& setup, int& copies, QWidget* parent) override;

 private:
  QPrinter& PrinterOf(const PrintSetup& setup);

  std::unique_ptr<QPrinter> printer_;  // keeps what was chosen beside the paper: both sides, tray, colour
};

/// Prints `copies` of the document one after the other, and shows how far it is above `parent` where that takes a while; the
/// operator may stop it there.
PrintOutcome PrintCopies(Printers& printers, const Document& document, int copies, const PrintSetup& setup, QWidget* parent);

/// What the operator is told of a print that did not reach its end; empty where it did.
std::string NoticeOf(const PrintOutcome& outcome, int copies);

}  // namespace norvale
