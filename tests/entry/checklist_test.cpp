#include "entry/checklist.h"

#include <gtest/gtest.h>

#include "data/plan_type.h"
#include "entry/entry_form.h"

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
                        Case{"one story ends the half story", {chkCrawl15_20, chk12truss}, chkCrawl10, {chkCrawl10}},
                        Case{"the other two levels keep it", {chkCrawl15_20, chk12truss}, chkSlab15_20, {chkSlab15_20, chk12truss}},
                        Case{"a half story needs two levels", {chkSlab10}, chk12field, {chkSlab10}},
                        Case{"one half story only", {chkCrawl15_20, chk12truss}, chk12field, {chkCrawl15_20, chk12field}},
                        Case{"unticking leaves the rest", {chkCrawl15_20, chk12field}, chk12field, {chkCrawl15_20}},
                        Case{"detached has one story", {chkSlab15_20, chk12truss}, chkGarage_Detatch, {chkSlab10, chkGarage_Detatch}},
                        Case{"unticked, it clears nothing", {chkSlab10, chkGarage_Detatch}, chkGarage_Detatch, {chkSlab10}},
                        Case{"its slab may be pressed", {chkGarage_Detatch}, chkSlab10, {chkSlab10, chkGarage_Detatch}},
                        Case{"no other foundation under it", {chkSlab10, chkGarage_Detatch}, chkCrawl10, {chkCrawl10}},
                        Case{"brick or vinyl", {chkSlab10, chkwhvinyl}, chkectvinyl, {chkSlab10, chkectvinyl}},
                        Case{"vinyl or brick", {chkSlab10, chkectvinyl}, chkwhvinyl, {chkSlab10, chkwhvinyl}},
                        Case{"parts exclude nothing", {chkSlab10, chkCarport}, chkPorch, {chkSlab10, chkCarport, chkPorch}}}) {
    PlanChecks checks = Ticked(c.before);
    ToggleCheck(checks, c.pressed);
    EXPECT_EQ(checks.ticked, Ticked(c.after).ticked) << c.what;
  }
  PlanChecks shut = Ticked({chkCrawl10});
  shut.isEnabled = false;
  ToggleCheck(shut, chkSlab10);
  EXPECT_EQ(shut.ticked, Ticked({chkCrawl10}).ticked) << "boxes that are shut stay";
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
    if (foundation == 0) continue;
    if ((type & kDetachedGarage) != 0) {
      ASSERT_EQ(type & (foundation | kHalfStory), kOneStorySlab) << type;
    }
    if ((type & kHalfStory) != 0) {
      ASSERT_NE(foundation & (kTwoLevelSlab | kTwoLevelCrawl), 0) << type;
    }
  }
  EXPECT_EQ(PlanTypeOf(Ticked({chkSlab10, chkCrawl10, chkwhvinyl})), kOneStoryCrawl) << "the last one counts, and vinyl is in no type";
}

// What the form's own fields do not take is pasted, or stands in an old plan.
TEST(ChecklistOk, RefusesWhatTheRecordCannotHold) {
  constexpr const char* kNoText = "0 This text is too long or holds a character that cannot be stored!|";
  struct Case {
    const char *number, *plan, *message;
    int stored;
  };
  for (const Case& c : {Case{"32767", "\xC3\x89t\xC3\xA9 567890ABCDE", "", 32767}, Case{"7.9", "A", "", 7},
                        Case{"32768", "A", "0 This Entry is TOO LARGE for calculations!|", 0},
                        Case{"-1", "A", "0 This Entry is TOO SMALL for calculations!|", 0}, Case{"1", "1234567890123456", kNoText, 0},
                        Case{"1", "\xE6\x97\xA5", kNoText, 0}}) {
    ChecklistEntry entry{.txtcustnum = c.number, .txtPlanNbr = c.plan, .txtdate = "1-1-27", .priceLevel = 0, .checks = Ticked({chkSlab10})};
    const auto refusal = RefusalOfOk(entry);
    EXPECT_EQ(refusal ? refusal->message : "", c.message) << c.number << c.plan;
    if (refusal) continue;
    EstimateRecord plan = BlankPlan();
    StoreChecklist(entry, plan);
    EXPECT_EQ(plan.CustomerNumber, c.stored);
    EXPECT_EQ(plan.PriceLevel.Raw(), "1") << "no option, no change";
  }
}

TEST(ChecklistOk, APlanShownAndStoredAgainIsTheSame) {
  for (const int type : PlanTypes()) {
    EstimateRecord plan = BlankPlan();
    plan.PlanType = static_cast<std::int16_t>(type);
    plan.PlanNumber.Assign(" C\xE9"), plan.PlanDate.Assign("1-2-26"), plan.PriceLevel.Assign("5");
    EstimateRecord again = plan;
    StoreChecklist(ChecklistOf(plan), again);
    EXPECT_EQ(again, plan) << type;
  }
  EstimateRecord plan;
  EXPECT_EQ(PriceLevelOf(plan), 1) << "a byte of 0";
  for (const auto& [text, level] : {std::pair{"1", 1}, {"5", 5}, {"0", 1}, {"6", 1}, {" ", 1}, {"x", 1}}) {
    plan.PriceLevel.Assign(text);
    EXPECT_EQ(PriceLevelOf(plan), level) << text;
  }
}

TEST(DisplayTitle, HasItsColumns) {
  EXPECT_EQ(DisplayTitle(" Hill Homes  ", "A-1 "),
            " Customer Name: Hill Homes" + std::string(25, ' ') + "Plan: A-1" + std::string(20, ' '));
  EXPECT_EQ(DisplayTitle(std::string(35, 'N'), std::string(60, 'P')),
            " Customer Name: " + std::string(35, 'N') + "Plan: " + std::string(23, 'P'));
}

}  // namespace
}  // namespace norvale
