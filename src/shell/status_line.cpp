#include "shell/status_line.h"

#include <array>

#include "base/text.h"

namespace norvale {

namespace {

std::string Cell(std::string_view text, std::size_t cut, std::size_t width) {
  std::string cell(Trim(text).substr(0, cut));
  cell.resize(width, ' ');
  return cell;
}

}  // namespace

void StatusLine::Set(std::string_view text, StatusMode mode) {
  constexpr std::size_t kTailStart = kWidth - kTailWidth;
  switch (mode) {
    case StatusMode::Message:
      line_ = Cell(text, kWidth, kWidth);
      break;
    case StatusMode::Hint:
      line_.replace(0, kTailStart, Cell(text, kHintWidth, kTailStart));
      break;
    case StatusMode::Tail:
      line_.replace(kTailStart, kTailWidth, Cell(text, kTailWidth, kTailWidth));
      break;
  }
}

std::string StatusLine::Text() const { return std::string(TrimRight(line_)); }

std::string ClockDate(const std::tm& now) {
  std::array<char, 32> text{};
  return {text.data(), std::strftime(text.data(), text.size(), "%m-%d-%Y", &now)};
}

std::string ClockTime(const std::tm& now) {
  std::array<char, 32> text{};
  // %p follows the system's language and may be empty there.
  return std::string(text.data(), std::strftime(text.data(), text.size(), "%I:%M:%S", &now)) + (now.tm_hour < 12 ? "am" : "pm");
}

}  // namespace norvale
