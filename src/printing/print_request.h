// What was asked for in the print dialog, made into a document.
#pragma once

#include <string>
#include <vector>

#include "data/data_folder.h"
#include "data/session.h"
#include "printing/estimate_document.h"
#include "printing/lists.h"
#include "printing/print_selection.h"

namespace norvale {

struct PrintRequest {
  PrintKind kind = PrintKind::Estimate;
  int sections = 0;           // of an estimate: the section mask
  CustomerRange range;        // of the two lists
  std::int16_t planType = 0;  // of a worksheet
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

}  // namespace norvale
