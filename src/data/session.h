// What the program has in hand: the current plan, the current customer, the company, and where they stand in the files.
#pragma once

#include <string>

#include "data/index_entry.h"

namespace norvale {

/// Where the first customer's entry stands in `customer.ix`; the company's is before it.
inline constexpr std::int32_t kFirstCustomerPosition = 1 + static_cast<std::int32_t>(CustomerIndexEntrySize);

struct Session {
  EstimateRecord CurrentEstimate{};
  EstimateIndexEntry CurrentEstimateEntry{};
  std::int32_t EstimateCursor = 1;  // position in `estimate.ix` of the current entry, in bytes from 1

  CustomerRecord CurrentCustomer{};
  CustomerIndexEntry CurrentCustomerEntry{};
  std::int32_t CustomerCursor = kFirstCustomerPosition;  // position in `customer.ix` of the current entry
  std::int32_t CustomerRecordCursor = 1;                 // position in `customer.db` of the current record
  std::string CustomerSearchText;                        // in upper case; empty: no search
  bool CustomerFound = false;
  bool customerIsNew = false;  // written by AddBlankCustomer and not saved since

  CustomerRecord CompanyRecord{};
};

/// What a step through the files came to: whether the session holds a record that can be shown, and the notice to show
/// before it, empty for none. The notice lacks its title, which belongs behind the "|" at its end.
struct StepResult {
  bool hasRecord = false;
  std::string notice;
};

}  // namespace norvale
