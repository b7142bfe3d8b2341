// What was asked for in the print dialog, made into a document.
#pragma once

#include <string>
#include <vector>

#include "data/data_folder.h"
#include "data/session.h"
#include "prices/price_list.h"
#include "printing/estimate_document.h"
#include "printing/lists.h"
#include "printing/print_selection.h"
#include "printing/worksheet.h"

namespace norvale {

/// What an estimate goes out as.
enum class EstimatePaper { ItemisedList, SummaryByYard, SummaryByList };

struct PrintRequest {
  PrintKind kind = PrintKind::Estimate;
  // Of an estimate.
  int sections = 0;  // the section mask
  EstimatePaper paper = EstimatePaper::ItemisedList;
  // Of the two lists.
  CustomerRange range;
  // Of a worksheet.
  std::int16_t planType = 0;
  WorksheetKind worksheet = WorksheetKind::Both;
};

/// A print, ready for every device.
struct Prints {
  Document document;
  std::vector<UnpricedLine> unpriced;  // of a priced estimate
  std::string csv;                     // as a table; empty: there is none of this kind
  std::string refusal;                 // why there is nothing to print; empty: there is. Lacks its title
};

/// Makes the print from the files as they are now and, for an estimate, from the program's current plan. `date` is
/// MM-DD-YYYY. Throws FileError.
Prints MakePrints(const DataFolder& folder, const Session& session, const PrintRequest& request, const std::string& date);

/// The items of a price list, under the company's name.
Prints MakePriceListPrints(const PriceList& prices, const Session& session, const std::string& date);

}  // namespace norvale
