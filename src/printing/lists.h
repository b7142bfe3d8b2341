// The two lists of a working folder: its customers, and its plans customer by customer.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/disk.h"
#include "data/customer_record.h"
#include "printing/document.h"
#include "printing/table.h"

namespace norvale {

/// The customers of a list, both numbers included; the last number stands for " LAST". A list of everybody takes the
/// company's own plans too, which have the number 0.
struct CustomerRange {
  int PrintFrom = 1;
  int PrintTo = 32767;
  bool withCompany = false;

  [[nodiscard]] bool Holds(int number) const { return (number >= PrintFrom && number <= PrintTo) || (withCompany && number == 0); }
};
inline constexpr CustomerRange kEverybody{.withCompany = true};

/// What is said where there is nothing to list. Lacks its title.
inline constexpr std::string_view kCustomerFileIsEmpty = "0 Customer File Is EMPTY!|";

/// What the list shows of a plan. Texts are Windows-1252, without blanks at their right ends.
struct ListedPlan {
  std::string PlanNumber;
  std::string PlanDate;
  std::int16_t PlanType = 0;
};

/// A customer and his plans, in the order in which they are printed.
struct CustomerPlans {
  CustomerRecord customer;
  bool isOnFile = true;
  std::vector<ListedPlan> plans;
};

/// The customers of the range, in the order of their index, without the company. Nothing where the folder has no customer
/// at all. Throws FileError.
std::optional<std::vector<CustomerRecord>> ReadCustomersToList(const std::filesystem::path& folder, CustomerRange range,
                                                               Disk& disk = SystemDisk());

/// The same with their plans, in the order of the index. The company stands at the head where it has plans and the range takes it; plans of
/// a customer who is not on file stand under his number. Nothing where the folder has neither a customer nor a plan of the range. Throws
/// FileError.
std::optional<std::vector<CustomerPlans>> ReadPlansToList(const std::filesystem::path& folder, CustomerRange range,
                                                          Disk& disk = SystemDisk());

/// A text too long for its column goes on in the next line of its row.
Document CustomerListDocument(const std::vector<CustomerRecord>& customers);
Table CustomerListTable(const std::vector<CustomerRecord>& customers);

/// A heading for each customer and under it one row for each of his plans. Where a page ends between two plans, the next one
/// begins with the customer's name again. `range` is what was asked for, for the title.
Document EstimateListDocument(const std::vector<CustomerPlans>& customers, CustomerRange range);
Table EstimateListTable(const std::vector<CustomerPlans>& customers);

}  // namespace norvale
