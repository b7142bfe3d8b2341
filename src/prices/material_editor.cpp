#include "prices/material_editor.h"

#include <algorithm>

#include "base/file_error.h"
#include "base/files.h"
#include "base/text.h"

namespace norvale {

namespace {

bool IsListEnd(const MaterialRow& row) { return row.ListText.Trimmed() == kListEnd; }

// The plan type answers whether there is a second floor, so that this list is not edited.
bool CanBeEdited(const ScreenLine& line) {
  const auto list = ListOfLine(line);
  return list && *list != static_cast<int>(SelectionList::SecondFloorType);
}

// Behind the rows of the list; a list without a row gets its place behind all others.
void SupplyListEnd(std::vector<MaterialRow>& rows, int list) {
  const auto isOfList = [list](const MaterialRow& row) { return row.ListNumber == list; };
  if (std::any_of(rows.begin(), rows.end(), [&](const MaterialRow& row) { return isOfList(row) && IsListEnd(row); })) return;
  const auto last = std::find_if(rows.rbegin(), rows.rend(), isOfList);
  MaterialRow end{.ListNumber = static_cast<std::int16_t>(list)};
  end.ListText.Assign(kListEnd);
  rows.insert(last == rows.rend() ? rows.end() : last.base(), end);
}

}  // namespace

MaterialEditor LoadMaterialEditor(const std::filesystem::path& folder) {
  const auto screenFile = (folder / kScreenFileName).string();
  MaterialEditor editor;
  editor.MaterialScreens = LoadScreenLines(folder);
  if (editor.MaterialScreens.size() > kScreenLines)
    throw FileError(screenFile, "the file has " + std::to_string(editor.MaterialScreens.size()) + " lines, more than the " +
                                    std::to_string(kScreenLines) + " of the data-entry screens");
  editor.MaterialRows = LoadMaterialRows(folder);
  // With no rows to begin with, a save would put nothing in the place of a backup that may be the only copy.
  if (editor.MaterialRows.empty())
    throw FileError((folder / kMaterialFileName).string(), "the file is missing or empty. What it held before the last save is in " +
                                                               std::string(kMaterialBackupName) +
                                                               ", if that is there: copy it to this name");
  if (!MoveToList(editor, 1)) throw FileError(screenFile, "the file is missing, or no line of it names a list");
  for (const int line : ListLines(editor))
    SupplyListEnd(editor.MaterialRows, *ListOfLine(editor.MaterialScreens[static_cast<std::size_t>(line)]));
  return editor;
}

bool MoveToList(MaterialEditor& editor, int step) {
  const int count = static_cast<int>(editor.MaterialScreens.size());
  for (int line = editor.CurrentLine + step; line >= 0 && line < count; line += step) {
    if (!CanBeEdited(editor.MaterialScreens[static_cast<std::size_t>(line)])) continue;
    editor.CurrentLine = line;
    return true;
  }
  return false;
}

std::vector<int> ListLines(const MaterialEditor& editor) {
  std::vector<int> lines;
  for (std::size_t line = 0; line < editor.MaterialScreens.size(); ++line)
    if (CanBeEdited(editor.MaterialScreens[line])) lines.push_back(static_cast<int>(line));
  return lines;
}

int CurrentList(const MaterialEditor& editor) {
  return ListOfLine(editor.MaterialScreens.at(static_cast<std::size_t>(editor.CurrentLine))).value_or(-1);
}

std::vector<std::size_t> RowsOfList(const MaterialEditor& editor, int list) {
  std::vector<std::size_t> found;
  for (std::size_t i = 0; i < editor.MaterialRows.size(); ++i) {
    if (editor.MaterialRows[i].ListNumber != list) continue;
    found.push_back(i);
    if (IsListEnd(editor.MaterialRows[i])) break;
  }
  return found;
}

std::optional<std::size_t> DefaultRow(const MaterialEditor& editor, const std::vector<std::size_t>& rows) {
  const auto isDefault = [&](std::size_t row) {
    return editor.MaterialRows[row].ListDefaultFlag == -1 && !IsListEnd(editor.MaterialRows[row]);
  };
  const auto last = std::find_if(rows.rbegin(), rows.rend(), isDefault);
  return last == rows.rend() ? std::nullopt : std::optional(*last);
}

void PickDefault(MaterialEditor& editor, std::size_t row) {
  const MaterialRow& picked = editor.MaterialRows.at(row);
  if (IsListEnd(picked)) return;
  const std::int16_t list = picked.ListNumber;
  for (MaterialRow& other : editor.MaterialRows)
    if (other.ListNumber == list) other.ListDefaultFlag = 0;
  editor.MaterialRows[row].ListDefaultFlag = -1;
}

RowAdding AddRow(MaterialEditor& editor, int list, std::string_view text) {
  std::string clean(text);
  std::replace_if(
      clean.begin(), clean.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
  clean = Trim(clean);
  if (clean.empty()) return RowAdding::Empty;
  if (UpperCase(clean) == UpperCase(kListEnd)) return RowAdding::IsListEnd;
  MaterialRow row{.ListNumber = static_cast<std::int16_t>(list)};
  row.ListText.Assign(clean);
  const std::size_t end = RowsOfList(editor, list).back();
  editor.MaterialRows.insert(editor.MaterialRows.begin() + static_cast<std::ptrdiff_t>(end), row);
  return RowAdding::Added;
}

std::string_view FateOfAddedRow(int list) {
  const bool isKnown = list >= 0 && list < static_cast<int>(kSelectionLists);
  return isKnown ? kSelectionListRows[list].addedRow : std::string_view();
}

void SaveMaterialRows(Disk& disk, const std::filesystem::path& folder, const std::vector<MaterialRow>& rows) {
  std::string bytes;
  for (const MaterialRow& row : rows) {
    if (row.ListText.Trimmed().empty()) continue;
    bytes.resize(bytes.size() + MaterialRowSize);
    EncodeValue(bytes.data() + bytes.size() - MaterialRowSize, row);
  }
  ReplaceFileWithBackup(disk, folder / kMaterialFileName, folder / kMaterialBackupName, bytes);
}

}  // namespace norvale
