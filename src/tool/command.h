// What the commands of the tool share: where they work, how they fail, where their output goes.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

namespace norvale {

/// A command that cannot be carried out, for a reason that is no file's. `what` names what it is about: what() is
/// "WHAT: WHY".
class CommandError : public std::runtime_error {
 public:
  CommandError(const std::string& what, const std::string& why) : std::runtime_error(what + ": " + why) {}
};

/// The options before the command.
struct CommandContext {
  std::filesystem::path folder = ".";
  std::string date;  // MM-DD-YYYY; empty: today

  /// The date that is printed.
  [[nodiscard]] std::string Today() const;
};

/// A text from the command line in the Windows-1252 of the data files. Throws CommandError naming `what` where it holds a
/// character that they cannot hold.
std::string DataText(const std::string& utf8, const std::string& what);

/// Hands a whole output over: to standard output, or into the file `output` where one is named, written beside it and
/// renamed. Throws CommandError or FileError where it cannot be written in full.
void Deliver(std::string_view bytes, const std::string& output);

}  // namespace norvale
