#include "printing/lists.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

#include "base/text.h"
#include "data/folder_reader.h"
#include "data/plan_type.h"
#include "printing/page_writer.h"

namespace norvale {

namespace {

struct Column {
  std::size_t at;  // from 1
  std::size_t width;
  std::string_view heading;
};

constexpr std::array<Column, 5> kCustomerColumns = {{
    {1, 5, "  #"},
    {7, 27, "Customer Name"},
    {35, 16, "Contact"},
    {52, 14, "Telephone #"},
    {67, 14, "Fax #"},
}};

std::string InColumns(const std::array<std::string, kCustomerColumns.size()>& texts) {
  std::string line;
  for (std::size_t i = 0; i < texts.size(); ++i) PutAt(line, kCustomerColumns[i].at, texts[i]);
  return line;
}

std::string CustomerNumber(const CustomerRecord& customer) { return ZeroPadded(customer.CustomerRecordNumber, 4); }

std::vector<std::string> CustomerRow(const CustomerRecord& customer) {
  const std::array<std::string, kCustomerColumns.size()> texts = {CustomerNumber(customer), customer.CustomerName.Trimmed(),
                                                                  customer.Contact.Trimmed(), customer.Telephone.Trimmed(),
                                                                  customer.Fax.Trimmed()};
  std::array<std::vector<std::string>, kCustomerColumns.size()> lines;
  std::size_t height = 1;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    lines[i] = Wrapped(texts[i], i == 0 ? texts[i].size() : kCustomerColumns[i].width);  // a number is never parted
    height = std::max(height, lines[i].size());
  }
  std::vector<std::string> row;
  for (std::size_t line = 0; line < height; ++line) {
    std::array<std::string, kCustomerColumns.size()> cells;
    for (std::size_t i = 0; i < cells.size(); ++i)
      if (line < lines[i].size()) cells[i] = lines[i][line];
    row.push_back(InColumns(cells));
  }
  return row;
}

std::string CityLine(const CustomerRecord& customer) {
  std::string line = customer.City.Trimmed();
  if (const std::string state = customer.State.Trimmed(); !state.empty()) line += (line.empty() ? "" : ", ") + state;
  if (const std::string zip = customer.Zip.Trimmed(); !zip.empty()) line += "  " + zip;
  return line;
}

std::string NameOf(const CustomerPlans& listed) { return listed.isOnFile ? listed.customer.CustomerName.Trimmed() : "(not on file)"; }

std::vector<std::string> CustomerHeading(const CustomerPlans& listed) {
  const CustomerRecord& customer = listed.customer;
  std::vector<std::string> lines;
  lines.push_back("CUSTOMER NAME: " + CustomerNumber(customer) + "  " + NameOf(listed));
  lines.push_back("      ADDRESS: " + customer.AddressLine1.Trimmed());
  if (const std::string second = customer.AddressLine2.Trimmed(); !second.empty()) lines.push_back(std::string(15, ' ') + second);
  lines.push_back("CITY, ST  ZIP: " + CityLine(customer));
  return lines;
}

// The plan's number and date stand at the end of the row's last line.
std::vector<std::string> PlanRow(const ListedPlan& plan) {
  constexpr std::size_t kNumberColumn = 26;
  constexpr std::size_t kDateColumn = 56;
  std::vector<std::string> lines = Labelled(" PLAN: ", PlanDescription(plan.PlanType));
  if (lines.back().size() >= kNumberColumn) lines.emplace_back();
  PutAt(lines.back(), kNumberColumn, "  PLAN NUMBER: " + plan.PlanNumber);
  PutAt(lines.back(), kDateColumn, " DATE OF PLAN: " + plan.PlanDate);
  return lines;
}

std::vector<CustomerRecord> ReadCustomers(const std::filesystem::path& folder, Disk& disk) {
  std::vector<CustomerRecord> customers = ReadAllCustomers(folder, disk);
  std::erase_if(customers, [](const CustomerRecord& customer) { return customer.CustomerRecordNumber == kCompanyNumber; });
  return customers;
}

}  // namespace

std::optional<std::vector<CustomerRecord>> ReadCustomersToList(const std::filesystem::path& folder, CustomerRange range, Disk& disk) {
  std::vector<CustomerRecord> customers = ReadCustomers(folder, disk);
  if (customers.empty()) return std::nullopt;
  std::erase_if(customers, [range](const CustomerRecord& customer) { return !range.Holds(customer.CustomerRecordNumber); });
  return customers;
}

std::optional<std::vector<CustomerPlans>> ReadPlansToList(const std::filesystem::path& folder, CustomerRange range, Disk& disk) {
  const std::vector<CustomerRecord> customers = ReadCustomers(folder, disk);
  std::vector<CustomerPlans> listed;
  std::map<int, std::size_t> places;  // of the first customer of a number: he has the plans
  for (const CustomerRecord& customer : customers) {
    if (!range.Holds(customer.CustomerRecordNumber)) continue;
    places.emplace(customer.CustomerRecordNumber, listed.size());
    listed.push_back({.customer = customer, .isOnFile = true, .plans = {}});
  }
  ForEachEstimate(
      folder,
      [&](const EstimateRecord& plan) {
        if (!range.Holds(plan.CustomerNumber)) return;
        const auto [place, isNew] = places.emplace(plan.CustomerNumber, listed.size());
        if (isNew) {
          CustomerRecord unknown;
          unknown.CustomerRecordNumber = plan.CustomerNumber;
          const auto found = plan.CustomerNumber == kCompanyNumber ? FindCustomerRecord(folder, kCompanyNumber, disk) : std::nullopt;
          listed.push_back({.customer = found.value_or(unknown), .isOnFile = found.has_value(), .plans = {}});
        }
        listed[place->second].plans.push_back({std::string(TrimRight(plan.PlanNumber.Padded())), plan.PlanDate.Trimmed(), plan.PlanType});
      },
      disk);
  if (customers.empty() && listed.empty()) return std::nullopt;
  std::stable_sort(listed.begin(), listed.end(), [](const CustomerPlans& a, const CustomerPlans& b) {
    return a.customer.CustomerRecordNumber < b.customer.CustomerRecordNumber;
  });
  return listed;
}

Document CustomerListDocument(const std::vector<CustomerRecord>& customers) {
  const std::string title = "CUSTOMER LIST";
  std::array<std::string, kCustomerColumns.size()> headings;
  std::transform(kCustomerColumns.begin(), kCustomerColumns.end(), headings.begin(),
                 [](const Column& c) { return std::string(c.heading); });
  PageWriter list({title, "", InColumns(headings), ""});
  for (const CustomerRecord& customer : customers) list.Block(CustomerRow(customer));
  return list.Finish(title);
}

Table CustomerListTable(const std::vector<CustomerRecord>& customers) {
  Table table{.columns = {{"number", "number"},
                          {"name", "name"},
                          {"contact", "contact"},
                          {"telephone", "telephone"},
                          {"fax", "fax"},
                          {"address", "address"},
                          {"second address line", "addressLine2"},
                          {"city", "city"},
                          {"state", "state"},
                          {"zip", "zip"}},
              .rows = {}};
  for (const CustomerRecord& customer : customers)
    table.rows.push_back({TableCell::Whole(customer.CustomerRecordNumber), TableCell::Text(customer.CustomerName.Trimmed()),
                          TableCell::Text(customer.Contact.Trimmed()), TableCell::Text(customer.Telephone.Trimmed()),
                          TableCell::Text(customer.Fax.Trimmed()), TableCell::Text(customer.AddressLine1.Trimmed()),
                          TableCell::Text(customer.AddressLine2.Trimmed()), TableCell::Text(customer.City.Trimmed()),
                          TableCell::Text(customer.State.Trimmed()), TableCell::Text(customer.Zip.Trimmed())});
  return table;
}

Document EstimateListDocument(const std::vector<CustomerPlans>& customers, CustomerRange range) {
  const std::string last = range.PrintTo == kEverybody.PrintTo ? "LAST" : std::to_string(range.PrintTo);
  const std::string title = "ESTIMATE LIST: Customer " + std::to_string(range.PrintFrom) + " to " + last;
  PageWriter list({title, ""});
  for (const CustomerPlans& listed : customers) {
    list.Gap();
    const std::vector<std::string> heading = CustomerHeading(listed);
    // A customer's heading stays with his first plan.
    list.Reserve(heading.size() + (listed.plans.empty() ? 0 : PlanRow(listed.plans.front()).size()));
    list.Block(heading);
    for (const ListedPlan& plan : listed.plans) {
      const std::vector<std::string> row = PlanRow(plan);
      if (list.Reserve(row.size())) list.Line(heading.front());
      list.Block(row);
    }
  }
  return list.Finish(title);
}

Table EstimateListTable(const std::vector<CustomerPlans>& customers) {
  Table table{.columns = {{"customer", "customer"},
                          {"customer name", "customerName"},
                          {"plan number", "planNumber"},
                          {"date of plan", "planDate"},
                          {"plan type", "planType"},
                          {"plan", "plan"}},
              .rows = {}};
  for (const CustomerPlans& listed : customers)
    for (const ListedPlan& plan : listed.plans)
      table.rows.push_back({TableCell::Whole(listed.customer.CustomerRecordNumber), TableCell::Text(NameOf(listed)),
                            TableCell::Text(plan.PlanNumber), TableCell::Text(plan.PlanDate), TableCell::Whole(plan.PlanType),
                            TableCell::Text(PlanDescription(plan.PlanType))});
  return table;
}

}  // namespace norvale
