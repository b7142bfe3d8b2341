#include "data/folder_reader.h"

#include <chrono>
#include <limits>
#include <thread>

#include "data/index_file.h"
#include "data/journal.h"

namespace norvale {

namespace {

// A journal that is not empty belongs either to an operation that was interrupted or to one that another program is in the
// middle of. The lock tells which: the first is finished here, the second is over in a moment.
void AwaitWholeState(Disk& disk, const std::filesystem::path& folder) {
  constexpr int kTries = 100;
  constexpr std::chrono::milliseconds kPause{20};
  for (int i = 0; Journal::IsPending(disk, folder); ++i) {
    if (const auto lock = disk.TryLock(folder / kLockFile)) {
      Journal::Recover(disk, folder);
      return;
    }
    if (i == kTries) throw FileError(folder.string(), "another program is changing the customers and plans of this folder");
    std::this_thread::sleep_for(kPause);
  }
}

// A record file and its index, open for reading.
template <typename Files>
class OpenedPair {
 public:
  OpenedPair(Disk& disk, const std::filesystem::path& folder) : folder_(folder) {
    // An operation that begins while the files are opened may have written its record before its index.
    constexpr int kLooks = 5;
    for (int look = 0; look < kLooks && (look == 0 || isIndexShort_); ++look) {
      AwaitWholeState(disk, folder);
      indexFile_ = disk.Open(folder / NameOf(Files::kIndex), Opening::Read);
      records_ = disk.Open(folder / NameOf(Files::kRecords), Opening::Read);
      const std::uint64_t records = records_ ? records_->Size() / Files::kRecordSize : 0;
      isIndexShort_ = records > (indexFile_ ? indexFile_->Size() / Files::kEntrySize : 0);
    }
    if (indexFile_ && !records_ && indexFile_->Size() >= Files::kEntrySize)
      throw FileError((folder / NameOf(Files::kRecords)).string(), "the file is missing, but its index has entries");
    if (indexFile_ && records_) index_.emplace(*indexFile_);
  }

  /// Throws where the index is lost or names fewer records than there are: whoever it does not name is not to be taken for
  /// one who is not on file.
  void RequireEveryRecord() const {
    if (isIndexShort_)
      throw FileError((folder_ / NameOf(Files::kIndex)).string(), "does not name every record; \"rebuild\" writes it afresh");
  }

  /// Nothing where the files are missing.
  [[nodiscard]] std::optional<IndexFile<Files>>& Index() { return index_; }

  [[nodiscard]] typename Files::Record Record(std::size_t number, const typename Files::Entry& entry) {
    return ReadRecord<Files>(*records_, number, entry);
  }

  [[nodiscard]] std::vector<typename Files::Record> Records(std::size_t from, std::size_t end) {
    std::vector<typename Files::Record> records;
    records.reserve(end - from);
    index_->ForEach(from, end, [&](std::size_t number, const typename Files::Entry& entry) {
      records.push_back(Record(number, entry));
      return true;
    });
    return records;
  }

 private:
  std::filesystem::path folder_;
  bool isIndexShort_ = false;
  std::unique_ptr<DiskFile> indexFile_;
  std::unique_ptr<DiskFile> records_;
  std::optional<IndexFile<Files>> index_;
};

template <typename Files>
std::vector<typename Files::Record> ReadAll(Disk& disk, const std::filesystem::path& folder) {
  OpenedPair<Files> files(disk, folder);
  files.RequireEveryRecord();
  if (!files.Index()) return {};
  return files.Records(0, files.Index()->Count());
}

bool IsRecordNumber(int number) {
  return number >= std::numeric_limits<std::int16_t>::min() && number <= std::numeric_limits<std::int16_t>::max();
}

}  // namespace

std::vector<EstimateRecord> ReadAllEstimates(const std::filesystem::path& folder, Disk& disk) {
  return ReadAll<EstimateFiles>(disk, folder);
}

void ForEachEstimate(const std::filesystem::path& folder, const std::function<void(const EstimateRecord&)>& visit, Disk& disk) {
  OpenedPair<EstimateFiles> files(disk, folder);
  files.RequireEveryRecord();
  if (!files.Index()) return;
  files.Index()->ForEach(0, files.Index()->Count(), [&](std::size_t number, const EstimateIndexEntry& entry) {
    visit(files.Record(number, entry));
    return true;
  });
}

std::vector<CustomerRecord> ReadAllCustomers(const std::filesystem::path& folder, Disk& disk) {
  return ReadAll<CustomerFiles>(disk, folder);
}

std::optional<EstimateRecord> FindEstimate(const std::filesystem::path& folder, int customer, std::string_view planNumber, Disk& disk) {
  EstimateRecord wanted;
  if (!IsRecordNumber(customer) || planNumber.size() > wanted.PlanNumber.kWidth) return std::nullopt;
  wanted.CustomerNumber = static_cast<std::int16_t>(customer);
  wanted.PlanNumber.Assign(planNumber);
  const std::string key = EstimateKey(wanted).Padded();
  const std::string prefix = CustomerPrefix(wanted.CustomerNumber);

  OpenedPair<EstimateFiles> files(disk, folder);
  if (!files.Index()) {
    files.RequireEveryRecord();
    return std::nullopt;
  }
  // Keys written by other hands may be padded with bytes of 0, which sort otherwise but count as blanks: compare each
  // plan of the customer.
  for (std::size_t at = files.Index()->LowerBound(prefix, 0, files.Index()->Count()); at < files.Index()->Count(); ++at) {
    const EstimateIndexEntry entry = files.Index()->At(at);
    if (!entry.Key.Raw().starts_with(prefix)) break;
    if (entry.Key.Padded() == key) return files.Record(at, entry);
  }
  files.RequireEveryRecord();
  return std::nullopt;
}

std::vector<EstimateRecord> ReadEstimatesOfCustomer(const std::filesystem::path& folder, int customer, Disk& disk) {
  if (!IsRecordNumber(customer)) return {};
  OpenedPair<EstimateFiles> files(disk, folder);
  files.RequireEveryRecord();
  if (!files.Index()) return {};
  const std::string prefix = CustomerPrefix(static_cast<std::int16_t>(customer));
  const std::size_t count = files.Index()->Count();
  const std::size_t first = files.Index()->LowerBound(prefix, 0, count);
  // No character of a key is above this one, so the text stands behind all keys of the prefix.
  const std::size_t end = files.Index()->UpperBound(prefix + std::string(16, '\xFF'), first, count);
  return files.Records(first, end);
}

std::optional<CustomerRecord> FindCustomerRecord(const std::filesystem::path& folder, int number, Disk& disk) {
  if (!IsRecordNumber(number)) return std::nullopt;
  OpenedPair<CustomerFiles> files(disk, folder);
  if (files.Index()) {
    const auto key = static_cast<CustomerFiles::Key>(static_cast<std::int16_t>(number));
    const std::size_t found = files.Index()->LowerBound(key, 0, files.Index()->Count());
    if (found < files.Index()->Count()) {
      const CustomerIndexEntry entry = files.Index()->At(found);
      if (CustomerFiles::KeyOf(entry) == key) return files.Record(found, entry);
    }
  }
  files.RequireEveryRecord();
  return std::nullopt;
}

}  // namespace norvale
