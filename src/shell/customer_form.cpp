#include "shell/customer_form.h"

#include <cstdint>

#include "base/numbers.h"
#include "base/text.h"
#include "data/customer_file.h"

namespace norvale {

namespace {

template <std::size_t Width>
std::string ShownText(const FixedText<Width>& field) {
  return ToUtf8(TrimRight(field.Padded()));
}

// Calls `visit(box, field)` for the box of each text field.
template <typename Record, typename Visit>
void ForEachBox(Record& customer, Visit visit) {
  visit(CustomerBox::Name, customer.CustomerName);
  visit(CustomerBox::Address1, customer.AddressLine1);
  visit(CustomerBox::Address2, customer.AddressLine2);
  visit(CustomerBox::City, customer.City);
  visit(CustomerBox::State, customer.State);
  visit(CustomerBox::Zip, customer.Zip);
  visit(CustomerBox::Contact, customer.Contact);
  visit(CustomerBox::Telephone, customer.Telephone);
  visit(CustomerBox::Fax, customer.Fax);
  visit(CustomerBox::Note1, customer.Note1);
  visit(CustomerBox::Note2, customer.Note2);
}

void Show(const Session& session, CustomerForm& form, bool hasCustomer) {
  form.isLookingUp = false;
  form.hasCustomer = hasCustomer;
  form.focus = CustomerBox::Name;
  form.boxes = {};
  if (!hasCustomer) return;
  form.Text(CustomerBox::Number) = Digits(session.CurrentCustomer.CustomerRecordNumber);
  ForEachBox(session.CurrentCustomer, [&form](CustomerBox box, const auto& field) { form.Text(box) = ShownText(field); });
}

// Reads the customer at the cursor again and shows him.
void ShowCurrent(Program& program, CustomerForm& form) {
  Show(program.session, form, ReadCustomerAtCursor(program.folder, program.session));
}

// The current customer with what stands in the boxes. A field that nobody touched keeps its bytes. Nothing, after a
// notice, where a text holds a character that the files cannot.
std::optional<CustomerRecord> Typed(Program& program, CustomerForm& form) {
  CustomerRecord customer = program.session.CurrentCustomer;
  std::optional<CustomerBox> refused;
  ForEachBox(customer, [&](CustomerBox box, auto& field) {
    if (form.Text(box) == ShownText(field)) return;
    if (const auto text = FromUtf8(form.Text(box)))
      field.Assign(*text);
    else if (!refused)
      refused = box;
  });
  if (refused) {
    form.focus = *refused;
    program.messages.ShowMessage(
        Notice(std::string(InfoOf(*refused).label) + " holds a character that the customer file cannot keep. Type it another way."));
    return std::nullopt;
  }
  customer.CustomerRecordNumber =
      form.mode == CustomerFormMode::Company ? kCompanyNumber : static_cast<std::int16_t>(WholeNumber(form.Text(CustomerBox::Number)));
  return customer;
}

bool RefuseNumber(Program& program, CustomerForm& form, const std::string& message) {
  form.focus = CustomerBox::Number;
  program.messages.ShowMessage(message);
  return false;
}

// Writes what was typed, where anything was. Returns whether the form may go on to something else.
bool Save(Program& program, CustomerForm& form) {
  Session& session = program.session;
  if (!form.hasCustomer) return true;
  const std::optional<CustomerRecord> typed = Typed(program, form);
  if (!typed) return false;
  if (*typed == session.CurrentCustomer && !session.customerIsNew) return true;

  const CustomerRecord before = session.CurrentCustomer;
  auto result = SaveCustomerResult::Saved;
  try {
    session.CurrentCustomer = *typed;
    if (form.mode == CustomerFormMode::Company)
      SaveCompany(program.folder, session);
    else
      result = SaveCustomer(program.folder, session);
  } catch (const FileError&) {
    session.CurrentCustomer = before;
    throw;
  }
  if (result == SaveCustomerResult::Saved) return true;
  session.CurrentCustomer = before;
  if (result == SaveCustomerResult::NumberReserved) return RefuseNumber(program, form, WithTitle(kNumberReserved));
  return RefuseNumber(program, form,
                      Notice("Another customer has the number " + Digits(typed->CustomerRecordNumber) + ". Use a free one."));
}

void Add(Program& program, CustomerForm& form) {
  if (program.session.customerIsNew || !Save(program, form)) return;
  switch (AddBlankCustomer(program.folder, program.session)) {
    case AddCustomer::Added:
      Show(program.session, form, true);
      break;
    case AddCustomer::AlreadyAdding:
      break;
    case AddCustomer::NoNumberLeft:
      program.messages.ShowMessage(Notice("All customer numbers from 1 to 32766 are in use. Delete a customer first."));
      break;
  }
}

void Delete(Program& program, CustomerForm& form) {
  if (program.messages.ShowMessage(std::string(kDeleteCustomerQuestion)) != Answer::Yes) return;
  try {
    (void)DeleteCustomer(program.folder, program.session);  // the form shows whoever is left, whatever was deleted
  } catch (const FileError&) {
    form.hasCustomer = false;  // nothing is saved over anybody before he is read again
    ShowCurrent(program, form);
    throw;
  }
  ShowCurrent(program, form);
}

void Find(Program& program, CustomerForm& form) {
  if (!Save(program, form)) return;
  program.session.CustomerSearchText.clear();
  form.isLookingUp = true;
  form.Text(CustomerBox::Number).clear();
  form.Text(CustomerBox::Name).clear();
  form.focus = CustomerBox::Number;
}

void Step(Program& program, CustomerForm& form, int direction) {
  if (!Save(program, form)) return;
  const StepResult step = MoveCustomer(program.folder, program.session, direction);
  if (!step.notice.empty()) program.messages.ShowMessage(WithTitle(ToUtf8(step.notice)));
  Show(program.session, form, step.hasRecord);
}

// Leaves the form; the record that it was opened for stays the current one.
void Close(Program& program, CustomerForm& form, bool isAccepted) {
  program.session.CustomerSearchText.clear();
  form.isLookingUp = false;
  form.isAccepted = isAccepted;
  form.isOpen = false;
  if (form.mode == CustomerFormMode::Company) CloseCompany(program.folder, program.session);
}

void Ok(Program& program, CustomerForm& form) {
  if (form.mode != CustomerFormMode::Company) {
    const int number = WholeNumber(form.Text(CustomerBox::Number));
    if (number < 1 || number > kHighestCustomerNumber) {
      RefuseNumber(program, form, WithTitle(kNumberReserved));
      return;
    }
  }
  if (Save(program, form)) Close(program, form, true);
}

void Cancel(Program& program, CustomerForm& form) {
  if (form.isLookingUp)
    Show(program.session, form, true);
  else
    CloseCustomerForm(program, form);
}

}  // namespace

const CustomerBoxInfo& InfoOf(CustomerBox box) {
  static constexpr std::array<CustomerBoxInfo, kCustomerBoxes> boxes = {{
      {"Number", 5},
      {"Name", decltype(CustomerRecord::CustomerName)::kWidth},
      {"Address", decltype(CustomerRecord::AddressLine1)::kWidth},
      {"Address, line 2", decltype(CustomerRecord::AddressLine2)::kWidth},
      {"City", decltype(CustomerRecord::City)::kWidth},
      {"State", decltype(CustomerRecord::State)::kWidth},
      {"Zip", decltype(CustomerRecord::Zip)::kWidth},
      {"Contact", decltype(CustomerRecord::Contact)::kWidth},
      {"Telephone", decltype(CustomerRecord::Telephone)::kWidth},
      {"Fax", decltype(CustomerRecord::Fax)::kWidth},
      {"Note", decltype(CustomerRecord::Note1)::kWidth},
      {"Note, line 2", decltype(CustomerRecord::Note2)::kWidth},
  }};
  return boxes[static_cast<std::size_t>(box)];
}

CustomerForm OpenCustomerForm(Program& program, CustomerFormMode mode) {
  CustomerForm form;
  form.mode = mode;
  program.session.CustomerSearchText.clear();
  const bool isRead = Try(program.messages, [&] {
    if (mode == CustomerFormMode::Company) {
      OpenCompany(program.folder, program.session);
      Show(program.session, form, true);
      return;
    }
    ShowCurrent(program, form);
    if (mode == CustomerFormMode::Estimate && !form.hasCustomer) Add(program, form);
  });
  if (!isRead) form.isOpen = false;
  return form;
}

void PressButton(Program& program, CustomerForm& form, CustomerButton button) {
  if (!IsEnabled(form, button)) return;
  Try(program.messages, [&] {
    switch (button) {
      case CustomerButton::Delete:
        Delete(program, form);
        break;
      case CustomerButton::Add:
        Add(program, form);
        break;
      case CustomerButton::Find:
        Find(program, form);
        break;
      case CustomerButton::Next:
        Step(program, form, +1);
        break;
      case CustomerButton::Previous:
        Step(program, form, -1);
        break;
      case CustomerButton::Ok:
        Ok(program, form);
        break;
      case CustomerButton::Cancel:
        Cancel(program, form);
        break;
    }
  });
}

void LookUp(Program& program, CustomerForm& form, CustomerBox box) {
  if (!form.isLookingUp) return;
  Session& session = program.session;
  const std::string typed(Trim(form.Text(box)));
  form.isLookingUp = false;  // a message takes the focus from the box, which must not start another look-up
  Try(program.messages, [&] {
    if (typed.empty()) return;
    session.CustomerFound = false;
    if (box == CustomerBox::Name) session.CustomerSearchText = UpperCase(FromUtf8(typed).value_or(typed));
    const StepResult found = FindCustomer(program.folder, session, WholeNumber(typed));
    if (!found.notice.empty())
      program.messages.ShowMessage(WithTitle(ToUtf8(found.notice)));
    else if (!session.CustomerFound)
      program.messages.ShowMessage(Notice("Customer number " + typed + " is not on file."));
  });
  if (!session.CustomerFound) session.CustomerSearchText.clear();  // Next and Previous step through all again
  Show(session, form, true);
}

void CloseCustomerForm(Program& program, CustomerForm& form) {
  if (!form.isOpen) return;
  // The operator gets out even where the file cannot be written; the new customer is then still new when he comes back.
  Try(program.messages, [&] {
    if (form.mode != CustomerFormMode::Company) AbandonNewCustomer(program.folder, program.session);
  });
  Try(program.messages, [&] { Close(program, form, false); });
}

bool IsEnabled(const CustomerForm& form, CustomerBox box) {
  if (form.isLookingUp) return box == CustomerBox::Number || box == CustomerBox::Name;
  if (!form.hasCustomer) return false;
  return box != CustomerBox::Number || form.mode != CustomerFormMode::Company;
}

bool IsEnabled(const CustomerForm& form, CustomerButton button) {
  if (button == CustomerButton::Cancel) return true;
  if (form.isLookingUp) return false;
  if (button == CustomerButton::Ok) return form.hasCustomer;
  if (form.mode == CustomerFormMode::Company) return false;
  // Deleting a customer moves plans, and one of them may be open while its customer is picked.
  if (form.mode == CustomerFormMode::Estimate && button == CustomerButton::Delete) return false;
  return form.hasCustomer || button == CustomerButton::Add;
}

std::string_view CaptionOf(const Session& session, CustomerButton button) {
  switch (button) {
    case CustomerButton::Delete:
      return "&Delete";
    case CustomerButton::Add:
      return session.customerIsNew ? "ADD" : "&Add";
    case CustomerButton::Find:
      return "&Find";
    case CustomerButton::Next:
      return "&Next";
    case CustomerButton::Previous:
      return "&Previous";
    case CustomerButton::Ok:
      return "&OK";
    case CustomerButton::Cancel:
      return "&Cancel";
  }
  return {};
}

std::string_view TitleOf(CustomerFormMode mode) {
  switch (mode) {
    case CustomerFormMode::Customer:
      return "Customer Information";
    case CustomerFormMode::Estimate:
      return "Customer for the Estimate";
    case CustomerFormMode::Company:
      return "Company Information";
  }
  return {};
}

std::string HintOf(const Session& session, const CustomerForm& form) {
  if (form.isLookingUp) return "Type a number, or part of a name, and press ENTER. ESC ends the search.";
  if (form.mode == CustomerFormMode::Company) return "This heads every estimate that is printed.";
  if (!form.hasCustomer) return "No customer is on file. Press Add to enter the first.";
  if (session.customerIsNew) return "A new customer. OK keeps him, Cancel takes him back.";
  if (!session.CustomerSearchText.empty()) return "Next and Previous look for \"" + ToUtf8(session.CustomerSearchText) + "\" in the names.";
  return "F1 shows what the buttons do.";
}

int WholeNumber(std::string_view text) {
  const double number = RoundEven(Val(text));
  return number >= 0 && number <= INT16_MAX ? static_cast<int>(number) : -1;
}

}  // namespace norvale
