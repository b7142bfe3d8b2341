#include "printing/print_request.h"

#include "data/folder_reader.h"
#include "entry/plan_form.h"
#include "printing/estimate_output.h"
#include "printing/order_summary.h"
#include "printing/price_list_print.h"
#include "takeoff/sections.h"

namespace norvale {

namespace {

CustomerRecord CustomerOfPlan(const DataFolder& folder, const Session& session) {
  const std::int16_t number = session.CurrentEstimate.CustomerNumber;
  if (session.CurrentCustomer.CustomerRecordNumber == number) return session.CurrentCustomer;
  // Never another customer's name on the paper.
  return FindCustomerRecord(folder.Folder(), number, folder.Files()).value_or(CustomerRecord{});
}

Prints MakeEstimate(const DataFolder& folder, const Session& session, const PrintRequest& request, const std::string& date) {
  const bool withPrices = (request.sections & kWithPrices) != 0;
  const bool isSummary = request.paper != EstimatePaper::ItemisedList;
  EstimatePrint print;
  print.plan = session.CurrentEstimate;
  print.company = session.CompanyRecord;
  print.customer = CustomerOfPlan(folder, session);
  print.date = date;
  // A summary gathers by the price list's entries even where no price is to be shown.
  print.sectionMask = isSummary ? request.sections | kWithPrices : request.sections;
  const TakeoffData data = LoadTakeoffData(folder.Folder(), print.sectionMask);
  EstimateDocument made = MakeEstimateDocument(print, data);
  Prints prints;
  if (withPrices) prints.unpriced = UnpricedLines(made.totals.lines);
  if (isSummary) {
    const OrderSummary summary =
        Summarise(made.totals, request.paper == EstimatePaper::SummaryByYard ? SummaryOrder::YardSections : SummaryOrder::FirstAppearance);
    prints.document = OrderSummaryDocument(print, summary, withPrices);
    prints.csv = OrderSummaryTable(summary, withPrices).Csv();
  } else {
    prints.document = std::move(made.document);
    prints.csv = EstimateTable(made.totals.lines).Csv();
  }
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

Prints MakeBlankWorksheet(const DataFolder& folder, const PrintRequest& request) {
  const std::vector<ScreenLine> lines = LoadScreenLines(folder.Folder());
  const std::vector<MaterialRow> rows = LoadMaterialRows(folder.Folder());
  Prints prints;
  prints.refusal = RefusalOfPlan(lines, rows);
  if (!prints.refusal.empty()) return prints;
  const Worksheet worksheet = MakeWorksheet(request.planType, request.worksheet, lines, rows);
  prints.document = WorksheetDocument(worksheet);
  prints.csv = WorksheetTable(worksheet).Csv();
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
  return MakeBlankWorksheet(folder, request);
}

Prints MakePriceListPrints(const PriceList& prices, const Session& session, const std::string& date) {
  Prints prints;
  prints.document = PriceListDocument(prices.Items(), session.CompanyRecord.CustomerName.Trimmed(), date);
  prints.csv = PriceListTable(prices.Items()).Csv();
  if (prints.document.pages.empty()) prints.refusal = "0 The price list has no items!|";
  return prints;
}

}  // namespace norvale
