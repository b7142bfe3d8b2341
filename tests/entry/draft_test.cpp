#include "entry/draft.h"

#include <gtest/gtest.h>

#include <random>

#include "data/estimate_file.h"
#include "entry/entry_form.h"
#include "entry/screens.h"
#include "support/data_fixture.h"
#include "support/random_records.h"

namespace norvale {
namespace {

void Type(PlanForm& form, std::mt19937& random) {
  const auto below = [&random](std::size_t end) { return static_cast<int>(random() % end); };
  for (int step = 0; step < 40; ++step) {
    const int list = below(kSelectionLists);
    if (const std::size_t rows = form.combo1[list].rows.size(); rows > 0) ClickSelectionBox(form, list, below(rows));
    const int box = below(kNumberBoxes);
    if (!form.TxtDisp[box].enabled) continue;
    EnterNumberBox(form, box);
    SetNumberText(form, box, std::to_string(below(40000)));
    SetJoistText(form, below(kJoistBoxes), std::to_string(below(30)));
  }
  GoToScreen(form, below(ScreenCount + 1));
}

// What the operator has in the form. Joist boxes that are shut are out of sight on a plan that is opened, and grey on one
// at hand.
void ExpectSame(const PlanForm& a, const PlanForm& b, const std::string& what) {
  for (std::size_t i = 0; i < kSelectionLists; ++i) {
    EXPECT_EQ(a.combo1[i].enabled, b.combo1[i].enabled) << what << " list " << i;
    EXPECT_EQ(a.combo1[i].ListIndex, b.combo1[i].ListIndex) << what << " list " << i;
  }
  for (std::size_t i = 0; i < kNumberBoxes; ++i) {
    EXPECT_EQ(a.TxtDisp[i].enabled, b.TxtDisp[i].enabled) << what << " box " << i;
    EXPECT_EQ(a.TxtDisp[i].text, b.TxtDisp[i].text) << what << " box " << i;
    EXPECT_EQ(a.TxtDisp[i].isTouched, b.TxtDisp[i].isTouched) << what << " box " << i;
  }
  for (std::size_t i = 0; i < kJoistBoxes; ++i) {
    EXPECT_EQ(a.TxtDispJoist[i].enabled, b.TxtDispJoist[i].enabled) << what << " joist " << i;
    EXPECT_EQ(a.TxtDispJoist[i].text, b.TxtDispJoist[i].text) << what << " joist " << i;
  }
  for (std::size_t i = 0; i < kScreenLines; ++i) EXPECT_EQ(a.lblLine[i].enabled, b.lblLine[i].enabled) << what << " line " << i;
  EXPECT_EQ(a.mode, b.mode) << what;
  EXPECT_EQ(a.isPrintEnabled, b.isPrintEnabled) << what;
  EXPECT_EQ(a.CurrentScreen, b.CurrentScreen) << what;
  EXPECT_EQ(a.Disp36Tag, b.Disp36Tag) << what;
}

class DraftTest : public testing::Test {
 protected:
  std::unique_ptr<MemoryDisk> disk = SampleDisk();
  DataFolder folder{"", *disk};
  Session session;
};

TEST_F(DraftTest, BringsBackEveryPlanAsItStood) {
  std::mt19937 random(6);
  for (const int type : PlanTypes())
    for (const bool isNew : {true, false}) {
      EstimateRecord plan = RandomPlan(random);
      plan.PlanType = static_cast<std::int16_t>(type);
      PlanForm form = isNew ? NewForm(type) : OpenedForm(plan);
      Type(form, random);
      KeepDraft(folder, DraftOf(form, plan, plan, !isNew));
      const auto found = FindDraft(folder);
      ASSERT_TRUE(found.draft) << found.notice;
      EstimateRecord again;
      const PlanForm restored = FormOfDraft(*found.draft, again, DeliveredScreenLines(), DeliveredMaterialRows());
      ExpectSame(restored, form, "type " + std::to_string(type) + (isNew ? " new" : " opened"));
      EXPECT_EQ(restored.mark, ChangeMark::Modified);
      EXPECT_EQ(found.draft->onFile, plan);
      EXPECT_EQ(DraftOf(restored, again, plan, !isNew), *found.draft);
      if (HasFailure()) return;
    }
  RemoveDraft(folder);
  EXPECT_FALSE(FindDraft(folder).draft);
  EXPECT_EQ(FindDraft(folder).notice, "");
}

TEST_F(DraftTest, WhatIsNoDraftIsToldAndKept) {
  const PlanForm form = NewForm(kOneStorySlab);
  KeepDraft(folder, DraftOf(form, BlankPlan(), {}, false));
  const std::string good = disk->Bytes(kDraftFile);
  std::vector<std::string> bad = {"", "no draft", std::string(100000, 'x'), good + "x", good.substr(0, good.size() - 1), good, good};
  bad[5][700] ^= 1;
  bad[6][7] = '2';
  for (std::size_t i = 0; i < bad.size(); ++i) {
    disk->SetBytes(kDraftFile, bad[i]);
    const auto found = FindDraft(folder);
    const std::string aside = std::string(kDraftFile) + "." + std::to_string(i + 1);
    EXPECT_FALSE(found.draft) << i;
    EXPECT_NE(found.notice.find("It is kept as " + aside + "."), std::string::npos) << found.notice;
    EXPECT_EQ(disk->Bytes(aside), bad[i]);
    EXPECT_EQ(FindDraft(folder).notice, "") << "told once";
  }
  EXPECT_TRUE(CheckFolder(*disk, "").empty());
}

// The plan of the draft is "7A 5", the second of two with that number.
TEST_F(DraftTest, KnowsWhatHasBecomeOfItsPlan) {
  const auto open = [&] { ASSERT_TRUE(FindEstimateOfPlan(folder, session, 7, "A") && MoveEstimate(folder, session, +1).hasRecord); };
  open();
  const EstimateRecord onFile = session.CurrentEstimate;
  EstimateRecord typed = onFile;
  typed.RoofSqFt = 99;
  PadTexts(typed);
  const struct {
    const char* what;
    PlanMode mode;
    std::function<void()> meanwhile;
    DraftStanding standing;
  } cases[] = {
      {"nothing", PlanMode::Existing, [] {}, DraftStanding::Unsaved},
      {"a new plan", PlanMode::New, [] {}, DraftStanding::Unsaved},
      {"another plan came before it", PlanMode::Existing, [&] { session.CurrentEstimate = PlanOf(1, "A"), AddEstimate(folder, session); },
       DraftStanding::Unsaved},
      {"changed", PlanMode::Existing, [&] { open(), session.CurrentEstimate.RoofSqFt = 51, (void)UpdateEstimate(folder, session); },
       DraftStanding::Changed},
      {"deleted", PlanMode::Existing, [&] { open(), (void)DeleteEstimate(folder, session); }, DraftStanding::Changed},
      {"saved", PlanMode::Existing, [&] { open(), session.CurrentEstimate = typed, (void)UpdateEstimate(folder, session); },
       DraftStanding::Saved},
      {"saved as new", PlanMode::New, [&] { session.CurrentEstimate = typed, AddEstimate(folder, session); }, DraftStanding::Saved},
  };
  for (const auto& c : cases) {
    const auto before = SampleDisk();
    for (const std::string_view name : {EstimateDataFile, EstimateIndexFile}) disk->SetBytes(name, before->Bytes(name));
    c.meanwhile();
    PlanDraft draft;
    draft.mode = c.mode;
    draft.plan = typed;
    draft.onFile = onFile;
    session.EstimateCursor = 1;
    session.CurrentEstimate = {};
    EXPECT_EQ(PlaceDraft(folder, session, draft), c.standing) << c.what;
    const bool isPlaced = c.mode == PlanMode::Existing && c.standing == DraftStanding::Unsaved;
    EXPECT_EQ(session.CurrentEstimate, isPlaced ? onFile : EstimateRecord{}) << c.what;
  }
}

}  // namespace
}  // namespace norvale
