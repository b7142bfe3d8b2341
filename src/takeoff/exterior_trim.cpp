// Exterior trim: blocking, fascia, frieze, window trim, channels, soffit, porch items, and the siding of whichever wall
// finish the plan has.
#include "base/numbers.h"
#include "base/text.h"
#include "takeoff/sections.h"

namespace norvale {

namespace {

// Wall finishes. Any other one brings no siding of its own.
constexpr int kBrick = 1;
constexpr int kPanelSiding = 2;
constexpr int kLapSiding = 3;
constexpr int kVinylSiding = 5;

struct Stock {
  explicit Stock(const EstimateRecord& plan)
      : grade(plan.FramingGrade.Trimmed()),
        plates(plan.ShoePlates.Trimmed()),
        trim(plan.ExteriorTrim.Trimmed()),
        fascia(plan.FasciaBoard.Trimmed()),
        soffit(plan.SoffitMaterial.Trimmed()),
        mould(plan.FriezeMould.Trimmed()),
        frieze(plan.FriezeBoard.Trimmed()),
        siding(plan.Siding.Trimmed()),
        panel(plan.PanelSiding.Trimmed()),
        corner(plan.CornerBoards.Trimmed()),
        IsVinyl(Has(UpperCase(trim), "VINYL")),
        IsCoil(Has(UpperCase(trim), "COIL")),
        Wrapped(IsVinyl || IsCoil) {}

  std::string grade, plates, trim, fascia, soffit, mould, frieze, siding, panel, corner;
  bool IsVinyl, IsCoil, Wrapped;
};

double SidingArea(const EstimateRecord& plan) { return plan.ExtWallSidingFirstFloor + plan.ExtWallSidingSecondFloor + plan.GableSqFt; }

// What is left of an area of squares of 100 square feet when its whole squares are taken out.
double FractionOfSquare(double area) { return area / 100 - IntegerQuotient(area, 100); }

// The corner stock with a width behind its thickness: "5/4 PRIMED PINE" becomes "5/4X4 PRIMED PINE".
std::string CornerBoard(const std::string& stock, std::string_view width) {
  const std::size_t thickness = std::min<std::size_t>(3, stock.size());
  return stock.substr(0, thickness) + std::string(width) + stock.substr(thickness);
}

// clang-format off

void BlockingAndFascia(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  Emit(run, {.quantity = Int(plan.FasciaLft * 1.5 / 16), .unit = "pcs.", .description = "2X4- 16 SPF " + stock.plates, .label = "(Blocking)", .item = 56});
  if (stock.IsVinyl)
    Emit(run, {.quantity = Int(Rnd(plan.FasciaLft * 1.1) / 12.5) + 1, .unit = "pcs.", .description = stock.trim, .label = "(Fascia)", .item = 57});
  if (stock.IsCoil && !stock.IsVinyl) {
    double C = Int(Rnd((plan.FasciaLft + plan.CarportBeamLft) * 1.15) / 100) + 1;
    if (plan.WallFinishIndex == kBrick) C += Int(plan.EavesLft / 150.0) + 1;
    Emit(run, {.quantity = C, .unit = "rls.", .description = stock.trim, .label = "(Fascia)", .item = 57});
  }
  if (stock.Wrapped) {
    PrintMaterialLine(run, {.quantity = Rnd(plan.FasciaLft * 1.15), .unit = "Lft.", .description = stock.fascia + " " + stock.grade, .label = "(Fascia)", .item = 57});
    // A board sold together with its vinyl wrap has a price of its own, charged on top where the list holds it.
    if (stock.IsVinyl) PriceAgain(run, stock.fascia + " " + stock.trim);
    AdvanceLine(run);
  } else {
    Emit(run, {.quantity = Rnd(plan.FasciaLft * 1.15), .unit = "Lft.", .description = stock.fascia + " " + stock.trim, .label = "(Fascia)", .item = 57});
  }
}

void BrickTrim(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  if (plan.EavesLft > 0 && !stock.Wrapped)
    Emit(run, {.quantity = Rnd(plan.EavesLft * 1.1), .unit = "Lft.", .description = stock.frieze + " " + stock.trim, .label = "(Freize Board)", .item = 58});
  if (plan.EavesLft > 0 && stock.Wrapped)
    Emit(run, {.quantity = Rnd(plan.EavesLft * 1.1), .unit = "Lft.", .description = stock.frieze + " " + stock.grade, .label = "(Freize Board)", .item = 58, .priceKey = stock.frieze + " #2 SYP"});
  if (plan.EavesLft <= 0 && !stock.Wrapped)
    Emit(run, {.quantity = Rnd(plan.OverallLength * 2 * 1.1), .unit = "Lft.", .description = stock.frieze + " " + stock.trim, .label = "(Freize Board)", .item = 58});
  if (plan.EavesLft <= 0 && stock.Wrapped) {
    const double Q = Emit(run, {.quantity = Rnd(plan.OverallLength * 2 * 1.1), .unit = "Lft.", .description = stock.frieze + " #2 SYP", .label = "(Freize Board)", .item = 58});
    const int R = Has(UpperCase(stock.frieze), "10") ? 100 : 150;
    Emit(run, {.quantity = IntegerQuotient(Q, R) + 1, .unit = "rls.", .description = "PVC TRIM COIL", .label = "(Trim Coil)", .item = 59});
  }
  Emit(run, {.quantity = Rnd(plan.HeaderLft * 1.1), .unit = "Lft.", .description = "1X5 " + (stock.Wrapped ? stock.grade : stock.trim), .label = "(Trim Bd., Wdw.)", .item = 60});
  Emit(run, {.quantity = Int(Int((plan.ExtWallLftFirstFloor + plan.ExtWallLftSecondFloor + plan.GarageWallLftSheathed) * 0.75 * 5) / 500) + 1, .unit = "boxes", .description = "22 ga. WALL TIES", .label = "(Brick Ties)", .item = 61});
}

void ChannelsOrMould(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  if (Has(UpperCase(stock.mould), "VINYL")) {
    if (plan.WallFinishIndex != kBrick)
      Emit(run, {.quantity = Int(plan.EavesLft * 1.1 / 12.5) + 1, .unit = "pcs.", .description = "1/2\" x 12'6\" VINYL J-CHANNEL", .label = "(Eave Channel)", .item = 62});
    Emit(run, {.quantity = Int((plan.FasciaLft - plan.EavesLft) * 1.1 / 12.5) + 1, .unit = "pcs.", .description = "3/4\" x 12'6\" VINYL J-CHANNEL", .label = "(Rake Channel)", .item = 63});
  } else {
    Emit(run, {.quantity = Rnd(plan.CarportBeamLft * 1.35 + plan.FasciaLft * 1.15), .unit = "Lft.", .description = stock.mould, .label = "(Freize Mould)", .item = 64});
  }
}

void Soffit(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  double SoffitPieceWidth = 32;
  double SoffitWidthRatio = 1.0;
  if (plan.RoofOverhangIndex == 2) {
    SoffitPieceWidth = 24;
    SoffitWidthRatio = 0.75;
  }
  if (plan.RoofOverhangIndex == 3) {
    SoffitPieceWidth = 16;
    SoffitWidthRatio = 0.5;
  }
  if (stock.Wrapped) {
    Emit(run, {.quantity = Int((plan.FasciaLft / SoffitWidthRatio + plan.CarportSqFt) / 12) + 1, .unit = "pcs.", .description = stock.soffit + " SOFFIT PANEL", .label = "(Soffit, Clg.'s)", .item = 65});
    if (plan.CarportSqFt != plan.CarportSqFtUnmulled)
      Emit(run, {.quantity = 2, .unit = "pcs.", .description = "12'6 VINYL T-CHANNEL", .label = "(Mull)"});
    // A ceiling as square as its area allows, with strips across it.
    const double side = Int(Sqr(plan.CarportSqFt)) + 1;
    if (side * (side * 0.75) > 2)
      Emit(run, {.quantity = side * Int(side * 0.75), .unit = "lft.", .description = "1X4 " + stock.grade, .label = "(Furring Strips)", .item = 66});
  } else {
    Emit(run, {.quantity = Rnd(plan.CarportSqFt / 28.8 + plan.FasciaLft / SoffitPieceWidth), .unit = "pcs.", .description = stock.soffit, .label = "(Soffit, Clg.'s)", .item = 65});
  }
}

void PorchAndVents(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  if (plan.CarportOrPorchIndex == 1) {
    Emit(run, {.quantity = Rnd(plan.CarportSqFt / 3.0), .unit = "Lft.", .description = "1-1/2 FIR LATTICE", .label = "(Porch/Carport)"});
    Emit(run, {.quantity = Rnd(plan.CarportBeamLft * 1.1), .unit = "Lft.", .description = "1X6 " + stock.trim, .label = "(Box Beam)", .item = 67});
  }
  if (plan.EavesLft > 0)
    Emit(run, {.quantity = Int(plan.EavesLft * 1.1 / 8 + 0.9), .unit = "pcs.", .description = "8 FT. MF EAVE VENT", .label = "(Soffit Vent)", .item = 68});
  else
    Emit(run, {.quantity = Int(plan.OverallLength * 2 * 1.1 / 8 + 0.9), .unit = "pcs.", .description = "8 FT. MF EAVE VENT", .label = "(Soffit Vent)", .item = 68});
}

void PanelSiding(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  // Gables under 9-foot panels still go by the 8-foot one, and the second floor always takes 9-foot panels.
  if (plan.PanelHeightIndex == 1)
    Emit(run, {.quantity = Rnd(plan.ExtWallSidingFirstFloor / 32.0 + plan.GableSqFt / 32.0), .unit = "pcs.", .description = "4X8 " + stock.panel, .label = "(Ext. Sdg.-1 Fl.)", .item = 69});
  if (plan.PanelHeightIndex == 2)
    Emit(run, {.quantity = Rnd(plan.ExtWallSidingFirstFloor / 36.0 + plan.GableSqFt / 32.0), .unit = "pcs.", .description = "4X9 " + stock.panel, .label = "(Ext. Sdg.-1 Fl.)", .item = 69});
  if (plan.PanelHeightIndex == 3)
    Emit(run, {.quantity = Rnd(plan.ExtWallSidingFirstFloor / 40.0 + plan.GableSqFt / 40.0), .unit = "pcs.", .description = "4X10 " + stock.panel, .label = "(Ext. Sdg.-1 Fl.)", .item = 69});
  if (plan.SecondFloorType == 2)
    Emit(run, {.quantity = Rnd(plan.ExtWallSidingSecondFloor / 36.0), .unit = "pcs.", .description = "4X9 " + stock.panel, .label = "(Ext. Sdg.-2 Fl.)", .item = 70});
}

void LapSiding(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  const double S = SidingArea(plan);
  if (plan.SidingIndex < 4)
    Emit(run, {.quantity = Int(S * 1.3 * 1.5), .unit = "Lft.", .description = stock.siding, .label = "(Exterior Sdg.)", .item = 71});
  else if (plan.SidingIndex <= 6)
    Emit(run, {.quantity = Int(S * 1.25 / 10.67), .unit = "pcs.", .description = stock.siding, .label = "(Exterior Sdg.)", .item = 71});
  else if (plan.SidingIndex <= 8)
    Emit(run, {.quantity = Int(S * 1.15 / 16), .unit = "pcs.", .description = stock.siding, .label = "(Exterior Sdg.)", .item = 71});
  else
    Emit(run, {.quantity = Int(S * 1.3 / 8.25), .unit = "pcs.", .description = stock.siding, .label = "(Exterior Sdg.)", .item = 71});
}

void CornersAndFlashing(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  const double cornerLft = (plan.OutsideCornersFirstFloor + plan.OutsideCornersSecondFloor) * 10.0;
  Emit(run, {.quantity = cornerLft, .unit = "Lft.", .description = CornerBoard(stock.corner, "X4"), .label = "(Corner Boards)", .item = 72});
  Emit(run, {.quantity = cornerLft, .unit = "Lft.", .description = CornerBoard(stock.corner, "X5"), .label = "(Corner Boards)", .item = 72});
  Emit(run, {.quantity = Rnd(plan.HeaderLft / 10.0), .unit = "pcs.", .description = "10 FT. ALUM. DRIP CAP", .label = "(Flashing)", .item = 73});
  if (plan.WallFinishIndex == kPanelSiding) {
    const double F = RoundEven(plan.ExtWallLftFirstFloor + plan.ExtWallLftSecondFloor - plan.HeatedLength * 2 + 0.5);
    Emit(run, {.quantity = Rnd(F * 1.1 / 10), .unit = "pcs.", .description = "1-1/4\" X 10 FT. Z FLASHING", .label = "(Z Flashing)", .item = 74});
  }
}

// The whole squares come from the plain area; the allowance only decides whether one more is begun.
void BrickGableSiding(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  const double Y = plan.GableSqFt * 1.1;
  const int Extra = FractionOfSquare(Y) > 0.1 ? 1 : 0;
  Emit(run, {.quantity = Int(plan.GableSqFt / 100.0) + Extra, .unit = "Sqr.", .description = stock.siding, .label = "Gable Siding", .item = 75, .secondLabel = "(Gable Siding)"});
}

void VinylSiding(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  const double S = SidingArea(plan);
  const int Extra = FractionOfSquare(S) > 0 ? 1 : 0;
  Emit(run, {.quantity = Int((plan.ExtWallLftFirstFloor + 2 * (plan.OverallLength - plan.HeatedLength)) * 1.1 / 10), .unit = "pcs.", .description = "10' VINYL STARTER STRIP", .label = "(Vinyl Starter)", .item = 76});
  Emit(run, {.quantity = Int(plan.OverallLength * 1.1 / 12.5), .unit = "pcs.", .description = "12'6\" VINYL UNDERSILL TRIM", .label = "(Trim)", .item = 77});
  Emit(run, {.quantity = Int(plan.OverallLength / 12.5) + Int(plan.OverallLength / 3.0), .unit = "pcs.", .description = "3/4\" x 12'6\" VINYL J-CHANNEL", .label = "(Wd/Dr Channel)", .item = 78});
  Emit(run, {.quantity = Int(S / 100) + Extra, .unit = "Sqr.", .description = stock.siding, .label = "(Exterior Siding)", .item = 79, .secondLabel = "(Exterior Siding)"});
  Emit(run, {.quantity = static_cast<double>(plan.OutsideCornersFirstFloor + plan.OutsideCornersSecondFloor), .unit = "pcs.", .description = "OS " + stock.corner, .label = "(OS Corners)", .item = 80});
  const int insideCorners = (plan.OutsideCornersFirstFloor - 4) + (plan.OutsideCornersSecondFloor - 4);
  if (insideCorners > 0)
    Emit(run, {.quantity = static_cast<double>(insideCorners), .unit = "pcs.", .description = "IS " + stock.corner, .label = "(IS Corners)", .item = 81});
}

// clang-format on

}  // namespace

void ExteriorTrimRows(TakeoffRun& run) {
  const Stock stock(run.plan);
  const int finish = run.plan.WallFinishIndex;
  BlockingAndFascia(run, stock);
  if (finish == kBrick) BrickTrim(run, stock);
  ChannelsOrMould(run, stock);
  Soffit(run, stock);
  if (!stock.Wrapped) PorchAndVents(run, stock);
  if (finish == kPanelSiding) PanelSiding(run, stock);
  if (finish == kLapSiding) LapSiding(run, stock);
  if (finish == kPanelSiding || finish == kLapSiding) CornersAndFlashing(run, stock);
  if (finish == kBrick && stock.Wrapped) BrickGableSiding(run, stock);
  if (finish == kVinylSiding) VinylSiding(run, stock);
}

}  // namespace norvale
