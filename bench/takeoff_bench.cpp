// How long a full two-level priced estimate takes, beside the time to copy the same bytes.
#include <benchmark/benchmark.h>

#include <cstring>
#include <filesystem>
#include <string>

#include "base/disk.h"
#include "base/files.h"
#include "prices/delivered.h"
#include "printing/order_summary.h"
#include "printing/worksheet.h"
#include "takeoff/print_estimate.h"

namespace norvale {
namespace {

// A two-level crawl-space house with a stick-framed roof, garage and porch: every section prints.
EstimateRecord TwoLevelHouse() {
  EstimateRecord plan;
  plan.CustomerNumber = 1;
  plan.PlanNumber.Assign("BENCH");
  plan.PlanDate.Assign("01-15-2026");
  plan.PlanType = 8 + 16 + 128;
  plan.PriceLevel.Assign("2");
  plan.Combo00Index = 1, plan.Combo00Text.Assign("#2 SYP");
  plan.FloorSheathingIndex = 4, plan.FloorSheathing.Assign("4X8- 23/32 T&G OSB");
  plan.ShoePlatesIndex = 1, plan.ShoePlates.Assign("STANDARD & BETTER");
  plan.PreCutStudsIndex = 1, plan.PreCutStuds.Assign("2X4-92 5/8 INCH");
  plan.WallSheathingIndex = 3, plan.WallSheathing.Assign("7/16 OSB");
  plan.Combo05Index = 3, plan.Combo05Text.Assign("7/16 OSB");
  plan.RoofSheathingIndex = 1, plan.RoofSheathing.Assign("7/16 OSB");
  plan.RoofingIndex = 2, plan.Roofing.Assign("30 YR ARCHITECTURAL");
  plan.Combo08Index = 5, plan.Combo08Text.Assign("ALUM. TRIM COIL");
  plan.Combo09Index = 3, plan.Combo09Text.Assign("2X6");
  plan.Combo10Index = 5, plan.Combo10Text.Assign("VINYL");
  plan.Combo11Index = 4, plan.Combo11Text.Assign("VINYL CHANNEL");
  plan.Combo12Index = 1, plan.Combo12Text.Assign("3-1/4 COLONIAL BASE");
  plan.Combo13Index = 1, plan.Combo14Index = 2, plan.Combo15Text.Assign("FINISHED");
  plan.ExtWallLftFirstFloor = 168, plan.Disp01 = 6, plan.Disp02 = 48, plan.Disp03 = 70;
  plan.FoundationType = 2, plan.GirderPly = 3, plan.GirderSizeIndex = 2, plan.GirderSize.Assign("2X10");
  plan.MajorGirderLft = {16, 20, 24, 28, 32}, plan.Disp09 = {8, 0, 12, 0, 16};
  plan.Combo19Index = 2, plan.Combo20Index = 2, plan.Combo20Text.Assign("2X10");
  plan.DropGirderLft = {8, 10, 12, 14, 16};
  plan.Combo21Index = 2, plan.SillSizeIndex = 3, plan.SillSize.Assign("2X10"), plan.SillLft = {16, 20, 24, 28, 32};
  plan.Combo23Index = 3, plan.Combo23Text.Assign("2X8");
  plan.FloorJoistSizeIndex = 2, plan.FloorJoistSize.Assign("2X10");
  plan.BayAreaLftFirstFloor = {20, 24, 30, 36, 40}, plan.Joist0 = {8, 10, 12, 14, 16};
  plan.IntWallLftFirstFloor = 190, plan.HeatedSqFtA = 1680, plan.HeatedSqFtB = 1420;
  plan.Combo25Index = 1, plan.Disp31 = 320, plan.Combo26Index = 1;
  plan.GarageWallLftA = 66, plan.GarageWallLftB = 22, plan.GarageSqFt = 528;
  plan.Combo27Index = 1, plan.CarportBeamLft = 24, plan.CarportSqFt = 160;
  plan.SecondFloorType = 2, plan.SecondFloorFramed = 1, plan.SecondFloorJoistSizeIndex = 2, plan.SecondFloorJoistSize.Assign("2X10");
  plan.BayAreaLftSecondFloor = {18, 22, 28, 34, 38}, plan.Joist5 = {8, 10, 12, 14, 16};
  plan.Combo31Index = 1, plan.Combo31Text.Assign("3-1/4 COLONIAL BASE");
  plan.ExtWallLftSecondFloor = 152, plan.IntWallLftSecondFloor = 170;
  plan.PreCutStudsSecondFloorIndex = 1, plan.PreCutStudsSecondFloor.Assign("2X4-92 5/8 INCH");
  plan.HeaderLft = 132, plan.FasciaLft = 276, plan.RoofSqFt = 2840, plan.Combo33Index = 1;
  plan.Combo34Index = 5, plan.Combo36Index = 10, plan.Combo36Text.Assign("VINYL DOUBLE 4");
  plan.Combo38Index = 4, plan.Combo38Text.Assign("3/4 VINYL CORNER");
  plan.ExtWallSidingA = 1700, plan.ExtWallSidingB = 1370, plan.Disp50 = 6, plan.GableSqFt = 420, plan.EavesLft = 148;
  plan.CeilingJoistLft2X6 = {24, 30, 36, 0, 0}, plan.CeilingJoistLft2X8 = {0, 0, 0, 40, 44};
  for (std::uint8_t type = 1; type <= 5; ++type)
    plan.RoofPlanes[type - 1U] = {.SectionType = type,
                                  .FramingType = 0,
                                  .PitchIndex = 5,
                                  .RafterIndex = static_cast<std::uint8_t>(type % 4),
                                  .SectionLength = 480,
                                  .RafterRun = 168,
                                  .LoadWallRun = static_cast<std::int16_t>(type == 1 ? 84 : 0)};
  return plan;
}

// The delivered price list, filled up to the most lines that one may have.
std::vector<PriceItem> FullPriceList() {
  std::vector<PriceItem> items = DeliveredPrices().Items();
  while (items.size() < kMostPriceItems) {
    PriceItem item = items[items.size() % 400];
    item.PriceItemKey = "OTHER STOCK " + std::to_string(items.size());
    items.insert(items.begin(), item);
  }
  return items;
}

EstimatePrint Print() {
  EstimatePrint print;
  print.plan = TwoLevelHouse();
  print.company.CustomerName.Assign("Sample Lumber");
  print.customer.CustomerName.Assign("Sample Builder");
  print.date = "11-22-2026";
  print.sectionMask = kWholeMask;
  return print;
}

TakeoffData Loaded() {
  TakeoffData data;
  data.waste = DesignTimeWasteFactors();
  data.lists = DeliveredMaterialRows();
  data.prices = PriceList(FullPriceList());
  return data;
}

void PricedEstimateToText(benchmark::State& state) {
  const EstimatePrint print = Print();
  const TakeoffData data = Loaded();
  state.SetLabel("beside CopyTheSameBytes");
  std::size_t bytes = 0;
  std::size_t lines = 0;
  for (auto _ : state) {
    Page page;
    const EstimateTotals totals = PrintEstimate(print, data, page);
    const std::string text = page.Utf8();
    benchmark::DoNotOptimize(text.data());
    bytes = text.size();
    lines = totals.lines.size();
  }
  state.counters["bytes"] = static_cast<double>(bytes);
  state.counters["material lines"] = static_cast<double>(lines);
}
BENCHMARK(PricedEstimateToText)->Unit(benchmark::kMicrosecond);

void CopyTheSameBytes(benchmark::State& state) {
  const EstimatePrint print = Print();
  const TakeoffData data = Loaded();
  Page page;
  PrintEstimate(print, data, page);
  const std::string text = page.Utf8();
  std::string copy(text.size(), '\0');
  for (auto _ : state) {
    std::memcpy(copy.data(), text.data(), text.size());
    benchmark::DoNotOptimize(copy.data());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(CopyTheSameBytes)->Unit(benchmark::kMicrosecond);

// Beside the priced estimate itself: the summary takes the run once more, then puts its rows together and prints them.
void OrderSummaryToText(benchmark::State& state) {
  const EstimatePrint print = Print();
  const TakeoffData data = Loaded();
  for (auto _ : state) {
    const OrderSummary summary = SummariseEstimate(print, data, SummaryOrder::YardSections);
    const std::string text = DocumentText(OrderSummaryDocument(print, summary, true));
    benchmark::DoNotOptimize(text.data());
  }
}
BENCHMARK(OrderSummaryToText)->Unit(benchmark::kMicrosecond);

void WorksheetToText(benchmark::State& state) {
  const std::int16_t planType = TwoLevelHouse().PlanType;
  std::size_t bytes = 0;
  for (auto _ : state) {
    const Worksheet worksheet = MakeWorksheet(planType, WorksheetKind::Both, DeliveredScreenLines(), DeliveredMaterialRows());
    const std::string text = DocumentText(WorksheetDocument(worksheet));
    benchmark::DoNotOptimize(text.data());
    bytes = text.size();
  }
  state.counters["bytes"] = static_cast<double>(bytes);
}
BENCHMARK(WorksheetToText)->Unit(benchmark::kMicrosecond);

void PricedEstimateWithAllFilesReadAfresh(benchmark::State& state) {
  const auto folder = std::filesystem::temp_directory_path() / "norvale-takeoff-bench";
  std::filesystem::create_directories(folder);
  ReplaceFile(SystemDisk(), folder / kMaterialFileName, DeliveredMaterialFile());
  ReplaceFile(SystemDisk(), folder / kPriceFileName, EncodePriceList(FullPriceList()));
  ReplaceFile(SystemDisk(), folder / kWasteFileName, EncodeWasteFactors(DesignTimeWasteFactors()));
  const EstimatePrint print = Print();
  for (auto _ : state) {
    const TakeoffData data = LoadTakeoffData(folder, print.sectionMask);
    Page page;
    PrintEstimate(print, data, page);
    const std::string text = page.Utf8();
    benchmark::DoNotOptimize(text.data());
  }
  std::filesystem::remove_all(folder);
}
BENCHMARK(PricedEstimateWithAllFilesReadAfresh)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace norvale

BENCHMARK_MAIN();
