#include "support/damage_probe.h"

#include "data/folder_reader.h"
#include "support/data_fixture.h"

namespace norvale {

namespace {

// Calls that may refuse a damaged folder, but do nothing worse.
template <typename Call>
void MayRefuse(Call call) {
  try {
    call();
  } catch (const FileError& error) {
    if (error.File().empty() || error.Reason().empty()) throw std::logic_error("an error without a file or a reason");
  }
}

void Demand(bool holds, const std::string& what) {
  if (!holds) throw std::logic_error(what);
}

// The whole records of a file, in no order; a customer's without his number, which a repair may change.
std::vector<std::string> RecordsOf(const MemoryDisk& disk, DataFile file) {
  const std::string bytes = disk.Bytes(NameOf(file));
  const std::size_t size = file == DataFile::Customers ? CustomerRecordSize : EstimateRecordSize;
  std::vector<std::string> records;
  for (std::size_t at = 0; at + size <= bytes.size(); at += size)
    records.push_back(bytes.substr(at, file == DataFile::Customers ? size - 2 : size));
  std::sort(records.begin(), records.end());
  return records;
}

void DemandSurvivors(const MemoryDisk& before, const MemoryDisk& after) {
  for (const DataFile file : {DataFile::Customers, DataFile::Estimates}) {
    const auto old = RecordsOf(before, file);
    const auto now = RecordsOf(after, file);
    Demand(std::includes(now.begin(), now.end(), old.begin(), old.end()), "a record was lost");
  }
}

void ReadAll(MemoryDisk& disk) {
  MayRefuse([&] { (void)ReadAllCustomers("", disk); });
  MayRefuse([&] { (void)ReadAllEstimates("", disk); });
  for (const int number : {0, 1, 7, 32767, -1}) {
    MayRefuse([&] { (void)FindCustomerRecord("", number, disk); });
    MayRefuse([&] { (void)FindEstimate("", number, "A", disk); });
    MayRefuse([&] { (void)ReadEstimatesOfCustomer("", number, disk); });
  }
}

}  // namespace

void ProbeDamagedFolder(const MemoryDisk& damaged) {
  ReadAll(*damaged.Copy());

  // Operations on files that nobody has checked.
  for (const Operation& operation : AllOperations()) {
    const auto disk = damaged.Copy();
    MayRefuse([&] {
      try {
        operation(*disk);
      } catch (const std::logic_error&) {  // what it needs is not on file
      }
    });
  }

  // A start mends the index and nothing else.
  const auto started = damaged.Copy();
  DataFolder folder("", *started);
  Session session;
  const FolderStart start = StartFolder(folder, session);
  DemandSurvivors(damaged, *started);
  const auto isLost = [](const Fault& fault) { return fault.kind == FaultKind::Records; };
  Demand(start.MayWork() || std::any_of(start.faults.begin(), start.faults.end(), isLost), "a start left an index as it was");
  if (start.MayWork()) {
    session.CurrentEstimate = PlanOf(7, "NEW");
    AddEstimate(folder, session);
    Demand(FindEstimateOfPlan(folder, session, 7, "NEW"), "a plan that was added is not found");
  }

  const auto repaired = damaged.Copy();
  DataFolder mended("", *repaired);
  for (const Fault& fault : RepairFolder(mended)) Demand(fault.kind == FaultKind::Twins, "a repair left: " + fault.text);
  DemandSurvivors(damaged, *repaired);
  const FolderBytes once = BytesOf(*repaired);
  (void)RepairFolder(mended);
  Demand(BytesOf(*repaired) == once, "a second repair changed something");
}

}  // namespace norvale
