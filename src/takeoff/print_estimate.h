// The print run: a plan becomes its itemised, priced list.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "takeoff/sections.h"

namespace norvale {

/// All that a run reads beside the plan. Loaded once, it serves any number of runs.
struct TakeoffData {
  WasteFactors waste;
  std::vector<MaterialRow> lists;
  PriceList prices;
};

/// Reads what the mask needs from the working folder; the price list only for a run with prices. Throws FileError.
TakeoffData LoadTakeoffData(const std::filesystem::path& folder, int sectionMask);

/// One run to be printed.
struct EstimatePrint {
  EstimateRecord plan;
  CustomerRecord company;
  CustomerRecord customer;  // a blank one where the plan's customer is not on file
  std::string date;         // MM-DD-YYYY
  int sectionMask = 0;
};

/// What a run came to.
struct EstimateTotals {
  std::vector<PrintedLine> lines;  // in print order; their `stock` points into the price list of the run
  double GrandTotal = 0;
};

/// Prints one copy of the list to `page`, from the first page header to the form feed at its end. A plan of customer 0
/// prints under the company's name.
EstimateTotals PrintEstimate(const EstimatePrint& print, const TakeoffData& data, Page& page);

}  // namespace norvale
