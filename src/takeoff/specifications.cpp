// The specifications sheet: the plan's main facts ahead of the itemised list.
#include <array>

#include "base/numbers.h"
#include "data/plan_type.h"
#include "takeoff/sections.h"

namespace norvale {

namespace {

constexpr std::size_t kCaptionColumn = 17;
constexpr std::size_t kNumberColumn = 53;
constexpr std::size_t kNumberWidth = 10;
constexpr std::size_t kBehindTextColumn = 63;

void NumberRow(TakeoffRun& run, std::string_view caption, double value) {
  run.page.Tab(kCaptionColumn);
  run.page.Print(caption);
  run.page.Tab(kNumberColumn);
  run.page.PrintLine(RightAligned(PlainNumber(value), kNumberWidth));
  CountLine(run);
}

void TextRow(TakeoffRun& run, std::string_view caption, std::string_view value) {
  run.page.Tab(kCaptionColumn);
  run.page.Print(caption);
  run.page.Tab(kBehindTextColumn - value.size());
  run.page.PrintLine(value);
  CountLine(run);
}

}  // namespace

void PrintSpecifications(TakeoffRun& run) {
  const EstimateRecord& plan = run.plan;
  if ((run.sectionMask & kSpecifications) == 0) return;
  run.page.Tab(33);
  run.page.PrintLine("SPECIFICATIONS ");
  AdvanceLine(run);

  const bool slab = (plan.PlanType & kSlab) != 0;
  const bool crawlSpace = (plan.PlanType & kCrawlSpace) != 0;
  TextRow(run, "Floor area 1fl. heated:", slab ? "SLAB" : "CRAWL SPACE");
  if (crawlSpace && plan.FoundationType == 2) {
    TextRow(run, "Foundation wall:", "PIER & CURTAIN");
    TextRow(run, "Size of sill:", plan.SillSize.Trimmed());
  }
  if (crawlSpace && plan.GirderPly >= 2 && plan.GirderPly <= 5) {
    constexpr std::array<std::string_view, 4> kPlies = {"DOUBLE", "TRIPLE", "QUADRUPLE", "SGL BEAM"};
    TextRow(run, "Major girder:", kPlies[static_cast<std::size_t>(plan.GirderPly - 2)]);
  }
  // A double girder goes without its size.
  if (crawlSpace && plan.GirderPly > 2) TextRow(run, "Size of girder:", plan.GirderSize.Trimmed());
  if (!slab) TextRow(run, "Size of fl. jst.:", plan.FloorJoistSize.Trimmed());
  if (plan.SecondFloorType == 2 && plan.SecondFloorFramed == 1) TextRow(run, "Size of 2fl. jst.:", plan.SecondFloorJoistSize.Trimmed());
  NumberRow(run, "LFT. exterior walls:", plan.ExtWallLftFirstFloor + plan.ExtWallLftSecondFloor);
  NumberRow(run, "LFT. interior walls:", plan.IntWallLftFirstFloor + plan.IntWallLftSecondFloor);
  NumberRow(run, "SQ. FT. heated area:", plan.HeatedSqFtFirstFloor + plan.HeatedSqFtSecondFloor);
  if (plan.GarageOrStorageIndex == 1) {
    NumberRow(run, "LFT. walls garage/storage:", plan.GarageWallLftSheathed + plan.GarageWallLftUnsheathed);
    NumberRow(run, "SQ. FT. garage/storage:", plan.GarageSqFt);
  }
  if (plan.CarportOrPorchIndex == 1) {
    NumberRow(run, "LFT. beams carport/porch:", plan.CarportBeamLft);
    NumberRow(run, "SQ. FT. carport/porch:", plan.CarportSqFt);
  }
  NumberRow(run, "LFT. dr., wdw., headers:", plan.HeaderLft);
  NumberRow(run, "LFT. fascia:", plan.FasciaLft);
  NumberRow(run, "SQ. FT. roof area:", plan.RoofSqFt);
  NumberRow(run, "SQ. FT. gables:", plan.GableSqFt);
  if ((plan.WallFinishIndex & 2) != 0 || plan.WallFinishIndex == 3 || plan.WallFinishIndex == 5)
    NumberRow(run, "SQ. FT. ext. walls siding:", plan.ExtWallSidingFirstFloor + plan.ExtWallSidingSecondFloor + plan.GableSqFt);
  if ((plan.PlanType & kOneStorySlab) == 0) TextRow(run, "Floor sheathing:", plan.FloorSheathing.Trimmed());
  TextRow(run, "Wall sheathing:", plan.WallSheathing.Trimmed());
  TextRow(run, "Roof sheathing:", plan.RoofSheathing.Trimmed());
  TextRow(run, "Roofing:", plan.Roofing.Trimmed());
  TextRow(run, "Shoe-plates:", plan.ShoePlates.Trimmed());
  TextRow(run, "Pre cut studs:", plan.PreCutStuds.Trimmed());
  if (plan.SecondFloorType == 2) TextRow(run, "Pre cut studs-2 fl:", plan.PreCutStudsSecondFloor.Trimmed());

  AdvanceLine(run);
  run.page.Tab(16);
  run.page.PrintLine(" End of Specifications");
  AdvanceLine(run);
}

}  // namespace norvale
