// The checklist's Find, and the customer whose name stands over a plan. Texts are UTF-8.
#pragma once

#include <string>
#include <string_view>

#include "data/estimate_file.h"

namespace norvale {

/// What the checklist shows for a number that is no customer's.
inline constexpr std::string_view kNotOnFile = "NOT ON FILE! ";

/// Makes the customer of the number the current one, 0 being the company, and returns his name. For a number that is not on
/// file the current customer is blank, so that no other name is printed, and the result is `kNotOnFile`.
std::string LookUpPlanCustomer(DataFolder& folder, Session& session, int number);

// Each puts the session on the first plan that is found. Where there is none it stays on the plan where it was; a notice,
// which lacks its title, says so where one is due.

/// By a part of the customer's name, in any case: the first customer of that name who has a plan. Customers of that name
/// without a plan are no miss that is told.
StepResult FindPlanByCustomerName(DataFolder& folder, Session& session, std::string_view name);

/// By the customer's number, whatever the plan.
StepResult FindPlanByCustomerNumber(DataFolder& folder, Session& session, std::string_view number);

/// By a part of the plan number, in any case.
StepResult FindPlanByPlanNumber(DataFolder& folder, Session& session, std::string_view text);

}  // namespace norvale
