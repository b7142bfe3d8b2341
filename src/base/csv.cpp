#include "base/csv.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace norvale {

namespace {

constexpr std::size_t kRowsBetweenReports = 1000;
constexpr char32_t kReplacement = 0xFFFD;

bool IsUtf8(std::string_view bytes) {
  for (std::size_t at = 0; at < bytes.size();) {
    const auto lead = static_cast<unsigned char>(bytes[at]);
    const std::size_t length = lead < 0x80                   ? 1
                               : lead >= 0xC2 && lead < 0xE0 ? 2
                               : lead >= 0xE0 && lead < 0xF0 ? 3
                               : lead >= 0xF0 && lead < 0xF5 ? 4
                                                             : 0;
    if (length == 0 || at + length > bytes.size()) return false;
    for (std::size_t i = 1; i < length; ++i)
      if ((static_cast<unsigned char>(bytes[at + i]) & 0xC0) != 0x80) return false;
    at += length;
  }
  return true;
}

void AppendUtf8(std::string& utf8, char32_t c) {
  const auto follow = [&](int shift) { utf8.push_back(static_cast<char>(0x80 | ((c >> shift) & 0x3F))); };
  if (c < 0x80) {
    utf8.push_back(static_cast<char>(c));
  } else if (c < 0x800) {
    utf8.push_back(static_cast<char>(0xC0 | (c >> 6)));
    follow(0);
  } else if (c < 0x10000) {
    utf8.push_back(static_cast<char>(0xE0 | (c >> 12)));
    follow(6), follow(0);
  } else {
    utf8.push_back(static_cast<char>(0xF0 | (c >> 18)));
    follow(12), follow(6), follow(0);
  }
}

std::string FromUtf16(std::string_view bytes, bool lowFirst) {
  const auto unit = [&](std::size_t at) {
    const auto first = static_cast<unsigned char>(bytes[at]);
    const auto second = static_cast<unsigned char>(bytes[at + 1]);
    return static_cast<char32_t>(lowFirst ? first | (second << 8) : second | (first << 8));
  };
  std::string utf8;
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    char32_t c = unit(at);
    const bool isHigh = c >= 0xD800 && c < 0xDC00;
    if (isHigh && at + 3 < bytes.size() && unit(at + 2) >= 0xDC00 && unit(at + 2) < 0xE000) {
      c = 0x10000 + ((c - 0xD800) << 10) + (unit(at + 2) - 0xDC00);
      at += 2;
    } else if (c >= 0xD800 && c < 0xE000) {
      c = kReplacement;
    }
    AppendUtf8(utf8, c);
  }
  return utf8;
}

bool IsLineEnd(char c) { return c == '\n' || c == '\r'; }

// The separator of which the first row with any has most, quoted cells left out.
char SeparatorOf(std::string_view text) {
  constexpr std::array<char, 3> kSeparators = {'\t', ';', ','};
  std::array<std::size_t, kSeparators.size()> counts{};
  const auto most = [&counts] { return std::max_element(counts.begin(), counts.end()); };
  bool quoted = false;
  bool atCell = true;  // where a quotation mark is no inch mark
  for (const char c : text) {
    if (c == '"' && (quoted || atCell)) quoted = !quoted;
    if (quoted) continue;
    if (IsLineEnd(c) && *most() > 0) break;
    const auto* const separator = std::find(kSeparators.begin(), kSeparators.end(), c);
    if (separator != kSeparators.end()) ++counts[static_cast<std::size_t>(separator - kSeparators.begin())];
    atCell = separator != kSeparators.end() || IsLineEnd(c);
  }
  return *most() == 0 ? ',' : kSeparators[static_cast<std::size_t>(most() - counts.begin())];
}

class CsvReader {
 public:
  CsvReader(std::string_view text, char separator) : text_(text), separator_(separator) {}

  [[nodiscard]] bool AtEnd() const { return at_ >= text_.size(); }
  [[nodiscard]] double Done() const { return static_cast<double>(at_) / static_cast<double>(text_.size()); }

  CsvRow Row() {
    CsvRow row;
    row.line = line_;
    for (;;) {
      row.cells.push_back(Cell(row));
      row.lastLine = line_;
      if (AtEnd() || IsLineEnd(text_[at_])) break;
      ++at_;  // the separator
    }
    if (!AtEnd()) SkipLineEnd();
    return row;
  }

  void SkipLineEnd() {
    if (text_[at_] == '\r' && at_ + 1 < text_.size() && text_[at_ + 1] == '\n') ++at_;
    ++at_;
    ++line_;
  }

 private:
  bool EndsCell(std::size_t at) const { return at >= text_.size() || text_[at] == separator_ || IsLineEnd(text_[at]); }

  std::string Cell(CsvRow& row) {
    const std::size_t begin = std::min(text_.find_first_not_of(' ', at_), text_.size());
    if (begin < text_.size() && text_[begin] == '"') {
      at_ = begin + 1;
      return QuotedCell(row);
    }
    const std::size_t from = at_;
    while (!EndsCell(at_)) ++at_;
    return std::string(text_.substr(from, at_ - from));
  }

  std::string QuotedCell(CsvRow& row) {
    const std::size_t opened = line_;
    std::string cell;
    for (; !AtEnd(); ++at_) {
      const char c = text_[at_];
      if (IsLineEnd(c)) {
        SkipLineEnd();
        cell.push_back('\n');
        --at_;
      } else if (c != '"') {
        cell.push_back(c);
      } else if (at_ + 1 < text_.size() && text_[at_ + 1] == '"') {
        cell.push_back('"');
        ++at_;
      } else {
        const std::size_t behind = std::min(text_.find_first_not_of(' ', at_ + 1), text_.size());
        if (EndsCell(behind)) {
          at_ = behind;
          return cell;
        }
        cell.push_back('"');
        row.isUnclear = row.isUnclear || text_[at_ - 1] == separator_;
      }
    }
    throw CsvError("the quotation mark before a cell on line " + std::to_string(opened) + " has no closing one");
  }

  std::string_view text_;
  char separator_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
};

bool IsFormula(char c) { return c == '=' || c == '+' || c == '-' || c == '@' || c == '\t' || IsLineEnd(c); }

}  // namespace

std::string DecodeText(std::string_view bytes) {
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  if (bytes.starts_with("\xFF\xFE")) return FromUtf16(bytes.substr(2), true);
  if (bytes.starts_with("\xFE\xFF")) return FromUtf16(bytes.substr(2), false);
  if (bytes.starts_with("PK\x03\x04") || bytes.find('\0') != std::string_view::npos)
    throw CsvError("this is no text file; save the sheet as CSV first");
  return IsUtf8(bytes) ? std::string(bytes) : ToUtf8(bytes);
}

CsvTable ReadCsv(std::string_view utf8, const Progress& progress) {
  const bool saysSeparator = utf8.size() > 4 && UpperCase(utf8.substr(0, 4)) == "SEP=" && (utf8.size() == 5 || IsLineEnd(utf8[5]));
  CsvTable table;
  table.separator = saysSeparator ? utf8[4] : SeparatorOf(utf8);
  CsvReader reader(utf8, table.separator);
  if (saysSeparator) (void)reader.Row();
  while (!reader.AtEnd()) {
    if (progress && table.rows.size() % kRowsBetweenReports == 0) progress(reader.Done());
    CsvRow row = reader.Row();
    const auto isBlank = [](const std::string& cell) { return Trim(cell).empty(); };
    if (!std::all_of(row.cells.begin(), row.cells.end(), isBlank)) table.rows.push_back(std::move(row));
  }
  return table;
}

std::string CsvCell(std::string_view utf8) {
  if (utf8.find_first_of(",;\t\"\r\n") == std::string_view::npos && Trim(utf8).size() == utf8.size()) return std::string(utf8);
  std::string quoted = "\"";
  for (const char c : utf8) {
    if (c == '"') quoted.push_back('"');
    quoted.push_back(c);
  }
  quoted.push_back('"');
  return quoted;
}

std::string WithGuard(std::string_view text) {
  const bool isGuarded = !text.empty() && (IsFormula(text.front()) || text.front() == '\'');
  return (isGuarded ? "'" : "") + std::string(text);
}

std::string_view WithoutGuard(std::string_view text) {
  const bool isGuarded = text.size() > 1 && text.front() == '\'' && (IsFormula(text[1]) || text[1] == '\'');
  if (isGuarded) text.remove_prefix(1);
  return text;
}

}  // namespace norvale
