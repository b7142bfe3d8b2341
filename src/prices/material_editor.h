// The rules of the form for the material lists: walking through the lists, their rows, picking a default, adding a row, and
// saving with a backup. Rows are never removed: plans keep the place of what they chose.
//
// Texts are in the Windows-1252 of the files.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/disk.h"
#include "prices/material_lists.h"
#include "prices/screen_lines.h"

namespace norvale {

inline constexpr std::string_view kMaterialBackupName = "NVdata02.BAK";

/// A plan keeps this many characters of a chosen row.
inline constexpr std::size_t kPlanTextWidth = 20;

struct MaterialEditor {
  std::vector<ScreenLine> MaterialScreens;
  std::vector<MaterialRow> MaterialRows;
  int CurrentLine = -1;  // index in MaterialScreens of the line whose list is shown
};

/// Reads the lines and rows of a working folder, supplies each list that lacks its "List End" with one, and goes to the
/// first list. Throws FileError where a file is missing or empty, where the screen file has more lines than there are, or
/// names no list.
MaterialEditor LoadMaterialEditor(const std::filesystem::path& folder);

/// Goes to the next list with a step of 1, to the previous one with -1. Returns whether there was one; the place stays where
/// there is none.
bool MoveToList(MaterialEditor& editor, int step);

/// The lines that name a list which can be edited, as indexes in MaterialScreens.
std::vector<int> ListLines(const MaterialEditor& editor);

/// The number of the list that is shown.
int CurrentList(const MaterialEditor& editor);

/// The rows of a list up to and with its "List End", as indexes in MaterialRows.
std::vector<std::size_t> RowsOfList(const MaterialEditor& editor, int list);

/// The last of `rows` that is marked as default; nothing for none, and never "List End".
std::optional<std::size_t> DefaultRow(const MaterialEditor& editor, const std::vector<std::size_t>& rows);

/// Makes a row the only default of its list. "List End" is no choice: nothing happens.
void PickDefault(MaterialEditor& editor, std::size_t row);

/// What became of a row to be added.
enum class RowAdding {
  Added,
  Empty,      // there was no text in it
  IsListEnd,  // the text that closes each list, in whatever capitals
};

/// Adds a row just before the list's "List End": the text without blanks around it, cut to 24 characters.
RowAdding AddRow(MaterialEditor& editor, int list, std::string_view text);

/// What the take-off makes of a row that is added to a list which it reads by place and not by text, as the end of a
/// sentence: "is ...". Empty for the other lists.
std::string_view FateOfAddedRow(int list);

/// Writes the rows, those without text left out, and keeps the file from before as its backup. A failure, at whatever
/// moment, leaves the one or the other rows under the file's name and a whole backup. Throws FileError.
void SaveMaterialRows(Disk& disk, const std::filesystem::path& folder, const std::vector<MaterialRow>& rows);

}  // namespace norvale
