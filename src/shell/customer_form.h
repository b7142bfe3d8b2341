// The rules of the customer form: what its boxes hold, what its buttons do, and which of them may be used when.
//
// The form in the window shows a `CustomerForm` record and hands every event to a function here.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "data/customer_record.h"
#include "desktop/program.h"

namespace norvale {

/// Who opened the form.
enum class CustomerFormMode { Customer, Estimate, Company };

/// The boxes, by their index.
enum class CustomerBox : std::size_t { Number, Name, Address1, Address2, City, State, Zip, Contact, Telephone, Fax, Note1, Note2 };
inline constexpr std::size_t kCustomerBoxes = 12;

struct CustomerBoxInfo {
  std::string_view label;
  std::size_t width;  // characters that it takes
};
const CustomerBoxInfo& InfoOf(CustomerBox box);

/// The buttons, by their index.
enum class CustomerButton : std::size_t { Delete, Add, Find, Next, Previous, Ok, Cancel };
inline constexpr std::size_t kCustomerButtons = 7;

struct CustomerForm {
  CustomerFormMode mode = CustomerFormMode::Customer;
  std::array<std::string, kCustomerBoxes> boxes;  // UTF-8
  bool isLookingUp = false;                       // number or name is waited for
  bool hasCustomer = false;                       // the boxes show one; not so when none is on file
  bool isOpen = true;
  bool isAccepted = false;                // closed by OK
  CustomerBox focus = CustomerBox::Name;  // where the operator goes on after the last event

  [[nodiscard]] const std::string& Text(CustomerBox box) const { return boxes[static_cast<std::size_t>(box)]; }
  [[nodiscard]] std::string& Text(CustomerBox box) { return boxes[static_cast<std::size_t>(box)]; }
};

/// Opens the form on the current customer. Without one it is blank; for an estimate it begins with a new one then.
CustomerForm OpenCustomerForm(Program& program, CustomerFormMode mode);

void PressButton(Program& program, CustomerForm& form, CustomerButton button);

/// Looks for what stands in the box of number or name and ends the look-up. Empty boxes end it as well.
void LookUp(Program& program, CustomerForm& form, CustomerBox box);

/// Closes the form as Cancel does, from any state; nothing that was typed is kept.
void CloseCustomerForm(Program& program, CustomerForm& form);

bool IsEnabled(const CustomerForm& form, CustomerBox box);
bool IsEnabled(const CustomerForm& form, CustomerButton button);
std::string_view CaptionOf(const Session& session, CustomerButton button);
std::string_view TitleOf(CustomerFormMode mode);

/// The line below the boxes: what the form waits for.
std::string HintOf(const Session& session, const CustomerForm& form);

/// The whole number that a text begins with; -1 where it is below 0 or above what a number can be.
int WholeNumber(std::string_view text);

}  // namespace norvale
