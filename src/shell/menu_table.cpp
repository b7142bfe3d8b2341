#include "shell/menu_table.h"

#include <algorithm>

#include "base/text.h"

namespace norvale {

namespace {

// The keys are what the operators' fingers know. Where a hint's letter is another one, the hint is the one that is wrong,
// and stays so.
// clang-format off
constexpr MenuButton kMainButtons[] = {
    {"Estimate", "Enter a house plan or open one again",     'E', "estimate", MenuChoice::EstimateMenu},
    {"Customer", "Names, addresses and numbers",             'C', "customer", MenuChoice::CustomerMenu},
    {"Print",    "Worksheets, estimates and lists",          'P', "print",    MenuChoice::PrintMenu},
    {"Utility",  "Company, materials, prices and waste",     'U', "utility",  MenuChoice::UtilityMenu},
    {"Exit",     "Leave the program",                        'X', "exit",     MenuChoice::LeaveProgram},
};
constexpr MenuButton kEstimateButtons[] = {
    {"New",      "Pick a customer and enter a new plan",     'W', "new",      MenuChoice::NewEstimate},
    {"Existing", "Open, change or copy a plan on file",      'E', "open",     MenuChoice::ExistingEstimate},
    {"Exit",     "Back to the main menu",                    'X', "back",     MenuChoice::MainMenu},
};
constexpr MenuButton kCustomerButtons[] = {
    {"Existing", "Find, change, add or delete customers",    'E', "customer", MenuChoice::ExistingCustomer},
    {"List",     "Print the customer list",                  'L', "list",     MenuChoice::CustomerList},
    {"Exit",     "Back to the main menu",                    'X', "back",     MenuChoice::MainMenu},
};
constexpr MenuButton kPrintButtons[] = {
    {"Worksheet",     "A blank form for the measurements",   'W', "worksheet", MenuChoice::PrintWorksheet},
    {"Estimate",      "The material list of a plan on file", 'E', "estimate",  MenuChoice::PrintEstimate},
    {"Estimate list", "All plans on file",                   'L', "list",      MenuChoice::PrintEstimateList},
    {"Customer list", "All customers on file",               'C', "customer",  MenuChoice::PrintCustomerList},
    {"Exit",          "Back to the main menu",               'X', "back",      MenuChoice::MainMenu},
};
constexpr MenuButton kUtilityButtons[] = {
    {"Company information", "The heading of every estimate", 'I', "company",   MenuChoice::CompanyInformation},
    {"Material defaults",   "The lists on the entry screens", 'L', "materials", MenuChoice::MaterialDefaults},
    {"Prices",              "The price list",                'M', "prices",    MenuChoice::Prices},
    {"Waste factors",       "Percentages added for waste",   '\0', "waste",    MenuChoice::WasteFactors},
    {"Exit",                "Back to the main menu",         'X', "back",      MenuChoice::MainMenu},
};
constexpr MenuButton kUtilityLink =
    {"Backups",             "Bring an earlier state back",   'B', "",          MenuChoice::Backups};

constexpr std::array<MenuPanel, 5> kPanels = {{
    {Menu::Main,     "MAIN",     "pctMainMenu",    "cmdMENU1", "Main Menu ",     " E,C,P,S,X ", kMainButtons},
    {Menu::Estimate, "ESTIMATE", "pctEstMenu",     "cmdMENU2", "Estimate Menu ", " N,E,X ",     kEstimateButtons},
    {Menu::Customer, "CUSTOMER", "pctCustMenu",    "cmdMENU3", "Customer Menu ", " E,L,X ",     kCustomerButtons},
    {Menu::Print,    "PRINT",    "pctPrintMenu",   "cmdMENU4", "Print Menu ",    " W,E,L,C,X ", kPrintButtons},
    {Menu::Utility,  "UTILITY",  "pctUtilityMenu", "cmdMENU5", "Utility Menu ",  " I,L,C,X ",   kUtilityButtons, &kUtilityLink},
}};
// clang-format on

constexpr bool IsSound(const MenuPanel& panel) {
  for (std::size_t i = 0; i < panel.row.size(); ++i)
    for (std::size_t other = 0; other < i; ++other)
      if (panel.row[i].key != '\0' && panel.row[i].key == panel.row[other].key) return false;
  if (panel.link != nullptr &&
      std::any_of(panel.row.begin(), panel.row.end(), [&](const MenuButton& button) { return button.key == panel.link->key; }))
    return false;
  const MenuChoice last = panel.row.back().choice;
  return last == (panel.menu == Menu::Main ? MenuChoice::LeaveProgram : MenuChoice::MainMenu);
}
static_assert(std::all_of(kPanels.begin(), kPanels.end(), IsSound), "one key for one button, and the way out last");

}  // namespace

const std::array<MenuPanel, 5>& MenuPanels() { return kPanels; }

const MenuPanel* FindMenu(std::string_view name) {
  const auto* const found =
      std::find_if(kPanels.begin(), kPanels.end(), [upper = UpperCase(name)](const MenuPanel& panel) { return panel.name == upper; });
  return found == kPanels.end() ? nullptr : found;
}

std::optional<std::size_t> ButtonForKey(const MenuPanel& panel, char32_t key) {
  const char32_t upper = key >= U'a' && key <= U'z' ? key - U'a' + U'A' : key;
  if (upper < U'A' || upper > U'Z') return std::nullopt;
  for (std::size_t i = 0; i < panel.row.size(); ++i)
    if (static_cast<char32_t>(panel.row[i].key) == upper) return i;
  if (panel.link != nullptr && static_cast<char32_t>(panel.link->key) == upper) return panel.row.size();
  return std::nullopt;
}

void BeginChoice(MenuModes& modes, MenuChoice choice) {
  switch (choice) {
    case MenuChoice::CustomerMenu:
      modes.customer = CustomerMode::None;
      break;
    case MenuChoice::MainMenu:
      modes = {};
      break;
    case MenuChoice::NewEstimate:
      modes.estimate = EstimateMode::New;
      break;
    case MenuChoice::ExistingEstimate:
      modes.estimate = EstimateMode::Existing;
      break;
    case MenuChoice::ExistingCustomer:
      modes.customer = CustomerMode::Existing;
      break;
    case MenuChoice::CustomerList:
      modes.customer = CustomerMode::List;
      break;
    case MenuChoice::PrintWorksheet:
      modes.print = PrintMode::Worksheet;
      break;
    case MenuChoice::PrintEstimate:
      modes.print = PrintMode::Estimate;
      modes.estimate = EstimateMode::Existing;  // the checklist opens on the plans on file
      break;
    case MenuChoice::PrintEstimateList:
      modes.print = PrintMode::EstimateList;
      break;
    case MenuChoice::PrintCustomerList:
      modes.print = PrintMode::Customer;
      break;
    case MenuChoice::CompanyInformation:
      modes.utility = UtilityMode::Company;
      break;
    case MenuChoice::EstimateMenu:
    case MenuChoice::PrintMenu:
    case MenuChoice::UtilityMenu:
    case MenuChoice::LeaveProgram:
    case MenuChoice::MaterialDefaults:
    case MenuChoice::Prices:
    case MenuChoice::WasteFactors:
    case MenuChoice::Backups:
      break;
  }
}

void EndChoice(MenuModes& modes, MenuChoice choice) {
  if (choice == MenuChoice::PrintEstimate) modes.estimate = EstimateMode::None;  // or two panels would remember a task
  if (choice == MenuChoice::CompanyInformation) modes.utility = UtilityMode::None;
}

std::optional<Menu> MenuOfModes(const MenuModes& modes) {
  if (modes.estimate != EstimateMode::None) return Menu::Estimate;
  if (modes.customer != CustomerMode::None) return Menu::Customer;
  if (modes.print != PrintMode::None) return Menu::Print;
  if (modes.utility != UtilityMode::None) return Menu::Utility;
  return std::nullopt;
}

}  // namespace norvale
