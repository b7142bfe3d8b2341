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
template <typename Files>
std::vector<std::string> RecordsOf(const MemoryDisk& disk) {
  const std::string bytes = disk.Bytes(NameOf(Files::kRecords));
  constexpr std::size_t kKept = std::is_same_v<Files, CustomerFiles> ? Files::kRecordSize - 2 : Files::kRecordSize;
  std::vector<std::string> records;
  for (std::size_t at = 0; at + Files::kRecordSize <= bytes.size(); at += Files::kRecordSize) records.push_back(bytes.substr(at, kKept));
  std::sort(records.begin(), records.end());
  return records;
}

template <typename Files>
void DemandSurvivors(const MemoryDisk& before, const MemoryDisk& after) {
  const auto old = RecordsOf<Files>(before);
  const auto now = RecordsOf<Files>(after);
  Demand(std::includes(now.begin(), now.end(), old.begin(), old.end()), "a record was lost");
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
      DataFolder folder("", *disk);
      Session session;
      try {
        operation.run(folder, session);
      } catch (const std::logic_error&) {  // what it needs is not on file
      }
    });
  }

  // A start mends the index and nothing else.
  const auto started = damaged.Copy();
  FolderStart start;
  {
    DataFolder folder("", *started);
    Session session;
    start = StartFolder(folder, session);
    Demand(start.MayWork() || !start.faults.empty(), "a folder is refused without a reason");
    for (const Fault& fault : start.faults)
      Demand(fault.kind != FaultKind::Index || !start.MayWork(), "a start left an index as it was: " + fault.text);
    DemandSurvivors<CustomerFiles>(damaged, *started);
    DemandSurvivors<EstimateFiles>(damaged, *started);
    if (start.MayWork()) {
      session.CurrentEstimate = PlanOf(7, "NEW");
      AddEstimate(folder, session);
      Demand(FindEstimateOfPlan(folder, session, 7, "NEW"), "a plan that was added is not found");
    }
  }

  const auto repaired = damaged.Copy();
  {
    DataFolder folder("", *repaired);
    for (const Fault& fault : RepairFolder(folder)) Demand(fault.kind == FaultKind::Twins, "a repair left: " + fault.text);
    DemandSurvivors<CustomerFiles>(damaged, *repaired);
    DemandSurvivors<EstimateFiles>(damaged, *repaired);
    const FolderBytes once = BytesOf(*repaired);
    (void)RepairFolder(folder);
    Demand(BytesOf(*repaired) == once, "a second repair changed something");
  }
}

}  // namespace norvale
