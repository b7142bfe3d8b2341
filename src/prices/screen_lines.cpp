#include "prices/screen_lines.h"

#include "base/files.h"
#include "base/numbers.h"
#include "base/text.h"

namespace norvale {

std::vector<ScreenLine> LoadScreenLines(const std::filesystem::path& folder) {
  const auto bytes = ReadFileIfPresent(folder / kScreenFileName);
  std::vector<ScreenLine> lines;
  if (!bytes) return lines;
  lines.resize(bytes->size() / ScreenLineSize);
  for (std::size_t i = 0; i < lines.size(); ++i) DecodeValue(bytes->data() + i * ScreenLineSize, lines[i]);
  return lines;
}

LineField FieldOfLine(const ScreenLine& line) {
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  const std::string code = line.ControlCode.Padded();
  if (code[1] != ':' || !isDigit(code[2]) || !isDigit(code[3])) return {};
  const auto number = static_cast<std::size_t>((code[2] - '0') * 10 + (code[3] - '0'));
  if (code[0] == 'C' && number < kSelectionLists) return kAllSelectionLists[number];
  if (code[0] == 'T' && number < kNumberBoxes) return kAllNumberBoxes[number];
  return {};
}

std::optional<int> ListOfLine(const ScreenLine& line) {
  const std::string code = line.ControlCode.Padded();
  if (code.front() != 'C') return std::nullopt;
  return static_cast<int>(Val(code.substr(code[1] == ':' ? 2 : 1)));
}

std::string CaptionName(const ScreenLine& line) {
  const std::string caption = line.Caption.Padded();
  return std::string(Trim(caption.substr(0, caption.find(':'))));
}

}  // namespace norvale
