// The files of a working folder that hold customers and plans: their names, and what the two pairs of record file and
// index have in common.
#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <string_view>

#include "data/index_entry.h"

namespace norvale {

inline constexpr std::string_view CustomerDataFile = "customer.db";
inline constexpr std::string_view CustomerIndexFile = "customer.ix";
inline constexpr std::string_view EstimateDataFile = "estimate.dbr";
inline constexpr std::string_view EstimateIndexFile = "estimate.ix";

inline constexpr std::string_view kJournalFile = "norvale.jnl";
inline constexpr std::string_view kLockFile = "norvale.lck";

/// Every file that an operation may write. The journal stores these numbers: add at the end only.
enum class DataFile : std::uint8_t {
  Customers,
  CustomerIndex,
  Estimates,
  EstimateIndex,
  CustomersWithout,      // a rewrite without a customer, or in the order of the index
  CustomerIndexWithout,  // its index
  EstimatesWithout,
  EstimateIndexWithout,
  CustomersAbandoned,  // a rewrite without the blank customer of an abandoned Add
  CustomerIndexAbandoned,
  Sorting,  // the merge of a sort
};

inline constexpr std::array<std::string_view, 11> kDataFileNames = {
    CustomerDataFile, CustomerIndexFile, EstimateDataFile, EstimateIndexFile, "custfil",     "custifildx",
    "estfil",         "estidx",          "abortfil",       "abortidx",        "tmpsort.idx",
};

inline std::string_view NameOf(DataFile file) { return kDataFileNames[static_cast<std::size_t>(file)]; }

/// A record's place in its file, counted from 1, as an index entry holds it.
template <typename Files>
constexpr std::int32_t PositionOfRecord(std::uint64_t record) {
  return static_cast<std::int32_t>(record * Files::kRecordSize + 1);
}

/// Whether a whole record begins at `position` in a record file of `size` bytes.
template <typename Files>
constexpr bool PointsToRecord(std::int32_t position, std::uint64_t size) {
  if (position < 1 || (static_cast<std::uint64_t>(position) - 1) % Files::kRecordSize != 0) return false;
  return static_cast<std::uint64_t>(position) - 1 + Files::kRecordSize <= size;
}

/// The customers. A number below 0 can only come from damage; it is ordered behind all others, so that the company stays
/// first.
struct CustomerFiles {
  using Record = CustomerRecord;
  using Entry = CustomerIndexEntry;
  using Key = std::uint16_t;
  static constexpr std::size_t kRecordSize = CustomerRecordSize;
  static constexpr std::size_t kEntrySize = CustomerIndexEntrySize;
  static constexpr DataFile kRecords = DataFile::Customers;
  static constexpr DataFile kIndex = DataFile::CustomerIndex;
  static constexpr DataFile kRecordsWithout = DataFile::CustomersWithout;
  static constexpr DataFile kIndexWithout = DataFile::CustomerIndexWithout;

  static Key KeyOf(const Entry& entry) { return static_cast<Key>(entry.CustomerKey); }

  /// What a search guesses a key's place by.
  static int NumberOf(Key key) { return key; }
  static Entry EntryFor(const Record& record, std::int32_t position) { return {record.CustomerRecordNumber, position}; }

  /// The same from the record's packed bytes, without reading the rest of it.
  static Entry EntryFor(const char* record, std::int32_t position) {
    Entry entry{0, position};
    DecodeValue(record + std::get<std::tuple_size_v<decltype(RecordFields<Record>::table)> - 1>(RecordFields<Record>::table).offset,
                entry.CustomerKey);
    return entry;
  }
};

/// The plans.
struct EstimateFiles {
  using Record = EstimateRecord;
  using Entry = EstimateIndexEntry;
  using Key = std::string_view;
  static constexpr std::size_t kRecordSize = EstimateRecordSize;
  static constexpr std::size_t kEntrySize = EstimateIndexEntrySize;
  static constexpr DataFile kRecords = DataFile::Estimates;
  static constexpr DataFile kIndex = DataFile::EstimateIndex;
  static constexpr DataFile kRecordsWithout = DataFile::EstimatesWithout;
  static constexpr DataFile kIndexWithout = DataFile::EstimateIndexWithout;

  static Key KeyOf(const Entry& entry) { return entry.Key.Raw(); }
  static Key KeyOf(Entry&&) = delete;  // it would dangle

  /// What a search guesses a key's place by: the customer's number.
  static int NumberOf(Key key) {
    int number = 0;
    for (const char c : key.substr(0, 5))
      if (c >= '0' && c <= '9') number = 10 * number + (c - '0');
    return number;
  }

  static Entry EntryFor(const Record& record, std::int32_t position) { return {EstimateKey(record), position}; }

  /// The same from the record's packed bytes, without reading the rest of it.
  static Entry EntryFor(const char* record, std::int32_t position) {
    Record head;
    DecodeValue(record + std::get<0>(RecordFields<Record>::table).offset, head.CustomerNumber);
    DecodeValue(record + std::get<1>(RecordFields<Record>::table).offset, head.PlanNumber);
    return EntryFor(head, position);
  }
};

/// The most records that a file can hold: the position of the last one must fit into an index entry.
template <typename Files>
inline constexpr std::uint64_t kMostRecords = std::numeric_limits<std::int32_t>::max() / Files::kRecordSize;

}  // namespace norvale
