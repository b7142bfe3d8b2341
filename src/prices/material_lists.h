// The rows of the selection lists and their defaults, as `NVdata02.idx` holds them.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "data/fields.h"

namespace norvale {

inline constexpr std::size_t MaterialRowSize = 28;
inline constexpr std::string_view kMaterialFileName = "NVdata02.idx";

/// The last row of each list in the file. It marks the end for the screens and is no choice.
inline constexpr std::string_view kListEnd = "List End";

/// One row of a selection list.
struct MaterialRow {
  std::int16_t ListNumber{};
  FixedText<24> ListText{};
  std::int16_t ListDefaultFlag{};  // -1: the default of its list

  bool operator==(const MaterialRow&) const = default;
};

template <>
struct RecordFields<MaterialRow> {
  static constexpr auto table = std::tuple{
      Field{"ListNumber", 0, &MaterialRow::ListNumber},
      Field{"ListText", 2, &MaterialRow::ListText},
      Field{"ListDefaultFlag", 26, &MaterialRow::ListDefaultFlag},
  };
};
static_assert(FieldsTile(RecordFields<MaterialRow>::table, MaterialRowSize), "no gap, no overlap");

/// All rows of the file in its order; an incomplete row at the end is left out. A missing file has none.
/// Throws FileError where the file cannot be read.
std::vector<MaterialRow> LoadMaterialRows(const std::filesystem::path& folder);

/// The text of row `position` (from 0) of a list, without trailing blanks; empty where the list has no such row.
std::string ListRowText(const std::vector<MaterialRow>& rows, int list, int position);

}  // namespace norvale
