#include "shell/frm_tasks.h"

#include "desktop/frm_text.h"
#include "entry/frm_calc.h"
#include "prices/frm_prices.h"
#include "printing/frm_dispatch.h"
#include "shell/frm_address.h"
#include "shell/status_line.h"

namespace norvale {

namespace {

void SayNotInThisVersion(Program& program, std::string_view what) {
  program.messages.ShowMessage(Notice(std::string(what) + " is not part of this version of Norvale yet."));
}

void EditCustomers(Program& program, QWidget* menu) { frmAddress(program, CustomerFormMode::Customer, menu).exec(); }

void EditCompany(Program& program, QWidget* menu) { frmAddress(program, CustomerFormMode::Company, menu).exec(); }

void EditPrices(Program& program, QWidget* menu) {
  const PrintPrices print = [&program](const PriceList&, QWidget*) { SayNotInThisVersion(program, "Printing the price list"); };
  frmPrices(program, print, menu).exec();
}

// The customer first, so that the checklist opens with his number and name; with Cancel they are typed there.
void EnterNewPlan(Program& program, QWidget* menu) {
  frmAddress(program, CustomerFormMode::Estimate, menu).exec();
  SayNotInThisVersion(program, "Entering plans");
}

}  // namespace

void RunTask(Program& program, MenuChoice choice, QWidget* menu) {
  switch (choice) {
    case MenuChoice::NewEstimate:
      EnterNewPlan(program, menu);
      break;
    case MenuChoice::ExistingEstimate:
      SayNotInThisVersion(program, "Opening plans");
      break;
    case MenuChoice::ExistingCustomer:
      EditCustomers(program, menu);
      break;
    case MenuChoice::CustomerList:
    case MenuChoice::PrintCustomerList:
      PrintDispatch(program, PrintKind::CustomerList, nullptr, menu);
      break;
    case MenuChoice::PrintWorksheet:
      PrintDispatch(program, PrintKind::Worksheet, nullptr, menu);
      break;
    case MenuChoice::PrintEstimate:
      SayNotInThisVersion(program, "Printing estimates");
      break;
    case MenuChoice::PrintEstimateList:
      PrintDispatch(program, PrintKind::EstimateList, nullptr, menu);
      break;
    case MenuChoice::CompanyInformation:
      EditCompany(program, menu);
      break;
    case MenuChoice::MaterialDefaults:
      SayNotInThisVersion(program, "Editing the material lists");
      break;
    case MenuChoice::Prices:
      EditPrices(program, menu);
      break;
    case MenuChoice::WasteFactors:
      SayNotInThisVersion(program, "Editing the waste factors");
      break;
    // The menu goes from panel to panel by itself.
    case MenuChoice::EstimateMenu:
    case MenuChoice::CustomerMenu:
    case MenuChoice::PrintMenu:
    case MenuChoice::UtilityMenu:
    case MenuChoice::MainMenu:
    case MenuChoice::LeaveProgram:
      break;
  }
}

void RunCalculator(Program& program, QWidget* control, CalculatorPlace& place) {
  OpenCalculator(program.messages, control, Shown(kCalculatorHint), place);
}

}  // namespace norvale
