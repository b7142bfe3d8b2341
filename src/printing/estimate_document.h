// The itemised list as a document, and the lines of it that nothing is charged for.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "printing/document.h"
#include "takeoff/print_estimate.h"

namespace norvale {

/// A row of a priced run that found no price, or a price of nothing. Texts are Windows-1252.
struct UnpricedLine {
  std::string_view section;
  double quantity = 0;
  std::string unit;
  std::string description;
  std::string_view label;
  bool isListed = false;  // the price list has it, at 0.00
  PagePlace place;
};

/// The rows of a run with prices for which the customer would pay nothing, in print order. Of a run without prices that is
/// every row.
std::vector<UnpricedLine> UnpricedLines(const std::vector<PrintedLine>& lines);

struct EstimateDocument {
  Document document;
  EstimateTotals totals;  // of one copy; as `PrintEstimate` gives them
};

/// The list in as many copies as asked for; fewer than one is one. In a run with prices the unpriced rows are marked.
EstimateDocument MakeEstimateDocument(const EstimatePrint& print, const TakeoffData& data, int copies = 1);

}  // namespace norvale
