// Sheetrock: the wallboard of both floors and of the garage, all of one stock.
#include "base/numbers.h"
#include "takeoff/sections.h"

namespace norvale {

namespace {

// Feet, by the row of the first floor's studs.
int WallHeightOf(int studRow) {
  switch (studRow) {
    case 1:
    case 2:
    case 7:
    case 8:
      return 8;
    case 3:
    case 4:
    case 9:
    case 10:
      return 9;
    case 5:
    case 6:
    case 11:
    case 12:
      return 10;
    default:
      return 0;
  }
}

}  // namespace

void SheetrockRows(TakeoffRun& run) {
  const EstimateRecord& plan = run.plan;
  const int WallHeight = WallHeightOf(plan.PreCutStudsIndex);
  // Interior walls have two faces; the ceiling is the heated area.
  const double BoardArea = plan.HeatedSqFtFirstFloor + plan.IntWallLftFirstFloor * 2 * WallHeight + plan.ExtWallLftFirstFloor * WallHeight;
  const int upperStuds = plan.PreCutStudsSecondFloorIndex;
  const bool shortUpperStuds = upperStuds == 1 || upperStuds == 2 || upperStuds == 5 || upperStuds == 6;
  const bool longUpperStuds = upperStuds == 3 || upperStuds == 4 || upperStuds == 7 || upperStuds == 8;
  // clang-format off
  Emit(run, {.quantity = Int(BoardArea * 1.05 / 48), .unit = "pcs.", .description = "1/2-4X12 SHEETROCK", .label = "(Wallboard)", .item = 85});
  if (plan.SecondFloorType == 2 && shortUpperStuds)
    Emit(run, {.quantity = Rnd(plan.HeatedSqFtSecondFloor * 3.75 / 48), .unit = "pcs.", .description = "1/2-4X12 SHEETROCK", .label = "(Wallboard-2fl.)", .item = 86});
  if (plan.SecondFloorType == 2 && longUpperStuds)
    Emit(run, {.quantity = Rnd(plan.HeatedSqFtSecondFloor * 4.1 / 48), .unit = "pcs.", .description = "1/2-4X12 SHEETROCK", .label = "(Wallboard-2fl.)", .item = 86});
  if (plan.GarageOrStorageIndex != 2)
    Emit(run, {.quantity = Rnd(plan.GarageSqFt * 2.75 / 48), .unit = "pcs.", .description = "1/2-4X12 SHEETROCK", .label = "(Wallboard-Garage)", .item = 87});
  // clang-format on
}

}  // namespace norvale
