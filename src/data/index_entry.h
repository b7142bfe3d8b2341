// The entries of the two index files. Positions count bytes of the record file from 1; 0 marks an entry being deleted.
#pragma once

#include <string>

#include "data/customer_record.h"
#include "data/estimate_record.h"

namespace norvale {

inline constexpr std::size_t CustomerIndexEntrySize = 6;
inline constexpr std::size_t EstimateIndexEntrySize = 24;

/// An entry of `customer.ix`: the number and where its record begins. Entry 1 is the company; the others ascend.
struct CustomerIndexEntry {
  std::int16_t CustomerKey{};
  std::int32_t RecordPosition{};

  bool operator==(const CustomerIndexEntry&) const = default;
};

template <>
struct RecordFields<CustomerIndexEntry> {
  static constexpr auto table = std::tuple{
      Field{"CustomerKey", 0, &CustomerIndexEntry::CustomerKey},
      Field{"RecordPosition", 2, &CustomerIndexEntry::RecordPosition},
  };
};
static_assert(FieldsTile(RecordFields<CustomerIndexEntry>::table, CustomerIndexEntrySize), "no gap, no overlap");

/// An entry of `estimate.ix`, in ascending order of `Key`, compared as bytes.
struct EstimateIndexEntry {
  FixedText<20> Key{};  // customer number, right-justified in 5, then the 15 characters of the plan number
  std::int32_t RecordPosition{};

  bool operator==(const EstimateIndexEntry&) const = default;
};

template <>
struct RecordFields<EstimateIndexEntry> {
  static constexpr auto table = std::tuple{
      Field{"Key", 0, &EstimateIndexEntry::Key},
      Field{"RecordPosition", 20, &EstimateIndexEntry::RecordPosition},
  };
};
static_assert(FieldsTile(RecordFields<EstimateIndexEntry>::table, EstimateIndexEntrySize), "no gap, no overlap");

/// The first five characters of a plan's key: the customer number with leading blanks, so that a comparison of bytes
/// agrees with the order of the numbers. A number of six characters can only come from a damaged record; it is cut at its
/// right end, so that it never reads as a customer's number.
std::string CustomerPrefix(std::int16_t customerNumber);

/// The key of a plan. Bytes of 0 in the plan number count as blanks.
FixedText<20> EstimateKey(const EstimateRecord& plan);

}  // namespace norvale
