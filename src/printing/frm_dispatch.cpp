#include "printing/frm_dispatch.h"

#include "printing/frm_print_out.h"
#include "printing/frm_prtsel.h"

namespace norvale {

void PrintDispatch(Program& program, PrintKind kind, const PlanForm* form, QWidget* parent) {
  SystemPrinters printers;
  PrintDispatch(program, kind, form, parent, printers);
}

void PrintDispatch(Program& program, PrintKind kind, const PlanForm* form, QWidget* parent, Printers& printers) {
  frmPrtSel dialog(program, kind, form, printers, parent);
  bool isDone = false;
  while (!isDone && dialog.exec() == QDialog::Accepted) {
    Try(program.messages, [&] {
      const Prints prints = MakePrints(program.folder, program.session, dialog.Request(), TodayOnPaper());
      if (!prints.refusal.empty()) {
        program.messages.ShowMessage(WithTitle(prints.refusal));
        isDone = true;
        return;
      }
      isDone = PrintOut(program, prints, dialog.Copies(), dialog.Setup(), printers, parent);
    });
  }
}

void PrintPriceList(Program& program, const PriceList& prices, QWidget* parent) {
  SystemPrinters printers;
  PrintPriceList(program, prices, parent, printers);
}

void PrintPriceList(Program& program, const PriceList& prices, QWidget* parent, Printers& printers) {
  const Prints prints = MakePriceListPrints(prices, program.session, TodayOnPaper());
  if (!prints.refusal.empty()) {
    program.messages.ShowMessage(WithTitle(prints.refusal));
    return;
  }
  PrintSetup setup = LoadPrintSetup();
  // A print that failed leaves the pages in sight, to be tried again or saved.
  while (ShowPreview(program, prints, setup, printers, parent) && !PrintOut(program, prints, 1, setup, printers, parent)) {
  }
}

}  // namespace norvale
