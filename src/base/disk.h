// The one way to the files that must survive: every open, read, write, sync, rename, delete and lock of them goes through a
// `Disk`, so that a test can count the calls, cut the power between two of them, tear a write or let any call fail.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace norvale {

/// An open file. Offsets and sizes are in bytes, offsets from 0. Every call throws FileError, with the file's name and the
/// system's reason, where the system refuses it.
class DiskFile {
 public:
  DiskFile() = default;
  DiskFile(const DiskFile&) = delete;
  DiskFile& operator=(const DiskFile&) = delete;
  virtual ~DiskFile() = default;

  [[nodiscard]] virtual std::uint64_t Size() = 0;

  /// Reads up to `size` bytes; fewer only where the file ends. Returns how many.
  [[nodiscard]] virtual std::size_t ReadAt(std::uint64_t offset, char* to, std::size_t size) = 0;

  /// Writes all of `bytes`, making the file longer where they reach beyond its end.
  virtual void WriteAt(std::uint64_t offset, std::string_view bytes) = 0;

  virtual void Resize(std::uint64_t size) = 0;

  /// Returns when the file's bytes and length are on the disk. A new file's name needs `Disk::SyncFolder` as well.
  virtual void Sync() = 0;
};

/// Held until it is destroyed. A lock dies with the program that holds it, however that ends.
class DiskLock {
 public:
  DiskLock() = default;
  DiskLock(const DiskLock&) = delete;
  DiskLock& operator=(const DiskLock&) = delete;
  virtual ~DiskLock() = default;
};

enum class Opening {
  Read,    // nothing where there is no such file
  Update,  // read and write; nothing where there is no such file
  Create,  // read and write; an empty file where there was none
  Fresh,   // read and write; an empty file, whatever was there
};

/// Files by their path. Every call throws FileError where the system refuses it.
class Disk {
 public:
  Disk() = default;
  Disk(const Disk&) = delete;
  Disk& operator=(const Disk&) = delete;
  virtual ~Disk() = default;

  [[nodiscard]] virtual std::unique_ptr<DiskFile> Open(const std::filesystem::path& path, Opening opening) = 0;

  /// Gives a file a new name; a file that had that name is gone. One step: there is no moment with neither.
  virtual void Rename(const std::filesystem::path& from, const std::filesystem::path& to) = 0;

  /// Deletes a file; a file that is not there is no error.
  virtual void Remove(const std::filesystem::path& path) = 0;

  /// Returns when the names in the folder (new, renamed, deleted files) are on the disk.
  virtual void SyncFolder(const std::filesystem::path& folder) = 0;

  /// The names of the files and folders in the folder, in ascending order; none where there is no such folder.
  [[nodiscard]] virtual std::vector<std::string> Names(const std::filesystem::path& folder) = 0;

  /// Makes a folder in one that is there; it may be there already.
  virtual void MakeFolder(const std::filesystem::path& folder) = 0;

  /// Deletes an empty folder; one that is not there is no error. `Rename` renames folders as well.
  virtual void RemoveFolder(const std::filesystem::path& folder) = 0;

  /// Locks the file (made where it is missing) against every other program and every other lock of this one. Nothing
  /// where somebody else holds it.
  [[nodiscard]] virtual std::unique_ptr<DiskLock> TryLock(const std::filesystem::path& path) = 0;
};

/// The computer's own files. It keeps no state.
Disk& SystemDisk();

/// Reads exactly `size` bytes, or throws FileError for `name`: the file is shorter than it was a moment ago.
void ReadExactly(DiskFile& file, std::string_view name, std::uint64_t offset, char* to, std::size_t size);

}  // namespace norvale
