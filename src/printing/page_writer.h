// Pages with a heading and a page number, for lists whose rows may not be parted by the end of a page.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "printing/document.h"
#include "takeoff/page.h"

namespace norvale {

/// Writes the pages of one list. Lines count from the top of the sheet; the last six of it stay empty.
class PageWriter {
 public:
  /// The heading stands on every page, "Page " and the number at the right end of its first line. `foot` stands at the end
  /// of the pages that owe it.
  explicit PageWriter(std::vector<std::string> heading, std::vector<std::string> foot = {});

  /// Makes room for a block of `lines`: turns the page where they no longer fit on this one but would on a fresh one.
  /// Returns whether it did.
  bool Reserve(std::size_t lines);

  /// One line, on a new page where this one is full.
  void Line(std::string_view text = {});

  /// The lines of one block, reserved together.
  void Block(const std::vector<std::string>& lines);

  /// An empty line between two blocks; none where a page begins or ends.
  void Gap();

  /// The foot belongs on this page.
  void OweFoot() { owesFoot_ = true; }

  /// Ends the last page.
  Document Finish(std::string title);

 private:
  [[nodiscard]] std::size_t Room() const;
  void Head();
  void EndPage();

  Page page_;
  std::vector<std::string> heading_;
  std::vector<std::string> foot_;
  std::size_t line_ = 0;
  int number_ = 0;
  bool owesFoot_ = false;
  bool owesGap_ = false;
};

/// `text` in the middle of the paper.
std::string Centred(std::string_view text);

/// `text` in lines of at most `width`, parted at blanks where there are any. An empty text is one empty line.
std::vector<std::string> Wrapped(std::string_view text, std::size_t width);

/// `text` behind its label, over as many lines of the paper as it takes; they go on below its beginning.
std::vector<std::string> Labelled(std::string_view label, std::string_view text);

/// `text` at column `column` (from 1) of `line`, behind what stands there already.
void PutAt(std::string& line, std::size_t column, std::string_view text);

/// The number with at least `width` digits.
std::string ZeroPadded(int number, int width);

}  // namespace norvale
