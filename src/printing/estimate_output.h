// The itemised list as tables for other programs, made from the same run as the paper.
#pragma once

#include <string>
#include <vector>

#include "takeoff/takeoff_run.h"

namespace norvale {

/// One row a material line, in print order, as comma-separated values (RFC 4180, UTF-8, CR LF, with a heading row).
/// SKU, optional text, price and extension are empty where the run found no price.
std::string EstimateCsv(const std::vector<PrintedLine>& lines);

/// The same rows as a JSON array of objects (UTF-8); null where the CSV is empty.
std::string EstimateJson(const std::vector<PrintedLine>& lines);

}  // namespace norvale
