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
    {&EstimateRecord::Combo00Index, &EstimateRecord::Combo00Text},
    {&EstimateRecord::FloorSheathingIndex, &EstimateRecord::FloorSheathing},
    {&EstimateRecord::ShoePlatesIndex, &EstimateRecord::ShoePlates},
    {&EstimateRecord::PreCutStudsIndex, &EstimateRecord::PreCutStuds},
    {&EstimateRecord::WallSheathingIndex, &EstimateRecord::WallSheathing},
    {&EstimateRecord::Combo05Index, &EstimateRecord::Combo05Text},
    {&EstimateRecord::RoofSheathingIndex, &EstimateRecord::RoofSheathing},
    {&EstimateRecord::RoofingIndex, &EstimateRecord::Roofing},
    {&EstimateRecord::Combo08Index, &EstimateRecord::Combo08Text},
    {&EstimateRecord::Combo09Index, &EstimateRecord::Combo09Text},
    {&EstimateRecord::Combo10Index, &EstimateRecord::Combo10Text},
    {&EstimateRecord::Combo11Index, &EstimateRecord::Combo11Text},
    {&EstimateRecord::Combo12Index, &EstimateRecord::Combo12Text},
    {&EstimateRecord::Combo13Index, nullptr},
    {&EstimateRecord::Combo14Index, nullptr},
    {nullptr, &EstimateRecord::Combo15Text},
    {&EstimateRecord::FoundationType, nullptr},
    {&EstimateRecord::GirderPly, nullptr},
    {&EstimateRecord::GirderSizeIndex, &EstimateRecord::GirderSize},
    {&EstimateRecord::Combo19Index, nullptr},
    {&EstimateRecord::Combo20Index, &EstimateRecord::Combo20Text},
    {&EstimateRecord::Combo21Index, nullptr},
    {&EstimateRecord::SillSizeIndex, &EstimateRecord::SillSize},
    {&EstimateRecord::Combo23Index, &EstimateRecord::Combo23Text},
    {&EstimateRecord::FloorJoistSizeIndex, &EstimateRecord::FloorJoistSize},
    {&EstimateRecord::Combo25Index, nullptr},
    {&EstimateRecord::Combo26Index, nullptr},
    {&EstimateRecord::Combo27Index, nullptr},
    {&EstimateRecord::SecondFloorType, nullptr},
    {&EstimateRecord::SecondFloorFramed, nullptr},
    {&EstimateRecord::SecondFloorJoistSizeIndex, &EstimateRecord::SecondFloorJoistSize},
    {&EstimateRecord::Combo31Index, &EstimateRecord::Combo31Text},
    {&EstimateRecord::PreCutStudsSecondFloorIndex, &EstimateRecord::PreCutStudsSecondFloor},
    {&EstimateRecord::Combo33Index, nullptr},
    {&EstimateRecord::Combo34Index, nullptr},
    {&EstimateRecord::Combo35Index, &EstimateRecord::Combo35Text},
    {&EstimateRecord::Combo36Index, &EstimateRecord::Combo36Text},
    {&EstimateRecord::Combo37Index, &EstimateRecord::Combo37Text},
    {&EstimateRecord::Combo38Index, &EstimateRecord::Combo38Text},
    {&EstimateRecord::Combo39Index, nullptr},
}};
// clang-format on

}  // namespace norvale
