#include "prices/delivered.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>
#include <string_view>

#include "base/text.h"
#include "prices/delivered_tables.h"

namespace norvale {

namespace {

// A table that the build put into the program: rows of text fields in the Windows-1252 of the data files.
class Table {
 public:
  Table(std::string_view name, std::string_view text, std::size_t columns) : name_(name) {
    bool heading = true;
    while (!text.empty()) {
      const std::size_t end = text.find('\n');
      const std::string_view line = text.substr(0, end);
      text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
      if (!heading && !line.empty()) rows_.push_back(Split(line, columns));
      heading = false;
    }
  }

  [[nodiscard]] const std::vector<std::vector<std::string>>& Rows() const { return rows_; }

  [[nodiscard]] std::int16_t Number(const std::vector<std::string>& row, std::size_t column) const {
    const std::string& text = row[column];
    std::int16_t value = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    if (read.ec != std::errc{} || read.ptr != text.data() + text.size()) Fail("\"" + text + "\" is no number");
    return value;
  }

  [[noreturn]] void Fail(const std::string& reason) const {
    throw std::runtime_error("delivered/" + std::string(name_) + ".tsv: " + reason);
  }

 private:
  [[nodiscard]] std::vector<std::string> Split(std::string_view line, std::size_t columns) const {
    std::vector<std::string> fields;
    for (;;) {
      const std::size_t tab = line.find('\t');
      const auto text = FromUtf8(line.substr(0, tab));
      if (!text) Fail("a character that the data files cannot hold");
      fields.push_back(*text);
      if (tab == std::string_view::npos) break;
      line.remove_prefix(tab + 1);
    }
    if (fields.size() != columns)
      Fail("a row of " + std::to_string(fields.size()) + " fields instead of " + std::to_string(columns) + ", \"" + fields.front() + "\"");
    return fields;
  }

  std::string_view name_;
  std::vector<std::vector<std::string>> rows_;
};

// As the screen file names what stands on a line: "C:07" or "T:53".
std::string CodeOf(LineField field) {
  std::string code = field.IsList() ? "C:00" : "T:00";
  code[2] = static_cast<char>('0' + field.index / 10);
  code[3] = static_cast<char>('0' + field.index % 10);
  return code;
}

template <typename Record>
std::string EncodeAll(const std::vector<Record>& records, std::size_t size) {
  std::string bytes(records.size() * size, '\0');
  for (std::size_t i = 0; i < records.size(); ++i) EncodeValue(bytes.data() + i * size, records[i]);
  return bytes;
}

}  // namespace

const std::vector<WasteItem>& DeliveredWasteItems() {
  static const std::vector<WasteItem> items = [] {
    const Table table("waste", kDeliveredWaste, 5);
    std::vector<WasteItem> made;
    std::array<bool, kWasteItems> seen{};
    for (const auto& row : table.Rows()) {
      const int item = table.Number(row, 0);
      if (item < 0 || item >= static_cast<int>(kWasteItems) || seen[static_cast<std::size_t>(item)])
        table.Fail("item " + row[0] + " is out of range or stands twice");
      seen[static_cast<std::size_t>(item)] = true;
      made.push_back({.item = item, .label = row[1], .panel = row[2], .value = table.Number(row, 4)});
    }
    if (made.size() != kWasteItems) table.Fail(std::to_string(made.size()) + " items instead of " + std::to_string(kWasteItems));
    return made;
  }();
  return items;
}

const std::vector<MaterialRow>& DeliveredMaterialRows() {
  static const std::vector<MaterialRow> rows = [] {
    const Table table("lists", kDeliveredLists, 4);
    std::vector<MaterialRow> made;
    for (const auto& row : table.Rows()) {
      MaterialRow& added = made.emplace_back();
      const auto* const list = std::ranges::find(kSelectionListRows, row[0], &SelectionListRow::name);
      if (list == std::end(kSelectionListRows)) table.Fail("there is no list " + row[0]);
      added.ListNumber = static_cast<std::int16_t>(list - kSelectionListRows);
      added.ListText.Assign(row[2]);
      added.ListDefaultFlag = static_cast<std::int16_t>(table.Number(row, 3) != 0 ? -1 : 0);
    }
    return made;
  }();
  return rows;
}

const std::vector<ScreenLine>& DeliveredScreenLines() {
  static const std::vector<ScreenLine> lines = [] {
    const Table table("screens", kDeliveredScreens, 4);
    std::vector<ScreenLine> made;
    for (const auto& row : table.Rows()) {
      const std::size_t number = made.size();
      if (number >= kScreenLines || kPlanLines[number].field.Name() != row[0])
        table.Fail(row[0] + " does not stand on line " + std::to_string(number));
      ScreenLine& added = made.emplace_back();
      added.LineNumber = static_cast<std::int16_t>(number);
      added.ControlCode.Assign(CodeOf(kPlanLines[number].field));
      added.Caption.Assign(row[1]);
      added.LeftPosition = table.Number(row, 2);
      added.LineText.Assign(row[3]);
    }
    if (made.size() != kScreenLines) table.Fail(std::to_string(made.size()) + " lines instead of " + std::to_string(kScreenLines));
    return made;
  }();
  return lines;
}

const PriceList& DeliveredPrices() {
  static const PriceList prices = [] {
    const Table table("prices", kDeliveredPrices, 3 + kPriceLevels);
    std::vector<PriceItem> items;
    for (const auto& row : table.Rows()) {
      PriceItem& item = items.emplace_back();
      item.PriceItemKey = row[0];
      item.PriceItemSku = row[1];
      for (std::size_t level = 0; level < kPriceLevels; ++level) item.PriceItemPrice[level] = row[2 + level];
      item.PriceItemOptionalText = row[2 + kPriceLevels];
    }
    return PriceList(std::move(items));
  }();
  return prices;
}

std::string DeliveredScreenFile() { return EncodeAll(DeliveredScreenLines(), ScreenLineSize); }

std::string DeliveredMaterialFile() { return EncodeAll(DeliveredMaterialRows(), MaterialRowSize); }

std::string DeliveredPriceFile() { return EncodePriceList(DeliveredPrices().Items()); }

}  // namespace norvale
