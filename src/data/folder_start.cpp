#include "data/folder_start.h"

#include "data/change.h"
#include "data/customer_file.h"
#include "data/index_file.h"
#include "data/index_sort.h"
#include "data/keyed_files.h"

namespace norvale {

namespace {

// The index of a lost `customer.db` is no reason to start over: that is for the operator to decide.
bool IsFirstRun(DataFolder& folder) {
  constexpr std::uint64_t kLeastIndex = 2;  // shorter counts as empty
  return OpenDataFile(folder, DataFile::Customers)->Size() == 0 && OpenDataFile(folder, DataFile::CustomerIndex)->Size() < kLeastIndex;
}

void WriteBlankCompany(DataFolder& folder) {
  CustomerRecord company;
  PadTexts(company);
  InPlaceChange change(folder);
  change.KeepLength(DataFile::Customers);
  change.Keep(DataFile::CustomerIndex, 0, CustomerIndexEntrySize);
  change.Seal();
  change.Open(DataFile::Customers).WriteAt(0, Encoded(company, CustomerRecordSize));
  change.Open(DataFile::CustomerIndex).WriteAt(0, Encoded(CustomerIndexEntry{kCompanyNumber, 1}, CustomerIndexEntrySize));
  change.Commit();
}

// Returns whether the index was made afresh; what else is wrong goes to `faults`.
template <typename Files>
bool Mend(DataFolder& folder, std::vector<Fault>& faults) {
  std::vector<Fault> found = CheckPair<Files>(folder.Files(), folder.Folder());
  const auto is = [](FaultKind kind) { return [kind](const Fault& fault) { return fault.kind == kind; }; };
  const bool rebuild =
      std::any_of(found.begin(), found.end(), is(FaultKind::Index)) && std::none_of(found.begin(), found.end(), is(FaultKind::Records));
  if (rebuild) {
    Replacement change(folder);
    RebuildIndex<Files>(change, folder);
    change.Commit();
    found = CheckPair<Files>(folder.Files(), folder.Folder());
  }
  faults.insert(faults.end(), found.begin(), found.end());
  return rebuild;
}

}  // namespace

bool FolderStart::MayWork() const {
  return std::all_of(faults.begin(), faults.end(), [](const Fault& fault) { return fault.kind == FaultKind::Twins; });
}

FolderStart StartFolder(DataFolder& folder, Session& session) {
  FolderStart start;
  start.madeCompany = IsFirstRun(folder);
  if (start.madeCompany) WriteBlankCompany(folder);
  OpenDataFile(folder, DataFile::Estimates);
  OpenDataFile(folder, DataFile::EstimateIndex);
  folder.Files().SyncFolder(folder.Folder());  // what is added to a file is safe only where its name is
  start.rebuiltCustomerIndex = Mend<CustomerFiles>(folder, start.faults);
  start.rebuiltEstimateIndex = Mend<EstimateFiles>(folder, start.faults);
  if (start.MayWork()) {
    OpenCompany(folder, session);
    session.CompanyRecord = session.CurrentCustomer;
    CloseCompany(folder, session);
  }
  return start;
}

}  // namespace norvale
