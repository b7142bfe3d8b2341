#include "entry/frm_roof.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QRadioButton>
#include <QTreeWidget>
#include <functional>

#include "data/estimate_file.h"
#include "desktop/desktop_fixture.h"
#include "desktop/form_driver.h"
#include "entry/entry_form.h"
#include "prices/exchange.h"
#include "takeoff/print_estimate.h"

namespace norvale {
namespace {

constexpr const char* kForms = "0 Type a length as 12-6 (feet and inches), 12.5 (feet) or 12 (feet)!|Norvale Help Notice";
constexpr const char* kNoRun = "0 Missing Lft of Rafter Run|Norvale Help Notice";
constexpr const char* kRemove = "2 Delete this roof section|Norvale Help Notice";
constexpr const char* kTransfer = "2 Transfer Square Footage of Roof Area to Data Entry Screen?|UPDATE ROOF AREA?";
constexpr const char* kDiscard = "2 Leave the roof as it was before? What was changed here is not kept.|Norvale Help Notice";
constexpr int kRoofArea = 47;

ExchangeTables Imported(const char* file) { return ImportTables(ReadWholeFile(std::string(NORVALE_SOURCE_DIR "/samples/") + file)); }

// A plan with that many gable sections of 1 ft, 2 ft, 3 ft, ... on a run of 12 ft.
EstimateRecord PlanWith(int sections) {
  EstimateRecord plan = BlankPlan();
  for (int i = 0; i < sections; ++i)
    plan.RoofPlanes[static_cast<std::size_t>(i)] = {1, 0, 0, 0, static_cast<std::int16_t>(12 * (i + 1)), 144, 0};
  plan.CeilingJoistLft2X8[1] = 30;
  return plan;
}

std::vector<int> LengthsOf(const EstimateRecord& plan) {
  std::vector<int> feet;
  for (const RoofPlane& section : plan.RoofPlanes)
    if (section.SectionType != 0) feet.push_back(section.SectionLength / 12);
  return feet;
}

std::string RoofSystemOf(const EstimateRecord& plan) {
  const TakeoffData data{.waste = Imported("waste-factors.json").WasteOver(DesignTimeWasteFactors()),
                         .lists = DeliveredMaterialRows(),
                         .prices = PriceList(*Imported("prices.json").prices)};
  EstimatePrint print;
  print.plan = plan;
  print.sectionMask = kRoofSystem | kWithPrices;
  Page page;
  (void)PrintEstimate(print, data, page);
  return page.Text();
}

class frmROOFTest : public DesktopTest {
 protected:
  template <typename Drive>
  void Run(EstimateRecord& plan, Drive drive) {
    frmROOF form(program, plan, dataEntry);
    DriveModal<frmROOF>([&] { form.exec(); }, drive);
  }

  static std::string Label(QWidget& form, const char* name) { return Find<QLabel>(form, name)->text().toStdString(); }
  static std::string Sections(QWidget& form) { return Label(form, "lblsection") + ", " + Label(form, "lblsqft"); }
  static void ChooseRow(int row) {
    Key(Qt::Key_Home);
    for (int i = 0; i < row; ++i) Key(Qt::Key_Down);
  }
  void DoneWithJoists(frmROOF& form, Answer transfer) {
    Click(form, "cmdDONE");
    asked.Expect(kTransfer, transfer);
    Click(form, "cmdJOIST");
  }
  void Discard(frmROOF& form) {
    asked.Expect(kDiscard, Answer::Yes);
    form.close();
  }

  PlanForm dataEntry = NewForm(kOneStoryCrawl);
};

TEST_F(frmROOFTest, ARoofTypedByHandIsTheSampleAndPrintsLikeIt) {
  const EstimateRecord sample = Imported("plan-crawl-stick-roof.json").plans.front();
  EstimateRecord empty = sample;
  empty.RoofPlanes = {};
  empty.CeilingJoistLft2X6 = empty.CeilingJoistLft2X8 = {};
  StoreAll(folder, {}, std::vector{empty});
  ASSERT_TRUE(FindEstimateOfPlan(folder, session, sample.CustomerNumber, sample.PlanNumber.Trimmed()));
  EstimateRecord& plan = session.CurrentEstimate;
  dataEntry = OpenedForm(plan);

  // Every section with the keys alone, from ADD to ADD.
  Run(plan, [&](frmROOF& form) {
    EXPECT_EQ(Sections(form), "0 of 0, 0 Sf of 0 Sf");
    for (std::size_t i = 0; i < 5; ++i) {
      const RoofPlane& section = sample.RoofPlanes[i];
      EXPECT_EQ(Focus(), "cmdADD");
      Key(Qt::Key_Return);
      EXPECT_EQ(Focus(), "txtSection");
      Key(Qt::Key_Backtab);
      if (i > 0) Key(Qt::Key_Down);  // the types of the sample follow each other
      EXPECT_EQ(Focus(), "optRoof_" + std::to_string(section.SectionType));
      Find(form, "txtSection")->setFocus();
      for (const int inches : {section.SectionLength, section.RafterRun, section.LoadWallRun}) {
        if (inches != 0) Keys((std::to_string(inches / 12) + "-" + std::to_string(inches % 12)).c_str());
        Key(Qt::Key_Return);
      }
      for (const int row : {section.RafterIndex, section.PitchIndex, section.FramingType}) {
        ChooseRow(row);
        Key(Qt::Key_Return);
      }
    }
    EXPECT_EQ(Sections(form), "5 of 5, 198 SF of 2989 SF");
    Key(Qt::Key_D, Qt::AltModifier);
    EXPECT_EQ(Focus(), "txtTWOxSIX_0");
    for (const auto* row : {&sample.CeilingJoistLft2X6, &sample.CeilingJoistLft2X8})
      for (const int feet : *row) {
        if (feet != 0) Keys(std::to_string(feet).c_str());
        Key(Qt::Key_Return);
      }
    EXPECT_EQ(Focus(), "cmdJOIST");
    asked.Expect(kTransfer, Answer::No);
    Key(Qt::Key_Return);
  });
  EXPECT_EQ(plan.RoofPlanes, sample.RoofPlanes);

  // Saved, and read from the disk again; left with DONE once more, not a byte changes.
  const auto save = [&] {
    StorePlanFromForm(dataEntry, plan);
    EXPECT_EQ(UpdateEstimate(folder, session), EstimateChange::Done);
  };
  save();
  EXPECT_EQ(ReadAllEstimates(scratch.Path()), std::vector{sample});
  EXPECT_EQ(RoofSystemOf(plan), RoofSystemOf(sample));
  EXPECT_THAT(RoofSystemOf(plan), testing::HasSubstr("(Hip/Valley Rafter)"));
  const std::vector<std::string> before = BytesOnDisk();
  Run(plan, [&](frmROOF& form) {
    EXPECT_EQ(Sections(form), "1 of 5, 1013 SF of 2989 SF");
    for (int i = 0; i < 4; ++i) Key(Qt::Key_PageDown);
    DoneWithJoists(form, Answer::No);
  });
  save();
  EXPECT_EQ(BytesOnDisk(), before);
}

TEST_F(frmROOFTest, ReadsALengthBackAndRefusesWhatItWouldCutShort) {
  EstimateRecord plan = PlanWith(1);
  Run(plan, [this](frmROOF& form) {
    for (const auto& [text, reading] : {std::pair{"12", "12 ft 0 in"},
                                        {"12.", "12 ft 0 in"},
                                        {"12.5", "12 ft 6 in"},
                                        {"12-6", "12 ft 6 in"},
                                        {"12'6", "not a length"},
                                        {"", ""}}) {
      Type(form, "txtRafterRun", text);
      EXPECT_EQ(Label(form, "txtRafterRun_reading"), reading) << text;
    }
    // Refused on the way to another box, and once by a button; what was typed stays to be mended.
    const std::function<void()> ways[] = {[] { Key(Qt::Key_Return); }, [] { Key(Qt::Key_Backtab); }, [&form] { Click(form, "cmdADD"); }};
    for (const auto& leave : ways) {
      Type(form, "txtRafterRun", "12 6");
      asked.Expect(kForms);
      leave();
      asked.ExpectAllAsked();
      EXPECT_EQ(Focus() + ": " + Text(form, "txtRafterRun"), "txtRafterRun: 12 6");
    }
    form.close();
  });
}

TEST_F(frmROOFTest, RefusesThe65thSectionAndHandsOverTheArea) {
  EstimateRecord plan = PlanWith(63);
  Run(plan, [this](frmROOF& form) {
    Click(form, "cmdADD");
    Type(form, "txtSection", "64");
    asked.Expect(kNoRun);
    Click(form, "cmdADD");
    EXPECT_EQ(Focus(), "txtRafterRun");
    Keys("12");
    asked.Expect("0 Max of 64 sections already entered!|Norvale Help Notice");
    Click(form, "cmdADD");
    asked.ExpectAllAsked();
    EXPECT_EQ(Sections(form), "64 of 64, 794 SF of 25824 SF");
    DoneWithJoists(form, Answer::Yes);
  });
  EXPECT_EQ(LengthsOf(plan).size(), 64U);
  EXPECT_EQ(dataEntry.TxtDisp[kRoofArea].text, "25824");
}

TEST_F(frmROOFTest, RemovesInTheMiddleAndTakesItBack) {
  EstimateRecord plan = PlanWith(4);
  Run(plan, [this](frmROOF& form) {
    Key(Qt::Key_PageDown);
    asked.Expect(kRemove, Answer::No);
    Click(form, "cmdREMOVE");
    for (const char* const left : {"2 of 4", "2 of 3", "2 of 2"}) {
      EXPECT_EQ(Label(form, "lblsection"), left);
      asked.Expect(kRemove, Answer::Yes);
      Click(form, "cmdREMOVE");
    }
    // In a box the key takes back what was typed there, elsewhere the section removed last.
    Type(form, "txtSection", "9");
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Label(form, "lblsection"), "1 of 1");
    Type(form, "txtSection", "1");
    Find(form, "lstSections")->setFocus();
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Label(form, "lblsection") + ": " + Text(form, "txtSection"), "2 of 2: 4.");
    Click(form, "cmdUNDO");
    DoneWithJoists(form, Answer::No);
  });
  EXPECT_THAT(LengthsOf(plan), testing::ElementsAre(1, 3, 4));
  EXPECT_EQ(dataEntry.TxtDisp[kRoofArea].text, "");
}

TEST_F(frmROOFTest, GoesToTheSectionChosenInTheList) {
  EstimateRecord plan = PlanWith(5);
  Run(plan, [this](frmROOF& form) {
    auto* const list = Find<QTreeWidget>(form, "lstSections");
    const auto choose = [&](int row) {
      QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->topLevelItem(row)).center());
      QApplication::processEvents();
    };
    choose(3);
    EXPECT_EQ(Label(form, "lblsection") + ": " + Text(form, "txtSection"), "4 of 5: 4.");
    Key(Qt::Key_Down);
    EXPECT_EQ(Label(form, "lblsection"), "5 of 5");
    EXPECT_FALSE(Find(form, "cmdNEXT")->isEnabled());
    Type(form, "txtRafterRun", "");
    asked.Expect(kNoRun);
    choose(0);
    asked.ExpectAllAsked();
    EXPECT_EQ(list->currentIndex().row(), 4) << "the mark stays with the section that is shown";
    Type(form, "txtRafterRun", "24");
    EXPECT_EQ(list->topLevelItem(4)->text(2), "124");
    Discard(form);
  });
}

TEST_F(frmROOFTest, OnlyDoneOfTheJoistsKeepsAnything) {
  const EstimateRecord before = PlanWith(2);
  EstimateRecord plan = before;
  Run(plan, [&](frmROOF& form) {
    Type(form, "txtSection", "40");
    Click(form, "cmdDONE");
    Type(form, "txtTWOxSIX_2", "1x2.3");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Text(form, "txtTWOxSIX_2"), "13");
    Key(Qt::Key_Escape);
    EXPECT_EQ(Text(form, "txtSection"), "40") << "back at the sections";
    asked.Expect(kDiscard, Answer::No);
    Key(Qt::Key_Escape);
    Click(form, "cmdDONE");
    EXPECT_EQ(Text(form, "txtTWOxSIX_2"), "13");
    Click(form, "cmdCANCEL");
    EXPECT_EQ(plan, before);
    Discard(form);
  });
  EXPECT_EQ(plan, before);
  EXPECT_EQ(dataEntry.mark, ChangeMark::None);
  Run(plan, [](frmROOF&) { Key(Qt::Key_Escape); });  // nothing was changed, nothing is asked
}

TEST_F(frmROOFTest, TellsOnceOfMissingJoistsAndShowsThoseThatAreLeft) {
  EstimateRecord plan = PlanWith(1);
  Run(plan, [this](frmROOF& form) {
    Click(form, "cmdDONE");
    Type(form, "txtTWOxEIGHT_1", "99999");
    asked.Expect("0 This Entry is TOO LARGE for calculations!|Norvale Help Notice");
    Click(form, "cmdJOIST");
    EXPECT_EQ(Focus(), "txtTWOxEIGHT_1");
    Type(form, "txtTWOxEIGHT_1", "");
    asked.Expect("0 Without ceiling joists the rafters of this roof are not listed!|Norvale Help Notice");
    Click(form, "cmdJOIST");
    asked.ExpectAllAsked();
    asked.Expect(kTransfer, Answer::No);
    Click(form, "cmdJOIST");
  });
  EXPECT_EQ(plan.CeilingJoistLft2X8[1], 0);
  plan.CeilingJoistLft2X8[1] = 30;
  Run(plan, [this](frmROOF& form) {
    asked.Expect(kRemove, Answer::Yes);
    Click(form, "cmdREMOVE");
    Click(form, "cmdDONE");
    Type(form, "txtTWOxEIGHT_1", "");
    Click(form, "cmdJOIST");
  });
  EXPECT_EQ(plan, BlankPlan());
  Run(plan, [](frmROOF& form) { Click(form, "cmdDONE"); });  // leaves at once
}

TEST_F(frmROOFTest, TheDrawingFollowsEveryMeasure) {
  EstimateRecord plan = PlanWith(1);
  Run(plan, [this](frmROOF& form) {
    QList<QImage> seen;
    const auto isNew = [&] {
      seen.append(Find(form, "pctVIEW")->grab().toImage());
      return seen.indexOf(seen.back()) == seen.size() - 1;
    };
    for (int type = 1; type <= kRoofTypes; ++type) {
      Find<QRadioButton>(form, ("optRoof_" + std::to_string(type)).c_str())->click();
      EXPECT_TRUE(isNew()) << type;
    }
    for (const char* const box : {"txtSection", "txtRafterRun", "txtloadwall"}) {
      Type(form, box, "30");
      EXPECT_TRUE(isNew()) << box;
    }
    for (const auto& [list, hasShape] : {std::pair{"cboPitch", true}, {"cboRFType", false}}) {
      Find(form, list)->setFocus();
      ChooseRow(3);
      EXPECT_EQ(isNew(), hasShape) << list;
    }
    Discard(form);
  });
}

}  // namespace
}  // namespace norvale
