// A disk that refuses from a chosen moment on.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/disk.h"
#include "base/file_error.h"

namespace norvale {

/// The computer's disk until `reason` is set: then every call that changes something is refused with it.
class RefusingDisk final : public Disk {
  using Path = std::filesystem::path;

 public:
  std::string reason;

  std::unique_ptr<DiskFile> Open(const Path& path, Opening opening) override {
    auto file = SystemDisk().Open(path, opening);
    return file == nullptr ? nullptr : std::make_unique<File>(*this, path, std::move(file));
  }
  void Rename(const Path& from, const Path& to) override { ToChange(from).Rename(from, to); }
  void Remove(const Path& path) override { ToChange(path).Remove(path); }
  void SyncFolder(const Path& folder) override { SystemDisk().SyncFolder(folder); }
  std::vector<std::string> Names(const Path& folder) override { return SystemDisk().Names(folder); }
  void MakeFolder(const Path& folder) override { ToChange(folder).MakeFolder(folder); }
  void RemoveFolder(const Path& folder) override { ToChange(folder).RemoveFolder(folder); }
  std::unique_ptr<DiskLock> TryLock(const Path& path) override { return ToChange(path).TryLock(path); }

 private:
  class File final : public DiskFile {
   public:
    File(const RefusingDisk& disk, Path path, std::unique_ptr<DiskFile> file)
        : disk_(disk), path_(std::move(path)), file_(std::move(file)) {}
    std::uint64_t Size() override { return file_->Size(); }
    std::size_t ReadAt(std::uint64_t offset, char* to, std::size_t size) override { return file_->ReadAt(offset, to, size); }
    void WriteAt(std::uint64_t offset, std::string_view bytes) override { ToChange().WriteAt(offset, bytes); }
    void Resize(std::uint64_t size) override { ToChange().Resize(size); }
    void Sync() override { file_->Sync(); }

   private:
    DiskFile& ToChange() {
      (void)disk_.ToChange(path_);
      return *file_;
    }

    const RefusingDisk& disk_;
    Path path_;
    std::unique_ptr<DiskFile> file_;
  };

  // The disk to do it on; throws FileError where it is refused.
  [[nodiscard]] Disk& ToChange(const Path& path) const {
    if (!reason.empty()) throw FileError(path.filename().string(), reason);
    return SystemDisk();
  }
};

}  // namespace norvale
