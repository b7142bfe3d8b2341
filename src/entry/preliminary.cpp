#include "entry/preliminary.h"

#include "base/numbers.h"
#include "data/plan_type.h"
#include "entry/field_rules.h"
#include "entry/number_entry.h"
#include "entry/screens.h"

namespace norvale {

namespace {

constexpr std::array<std::string_view, kFootages> kCaptions = {
    "Square footage of heated area first floor:", "Square footage of all porches:",    "Square footage of carport:",
    "Square footage of garage/storage:",          "Pitch of roof in inches per foot:", "Total linear footage of eaves:",
    "Total lineal footage of rakes with fascia:", "Roof overhang in inches:",          "Total number of gables from all elevations:",
};

double ValueOf(const PreliminarySheet& sheet, Footage box) {
  const auto index = static_cast<std::size_t>(box);
  return sheet.enabled[index] ? Val(sheet.txtfootage[index]) : 0.0;
}

std::string Enter(std::string& text) {
  const NumberEntry entry = EnterNumber(text);
  text = entry.text;
  return entry.message;
}

}  // namespace

std::string_view CaptionOf(Footage box) { return kCaptions[static_cast<std::size_t>(box)]; }

PreliminarySheet OpenPreliminarySheet(std::int16_t planType) {
  PreliminarySheet sheet;
  sheet.enabled.fill(true);
  const auto open = [&sheet](Footage box, bool has) { sheet.enabled[static_cast<std::size_t>(box)] = has; };
  open(Footage::Porches, (planType & kPorch) != 0);
  open(Footage::Carport, (planType & kCarport) != 0);
  open(Footage::Garage, (planType & kAttachedGarage) != 0);
  return sheet;
}

std::string LeaveFootage(PreliminarySheet& sheet, Footage box) {
  std::string& text = sheet.Text(box);
  if (box == Footage::Overhang) {
    std::string rounded = text;
    return Enter(rounded);
  }
  std::string message = Enter(text);
  if (box != Footage::Gables) return message;
  const double count = Val(text);
  if (count > kMostGables) return std::string(kEntryTooLarge);
  sheet.GableWidths.resize(static_cast<std::size_t>(count));
  return message;
}

std::string LeaveGableWidth(PreliminarySheet& sheet, std::size_t gable) { return Enter(sheet.GableWidths[gable]); }

std::optional<std::size_t> FirstGableWithoutWidth(const PreliminarySheet& sheet) {
  for (std::size_t gable = 0; gable < sheet.GableWidths.size(); ++gable)
    if (Val(sheet.GableWidths[gable]) == 0) return gable;
  return std::nullopt;
}

Preliminary ComputePreliminary(const PreliminarySheet& sheet) {
  const double heated = ValueOf(sheet, Footage::HeatedArea);
  const double porches = ValueOf(sheet, Footage::Porches);
  const double carport = ValueOf(sheet, Footage::Carport);
  const double garage = ValueOf(sheet, Footage::Garage);
  const double pitch = ValueOf(sheet, Footage::Pitch);
  const double eaves = ValueOf(sheet, Footage::Eaves);
  const double rakes = ValueOf(sheet, Footage::Rakes);
  const double overhang = ValueOf(sheet, Footage::Overhang);

  const double halfRakes = rakes / 2;
  const double rise = pitch * halfRakes / 12;
  const double slope = Sqr(rise * rise + halfRakes * halfRakes);
  const double fascia = slope + slope + eaves;

  // The building as a square, seen from half its side.
  const double half = Sqr(heated * 1.02 + garage + carport + porches) * 0.5;
  const double roofRise = pitch * half / 12;
  const double roofSlope = Sqr(roofRise * roofRise + half * half);
  const double roof = (half + half) * roofSlope + (half + half) * roofSlope + (24 * fascia) / 12 + 0.5;

  double gables = 0;
  for (const std::string& text : sheet.GableWidths) {
    const double width = Val(text);
    gables += pitch * (width / 2) / 12 * (width / 2);
  }

  const int overhangRow = overhang > 20.0 ? 2 : (overhang > 14.5 && overhang < 20.0 ? 1 : 0);
  return {.EavesLft = RoundEven(eaves),
          .overhangRow = overhangRow,
          .fascia = Int(fascia),
          .roofArea = Int(roof),
          .heatedArea = RoundEven(heated),
          .garageArea = RoundEven(garage),
          .carportArea = RoundEven(carport + porches),
          .gableArea = Int(gables + 0.5)};
}

std::optional<PreliminaryRefusal> RefusalOfPreliminary(const Preliminary& result) {
  struct Limit {
    double value;
    Footage from;
  };
  const std::array<Limit, 7> limits = {{
      {result.heatedArea, Footage::HeatedArea},
      {result.garageArea, Footage::Garage},
      {result.carportArea, Footage::Carport},
      {result.EavesLft, Footage::Eaves},
      {result.fascia, Footage::Rakes},
      {result.roofArea, Footage::HeatedArea},
      {result.gableArea, Footage::Gables},
  }};
  for (const Limit& limit : limits) {
    if (limit.value > kLargestEntry) return PreliminaryRefusal{.focus = limit.from, .message = std::string(kEntryTooLarge)};
    if (limit.value < 0) return PreliminaryRefusal{.focus = limit.from, .message = std::string(kEntryTooSmall)};
  }
  return std::nullopt;
}

void HandOver(const Preliminary& result, PlanForm& form, EstimateRecord& plan) {
  plan.EavesLft = static_cast<std::int16_t>(result.EavesLft);
  SelectRow(form, SelectionList::RoofOverhang, result.overhangRow);
  SetNumberText(form, NumberBox::FasciaLft, Digits(result.fascia));
  SetNumberText(form, NumberBox::RoofSqFt, Digits(result.roofArea));
  SetNumberText(form, NumberBox::HeatedSqFtFirstFloor, Digits(result.heatedArea));
  SetNumberText(form, NumberBox::GarageSqFt, Digits(result.garageArea));
  SetNumberText(form, NumberBox::CarportSqFt, Digits(result.carportArea));
  SetNumberText(form, NumberBox::GableSqFt, Digits(result.gableArea));
  ComputeLengths(form);
}

}  // namespace norvale
