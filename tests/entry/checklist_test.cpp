#include "entry/checklist.h"

#include <gtest/gtest.h>

#include <vector>

#include "data/plan_type.h"
#include "entry/plan_form.h"

namespace norvale {
namespace {

using enum PlanCheck;

PlanChecks Ticked(std::initializer_list<PlanCheck> boxes) {
  PlanChecks checks;
  for (const PlanCheck box : boxes) checks.Tick(box) = true;
  return checks;
}

TEST(PlanChecks, ABoxClearsWhatItExcludes) {
  struct Case {
    const char* what;
    std::initializer_list<PlanCheck> before;
    PlanCheck pressed;
    std::initializer_list<PlanCheck> after;
  };
  for (const Case& c : {Case{"one foundation only", {chkCrawl10}, chkSlab10, {chkSlab10}},
                        Case{"one foundation only", {chkSlab10}, chkCrawl15_20, {chkCrawl15_20}},
                        Case{"one foundation only", {chkCrawl15_20}, chkSlab15_20, {chkSlab15_20}},
                        Case{"one story ends the half story", {chkSlab15_20, chk12field}, chkSlab10, {chkSlab10}},
                        Case{"one story ends the half story", {chkCrawl15_20, chk12truss}, chkCrawl10, {chkCrawl10}},
                        Case{"the other two levels keep it", {chkCrawl15_20, chk12truss}, chkSlab15_20, {chkSlab15_20, chk12truss}},
                        Case{"a half story needs two levels", {chkSlab10}, chk12field, {chkSlab10}},
                        Case{"a half story needs two levels", {}, chk12truss, {}},
                        Case{"one half story only", {chkSlab15_20, chk12field}, chk12truss, {chkSlab15_20, chk12truss}},
                        Case{"one half story only", {chkCrawl15_20, chk12truss}, chk12field, {chkCrawl15_20, chk12field}},
                        Case{"unticking leaves the rest", {chkCrawl15_20, chk12field}, chk12field, {chkCrawl15_20}},
                        Case{"detached on a slab", {chkCrawl10}, chkGarage_Detatch, {chkSlab10, chkGarage_Detatch}},
                        Case{"detached has one story", {chkSlab15_20, chk12truss}, chkGarage_Detatch, {chkSlab10, chkGarage_Detatch}},
                        Case{"unticked, it clears nothing", {chkSlab10, chkGarage_Detatch}, chkGarage_Detatch, {chkSlab10}},
                        Case{"its slab may be pressed", {chkGarage_Detatch}, chkSlab10, {chkSlab10, chkGarage_Detatch}},
                        Case{"no other foundation under it", {chkSlab10, chkGarage_Detatch}, chkCrawl10, {chkCrawl10}},
                        Case{"no other foundation under it", {chkSlab10, chkGarage_Detatch}, chkSlab15_20, {chkSlab15_20}},
                        Case{"no other foundation under it", {chkSlab10, chkGarage_Detatch}, chkCrawl15_20, {chkCrawl15_20}},
                        Case{"brick or vinyl", {chkSlab10, chkwhvinyl}, chkectvinyl, {chkSlab10, chkectvinyl}},
                        Case{"brick or vinyl", {chkSlab10, chkectvinyl}, chkwhvinyl, {chkSlab10, chkwhvinyl}},
                        Case{"parts exclude nothing",
                             {chkSlab10, chkCarport, chkGarage_Detatch},
                             chkGarage_Attatch,
                             {chkSlab10, chkCarport, chkGarage_Detatch, chkGarage_Attatch}},
                        Case{"parts exclude nothing", {chkSlab10, chkCarport}, chkPorch, {chkSlab10, chkCarport, chkPorch}}}) {
    PlanChecks checks = Ticked(c.before);
    ToggleCheck(checks, c.pressed);
    EXPECT_EQ(checks.ticked, Ticked(c.after).ticked) << c.what << ", " << InfoOf(c.pressed).name;
  }
}

TEST(PlanChecks, WalkingThroughABoxChangesNothingThatFits) {
  constexpr int kEnter = 13;
  for (std::size_t box = 0; box < kPlanChecks; ++box)
    for (const auto& before : {Ticked({chkSlab15_20, chk12field, chkPorch}), Ticked({chkCrawl15_20, chk12truss, chkwhvinyl}),
                               Ticked({chkSlab10, chkGarage_Detatch, chkectvinyl})}) {
      PlanChecks checks = before;
      KeyOnCheck(checks, static_cast<PlanCheck>(box), kEnter);
      EXPECT_EQ(checks, before) << InfoOf(static_cast<PlanCheck>(box)).name;
    }
  PlanChecks stranded = Ticked({chk12field});
  KeyOnCheck(stranded, chk12field, kEnter);
  EXPECT_FALSE(stranded.Has(chk12field)) << "without two levels it goes on any key";
}

TEST(PlanChecks, TheBlankKeyExcludes) {
  PlanChecks checks = Ticked({chkectvinyl, chkwhvinyl});
  KeyOnCheck(checks, chkectvinyl, ' ');
  EXPECT_EQ(checks, Ticked({chkectvinyl}));
}

TEST(PlanChecks, DisabledBoxesStay) {
  PlanChecks checks = Ticked({chkCrawl10});
  checks.isEnabled = false;
  ToggleCheck(checks, chkSlab10);
  KeyOnCheck(checks, chk12field, ' ');
  EXPECT_EQ(checks.ticked, Ticked({chkCrawl10}).ticked);
}

// Whatever is pressed in whatever order, the type is one that the field rules know.
TEST(PlanChecks, NoSequenceMakesAnImpossibleType) {
  unsigned state = 7;
  PlanChecks checks;
  for (int step = 0; step < 20000; ++step) {
    state = state * 1103515245U + 12345U;
    ToggleCheck(checks, static_cast<PlanCheck>((state >> 16U) % kPlanChecks));
    const int type = PlanTypeOf(checks);
    const int foundation = type & (kSlab | kCrawlSpace);
    ASSERT_EQ(foundation & (foundation - 1), 0) << type;
    ASSERT_NE(type & kHalfStory, kHalfStory) << type;
    if ((type & kDetachedGarage) != 0 && foundation != 0) {
      ASSERT_EQ(foundation, kOneStorySlab) << type;
      ASSERT_EQ(type & kHalfStory, 0) << type;
    }
    if ((type & kHalfStory) != 0 && foundation != 0) {
      ASSERT_NE(foundation & (kTwoLevelSlab | kTwoLevelCrawl), 0) << type;
    }
  }
}

TEST(PlanChecks, TheTypeIsTheSumOfItsBits) {
  struct Case {
    std::initializer_list<PlanCheck> ticked;
    int type;
  };
  for (const Case& c : {Case{{}, 0}, Case{{chkSlab10}, 1}, Case{{chkCrawl15_20, chkGarage_Attatch, chkCarport, chkPorch}, 216},
                        Case{{chkSlab10, chkGarage_Detatch}, 33}, Case{{chkSlab15_20, chkectvinyl, chk12field}, 1538},
                        Case{{chkSlab15_20, chk12truss}, 2050}, Case{{chkSlab10, chkCrawl10}, 4}}) {
    EXPECT_EQ(PlanTypeOf(Ticked(c.ticked)), c.type);
    PlanChecks vinyl = Ticked(c.ticked);
    vinyl.Tick(chkwhvinyl) = true;
    EXPECT_EQ(PlanTypeOf(vinyl), c.type) << "vinyl is in no type";
  }
  for (int type = 0; type < 4096; ++type) {
    const int foundation = type & 15;
    if ((type & 256) != 0 || (foundation & (foundation - 1)) != 0) continue;
    EXPECT_EQ(PlanTypeOf(ChecksOf(static_cast<std::int16_t>(type))), type);
  }
}

TEST(ChecklistKeys, FitTheirFields) {
  struct Case {
    ChecklistBox box;
    int key;
    std::size_t length;
    bool taken;
  };
  using enum ChecklistBox;
  for (const Case& c :
       {Case{txtcustnum, '0', 4, true}, Case{txtcustnum, '9', 5, false}, Case{txtcustnum, 8, 5, true}, Case{txtcustnum, 127, 5, true},
        Case{txtcustnum, 'A', 0, false}, Case{txtcustnum, '-', 0, false}, Case{txtdate, '-', 9, true}, Case{txtdate, '1', 10, false},
        Case{txtdate, 8, 10, true}, Case{txtdate, '/', 0, false}, Case{txtPlanNbr, 'x', 14, true}, Case{txtPlanNbr, 'x', 15, false},
        Case{txtPlanNbr, 8, 15, true}, Case{txtPlanNbr, 127, 15, true}, Case{txtPlanNbr, 13, 15, true}, Case{txtPlanNbr, 0xE9, 15, false},
        Case{txtCustName, 'x', 99, true}})
    EXPECT_EQ(TakesKey(c.box, c.key, c.length), c.taken) << c.key << " behind " << c.length;
}

ChecklistEntry GoodEntry() {
  return {.txtcustnum = "12", .txtPlanNbr = "A-100", .txtdate = "11-22-2026", .priceLevel = 3, .checks = Ticked({chkSlab10})};
}

TEST(ChecklistOk, TestsInOrderAndSaysWhere) {
  struct Case {
    const char* what;
    void (*spoil)(ChecklistEntry&);
    ChecklistFocus focus;
    const char* message;
  };
  for (const Case& c : {Case{"no customer", [](ChecklistEntry& e) { e = {}; }, ChecklistFocus::txtcustnum, ""},
                        Case{"no plan number", [](ChecklistEntry& e) { e.txtPlanNbr = "  ", e.txtdate = "", e.checks = {}; },
                             ChecklistFocus::txtPlanNbr, ""},
                        Case{"no date", [](ChecklistEntry& e) { e.txtdate = "", e.checks = {}; }, ChecklistFocus::txtdate, ""},
                        Case{"no foundation",
                             [](ChecklistEntry& e) {
                               e.checks = Ticked({chkPorch, chkwhvinyl});
                             },
                             ChecklistFocus::chkSlab10, ""},
                        Case{"32768", [](ChecklistEntry& e) { e.txtcustnum = "32768"; }, ChecklistFocus::txtcustnum,
                             "0 This Entry is TOO LARGE for calculations!|"},
                        Case{"-1", [](ChecklistEntry& e) { e.txtcustnum = "-1"; }, ChecklistFocus::txtcustnum,
                             "0 This Entry is TOO SMALL for calculations!|"},
                        Case{"16 characters", [](ChecklistEntry& e) { e.txtPlanNbr = "1234567890123456"; }, ChecklistFocus::txtPlanNbr,
                             "0 This text is too long or holds a character that cannot be stored!|"},
                        Case{"no byte for it", [](ChecklistEntry& e) { e.txtPlanNbr = "\xE6\x97\xA5"; }, ChecklistFocus::txtPlanNbr,
                             "0 This text is too long or holds a character that cannot be stored!|"}}) {
    ChecklistEntry entry = GoodEntry();
    c.spoil(entry);
    const auto refusal = RefusalOfOk(entry);
    ASSERT_TRUE(refusal.has_value()) << c.what;
    EXPECT_EQ(refusal->focus, c.focus) << c.what;
    EXPECT_EQ(refusal->message, c.message) << c.what;
  }
  EXPECT_FALSE(RefusalOfOk(GoodEntry()).has_value());
  ChecklistEntry largest = GoodEntry();
  largest.txtcustnum = "32767", largest.txtPlanNbr = "\xC3\x89t\xC3\xA9 567890ABCDE";
  EXPECT_FALSE(RefusalOfOk(largest).has_value());
}

TEST(ChecklistOk, StoresWhatWasEntered) {
  EstimateRecord plan = BlankPlan();
  StoreChecklist(GoodEntry(), plan);
  EXPECT_EQ(plan.CustomerNumber, 12);
  EXPECT_EQ(plan.PlanNumber.Raw(), "A-100          ");
  EXPECT_EQ(plan.PlanDate.Raw(), "11-22-2026");
  EXPECT_EQ(plan.PlanType, kOneStorySlab);
  EXPECT_EQ(plan.PriceLevel.Raw(), "3");
  ChecklistEntry entry = GoodEntry();
  entry.priceLevel = 0, entry.txtcustnum = "7.9";
  StoreChecklist(entry, plan);
  EXPECT_EQ(plan.PriceLevel.Raw(), "3") << "no option, no change";
  EXPECT_EQ(plan.CustomerNumber, 7);
}

TEST(ChecklistOk, APlanShownAndStoredAgainIsTheSame) {
  EstimateRecord plan = BlankPlan();
  plan.CustomerNumber = 0, plan.PlanType = kTwoLevelCrawl | kPorch | kAtticTrussHalfStory;
  plan.PlanNumber.Assign(" C\xE9"), plan.PlanDate.Assign("1-2-26"), plan.PriceLevel.Assign("5");
  EstimateRecord again = plan;
  StoreChecklist(ChecklistOf(plan), again);
  EXPECT_EQ(again, plan);
}

TEST(PriceLevel, IsOneToFive) {
  EstimateRecord plan;
  EXPECT_EQ(PriceLevelOf(plan), 1) << "a byte of 0";
  EXPECT_EQ(PriceLevelOf(BlankPlan()), 1);
  for (const auto& [text, level] : std::vector<std::pair<const char*, int>>{{"1", 1}, {"5", 5}, {"0", 1}, {"6", 1}, {" ", 1}, {"x", 1}}) {
    plan.PriceLevel.Assign(text);
    EXPECT_EQ(PriceLevelOf(plan), level) << text;
  }
}

TEST(DisplayTitle, HasItsColumns) {
  const std::string title = DisplayTitle(" Hill Homes  ", "A-1 ");
  EXPECT_EQ(title.size(), 80U);
  EXPECT_EQ(title.substr(0, 28), " Customer Name: Hill Homes  ");
  EXPECT_EQ(title.substr(51, 10), "Plan: A-1 ");
  const std::string full = DisplayTitle(std::string(35, 'N'), std::string(60, 'P'));
  EXPECT_EQ(full.size(), 80U);
  EXPECT_EQ(full.substr(15, 42), " " + std::string(35, 'N') + "Plan: ");
}

TEST(SavePrompt, EachChoiceHasItsRoad) {
  struct Case {
    PlanMode mode;
    SaveChoice choice;
    bool stays, updates, cancelled;
  };
  for (const Case& c :
       {Case{PlanMode::New, SaveChoice::Save, false, false, false}, Case{PlanMode::Existing, SaveChoice::Save, false, true, true},
        Case{PlanMode::Loading, SaveChoice::Save, false, true, true}, Case{PlanMode::Existing, SaveChoice::AsNew, false, false, false},
        Case{PlanMode::New, SaveChoice::NoSave, false, false, true}, Case{PlanMode::Existing, SaveChoice::NoSave, false, false, true},
        Case{PlanMode::New, SaveChoice::Cancel, true, false, false}, Case{PlanMode::Existing, SaveChoice::Cancel, true, false, false}}) {
    const SaveRoad road = RoadOfSave(c.mode, c.choice);
    EXPECT_EQ(road.staysOnForm, c.stays);
    EXPECT_EQ(road.updatesRecord, c.updates);
    EXPECT_EQ(road.PlanCancelled, c.cancelled);
  }
}

}  // namespace
}  // namespace norvale
