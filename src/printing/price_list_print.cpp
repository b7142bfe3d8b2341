#include "printing/price_list_print.h"

#include <array>
#include <string>

#include "base/numbers.h"
#include "base/text.h"
#include "printing/page_writer.h"

namespace norvale {

namespace {

constexpr std::string_view kTitle = "Material SKU / Description / Price List";
constexpr int kNoPageYet = 99;
constexpr int kMostLines = 56;  // an item begins a page above this count
constexpr int kItemLines = 3;
constexpr std::size_t kKeyOnPaper = 30;
constexpr std::array<std::size_t, kPriceLevels> kLevelColumns = {1, 17, 33, 49, 65};

void PrintCentred(Page& page, std::string_view text) {
  page.Tab((kPaperColumns - text.size()) / 2);
  page.Print(text);
}

int PrintHeader(Page& page, int pageNumber, std::string_view companyName, std::string_view date) {
  const std::string rule(kPaperColumns, '-');
  page.Tab(3);
  page.Print(date);
  PrintCentred(page, kTitle);
  page.Tab(72);
  page.PrintLine("Page " + ZeroPadded(pageNumber, 2));
  page.PrintLine(rule);
  PrintCentred(page, Trim(companyName));
  page.EndLine();
  page.EndLine();
  page.PrintLine("Norvale Material Item        SKU                   Description ");
  page.PrintLine("Level 1         Level 2         Level 3         Level 4         Level 5");
  page.PrintLine(rule);
  page.EndLine();
  return static_cast<int>(page.Place().line);
}

void PrintItem(Page& page, const PriceItem& item) {
  page.Print(std::string_view(item.PriceItemKey).substr(0, kKeyOnPaper));
  page.Tab(32);
  page.Print(item.PriceItemSku);
  page.Tab(54);
  page.PrintLine(item.PriceItemOptionalText);
  for (std::size_t level = 0; level < kPriceLevels; ++level) {
    page.Tab(kLevelColumns[level]);
    // A short price leaves a rule on its left to write the next one on.
    page.Print(" " + RightAligned("______________ " + item.PriceItemPrice[level], 14));
  }
  page.EndLine();
  page.EndLine();
}

}  // namespace

Document PriceListDocument(const std::vector<PriceItem>& items, std::string_view companyName, std::string_view date) {
  Page page;
  int pageNumber = 0;
  int lineCount = kNoPageYet;
  for (const PriceItem& item : items) {
    if (lineCount > kMostLines) {
      if (lineCount != kNoPageYet) page.NewPage();
      lineCount = PrintHeader(page, ++pageNumber, companyName, date);
    }
    lineCount += kItemLines;
    PrintItem(page, item);
  }
  if (!items.empty()) page.NewPage();
  return MakeDocument(std::string(kTitle), page);
}

Table PriceListTable(const std::vector<PriceItem>& items) {
  Table table{.columns = {{"key", "key"},
                          {"SKU", "sku"},
                          {"level 1", "level1"},
                          {"level 2", "level2"},
                          {"level 3", "level3"},
                          {"level 4", "level4"},
                          {"level 5", "level5"},
                          {"optional text", "optionalText"}},
              .rows = {}};
  for (const PriceItem& item : items) {
    std::vector<TableCell>& row = table.rows.emplace_back();
    row.push_back(TableCell::Text(item.PriceItemKey));
    row.push_back(TableCell::Text(item.PriceItemSku));
    for (const std::string& price : item.PriceItemPrice) row.push_back(TableCell::Text(price));
    row.push_back(TableCell::Text(item.PriceItemOptionalText));
  }
  return table;
}

}  // namespace norvale
