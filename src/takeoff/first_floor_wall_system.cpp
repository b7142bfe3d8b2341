// First floor, wall system: vapour barrier, shoe, studs, plates, bracing, headers, sheathing, the garage's walls and, on
// a slab, the nails that a framed floor would have brought.
#include <algorithm>
#include <initializer_list>
#include <utility>

#include "base/numbers.h"
#include "base/text.h"
#include "data/plan_type.h"
#include "takeoff/sections.h"

namespace norvale {

namespace {

// Wall height in feet by the stud's length.
int StudHeightOf(std::string_view studs) {
  if (Has(studs, "93") || Has(studs, "92")) return 8;
  if (Has(studs, "104") || Has(studs, "105")) return 9;
  if (Has(studs, "116") || Has(studs, "117")) return 10;
  return 0;
}

// Interior walls stand on 2X4 studs of the length of the exterior ones.
std::string IntStudTextOf(std::string_view studs) {
  if (Has(studs, "93")) return "2X4-93 INCH";
  if (Has(studs, "92")) return "2X4-92 5/8 INCH";
  if (Has(studs, "104")) return "2X4-104 5/8 INCH";
  if (Has(studs, "105")) return "2X4-105 INCH";
  if (Has(studs, "116")) return "2X4-116 5/8 INCH";
  if (Has(studs, "117")) return "2X4-117 INCH";
  return {};
}

struct Stock {
  explicit Stock(const EstimateRecord& plan)
      : grade(plan.FramingGrade.Trimmed()),
        plates(plan.ShoePlates.Trimmed()),
        studs(plan.PreCutStuds.Trimmed()),
        IntStudText(IntStudTextOf(studs)),
        bracing(plan.CornerBracing.Trimmed()),
        sheathing(plan.WallSheathing.Trimmed()),
        StudHeight(StudHeightOf(studs)),
        wide(Has(studs, "X6")),
        narrow(Has(studs, "X4")),
        PlateStock(wide ? "2X6" : "2X4"),
        PlateGrade(wide ? grade : "SPF " + plates) {}

  std::string grade, plates, studs, IntStudText, bracing, sheathing;
  int StudHeight;
  bool wide, narrow;
  std::string PlateStock, PlateGrade;
};

// clang-format off

void VaporBarrier(TakeoffRun& run) {
  const EstimateRecord& plan = run.plan;
  if (plan.WallFinishIndex == 1)
    Emit(run, {.quantity = 1, .unit = "roll", .description = "18 INCH BLACK VAPOR FILM ", .label = "(Vapor barrier)", .item = 15, .priceKey = "18 INCH BLACK VAPOR FILM"});
  if (plan.WallFinishIndex == 2 || plan.WallFinishIndex == 3)
    Emit(run, {.quantity = 1, .unit = "roll", .description = "12 INCH BLACK VAPOR FILM ", .label = "(Vapor barrier)", .item = 15, .priceKey = "12 INCH BLACK VAPOR FILM"});
}

// The one row with two waste factors; it is marked where either of them is set. Its exterior part rounds up from 0.95.
void NarrowShoe(TakeoffRun& run) {
  const EstimateRecord& plan = run.plan;
  const double exterior = Adjusted(run, Int(plan.ExtWallLftFirstFloor * 1.1 / 16 + 0.05), 16);
  const double interior = Adjusted(run, Rnd(plan.IntWallLftFirstFloor * 1.1 / 16), 17);
  const int item = run.Percent(16) == 0 && run.Percent(17) != 0 ? 17 : 16;
  PrintTextLine(run, PrintedNumber(exterior + interior) + "pcs.", {.quantity = exterior + interior, .unit = "pcs.", .description = "2X4- 16 TREATED", .label = "(Shoe)", .item = item});
  AdvanceLine(run);
}

void SlabWalls(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  if (stock.wide)
    Emit(run, {.quantity = Rnd(plan.ExtWallLftFirstFloor * 1.1 / 16), .unit = "pcs.", .description = "2X6- 16 TREATED", .label = "(Shoe Ext wall)", .item = 16});
  if (stock.wide && plan.IntWallLftFirstFloor > 0)
    Emit(run, {.quantity = Rnd(plan.IntWallLftFirstFloor * 1.1 / 16), .unit = "pcs.", .description = "2X4- 16 TREATED", .label = "(Shoe Int wall)", .item = 17});
  if (stock.narrow) NarrowShoe(run);
  Emit(run, {.quantity = Rnd(plan.ExtWallLftFirstFloor * 1.1), .unit = "ea.", .description = stock.studs + " SPF STUDS", .label = "(Ext Wall Studs)", .item = 18});
  if (plan.IntWallLftFirstFloor > 0)
    Emit(run, {.quantity = Rnd(plan.IntWallLftFirstFloor * 1.1), .unit = "ea.", .description = stock.IntStudText + " SPF STUDS", .label = "(Int Wall Studs)", .item = 19});
  Emit(run, {.quantity = Rnd(plan.ExtWallLftFirstFloor * 4.5 / 16), .unit = "pcs.", .description = stock.PlateStock + "- 16 " + stock.PlateGrade, .label = "(Plates, Blk. Ext)", .item = 20});
  if (plan.IntWallLftFirstFloor > 0) {
    Emit(run, {.quantity = Rnd(plan.IntWallLftFirstFloor * 4.5 * 0.6 / 14), .unit = "pcs.", .description = "2X4- 14 SPF " + stock.plates, .label = "(Plates, Blk. Int)", .item = 21});
    Emit(run, {.quantity = Rnd(plan.IntWallLftFirstFloor * 4.5 * 0.4 / 12), .unit = "pcs.", .description = "2X4- 12 SPF " + stock.plates, .label = "(Plates, Blk. Int)", .item = 21});
  }
}

void CrawlSpaceWalls(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  Emit(run, {.quantity = Rnd(plan.ExtWallLftFirstFloor * 1.1), .unit = "ea.", .description = stock.studs + " SPF STUDS", .label = "(Ext Wall Studs)", .item = 18});
  if (plan.IntWallLftFirstFloor > 0)
    Emit(run, {.quantity = Rnd(plan.IntWallLftFirstFloor * 1.1), .unit = "ea.", .description = stock.IntStudText + " SPF STUDS", .label = "(Int Wall Studs)", .item = 19});
  Emit(run, {.quantity = Rnd(plan.ExtWallLftFirstFloor * 5.5 / 16), .unit = "pcs.", .description = stock.PlateStock + "- 16 " + stock.PlateGrade, .label = "(Shoe, Plates Ext)", .item = 20});
  if (plan.IntWallLftFirstFloor > 0) {
    Emit(run, {.quantity = Rnd(plan.IntWallLftFirstFloor * 5.5 * 0.6 / 14), .unit = "pcs.", .description = "2X4- 14 SPF " + stock.plates, .label = "(Shoe, Plates Int)", .item = 21});
    Emit(run, {.quantity = Rnd(plan.IntWallLftFirstFloor * 5.5 * 0.4 / 12), .unit = "pcs.", .description = "2X4- 12 SPF " + stock.plates, .label = "(Shoe, Plates Int)", .item = 21});
  }
}

void Bracing(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  if (plan.CornerBracingIndex == 1)
    Emit(run, {.quantity = Rnd(plan.OutsideCornersFirstFloor * 2 + plan.IntWallLftFirstFloor / 12.0), .unit = "pcs.", .description = stock.bracing, .label = "(Bracing, Blk.)", .priceKey = "1X4-12 #2 SYP"});
  if (plan.CornerBracingIndex == 2)
    Emit(run, {.quantity = Rnd(plan.OutsideCornersFirstFloor * 2 + plan.IntWallLftFirstFloor / 12.0), .unit = "pcs.", .description = stock.bracing, .label = "(Bracing, Blk.)", .priceKey = "DIAG. METAL BRACING"});
  if (plan.CornerBracingIndex > 2) {
    Emit(run, {.quantity = Int(plan.OutsideCornersFirstFloor * 8 * stock.StudHeight / 32.0), .unit = "pcs.", .description = "4X8- " + stock.bracing, .label = "(Corner Bracing)"});
    const double BraceLft = plan.IntWallLftFirstFloor < 1 ? plan.HeaderLft : plan.IntWallLftFirstFloor;
    if (Rnd(BraceLft / 12) > 0)
      Emit(run, {.quantity = Rnd(BraceLft / 12), .unit = "pcs.", .description = "1X4-12 #2 SYP", .label = "(Bracing, Blk.)"});
  }
}

void HeadersAndBeams(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  if (plan.GirderPly != 5)
    Emit(run, {.quantity = Rnd(plan.HeaderLft * 2 / 16.0 + plan.CarportBeamLft * 2 / 16.0), .unit = "pcs.", .description = "2X10- 16 " + stock.grade, .label = "(Headers, Beams)", .item = 22});
  else if (stock.narrow)
    Emit(run, {.quantity = Rnd(plan.HeaderLft / 16.0 + plan.CarportBeamLft / 16.0), .unit = "pcs.", .description = "4X12- 16 " + stock.grade, .label = "(Headers, Beams)", .item = 22});
  else if (stock.wide)
    Emit(run, {.quantity = Rnd(plan.HeaderLft / 16.0 + plan.CarportBeamLft / 16.0), .unit = "pcs.", .description = "6X12- 16 " + stock.grade, .label = "(Headers, Beams)", .item = 22});
}

void Sheathing(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  const int sheetHeight = plan.WallSheetHeightIndex + 7;
  const double SheetArea = 4.0 * sheetHeight;
  const std::string SheetText = "4X" + Digits(sheetHeight) + "- " + stock.sheathing;
  // A sheet of no height, which no screen can choose, covers nothing.
  const auto sheets = [SheetArea](double area) { return SheetArea == 0 ? 0 : Rnd(area / SheetArea); };
  // Sheet bracing takes the place of 4 feet of sheathing at each corner.
  if (plan.CornerBracingIndex < 3)
    Emit(run, {.quantity = sheets(plan.ExtWallLftFirstFloor * stock.StudHeight), .unit = "pcs.", .description = SheetText, .label = "(Wall Sheathing)", .item = 23});
  else
    Emit(run, {.quantity = sheets(plan.ExtWallLftFirstFloor * stock.StudHeight - 4 * stock.StudHeight * plan.OutsideCornersFirstFloor), .unit = "pcs.", .description = SheetText, .label = "(Wall Sheathing)", .item = 23});
  Emit(run, {.quantity = Rnd((plan.GableSqFt + plan.ExtWallSidingSecondFloor + plan.ExtWallSidingFirstFloor) / 1700.0), .unit = "rolls", .description = "9'X 190' HOUSE WRAP", .label = "(House Wrap)", .item = 24});
}

// The two foundations choose the garage's board by different tests of wall finish and stud length.
void GarageSheathing(TakeoffRun& run, const Stock& stock, bool slab) {
  const EstimateRecord& plan = run.plan;
  const auto studIsOneOf = [&](std::initializer_list<int> rows) { return std::find(rows.begin(), rows.end(), plan.PreCutStudsIndex) != rows.end(); };
  MaterialLine line{.quantity = Rnd(plan.GarageWallLftSheathed / 4.0), .unit = "pcs.", .description = "", .label = "(Wall Sheathing)", .item = 23};
  if (slab ? plan.WallFinishIndex == 5 : plan.WallFinishIndex >= 4) {
    line.description = "4X8-" + stock.sheathing;
    line.priceKey = "4X8- " + stock.sheathing;
  } else if (slab ? studIsOneOf({3, 4, 9, 10}) : !studIsOneOf({5, 6, 11, 12})) {
    line.description = "4X9- 1/2 REG. INS. BD.";
    line.priceKey = "4X9- 1/2 REGULAR";
  } else {
    line.description = "4X8- 1/2 REG. INS. BD.";
    line.priceKey = "4X8- 1/2 REGULAR";
  }
  Emit(run, std::move(line));
}

void Garage(TakeoffRun& run, const Stock& stock, bool slab) {
  const EstimateRecord& plan = run.plan;
  const double GarageLft = plan.GarageWallLftSheathed + plan.GarageWallLftUnsheathed;
  Emit(run, {.quantity = Rnd(plan.GarageWallLftSheathed * 1.1 / 16 + plan.GarageWallLftUnsheathed * 1.1 / 16), .unit = "pcs.", .description = "2X4- 16 TREATED", .label = "(Shoe, Garage)", .item = 25});
  if (slab)
    Emit(run, {.quantity = GarageLft, .unit = "ea. ", .description = stock.IntStudText + " SPF STUDS", .label = "(Garage Studs)", .item = 26});
  else
    Emit(run, {.quantity = GarageLft, .unit = "pcs.", .description = "2X4- 10 SPF STD & BTR", .label = "(Wall Studs)", .item = 26, .priceKey = "2X4- 10 SPF STANDARD & BETTER"});
  Emit(run, {.quantity = Rnd(plan.GarageWallLftSheathed * 4 / 16.0 + plan.GarageWallLftUnsheathed * 4 / 16.0), .unit = "pcs.", .description = "2X4- 16 SPF " + stock.plates, .label = "(Plates, Blk.)", .item = 25});
  GarageSheathing(run, stock, slab);
}

// A slab has no framing nails for the house itself, only for garage and carport.
void SlabNails(TakeoffRun& run) {
  const EstimateRecord& plan = run.plan;
  const double Lbs16 = Rnd(plan.GarageSqFt / 100.0) * 5 + Rnd(plan.CarportSqFt / 100.0) * 3;
  const double Lbs8 = Rnd(plan.GarageSqFt / 100.0) * 3 + Rnd(plan.CarportSqFt / 100.0) * 2;
  EmitNails(run, {.pounds = Lbs16, .countPerPound = 49, .description = "16d COMMON NAILS", .label = "(1st Flr. Nails)", .item = 14});
  EmitNails(run, {.pounds = Lbs8, .countPerPound = 106, .description = "8d COMMON NAILS", .label = "(1st Flr. Nails)", .item = 14});
}

// clang-format on

}  // namespace

void FirstFloorWallRows(TakeoffRun& run) {
  const EstimateRecord& plan = run.plan;
  const Stock stock(plan);
  const bool slab = (plan.PlanType & kSlab) != 0;
  VaporBarrier(run);
  if (slab)
    SlabWalls(run, stock);
  else
    CrawlSpaceWalls(run, stock);
  Bracing(run, stock);
  HeadersAndBeams(run, stock);
  Sheathing(run, stock);
  if (plan.GarageOrStorageIndex != 2) Garage(run, stock, slab);
  if (slab) SlabNails(run);
}

}  // namespace norvale
