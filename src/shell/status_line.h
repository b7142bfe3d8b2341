// The line at the foot of the menu and the clock above it.
#pragma once

#include <ctime>
#include <string>
#include <string_view>

namespace norvale {

/// What the keys do on a menu and on an entry form.
inline constexpr std::string_view EntryHint = "or TAB To Move; ENTER=Execute F1=Help ALT+F2=Calculator  ESC=Exit";

/// The same for the calculator.
inline constexpr std::string_view kCalculatorHint = " F1=Calculator Help  SHIFT+INSERT=Automatically Insert Number  <ESC>=Exit";

enum class StatusMode {
  Message = 0,  // the whole line
  Hint = 1,     // its beginning; what stands at its right end stays
  Tail = 2,     // its right end
};

class StatusLine {
 public:
  void Set(std::string_view text, StatusMode mode);

  /// The line without the blanks at its end.
  [[nodiscard]] std::string Text() const;

  static constexpr std::size_t kWidth = 80;
  static constexpr std::size_t kHintWidth = 65;
  static constexpr std::size_t kTailWidth = 14;

 private:
  std::string line_ = std::string(kWidth, ' ');
};

/// MM-DD-YYYY
std::string ClockDate(const std::tm& now);

/// HH:MM:SS and am or pm, on a clock of 12 hours.
std::string ClockTime(const std::tm& now);

}  // namespace norvale
