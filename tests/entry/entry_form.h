// A data-entry form on the delivered screens and lists, for tests of its rules.
#pragma once

#include <vector>

#include "data/plan_type.h"
#include "entry/plan_form.h"
#include "prices/delivered.h"

namespace norvale {

inline PlanForm NewForm(int planType) {
  EstimateRecord plan = BlankPlan();
  plan.PlanType = static_cast<std::int16_t>(planType);
  return OpenPlanForm(PlanMode::New, false, plan, DeliveredScreenLines(), DeliveredMaterialRows());
}

inline PlanForm OpenedForm(EstimateRecord& plan) {
  return OpenPlanForm(PlanMode::Existing, false, plan, DeliveredScreenLines(), DeliveredMaterialRows());
}

/// The box or list of a control by the name behind its "txt" or "cbo"; none for any other control.
inline LineField FieldOfControl(std::string_view control) {
  const std::string_view name = control.substr(std::min<std::size_t>(3, control.size()));
  const auto* const line = std::ranges::find_if(kPlanLines, [&](const PlanLine& row) { return row.field.Name() == name; });
  return line == std::end(kPlanLines) ? LineField() : line->field;
}

inline std::optional<JoistBox> JoistOfControl(std::string_view control) {
  for (const JoistBox box : kAllJoistBoxes)
    if (control == "txt" + std::string(RowOf(box).name)) return box;
  return std::nullopt;
}

/// Every type that the checklist can make.
inline std::vector<int> PlanTypes() {
  std::vector<int> types = {kOneStorySlab | kDetachedGarage, kOneStorySlab | kDetachedGarage | kBrickVeneer};
  for (const int base : {kOneStorySlab, kTwoLevelSlab, kTwoLevelSlab | kFieldFramedHalfStory, kTwoLevelSlab | kAtticTrussHalfStory,
                         kOneStoryCrawl, kTwoLevelCrawl, kTwoLevelCrawl | kFieldFramedHalfStory, kTwoLevelCrawl | kAtticTrussHalfStory})
    for (const int parts : {0, kAttachedGarage, kCarport, kPorch, kAttachedGarage | kCarport | kPorch})
      for (const int brick : {0, kBrickVeneer}) types.push_back(base | parts | brick);
  return types;
}

}  // namespace norvale
