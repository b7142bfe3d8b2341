#include "data/customer_file.h"

#include "data/estimate_file.h"
#include "data/keyed_files.h"

namespace norvale {

namespace {

using CustomerIndex = IndexFile<CustomerFiles>;

constexpr std::size_t kFirstCustomer = 1;  // the entry behind the company's

// Both files, open for an operation that does not change them.
struct CustomerReader {
  explicit CustomerReader(const DataFolder& folder)
      : records(OpenDataFile(folder, DataFile::Customers)), indexFile(OpenDataFile(folder, DataFile::CustomerIndex)), index(*indexFile) {}

  CustomerRecord Record(std::size_t number, const CustomerIndexEntry& entry) { return ReadRecord<CustomerFiles>(*records, number, entry); }

  void Show(Session& session, std::size_t entryNumber) {
    const CustomerIndexEntry entry = index.At(entryNumber);
    session.CurrentCustomer = Record(entryNumber, entry);
    session.CurrentCustomerEntry = entry;
    session.CustomerCursor = CustomerIndex::PositionOf(entryNumber);
    session.CustomerRecordCursor = entry.RecordPosition;
  }

  // The first customer from `from` on (or back from it) whose name holds the text; the count where there is none.
  std::size_t Search(std::string_view text, std::size_t from, int direction) {
    const auto matches = [&](std::size_t number, const CustomerIndexEntry& entry) {
      return Has(UpperCase(Record(number, entry).CustomerName.Padded()), text);
    };
    if (direction < 0) {
      for (std::size_t at = from; at >= kFirstCustomer && at < index.Count(); --at)
        if (matches(at, index.At(at))) return at;
      return index.Count();
    }
    std::size_t found = index.Count();
    index.ForEach(from, index.Count(), [&](std::size_t number, const CustomerIndexEntry& entry) {
      if (matches(number, entry)) found = number;
      return found == index.Count();
    });
    return found;
  }

  std::unique_ptr<DiskFile> records;
  std::unique_ptr<DiskFile> indexFile;
  CustomerIndex index;
};

// The entry at the cursor; never the company's.
std::optional<std::size_t> EntryAt(const CustomerIndex& index, std::int32_t cursor) {
  if (cursor < kFirstCustomerPosition) return std::nullopt;
  const auto entry = (static_cast<std::size_t>(cursor) - 1) / CustomerIndexEntrySize;
  if (entry >= index.Count()) return std::nullopt;
  return entry;
}

// Where a damaged folder has a number twice, the plans of that number are the first one's.
bool IsFirstOfHisNumber(CustomerIndex& index, std::size_t at) {
  return at == 0 || index.At(at - 1).CustomerKey != index.At(at).CustomerKey;
}

// The first customer, or a blank one where none is left.
void ShowFirst(DataFolder& folder, Session& session) {
  session.customerIsNew = false;
  session.CustomerCursor = kFirstCustomerPosition;
  if (ReadCustomerAtCursor(folder, session)) return;
  session.CurrentCustomer = {};
  session.CurrentCustomerEntry = {};
  session.CustomerRecordCursor = 0;
}

std::optional<std::int16_t> NextNumber(CustomerIndex& index) {
  if (index.Count() <= kFirstCustomer) return 1;
  const std::int16_t last = index.At(index.Count() - 1).CustomerKey;
  if (last >= 0 && last < kHighestCustomerNumber) return static_cast<std::int16_t>(last + 1);
  std::int16_t free = 1;
  index.ForEach(kFirstCustomer, index.Count(), [&](std::size_t, const CustomerIndexEntry& entry) {
    if (entry.CustomerKey == free) ++free;
    return entry.CustomerKey < free;
  });
  if (free > kHighestCustomerNumber) return std::nullopt;
  return free;
}

// Appends the record and inserts its entry where its number belongs.
void AddRecord(DataFolder& folder, Session& session, CustomerRecord customer) {
  InPlaceChange change(folder);
  DiskFile& records = change.Open(DataFile::Customers);
  DiskFile& indexFile = change.Open(DataFile::CustomerIndex);
  RequireWholeFiles<CustomerFiles>(records, indexFile);
  CustomerIndex index(indexFile);

  PadTexts(customer);
  const CustomerIndexEntry entry = CustomerFiles::EntryFor(customer, NextRecordPosition<CustomerFiles>(records));
  const std::size_t last = index.Count();
  const std::size_t place = index.UpperBound(CustomerFiles::KeyOf(entry), 0, last);
  change.KeepLength(DataFile::Customers);
  KeepMove<CustomerFiles>(change, last, place);
  change.Seal();
  records.WriteAt(static_cast<std::uint64_t>(entry.RecordPosition) - 1, Encoded(customer, CustomerRecordSize));
  MoveEntry(index, last, place, entry);
  change.Commit();

  session.CurrentCustomer = customer;
  session.CurrentCustomerEntry = entry;
  session.CustomerCursor = CustomerIndex::PositionOf(place);
  session.CustomerRecordCursor = entry.RecordPosition;
}

// Writes the record at its place and moves the entry where its number has changed. The customer has no plans to move.
std::size_t SaveInPlace(DataFolder& folder, std::size_t at, const CustomerRecord& customer, const CustomerIndexEntry& entry) {
  InPlaceChange change(folder);
  DiskFile& records = change.Open(DataFile::Customers);
  DiskFile& indexFile = change.Open(DataFile::CustomerIndex);
  RequireWholeFiles<CustomerFiles>(records, indexFile);
  CustomerIndex index(indexFile);
  const bool moves = index.Count() <= at || index.At(at) != entry;
  const std::size_t place = moves ? NewPlace(index, at, entry) : at;
  const auto offset = static_cast<std::uint64_t>(entry.RecordPosition) - 1;
  change.Keep(DataFile::Customers, offset, CustomerRecordSize);
  if (moves) KeepMove<CustomerFiles>(change, at, place);
  change.Seal();
  records.WriteAt(offset, Encoded(customer, CustomerRecordSize));
  if (moves) MoveEntry(index, at, place, entry);
  change.Commit();
  return place;
}

// The same for a customer with plans: they change their number with him.
std::size_t SaveWithPlans(DataFolder& folder, std::size_t at, const CustomerRecord& customer, const CustomerIndexEntry& entry) {
  Replacement change(folder);
  std::int16_t oldKey = 0;
  std::size_t place = 0;
  {
    CustomerReader files(folder);
    RequireWholeFiles<CustomerFiles>(*files.records, *files.indexFile);
    oldKey = files.index.At(at).CustomerKey;
    place = NewPlace(files.index, at, entry);
    const auto newIndex = change.Create(DataFile::CustomerIndexWithout, DataFile::CustomerIndex);
    PieceWriter writer(*newIndex);
    const auto put = [&](std::size_t number, const CustomerIndexEntry& other) {
      if (number == place && place <= at) EncodeValue(writer.Room(CustomerIndexEntrySize), entry);
      if (number != at) EncodeValue(writer.Room(CustomerIndexEntrySize), other);
      if (number == place && place > at) EncodeValue(writer.Room(CustomerIndexEntrySize), entry);
      return true;
    };
    files.index.ForEach(0, files.index.Count(), put);
    writer.Finish();
  }
  change.Write(DataFile::Customers, static_cast<std::uint64_t>(entry.RecordPosition) - 1, Encoded(customer, CustomerRecordSize));
  MovePlans(change, folder, oldKey, entry.CustomerKey);
  change.Commit();
  return place;
}

}  // namespace

bool ReadCustomerAtCursor(DataFolder& folder, Session& session) {
  CustomerReader files(folder);
  const auto at = EntryAt(files.index, session.CustomerCursor);
  if (at) files.Show(session, *at);
  return at.has_value();
}

void OpenCompany(DataFolder& folder, Session& session) { CustomerReader(folder).Show(session, 0); }

void CloseCompany(DataFolder& folder, Session& session) { ShowFirst(folder, session); }

StepResult MoveCustomer(DataFolder& folder, Session& session, int direction) {
  CustomerReader files(folder);
  const std::size_t count = files.index.Count();
  const std::string& text = session.CustomerSearchText;
  if (count <= kFirstCustomer) {
    session.CustomerCursor = kFirstCustomerPosition;
    return {.hasRecord = false, .notice = direction < 0 ? "0 Beginning Of File|" : "0 End Of File|"};
  }
  const auto current = (static_cast<std::size_t>(std::max(session.CustomerCursor, kFirstCustomerPosition)) - 1) / CustomerIndexEntrySize;
  if (text.empty()) {
    StepResult result{.hasRecord = true, .notice = ""};
    std::size_t next = direction < 0 ? current - 1 : current + static_cast<std::size_t>(direction);
    if (next >= count) {
      next = count - 1;
      result.notice = "0 End Of File|";
    } else if (next < kFirstCustomer) {
      next = kFirstCustomer;
      result.notice = "0 Beginning Of File|";
    }
    files.Show(session, next);
    return result;
  }
  const std::size_t found = files.Search(text, direction < 0 ? current - 1 : std::min(current + 1, count), direction);
  if (found < count) {
    files.Show(session, found);
    return {.hasRecord = true, .notice = ""};
  }
  if (current < count) files.Show(session, current);
  return {.hasRecord = current < count, .notice = "0 No more " + text + " matches found. " + (direction < 0 ? "Try NEXT.|" : "Try PREV.|")};
}

StepResult FindCustomer(DataFolder& folder, Session& session, int number) {
  CustomerReader files(folder);
  const std::size_t count = files.index.Count();
  const std::string& text = session.CustomerSearchText;
  std::size_t found = count;
  if (!text.empty()) {
    if (count > kFirstCustomer) found = files.Search(text, kFirstCustomer, +1);
  } else if (number > 0 && number <= INT16_MAX && count > kFirstCustomer) {
    found = files.index.LowerBound(static_cast<CustomerFiles::Key>(number), kFirstCustomer, count);
    if (found < count && files.index.At(found).CustomerKey != number) found = count;
  }
  session.CustomerFound = found < count;
  if (session.CustomerFound) {
    files.Show(session, found);
    return {.hasRecord = true, .notice = ""};
  }
  StepResult miss;
  if (!text.empty()) {
    miss.notice = "0 End of file, Find unable to locate " + text + "|";
    if (const auto at = EntryAt(files.index, session.CustomerCursor)) {
      files.Show(session, *at);
      miss.hasRecord = true;
    }
  }
  return miss;
}

AddCustomer AddBlankCustomer(DataFolder& folder, Session& session) {
  if (session.customerIsNew) return AddCustomer::AlreadyAdding;
  std::optional<std::int16_t> number;
  {
    CustomerReader files(folder);
    number = NextNumber(files.index);
  }
  if (!number) return AddCustomer::NoNumberLeft;
  CustomerRecord blank;
  blank.CustomerRecordNumber = *number;
  AddRecord(folder, session, blank);
  session.customerIsNew = true;
  return AddCustomer::Added;
}

SaveCustomerResult SaveCustomer(DataFolder& folder, Session& session) {
  CustomerRecord customer = session.CurrentCustomer;
  PadTexts(customer);
  const std::int16_t number = customer.CustomerRecordNumber;
  if (number < 1 || number > kHighestCustomerNumber) return SaveCustomerResult::NumberReserved;

  std::optional<std::size_t> at;
  CustomerIndexEntry entry;
  std::int16_t oldNumber = number;
  bool mayHavePlans = false;
  {
    CustomerReader files(folder);
    at = EntryAt(files.index, session.CustomerCursor);
    const std::size_t same = files.index.LowerBound(CustomerFiles::KeyOf({number, 0}), 0, files.index.Count());
    // Saving under the old number is always right, even where a damaged folder has that number twice.
    if (at) {
      entry = files.index.At(*at);
      RequireRecord<CustomerFiles>(files.records->Size(), *at, entry);
      oldNumber = entry.CustomerKey;
      // A customer who is just being added has none: those of his number are a walk-in's.
      mayHavePlans = !session.customerIsNew && IsFirstOfHisNumber(files.index, *at);
    }
    const bool inUse = same < files.index.Count() && files.index.At(same).CustomerKey == number;
    if (inUse && (!at || oldNumber != number)) return SaveCustomerResult::NumberInUse;
  }
  if (!at) {
    AddRecord(folder, session, customer);
  } else {
    entry.CustomerKey = number;
    const bool hasPlans = mayHavePlans && oldNumber != number && CountEstimatesOfCustomer(folder, oldNumber) > 0;
    const std::size_t place = hasPlans ? SaveWithPlans(folder, *at, customer, entry) : SaveInPlace(folder, *at, customer, entry);
    session.CurrentCustomer = customer;
    session.CurrentCustomerEntry = entry;
    session.CustomerCursor = CustomerIndex::PositionOf(place);
    session.CustomerRecordCursor = entry.RecordPosition;
  }
  session.customerIsNew = false;
  return SaveCustomerResult::Saved;
}

void SaveCompany(DataFolder& folder, Session& session) {
  CustomerRecord company = session.CurrentCustomer;
  company.CustomerRecordNumber = kCompanyNumber;
  PadTexts(company);
  const CustomerIndexEntry entry{kCompanyNumber, 1};
  SaveInPlace(folder, 0, company, entry);
  session.CurrentCustomer = company;
  session.CurrentCustomerEntry = entry;
  session.CustomerCursor = 1;
  session.CustomerRecordCursor = 1;
  session.CompanyRecord = company;
}

DeleteCustomerResult DeleteCustomer(DataFolder& folder, Session& session) {
  if (AbandonNewCustomer(folder, session)) return DeleteCustomerResult::Abandoned;
  std::optional<std::size_t> at;
  CustomerIndexEntry entry;
  bool hasThePlans = false;
  {
    CustomerReader files(folder);
    at = EntryAt(files.index, session.CustomerCursor);
    if (!at) return DeleteCustomerResult::NoCustomer;
    entry = files.index.At(*at);
    hasThePlans = IsFirstOfHisNumber(files.index, *at);
  }
  {
    Replacement change(folder);
    RewriteWithout<CustomerFiles>(folder, *at, *change.Create(DataFile::CustomersWithout, DataFile::Customers),
                                  *change.Create(DataFile::CustomerIndexWithout, DataFile::CustomerIndex));
    if (hasThePlans) MovePlans(change, folder, entry.CustomerKey, kCompanyNumber);
    change.Commit();
  }
  ShowFirst(folder, session);
  return DeleteCustomerResult::Deleted;
}

bool AbandonNewCustomer(DataFolder& folder, Session& session) {
  if (!session.customerIsNew) return false;
  std::optional<std::size_t> at;
  {
    CustomerReader files(folder);
    at = EntryAt(files.index, session.CustomerCursor);
  }
  if (at) {
    Replacement change(folder);
    RewriteWithout<CustomerFiles>(folder, *at, *change.Create(DataFile::CustomersAbandoned, DataFile::Customers),
                                  *change.Create(DataFile::CustomerIndexAbandoned, DataFile::CustomerIndex));
    change.Commit();
  }
  ShowFirst(folder, session);
  return true;
}

}  // namespace norvale
