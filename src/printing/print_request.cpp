#include "printing/print_request.h"

#include "data/folder_reader.h"
#include "printing/estimate_output.h"

namespace norvale {

namespace {

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
  prints.csv = EstimateTable(made.totals.lines).Csv();
  prints.document = std::move(made.document);
  return prints;
}

Prints MakeCustomerList(const DataFolder& folder, CustomerRange range) {
  Prints prints;
  if (const auto customers = ReadCustomersToList(folder.Folder(), range, folder.Files())) {
    prints.document = CustomerListDocument(*customers);
    prints.csv = CustomerListTable(*customers).Csv();
  } else {
    prints.refusal = kCustomerFileIsEmpty;
  }
  return prints;
}

Prints MakeEstimateList(const DataFolder& folder, CustomerRange range) {
  Prints prints;
  if (const auto customers = ReadPlansToList(folder.Folder(), range, folder.Files())) {
    prints.document = EstimateListDocument(*customers, range);
    prints.csv = EstimateListTable(*customers).Csv();
  } else {
    prints.refusal = kCustomerFileIsEmpty;
  }
  return prints;
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
