// The lines of the data-entry screens, as `NVdata01.idx` holds them.
#pragma once

#include <cstdint>
#include <string_view>

#include "data/fields.h"

namespace norvale {

inline constexpr std::string_view kScreenFileName = "NVdata01.idx";
inline constexpr std::size_t ScreenLineSize = 91;
inline constexpr std::size_t kScreenLines = 94;

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

}  // namespace norvale
