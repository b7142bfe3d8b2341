// Interior trim: base mould, shelving, shoe mould, closet rod and closet cleats.
#include "base/numbers.h"
#include "takeoff/sections.h"

namespace norvale {

namespace {

// A house has a fixed length of 1X2 cleats, whatever its size. The row shows it as a text of at least two digits.
void NarrowCleats(TakeoffRun& run) {
  constexpr int kCleats = 93;
  const double base = run.plan.SecondFloorType == 2 ? 64 : 44;
  const double Feet = Int((100 + run.Percent(kCleats)) / 100 * base);
  std::string text(1, ' ');
  text.append(FormatNumber(Feet, {.wholeDigits = 2})).append(" Lft.");
  PrintTextLine(run, text, {.quantity = Feet, .unit = "Lft.", .description = "1X2 #2 SPRUCE", .label = "(Closet Cleats)", .item = kCleats});
  AdvanceLine(run);
}

}  // namespace

void InteriorTrimRows(TakeoffRun& run) {
  const EstimateRecord& plan = run.plan;
  // clang-format off
  Emit(run, {.quantity = Rnd(plan.ExtWallLftFirstFloor * 0.85 + plan.IntWallLftFirstFloor * 2 * 0.85), .unit = "Lft.", .description = plan.BaseMouldFirstFloor.Trimmed(), .label = "(1st floor)", .item = 88});
  if (plan.SecondFloorType == 2)
    Emit(run, {.quantity = Rnd(plan.KneeWallLft + plan.HalfStoryBaseMouldLft + plan.ExtWallLftSecondFloor * 0.85 + plan.IntWallLftSecondFloor * 2 * 0.85), .unit = "Lft.", .description = plan.BaseMouldSecondFloor.Trimmed(), .label = "(Base 2fl.)", .item = 89});
  Emit(run, {.quantity = Rnd(plan.HeatedSqFtFirstFloor / 16.6 + plan.HeatedSqFtSecondFloor / 16.6), .unit = "Lft.", .description = "1X12 #2 SPRUCE", .label = "(Shelving)", .item = 90});
  Emit(run, {.quantity = Rnd(plan.HeatedSqFtFirstFloor / 12.5 + plan.HeatedSqFtSecondFloor / 12.5), .unit = "Lft.", .description = "FIR SHOE MOULD", .label = "(Int. Trim)", .item = 91});
  Emit(run, {.quantity = Rnd(plan.HeatedSqFtFirstFloor / 41.6 + plan.HeatedSqFtSecondFloor / 41.6), .unit = "Lft.", .description = "1-3/8 FIR FULL ROUND", .label = "(Closet Rod)", .item = 92});
  Emit(run, {.quantity = Rnd(plan.HeatedSqFtFirstFloor / 50.0 + plan.HeatedSqFtSecondFloor / 50.0), .unit = "Lft.", .description = "1X6 #2 SPRUCE", .label = "(Closet Cleats)", .item = 93});
  // clang-format on
  NarrowCleats(run);
}

}  // namespace norvale
