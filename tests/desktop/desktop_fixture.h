// A folder on the disk with a few customers and plans, open as the program has it.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/files.h"
#include "data/batch_store.h"
#include "data/folder_reader.h"
#include "data/folder_start.h"
#include "desktop/program.h"
#include "prices/new_folder.h"
#include "support/asked_messages.h"
#include "support/data_fixture.h"
#include "support/refusing_disk.h"
#include "support/scratch_folder.h"

namespace norvale {

/// A plan as customer number and plan number; its mark tells it from others.
using PlanName = std::pair<int, std::string>;

class DesktopTest : public testing::Test {
 protected:
  DesktopTest() {
    LayDeliveredFiles(folder);
    (void)StartFolder(folder, session);
  }

  /// Oak Street, Hill, Smith & Oakley; Oak Street has three plans, Hill one, the company one.
  void StoreSamples() {
    const std::vector customers = {Customer(7, "Oak Street Builders"), Customer(3, "Hill Homes"), Customer(12, "Smith & Oakley")};
    const std::vector plans = {PlanOf(7, "B"), PlanOf(3, "A"), PlanOf(7, "A"), PlanOf(7, "C"), PlanOf(0, "M")};
    StoreAll(folder, customers, plans);
  }

  /// The numbers and names on the disk, the company left out.
  [[nodiscard]] std::vector<std::pair<int, std::string>> CustomersOnDisk() const {
    std::vector<std::pair<int, std::string>> found;
    for (const CustomerRecord& customer : ReadAllCustomers(scratch.Path()))
      if (customer.CustomerRecordNumber != 0) found.emplace_back(customer.CustomerRecordNumber, customer.CustomerName.Trimmed());
    return found;
  }

  [[nodiscard]] std::vector<PlanName> PlansOnDisk() const {
    std::vector<PlanName> found;
    for (const EstimateRecord& plan : ReadAllEstimates(scratch.Path())) found.emplace_back(plan.CustomerNumber, plan.PlanNumber.Trimmed());
    return found;
  }

  [[nodiscard]] CustomerRecord OnDisk(int number) const { return FindCustomerRecord(scratch.Path(), number).value_or(CustomerRecord{}); }

  /// Length and checksum of each of the four files: equal where every byte is.
  [[nodiscard]] std::vector<std::string> BytesOnDisk() const {
    std::vector<std::string> bytes;
    for (const std::string_view name : {CustomerDataFile, CustomerIndexFile, EstimateDataFile, EstimateIndexFile}) {
      const std::string content = ReadWholeFile(scratch.Path() / name);
      bytes.push_back(std::string(name) + " " + std::to_string(content.size()) + " " + std::to_string(std::hash<std::string>()(content)));
    }
    return bytes;
  }

  using Customers = std::vector<std::pair<int, std::string>>;
  const Customers samples{{3, "Hill Homes"}, {7, "Oak Street Builders"}, {12, "Smith & Oakley"}};

  ScratchFolder scratch;
  RefusingDisk disk;
  DataFolder folder{scratch.Path(), disk};
  Session session;
  AskedMessages asked;
  Program program{folder, session, asked};
};

}  // namespace norvale
