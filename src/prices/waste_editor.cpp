#include "prices/waste_editor.h"

#include <algorithm>

#include "base/files.h"
#include "base/numbers.h"
#include "base/text.h"
#include "prices/delivered.h"

namespace norvale {

namespace {

// Whether the text is the number and nothing else, as "+5" and "5.0" are for 5, and an empty text for 0.
bool Says(std::string_view text, int percent) {
  const std::string_view number = Trim(text);
  std::string_view digits = number;
  if (!digits.empty() && (digits.front() == '+' || digits.front() == '-')) digits.remove_prefix(1);
  const bool isNumber = digits.find_first_not_of(".0123456789") == std::string_view::npos && std::ranges::count(digits, '.') <= 1;
  return isNumber && Val(number) == percent;
}

}  // namespace

WasteTexts OpenWasteFactors(Disk& disk, const std::filesystem::path& folder) {
  if (!disk.Open(folder / kWasteFileName, Opening::Read)) (void)disk.Open(folder / kWasteFileName, Opening::Create);
  const WasteFactors factors = LoadWasteFactors(folder);
  WasteTexts texts;
  std::transform(factors.percent.begin(), factors.percent.end(), texts.begin(),
                 [](std::int16_t percent) { return std::to_string(percent); });
  return texts;
}

int StoredPercent(std::string_view text) { return static_cast<int>(RoundEven(std::clamp(Val(text), -100.0, 100.0))); }

std::vector<std::string> StoreWasteFactors(Disk& disk, const std::filesystem::path& folder, const WasteTexts& texts) {
  WasteFactors factors;
  std::vector<std::string> changes;
  for (const WasteItem& item : DeliveredWasteItems()) {
    const auto i = static_cast<std::size_t>(item.item);
    const int percent = StoredPercent(texts[i]);
    factors.percent[i] = static_cast<std::int16_t>(percent);
    if (!Says(texts[i], percent)) changes.push_back(item.label + ": \"" + texts[i] + "\" was stored as " + std::to_string(percent));
  }
  ReplaceFile(disk, folder / kWasteFileName, EncodeWasteFactors(factors));
  return changes;
}

}  // namespace norvale
