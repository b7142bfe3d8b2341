// What stands in the way of a menu choice.
#pragma once

#include <string>

#include "desktop/program.h"
#include "shell/menu_table.h"

namespace norvale {

/// The notice with which the choice is refused, empty where its task has what it needs.
std::string RefusalOf(const DataFolder& folder, const Session& session, MenuChoice choice);

}  // namespace norvale
