#include <algorithm>
#include <memory>

#include "data/folder_reader.h"
#include "printing/estimate_document.h"
#include "printing/estimate_output.h"
#include "printing/print_selection.h"
#include "tool/commands.h"

namespace norvale {

namespace {

struct EstimateCall {
  int customer = 0;
  std::string plan;
  int sections = -1;  // -1: what the print dialog would tick
  bool prices = false;
  int copies = 1;
  std::string format = "text";
  std::string output;
};

std::string Rendered(const EstimateCall& call, const EstimatePrint& print, const TakeoffData& data) {
  const EstimateDocument made = MakeEstimateDocument(print, data, call.copies);
  if (call.format == "csv") return EstimateCsv(made.totals.lines);
  if (call.format == "json") return EstimateJson(made.totals.lines);
  return DocumentText(made.document);
}

void RunPrintEstimate(const CommandContext& context, const EstimateCall& call) {
  const std::string planNumber = DataText(call.plan, "--plan");
  const auto plan = FindEstimate(context.folder, call.customer, planNumber);
  if (!plan) throw CommandError("plan \"" + call.plan + "\" of customer " + std::to_string(call.customer), "not on file");
  EstimatePrint print;
  print.plan = *plan;
  print.sectionMask = (call.sections < 0 ? DefaultSections(*plan) : call.sections) | (call.prices ? kWithPrices : 0);
  print.company = FindCustomerRecord(context.folder, kCompanyNumber).value_or(CustomerRecord{});
  print.customer = FindCustomerRecord(context.folder, plan->CustomerNumber).value_or(CustomerRecord{});
  print.date = context.Today();
  const TakeoffData data = LoadTakeoffData(context.folder, print.sectionMask);
  Deliver(Rendered(call, print, data), call.output);
}

}  // namespace

void AddPrintEstimate(CLI::App& print, const CommandContext& context) {
  auto call = std::make_shared<EstimateCall>();
  CLI::App* const command = print.add_subcommand("estimate", "The itemised list of one stored plan");
  command->add_option("--customer", call->customer, "The customer's number; 0 is the company")
      ->required()
      ->check(CLI::Range(-32768, 32767));
  command->add_option("--plan", call->plan, "The plan number")->required();
  command->add_option("--sections", call->sections, "Sum of the section bits; without it, what the print dialog would tick")
      ->check(CLI::Range(0, kWholeMask));
  command->add_flag("--prices", call->prices, "With prices");
  command->add_option("--copies", call->copies, "How often; fewer than one is one")->check(CLI::Range(0, 999));
  command->add_option("--format", call->format, "text, csv or json")->check(CLI::IsMember({"text", "csv", "json"}));
  command->add_option("--output", call->output, "The file to write; standard output without it");
  command->callback([&context, call] { RunPrintEstimate(context, *call); });
}

}  // namespace norvale
