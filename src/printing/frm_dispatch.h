// The way from a menu choice or a Print button to paper: the dialog of the kind, and then the print.
#pragma once

#include "desktop/program.h"
#include "prices/price_list.h"
#include "printing/frm_printer.h"
#include "printing/print_selection.h"

class QWidget;

namespace norvale {

/// Shows the dialog of the kind and prints what was asked for there. An estimate is the program's current plan, with
/// prices, lists and waste factors as they are on file now; `form` is that plan on the data-entry form, where it is loaded.
/// Cancelled, nothing is printed. Where a print fails, the dialog comes back as it was left.
void PrintDispatch(Program& program, PrintKind kind, const PlanForm* form, QWidget* parent);

/// The same with printers of the caller's.
void PrintDispatch(Program& program, PrintKind kind, const PlanForm* form, QWidget* parent, Printers& printers);

/// Shows the price list as it comes out on paper, and prints it from there.
void PrintPriceList(Program& program, const PriceList& prices, QWidget* parent);
void PrintPriceList(Program& program, const PriceList& prices, QWidget* parent, Printers& printers);

}  // namespace norvale
