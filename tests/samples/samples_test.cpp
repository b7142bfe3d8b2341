// The sample tables are what they claim to be: choices agree with the lists, every plan has its printed list kept, and the
// README tells which stock has no price.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>

#include "base/numbers.h"
#include "case_file.h"
#include "printing/estimate_document.h"
#include "printing/order_summary.h"
#include "printing/print_selection.h"
#include "samples.h"

namespace norvale {

namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

using Index = std::int16_t EstimateRecord::*;
using Text = FixedText<20> EstimateRecord::*;

// A selection list and the fields that hold its choice.
struct Choice {
  int list;
  Index index;
  Text text = nullptr;
};

constexpr std::array<Choice, 39> kChoices = {{
    {0, &EstimateRecord::Combo00Index, &EstimateRecord::Combo00Text},
    {1, &EstimateRecord::FloorSheathingIndex, &EstimateRecord::FloorSheathing},
    {2, &EstimateRecord::ShoePlatesIndex, &EstimateRecord::ShoePlates},
    {3, &EstimateRecord::PreCutStudsIndex, &EstimateRecord::PreCutStuds},
    {4, &EstimateRecord::WallSheathingIndex, &EstimateRecord::WallSheathing},
    {5, &EstimateRecord::Combo05Index, &EstimateRecord::Combo05Text},
    {6, &EstimateRecord::RoofSheathingIndex, &EstimateRecord::RoofSheathing},
    {7, &EstimateRecord::RoofingIndex, &EstimateRecord::Roofing},
    {8, &EstimateRecord::Combo08Index, &EstimateRecord::Combo08Text},
    {9, &EstimateRecord::Combo09Index, &EstimateRecord::Combo09Text},
    {10, &EstimateRecord::Combo10Index, &EstimateRecord::Combo10Text},
    {11, &EstimateRecord::Combo11Index, &EstimateRecord::Combo11Text},
    {12, &EstimateRecord::Combo12Index, &EstimateRecord::Combo12Text},
    {13, &EstimateRecord::Combo13Index},
    {14, &EstimateRecord::Combo14Index},
    {16, &EstimateRecord::FoundationType},
    {17, &EstimateRecord::GirderPly},
    {18, &EstimateRecord::GirderSizeIndex, &EstimateRecord::GirderSize},
    {19, &EstimateRecord::Combo19Index},
    {20, &EstimateRecord::Combo20Index, &EstimateRecord::Combo20Text},
    {21, &EstimateRecord::Combo21Index},
    {22, &EstimateRecord::SillSizeIndex, &EstimateRecord::SillSize},
    {23, &EstimateRecord::Combo23Index, &EstimateRecord::Combo23Text},
    {24, &EstimateRecord::FloorJoistSizeIndex, &EstimateRecord::FloorJoistSize},
    {25, &EstimateRecord::Combo25Index},
    {26, &EstimateRecord::Combo26Index},
    {27, &EstimateRecord::Combo27Index},
    {28, &EstimateRecord::SecondFloorType},
    {29, &EstimateRecord::SecondFloorFramed},
    {30, &EstimateRecord::SecondFloorJoistSizeIndex, &EstimateRecord::SecondFloorJoistSize},
    {31, &EstimateRecord::Combo31Index, &EstimateRecord::Combo31Text},
    {32, &EstimateRecord::PreCutStudsSecondFloorIndex, &EstimateRecord::PreCutStudsSecondFloor},
    {33, &EstimateRecord::Combo33Index},
    {34, &EstimateRecord::Combo34Index},
    {35, &EstimateRecord::Combo35Index, &EstimateRecord::Combo35Text},
    {36, &EstimateRecord::Combo36Index, &EstimateRecord::Combo36Text},
    {37, &EstimateRecord::Combo37Index, &EstimateRecord::Combo37Text},
    {38, &EstimateRecord::Combo38Index, &EstimateRecord::Combo38Text},
    {39, &EstimateRecord::Combo39Index},
}};

std::string NameOf(const EstimateRecord& plan) { return plan.PlanNumber.Trimmed(); }

TEST(SamplePlans, HoldRowsOfTheDeliveredLists) {
  const Samples& samples = RepositorySamples();
  ASSERT_THAT(samples.plans, Not(IsEmpty()));
  for (const EstimateRecord& plan : samples.plans) {
    for (const Choice& choice : kChoices) {
      const int index = plan.*choice.index;
      const std::string row = ListRowText(samples.data.lists, choice.list, index - 1);
      EXPECT_TRUE(index > 0 && !row.empty() && row != kListEnd) << NameOf(plan) << ", list " << choice.list << ": row " << index;
      // The record holds the first 20 characters of a row.
      if (choice.text != nullptr) {
        EXPECT_EQ((plan.*choice.text).Trimmed(), row.substr(0, 20)) << NameOf(plan) << ", list " << choice.list;
      }
    }
    // This one is held by its text alone.
    const std::string inside = plan.Combo15Text.Trimmed();
    EXPECT_TRUE(inside == ListRowText(samples.data.lists, 15, 0) || inside == ListRowText(samples.data.lists, 15, 1)) << NameOf(plan);
  }
}

TEST(SamplePlans, BelongToCustomersOnFileAndUseEveryPriceLevel) {
  const Samples& samples = RepositorySamples();
  std::set<std::string> levels;
  for (const EstimateRecord& plan : samples.plans) {
    EXPECT_NE(samples.Customer(plan.CustomerNumber).CustomerName.Trimmed(), "") << NameOf(plan);
    levels.insert(plan.PriceLevel.Trimmed());
  }
  EXPECT_EQ(levels, (std::set<std::string>{"1", "2", "3", "4", "5"}));
}

TEST(SamplePlans, HaveEachTheirPricedListKept) {
  const std::vector<SampleCase> cases = ReadCases(std::filesystem::path(NORVALE_SOURCE_DIR) / "tests" / "samples");
  for (const EstimateRecord& plan : RepositorySamples().plans)
    EXPECT_TRUE(std::any_of(cases.begin(), cases.end(),
                            [&](const SampleCase& sample) {
                              return sample.IsText() && sample.options.count("prices") > 0 && sample.options.count("sections") == 0 &&
                                     sample.Option("customer") == std::to_string(plan.CustomerNumber) &&
                                     sample.Option("plan") == NameOf(plan);
                            }))
        << NameOf(plan) << " has no case in tests/samples";
}

TEST(SamplePlans, TellWhereEachRowStandsOnThePaper) {
  const Samples& samples = RepositorySamples();
  std::size_t unpriced = 0;
  for (const EstimateRecord& plan : samples.plans) {
    EstimatePrint print;
    print.plan = plan;
    print.sectionMask = DefaultSections(plan) | kWithPrices;
    const EstimateDocument made = MakeEstimateDocument(print, samples.data);
    for (const PrintedLine& line : made.totals.lines) {
      const std::string& text = made.document.pages.at(line.place.page).at(line.place.line);
      EXPECT_THAT(text, HasSubstr(line.description)) << NameOf(plan);
      EXPECT_THAT(text, HasSubstr(Digits(line.quantity))) << NameOf(plan);
    }
    unpriced += made.document.marks.size();
  }
  EXPECT_GT(unpriced, 0U);
}

TEST(SamplePlans, HaveAnOrderSummaryThatAgreesWithTheirList) {
  const Samples& samples = RepositorySamples();
  const auto cents = [](double amount) { return RoundEven(amount * 100); };
  for (const EstimateRecord& plan : samples.plans) {
    Page page;
    const EstimateTotals totals = PrintSample(samples, plan, page);
    double pulled = 0;
    for (const PrintedLine& line : totals.lines)
      if (&line == &totals.lines.front() || line.place != (&line - 1)->place) pulled += line.quantity;
    const OrderSummary summary = Summarise(totals, SummaryOrder::YardSections);
    EXPECT_LT(summary.lines.size(), totals.lines.size()) << NameOf(plan);
    double sum = cents(RoundingOf(summary));
    for (const SummaryLine& line : summary.lines) {
      sum += cents(Val(FormatNumber(line.extension, {.wholeDigits = 1, .decimals = 2})));
      // A board that is charged once more, under the name of its wrap, is pulled once.
      if (!line.description.ends_with(" VINYL FASCIA")) pulled -= line.quantity;
      EXPECT_NE(line.yard, YardSection::Other) << line.description;
    }
    EXPECT_EQ(pulled, 0) << NameOf(plan);
    EXPECT_THAT(page.Text(), HasSubstr(" " + FormatNumber(sum / 100, kMoney) + "\n")) << NameOf(plan);
  }
}

// Stock without a price is there on purpose, and a reader must not take it for a mistake.
TEST(SamplePrices, AreMissingOnlyWhereTheReadmeSaysSo) {
  const Samples& samples = RepositorySamples();
  const std::string readme = ReadBytes(std::filesystem::path(NORVALE_SOURCE_DIR) / "samples" / "README.md");
  std::set<std::string> unpriced;
  for (const EstimateRecord& plan : samples.plans) {
    Page page;
    const EstimateTotals totals = PrintSample(samples, plan, page);
    for (const PrintedLine& line : totals.lines)
      if (line.stock == nullptr) unpriced.insert(line.priceKey);
  }
  EXPECT_THAT(unpriced, Not(IsEmpty()));
  for (const std::string& key : unpriced) EXPECT_THAT(readme, HasSubstr("`" + key + "`"));
}

}  // namespace

}  // namespace norvale
