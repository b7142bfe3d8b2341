#include "data/index_sort.h"

#include <cstring>
#include <queue>
#include <utility>

#include "data/change.h"
#include "data/index_file.h"

namespace norvale {

namespace {

constexpr std::size_t kRunEntries = 1000;
constexpr std::size_t kRunBuffer = 100;

// Between the bytes on disk and a form that compares like the number: its high byte first.
void SwapKeys(std::string& entries, std::size_t entryLength) {
  for (std::size_t at = 0; at + 1 < entries.size(); at += entryLength) std::swap(entries[at], entries[at + 1]);
}

void SortRun(std::string& run, std::size_t entryLength) {
  std::vector<std::string_view> entries;
  entries.reserve(run.size() / entryLength);
  for (std::size_t at = 0; at < run.size(); at += entryLength) entries.emplace_back(run.data() + at, entryLength);
  std::sort(entries.begin(), entries.end());
  std::string sorted;
  sorted.reserve(run.size());
  for (const std::string_view entry : entries) sorted.append(entry);
  run = std::move(sorted);
}

// A sorted run of the file, read a few entries at a time.
class Run {
 public:
  Run(DiskFile& file, std::string_view name, std::uint64_t at, std::uint64_t end, std::size_t entryLength, bool swap)
      : file_(&file), name_(name), at_(at), end_(end), entryLength_(entryLength), swap_(swap) {
    Fill();
  }

  [[nodiscard]] bool IsEmpty() const { return next_ == buffer_.size(); }
  [[nodiscard]] std::string_view Head() const { return std::string_view(buffer_).substr(next_, entryLength_); }
  void Drop() {
    next_ += entryLength_;
    if (IsEmpty()) Fill();
  }

 private:
  void Fill() {
    buffer_.resize(static_cast<std::size_t>(std::min<std::uint64_t>(kRunBuffer * entryLength_, end_ - at_)));
    ReadExactly(*file_, name_, at_, buffer_.data(), buffer_.size());
    if (swap_) SwapKeys(buffer_, entryLength_);
    at_ += buffer_.size();
    next_ = 0;
  }

  DiskFile* file_;
  std::string_view name_;
  std::uint64_t at_;
  std::uint64_t end_;
  std::size_t entryLength_;
  bool swap_;
  std::string buffer_;
  std::size_t next_ = 0;
};

}  // namespace

void SortFile(DataFolder& folder, DataFile file, std::size_t entryLength, int swapKeyBytes) {
  const bool swap = swapKeyBytes != 0;
  {
    const auto unsorted = OpenDataFile(folder, file);
    const std::uint64_t size = unsorted->Size() / entryLength * entryLength;
    if (size == 0) return;
    const auto sorted = folder.Files().Open(folder.PathOf(DataFile::Sorting), Opening::Fresh);

    std::vector<Run> runs;
    std::string run;
    for (std::uint64_t at = 0; at < size; at += run.size()) {
      run.resize(static_cast<std::size_t>(std::min<std::uint64_t>(kRunEntries * entryLength, size - at)));
      ReadExactly(*unsorted, NameOf(file), at, run.data(), run.size());
      if (swap) SwapKeys(run, entryLength);
      SortRun(run, entryLength);
      if (swap) SwapKeys(run, entryLength);
      unsorted->WriteAt(at, run);
      runs.emplace_back(*unsorted, NameOf(file), at, at + run.size(), entryLength, swap);
    }

    const auto isBehind = [&runs](std::size_t a, std::size_t b) { return runs[b].Head() < runs[a].Head(); };
    std::priority_queue<std::size_t, std::vector<std::size_t>, decltype(isBehind)> heads(isBehind);
    for (std::size_t i = 0; i < runs.size(); ++i) heads.push(i);
    PieceWriter writer(*sorted);
    std::string entry;
    while (!heads.empty()) {
      const std::size_t lowest = heads.top();
      heads.pop();
      entry = runs[lowest].Head();
      if (swap) SwapKeys(entry, entryLength);
      writer.Append(entry);
      runs[lowest].Drop();
      if (!runs[lowest].IsEmpty()) heads.push(lowest);
    }
    writer.Finish();
  }
  folder.Files().Rename(folder.PathOf(DataFile::Sorting), folder.PathOf(file));
}

template <typename Files>
void RebuildIndex(Replacement& change, DataFolder& folder, DataFile records) {
  {
    const auto recordFile = OpenDataFile(folder, records);
    const auto newIndex = change.Create(Files::kIndexWithout, Files::kIndex);
    PieceWriter writer(*newIndex);
    const std::uint64_t count = std::min(recordFile->Size() / Files::kRecordSize, kMostRecords<Files>);
    std::string piece;
    for (std::uint64_t at = 0; at < count;) {
      const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(count - at, kPieceSize / Files::kRecordSize));
      piece.resize(wanted * Files::kRecordSize);
      ReadExactly(*recordFile, NameOf(records), at * Files::kRecordSize, piece.data(), piece.size());
      for (std::size_t i = 0; i < wanted; ++i, ++at)
        EncodeValue(writer.Room(Files::kEntrySize), Files::EntryFor(piece.data() + i * Files::kRecordSize, PositionOfRecord<Files>(at)));
    }
    writer.Finish();
  }
  SortFile(folder, Files::kIndexWithout, Files::kEntrySize, std::is_same_v<Files, CustomerFiles> ? 1 : 0);
}

template void RebuildIndex<CustomerFiles>(Replacement&, DataFolder&, DataFile);
template void RebuildIndex<EstimateFiles>(Replacement&, DataFolder&, DataFile);

void RebuildIndexes(DataFolder& folder) {
  Replacement change(folder);
  RebuildIndex<CustomerFiles>(change, folder);
  RebuildIndex<EstimateFiles>(change, folder);
  change.Commit();
}

}  // namespace norvale
