// The itemised list as a table for other programs, made from the same run as the paper.
#pragma once

#include <vector>

#include "printing/table.h"
#include "takeoff/takeoff_run.h"

namespace norvale {

/// One row a material line, in print order. SKU, optional text, price and extension are empty where the run found no price.
Table EstimateTable(const std::vector<PrintedLine>& lines);

}  // namespace norvale
