#include "prices/price_list.h"

#include <algorithm>

#include "base/file_error.h"
#include "base/files.h"
#include "base/text.h"

namespace norvale {

namespace {

std::string Column(std::string_view line, std::size_t from, std::size_t width) {
  if (from >= line.size()) return {};
  return std::string(Trim(line.substr(from, width)));
}

PriceItem ParseLine(std::string_view line) {
  PriceItem item;
  std::size_t at = 0;
  const auto next = [&](std::size_t width) {
    const std::size_t from = at;
    at += width;
    return Column(line, from, width);
  };
  item.PriceItemKey = next(kPriceKeyWidth);
  item.PriceItemSku = next(kPriceSkuWidth);
  for (std::string& price : item.PriceItemPrice) price = next(kPriceWidth);
  const std::size_t kept = std::min(line.size(), kPriceOptionalWidth);
  item.PriceItemOptionalText = std::string(Trim(line.substr(line.size() - kept)));
  return item;
}

void AppendField(std::string& line, std::string_view text, std::size_t width) {
  const std::size_t kept = std::min(text.size(), width);
  line.append(text.substr(0, kept)).append(width - kept, ' ');
}

}  // namespace

PriceList::PriceList(std::vector<PriceItem> items) : items_(std::move(items)) {
  first_.reserve(items_.size());
  for (std::size_t i = 0; i < items_.size(); ++i) first_.try_emplace(std::string(Trim(items_[i].PriceItemKey)), i);
}

const PriceItem* PriceList::Find(std::string_view key) const {
  const auto found = first_.find(Trim(key));
  return found == first_.end() ? nullptr : &items_[found->second];
}

PriceList ParsePriceList(std::string_view text, const std::string& name) {
  std::string blanked;
  if (Has(text, std::string_view("\0", 1))) {
    blanked = text;
    std::replace(blanked.begin(), blanked.end(), '\0', ' ');
    text = blanked;
  }
  std::vector<PriceItem> items;
  items.reserve(std::min(kMostPriceItems, text.size() / kPriceLineWidth + 1));
  while (!text.empty()) {
    if (items.size() == kMostPriceItems)
      throw FileError(name, "line " + std::to_string(kMostPriceItems + 1) + " is one too many, a price list has at most " +
                                std::to_string(kMostPriceItems) + " lines");
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    items.push_back(ParseLine(line));
  }
  return PriceList(std::move(items));
}

PriceList LoadPriceList(const std::filesystem::path& folder) {
  const auto path = folder / kPriceFileName;
  return ParsePriceList(ReadWholeFile(path), path.string());
}

std::string EncodePriceList(const std::vector<PriceItem>& items) {
  std::string text;
  text.reserve(items.size() * (kPriceLineWidth + 2));
  for (const PriceItem& item : items) {
    AppendField(text, item.PriceItemKey, kPriceKeyWidth);
    AppendField(text, item.PriceItemSku, kPriceSkuWidth);
    for (const std::string& price : item.PriceItemPrice) AppendField(text, price, kPriceWidth);
    AppendField(text, item.PriceItemOptionalText, kPriceOptionalWidth);
    text.append("\r\n");
  }
  return text;
}

}  // namespace norvale
