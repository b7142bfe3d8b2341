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
 public:
  std::string reason;

  std::unique_ptr<DiskFile> Open(const std::filesystem::path& path, Opening opening) override {
    auto file = SystemDisk().Open(path, opening);
    if (file == nullptr) return nullptr;
    return std::make_unique<File>(*this, path, std::move(file));
  }
  void Rename(const std::filesystem::path& from, const std::filesystem::path& to) override {
    Refuse(from);
    SystemDisk().Rename(from, to);
  }
  void Remove(const std::filesystem::path& path) override {
    Refuse(path);
    SystemDisk().Remove(path);
  }
  void SyncFolder(const std::filesystem::path& folder) override { SystemDisk().SyncFolder(folder); }
  std::vector<std::string> Names(const std::filesystem::path& folder) override { return SystemDisk().Names(folder); }
  void MakeFolder(const std::filesystem::path& folder) override {
    Refuse(folder);
    SystemDisk().MakeFolder(folder);
  }
  void RemoveFolder(const std::filesystem::path& folder) override {
    Refuse(folder);
    SystemDisk().RemoveFolder(folder);
  }
  std::unique_ptr<DiskLock> TryLock(const std::filesystem::path& path) override {
    Refuse(path);
    return SystemDisk().TryLock(path);
  }

 private:
  class File final : public DiskFile {
   public:
    File(const RefusingDisk& disk, std::filesystem::path path, std::unique_ptr<DiskFile> file)
        : disk_(disk), path_(std::move(path)), file_(std::move(file)) {}
    std::uint64_t Size() override { return file_->Size(); }
    std::size_t ReadAt(std::uint64_t offset, char* to, std::size_t size) override { return file_->ReadAt(offset, to, size); }
    void WriteAt(std::uint64_t offset, std::string_view bytes) override {
      disk_.Refuse(path_);
      file_->WriteAt(offset, bytes);
    }
    void Resize(std::uint64_t size) override {
      disk_.Refuse(path_);
      file_->Resize(size);
    }
    void Sync() override { file_->Sync(); }

   private:
    const RefusingDisk& disk_;
    std::filesystem::path path_;
    std::unique_ptr<DiskFile> file_;
  };

  void Refuse(const std::filesystem::path& path) const {
    if (!reason.empty()) throw FileError(path.filename().string(), reason);
  }
};

}  // namespace norvale
