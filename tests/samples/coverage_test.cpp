// Nothing goes untested unseen: the sample plans together print every row that the sections have.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "base/text.h"
#include "row_probe.h"
#include "samples.h"

namespace norvale {
namespace {

// The rows that none of the plans prints, as "source:line", but for the plan of a number.
std::vector<std::string> UnreachedRows(std::string_view without = {}) {
  PrintedRows().clear();
  for (const EstimateRecord& plan : RepositorySamples().plans) {
    if (plan.PlanNumber.Trimmed() == without) continue;
    Page page;
    PrintSample(RepositorySamples(), plan, page);
  }
  std::vector<std::string> unreached;
  for (const auto& row : KnownRows())
    if (!PrintedRows().contains(row)) unreached.push_back(row.first + ":" + std::to_string(row.second));
  return unreached;
}

TEST(SamplePlans, PrintEveryRowOfEverySection) {
  EXPECT_THAT(UnreachedRows(), testing::IsEmpty());
  // Each section has rows, and a row that one plan alone prints is missed without it.
  for (const char* const section : {"first_floor_floor_system", "first_floor_wall_system", "second_floor_floor_system",
                                    "second_floor_wall_system", "roof_system", "exterior_trim", "flooring", "sheetrock", "interior_trim"})
    EXPECT_TRUE(std::any_of(KnownRows().begin(), KnownRows().end(), [&](const auto& row) { return Has(row.first, section); })) << section;
  EXPECT_THAT(UnreachedRows("LAUREL RIDGE"), testing::Contains(testing::HasSubstr("roof_system.cpp")));
}

}  // namespace
}  // namespace norvale
