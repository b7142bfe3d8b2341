// A new plan on the default rows: nothing on its list may mislead.
#include <gtest/gtest.h>

#include <vector>

#include "delivered/sample_house.h"
#include "entry/entry_form.h"

namespace norvale {
namespace {

// Labels that only a plan with that part may show.
struct PartLabels {
  const char* part;
  bool (*has)(const EstimateRecord&);
  std::vector<std::string_view> labels;
};

const std::vector<PartLabels> kParts = {
    {"crawl space",
     [](const EstimateRecord& plan) { return (plan.PlanType & kCrawlSpace) != 0; },
     {"(Mud Sill)", "(Sill Sealer)", "(Box Sill)", "(Girders)", "(Ledger-Girders)", "(Flr. Joist)", "(Flr. I Joist)"}},
    {"slab", [](const EstimateRecord& plan) { return (plan.PlanType & kSlab) != 0; }, {"(Shoe)", "(Shoe Ext wall)", "(Plates, Blk. Ext)"}},
    {"second floor",
     [](const EstimateRecord& plan) { return plan.SecondFloorType == 2; },
     {"(Stair Stringers)", "(2-Flr. Joist)", "(Wall Studs Ext)", "(2nd Flr. Nails)", "(Wallboard-2fl.)", "(Base 2fl.)",
      "(Flr. Truss Band)"}},
    {"joisted second floor",
     [](const EstimateRecord& plan) { return plan.SecondFloorFramed == 1; },
     {"(2-Flr. Joist)", "(Solid Bridging)"}},
    {"garage",
     [](const EstimateRecord& plan) { return plan.GarageOrStorageIndex == 1; },
     {"(Shoe, Garage)", "(Garage Studs)", "(Wallboard-Garage)"}},
    {"carport or porch",
     [](const EstimateRecord& plan) { return plan.CarportOrPorchIndex == 1; },
     {"(Furring Strips)", "(Porch/Carport)", "(Mull)"}},
    {"brick", [](const EstimateRecord& plan) { return plan.WallFinishIndex == 1; }, {"(Brick Ties)", "(Freize Board)", "Gable Siding"}},
    {"vinyl siding",
     [](const EstimateRecord& plan) { return plan.WallFinishIndex == 5; },
     {"(Vinyl Starter)", "(Exterior Siding)", "(OS Corners)"}},
    {"a choice of its own for another siding, roof or floor",
     [](const EstimateRecord&) { return false; },
     {"(Exterior Sdg.)", "(Ext. Sdg.-1 Fl.)", "(Corner Boards)", "(Rafter)", "(Ridge)", "(Roof Bracing)", "(Finish Flg.)"}},
};

TEST(NewPlan, OnItsDefaultsNothingMisleads) {
  Page page;
  for (const int type : PlanTypes()) {
    EstimateRecord plan = NewPlan(type);
    Measure(plan);
    page.Clear();
    const EstimateTotals totals = PrintWithDeliveredPrices(plan, page);
    EXPECT_GT(totals.GrandTotal, 0) << PlanDescription(plan.PlanType);
    for (const PrintedLine& line : totals.lines) {
      const std::string where = PlanDescription(plan.PlanType) + " " + std::string(line.label) + " \"" + line.description + "\"";
      EXPECT_NE(Trim(line.description), "") << where;
      EXPECT_GE(line.quantity, 0) << where;
      EXPECT_NE(line.stock, nullptr) << where << " has no price under \"" << line.priceKey << "\"";
      for (const PartLabels& part : kParts) {
        if (part.has(plan)) continue;
        for (const std::string_view label : part.labels) EXPECT_NE(line.label, label) << where << ", a plan without " << part.part;
      }
    }
  }
}

}  // namespace
}  // namespace norvale
