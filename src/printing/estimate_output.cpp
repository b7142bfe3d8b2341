#include "printing/estimate_output.h"

namespace norvale {

Table EstimateTable(const std::vector<PrintedLine>& lines) {
  Table table{.columns = {{"section", "section"},
                          {"quantity", "quantity"},
                          {"unit", "unit"},
                          {"description", "description"},
                          {"label", "label"},
                          {"adjusted", "adjusted"},
                          {"item", "item"},
                          {"price key", "priceKey"},
                          {"SKU", "sku"},
                          {"optional text", "optionalText"},
                          {"price", "price"},
                          {"extension", "extension"}},
              .rows = {}};
  for (const PrintedLine& line : lines) {
    std::vector<TableCell>& row = table.rows.emplace_back();
    row = {TableCell::Text(line.section),     TableCell::Quantity(line.quantity), TableCell::Text(line.unit),
           TableCell::Text(line.description), TableCell::Text(line.label),        TableCell::Flag(line.adjusted),
           TableCell::Whole(line.item),       TableCell::Text(line.priceKey)};
    if (line.item == kNoItem) row[6] = {};
    row.resize(table.columns.size());
    if (line.stock == nullptr) continue;
    row[8] = TableCell::Text(line.stock->PriceItemSku);
    row[9] = TableCell::Text(line.stock->PriceItemOptionalText);
    row[10] = TableCell::Money(line.price);
    row[11] = TableCell::Money(line.extension);
  }
  return table;
}

}  // namespace norvale
