// Storing many customers and plans at once: all of them or none.
#pragma once

#include <span>

#include "data/data_folder.h"

namespace norvale {

struct StoredCounts {
  std::size_t customersAdded = 0;
  std::size_t customersUpdated = 0;
  std::size_t plansAdded = 0;
  std::size_t plansUpdated = 0;
};

/// Stores records byte for byte as they are. A customer whose number is on file is written over his record, any other is
/// added; the company is customer 0. The n-th plan of a key (customer and plan number) is written over the n-th plan of that
/// key in the folder, where there is one, and added behind them otherwise. Records are added in the order given. All of it is
/// on the disk when this returns; where it throws FileError, nothing has changed.
///
/// The folder must have been started. The whole of both indexes is held in memory.
StoredCounts StoreAll(DataFolder& folder, std::span<const CustomerRecord> customers, std::span<const EstimateRecord> plans);

}  // namespace norvale
