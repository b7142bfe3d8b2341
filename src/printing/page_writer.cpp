#include "printing/page_writer.h"

#include <cstdio>
#include <utility>

#include "base/text.h"

namespace norvale {

namespace {

constexpr std::size_t kLinesOnPage = 60;
constexpr std::size_t kPageNumberColumn = 73;

}  // namespace

PageWriter::PageWriter(std::vector<std::string> heading, std::vector<std::string> foot)
    : heading_(std::move(heading)), foot_(std::move(foot)) {
  PutAt(heading_.front(), kPageNumberColumn, "Page ");
  Head();
}

std::size_t PageWriter::Room() const { return kLinesOnPage - foot_.size(); }

void PageWriter::Head() {
  line_ = heading_.size();
  owesFoot_ = false;
  owesGap_ = false;
  page_.PrintLine(heading_.front() + ZeroPadded(++number_, 2));
  for (std::size_t i = 1; i < heading_.size(); ++i) page_.PrintLine(heading_[i]);
}

void PageWriter::EndPage() {
  if (owesFoot_)
    for (const std::string& line : foot_) page_.PrintLine(line);
  page_.NewPage();
}

bool PageWriter::Reserve(std::size_t lines) {
  if (line_ + lines + (owesGap_ ? 1 : 0) <= Room() || line_ == heading_.size() || heading_.size() + lines > Room()) return false;
  EndPage();
  Head();
  return true;
}

void PageWriter::Line(std::string_view text) {
  Reserve(1);
  if (std::exchange(owesGap_, false)) {
    page_.PrintLine();
    ++line_;
  }
  page_.PrintLine(text);
  ++line_;
}

void PageWriter::Block(const std::vector<std::string>& lines) {
  Reserve(lines.size());
  for (const std::string& line : lines) Line(line);
}

void PageWriter::Gap() { owesGap_ = line_ > heading_.size(); }

Document PageWriter::Finish(std::string title) {
  EndPage();
  return MakeDocument(std::move(title), page_);
}

std::string Centred(std::string_view text) {
  return std::string(text.size() < kPaperColumns ? (kPaperColumns - text.size()) / 2 : 0, ' ').append(text);
}

std::vector<std::string> Wrapped(std::string_view text, std::size_t width) {
  std::vector<std::string> lines;
  while (text.size() > width) {
    std::size_t end = text.substr(0, width + 1).rfind(' ');
    if (end == std::string_view::npos || end == 0) end = width;
    lines.emplace_back(TrimRight(text.substr(0, end)));
    text = Trim(text.substr(end));
  }
  lines.emplace_back(text);
  return lines;
}

std::vector<std::string> Labelled(std::string_view label, std::string_view text) {
  std::vector<std::string> lines = Wrapped(text, kPaperColumns - label.size());
  for (std::size_t i = 0; i < lines.size(); ++i) lines[i].insert(0, i == 0 ? std::string(label) : std::string(label.size(), ' '));
  return lines;
}

void PutAt(std::string& line, std::size_t column, std::string_view text) {
  if (line.size() + 1 < column) line.resize(column - 1, ' ');
  line.append(text);
}

std::string ZeroPadded(int number, int width) {
  char text[16];
  std::snprintf(text, sizeof text, "%0*d", width, number);
  return text;
}

}  // namespace norvale
