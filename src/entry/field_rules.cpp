#include "entry/field_rules.h"

#include <array>

#include "data/plan_type.h"

namespace norvale {

namespace {

using enum SelectionList;

// --- What goes together

constexpr FieldSet kGirder = {GirderSize, BoxesOf(BoxGroup::MajorGirder), BoxesOf(BoxGroup::WiderGirder)};
constexpr FieldSet kDropGirder = {DropGirderSize, BoxesOf(BoxGroup::DropGirder)};
constexpr FieldSet kSillOnPiers = {SillPly, SillSize, BoxesOf(BoxGroup::Sill)};
constexpr FieldSet kFirstFloorBays = BoxesOf(BoxGroup::FirstFloorBays);
constexpr FieldSet kSecondFloorBays = BoxesOf(BoxGroup::SecondFloorBays);
constexpr FieldSet kFirstFloorJoists = {JoistBox::FirstFloorBay1, JoistBox::FirstFloorBay2, JoistBox::FirstFloorBay3,
                                        JoistBox::FirstFloorBay4, JoistBox::FirstFloorBay5};
constexpr FieldSet kSecondFloorJoists = {JoistBox::SecondFloorBay1, JoistBox::SecondFloorBay2, JoistBox::SecondFloorBay3,
                                         JoistBox::SecondFloorBay4, JoistBox::SecondFloorBay5};
constexpr FieldSet kJoistsUpstairs = {SecondFloorJoistSize, kSecondFloorBays};
constexpr FieldSet kFloorFraming = {FoundationType, GirderPly, kGirder,        DropGirderPly,  kDropGirder,
                                    kSillOnPiers,   SillPlate, FloorJoistSize, kFirstFloorBays};
constexpr FieldSet kSecondFloor = {SecondFloorFramed,
                                   kJoistsUpstairs,
                                   BaseMouldSecondFloor,
                                   PreCutStudsSecondFloor,
                                   NumberBox::ExtWallLftSecondFloor,
                                   NumberBox::IntWallLftSecondFloor,
                                   NumberBox::HeatedSqFtSecondFloor,
                                   NumberBox::ExtWallSidingSecondFloor,
                                   NumberBox::OutsideCornersSecondFloor};
constexpr FieldSet kGarageBoxes = {NumberBox::GarageWallLftSheathed, NumberBox::GarageWallLftUnsheathed, NumberBox::GarageSqFt};
constexpr FieldSet kCarportBoxes = {NumberBox::CarportBeamLft, NumberBox::CarportSqFt};
constexpr FieldSet kPanels = {PanelSiding, PanelHeight};
constexpr FieldSet kFirstFloorWall = NumberBox::ExtWallSidingFirstFloor;
constexpr FieldSet kSecondFloorWall = NumberBox::ExtWallSidingSecondFloor;
constexpr FieldSet kSidedWalls = {kFirstFloorWall, kSecondFloorWall};

// --- By the plan type

struct FixedRow {
  SelectionList list;
  int row;
};

// What a part of the plan type brings with it. Rows are chosen before the fields are shut.
struct PlanTypeRule {
  int bits;
  bool whenSet = true;  // the rule is for types with one of the bits, or for those with none of them
  std::array<std::optional<FixedRow>, 2> choose = {};
  FieldSet shut = {};
};

// clang-format off
constexpr PlanTypeRule kPlanTypeRules[] = {
    {.bits = kOneStorySlab | kDetachedGarage, .choose = {{FixedRow{SecondFloorType, 0}}},
     .shut = {FramingGrade, FloorSheathing, kFloorFraming, OakFlooring, NumberBox::OakFlooringSqFt, SecondFloorType, kSecondFloor, kFirstFloorJoists, kSecondFloorJoists}},
    {.bits = kTwoLevelSlab, .choose = {{FixedRow{SecondFloorType, 1}, FixedRow{GirderPly, 0}}}, .shut = {kFloorFraming, SecondFloorType, kFirstFloorJoists}},
    {.bits = kOneStoryCrawl, .choose = {{FixedRow{SecondFloorType, 0}}}, .shut = {SlabInterior, SecondFloorType, kSecondFloor, kSecondFloorJoists}},
    {.bits = kTwoLevelCrawl, .choose = {{FixedRow{SecondFloorType, 1}}}, .shut = {SlabInterior, SecondFloorType}},
    {.bits = kAttachedGarage, .whenSet = false, .choose = {{FixedRow{GarageOrStorage, 1}}}, .shut = {GarageOrStorage, kGarageBoxes}},
    {.bits = kAttachedGarage, .choose = {{FixedRow{GarageOrStorage, 0}}}, .shut = GarageOrStorage},
    {.bits = kCarport | kPorch, .whenSet = false, .choose = {{FixedRow{CarportOrPorch, 1}}}, .shut = {CarportOrPorch, kCarportBoxes}},
    {.bits = kCarport | kPorch, .choose = {{FixedRow{CarportOrPorch, 0}}}, .shut = CarportOrPorch},
    {.bits = kBrickVeneer, .choose = {{FixedRow{WallFinish, 0}}}},
    {.bits = kFixedWallFinish, .shut = {WallFinish, FriezeBoard, Siding, CornerBoards, kPanels, kSidedWalls}},
    {.bits = kHalfStory, .whenSet = false, .shut = {NumberBox::KneeWallLft, NumberBox::HalfStoryBaseMouldLft}},
    {.bits = kAtticTrussHalfStory, .shut = NumberBox::KneeWallLft},
};

// What a stored choice (counted from 1) of an opened plan rules out.
struct StoredChoiceRule {
  SelectionList list;
  int place;
  FieldSet shut;
  FieldSet hide = {};
};

constexpr StoredChoiceRule kStoredChoiceRules[] = {
    {FoundationType, 1, SillPlate},
    {FoundationType, 2, kSillOnPiers},
    {DropGirderPly, 1, kDropGirder},
    {OakFlooring, 2, NumberBox::OakFlooringSqFt},
    {SecondFloorFramed, 2, kJoistsUpstairs, kSecondFloorJoists},
    {WallFinish, 1, {Siding, CornerBoards, kPanels, kSidedWalls}},
    {WallFinish, 2, Siding},
    {WallFinish, 3, kPanels},
};
// clang-format on

// --- By what is chosen

// The rows of the list of wall finishes as the rules count them.
enum Finish { kBrick = 0, kPanel, kLap, kNoFinish, kVinyl, kBrickWithPanel, kBrickWithLap };

constexpr int kSoffitVinyl = 4;  // row of the soffits

bool IsCrawlSpace(const PlanForm& form) { return (form.PlanType & kCrawlSpace) != 0; }
bool IsTwoLevel(const PlanForm& form) { return (form.PlanType & kTwoLevel) != 0; }
int RowIn(const PlanForm& form, SelectionList list) { return form.lists[list].ListIndex; }

void OpenSidedWalls(PlanForm& form) {
  SetFields(form, kFirstFloorWall, true);
  // One-story plans have no second-floor wall.
  if ((form.PlanType & kOneStory) == 0) SetFields(form, kSecondFloorWall, true);
}

void ZeroSidingOfNewPlan(PlanForm& form) {
  if (!IsOpened(form.mode)) SetNumberText(form, NumberBox::ExtWallSidingFirstFloor, "0");
}

void ApplySheathingRule(PlanForm& form) {
  constexpr int kEightFootOnly = 2;
  const bool eightFootOnly = RowIn(form, WallSheathing) == kEightFootOnly;
  if (eightFootOnly) SelectRow(form, WallSheetHeight, 0);
  SetFields(form, WallSheetHeight, !eightFootOnly);
}

void ApplyFoundationRule(PlanForm& form) {
  const bool onPiers = RowIn(form, FoundationType) != 0;
  // Only what stands above the foundation bits, a garage, porch or finish, brings the plate of a crawl space.
  const bool hasPlate = form.PlanType > kCrawlSpace && RowIn(form, SlabOrCrawl) == 1;
  SetFields(form, SillPlate, hasPlate);
  // A plain crawl-space plan has sills where it stands on piers, like every other one.
  if (hasPlate || IsCrawlSpace(form)) SetFields(form, kSillOnPiers, onPiers);
}

void ApplyGirderRule(PlanForm& form) {
  if (IsCrawlSpace(form)) SetFields(form, kGirder, RowIn(form, GirderPly) != 0);
}

void ApplyDropGirderRule(PlanForm& form) {
  if (IsCrawlSpace(form)) SetFields(form, kDropGirder, RowIn(form, DropGirderPly) != 0);
}

void ApplyJoistRule(PlanForm& form) {
  SetFields(form, {kFirstFloorBays, kFirstFloorJoists}, (form.PlanType & (kSlab | kDetachedGarage)) == 0);
}

void ApplyOakRule(PlanForm& form) {
  // Where the list itself is shut, oak is never listed, and an area must not be asked for.
  SetFields(form, NumberBox::OakFlooringSqFt, RowIn(form, OakFlooring) == 0 && form.lists[OakFlooring].enabled);
}

void ApplySecondFloorRule(PlanForm& form) {
  if (!IsTwoLevel(form)) return;
  const bool joists = RowIn(form, SecondFloorFramed) == 0;
  SetFields(form, {kJoistsUpstairs, kSecondFloorJoists}, joists);
  for (const JoistBox box : kAllJoistBoxes)
    if (joists && kSecondFloorJoists.Has(box)) form.joists[box].isHidden = false;
}

// What the wall finish opens and shuts. Brick leaves the siding to the soffit, and sided walls open by the plan type.
struct FinishRule {
  FieldSet open;
  FieldSet shut;
  bool hasSidedWalls;
  bool zeroesSiding;  // of a new plan: brick covers the wall that is computed
};

constexpr FieldSet kPanelFields = {kPanels, CornerBoards};
constexpr FieldSet kLapFields = {Siding, CornerBoards};
// clang-format off
constexpr FinishRule kFinishRules[] = {
    {.open = FriezeBoard,                .shut = {kPanelFields, kSidedWalls}, .hasSidedWalls = false, .zeroesSiding = false},  // brick
    {.open = kPanelFields,               .shut = {FriezeBoard, Siding},       .hasSidedWalls = true,  .zeroesSiding = false},  // panel
    {.open = kLapFields,                 .shut = {FriezeBoard, kPanels},      .hasSidedWalls = true,  .zeroesSiding = false},  // lap
    {.open = FriezeBoard,                .shut = {kPanelFields, kSidedWalls}, .hasSidedWalls = false, .zeroesSiding = false},  // none
    {.open = kLapFields,                 .shut = {FriezeBoard, kPanels},      .hasSidedWalls = true,  .zeroesSiding = false},  // vinyl
    {.open = {kPanelFields, FriezeBoard}, .shut = Siding,                     .hasSidedWalls = true,  .zeroesSiding = true},   // brick with panel
    {.open = {kLapFields, FriezeBoard},  .shut = kPanels,                     .hasSidedWalls = true,  .zeroesSiding = true},   // brick with lap
};
// clang-format on

// The soffit has a say in whether the gables of a brick house get siding, and only there.
bool AsksForSoffit(const PlanForm& form) {
  const int finish = RowIn(form, WallFinish);
  return finish == kBrick || finish == kNoFinish;
}

void ApplyWallFinishRule(PlanForm& form) {
  const int finish = RowIn(form, WallFinish);
  if (finish < kBrick || finish > kBrickWithLap) return;
  const FinishRule& rule = kFinishRules[finish];
  SetFields(form, rule.open, true);
  SetFields(form, rule.shut, false);
  if (AsksForSoffit(form)) SetFields(form, Siding, RowIn(form, SoffitMaterial) == kSoffitVinyl);
  if (rule.hasSidedWalls) OpenSidedWalls(form);
  if (rule.zeroesSiding) ZeroSidingOfNewPlan(form);
}

struct FieldRule {
  SelectionList list;
  void (*apply)(PlanForm&);
};

// In the order of their lines.
constexpr FieldRule kFieldRules[] = {
    {WallSheathing, ApplySheathingRule},       {FoundationType, ApplyFoundationRule}, {GirderPly, ApplyGirderRule},
    {DropGirderPly, ApplyDropGirderRule},      {FloorJoistSize, ApplyJoistRule},      {OakFlooring, ApplyOakRule},
    {SecondFloorFramed, ApplySecondFloorRule}, {WallFinish, ApplyWallFinishRule},
};
static_assert(std::ranges::is_sorted(kFieldRules, {}, [](const FieldRule& rule) { return LineOf(rule.list); }));

}  // namespace

void SetFields(PlanForm& form, const FieldSet& fields, bool enable) {
  const auto setCaption = [&](auto field) { form.lines[static_cast<std::size_t>(LineOf(field))].enabled = enable; };
  for (const SelectionList list : kAllSelectionLists)
    if (fields.Has(list)) form.lists[list].enabled = enable, setCaption(list);
  for (const NumberBox box : kAllNumberBoxes)
    if (fields.Has(box)) form.numbers[box].enabled = enable, setCaption(box);
  for (const JoistBox box : kAllJoistBoxes)
    if (fields.Has(box)) form.joists[box].enabled = enable;
}

void ApplyPlanTypeRules(PlanForm& form, EstimateRecord& plan) {
  SetFields(form, SlabOrCrawl, false);
  SelectRow(form, SlabOrCrawl, IsCrawlSpace(form) ? 1 : 0);

  for (const PlanTypeRule& rule : kPlanTypeRules) {
    if (((form.PlanType & rule.bits) != 0) != rule.whenSet) continue;
    for (const auto& fixed : rule.choose)
      if (fixed) SelectRow(form, fixed->list, fixed->row);
    SetFields(form, rule.shut, false);
  }
  if ((form.PlanType & kBrickVeneer) != 0) plan.WallFinishIndex = kBrick + 1;

  if (!IsOpened(form.mode)) {
    // Attic trusses carry their own floor: with joists in the list they would be paid for twice.
    if ((form.PlanType & kAtticTrussHalfStory) != 0) SelectRow(form, SecondFloorFramed, 1);
    return;
  }
  for (const StoredChoiceRule& rule : kStoredChoiceRules) {
    if (plan.*RowOf(rule.list).index != rule.place) continue;
    SetFields(form, rule.shut, false);
    for (const JoistBox box : kAllJoistBoxes)
      if (rule.hide.Has(box)) form.joists[box].isHidden = true;
  }
}

void ApplyFieldRule(PlanForm& form, SelectionList list) {
  for (const FieldRule& rule : kFieldRules)
    if (rule.list == list) rule.apply(form);
  if (form.mark == ChangeMark::Choosing) form.mark = ChangeMark::Modified;
}

void ApplyAllFieldRules(PlanForm& form) {
  for (const FieldRule& rule : kFieldRules) ApplyFieldRule(form, rule.list);
}

void SelectRow(PlanForm& form, SelectionList list, int row) {
  ListState& chosen = form.lists[list];
  chosen.ListIndex = row;
  if (row >= 0) chosen.unlistedText.clear();
  if (chosen.enabled) {
    if (!form.isLoading) form.mark = ChangeMark::Choosing;
    ApplyFieldRule(form, list);
    if (list == SoffitMaterial && AsksForSoffit(form)) ApplyFieldRule(form, WallFinish);
  }
  if (!form.isLoading) form.mark = ChangeMark::Modified;
}

}  // namespace norvale
