// The sections of the itemised list, one rule table each, in the order in which they print.
#pragma once

#include "takeoff/takeoff_run.h"

namespace norvale {

/// The sheet of the plan's main facts ahead of the list. Nothing on it is priced or adjusted.
void PrintSpecifications(TakeoffRun& run);

/// Each of these prints its section where the mask asks for it, and closes it with its subtotal.
void PrintFirstFloorFloorSystem(TakeoffRun& run);
void PrintFirstFloorWallSystem(TakeoffRun& run);
void PrintSecondFloorFloorSystem(TakeoffRun& run);
void PrintSecondFloorWallSystem(TakeoffRun& run);
void PrintRoofSystem(TakeoffRun& run);
void PrintExteriorTrim(TakeoffRun& run);
void PrintFlooring(TakeoffRun& run);
void PrintSheetrock(TakeoffRun& run);
void PrintInteriorTrim(TakeoffRun& run);

}  // namespace norvale
