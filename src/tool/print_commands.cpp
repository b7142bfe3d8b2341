#include <functional>
#include <memory>

#include "base/file_error.h"
#include "data/customer_file.h"
#include "data/folder_reader.h"
#include "data/plan_type.h"
#include "entry/plan_form.h"
#include "prices/price_csv.h"
#include "printing/estimate_document.h"
#include "printing/estimate_output.h"
#include "printing/frm_pdf.h"
#include "printing/lists.h"
#include "printing/order_summary.h"
#include "printing/price_list_print.h"
#include "printing/print_selection.h"
#include "printing/worksheet.h"
#include "takeoff/sections.h"
#include "tool/commands.h"

namespace norvale {

namespace {

constexpr int kFirstNumber = 1;
constexpr int kLastNumber = 32767;

// --- How a list is handed over

struct OutputCall {
  std::string format = "text";
  std::string output;
};

void AddOutputOptions(CLI::App* command, OutputCall& call) {
  command->add_option("--format", call.format, "text, pdf, csv or json")->check(CLI::IsMember({"text", "pdf", "csv", "json"}));
  command->add_option("--output", call.output, "The file to write; standard output without it");
}

#ifdef NORVALE_PDF
std::string PdfOf(const Document& document) { return PdfWithoutScreen(document); }
#else
std::string PdfOf(const Document& /*document*/) {
  throw CommandError("--format pdf", "this norvale-tool was built without Qt, which makes the PDFs");
}
#endif

void DeliverList(const OutputCall& call, const std::function<Document()>& document, const std::function<Table()>& table) {
  if (call.format == "csv")
    Deliver(table().Csv(), call.output);
  else if (call.format == "json")
    Deliver(table().Json(), call.output);
  else if (call.format == "pdf")
    Deliver(PdfOf(document()), call.output);
  else
    Deliver(DocumentText(document()), call.output);
}

// --- Lists of one plan

struct PlanCall : OutputCall {
  int customer = 0;
  std::string plan;
  int sections = -1;  // -1: what the print dialog would tick
  bool prices = false;
  int copies = 1;
  std::string order = "yard";
};

void AddPlanOptions(CLI::App* command, PlanCall& call) {
  command->add_option("--customer", call.customer, "The customer's number; 0 is the company")
      ->required()
      ->check(CLI::Range(-32768, kLastNumber));
  command->add_option("--plan", call.plan, "The plan number")->required();
  command->add_option("--sections", call.sections, "Sum of the section bits; without it, what the print dialog would tick")
      ->check(CLI::Range(0, kWholeMask));
  command->add_flag("--prices", call.prices, "With prices");
}

EstimatePrint ReadPrint(const CommandContext& context, const PlanCall& call) {
  const std::string planNumber = DataText(call.plan, "--plan");
  const auto plan = FindEstimate(context.folder, call.customer, planNumber);
  if (!plan) throw CommandError("plan \"" + call.plan + "\" of customer " + std::to_string(call.customer), "not on file");
  EstimatePrint print;
  print.plan = *plan;
  print.sectionMask = (call.sections < 0 ? DefaultSections(*plan) : call.sections) | (call.prices ? kWithPrices : 0);
  print.company = FindCustomerRecord(context.folder, kCompanyNumber).value_or(CustomerRecord{});
  print.customer = FindCustomerRecord(context.folder, plan->CustomerNumber).value_or(CustomerRecord{});
  print.date = context.Today();
  return print;
}

void PrintOneEstimate(const CommandContext& context, const PlanCall& call) {
  const EstimatePrint print = ReadPrint(context, call);
  const TakeoffData data = LoadTakeoffData(context.folder, print.sectionMask);
  const EstimateDocument made = MakeEstimateDocument(print, data, call.copies);
  DeliverList(
      call, [&] { return made.document; }, [&] { return EstimateTable(made.totals.lines); });
}

void PrintSummary(const CommandContext& context, const PlanCall& call) {
  const EstimatePrint print = ReadPrint(context, call);
  const TakeoffData data = LoadTakeoffData(context.folder, print.sectionMask | kWithPrices);
  const OrderSummary summary =
      SummariseEstimate(print, data, call.order == "list" ? SummaryOrder::FirstAppearance : SummaryOrder::YardSections);
  const bool withPrices = (print.sectionMask & kWithPrices) != 0;
  DeliverList(
      call, [&] { return OrderSummaryDocument(print, summary, withPrices); }, [&] { return OrderSummaryTable(summary, withPrices); });
}

// --- Lists of the whole folder

struct ListCall : OutputCall {
  CustomerRange range;
};

template <typename Listed>
const Listed& NotEmpty(const std::optional<Listed>& listed) {
  if (!listed) throw CommandError(std::string(CustomerDataFile), "Customer File Is EMPTY!");
  return *listed;
}

void PrintCustomers(const CommandContext& context, const ListCall& call) {
  const auto read = ReadCustomersToList(context.folder, call.range);
  const auto& customers = NotEmpty(read);
  DeliverList(
      call, [&] { return CustomerListDocument(customers); }, [&] { return CustomerListTable(customers); });
}

void PrintEstimates(const CommandContext& context, const ListCall& call) {
  const auto read = ReadPlansToList(context.folder, call.range);
  const auto& customers = NotEmpty(read);
  DeliverList(
      call, [&] { return EstimateListDocument(customers, call.range); }, [&] { return EstimateListTable(customers); });
}

using PrintList = void (*)(const CommandContext&, const ListCall&);

void AddList(CLI::App* print, const CommandContext& context, const char* name, const char* what, PrintList run) {
  auto call = std::make_shared<ListCall>();
  CLI::App* const command = print->add_subcommand(name, what);
  CLI::Option* const from = command->add_option("--from", call->range.PrintFrom, "The first customer's number");
  CLI::Option* const to = command->add_option("--to", call->range.PrintTo, "The last customer's number");
  for (CLI::Option* const option : {from, to}) option->check(CLI::Range(kFirstNumber, kLastNumber));
  AddOutputOptions(command, *call);
  command->callback([&context, call, from, to, run] {
    if (call->range.PrintTo < call->range.PrintFrom)
      throw CLI::ValidationError("--to", "Value needs to be Equal To or Greater Than the print from value");
    if (from->empty() && to->empty()) call->range = kEverybody;
    run(context, *call);
  });
}

void PrintPrices(const CommandContext& context, const OutputCall& call) {
  const PriceList prices = LoadPriceList(context.folder);
  // The same file as that of `prices export`, so that it can be imported again.
  if (call.format == "csv") return Deliver(ExportPrices(prices.Items()), call.output);
  const std::string company = FindCustomerRecord(context.folder, kCompanyNumber).value_or(CustomerRecord{}).CustomerName.Trimmed();
  DeliverList(
      call, [&] { return PriceListDocument(prices.Items(), company, context.Today()); }, [&] { return PriceListTable(prices.Items()); });
}

struct WorksheetCall : OutputCall {
  int planType = 0;
  std::string kind = "both";

  [[nodiscard]] WorksheetKind Kind() const {
    if (kind == "specifications") return WorksheetKind::Specifications;
    return kind == "measurements" ? WorksheetKind::Measurements : WorksheetKind::Both;
  }
};

void PrintWorksheet(const CommandContext& context, const WorksheetCall& call) {
  const std::vector<ScreenLine> lines = LoadScreenLines(context.folder);
  const std::vector<MaterialRow> rows = LoadMaterialRows(context.folder);
  if (!RefusalOfPlan(lines, rows).empty())
    throw FileError((context.folder / (lines.size() < kScreenLines ? kScreenFileName : kMaterialFileName)).string(),
                    "missing or incomplete");
  const Worksheet worksheet = MakeWorksheet(static_cast<std::int16_t>(call.planType), call.Kind(), lines, rows);
  DeliverList(
      call, [&] { return WorksheetDocument(worksheet); }, [&] { return WorksheetTable(worksheet); });
}

std::string RefusalOfPlanType(const std::string& text) {
  constexpr int kEveryBit = 4095;
  const int type = std::atoi(text.c_str());
  const bool valid = type > 0 && type <= kEveryBit && (type & (kSlab | kCrawlSpace)) != 0;
  return valid ? std::string() : "Please Select a Valid PLAN TYPE.";
}

}  // namespace

void AddPrintCommands(CLI::App& app, const CommandContext& context) {
  CLI::App* const print = app.add_subcommand("print", "Prints a list");
  print->require_subcommand(1);

  auto estimate = std::make_shared<PlanCall>();
  CLI::App* const estimateCommand = print->add_subcommand("estimate", "The itemised list of one stored plan");
  AddPlanOptions(estimateCommand, *estimate);
  estimateCommand->add_option("--copies", estimate->copies, "How often; fewer than one is one")->check(CLI::Range(0, 999));
  AddOutputOptions(estimateCommand, *estimate);
  estimateCommand->callback([&context, estimate] { PrintOneEstimate(context, *estimate); });

  auto summary = std::make_shared<PlanCall>();
  CLI::App* const summaryCommand = print->add_subcommand("summary", "What to order for one stored plan, each stock once");
  AddPlanOptions(summaryCommand, *summary);
  summaryCommand->add_option("--order", summary->order, "yard: by section of the yard; list: as the itemised list names it first")
      ->check(CLI::IsMember({"yard", "list"}));
  AddOutputOptions(summaryCommand, *summary);
  summaryCommand->callback([&context, summary] { PrintSummary(context, *summary); });

  AddList(print, context, "customers", "The customer list", PrintCustomers);
  AddList(print, context, "estimates", "The plans, customer by customer", PrintEstimates);

  auto worksheet = std::make_shared<WorksheetCall>();
  CLI::App* const worksheetCommand = print->add_subcommand("worksheet", "The blank worksheet for a kind of house");
  worksheetCommand->add_option("--plan-type", worksheet->planType, "The number of the plan type")->required()->check(RefusalOfPlanType);
  worksheetCommand->add_option("--kind", worksheet->kind, "What is asked for; without it, both")
      ->check(CLI::IsMember({"both", "specifications", "measurements"}));
  AddOutputOptions(worksheetCommand, *worksheet);
  worksheetCommand->callback([&context, worksheet] { PrintWorksheet(context, *worksheet); });

  auto prices = std::make_shared<OutputCall>();
  CLI::App* const pricesCommand = print->add_subcommand("prices", "The price list");
  AddOutputOptions(pricesCommand, *prices);
  pricesCommand->callback([&context, prices] { PrintPrices(context, *prices); });
}

}  // namespace norvale
