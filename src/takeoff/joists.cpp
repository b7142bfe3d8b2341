#include "takeoff/joists.h"

#include "base/text.h"

namespace norvale {

std::string KeyLength(int feet) { return "- " + std::to_string(feet); }

std::string CompleteJoistText(std::string_view recorded) {
  std::string text(recorded);
  if (Has(text, "9 1/2") && Has(text, "19.2")) text = "9 1/2\" PRI-400 19.2\" OC";
  if (Has(text, "11 7/8") && Has(text, "19.2")) text += " OC";
  if (Has(text, "11 7/8") && Has(text, "16")) text += "C";
  if (Has(text, "11 7/8") && Has(text, "24")) text += "C";
  return text;
}

bool IsIJoist(std::string_view joistText) { return Has(joistText, "PRI"); }

std::string IJoistKey(const TakeoffRun& run, std::string_view joistText) {
  for (const std::string_view depth : {"9 1/2", "11 7/8", "14"})
    if (Has(joistText, depth)) return std::string(depth) + "\" PRI-400 I JOIST";
  return run.PriceKey;
}

double JoistsPerFoot(std::string_view joistText) {
  // Held as 32-bit numbers: 0.63 is a little less than it looks, and a bay of 50 feet comes to 31.4999 joists.
  if (Has(joistText, "16")) return 0.75F;
  if (Has(joistText, "19")) return 0.63F;
  if (Has(joistText, "24")) return 0.5F;
  return 0;
}

std::string UpToAndWith(std::string_view text, std::string_view mark) {
  const std::size_t at = text.find(mark);
  return at == std::string_view::npos ? std::string() : std::string(text.substr(0, at + mark.size()));
}

std::string RimBoard(std::string_view joistText) { return UpToAndWith(joistText, "\"") + " X 1 1/8 X 24' RIM BOARD"; }

}  // namespace norvale
