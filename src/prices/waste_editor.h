// The rules of the form for the waste factors: which items stand on which panel, and what typed texts are stored as.
//
// Texts are UTF-8.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/disk.h"
#include "prices/waste_factors.h"

namespace norvale {

/// One of the five panels of the form.
struct WastePanel {
  std::string_view name;     // as the delivered table names it
  std::string_view button;   // the button that shows it
  std::string_view caption;  // on that button
  std::string_view title;    // over the panel
};
inline constexpr std::array<WastePanel, 5> kWastePanels = {{
    {"pct1st", "cmd1st", "1st Floor", "1st Floor"},
    {"pct2nd", "cmd2nd", "2nd Floor", "2nd Floor"},
    {"pctRoof", "cmdroof", "Roof", "Roof System"},
    {"pctTrim", "cmdextrim", "Exterior && Trim", "Exterior && Trim"},
    {"pctFSIT", "cmdFSIT", "Flooring, Sheet rock, Interior Trim", "Flooring, Sheetrock, Interior Trim"},
}};

/// What is typed into the boxes, index = item number.
using WasteTexts = std::array<std::string, kWasteItems>;

/// Reads the factors of a working folder; a missing file is made, empty. Throws FileError.
WasteTexts OpenWasteFactors(Disk& disk, const std::filesystem::path& folder);

/// The percentage that a text is stored as: its leading number between -100 and 100, a half to the even neighbour.
int StoredPercent(std::string_view text);

/// Writes the percentages and returns what the operator should know of it: one line for each text that does not say what
/// was stored. Throws FileError and leaves the old file.
std::vector<std::string> StoreWasteFactors(Disk& disk, const std::filesystem::path& folder, const WasteTexts& texts);

}  // namespace norvale
