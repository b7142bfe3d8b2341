// Checking the customer and plan files of a folder, and mending them.
#pragma once

#include <string>
#include <vector>

#include "data/data_folder.h"

namespace norvale {

/// What a fault is about, and so what it takes to mend it.
enum class FaultKind {
  Index,    // the index does not agree with the records: it is made afresh from them
  Records,  // the record file: bytes that are no whole record, or a company that is not where it must be
  Twins,    // two customers of one number: only the operator knows which number is right
};

struct Fault {
  FaultKind kind{};
  DataFile file{};
  std::uint64_t position = 1;  // in bytes from 1
  std::string text;            // a sentence that names file and position
};

/// The files that take what a repair cuts off: bytes at the end of a record file that are no whole record. They only grow.
inline constexpr std::string_view kCustomerLeftovers = "customer.rest";
inline constexpr std::string_view kEstimateLeftovers = "estimate.rest";

/// Reads the files of one pair through and returns each fault, in the order of the files. Missing files are empty ones.
template <typename Files>
std::vector<Fault> CheckPair(Disk& disk, const std::filesystem::path& folder);

/// The faults of all four files. An interrupted operation must have been recovered before.
std::vector<Fault> CheckFolder(Disk& disk, const std::filesystem::path& folder);

/// Mends what can be mended without losing a record, and returns the faults that are left. A company that is missing is put
/// in as a blank one; a record with a number that no customer can have gets the lowest free one. What cannot be read as a
/// record goes to the files of leftovers before it is cut off.
std::vector<Fault> RepairFolder(DataFolder& folder);

}  // namespace norvale
