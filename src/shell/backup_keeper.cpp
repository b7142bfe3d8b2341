#include "shell/backup_keeper.h"

#include <algorithm>
#include <utility>

#include "base/message.h"

namespace norvale {

void BackupKeeper::Make(BackupReason reason, std::chrono::local_seconds now) {
  try {
    (void)MakeBackup(folder_, reason, now);
  } catch (const FileError& error) {
    failure_ =
        Notice("Norvale could not make a backup of the working folder.\n\n" + error.File() + ": " + error.Reason() +
               "\n\nYour work is not touched by this, and you can go on. Put the cause right: until then there is no fresh copy to go "
               "back to.");
  }
}

void BackupKeeper::BackUpStart(std::chrono::local_seconds now) {
  Make(BackupReason::Start, now);
  (void)disk_.TakeChanged();  // what the start itself has written
}

void BackupKeeper::BackUpChange(std::chrono::local_seconds now) {
  if (!disk_.TakeChanged()) return;
  const auto today = std::chrono::floor<std::chrono::days>(now);
  if (day_ == today) return;
  day_ = today;
  // The program may have been started before on this day.
  try {
    const auto backups = ListBackups(folder_.Files(), folder_.Folder());
    if (std::any_of(backups.begin(), backups.end(), [today](const Backup& backup) {
          return backup.reason == BackupReason::Change && std::chrono::floor<std::chrono::days>(backup.made) == today;
        }))
      return;
  } catch (const FileError&) {  // making one tells it
  }
  Make(BackupReason::Change, now);
}

std::optional<std::string> BackupKeeper::TakeFailure() { return std::exchange(failure_, std::nullopt); }

}  // namespace norvale
