#include "entry/frm_roof.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QComboBox>
#include <QRadioButton>
#include <QTreeWidget>

#include "data/estimate_file.h"
#include "desktop/desktop_fixture.h"
#include "desktop/form_driver.h"
#include "entry/entry_form.h"
#include "entry/screens.h"
#include "prices/delivered.h"
#include "prices/exchange.h"
#include "takeoff/print_estimate.h"

namespace norvale {
namespace {

constexpr const char* kForms = "0 Type a length as 12-6 (feet and inches), 12.5 (feet) or 12 (feet)!|Norvale Help Notice";
constexpr const char* kNoRun = "0 Missing Lft of Rafter Run|Norvale Help Notice";
constexpr const char* kFull = "0 Max of 64 sections already entered!|Norvale Help Notice";
constexpr const char* kRemove = "2 Delete this roof section|Norvale Help Notice";
constexpr const char* kNoJoists = "0 Without ceiling joists the rafters of this roof are not listed!|Norvale Help Notice";
constexpr const char* kTransfer = "2 Transfer Square Footage of Roof Area to Data Entry Screen?|UPDATE ROOF AREA?";
constexpr const char* kDiscard = "2 Leave the roof as it was before? What was changed here is not kept.|Norvale Help Notice";
constexpr int kRoofArea = 47;

ExchangeTables Imported(const char* file) { return ImportTables(ReadWholeFile(std::string(NORVALE_SOURCE_DIR "/samples/") + file)); }

EstimateRecord StickRoof() { return Imported("plan-crawl-stick-roof.json").plans.front(); }

// A plan with that many gable sections of 1 ft, 2 ft, 3 ft, ...
EstimateRecord PlanWith(int sections) {
  EstimateRecord plan = BlankPlan();
  for (int i = 0; i < sections; ++i)
    plan.RoofPlanes[static_cast<std::size_t>(i)] = {
        .SectionType = 1, .SectionLength = static_cast<std::int16_t>(12 * (i + 1)), .RafterRun = 144};
  plan.CeilingJoistLft2X8[1] = 30;
  return plan;
}

std::vector<int> LengthsOf(const EstimateRecord& plan) {
  std::vector<int> feet;
  for (const RoofPlane& section : plan.RoofPlanes)
    if (section.SectionType != 0) feet.push_back(section.SectionLength / 12);
  return feet;
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
  static void GoTo(QWidget& form, const char* name) { Find(form, name)->setFocus(); }

  // With the keys: the option that is ticked has the focus of all five.
  static void ChooseType(QWidget& form, int type) {
    for (int at = 1; at <= kRoofTypes; ++at) {
      auto* const option = Find<QRadioButton>(form, ("optRoof_" + std::to_string(at)).c_str());
      if (!option->isChecked()) continue;
      option->setFocus();
      for (; at < type; ++at) Key(Qt::Key_Down);
      for (; at > type; --at) Key(Qt::Key_Up);
      return;
    }
  }
  static void ChooseRow(QWidget& form, const char* list, int row) {
    GoTo(form, list);
    Key(Qt::Key_Home);
    for (int i = 0; i < row; ++i) Key(Qt::Key_Down);
  }
  static std::string InFeetAndInches(int inches) {
    return inches == 0 ? "" : std::to_string(inches / 12) + "-" + std::to_string(inches % 12);
  }

  PlanForm dataEntry = NewForm(kOneStoryCrawl);
};

TEST_F(frmROOFTest, ARoofTypedByHandIsTheSampleAndPrintsLikeIt) {
  const EstimateRecord sample = StickRoof();
  EstimateRecord plan = sample;
  plan.RoofPlanes = {};
  plan.CeilingJoistLft2X6 = plan.CeilingJoistLft2X8 = {};
  plan.CustomerNumber = 7;
  StoreAll(folder, std::vector{Customer(7, "Oak Street Builders")}, std::vector{plan});
  ASSERT_TRUE(FindEstimateOfPlan(folder, session, 7, plan.PlanNumber.Trimmed()));
  EstimateRecord& current = session.CurrentEstimate;
  dataEntry = OpenedForm(current);

  Run(current, [&](frmROOF& form) {
    EXPECT_EQ(Sections(form), "0 of 0, 0 Sf of 0 Sf");
    EXPECT_EQ(Focus(), "cmdADD");
    for (const RoofPlane& section : sample.RoofPlanes) {
      if (section.SectionType == 0) break;
      // The whole section with the keys alone, from ADD to ADD.
      Key(Qt::Key_Return);
      EXPECT_EQ(Focus(), "txtSection");
      Key(Qt::Key_Backtab);
      EXPECT_THAT(Focus(), testing::StartsWith("optRoof_"));
      ChooseType(form, section.SectionType);
      GoTo(form, "txtSection");
      for (const int length : {section.SectionLength, section.RafterRun, section.LoadWallRun}) {
        Keys(InFeetAndInches(length).c_str());
        Key(Qt::Key_Return);
      }
      for (const int row : {section.RafterIndex, section.PitchIndex, section.FramingType}) {
        Key(Qt::Key_Home);
        for (int i = 0; i < row; ++i) Key(Qt::Key_Down);
        Key(Qt::Key_Return);
      }
      EXPECT_EQ(Focus(), "cmdADD");
    }
    EXPECT_EQ(Sections(form), "5 of 5, 198 SF of 2989 SF");
    Key(Qt::Key_D, Qt::AltModifier);
    EXPECT_EQ(Focus(), "txtTWOxSIX_0");
    for (const auto* row : {&sample.CeilingJoistLft2X6, &sample.CeilingJoistLft2X8})
      for (const int feet : *row) {
        if (feet != 0) Keys(std::to_string(feet).c_str());
        Key(Qt::Key_Return);
      }
    EXPECT_EQ(Focus(), "cmdJOIST") << "Enter went through all ten boxes";
    asked.Expect(kTransfer, Answer::No);
    Key(Qt::Key_Return);
  });
  EXPECT_EQ(current.RoofPlanes, sample.RoofPlanes);
  EXPECT_EQ(current.CeilingJoistLft2X6, sample.CeilingJoistLft2X6);
  EXPECT_EQ(current.CeilingJoistLft2X8, sample.CeilingJoistLft2X8);
  EXPECT_EQ(dataEntry.TxtDisp[kRoofArea].text, std::to_string(sample.RoofSqFt)) << "with No the area stays";

  // Saved, and read from the disk again.
  StorePlanFromForm(dataEntry, current);
  ASSERT_EQ(UpdateEstimate(folder, session), EstimateChange::Done);
  const std::optional<EstimateRecord> reopened = FindEstimate(scratch.Path(), 7, plan.PlanNumber.Trimmed());
  ASSERT_TRUE(reopened);
  EstimateRecord expected = sample;
  expected.CustomerNumber = 7;
  EXPECT_EQ(*reopened, expected);

  const TakeoffData data{.waste = *Imported("waste-factors.json").wasteFactors,
                         .lists = DeliveredMaterialRows(),
                         .prices = PriceList(*Imported("prices.json").prices)};
  const auto roofSystem = [&data](EstimateRecord printed) {
    printed.CustomerNumber = 4;
    Page page;
    EstimatePrint print;
    print.plan = printed;
    print.sectionMask = kRoofSystem | kWithPrices;
    (void)PrintEstimate(print, data, page);
    return page.Text();
  };
  EXPECT_THAT(roofSystem(sample), testing::HasSubstr("(Hip/Valley Rafter)"));
  EXPECT_EQ(roofSystem(*reopened), roofSystem(sample));

  // Opened once more and left with DONE, not a byte changes.
  const std::vector<std::string> before = BytesOnDisk();
  Run(current, [&](frmROOF& form) {
    EXPECT_EQ(Sections(form), "1 of 5, 1013 SF of 2989 SF");
    for (int i = 0; i < 4; ++i) Key(Qt::Key_PageDown);
    Key(Qt::Key_D, Qt::AltModifier);
    asked.Expect(kTransfer, Answer::No);
    Click(form, "cmdJOIST");
  });
  StorePlanFromForm(dataEntry, current);
  ASSERT_EQ(UpdateEstimate(folder, session), EstimateChange::Done);
  EXPECT_EQ(BytesOnDisk(), before);
}

TEST_F(frmROOFTest, ReadsALengthBackAsItIsTyped) {
  EstimateRecord plan = PlanWith(1);
  Run(plan, [this](frmROOF& form) {
    Type(form, "txtSection", "10");
    struct Case {
      const char* text;
      const char* reading;
      const char* area;
    };
    for (const Case& c : {Case{"12", "12 ft 0 in", "124 SF of 124 SF"}, Case{"12.", "12 ft 0 in", "124 SF of 124 SF"},
                          Case{"12.5", "12 ft 6 in", "129 SF of 129 SF"}, Case{"12-6", "12 ft 6 in", "129 SF of 129 SF"},
                          Case{"12'6", "not a length", "124 SF of 124 SF"}, Case{"12 6", "not a length", "124 SF of 124 SF"},
                          Case{"", "", "0 SF of 0 SF"}}) {
      Type(form, "txtRafterRun", c.text);
      EXPECT_EQ(Label(form, "txtRafterRun_reading"), c.reading) << c.text;
      EXPECT_EQ(Label(form, "lblsqft"), c.area) << c.text;
    }
    // On the way to another box it is refused, and stays to be mended.
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Backtab}) {
      Type(form, "txtRafterRun", "12-6-3");
      asked.Expect(kForms);
      Key(key);
      asked.ExpectAllAsked();
      EXPECT_EQ(Focus(), "txtRafterRun");
      EXPECT_EQ(Text(form, "txtRafterRun"), "12-6-3");
    }
    // A button asks once, and not the box and the button both.
    asked.Expect(kForms);
    Click(form, "cmdADD");
    asked.ExpectAllAsked();
    EXPECT_EQ(Focus(), "txtRafterRun");
    asked.Expect(kDiscard, Answer::Yes);
    Key(Qt::Key_Escape);
  });
}

TEST_F(frmROOFTest, RefusesThe65thSection) {
  EstimateRecord plan = PlanWith(63);
  Run(plan, [this](frmROOF& form) {
    Click(form, "cmdADD");
    Type(form, "txtSection", "64");
    asked.Expect(kNoRun);
    Click(form, "cmdADD");
    EXPECT_EQ(Focus(), "txtRafterRun");
    Keys("12");
    asked.Expect(kFull);
    Click(form, "cmdADD");
    asked.ExpectAllAsked();
    EXPECT_EQ(Sections(form), "64 of 64, 794 SF of 25824 SF");
    EXPECT_EQ(Find<QTreeWidget>(form, "lstSections")->topLevelItemCount(), 64);
    asked.Expect(kTransfer, Answer::Yes);
    Click(form, "cmdDONE");
    Click(form, "cmdJOIST");
  });
  EXPECT_EQ(LengthsOf(plan).size(), 64U);
  EXPECT_EQ(dataEntry.TxtDisp[kRoofArea].text, "25824");
  EXPECT_EQ(dataEntry.mark, ChangeMark::Modified);
}

TEST_F(frmROOFTest, RemovesInTheMiddleAndTakesItBack) {
  EstimateRecord plan = PlanWith(4);
  Run(plan, [this](frmROOF& form) {
    Key(Qt::Key_PageDown);
    asked.Expect(kRemove, Answer::No);
    Click(form, "cmdREMOVE");
    EXPECT_EQ(Label(form, "lblsection"), "2 of 4");
    EXPECT_FALSE(Find(form, "cmdUNDO")->isEnabled());
    for (const char* const left : {"2 of 3", "2 of 2", "1 of 1"}) {
      asked.Expect(kRemove, Answer::Yes);
      Click(form, "cmdREMOVE");
      EXPECT_EQ(Label(form, "lblsection"), left);
    }
    EXPECT_EQ(Text(form, "txtSection"), "1.");
    // In a box the key takes back what was typed there.
    Type(form, "txtSection", "9");
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Label(form, "lblsection"), "1 of 1");
    Type(form, "txtSection", "1");
    GoTo(form, "lstSections");
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Label(form, "lblsection"), "2 of 2");
    EXPECT_EQ(Text(form, "txtSection"), "4.") << "the last one that was removed";
    Click(form, "cmdUNDO");
    asked.Expect(kTransfer, Answer::No);
    Click(form, "cmdDONE");
    Click(form, "cmdJOIST");
  });
  EXPECT_THAT(LengthsOf(plan), testing::ElementsAre(1, 3, 4));
}

TEST_F(frmROOFTest, GoesToTheSectionChosenInTheList) {
  EstimateRecord plan = PlanWith(5);
  Run(plan, [this](frmROOF& form) {
    auto* const list = Find<QTreeWidget>(form, "lstSections");
    const auto choose = [&](int row) {
      list->setFocus();
      QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->topLevelItem(row)).center());
      QApplication::processEvents();
    };
    choose(3);
    EXPECT_EQ(Label(form, "lblsection"), "4 of 5");
    EXPECT_EQ(Text(form, "txtSection"), "4.");
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
    asked.Expect(kDiscard, Answer::Yes);
    form.close();
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
    EXPECT_TRUE(Find(form, "pctVIEW")->isVisible()) << "back at the sections";
    EXPECT_EQ(Text(form, "txtSection"), "40");
    asked.Expect(kDiscard, Answer::No);
    Key(Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible());
    Click(form, "cmdDONE");
    EXPECT_EQ(Text(form, "txtTWOxSIX_2"), "13");
    Click(form, "cmdCANCEL");
    EXPECT_EQ(plan, before);
    asked.Expect(kDiscard, Answer::Yes);
    form.close();
  });
  EXPECT_EQ(plan, before);
  EXPECT_EQ(dataEntry.mark, ChangeMark::None);
  Run(plan, [](frmROOF&) { Key(Qt::Key_Escape); });  // nothing was changed, nothing is asked
}

TEST_F(frmROOFTest, TellsOnceOfARoofWithoutCeilingJoists) {
  EstimateRecord plan = PlanWith(1);
  Run(plan, [this](frmROOF& form) {
    Click(form, "cmdDONE");
    Type(form, "txtTWOxEIGHT_1", "99999");
    asked.Expect("0 This Entry is TOO LARGE for calculations!|Norvale Help Notice");
    Click(form, "cmdJOIST");
    EXPECT_EQ(Focus(), "txtTWOxEIGHT_1");
    Type(form, "txtTWOxEIGHT_1", "");
    asked.Expect(kNoJoists);
    Click(form, "cmdJOIST");
    asked.ExpectAllAsked();
    EXPECT_TRUE(form.isVisible());
    asked.Expect(kTransfer, Answer::No);
    Click(form, "cmdJOIST");
  });
  EXPECT_EQ(plan.CeilingJoistLft2X8[1], 0);
}

TEST_F(frmROOFTest, AnEmptiedRoofShowsTheJoistsThatAreLeft) {
  EstimateRecord plan = PlanWith(1);
  Run(plan, [this](frmROOF& form) {
    asked.Expect(kRemove, Answer::Yes);
    Click(form, "cmdREMOVE");
    EXPECT_EQ(Sections(form), "0 of 0, 0 Sf of 0 Sf");
    Click(form, "cmdDONE");
    EXPECT_TRUE(Find(form, "pctjoist")->isVisible());
    Type(form, "txtTWOxEIGHT_1", "");
    Click(form, "cmdJOIST");
  });
  EXPECT_TRUE(LengthsOf(plan).empty());
  EXPECT_EQ(plan.CeilingJoistLft2X8[1], 0);
  Run(plan, [](frmROOF& form) { Click(form, "cmdDONE"); });  // leaves at once
}

TEST_F(frmROOFTest, TheDrawingFollowsEveryMeasure) {
  EstimateRecord plan = BlankPlan();
  plan.RoofPlanes[0] = {.SectionType = 1, .PitchIndex = 5, .SectionLength = 480, .RafterRun = 144};
  Run(plan, [this](frmROOF& form) {
    QList<QImage> seen;
    const auto isNew = [&] {
      const QImage drawn = Find(form, "pctVIEW")->grab().toImage();
      const bool known = seen.contains(drawn);
      seen.append(drawn);
      return !known;
    };
    EXPECT_TRUE(isNew());
    for (int type = 2; type <= kRoofTypes; ++type) {
      ChooseType(form, type);
      EXPECT_TRUE(isNew()) << type;
    }
    Type(form, "txtSection", "30");
    EXPECT_TRUE(isNew());
    Type(form, "txtRafterRun", "15");
    EXPECT_TRUE(isNew());
    Type(form, "txtloadwall", "6");
    EXPECT_TRUE(isNew());
    ChooseRow(form, "cboPitch", 9);
    EXPECT_TRUE(isNew());
    ChooseRow(form, "cboRFType", 2);
    EXPECT_FALSE(isNew()) << "the species has no shape";
    asked.Expect(kDiscard, Answer::Yes);
    form.close();
  });
}

}  // namespace
}  // namespace norvale
