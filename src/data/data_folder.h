// A working folder that this program may change: locked against every other, with nothing left half done.
#pragma once

#include <filesystem>
#include <memory>

#include "base/disk.h"
#include "data/data_files.h"

namespace norvale {

class DataFolder {
 public:
  /// Locks the folder and finishes or undoes what an interrupted operation has left. Throws FileError where another
  /// program (or another `DataFolder`) has the folder, or where it cannot be read or written.
  explicit DataFolder(std::filesystem::path folder, Disk& disk = SystemDisk());

  /// Gives the folder back.
  ~DataFolder();

  DataFolder(const DataFolder&) = delete;
  DataFolder& operator=(const DataFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& Folder() const { return folder_; }
  [[nodiscard]] std::filesystem::path PathOf(DataFile file) const { return folder_ / NameOf(file); }
  [[nodiscard]] Disk& Files() const { return disk_; }

  /// Whether an interrupted operation was finished or undone when the folder was opened.
  [[nodiscard]] bool WasInterrupted() const { return wasInterrupted_; }

 private:
  Disk& disk_;
  std::filesystem::path folder_;
  std::unique_ptr<DiskLock> lock_;
  bool wasInterrupted_ = false;
};

/// Opens a file of the folder; a missing one is created empty.
std::unique_ptr<DiskFile> OpenDataFile(const DataFolder& folder, DataFile file);

}  // namespace norvale
