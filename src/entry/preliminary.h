// The preliminary measurements of a new plan: nine rough measures from which the data-entry form gets its first values.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/estimate_record.h"
#include "entry/form_fields.h"

namespace norvale {

/// The boxes in the order of the sheet.
enum class Footage : std::size_t { HeatedArea, Porches, Carport, Garage, Pitch, Eaves, Rakes, Overhang, Gables };
inline constexpr std::size_t kFootages = 9;

/// The most gables that the sheet has a box for.
inline constexpr int kMostGables = 40;

std::string_view CaptionOf(Footage box);

struct PreliminarySheet {
  std::array<std::string, kFootages> txtfootage;
  std::array<bool, kFootages> enabled{};  // a part that the plan type lacks is shut
  std::vector<std::string> GableWidths;   // feet; one box for each gable, in order of entry

  [[nodiscard]] const std::string& Text(Footage box) const { return txtfootage[static_cast<std::size_t>(box)]; }
  [[nodiscard]] std::string& Text(Footage box) { return txtfootage[static_cast<std::size_t>(box)]; }
};

/// An empty sheet for a plan type.
PreliminarySheet OpenPreliminarySheet(std::int16_t planType);

/// Applies the rules for a box that is left and returns the message with which the focus goes back, empty for none. The
/// overhang stays as typed: its limits hold for what was measured. The number of gables makes as many boxes for widths;
/// widths that are there already stay.
std::string LeaveFootage(PreliminarySheet& sheet, Footage box);

/// The same for the width of gable `gable` (from 0).
std::string LeaveGableWidth(PreliminarySheet& sheet, std::size_t gable);

/// The first gable (from 0) that still lacks its width. OK asks for it once, with `kEntryRequired`, and then counts it as 0.
std::optional<std::size_t> FirstGableWithoutWidth(const PreliminarySheet& sheet);

/// What the sheet comes to. A shut box counts as 0. Whole numbers, not yet held to what a plan can keep.
struct Preliminary {
  double EavesLft = 0;
  int overhangRow = 0;  // of the roof overhangs: 0, 1 above 14.5 and below 20 inches, 2 above 20
  double fascia = 0;
  double roofArea = 0;
  double heatedArea = 0;
  double garageArea = 0;
  double carportArea = 0;  // with the porches
  double gableArea = 0;
};
Preliminary ComputePreliminary(const PreliminarySheet& sheet);

/// What keeps the sheet from being handed over: a result that a plan cannot keep, and the box it comes from most.
struct PreliminaryRefusal {
  Footage focus;
  std::string message;  // lacks its title
};
std::optional<PreliminaryRefusal> RefusalOfPreliminary(const Preliminary& result);

/// Said before the sheet is opened for a plan that has its figures already. OK: the sheet.
inline constexpr std::string_view kPreliminaryNotice =
    "3 The preliminary sheet puts what it computes in place of what stands here: the eaves, the roof overhang, the fascia, the areas of "
    "the roof, the gables, the first floor, the garage and the carport.|prelim measurements";

/// Puts results that are not refused into the form, as if they were typed, and the eaves into the record. What follows from
/// the heated area follows at once.
void HandOver(const Preliminary& result, PlanForm& form, EstimateRecord& plan);

}  // namespace norvale
