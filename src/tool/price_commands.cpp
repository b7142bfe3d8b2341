#include <memory>
#include <optional>

#include "base/files.h"
#include "data/data_folder.h"
#include "prices/price_csv.h"
#include "tool/commands.h"

namespace norvale {

namespace {

struct ImportCall {
  std::string file;
  std::string by;  // empty: whichever column finds more items
  bool zeroPrices = false;
  bool texts = false;
  bool dryRun = false;
};

void RunPricesExport(const CommandContext& context, const std::string& output) {
  Deliver(ExportPrices(OpenPrices(context.folder).Items()), output);
}

void RunPricesImport(const CommandContext& context, const ImportCall& call) {
  const std::string bytes = ReadWholeFile(PathFromUtf8(call.file));
  try {
    const PriceCsv csv = ReadPriceCsv(bytes);
    std::optional<DataFolder> data;
    if (!call.dryRun) data.emplace(context.folder);
    PriceEditor prices = OpenPrices(context.folder);
    ImportOptions options;
    options.match = call.by.empty() ? BestMatch(csv, prices.Items()) : call.by == "sku" ? PriceMatch::Sku : PriceMatch::Description;
    options.zeroPrices = call.zeroPrices;
    options.texts = call.texts;
    const PriceUpdate update = PreviewImport(csv, prices.Items(), options);
    std::string preview = PreviewText(update, prices.Items());
    for (const std::string& caption : csv.unused) preview += "The column \"" + caption + "\" is not used.\n";
    Deliver(preview, {});
    if (update.itemsNamed == 0) throw CommandError(call.file, "no row names an item of the price list");
    if (!data || update.changes.empty()) return;
    ApplyChanges(prices, update.changes);
    SavePrices(data->Files(), context.folder, prices);
  } catch (const CsvError& error) {
    throw CommandError(call.file, error.what());
  }
}

}  // namespace

void AddPriceCommands(CLI::App& app, const CommandContext& context) {
  CLI::App* const prices = app.add_subcommand("prices", "The price list as CSV");
  prices->require_subcommand(1);

  auto output = std::make_shared<std::string>();
  CLI::App* const exporting = prices->add_subcommand("export", "Every item, for a spreadsheet");
  exporting->add_option("--output", *output, "The file to write; standard output without it");
  exporting->callback([&context, output] { RunPricesExport(context, *output); });

  auto call = std::make_shared<ImportCall>();
  CLI::App* const importing = prices->add_subcommand("import", "Takes prices from a CSV file and tells each one that changes");
  importing->add_option("FILE", call->file, "The CSV file; a row at its head names the columns")->required();
  importing->add_option("--by", call->by, "How rows find their items: sku or description; without it, whichever finds more")
      ->check(CLI::IsMember({"sku", "description"}));
  importing->add_flag("--zero-prices", call->zeroPrices, "Takes blank and zero prices too");
  importing->add_flag("--texts", call->texts, "Takes SKUs and optional descriptions too");
  importing->add_flag("--dry-run", call->dryRun, "Tells what would change and changes nothing");
  importing->callback([&context, call] { RunPricesImport(context, *call); });
}

}  // namespace norvale
