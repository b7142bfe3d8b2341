// From the click on Print to the PDF on the disk, and the list beside the data-entry screens, each beside the same run to
// text.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <filesystem>

#include "base/files.h"
#include "data/batch_store.h"
#include "data/folder_start.h"
#include "desktop/program.h"
#include "prices/exchange.h"
#include "prices/new_folder.h"
#include "printing/document.h"
#include "printing/frm_live_list.h"
#include "printing/frm_page_painter.h"
#include "printing/print_request.h"

namespace norvale {
namespace {

class NoMessages final : public Messages {
 public:
  Answer ShowMessage(const std::string& text) override { return ParseMessage(text).escape; }
};

// The sample dealer's folder, with the largest of his plans in hand.
class SampleFolder {
 public:
  SampleFolder() {
    LayDeliveredFiles(folder);
    (void)StartFolder(folder, session);
    for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::path(NORVALE_SOURCE_DIR) / "samples")) {
      if (entry.path().extension() != ".json") continue;
      const ExchangeTables tables = ImportTables(ReadWholeFile(entry.path()));
      StoreAll(folder, tables.customers, tables.plans);
      if (!tables.wasteFactors.empty())
        ReplaceFile(SystemDisk(), path / kWasteFileName, EncodeWasteFactors(tables.WasteOver(DesignTimeWasteFactors())));
      if (tables.prices) ReplaceFile(SystemDisk(), path / kPriceFileName, EncodePriceList(*tables.prices));
      for (const EstimateRecord& plan : tables.plans) {
        session.CurrentEstimate = plan;
        const std::size_t pages = Estimate().document.pages.size();
        if (pages > largestPages) largestPages = pages, largest = plan;
      }
    }
    session.CurrentEstimate = largest;
  }
  ~SampleFolder() { std::filesystem::remove_all(path); }
  SampleFolder(const SampleFolder&) = delete;
  SampleFolder& operator=(const SampleFolder&) = delete;

  Prints Estimate() {
    PrintRequest request;
    request.sections = DefaultSections(session.CurrentEstimate) | kWithPrices;
    return MakePrints(folder, session, request, "11-22-2026");
  }

  const std::filesystem::path path = [] {
    const auto made = std::filesystem::temp_directory_path() / "norvale-printing-bench";
    std::filesystem::remove_all(made);
    std::filesystem::create_directories(made);
    return made;
  }();
  DataFolder folder{path};
  Session session;
  NoMessages messages;
  Program program{folder, session, messages};
  std::size_t largestPages = 0;
  EstimateRecord largest;
};

void ClickToTextOnDisk(benchmark::State& state) {
  SampleFolder sample;
  for (auto _ : state) ReplaceFile(SystemDisk(), sample.path / "list.txt", DocumentText(sample.Estimate().document));
  state.counters["pages"] = static_cast<double>(sample.largestPages);
}
BENCHMARK(ClickToTextOnDisk)->Unit(benchmark::kMillisecond);

void ClickToPdfOnDisk(benchmark::State& state) {
  state.SetLabel("beside ClickToTextOnDisk");
  SampleFolder sample;
  for (auto _ : state) ReplaceFile(SystemDisk(), sample.path / "list.pdf", DocumentPdf(sample.Estimate().document, {}));
  state.counters["pages"] = static_cast<double>(sample.largestPages);
}
BENCHMARK(ClickToPdfOnDisk)->Unit(benchmark::kMillisecond);

// A number changes at every turn, as when it is typed; painting included.
void LiveListRefresh(benchmark::State& state) {
  state.SetLabel("beside SameRunToText");
  SampleFolder sample;
  LiveList list(sample.program);
  list.resize(420, 700);
  list.show();
  EstimateRecord plan = sample.largest;
  int turn = 0;
  for (auto _ : state) {
    plan.RoofSqFt = static_cast<std::int16_t>(2000 + ++turn % 100);
    list.ShowPlan(plan);
    QApplication::processEvents();
  }
}
BENCHMARK(LiveListRefresh)->Unit(benchmark::kMillisecond);

void SameRunToText(benchmark::State& state) {
  SampleFolder sample;
  EstimatePrint print;
  print.plan = sample.largest;
  print.sectionMask = (DefaultSections(print.plan) & kAllSections) | kWithPrices;
  const TakeoffData data = LoadTakeoffData(sample.path, print.sectionMask);
  for (auto _ : state) {
    Page page;
    PrintEstimate(print, data, page);
    const std::string text = page.Utf8();
    benchmark::DoNotOptimize(text.data());
  }
}
BENCHMARK(SameRunToText)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace norvale
