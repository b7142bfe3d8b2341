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
constexpr const char* kButtons[] = {"cmdOK", "cmdCANCEL", "cmdNEXT", "cmdPREV", "cmdFind", "cmdDelete", "cmdchange"};

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

  template <typename Drive>
  void Run(ChecklistPurpose purpose, Drive drive) {
    PlanTasks tasks;
    tasks.chooseCustomer = [this](QWidget*) {
      session.CurrentCustomer = OnDisk(3);
      return isCustomerChosen;
    };
    tasks.printEstimate = [this](const PlanForm& form, QWidget* parent) {
      printed.push_back(session.CurrentCustomer.CustomerName.Trimmed() + "/" + session.CurrentEstimate.PlanNumber.Trimmed() + "/" +
                        std::string(session.CurrentEstimate.PriceLevel.Raw()) + "/" + std::to_string(form.PlanType) + "/" +
                        parent->windowTitle().toStdString());
    };
    frmChecklst form(program, purpose, tasks);
    FormScript().Then<frmChecklst>(drive).Run([&] { form.exec(); });
    asked.ExpectAllAsked();
  }

  static std::string Ticked(QWidget& form) {
    std::string ticked;
    for (const char* const name : kChecks)
      if (Find<QCheckBox>(form, name)->isChecked()) ticked += (ticked.empty() ? "" : " ") + std::string(name + 3);
    return ticked;
  }
  static int Level(QWidget& form) {
    int level = 0;
    for (int i = 0; i < 5; ++i)
      if (Find<QRadioButton>(form, ("optprice_" + std::to_string(i)).c_str())->isChecked()) level = level * 10 + i + 1;
    return level;
  }
  static std::string Plan(QWidget& form) {
    return Text(form, "txtcustnum") + "/" + Text(form, "txtCustName") + "/" + Text(form, "txtPlanNbr");
  }
  // The buttons in sight, by their first letter behind "cmd"; those that are shut in brackets.
  static std::string Buttons(QWidget& form) {
    std::string text;
    for (const char* const name : kButtons) {
      const auto* const button = Find<QPushButton>(form, name);
      if (button->isVisible()) text += button->isEnabled() ? std::string(1, name[3]) : "(" + std::string(1, name[3]) + ")";
    }
    return text;
  }
  static void Focus(QWidget& form, const char* name) { Find(form, name)->setFocus(Qt::TabFocusReason); }

  bool isCustomerChosen = true;
  std::vector<std::string> printed;
};

TEST_F(frmChecklstTest, ShowsWhatEachPurposeNeeds) {
  Run(ChecklistPurpose::NewPlan, [](frmChecklst& form) {
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Norvale: Plan CheckList"));
    EXPECT_EQ(Buttons(form), "OC");
    EXPECT_EQ(Plan(form), "3/Hill Homes/");
    EXPECT_EQ(Level(form), 1);
    EXPECT_TRUE(Find(form, "frachklist")->isEnabled());
    Key(Qt::Key_Escape);
  });
  isCustomerChosen = false;
  Run(ChecklistPurpose::NewPlan, [](frmChecklst& form) {
    EXPECT_EQ(Plan(form), "//");
    EXPECT_EQ(norvale::Focus(), "txtcustnum");
    Key(Qt::Key_Escape);
  });
  Run(ChecklistPurpose::ExistingPlans, [](frmChecklst& form) {
    EXPECT_EQ(Buttons(form), "OCNPFDc");
    EXPECT_EQ(norvale::Focus(), "cmdOK");
    EXPECT_FALSE(Find(form, "frachklist")->isEnabled());
    form.close();
  });
  Run(ChecklistPurpose::PrintPlans, [](frmChecklst& form) {
    EXPECT_EQ(Buttons(form), "OCNPF");
    EXPECT_EQ(Find<QPushButton>(form, "cmdOK")->text(), QStringLiteral("&PRINT"));
    Click(form, "cmdCANCEL");
  });
}

TEST_F(frmChecklstTest, StepsThroughThePlansAndStopsAtTheEnds) {
  Run(ChecklistPurpose::ExistingPlans, [this](frmChecklst& form) {
    asked.Expect("0 Beginning Of File|Norvale Help Notice");
    Key(Qt::Key_P, Qt::AltModifier);
    for (const char* const plan : {"3/Hill Homes/A", "7/Oak Street Builders/A"}) {
      Key(Qt::Key_N, Qt::AltModifier);
      EXPECT_EQ(Plan(form), plan);
    }
    for (const char* const plan : {"7/Oak Street Builders/B", "7/Oak Street Builders/C", "99/NOT ON FILE! /Z"}) {
      Key(Qt::Key_PageDown);
      EXPECT_EQ(Plan(form), plan);
    }
    EXPECT_EQ(Ticked(form), "Crawl15_20 Porch 12truss");
    EXPECT_EQ(Find<QLabel>(form, "lblDescription")->text(), QStringLiteral("1-1/2S Crawl W/ Porch(s)"));
    EXPECT_EQ(Level(form), 4);
    EXPECT_EQ(Text(form, "txtdate"), "11/23/26");
    EXPECT_EQ(session.CurrentCustomer, CustomerRecord{}) << "no other name goes on the paper";
    asked.Expect("0 End Of File|Norvale Help Notice");
    Key(Qt::Key_PageDown);
    EXPECT_EQ(Plan(form), "99/NOT ON FILE! /Z");
    Key(Qt::Key_PageUp);
    EXPECT_EQ(Plan(form), "7/Oak Street Builders/C");
    Key(Qt::Key_Escape);
  });
}

TEST_F(frmChecklstTest, FindsByEachOfTheThreeFields) {
  const struct {
    int box;  // how many empty ones are passed
    const char* text;
    const char* plan;
    const char* notice;
  } cases[] = {
      {0, "oak", "7/Oak Street Builders/A", nullptr},  // the other Oak has no plan
      {0, "nobody", "0//M", "nobody"},
      {1, "99", "99/NOT ON FILE! /Z", nullptr},
      {1, "12", "0//M", "12"},
      {2, "c", "7/Oak Street Builders/C", nullptr},
      {2, "QQ", "0//M", "QQ"},
  };
  for (const auto& c : cases)
    for (const Qt::Key leave : {Qt::Key_Return, Qt::Key_Tab})
      Run(ChecklistPurpose::ExistingPlans, [&](frmChecklst& form) {
        Key(Qt::Key_F, Qt::AltModifier);
        EXPECT_EQ(Buttons(form), "(O)C(N)(P)(F)(D)(c)");
        EXPECT_EQ(Plan(form), "//");
        EXPECT_EQ(norvale::Focus(), "txtCustName");
        if (c.box > 0) Focus(form, c.box == 1 ? "txtcustnum" : "txtPlanNbr");
        Keys(c.text);
        if (c.notice != nullptr) asked.Expect("0 End of file, Find unable to locate " + std::string(c.notice) + "|Norvale Help Notice");
        Key(leave);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Plan(form) == c.plan; }, kLongestWait)) << c.text << ": " << Plan(form);
        EXPECT_EQ(Buttons(form), "OCNPFDc");
        EXPECT_EQ(norvale::Focus(), "cmdOK");
        Key(Qt::Key_Escape);
      });
}

TEST_F(frmChecklstTest, CancelEndsAFindAndNothingElse) {
  const struct {
    const char* name;
    std::function<void(frmChecklst&)> cancel;
  } ways[] = {{"Esc", [](frmChecklst&) { Key(Qt::Key_Escape); }},
              {"ALT+C", [](frmChecklst&) { Key(Qt::Key_C, Qt::AltModifier); }},
              {"mouse", [](frmChecklst& form) { SlowClick(form, "cmdCANCEL"); }}};
  for (const auto& way : ways)
    Run(ChecklistPurpose::ExistingPlans, [&](frmChecklst& form) {
      Key(Qt::Key_PageDown);
      Key(Qt::Key_F, Qt::AltModifier);
      Keys("hill");
      way.cancel(form);
      QApplication::processEvents();
      EXPECT_TRUE(form.isVisible()) << way.name;
      EXPECT_EQ(Plan(form), "0//M") << way.name << ": the first one";
      EXPECT_EQ(Buttons(form), "OCNPFDc") << way.name;
      Key(Qt::Key_Escape);
    });
}

TEST_F(frmChecklstTest, BoxesFollowTheirRulesUnderSpaceClickAndEnter) {
  Run(ChecklistPurpose::NewPlan, [this](frmChecklst& form) {
    const auto space = [&](const char* box) {
      Focus(form, box);
      Key(Qt::Key_Space);
    };
    space("chk12field");
    EXPECT_EQ(Ticked(form), "") << "needs two levels";
    space("chkCrawl15_20");
    space("chk12field");
    for (int i = 0; i < 12; ++i) Key(Qt::Key_Tab), Key(Qt::Key_Backtab), Key(Qt::Key_Return);
    EXPECT_EQ(Ticked(form), "Crawl15_20 12field") << "walking past ticks and unticks nothing";
    space("chk12truss");
    EXPECT_EQ(Ticked(form), "Crawl15_20 12truss");
    QTest::mouseClick(Find(form, "chkGarage_Detatch"), Qt::LeftButton, {}, QPoint(8, Find(form, "chkGarage_Detatch")->height() / 2));
    EXPECT_EQ(Ticked(form), "Slab10 Garage_Detatch");
    EXPECT_EQ(norvale::Focus(), "chkGarage_Detatch");
    space("chkwhvinyl");
    space("chkectvinyl");
    EXPECT_EQ(Ticked(form), "Slab10 Garage_Detatch ectvinyl");
    space("chkCrawl10");
    EXPECT_EQ(Ticked(form), "Crawl10 ectvinyl");
    // The twelve boxes follow one another, and OK follows them.
    Focus(form, kChecks[0]);
    for (int i = 1; i < 12; ++i) {
      Key(Qt::Key_Return);
      EXPECT_EQ(norvale::Focus(), kChecks[i]);
    }
    Key(Qt::Key_Return);
    EXPECT_EQ(norvale::Focus(), "cmdOK");
    Key(Qt::Key_Escape);
  });
}

TEST_F(frmChecklstTest, OkGoesWhereSomethingIsMissing) {
  isCustomerChosen = false;
  const auto before = BytesOnDisk();
  Run(ChecklistPurpose::NewPlan, [this](frmChecklst& form) {
    const auto ok = [](const char* focus) {
      Key(Qt::Key_O, Qt::AltModifier);
      EXPECT_EQ(norvale::Focus(), focus);
    };
    ok("txtcustnum");
    Keys("1a2-34567");
    EXPECT_EQ(Text(form, "txtcustnum"), "12345");
    Key(Qt::Key_Backspace);
    Key(Qt::Key_Backspace);
    EXPECT_EQ(Text(form, "txtcustnum"), "123") << "a full field can be corrected";
    Key(Qt::Key_Tab);
    EXPECT_EQ(norvale::Focus(), "txtPlanNbr") << "the name is only shown";
    EXPECT_TRUE(QTest::qWaitFor([&] { return Text(form, "txtCustName") == "NOT ON FILE! "; }, kLongestWait));
    Type(form, "txtcustnum", "7");
    ok("txtPlanNbr");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Text(form, "txtCustName") == "Oak Street Builders"; }, kLongestWait));
    Keys("1234567890ABCDEF");
    EXPECT_EQ(Text(form, "txtPlanNbr"), "1234567890ABCDE");
    Key(Qt::Key_Backspace);
    Key(Qt::Key_Return);
    EXPECT_EQ(norvale::Focus(), "txtdate");
    ok("txtdate");
    Keys("11-23/2026x9");
    EXPECT_EQ(Text(form, "txtdate"), "11-2320269");
    Key(Qt::Key_Return);
    EXPECT_EQ(norvale::Focus(), "optprice_0");
    Key(Qt::Key_Right);
    Key(Qt::Key_Right);
    EXPECT_EQ(Level(form), 3);
    Key(Qt::Key_Return);
    EXPECT_EQ(norvale::Focus(), "chkSlab10");
    Focus(form, "chkPorch");
    Key(Qt::Key_Space);
    ok("chkSlab10");
    Key(Qt::Key_Space);
    Type(form, "txtcustnum", "32768");
    asked.Expect("0 This Entry is TOO LARGE for calculations!|Norvale Help Notice");
    ok("txtcustnum");
    Type(form, "txtcustnum", "7");
    Type(form, "txtPlanNbr", "B");
    asked.Expect("2 Customer 7 has a plan B on file already. Go on, and have two plans of that number?|Plan CheckList", Answer::No);
    ok("txtPlanNbr");
    Key(Qt::Key_Escape);
  });
  EXPECT_EQ(BytesOnDisk(), before);
}

TEST_F(frmChecklstTest, WhatWasChangedIsLeftOnlyThroughAQuestion) {
  constexpr const char* kQuestion = "2 What you changed on this form is not saved. Go on without it?|Plan CheckList";
  const struct {
    const char* what;
    std::function<void(frmChecklst&)> change;
    bool asks;
  } changes[] = {
      {"nothing", [](frmChecklst&) {}, false},
      {"the number", [](frmChecklst& form) { Type(form, "txtPlanNbr", "M2"); }, true},
      {"the customer", [](frmChecklst& form) { Type(form, "txtcustnum", "7"); }, true},
      {"the date", [](frmChecklst& form) { Type(form, "txtdate", "1-1-27"); }, true},
      {"the level", [](frmChecklst&) { Key(Qt::Key_5, Qt::AltModifier); }, true},
      {"CHANGE without a change", [](frmChecklst& form) { Click(form, "cmdchange"); }, false},
      {"the type", [](frmChecklst& form) { Click(form, "cmdchange"), Key(Qt::Key_Space); }, true},
  };
  for (const auto& change : changes)
    Run(ChecklistPurpose::ExistingPlans, [&](frmChecklst& form) {
      change.change(form);
      if (Find(form, "cmdNEXT")->isEnabled() && change.asks) {
        asked.Expect(kQuestion, Answer::No);
        Key(Qt::Key_PageDown);
        EXPECT_EQ(Text(form, "txtcustnum"), change.what == std::string("the customer") ? "7" : "0") << change.what;
      }
      if (change.asks) asked.Expect(kQuestion, Answer::Yes);
      Key(Qt::Key_Escape);
      EXPECT_FALSE(form.isVisible()) << change.what;
    });
}

TEST_F(frmChecklstTest, ChangeOpensTheBoxesAndShutsTheBrowsing) {
  Run(ChecklistPurpose::ExistingPlans, [](frmChecklst& form) {
    Key(Qt::Key_PageDown);
    Focus(form, "chkSlab10");
    Key(Qt::Key_T, Qt::AltModifier);
    EXPECT_EQ(Buttons(form), "OC(N)(P)(F)Dc");
    EXPECT_TRUE(Find(form, "frachklist")->isEnabled());
    EXPECT_EQ(norvale::Focus(), "chkSlab10");
    Key(Qt::Key_PageDown);
    EXPECT_EQ(Plan(form), "3/Hill Homes/A");
    Key(Qt::Key_Escape);
  });
}

TEST_F(frmChecklstTest, DeletesAfterAQuestionDownToTheLast) {
  Run(ChecklistPurpose::ExistingPlans, [this](frmChecklst& form) {
    Key(Qt::Key_PageDown);
    asked.Expect("2 Delete this Estimate?", Answer::No);
    Key(Qt::Key_D, Qt::AltModifier);
    EXPECT_EQ(PlansOnDisk().size(), 6U);
    asked.Expect("2 Delete this Estimate?", Answer::Yes);
    Key(Qt::Key_D, Qt::AltModifier);
    EXPECT_EQ(PlansOnDisk(), (std::vector<PlanName>{{0, "M"}, {7, "A"}, {7, "B"}, {7, "C"}, {99, "Z"}}));
    EXPECT_EQ(Plan(form), "0//M") << "the first that is left";
    for (int i = 0; i < 5; ++i) {
      asked.Expect("2 Delete this Estimate?", Answer::Yes);
      Key(Qt::Key_D, Qt::AltModifier);
    }
    EXPECT_EQ(PlansOnDisk(), std::vector<PlanName>{});
    EXPECT_EQ(Buttons(form), "(O)C(N)(P)(F)(D)(c)");
    EXPECT_EQ(Plan(form) + Ticked(form), "//");
    EXPECT_EQ(norvale::Focus(), "cmdCANCEL");
    EXPECT_EQ(session.CurrentEstimate, EstimateRecord{});
    Key(Qt::Key_O, Qt::AltModifier);
    EXPECT_TRUE(form.isVisible());
    Key(Qt::Key_Return);
  });
  EXPECT_EQ(std::filesystem::file_size(scratch.Path() / EstimateDataFile), 0U);
}

TEST_F(frmChecklstTest, PrintsThePlanAtHandOnTheLevelPicked) {
  const auto before = BytesOnDisk();
  Run(ChecklistPurpose::PrintPlans, [this](frmChecklst& form) {
    for (int i = 0; i < 5; ++i) Key(Qt::Key_PageDown);
    Key(Qt::Key_2, Qt::AltModifier);
    Focus(form, "txtPlanNbr");
    Keys("x");
    EXPECT_EQ(Text(form, "txtPlanNbr"), "Z") << "what is printed cannot be renamed";
    Key(Qt::Key_P, Qt::AltModifier);
    Key(Qt::Key_PageUp);
    Key(Qt::Key_P, Qt::AltModifier);
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Norvale: Plan CheckList"));
    Key(Qt::Key_Escape);
  });
  EXPECT_EQ(printed, (std::vector<std::string>{"/Z/2/2184/Plan Number: Z", "Oak Street Builders/C/1/0/Plan Number: C"}));
  EXPECT_EQ(BytesOnDisk(), before);
}

TEST_F(frmChecklstTest, NoPlanIsOpenedOverMissingScreenFiles) {
  std::filesystem::resize_file(scratch / kMaterialFileName, 0);
  const std::string refusal = "0 No plan can be opened: NVdata02.idx is missing or incomplete.|Norvale Help Notice";
  const auto before = BytesOnDisk();
  for (const ChecklistPurpose purpose : {ChecklistPurpose::ExistingPlans, ChecklistPurpose::PrintPlans})
    Run(purpose, [&](frmChecklst& form) {
      for (int i = 0; i < 5; ++i) Key(Qt::Key_PageDown);
      asked.Expect(refusal);
      Click(form, "cmdOK");
      EXPECT_EQ(Plan(form), "99/NOT ON FILE! /Z");
      Key(Qt::Key_Escape);
    });
  EXPECT_EQ(BytesOnDisk(), before);
  EXPECT_TRUE(printed.empty());
}

}  // namespace
}  // namespace norvale
