// Customers, plans, waste factors and prices as JSON tables that a person can read and a script can write.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "data/customer_record.h"
#include "data/estimate_record.h"
#include "prices/price_list.h"
#include "prices/waste_factors.h"

namespace norvale {

/// What an exchange file holds. Waste factors and prices are there only where the file brings them.
struct ExchangeTables {
  std::vector<CustomerRecord> customers;
  std::vector<EstimateRecord> plans;
  std::map<std::size_t, std::int16_t> wasteFactors;  // percent by item; the items that are not named stay as they are
  std::optional<std::vector<PriceItem>> prices;

  /// `before` with the percentages that the file names.
  [[nodiscard]] WasteFactors WasteOver(WasteFactors before) const;
};

/// A file that cannot be taken: what() is the place in it and the reason.
class ExchangeError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Customers and plans as one object, `{"customers": [...], "plans": [...]}`, every field by its name, in the order given.
/// UTF-8; texts without their trailing blanks; `RoofPlanes` up to its last row in use.
std::string ExportTables(const std::vector<CustomerRecord>& customers, const std::vector<EstimateRecord>& plans);

/// Reads such an object, and beside "customers" and "plans" also "wasteFactors" (an object of item numbers and
/// percentages) and "prices" (an array of items by their fields). A field left out is 0 or blank. Throws ExchangeError for an
/// unknown field and a value of the wrong kind or out of its range.
ExchangeTables ImportTables(std::string_view json);

}  // namespace norvale
