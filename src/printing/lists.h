// The two lists of a working folder: its customers, and its plans customer by customer.
#pragma once

#include <string>
#include <vector>

#include "data/customer_record.h"
#include "data/estimate_record.h"
#include "takeoff/page.h"

namespace norvale {

/// The customers of a list, both numbers included. From 1; the last number stands for " LAST".
struct CustomerRange {
  int PrintFrom = 1;
  int PrintTo = 32767;

  [[nodiscard]] bool Holds(int number) const { return number >= PrintFrom && number <= PrintTo; }
};

/// Pages of 80 columns. A text too long for its column goes on in the next line of its row; a row is never parted by the end
/// of a page.
void PrintCustomerList(const std::vector<CustomerRecord>& customers, CustomerRange range, Page& page);

/// A customer and his plans, in the order in which they are printed.
struct CustomerPlans {
  CustomerRecord customer;
  std::vector<EstimateRecord> plans;
};

/// A heading for each customer and under it one row for each of his plans. Where a page ends between two plans, the next one
/// begins with the customer's name again.
void PrintEstimateList(const std::vector<CustomerPlans>& customers, CustomerRange range, Page& page);

}  // namespace norvale
