// The commands that look after the customer and plan files. Each is told the folder, and throws CommandError or FileError
// where it cannot be carried out.
#pragma once

#include <string>

#include "tool/command.h"

namespace norvale {

/// Removes the first plan of that customer and plan number (UTF-8).
void RunDeletePlan(const CommandContext& context, int customer, const std::string& plan);

/// Removes a customer; his plans go to the company.
void RunDeleteCustomer(const CommandContext& context, int number);

/// Tells each fault of the folder's files on standard output, one a line. With `repair`, mends what can be mended and tells
/// that too. Throws CommandError where a fault is left.
void RunCheck(const CommandContext& context, bool repair);

/// Writes both indexes afresh from the records.
void RunRebuild(const CommandContext& context);

}  // namespace norvale
