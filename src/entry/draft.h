// The draft: the plan at hand as it stood at the last change of screen, kept beside the data files, so that a program that
// dies loses nothing that stood on an earlier screen.
//
// There is one draft in a folder. Texts are Windows-1252, as in the form.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/data_folder.h"
#include "data/session.h"
#include "entry/form_fields.h"
#include "prices/material_lists.h"
#include "prices/screen_lines.h"

namespace norvale {

inline constexpr std::string_view kDraftFile = "norvale.draft";

struct PlanDraft {
  PlanMode mode = PlanMode::New;  // New or Existing
  bool isTypeChanged = false;     // an opened plan whose type has been changed
  bool isPrintEnabled = false;
  int CurrentScreen = 0;
  EstimateRecord plan{};    // as the form has it
  EstimateRecord onFile{};  // as the opened plan was read; its key is the one under the cursor
  // What stands in the boxes may still be more than a record holds.
  ByNumberBox<std::string> numbers;
  ByNumberBox<bool> isTouched;
  ByJoistBox<std::string> joists;

  bool operator==(const PlanDraft&) const = default;
};

/// The draft of a plan in data entry. `current` holds what no box of the form does.
PlanDraft DraftOf(const PlanForm& form, const EstimateRecord& current, const EstimateRecord& onFile, bool isTypeChanged);

/// The same as a new plan, which is written over no plan on file.
PlanDraft AsNewPlan(PlanDraft draft);

/// The form as it stood, marked as modified. `plan`, which is the draft's, takes what the rules of its type set.
PlanForm FormOfDraft(const PlanDraft& draft, EstimateRecord& plan, const std::vector<ScreenLine>& lines,
                     const std::vector<MaterialRow>& rows);

/// Puts the draft in the place of the one before; it is on the disk when this returns. Throws FileError and leaves the one
/// before.
void KeepDraft(DataFolder& folder, const PlanDraft& draft);

/// Whether these are the bytes of a draft that this version can read.
bool IsDraft(std::string_view bytes);

/// Nothing where there is none.
void RemoveDraft(DataFolder& folder);

/// What is found at the start of the program.
struct FoundDraft {
  std::optional<PlanDraft> draft;
  std::string notice;  // a draft that this version cannot read; it has been put aside under the name that is told
};
FoundDraft FindDraft(DataFolder& folder);

/// What has become of a draft's plan in the files.
enum class DraftStanding {
  Unsaved,  // an opened plan stands as it was opened; a new one is not on file
  Saved,    // it is on file as the draft has it: there is nothing to go on with
  Changed,  // the opened plan has been changed or deleted since
};

/// Compares the draft with the files. Unsaved and opened: the session is on the plan as it is on file. Otherwise the
/// session stays.
DraftStanding PlaceDraft(DataFolder& folder, Session& session, const PlanDraft& draft);

/// What the operator is asked: whether to go on with the plan. `customerName` is UTF-8.
std::string DraftQuestion(const PlanDraft& draft, DraftStanding standing, std::string_view customerName);

/// What he is asked before the plan is gone.
std::string RemoveDraftQuestion(const PlanDraft& draft);

}  // namespace norvale
