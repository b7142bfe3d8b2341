// How long the forms of the price list keep the operator waiting at 1400 items, beside reading and writing the same file.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QLineEdit>
#include <filesystem>

#include "base/files.h"
#include "base/text.h"
#include "desktop/program.h"
#include "prices/delivered.h"
#include "prices/frm_price_preview.h"
#include "prices/frm_price_table.h"
#include "prices/frm_prices.h"

namespace norvale {
namespace {

class Silent final : public Messages {
 public:
  Answer ShowMessage(const std::string& text) override { return ParseMessage(text).escape; }
};

// A working folder whose price list has as many items as one may have.
struct Dealer {
  Dealer() {
    items = DeliveredPrices().Items();
    while (items.size() < kMostPriceItems) {
      PriceItem item = items[items.size() % 400];
      item.PriceItemKey = "OTHER STOCK " + std::to_string(items.size());
      item.PriceItemSku = "OTHER-" + std::to_string(items.size());
      items.push_back(item);
    }
    bytes = EncodePriceList(items);
    ReplaceFile(SystemDisk(), path / kPriceFileName, bytes);
  }
  ~Dealer() { std::filesystem::remove_all(path); }
  Dealer(const Dealer&) = delete;
  Dealer& operator=(const Dealer&) = delete;

  [[nodiscard]] std::string NewPrices() const {
    std::vector<PriceItem> dearer = items;
    ChangeAll(dearer);
    return ExportPrices(dearer);
  }
  static void ChangeAll(std::vector<PriceItem>& list) {
    for (PriceItem& item : list)
      for (std::string& price : item.PriceItemPrice) price = FormatPrice("1" + price);
  }

  std::filesystem::path path = [] {
    const auto made = std::filesystem::temp_directory_path() / "norvale-prices-bench";
    std::filesystem::create_directories(made);
    return made;
  }();
  std::vector<PriceItem> items;
  std::string bytes;
};

void ReadTheFile(benchmark::State& state) {
  const Dealer dealer;
  for (auto _ : state) benchmark::DoNotOptimize(ReadWholeFile(dealer.path / kPriceFileName).data());
}
BENCHMARK(ReadTheFile)->Unit(benchmark::kMicrosecond);

void OpenTheForm(benchmark::State& state) {
  state.SetLabel("beside ReadTheFile");
  const Dealer dealer;
  DataFolder folder(dealer.path);
  Session session;
  Silent messages;
  Program program{folder, session, messages};
  for (auto _ : state) {
    frmPrices form(program, {});
    form.show();
    QApplication::processEvents();
  }
}
BENCHMARK(OpenTheForm)->Unit(benchmark::kMicrosecond);

void OpenTheTable(benchmark::State& state) {
  state.SetLabel("beside ReadTheFile");
  const Dealer dealer;
  DataFolder folder(dealer.path);
  Session session;
  Silent messages;
  Program program{folder, session, messages};
  PriceEditor prices = OpenPrices(dealer.path);
  PriceHistory history;
  for (auto _ : state) {
    frmPriceTable form(program, prices, history, 0);
    form.show();
    QApplication::processEvents();
  }
}
BENCHMARK(OpenTheTable)->Unit(benchmark::kMicrosecond);

// One more letter in the filter, to the picture on the screen.
void FilterTheTable(benchmark::State& state) {
  state.SetLabel("beside ReadTheFile");
  const Dealer dealer;
  DataFolder folder(dealer.path);
  Session session;
  Silent messages;
  Program program{folder, session, messages};
  PriceEditor prices = OpenPrices(dealer.path);
  PriceHistory history;
  frmPriceTable form(program, prices, history, 0);
  form.show();
  QApplication::processEvents();
  auto* const box = form.findChild<QLineEdit*>(QStringLiteral("txtFilter"));
  bool isLong = false;
  for (auto _ : state) {
    isLong = !isLong;
    box->setText(isLong ? QStringLiteral("2x1") : QStringLiteral("2x"));
    QApplication::processEvents();
  }
}
BENCHMARK(FilterTheTable)->Unit(benchmark::kMicrosecond);

// A file with a new price for all 7000, to the preview on the screen.
void PreviewAnImport(benchmark::State& state) {
  state.SetLabel("beside ReadTheFile");
  const Dealer dealer;
  const PriceEditor prices = OpenPrices(dealer.path);
  const std::string csv = dealer.NewPrices();
  std::size_t changes = 0;
  for (auto _ : state) {
    const PriceCsv read = ReadPriceCsv(csv);
    frmPricePreview form(QStringLiteral("Prices"), prices.Items(), read);
    form.show();
    QApplication::processEvents();
    changes = form.Update().changes.size();
  }
  state.counters["changes"] = static_cast<double>(changes);
}
BENCHMARK(PreviewAnImport)->Unit(benchmark::kMicrosecond);

void ImportAndSave(benchmark::State& state) {
  state.SetLabel("beside WriteTheFile");
  const Dealer dealer;
  const PriceEditor asRead = OpenPrices(dealer.path);
  const std::string csv = dealer.NewPrices();
  for (auto _ : state) {
    PriceEditor prices = asRead;
    ApplyChanges(prices, PreviewImport(ReadPriceCsv(csv), prices.Items(), {}).changes);
    SavePrices(SystemDisk(), dealer.path, prices);
  }
}
BENCHMARK(ImportAndSave)->Unit(benchmark::kMicrosecond);

void WriteTheFile(benchmark::State& state) {
  const Dealer dealer;
  for (auto _ : state) ReplaceFile(SystemDisk(), dealer.path / kPriceFileName, dealer.bytes);
}
BENCHMARK(WriteTheFile)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace norvale
