#include "entry/roof.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

#include "base/numbers.h"
#include "base/text.h"
#include "entry/entry_form.h"
#include "entry/number_entry.h"
#include "takeoff/print_estimate.h"
#include "takeoff/sections.h"

namespace norvale {
namespace {

constexpr const char* kForms = "0 Type a length as 12-6 (feet and inches), 12.5 (feet) or 12 (feet)!|";
constexpr const char* kNoRun = "0 Missing Lft of Rafter Run|";
constexpr const char* kNoLength = "0 Missing Lft of Section!|";
constexpr const char* kFull = "0 Max of 64 sections already entered!|";

void Type(RoofForm& form, const char* run, const char* length, const char* loadWall = "") {
  form.txtRafterRun = run, form.txtSection = length, form.txtloadwall = loadWall;
  StoreSection(form);
}

// A roof of `count` sections of 1 ft, 2 ft, 3 ft, ... with the first section shown.
RoofForm RoofOf(int count) {
  EstimateRecord plan;
  for (int i = 0; i < count; ++i)
    plan.RoofPlanes[static_cast<std::size_t>(i)] = {.SectionType = static_cast<std::uint8_t>(1 + i % 5),
                                                    .FramingType = static_cast<std::uint8_t>(i % 4),
                                                    .PitchIndex = static_cast<std::uint8_t>(i % 10),
                                                    .RafterIndex = static_cast<std::uint8_t>(i % 4),
                                                    .SectionLength = static_cast<std::int16_t>(12 * (i + 1)),
                                                    .RafterRun = 144,
                                                    .LoadWallRun = static_cast<std::int16_t>(i)};
  return OpenRoofForm(plan);
}

std::vector<int> Lengths(const RoofForm& form) {
  std::vector<int> feet;
  for (const RoofPlane& section : form.RoofPlanes)
    if (section.SectionType != 0) feet.push_back(section.SectionLength / 12);
  return feet;
}

TEST(RoofLength, IsReadWholeOrRefused) {
  const auto expect = [](const char* text, int inches, std::string_view message) {
    const RoofLength length = ReadLength(text);
    EXPECT_EQ(length.inches, inches) << text;
    EXPECT_EQ(length.message, message) << text;
  };
  using Read = std::pair<const char*, int>;
  for (const auto& [text, inches] :
       {Read{"12-6", 150}, Read{"12.5", 150}, Read{"12", 144}, Read{" 12 - 6 ", 150}, Read{"12-", 144}, Read{"12.", 144}, Read{".5", 6},
        Read{"0-6", 6}, Read{"12-6.4", 150}, Read{"12-14", 158}, Read{"12.04", 144}, Read{"12.05", 145}, Read{"", 0}, Read{"abc", 0},
        Read{"-", 0}, Read{"0", 0}, Read{"2730-7", 32767}})
    expect(text, inches, "");
  for (const char* const text : {"12'6", "12'6\"", "12 6", "12-6-3", "12-6in", "12ft", "12,5", "1.2.3", "x-6", "12-12345678901"})
    expect(text, 0, kForms);
  for (const char* const text : {"2730-8", "2731"}) expect(text, 0, kEntryTooLarge);
  expect("-6", 0, kEntryTooSmall);
}

TEST(RoofLength, ComesBackFromItsBox) {
  for (const auto& [inches, shown] : {std::pair{-5, ""}, {0, ""}, {1, ".08"}, {6, ".5"}, {144, "12."}, {150, "12.5"}, {145, "12.08"}})
    EXPECT_EQ(ShownLength(inches), shown) << inches;
  for (int inches = 0; inches <= 32767; ++inches) ASSERT_EQ(ReadLength(ShownLength(inches)).inches, inches);
  EXPECT_EQ(LengthReading(150) + ", " + LengthReading(11), "12 ft 6 in, 0 ft 11 in");
}

TEST(RoofArea, IsTheOneWorkedByHand) {
  struct Case {
    std::uint8_t pitch;
    std::int16_t length, run;
    double squareFeet;  // run x Sqr(pitch^2 + 144) / 12 x Sqr(1.0075) x length
  };
  for (const Case& c : {Case{0, 120, 144, 124.157}, Case{2, 120, 144, 130.487}, Case{6, 246, 96, 205.768}, Case{9, 12, 12, 1.41951},
                        Case{1, 480, 150, 529.019}, Case{1, 0, 150, 0}})
    EXPECT_NEAR(SectionArea({.PitchIndex = c.pitch, .SectionLength = c.length, .RafterRun = c.run}), c.squareFeet, 0.002) << c.squareFeet;
  std::array<RoofPlane, kRoofPlanes> sections{};
  for (std::size_t i = 0; i < 10; ++i) sections[i] = {.SectionType = 1, .SectionLength = 120, .RafterRun = 144};
  EXPECT_EQ(Int(TotalArea(sections)), 1241) << "ten times 124.157, not ten times 124";
  sections[9].SectionType = 0;
  EXPECT_EQ(Int(TotalArea(sections)), 1117) << "an unused section has no area";
}

// The notes are right where the estimate leaves the rafters, hips and valleys out.
TEST(RoofNotes, TellWhatTheEstimateLeavesOut) {
  const auto noted = [](const RoofPlane& section, std::string_view part) {
    return std::ranges::any_of(SectionNotes(section), [part](const std::string& note) { return Has(note, part); });
  };
  const TakeoffData data;
  EstimatePrint print;
  print.plan.CeilingJoistLft2X6[0] = 8;
  print.sectionMask = FindSection("ROOF SYSTEM")->bit;
  int left = 0;
  for (int type = 1; type <= kRoofTypes; ++type)
    for (std::uint8_t pitch = 0; pitch < 10; ++pitch)
      for (std::int16_t run = 12; run <= 900; run = static_cast<std::int16_t>(run + 36))
        for (const int loadWall : {0, run / 3}) {
          const RoofPlane section{static_cast<std::uint8_t>(type), 0, pitch, 0, 2400, run, static_cast<std::int16_t>(loadWall)};
          print.plan.RoofPlanes[0] = section;
          Page page;
          (void)PrintEstimate(print, data, page);
          // Two pieces of different length stand in two rows.
          const bool isTold = noted(section, "A rafter of");
          if (loadWall == 0 || type == kShedSection) {
            ASSERT_EQ(isTold, !Has(page.Text(), "(Rafter)")) << type << ' ' << +pitch << ' ' << run;
          }
          ASSERT_EQ(noted(section, "A hip rafter") || noted(section, "A valley rafter"),
                    type != 1 && type != kShedSection && !Has(page.Text(), "(Hip/Valley Rafter)"));
          left += isTold;
        }
  EXPECT_GT(left, 0);
  EXPECT_TRUE(noted({.SectionType = 1, .PitchIndex = 9, .SectionLength = 120, .RafterRun = 900, .LoadWallRun = 394}, "of 60 ft"))
      << "59 ft 8 in, and a foot for the lap";
  EXPECT_TRUE(noted({.SectionType = 3, .SectionLength = 287, .RafterRun = 144}, "no ridge"));
  EXPECT_TRUE(noted({.SectionType = 1, .SectionLength = 288, .RafterRun = 144, .LoadWallRun = 145}, "beyond"));
  EXPECT_TRUE(noted({.SectionType = 5, .SectionLength = 288, .RafterRun = 144, .LoadWallRun = 60}, "one piece"));
  EXPECT_FALSE(noted({.SectionType = 3, .SectionLength = 288, .RafterRun = 144, .LoadWallRun = 144}, ""));
  std::vector<std::string> grades = NewForm(kOneStoryCrawl).lists[SelectionList::FramingGrade].rows;
  EXPECT_EQ(SpeciesNote(1, grades), "");
  std::swap(grades[1], grades[2]);
  EXPECT_EQ(SpeciesNote(1, grades), "The list of framing grades was changed: rafters of #2 SPF are printed as #2 HEM-FIR.");
}

TEST(RoofForm, EveryStepChecksTheSectionFirst) {
  using Step = RoofStep (*)(RoofForm&);
  struct Case {
    const char *run, *length, *loadWall, *message;
    RoofBox focus;
  };
  const Case cases[] = {{"", "10", "", kNoRun, RoofBox::txtRafterRun},     {"0", "", "", kNoRun, RoofBox::txtRafterRun},
                        {"abc", "10", "", kNoRun, RoofBox::txtRafterRun},  {"12", "", "", kNoLength, RoofBox::txtSection},
                        {"12'6", "10", "", kForms, RoofBox::txtRafterRun}, {"12", "10 6", "", kForms, RoofBox::txtSection},
                        {"12", "10", "8'", kForms, RoofBox::txtloadwall},  {"12", "10", "none", kForms, RoofBox::txtloadwall}};
  for (const Step step : {Step{NextSection}, Step{PreviousSection}, Step{AddSection}, Step{UndoRemove},
                          Step{[](RoofForm& form) { return FinishSections(form).step; }}})
    for (const Case& c : cases) {
      RoofForm form = RoofOf(4);
      RemoveSection(form);
      NextSection(form);
      Type(form, c.run, c.length, c.loadWall);
      const RoofStep result = step(form);
      EXPECT_EQ(result.message, c.message);
      EXPECT_EQ(result.focus, c.focus);
      EXPECT_EQ(SectionLabel(form), "2 of 3");
      EXPECT_EQ(form.txtRafterRun, c.run) << "what was typed stays to be mended";
      EXPECT_FALSE(form.showsJoists);
    }
}

TEST(RoofForm, StepsShowWhatIsStored) {
  RoofForm form = RoofOf(3);
  EXPECT_EQ(form.txtSection, "1.");
  form.optRoof = kShedSection, form.cboRFType = 3, form.cboPitch = 9, form.cboRafter = 2;
  Type(form, "14-3", "20.5", "8");
  ASSERT_TRUE(GoToSection(form, 3).IsDone());
  ASSERT_TRUE(GoToSection(form, 1).IsDone());
  EXPECT_EQ(form.txtRafterRun + " " + form.txtSection + " " + form.txtloadwall, "14.25 20.5 8.");
  const RoofPlane expected{
      .SectionType = 5, .FramingType = 3, .PitchIndex = 9, .RafterIndex = 2, .SectionLength = 246, .RafterRun = 171, .LoadWallRun = 96};
  EXPECT_EQ(form.RoofPlanes[0], expected);
  Type(form, "14'3", "20.5", "8");
  EXPECT_EQ(form.RoofPlanes[0], expected) << "a length that is refused leaves the section's own";
  Type(form, "14.25", "20.5", "8");
  EXPECT_TRUE(GoToSection(form, 4).IsDone());
  EXPECT_EQ(form.CurrentSection, 1) << "there is no section 4";
}

TEST(RoofForm, AtMost64SectionsEachLikeTheOneBefore) {
  RoofForm form = RoofOf(63);
  GoToSection(form, 3);
  ASSERT_TRUE(AddSection(form).IsDone());
  EXPECT_EQ(form.optRoof * 10 + form.cboPitch, 32) << "like the third";
  EXPECT_EQ(form.txtSection + form.txtRafterRun + form.txtloadwall, "");
  Type(form, "12", "64");
  EXPECT_EQ(AddSection(form).message, kFull);
  EXPECT_EQ(SectionLabel(form), "64 of 64");
  RemoveSection(form);
  ASSERT_TRUE(AddSection(form).IsDone());
  Type(form, "12", "64");
  EXPECT_EQ(UndoRemove(form).message, kFull);
}

// Sections removed in any order leave the others without a gap, and all of them come back where they were.
TEST(RoofForm, RemovalClosesTheGapAndCanBeTakenBack) {
  std::mt19937 random(5);
  for (int round = 0; round < 200; ++round) {
    const auto count = static_cast<int>(1 + random() % 64);
    RoofForm form = RoofOf(count);
    std::vector<int> left(static_cast<std::size_t>(count));
    std::iota(left.begin(), left.end(), 1);
    for (auto removals = random() % (left.size() + 1); removals > 0; --removals) {
      const auto section = static_cast<int>(random() % left.size());
      GoToSection(form, section + 1);
      RemoveSection(form);
      left.erase(left.begin() + section);
      ASSERT_EQ(Lengths(form), left);
      const auto shown = std::min<std::size_t>(static_cast<std::size_t>(section) + 1, left.size());
      ASSERT_EQ(SectionLabel(form), Digits(static_cast<double>(shown)) + " of " + Digits(static_cast<double>(left.size())));
    }
    RemoveSection(form);
    while (!form.removed.empty()) ASSERT_TRUE(UndoRemove(form).IsDone());
    ASSERT_EQ(form.RoofPlanes, RoofOf(count).RoofPlanes);
    ASSERT_TRUE(UndoRemove(form).IsDone()) << "there is no more to take back";
    ASSERT_EQ(form.SectionCount, count);
  }
}

TEST(RoofForm, ARoofWithGapsIsClosedUp) {
  EstimateRecord plan;
  plan.RoofPlanes[5] = {.SectionType = 3, .SectionLength = 120, .RafterRun = 144};
  plan.RoofPlanes[63] = {.SectionType = 5, .SectionLength = 240, .RafterRun = 144};
  plan.RoofPlanes[7] = {.SectionType = 6, .SectionLength = 999, .RafterRun = 144};
  EXPECT_EQ(Lengths(OpenRoofForm(plan)), (std::vector{10, 20}));
}

TEST(RoofForm, AnAreaThatNoPlanCanKeepIsNotHandedOver) {
  PlanForm dataEntry = NewForm(kOneStoryCrawl);
  RoofForm form = RoofOf(1);
  Type(form, "2730", "2730");
  EXPECT_EQ(TransferRoofArea(form, dataEntry), kEntryTooLarge);
  EXPECT_EQ(dataEntry.numbers[NumberBox::RoofSqFt].text, "");
}

}  // namespace
}  // namespace norvale
