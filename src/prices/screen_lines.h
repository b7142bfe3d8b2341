// The lines of the data-entry screens, as `NVdata01.idx` holds them.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/fields.h"
#include "data/plan_fields.h"

namespace norvale {

inline constexpr std::string_view kScreenFileName = "NVdata01.idx";
inline constexpr std::size_t ScreenLineSize = 91;


/// One line of a data-entry screen: its caption and the box behind it.
struct ScreenLine {
  std::int16_t LineNumber{};
  FixedText<48> Caption{};
  FixedText<4> ControlCode{};  // "C:nn" selection box nn, "T:nn" number box nn
  std::int16_t LeftPosition{};
  FixedText<35> LineText{};  // what the status line says while the box has the focus

  bool operator==(const ScreenLine&) const = default;
};

template <>
struct RecordFields<ScreenLine> {
  static constexpr auto table = std::tuple{
      Field{"LineNumber", 0, &ScreenLine::LineNumber},    Field{"Caption", 2, &ScreenLine::Caption},
      Field{"ControlCode", 50, &ScreenLine::ControlCode}, Field{"LeftPosition", 54, &ScreenLine::LeftPosition},
      Field{"LineText", 56, &ScreenLine::LineText},
  };
};
static_assert(FieldsTile(RecordFields<ScreenLine>::table, ScreenLineSize), "no gap, no overlap");

/// All lines of the screen file of a working folder, in its order; an incomplete one at the end is left out. A missing file
/// has none. Throws FileError where the file cannot be read.
std::vector<ScreenLine> LoadScreenLines(const std::filesystem::path& folder);

/// The box or list that a line's code names, such as "C:07" or "T:53"; none for any other code.
LineField FieldOfLine(const ScreenLine& line);

/// The number of the list that a line's code names ("C:07" is list 7); nothing for a line without a list.
std::optional<int> ListOfLine(const ScreenLine& line);

/// The caption up to its first ":", in the Windows-1252 of the file.
std::string CaptionName(const ScreenLine& line);

}  // namespace norvale
