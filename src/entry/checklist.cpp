#include "entry/checklist.h"

#include <algorithm>
#include <initializer_list>

#include "base/numbers.h"
#include "base/text.h"
#include "data/plan_type.h"
#include "entry/number_entry.h"

namespace norvale {

namespace {

using enum PlanCheck;

constexpr int kBlankKey = 32;

// clang-format off
constexpr std::array<PlanCheckInfo, kPlanChecks> kInfo = {{
    {"chkSlab10", "1 Story Slab Foundation", kOneStorySlab},
    {"chkSlab15_20", "1 1/2 or 2 Story Slab Foun.", kTwoLevelSlab},
    {"chkCrawl10", "1 Story Crawl Space ", kOneStoryCrawl},
    {"chkCrawl15_20", "1 1/2 or 2 Story Crawl Space", kTwoLevelCrawl},
    {"chkGarage_Attatch", "Attached Garage/Storage", kAttachedGarage},
    {"chkGarage_Detatch", "Detached Garage", kDetachedGarage},
    {"chkCarport", "Attached Carport", kCarport},
    {"chkPorch", "Attached Porch(s)", kPorch},
    {"chkectvinyl", "Exterior Brick Veneer", kBrickVeneer},
    {"chk12field", "1 1/2 Story Field Framed", kFieldFramedHalfStory},
    {"chk12truss", "1 1/2 Story Attic Trusses", kAtticTrussHalfStory},
    {"chkwhvinyl", "Whole House Vinyl", 0},
}};
// clang-format on

constexpr std::array<PlanCheck, 4> kFoundationBoxes = {chkSlab10, chkSlab15_20, chkCrawl10, chkCrawl15_20};

void Clear(PlanChecks& checks, std::initializer_list<PlanCheck> boxes) {
  for (const PlanCheck box : boxes) checks.Tick(box) = false;
}

bool HasTwoLevels(const PlanChecks& checks) { return checks.Has(chkSlab15_20) || checks.Has(chkCrawl15_20); }

void Exclude(PlanChecks& checks, PlanCheck box) {
  switch (box) {
    case chkSlab10:
      Clear(checks, {chkSlab15_20, chkCrawl10, chkCrawl15_20, chk12field, chk12truss});
      break;
    // A detached garage stands on the one-story slab and on nothing else.
    case chkSlab15_20:
      Clear(checks, {chkSlab10, chkCrawl10, chkCrawl15_20, chkGarage_Detatch});
      break;
    case chkCrawl10:
      Clear(checks, {chkSlab15_20, chkSlab10, chkCrawl15_20, chk12field, chk12truss, chkGarage_Detatch});
      break;
    case chkCrawl15_20:
      Clear(checks, {chkSlab15_20, chkCrawl10, chkSlab10, chkGarage_Detatch});
      break;
    case chkGarage_Detatch:
      if (!checks.Has(chkGarage_Detatch)) break;
      checks.Tick(chkSlab10) = true;
      Clear(checks, {chkSlab15_20, chkCrawl10, chkCrawl15_20, chk12field, chk12truss});
      break;
    case chkectvinyl:
      Clear(checks, {chkwhvinyl});
      break;
    case chkwhvinyl:
      Clear(checks, {chkectvinyl});
      break;
    case chkGarage_Attatch:
    case chkCarport:
    case chkPorch:
    case chk12field:
    case chk12truss:
      break;
  }
}

bool IsDigit(int character) { return character >= '0' && character <= '9'; }

// A text that the record's field can hold, whole.
template <std::size_t Width>
bool Fits(const FixedText<Width>&, std::string_view utf8) {
  const auto text = FromUtf8(utf8);
  return text && text->size() <= Width;
}

}  // namespace

const PlanCheckInfo& InfoOf(PlanCheck box) { return kInfo[static_cast<std::size_t>(box)]; }

void ToggleCheck(PlanChecks& checks, PlanCheck box) {
  if (!checks.isEnabled) return;
  checks.Tick(box) = !checks.Has(box);
  KeyOnCheck(checks, box, kBlankKey);
}

void KeyOnCheck(PlanChecks& checks, PlanCheck box, int key) {
  if (!checks.isEnabled) return;
  if (box == chk12field || box == chk12truss) {
    if (!HasTwoLevels(checks)) checks.Tick(box) = false;
    // Walking through an unticked box must not untick the other one.
    if (checks.Has(box)) checks.Tick(box == chk12field ? chk12truss : chk12field) = false;
  }
  if (key == kBlankKey) Exclude(checks, box);
}

bool HasFoundation(const PlanChecks& checks) {
  return std::ranges::any_of(kFoundationBoxes, [&checks](PlanCheck box) { return checks.Has(box); });
}

std::int16_t PlanTypeOf(const PlanChecks& checks) {
  int type = 0;
  for (const PlanCheck box : kFoundationBoxes)
    if (checks.Has(box)) type = InfoOf(box).bit;
  for (std::size_t box = kFoundationBoxes.size(); box < kPlanChecks; ++box)
    if (checks.ticked[box]) type += kInfo[box].bit;
  return static_cast<std::int16_t>(type);
}

PlanChecks ChecksOf(std::int16_t planType) {
  PlanChecks checks;
  for (std::size_t box = 0; box < kPlanChecks; ++box) checks.ticked[box] = (planType & kInfo[box].bit) != 0;
  return checks;
}

bool TakesCharacter(ChecklistBox box, int character) {
  if (box == ChecklistBox::txtcustnum) return IsDigit(character);
  if (box == ChecklistBox::txtdate) return IsDigit(character) || character == '-';
  return true;
}

int PriceLevelOf(const EstimateRecord& plan) {
  constexpr int kLevels = 5;
  const int level = plan.PriceLevel.bytes[0] - '0';
  return level >= 1 && level <= kLevels ? level : 1;
}

ChecklistEntry ChecklistOf(const EstimateRecord& plan) {
  return {.txtcustnum = std::to_string(plan.CustomerNumber),
          .txtPlanNbr = ToUtf8(TrimRight(plan.PlanNumber.Padded())),
          .txtdate = ToUtf8(TrimRight(plan.PlanDate.Padded())),
          .priceLevel = PriceLevelOf(plan),
          .checks = ChecksOf(plan.PlanType)};
}

std::optional<ChecklistRefusal> RefusalOfOk(const ChecklistEntry& entry) {
  const auto refuse = [](ChecklistFocus focus, std::string_view message = {}) {
    return ChecklistRefusal{.focus = focus, .message = std::string(message)};
  };
  constexpr std::string_view kNoText = "0 This text is too long or holds a character that cannot be stored!|";
  const EstimateRecord widths;
  if (Trim(entry.txtcustnum).empty()) return refuse(ChecklistFocus::txtcustnum);
  if (Trim(entry.txtPlanNbr).empty()) return refuse(ChecklistFocus::txtPlanNbr);
  if (Trim(entry.txtdate).empty()) return refuse(ChecklistFocus::txtdate);
  if (!HasFoundation(entry.checks)) return refuse(ChecklistFocus::chkSlab10);
  if (Val(entry.txtcustnum) < 0) return refuse(ChecklistFocus::txtcustnum, kEntryTooSmall);
  if (Int(Val(entry.txtcustnum)) > kLargestEntry) return refuse(ChecklistFocus::txtcustnum, kEntryTooLarge);
  if (!Fits(widths.PlanNumber, entry.txtPlanNbr)) return refuse(ChecklistFocus::txtPlanNbr, kNoText);
  if (!Fits(widths.PlanDate, entry.txtdate)) return refuse(ChecklistFocus::txtdate, kNoText);
  return std::nullopt;
}

void StoreChecklist(const ChecklistEntry& entry, EstimateRecord& plan) {
  plan.CustomerNumber = static_cast<std::int16_t>(std::clamp(Int(Val(entry.txtcustnum)), 0.0, kLargestEntry));
  plan.PlanNumber.Assign(FromUtf8(entry.txtPlanNbr).value_or(""));
  plan.PlanDate.Assign(FromUtf8(entry.txtdate).value_or(""));
  plan.PlanType = PlanTypeOf(entry.checks);
  if (entry.priceLevel >= 1 && entry.priceLevel <= 5) plan.PriceLevel.Assign(std::to_string(entry.priceLevel));
}

std::string DisplayTitle(std::string_view customerName, std::string_view planNumber) {
  constexpr std::size_t kWidth = 80;
  constexpr std::size_t kCustomerColumn = 2;
  constexpr std::size_t kPlanColumn = 52;
  // Columns are characters: the title is laid out in the one-byte texts of the records.
  std::string title(kWidth, ' ');
  const auto put = [&title](std::size_t column, std::string_view label, std::string_view utf8) {
    const std::string text = std::string(label) + std::string(Trim(FromUtf8(utf8).value_or("")));
    title.replace(column - 1, std::min(text.size(), kWidth - column + 1), text, 0, kWidth - column + 1);
  };
  put(kCustomerColumn, "Customer Name: ", customerName);
  put(kPlanColumn, "Plan: ", planNumber);
  return ToUtf8(title);
}

SaveOutcome OutcomeOfSave(PlanMode mode, SaveChoice choice) {
  switch (choice) {
    case SaveChoice::Save:
      if (IsOpened(mode)) return {.staysOnForm = false, .updatesRecord = true, .PlanCancelled = true};
      return {};
    case SaveChoice::AsNew:
      return {};
    case SaveChoice::NoSave:
      return {.staysOnForm = false, .updatesRecord = false, .PlanCancelled = true};
    case SaveChoice::Cancel:
      break;
  }
  return {.staysOnForm = true, .updatesRecord = false, .PlanCancelled = false};
}

}  // namespace norvale
