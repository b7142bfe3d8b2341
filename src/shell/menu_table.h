// The five menus: their buttons, their keys, and what each choice leaves behind.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string_view>

namespace norvale {

enum class Menu { Main, Estimate, Customer, Print, Utility };

enum class MenuChoice {
  EstimateMenu,
  CustomerMenu,
  PrintMenu,
  UtilityMenu,
  MainMenu,
  LeaveProgram,
  NewEstimate,
  ExistingEstimate,
  ExistingCustomer,
  CustomerList,
  PrintWorksheet,
  PrintEstimate,
  PrintEstimateList,
  PrintCustomerList,
  CompanyInformation,
  MaterialDefaults,
  Prices,
  WasteFactors,
  Backups,
};

struct MenuButton {
  std::string_view caption;
  std::string_view purpose;  // one line below the caption
  char key;                  // moves the focus to the button; 0: none
  std::string_view picture;  // its file, without folder and ending
  MenuChoice choice;
};

struct MenuPanel {
  Menu menu;
  std::string_view name;     // as `ShowMenu` knows it
  std::string_view panel;    // the control
  std::string_view buttons;  // the array of controls
  std::string_view title;
  std::string_view hint;
  std::span<const MenuButton> row;
  const MenuButton* link = nullptr;  // what is seldom needed: a plain line beside the buttons
};

/// In the order of `Menu`.
const std::array<MenuPanel, 5>& MenuPanels();

/// The menu of that name, in any case; nothing where there is none.
const MenuPanel* FindMenu(std::string_view name);

/// The button that a letter, in any case, moves the focus to. The link counts as one behind the last.
std::optional<std::size_t> ButtonForKey(const MenuPanel& panel, char32_t key);

// Why a task was opened. The panel that opened it remembers.
enum class EstimateMode { None, New, Existing, Loading };
enum class CustomerMode { None, Existing, List };
enum class PrintMode { None, Worksheet, Estimate, EstimateList, Customer };
enum class UtilityMode { None, Company };

struct MenuModes {
  EstimateMode estimate = EstimateMode::None;
  CustomerMode customer = CustomerMode::None;
  PrintMode print = PrintMode::None;
  UtilityMode utility = UtilityMode::None;

  bool operator==(const MenuModes&) const = default;
};

/// The modes with which the choice begins.
void BeginChoice(MenuModes& modes, MenuChoice choice);

/// The modes when its task has returned.
void EndChoice(MenuModes& modes, MenuChoice choice);

/// The menu of the panel that remembers a task; nothing where none does.
std::optional<Menu> MenuOfModes(const MenuModes& modes);

}  // namespace norvale
