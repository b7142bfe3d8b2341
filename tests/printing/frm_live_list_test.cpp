#include "printing/frm_live_list.h"

#include <gmock/gmock.h>

#include <QScrollBar>
#include <QTreeView>
#include <filesystem>

#include "base/numbers.h"
#include "delivered/sample_house.h"
#include "desktop/desktop_fixture.h"
#include "desktop/form_driver.h"
#include "desktop/frm_text.h"
#include "printing/estimate_document.h"

namespace norvale {
namespace {

class LiveListTest : public DesktopTest {
 protected:
  LiveListTest() {
    list.resize(420, 300);
    list.show();
  }

  [[nodiscard]] const std::vector<LiveRow>& Rows() { return list.findChild<LiveListModel*>()->Rows(); }
  [[nodiscard]] std::string Label(const char* name) { return Find<QLabel>(list, name)->text().toStdString(); }

  static EstimateRecord House() {
    EstimateRecord plan = NewPlan(8 + 16);
    Measure(plan);
    return plan;
  }

  LiveList list{program};
};

TEST_F(LiveListTest, AddsUpToTheTotalOfThePaper) {
  list.ShowPlan(House());
  Page page;
  const EstimateTotals totals = PrintWithDeliveredPrices(House(), page);
  EXPECT_EQ(Label("lblTotal"), "Grand total " + FormatNumber(totals.GrandTotal, kMoney));
  std::size_t unpriced = 0;
  for (const LiveRow& row : Rows()) unpriced += row.isPriced ? 0 : 1;
  EXPECT_EQ(unpriced, UnpricedLines(totals.lines).size());
  // Each heading carries what the paper prints as its subtotal.
  int headings = 0;
  for (const LiveRow& row : Rows()) {
    if (!row.isSection) continue;
    ++headings;
    const std::string printed = "Sub Total for " + row.section.toStdString();
    const std::size_t at = page.Text().find(printed);
    ASSERT_NE(at, std::string::npos) << printed;
    const std::string line = page.Text().substr(at, page.Text().find('\n', at) - at);
    EXPECT_TRUE(line.ends_with(" " + row.amount.toStdString())) << line << " | " << row.amount.toStdString();
  }
  EXPECT_EQ(headings, 9);
}

TEST_F(LiveListTest, KeepsItsPlaceWhileThePlanGrows) {
  EstimateRecord plan = House();
  plan.MajorGirderLft = {};
  list.ShowPlan(plan);
  auto* const view = Find<QTreeView>(list, "lstLive");
  const std::size_t before = Rows().size();
  view->verticalScrollBar()->setValue(view->verticalScrollBar()->maximum() / 2);
  const auto atTop = [&] {
    const LiveRow& row = Rows()[static_cast<std::size_t>(view->indexAt({0, 0}).row())];
    return row.section + row.description + row.label;
  };
  const QString line = atTop();
  const int offset = view->visualRect(view->indexAt({0, 0})).top();
  list.ShowPlan(House());
  ASSERT_NE(Rows().size(), before);
  EXPECT_EQ(atTop(), line);
  EXPECT_EQ(view->visualRect(view->indexAt({0, 0})).top(), offset);
}

TEST_F(LiveListTest, SaysWhichFileIsMissing) {
  list.hide();
  std::filesystem::remove(scratch / "NVdata03.db");
  list.show();
  list.ShowPlan(House());
  EXPECT_THAT(Label("lblUnpriced"), testing::HasSubstr("NVdata03.db"));
  EXPECT_TRUE(Rows().empty());
}

}  // namespace
}  // namespace norvale
