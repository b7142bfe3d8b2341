// The paper as text cells: what every printed list is written to. Devices (text file, printer, preview, PDF) show it.
#pragma once

#include <compare>
#include <cstddef>
#include <string>
#include <string_view>

namespace norvale {

/// Where a line stands in a run of pages. Both from 0.
struct PagePlace {
  std::size_t page = 0;
  std::size_t line = 0;

  auto operator<=>(const PagePlace&) const = default;
};

/// A run of pages. Columns count from 1; texts are Windows-1252, one cell a character; a control code takes an empty cell.
/// Nothing here limits a line's length or a page's: whoever writes the list turns the page.
class Page {
 public:
  /// Writes `text` from the present column on.
  void Print(std::string_view text);

  /// Moves to `column`, or to that column of the next line where the position is past it already.
  void Tab(std::size_t column);

  /// Moves to the first column of the next print zone (1, 15, 29, ...). Behind exactly 14 characters the position stands
  /// there already.
  void NextZone();

  /// Ends the line; blanks at its end are dropped.
  void EndLine();

  /// `Print` and `EndLine` in one.
  void PrintLine(std::string_view text = {});

  /// Ends the page. A line that has not been ended goes to it as well.
  void NewPage();

  /// The line that is being written.
  [[nodiscard]] PagePlace Place() const { return place_; }

  /// The pages so far: each line ends with LF, each page with a form feed right behind its last line. Windows-1252.
  [[nodiscard]] const std::string& Text() const { return text_; }

  /// The same as UTF-8.
  [[nodiscard]] std::string Utf8() const;

  /// Forgets the pages but keeps their memory, for the next run.
  void Clear();

 private:
  [[nodiscard]] std::size_t Column() const { return text_.size() - lineStart_ + 1; }

  std::string text_;
  std::size_t lineStart_ = 0;
  PagePlace place_;
};

}  // namespace norvale
