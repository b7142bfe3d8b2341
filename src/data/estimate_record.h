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
  std::int16_t FramingGradeIndex{};
  FixedText<20> FramingGrade{};  // framing species and grade, behind every framing stock
  std::int16_t FloorSheathingIndex{};
  FixedText<20> FloorSheathing{};
  std::int16_t ShoePlatesIndex{};
  FixedText<20> ShoePlates{};
  std::int16_t PreCutStudsIndex{};
  FixedText<20> PreCutStuds{};
  std::int16_t WallSheathingIndex{};
  FixedText<20> WallSheathing{};
  std::int16_t CornerBracingIndex{};
  FixedText<20> CornerBracing{};  // corner bracing
  std::int16_t RoofSheathingIndex{};
  FixedText<20> RoofSheathing{};
  std::int16_t RoofingIndex{};
  FixedText<20> Roofing{};
  std::int16_t ExteriorTrimIndex{};
  FixedText<20> ExteriorTrim{};  // exterior trim grade, or the wrap itself ("COIL", "VINYL")
  std::int16_t FasciaBoardIndex{};
  FixedText<20> FasciaBoard{};  // fascia board size
  std::int16_t SoffitMaterialIndex{};
  FixedText<20> SoffitMaterial{};  // soffit material
  std::int16_t FriezeMouldIndex{};
  FixedText<20> FriezeMould{};  // frieze mould, or channel for vinyl
  std::int16_t BaseMouldFirstFloorIndex{};
  FixedText<20> BaseMouldFirstFloor{};          // base mould, first floor
  std::int16_t ExtWallLftFirstFloor{};  // linear feet
  std::int16_t OutsideCornersFirstFloor{};                // outside corners, first floor
  std::int16_t HeatedLength{};                // length of the heated part, feet
  std::int16_t OverallLength{};                // overall length with garage and carport, feet
  std::int16_t WallSheetHeightIndex{};          // height of the wall sheathing sheet: the index plus 7 feet
  std::int16_t SlabOrCrawlIndex{};          // 1 slab, 2 crawl space
  FixedText<20> SlabInterior{};          // "FINISHED": the interior of a slab building is priced too
  std::int16_t FoundationType{};        // 1 foundation wall, 2 pier and curtain
  std::int16_t GirderPly{};             // 1 none, 2 to 4 plies, 5 single beam
  std::int16_t GirderSizeIndex{};
  FixedText<20> GirderSize{};
  FiveRows MajorGirderLft{};    // linear feet, stock of 8 to 16 feet
  std::int16_t DropGirderPly{};  // drop girder: 1 none, 2 and 3 plies, 4 single
  std::int16_t DropGirderSizeIndex{};
  FixedText<20> DropGirderSize{};  // drop girder stock; "LVL" is sold by the foot
  FiveRows DropGirderLft{};     // linear feet, stock of 8 to 16 feet
  std::int16_t SillPly{};  // plies of the sill on piers
  std::int16_t SillSizeIndex{};
  FixedText<20> SillSize{};
  FiveRows SillLft{};  // linear feet, stock of 8 to 16 feet
  std::int16_t SillPlateIndex{};
  FixedText<20> SillPlate{};  // treated sill plate; "NONE" for no plate
  std::int16_t FloorJoistSizeIndex{};
  FixedText<20> FloorJoistSize{};
  FiveRows BayAreaLftFirstFloor{};      // linear feet of the five bays
  std::int16_t IntWallLftFirstFloor{};  // linear feet
  std::int16_t HeatedSqFtFirstFloor{};           // first floor, square feet
  std::int16_t HeatedSqFtSecondFloor{};           // second floor, square feet
  std::int16_t OakFlooringIndex{};          // oak finish flooring: 1 yes
  std::int16_t OakFlooringSqFt{};                // square feet under oak flooring
  std::int16_t GarageOrStorageIndex{};          // garage or storage: 1 yes, 2 no
  std::int16_t GarageWallLftSheathed{};        // sheathed garage walls, linear feet
  std::int16_t GarageWallLftUnsheathed{};        // garage walls without sheathing, linear feet
  std::int16_t GarageSqFt{};
  std::int16_t CarportOrPorchIndex{};  // carport or porch: 1 yes, 2 no
  std::int16_t CarportBeamLft{};
  std::int16_t CarportSqFt{};
  std::int16_t SecondFloorType{};    // 2: there is a second floor
  std::int16_t SecondFloorFramed{};  // 1 joists, 2 floor trusses
  std::int16_t SecondFloorJoistSizeIndex{};
  FixedText<20> SecondFloorJoistSize{};
  FiveRows BayAreaLftSecondFloor{};  // linear feet of the five bays
  std::int16_t BaseMouldSecondFloorIndex{};
  FixedText<20> BaseMouldSecondFloor{};  // base mould, second floor
  std::int16_t ExtWallLftSecondFloor{};
  std::int16_t IntWallLftSecondFloor{};
  std::int16_t PreCutStudsSecondFloorIndex{};
  FixedText<20> PreCutStudsSecondFloor{};
  std::int16_t HeaderLft{};     // door and window headers, linear feet
  std::int16_t FasciaLft{};     // linear feet
  std::int16_t RoofSqFt{};      // square feet
  std::int16_t RoofOverhangIndex{};  // soffit width: 1 full, 2 and 3 narrower
  std::int16_t WallFinishIndex{};  // wall finish: 1 brick, 2 panel, 3 lap, 5 vinyl
  std::int16_t FriezeBoardIndex{};
  FixedText<20> FriezeBoard{};  // frieze board size
  std::int16_t SidingIndex{};  // kind of lap siding, in bands
  FixedText<20> Siding{};  // siding, lap or vinyl
  std::int16_t PanelSidingIndex{};
  FixedText<20> PanelSiding{};  // panel siding
  std::int16_t CornerBoardsIndex{};
  FixedText<20> CornerBoards{};    // corner boards, or vinyl corners
  std::int16_t ExtWallSidingFirstFloor{};  // first floor, square feet
  std::int16_t ExtWallSidingSecondFloor{};  // second floor, square feet
  std::int16_t PanelHeightIndex{};    // panel height: 1 4X8, 2 4X9, 3 4X10
  std::int16_t OutsideCornersSecondFloor{};          // outside corners, second floor
  std::int16_t GableSqFt{};       // square feet
  std::int16_t KneeWallLft{};          // knee walls of a field-framed half story, linear feet
  std::int16_t EavesLft{};        // from the preliminary measurements, feet
  FixedText<1> PriceLevel{};      // "1" to "5"
  std::int16_t HalfStoryBaseMouldLft{};          // further base mould of a half story, linear feet
  FiveRows WiderGirderLft{};              // girder with one member more, beside MajorGirderLft
  FiveRows CeilingJoistLft2X6{};  // linear feet, joists of 8 to 16 feet
  FiveRows CeilingJoistLft2X8{};  // linear feet, joists of 8 to 16 feet
  std::int16_t CarportSqFtUnmulled{};       // carport area that has no mull
  FiveRows JoistLengthFirstFloor{};              // joist length of each first-floor bay, feet
  FiveRows JoistLengthSecondFloor{};              // joist length of each second-floor bay, feet
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
      Field{"FramingGradeIndex", 29, &EstimateRecord::FramingGradeIndex},
      Field{"FramingGrade", 31, &EstimateRecord::FramingGrade},
      Field{"FloorSheathingIndex", 51, &EstimateRecord::FloorSheathingIndex},
      Field{"FloorSheathing", 53, &EstimateRecord::FloorSheathing},
      Field{"ShoePlatesIndex", 73, &EstimateRecord::ShoePlatesIndex},
      Field{"ShoePlates", 75, &EstimateRecord::ShoePlates},
      Field{"PreCutStudsIndex", 95, &EstimateRecord::PreCutStudsIndex},
      Field{"PreCutStuds", 97, &EstimateRecord::PreCutStuds},
      Field{"WallSheathingIndex", 117, &EstimateRecord::WallSheathingIndex},
      Field{"WallSheathing", 119, &EstimateRecord::WallSheathing},
      Field{"CornerBracingIndex", 139, &EstimateRecord::CornerBracingIndex},
      Field{"CornerBracing", 141, &EstimateRecord::CornerBracing},
      Field{"RoofSheathingIndex", 161, &EstimateRecord::RoofSheathingIndex},
      Field{"RoofSheathing", 163, &EstimateRecord::RoofSheathing},
      Field{"RoofingIndex", 183, &EstimateRecord::RoofingIndex},
      Field{"Roofing", 185, &EstimateRecord::Roofing},
      Field{"ExteriorTrimIndex", 205, &EstimateRecord::ExteriorTrimIndex},
      Field{"ExteriorTrim", 207, &EstimateRecord::ExteriorTrim},
      Field{"FasciaBoardIndex", 227, &EstimateRecord::FasciaBoardIndex},
      Field{"FasciaBoard", 229, &EstimateRecord::FasciaBoard},
      Field{"SoffitMaterialIndex", 249, &EstimateRecord::SoffitMaterialIndex},
      Field{"SoffitMaterial", 251, &EstimateRecord::SoffitMaterial},
      Field{"FriezeMouldIndex", 271, &EstimateRecord::FriezeMouldIndex},
      Field{"FriezeMould", 273, &EstimateRecord::FriezeMould},
      Field{"BaseMouldFirstFloorIndex", 293, &EstimateRecord::BaseMouldFirstFloorIndex},
      Field{"BaseMouldFirstFloor", 295, &EstimateRecord::BaseMouldFirstFloor},
      Field{"ExtWallLftFirstFloor", 315, &EstimateRecord::ExtWallLftFirstFloor},
      Field{"OutsideCornersFirstFloor", 317, &EstimateRecord::OutsideCornersFirstFloor},
      Field{"HeatedLength", 319, &EstimateRecord::HeatedLength},
      Field{"OverallLength", 321, &EstimateRecord::OverallLength},
      Field{"WallSheetHeightIndex", 323, &EstimateRecord::WallSheetHeightIndex},
      Field{"SlabOrCrawlIndex", 325, &EstimateRecord::SlabOrCrawlIndex},
      Field{"SlabInterior", 327, &EstimateRecord::SlabInterior},
      Field{"FoundationType", 347, &EstimateRecord::FoundationType},
      Field{"GirderPly", 349, &EstimateRecord::GirderPly},
      Field{"GirderSizeIndex", 351, &EstimateRecord::GirderSizeIndex},
      Field{"GirderSize", 353, &EstimateRecord::GirderSize},
      Field{"MajorGirderLft", 373, &EstimateRecord::MajorGirderLft},
      Field{"DropGirderPly", 383, &EstimateRecord::DropGirderPly},
      Field{"DropGirderSizeIndex", 385, &EstimateRecord::DropGirderSizeIndex},
      Field{"DropGirderSize", 387, &EstimateRecord::DropGirderSize},
      Field{"DropGirderLft", 407, &EstimateRecord::DropGirderLft},
      Field{"SillPly", 417, &EstimateRecord::SillPly},
      Field{"SillSizeIndex", 419, &EstimateRecord::SillSizeIndex},
      Field{"SillSize", 421, &EstimateRecord::SillSize},
      Field{"SillLft", 441, &EstimateRecord::SillLft},
      Field{"SillPlateIndex", 451, &EstimateRecord::SillPlateIndex},
      Field{"SillPlate", 453, &EstimateRecord::SillPlate},
      Field{"FloorJoistSizeIndex", 473, &EstimateRecord::FloorJoistSizeIndex},
      Field{"FloorJoistSize", 475, &EstimateRecord::FloorJoistSize},
      Field{"BayAreaLftFirstFloor", 495, &EstimateRecord::BayAreaLftFirstFloor},
      Field{"IntWallLftFirstFloor", 505, &EstimateRecord::IntWallLftFirstFloor},
      Field{"HeatedSqFtFirstFloor", 507, &EstimateRecord::HeatedSqFtFirstFloor},
      Field{"HeatedSqFtSecondFloor", 509, &EstimateRecord::HeatedSqFtSecondFloor},
      Field{"OakFlooringIndex", 511, &EstimateRecord::OakFlooringIndex},
      Field{"OakFlooringSqFt", 513, &EstimateRecord::OakFlooringSqFt},
      Field{"GarageOrStorageIndex", 515, &EstimateRecord::GarageOrStorageIndex},
      Field{"GarageWallLftSheathed", 517, &EstimateRecord::GarageWallLftSheathed},
      Field{"GarageWallLftUnsheathed", 519, &EstimateRecord::GarageWallLftUnsheathed},
      Field{"GarageSqFt", 521, &EstimateRecord::GarageSqFt},
      Field{"CarportOrPorchIndex", 523, &EstimateRecord::CarportOrPorchIndex},
      Field{"CarportBeamLft", 525, &EstimateRecord::CarportBeamLft},
      Field{"CarportSqFt", 527, &EstimateRecord::CarportSqFt},
      Field{"SecondFloorType", 529, &EstimateRecord::SecondFloorType},
      Field{"SecondFloorFramed", 531, &EstimateRecord::SecondFloorFramed},
      Field{"SecondFloorJoistSizeIndex", 533, &EstimateRecord::SecondFloorJoistSizeIndex},
      Field{"SecondFloorJoistSize", 535, &EstimateRecord::SecondFloorJoistSize},
      Field{"BayAreaLftSecondFloor", 555, &EstimateRecord::BayAreaLftSecondFloor},
      Field{"BaseMouldSecondFloorIndex", 565, &EstimateRecord::BaseMouldSecondFloorIndex},
      Field{"BaseMouldSecondFloor", 567, &EstimateRecord::BaseMouldSecondFloor},
      Field{"ExtWallLftSecondFloor", 587, &EstimateRecord::ExtWallLftSecondFloor},
      Field{"IntWallLftSecondFloor", 589, &EstimateRecord::IntWallLftSecondFloor},
      Field{"PreCutStudsSecondFloorIndex", 591, &EstimateRecord::PreCutStudsSecondFloorIndex},
      Field{"PreCutStudsSecondFloor", 593, &EstimateRecord::PreCutStudsSecondFloor},
      Field{"HeaderLft", 613, &EstimateRecord::HeaderLft},
      Field{"FasciaLft", 615, &EstimateRecord::FasciaLft},
      Field{"RoofSqFt", 617, &EstimateRecord::RoofSqFt},
      Field{"RoofOverhangIndex", 619, &EstimateRecord::RoofOverhangIndex},
      Field{"WallFinishIndex", 621, &EstimateRecord::WallFinishIndex},
      Field{"FriezeBoardIndex", 623, &EstimateRecord::FriezeBoardIndex},
      Field{"FriezeBoard", 625, &EstimateRecord::FriezeBoard},
      Field{"SidingIndex", 645, &EstimateRecord::SidingIndex},
      Field{"Siding", 647, &EstimateRecord::Siding},
      Field{"PanelSidingIndex", 667, &EstimateRecord::PanelSidingIndex},
      Field{"PanelSiding", 669, &EstimateRecord::PanelSiding},
      Field{"CornerBoardsIndex", 689, &EstimateRecord::CornerBoardsIndex},
      Field{"CornerBoards", 691, &EstimateRecord::CornerBoards},
      Field{"ExtWallSidingFirstFloor", 711, &EstimateRecord::ExtWallSidingFirstFloor},
      Field{"ExtWallSidingSecondFloor", 713, &EstimateRecord::ExtWallSidingSecondFloor},
      Field{"PanelHeightIndex", 715, &EstimateRecord::PanelHeightIndex},
      Field{"OutsideCornersSecondFloor", 717, &EstimateRecord::OutsideCornersSecondFloor},
      Field{"GableSqFt", 719, &EstimateRecord::GableSqFt},
      Field{"KneeWallLft", 721, &EstimateRecord::KneeWallLft},
      Field{"EavesLft", 723, &EstimateRecord::EavesLft},
      Field{"PriceLevel", 725, &EstimateRecord::PriceLevel},
      Field{"HalfStoryBaseMouldLft", 726, &EstimateRecord::HalfStoryBaseMouldLft},
      Field{"WiderGirderLft", 728, &EstimateRecord::WiderGirderLft},
      Field{"CeilingJoistLft2X6", 738, &EstimateRecord::CeilingJoistLft2X6},
      Field{"CeilingJoistLft2X8", 748, &EstimateRecord::CeilingJoistLft2X8},
      Field{"CarportSqFtUnmulled", 758, &EstimateRecord::CarportSqFtUnmulled},
      Field{"JoistLengthFirstFloor", 760, &EstimateRecord::JoistLengthFirstFloor},
      Field{"JoistLengthSecondFloor", 770, &EstimateRecord::JoistLengthSecondFloor},
      Field{"ReservedText", 780, &EstimateRecord::ReservedText},
      Field{"RoofPlanes", 822, &EstimateRecord::RoofPlanes},
  };
  // clang-format on
};

static_assert(FieldsTile(RecordFields<EstimateRecord>::table, EstimateRecordSize), "no gap, no overlap, the whole record");

}  // namespace norvale
