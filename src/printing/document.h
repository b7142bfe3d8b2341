// A printable document: what preview, printer, PDF and text files all show.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "takeoff/page.h"

namespace norvale {

/// The text cells of a letter page.
inline constexpr std::size_t kPaperColumns = 80;
inline constexpr std::size_t kPaperLines = 66;

/// The lines of one page from the top, without blanks at their ends. Windows-1252, one cell a character. A line with a long
/// address on it may be wider than the paper.
using PageText = std::vector<std::string>;

struct Document {
  std::string title;  // Windows-1252; names the preview, the print job and the file
  std::vector<PageText> pages;
  std::vector<PagePlace> marks;  // lines that the preview marks, from the top; the paper shows no mark
};

/// The pages that were written to `page`, cut at their ends.
Document MakeDocument(std::string title, const Page& page);

/// Puts the pages of `more` behind those of `document`, its marks with them: how copies become one print.
void Append(Document& document, const Document& more);

/// The document as a text file: UTF-8, each line ends with LF, each page with a form feed right behind its last line.
std::string DocumentText(const Document& document);

}  // namespace norvale
