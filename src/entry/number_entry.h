// What a typed number becomes when its box is left, and what the operator is told about it. All boxes that take a measure
// share these rules.
#pragma once

#include <string>
#include <string_view>

namespace norvale {

/// The largest number that a plan can keep.
inline constexpr double kLargestEntry = 32767;

// Each lacks its title, which belongs behind the "|" at its end.
inline constexpr std::string_view kEntryTooSmall = "0 This Entry is TOO SMALL for calculations!|";
inline constexpr std::string_view kEntryTooLarge = "0 This Entry is TOO LARGE for calculations!|";
inline constexpr std::string_view kEntryRequired = "0 This Entry is REQUIRED for calculations!|";

/// A whole number as a box shows it: to the nearest, a half away from zero; 0 is the empty text.
std::string WholeNumberText(double value);

/// A measure of a plan as a box shows it; 0 is the empty text.
std::string NumberText(int value);

/// The text rounded up to a whole number from a fraction of 0.01 on; 0 and what is no number become the empty text.
std::string RoundedUp(std::string_view text);

/// An entry after the rules that hold for every measure.
struct NumberEntry {
  std::string text;     // what the box shows now
  std::string message;  // not empty: shown, and the focus goes back to the box
};

/// Rounds the entry up. A negative one becomes positive with the message that it is too small; one above `kLargestEntry`
/// stays, with the message that it is too large.
NumberEntry EnterNumber(std::string_view text);

/// The entry as a length of joists in feet: as above, then even and at least 8; 0 stays 0.
NumberEntry EnterJoistLength(std::string_view text);

/// Whether a number box takes the key: digits, the point, backspace (8) and delete (127).
bool IsNumberKey(int key);

}  // namespace norvale
