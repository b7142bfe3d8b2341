// Second floor, floor system: stairs, band, bridging or blocking, joists or truss parts, sheathing, adhesive and nails.
#include "base/numbers.h"
#include "base/text.h"
#include "data/plan_type.h"
#include "takeoff/joists.h"
#include "takeoff/sections.h"

namespace norvale {

namespace {

struct Stock {
  explicit Stock(const EstimateRecord& plan)
      : grade(plan.FramingGrade.Trimmed()),
        plates(plan.ShoePlates.Trimmed()),
        joist(CompleteJoistText(plan.SecondFloorJoistSize.Trimmed())),
        sheathing(plan.FloorSheathing.Trimmed()) {}

  std::string grade, plates, joist, sheathing;
};

// clang-format off

void StairStringers(TakeoffRun& run, const Stock& stock) {
  PrintTextLine(run, " 3 pcs.", {.quantity = 3, .unit = "pcs.", .description = "2X12- 16 " + stock.grade, .label = "(Stair Stringers)"});
  AdvanceLine(run);
}

void SawnBand(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  // A field-framed half story has its band and bridging at the knee walls.
  const bool fieldFramed = (plan.PlanType & kFieldFramedHalfStory) != 0;
  if (fieldFramed)
    Emit(run, {.quantity = Rnd(plan.KneeWallLft * 1.1 / 14), .unit = "pcs.", .description = stock.joist + "- 14 " + stock.grade, .label = "(Band)", .item = 27});
  else
    Emit(run, {.quantity = Rnd(plan.ExtWallLftSecondFloor * 1.1 / 14), .unit = "pcs.", .description = stock.joist + "- 14 " + stock.grade, .label = "(Band)", .item = 27});
  if (fieldFramed)
    Emit(run, {.quantity = Rnd(plan.KneeWallLft * 1.1 * 2 / 12), .unit = "pcs.", .description = stock.joist + "- 12 " + stock.grade, .label = "(Solid Bridging)", .item = 28});
  else
    Emit(run, {.quantity = Rnd(plan.HeatedLength * 1.1 * 2 / 12), .unit = "pcs.", .description = stock.joist + "- 12 " + stock.grade, .label = "(Solid Bridging)", .item = 28});
}

void IJoistBand(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  Emit(run, {.quantity = Int(plan.ExtWallLftSecondFloor / 24.0 + 0.5) + 1, .unit = "pcs.", .description = RimBoard(stock.joist), .label = "(Band)", .item = 27});
  Emit(run, {.quantity = Int(plan.OutsideCornersSecondFloor * 4) + Int(Rnd(plan.HeatedLength * 2 / 25.0) * 4), .unit = "lft.", .description = UpToAndWith(stock.joist, "PRI-400"), .label = "(Blocking)", .item = 29, .priceKey = IJoistKey(run, stock.joist)});
}

void Joists(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  for (std::size_t i = 0; i < plan.BayAreaLftSecondFloor.size(); ++i) {
    if (plan.BayAreaLftSecondFloor[i] == 0) continue;
    const int Len = StockLength(i);
    const int length = plan.JoistLengthSecondFloor[i];
    if (!IsIJoist(stock.joist)) {
      // The text shows the length that was typed; the price is that of the row's stock length.
      Emit(run, {.quantity = Rnd(plan.BayAreaLftSecondFloor[i] * 0.85), .unit = "pcs.", .description = stock.joist + "-" + PrintedNumber(length) + stock.grade, .label = "(2-Flr. Joist)", .item = 30, .priceKey = stock.joist + KeyLength(Len) + " " + stock.grade});
    } else {
      const double Pieces = Int(plan.BayAreaLftSecondFloor[i] * JoistsPerFoot(stock.joist) + 0.5) + 1;
      Emit(run, {.quantity = Pieces * length, .unit = "lft.", .description = stock.joist + " (" + Digits(Pieces) + " pcs.)", .label = "(2-Flr. I Joist)", .item = 30, .priceKey = IJoistKey(run, stock.joist)});
    }
  }
}

void FloorTrusses(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  Emit(run, {.quantity = Rnd(plan.HeatedLength * 1.1 * 2 / 16), .unit = "pcs.", .description = "2X4- 16 SPF " + stock.plates, .label = "(Flr. Truss Band)", .item = 31});
  Emit(run, {.quantity = Rnd(plan.HeatedLength * 1.1 * 3 / 16), .unit = "pcs.", .description = "2X6- 16 " + stock.grade, .label = "(Strong Backs)", .item = 32});
}

void SheathingAndNails(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  // 28.8 is a sheet of 32 square feet less 10%.
  Emit(run, {.quantity = Rnd(plan.HeatedSqFtSecondFloor / 28.8), .unit = "pcs.", .description = stock.sheathing, .label = "(Floor Sheathing)", .item = 33});
  if (plan.FloorSheathingIndex > 2)
    Emit(run, {.quantity = Rnd(plan.HeatedSqFtSecondFloor / 29.0 / 5), .unit = "tubes", .description = "29 OZ. CONSTRUCTION ADHESIVE", .label = "(Floor Adhesive)", .item = 34});
  EmitNails(run, {.pounds = Rnd(plan.HeatedSqFtSecondFloor / 100.0) * 9, .countPerPound = 49, .description = "16d COMMON NAILS", .label = "(2nd Flr. Nails)", .item = 35});
  EmitNails(run, {.pounds = Rnd(plan.HeatedSqFtSecondFloor / 100.0) * 3, .countPerPound = 106, .description = "8d COMMON NAILS", .label = "(2nd Flr. Nails)", .item = 35});
}

// clang-format on

}  // namespace

void SecondFloorFloorRows(TakeoffRun& run) {
  const EstimateRecord& plan = run.plan;
  const Stock stock(plan);
  StairStringers(run, stock);
  if (plan.SecondFloorFramed != 2) {
    if (IsIJoist(stock.joist))
      IJoistBand(run, stock);
    else
      SawnBand(run, stock);
    Joists(run, stock);
  } else if ((plan.PlanType & kHalfStory) <= kFieldFramedHalfStory) {
    FloorTrusses(run, stock);
  }
  SheathingAndNails(run, stock);
}

}  // namespace norvale
