#include <memory>

#include "base/disk.h"
#include "base/files.h"
#include "data/batch_store.h"
#include "data/folder_reader.h"
#include "data/folder_start.h"
#include "prices/exchange.h"
#include "prices/new_folder.h"
#include "tool/commands.h"

namespace norvale {

namespace {

struct ExportCall {
  std::optional<int> customer;
  std::optional<std::string> plan;
};

void RunExport(const CommandContext& context, const ExportCall& call) {
  if (!call.customer) {
    Deliver(ExportTables(ReadAllCustomers(context.folder), ReadAllEstimates(context.folder)), {});
    return;
  }
  // A plan may stand under a number that no customer has.
  std::vector<CustomerRecord> customers;
  if (const auto customer = FindCustomerRecord(context.folder, *call.customer)) customers.push_back(*customer);
  std::vector<EstimateRecord> plans;
  if (call.plan) {
    const auto plan = FindEstimate(context.folder, *call.customer, DataText(*call.plan, "--plan"));
    if (!plan) throw CommandError("plan \"" + *call.plan + "\" of customer " + std::to_string(*call.customer), "not on file");
    plans.push_back(*plan);
  } else {
    plans = ReadEstimatesOfCustomer(context.folder, *call.customer);
  }
  if (customers.empty() && plans.empty()) throw CommandError("customer " + std::to_string(*call.customer), "not on file");
  Deliver(ExportTables(customers, plans), {});
}

// Opens the folder for a change. Where something is wrong that the start does not mend, nothing is changed.
void Start(DataFolder& data) {
  Session session;
  const FolderStart start = StartFolder(data, session);
  if (!start.MayWork()) throw CommandError(data.Folder().string(), "the data files are damaged; \"check\" tells where");
}

void RunImport(const CommandContext& context, const std::string& file) {
  ExchangeTables tables;
  try {
    tables = ImportTables(ReadWholeFile(PathFromUtf8(file)));
  } catch (const ExchangeError& error) {
    throw CommandError(file, error.what());
  }
  DataFolder data(context.folder);
  Start(data);
  const WasteFactors factors = tables.WasteOver(LoadWasteFactors(context.folder));
  StoreAll(data, tables.customers, tables.plans);
  if (!tables.wasteFactors.empty()) ReplaceFile(data.Files(), context.folder / kWasteFileName, EncodeWasteFactors(factors));
  if (tables.prices) ReplaceFile(data.Files(), context.folder / kPriceFileName, EncodePriceList(*tables.prices));
}

void RunNewFolder(const std::string& folder) {
  namespace fs = std::filesystem;
  const fs::path path = PathFromUtf8(folder);
  std::error_code error;
  fs::create_directories(path, error);
  if (error) throw CommandError(folder, error.message());
  // A folder that holds anything may hold somebody's plans.
  const bool empty = fs::is_empty(path, error);
  if (error) throw CommandError(folder, error.message());
  if (!empty) throw CommandError(folder, "the folder is not empty");
  DataFolder data(path);
  LayDeliveredFiles(data);
  Start(data);
}

}  // namespace

void AddExchangeCommands(CLI::App& app, const CommandContext& context) {
  auto exported = std::make_shared<ExportCall>();
  CLI::App* const exporting = app.add_subcommand("export", "Customers and plans as JSON");
  auto* const customer = exporting->add_option("--customer", exported->customer, "Only this customer and his plans");
  exporting->add_option("--plan", exported->plan, "Only this plan of his")->needs(customer);
  exporting->callback([&context, exported] { RunExport(context, *exported); });

  auto file = std::make_shared<std::string>();
  CLI::App* const importing = app.add_subcommand("import", "Adds or updates the customers and plans of a JSON file");
  importing->add_option("FILE", *file, "The JSON file")->required();
  importing->callback([&context, file] { RunImport(context, *file); });

  auto folder = std::make_shared<std::string>();
  CLI::App* const laying = app.add_subcommand("new-folder", "Lays a fresh working folder with the delivered data files");
  laying->add_option("DIR", *folder, "The folder, new or empty")->required();
  laying->callback([folder] { RunNewFolder(*folder); });
}

}  // namespace norvale
