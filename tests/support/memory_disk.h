// A disk in memory that forgets what was not synced, can lose its power between any two calls, tears writes, and lets calls
// fail. Its working folder has the empty path.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "base/disk.h"
#include "base/file_error.h"

namespace norvale {

/// The power is gone; the disk answers nothing any more.
struct PowerCut : FileError {
  PowerCut() : FileError("disk", "the power is gone") {}
};

/// What of the unsynced writes and names a power cut leaves on the disk.
enum class Survival { Nothing, Everything, Something };

class MemoryDisk final : public Disk {
 public:
  MemoryDisk() = default;

  std::unique_ptr<DiskFile> Open(const std::filesystem::path& path, Opening opening) override;
  void Rename(const std::filesystem::path& from, const std::filesystem::path& to) override;
  void Remove(const std::filesystem::path& path) override;
  void SyncFolder(const std::filesystem::path& folder) override;
  std::vector<std::string> Names(const std::filesystem::path& folder) override;
  void MakeFolder(const std::filesystem::path& folder) override;
  void RemoveFolder(const std::filesystem::path& folder) override;
  std::unique_ptr<DiskLock> TryLock(const std::filesystem::path& path) override;

  /// A disk of its own with what this one holds now, all of it synced.
  [[nodiscard]] std::unique_ptr<MemoryDisk> Copy() const { return AfterPowerCut(Survival::Everything, 0); }

  /// The disk after the power has come back. `seed` chooses for Survival::Something.
  [[nodiscard]] std::unique_ptr<MemoryDisk> AfterPowerCut(Survival survival, unsigned seed) const;

  /// The bytes of a file; empty where there is none.
  [[nodiscard]] std::string Bytes(const std::filesystem::path& path) const;

  /// Puts a file there as if it had been on the disk for long.
  void SetBytes(const std::filesystem::path& path, std::string bytes);
  [[nodiscard]] bool Has(const std::filesystem::path& path) const { return At(path).file != nullptr; }

  /// The bytes of all files of a folder, by their name.
  [[nodiscard]] std::map<std::string, std::string> FilesIn(const std::filesystem::path& folder) const;

  // Changes are the calls that a power cut can fall between: new, write, resize, sync, rename, remove.
  int changes = 0;
  int cutBefore = -1;       // the change that does not happen any more
  bool tearsWrite = false;  // half of it does, where it is a write
  // Calls are all of them, with opening and reading.
  int calls = 0;
  int failCall = -1;
  bool failsOn = false;  // every later call fails as well
  std::string failedFile;
  int syncs = 0;
  int leaveOutSync = -1;  // a sync that does nothing
  bool isLocked = false;

 private:
  friend class MemoryFile;

  // A write (or, with `isResize`, a new length) that is not synced.
  struct Pending {
    std::uint64_t offset;
    std::string bytes;
    bool isResize;
  };
  struct Content {
    std::string now;
    std::string synced;
    std::vector<Pending> pending;
    int opened = 0;
  };
  struct Folder;
  struct Entry {  // one of the two
    std::shared_ptr<Content> file;
    std::shared_ptr<Folder> folder;
  };
  using Entries = std::map<std::string, Entry>;
  struct Folder {
    Entries now;
    Entries synced;
    std::vector<std::function<void(Entries&)>> pending;
  };

  // What has that path; neither file nor folder where nothing has.
  [[nodiscard]] Entry At(const std::filesystem::path& path) const;
  // The folder that holds the path's last name; throws FileError where there is none.
  [[nodiscard]] std::shared_ptr<Folder> Parent(const std::filesystem::path& path) const;
  static void ChangeNames(Folder& folder, std::function<void(Entries&)> change);
  // Not every system renames, replaces or deletes a file that is open.
  void RequireClosed(const std::filesystem::path& path) const;
  void Call(const std::string& name);
  // Returns whether the change is the one that is torn.
  bool Change(const std::string& name, bool isWrite = false);
  bool LeavesOut() { return syncs++ == leaveOutSync; }
  static void Apply(std::string& content, const Pending& change);

  std::shared_ptr<Folder> root_ = std::make_shared<Folder>();
  bool isDead_ = false;
};

}  // namespace norvale
