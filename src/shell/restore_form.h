// What the form of the backups does, without the window.
#pragma once

#include <string>
#include <vector>

#include "data/backup.h"
#include "desktop/program.h"

namespace norvale {

struct RestoreForm {
  std::vector<Backup> backups;  // the newest first
};

/// Reads the list. Throws FileError where it cannot be read.
void ReadBackups(const Program& program, RestoreForm& form);

/// Why a backup was made, in the operator's words.
std::string_view ReasonText(BackupReason reason);

/// Makes a backup at once, or says that the newest one holds the same, and reads the list again.
void BackUpNow(Program& program, RestoreForm& form, std::chrono::local_seconds now);

/// Asks, and puts the files of the backup in the place of those in the folder. Returns whether it has; then the session is a
/// fresh one. Where it throws FileError the session has been read afresh, too: the files decide what is so.
bool BringBack(Program& program, RestoreForm& form, std::size_t backup, std::chrono::local_seconds now);

}  // namespace norvale
