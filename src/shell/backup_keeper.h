// The backups that nobody asks for: at the start, and after the first change of a day.
#pragma once

#include <optional>
#include <string>

#include "data/backup.h"
#include "data/watched_disk.h"

namespace norvale {

class BackupKeeper {
 public:
  /// `disk` is the one that the folder works with.
  BackupKeeper(DataFolder& folder, WatchedDisk& disk) : folder_(folder), disk_(disk) {}

  /// To be called once, when the folder is fit for work.
  void BackUpStart(std::chrono::local_seconds now);

  /// To be called between operations, every second or so. Where nothing has changed it costs nothing.
  void BackUpChange(std::chrono::local_seconds now);

  /// The notice about a backup that could not be made since the last call. A backup that fails never stops the work.
  std::optional<std::string> TakeFailure();

 private:
  void Make(BackupReason reason, std::chrono::local_seconds now);

  DataFolder& folder_;
  WatchedDisk& disk_;
  std::optional<std::chrono::local_days> day_;  // the one whose first change has been seen
  std::optional<std::string> failure_;
};

}  // namespace norvale
