// The rafters of a small roof, printed from what lies in a working folder.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "base/text.h"
#include "takeoff/print_estimate.h"

namespace norvale {

/// The printed lines of 12-foot rafters under 40 feet of gable roof, in the last of the four delivered species.
inline std::vector<std::string> PrintedRafters(const std::filesystem::path& folder) {
  EstimatePrint print;
  print.date = "01-02-2026";
  print.sectionMask = kRoofSystem;
  print.plan.PlanType = 4;
  print.plan.CeilingJoistLft2X6[0] = 40;  // stick-framed
  print.plan.RoofPlanes[0] = {
      .SectionType = 1, .FramingType = 3, .PitchIndex = 2, .RafterIndex = 1, .SectionLength = 480, .RafterRun = 130};
  Page page;
  PrintEstimate(print, LoadTakeoffData(folder, print.sectionMask), page);
  std::vector<std::string> found;
  std::string text = page.Text();
  for (std::size_t end = 0; (end = text.find('\n')) != std::string::npos; text.erase(0, end + 1))
    if (Has(text.substr(0, end), "(Rafter)")) found.push_back(text.substr(0, end));
  return found;
}

}  // namespace norvale
