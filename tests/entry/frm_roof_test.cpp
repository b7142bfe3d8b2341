#include "entry/frm_roof.h"

#include <gtest/gtest.h>

#include <QRadioButton>
#include <QTreeWidget>
#include <functional>

#include "desktop/desktop_fixture.h"
#include "desktop/form_driver.h"
#include "entry/entry_form.h"

namespace norvale {
namespace {

constexpr const char* kForms = "0 Type a length as 12-6 (feet and inches), 12.5 (feet) or 12 (feet)!|Norvale Help Notice";
constexpr const char* kNoRun = "0 Missing Lft of Rafter Run|Norvale Help Notice";
constexpr const char* kRemove = "2 Delete this roof section|Norvale Help Notice";
constexpr const char* kDiscard = "2 Leave the roof as it was before? What was changed here is not kept.|Norvale Help Notice";

// A plan with that many gable sections of 1 ft, 2 ft, 3 ft, ... on a run of 12 ft.
EstimateRecord PlanWith(int sections) {
  EstimateRecord plan = BlankPlan();
  for (int i = 0; i < sections; ++i)
    plan.RoofPlanes[static_cast<std::size_t>(i)] = {1, 0, 0, 0, static_cast<std::int16_t>(12 * (i + 1)), 144, 0};
  plan.CeilingJoistLft2X8[1] = 30;
  return plan;
}

class frmROOFTest : public DesktopTest {
 protected:
  template <typename Drive>
  void Run(EstimateRecord& plan, Drive drive) {
    frmROOF form(program, plan, dataEntry);
    DriveModal<frmROOF>([&] { form.exec(); }, drive);
    asked.ExpectAllAsked();
  }

  // The section at hand, the focus, and what stands in a box.
  void Take(frmROOF& form, const std::vector<Step>& steps) {
    TakeSteps(steps, asked, [&form] {
      const auto* const box = qobject_cast<QLineEdit*>(QApplication::focusWidget());
      return Text(form, "lblsection") + ", " + Focus() + (box != nullptr ? " " + box->text().toStdString() : "");
    });
  }
  void Discard(frmROOF& form) {
    asked.Expect(kDiscard, Answer::Yes);
    form.close();
  }

  PlanForm dataEntry = NewForm(kOneStoryCrawl);
};

TEST_F(frmROOFTest, ReadsALengthBackAndRefusesWhatItWouldCutShort) {
  EstimateRecord plan = PlanWith(1);
  Run(plan, [this](frmROOF& form) {
    for (const auto& [text, reading] : {std::pair{"12.5", "12 ft 6 in"}, {"12-6", "12 ft 6 in"}, {"12'6", "not a length"}, {"", ""}}) {
      Type(form, "txtRafterRun", text);
      EXPECT_EQ(Text(form, "txtRafterRun_reading"), reading) << text;
    }
    // Refused on the way to another box, and once by a button; what was typed stays to be mended.
    for (const char* const leave : {"12 6<Return>", "12 6<Backtab>", "12 6<Alt+A>"})
      Take(form, {{leave, "1 of 1, txtRafterRun 12 6", kForms}});
    form.close();
  });
}

TEST_F(frmROOFTest, RemovesInTheMiddleAndTakesItBack) {
  EstimateRecord plan = PlanWith(4);
  Run(plan, [this](frmROOF& form) {
    Take(form, {{"<PgDown>", "2 of 4, txtSection 2."},
                {"<Alt+R>", "2 of 4, cmdREMOVE", kRemove, Answer::No},
                {"<Alt+R>", "2 of 3, cmdREMOVE", kRemove, Answer::Yes},
                {"<Alt+R>", "2 of 2, cmdREMOVE", kRemove, Answer::Yes},
                {"<Alt+R>", "1 of 1, cmdREMOVE", kRemove, Answer::Yes}});
    // In a box the key takes back what was typed there, elsewhere the section removed last.
    Type(form, "txtSection", "9");
    Take(form, {{"<Ctrl+Z>", "1 of 1, txtSection 1."}});
    Find(form, "lstSections")->setFocus();
    Take(form, {{"<Ctrl+Z>", "2 of 2, lstSections"}, {"<Alt+U>", "2 of 3, txtSection 3."}});
    asked.Expect(std::string(kTransferAreaQuestion), Answer::Yes);
    Keys("<Alt+D>"), Click(form, "cmdJOIST");
  });
  EXPECT_EQ(plan.RoofPlanes[1].SectionLength, 36);
  EXPECT_EQ(dataEntry.numbers[NumberBox::RoofSqFt].text, "99") << "sections of 1, 3 and 4 ft";
}

TEST_F(frmROOFTest, AnEmptiedRoofWithoutJoistsClearsThePlan) {
  EstimateRecord plan = PlanWith(1);
  plan.CeilingJoistLft2X8 = {};
  Run(plan, [this](frmROOF&) {
    asked.Expect(kRemove, Answer::Yes);
    Keys("<Alt+R><Alt+D>");
  });
  EXPECT_EQ(plan, BlankPlan());
}

TEST_F(frmROOFTest, GoesToTheSectionChosenInTheList) {
  EstimateRecord plan = PlanWith(5);
  Run(plan, [this](frmROOF& form) {
    auto* const list = Find<QTreeWidget>(form, "lstSections");
    const auto choose = [&](int row) {
      QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->topLevelItem(row)).center());
    };
    choose(3);
    Take(form, {{"", "4 of 5, lstSections"}, {"<Down>", "5 of 5, lstSections"}});
    EXPECT_FALSE(Find(form, "cmdNEXT")->isEnabled());
    Type(form, "txtRafterRun", "");
    asked.Expect(kNoRun);
    choose(0);
    Take(form, {{"", "5 of 5, txtRafterRun "}});
    EXPECT_EQ(list->currentIndex().row(), 4) << "the mark stays with the section that is shown";
    Keys("24");
    EXPECT_EQ(list->topLevelItem(4)->text(2), "124");
    Discard(form);
  });
}

TEST_F(frmROOFTest, OnlyDoneOfTheJoistsKeepsAnything) {
  const EstimateRecord before = PlanWith(2);
  EstimateRecord plan = before;
  Run(plan, [&](frmROOF& form) {
    Take(form, {{"40<Alt+D>", "1 of 2, txtTWOxSIX_0 "},
                {"<Tab><Tab>1x2.3<Tab>", "1 of 2, txtTWOxSIX_3 "},
                {"<Esc>", "1 of 2, txtSection 40"},  // back at the sections
                {"<Esc>", "1 of 2, txtSection 40", kDiscard, Answer::No},
                {"<Alt+D><Tab><Tab>", "1 of 2, txtTWOxSIX_2 13"}});
    Click(form, "cmdCANCEL");
    EXPECT_EQ(plan, before);
    Discard(form);
  });
  EXPECT_EQ(plan, before);
  Run(plan, [](frmROOF&) { Keys("<Esc>"); });  // nothing was changed, nothing is asked
  Run(plan, [this](frmROOF& form) {
    asked.Expect(std::string(kTransferAreaQuestion), Answer::No);
    Keys("<Alt+D>"), Click(form, "cmdJOIST");
  });
  EXPECT_EQ(plan, before);
  EXPECT_EQ(dataEntry.mark, ChangeMark::None);
}

TEST_F(frmROOFTest, TellsOnceOfMissingJoistsAndShowsThoseThatAreLeft) {
  EstimateRecord plan = PlanWith(1);
  Run(plan, [this](frmROOF& form) {
    Keys("<Alt+D>");
    const auto done = [&](const char* feet, const std::string& message) {
      Type(form, "txtTWOxEIGHT_1", feet);
      asked.Expect(message, Answer::No);
      Click(form, "cmdJOIST");
      asked.ExpectAllAsked();
    };
    done("99999", "0 This Entry is TOO LARGE for calculations!|Norvale Help Notice");
    EXPECT_EQ(Focus(), "txtTWOxEIGHT_1");
    done("", "0 Without ceiling joists the rafters of this roof are not listed!|Norvale Help Notice");
    done("", std::string(kTransferAreaQuestion));
  });
  EXPECT_EQ(plan.CeilingJoistLft2X8[1], 0);
  plan.CeilingJoistLft2X8[1] = 30;
  Run(plan, [this](frmROOF& form) {
    asked.Expect(kRemove, Answer::Yes);
    Keys("<Alt+R><Alt+D>");
    ASSERT_TRUE(form.isVisible()) << "the joists would go on printing a stick roof";
    Type(form, "txtTWOxEIGHT_1", "");
    Click(form, "cmdJOIST");
  });
  EXPECT_EQ(plan, BlankPlan());
  Run(plan, [](frmROOF&) { Keys("<Alt+D>"); });  // leaves at once
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
      Keys("<Down>");
      EXPECT_EQ(isNew(), hasShape) << list;
    }
    Discard(form);
  });
}

}  // namespace
}  // namespace norvale
