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
