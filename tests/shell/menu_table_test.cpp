#include "shell/menu_table.h"

#include <gtest/gtest.h>

#include <string>

namespace norvale {
namespace {

TEST(MenuTable, NamesAreFoundInAnyCase) {
  for (const char* const name : {"MAIN", "Main", "estimate", "Customer", "pRiNt", "Utility"}) EXPECT_NE(FindMenu(name), nullptr) << name;
  for (const char* const name : {"", "Mai", "Main ", "Exit"}) EXPECT_EQ(FindMenu(name), nullptr) << name;
  EXPECT_EQ(FindMenu("Utility")->panel, "pctUtilityMenu");
}

TEST(MenuTable, LettersMoveToTheirButtons) {
  const struct {
    const char* menu;
    std::string keys;    // by button; a blank: no letter
    const char* noKeys;  // letters of the hint, and others, that are none
  } rows[] = {
      {"Main", "ECPUX", "SAZ"}, {"Estimate", "WEX", "NP"}, {"Customer", "ELX", "CW"}, {"Print", "WELCX", "PU"}, {"Utility", "ILM X", "CWP"},
  };
  for (const auto& row : rows) {
    const MenuPanel& panel = *FindMenu(row.menu);
    ASSERT_EQ(panel.row.size(), row.keys.size()) << row.menu;
    for (std::size_t i = 0; i < row.keys.size(); ++i) {
      if (row.keys[i] == ' ') continue;
      const auto upper = static_cast<char32_t>(row.keys[i]);
      EXPECT_EQ(ButtonForKey(panel, upper), i) << row.menu << row.keys[i];
      EXPECT_EQ(ButtonForKey(panel, upper + ('a' - 'A')), i) << row.menu << row.keys[i];
    }
    for (const char* key = row.noKeys; *key != '\0'; ++key)
      EXPECT_EQ(ButtonForKey(panel, static_cast<char32_t>(*key)), std::nullopt) << row.menu << *key;
    EXPECT_EQ(ButtonForKey(panel, U'\0'), std::nullopt);
    EXPECT_EQ(ButtonForKey(panel, U' '), std::nullopt);
  }
}

// Behind the letters of its buttons the Utility menu has one for the link.
TEST(MenuTable, TheLinkHasALetter) {
  const MenuPanel& panel = *FindMenu("Utility");
  EXPECT_EQ(ButtonForKey(panel, U'b'), panel.row.size());
  EXPECT_EQ(ButtonForKey(*FindMenu("Main"), U'b'), std::nullopt);
}

// A letter far above the alphabet must not be taken for one within it.
TEST(MenuTable, OtherScriptsAreNoKeys) {
  for (const char32_t key : {U'\u0445', U'\u0415', U'\u0105', U'1', U'{'}) EXPECT_EQ(ButtonForKey(MenuPanels()[0], key), std::nullopt);
}

TEST(MenuTable, HintsStayAsTheyAre) {
  EXPECT_EQ(FindMenu("Main")->hint, " E,C,P,S,X ");
  EXPECT_EQ(FindMenu("Estimate")->hint, " N,E,X ");
  EXPECT_EQ(FindMenu("Utility")->hint, " I,L,C,X ");
}

TEST(MenuTable, ATaskLeavesItsMenuBehind) {
  const struct {
    MenuChoice choice;
    MenuModes during;
    MenuModes after;
    std::optional<Menu> menu;
  } rows[] = {
      {MenuChoice::NewEstimate, {.estimate = EstimateMode::New}, {.estimate = EstimateMode::New}, Menu::Estimate},
      {MenuChoice::ExistingEstimate, {.estimate = EstimateMode::Existing}, {.estimate = EstimateMode::Existing}, Menu::Estimate},
      {MenuChoice::ExistingCustomer, {.customer = CustomerMode::Existing}, {.customer = CustomerMode::Existing}, Menu::Customer},
      {MenuChoice::CustomerList, {.customer = CustomerMode::List}, {.customer = CustomerMode::List}, Menu::Customer},
      {MenuChoice::PrintWorksheet, {.print = PrintMode::Worksheet}, {.print = PrintMode::Worksheet}, Menu::Print},
      // Only one panel may remember a task when this one is over.
      {MenuChoice::PrintEstimate,
       {.estimate = EstimateMode::Existing, .print = PrintMode::Estimate},
       {.print = PrintMode::Estimate},
       Menu::Print},
      {MenuChoice::PrintEstimateList, {.print = PrintMode::EstimateList}, {.print = PrintMode::EstimateList}, Menu::Print},
      {MenuChoice::PrintCustomerList, {.print = PrintMode::Customer}, {.print = PrintMode::Customer}, Menu::Print},
      {MenuChoice::CompanyInformation, {.utility = UtilityMode::Company}, {}, std::nullopt},
      {MenuChoice::Prices, {}, {}, std::nullopt},
  };
  for (const auto& row : rows) {
    MenuModes modes;
    BeginChoice(modes, row.choice);
    EXPECT_EQ(modes, row.during) << static_cast<int>(row.choice);
    EndChoice(modes, row.choice);
    EXPECT_EQ(modes, row.after) << static_cast<int>(row.choice);
    EXPECT_EQ(MenuOfModes(modes), row.menu) << static_cast<int>(row.choice);
    BeginChoice(modes, MenuChoice::MainMenu);
    EXPECT_EQ(modes, MenuModes{}) << static_cast<int>(row.choice);
  }
}

TEST(MenuTable, TheCustomerMenuForgetsItsLastTask) {
  MenuModes modes{.estimate = EstimateMode::New, .customer = CustomerMode::List};
  BeginChoice(modes, MenuChoice::CustomerMenu);
  EXPECT_EQ(modes, MenuModes{.estimate = EstimateMode::New});
}

}  // namespace
}  // namespace norvale
