#include "tool/data_commands.h"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>

#include "base/file_error.h"
#include "base/files.h"
#include "data/customer_file.h"
#include "data/estimate_file.h"
#include "data/folder_reader.h"
#include "data/folder_start.h"
#include "data/index_sort.h"
#include "entry/draft.h"
#include "entry/plan_form.h"
#include "prices/material_lists.h"
#include "prices/price_list.h"
#include "prices/screen_lines.h"
#include "prices/waste_factors.h"
#include "tool/commands.h"

namespace norvale {

namespace {

constexpr int kFirstNumber = 1;
constexpr int kLastNumber = 32767;

// A folder that may be changed; where something is wrong that a start does not mend, nothing is.
void StartForChange(DataFolder& folder, Session& session) {
  const FolderStart start = StartFolder(folder, session);
  if (start.MayWork()) return;
  const auto fault = std::find_if(start.faults.begin(), start.faults.end(), [](const Fault& f) { return f.kind != FaultKind::Twins; });
  throw CommandError(folder.Folder().string(), fault->text + "; \"check --repair\" can mend it");
}

std::string CountOf(std::size_t count, const char* what) { return std::to_string(count) + " " + what + (count == 1 ? "" : "s"); }

// The faults of the files beside the customers and plans. A file that is missing is no fault here: what needs it says so.
std::vector<std::string> OtherFaults(const CommandContext& context) {
  std::vector<std::string> faults;
  const auto check = [&](std::string_view name, const std::function<void()>& load) {
    if (!std::filesystem::exists(context.folder / name)) return;
    try {
      load();
    } catch (const FileError& error) {
      faults.emplace_back(error.what());
    }
  };
  // Data entry passes over what follows the last whole row; where rows are missing it refuses every plan.
  const auto checkRows = [&](std::string_view name, std::size_t rowSize, const std::function<bool()>& isComplete) {
    check(name, [&] {
      const std::size_t size = ReadWholeFile(context.folder / name).size();
      if (const std::size_t rest = size % rowSize; rest != 0)
        faults.push_back(std::string(name) + ": the last " + std::to_string(rest) + " bytes, from position " +
                         std::to_string(size - rest + 1) + ", are no whole row");
      if (!isComplete()) faults.push_back(std::string(name) + ": incomplete; no plan can be opened");
    });
  };
  check(kPriceFileName, [&] { (void)LoadPriceList(context.folder); });
  check(kWasteFileName, [&] { (void)LoadWasteFactors(context.folder); });
  checkRows(kScreenFileName, ScreenLineSize, [&] { return HaveEveryBox(LoadScreenLines(context.folder)); });
  checkRows(kMaterialFileName, MaterialRowSize, [&] { return HaveEveryList(LoadMaterialRows(context.folder)); });
  check(kDraftFile, [&] {
    if (!IsDraft(ReadWholeFile(context.folder / kDraftFile)))
      faults.push_back(std::string(kDraftFile) + ": cannot be read; the next start of the program puts it aside");
  });
  return faults;
}

}  // namespace

void RunDeletePlan(const CommandContext& context, int customer, const std::string& plan) {
  const std::string planNumber = DataText(plan, "--plan");
  DataFolder folder(context.folder);
  Session session;
  StartForChange(folder, session);
  if (!FindEstimateOfPlan(folder, session, customer, planNumber) || DeleteEstimate(folder, session) != EstimateChange::Done)
    throw CommandError("plan \"" + plan + "\" of customer " + std::to_string(customer), "not on file");
}

void RunDeleteCustomer(const CommandContext& context, int number) {
  DataFolder folder(context.folder);
  Session session;
  StartForChange(folder, session);
  if (!FindCustomer(folder, session, number).hasRecord || DeleteCustomer(folder, session) != DeleteCustomerResult::Deleted)
    throw CommandError("customer " + std::to_string(number), "not on file");
}

void RunCheck(const CommandContext& context, bool repair) {
  std::string report;
  std::size_t left = 0;
  {
    DataFolder folder(context.folder);
    if (folder.WasInterrupted()) report += "an interrupted operation was brought to its end\n";
    const std::vector<Fault> faults = CheckFolder(folder.Files(), folder.Folder());
    for (const Fault& fault : faults) report += fault.text + "\n";
    left = faults.size();
    if (repair && !faults.empty()) {
      const std::vector<Fault> rest = RepairFolder(folder);
      for (const Fault& fault : rest) report += "not mended: " + fault.text + "\n";
      left = rest.size();
      if (left == 0) report += CountOf(faults.size(), "fault") + " mended\n";
    }
    for (const std::string& fault : OtherFaults(context)) {
      report += fault + "\n";
      ++left;
    }
  }
  if (report.empty()) report = "no faults\n";
  Deliver(report, "");
  if (left > 0) throw CommandError(context.folder.string(), CountOf(left, "fault") + (repair ? " not mended" : ""));
}

void RunRebuild(const CommandContext& context) {
  DataFolder folder(context.folder);
  Session session;
  StartForChange(folder, session);
  RebuildIndexes(folder);
}

void AddDataCommands(CLI::App& app, const CommandContext& context) {
  CLI::App* const deleting = app.add_subcommand("delete", "Deletes a plan or a customer, without asking");
  deleting->require_subcommand(1);
  struct PlanCall {
    int customer = 0;
    std::string plan;
  };
  auto plan = std::make_shared<PlanCall>();
  CLI::App* const deletePlan = deleting->add_subcommand("plan", "Deletes a plan");
  deletePlan->add_option("--customer", plan->customer, "The customer's number; 0 is the company")
      ->required()
      ->check(CLI::Range(0, kLastNumber));
  deletePlan->add_option("--plan", plan->plan, "The plan number")->required();
  deletePlan->callback([&context, plan] { RunDeletePlan(context, plan->customer, plan->plan); });
  auto number = std::make_shared<int>(0);
  CLI::App* const deleteCustomer = deleting->add_subcommand("customer", "Deletes a customer; his plans go to the company");
  deleteCustomer->add_option("N", *number, "The customer's number")->required()->check(CLI::Range(kFirstNumber, kLastNumber));
  deleteCustomer->callback([&context, number] { RunDeleteCustomer(context, *number); });

  auto repair = std::make_shared<bool>(false);
  CLI::App* const checking = app.add_subcommand("check", "Reads the folder's files and names each fault");
  checking->add_flag("--repair", *repair, "Mends what can be mended without loss");
  checking->callback([&context, repair] { RunCheck(context, *repair); });

  app.add_subcommand("rebuild", "Writes both indexes afresh from the data files")->callback([&context] { RunRebuild(context); });
}

}  // namespace norvale
