// Small customers and plans, a folder of them, and the operations that the tests put it through.
#pragma once

#include <array>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "data/backup.h"
#include "data/batch_store.h"
#include "data/customer_file.h"
#include "data/estimate_file.h"
#include "data/folder_check.h"
#include "data/folder_start.h"
#include "data/index_file.h"
#include "data/index_sort.h"
#include "data/keyed_files.h"
#include "support/memory_disk.h"

namespace norvale {

inline CustomerRecord Customer(std::int16_t number, std::string_view name) {
  CustomerRecord customer;
  customer.CustomerName.Assign(name);
  customer.CustomerRecordNumber = number;
  return customer;
}

/// `mark` tells plans of one key apart.
inline EstimateRecord PlanOf(std::int16_t customer, std::string_view number, std::int16_t mark = 0) {
  EstimateRecord plan;
  plan.CustomerNumber = customer;
  plan.PlanNumber.Assign(number);
  plan.RoofSqFt = mark;
  return plan;
}

/// The files that a backup would hold, by their name. An empty file counts as none.
using FolderBytes = std::map<std::string, std::string>;
inline FolderBytes BytesOf(const MemoryDisk& disk, const std::filesystem::path& folder = "") {
  FolderBytes bytes = disk.FilesIn(folder);
  std::erase_if(bytes, [](const auto& file) { return !IsKept(file.first) || file.second.empty(); });
  return bytes;
}

/// Four customers, nine plans: two of one key, some of the company, some of nobody on file, none in index order.
inline std::unique_ptr<MemoryDisk> SampleDisk() {
  auto disk = std::make_unique<MemoryDisk>();
  DataFolder folder("", *disk);
  Session session;
  (void)StartFolder(folder, session);
  const std::vector customers = {Customer(7, "Oak Street Builders"), Customer(3, "Hill Homes"), Customer(12, "Smith & Oakley"),
                                 Customer(5, "Reed")};
  const std::vector plans = {PlanOf(7, "B", 1), PlanOf(3, "A", 2), PlanOf(7, "A", 3),  PlanOf(12, "Z", 4), PlanOf(7, "A", 5),
                             PlanOf(0, "A", 6), PlanOf(9, "Q", 7), PlanOf(7, " C", 8), PlanOf(0, "C", 9)};
  StoreAll(folder, customers, plans);
  return disk;
}

/// What is said where the call fails; empty where it does not.
template <typename Call>
std::string ErrorOf(Call call) {
  try {
    call();
  } catch (const FileError& error) {
    return error.what();
  }
  return "";
}

/// One operation on the sample folder, with the cursors where it needs them. `run` throws FileError where the disk does.
struct Operation {
  std::string_view name;
  std::function<void(DataFolder&, Session&)> run;

  void operator()(MemoryDisk& disk) const {
    DataFolder folder("", disk);
    Session session;
    run(folder, session);
  }
};

inline void Require(bool done) {
  if (!done) throw std::logic_error("the operation did not run");
}

/// Gives the plan another customer, or just another mark where he has it already.
inline auto UpdatePlan(std::int16_t customer, std::string_view number, std::int16_t to) {
  return [=](DataFolder& folder, Session& session) {
    Require(FindEstimateOfPlan(folder, session, customer, number));
    session.CurrentEstimate.CustomerNumber = to;
    session.CurrentEstimate.RoofSqFt = 53;
    Require(UpdateEstimate(folder, session) == EstimateChange::Done);
  };
}

/// Gives the customer another city and perhaps another number.
inline auto UpdateCustomer(std::int16_t number, std::int16_t to) {
  return [=](DataFolder& folder, Session& session) {
    Require(FindCustomer(folder, session, number).hasRecord);
    session.CurrentCustomer.City.Assign("Dover");
    session.CurrentCustomer.CustomerRecordNumber = to;
    Require(SaveCustomer(folder, session) == SaveCustomerResult::Saved);
  };
}

/// Takes the last customer back as if he had just been added.
inline void AbandonLast(DataFolder& folder, Session& session) {
  const std::uint64_t size = OpenDataFile(folder, DataFile::CustomerIndex)->Size();
  session.CustomerCursor = static_cast<std::int32_t>(size - CustomerIndexEntrySize + 1);
  session.customerIsNew = true;
  Require(AbandonNewCustomer(folder, session));
}

inline const std::vector<Operation>& AllOperations() {
  static const std::vector<Operation> operations = {
      {"add a plan at the head", [](DataFolder& f, Session& s) { s.CurrentEstimate = PlanOf(0, " ", 50), AddEstimate(f, s); }},
      {"add a plan in the middle", [](DataFolder& f, Session& s) { s.CurrentEstimate = PlanOf(7, "A", 51), AddEstimate(f, s); }},
      {"add a plan at the tail", [](DataFolder& f, Session& s) { s.CurrentEstimate = PlanOf(99, "A", 52), AddEstimate(f, s); }},
      {"update a plan in place", UpdatePlan(3, "A", 3)},
      {"renumber a plan toward the tail", UpdatePlan(3, "A", 10)},
      {"renumber a plan toward the head", UpdatePlan(12, "Z", 1)},
      {"delete a plan",
       [](DataFolder& f, Session& s) {
         Require(FindEstimateOfPlan(f, s, 7, "A"));
         Require(DeleteEstimate(f, s) == EstimateChange::Done);
       }},
      {"hand plans to the company", [](DataFolder& f, Session&) { ReassignEstimatesToCompany(f, 7); }},
      {"add a blank customer", [](DataFolder& f, Session& s) { Require(AddBlankCustomer(f, s) == AddCustomer::Added); }},
      {"save a customer in place", UpdateCustomer(5, 5)},
      {"renumber a customer without plans", UpdateCustomer(5, 20)},
      {"renumber a customer with plans", UpdateCustomer(7, 9)},
      {"save the company",
       [](DataFolder& f, Session& s) {
         OpenCompany(f, s);
         s.CurrentCustomer.CustomerName.Assign("Hill Lumber");
         s.CurrentCustomer.Note2.Assign("closed on Sundays");
         SaveCompany(f, s);
       }},
      {"delete a customer with plans",
       [](DataFolder& f, Session& s) {
         Require(FindCustomer(f, s, 7).hasRecord);
         Require(DeleteCustomer(f, s) == DeleteCustomerResult::Deleted);
       }},
      {"abandon a new customer", AbandonLast},
      {"rebuild", [](DataFolder& f, Session&) { RebuildIndexes(f); }},
      {"store a batch",
       [](DataFolder& f, Session&) {
         const std::vector customers = {Customer(5, "Reed & Sons"), Customer(1, "First"), Customer(0, "Company")};
         const std::vector plans = {PlanOf(7, "A", 60), PlanOf(7, "A", 61), PlanOf(7, "A", 62), PlanOf(1, "N", 63)};
         StoreAll(f, customers, plans);
       }},
  };
  return operations;
}

}  // namespace norvale
