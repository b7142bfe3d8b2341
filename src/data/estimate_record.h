// One plan, as it lies in `estimate.dbr`: everything that the take-off needs.
#pragma once

#include "data/fields.h"

namespace norvale {

inline constexpr std::size_t EstimateRecordSize = 1462;
inline constexpr std::size_t kRoofPlanes = 64;

/// A five-row table. The rows of the length tables stand for stock of 8, 10, 12, 14 and 16 feet.
using FiveRows = std::array<std::int16_t, 5>;

/// One section of a stick-framed roof, as the roof calculator stores it. Lengths are in inches.
struct RoofPlane {
  std::uint8_t SectionType{};  // 1 gable, 2 gable with valley, 3 hip, 4 hip with valley, 5 shed; others: unused
  std::uint8_t FramingType{};  // species: position in the framing list, from 0
  std::uint8_t PitchIndex{};   // rise in inches per foot, less 3
  std::uint8_t RafterIndex{};  // 0 2X6, 1 2X8, 2 2X10, 3 2X12
  std::int16_t SectionLength{};
  std::int16_t RafterRun{};
  std::int16_t LoadWallRun{};  // peak to load-bearing wall; above 0: two-piece rafters

  bool operator==(const RoofPlane&) const = default;
};

template <>
struct RecordFields<RoofPlane> {
  static constexpr auto table = std::tuple{
      Field{"SectionType", 0, &RoofPlane::SectionType},     Field{"FramingType", 1, &RoofPlane::FramingType},
      Field{"PitchIndex", 2, &RoofPlane::PitchIndex},       Field{"RafterIndex", 3, &RoofPlane::RafterIndex},
      Field{"SectionLength", 4, &RoofPlane::SectionLength}, Field{"RafterRun", 6, &RoofPlane::RafterRun},
      Field{"LoadWallRun", 8, &RoofPlane::LoadWallRun},
  };
};

template <>
struct FieldWidth<RoofPlane> {
  static constexpr std::size_t value = 10;
};

static_assert(FieldsTile(RecordFields<RoofPlane>::table, FieldWidth<RoofPlane>::value), "no gap, no overlap, the whole row");

/// The record of one plan. A `...Index` is a list position plus 1, 0 where nothing is chosen; a text is the stock chosen.
struct EstimateRecord {
  std::int16_t CustomerNumber{};  // 0: the company
  FixedText<15> PlanNumber{};     // with CustomerNumber the key of the index
  FixedText<10> PlanDate{};       // as typed
  std::int16_t PlanType{};        // sum of the bits of plan_type.h
  std::int16_t Combo00Index{};
  FixedText<20> Combo00Text{};  // framing species and grade, behind every framing stock
  std::int16_t FloorSheathingIndex{};
  FixedText<20> FloorSheathing{};
  std::int16_t ShoePlatesIndex{};
  FixedText<20> ShoePlates{};
  std::int16_t PreCutStudsIndex{};
  FixedText<20> PreCutStuds{};
  std::int16_t WallSheathingIndex{};
  FixedText<20> WallSheathing{};
  std::int16_t Combo05Index{};
  FixedText<20> Combo05Text{};  // corner bracing
  std::int16_t RoofSheathingIndex{};
  FixedText<20> RoofSheathing{};
  std::int16_t RoofingIndex{};
  FixedText<20> Roofing{};
  std::int16_t Combo08Index{};
  FixedText<20> Combo08Text{};  // exterior trim grade, or the wrap itself ("COIL", "VINYL")
  std::int16_t Combo09Index{};
  FixedText<20> Combo09Text{};  // fascia board size
  std::int16_t Combo10Index{};
  FixedText<20> Combo10Text{};  // soffit material
  std::int16_t Combo11Index{};
  FixedText<20> Combo11Text{};  // frieze mould, or channel for vinyl
  std::int16_t Combo12Index{};
  FixedText<20> Combo12Text{};          // base mould, first floor
  std::int16_t ExtWallLftFirstFloor{};  // linear feet
  std::int16_t Disp01{};                // outside corners, first floor
  std::int16_t Disp02{};                // length of the heated part, feet
  std::int16_t Disp03{};                // overall length with garage and carport, feet
  std::int16_t Combo13Index{};          // height of the wall sheathing sheet: the index plus 7 feet
  std::int16_t Combo14Index{};          // 1 slab, 2 crawl space
  FixedText<20> Combo15Text{};          // "FINISHED": the interior of a slab building is priced too
  std::int16_t FoundationType{};        // 1 foundation wall, 2 pier and curtain
  std::int16_t GirderPly{};             // 1 none, 2 to 4 plies, 5 single beam
  std::int16_t GirderSizeIndex{};
  FixedText<20> GirderSize{};
  FiveRows MajorGirderLft{};    // linear feet, stock of 8 to 16 feet
  std::int16_t Combo19Index{};  // drop girder: 1 none, 2 and 3 plies, 4 single
  std::int16_t Combo20Index{};
  FixedText<20> Combo20Text{};  // drop girder stock; "LVL" is sold by the foot
  FiveRows DropGirderLft{};     // linear feet, stock of 8 to 16 feet
  std::int16_t Combo21Index{};  // plies of the sill on piers
  std::int16_t SillSizeIndex{};
  FixedText<20> SillSize{};
  FiveRows SillLft{};  // linear feet, stock of 8 to 16 feet
  std::int16_t Combo23Index{};
  FixedText<20> Combo23Text{};  // treated sill plate; "NONE" for no plate
  std::int16_t FloorJoistSizeIndex{};
  FixedText<20> FloorJoistSize{};
  FiveRows BayAreaLftFirstFloor{};      // linear feet of the five bays
  std::int16_t IntWallLftFirstFloor{};  // linear feet
  std::int16_t HeatedSqFtA{};           // first floor, square feet
  std::int16_t HeatedSqFtB{};           // second floor, square feet
  std::int16_t Combo25Index{};          // oak finish flooring: 1 yes
  std::int16_t Disp31{};                // square feet under oak flooring
  std::int16_t Combo26Index{};          // garage or storage: 1 yes, 2 no
  std::int16_t GarageWallLftA{};        // sheathed garage walls, linear feet
  std::int16_t GarageWallLftB{};        // garage walls without sheathing, linear feet
  std::int16_t GarageSqFt{};
  std::int16_t Combo27Index{};  // carport or porch: 1 yes, 2 no
  std::int16_t CarportBeamLft{};
  std::int16_t CarportSqFt{};
  std::int16_t SecondFloorType{};    // 2: there is a second floor
  std::int16_t SecondFloorFramed{};  // 1 joists, 2 floor trusses
  std::int16_t SecondFloorJoistSizeIndex{};
  FixedText<20> SecondFloorJoistSize{};
  FiveRows BayAreaLftSecondFloor{};  // linear feet of the five bays
  std::int16_t Combo31Index{};
  FixedText<20> Combo31Text{};  // base mould, second floor
  std::int16_t ExtWallLftSecondFloor{};
  std::int16_t IntWallLftSecondFloor{};
  std::int16_t PreCutStudsSecondFloorIndex{};
  FixedText<20> PreCutStudsSecondFloor{};
  std::int16_t HeaderLft{};     // door and window headers, linear feet
  std::int16_t FasciaLft{};     // linear feet
  std::int16_t RoofSqFt{};      // square feet
  std::int16_t Combo33Index{};  // soffit width: 1 full, 2 and 3 narrower
  std::int16_t Combo34Index{};  // wall finish: 1 brick, 2 panel, 3 lap, 5 vinyl
  std::int16_t Combo35Index{};
  FixedText<20> Combo35Text{};  // frieze board size
  std::int16_t Combo36Index{};  // kind of lap siding, in bands
  FixedText<20> Combo36Text{};  // siding, lap or vinyl
  std::int16_t Combo37Index{};
  FixedText<20> Combo37Text{};  // panel siding
  std::int16_t Combo38Index{};
  FixedText<20> Combo38Text{};    // corner boards, or vinyl corners
  std::int16_t ExtWallSidingA{};  // first floor, square feet
  std::int16_t ExtWallSidingB{};  // second floor, square feet
  std::int16_t Combo39Index{};    // panel height: 1 4X8, 2 4X9, 3 4X10
  std::int16_t Disp50{};          // outside corners, second floor
  std::int16_t GableSqFt{};       // square feet
  std::int16_t Disp52{};          // knee walls of a field-framed half story, linear feet
  std::int16_t EavesLft{};        // from the preliminary measurements, feet
  FixedText<1> PriceLevel{};      // "1" to "5"
  std::int16_t Disp53{};          // further base mould of a half story, linear feet
  FiveRows Disp09{};              // girder with one member more, beside MajorGirderLft
  FiveRows CeilingJoistLft2X6{};  // linear feet, joists of 8 to 16 feet
  FiveRows CeilingJoistLft2X8{};  // linear feet, joists of 8 to 16 feet
  std::int16_t Disp36Tag{};       // carport area that has no mull
  FiveRows Joist0{};              // joist length of each first-floor bay, feet
  FiveRows Joist5{};              // joist length of each second-floor bay, feet
  FixedText<42> ReservedText{};   // kept as read
  std::array<RoofPlane, kRoofPlanes> RoofPlanes{};

  bool operator==(const EstimateRecord&) const = default;
};

template <>
struct RecordFields<EstimateRecord> {
  // clang-format off
  static constexpr auto table = std::tuple{
      Field{"CustomerNumber", 0, &EstimateRecord::CustomerNumber},
      Field{"PlanNumber", 2, &EstimateRecord::PlanNumber},
      Field{"PlanDate", 17, &EstimateRecord::PlanDate},
      Field{"PlanType", 27, &EstimateRecord::PlanType},
      Field{"Combo00Index", 29, &EstimateRecord::Combo00Index},
      Field{"Combo00Text", 31, &EstimateRecord::Combo00Text},
      Field{"FloorSheathingIndex", 51, &EstimateRecord::FloorSheathingIndex},
      Field{"FloorSheathing", 53, &EstimateRecord::FloorSheathing},
      Field{"ShoePlatesIndex", 73, &EstimateRecord::ShoePlatesIndex},
      Field{"ShoePlates", 75, &EstimateRecord::ShoePlates},
      Field{"PreCutStudsIndex", 95, &EstimateRecord::PreCutStudsIndex},
      Field{"PreCutStuds", 97, &EstimateRecord::PreCutStuds},
      Field{"WallSheathingIndex", 117, &EstimateRecord::WallSheathingIndex},
      Field{"WallSheathing", 119, &EstimateRecord::WallSheathing},
      Field{"Combo05Index", 139, &EstimateRecord::Combo05Index},
      Field{"Combo05Text", 141, &EstimateRecord::Combo05Text},
      Field{"RoofSheathingIndex", 161, &EstimateRecord::RoofSheathingIndex},
      Field{"RoofSheathing", 163, &EstimateRecord::RoofSheathing},
      Field{"RoofingIndex", 183, &EstimateRecord::RoofingIndex},
      Field{"Roofing", 185, &EstimateRecord::Roofing},
      Field{"Combo08Index", 205, &EstimateRecord::Combo08Index},
      Field{"Combo08Text", 207, &EstimateRecord::Combo08Text},
      Field{"Combo09Index", 227, &EstimateRecord::Combo09Index},
      Field{"Combo09Text", 229, &EstimateRecord::Combo09Text},
      Field{"Combo10Index", 249, &EstimateRecord::Combo10Index},
      Field{"Combo10Text", 251, &EstimateRecord::Combo10Text},
      Field{"Combo11Index", 271, &EstimateRecord::Combo11Index},
      Field{"Combo11Text", 273, &EstimateRecord::Combo11Text},
      Field{"Combo12Index", 293, &EstimateRecord::Combo12Index},
      Field{"Combo12Text", 295, &EstimateRecord::Combo12Text},
      Field{"ExtWallLftFirstFloor", 315, &EstimateRecord::ExtWallLftFirstFloor},
      Field{"Disp01", 317, &EstimateRecord::Disp01},
      Field{"Disp02", 319, &EstimateRecord::Disp02},
      Field{"Disp03", 321, &EstimateRecord::Disp03},
      Field{"Combo13Index", 323, &EstimateRecord::Combo13Index},
      Field{"Combo14Index", 325, &EstimateRecord::Combo14Index},
      Field{"Combo15Text", 327, &EstimateRecord::Combo15Text},
      Field{"FoundationType", 347, &EstimateRecord::FoundationType},
      Field{"GirderPly", 349, &EstimateRecord::GirderPly},
      Field{"GirderSizeIndex", 351, &EstimateRecord::GirderSizeIndex},
      Field{"GirderSize", 353, &EstimateRecord::GirderSize},
      Field{"MajorGirderLft", 373, &EstimateRecord::MajorGirderLft},
      Field{"Combo19Index", 383, &EstimateRecord::Combo19Index},
      Field{"Combo20Index", 385, &EstimateRecord::Combo20Index},
      Field{"Combo20Text", 387, &EstimateRecord::Combo20Text},
      Field{"DropGirderLft", 407, &EstimateRecord::DropGirderLft},
      Field{"Combo21Index", 417, &EstimateRecord::Combo21Index},
      Field{"SillSizeIndex", 419, &EstimateRecord::SillSizeIndex},
      Field{"SillSize", 421, &EstimateRecord::SillSize},
      Field{"SillLft", 441, &EstimateRecord::SillLft},
      Field{"Combo23Index", 451, &EstimateRecord::Combo23Index},
      Field{"Combo23Text", 453, &EstimateRecord::Combo23Text},
      Field{"FloorJoistSizeIndex", 473, &EstimateRecord::FloorJoistSizeIndex},
      Field{"FloorJoistSize", 475, &EstimateRecord::FloorJoistSize},
      Field{"BayAreaLftFirstFloor", 495, &EstimateRecord::BayAreaLftFirstFloor},
      Field{"IntWallLftFirstFloor", 505, &EstimateRecord::IntWallLftFirstFloor},
      Field{"HeatedSqFtA", 507, &EstimateRecord::HeatedSqFtA},
      Field{"HeatedSqFtB", 509, &EstimateRecord::HeatedSqFtB},
      Field{"Combo25Index", 511, &EstimateRecord::Combo25Index},
      Field{"Disp31", 513, &EstimateRecord::Disp31},
      Field{"Combo26Index", 515, &EstimateRecord::Combo26Index},
      Field{"GarageWallLftA", 517, &EstimateRecord::GarageWallLftA},
      Field{"GarageWallLftB", 519, &EstimateRecord::GarageWallLftB},
      Field{"GarageSqFt", 521, &EstimateRecord::GarageSqFt},
      Field{"Combo27Index", 523, &EstimateRecord::Combo27Index},
      Field{"CarportBeamLft", 525, &EstimateRecord::CarportBeamLft},
      Field{"CarportSqFt", 527, &EstimateRecord::CarportSqFt},
      Field{"SecondFloorType", 529, &EstimateRecord::SecondFloorType},
      Field{"SecondFloorFramed", 531, &EstimateRecord::SecondFloorFramed},
      Field{"SecondFloorJoistSizeIndex", 533, &EstimateRecord::SecondFloorJoistSizeIndex},
      Field{"SecondFloorJoistSize", 535, &EstimateRecord::SecondFloorJoistSize},
      Field{"BayAreaLftSecondFloor", 555, &EstimateRecord::BayAreaLftSecondFloor},
      Field{"Combo31Index", 565, &EstimateRecord::Combo31Index},
      Field{"Combo31Text", 567, &EstimateRecord::Combo31Text},
      Field{"ExtWallLftSecondFloor", 587, &EstimateRecord::ExtWallLftSecondFloor},
      Field{"IntWallLftSecondFloor", 589, &EstimateRecord::IntWallLftSecondFloor},
      Field{"PreCutStudsSecondFloorIndex", 591, &EstimateRecord::PreCutStudsSecondFloorIndex},
      Field{"PreCutStudsSecondFloor", 593, &EstimateRecord::PreCutStudsSecondFloor},
      Field{"HeaderLft", 613, &EstimateRecord::HeaderLft},
      Field{"FasciaLft", 615, &EstimateRecord::FasciaLft},
      Field{"RoofSqFt", 617, &EstimateRecord::RoofSqFt},
      Field{"Combo33Index", 619, &EstimateRecord::Combo33Index},
      Field{"Combo34Index", 621, &EstimateRecord::Combo34Index},
      Field{"Combo35Index", 623, &EstimateRecord::Combo35Index},
      Field{"Combo35Text", 625, &EstimateRecord::Combo35Text},
      Field{"Combo36Index", 645, &EstimateRecord::Combo36Index},
      Field{"Combo36Text", 647, &EstimateRecord::Combo36Text},
      Field{"Combo37Index", 667, &EstimateRecord::Combo37Index},
      Field{"Combo37Text", 669, &EstimateRecord::Combo37Text},
      Field{"Combo38Index", 689, &EstimateRecord::Combo38Index},
      Field{"Combo38Text", 691, &EstimateRecord::Combo38Text},
      Field{"ExtWallSidingA", 711, &EstimateRecord::ExtWallSidingA},
      Field{"ExtWallSidingB", 713, &EstimateRecord::ExtWallSidingB},
      Field{"Combo39Index", 715, &EstimateRecord::Combo39Index},
      Field{"Disp50", 717, &EstimateRecord::Disp50},
      Field{"GableSqFt", 719, &EstimateRecord::GableSqFt},
      Field{"Disp52", 721, &EstimateRecord::Disp52},
      Field{"EavesLft", 723, &EstimateRecord::EavesLft},
      Field{"PriceLevel", 725, &EstimateRecord::PriceLevel},
      Field{"Disp53", 726, &EstimateRecord::Disp53},
      Field{"Disp09", 728, &EstimateRecord::Disp09},
      Field{"CeilingJoistLft2X6", 738, &EstimateRecord::CeilingJoistLft2X6},
      Field{"CeilingJoistLft2X8", 748, &EstimateRecord::CeilingJoistLft2X8},
      Field{"Disp36Tag", 758, &EstimateRecord::Disp36Tag},
      Field{"Joist0", 760, &EstimateRecord::Joist0},
      Field{"Joist5", 770, &EstimateRecord::Joist5},
      Field{"ReservedText", 780, &EstimateRecord::ReservedText},
      Field{"RoofPlanes", 822, &EstimateRecord::RoofPlanes},
  };
  // clang-format on
};

static_assert(FieldsTile(RecordFields<EstimateRecord>::table, EstimateRecordSize), "no gap, no overlap, the whole record");

}  // namespace norvale
