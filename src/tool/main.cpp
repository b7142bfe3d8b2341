// norvale-tool: what the desktop program prints and stores, from the command line.
#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <exception>
#include <system_error>

#include "base/file_error.h"
#include "base/files.h"
#include "base/numbers.h"
#include "base/text.h"
#include "tool/commands.h"
#include "tool/console.h"

namespace norvale {

namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kWrongWords = 2;

// MM-DD-YYYY of a day that exists.
bool IsDate(std::string_view text) {
  constexpr std::string_view kForm = "00-00-0000";
  if (text.size() != kForm.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool digit = text[i] >= '0' && text[i] <= '9';
    if (kForm[i] == '-' ? text[i] != '-' : !digit) return false;
  }
  const auto number = [&](std::size_t from, std::size_t width) { return static_cast<int>(Val(text.substr(from, width))); };
  const std::chrono::year_month_day day{std::chrono::year(number(6, 4)), std::chrono::month(static_cast<unsigned>(number(0, 2))),
                                        std::chrono::day(static_cast<unsigned>(number(3, 2)))};
  return day.ok() && number(6, 4) > 0;
}

int Fail(std::string_view reason) {
  std::fprintf(stderr, "norvale-tool: %.*s\n", static_cast<int>(reason.size()), reason.data());
  return kFailed;
}

int Run(std::vector<std::string> words) {
  CommandContext context;
  CLI::App app("The estimates and data files of a Norvale working folder, from the command line.", "norvale-tool");
  app.set_version_flag("--version", "norvale-tool " NORVALE_VERSION);
  app.allow_windows_style_options(false);  // the same words on every system
  app.option_defaults()->multi_option_policy(CLI::MultiOptionPolicy::Throw);
  const auto setFolder = [&context](const std::string& folder) {
    context.folder = PathFromUtf8(folder);
    // Its files would pass for files that hold nothing.
    if (std::error_code none; !std::filesystem::is_directory(context.folder, none)) throw CommandError(folder, "there is no such folder");
  };
  app.add_option_function<std::string>("--folder", setFolder, "The working folder")->default_str("the current one");
  app.add_option("--date", context.date, "MM-DD-YYYY, stands for today's date on what is printed")->check([](const std::string& text) {
    return IsDate(text) ? std::string() : "\"" + text + "\" is no date of the form MM-DD-YYYY";
  });
  app.require_subcommand(1);
  AddPrintCommands(app, context);
  AddExchangeCommands(app, context);
  AddDataCommands(app, context);
  AddPriceCommands(app, context);
  AddBackupCommands(app, context);
  try {
    std::reverse(words.begin(), words.end());  // as this call expects them
    app.parse(std::move(words));
  } catch (const CLI::CallForHelp&) {
    std::fputs(app.help().c_str(), stdout);
    return kDone;
  } catch (const CLI::CallForVersion& version) {
    std::puts(version.what());
    return kDone;
  } catch (const CLI::ParseError& error) {
    std::fprintf(stderr, "norvale-tool: %s\n%s", error.what(), app.help().c_str());
    return kWrongWords;
  }
  return kDone;
}

}  // namespace

std::string CommandContext::Today() const {
  if (!date.empty()) return date;
  const std::time_t now = std::time(nullptr);
  char text[sizeof "MM-DD-YYYY"];
  std::strftime(text, sizeof text, "%m-%d-%Y", std::localtime(&now));
  return text;
}

std::string DataText(const std::string& utf8, const std::string& what) {
  const auto text = FromUtf8(utf8);
  if (!text) throw CommandError(what, "\"" + utf8 + "\" holds a character that the data files cannot hold");
  return *text;
}

void Deliver(std::string_view bytes, const std::string& output) {
  if (!output.empty()) {
    ReplaceFile(SystemDisk(), PathFromUtf8(output), bytes);
    return;
  }
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size() && std::fflush(stdout) == 0;
  if (!written) throw FileError("standard output", std::generic_category().message(errno));
}

}  // namespace norvale

int main(int argc, char** argv) {
  const norvale::Console console;
  try {
    return norvale::Run(norvale::WordsOfCall(argc, argv));
  } catch (const std::exception& error) {  // FileError, CommandError, and what no command foresaw (memory)
    return norvale::Fail(error.what());
  }
}
