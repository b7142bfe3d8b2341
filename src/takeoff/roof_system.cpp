// Roof system: gable sheathing, ceiling joists, the framing of a stick-built roof, bracing, band, sheathing, clips, felt,
// cover and edge.
#include <array>

#include "base/numbers.h"
#include "base/text.h"
#include "data/plan_type.h"
#include "data/roof_section.h"
#include "takeoff/joists.h"
#include "takeoff/sections.h"

namespace norvale {

namespace {

constexpr std::size_t kGrades = kRafterSpecies.size();
constexpr std::size_t kSizes = kRafterSizes.size();
constexpr std::size_t kHipLengths = (kLongestHip - kShortestStock) / kStockStep + 1;
constexpr std::size_t kRafterLengths = (kLongestRafter - kShortestStock) / kStockStep + 1;

// What the sections of a stick-framed roof come to. The cells hold whole numbers.
struct RoofTables {
  std::array<double, kSizes> RidgeFeet{};
  std::array<std::array<std::array<double, kHipLengths>, kSizes>, kGrades> HipValleyCount{};
  std::array<std::array<std::array<double, kRafterLengths>, kSizes>, kGrades> RafterCount{};
  double BraceFeet = 0;
};

// The first stock length, 8 + 2k feet, that is strictly longer than the piece; none where the table ends before.
// `over` is the piece's length less 8 feet.
template <std::size_t Lengths>
double* CellFor(std::array<double, Lengths>& cells, double over) {
  for (double& cell : cells) {
    if (over < 0) return &cell;
    over -= kStockStep;
  }
  return nullptr;
}

void AddRafters(RoofTables& tables, const RoofPlane& plane, double run, double allowance) {
  const double X = RafterLength(plane, run) - kShortestStock + allowance;
  double* const cell = CellFor(tables.RafterCount[plane.FramingType][plane.RafterIndex], X);
  if (cell != nullptr) *cell = RoundEven(Rnd(LengthOf(plane) * 0.82) + *cell);
}

void AddRidgeAndBracing(RoofTables& tables, const RoofPlane& plane) {
  const double Len = LengthOf(plane);
  const double Run = RunOf(plane);
  double& ridge = tables.RidgeFeet[plane.RafterIndex];
  double Half = 0;
  switch (plane.SectionType) {
    case kGableSection:
      ridge = RoundEven(Len * 0.5 + ridge);
      Half = RoundEven(Len * 0.5);
      break;
    case kGableWithValley:
      ridge = RoundEven((Len + Run) * 0.5 + ridge);
      Half = RoundEven(Len * 0.5);
      break;
    case kHipSection:
      ridge = RoundEven(Len * 0.5 - Run + ridge);
      Half = RoundEven(Len * 0.5 - Run);
      break;
    default:  // a hip with valley
      ridge = RoundEven(Len * 0.5 + ridge);
      Half = RoundEven(Len * 0.5 - Run);
      break;
  }
  tables.BraceFeet = RoundEven((Run / 2) * (Half * 0.75) + tables.BraceFeet);
}

void AddHipsAndValleys(RoofTables& tables, const RoofPlane& plane) {
  double* const cell = CellFor(tables.HipValleyCount[plane.FramingType][plane.RafterIndex], HipLength(plane) - kShortestStock);
  if (cell != nullptr) *cell += HipsAndValleys(plane);
}

RoofTables SumUp(const EstimateRecord& plan) {
  RoofTables tables;
  for (const RoofPlane& plane : plan.RoofPlanes) {
    if (!IsInUse(plane) || !HasKnownStock(plane)) continue;
    const double Run = RunOf(plane);
    const double Load = LoadWallRunOf(plane);
    if (plane.SectionType != kShedSection) AddRidgeAndBracing(tables, plane);
    if (HasTwoPieceRafters(plane)) {
      AddRafters(tables, plane, Run - Load, kRafterLap);
      AddRafters(tables, plane, Load, kRafterLap);
    } else {
      AddRafters(tables, plane, Run, 0);
    }
    if (HipsAndValleys(plane) > 0) AddHipsAndValleys(tables, plane);
  }
  return tables;
}

struct Stock {
  explicit Stock(const EstimateRecord& plan)
      : grade(plan.FramingGrade.Trimmed()),
        plates(plan.ShoePlates.Trimmed()),
        wallSheathing(plan.WallSheathing.Trimmed()),
        roofSheathing(plan.RoofSheathing.Trimmed()),
        roofing(plan.Roofing.Trimmed()),
        fascia(plan.FasciaBoard.Trimmed()) {}

  std::string grade, plates, wallSheathing, roofSheathing, roofing, fascia;
};

// clang-format off

void GableSheathing(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  if (plan.GableSqFt <= 0) return;
  if ((plan.PlanType & kFixedWallFinish) == 0 && plan.WallFinishIndex < 4)
    Emit(run, {.quantity = Rnd(plan.GableSqFt * 1.1 / 32), .unit = "pcs.", .description = "4X8- 1/2 REG. INS. BD.", .label = "(Gable Sheathing)", .priceKey = "4X8- 1/2 REGULAR"});
  else
    Emit(run, {.quantity = Rnd(plan.GableSqFt * 1.1 / 32), .unit = "pcs.", .description = "4X8-" + stock.wallSheathing, .label = "(Gable Sheathing)", .item = 41});
}

// Gives back whether any row was printed: a roof without ceiling joists is one of trusses.
bool CeilingJoists(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  bool StickFramed = false;
  for (std::size_t r = 0; r < plan.CeilingJoistLft2X6.size(); ++r) {
    if (plan.CeilingJoistLft2X6[r] == 0) continue;
    StickFramed = true;
    Emit(run, {.quantity = Rnd(plan.CeilingJoistLft2X6[r] * 0.83), .unit = "pcs.", .description = "2X6-" + PrintedNumber(StockLength(r)) + stock.grade, .label = "(Ceiling Joist)", .item = 42});
  }
  for (std::size_t r = 0; r < plan.CeilingJoistLft2X8.size(); ++r) {
    if (plan.CeilingJoistLft2X8[r] == 0) continue;
    StickFramed = true;
    Emit(run, {.quantity = Rnd(plan.CeilingJoistLft2X8[r] * 0.83), .unit = "pcs.", .description = "2X8-" + PrintedNumber(StockLength(r)) + stock.grade, .label = "(Ceiling Joist)", .item = 42});
  }
  return StickFramed;
}

// Ridges, hips and valleys are one size above their rafters.
void StickFraming(TakeoffRun& run, const Stock& stock, const RoofTables& tables) {
  const auto number = [](std::size_t n) { return std::to_string(n); };
  for (std::size_t s = 0; s < kSizes; ++s)
    if (tables.RidgeFeet[s] > 0)
      Emit(run, {.quantity = Rnd(tables.RidgeFeet[s] / 16), .unit = "pcs.", .description = "2X" + number(8 + 2 * s) + "- 16 " + stock.grade, .label = "(Ridge)", .item = 43});
  for (std::size_t g = 0; g < kGrades; ++g)
    for (std::size_t s = 0; s < kSizes; ++s)
      for (std::size_t k = 0; k < kHipLengths; ++k)
        if (tables.HipValleyCount[g][s][k] > 0)
          Emit(run, {.quantity = tables.HipValleyCount[g][s][k], .unit = "pcs.", .description = "2X" + number(8 + 2 * s) + "- " + number(8 + 2 * k) + " " + ListRowText(run.lists, 0, static_cast<int>(g)), .label = "(Hip/Valley Rafter)", .item = 44});
  for (std::size_t g = 0; g < kGrades; ++g)
    for (std::size_t s = 0; s < kSizes; ++s)
      for (std::size_t k = 0; k < kRafterLengths; ++k)
        if (tables.RafterCount[g][s][k] > 0)
          Emit(run, {.quantity = tables.RafterCount[g][s][k], .unit = "pcs.", .description = "2X" + number(6 + 2 * s) + "- " + number(8 + 2 * k) + " " + ListRowText(run.lists, 0, static_cast<int>(g)), .label = "(Rafter)", .item = 45});
}

void RoofBracing(TakeoffRun& run, const Stock& stock, bool StickFramed, double BraceFeet) {
  const EstimateRecord& plan = run.plan;
  const double E = plan.EavesLft > 0 ? Rnd(plan.EavesLft * 1.5 / 16) : Rnd(plan.OverallLength * 2 * 1.5 / 16);
  if (!StickFramed)
    Emit(run, {.quantity = E, .unit = "pcs.", .description = "2X4- 16 SPF " + stock.plates, .label = "(Truss Bracing)", .item = 46});
  else
    Emit(run, {.quantity = Rnd(BraceFeet / 16) + E, .unit = "pcs.", .description = "2X4- 16 SPF " + stock.plates, .label = "(Roof Bracing)", .item = 47});
}

// These rows stand close: only the first one of a 1X8 fascia has its empty line, and one follows the whole block.
void BandAndBarges(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  if (Has(stock.fascia, "1X6"))
    PrintMaterialLine(run, {.quantity = Rnd(plan.FasciaLft * 2.25 / 16), .unit = "pcs.", .description = "2X4- 16 SPF " + stock.plates, .label = "(Band, Barges)", .item = 48});
  if (Has(stock.fascia, "1X8")) {
    Emit(run, {.quantity = Rnd(plan.FasciaLft * 1.25 / 16), .unit = "pcs.", .description = "2X4- 16 SPF " + stock.plates, .label = "(Band, Barges)", .item = 48});
    PrintMaterialLine(run, {.quantity = Rnd(plan.FasciaLft * 1.1 / 16), .unit = "pcs.", .description = "2X6- 16 " + stock.grade, .label = "(Band, Barges)", .item = 48});
  }
  if (Has(stock.fascia, "2X6") || Has(stock.fascia, "2X8"))
    PrintMaterialLine(run, {.quantity = Rnd(plan.FasciaLft * 1.25 / 16), .unit = "pcs.", .description = "2X4- 16 SPF " + stock.plates, .label = "(Blocking)", .item = 50});
  AdvanceLine(run);
}

// Clips are sold in boxes of 250. The row shows a text in the place of quantity and unit.
void SheathingClips(TakeoffRun& run) {
  double N = RoundEven(run.plan.RoofSqFt / 32.0 * 4 + 0.5);
  N = RoundEven(Adjusted(run, N, 52));
  double boxes = 1;
  std::string text = " 1 Box";
  if (N > 250 && N < 500) {
    boxes = 2;
    text = " 2 Boxes";
  } else if (N >= 500) {
    boxes = Int(N / 250 + 0.5);
    text = PlainNumber(boxes) + " Boxes";
  }
  PrintTextLine(run, text, {.quantity = boxes, .unit = boxes > 1 ? "Boxes" : "Box", .description = "PLYCLIPS", .label = "(Sheathing Clips)", .item = 52});
  AdvanceLine(run);
}

void SheathingAndCover(TakeoffRun& run, const Stock& stock) {
  const EstimateRecord& plan = run.plan;
  const int bundlesPerSquare = plan.RoofingIndex == 3 ? 4 : 3;
  Emit(run, {.quantity = Rnd(plan.RoofSqFt / 28.8), .unit = "pcs.", .description = stock.roofSheathing, .label = "(Roof Sheathing)", .item = 51, .priceKey = "4X8- " + stock.roofSheathing});
  SheathingClips(run);
  if (plan.RoofingIndex < 4)
    Emit(run, {.quantity = Int(plan.RoofSqFt / 400.0 + 0.9975), .unit = "ea.", .description = "#15 FELT ROLL", .label = "(Underlay-Roof)", .item = 53});
  else
    Emit(run, {.quantity = Int(plan.RoofSqFt / 200.0 + 0.9975), .unit = "ea.", .description = "#30 FELT ROLL", .label = "(Underlay-Roof)", .item = 53});
  if (plan.RoofingIndex <= 3)
    Emit(run, {.quantity = Rnd(plan.RoofSqFt / 90.0 * bundlesPerSquare), .unit = "bdls.", .description = stock.roofing + " ROOFING", .label = "(Shingles)", .item = 54, .priceKey = stock.roofing});
  else
    Emit(run, {.quantity = Rnd(plan.RoofSqFt / 90.0), .unit = "Sqr.", .description = stock.roofing, .label = "(Roof Cover)", .item = 54});
  if (plan.RoofingIndex < 4)
    Emit(run, {.quantity = Rnd(plan.FasciaLft / 8.5), .unit = "pcs.", .description = "10 ft. GALV.-STYLE T", .label = "(Roof Edge)", .item = 55});
}

// clang-format on

}  // namespace

void RoofRows(TakeoffRun& run) {
  const Stock stock(run.plan);
  GableSheathing(run, stock);
  const bool StickFramed = CeilingJoists(run, stock);
  double BraceFeet = 0;
  if (StickFramed) {
    const RoofTables tables = SumUp(run.plan);
    BraceFeet = tables.BraceFeet;
    StickFraming(run, stock, tables);
  }
  RoofBracing(run, stock, StickFramed, BraceFeet);
  BandAndBarges(run, stock);
  SheathingAndCover(run, stock);
}

}  // namespace norvale
