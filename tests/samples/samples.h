// The sample dealer's tables, read as `norvale-tool import` reads them.
#pragma once

#include <filesystem>
#include <vector>

#include "prices/exchange.h"
#include "takeoff/print_estimate.h"

namespace norvale {

/// All that the files of `samples/` hold.
struct Samples {
  std::vector<CustomerRecord> customers;
  std::vector<EstimateRecord> plans;
  TakeoffData data;

  /// The customer of that number; a blank one where there is none.
  [[nodiscard]] CustomerRecord Customer(int number) const;
};

/// Reads every JSON file of the folder; the material lists are the delivered ones.
Samples ReadSamples(const std::filesystem::path& folder);

/// The samples of the repository, read once.
const Samples& RepositorySamples();

/// Prints a plan with prices and the boxes that the print dialog ticks for it.
EstimateTotals PrintSample(const Samples& samples, const EstimateRecord& plan, Page& page);

}  // namespace norvale
