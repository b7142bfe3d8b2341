#include "entry/frm_checklst.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QRadioButton>

#include "data/estimate_file.h"
#include "data/plan_type.h"
#include "desktop/desktop_fixture.h"
#include "desktop/form_script.h"
#include "entry/plan_form.h"

namespace norvale {
namespace {

constexpr const char* kChecks[] = {"chkSlab10",  "chkSlab15_20", "chkCrawl10",  "chkCrawl15_20", "chkGarage_Attatch", "chkGarage_Detatch",
                                   "chkCarport", "chkPorch",     "chkectvinyl", "chk12field",    "chk12truss",        "chkwhvinyl"};
constexpr const char* kNobodys = "99/NOT ON FILE! /Z/11/23/26 level 4 Crawl15_20 Porch 12truss, ";

class frmChecklstTest : public DesktopTest {
 protected:
  // Hill Homes has plan A, Oak Street B, A and C, Smith & Oakley none; the company has M, and 99, which is nobody's, Z.
  frmChecklstTest() {
    StoreSamples();
    EstimateRecord nobodys = PlanOf(99, "Z");
    nobodys.PlanType = kTwoLevelCrawl | kPorch | kAtticTrussHalfStory;
    nobodys.PlanDate.Assign("11/23/26");
    nobodys.PriceLevel.Assign("4");
    StoreAll(folder, {}, std::array{nobodys});
  }

  // Shows the checklist, drives it, and leaves it by Cancel where `drive` has not.
  void Run(ChecklistPurpose purpose, const std::function<void(frmChecklst&)>& drive) {
    PlanTasks tasks;
    tasks.chooseCustomer = [this](QWidget*) {
      session.CurrentCustomer = OnDisk(3);
      return isCustomerChosen;
    };
    tasks.printEstimate = [this](const PlanForm& form, QWidget* parent) {
      printed += session.CurrentCustomer.CustomerName.Trimmed() + "/" + session.CurrentEstimate.PlanNumber.Trimmed() + "/" +
                 std::string(session.CurrentEstimate.PriceLevel.Raw()) + "/" + std::to_string(form.PlanType) + "/" +
                 std::to_string(session.CurrentEstimate.SecondFloorType) + "/" + parent->windowTitle().toStdString() + "\n";
    };
    frmChecklst form(program, purpose, tasks);
    const auto steps = [&drive](frmChecklst& shown) {
      drive(shown);
      if (shown.isVisible()) Key(Qt::Key_Escape);
    };
    FormScript().Then<frmChecklst>(steps).Run([&] { form.exec(); });
    asked.ExpectAllAsked();
  }
  void Take(frmChecklst& form, const std::vector<Step>& steps) {
    TakeSteps(steps, asked, [&form] { return See(form); });
  }

  // The fields, the level, the boxes that are ticked, and the focus.
  static std::string See(QWidget& form) {
    std::string text = Text(form, "txtcustnum") + "/" + Text(form, "txtCustName") + "/" + Text(form, "txtPlanNbr") + "/" +
                       Text(form, "txtdate") + " level ";
    for (int i = 0; i < 5; ++i)
      if (Find<QRadioButton>(form, ("optprice_" + std::to_string(i)).c_str())->isChecked()) text += std::to_string(i + 1);
    for (const char* const name : kChecks)
      if (Find<QCheckBox>(form, name)->isChecked()) text += " " + std::string(name + 3);
    return text + ", " + Focus();
  }
  // The buttons in sight, by their first letter behind "cmd"; those that are shut in brackets.
  static std::string Buttons(QWidget& form) {
    std::string text;
    for (const char* const name : {"cmdOK", "cmdCANCEL", "cmdNEXT", "cmdPREV", "cmdFind", "cmdDelete", "cmdchange"}) {
      const auto* const button = Find<QPushButton>(form, name);
      if (button->isVisible()) text += button->isEnabled() ? std::string(1, name[3]) : "(" + std::string(1, name[3]) + ")";
    }
    return text + (Find(form, "frachklist")->isEnabled() ? "+" : "");
  }

  bool isCustomerChosen = true;
  std::string printed;
};

TEST_F(frmChecklstTest, ShowsWhatEachPurposeNeeds) {
  Run(ChecklistPurpose::NewPlan, [](frmChecklst& form) {
    EXPECT_EQ(See(form), "3/Hill Homes// level 1, txtPlanNbr");
    EXPECT_EQ(Buttons(form), "OC+");
  });
  Run(ChecklistPurpose::ExistingPlans, [this](frmChecklst& form) {
    EXPECT_EQ(Buttons(form), "OCNPFDc");
    Take(form, {{"", "0//M/ level 1, cmdOK"}, {"<Alt+T>", "0//M/ level 1, chkSlab10"}, {"<PgDown>", "0//M/ level 1, chkSlab10"}});
    EXPECT_EQ(Buttons(form), "OC(N)(P)(F)Dc+");
    form.close();
  });
  Run(ChecklistPurpose::PrintPlans, [](frmChecklst& form) {
    EXPECT_EQ(Buttons(form) + Focus() + Text(form, "cmdOK"), "OCNPFcmdOK&PRINT");
    Click(form, "cmdCANCEL");
  });
}

TEST_F(frmChecklstTest, StepsThroughThePlansAndStopsAtTheEnds) {
  const std::string nobodys = kNobodys;
  Run(ChecklistPurpose::ExistingPlans, [&](frmChecklst& form) {
    Take(form, {{"<PgUp>", "0//M/ level 1, cmdOK", "0 Beginning Of File|Norvale Help Notice"},
                {"<Alt+N>", "3/Hill Homes/A/ level 1, cmdNEXT"},
                {"<PgDown>", "7/Oak Street Builders/A/ level 1, cmdNEXT"},
                {"<PgDown>", "7/Oak Street Builders/B/ level 1, cmdNEXT"},
                {"<PgDown>", "7/Oak Street Builders/C/ level 1, cmdNEXT"},
                {"<PgDown>", nobodys + "cmdNEXT"},
                {"<PgDown>", nobodys + "cmdNEXT", "0 End Of File|Norvale Help Notice"}});
    EXPECT_EQ(Text(form, "lblDescription"), "1-1/2S Crawl W/ Porch(s)");
    EXPECT_EQ(session.CurrentCustomer, CustomerRecord{}) << "no other name goes on the paper";
    Take(form, {{"<Alt+P>", "7/Oak Street Builders/C/ level 1, cmdPREV"}});
  });
}

TEST_F(frmChecklstTest, FindsByEachOfTheThreeFieldsOrStaysOnItsPlan) {
  const std::string stays = kNobodys;
  const struct {
    std::string field, text, plan;
    bool isTold = false;
  } cases[] = {
      {"", "homes", "3/Hill Homes/A/ level 1, "},
      {"", "oak", "7/Oak Street Builders/A/ level 1, "},  // the other Oak has no plan
      {"", "smith", stays},
      {"", "nobody", stays, true},
      {"<Backtab>", "7", "7/Oak Street Builders/A/ level 1, "},
      {"<Backtab>", "0", "0//M/ level 1, "},
      {"<Backtab>", "12", stays, true},
      {"<Backtab>", "9", stays, true},
      {"<Backtab>", "99999", stays, true},
      {"<Tab>", "c", "7/Oak Street Builders/C/ level 1, "},
      {"<Tab>", "7", stays, true},
      {"<Tab>", "\xE6\x97\xA5", stays, true},
  };
  for (const auto& c : cases)
    for (const char* const leave : {"<Return>", "<Tab>"})
      Run(ChecklistPurpose::ExistingPlans, [&](frmChecklst& form) {
        Keys("<PgDown><PgDown><PgDown><PgDown><PgDown><Alt+F>");
        EXPECT_EQ(Buttons(form), "(O)C(N)(P)(F)(D)(c)");
        Keys((c.field + c.text).c_str());  // past an empty one
        const std::string told = c.isTold ? "0 End of file, Find unable to locate " + c.text + "|Norvale Help Notice" : "";
        Take(form, {{leave, c.plan + "cmdOK", told}});
        EXPECT_EQ(Buttons(form), "OCNPFDc");
      });
}

TEST_F(frmChecklstTest, CancelEndsAFindAndNothingElse) {
  for (const char* const cancel : {"<Esc>", "<Alt+C>", ""})
    Run(ChecklistPurpose::ExistingPlans, [&](frmChecklst& form) {
      Keys("<PgDown><Alt+F>hill");
      if (*cancel == '\0') SlowClick(form, "cmdCANCEL");
      Take(form, {{cancel, "0//M/ level 1, cmdOK"}});
      EXPECT_TRUE(form.isVisible());
      EXPECT_EQ(Buttons(form), "OCNPFDc");
    });
  // The empty fields of a search are no change to ask about.
  Run(ChecklistPurpose::ExistingPlans, [](frmChecklst& form) {
    Keys("<PgDown><Alt+F>");
    form.close();
    EXPECT_FALSE(form.isVisible());
  });
}

TEST_F(frmChecklstTest, ASearchThatCannotReadStaysOnItsPlan) {
  const std::filesystem::path records = scratch / EstimateDataFile;
  const std::string bytes = ReadBytes(records);
  Run(ChecklistPurpose::ExistingPlans, [&](frmChecklst& form) {
    Keys("<PgDown><PgDown><Alt+F>");
    const std::int32_t cursor = session.EstimateCursor;
    std::filesystem::resize_file(records, 0);
    for (const auto& [keys, position] : {std::pair{"homes<Return>", "25"}, {"<Esc>", "1"}}) {
      asked.Expect("0 The last step could not be finished, and nothing that was on file is lost.\n\nestimate.ix: the entry at position " +
                   std::string(position) + " points to no record of estimate.dbr|Norvale Help Notice");
      Keys(keys);
      EXPECT_EQ(session.EstimateCursor, cursor) << keys;
      EXPECT_EQ(Buttons(form), "(O)C(N)(P)(F)(D)(c)") << keys;
    }
    WriteBytes(records, bytes);
    Take(form, {{"<Esc>", "0//M/ level 1, cmdOK"}});
  });
}

TEST_F(frmChecklstTest, BoxesFollowTheirRulesUnderSpaceClickAndEnter) {
  Run(ChecklistPurpose::NewPlan, [this](frmChecklst& form) {
    Find(form, kChecks[0])->setFocus(Qt::TabFocusReason);
    Keys("<Return><Return><Return><Space><Return><Return><Return><Return><Return><Return><Space>");
    EXPECT_EQ(See(form), "3/Hill Homes// level 1 Crawl15_20 12field, chk12field");
    // The twelve boxes follow one another, and OK follows them; walking past ticks and unticks nothing.
    Find(form, kChecks[0])->setFocus(Qt::TabFocusReason);
    for (const char* const box : kChecks) {
      EXPECT_EQ(Focus(), box);
      Keys("<Tab><Backtab><Return>");
    }
    EXPECT_EQ(See(form), "3/Hill Homes// level 1 Crawl15_20 12field, cmdOK");
    QTest::mouseClick(Find(form, "chkGarage_Detatch"), Qt::LeftButton, {}, QPoint(8, Find(form, "chkGarage_Detatch")->height() / 2));
    EXPECT_EQ(See(form), "3/Hill Homes// level 1 Slab10 Garage_Detatch, chkGarage_Detatch");
  });
}

TEST_F(frmChecklstTest, OkGoesWhereSomethingIsMissing) {
  isCustomerChosen = false;
  const auto before = BytesOnDisk();
  const std::string oak = "7/Oak Street Builders/";
  Run(ChecklistPurpose::NewPlan, [&](frmChecklst& form) {
    Take(form, {{"<Alt+O>", "/// level 1, txtcustnum"},
                {"1a2-34567", "12345/// level 1, txtcustnum"},
                {"<Backspace><Backspace>", "123/// level 1, txtcustnum"},
                {"<Tab>", "123/NOT ON FILE! // level 1, txtPlanNbr"},
                {"<Backtab>7<Alt+O>", oak + "/ level 1, txtPlanNbr"},
                {"1234567890ABCDEF<Return>", oak + "1234567890ABCDE/ level 1, txtdate"},
                {"<Alt+O>", oak + "1234567890ABCDE/ level 1, txtdate"},
                {"11-23/2026x9", oak + "1234567890ABCDE/11-2320269 level 1, txtdate"},
                {"<Return><Right><Right>", oak + "1234567890ABCDE/11-2320269 level 3, optprice_2"},
                {"<Alt+O>", oak + "1234567890ABCDE/11-2320269 level 3, chkSlab10"}});
    Key(Qt::Key_Space);
    Type(form, "txtcustnum", "32768");
    Take(form, {{"<Alt+O>", "32768/NOT ON FILE! /1234567890ABCDE/11-2320269 level 3 Slab10, txtcustnum",
                 "0 This Entry is TOO LARGE for calculations!|Norvale Help Notice"}});
    Type(form, "txtcustnum", "7");
    Type(form, "txtPlanNbr", "B");
    Take(form, {{"<Alt+O>", oak + "B/11-2320269 level 3 Slab10, txtPlanNbr",
                 "2 Customer 7 has a plan B on file already. Go on, and have two plans of that number?|Plan CheckList", Answer::No}});
  });
  EXPECT_EQ(BytesOnDisk(), before);
}

TEST_F(frmChecklstTest, WhatWasChangedIsLeftOnlyThroughAQuestion) {
  constexpr const char* kQuestion = "2 What you changed on this form is not saved. Go on without it?|Plan CheckList";
  const std::pair<const char*, const char*> changes[] = {
      {"txtPlanNbr", "M2"}, {"txtcustnum", "7"}, {"txtdate", "1-1-27"}, {"cmdOK", "<Alt+5>"}, {"cmdOK", "<Alt+T><Space>"}};
  for (const auto& [control, keys] : changes)
    Run(ChecklistPurpose::ExistingPlans, [&, control = control, keys = keys](frmChecklst& form) {
      Find(form, control)->setFocus(Qt::TabFocusReason);
      Keys(keys);
      const auto fields = [&form] { return Text(form, "txtcustnum") + "/" + Text(form, "txtPlanNbr") + "/" + Text(form, "txtdate"); };
      const bool mayStep = Find(form, "cmdNEXT")->isEnabled();
      TakeSteps({{"<PgDown>", fields(), mayStep ? kQuestion : "", Answer::No}}, asked, fields);
      asked.Expect(kQuestion, Answer::Yes);
      Key(Qt::Key_Escape);
      EXPECT_FALSE(form.isVisible()) << keys;
    });
}

TEST_F(frmChecklstTest, DeletesAfterAQuestionDownToTheLast) {
  constexpr const char* kQuestion = "2 Delete this Estimate?";
  Run(ChecklistPurpose::ExistingPlans, [this](frmChecklst& form) {
    Take(form, {{"<PgDown>", "3/Hill Homes/A/ level 1, cmdOK"}, {"<Alt+D>", "3/Hill Homes/A/ level 1, cmdOK", kQuestion, Answer::No}});
    EXPECT_EQ(PlansOnDisk().size(), 6U);
    Take(form, {{"<Alt+D>", "0//M/ level 1, cmdOK", kQuestion, Answer::Yes}});  // the first that is left
    EXPECT_EQ(PlansOnDisk(), (std::vector<PlanName>{{0, "M"}, {7, "A"}, {7, "B"}, {7, "C"}, {99, "Z"}}));
    for (int i = 0; i < 5; ++i) {
      asked.Expect(kQuestion, Answer::Yes);
      Key(Qt::Key_D, Qt::AltModifier);
    }
    EXPECT_EQ(See(form) + Buttons(form), "/// level 1, cmdCANCEL(O)C(N)(P)(F)(D)(c)");
    EXPECT_EQ(session.CurrentEstimate, EstimateRecord{});
    Key(Qt::Key_O, Qt::AltModifier);
    EXPECT_TRUE(form.isVisible());
    Key(Qt::Key_Return);
    EXPECT_FALSE(form.isVisible());
  });
  EXPECT_EQ(std::filesystem::file_size(scratch.Path() / EstimateDataFile), 0U);
}

TEST_F(frmChecklstTest, PrintsThePlanAtHandOnTheLevelPicked) {
  const auto before = BytesOnDisk();
  Run(ChecklistPurpose::PrintPlans, [](frmChecklst& form) {
    Keys("<PgDown><PgDown><PgDown><PgDown><PgDown><Alt+2>");
    Find(form, "txtPlanNbr")->setFocus();
    Keys("x<Alt+P><PgUp><Alt+P>");  // what is printed cannot be renamed
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Norvale: Plan CheckList"));
  });
  EXPECT_EQ(printed, "/Z/2/2184/2/Plan Number: Z\nOak Street Builders/C/1/0/0/Plan Number: C\n");
  std::filesystem::resize_file(scratch / kMaterialFileName, 0);
  for (const ChecklistPurpose purpose : {ChecklistPurpose::ExistingPlans, ChecklistPurpose::PrintPlans})
    Run(purpose, [this](frmChecklst& form) {
      Keys("<PgDown><PgDown><PgDown><PgDown><PgDown>");
      Take(form, {{"<Return>", std::string(kNobodys) + "cmdOK",
                   "0 No plan can be opened: NVdata02.idx is missing or incomplete.|Norvale Help Notice"}});
    });
  EXPECT_EQ(BytesOnDisk(), before);
}

}  // namespace
}  // namespace norvale
