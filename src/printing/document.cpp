#include "printing/document.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/text.h"

namespace norvale {

namespace {

// Takes the part of `text` in front of `end` off, and `end` with it.
std::string_view TakeUntil(std::string_view& text, char end) {
  const std::string_view part = text.substr(0, text.find(end));
  text.remove_prefix(std::min(part.size() + 1, text.size()));
  return part;
}

}  // namespace

Document MakeDocument(std::string title, const Page& page) {
  Document document{.title = std::move(title), .pages = {}, .marks = {}};
  std::string_view text = page.Text();
  while (!text.empty()) {
    std::string_view lines = TakeUntil(text, '\f');
    PageText& cut = document.pages.emplace_back();
    while (!lines.empty()) cut.emplace_back(TakeUntil(lines, '\n'));
  }
  return document;
}

void Append(Document& document, const Document& more) {
  const std::size_t before = document.pages.size();
  document.pages.insert(document.pages.end(), more.pages.begin(), more.pages.end());
  for (const PagePlace& mark : more.marks) document.marks.push_back({before + mark.page, mark.line});
}

std::string DocumentText(const Document& document) {
  std::string text;
  for (const PageText& page : document.pages) {
    for (const std::string& line : page) text.append(line).push_back('\n');
    text.push_back('\f');
  }
  return ToUtf8(text);
}

}  // namespace norvale
