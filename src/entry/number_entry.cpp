#include "entry/number_entry.h"

#include <algorithm>
#include <cmath>

#include "base/numbers.h"

namespace norvale {

namespace {

// Far beyond every limit, and still a number that has a text.
constexpr double kBeyondAnyEntry = 1e12;

}  // namespace

std::string WholeNumberText(double value) {
  const double bounded = std::clamp(value, -kBeyondAnyEntry, kBeyondAnyEntry);
  std::string text = FormatNumber(bounded, {.wholeDigits = 1, .decimals = 0});
  return text == "0" ? std::string() : text;
}

std::string NumberText(int value) { return value == 0 ? std::string() : std::to_string(value); }

std::string RoundedUp(std::string_view text) {
  // 0.49 and not 0.5: a whole number stays what it is, and dust below a hundredth does not count.
  return WholeNumberText(Val(text) + 0.49);
}

NumberEntry EnterNumber(std::string_view text) {
  NumberEntry entry{.text = RoundedUp(text), .message = ""};
  const double value = Val(entry.text);
  if (value < 0) {
    entry.text = WholeNumberText(-value);
    entry.message = kEntryTooSmall;
  } else if (value > kLargestEntry) {
    entry.message = kEntryTooLarge;
  }
  return entry;
}

NumberEntry EnterJoistLength(std::string_view text) {
  constexpr double kShortest = 8;
  NumberEntry entry = EnterNumber(text);
  const double value = Val(entry.text);
  if (value == 0 || value > kLargestEntry) return entry;
  const double even = std::fmod(value, 2) == 0 ? value : value + 1;
  if (even > kLargestEntry) {
    entry.message = kEntryTooLarge;
    return entry;
  }
  entry.text = WholeNumberText(std::max(even, kShortest));
  return entry;
}

bool IsNumberKey(int key) {
  constexpr int kBackspace = 8;
  constexpr int kDelete = 127;
  return (key >= '0' && key <= '9') || key == '.' || key == kBackspace || key == kDelete;
}

}  // namespace norvale
