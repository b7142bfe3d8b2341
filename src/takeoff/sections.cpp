#include "takeoff/sections.h"

#include "data/plan_type.h"

namespace norvale {

bool HasPart(const EstimateRecord& plan, HousePart part) {
  const bool slab = (plan.PlanType & kSlab) != 0;
  // The inside of a slab building is listed only where it is to be finished.
  const bool interior = !slab || plan.SlabInterior.Trimmed() == kFinishedInterior;
  switch (part) {
    case HousePart::FramedFloor:
      return !slab;
    case HousePart::SecondFloor:
      return plan.SecondFloorType == 2;
    case HousePart::Interior:
      return interior;
    case HousePart::CoveredFloor:
      // On a slab only the upper floor is covered, and a one-story slab has none.
      return interior && (!slab || plan.SecondFloorType != 1);
    case HousePart::Always:
      break;
  }
  return true;
}

void PrintSection(TakeoffRun& run, const Section& section) {
  if ((run.sectionMask & section.bit) != 0 && HasPart(run.plan, section.part)) {
    BeginSection(run, section.heading, section.column);
    section.rows(run);
  }
  EndSection(run, section.heading);
}

}  // namespace norvale
