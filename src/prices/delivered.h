// What the program is delivered with: screen lines, material lists, price list and waste factors, read from the tables
// in `delivered/` that the build puts into the program, and written as the files of a fresh working folder.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "prices/material_lists.h"
#include "prices/price_list.h"
#include "prices/screen_lines.h"
#include "prices/waste_factors.h"

namespace norvale {

/// One waste item as it is delivered.
struct WasteItem {
  int item = 0;       // 0 to 94, the number that a take-off row names
  std::string label;  // as the form for waste factors shows it
  std::string panel;  // the panel of that form on which it stands
  int value = 0;      // the percentage while the dealer has stored none
};

/// The 95 waste items in the order in which the form shows them. Throws std::runtime_error where the table is unusable.
const std::vector<WasteItem>& DeliveredWasteItems();

/// The rows of all material lists, each list closed by its "List End".
const std::vector<MaterialRow>& DeliveredMaterialRows();

/// The 94 lines of the data-entry screens.
const std::vector<ScreenLine>& DeliveredScreenLines();

/// The delivered price list.
const PriceList& DeliveredPrices();

/// The bytes of `NVdata01.idx`, `NVdata02.idx` and `NVdata03.db` as they are delivered.
std::string DeliveredScreenFile();
std::string DeliveredMaterialFile();
std::string DeliveredPriceFile();

}  // namespace norvale
