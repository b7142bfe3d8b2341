#include "takeoff/page.h"

#include "base/text.h"

namespace norvale {

namespace {

constexpr std::size_t kZoneWidth = 14;

bool IsControl(char c) { return static_cast<unsigned char>(c) < ' '; }

}  // namespace

void Page::Print(std::string_view text) {
  const std::size_t from = text_.size();
  text_.append(text);
  for (std::size_t i = from; i < text_.size(); ++i)
    if (IsControl(text_[i])) text_[i] = ' ';
}

void Page::Tab(std::size_t column) {
  if (Column() > column) EndLine();
  text_.append(column - Column(), ' ');
}

void Page::NextZone() {
  const std::size_t written = Column() - 1;
  if (written == 0 || written % kZoneWidth != 0) text_.append(kZoneWidth - written % kZoneWidth, ' ');
}

void Page::EndLine() {
  while (text_.size() > lineStart_ && text_.back() == ' ') text_.pop_back();
  text_.push_back('\n');
  lineStart_ = text_.size();
  ++place_.line;
}

void Page::PrintLine(std::string_view text) {
  Print(text);
  EndLine();
}

void Page::NewPage() {
  if (Column() > 1) EndLine();
  text_.push_back('\f');
  lineStart_ = text_.size();
  place_ = {.page = place_.page + 1};
}

std::string Page::Utf8() const { return ToUtf8(text_); }

void Page::Clear() {
  text_.clear();
  lineStart_ = 0;
  place_ = {};
}

}  // namespace norvale
