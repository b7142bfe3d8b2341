// A house of any plan type from the delivered lists, for tests that ask what a plan can come to.
#pragma once

#include <string>
#include <vector>

#include "base/text.h"
#include "data/plan_fields.h"
#include "data/plan_type.h"
#include "prices/delivered.h"
#include "takeoff/print_estimate.h"

namespace norvale {

/// The texts of each delivered list, without its "List End", and the row (from 1) that is its default.
struct DeliveredList {
  std::vector<std::string> rows;
  int defaultRow = 0;
};

inline const BySelectionList<DeliveredList>& DeliveredLists() {
  static const BySelectionList<DeliveredList> lists = [] {
    BySelectionList<DeliveredList> made;
    for (const MaterialRow& row : DeliveredMaterialRows()) {
      const std::string text = row.ListText.Trimmed();
      if (text == kListEnd) continue;
      DeliveredList& list = made.values.at(static_cast<std::size_t>(row.ListNumber));
      list.rows.push_back(text);
      if (row.ListDefaultFlag != 0) list.defaultRow = static_cast<int>(list.rows.size());
    }
    return made;
  }();
  return lists;
}

/// Puts row `row` (from 1) of a list into the plan, as the data-entry screens store it.
inline void Choose(EstimateRecord& plan, SelectionList list, int row) {
  const SelectionListRow& choice = RowOf(list);
  if (choice.index != nullptr) plan.*choice.index = static_cast<std::int16_t>(row);
  if (choice.text != nullptr) (plan.*choice.text).Assign(DeliveredLists()[list].rows[static_cast<std::size_t>(row) - 1]);
}

/// A new plan of a type: the default row of every list, but for the lists that the type itself fixes. Nothing is measured.
inline EstimateRecord NewPlan(int planType) {
  EstimateRecord plan;
  plan.PlanType = static_cast<std::int16_t>(planType);
  plan.PriceLevel.Assign("1");
  plan.PlanNumber.Assign("TEST");
  for (const SelectionList list : kAllSelectionLists) Choose(plan, list, DeliveredLists()[list].defaultRow);
  const bool twoLevels = (planType & (kTwoLevelSlab | kTwoLevelCrawl)) != 0;
  Choose(plan, SelectionList::SlabOrCrawl, (planType & kCrawlSpace) != 0 ? 2 : 1);
  Choose(plan, SelectionList::GarageOrStorage, (planType & kAttachedGarage) != 0 ? 1 : 2);
  Choose(plan, SelectionList::CarportOrPorch, (planType & (kCarport | kPorch)) != 0 ? 1 : 2);
  Choose(plan, SelectionList::SecondFloorType, twoLevels ? 2 : 1);
  if ((planType & kSlab) != 0) Choose(plan, SelectionList::GirderPly, 1);
  if ((planType & kBrickVeneer) != 0) Choose(plan, SelectionList::WallFinish, 1);
  if ((planType & kAtticTrussHalfStory) != 0) Choose(plan, SelectionList::SecondFloorFramed, 2);
  return plan;
}

/// Measures for the parts that the type has: a house of 48 by 30 feet.
inline void Measure(EstimateRecord& plan) {
  const int type = plan.PlanType;
  const bool twoLevels = plan.SecondFloorType == 2;
  const bool crawl = (type & kCrawlSpace) != 0;
  plan.ExtWallLftFirstFloor = 156, plan.OutsideCornersFirstFloor = 6, plan.HeatedLength = 48, plan.OverallLength = 48;
  plan.IntWallLftFirstFloor = 160, plan.HeatedSqFtFirstFloor = 1440;
  plan.HeaderLft = 110, plan.FasciaLft = 190, plan.RoofSqFt = 1900, plan.EavesLft = 100, plan.GableSqFt = 240;
  plan.ExtWallSidingFirstFloor = 1248;
  if (crawl) {
    plan.MajorGirderLft = {0, 0, 48, 0, 0};
    plan.BayAreaLftFirstFloor = {0, 0, 0, 48, 48}, plan.JoistLengthFirstFloor = {8, 10, 12, 14, 16};
  }
  if (twoLevels) {
    plan.HeatedSqFtSecondFloor = 1200, plan.ExtWallLftSecondFloor = 140, plan.IntWallLftSecondFloor = 130, plan.OutsideCornersSecondFloor = 4,
    plan.ExtWallSidingSecondFloor = 1100;
    if (plan.SecondFloorFramed == 1) plan.BayAreaLftSecondFloor = {0, 0, 0, 44, 44};
    plan.JoistLengthSecondFloor = {8, 10, 12, 14, 16};
  }
  if ((type & kFieldFramedHalfStory) != 0) plan.KneeWallLft = 80;
  if ((type & kHalfStory) != 0) plan.HalfStoryBaseMouldLft = 40;
  if (plan.GarageOrStorageIndex == 1) plan.GarageWallLftSheathed = 62, plan.GarageWallLftUnsheathed = 22, plan.GarageSqFt = 484, plan.OverallLength = 70;
  if (plan.CarportOrPorchIndex == 1) plan.CarportBeamLft = 24, plan.CarportSqFt = 160;
}

/// The plan's priced list under the delivered data.
inline EstimateTotals PrintWithDeliveredPrices(const EstimateRecord& plan, Page& page) {
  static const TakeoffData data = [] {
    TakeoffData made;
    made.waste = DesignTimeWasteFactors();
    made.lists = DeliveredMaterialRows();
    made.prices = DeliveredPrices();
    return made;
  }();
  EstimatePrint print;
  print.plan = plan;
  print.date = "11-22-2026";
  print.sectionMask = kWholeMask;
  return PrintEstimate(print, data, page);
}

}  // namespace norvale
