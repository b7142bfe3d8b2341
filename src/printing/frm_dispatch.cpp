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

}  // namespace norvale
