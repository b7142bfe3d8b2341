#include "shell/restore_form.h"

#include <array>

#include "data/folder_start.h"
#include "data/journal.h"

namespace norvale {

namespace {

std::string Count(std::uint64_t count, const char* what) { return std::to_string(count) + ' ' + what + (count == 1 ? "" : "s"); }

std::string Moment(const Backup& backup) { return DateOf(backup) + ", " + TimeOf(backup); }

// A restore that the disk has ended in its last steps is finished first.
void StartAfresh(Program& program) {
  Journal::Recover(program.folder.Files(), program.folder.Folder());
  program.session = {};
  (void)StartFolder(program.folder, program.session);
}

}  // namespace

void ReadBackups(const Program& program, RestoreForm& form) { form.backups = ListBackups(program.folder.Files(), program.folder.Folder()); }

std::string_view ReasonText(BackupReason reason) {
  constexpr std::array<std::string_view, 4> kTexts = {"At the start", "After the first change of the day",
                                                      "Before a backup was brought back", "By hand"};
  return kTexts[static_cast<std::size_t>(reason)];
}

void BackUpNow(Program& program, RestoreForm& form, std::chrono::local_seconds now) {
  const bool isNew = MakeBackup(program.folder, BackupReason::Hand, now).has_value();
  ReadBackups(program, form);
  if (!isNew)
    program.messages.ShowMessage(
        Notice("Nothing has changed since the backup of " + Moment(form.backups.front()) + ". It holds all there is."));
}

bool BringBack(Program& program, RestoreForm& form, std::size_t backup, std::chrono::local_seconds now) {
  const Backup chosen = form.backups.at(backup);
  const std::string question = "2 Bring back the backup of " + Moment(chosen) + ", with " + Count(chosen.customers, "customer") + " and " +
                               Count(chosen.plans, "plan") +
                               "?\n\nCustomers, plans, prices, material lists and waste factors become what they were then. What is on "
                               "file now is kept as a backup of its own.|Bring Back a Backup";
  if (program.messages.ShowMessage(question) != Answer::Yes) return false;
  try {
    RestoreBackup(program.folder, chosen.name, now);
  } catch (const FileError&) {
    StartAfresh(program);
    throw;
  }
  StartAfresh(program);
  ReadBackups(program, form);
  program.messages.ShowMessage(Notice("The backup of " + Moment(chosen) + " is back. What was on file before is in the list as well."));
  return true;
}

}  // namespace norvale
