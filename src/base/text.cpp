#include "base/text.h"

#include <cstdint>

namespace norvale {

namespace {

// What the bytes 128 to 159 stand for; the rest of Windows-1252 is Latin-1.
constexpr std::array<char16_t, 32> kHighControls = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
                                                    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
                                                    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t CharacterOf(unsigned char byte) { return byte >= 0x80 && byte < 0xA0 ? kHighControls[byte - 0x80] : byte; }

std::optional<char> ByteOf(char32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return static_cast<char>(character);
  const auto* const found = std::find(kHighControls.begin(), kHighControls.end(), character);
  if (found == kHighControls.end()) return std::nullopt;
  return static_cast<char>(0x80 + (found - kHighControls.begin()));
}

unsigned char UpperByte(unsigned char c) {
  if ((c >= 'a' && c <= 'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7)) return static_cast<unsigned char>(c - 0x20);
  if (c == 0x9A || c == 0x9C || c == 0x9E) return static_cast<unsigned char>(c - 0x10);
  return c == 0xFF ? 0x9F : c;
}

}  // namespace

std::string_view TrimRight(std::string_view text) {
  const std::size_t last = text.find_last_not_of(' ');
  return last == std::string_view::npos ? std::string_view{} : text.substr(0, last + 1);
}

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string_view{} : TrimRight(text.substr(first));
}

std::string UpperCase(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) c = static_cast<char>(UpperByte(static_cast<unsigned char>(c)));
  return upper;
}

std::string ToUtf8(std::string_view text) {
  std::string utf8;
  utf8.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    // Nearly all of a list is plain ASCII: take it in runs.
    std::size_t end = at;
    while (end < text.size() && static_cast<unsigned char>(text[end]) < 0x80) ++end;
    utf8.append(text, at, end - at);
    if (end == text.size()) break;
    const char32_t c = CharacterOf(static_cast<unsigned char>(text[end]));
    if (c < 0x800) {
      utf8.push_back(static_cast<char>(0xC0 | (c >> 6)));
    } else {
      utf8.push_back(static_cast<char>(0xE0 | (c >> 12)));
      utf8.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
    }
    utf8.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    at = end + 1;
  }
  return utf8;
}

std::optional<std::string> FromUtf8(std::string_view utf8) {
  std::string text;
  text.reserve(utf8.size());
  for (std::size_t at = 0; at < utf8.size();) {
    const auto lead = static_cast<unsigned char>(utf8[at]);
    const std::size_t length = lead < 0x80 ? 1 : lead >= 0xC2 && lead < 0xE0 ? 2 : lead >= 0xE0 && lead < 0xF0 ? 3 : 0;
    if (length == 0 || at + length > utf8.size()) return std::nullopt;  // no character beyond three bytes has a byte here
    char32_t c = length == 1 ? lead : length == 2 ? lead & 0x1F : lead & 0x0F;
    for (std::size_t i = 1; i < length; ++i) {
      const auto next = static_cast<unsigned char>(utf8[at + i]);
      if ((next & 0xC0) != 0x80) return std::nullopt;
      c = (c << 6) | (next & 0x3F);
    }
    if (length == 3 && c < 0x800) return std::nullopt;
    const auto byte = ByteOf(c);
    if (!byte) return std::nullopt;
    text.push_back(*byte);
    at += length;
  }
  return text;
}

}  // namespace norvale
