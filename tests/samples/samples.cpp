#include "samples.h"

#include <algorithm>
#include <iterator>

#include "prices/delivered.h"
#include "printing/print_selection.h"
#include "support/scratch_folder.h"

namespace norvale {

CustomerRecord Samples::Customer(int number) const {
  for (const CustomerRecord& customer : customers)
    if (customer.CustomerRecordNumber == number) return customer;
  return {};
}

Samples ReadSamples(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    if (entry.path().extension() == ".json") files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  Samples samples;
  samples.data.lists = DeliveredMaterialRows();
  samples.data.waste = DesignTimeWasteFactors();
  for (const auto& file : files) {
    ExchangeTables tables = ImportTables(ReadBytes(file));
    std::move(tables.customers.begin(), tables.customers.end(), std::back_inserter(samples.customers));
    std::move(tables.plans.begin(), tables.plans.end(), std::back_inserter(samples.plans));
    samples.data.waste = tables.WasteOver(samples.data.waste);
    if (tables.prices) samples.data.prices = PriceList(*std::move(tables.prices));
  }
  return samples;
}

const Samples& RepositorySamples() {
  static const Samples samples = ReadSamples(std::filesystem::path(NORVALE_SOURCE_DIR) / "samples");
  return samples;
}

EstimateTotals PrintSample(const Samples& samples, const EstimateRecord& plan, Page& page) {
  EstimatePrint print;
  print.plan = plan;
  print.company = samples.Customer(kCompanyNumber);
  print.customer = samples.Customer(plan.CustomerNumber);
  print.date = "01-01-2026";
  print.sectionMask = DefaultSections(plan) | kWithPrices;
  return PrintEstimate(print, samples.data, page);
}

}  // namespace norvale
