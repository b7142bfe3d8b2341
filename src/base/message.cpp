#include "base/message.h"

#include <algorithm>

namespace norvale {

namespace {

struct Kind {
  char digit;
  std::vector<Answer> buttons;
  Answer escape;
};

const Kind& KindOf(char digit) {
  static const std::vector<Kind> kinds = {
      {'0', {Answer::Ok}, Answer::Ok},
      {'1', {Answer::Yes, Answer::No, Answer::Cancel}, Answer::Cancel},
      {'2', {Answer::Yes, Answer::No}, Answer::No},
      {'3', {Answer::Ok, Answer::Cancel}, Answer::Cancel},
  };
  static const Kind unknown{'\0', {Answer::Ok, Answer::Yes, Answer::No, Answer::Cancel}, Answer::Cancel};
  const auto found = std::find_if(kinds.begin(), kinds.end(), [digit](const Kind& kind) { return kind.digit == digit; });
  return found == kinds.end() ? unknown : *found;
}

}  // namespace

Message ParseMessage(std::string_view text) {
  const Kind& kind = KindOf(text.empty() ? '\0' : text.front());
  const std::string_view rest = text.substr(std::min<std::size_t>(2, text.size()));
  const std::size_t bar = rest.find('|');
  const bool hasTitle = bar != std::string_view::npos;
  return {.buttons = kind.buttons,
          .escape = kind.escape,
          .text = std::string(rest.substr(0, bar)),
          .title = std::string(hasTitle ? rest.substr(bar + 1) : kUntitledMessage)};
}

std::string WithoutBars(std::string_view text) {
  std::string clean(text);
  std::replace(clean.begin(), clean.end(), '|', ' ');
  return clean;
}

std::string Notice(std::string_view text) { return "0 " + WithoutBars(text) + "|" + std::string(MessageTitle); }

std::string WithTitle(std::string_view message) {
  const bool endsInBar = !message.empty() && message.back() == '|';
  return WithoutBars(endsInBar ? message.substr(0, message.size() - 1) : message) + "|" + std::string(MessageTitle);
}

std::string FileErrorNotice(const FileError& error) {
  return Notice("The last step could not be finished, and nothing that was on file is lost.\n\n" + error.File() + ": " + error.Reason());
}

}  // namespace norvale
