#include "data/folder_check.h"

#include <map>
#include <optional>

#include "data/change.h"
#include "data/index_file.h"
#include "data/index_sort.h"
#include "data/keyed_files.h"

namespace norvale {

namespace {

// The faults of one pair, as they are found.
class FaultList {
 public:
  void Add(FaultKind kind, DataFile file, std::uint64_t position, const std::string& what) {
    faults_.push_back({kind, file, position, std::string(NameOf(file)) + ": " + what});
  }
  void AddEntry(DataFile file, std::uint64_t position, const std::string& what) {
    Add(FaultKind::Index, file, position, "the entry at position " + std::to_string(position) + " " + what);
  }
  std::vector<Fault> Take() { return std::move(faults_); }

 private:
  std::vector<Fault> faults_;
};

// Calls `visit(number, bytes)` for each whole record of the file, in its order.
template <typename Files, typename Visit>
void ForEachRecord(DiskFile& records, Visit visit) {
  const std::uint64_t count = std::min(records.Size() / Files::kRecordSize, kMostRecords<Files>);
  std::string piece;
  for (std::uint64_t at = 0; at < count;) {
    const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(count - at, kPieceSize / Files::kRecordSize));
    piece.resize(wanted * Files::kRecordSize);
    ReadExactly(records, NameOf(Files::kRecords), at * Files::kRecordSize, piece.data(), piece.size());
    for (std::size_t i = 0; i < wanted; ++i, ++at) visit(at, piece.data() + i * Files::kRecordSize);
  }
}

// What is wrong with the numbers of the customers' records, given the entries that they should have.
void CheckNumbers(const std::vector<CustomerIndexEntry>& records, FaultList& faults) {
  std::map<std::int16_t, std::int32_t> firstOf;
  for (const auto& [number, position] : records) {
    const auto at = static_cast<std::uint64_t>(position);
    const std::string record = "the record at position " + std::to_string(position);
    const auto [first, isFirst] = firstOf.try_emplace(number, position);
    if (number < 0)
      faults.Add(FaultKind::Records, DataFile::Customers, at,
                 record + " has the number " + std::to_string(number) + ", which no customer can have");
    else if (number == kCompanyNumber && !isFirst)
      faults.Add(FaultKind::Records, DataFile::Customers, at,
                 record + " has the number 0 of the company, which stands at position " + std::to_string(first->second));
    else if (number == kCompanyNumber && position != 1)
      faults.Add(FaultKind::Records, DataFile::Customers, at, record + " is the company, which must be the first");
    else if (!isFirst)
      faults.Add(FaultKind::Twins, DataFile::Customers, at,
                 record + " has the number " + std::to_string(number) + " of the customer at position " + std::to_string(first->second) +
                     "; give one of them another number");
  }
  if (!firstOf.contains(kCompanyNumber))
    faults.Add(FaultKind::Records, DataFile::Customers, 1, "the company is missing, the record with the number 0 at position 1");
}

}  // namespace

template <typename Files>
std::vector<Fault> CheckPair(Disk& disk, const std::filesystem::path& folder) {
  using Entry = typename Files::Entry;
  FaultList faults;
  const auto records = disk.Open(folder / NameOf(Files::kRecords), Opening::Read);
  const auto indexFile = disk.Open(folder / NameOf(Files::kIndex), Opening::Read);
  const std::uint64_t size = records ? records->Size() : 0;

  std::vector<Entry> expected;  // one for each record, in the order of the file
  if (records) {
    expected.reserve(static_cast<std::size_t>(std::min(size / Files::kRecordSize, kMostRecords<Files>)));
    ForEachRecord<Files>(*records, [&](std::uint64_t number, const char* bytes) {
      expected.push_back(Files::EntryFor(bytes, PositionOfRecord<Files>(number)));
    });
  }
  if (const std::uint64_t rest = size % Files::kRecordSize; rest != 0)
    faults.Add(FaultKind::Records, Files::kRecords, size - rest + 1,
               "the last " + std::to_string(rest) + " bytes, from position " + std::to_string(size - rest + 1) + ", are no whole record");
  if constexpr (std::is_same_v<Files, CustomerFiles>)
    if (size > 0 || (indexFile && indexFile->Size() > 0)) CheckNumbers(expected, faults);

  std::vector<std::int32_t> entryOf(expected.size(), 0);  // the position of the entry that names the record
  if (indexFile) {
    IndexFile<Files> index(*indexFile);
    Entry before{};
    index.ForEach(0, index.Count(), [&](std::size_t number, const Entry& entry) {
      const auto position = IndexFile<Files>::PositionOf(number);
      const auto at = static_cast<std::uint64_t>(position);
      if (number > 0 && Files::KeyOf(entry) < Files::KeyOf(before))
        faults.AddEntry(Files::kIndex, at, "stands behind one with a higher key");
      before = entry;
      if (entry.RecordPosition == 0) {
        faults.AddEntry(Files::kIndex, at, "is marked as being deleted");
      } else if (!PointsToRecord<Files>(entry.RecordPosition, size)) {
        const bool isInside = entry.RecordPosition > 0 && static_cast<std::uint64_t>(entry.RecordPosition) <= size;
        faults.AddEntry(
            Files::kIndex, at,
            (isInside ? "points into the middle of a record of " : "points to no record of ") + std::string(NameOf(Files::kRecords)));
      } else {
        const auto record = (static_cast<std::size_t>(entry.RecordPosition) - 1) / Files::kRecordSize;
        if (entryOf[record] != 0)
          faults.AddEntry(Files::kIndex, at, "names the same record as the one at position " + std::to_string(entryOf[record]));
        else if (expected[record] != entry)
          faults.AddEntry(Files::kIndex, at, "has another key than its record");
        entryOf[record] = position;
      }
      return true;
    });
    if (const std::uint64_t rest = indexFile->Size() % Files::kEntrySize; rest != 0)
      faults.Add(FaultKind::Index, Files::kIndex, indexFile->Size() - rest + 1,
                 "the last " + std::to_string(rest) + " bytes, from position " + std::to_string(indexFile->Size() - rest + 1) +
                     ", are no whole entry");
  }
  for (std::size_t record = 0; record < expected.size(); ++record)
    if (entryOf[record] == 0)
      faults.Add(FaultKind::Index, Files::kRecords, static_cast<std::uint64_t>(expected[record].RecordPosition),
                 "the record at position " + std::to_string(expected[record].RecordPosition) + " has no entry in " +
                     std::string(NameOf(Files::kIndex)));
  return faults.Take();
}

template std::vector<Fault> CheckPair<CustomerFiles>(Disk&, const std::filesystem::path&);
template std::vector<Fault> CheckPair<EstimateFiles>(Disk&, const std::filesystem::path&);

std::vector<Fault> CheckFolder(Disk& disk, const std::filesystem::path& folder) {
  std::vector<Fault> faults = CheckPair<CustomerFiles>(disk, folder);
  for (Fault& fault : CheckPair<EstimateFiles>(disk, folder)) faults.push_back(std::move(fault));
  return faults;
}

namespace {

bool HasKind(const std::vector<Fault>& faults, FaultKind kind) {
  return std::any_of(faults.begin(), faults.end(), [kind](const Fault& fault) { return fault.kind == kind; });
}

// Moves the bytes behind the last whole record to the file of leftovers. They are safe there before they are cut off.
template <typename Files>
void PutAside(DataFolder& folder, std::string_view leftovers) {
  std::uint64_t size = 0;
  std::string rest;
  {
    const auto records = OpenDataFile(folder, Files::kRecords);
    size = records->Size();
    rest.resize(static_cast<std::size_t>(size % Files::kRecordSize));
    if (rest.empty()) return;
    ReadExactly(*records, NameOf(Files::kRecords), size - rest.size(), rest.data(), rest.size());
  }
  const auto aside = folder.Files().Open(folder.Folder() / leftovers, Opening::Create);
  aside->WriteAt(aside->Size(), rest);
  aside->Sync();
  folder.Files().SyncFolder(folder.Folder());

  InPlaceChange change(folder);
  change.Keep(Files::kRecords, size - rest.size(), rest.size());
  change.Seal();
  change.Open(Files::kRecords).Resize(size - rest.size());
  change.Commit();
}

// Writes the customers afresh with the company first and a possible number for everybody, and their index with them.
void RenumberCustomers(DataFolder& folder) {
  Replacement change(folder);
  {
    const auto records = OpenDataFile(folder, DataFile::Customers);
    std::vector<bool> inUse(static_cast<std::size_t>(INT16_MAX) + 1, false);
    CustomerRecord company;
    PadTexts(company);
    std::string companyBytes = Encoded(company, CustomerRecordSize);
    std::optional<std::uint64_t> companyAt;
    ForEachRecord<CustomerFiles>(*records, [&](std::uint64_t at, const char* bytes) {
      const std::int16_t number = CustomerFiles::EntryFor(bytes, 1).CustomerKey;
      if (number == kCompanyNumber && !companyAt) {
        companyAt = at;
        companyBytes.assign(bytes, CustomerRecordSize);
      }
      if (number >= 0) inUse[static_cast<std::size_t>(number)] = true;
    });
    inUse[0] = true;

    const auto newRecords = change.Create(DataFile::CustomersWithout, DataFile::Customers);
    PieceWriter writer(*newRecords);
    writer.Append(companyBytes);
    ForEachRecord<CustomerFiles>(*records, [&](std::uint64_t at, const char* bytes) {
      if (at == companyAt) return;
      auto customer = Decoded<CustomerRecord>(bytes);
      if (customer.CustomerRecordNumber <= 0) {
        const auto free = std::find(inUse.begin(), inUse.end(), false);
        if (free == inUse.end()) throw FileError(std::string(CustomerDataFile), "there are more customers than numbers");
        *free = true;
        customer.CustomerRecordNumber = static_cast<std::int16_t>(free - inUse.begin());
      }
      EncodeValue(writer.Room(CustomerRecordSize), customer);
    });
    writer.Finish();
  }
  RebuildIndex<CustomerFiles>(change, folder, DataFile::CustomersWithout);
  change.Commit();
}

template <typename Files>
void RemakeIndex(DataFolder& folder) {
  Replacement change(folder);
  RebuildIndex<Files>(change, folder);
  change.Commit();
}

}  // namespace

std::vector<Fault> RepairFolder(DataFolder& folder) {
  PutAside<CustomerFiles>(folder, kCustomerLeftovers);
  PutAside<EstimateFiles>(folder, kEstimateLeftovers);
  if (HasKind(CheckPair<CustomerFiles>(folder.Files(), folder.Folder()), FaultKind::Records)) RenumberCustomers(folder);
  if (HasKind(CheckPair<CustomerFiles>(folder.Files(), folder.Folder()), FaultKind::Index)) RemakeIndex<CustomerFiles>(folder);
  if (HasKind(CheckPair<EstimateFiles>(folder.Files(), folder.Folder()), FaultKind::Index)) RemakeIndex<EstimateFiles>(folder);
  return CheckFolder(folder.Files(), folder.Folder());
}

}  // namespace norvale
