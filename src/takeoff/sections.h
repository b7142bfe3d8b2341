// The sections of the itemised list: one table, which the run, the print dialog and the order summary walk.
#pragma once

#include <algorithm>
#include <bit>
#include <string_view>

#include "takeoff/takeoff_run.h"

namespace norvale {

/// The sheet of the plan's main facts ahead of the list. Nothing on it is priced or adjusted.
void PrintSpecifications(TakeoffRun& run);

// The rows of each section, each in a file of its own.
void FirstFloorFloorRows(TakeoffRun& run);
void FirstFloorWallRows(TakeoffRun& run);
void SecondFloorFloorRows(TakeoffRun& run);
void SecondFloorWallRows(TakeoffRun& run);
void RoofRows(TakeoffRun& run);
void ExteriorTrimRows(TakeoffRun& run);
void FlooringRows(TakeoffRun& run);
void SheetrockRows(TakeoffRun& run);
void InteriorTrimRows(TakeoffRun& run);

/// What a house must have for a section to be listed: a framed first floor, an upper floor, an inside that is to be finished,
/// or in that a floor to cover.
enum class HousePart { Always, FramedFloor, SecondFloor, Interior, CoveredFloor };

bool HasPart(const EstimateRecord& plan, HousePart part);

/// One section.
struct Section {
  int bit;                   // in the section mask
  std::string_view heading;  // over its rows and in its subtotal
  std::size_t column;        // of the heading on the page
  std::string_view caption;  // of its box in the print dialog
  std::string_view code;     // in the order summary
  HousePart part;
  void (*rows)(TakeoffRun&);
};

// clang-format off
/// The sections in the order of print.
inline constexpr Section kSections[] = {
    {  1, "1st FLOOR - FLOOR SYSTEM", 29, "1st floor - Floor System", "1F", HousePart::FramedFloor,  FirstFloorFloorRows},
    {  2, "1st FLOOR - WALL SYSTEM",  29, "1st floor - Wall System",  "1W", HousePart::Always,       FirstFloorWallRows},
    {  4, "2nd FLOOR - FLOOR SYSTEM", 29, "2nd floor - Floor System", "2F", HousePart::SecondFloor,  SecondFloorFloorRows},
    {  8, "2nd FLOOR - WALL SYSTEM",  30, "2nd floor - Wall System",  "2W", HousePart::SecondFloor,  SecondFloorWallRows},
    { 16, "ROOF SYSTEM",              35, "Roof System",              "RF", HousePart::Always,       RoofRows},
    {256, "EXTERIOR TRIM",            34, "exterior Trim",            "ET", HousePart::Always,       ExteriorTrimRows},
    { 32, "FLOORING",                 29, "Flooring",                 "FL", HousePart::CoveredFloor, FlooringRows},
    { 64, "SHEETROCK",                29, "Sheetrock",                "SR", HousePart::Interior,     SheetrockRows},
    {128, "INTERIOR TRIM",            29, "Interior Trim",            "IT", HousePart::Interior,     InteriorTrimRows},
};
// clang-format on

constexpr int SumOfBits() {
  int sum = 0;
  for (const Section& section : kSections) sum += section.bit;
  return sum;
}

// Behind the sections, the mask has a bit for the specifications sheet and one for the prices.
inline constexpr int kAllSections = SumOfBits();
inline constexpr int kSpecifications = kAllSections + 1;
inline constexpr int kWithPrices = kSpecifications * 2;
inline constexpr int kWholeMask = kWithPrices * 2 - 1;
static_assert(kSpecifications == 1 << std::size(kSections) &&
                  std::ranges::all_of(kSections, [](const Section& one) { return std::has_single_bit(static_cast<unsigned>(one.bit)); }),
              "the sections have the lowest bits of the mask, each its own");

/// The section with a heading; null where there is none.
constexpr const Section* FindSection(std::string_view heading) {
  const auto* const found = std::ranges::find(kSections, heading, &Section::heading);
  return found == std::end(kSections) ? nullptr : found;
}

/// Prints a section under its heading where the mask asks for it and the house has its part, and closes it with its subtotal.
void PrintSection(TakeoffRun& run, const Section& section);

}  // namespace norvale
