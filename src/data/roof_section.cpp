#include "data/roof_section.h"

#include "base/numbers.h"

namespace norvale {

double RafterLength(const RoofPlane& plane, double run) {
  const double Rise = run * RiseInFoot(plane) / 12;
  return Sqr(run * run + Rise * Rise);
}

double HipLength(const RoofPlane& plane) {
  const double Run = RunOf(plane);
  const double Rise = Run * RiseInFoot(plane) / 12;
  const double Plan = Sqr(Run * Run + Run * Run);
  return Sqr(Plan * Plan + Rise * Rise);
}

double SectionArea(const RoofPlane& plane) {
  const double run = RunOf(plane);
  const double rise = (RiseInFoot(plane) / 12.0) * run;
  const double sum = rise * rise + run * run;
  const double slope = Sqr(sum * 1.0075);
  return LengthOf(plane) * slope;
}

}  // namespace norvale
