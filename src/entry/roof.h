// The roof calculator: a stick-built roof as up to 64 sections, their areas, and the ceiling joists under it.
//
// It works on a copy of the plan's roof; only `CopyRoofToPlan` changes the plan. Sections count from 1. Messages lack their
// title, which belongs behind the "|" at their end.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/roof_section.h"
#include "entry/form_fields.h"

namespace norvale {

/// The caption of type `type` (1 to 5).
std::string_view CaptionOfRoofType(int type);

// --- Lengths

/// A length as it was read.
struct RoofLength {
  int inches = 0;       // 0 where the text is no number at all
  std::string message;  // not empty: the text is refused, and `inches` is 0
};

/// Reads feet and inches ("12-6"), decimal feet ("12.5") or whole feet ("12"), 0 to 32767 inches. Any other text that begins
/// with a number would be read as less than was typed, and is refused.
RoofLength ReadLength(std::string_view text);

/// A length as its box shows it, in decimal feet; 0 and less is the empty text. `ReadLength` gives the same length back.
std::string ShownLength(int inches);

/// What stands beside the box: "12 ft 6 in".
std::string LengthReading(int inches);

// --- Areas

/// The square feet of all sections that have a type, unrounded.
double TotalArea(const std::array<RoofPlane, kRoofPlanes>& sections);

/// What the estimate leaves out of a section, or takes otherwise than it was typed: sentences to be seen while he types.
std::vector<std::string> SectionNotes(const RoofPlane& section);

/// What to say where the dealer has changed the first rows of the list of framing grades, by which rafters are printed;
/// empty where they are `kRafterSpecies`. `grades` are the list's rows, in Windows-1252.
std::string SpeciesNote(std::size_t species, const std::vector<std::string>& grades);

// --- The form

inline constexpr std::size_t kCeilingJoistRows = 5;  // joists of 8, 10, 12, 14 and 16 feet

struct RoofForm {
  std::array<RoofPlane, kRoofPlanes> RoofPlanes{};
  int CurrentSection = 0;  // 0: there is none
  int SectionCount = 0;

  // The boxes of the current section.
  int optRoof = kGableSection;
  int cboRFType = 0;
  int cboPitch = 0;
  int cboRafter = 0;
  std::string txtSection;
  std::string txtRafterRun;
  std::string txtloadwall;

  std::array<std::string, kCeilingJoistRows> txtTWOxSIX;    // feet
  std::array<std::string, kCeilingJoistRows> txtTWOxEIGHT;  // feet
  bool showsJoists = false;                                 // the panel for the ceiling joists
  bool wasAskedForJoists = false;

  struct Removed {
    int section;
    RoofPlane plane;
  };
  std::vector<Removed> removed;  // for undo, the last one behind
};

enum class RoofBox { txtSection, txtRafterRun, txtloadwall };

/// What a button came to. A message of its own means that nothing was changed.
struct RoofStep {
  std::string message;
  std::optional<RoofBox> focus;

  [[nodiscard]] bool IsDone() const { return message.empty(); }
};

/// The form on a plan: sections closed up, the first one shown.
RoofForm OpenRoofForm(const EstimateRecord& plan);

/// Puts the boxes into the current section. A length that is refused leaves the section's own.
void StoreSection(RoofForm& form);

bool CanGoToNextSection(const RoofForm& form);
bool CanGoToPreviousSection(const RoofForm& form);

/// NEXT, PREV, and a choice in the list of sections. The current section must have a rafter run and a length first.
RoofStep NextSection(RoofForm& form);
RoofStep PreviousSection(RoofForm& form);
RoofStep GoToSection(RoofForm& form, int section);

/// ADD: a section like the current one, with empty lengths; the first one is a gable on the first rows. At most 64.
RoofStep AddSection(RoofForm& form);

inline constexpr std::string_view kRemoveSectionQuestion = "2 Delete this roof section|";

/// REMOVE, once confirmed: later sections move up. Nothing where there is none.
void RemoveSection(RoofForm& form);

/// Puts the section that was removed last back in its place and shows it. Nothing where none was removed.
RoofStep UndoRemove(RoofForm& form);

/// What DONE leads to.
struct RoofDone {
  RoofStep step;
  bool leaves = false;  // the form closes: `CopyRoofToPlan` first. Else, if the step is done, the joist panel is shown.
};

/// DONE: without sections the form closes, unless feet of ceiling joists are left to be seen.
RoofDone FinishSections(RoofForm& form);

/// CANCEL of the joist panel: back to the sections.
void CancelJoists(RoofForm& form);

/// Applies the rules for a joist box that is left, and returns the message with which the focus goes back, empty for none.
std::string LeaveCeilingJoist(std::string& text);

/// What DONE of the joist panel came to. Done: the form may close, `CopyRoofToPlan` first.
struct JoistStep {
  std::string message;
  std::optional<std::size_t> focus;  // the box that is refused: rows 0 to 4 of the 2 x 6, then those of the 2 x 8

  [[nodiscard]] bool IsDone() const { return message.empty(); }
};

/// DONE of the joist panel. That a roof of sections has no ceiling joists is told once.
JoistStep FinishJoists(RoofForm& form);

/// Whether `CopyRoofToPlan` would put anything else into the plan than what the form was opened on.
bool IsRoofChanged(const RoofForm& form, const EstimateRecord& plan);

/// Puts the sections and the ceiling joists into the record, and marks the data-entry form where that changes anything.
void CopyRoofToPlan(const RoofForm& form, EstimateRecord& plan, PlanForm& dataEntry);

inline constexpr std::string_view kDiscardRoofQuestion = "2 Leave the roof as it was before? What was changed here is not kept.|";

inline constexpr std::string_view kTransferAreaQuestion = "2 Transfer Square Footage of Roof Area to Data Entry Screen?|UPDATE ROOF AREA?";

/// On Yes: the total area into the box for the roof area. A total that a plan cannot keep is refused with a message.
std::string TransferRoofArea(const RoofForm& form, PlanForm& dataEntry);

/// The text of joist box `box`, counted as in `JoistStep`.
std::string& JoistText(RoofForm& form, std::size_t box);

/// "2 of 5", and the areas of the current section and of the roof.
std::string SectionLabel(const RoofForm& form);
std::string AreaLabel(const RoofForm& form);

}  // namespace norvale
