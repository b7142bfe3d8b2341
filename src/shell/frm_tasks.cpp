#include "shell/frm_tasks.h"

#include "desktop/frm_text.h"
#include "entry/frm_calc.h"
#include "entry/frm_checklst.h"
#include "prices/frm_mat_default.h"
#include "prices/frm_prices.h"
#include "prices/frm_waste.h"
#include "printing/frm_dispatch.h"
#include "printing/frm_live_list.h"
#include "shell/frm_address.h"
#include "shell/frm_restore.h"
#include "shell/status_line.h"

namespace norvale {

namespace {

void EditCustomers(Program& program, QWidget* menu) { frmAddress(program, CustomerFormMode::Customer, menu).exec(); }

void EditCompany(Program& program, QWidget* menu) { frmAddress(program, CustomerFormMode::Company, menu).exec(); }

void EditPrices(Program& program, QWidget* menu) {
  const PrintPrices print = [&program](const PriceList& prices, QWidget* form) { PrintPriceList(program, prices, form); };
  frmPrices(program, print, menu).exec();
}

void EditMaterialLists(Program& program, QWidget* menu) {
  Try(program.messages, [&] { frmMatDefault(program, menu).exec(); });
}

void EditWasteFactors(Program& program, QWidget* menu) {
  Try(program.messages, [&] { frmWaste(program, menu).exec(); });
}

// What the workflow of a plan needs of forms that stand above entry.
PlanTasks TasksOfPlans(Program& program) {
  PlanTasks tasks;
  tasks.chooseCustomer = [&program](QWidget* parent) {
    return frmAddress(program, CustomerFormMode::Estimate, parent).exec() == QDialog::Accepted;
  };
  tasks.printEstimate = [&program](const PlanForm& form, QWidget* parent) { PrintDispatch(program, PrintKind::Estimate, &form, parent); };
  tasks.makeLivePanel = [&program](QWidget* parent) -> LivePanel* { return new LiveList(program, parent); };
  return tasks;
}

void OpenPlans(Program& program, ChecklistPurpose purpose, QWidget* menu) {
  frmChecklst(program, purpose, TasksOfPlans(program), menu).exec();
}

}  // namespace

void RunTask(Program& program, MenuChoice choice, QWidget* menu) {
  switch (choice) {
    case MenuChoice::NewEstimate:
      OpenPlans(program, ChecklistPurpose::NewPlan, menu);
      break;
    case MenuChoice::ExistingEstimate:
      OpenPlans(program, ChecklistPurpose::ExistingPlans, menu);
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
      OpenPlans(program, ChecklistPurpose::PrintPlans, menu);
      break;
    case MenuChoice::PrintEstimateList:
      PrintDispatch(program, PrintKind::EstimateList, nullptr, menu);
      break;
    case MenuChoice::CompanyInformation:
      EditCompany(program, menu);
      break;
    case MenuChoice::MaterialDefaults:
      EditMaterialLists(program, menu);
      break;
    case MenuChoice::Prices:
      EditPrices(program, menu);
      break;
    case MenuChoice::WasteFactors:
      EditWasteFactors(program, menu);
      break;
    case MenuChoice::Backups:
      frmRestore(program, menu).exec();
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

void OfferUnsavedPlan(Program& program) { OfferDraft(program, TasksOfPlans(program)); }

void RunCalculator(Program& program, QWidget* control, CalculatorPlace& place) {
  OpenCalculator(program.messages, control, Shown(kCalculatorHint), place);
}

}  // namespace norvale
