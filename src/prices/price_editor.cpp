#include "prices/price_editor.h"

#include <algorithm>
#include <utility>

#include "base/files.h"
#include "base/numbers.h"
#include "base/text.h"

namespace norvale {

namespace {

constexpr NumberFormat kPrice{.wholeDigits = 1, .decimals = 2};
constexpr std::size_t kWholeDigits = 7;
constexpr std::size_t kOptionalColumn = kPriceLineWidth - kPriceOptionalWidth;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view WithoutEnd(std::string_view line) {
  if (line.ends_with('\n')) line.remove_suffix(1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

std::vector<std::string> LinesOf(std::string_view bytes) {
  std::vector<std::string> lines;
  while (!bytes.empty()) {
    const std::size_t end = bytes.find('\n');
    const std::size_t size = end == std::string_view::npos ? bytes.size() : end + 1;
    lines.emplace_back(bytes.substr(0, size));
    bytes.remove_prefix(size);
  }
  return lines;
}

// Where the price of a box has no place in the file, the file's own text stays.
std::string StoredPrice(const std::string& inFile, const std::string& box) {
  std::string price = FormatPrice(box);
  return price.size() > kPriceWidth && price == FormatPrice(inFile) ? inFile : price;
}

void GoTo(PriceForm& form, std::size_t item) {
  form.CurrentPriceItem = item;
  ShowCurrentItem(form);
}

}  // namespace

PriceColumn ColumnOfLevel(std::size_t level) { return static_cast<PriceColumn>(static_cast<std::size_t>(PriceColumn::Level1) + level); }

std::optional<std::size_t> LevelOf(PriceColumn column) {
  if (column < PriceColumn::Level1 || column > PriceColumn::Level5) return std::nullopt;
  return static_cast<std::size_t>(column) - static_cast<std::size_t>(PriceColumn::Level1);
}

std::string_view CaptionOf(PriceColumn column) {
  static constexpr std::array<std::string_view, kPriceColumns> kCaptions = {
      "Description", "SKU", "Price level 1", "Price level 2", "Price level 3", "Price level 4", "Price level 5", "Optional description"};
  return kCaptions[static_cast<std::size_t>(column)];
}

std::size_t WidthOf(PriceColumn column) {
  static constexpr std::array<std::size_t, kPriceColumns> kWidths = {kPriceKeyWidth, kPriceSkuWidth, kPriceWidth, kPriceWidth,
                                                                     kPriceWidth,    kPriceWidth,    kPriceWidth, kPriceOptionalWidth};
  return kWidths[static_cast<std::size_t>(column)];
}

const std::string& TextOf(const PriceItem& item, PriceColumn column) {
  if (const auto level = LevelOf(column)) return item.PriceItemPrice[*level];
  if (column == PriceColumn::Sku) return item.PriceItemSku;
  return column == PriceColumn::OptionalText ? item.PriceItemOptionalText : item.PriceItemKey;
}

std::string& TextOf(PriceItem& item, PriceColumn column) { return const_cast<std::string&>(TextOf(std::as_const(item), column)); }

std::string FormatPrice(std::string_view text) { return FormatNumber(Val(text), kPrice); }

bool FitsPriceFile(std::string_view price) { return price.size() <= kPriceWidth; }

std::string PriceTooLong(std::string_view price) {
  return "The price " + std::string(price) + " is too long for the price file, which has room for 7 digits before the point.";
}

bool TakesPriceKey(std::string_view before, char key, std::string_view behind) {
  constexpr char kBackspace = 8;
  constexpr char kDelete = 127;
  if (key == '.' || key == kBackspace || key == kDelete) return true;
  if (!IsDigit(key)) return false;
  if (Has(before, ".")) return true;
  const auto digits = std::count_if(before.begin(), before.end(), IsDigit);
  const std::string_view whole = behind.substr(0, behind.find('.'));
  return static_cast<std::size_t>(digits + std::count_if(whole.begin(), whole.end(), IsDigit)) < kWholeDigits;
}

bool HoldsWords(std::string_view text, std::string_view words) {
  const std::string upper = UpperCase(text);
  const std::string wanted = UpperCase(words);
  std::string_view rest = Trim(wanted);
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(' '), rest.size());
    if (!Has(upper, rest.substr(0, end))) return false;
    rest = Trim(rest.substr(end));
  }
  return true;
}

PriceEditor::PriceEditor(std::string_view bytes, const std::string& name)
    : items_(ParsePriceList(bytes, name).Items()), lines_(LinesOf(bytes)), isStored_(lines_.size(), false) {
  for (std::size_t i = 0; i < items_.size(); ++i)
    if (WithoutEnd(lines_[i]).size() <= kOptionalColumn) items_[i].PriceItemOptionalText.clear();
  asRead_ = items_;
}

void PriceEditor::SetText(std::size_t item, PriceColumn column, std::string text) {
  if (column != PriceColumn::Description) TextOf(items_[item], column) = std::move(text);
}

void PriceEditor::Store(std::size_t item, PriceItem texts) {
  texts.PriceItemKey = items_[item].PriceItemKey;
  items_[item] = std::move(texts);
  isStored_[item] = true;
}

std::optional<OddLine> PriceEditor::OddLineOf(std::size_t item) const {
  const std::string_view line = WithoutEnd(lines_[item]);
  if (line.size() == kPriceLineWidth || isStored_[item] || items_[item] != asRead_[item]) return std::nullopt;
  const std::size_t printed = std::min(line.size(), kPriceOptionalWidth);
  return OddLine{line.size(), std::string(Trim(line.substr(line.size() - printed)))};
}

std::string PriceEditor::FileBytes() const {
  std::string bytes;
  bytes.reserve(items_.size() * (kPriceLineWidth + 2));
  for (std::size_t i = 0; i < items_.size(); ++i)
    bytes.append(isStored_[i] || items_[i] != asRead_[i] ? EncodePriceList({items_[i]}) : lines_[i]);
  return bytes;
}

PriceEditor OpenPrices(const std::filesystem::path& folder) {
  const auto path = folder / kPriceFileName;
  return PriceEditor(ReadWholeFile(path), path.string());
}

void SavePrices(Disk& disk, const std::filesystem::path& folder, const PriceEditor& prices) {
  ReplaceFile(disk, folder / kPriceFileName, prices.FileBytes());
}

PriceForm OpenPriceForm(PriceEditor editor) {
  PriceForm form{.editor = std::move(editor), .boxes = {}};
  ShowCurrentItem(form);
  return form;
}

std::string DescriptionLabel(const PriceForm& form) {
  if (form.IsEmpty()) return {};
  std::string label = form.editor.Items()[form.CurrentPriceItem].PriceItemKey;
  if (const std::size_t at = label.find('&'); at != std::string::npos) label.insert(at, 1, '&');
  return label;
}

void ShowCurrentItem(PriceForm& form) {
  form.boxes = {};
  if (form.IsEmpty()) return;
  const PriceItem& item = form.editor.Items()[form.CurrentPriceItem];
  form.boxes.sku = item.PriceItemSku;
  for (std::size_t level = 0; level < kPriceLevels; ++level) form.boxes.prices[level] = FormatPrice(item.PriceItemPrice[level]);
  form.boxes.optionalText = item.PriceItemOptionalText;
}

std::optional<std::size_t> BoxTooLong(const PriceForm& form) {
  if (form.IsEmpty()) return std::nullopt;
  const PriceItem& item = form.editor.Items()[form.CurrentPriceItem];
  for (std::size_t level = 0; level < kPriceLevels; ++level)
    if (!FitsPriceFile(StoredPrice(item.PriceItemPrice[level], form.boxes.prices[level]))) return level;
  return std::nullopt;
}

PriceItem ItemOnScreen(const PriceForm& form, Blanks blanks) {
  const auto text = [blanks](const std::string& box) { return blanks == Blanks::Trim ? std::string(Trim(box)) : box; };
  PriceItem item = form.editor.Items()[form.CurrentPriceItem];
  item.PriceItemSku = text(form.boxes.sku);
  for (std::size_t level = 0; level < kPriceLevels; ++level)
    item.PriceItemPrice[level] = StoredPrice(item.PriceItemPrice[level], form.boxes.prices[level]);
  item.PriceItemOptionalText = text(form.boxes.optionalText);
  return item;
}

void StoreScreen(PriceForm& form, Blanks blanks) {
  if (!form.IsEmpty()) form.editor.Store(form.CurrentPriceItem, ItemOnScreen(form, blanks));
}

void ShowNext(PriceForm& form) {
  if (form.IsEmpty()) return;
  StoreScreen(form, Blanks::Keep);
  GoTo(form, (form.CurrentPriceItem + 1) % form.editor.Items().size());
}

void ShowPrevious(PriceForm& form) {
  if (form.IsEmpty()) return;
  StoreScreen(form, Blanks::Keep);
  GoTo(form, (form.CurrentPriceItem == 0 ? form.editor.Items().size() : form.CurrentPriceItem) - 1);
}

void BeginFind(PriceForm& form) {
  if (form.IsEmpty()) return;
  StoreScreen(form, Blanks::Trim);
  form.PriceFindMode = true;
  form.boxes.sku.clear();
}

bool FindSku(PriceForm& form, std::string_view sku) {
  form.PriceFindMode = false;
  const std::vector<PriceItem>& items = form.editor.Items();
  const std::string_view wanted = Trim(sku);
  const auto found = std::find_if(items.begin(), items.end(), [wanted](const PriceItem& item) { return Has(item.PriceItemSku, wanted); });
  const bool isFound = !wanted.empty() && found != items.end();
  if (isFound) form.CurrentPriceItem = static_cast<std::size_t>(found - items.begin());
  ShowCurrentItem(form);
  return isFound;
}

bool FindDescription(PriceForm& form, std::string_view words) {
  form.PriceFindMode = false;
  const std::vector<PriceItem>& items = form.editor.Items();
  bool found = false;
  for (std::size_t step = 1; !found && step <= items.size() && !Trim(words).empty(); ++step) {
    const std::size_t at = (form.CurrentPriceItem + step) % items.size();
    found = HoldsWords(items[at].PriceItemKey, words);
    if (found) form.CurrentPriceItem = at;
  }
  ShowCurrentItem(form);
  return found;
}

PriceList ListOnScreen(const PriceForm& form) {
  std::vector<PriceItem> items = form.editor.Items();
  if (!form.IsEmpty() && !form.PriceFindMode) items[form.CurrentPriceItem] = ItemOnScreen(form, Blanks::Trim);
  return PriceList(std::move(items));
}

}  // namespace norvale
