#include "entry/roof.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"
#include "entry/entry_form.h"
#include "entry/number_entry.h"
#include "takeoff/print_estimate.h"

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
  struct Case {
    const char* text;
    int inches;
    const char* message;
  };
  for (const Case& c : {Case{"12-6", 150, ""},
                        Case{"12.5", 150, ""},
                        Case{"12", 144, ""},
                        Case{" 12 - 6 ", 150, ""},
                        Case{"12-", 144, ""},
                        Case{"12.", 144, ""},
                        Case{".5", 6, ""},
                        Case{"0-6", 6, ""},
                        Case{"12-6.4", 150, ""},
                        Case{"12-14", 158, ""},
                        Case{"12.04", 144, ""},
                        Case{"12.05", 145, ""},
                        Case{"", 0, ""},
                        Case{"abc", 0, ""},
                        Case{"-", 0, ""},
                        Case{"0", 0, ""},
                        Case{"12'6", 0, kForms},
                        Case{"12'6\"", 0, kForms},
                        Case{"12 6", 0, kForms},
                        Case{"12-6-3", 0, kForms},
                        Case{"12-6in", 0, kForms},
                        Case{"12ft", 0, kForms},
                        Case{"12,5", 0, kForms},
                        Case{"1.2.3", 0, kForms},
                        Case{"12-12345678901", 0, kForms},
                        Case{"x-6", 0, kForms},
                        Case{"2730-7", 32767, ""},
                        Case{"2730-8", 0, "0 This Entry is TOO LARGE for calculations!|"},
                        Case{"2731", 0, "0 This Entry is TOO LARGE for calculations!|"},
                        Case{"-6", 0, "0 This Entry is TOO SMALL for calculations!|"}}) {
    const RoofLength length = ReadLength(c.text);
    EXPECT_EQ(length.inches, c.inches) << c.text;
    EXPECT_EQ(length.message, c.message) << c.text;
  }
}

TEST(RoofLength, ComesBackFromItsBox) {
  for (const auto& [inches, shown] :
       std::vector<std::pair<int, const char*>>{{0, ""}, {-5, ""}, {1, ".08"}, {6, ".5"}, {144, "12."}, {150, "12.5"}, {145, "12.08"}})
    EXPECT_EQ(ShownLength(inches), shown) << inches;
  for (int inches = 0; inches <= 32767; ++inches) ASSERT_EQ(ReadLength(ShownLength(inches)).inches, inches);
  EXPECT_EQ(LengthReading(150), "12 ft 6 in");
  EXPECT_EQ(LengthReading(11), "0 ft 11 in");
}

TEST(RoofArea, IsTheOneWorkedByHand) {
  struct Case {
    RoofPlane section;
    double squareFeet;  // run x Sqr(pitch^2 + 144) / 12 x Sqr(1.0075) x length
  };
  for (const Case& c : {Case{{.SectionType = 1, .PitchIndex = 0, .SectionLength = 120, .RafterRun = 144}, 124.157},
                        Case{{.SectionType = 2, .PitchIndex = 2, .SectionLength = 120, .RafterRun = 144}, 130.487},
                        Case{{.SectionType = 3, .PitchIndex = 6, .SectionLength = 246, .RafterRun = 96}, 205.768},
                        Case{{.SectionType = 4, .PitchIndex = 9, .SectionLength = 12, .RafterRun = 12}, 1.41951},
                        Case{{.SectionType = 5, .PitchIndex = 1, .SectionLength = 480, .RafterRun = 150}, 529.019},
                        Case{{.SectionType = 5, .PitchIndex = 1, .SectionLength = 0, .RafterRun = 150}, 0}})
    EXPECT_NEAR(SectionArea(c.section), c.squareFeet, 0.002) << int{c.section.SectionType};
}

TEST(RoofArea, TheTotalIsCutOnlyOnce) {
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
  int left = 0;
  for (int type = 1; type <= kRoofTypes; ++type)
    for (std::uint8_t pitch = 0; pitch < 10; ++pitch)
      for (int run = 12; run <= 900; run += 36)
        for (const int loadWall : {0, run / 3}) {
          EstimateRecord plan;
          plan.CeilingJoistLft2X6[0] = 8;
          const auto stored = [](int value) { return static_cast<std::int16_t>(value); };
          plan.RoofPlanes[0] = {static_cast<std::uint8_t>(type), 0, pitch, 0, stored(2400), stored(run), stored(loadWall)};
          Page page;
          EstimatePrint print;
          print.plan = plan;
          print.sectionMask = kRoofSystem;
          (void)PrintEstimate(print, data, page);
          // Two pieces of different length stand in two rows.
          const bool isTold = noted(plan.RoofPlanes[0], "A rafter of");
          if (loadWall == 0 || type == kShedSection) {
            ASSERT_EQ(isTold, !Has(page.Text(), "(Rafter)")) << type << ' ' << +pitch << ' ' << run;
          }
          ASSERT_EQ(noted(plan.RoofPlanes[0], "A hip rafter") || noted(plan.RoofPlanes[0], "A valley rafter"),
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
  std::vector<std::string> grades(kRafterSpecies.begin(), kRafterSpecies.end());
  EXPECT_EQ(SpeciesNote(1, grades), "");
  std::swap(grades[1], grades[2]);
  EXPECT_EQ(SpeciesNote(1, grades), "The list of framing grades was changed: rafters of #2 SPF are printed as #2 HEM-FIR.");
}

TEST(RoofForm, BeginsWithNothingAndAGable) {
  RoofForm form = OpenRoofForm(BlankPlan());
  EXPECT_EQ(SectionLabel(form), "0 of 0");
  EXPECT_EQ(AreaLabel(form), "0 Sf of 0 Sf");
  EXPECT_FALSE(CanGoToNextSection(form) || CanGoToPreviousSection(form));
  EXPECT_TRUE(AddSection(form).IsDone()) << "there is nothing to check yet";
  EXPECT_EQ(SectionLabel(form), "1 of 1");
  EXPECT_EQ(form.optRoof, 1);
  EXPECT_EQ(form.cboRFType + form.cboPitch + form.cboRafter, 0);
  Type(form, "12", "10");
  EXPECT_EQ(AreaLabel(form), "124 SF of 124 SF");
}

TEST(RoofForm, EveryStepChecksTheSectionFirst) {
  using Step = RoofStep (*)(RoofForm&);
  struct Case {
    const char *run, *length, *loadWall, *message;
    RoofBox focus;
  };
  for (const Step step :
       {Step{NextSection}, Step{PreviousSection}, Step{AddSection}, Step{[](RoofForm& form) { return FinishSections(form).step; }}})
    for (const Case& c : {Case{"", "10", "", kNoRun, RoofBox::txtRafterRun}, Case{"0", "", "", kNoRun, RoofBox::txtRafterRun},
                          Case{"abc", "10", "", kNoRun, RoofBox::txtRafterRun}, Case{"12", "", "", kNoLength, RoofBox::txtSection},
                          Case{"12'6", "10", "", kForms, RoofBox::txtRafterRun}, Case{"12", "10 6", "", kForms, RoofBox::txtSection},
                          Case{"12", "10", "8'", kForms, RoofBox::txtloadwall}, Case{"12", "10", "none", kForms, RoofBox::txtloadwall}}) {
      RoofForm form = RoofOf(3);
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
  EXPECT_FALSE(CanGoToPreviousSection(form));
  form.optRoof = kShedSection, form.cboRFType = 3, form.cboPitch = 9, form.cboRafter = 2;
  Type(form, "14-3", "20.5", "8");
  ASSERT_TRUE(NextSection(form).IsDone());
  EXPECT_EQ(form.txtSection, "2.");
  ASSERT_TRUE(GoToSection(form, 3).IsDone());
  EXPECT_FALSE(CanGoToNextSection(form));
  ASSERT_TRUE(GoToSection(form, 1).IsDone());
  EXPECT_EQ(form.txtRafterRun + " " + form.txtSection + " " + form.txtloadwall, "14.25 20.5 8.");
  const RoofPlane expected{
      .SectionType = 5, .FramingType = 3, .PitchIndex = 9, .RafterIndex = 2, .SectionLength = 246, .RafterRun = 171, .LoadWallRun = 96};
  EXPECT_EQ(form.RoofPlanes[0], expected);
  EXPECT_TRUE(GoToSection(form, 4).IsDone());
  EXPECT_EQ(form.CurrentSection, 1) << "there is no section 4";
}

TEST(RoofForm, ANewSectionIsLikeTheOneBefore) {
  RoofForm form = RoofOf(4);
  GoToSection(form, 3);
  ASSERT_TRUE(AddSection(form).IsDone());
  EXPECT_EQ(SectionLabel(form), "5 of 5");
  EXPECT_EQ(form.optRoof, 3);
  EXPECT_EQ(form.cboPitch, 2);
  EXPECT_EQ(form.txtSection + form.txtRafterRun + form.txtloadwall, "");
}

TEST(RoofForm, The65thSectionIsRefused) {
  RoofForm form = RoofOf(63);
  ASSERT_TRUE(AddSection(form).IsDone());
  Type(form, "12", "64");
  EXPECT_EQ(AddSection(form).message, kFull);
  EXPECT_EQ(SectionLabel(form), "64 of 64");
  RemoveSection(form);
  ASSERT_TRUE(AddSection(form).IsDone());
  Type(form, "12", "64");
  EXPECT_EQ(UndoRemove(form).message, kFull);
}

TEST(RoofForm, RemovalClosesTheGapAndCanBeTakenBack) {
  RoofForm form = RoofOf(4);
  GoToSection(form, 2);
  RemoveSection(form);
  EXPECT_THAT(Lengths(form), testing::ElementsAre(1, 3, 4));
  EXPECT_EQ(SectionLabel(form), "2 of 3");
  EXPECT_EQ(form.txtSection, "3.");
  GoToSection(form, 3);
  RemoveSection(form);
  EXPECT_EQ(SectionLabel(form), "2 of 2") << "behind the last one comes the one before";
  EXPECT_EQ(form.RoofPlanes[2], RoofPlane{}) << "the last place is cleared";
  EXPECT_TRUE(UndoRemove(form).IsDone());
  EXPECT_THAT(Lengths(form), testing::ElementsAre(1, 3, 4));
  EXPECT_EQ(SectionLabel(form), "3 of 3");
  EXPECT_TRUE(UndoRemove(form).IsDone());
  EXPECT_EQ(form.RoofPlanes, RoofOf(4).RoofPlanes);
  EXPECT_EQ(SectionLabel(form), "2 of 4");
  EXPECT_TRUE(UndoRemove(form).IsDone());
  EXPECT_EQ(form.SectionCount, 4) << "there is no more to take back";

  while (form.SectionCount > 0) RemoveSection(form);
  RemoveSection(form);
  EXPECT_EQ(SectionLabel(form), "0 of 0");
  EXPECT_EQ(AreaLabel(form), "0 Sf of 0 Sf");
  for (int i = 0; i < 4; ++i) EXPECT_TRUE(UndoRemove(form).IsDone());
  EXPECT_EQ(form.RoofPlanes, RoofOf(4).RoofPlanes);
}

TEST(RoofForm, ARoofWithGapsIsClosedUp) {
  EstimateRecord plan;
  plan.RoofPlanes[5] = {.SectionType = 3, .SectionLength = 120, .RafterRun = 144};
  plan.RoofPlanes[63] = {.SectionType = 5, .SectionLength = 240, .RafterRun = 144};
  plan.RoofPlanes[7] = {.SectionType = 6, .SectionLength = 999, .RafterRun = 144};
  const RoofForm form = OpenRoofForm(plan);
  EXPECT_THAT(Lengths(form), testing::ElementsAre(10, 20));
  EXPECT_EQ(SectionLabel(form), "1 of 2");
}

TEST(RoofForm, SectionsComeBackByteForByte) {
  for (const int count : {0, 1, 5, 64}) {
    EstimateRecord plan = BlankPlan();
    plan.RoofPlanes = RoofOf(count).RoofPlanes;
    plan.CeilingJoistLft2X6 = {0, 10, 0, 0, 32767}, plan.CeilingJoistLft2X8 = {1, 0, 0, 4, 0};
    const EstimateRecord before = plan;
    RoofForm form = OpenRoofForm(plan);
    for (int section = 2; section <= count; ++section) ASSERT_TRUE(NextSection(form).IsDone());
    ASSERT_TRUE(FinishSections(form).step.IsDone());
    ASSERT_TRUE(FinishJoists(form).IsDone());
    PlanForm dataEntry;
    CopyRoofToPlan(form, plan, dataEntry);
    EXPECT_EQ(plan, before) << count;
    EXPECT_EQ(dataEntry.mark, ChangeMark::None) << "nothing has changed";
  }
}

TEST(RoofForm, DoneCopiesOnlyAtTheEnd) {
  EstimateRecord plan = BlankPlan();
  plan.RoofPlanes = RoofOf(2).RoofPlanes;
  plan.CeilingJoistLft2X6[2] = 40;
  PlanForm dataEntry;

  RoofForm form = OpenRoofForm(plan);
  RemoveSection(form), RemoveSection(form);
  RoofDone done = FinishSections(form);
  EXPECT_FALSE(done.leaves) << "the joists would go on printing a stick roof";
  EXPECT_TRUE(form.showsJoists);
  CancelJoists(form);
  EXPECT_FALSE(form.showsJoists);
  form.txtTWOxSIX[2] = "";
  done = FinishSections(form);
  EXPECT_TRUE(done.leaves);
  EXPECT_EQ(plan.RoofPlanes[0].SectionType, 1) << "until it is copied the plan has its roof";
  CopyRoofToPlan(form, plan, dataEntry);
  EXPECT_EQ(plan.RoofPlanes, (std::array<RoofPlane, kRoofPlanes>{}));
  EXPECT_EQ(plan.CeilingJoistLft2X6[2], 0);
  EXPECT_EQ(dataEntry.mark, ChangeMark::Modified);
}

TEST(RoofForm, ARoofWithoutCeilingJoistsIsToldOnce) {
  RoofForm form = RoofOf(1);
  EXPECT_EQ(FinishJoists(form).message, "0 Without ceiling joists the rafters of this roof are not listed!|");
  EXPECT_TRUE(FinishJoists(form).IsDone());
  RoofForm none = RoofOf(0);
  EXPECT_TRUE(FinishJoists(none).IsDone());
  RoofForm joisted = RoofOf(1);
  joisted.txtTWOxEIGHT[4] = "12.2";
  EXPECT_TRUE(FinishJoists(joisted).IsDone());
  EXPECT_EQ(joisted.txtTWOxEIGHT[4], "13");
  joisted.txtTWOxSIX[0] = "32768";
  EXPECT_EQ(FinishJoists(joisted).message, kEntryTooLarge);
}

TEST(RoofForm, TheAreaGoesToTheDataEntry) {
  PlanForm dataEntry = NewForm(kOneStoryCrawl);
  RoofForm form = OpenRoofForm(BlankPlan());
  AddSection(form);
  Type(form, "12", "10");
  EXPECT_EQ(TransferRoofArea(form, dataEntry), "");
  EXPECT_EQ(dataEntry.TxtDisp[47].text, "124");
  EXPECT_EQ(dataEntry.mark, ChangeMark::Modified);
  Type(form, "2730", "2730");
  EXPECT_EQ(TransferRoofArea(form, dataEntry), kEntryTooLarge);
  EXPECT_EQ(dataEntry.TxtDisp[47].text, "124");
}

TEST(RoofForm, ItsSpeciesAreTheFirstFramingGrades) {
  const PlanForm form = NewForm(kOneStoryCrawl);
  for (std::size_t row = 0; row < kRafterSpecies.size(); ++row) EXPECT_EQ(form.combo1[0].rows.at(row), kRafterSpecies[row]);
  EXPECT_EQ(CaptionOfRoofType(1), "Gable Section");
  EXPECT_EQ(CaptionOfRoofType(4), "Hip w/ Valley");
  EXPECT_EQ(CaptionOfRoofType(5), "Shed Section");
}

}  // namespace
}  // namespace norvale
