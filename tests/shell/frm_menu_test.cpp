#include "shell/frm_menu.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desktop/desktop_fixture.h"
#include "desktop/form_script.h"
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
    if (Find(menu, "lblMenu")->isVisible()) shown += ":" + Text(menu, "lblMenu");
    return shown;
  }

  std::vector<MenuChoice> tasks;  // those that were run
  MenuModes modesInTask;
  std::function<void()> inTask;
  QRect statusLineAt;
  frmMenu menu{program, [this](MenuChoice choice, QWidget*) {
                 tasks.push_back(choice);
                 modesInTask = menu.Modes();
                 EXPECT_EQ(Shown(), "") << "a task hides the menu";
                 EXPECT_EQ(Text(menu, "lblMessage"), EntryHint);
                 QApplication::processEvents();
                 EXPECT_EQ(statusLineAt, Find(menu, "lblMessage")->geometry()) << "and nothing else moves";
                 if (inTask) inTask();
               }};
};

TEST_F(frmMenuTest, EachMenuIsReachedByItsNameAndItsLettersMoveTheFocus) {
  EXPECT_EQ(Shown(), "pctMainMenu:Main Menu ");
  EXPECT_EQ(Focus(), "cmdMENU1_0");
  EXPECT_THAT(Text(menu, "lblDate"), testing::MatchesRegex("[0-9]{2}-[0-9]{2}-[0-9]{4}"));
  EXPECT_THAT(Text(menu, "lblTime"), testing::MatchesRegex("[01][0-9]:[0-5][0-9]:[0-5][0-9][ap]m"));
  const struct {
    const char* name;  // in any case
    const char* shown;
    const char* hint;
    std::string buttons;
    std::string keys;  // in the order of the buttons; a blank: no letter
    const char* noKeys;
  } rows[] = {
      {"Customer", "pctCustMenu:Customer Menu ", "E,L,X", "cmdMENU3", "ELX", "c1"},
      {"estimate", "pctEstMenu:Estimate Menu ", "N,E,X", "cmdMENU2", "WEX", "np"},
      {"PRINT", "pctPrintMenu:Print Menu ", "W,E,L,C,X", "cmdMENU4", "WELCX", "s"},
      {"Main", "pctMainMenu:Main Menu ", "E,C,P,S,X", "cmdMENU1", "ECPUX", "sb"},
      {"Utility", "pctUtilityMenu:Utility Menu ", "I,L,C,X", "cmdMENU5", "ILM X", "cw"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    menu.ShowMenu(row.name);
    EXPECT_EQ(Shown(), row.shown);
    EXPECT_EQ(Focus(), row.buttons + "_0");
    EXPECT_TRUE(Find<QPushButton>(menu, (row.buttons + "_0").c_str())->isDefault());
    EXPECT_EQ(Text(menu, "lblMessage"), row.hint + std::string(" or TAB To Move; ENTER=Execute F1=Help ALT+F2=Calculator  ESC=Exit"));
    for (std::size_t i = 0; i < row.keys.size(); ++i)
      for (const char key : {row.keys[i], static_cast<char>(std::tolower(row.keys[i]))}) {
        if (key == ' ') continue;
        Find(menu, (row.buttons + (i == 0 ? "_1" : "_0")).c_str())->setFocus();
        Keys(std::string(1, key).c_str());
        EXPECT_EQ(Focus(), row.buttons + "_" + std::to_string(i)) << key;
      }
    const std::string before = Focus();
    Keys(row.noKeys);
    EXPECT_EQ(Focus(), before);
    // A letter far above the alphabet must not be taken for one within it.
    for (const QChar letter : {u'\u0445', u'\u0415', u'\u0105'}) Letter(letter);
    EXPECT_EQ(Focus(), before);
  }
  Keys("b");
  EXPECT_EQ(Focus(), "cmdBackups");
  EXPECT_TRUE(tasks.empty());
  EXPECT_EQ(Shown(), "pctUtilityMenu:Utility Menu ");
  menu.ShowMenu("Maine");
  EXPECT_EQ(Shown(), "");
}

TEST_F(frmMenuTest, EachButtonRunsItsTaskAndComesBack) {
  StoreSamples();
  const MenuModes printed{.estimate = EstimateMode::Existing, .print = PrintMode::Estimate};
  const struct {
    const char* menu;
    const char* button;
    MenuChoice choice;
    MenuModes during;
    MenuModes after = during;
  } rows[] = {
      {"Estimate", "cmdMENU2_0", MenuChoice::NewEstimate, {.estimate = EstimateMode::New}},
      {"Estimate", "cmdMENU2_1", MenuChoice::ExistingEstimate, {.estimate = EstimateMode::Existing}},
      {"Customer", "cmdMENU3_0", MenuChoice::ExistingCustomer, {.customer = CustomerMode::Existing}},
      {"Customer", "cmdMENU3_1", MenuChoice::CustomerList, {.customer = CustomerMode::List}},
      {"Print", "cmdMENU4_0", MenuChoice::PrintWorksheet, {.print = PrintMode::Worksheet}},
      // Only one panel may remember a task when this one is over.
      {"Print", "cmdMENU4_1", MenuChoice::PrintEstimate, printed, {.print = PrintMode::Estimate}},
      {"Print", "cmdMENU4_2", MenuChoice::PrintEstimateList, {.print = PrintMode::EstimateList}},
      {"Print", "cmdMENU4_3", MenuChoice::PrintCustomerList, {.print = PrintMode::Customer}},
      {"Utility", "cmdMENU5_0", MenuChoice::CompanyInformation, {.utility = UtilityMode::Company}, {}},
      {"Utility", "cmdMENU5_1", MenuChoice::MaterialDefaults, {}},
      {"Utility", "cmdMENU5_2", MenuChoice::Prices, {}},
      {"Utility", "cmdMENU5_3", MenuChoice::WasteFactors, {}},
      {"Utility", "cmdBackups", MenuChoice::Backups, {}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.button);
    menu.ShowMenu(row.menu);
    const std::string shown = Shown();
    tasks.clear();
    Click(menu, row.button);
    EXPECT_EQ(tasks, std::vector{row.choice});
    EXPECT_EQ(modesInTask, row.during);
    EXPECT_EQ(menu.Modes(), row.after);
    EXPECT_EQ(Shown(), shown);
    EXPECT_EQ(Focus(), std::string(FindMenu(row.menu)->buttons) + "_0");
    // Coming back to the front from another program shows the menu of the task as well.
    const auto panel = MenuOfModes(menu.Modes());
    EXPECT_EQ(panel.value_or(FindMenu(row.menu)->menu), FindMenu(row.menu)->menu);
    menu.ShowMenu("nothing");
    QWidget other;
    ShowActive(other);
    ShowActive(menu);
    EXPECT_EQ(Shown(), panel ? shown : "");
    menu.ShowMenu(row.menu);
    session.CustomerSearchText = "OAK";
    Keys("<Esc>");
    EXPECT_EQ(Shown(), "pctMainMenu:Main Menu ");
    EXPECT_EQ(menu.Modes(), MenuModes{});
    EXPECT_EQ(session.CustomerSearchText, "") << "a search ends with the way back";
  }
}

TEST_F(frmMenuTest, NothingOnFileAndAnErrorAreOneMessageAndTheMenuStays) {
  const FileError error("customer.db", "Input/output error");
  inTask = [&] { throw error; };
  const struct {
    const char* menu;
    const char* button;
    std::string notice;
  } rows[] = {{"Estimate", "cmdMENU2_1", kNoEstimates},
              {"Customer", "cmdMENU3_0", kNoCustomers},
              {"Print", "cmdMENU4_1", kNoEstimates},
              {"Utility", "cmdMENU5_2", FileErrorNotice(error)}};
  for (const auto& row : rows) {
    menu.ShowMenu(row.menu);
    const std::string shown = Shown();
    asked.Expect(row.notice);
    Click(menu, row.button);
    asked.ExpectAllAsked();
    EXPECT_EQ(Shown(), shown);
    EXPECT_EQ(Focus(), std::string(FindMenu(row.menu)->buttons) + "_0");
  }
  EXPECT_EQ(tasks, std::vector{MenuChoice::Prices});
}

TEST_F(frmMenuTest, EnterRunsTheFocusedButtonAndLeavingAsksFirst) {
  const std::string main = "pctMainMenu:Main Menu cmdMENU1_";
  const auto see = [this] { return menu.isVisible() ? Shown() + Focus() : std::string(); };
  TakeSteps({{"u<Return>", "pctUtilityMenu:Utility Menu cmdMENU5_0"},
             {"<Esc>", main + "0"},
             {"<Right><Space>", "pctCustMenu:Customer Menu cmdMENU3_0"},
             {"x<Enter>", main + "0"},
             {"<Esc>", main + "0", kLeave, Answer::No},
             {"x<Return>", main + "4", kLeave, Answer::No},
             {"p<Return>lc", "pctPrintMenu:Print Menu cmdMENU4_3"},
             {kCloseWindow, "pctPrintMenu:Print Menu cmdMENU4_3", kLeave, Answer::No}},
            asked, see);
  for (const char* const way : {"x<Return>", "<Esc>", kCloseWindow}) {
    menu.ShowMenu("Main");
    ShowActive(menu);
    TakeSteps({{way, "", kLeave, Answer::Yes}}, asked, see);
  }
}

TEST(MenuTable, TheCustomerMenuForgetsItsLastTask) {
  MenuModes modes{.estimate = EstimateMode::New, .customer = CustomerMode::List};
  BeginChoice(modes, MenuChoice::CustomerMenu);
  EXPECT_EQ(modes, MenuModes{.estimate = EstimateMode::New});
}

// The whole way, with the program's own tasks.
TEST_F(DesktopTest, TheFirstCustomerAndTheCompanyAreEnteredFromTheMenu) {
  frmMenu menu{program, [this](MenuChoice choice, QWidget* form) { RunTask(program, choice, form); }};
  ShowActive(menu);
  menu.ShowMenu("Estimate");
  FormScript()
      .Then<frmAddress>([](frmAddress& form) {
        Type(form, "txtAddress_1", "Hill Homes");
        Click(form, "cmdAddress_5");
      })
      .Then<frmChecklst>([](frmChecklst& form) {
        EXPECT_EQ(Text(form, "txtcustnum") + Text(form, "txtCustName"), "1Hill Homes");
        EXPECT_EQ(Focus(), "txtPlanNbr");
        Keys("<Esc>");
      })
      // Without a customer, the plan has none.
      .Then<frmAddress>([](frmAddress&) { Keys("<Esc>"); })
      .Then<frmChecklst>([](frmChecklst& form) {
        EXPECT_EQ(Text(form, "txtcustnum") + Text(form, "txtCustName"), "");
        Keys("<Esc>");
      })
      .Run([&] {
        Click(menu, "cmdMENU2_0");
        Click(menu, "cmdMENU2_0");
      });
  menu.ShowMenu("Utility");
  DriveModal<frmAddress>([&] { Click(menu, "cmdMENU5_0"); },
                         [](frmAddress& form) {
                           EXPECT_EQ(form.windowTitle(), QStringLiteral("Company Information"));
                           Type(form, "txtAddress_1", "Norvale Lumber");
                           Click(form, "cmdAddress_5");
                         });
  EXPECT_EQ(OnDisk(0).CustomerName.Trimmed(), "Norvale Lumber");
  EXPECT_EQ(session.CompanyRecord, OnDisk(0));
  EXPECT_EQ(CustomersOnDisk(), (Customers{{1, "Hill Homes"}}));
  menu.ShowMenu("Customer");
  DriveModal<frmAddress>([&] { Click(menu, "cmdMENU3_0"); },
                         [](frmAddress& form) {
                           EXPECT_EQ(Text(form, "txtAddress_1"), "Hill Homes");
                           Keys("<Esc>");
                         });
}

}  // namespace
}  // namespace norvale
