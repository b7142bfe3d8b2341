// First floor, floor system: sills, girders, band, joists, sheathing, adhesive and nails of a framed first floor.
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
        sillPlate(plan.SillPlate.Trimmed()),
        sill(plan.SillSize.Trimmed()),
        girder(plan.GirderSize.Trimmed()),
        dropGirder(plan.DropGirderSize.Trimmed()),
        joist(CompleteJoistText(plan.FloorJoistSize.Trimmed())),
        sheathing(plan.FloorSheathing.Trimmed()) {}

  std::string grade, sillPlate, sill, girder, dropGirder, joist, sheathing;
};

// The width of the sealer goes by the plate. A plate of no known width repeats the key of the row before, which a run
// without prices does not have.
std::string SillSealer(const TakeoffRun& run, std::string_view sillPlate) {
  const auto sealer = [](std::string_view width) { return std::string(width) + "\" X 50' SILL SEALER"; };
  if (Has(sillPlate, "4")) return sealer("4");
  if (Has(sillPlate, "6")) return sealer("6");
  if (Has(sillPlate, "8") || Has(sillPlate, "10")) return sealer("8");
  return run.PrintPrices() ? run.PriceKey : std::string();
}

// clang-format off

void MudSill(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  Emit(run, {.quantity = Rnd(plan.ExtWallLftFirstFloor * 1.1 / 14), .unit = "pcs.", .description = stock.sillPlate + "- 14 #2C SYP TREATED", .label = "(Mud Sill)", .item = 1});
  Emit(run, {.quantity = Rnd(plan.ExtWallLftFirstFloor * 1.1 / 50), .unit = "rolls", .description = SillSealer(run, stock.sillPlate), .label = "(Sill Sealer)", .item = 94});
}

void FoundationWall(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  MudSill(run, stock);
  if (!IsIJoist(stock.joist))
    Emit(run, {.quantity = Rnd(plan.ExtWallLftFirstFloor * 1.1 / 14), .unit = "pcs.", .description = stock.joist + "- 14 " + stock.grade, .label = "(Box Sill)", .item = 2});
}

void PierAndCurtain(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  if (!Has(stock.sillPlate, "NONE")) MudSill(run, stock);
  for (std::size_t i = 0; i < plan.SillLft.size(); ++i) {
    if (plan.SillLft[i] <= 0) continue;
    const int Len = StockLength(i);
    // The key has one blank behind the length, the text has two.
    Emit(run, {.quantity = Rnd(IntegerQuotient(plan.SillLft[i] * 1.1 * plan.SillPly, Len)), .unit = "pcs.", .description = stock.sill + "-" + PrintedNumber(Len) + " " + stock.grade, .label = "(Sill)", .item = 3, .priceKey = stock.sill + KeyLength(Len) + " " + stock.grade});
  }
  // The price list holds the ledgers by the foot, so their key begins with the unit.
  Emit(run, {.quantity = Rnd(plan.HeatedLength * 1.1 * 2), .unit = "Lft.", .description = "2X2 " + stock.grade, .label = "(Ledger-Sills)", .item = 4, .priceKey = "Lft. 2X2 " + stock.grade});
}

void Girders(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  const int Ply = plan.GirderPly == 5 ? 1 : plan.GirderPly;
  double GirderLft = 0;
  for (std::size_t i = 0; i < plan.MajorGirderLft.size(); ++i) {
    if (plan.MajorGirderLft[i] <= 0) continue;
    const int Len = StockLength(i);
    GirderLft += plan.MajorGirderLft[i];
    GirderLft += plan.WiderGirderLft[i];
    Emit(run, {.quantity = Rnd(plan.MajorGirderLft[i] * 1.1 * Ply / Len + plan.WiderGirderLft[i] * 1.1 * (Ply + 1) / Len), .unit = "pcs.", .description = stock.girder + "-" + PrintedNumber(Len) + stock.grade, .label = "(Girders)", .item = 5, .priceKey = stock.girder + KeyLength(Len) + " " + stock.grade});
  }
  if (GirderLft != 0)
    Emit(run, {.quantity = Int(GirderLft * 2 * 1.1), .unit = "Lft.", .description = "2X2 " + stock.grade, .label = "(Ledger-Girders)", .item = 6, .priceKey = "Lft. 2X2 " + stock.grade});
}

void DropGirders(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  const int DropPly = plan.DropGirderPly == 4 ? 1 : plan.DropGirderPly;
  const bool laminated = Has(stock.dropGirder, "LVL");
  double DropLft = 0;
  for (std::size_t i = 0; i < plan.DropGirderLft.size(); ++i) {
    if (plan.DropGirderLft[i] == 0) continue;
    const int Len = StockLength(i);
    if (laminated)
      DropLft += static_cast<double>(plan.DropGirderLft[i]) * DropPly;
    else
      Emit(run, {.quantity = Rnd(plan.DropGirderLft[i] * 1.1 * DropPly / Len), .unit = "pcs.", .description = stock.dropGirder + "-" + PrintedNumber(Len) + stock.grade, .label = "(Drop Girders)", .item = 7, .priceKey = stock.dropGirder + KeyLength(Len) + " " + stock.grade});
  }
  // Laminated stock is sold by the foot and takes no allowance.
  if (laminated)
    Emit(run, {.quantity = DropLft, .unit = "lft.", .description = stock.dropGirder, .label = "(Drop Girders)", .item = 7});
}

void IJoistBand(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  Emit(run, {.quantity = Int(plan.ExtWallLftFirstFloor / 24.0 + 0.5) + 1, .unit = "pcs.", .description = RimBoard(stock.joist), .label = "(Band)", .item = 8});
  Emit(run, {.quantity = Int(plan.OutsideCornersFirstFloor * 4) + Int(Rnd(plan.HeatedLength * 2 / 25.0) * 4), .unit = "lft.", .description = UpToAndWith(stock.joist, "PRI-400"), .label = "(Blocking)", .item = 9, .priceKey = IJoistKey(run, stock.joist)});
}

void Joists(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  for (std::size_t i = 0; i < plan.BayAreaLftFirstFloor.size(); ++i) {
    if (plan.BayAreaLftFirstFloor[i] == 0) continue;
    const int length = plan.JoistLengthFirstFloor[i];
    if (!IsIJoist(stock.joist)) {
      Emit(run, {.quantity = Rnd(plan.BayAreaLftFirstFloor[i] * 0.9), .unit = "pcs.", .description = stock.joist + "-" + PrintedNumber(length) + stock.grade, .label = "(Flr. Joist)", .item = 10, .priceKey = stock.joist + KeyLength(length) + " " + stock.grade});
    } else {
      const double Pieces = Int(plan.BayAreaLftFirstFloor[i] * JoistsPerFoot(stock.joist) + 0.5) + 1;
      Emit(run, {.quantity = Pieces * length, .unit = "lft.", .description = stock.joist + " (" + Digits(Pieces) + " pcs.)", .label = "(Flr. I Joist)", .item = 11, .priceKey = IJoistKey(run, stock.joist)});
    }
  }
}

void Sheathing(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  Emit(run, {.quantity = Rnd(plan.HeatedSqFtFirstFloor * 1.1 / 32), .unit = "pcs.", .description = stock.sheathing, .label = "(Floor Sheathing)", .item = 12});
  if (plan.FloorSheathingIndex > 2)
    Emit(run, {.quantity = Rnd(plan.HeatedSqFtFirstFloor / 29.0 / 5), .unit = "tubes", .description = "29 OZ. CONSTRUCTION ADHESIVE", .label = "(Flr. Adhesive)", .item = 13});
}

void Nails(TakeoffRun& run) {
  const EstimateRecord& plan = run.plan;
  const double Lbs16 = Rnd(plan.HeatedSqFtFirstFloor / 100.0) * 12 + Rnd(plan.GarageSqFt / 100.0) * 5 + Rnd(plan.CarportSqFt / 100.0) * 3;
  const double Lbs8 = Rnd(plan.HeatedSqFtFirstFloor / 100.0) * 5 + Rnd(plan.GarageSqFt / 100.0) * 3 + Rnd(plan.CarportSqFt / 100.0) * 2;
  EmitNails(run, {.pounds = Lbs16, .countPerPound = 49, .description = "16d COMMON NAILS", .label = "(1st Flr. Nails)", .item = 14});
  EmitNails(run, {.pounds = Lbs8, .countPerPound = 106, .description = "8d COMMON NAILS", .label = "(1st Flr. Nails)", .item = 14});
}

// clang-format on

}  // namespace

void FirstFloorFloorRows(TakeoffRun& run) {
  const EstimateRecord& plan = run.plan;
  const Stock stock(plan);
  const bool crawlSpace = (plan.PlanType & kCrawlSpace) != 0;
  if (crawlSpace && plan.FoundationType == 1) FoundationWall(run, stock);
  if (crawlSpace && plan.FoundationType == 2) PierAndCurtain(run, stock);
  if (plan.GirderPly > 1) Girders(run, stock);
  if (plan.DropGirderPly != 1) DropGirders(run, stock);
  if (IsIJoist(stock.joist)) IJoistBand(run, stock);
  Joists(run, stock);
  Sheathing(run, stock);
  Nails(run);
}

}  // namespace norvale
