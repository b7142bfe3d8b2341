// Reading customers and plans of a working folder for printing and export, without taking part in its changes.
//
// Each call opens what it needs and closes it again. Files that are missing hold nothing. Where an operation was
// interrupted, the first call finishes or undoes it before it reads. Every call throws FileError where a file cannot be
// read, where an index entry points to no record (then the error names the index and the position of the entry), or where
// the index is lost or names too few records and what is asked for is not among them.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "base/disk.h"
#include "data/customer_record.h"
#include "data/estimate_record.h"

namespace norvale {

/// All plans, in the order of the index.
std::vector<EstimateRecord> ReadAllEstimates(const std::filesystem::path& folder, Disk& disk = SystemDisk());

/// The same one after another, without holding them all.
void ForEachEstimate(const std::filesystem::path& folder, const std::function<void(const EstimateRecord&)>& visit,
                     Disk& disk = SystemDisk());

/// All customers, in the order of the index, with the company (customer 0) first.
std::vector<CustomerRecord> ReadAllCustomers(const std::filesystem::path& folder, Disk& disk = SystemDisk());

/// The plan of that customer and plan number (Windows-1252, without its padding), the first in the index where there are
/// several. A plan number of more than 15 characters is none that can be on file.
std::optional<EstimateRecord> FindEstimate(const std::filesystem::path& folder, int customer, std::string_view planNumber,
                                           Disk& disk = SystemDisk());

/// All plans of a customer, in the order of the index.
std::vector<EstimateRecord> ReadEstimatesOfCustomer(const std::filesystem::path& folder, int customer, Disk& disk = SystemDisk());

/// The customer of that number, the first in the index where there are several; 0 is the company.
std::optional<CustomerRecord> FindCustomerRecord(const std::filesystem::path& folder, int number, Disk& disk = SystemDisk());

}  // namespace norvale
