// Flooring: felt, particleboard, underlayment and oak finish flooring.
#include "base/numbers.h"
#include "data/plan_type.h"
#include "takeoff/sections.h"

namespace norvale {

namespace {

// clang-format off

// Under a nailed subfloor. The same board has another label where the first floor is framed too.
void FeltAndParticleboard(TakeoffRun& run, int FloorLevels) {
  const EstimateRecord& plan = run.plan;
  if (FloorLevels == 1)
    Emit(run, {.quantity = Int(plan.HeatedSqFtSecondFloor / 400.0 + 0.9975), .unit = "ea.", .description = "#15 FELT ROLL", .label = "(Underlay-Floor)", .item = 82});
  else
    Emit(run, {.quantity = Int(plan.HeatedSqFtSecondFloor / 400.0 + plan.HeatedSqFtFirstFloor / 400.0 + 0.9975), .unit = "ea.", .description = "#15 FELT ROLL", .label = "(Underlay-Floor)", .item = 82});
  if (FloorLevels == 1)
    Emit(run, {.quantity = Rnd((plan.HeatedSqFtSecondFloor - plan.OakFlooringSqFt) * 0.025), .unit = "pcs.", .description = "5/8-4X8 PARTICLEBOARD", .label = "(Underlay-Floor)", .item = 83});
  else
    Emit(run, {.quantity = Rnd((plan.HeatedSqFtSecondFloor - plan.OakFlooringSqFt) * 0.025 + plan.HeatedSqFtFirstFloor * 0.025), .unit = "pcs.", .description = "5/8-4X8 PARTICLEBOARD", .label = "(Underlayment)", .item = 83});
}

void UnderlaymentAndOak(TakeoffRun& run, int FloorLevels) {
  const EstimateRecord& plan = run.plan;
  if (FloorLevels == 1)
    Emit(run, {.quantity = Rnd(plan.HeatedSqFtSecondFloor * 0.0075), .unit = "pcs.", .description = "4X8 UNDERLAYMENT", .label = "(Underlayment)", .item = 83});
  else
    Emit(run, {.quantity = Rnd(plan.HeatedSqFtSecondFloor * 0.0075 + plan.HeatedSqFtFirstFloor * 0.0075), .unit = "pcs.", .description = "4X8 UNDERLAYMENT", .label = "(Underlayment)", .item = 83});
  if (plan.OakFlooringIndex == 1)
    Emit(run, {.quantity = Rnd(plan.OakFlooringSqFt * 1.35), .unit = "bd ft", .description = "SELECT RED OAK FLG.", .label = "(Finish Flg.)", .item = 84});
}

// clang-format on

}  // namespace

void FlooringRows(TakeoffRun& run) {
  const EstimateRecord& plan = run.plan;
  const int FloorLevels = (plan.PlanType & kSlab) != 0 ? 1 : 2;
  if (plan.FloorSheathingIndex <= 2) FeltAndParticleboard(run, FloorLevels);
  UnderlaymentAndOak(run, FloorLevels);
}

}  // namespace norvale
