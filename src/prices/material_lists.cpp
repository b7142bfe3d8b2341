#include "prices/material_lists.h"

#include "base/files.h"

namespace norvale {

std::vector<MaterialRow> LoadMaterialRows(const std::filesystem::path& folder) {
  const auto bytes = ReadFileIfPresent(folder / kMaterialFileName);
  std::vector<MaterialRow> rows;
  if (!bytes) return rows;
  rows.resize(bytes->size() / MaterialRowSize);
  for (std::size_t i = 0; i < rows.size(); ++i) DecodeValue(bytes->data() + i * MaterialRowSize, rows[i]);
  return rows;
}

std::string ListRowText(const std::vector<MaterialRow>& rows, int list, int position) {
  for (const MaterialRow& row : rows) {
    if (row.ListNumber != list) continue;
    const std::string text = row.ListText.Padded();
    if (TrimRight(text) == kListEnd) break;
    if (position-- == 0) return std::string(TrimRight(text));
  }
  return {};
}

}  // namespace norvale
