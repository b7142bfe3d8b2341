// The commands of the tool. Each adds its words to the command line; what they do runs when they are parsed.
#pragma once

#include <CLI/CLI.hpp>

#include "tool/command.h"

namespace norvale {

/// `print` with its lists.
void AddPrintCommands(CLI::App& app, const CommandContext& context);

/// `export`, `import` and `new-folder`.
void AddExchangeCommands(CLI::App& app, const CommandContext& context);

/// `delete`, `check` and `rebuild`.
void AddDataCommands(CLI::App& app, const CommandContext& context);

/// `prices export` and `prices import`.
void AddPriceCommands(CLI::App& app, const CommandContext& context);

/// `backup` and `restore`.
void AddBackupCommands(CLI::App& app, const CommandContext& context);

}  // namespace norvale
