#include "data/batch_store.h"

#include <map>
#include <string>
#include <unordered_map>

#include "data/change.h"
#include "data/index_file.h"
#include "data/keyed_files.h"

namespace norvale {

namespace {

// Where each record of a batch goes, and the index that comes of it.
template <typename Files>
struct Plan {
  std::vector<std::uint64_t> offsets;        // of each record of the batch, in the record file
  std::vector<typename Files::Entry> added;  // in the order of the batch
  std::vector<typename Files::Entry> index;  // the new index from the entry `firstChanged` on
  std::size_t firstChanged = 0;
};

std::string KeyText(std::uint16_t key) { return std::to_string(key); }
std::string KeyText(std::string_view key) { return std::string(key); }

// `repeats`: whether several records of one key are several records, and not one that is written several times.
template <typename Files>
Plan<Files> PlanBatch(IndexFile<Files>& index, DiskFile& records, std::span<const typename Files::Record> batch, bool repeats) {
  using Entry = typename Files::Entry;
  Plan<Files> plan;
  const std::vector<Entry> old = index.Range(0, index.Count());
  std::unordered_map<std::string, std::vector<std::int32_t>> onFile;
  for (const auto& record : batch) {
    const Entry entry = Files::EntryFor(record, 0);
    onFile.try_emplace(KeyText(Files::KeyOf(entry)));
  }
  for (std::size_t i = 0; i < old.size(); ++i) {
    const auto found = onFile.find(KeyText(Files::KeyOf(old[i])));
    if (found == onFile.end()) continue;
    RequireRecord<Files>(records.Size(), i, old[i]);
    found->second.push_back(old[i].RecordPosition);
  }

  std::unordered_map<std::string, std::size_t> used;
  std::uint64_t next = records.Size() / Files::kRecordSize;
  for (const auto& record : batch) {
    Entry entry = Files::EntryFor(record, 0);
    const std::string key = KeyText(Files::KeyOf(entry));
    std::vector<std::int32_t>& positions = onFile[key];
    const std::size_t which = repeats ? used[key]++ : 0;
    if (which >= positions.size()) {
      if (next >= kMostRecords<Files>) throw FileError(std::string(NameOf(Files::kRecords)), "the file is full");
      entry.RecordPosition = PositionOfRecord<Files>(next++);
      positions.push_back(entry.RecordPosition);
      plan.added.push_back(entry);
    }
    plan.offsets.push_back(static_cast<std::uint64_t>(positions[which]) - 1);
  }

  std::vector<Entry> added = plan.added;
  const auto less = [](const Entry& a, const Entry& b) { return Files::KeyOf(a) < Files::KeyOf(b); };
  std::stable_sort(added.begin(), added.end(), less);
  if (!added.empty()) {
    const auto from = std::upper_bound(old.begin(), old.end(), added.front(), less);
    plan.firstChanged = static_cast<std::size_t>(from - old.begin());
    std::merge(from, old.end(), added.begin(), added.end(), std::back_inserter(plan.index), less);
  }
  return plan;
}

// One pair of a batch: what must be kept before the change is sealed, then what is written.
template <typename Files>
class PairBatch {
 public:
  PairBatch(InPlaceChange& change, std::span<const typename Files::Record> batch, bool repeats)
      : batch_(batch),
        records_(change.Open(Files::kRecords)),
        indexFile_(change.Open(Files::kIndex)),
        index_(indexFile_),
        oldSize_(records_.Size()) {
    RequireWholeFiles<Files>(records_, indexFile_);
    if (batch.empty()) return;
    plan_ = PlanBatch<Files>(index_, records_, batch, repeats);
    change.KeepLength(Files::kRecords);
    for (const std::uint64_t offset : plan_.offsets)
      if (offset < oldSize_) change.Keep(Files::kRecords, offset, Files::kRecordSize);
    if (!plan_.index.empty()) change.Keep(Files::kIndex, plan_.firstChanged * Files::kEntrySize, plan_.index.size() * Files::kEntrySize);
  }

  void Write() {
    PieceWriter writer(records_, oldSize_);
    for (std::size_t i = 0; i < batch_.size(); ++i) {
      const std::uint64_t offset = plan_.offsets[i];
      if (offset == writer.Position()) {
        EncodeValue(writer.Room(Files::kRecordSize), batch_[i]);
        continue;
      }
      if (offset >= oldSize_) writer.Finish();  // a record of this batch once more
      records_.WriteAt(offset, Encoded(batch_[i], Files::kRecordSize));
    }
    writer.Finish();
    index_.Put(plan_.firstChanged, plan_.index);
  }

  [[nodiscard]] std::size_t Added() const { return plan_.added.size(); }
  [[nodiscard]] std::size_t Updated() const { return batch_.size() - plan_.added.size(); }

 private:
  std::span<const typename Files::Record> batch_;
  DiskFile& records_;
  DiskFile& indexFile_;
  IndexFile<Files> index_;
  std::uint64_t oldSize_;
  Plan<Files> plan_;
};

}  // namespace

StoredCounts StoreAll(DataFolder& folder, std::span<const CustomerRecord> customers, std::span<const EstimateRecord> plans) {
  InPlaceChange change(folder);
  PairBatch<CustomerFiles> customerBatch(change, customers, false);
  PairBatch<EstimateFiles> planBatch(change, plans, true);
  if (customers.empty() && plans.empty()) return {};
  change.Seal();
  customerBatch.Write();
  planBatch.Write();
  change.Commit();
  return {customerBatch.Added(), customerBatch.Updated(), planBatch.Added(), planBatch.Updated()};
}

}  // namespace norvale
