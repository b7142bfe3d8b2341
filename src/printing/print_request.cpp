#include "printing/print_request.h"

#include <algorithm>

#include "data/folder_reader.h"
#include "printing/estimate_output.h"

namespace norvale {

namespace {

constexpr std::string_view kNoCustomers = "0 Customer File Is EMPTY!|";

CustomerRecord CustomerOfPlan(const DataFolder& folder, const Session& session) {
  const std::int16_t number = session.CurrentEstimate.CustomerNumber;
  if (session.CurrentCustomer.CustomerRecordNumber == number) return session.CurrentCustomer;
  // Never another customer's name on the paper.
  return FindCustomerRecord(folder.Folder(), number, folder.Files()).value_or(CustomerRecord{});
}

Prints MakeEstimate(const DataFolder& folder, const Session& session, const PrintRequest& request, const std::string& date) {
  EstimatePrint print;
  print.plan = session.CurrentEstimate;
  print.company = session.CompanyRecord;
  print.customer = CustomerOfPlan(folder, session);
  print.date = date;
  print.sectionMask = request.sections;
  const TakeoffData data = LoadTakeoffData(folder.Folder(), request.sections);
  EstimateDocument made = MakeEstimateDocument(print, data);
  Prints prints;
  if ((request.sections & kWithPrices) != 0) prints.unpriced = UnpricedLines(made.totals.lines);
  prints.csv = EstimateCsv(made.totals.lines);
  prints.document = std::move(made.document);
  return prints;
}

bool IsCompany(const CustomerRecord& customer) { return customer.CustomerRecordNumber == kCompanyNumber; }

Prints MakeCustomerList(const DataFolder& folder, CustomerRange range) {
  const std::vector<CustomerRecord> customers = ReadAllCustomers(folder.Folder(), folder.Files());
  if (std::ranges::all_of(customers, IsCompany)) return {.document = {}, .unpriced = {}, .csv = {}, .refusal = std::string(kNoCustomers)};
  Page page;
  PrintCustomerList(customers, range, page);
  return {.document = MakeDocument("Customer list", page), .unpriced = {}, .csv = {}, .refusal = {}};
}

Prints MakeEstimateList(const DataFolder& folder, CustomerRange range) {
  std::vector<CustomerPlans> customers;
  bool hasAny = false;
  for (const CustomerRecord& customer : ReadAllCustomers(folder.Folder(), folder.Files())) {
    std::vector<EstimateRecord> plans = ReadEstimatesOfCustomer(folder.Folder(), customer.CustomerRecordNumber, folder.Files());
    // The company without plans of its own is no customer.
    if (IsCompany(customer) && plans.empty()) continue;
    hasAny = true;
    if (range.Holds(customer.CustomerRecordNumber)) customers.push_back({customer, std::move(plans)});
  }
  if (!hasAny) return {.document = {}, .unpriced = {}, .csv = {}, .refusal = std::string(kNoCustomers)};
  Page page;
  PrintEstimateList(customers, range, page);
  return {.document = MakeDocument("Estimate list", page), .unpriced = {}, .csv = {}, .refusal = {}};
}

}  // namespace

Prints MakePrints(const DataFolder& folder, const Session& session, const PrintRequest& request, const std::string& date) {
  switch (request.kind) {
    case PrintKind::Estimate:
      return MakeEstimate(folder, session, request, date);
    case PrintKind::CustomerList:
      return MakeCustomerList(folder, request.range);
    case PrintKind::EstimateList:
      return MakeEstimateList(folder, request.range);
    case PrintKind::Worksheet:
      break;
  }
  return {.document = {}, .unpriced = {}, .csv = {}, .refusal = "0 Printing worksheets is not part of this version of Norvale yet.|"};
}

}  // namespace norvale
