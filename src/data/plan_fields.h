// The fields of a plan that the data-entry screens show: number boxes, joist boxes, selection lists, and the lines on which
// they stand. Everything that deals with a field refers to its row here, by its name.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>

#include "base/enum_array.h"
#include "data/estimate_record.h"

namespace norvale {

// --- What the rows of the tables tell

/// Rows of one table: one number among them is enough.
enum class BoxGroup : std::uint8_t { None, MajorGirder, WiderGirder, DropGirder, Sill, FirstFloorBays, SecondFloorBays };

enum class MayBeEmpty : std::uint8_t { Never, OnHalfStory, Always };

/// NotRequired: the preliminary measurements fill it in. Calculated: the program computes it.
enum class WorksheetMark : std::uint8_t { None, NotRequired, Calculated };

/// Where a number is kept in the record: a field of its own, or a row of a table.
struct NumberPlace {
  std::int16_t EstimateRecord::*field = nullptr;
  FiveRows EstimateRecord::*table = nullptr;
  std::size_t row = 0;

  [[nodiscard]] constexpr std::int16_t& In(EstimateRecord& plan) const { return field != nullptr ? plan.*field : (plan.*table)[row]; }
  [[nodiscard]] constexpr std::int16_t In(const EstimateRecord& plan) const { return field != nullptr ? plan.*field : (plan.*table)[row]; }
};

// --- The number boxes

enum class NumberBox : std::uint8_t {
#define BOX(name, ...) name,
#define ROW(name, ...) name,
#include "data/number_boxes.def"
};

struct NumberBoxRow {
  std::string_view name;
  NumberPlace place;
  BoxGroup group = BoxGroup::None;
  MayBeEmpty mayBeLeftEmpty = MayBeEmpty::Never;
  MayBeEmpty mayPrintEmpty = MayBeEmpty::Never;
  WorksheetMark worksheet = WorksheetMark::None;
};

inline constexpr NumberBoxRow kNumberBoxRows[] = {
#define BOX(field_, ...) {.name = #field_, .place = {.field = &EstimateRecord::field_} __VA_OPT__(, ) __VA_ARGS__},
#define ROW(name_, table_, row_, ...) {.name = #name_, .place = {.table = &EstimateRecord::table_, .row = row_} __VA_OPT__(, ) __VA_ARGS__},
#include "data/number_boxes.def"
};

inline constexpr std::size_t kNumberBoxes = std::size(kNumberBoxRows);
inline constexpr auto kAllNumberBoxes = EnumValues<NumberBox, kNumberBoxes>();

template <typename T>
using ByNumberBox = EnumArray<NumberBox, T, kNumberBoxes>;

constexpr const NumberBoxRow& RowOf(NumberBox box) { return kNumberBoxRows[static_cast<std::size_t>(box)]; }

// --- The joist boxes: each stands behind the number box of its bay

enum class JoistBox : std::uint8_t {
  FirstFloorBay1,
  FirstFloorBay2,
  FirstFloorBay3,
  FirstFloorBay4,
  FirstFloorBay5,
  SecondFloorBay1,
  SecondFloorBay2,
  SecondFloorBay3,
  SecondFloorBay4,
  SecondFloorBay5,
};

struct JoistBoxRow {
  std::string_view name;
  NumberPlace place;
  NumberBox bay;
};

// clang-format off
inline constexpr JoistBoxRow kJoistBoxRows[] = {
    {"JoistLengthFirstFloor1", {.table = &EstimateRecord::JoistLengthFirstFloor, .row = 0}, NumberBox::BayAreaLftFirstFloor1},
    {"JoistLengthFirstFloor2", {.table = &EstimateRecord::JoistLengthFirstFloor, .row = 1}, NumberBox::BayAreaLftFirstFloor2},
    {"JoistLengthFirstFloor3", {.table = &EstimateRecord::JoistLengthFirstFloor, .row = 2}, NumberBox::BayAreaLftFirstFloor3},
    {"JoistLengthFirstFloor4", {.table = &EstimateRecord::JoistLengthFirstFloor, .row = 3}, NumberBox::BayAreaLftFirstFloor4},
    {"JoistLengthFirstFloor5", {.table = &EstimateRecord::JoistLengthFirstFloor, .row = 4}, NumberBox::BayAreaLftFirstFloor5},
    {"JoistLengthSecondFloor1", {.table = &EstimateRecord::JoistLengthSecondFloor, .row = 0}, NumberBox::BayAreaLftSecondFloor1},
    {"JoistLengthSecondFloor2", {.table = &EstimateRecord::JoistLengthSecondFloor, .row = 1}, NumberBox::BayAreaLftSecondFloor2},
    {"JoistLengthSecondFloor3", {.table = &EstimateRecord::JoistLengthSecondFloor, .row = 2}, NumberBox::BayAreaLftSecondFloor3},
    {"JoistLengthSecondFloor4", {.table = &EstimateRecord::JoistLengthSecondFloor, .row = 3}, NumberBox::BayAreaLftSecondFloor4},
    {"JoistLengthSecondFloor5", {.table = &EstimateRecord::JoistLengthSecondFloor, .row = 4}, NumberBox::BayAreaLftSecondFloor5},
};
// clang-format on

inline constexpr std::size_t kJoistBoxes = std::size(kJoistBoxRows);
inline constexpr auto kAllJoistBoxes = EnumValues<JoistBox, kJoistBoxes>();

template <typename T>
using ByJoistBox = EnumArray<JoistBox, T, kJoistBoxes>;

constexpr const JoistBoxRow& RowOf(JoistBox box) { return kJoistBoxRows[static_cast<std::size_t>(box)]; }

/// The joist box behind a number box; none where it is no bay.
constexpr std::optional<JoistBox> JoistBoxBehind(NumberBox box) {
  for (const JoistBox joist : kAllJoistBoxes)
    if (RowOf(joist).bay == box) return joist;
  return std::nullopt;
}

// --- The selection lists

enum class SelectionList : std::uint8_t {
#define LIST(name, ...) name,
#include "data/selection_lists.def"
};

/// A list keeps the chosen place, its text, or both.
struct SelectionListRow {
  std::string_view name;
  std::int16_t EstimateRecord::*index = nullptr;  // counted from 1, 0: nothing chosen
  FixedText<20> EstimateRecord::*text = nullptr;
  WorksheetMark worksheet = WorksheetMark::None;
  std::string_view addedRow = {};
};

inline constexpr SelectionListRow kSelectionListRows[] = {
#define LIST(name_, ...) {.name = #name_ __VA_OPT__(, ) __VA_ARGS__},
#include "data/selection_lists.def"
};

inline constexpr std::size_t kSelectionLists = std::size(kSelectionListRows);
inline constexpr auto kAllSelectionLists = EnumValues<SelectionList, kSelectionLists>();

template <typename T>
using BySelectionList = EnumArray<SelectionList, T, kSelectionLists>;

constexpr const SelectionListRow& RowOf(SelectionList list) { return kSelectionListRows[static_cast<std::size_t>(list)]; }

// --- The lines

/// What stands on a line: nothing but its caption, a selection list, or a number box.
struct LineField {
  enum class Kind : std::uint8_t { None, List, Number };

  constexpr LineField() = default;
  constexpr LineField(SelectionList list) : kind(Kind::List), index(static_cast<std::uint8_t>(list)) {}  // NOLINT: a list is a field
  constexpr LineField(NumberBox box) : kind(Kind::Number), index(static_cast<std::uint8_t>(box)) {}      // NOLINT: a box is a field

  [[nodiscard]] constexpr bool IsList() const { return kind == Kind::List; }
  [[nodiscard]] constexpr bool IsNumber() const { return kind == Kind::Number; }
  [[nodiscard]] constexpr SelectionList List() const { return static_cast<SelectionList>(index); }
  [[nodiscard]] constexpr NumberBox Number() const { return static_cast<NumberBox>(index); }
  [[nodiscard]] constexpr std::string_view Name() const { return IsList() ? RowOf(List()).name : IsNumber() ? RowOf(Number()).name : ""; }
  [[nodiscard]] constexpr WorksheetMark Mark() const {
    return IsList() ? RowOf(List()).worksheet : IsNumber() ? RowOf(Number()).worksheet : WorksheetMark::None;
  }

  bool operator==(const LineField&) const = default;

  Kind kind = Kind::None;
  std::uint8_t index = 0;
};

/// A line of the data-entry screens: its screen, from 0, and what stands on it.
struct PlanLine {
  int screen;
  LineField field;
};

// clang-format off
/// The lines in the order of the screen file.
inline constexpr PlanLine kPlanLines[] = {
    // screen 1
    {0, SelectionList::FramingGrade},
    {0, SelectionList::FloorSheathing},
    {0, SelectionList::ShoePlates},
    {0, SelectionList::PreCutStuds},
    {0, SelectionList::WallSheathing},
    {0, SelectionList::CornerBracing},
    {0, SelectionList::RoofSheathing},
    // screen 2
    {1, SelectionList::Roofing},
    {1, SelectionList::ExteriorTrim},
    {1, SelectionList::FasciaBoard},
    {1, SelectionList::SoffitMaterial},
    {1, SelectionList::FriezeMould},
    {1, SelectionList::BaseMouldFirstFloor},
    {1, NumberBox::ExtWallLftFirstFloor},
    // screen 3
    {2, NumberBox::OutsideCornersFirstFloor},
    {2, NumberBox::HeatedLength},
    {2, NumberBox::OverallLength},
    {2, SelectionList::WallSheetHeight},
    {2, SelectionList::SlabOrCrawl},
    {2, SelectionList::SlabInterior},
    // screen 4
    {3, SelectionList::FoundationType},
    {3, SelectionList::GirderPly},
    {3, SelectionList::GirderSize},
    {3, NumberBox::MajorGirderLft8},
    {3, NumberBox::MajorGirderLft10},
    {3, NumberBox::MajorGirderLft12},
    {3, NumberBox::MajorGirderLft14},
    {3, NumberBox::MajorGirderLft16},
    {3, NumberBox::WiderGirderLft8},
    {3, NumberBox::WiderGirderLft10},
    {3, NumberBox::WiderGirderLft12},
    {3, NumberBox::WiderGirderLft14},
    {3, NumberBox::WiderGirderLft16},
    // screen 5
    {4, SelectionList::DropGirderPly},
    {4, SelectionList::DropGirderSize},
    {4, NumberBox::DropGirderLft8},
    {4, NumberBox::DropGirderLft10},
    {4, NumberBox::DropGirderLft12},
    {4, NumberBox::DropGirderLft14},
    {4, NumberBox::DropGirderLft16},
    {4, SelectionList::SillPly},
    {4, SelectionList::SillSize},
    // screen 6
    {5, NumberBox::SillLft8},
    {5, NumberBox::SillLft10},
    {5, NumberBox::SillLft12},
    {5, NumberBox::SillLft14},
    {5, NumberBox::SillLft16},
    {5, SelectionList::SillPlate},
    {5, SelectionList::FloorJoistSize},
    {5, NumberBox::IntWallLftFirstFloor},
    {5, NumberBox::HeatedSqFtFirstFloor},
    // screen 7
    {6, NumberBox::BayAreaLftFirstFloor1},
    {6, NumberBox::BayAreaLftFirstFloor2},
    {6, NumberBox::BayAreaLftFirstFloor3},
    {6, NumberBox::BayAreaLftFirstFloor4},
    {6, NumberBox::BayAreaLftFirstFloor5},
    {6, SelectionList::OakFlooring},
    {6, SelectionList::GarageOrStorage},
    {6, NumberBox::OakFlooringSqFt},
    {6, NumberBox::GarageWallLftSheathed},
    {6, NumberBox::GarageWallLftUnsheathed},
    {6, NumberBox::GarageSqFt},
    // screen 8
    {7, SelectionList::CarportOrPorch},
    {7, NumberBox::CarportBeamLft},
    {7, NumberBox::CarportSqFt},
    {7, SelectionList::SecondFloorType},
    {7, SelectionList::SecondFloorFramed},
    {7, SelectionList::SecondFloorJoistSize},
    {7, SelectionList::BaseMouldSecondFloor},
    // screen 9
    {8, NumberBox::BayAreaLftSecondFloor1},
    {8, NumberBox::BayAreaLftSecondFloor2},
    {8, NumberBox::BayAreaLftSecondFloor3},
    {8, NumberBox::BayAreaLftSecondFloor4},
    {8, NumberBox::BayAreaLftSecondFloor5},
    {8, NumberBox::ExtWallLftSecondFloor},
    {8, NumberBox::IntWallLftSecondFloor},
    {8, SelectionList::PreCutStudsSecondFloor},
    {8, NumberBox::HeatedSqFtSecondFloor},
    {8, NumberBox::HeaderLft},
    {8, NumberBox::FasciaLft},
    // screen 10
    {9, NumberBox::RoofSqFt},
    {9, SelectionList::RoofOverhang},
    {9, SelectionList::WallFinish},
    {9, SelectionList::FriezeBoard},
    {9, SelectionList::Siding},
    {9, SelectionList::PanelSiding},
    {9, SelectionList::CornerBoards},
    // screen 11
    {10, NumberBox::ExtWallSidingFirstFloor},
    {10, NumberBox::ExtWallSidingSecondFloor},
    {10, SelectionList::PanelHeight},
    {10, NumberBox::OutsideCornersSecondFloor},
    {10, NumberBox::GableSqFt},
    {10, NumberBox::KneeWallLft},
    {10, NumberBox::HalfStoryBaseMouldLft},
};
// clang-format on

/// The index of the last screen.
inline constexpr int ScreenCount = kPlanLines[std::size(kPlanLines) - 1].screen;
inline constexpr std::size_t kScreens = ScreenCount + 1;
inline constexpr std::size_t kScreenLines = std::size(kPlanLines);

/// The line (from 0) on which each field stands; -1 would be none.
struct LinesOfFields {
  BySelectionList<int> lists;
  ByNumberBox<int> numbers;
  bool areOnce = true;  // no field stands on two lines
};
constexpr LinesOfFields FindLinesOfFields() {
  LinesOfFields found;
  found.lists.values.fill(-1);
  found.numbers.values.fill(-1);
  for (std::size_t line = 0; line < kScreenLines; ++line) {
    const LineField& field = kPlanLines[line].field;
    int& place = field.IsList() ? found.lists[field.List()] : found.numbers[field.Number()];
    found.areOnce = found.areOnce && place == -1;
    place = static_cast<int>(line);
  }
  return found;
}
inline constexpr LinesOfFields kLinesOfFields = FindLinesOfFields();

constexpr int LineOf(NumberBox box) { return kLinesOfFields.numbers[box]; }
constexpr int LineOf(SelectionList list) { return kLinesOfFields.lists[list]; }

static_assert(std::ranges::is_sorted(kPlanLines, {}, &PlanLine::screen), "screens follow one another");
static_assert(kLinesOfFields.areOnce && std::ranges::count(kLinesOfFields.numbers, -1) == 0 &&
                  std::ranges::count(kLinesOfFields.lists, -1) == 0,
              "each box and each list stands on one line");
static_assert(std::ranges::all_of(kSelectionListRows,
                                  [](const SelectionListRow& row) { return row.index != nullptr || row.text != nullptr; }),
              "the record keeps something of each list");

// --- Sets of fields

/// A set of boxes and lists. The captions of their lines go with them; the joist boxes have none of their own.
class FieldSet {
 public:
  constexpr FieldSet() = default;
  constexpr FieldSet(NumberBox box) : numbers_(Bit(box)) {}      // NOLINT: one box is a set
  constexpr FieldSet(JoistBox box) : joists_(Bit(box)) {}        // NOLINT: one box is a set
  constexpr FieldSet(SelectionList list) : lists_(Bit(list)) {}  // NOLINT: one list is a set
  constexpr FieldSet(std::initializer_list<FieldSet> sets) {
    for (const FieldSet& set : sets) *this = *this | set;
  }

  [[nodiscard]] constexpr bool Has(NumberBox box) const { return (numbers_ & Bit(box)) != 0; }
  [[nodiscard]] constexpr bool Has(JoistBox box) const { return (joists_ & Bit(box)) != 0; }
  [[nodiscard]] constexpr bool Has(SelectionList list) const { return (lists_ & Bit(list)) != 0; }
  [[nodiscard]] constexpr bool IsEmpty() const { return (numbers_ | lists_ | joists_) == 0; }

  friend constexpr FieldSet operator|(FieldSet a, FieldSet b) {
    a.numbers_ |= b.numbers_;
    a.lists_ |= b.lists_;
    a.joists_ |= b.joists_;
    return a;
  }

  bool operator==(const FieldSet&) const = default;

 private:
  template <typename Key>
  static constexpr std::uint64_t Bit(Key key) {
    return std::uint64_t{1} << static_cast<unsigned>(key);
  }

  std::uint64_t numbers_ = 0;
  std::uint64_t lists_ = 0;
  std::uint64_t joists_ = 0;
};

static_assert(kNumberBoxes <= 64 && kSelectionLists <= 64 && kJoistBoxes <= 64, "a set has a bit for each");

/// The boxes of a group.
constexpr FieldSet BoxesOf(BoxGroup group) {
  FieldSet set;
  for (const NumberBox box : kAllNumberBoxes)
    if (RowOf(box).group == group) set = set | box;
  return set;
}

}  // namespace norvale
