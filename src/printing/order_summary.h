// The order summary: what the yard pulls for one estimate, each stock once.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "printing/document.h"
#include "printing/table.h"
#include "printing/yard_sections.h"
#include "takeoff/print_estimate.h"

namespace norvale {

/// By section of the yard, inside a section as the price list stands; or as the itemised list first names the stock.
enum class SummaryOrder { YardSections, FirstAppearance };

/// One stock. Texts are Windows-1252.
struct SummaryLine {
  double quantity = 0;  // of all its rows, waste included
  std::string unit;
  std::string description;
  std::string sku;        // empty where the price list has none, or has not the stock
  bool isPriced = false;  // the price list has the stock
  float price = 0;        // a unit
  double extension = 0;   // the sum of the rows' extensions
  YardSection yard = YardSection::Other;
  std::vector<std::string_view> sections;  // headings of the itemised list, in its order
};

struct OrderSummary {
  SummaryOrder order = SummaryOrder::YardSections;
  std::vector<SummaryLine> lines;
  double GrandTotal = 0;     // of the itemised list
  std::size_t unpriced = 0;  // lines for which nothing is charged
};

/// Puts the rows of a run with prices together. Rows are one stock where they are priced by the same entry of the price
/// list, or by entries that differ in blanks alone, and have the same unit.
OrderSummary Summarise(const EstimateTotals& totals, SummaryOrder order);

/// The cents by which the extensions, each rounded as it is printed, fall short of the grand total.
double RoundingOf(const OrderSummary& summary);

/// The summary of an estimate as pages; `withPrices` shows prices, extensions and totals.
Document OrderSummaryDocument(const EstimatePrint& print, const OrderSummary& summary, bool withPrices);

/// The summary of the sections of `print`. The SKUs stand in the price list, so `data` must hold it even where no price is
/// to be shown.
OrderSummary SummariseEstimate(const EstimatePrint& print, const TakeoffData& data, SummaryOrder order);

Table OrderSummaryTable(const OrderSummary& summary, bool withPrices);

}  // namespace norvale
