// The text form of every question and notice: kind of box, text and window title in one string.
//
// Character 1 is the kind of box, "0" to "3"; the message begins at character 3 and ends at the first "|"; the window title
// is everything behind it. Texts are UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/file_error.h"

namespace norvale {

/// The title of a notice that has none of its own.
inline constexpr std::string_view MessageTitle = "Norvale Help Notice";

/// The title of a message without a "|".
inline constexpr std::string_view kUntitledMessage = "Norvale Message";

/// What the operator pressed, under the character that stands for it.
enum class Answer : char { Cancel = '0', Ok = '1', Yes = '6', No = '7' };

/// A message taken apart.
struct Message {
  std::vector<Answer> buttons;  // in the order in which they are shown
  Answer escape{};              // what Esc and closing the box answer
  std::string text;
  std::string title;
};

Message ParseMessage(std::string_view text);

/// Where a question is asked and a notice given. The program has one; a test has one that answers by itself.
class Messages {
 public:
  Messages() = default;
  Messages(const Messages&) = delete;
  Messages& operator=(const Messages&) = delete;
  virtual ~Messages() = default;

  /// Shows the message and returns when the operator has answered it.
  virtual Answer ShowMessage(const std::string& text) = 0;
};

/// `text` with blanks for its bars. Whatever the operator has typed goes through this on its way into a message.
std::string WithoutBars(std::string_view text);

/// A notice with one button and the usual title. Bars in `text` become blanks.
std::string Notice(std::string_view text);

/// `message`, which ends in "|", with the usual title behind it. Other bars in it come from typed text and become blanks.
std::string WithTitle(std::string_view message);

/// What the operator is told when a file cannot be used.
std::string FileErrorNotice(const FileError& error);

}  // namespace norvale
