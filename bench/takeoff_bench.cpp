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
  plan.FramingGradeIndex = 1, plan.FramingGrade.Assign("#2 SYP");
  plan.FloorSheathingIndex = 4, plan.FloorSheathing.Assign("4X8- 23/32 T&G OSB");
  plan.ShoePlatesIndex = 1, plan.ShoePlates.Assign("STANDARD & BETTER");
  plan.PreCutStudsIndex = 1, plan.PreCutStuds.Assign("2X4-92 5/8 INCH");
  plan.WallSheathingIndex = 3, plan.WallSheathing.Assign("7/16 OSB");
  plan.CornerBracingIndex = 3, plan.CornerBracing.Assign("7/16 OSB");
  plan.RoofSheathingIndex = 1, plan.RoofSheathing.Assign("7/16 OSB");
  plan.RoofingIndex = 2, plan.Roofing.Assign("30 YR ARCHITECTURAL");
  plan.ExteriorTrimIndex = 5, plan.ExteriorTrim.Assign("ALUM. TRIM COIL");
  plan.FasciaBoardIndex = 3, plan.FasciaBoard.Assign("2X6");
  plan.SoffitMaterialIndex = 5, plan.SoffitMaterial.Assign("VINYL");
  plan.FriezeMouldIndex = 4, plan.FriezeMould.Assign("VINYL CHANNEL");
  plan.BaseMouldFirstFloorIndex = 1, plan.BaseMouldFirstFloor.Assign("3-1/4 COLONIAL BASE");
  plan.WallSheetHeightIndex = 1, plan.SlabOrCrawlIndex = 2, plan.SlabInterior.Assign("FINISHED");
  plan.ExtWallLftFirstFloor = 168, plan.OutsideCornersFirstFloor = 6, plan.HeatedLength = 48, plan.OverallLength = 70;
  plan.FoundationType = 2, plan.GirderPly = 3, plan.GirderSizeIndex = 2, plan.GirderSize.Assign("2X10");
  plan.MajorGirderLft = {16, 20, 24, 28, 32}, plan.WiderGirderLft = {8, 0, 12, 0, 16};
  plan.DropGirderPly = 2, plan.DropGirderSizeIndex = 2, plan.DropGirderSize.Assign("2X10");
  plan.DropGirderLft = {8, 10, 12, 14, 16};
  plan.SillPly = 2, plan.SillSizeIndex = 3, plan.SillSize.Assign("2X10"), plan.SillLft = {16, 20, 24, 28, 32};
  plan.SillPlateIndex = 3, plan.SillPlate.Assign("2X8");
  plan.FloorJoistSizeIndex = 2, plan.FloorJoistSize.Assign("2X10");
  plan.BayAreaLftFirstFloor = {20, 24, 30, 36, 40}, plan.JoistLengthFirstFloor = {8, 10, 12, 14, 16};
  plan.IntWallLftFirstFloor = 190, plan.HeatedSqFtFirstFloor = 1680, plan.HeatedSqFtSecondFloor = 1420;
  plan.OakFlooringIndex = 1, plan.OakFlooringSqFt = 320, plan.GarageOrStorageIndex = 1;
  plan.GarageWallLftSheathed = 66, plan.GarageWallLftUnsheathed = 22, plan.GarageSqFt = 528;
  plan.CarportOrPorchIndex = 1, plan.CarportBeamLft = 24, plan.CarportSqFt = 160;
  plan.SecondFloorType = 2, plan.SecondFloorFramed = 1, plan.SecondFloorJoistSizeIndex = 2, plan.SecondFloorJoistSize.Assign("2X10");
  plan.BayAreaLftSecondFloor = {18, 22, 28, 34, 38}, plan.JoistLengthSecondFloor = {8, 10, 12, 14, 16};
  plan.BaseMouldSecondFloorIndex = 1, plan.BaseMouldSecondFloor.Assign("3-1/4 COLONIAL BASE");
  plan.ExtWallLftSecondFloor = 152, plan.IntWallLftSecondFloor = 170;
  plan.PreCutStudsSecondFloorIndex = 1, plan.PreCutStudsSecondFloor.Assign("2X4-92 5/8 INCH");
  plan.HeaderLft = 132, plan.FasciaLft = 276, plan.RoofSqFt = 2840, plan.RoofOverhangIndex = 1;
  plan.WallFinishIndex = 5, plan.SidingIndex = 10, plan.Siding.Assign("VINYL DOUBLE 4");
  plan.CornerBoardsIndex = 4, plan.CornerBoards.Assign("3/4 VINYL CORNER");
  plan.ExtWallSidingFirstFloor = 1700, plan.ExtWallSidingSecondFloor = 1370, plan.OutsideCornersSecondFloor = 6, plan.GableSqFt = 420, plan.EavesLft = 148;
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
