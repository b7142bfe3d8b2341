// The price list as a table for spreadsheets: written out whole, and read back as an update of prices.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/csv.h"
#include "prices/price_changes.h"

namespace norvale {

/// All items with the captions of `PriceColumn` as heading: UTF-8 with a byte-order mark, commas, CR LF. Texts that a
/// spreadsheet would run as formulas are guarded by an apostrophe.
std::string ExportPrices(const std::vector<PriceItem>& items);

/// How the numbers of an update are written.
enum class DecimalSign { Point, Comma, Unknown };

/// A table of prices from another program, its heading understood.
struct PriceCsv {
  std::array<std::optional<std::size_t>, kPriceColumns> cellOf;  // which cell of a row holds the column, where there is one
  std::size_t cells = 0;                                         // of the heading
  std::vector<std::string> unused;                               // captions that mean nothing here
  DecimalSign decimals = DecimalSign::Point;
  std::vector<CsvRow> rows;  // without the heading

  [[nodiscard]] bool Has(PriceColumn column) const { return cellOf[static_cast<std::size_t>(column)].has_value(); }
};

/// Reads the bytes of a file. One of its first rows names the columns, in any order and under the names that spreadsheets and
/// suppliers use; wanted are SKU or description, and a price. What stands above is a title. A comma is a decimal sign only where semicolons
/// or tabs part the cells. Throws CsvError.
PriceCsv ReadPriceCsv(std::string_view bytes, const Progress& progress = {});

/// By which column the rows find their items.
enum class PriceMatch { Sku, Description };

struct ImportOptions {
  PriceMatch match = PriceMatch::Description;
  bool zeroPrices = false;  // blank and zero prices are taken as 0.00
  bool texts = false;       // SKUs (where the description matches) and optional descriptions are taken too
};

/// The column by which more rows find an item; the description where both find as many.
PriceMatch BestMatch(const PriceCsv& csv, const std::vector<PriceItem>& items, const Progress& progress = {});

/// What the file would change. Names match character for character, blanks at both ends aside. A row that is unclear in any
/// way changes nothing and is told instead. Throws CsvError where the file lacks the column to match by.
PriceUpdate PreviewImport(const PriceCsv& csv, const std::vector<PriceItem>& items, const ImportOptions& options,
                          const Progress& progress = {});

}  // namespace norvale
