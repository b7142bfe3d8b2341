// A finished print on its way out: to the printer, to the screen, into a file.
#pragma once

#include <string>

#include "desktop/program.h"
#include "printing/frm_printer.h"
#include "printing/print_request.h"

class QWidget;

namespace norvale {

/// Today as it is printed: MM-DD-YYYY.
std::string TodayOnPaper();

/// What is said where something needs a printer and there is none.
inline constexpr std::string_view kNoPrinter =
    "No printer is installed on this computer. Preview shows the pages on the screen, and Save As keeps them as a PDF.";

/// Prints the copies and tells the operator where they did not all get through. Without any printer, the preview is offered
/// instead. Returns whether all went on paper.
bool PrintOut(Program& program, const Prints& prints, int copies, PrintSetup& setup, Printers& printers, QWidget* parent);

/// Shows the pages, and saves them where asked. Returns whether they are to be printed now.
bool ShowPreview(Program& program, const Prints& prints, PrintSetup& setup, Printers& printers, QWidget* parent);

/// Asks for a name and saves the print under it, as a PDF, a text or, where there is one, a table. A file that cannot be
/// written is told to the operator.
void SavePrints(Program& program, const Prints& prints, const PaperSetup& paper, QWidget* parent);

}  // namespace norvale
