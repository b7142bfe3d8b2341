#include "entry/roof.h"

#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"
#include "entry/number_entry.h"

namespace norvale {

namespace {

constexpr std::string_view kMissingRun = "0 Missing Lft of Rafter Run|";
constexpr std::string_view kMissingLength = "0 Missing Lft of Section!|";
constexpr std::string_view kUnreadable = "0 Type a length as 12-6 (feet and inches), 12.5 (feet) or 12 (feet)!|";
constexpr std::string_view kTooManySections = "0 Max of 64 sections already entered!|";
constexpr std::string_view kNoCeilingJoists = "0 Without ceiling joists the rafters of this roof are not listed!|";

constexpr std::array<std::string_view, kRoofTypes> kTypeCaptions = {"Gable Section", "Gable w/ Valley", "Hip Section", "Hip w/ Valley",
                                                                    "Shed Section"};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Digits with at most one point among them, and nothing else.
bool IsPlainNumber(std::string_view text) {
  return std::ranges::any_of(text, IsDigit) && std::ranges::all_of(text, [](char c) { return IsDigit(c) || c == '.'; }) &&
         std::ranges::count(text, '.') <= 1;
}

RoofLength Refused(std::string_view message) { return {.inches = 0, .message = std::string(message)}; }

RoofLength Measured(double inches) {
  if (RoundEven(inches) > kLargestEntry) return Refused(kEntryTooLarge);
  return {.inches = static_cast<int>(RoundEven(inches)), .message = ""};
}

RoofPlane& Current(RoofForm& form) { return form.RoofPlanes[static_cast<std::size_t>(form.CurrentSection) - 1]; }

// A row that a list has; stored rows beyond its end show the last one.
int RowIn(std::uint8_t stored, std::size_t rows) { return static_cast<int>(std::min<std::size_t>(stored, rows - 1)); }

void ShowSection(RoofForm& form, int section) {
  form.CurrentSection = section;
  const RoofPlane shown = section > 0 ? Current(form) : RoofPlane{.SectionType = kGableSection};
  form.optRoof = shown.SectionType;
  form.cboRFType = RowIn(shown.FramingType, kRafterSpecies.size());
  form.cboPitch = RowIn(shown.PitchIndex, kPitches.size());
  form.cboRafter = RowIn(shown.RafterIndex, kRafterSizes.size());
  form.txtSection = ShownLength(shown.SectionLength);
  form.txtRafterRun = ShownLength(shown.RafterRun);
  form.txtloadwall = ShownLength(shown.LoadWallRun);
}

RoofStep Stop(std::string_view message, RoofBox focus) { return {.message = std::string(message), .focus = focus}; }

// Whether the current section may be left.
RoofStep CheckSection(const RoofForm& form) {
  if (form.CurrentSection == 0) return {};
  const RoofLength run = ReadLength(form.txtRafterRun);
  if (!run.message.empty()) return Stop(run.message, RoofBox::txtRafterRun);
  if (run.inches == 0) return Stop(kMissingRun, RoofBox::txtRafterRun);
  const RoofLength length = ReadLength(form.txtSection);
  if (!length.message.empty()) return Stop(length.message, RoofBox::txtSection);
  if (length.inches == 0) return Stop(kMissingLength, RoofBox::txtSection);
  const RoofLength loadWall = ReadLength(form.txtloadwall);
  if (!loadWall.message.empty()) return Stop(loadWall.message, RoofBox::txtloadwall);
  // It may be empty, so that nothing else would tell that a word was not taken.
  if (loadWall.inches == 0 && !Trim(form.txtloadwall).empty() && std::ranges::none_of(form.txtloadwall, IsDigit))
    return Stop(kUnreadable, RoofBox::txtloadwall);
  return {};
}

bool HasCeilingJoists(const RoofForm& form) {
  const auto holds = [](const std::string& text) { return Val(text) != 0; };
  return std::ranges::any_of(form.txtTWOxSIX, holds) || std::ranges::any_of(form.txtTWOxEIGHT, holds);
}

void StoreLength(const std::string& text, std::int16_t& stored) {
  const RoofLength length = ReadLength(text);
  if (length.message.empty()) stored = static_cast<std::int16_t>(length.inches);
}

std::int16_t StoredFeet(const std::string& text) { return static_cast<std::int16_t>(std::clamp(RoundEven(Val(text)), 0.0, kLargestEntry)); }

void CopyRoof(const RoofForm& form, EstimateRecord& plan) {
  plan.RoofPlanes = form.RoofPlanes;
  for (std::size_t row = 0; row < kCeilingJoistRows; ++row) {
    plan.CeilingJoistLft2X6[row] = StoredFeet(form.txtTWOxSIX[row]);
    plan.CeilingJoistLft2X8[row] = StoredFeet(form.txtTWOxEIGHT[row]);
  }
}

}  // namespace

std::string_view CaptionOfRoofType(int type) { return kTypeCaptions[static_cast<std::size_t>(type) - 1]; }

RoofLength ReadLength(std::string_view text) {
  const std::string_view typed = Trim(text);
  if (!typed.empty() && typed.front() == '-' && std::ranges::any_of(typed, IsDigit)) return Refused(kEntryTooSmall);
  if (const std::size_t dash = typed.find('-'); dash != std::string_view::npos && dash > 0) {
    constexpr std::size_t kMostInchDigits = 10;
    const std::string_view feet = Trim(typed.substr(0, dash));
    const std::string_view inches = Trim(typed.substr(dash + 1));
    if (!IsPlainNumber(feet) || inches.size() > kMostInchDigits) return Refused(kUnreadable);
    if (!inches.empty() && !IsPlainNumber(inches)) return Refused(kUnreadable);
    return Measured(Val(feet) * kInchesPerFoot + Val(inches));
  }
  if (IsPlainNumber(typed)) return Measured(Val(typed) * kInchesPerFoot);
  // No number anywhere: the same as an empty box. With one, something that was typed would be lost.
  return std::ranges::any_of(typed, IsDigit) ? Refused(kUnreadable) : RoofLength{};
}

std::string ShownLength(int inches) {
  if (inches <= 0) return {};
  std::string text = FormatNumber(inches / kInchesPerFoot, {.wholeDigits = 0, .decimals = 2});
  while (text.back() == '0') text.pop_back();
  // The point stays: it says that what follows it are parts of a foot.
  return text;
}

std::string LengthReading(int inches) {
  constexpr int kFoot = 12;
  return Digits(inches / kFoot) + " ft " + Digits(inches % kFoot) + " in";
}

double TotalArea(const std::array<RoofPlane, kRoofPlanes>& sections) {
  double total = 0;
  for (const RoofPlane& section : sections)
    if (section.SectionType > 0) total += SectionArea(section);
  return total;
}

std::vector<std::string> SectionNotes(const RoofPlane& section) {
  const double run = RunOf(section);
  const double loadWall = LoadWallRunOf(section);
  const bool isShed = section.SectionType == kShedSection;
  const bool isTwoPieces = HasTwoPieceRafters(section);
  const bool isHip = section.SectionType == kHipSection;
  std::vector<std::string> notes;
  const auto tell = [&notes](const char* what, double feet) {
    notes.push_back(std::string(what) + " of " + Digits(Int(feet)) + " ft is longer than any stock: the estimate does not list it.");
  };
  const double longest = isTwoPieces ? std::max(RafterLength(section, run - loadWall), RafterLength(section, loadWall)) + kRafterLap
                                     : RafterLength(section, run);
  if (longest >= kLongestRafter) tell("A rafter", longest);
  if (HipsAndValleys(section) > 0 && HipLength(section) >= kLongestHip)
    tell(isHip ? "A hip rafter" : "A valley rafter", HipLength(section));
  if (isHip && section.SectionLength > 0 && section.SectionLength < 2 * section.RafterRun)
    notes.emplace_back("Shorter than twice its run: this hip has no ridge, and takes from that of the other sections.");
  if (loadWall > 0 && isShed) notes.emplace_back("The rafters of a shed are of one piece: its load bearing wall does not count.");
  if (isTwoPieces && run > 0 && loadWall > run) notes.emplace_back("The load bearing wall lies beyond the rafter run.");
  return notes;
}

std::string SpeciesNote(std::size_t species, const std::vector<std::string>& grades) {
  if (species >= kRafterSpecies.size()) return "The rafters are of a species that no list holds: the estimate does not list them.";
  const std::string listed = species < grades.size() ? ToUtf8(Trim(grades[species])) : std::string();
  if (grades.empty() || listed == kRafterSpecies[species]) return {};
  return "The list of framing grades was changed: rafters of " + std::string(kRafterSpecies[species]) + " are printed as " +
         (listed.empty() ? "nothing" : listed) + ".";
}

RoofForm OpenRoofForm(const EstimateRecord& plan) {
  RoofForm form;
  // Sections stand without gaps, whatever the record holds: a gap would end the count.
  for (const RoofPlane& section : plan.RoofPlanes)
    if (IsInUse(section)) form.RoofPlanes[static_cast<std::size_t>(form.SectionCount++)] = section;
  for (std::size_t row = 0; row < kCeilingJoistRows; ++row) {
    form.txtTWOxSIX[row] = NumberText(plan.CeilingJoistLft2X6[row]);
    form.txtTWOxEIGHT[row] = NumberText(plan.CeilingJoistLft2X8[row]);
  }
  ShowSection(form, form.SectionCount > 0 ? 1 : 0);
  return form;
}

void StoreSection(RoofForm& form) {
  if (form.CurrentSection == 0) return;
  RoofPlane& section = Current(form);
  section.SectionType = static_cast<std::uint8_t>(form.optRoof);
  StoreLength(form.txtSection, section.SectionLength);
  StoreLength(form.txtRafterRun, section.RafterRun);
  StoreLength(form.txtloadwall, section.LoadWallRun);
  section.FramingType = static_cast<std::uint8_t>(form.cboRFType);
  section.PitchIndex = static_cast<std::uint8_t>(form.cboPitch);
  section.RafterIndex = static_cast<std::uint8_t>(form.cboRafter);
}

bool CanGoToNextSection(const RoofForm& form) { return form.CurrentSection < form.SectionCount; }

bool CanGoToPreviousSection(const RoofForm& form) { return form.CurrentSection > 1; }

RoofStep NextSection(RoofForm& form) { return GoToSection(form, form.CurrentSection + 1); }

RoofStep PreviousSection(RoofForm& form) { return GoToSection(form, form.CurrentSection - 1); }

RoofStep GoToSection(RoofForm& form, int section) {
  if (section < 1 || section > form.SectionCount) return {};
  if (RoofStep check = CheckSection(form); !check.IsDone()) return check;
  StoreSection(form);
  ShowSection(form, section);
  return {};
}

RoofStep AddSection(RoofForm& form) {
  if (RoofStep check = CheckSection(form); !check.IsDone()) return check;
  if (form.SectionCount == static_cast<int>(kRoofPlanes)) return {.message = std::string(kTooManySections), .focus = std::nullopt};
  StoreSection(form);
  RoofPlane added{.SectionType = kGableSection};
  if (form.CurrentSection > 0) {
    added = Current(form);
    added.SectionLength = added.RafterRun = added.LoadWallRun = 0;
  }
  form.RoofPlanes[static_cast<std::size_t>(form.SectionCount)] = added;
  ShowSection(form, ++form.SectionCount);
  return {};
}

void RemoveSection(RoofForm& form) {
  if (form.CurrentSection == 0) return;
  StoreSection(form);
  form.removed.push_back({.section = form.CurrentSection, .plane = Current(form)});
  const auto first = form.RoofPlanes.begin() + form.CurrentSection - 1;
  std::move(first + 1, form.RoofPlanes.begin() + form.SectionCount, first);
  form.RoofPlanes[static_cast<std::size_t>(--form.SectionCount)] = {};
  ShowSection(form, std::min(form.CurrentSection, form.SectionCount));
}

RoofStep UndoRemove(RoofForm& form) {
  if (form.removed.empty()) return {};
  if (RoofStep check = CheckSection(form); !check.IsDone()) return check;
  if (form.SectionCount == static_cast<int>(kRoofPlanes)) return {.message = std::string(kTooManySections), .focus = std::nullopt};
  StoreSection(form);
  const RoofForm::Removed back = form.removed.back();
  form.removed.pop_back();
  const int section = std::min(back.section, form.SectionCount + 1);
  const auto place = form.RoofPlanes.begin() + section - 1;
  std::move_backward(place, form.RoofPlanes.begin() + form.SectionCount, form.RoofPlanes.begin() + form.SectionCount + 1);
  *place = back.plane;
  ++form.SectionCount;
  ShowSection(form, section);
  return {};
}

RoofDone FinishSections(RoofForm& form) {
  if (form.SectionCount == 0 && !HasCeilingJoists(form)) return {.step = {}, .leaves = true};
  RoofStep check = CheckSection(form);
  if (check.IsDone()) {
    StoreSection(form);
    form.showsJoists = true;
  }
  return {.step = std::move(check), .leaves = false};
}

void CancelJoists(RoofForm& form) { form.showsJoists = false; }

std::string LeaveCeilingJoist(std::string& text) {
  const NumberEntry entry = EnterNumber(text);
  text = entry.text;
  return entry.message;
}

JoistStep FinishJoists(RoofForm& form) {
  for (std::size_t box = 0; box < 2 * kCeilingJoistRows; ++box)
    if (std::string message = LeaveCeilingJoist(JoistText(form, box)); !message.empty())
      return {.message = std::move(message), .focus = box};
  if (form.SectionCount > 0 && !HasCeilingJoists(form) && !form.wasAskedForJoists) {
    form.wasAskedForJoists = true;
    return {.message = std::string(kNoCeilingJoists), .focus = std::nullopt};
  }
  return {};
}

std::string& JoistText(RoofForm& form, std::size_t box) {
  return box < kCeilingJoistRows ? form.txtTWOxSIX[box] : form.txtTWOxEIGHT[box - kCeilingJoistRows];
}

bool IsRoofChanged(const RoofForm& form, const EstimateRecord& plan) {
  // Against the form as it was opened: that gaps in the record were closed up is not the operator's change.
  EstimateRecord before = plan;
  EstimateRecord now = plan;
  CopyRoof(OpenRoofForm(plan), before);
  CopyRoof(form, now);
  return before != now;
}

void CopyRoofToPlan(const RoofForm& form, EstimateRecord& plan, PlanForm& dataEntry) {
  const EstimateRecord before = plan;
  CopyRoof(form, plan);
  if (plan != before) dataEntry.mark = ChangeMark::Modified;
}

std::string TransferRoofArea(const RoofForm& form, PlanForm& dataEntry) {
  const double total = Int(TotalArea(form.RoofPlanes));
  if (total > kLargestEntry) return std::string(kEntryTooLarge);
  SetNumberText(dataEntry, NumberBox::RoofSqFt, Digits(total));
  return {};
}

std::string SectionLabel(const RoofForm& form) { return Digits(form.CurrentSection) + " of " + Digits(form.SectionCount); }

std::string AreaLabel(const RoofForm& form) {
  if (form.CurrentSection == 0) return "0 Sf of 0 Sf";
  const RoofPlane& section = form.RoofPlanes[static_cast<std::size_t>(form.CurrentSection) - 1];
  return Digits(Int(SectionArea(section))) + " SF of " + Digits(Int(TotalArea(form.RoofPlanes))) + " SF";
}

}  // namespace norvale
