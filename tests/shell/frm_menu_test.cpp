#include "shell/frm_menu.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desktop/desktop_fixture.h"
#include "desktop/form_script.h"
#include "desktop/frm_help.h"
#include "entry/frm_checklst.h"
#include "shell/frm_address.h"
#include "shell/frm_tasks.h"

namespace norvale {
namespace {

constexpr const char* kLeave = "2 Leave NORVALE Program ? |End Program";
constexpr const char* kNoEstimates = "0 No Estimates on file to edit!|Norvale Help Notice";
constexpr const char* kNoCustomers = "0 No Customers in file to Edit!|Norvale Help Notice";

class frmMenuTest : public DesktopTest {
 protected:
  frmMenuTest() {
    ShowActive(menu);
    statusLineAt = Find(menu, "lblMessage")->geometry();
  }

  // The panel that is seen with its title; empty where none is.
  std::string Shown() {
    std::string shown;
    for (const MenuPanel& panel : MenuPanels())
      if (Find(menu, std::string(panel.panel).c_str())->isVisible()) shown += panel.panel;
    if (Find(menu, "Label1")->isVisible()) shown += ":" + Find<QLabel>(menu, "Label1")->text().toStdString();
    return shown;
  }
  std::string StatusText() { return Find<QLabel>(menu, "lblMessage")->text().toStdString(); }

  std::vector<MenuChoice> tasks;  // those that were run
  MenuModes modesInTask;
  std::function<void()> inTask;
  QRect statusLineAt;
  frmMenu menu{program, [this](MenuChoice choice, QWidget*) {
                 tasks.push_back(choice);
                 modesInTask = menu.Modes();
                 EXPECT_EQ(Shown(), "") << "a task hides the menu";
                 EXPECT_EQ(StatusText(), EntryHint);
                 QApplication::processEvents();
                 EXPECT_EQ(statusLineAt, Find(menu, "lblMessage")->geometry()) << "and nothing else moves";
                 if (inTask) inTask();
               }};
};

TEST_F(frmMenuTest, OpensOnTheMainMenu) {
  EXPECT_EQ(Shown(), "pctMainMenu:Main Menu ");
  EXPECT_EQ(Focus(), "cmdMENU1_0");
  EXPECT_EQ(StatusText(), "E,C,P,S,X or TAB To Move; ENTER=Execute F1=Help ALT+F2=Calculator  ESC=Exit");
  EXPECT_THAT(Find<QLabel>(menu, "lblDate")->text().toStdString(), testing::MatchesRegex("[0-9]{2}-[0-9]{2}-[0-9]{4}"));
  EXPECT_THAT(Find<QLabel>(menu, "lblTime")->text().toStdString(), testing::MatchesRegex("[01][0-9]:[0-5][0-9]:[0-5][0-9][ap]m"));
}

TEST_F(frmMenuTest, ShowMenuTakesNamesInAnyCase) {
  const struct {
    const char* name;
    const char* shown;
    const char* focus;
  } rows[] = {
      {"Utility", "pctUtilityMenu:Utility Menu ", "cmdMENU5_0"}, {"PRINT", "pctPrintMenu:Print Menu ", "cmdMENU4_0"},
      {"customer", "pctCustMenu:Customer Menu ", "cmdMENU3_0"},  {"Estimate", "pctEstMenu:Estimate Menu ", "cmdMENU2_0"},
      {"main", "pctMainMenu:Main Menu ", "cmdMENU1_0"},
  };
  for (const auto& row : rows) {
    menu.ShowMenu(row.name);
    EXPECT_EQ(Shown(), row.shown);
    EXPECT_EQ(Focus(), row.focus);
    EXPECT_TRUE(Find<QPushButton>(menu, row.focus)->isDefault());
  }
  menu.ShowMenu("Maine");
  EXPECT_EQ(Shown(), "");
}

TEST_F(frmMenuTest, LettersMoveTheFocusAndNothingElse) {
  const struct {
    const char* menu;
    const char* buttons;
    const char* keys;  // in the order of the buttons; a blank: no letter
    const char* noKeys;
  } rows[] = {
      {"Main", "cmdMENU1", "ECPUX", "sn1"}, {"Estimate", "cmdMENU2", "WEX", "np"},  {"Customer", "cmdMENU3", "ELX", "c"},
      {"Print", "cmdMENU4", "WELCX", "s"},  {"Utility", "cmdMENU5", "ILM X", "cw"},
  };
  for (const auto& row : rows) {
    menu.ShowMenu(row.menu);
    for (int i = 0; row.keys[i] != '\0'; ++i) {
      if (row.keys[i] == ' ') continue;
      const std::string button = std::string(row.buttons) + "_" + std::to_string(i);
      for (const bool isLower : {true, false}) {
        Find(menu, (std::string(row.buttons) + "_" + (i == 0 ? "1" : "0")).c_str())->setFocus();
        const char key = isLower ? static_cast<char>(row.keys[i] - 'A' + 'a') : row.keys[i];
        Keys(std::string(1, key).c_str());
        EXPECT_EQ(Focus(), button) << row.menu << key;
      }
    }
    for (const char* key = row.noKeys; *key != '\0'; ++key) {
      const std::string before = Focus();
      Keys(std::string(1, *key).c_str());
      EXPECT_EQ(Focus(), before) << row.menu << *key;
    }
  }
  Keys("b");
  EXPECT_EQ(Focus(), "cmdBackups");
  EXPECT_TRUE(tasks.empty());
  EXPECT_EQ(Shown(), "pctUtilityMenu:Utility Menu ");
}

TEST_F(frmMenuTest, EnterRunsTheFocusedButton) {
  Keys("u");
  Key(Qt::Key_Return);
  EXPECT_EQ(Shown(), "pctUtilityMenu:Utility Menu ");
  Key(Qt::Key_Escape);
  EXPECT_EQ(Shown(), "pctMainMenu:Main Menu ");
  Key(Qt::Key_Right);
  Key(Qt::Key_Space);
  EXPECT_EQ(Shown(), "pctCustMenu:Customer Menu ");
  Keys("x");
  Key(Qt::Key_Enter);
  EXPECT_EQ(Shown(), "pctMainMenu:Main Menu ");
}

TEST_F(frmMenuTest, EachButtonRunsItsTaskAndComesBack) {
  StoreSamples();
  const struct {
    const char* menu;
    const char* button;
    MenuChoice choice;
    MenuModes during;
  } rows[] = {
      {"Estimate", "cmdMENU2_0", MenuChoice::NewEstimate, {.estimate = EstimateMode::New}},
      {"Estimate", "cmdMENU2_1", MenuChoice::ExistingEstimate, {.estimate = EstimateMode::Existing}},
      {"Customer", "cmdMENU3_0", MenuChoice::ExistingCustomer, {.customer = CustomerMode::Existing}},
      {"Customer", "cmdMENU3_1", MenuChoice::CustomerList, {.customer = CustomerMode::List}},
      {"Print", "cmdMENU4_0", MenuChoice::PrintWorksheet, {.print = PrintMode::Worksheet}},
      {"Print", "cmdMENU4_1", MenuChoice::PrintEstimate, {.estimate = EstimateMode::Existing, .print = PrintMode::Estimate}},
      {"Print", "cmdMENU4_2", MenuChoice::PrintEstimateList, {.print = PrintMode::EstimateList}},
      {"Print", "cmdMENU4_3", MenuChoice::PrintCustomerList, {.print = PrintMode::Customer}},
      {"Utility", "cmdMENU5_0", MenuChoice::CompanyInformation, {.utility = UtilityMode::Company}},
      {"Utility", "cmdMENU5_1", MenuChoice::MaterialDefaults, {}},
      {"Utility", "cmdMENU5_2", MenuChoice::Prices, {}},
      {"Utility", "cmdMENU5_3", MenuChoice::WasteFactors, {}},
      {"Utility", "cmdBackups", MenuChoice::Backups, {}},
  };
  for (const auto& row : rows) {
    menu.ShowMenu(row.menu);
    const std::string shown = Shown();
    tasks.clear();
    Click(menu, row.button);
    EXPECT_EQ(tasks, std::vector{row.choice}) << row.button;
    EXPECT_EQ(modesInTask, row.during) << row.button;
    EXPECT_EQ(Shown(), shown) << row.button;
    EXPECT_EQ(MenuOfModes(menu.Modes()).value_or(FindMenu(row.menu)->menu), FindMenu(row.menu)->menu) << row.button;
    EXPECT_EQ(menu.Modes().utility, UtilityMode::None) << row.button;
    EXPECT_EQ(Focus(), std::string(FindMenu(row.menu)->buttons) + "_0") << row.button;
    Key(Qt::Key_Escape);
    EXPECT_EQ(Shown(), "pctMainMenu:Main Menu ") << row.button;
    EXPECT_EQ(menu.Modes(), MenuModes{}) << row.button;
  }
}

TEST_F(frmMenuTest, NothingOnFileIsSaidAndTheMenuStays) {
  const struct {
    const char* menu;
    const char* button;
    const char* notice;
  } rows[] = {{"Estimate", "cmdMENU2_1", kNoEstimates}, {"Customer", "cmdMENU3_0", kNoCustomers}, {"Print", "cmdMENU4_1", kNoEstimates}};
  for (const auto& row : rows) {
    menu.ShowMenu(row.menu);
    const std::string shown = Shown();
    asked.Expect(row.notice);
    Click(menu, row.button);
    asked.ExpectAllAsked();
    EXPECT_EQ(Shown(), shown);
  }
  EXPECT_TRUE(tasks.empty());
}

TEST_F(frmMenuTest, LeavingAsksFirst) {
  struct Way {
    const char* name;
    std::function<void()> leave;
  };
  const Way ways[] = {{"click", [this] { Click(menu, "cmdMENU1_4"); }},
                      {"letter", [] { Keys("x"), Key(Qt::Key_Return); }},
                      {"escape", [] { Key(Qt::Key_Escape); }},
                      {"close", [this] { menu.close(); }}};
  for (const Way& way : ways) {
    asked.Expect(kLeave, Answer::No);
    way.leave();
    asked.ExpectAllAsked();
    EXPECT_TRUE(menu.isVisible()) << way.name;
    EXPECT_EQ(Shown(), "pctMainMenu:Main Menu ") << way.name;
    EXPECT_NE(Focus(), "") << way.name;
  }
  menu.ShowMenu("Print");
  asked.Expect(kLeave, Answer::No);
  menu.close();
  EXPECT_EQ(Shown(), "pctPrintMenu:Print Menu ");

  for (const Way& way : ways) {
    menu.ShowMenu("Main");
    ShowActive(menu);
    asked.Expect(kLeave, Answer::Yes);
    way.leave();
    asked.ExpectAllAsked();
    EXPECT_FALSE(menu.isVisible()) << way.name;
  }
}

TEST_F(frmMenuTest, AnErrorOfATaskIsOneMessageAndTheMenuGoesOn) {
  inTask = [] { throw FileError("customer.db", "Input/output error"); };
  menu.ShowMenu("Utility");
  asked.Expect(FileErrorNotice(FileError("customer.db", "Input/output error")));
  Click(menu, "cmdMENU5_2");
  EXPECT_EQ(Shown(), "pctUtilityMenu:Utility Menu ");
  EXPECT_EQ(Focus(), "cmdMENU5_0");
}

TEST_F(frmMenuTest, ComingBackToTheFrontShowsTheTasksMenu) {
  StoreSamples();
  menu.ShowMenu("Customer");
  Click(menu, "cmdMENU3_0");
  menu.ShowMenu("nothing");
  QWidget other;
  ShowActive(other);
  ShowActive(menu);
  EXPECT_EQ(Shown(), "pctCustMenu:Customer Menu ");
}

TEST_F(frmMenuTest, ASearchEndsWithTheWayBack) {
  session.CustomerSearchText = "OAK";
  menu.ShowMenu("Customer");
  Key(Qt::Key_Escape);
  EXPECT_EQ(session.CustomerSearchText, "");
}

TEST_F(frmMenuTest, HelpShowsItsPage) {
  DriveModal<frmHelp>([] { Key(Qt::Key_F1); },
                      [](frmHelp& help) {
                        EXPECT_THAT(Find(help, "txtHelp")->property("plainText").toString().toStdString(),
                                    testing::StartsWith("Start and menus\n"));
                        Click(help, "cmdOK");
                      });
  EXPECT_EQ(Focus(), "cmdMENU1_0");
}

// The whole way, with the program's own tasks.
class frmMenuWithTasksTest : public DesktopTest {
 protected:
  frmMenuWithTasksTest() { ShowActive(menu); }
  frmMenu menu{program, [this](MenuChoice choice, QWidget* form) { RunTask(program, choice, form); }};
};

TEST_F(frmMenuWithTasksTest, TheFirstCustomerIsEnteredOnTheWayToAPlan) {
  menu.ShowMenu("Estimate");
  FormScript()
      .Then<frmAddress>([](frmAddress& form) {
        EXPECT_EQ(Find<QPushButton>(form, "cmdAddress_1")->text(), QStringLiteral("ADD"));
        Type(form, "txtAddress_1", "Hill Homes");
        Click(form, "cmdAddress_5");
      })
      .Then<frmChecklst>([](frmChecklst& form) {
        EXPECT_EQ(Text(form, "txtcustnum") + Text(form, "txtCustName"), "1Hill Homes");
        EXPECT_EQ(Focus(), "txtPlanNbr");
        Key(Qt::Key_Escape);
      })
      .Run([this] { Click(menu, "cmdMENU2_0"); });
  EXPECT_EQ(CustomersOnDisk(), (Customers{{1, "Hill Homes"}}));
  menu.ShowMenu("Customer");
  DriveModal<frmAddress>([this] { Click(menu, "cmdMENU3_0"); },
                         [](frmAddress& form) {
                           EXPECT_EQ(Text(form, "txtAddress_1"), "Hill Homes");
                           Key(Qt::Key_Escape);
                         });
}

TEST_F(frmMenuWithTasksTest, TheCompanyIsEnteredAndStaysTheFirstRecord) {
  StoreSamples();
  menu.ShowMenu("Utility");
  DriveModal<frmAddress>([this] { Click(menu, "cmdMENU5_0"); },
                         [](frmAddress& form) {
                           EXPECT_EQ(form.windowTitle(), QStringLiteral("Company Information"));
                           Type(form, "txtAddress_1", "Norvale Lumber");
                           Key(Qt::Key_Return);
                           Keys("1 Mill Road");
                           Click(form, "cmdAddress_5");
                         });
  EXPECT_EQ(OnDisk(0).CustomerName.Trimmed(), "Norvale Lumber");
  EXPECT_EQ(OnDisk(0).AddressLine1.Trimmed(), "1 Mill Road");
  EXPECT_EQ(session.CompanyRecord, OnDisk(0));
  EXPECT_EQ(CustomersOnDisk(), samples);
  EXPECT_EQ(session.CustomerCursor, 7);
}

}  // namespace
}  // namespace norvale
