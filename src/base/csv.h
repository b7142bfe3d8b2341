// Tables as spreadsheets write them: comma-separated values and their relatives.
#pragma once

#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace norvale {

/// A text that is no table: what() tells the operator why.
class CsvError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Is told from time to time how much is done, from 0 to 1. It may throw, to give up.
using Progress = std::function<void(double done)>;

/// One row; rows without any text are left out of a table.
struct CsvRow {
  std::size_t line = 0;      // of the file, from 1, where the row begins
  std::size_t lastLine = 0;  // and ends: beyond `line` where a quoted cell holds line ends
  bool isUnclear = false;    // a quotation mark that begins no cell stands where one could begin: where cells end is a guess
  std::vector<std::string> cells;
};

struct CsvTable {
  char separator = ',';
  std::vector<CsvRow> rows;
};

/// The bytes of a text file as UTF-8 without a byte-order mark. They are UTF-16 where the mark says so, UTF-8 where they can be,
/// else Windows-1252. Throws CsvError for bytes that are no text, such as those of a workbook.
std::string DecodeText(std::string_view bytes);

/// Reads a table (UTF-8) whose cells are parted by commas, semicolons or tabs, whichever the first row that holds any holds
/// most of; a first line `sep=;` decides as well. Cells may be quoted; a quotation mark anywhere else is an inch mark. Lines end with CR
/// LF, LF or CR. Throws CsvError where a quoted cell does not end.
CsvTable ReadCsv(std::string_view utf8, const Progress& progress = {});

/// The cell as it stands in comma-separated values: quoted where it must be.
std::string CsvCell(std::string_view utf8);

/// A text that a spreadsheet would take for a formula (it begins with = + - @, a tab or a line end) gets an apostrophe before
/// it; so does one that begins with an apostrophe, so that `WithoutGuard` gives back every text as it was.
std::string WithGuard(std::string_view text);

/// Takes off the apostrophe of `WithGuard`; other texts stay.
std::string_view WithoutGuard(std::string_view text);

}  // namespace norvale
