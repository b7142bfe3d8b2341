// The sample tables are what they claim to be: choices agree with the lists, and the README tells which stock has no
// price.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "base/numbers.h"
#include "data/plan_fields.h"
#include "printing/estimate_document.h"
#include "printing/order_summary.h"
#include "printing/print_selection.h"
#include "samples.h"
#include "support/scratch_folder.h"

namespace norvale {

namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

std::string NameOf(const EstimateRecord& plan) { return plan.PlanNumber.Trimmed(); }

TEST(SamplePlans, HoldRowsOfTheDeliveredLists) {
  const Samples& samples = RepositorySamples();
  ASSERT_THAT(samples.plans, Not(IsEmpty()));
  for (const EstimateRecord& plan : samples.plans) {
    for (int list = 0; list < static_cast<int>(kSelectionLists); ++list) {
      const SelectionListRow& choice = kSelectionListRows[list];
      const std::string text = choice.text != nullptr ? (plan.*choice.text).Trimmed() : "";
      // The inside of a slab building is held by its text alone. The record holds the first 20 characters of a row.
      const int position = choice.index != nullptr ? plan.*choice.index - 1 : text == "FINISHED" ? 0 : 1;
      const std::string row = ListRowText(samples.data.lists, list, position);
      EXPECT_TRUE(!row.empty() && row != kListEnd) << NameOf(plan) << ", list " << list << ": row " << position + 1;
      EXPECT_TRUE(choice.text == nullptr || text == row.substr(0, 20)) << NameOf(plan) << ", list " << list << ": " << text;
    }
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
