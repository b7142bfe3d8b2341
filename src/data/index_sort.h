// Making an index afresh from its records, and the sort on disk that this needs.
#pragma once

#include <string_view>

#include "data/data_folder.h"

namespace norvale {

/// Sorts a flat file of entries of `entryLength` bytes, in ascending order of their bytes, through the working file
/// `tmpsort.idx`. With `swapKeyBytes` 1 the first two bytes are a number with its low byte first and are compared as such.
/// A rest that is no whole entry is dropped. Memory is bounded: runs of 1000 entries, then 100 of each run.
///
/// For a working file: where the sort is interrupted its entries may be lost, and the caller syncs it.
void SortFile(DataFolder& folder, DataFile file, std::size_t entryLength, int swapKeyBytes);

/// Writes both indexes afresh from the records, both or neither. A rest of a record file that is no whole record is left out.
void RebuildIndexes(DataFolder& folder);

class Replacement;

/// Adds to a change that the index of one pair is written afresh from `records`.
template <typename Files>
void RebuildIndex(Replacement& change, DataFolder& folder, DataFile records = Files::kRecords);

}  // namespace norvale
