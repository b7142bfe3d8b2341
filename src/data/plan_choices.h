// Where a plan keeps the choice of each selection list.
#pragma once

#include <array>
#include <cstdint>

#include "data/estimate_record.h"

namespace norvale {

inline constexpr std::size_t kSelectionLists = 40;

/// The fields of one list: its row, counted from 1 (0: nothing chosen), and the row's text. Some lists keep only one.
struct PlanChoice {
  std::int16_t EstimateRecord::*index = nullptr;
  FixedText<20> EstimateRecord::*text = nullptr;
};

// clang-format off
/// The choices by the number of their list.
inline constexpr std::array<PlanChoice, kSelectionLists> kPlanChoices = {{
    {&EstimateRecord::FramingGradeIndex, &EstimateRecord::FramingGrade},
    {&EstimateRecord::FloorSheathingIndex, &EstimateRecord::FloorSheathing},
    {&EstimateRecord::ShoePlatesIndex, &EstimateRecord::ShoePlates},
    {&EstimateRecord::PreCutStudsIndex, &EstimateRecord::PreCutStuds},
    {&EstimateRecord::WallSheathingIndex, &EstimateRecord::WallSheathing},
    {&EstimateRecord::CornerBracingIndex, &EstimateRecord::CornerBracing},
    {&EstimateRecord::RoofSheathingIndex, &EstimateRecord::RoofSheathing},
    {&EstimateRecord::RoofingIndex, &EstimateRecord::Roofing},
    {&EstimateRecord::ExteriorTrimIndex, &EstimateRecord::ExteriorTrim},
    {&EstimateRecord::FasciaBoardIndex, &EstimateRecord::FasciaBoard},
    {&EstimateRecord::SoffitMaterialIndex, &EstimateRecord::SoffitMaterial},
    {&EstimateRecord::FriezeMouldIndex, &EstimateRecord::FriezeMould},
    {&EstimateRecord::BaseMouldFirstFloorIndex, &EstimateRecord::BaseMouldFirstFloor},
    {&EstimateRecord::WallSheetHeightIndex, nullptr},
    {&EstimateRecord::SlabOrCrawlIndex, nullptr},
    {nullptr, &EstimateRecord::SlabInterior},
    {&EstimateRecord::FoundationType, nullptr},
    {&EstimateRecord::GirderPly, nullptr},
    {&EstimateRecord::GirderSizeIndex, &EstimateRecord::GirderSize},
    {&EstimateRecord::DropGirderPly, nullptr},
    {&EstimateRecord::DropGirderSizeIndex, &EstimateRecord::DropGirderSize},
    {&EstimateRecord::SillPly, nullptr},
    {&EstimateRecord::SillSizeIndex, &EstimateRecord::SillSize},
    {&EstimateRecord::SillPlateIndex, &EstimateRecord::SillPlate},
    {&EstimateRecord::FloorJoistSizeIndex, &EstimateRecord::FloorJoistSize},
    {&EstimateRecord::OakFlooringIndex, nullptr},
    {&EstimateRecord::GarageOrStorageIndex, nullptr},
    {&EstimateRecord::CarportOrPorchIndex, nullptr},
    {&EstimateRecord::SecondFloorType, nullptr},
    {&EstimateRecord::SecondFloorFramed, nullptr},
    {&EstimateRecord::SecondFloorJoistSizeIndex, &EstimateRecord::SecondFloorJoistSize},
    {&EstimateRecord::BaseMouldSecondFloorIndex, &EstimateRecord::BaseMouldSecondFloor},
    {&EstimateRecord::PreCutStudsSecondFloorIndex, &EstimateRecord::PreCutStudsSecondFloor},
    {&EstimateRecord::RoofOverhangIndex, nullptr},
    {&EstimateRecord::WallFinishIndex, nullptr},
    {&EstimateRecord::FriezeBoardIndex, &EstimateRecord::FriezeBoard},
    {&EstimateRecord::SidingIndex, &EstimateRecord::Siding},
    {&EstimateRecord::PanelSidingIndex, &EstimateRecord::PanelSiding},
    {&EstimateRecord::CornerBoardsIndex, &EstimateRecord::CornerBoards},
    {&EstimateRecord::PanelHeightIndex, nullptr},
}};
// clang-format on

}  // namespace norvale
