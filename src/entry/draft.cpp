#include "entry/draft.h"

#include <algorithm>

#include "base/checksum.h"
#include "base/files.h"
#include "base/message.h"
#include "data/estimate_file.h"
#include "data/keyed_files.h"
#include "entry/plan_form.h"

namespace norvale {

namespace {

constexpr std::string_view kSignature = "NVDRAFT1";  // its last character is the version
constexpr std::size_t kBoxWidth = 20;
constexpr std::size_t kChecksumSize = 8;

struct DraftRecord {
  FixedText<kSignature.size()> Signature{};
  std::uint8_t IsOpened{};
  std::uint8_t IsTypeChanged{};
  std::uint8_t IsPrintEnabled{};
  std::uint8_t CurrentScreen{};
  std::array<FixedText<kBoxWidth>, kNumberBoxes> Numbers{};
  std::array<std::uint8_t, kNumberBoxes> IsTouched{};
  std::array<FixedText<kBoxWidth>, kJoistBoxes> Joists{};
  EstimateRecord Plan{};
  EstimateRecord OnFile{};
};

constexpr std::size_t kDraftSize = kSignature.size() + 4 + (kNumberBoxes + kJoistBoxes) * kBoxWidth + kNumberBoxes + 2 * EstimateRecordSize;

}  // namespace

template <>
struct FieldWidth<EstimateRecord> {
  static constexpr std::size_t value = EstimateRecordSize;
};

template <>
struct RecordFields<DraftRecord> {
  static constexpr auto table = std::tuple{
      Field{"Signature", 0, &DraftRecord::Signature},
      Field{"IsOpened", 8, &DraftRecord::IsOpened},
      Field{"IsTypeChanged", 9, &DraftRecord::IsTypeChanged},
      Field{"IsPrintEnabled", 10, &DraftRecord::IsPrintEnabled},
      Field{"CurrentScreen", 11, &DraftRecord::CurrentScreen},
      Field{"Numbers", 12, &DraftRecord::Numbers},
      Field{"IsTouched", 1092, &DraftRecord::IsTouched},
      Field{"Joists", 1146, &DraftRecord::Joists},
      Field{"Plan", 1346, &DraftRecord::Plan},
      Field{"OnFile", 1346 + EstimateRecordSize, &DraftRecord::OnFile},
  };
};
static_assert(FieldsTile(RecordFields<DraftRecord>::table, kDraftSize), "no gap, no overlap");

namespace {

std::filesystem::path PathOfDraft(const DataFolder& folder) { return folder.Folder() / kDraftFile; }

std::string ChecksumBytes(std::string_view bytes) {
  std::string text(kChecksumSize, '\0');
  PutNumber(text.data(), Checksum(0, bytes));
  return text;
}

std::string EncodedDraft(const PlanDraft& draft) {
  DraftRecord record;
  record.Signature.Assign(kSignature);
  record.IsOpened = IsOpened(draft.mode) ? 1 : 0;
  record.IsTypeChanged = draft.isTypeChanged ? 1 : 0;
  record.IsPrintEnabled = draft.isPrintEnabled ? 1 : 0;
  record.CurrentScreen = static_cast<std::uint8_t>(draft.CurrentScreen);
  for (std::size_t box = 0; box < kNumberBoxes; ++box) {
    record.Numbers[box].Assign(draft.numbers.values[box]);
    record.IsTouched[box] = draft.isTouched.values[box] ? 1 : 0;
  }
  for (std::size_t box = 0; box < kJoistBoxes; ++box) record.Joists[box].Assign(draft.joists.values[box]);
  record.Plan = draft.plan;
  record.OnFile = draft.onFile;
  std::string bytes(kDraftSize, '\0');
  EncodeValue(bytes.data(), record);
  return bytes + ChecksumBytes(bytes);
}

std::optional<PlanDraft> DecodedDraft(std::string_view bytes) {
  if (bytes.size() != kDraftSize + kChecksumSize || !bytes.starts_with(kSignature)) return std::nullopt;
  if (bytes.substr(kDraftSize) != ChecksumBytes(bytes.substr(0, kDraftSize))) return std::nullopt;
  DraftRecord record;
  DecodeValue(bytes.data(), record);
  if (record.CurrentScreen > ScreenCount) return std::nullopt;
  PlanDraft draft;
  draft.mode = record.IsOpened != 0 ? PlanMode::Existing : PlanMode::New;
  draft.isTypeChanged = record.IsTypeChanged != 0;
  draft.isPrintEnabled = record.IsPrintEnabled != 0;
  draft.CurrentScreen = record.CurrentScreen;
  draft.plan = record.Plan;
  draft.onFile = record.OnFile;
  for (std::size_t box = 0; box < kNumberBoxes; ++box) {
    draft.numbers.values[box] = record.Numbers[box].Trimmed();
    draft.isTouched.values[box] = record.IsTouched[box] != 0;
  }
  for (std::size_t box = 0; box < kJoistBoxes; ++box) draft.joists.values[box] = record.Joists[box].Trimmed();
  return draft;
}

// Gives the draft a name of its own, so that the next one does not take its place.
std::string PutDraftAside(DataFolder& folder) {
  for (int number = 1;; ++number) {
    const std::string name = std::string(kDraftFile) + "." + std::to_string(number);
    if (folder.Files().Open(folder.Folder() / name, Opening::Read) != nullptr) continue;
    folder.Files().Rename(PathOfDraft(folder), folder.Folder() / name);
    folder.Files().SyncFolder(folder.Folder());
    return name;
  }
}

// Puts the session on the first plan on file that is the wanted one, byte for byte.
bool FindSamePlan(DataFolder& folder, Session& session, const EstimateRecord& wanted) {
  Session there = session;
  if (!FindEstimateOfPlan(folder, there, wanted.CustomerNumber, wanted.PlanNumber.Padded())) return false;
  for (const auto key = there.CurrentEstimateEntry.Key; there.CurrentEstimateEntry.Key == key;) {
    if (there.CurrentEstimate == wanted) {
      session = there;
      return true;
    }
    const StepResult step = MoveEstimate(folder, there, +1);
    if (!step.hasRecord || !step.notice.empty()) return false;
  }
  return false;
}

std::string ShownNumber(const EstimateRecord& plan) { return WithoutBars(ToUtf8(plan.PlanNumber.Trimmed())); }

}  // namespace

PlanDraft DraftOf(const PlanForm& form, const EstimateRecord& current, const EstimateRecord& onFile, bool isTypeChanged) {
  PlanDraft draft{.mode = IsOpened(form.mode) ? PlanMode::Existing : PlanMode::New,
                  .isTypeChanged = isTypeChanged,
                  .isPrintEnabled = form.isPrintEnabled,
                  .CurrentScreen = form.CurrentScreen,
                  .plan = current,
                  .onFile = onFile,
                  .numbers = {},
                  .isTouched = {},
                  .joists = {}};
  StorePlanFromForm(form, draft.plan);
  PadTexts(draft.plan);
  for (const NumberBox box : kAllNumberBoxes) {
    draft.numbers[box] = form.numbers[box].text;
    draft.isTouched[box] = form.numbers[box].isTouched;
  }
  for (const JoistBox box : kAllJoistBoxes) draft.joists[box] = form.joists[box].text;
  return draft;
}

PlanDraft AsNewPlan(PlanDraft draft) {
  draft.mode = PlanMode::New;
  draft.isTypeChanged = false;
  draft.onFile = {};
  draft.isTouched.values.fill(true);  // what an opened plan holds is not the program's to compute
  return draft;
}

PlanForm FormOfDraft(const PlanDraft& draft, EstimateRecord& plan, const std::vector<ScreenLine>& lines,
                     const std::vector<MaterialRow>& rows) {
  plan = draft.plan;
  // A new plan is filled from the draft as an opened one is from the file: what is computed for a new one is in it already.
  PlanForm form = OpenPlanForm(PlanMode::Existing, draft.isTypeChanged, plan, lines, rows);
  form.mode = draft.mode;
  form.isPrintEnabled = draft.isPrintEnabled;
  form.CurrentScreen = draft.CurrentScreen;
  for (const NumberBox box : kAllNumberBoxes) {
    form.numbers[box].text = draft.numbers[box];
    form.numbers[box].isTouched = draft.isTouched[box];
  }
  for (const JoistBox box : kAllJoistBoxes) form.joists[box].text = draft.joists[box];
  form.mark = ChangeMark::Modified;
  return form;
}

void KeepDraft(DataFolder& folder, const PlanDraft& draft) { ReplaceFile(folder.Files(), PathOfDraft(folder), EncodedDraft(draft)); }

void RemoveDraft(DataFolder& folder) {
  folder.Files().Remove(PathOfDraft(folder));
  folder.Files().SyncFolder(folder.Folder());
}

bool IsDraft(std::string_view bytes) { return DecodedDraft(bytes).has_value(); }

FoundDraft FindDraft(DataFolder& folder) {
  std::string reason = "is damaged or of another version of Norvale";
  try {
    const auto file = folder.Files().Open(PathOfDraft(folder), Opening::Read);
    if (file == nullptr) return {};
    std::string bytes(kDraftSize + kChecksumSize + 1, '\0');
    bytes.resize(file->ReadAt(0, bytes.data(), bytes.size()));
    if (auto draft = DecodedDraft(bytes)) return {.draft = std::move(draft), .notice = {}};
  } catch (const FileError& error) {
    reason = "cannot be read (" + error.Reason() + ")";
  }
  const std::string name = PutDraftAside(folder);
  return {.draft = {},
          .notice = Notice("A plan was being entered when the program ended, but its draft " + reason + ".\n\nIt is kept as " + name +
                           ". The plans on file are not touched.")};
}

DraftStanding PlaceDraft(DataFolder& folder, Session& session, const PlanDraft& draft) {
  Session there = session;
  if (FindSamePlan(folder, there, draft.plan)) return DraftStanding::Saved;
  if (!IsOpened(draft.mode)) return DraftStanding::Unsaved;
  return FindSamePlan(folder, session, draft.onFile) ? DraftStanding::Unsaved : DraftStanding::Changed;
}

std::string DraftQuestion(const PlanDraft& draft, DraftStanding standing, std::string_view customerName) {
  std::string text = "2 The program ended while plan " + ShownNumber(draft.plan) + " for " + WithoutBars(customerName) + " was being " +
                     (IsOpened(draft.mode) ? "changed" : "entered") + ". What stood there at the last change of screen is kept.\n\n";
  if (standing == DraftStanding::Changed)
    text += "The plan on file has been changed or deleted since. Go on with what was typed, as a new plan?";
  else
    text += "Go on with it?";
  return text + "|Unsaved Plan";
}

std::string RemoveDraftQuestion(const PlanDraft& draft) {
  return "2 Throw away what was typed for plan " + ShownNumber(draft.plan) + "? It cannot be brought back.|Unsaved Plan";
}

}  // namespace norvale
