// Second floor, wall system: studs, plates, bracing and wall sheathing.
#include "base/numbers.h"
#include "base/text.h"
#include "data/plan_type.h"
#include "takeoff/sections.h"

namespace norvale {

namespace {

std::string_view StudLengthOf(std::string_view studs) {
  if (Has(studs, "93")) return "-93 INCH";
  if (Has(studs, "92")) return "-92 5/8 INCH";
  if (Has(studs, "104")) return "-104 5/8 INCH";
  return "-105 INCH";
}

struct Stock {
  explicit Stock(const EstimateRecord& plan)
      : studs(plan.PreCutStudsSecondFloor.Trimmed()),
        plates(plan.ShoePlates.Trimmed()),
        bracing(plan.CornerBracing.Trimmed()),
        sheathing(plan.WallSheathing.Trimmed()),
        StudStock(Has(studs, "X6") ? "2X6" : "2X4"),
        StudLength(StudLengthOf(studs)),
        PlateGrade(Has(studs, "X6") ? plan.FramingGrade.Trimmed() : "SPF " + plates),
        // The short studs count 9 feet of wall here: the floor's depth is sheathed with it.
        WallHeight(Has(studs, "93") || Has(studs, "92") ? 9 : 10),
        SheetLength(Has(sheathing, "OSB") ? 8 : 9) {}

  std::string studs, plates, bracing, sheathing, StudStock;
  std::string_view StudLength;
  std::string PlateGrade;
  int WallHeight, SheetLength;
};

// clang-format off

void StudsAndPlates(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  const bool FieldFramed = (plan.PlanType & kFieldFramedHalfStory) != 0;
  const int AddedLft = FieldFramed ? plan.KneeWallLft : 0;
  const std::string studs = stock.StudStock + std::string(stock.StudLength) + " SPF STUDS";
  Emit(run, {.quantity = Rnd(plan.ExtWallLftSecondFloor * 1.1), .unit = "ea.", .description = studs, .label = "(Wall Studs Ext)", .item = 36});
  if (FieldFramed && plan.KneeWallLft + plan.IntWallLftSecondFloor > 0)
    Emit(run, {.quantity = Rnd((plan.KneeWallLft + plan.IntWallLftSecondFloor) * 1.1), .unit = "ea.", .description = studs, .label = "(Wall Studs Int)", .item = 37});
  if (!FieldFramed && plan.IntWallLftSecondFloor > 0)
    Emit(run, {.quantity = Rnd(plan.IntWallLftSecondFloor * 1.1), .unit = "ea.", .description = studs, .label = "(Wall Studs Int)", .item = 37});
  Emit(run, {.quantity = Rnd(plan.ExtWallLftSecondFloor * 5.5 / 16), .unit = "pcs.", .description = stock.StudStock + "- 16 " + stock.PlateGrade, .label = "(Shoe, Plates Ext)", .item = 38, .secondLabel = "(Shoe, Plates Ext)"});
  if (plan.IntWallLftSecondFloor + AddedLft > 0) {
    Emit(run, {.quantity = Rnd((plan.IntWallLftSecondFloor + AddedLft) * 5.5 * 0.6 / 14), .unit = "pcs.", .description = "2X4- 14 SPF " + stock.plates, .label = "(Shoe, Plates Int)", .item = 39});
    Emit(run, {.quantity = Rnd((plan.IntWallLftSecondFloor + AddedLft) * 5.5 * 0.4 / 12), .unit = "pcs.", .description = "2X4- 12 SPF " + stock.plates, .label = "(Shoe, Plates Int)", .item = 39});
  }
}

void Bracing(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  if (plan.CornerBracingIndex == 1)
    Emit(run, {.quantity = Rnd(plan.OutsideCornersSecondFloor * 2 + plan.IntWallLftSecondFloor / 12.0), .unit = "pcs.", .description = stock.bracing, .label = "(Bracing, Blk.)"});
  if (plan.CornerBracingIndex == 2)
    Emit(run, {.quantity = Rnd(plan.OutsideCornersSecondFloor * 2 + plan.IntWallLftSecondFloor / 12.0), .unit = "pcs.", .description = stock.bracing, .label = "(Bracing, Blk.)", .priceKey = "DIAG. METAL BRACING"});
  if (plan.CornerBracingIndex > 2 && plan.OutsideCornersSecondFloor > 0)
    Emit(run, {.quantity = plan.OutsideCornersSecondFloor * 2.0, .unit = "pcs.", .description = stock.bracing, .label = "(Corner Braces)", .priceKey = "4X8- " + stock.bracing});
  // The text says "#2C", the price list holds "#2".
  if (plan.CornerBracingIndex > 2 && plan.OutsideCornersSecondFloor > 0 && plan.IntWallLftSecondFloor > 0)
    Emit(run, {.quantity = Rnd(plan.IntWallLftSecondFloor / 12.0), .unit = "pcs.", .description = "1X4-12 #2C SYP", .label = "(Bracing, Blk.)", .priceKey = "1X4-12 #2 SYP"});
}

void Sheathing(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  const double SheetArea = 4.0 * stock.SheetLength;
  const std::string SheetText = "4X" + std::to_string(stock.SheetLength) + "- " + stock.sheathing;
  if (plan.CornerBracingIndex < 3)
    Emit(run, {.quantity = Rnd(plan.ExtWallLftSecondFloor * stock.WallHeight / SheetArea), .unit = "pcs.", .description = SheetText, .label = "(Wall Sheathing)", .item = 40});
  else
    Emit(run, {.quantity = Rnd((plan.ExtWallLftSecondFloor * stock.WallHeight - 4 * stock.WallHeight * plan.OutsideCornersSecondFloor) / SheetArea), .unit = "pcs.", .description = SheetText, .label = "(Wall Sheathing)", .item = 40});
}

// clang-format on

}  // namespace

void SecondFloorWallRows(TakeoffRun& run) {
  const Stock stock(run.plan);
  StudsAndPlates(run, stock);
  Bracing(run, stock);
  Sheathing(run, stock);
}

}  // namespace norvale
