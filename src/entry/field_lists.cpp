#include "entry/field_lists.h"

#include <array>
#include <initializer_list>

#include "data/plan_type.h"

namespace norvale {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

void SetLists(PlanForm& form, std::initializer_list<std::string_view> lists, bool enable) {
  for (const std::string_view list : lists) SetFieldList(form, list, enable);
}

struct JoistRange {
  int first = 0;
  int last = -1;
};
constexpr JoistRange kFirstFloorJoists{0, 4};
constexpr JoistRange kSecondFloorJoists{5, 9};
constexpr JoistRange kAllJoists{0, 9};

void SetJoistBoxes(PlanForm& form, JoistRange range, bool enable) {
  for (int box = range.first; box <= range.last; ++box) form.TxtDispJoist[box].enabled = enable;
}

struct BoxRow {
  int box = -1;
  int row = 0;
};

// What a part of the plan type brings with it. Boxes are set before the lists are shut.
struct PlanTypeRule {
  int bits;
  bool whenSet;  // the rule is for types with one of the bits, or for those with none of them
  std::array<BoxRow, 2> boxes{};
  std::array<std::string_view, 3> shut{};
  JoistRange joists{};
};

// clang-format off
constexpr std::array<PlanTypeRule, 12> kPlanTypeRules = {{
    {.bits = kOneStorySlab | kDetachedGarage, .whenSet = true, .boxes = {{{28, 0}}},
     .shut = {"C0001161718192021222324252829303132",
              "T040506070809101112131415161718192021222326272829303137383940414243444950",
              "L0001202122232425262728293031323334353637383940414243444546474851525354555658656667686970717273747576778890"},
     .joists = kAllJoists},
    {.bits = kTwoLevelSlab, .whenSet = true, .boxes = {{{28, 1}, {17, 0}}},
     .shut = {"C16171819202122232428",
              "T04050607080910111213141516171819202122232627282930",
              "L2021222324252627282930313233343536373839404142434445464748515253545565"},
     .joists = kFirstFloorJoists},
    {.bits = kOneStoryCrawl, .whenSet = true, .boxes = {{{28, 0}}},
     .shut = {"C152829303132", "T37383940414243444950", "L19656667686970717273747576778890"},
     .joists = kSecondFloorJoists},
    {.bits = kTwoLevelCrawl, .whenSet = true, .boxes = {{{28, 1}}}, .shut = {"C1528", "L1965"}},
    {.bits = kAttachedGarage, .whenSet = false, .boxes = {{{26, 1}}}, .shut = {"C26", "L57596061", "T323334"}},
    {.bits = kAttachedGarage, .whenSet = true, .boxes = {{{26, 0}}}, .shut = {"C26", "L57"}},
    {.bits = kCarport | kPorch, .whenSet = false, .boxes = {{{27, 1}}}, .shut = {"C27", "L626364", "T3536"}},
    {.bits = kCarport | kPorch, .whenSet = true, .boxes = {{{27, 0}}}, .shut = {"L62", "C27"}},
    {.bits = kBrickVeneer, .whenSet = true, .boxes = {{{34, 0}}}},
    {.bits = 768, .whenSet = true, .shut = {"C343536373839", "L8283848586898788", "T4849"}},
    {.bits = kHalfStory, .whenSet = false, .shut = {"T5253", "L9293"}},
    {.bits = kAtticTrussHalfStory, .whenSet = true, .shut = {"T52", "L92"}},
}};

// What a stored choice of an opened plan rules out.
struct StoredChoiceRule {
  std::int16_t EstimateRecord::*field;
  int value;
  std::array<std::string_view, 3> shut{};
};

constexpr std::array<StoredChoiceRule, 8> kStoredChoiceRules = {{
    {&EstimateRecord::FoundationType, 1, {"C23", "L47"}},
    {&EstimateRecord::FoundationType, 2, {"C2122", "L40414243444546", "T1920212223"}},
    {&EstimateRecord::DropGirderPly, 1, {"C20", "L343536373839", "T1415161718"}},
    {&EstimateRecord::OakFlooringIndex, 2, {"L58", "T31"}},
    {&EstimateRecord::SecondFloorFramed, 2, {"C30", "L676970717273", "T3738394041"}},
    {&EstimateRecord::WallFinishIndex, 1, {"C36373839", "L848586878889", "T4849"}},
    {&EstimateRecord::WallFinishIndex, 2, {"C36", "L84"}},
    {&EstimateRecord::WallFinishIndex, 3, {"C3739", "L8589"}},
}};
// clang-format on

// The rows of list 34 as the rules count them.
enum WallFinish { kBrick = 0, kPanel, kLap, kNoFinish, kVinyl, kBrickWithPanel, kBrickWithLap };

constexpr int kSoffitVinyl = 4;  // row of list 10

void OpenFirstAndSecondWall(PlanForm& form) {
  SetLists(form, {"T48"}, true);
  // One-story plans have no second-floor wall.
  if ((form.PlanType & (kOneStorySlab | kOneStoryCrawl)) == 0) SetLists(form, {"L88", "T49"}, true);
}

void ZeroSidingOfNewPlan(PlanForm& form) {
  if (!IsOpened(form.mode)) SetNumberText(form, 48, "0");
}

void ApplySheathingRule(PlanForm& form) {
  constexpr int kEightFootOnly = 2;
  const bool eightFootOnly = form.combo1[4].ListIndex == kEightFootOnly;
  if (eightFootOnly) SelectRow(form, 13, 0);
  SetLists(form, {"C13", "L17"}, !eightFootOnly);
}

void ApplyFoundationRule(PlanForm& form) {
  const bool onPiers = form.combo1[16].ListIndex != 0;
  const auto setSills = [&] { SetLists(form, {"C2122", "T1920212223", "L40414243444546"}, onPiers); };
  if (form.PlanType > 12 && form.combo1[14].ListIndex == 1) {
    SetLists(form, {"C23", "L47"}, true);
    setSills();
  } else {
    SetLists(form, {"C23", "L47"}, false);
    // A plain crawl-space plan has sills where it stands on piers, like every other one.
    if ((form.PlanType & kCrawlSpace) != 0) setSills();
  }
}

void ApplyGirderRule(PlanForm& form) {
  if ((form.PlanType & kCrawlSpace) == 0) return;
  SetLists(form, {"C18", "L2223242526272829303132", "T04050607080910111213"}, form.combo1[17].ListIndex != 0);
}

void ApplyDropGirderRule(PlanForm& form) {
  if ((form.PlanType & kCrawlSpace) == 0) return;
  SetLists(form, {"C20", "L343536373839", "T1415161718"}, form.combo1[19].ListIndex != 0);
}

void ApplyJoistRule(PlanForm& form) {
  const bool framed = (form.PlanType & (kSlab | kDetachedGarage)) == 0;
  SetLists(form, {"L5152535455", "T2627282930"}, framed);
  SetJoistBoxes(form, kFirstFloorJoists, framed);
}

void ApplyOakRule(PlanForm& form) {
  // Where the list itself is shut, oak is never listed, and an area must not be asked for.
  SetLists(form, {"L58", "T31"}, form.combo1[25].ListIndex == 0 && form.combo1[25].enabled);
}

void ApplySecondFloorRule(PlanForm& form) {
  if ((form.PlanType & (kTwoLevelSlab | kTwoLevelCrawl)) == 0) return;
  const bool joists = form.combo1[29].ListIndex == 0;
  SetLists(form, {"C30", "L676970717273", "T3738394041"}, joists);
  SetJoistBoxes(form, kSecondFloorJoists, joists);
  if (joists)
    for (int box = kSecondFloorJoists.first; box <= kSecondFloorJoists.last; ++box) form.TxtDispJoist[box].isHidden = false;
}

void ApplyWallFinishRule(PlanForm& form) {
  const int finish = form.combo1[34].ListIndex;
  switch (finish) {
    case kBrick:
    case kNoFinish:
      SetLists(form, {"C35", "L83"}, true);
      SetLists(form, {"C36", "L84"}, form.combo1[10].ListIndex == kSoffitVinyl);
      SetLists(form, {"C373839", "L8586878889", "T4849"}, false);
      break;
    case kPanel:
    case kBrickWithPanel:
      if (finish == kPanel) {
        SetLists(form, {"C3536", "L8384"}, false);
      } else {
        SetLists(form, {"C36", "L84"}, false);
        SetLists(form, {"C35", "L83"}, true);
      }
      SetLists(form, {"C373839", "L85868789"}, true);
      OpenFirstAndSecondWall(form);
      if (finish == kBrickWithPanel) ZeroSidingOfNewPlan(form);
      break;
    case kLap:
    case kVinyl:
      SetLists(form, {"C3638", "L848687"}, true);
      SetLists(form, {"C353739", "L838589"}, false);
      OpenFirstAndSecondWall(form);
      break;
    case kBrickWithLap:
      SetLists(form, {"C3638", "L848687"}, true);
      SetLists(form, {"C3739", "L8589"}, false);
      SetLists(form, {"C35", "L83"}, true);
      OpenFirstAndSecondWall(form);
      ZeroSidingOfNewPlan(form);
      break;
    default:
      break;
  }
}

struct LineRule {
  int line;
  void (*apply)(PlanForm&);
};

constexpr std::array<LineRule, 8> kLineRules = {{
    {4, ApplySheathingRule},
    {20, ApplyFoundationRule},
    {21, ApplyGirderRule},
    {33, ApplyDropGirderRule},
    {48, ApplyJoistRule},
    {56, ApplyOakRule},
    {66, ApplySecondFloorRule},
    {82, ApplyWallFinishRule},
}};

constexpr int kWallFinishLine = 82;

// The soffit has a say in whether the gables of a brick house get siding, and only there.
bool AsksForSoffit(const PlanForm& form) {
  const int finish = form.combo1[34].ListIndex;
  return finish == kBrick || finish == kNoFinish;
}

}  // namespace

void SetFieldList(PlanForm& form, std::string_view list, bool enable) {
  if (list.empty()) return;
  const auto set = [enable](auto& fields, std::size_t index) {
    if (index < fields.size()) fields[index].enabled = enable;
  };
  for (std::size_t at = 1; at + 1 < list.size(); at += 2) {
    if (!IsDigit(list[at]) || !IsDigit(list[at + 1])) continue;
    const auto index = static_cast<std::size_t>((list[at] - '0') * 10 + (list[at + 1] - '0'));
    switch (list.front()) {
      case 'C':
        set(form.combo1, index);
        break;
      case 'T':
        set(form.TxtDisp, index);
        break;
      case 'L':
        set(form.lblLine, index);
        break;
      default:
        return;
    }
  }
}

void ApplyPlanTypeRules(PlanForm& form, EstimateRecord& plan) {
  SetLists(form, {"C14", "L18"}, false);
  SelectRow(form, 14, (form.PlanType & kCrawlSpace) != 0 ? 1 : 0);

  for (const PlanTypeRule& rule : kPlanTypeRules) {
    if (((form.PlanType & rule.bits) != 0) != rule.whenSet) continue;
    for (const BoxRow& set : rule.boxes)
      if (set.box >= 0) SelectRow(form, set.box, set.row);
    for (const std::string_view list : rule.shut) SetFieldList(form, list, false);
    SetJoistBoxes(form, rule.joists, false);
  }
  if ((form.PlanType & kBrickVeneer) != 0) plan.WallFinishIndex = 1;

  if (!IsOpened(form.mode)) {
    // Attic trusses carry their own floor: with joists in the list they would be paid for twice.
    if ((form.PlanType & kAtticTrussHalfStory) != 0) SelectRow(form, 29, 1);
    return;
  }
  for (const StoredChoiceRule& rule : kStoredChoiceRules) {
    if (plan.*rule.field != rule.value) continue;
    for (const std::string_view list : rule.shut) SetFieldList(form, list, false);
    if (rule.field == &EstimateRecord::SecondFloorFramed)
      for (int box = kSecondFloorJoists.first; box <= kSecondFloorJoists.last; ++box) form.TxtDispJoist[box].isHidden = true;
  }
}

void ApplyFieldRule(PlanForm& form, int line) {
  for (const LineRule& rule : kLineRules)
    if (rule.line == line) rule.apply(form);
  if (form.mark == ChangeMark::Choosing) form.mark = ChangeMark::Modified;
}

void ApplyAllFieldRules(PlanForm& form) {
  for (int line = 0; line < static_cast<int>(kScreenLines); ++line) ApplyFieldRule(form, line);
}

void SelectRow(PlanForm& form, int box, int row) {
  SelectionBox& chosen = form.combo1[box];
  chosen.ListIndex = row;
  if (row >= 0) chosen.unlistedText.clear();
  if (chosen.enabled) {
    if (!form.isLoading) form.mark = ChangeMark::Choosing;
    ApplyFieldRule(form, form.LineOfCombo[box]);
    constexpr int kSoffitList = 10;
    if (box == kSoffitList && AsksForSoffit(form)) ApplyFieldRule(form, kWallFinishLine);
  }
  if (!form.isLoading) form.mark = ChangeMark::Modified;
}

void EnableLabelsForPrint(PlanForm& form, int line) {
  const bool crawl = (form.PlanType & kCrawlSpace) != 0;
  switch (line) {
    case 4:
      SetLists(form, {"L17"}, true);
      break;
    case 20:
      SetLists(form, {"L4041424344454647"}, true);
      break;
    case 21:
      if (crawl) SetLists(form, {"L222324252627"}, true);
      break;
    case 33:
      if (crawl) SetLists(form, {"L343536373839"}, true);
      break;
    case 56:
      SetLists(form, {"L58"}, true);
      break;
    case 66:
      if ((form.PlanType & (kTwoLevelSlab | kTwoLevelCrawl)) != 0) SetLists(form, {"L676970717273"}, true);
      break;
    case kWallFinishLine:
      SetLists(form, {"L42838485868789"}, true);
      if ((form.PlanType & (kOneStorySlab | kOneStoryCrawl)) == 0) SetLists(form, {"L88"}, true);
      break;
    default:
      break;
  }
}

int NextEnabledLine(const PlanForm& form, int line) {
  for (int next = line + 1; next < static_cast<int>(kScreenLines); ++next)
    if (form.lblLine[next].enabled) return next;
  return -1;
}

}  // namespace norvale
