// The geometry of one section of a stick-framed roof: what the take-off counts, the roof calculator tells and the drawing
// shows. Lengths are in feet here, in inches in the record.
#pragma once

#include <array>
#include <string_view>

#include "data/estimate_record.h"

namespace norvale {

/// The types of a section, as they are stored.
enum RoofType { kGableSection = 1, kGableWithValley, kHipSection, kHipWithValley, kShedSection };
inline constexpr int kRoofTypes = kShedSection;

/// The sizes of rafters and the slopes, by the row that a section stores.
inline constexpr std::array<std::string_view, 4> kRafterSizes = {"2 x 6", "2 x 8", "2 x 10", "2 x 12"};
inline constexpr std::array<std::string_view, 10> kPitches = {"3 / 12", "4 / 12", "5 / 12",  "6 / 12",  "7 / 12",
                                                              "8 / 12", "9 / 12", "10 / 12", "11 / 12", "12 / 12"};

/// The first rows of the list of framing grades, in its order: a rafter's species is stored as a row of that list.
inline constexpr std::array<std::string_view, 4> kRafterSpecies = {"#2 SYP", "#2 SPF", "#2 HEM-FIR", "#2 DOUG FIR-LARCH"};

/// Stock comes from 8 feet in steps of 2; a piece as long as the longest or longer is not listed.
inline constexpr int kShortestStock = 8;
inline constexpr int kStockStep = 2;
inline constexpr int kLongestRafter = 60;
inline constexpr int kLongestHip = 68;

/// Each of two pieces that lap at a load-bearing wall is that much longer.
inline constexpr double kRafterLap = 1;

inline constexpr double kInchesPerFoot = 12;

/// Whether a row of the record holds a section.
constexpr bool IsInUse(const RoofPlane& plane) { return plane.SectionType >= kGableSection && plane.SectionType <= kShedSection; }

/// Whether size and species are rows that their lists have; others are not framed.
constexpr bool HasKnownStock(const RoofPlane& plane) {
  return plane.FramingType < kRafterSpecies.size() && plane.RafterIndex < kRafterSizes.size();
}

constexpr double LengthOf(const RoofPlane& plane) { return plane.SectionLength / kInchesPerFoot; }
constexpr double RunOf(const RoofPlane& plane) { return plane.RafterRun / kInchesPerFoot; }

/// From the peak to the load-bearing wall; 0 for rafters of one piece.
constexpr double LoadWallRunOf(const RoofPlane& plane) { return plane.LoadWallRun / kInchesPerFoot; }

/// A shed's rafters are of one piece, whatever wall is given.
constexpr bool HasTwoPieceRafters(const RoofPlane& plane) { return plane.LoadWallRun > 0 && plane.SectionType != kShedSection; }

/// Inches that the roof rises in a foot.
constexpr int RiseInFoot(const RoofPlane& plane) { return plane.PitchIndex + 3; }

/// The rafter over a level run of `run` feet.
double RafterLength(const RoofPlane& plane, double run);

/// How many hip and valley rafters the section has, and the length of each.
constexpr int HipsAndValleys(const RoofPlane& plane) {
  if (plane.SectionType == kGableWithValley) return 1;
  return plane.SectionType == kHipSection || plane.SectionType == kHipWithValley ? 2 : 0;
}
double HipLength(const RoofPlane& plane);

/// The surface of the section in square feet, unrounded; it takes 0.75 percent on the slope's square.
double SectionArea(const RoofPlane& plane);

}  // namespace norvale
