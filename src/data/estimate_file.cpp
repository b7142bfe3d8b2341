#include "data/estimate_file.h"

#include "data/keyed_files.h"

namespace norvale {

namespace {

using EstimateIndex = IndexFile<EstimateFiles>;

constexpr std::string_view kEndOfFile = "0 End Of File|";
constexpr std::string_view kBeginningOfFile = "0 Beginning Of File|";

// Both files, open for an operation that does not change them.
struct EstimateReader {
  explicit EstimateReader(const DataFolder& folder)
      : records(OpenDataFile(folder, DataFile::Estimates)), indexFile(OpenDataFile(folder, DataFile::EstimateIndex)), index(*indexFile) {}

  void Show(Session& session, std::size_t entryNumber) {
    const EstimateIndexEntry entry = index.At(entryNumber);
    session.CurrentEstimate = ReadRecord<EstimateFiles>(*records, entryNumber, entry);
    session.CurrentEstimateEntry = entry;
    session.EstimateCursor = EstimateIndex::PositionOf(entryNumber);
  }

  std::unique_ptr<DiskFile> records;
  std::unique_ptr<DiskFile> indexFile;
  EstimateIndex index;
};

// The entry at the cursor, or nothing where the cursor stands on none.
std::optional<std::size_t> EntryAt(const EstimateIndex& index, std::int32_t cursor) {
  if (cursor < 1) return std::nullopt;
  const auto entry = (static_cast<std::size_t>(cursor) - 1) / EstimateIndexEntrySize;
  if (entry >= index.Count()) return std::nullopt;
  return entry;
}

struct EntryRange {
  std::size_t first;
  std::size_t end;
};

EntryRange EntriesOfCustomer(EstimateIndex& index, std::int16_t number) {
  const std::string prefix = CustomerPrefix(number);
  const std::size_t first = index.LowerBound(prefix, 0, index.Count());
  // No character of a key is above this one, so the text stands behind all keys of the prefix.
  return {first, index.UpperBound(prefix + std::string(16, '\xFF'), first, index.Count())};
}

}  // namespace

void AddEstimate(DataFolder& folder, Session& session) {
  InPlaceChange change(folder);
  DiskFile& records = change.Open(DataFile::Estimates);
  DiskFile& indexFile = change.Open(DataFile::EstimateIndex);
  RequireWholeFiles<EstimateFiles>(records, indexFile);
  EstimateIndex index(indexFile);

  EstimateRecord plan = session.CurrentEstimate;
  PadTexts(plan);
  const EstimateIndexEntry entry = EstimateFiles::EntryFor(plan, NextRecordPosition<EstimateFiles>(records));
  const std::size_t last = index.Count();
  const std::size_t place = index.UpperBound(entry.Key.Raw(), 0, last);

  change.KeepLength(DataFile::Estimates);
  KeepMove<EstimateFiles>(change, last, place);
  change.Seal();
  records.WriteAt(static_cast<std::uint64_t>(entry.RecordPosition) - 1, Encoded(plan, EstimateRecordSize));
  MoveEntry(index, last, place, entry);
  change.Commit();

  session.CurrentEstimate = plan;
  session.CurrentEstimateEntry = entry;
  session.EstimateCursor = EstimateIndex::PositionOf(place);
}

EstimateChange UpdateEstimate(DataFolder& folder, Session& session) {
  InPlaceChange change(folder);
  DiskFile& records = change.Open(DataFile::Estimates);
  DiskFile& indexFile = change.Open(DataFile::EstimateIndex);
  RequireWholeFiles<EstimateFiles>(records, indexFile);
  EstimateIndex index(indexFile);
  const auto at = EntryAt(index, session.EstimateCursor);
  if (!at) return EstimateChange::NothingOnFile;

  EstimateRecord plan = session.CurrentEstimate;
  PadTexts(plan);
  const EstimateIndexEntry old = index.At(*at);
  RequireRecord<EstimateFiles>(records.Size(), *at, old);
  const EstimateIndexEntry entry = EstimateFiles::EntryFor(plan, old.RecordPosition);
  const bool moves = entry != old;
  const std::size_t place = moves ? NewPlace(index, *at, entry) : *at;

  const auto offset = static_cast<std::uint64_t>(entry.RecordPosition) - 1;
  change.Keep(DataFile::Estimates, offset, EstimateRecordSize);
  if (moves) KeepMove<EstimateFiles>(change, *at, place);
  change.Seal();
  records.WriteAt(offset, Encoded(plan, EstimateRecordSize));
  if (moves) MoveEntry(index, *at, place, entry);
  change.Commit();

  session.CurrentEstimate = plan;
  session.CurrentEstimateEntry = entry;
  session.EstimateCursor = EstimateIndex::PositionOf(place);
  return EstimateChange::Done;
}

EstimateChange DeleteEstimate(DataFolder& folder, Session& session) {
  const auto at = EntryAt(EstimateReader(folder).index, session.EstimateCursor);
  if (!at) return EstimateChange::NothingOnFile;
  {
    Replacement change(folder);
    RewriteWithout<EstimateFiles>(folder, *at, *change.Create(DataFile::EstimatesWithout, DataFile::Estimates),
                                  *change.Create(DataFile::EstimateIndexWithout, DataFile::EstimateIndex));
    change.Commit();
  }
  session.EstimateCursor = 1;
  EstimateReader files(folder);
  if (files.index.Count() > 0) files.Show(session, 0);
  return EstimateChange::Done;
}

StepResult MoveEstimate(DataFolder& folder, Session& session, int direction) {
  EstimateReader files(folder);
  StepResult result;
  const auto count = static_cast<std::int64_t>(files.index.Count());
  std::int64_t entry = (session.EstimateCursor - 1) / static_cast<std::int64_t>(EstimateIndexEntrySize) + direction;
  if (entry >= count) {
    entry = count - 1;
    result.notice = kEndOfFile;
  }
  if (entry < 0) {
    entry = 0;
    if (result.notice.empty()) result.notice = kBeginningOfFile;
  }
  if (count == 0) {
    session.EstimateCursor = 1;
    return result;
  }
  files.Show(session, static_cast<std::size_t>(entry));
  result.hasRecord = true;
  return result;
}

void FindFirstEstimateOfCustomer(DataFolder& folder, Session& session, int& number) {
  const auto indexFile = OpenDataFile(folder, DataFile::EstimateIndex);
  EstimateIndex index(*indexFile);
  if (number >= 0 && number <= INT16_MAX) {
    const std::string prefix = CustomerPrefix(static_cast<std::int16_t>(number));
    const std::size_t first = index.LowerBound(prefix, 0, index.Count());
    if (first < index.Count()) {
      const EstimateIndexEntry entry = index.At(first);
      if (entry.Key.Raw().starts_with(prefix)) {
        session.CurrentEstimateEntry = entry;
        session.EstimateCursor = EstimateIndex::PositionOf(first);
        return;
      }
    }
  }
  number = -1;
}

bool FindEstimateOfPlan(DataFolder& folder, Session& session, int customer, std::string_view planNumber) {
  EstimateRecord wanted;
  if (customer < 0 || customer > INT16_MAX || planNumber.size() > wanted.PlanNumber.kWidth) return false;
  wanted.CustomerNumber = static_cast<std::int16_t>(customer);
  wanted.PlanNumber.Assign(planNumber);
  const FixedText<20> key = EstimateKey(wanted);
  EstimateReader files(folder);
  const std::size_t found = files.index.LowerBound(key.Raw(), 0, files.index.Count());
  if (found == files.index.Count() || files.index.At(found).Key != key) return false;
  files.Show(session, found);
  return true;
}

bool FindEstimateAt(DataFolder& folder, Session& session, std::int32_t recordPosition) {
  EstimateReader files(folder);
  std::optional<std::size_t> found;
  files.index.ForEach(0, files.index.Count(), [&](std::size_t number, const EstimateIndexEntry& entry) {
    if (entry.RecordPosition == recordPosition) found = number;
    return !found;
  });
  if (found) files.Show(session, *found);
  return found.has_value();
}

StepResult FindEstimateByPlanText(DataFolder& folder, Session& session, std::string_view text) {
  constexpr std::size_t kPrefixWidth = 5;
  const std::string wanted = UpperCase(text);
  EstimateReader files(folder);
  std::optional<std::size_t> found;
  files.index.ForEach(0, files.index.Count(), [&](std::size_t number, const EstimateIndexEntry& entry) {
    if (Has(UpperCase(entry.Key.Raw().substr(kPrefixWidth)), wanted)) found = number;
    return !found;
  });
  if (!found) return {.hasRecord = false, .notice = "0 End of file, Find unable to locate " + std::string(text) + "|"};
  files.Show(session, *found);
  return {.hasRecord = true, .notice = ""};
}

std::size_t CountEstimatesOfCustomer(DataFolder& folder, std::int16_t number) {
  EstimateReader files(folder);
  const EntryRange range = EntriesOfCustomer(files.index, number);
  return range.end - range.first;
}

std::size_t MovePlans(Replacement& change, DataFolder& folder, std::int16_t from, std::int16_t to) {
  EstimateReader files(folder);
  RequireWholeFiles<EstimateFiles>(*files.records, *files.indexFile);
  const EntryRange leaving = EntriesOfCustomer(files.index, from);
  const EntryRange staying = EntriesOfCustomer(files.index, to);
  if (leaving.first == leaving.end || from == to) return 0;

  std::vector<EstimateIndexEntry> moved = files.index.Range(leaving.first, leaving.end);
  std::string number(FieldWidth<std::int16_t>::value, '\0');
  EncodeValue(number.data(), to);
  for (std::size_t i = 0; i < moved.size(); ++i) {
    RequireRecord<EstimateFiles>(files.records->Size(), leaving.first + i, moved[i]);
    // The customer's number is the record's first field.
    static_assert(std::get<0>(RecordFields<EstimateRecord>::table).member == &EstimateRecord::CustomerNumber);
    change.Write(DataFile::Estimates, static_cast<std::uint64_t>(moved[i].RecordPosition) - 1, number);
    moved[i].Key.Assign(CustomerPrefix(to) + std::string(moved[i].Key.Raw().substr(CustomerPrefix(to).size())));
  }

  const auto newIndex = change.Create(DataFile::EstimateIndexWithout, DataFile::EstimateIndex);
  PieceWriter writer(*newIndex);
  const auto put = [&writer](std::size_t, const EstimateIndexEntry& entry) {
    EncodeValue(writer.Room(EstimateIndexEntrySize), entry);
    return true;
  };
  const auto putMerged = [&] {
    std::size_t next = 0;
    files.index.ForEach(staying.first, staying.end, [&](std::size_t at, const EstimateIndexEntry& entry) {
      for (; next < moved.size() && moved[next].Key.Raw() < entry.Key.Raw(); ++next) put(at, moved[next]);
      return put(at, entry);
    });
    for (; next < moved.size(); ++next) put(0, moved[next]);
  };
  if (staying.first <= leaving.first) {
    files.index.ForEach(0, staying.first, put);
    putMerged();
    files.index.ForEach(staying.end, leaving.first, put);
    files.index.ForEach(leaving.end, files.index.Count(), put);
  } else {
    files.index.ForEach(0, leaving.first, put);
    files.index.ForEach(leaving.end, staying.first, put);
    putMerged();
    files.index.ForEach(staying.end, files.index.Count(), put);
  }
  writer.Finish();
  return moved.size();
}

void ReassignEstimatesToCompany(DataFolder& folder, int number) {
  if (number < 1 || number > INT16_MAX) return;
  Replacement change(folder);
  if (MovePlans(change, folder, static_cast<std::int16_t>(number), kCompanyNumber) > 0) change.Commit();
}

}  // namespace norvale
