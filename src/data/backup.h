// Dated copies of the working folder, and bringing one back.
//
// A backup is a folder of its own in `backups` inside the working folder: plain copies of the dealer's files, and a list of
// them with length and checksum. It is made beside under another name and counts from the rename on, after all of it has been
// read back.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/data_folder.h"

namespace norvale {

inline constexpr std::string_view kBackupFolder = "backups";
inline constexpr std::string_view kBackupList = "norvale-backup.txt";
inline constexpr std::size_t kBackupsKept = 10;

enum class BackupReason {
  Start,    // the program was started
  Change,   // the first change of a day
  Restore,  // another backup was about to be brought back
  Hand,     // somebody asked for it
};

struct Backup {
  std::string name;                   // of its folder, YYYY-MM-DD-HHMMSS-why
  std::chrono::local_seconds made{};  // by the computer's clock
  BackupReason reason{};
  std::uint64_t customers = 0;  // without the company
  std::uint64_t plans = 0;
};

/// The computer's date and time.
std::chrono::local_seconds LocalNow();

/// MM-DD-YYYY and HH:MM.
std::string DateOf(const Backup& backup);
std::string TimeOf(const Backup& backup);

/// Whether a file of that name in the working folder goes into its backups: customers, plans, leftovers of a repair, screens,
/// lists, prices and waste factors with their former versions. What else lies in the folder is none of the program's.
bool IsKept(std::string_view name);

/// The backups of the folder, the newest first. Throws FileError where they cannot be read.
std::vector<Backup> ListBackups(Disk& disk, const std::filesystem::path& folder);

/// Copies the folder. Where the newest backup holds the very same, there is nothing to do and nothing is returned. The oldest
/// backups above `kBackupsKept` are removed, those dated after `now` before all others. Throws FileError where the copy cannot
/// be made, cannot be read back, or holds files that a start would not work with; then it has left nothing behind.
std::optional<Backup> MakeBackup(DataFolder& folder, BackupReason reason, std::chrono::local_seconds now);

/// Puts the files of a backup in the place of those in the folder, all of them or none; kept files that it does not hold are
/// removed. What was there before is a backup of its own when this returns. Throws FileError where there is no backup of that
/// name, where it is not as it was made, or where the disk fails; then nothing has changed, or, when the disk fails in the last
/// steps, it will have when the folder is opened next. The folder must be started afresh after it.
void RestoreBackup(DataFolder& folder, std::string_view name, std::chrono::local_seconds now);

}  // namespace norvale
