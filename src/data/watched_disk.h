// A disk that notices when something of the dealer's is changed through it.
#pragma once

#include "base/disk.h"

namespace norvale {

class WatchedDisk final : public Disk {
 public:
  /// Watches the kept files (`IsKept`) of `folder`; everything is handed on to `disk`.
  WatchedDisk(Disk& disk, std::filesystem::path folder) : disk_(disk), folder_(std::move(folder)) {}

  /// Whether a kept file has been changed since the last call.
  bool TakeChanged();

  std::unique_ptr<DiskFile> Open(const std::filesystem::path& path, Opening opening) override;
  void Rename(const std::filesystem::path& from, const std::filesystem::path& to) override;
  void Remove(const std::filesystem::path& path) override;
  void SyncFolder(const std::filesystem::path& folder) override { disk_.SyncFolder(folder); }
  std::vector<std::string> Names(const std::filesystem::path& folder) override { return disk_.Names(folder); }
  void MakeFolder(const std::filesystem::path& folder) override { disk_.MakeFolder(folder); }
  void RemoveFolder(const std::filesystem::path& folder) override { disk_.RemoveFolder(folder); }
  std::unique_ptr<DiskLock> TryLock(const std::filesystem::path& path) override { return disk_.TryLock(path); }

 private:
  class File;

  [[nodiscard]] bool IsWatched(const std::filesystem::path& path) const;

  Disk& disk_;
  std::filesystem::path folder_;
  bool changed_ = false;
};

}  // namespace norvale
