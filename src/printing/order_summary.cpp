#include "printing/order_summary.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <unordered_map>

#include "base/numbers.h"
#include "base/text.h"
#include "data/plan_type.h"
#include "printing/page_writer.h"
#include "takeoff/sections.h"

namespace norvale {

namespace {

std::string_view CodeOf(std::string_view heading) {
  const Section* const section = FindSection(heading);
  return section == nullptr ? heading : section->code;
}

// "Roll" and "rolls", "lft." and "Lft." are one unit.
std::string UnitStem(std::string_view unit) {
  std::string stem = UpperCase(Trim(unit));
  std::erase(stem, '.');
  if (stem.ends_with("XES")) stem.resize(stem.size() - 2);
  if (stem.size() > 1 && stem.ends_with("S")) stem.pop_back();
  return stem;
}

std::string WithoutBlanks(std::string_view text) {
  std::string bare(text);
  std::erase(bare, ' ');
  return bare;
}

std::string StockKey(const PrintedLine& line) {
  std::string key = WithoutBlanks(line.priceKey);
  key.append("\n").append(UnitStem(line.unit)).append("\n");
  if (line.stock != nullptr) key.append(line.stock->PriceItemSku).append("\n").append(Digits(line.price));
  return key;
}

// A line with what its order needs beside it.
struct Gathered {
  SummaryLine line;
  std::string key;                   // of the price list
  const PriceItem* stock = nullptr;  // null: not in the price list
};

// What to pull: the row's own words, but the price list's where they only say more, "4X8- 1/2 CDX PLYWOOD" for "1/2 CDX
// PLYWOOD".
std::string StockName(const PrintedLine& row, const std::string& key) {
  return Has(WithoutBlanks(key), WithoutBlanks(row.description)) ? key : std::string(Trim(row.description));
}

void AddRow(Gathered& gathered, const PrintedLine& row) {
  SummaryLine& line = gathered.line;
  line.quantity += row.quantity;
  line.extension += row.extension;
  if (row.unit.size() > line.unit.size()) line.unit = row.unit;
  // Rows may name one stock in several ways; then the price list's name is the one that they share.
  if (line.description != StockName(row, gathered.key)) line.description = gathered.key;
  if (std::ranges::find(line.sections, row.section) == line.sections.end()) line.sections.push_back(row.section);
}

Gathered FirstRow(const PrintedLine& row) {
  Gathered gathered;
  gathered.stock = row.stock;
  gathered.key = Trim(row.stock != nullptr ? row.stock->PriceItemKey : row.priceKey);
  gathered.line.unit = row.unit;
  gathered.line.description = StockName(row, gathered.key);
  gathered.line.isPriced = row.stock != nullptr;
  gathered.line.price = row.price;
  if (row.stock != nullptr) gathered.line.sku = row.stock->PriceItemSku;
  AddRow(gathered, row);
  return gathered;
}

// The rows of which there is anything to order. One row of the paper may stand for two entries of the price list: the second is a charge
// under another name, and where the first is not listed the second alone is the stock.
std::vector<PrintedLine> OrderedRows(const std::vector<PrintedLine>& lines) {
  std::vector<PrintedLine> rows;
  for (const PrintedLine& line : lines) {
    if (line.quantity == 0) continue;
    const bool isSecond = !rows.empty() && rows.back().place == line.place;
    if (isSecond && rows.back().stock == nullptr) rows.pop_back();
    rows.push_back(line);
    if (isSecond) rows.back().description = line.priceKey;
  }
  return rows;
}

double Cents(double amount) { return RoundEven(Val(FormatNumber(amount, {.wholeDigits = 1, .decimals = 2})) * 100); }

std::string RightIn(std::string_view text, std::size_t width) {
  return std::string(text.size() < width ? width - text.size() : 0, ' ').append(text);
}

// The columns of a line.
constexpr std::size_t kQuantityWidth = 8;
constexpr std::size_t kUnitColumn = 10;
constexpr std::size_t kDescriptionColumn = 17;
constexpr std::size_t kDescriptionWidth = 36;
constexpr std::size_t kSectionsColumn = 40;
constexpr std::size_t kPriceEnd = 65;
constexpr std::size_t kExtensionEnd = 80;

// Puts `text` so that it ends at column `end`; what is too wide goes on to the right, nothing is lost.
void EndAt(std::string& line, std::size_t end, std::string_view text) {
  line.append(" ");
  PutAt(line, end + 1 > text.size() ? end + 1 - text.size() : 1, text);
}

std::vector<std::string> LineBlock(const SummaryLine& line, bool withPrices) {
  std::vector<std::string> block;
  std::string first = RightIn(Digits(line.quantity), kQuantityWidth);
  PutAt(first, kUnitColumn, line.unit + " ");
  const std::vector<std::string> description = Wrapped(line.description, kDescriptionWidth);
  PutAt(first, kDescriptionColumn, description.front());
  if (withPrices) {
    EndAt(first, kPriceEnd, line.isPriced ? FormatNumber(line.price, kMoney) : "no price");
    if (line.isPriced) EndAt(first, kExtensionEnd, FormatNumber(line.extension, kMoney));
  }
  block.push_back(std::move(first));
  for (std::size_t i = 1; i < description.size(); ++i) PutAt(block.emplace_back(), kDescriptionColumn, description[i]);
  std::string& last = block.emplace_back();
  PutAt(last, kDescriptionColumn, line.sku + " ");
  std::string codes;
  for (const std::string_view section : line.sections) codes.append(codes.empty() ? "" : " ").append(CodeOf(section));
  PutAt(last, kSectionsColumn, codes);
  return block;
}

std::vector<std::string> Heading(const EstimatePrint& print, bool withPrices) {
  std::string plan = "PLAN NUMBER:    " + print.plan.PlanNumber.Trimmed();
  EndAt(plan, kExtensionEnd, print.date);
  std::string columns = RightIn("QTY", kQuantityWidth);
  PutAt(columns, kUnitColumn, "UNIT");
  PutAt(columns, kDescriptionColumn, "DESCRIPTION");
  if (withPrices) {
    EndAt(columns, kPriceEnd, "PRICE");
    EndAt(columns, kExtensionEnd, "EXTENSION");
  }
  std::string below;
  PutAt(below, kDescriptionColumn, "SKU");
  PutAt(below, kSectionsColumn, "FOR");
  const CustomerRecord& customer = print.plan.CustomerNumber == kCompanyNumber ? print.company : print.customer;
  std::vector<std::string> heading = {"ORDER SUMMARY", "", plan};
  const std::vector<std::string> description = Labelled("DESCRIPTION:    ", PlanDescription(print.plan.PlanType));
  heading.insert(heading.end(), description.begin(), description.end());
  heading.insert(heading.end(),
                 {"CUSTOMER NAME:  " + customer.CustomerName.Trimmed(), "", columns, below, std::string(kPaperColumns, '-')});
  return heading;
}

std::vector<std::string> Legend() {
  return {"", "FOR: 1F 1st floor  1W 1st floor walls  2F 2nd floor  2W 2nd floor walls  RF roof",
          "     ET exterior trim  FL flooring  SR sheetrock  IT interior trim"};
}

std::string TotalLine(std::string_view label, double amount) {
  std::string line;
  PutAt(line, kDescriptionColumn, label);
  EndAt(line, kExtensionEnd, FormatNumber(amount, kMoney));
  return line;
}

std::string UnpricedNote(std::size_t count) {
  return count == 1 ? "1 line has no price and is not in the total."
                    : std::to_string(count) + " lines have no price and are not in the total.";
}

}  // namespace

OrderSummary Summarise(const EstimateTotals& totals, SummaryOrder order) {
  std::vector<Gathered> gathered;
  std::unordered_map<std::string, std::size_t> places;
  for (const PrintedLine& row : OrderedRows(totals.lines)) {
    const auto [place, isNew] = places.emplace(StockKey(row), gathered.size());
    if (isNew)
      gathered.push_back(FirstRow(row));
    else
      AddRow(gathered[place->second], row);
  }
  for (Gathered& stock : gathered) stock.line.yard = YardSectionOf(stock.line.description);
  if (order == SummaryOrder::YardSections)
    std::ranges::stable_sort(gathered, [](const Gathered& a, const Gathered& b) {
      if (a.line.yard != b.line.yard) return a.line.yard < b.line.yard;
      if (a.stock == nullptr || b.stock == nullptr) return a.stock != nullptr && b.stock == nullptr;
      return std::less<>{}(a.stock, b.stock);
    });
  OrderSummary summary;
  summary.order = order;
  summary.GrandTotal = totals.GrandTotal;
  for (Gathered& stock : gathered) {
    if (stock.line.price <= 0) ++summary.unpriced;
    summary.lines.push_back(std::move(stock.line));
  }
  return summary;
}

OrderSummary SummariseEstimate(const EstimatePrint& print, const TakeoffData& data, SummaryOrder order) {
  EstimatePrint priced = print;
  priced.sectionMask |= kWithPrices;
  Page page;
  return Summarise(PrintEstimate(priced, data, page), order);
}

double RoundingOf(const OrderSummary& summary) {
  double cents = Cents(summary.GrandTotal);
  for (const SummaryLine& line : summary.lines) cents -= Cents(line.extension);
  return cents / 100;
}

Document OrderSummaryDocument(const EstimatePrint& print, const OrderSummary& summary, bool withPrices) {
  const std::string title = "Order summary " + print.plan.PlanNumber.Trimmed();
  PageWriter pages(Heading(print, withPrices), Legend());
  const SummaryLine* before = nullptr;
  for (const SummaryLine& line : summary.lines) {
    std::vector<std::string> block = LineBlock(line, withPrices);
    const std::string heading(NameOf(line.yard));
    if (summary.order == SummaryOrder::YardSections) {
      if (before == nullptr || before->yard != line.yard) {
        pages.Gap();
        block.insert(block.begin(), {heading, ""});
      } else if (pages.Reserve(block.size())) {
        block.insert(block.begin(), {heading + " (continued)", ""});
      }
    }
    pages.Block(block);
    pages.OweFoot();
    before = &line;
  }
  if (withPrices) {
    std::vector<std::string> totals = {std::string(kPaperColumns, '-')};
    if (const double rounding = RoundingOf(summary); rounding != 0) totals.push_back(TotalLine("Rounding", rounding));
    totals.push_back(TotalLine("GRAND TOTAL ----------------", summary.GrandTotal));
    if (summary.unpriced > 0) {
      totals.emplace_back();
      totals.push_back(UnpricedNote(summary.unpriced));
    }
    pages.Block(totals);
  }
  return pages.Finish(title);
}

Table OrderSummaryTable(const OrderSummary& summary, bool withPrices) {
  Table table{.columns = {{"yard section", "yardSection"},
                          {"quantity", "quantity"},
                          {"unit", "unit"},
                          {"description", "description"},
                          {"SKU", "sku"},
                          {"sections", "sections"}},
              .rows = {}};
  if (withPrices) table.columns.insert(table.columns.end(), {{"price", "price"}, {"extension", "extension"}});
  for (const SummaryLine& line : summary.lines) {
    std::string sections;
    for (const std::string_view section : line.sections) sections.append(sections.empty() ? "" : "; ").append(section);
    std::vector<TableCell>& row = table.rows.emplace_back();
    row = {TableCell::Text(NameOf(line.yard)),
           TableCell::Quantity(line.quantity),
           TableCell::Text(line.unit),
           TableCell::Text(line.description),
           line.isPriced ? TableCell::Text(line.sku) : TableCell(),
           TableCell::Text(sections)};
    row.resize(table.columns.size());
    if (!withPrices || !line.isPriced) continue;
    row[6] = TableCell::Money(line.price);
    row[7] = TableCell::Money(line.extension);
  }
  return table;
}

}  // namespace norvale
