// Texts as the data files hold them: one byte a character (Windows-1252), fixed widths, blanks as padding.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace norvale {

/// `text` without the blanks at its ends.
std::string_view Trim(std::string_view text);

/// `text` without the blanks at its right end.
std::string_view TrimRight(std::string_view text);

/// Whether `part` stands anywhere in `text`; case counts. An empty part stands in every text.
inline bool Has(std::string_view text, std::string_view part) { return text.find(part) != std::string_view::npos; }

/// `text` in upper case, the letters of Windows-1252 included.
std::string UpperCase(std::string_view text);

/// Windows-1252 to UTF-8. The five bytes without a character stand for the control codes of the same number, so that
/// every byte has a character of its own.
std::string ToUtf8(std::string_view text);

/// UTF-8 to Windows-1252; nothing where the text is no UTF-8 or holds a character that has no byte.
std::optional<std::string> FromUtf8(std::string_view utf8);

/// A text field of `Width` bytes, left-justified. A fresh one holds bytes of 0, which count as blanks.
template <std::size_t Width>
struct FixedText {
  static constexpr std::size_t kWidth = Width;

  std::array<char, Width> bytes{};

  /// Puts `text` in, padded with blanks; what is too long is cut at its right end.
  void Assign(std::string_view text) {
    const std::size_t kept = std::min(text.size(), Width);
    std::copy_n(text.begin(), kept, bytes.begin());
    std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(kept), bytes.end(), ' ');
  }

  /// The bytes as they stand.
  [[nodiscard]] std::string_view Raw() const { return {bytes.data(), Width}; }

  /// The whole width, bytes of 0 as blanks.
  [[nodiscard]] std::string Padded() const {
    std::string text(Raw());
    std::replace(text.begin(), text.end(), '\0', ' ');
    return text;
  }

  /// The text without the blanks at its ends.
  [[nodiscard]] std::string Trimmed() const { return std::string(Trim(Padded())); }

  bool operator==(const FixedText&) const = default;
};

}  // namespace norvale
