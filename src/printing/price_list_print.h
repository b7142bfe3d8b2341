// The price list on paper: every stock item with its SKU, its text and its five prices.
#pragma once

#include <string_view>
#include <vector>

#include "prices/price_list.h"
#include "printing/document.h"
#include "printing/table.h"

namespace norvale {

/// The items in their order, three lines each, with the name of the company and the date (MM-DD-YYYY) on every page. A list
/// without items has no page.
Document PriceListDocument(const std::vector<PriceItem>& items, std::string_view companyName, std::string_view date);

Table PriceListTable(const std::vector<PriceItem>& items);

}  // namespace norvale
