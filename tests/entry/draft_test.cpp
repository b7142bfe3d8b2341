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
    const SelectionList list = kAllSelectionLists[random() % kSelectionLists];
    if (const std::size_t rows = form.lists[list].rows.size(); rows > 0) ClickSelectionList(form, list, below(rows));
    const NumberBox box = kAllNumberBoxes[random() % kNumberBoxes];
    if (!form.numbers[box].enabled) continue;
    EnterNumberBox(form, box);
    SetNumberText(form, box, std::to_string(below(40000)));
    SetJoistText(form, kAllJoistBoxes[random() % kJoistBoxes], std::to_string(below(30)));
  }
  GoToScreen(form, below(ScreenCount + 1));
}

// All that the operator sees of the form, and what it remembers of him.
std::string Seen(const PlanForm& form) {
  std::string seen = std::to_string(static_cast<int>(form.mode)) + std::to_string(form.isPrintEnabled) + "/" +
                     std::to_string(form.CurrentScreen) + "/" + std::to_string(form.CarportSqFtUnmulled);
  for (const ListState& list : form.lists) seen += (list.enabled ? " list " : " (list) ") + std::to_string(list.ListIndex);
  for (const NumberState& box : form.numbers) seen += (box.enabled ? " box " : " (box) ") + box.text + (box.isTouched ? "!" : "");
  for (const JoistState& box : form.joists) seen += (box.enabled ? " joist " : " (joist) ") + box.text;
  for (const LineState& line : form.lines) seen += line.enabled ? "+" : "-";
  return seen;
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
      ASSERT_EQ(Seen(restored), Seen(form)) << "type " << type << (isNew ? " new" : " opened");
      EXPECT_EQ(restored.mark, ChangeMark::Modified);
      EXPECT_EQ(found.draft->onFile, plan);
      EXPECT_EQ(DraftOf(restored, again, plan, !isNew), *found.draft);
    }
  RemoveDraft(folder);
  EXPECT_FALSE(FindDraft(folder).draft);
  EXPECT_EQ(FindDraft(folder).notice, "");
}

TEST_F(DraftTest, WhatIsNoDraftIsToldAndKept) {
  const PlanForm form = NewForm(kOneStorySlab);
  KeepDraft(folder, DraftOf(form, BlankPlan(), {}, false));
  const std::string good = disk->Bytes(kDraftFile);
  std::vector<std::string> bad = {"", std::string(100000, 'x'), good + "x", good.substr(0, good.size() - 1), good, good};
  bad[4][700] ^= 1;
  bad[5][7] = '2';
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
  using enum DraftStanding;
  const auto open = [&] { ASSERT_TRUE(FindEstimateOfPlan(folder, session, 7, "A") && MoveEstimate(folder, session, +1).hasRecord); };
  const auto add = [&](const EstimateRecord& plan) { session.CurrentEstimate = plan, AddEstimate(folder, session); };
  const auto save = [&](const EstimateRecord& plan) { open(), session.CurrentEstimate = plan, (void)UpdateEstimate(folder, session); };
  open();
  PlanDraft draft;
  draft.plan = draft.onFile = session.CurrentEstimate;
  draft.plan.RoofSqFt = 99;
  PadTexts(draft.plan);
  const struct {
    const char* what;
    PlanMode mode;
    std::function<void()> meanwhile;
    DraftStanding standing;
  } cases[] = {
      {"nothing", PlanMode::Existing, [] {}, Unsaved},
      {"a new plan", PlanMode::New, [] {}, Unsaved},
      {"another plan came before it", PlanMode::Existing, [&] { add(PlanOf(1, "A")); }, Unsaved},
      {"changed", PlanMode::Existing, [&] { save(PlanOf(7, "A", 51)); }, Changed},
      {"deleted", PlanMode::Existing, [&] { open(), (void)DeleteEstimate(folder, session); }, Changed},
      {"saved", PlanMode::Existing, [&] { save(draft.plan); }, Saved},
      {"saved as new", PlanMode::New, [&] { add(draft.plan); }, Saved},
  };
  for (const auto& c : cases) {
    const auto before = SampleDisk();
    for (const std::string_view name : {EstimateDataFile, EstimateIndexFile}) disk->SetBytes(name, before->Bytes(name));
    c.meanwhile();
    draft.mode = c.mode;
    session.EstimateCursor = 1;
    session.CurrentEstimate = {};
    EXPECT_EQ(PlaceDraft(folder, session, draft), c.standing) << c.what;
    const bool isPlaced = c.mode == PlanMode::Existing && c.standing == Unsaved;
    EXPECT_EQ(session.CurrentEstimate, isPlaced ? draft.onFile : EstimateRecord{}) << c.what;
  }
}

}  // namespace
}  // namespace norvale
