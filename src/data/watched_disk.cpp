#include "data/watched_disk.h"

#include <utility>

#include "data/backup.h"

namespace norvale {

class WatchedDisk::File final : public DiskFile {
 public:
  File(std::unique_ptr<DiskFile> file, bool& changed) : file_(std::move(file)), changed_(changed) {}

  std::uint64_t Size() override { return file_->Size(); }
  std::size_t ReadAt(std::uint64_t offset, char* to, std::size_t size) override { return file_->ReadAt(offset, to, size); }
  void WriteAt(std::uint64_t offset, std::string_view bytes) override {
    changed_ = true;
    file_->WriteAt(offset, bytes);
  }
  void Resize(std::uint64_t size) override {
    changed_ = true;
    file_->Resize(size);
  }
  void Sync() override { file_->Sync(); }

 private:
  std::unique_ptr<DiskFile> file_;
  bool& changed_;
};

bool WatchedDisk::IsWatched(const std::filesystem::path& path) const {
  return path.parent_path() == folder_ && IsKept(path.filename().string());
}

bool WatchedDisk::TakeChanged() { return std::exchange(changed_, false); }

std::unique_ptr<DiskFile> WatchedDisk::Open(const std::filesystem::path& path, Opening opening) {
  auto file = disk_.Open(path, opening);
  if (file == nullptr || opening == Opening::Read || !IsWatched(path)) return file;
  return std::make_unique<File>(std::move(file), changed_);
}

void WatchedDisk::Rename(const std::filesystem::path& from, const std::filesystem::path& to) {
  changed_ = changed_ || IsWatched(from) || IsWatched(to);
  disk_.Rename(from, to);
}

void WatchedDisk::Remove(const std::filesystem::path& path) {
  changed_ = changed_ || IsWatched(path);
  disk_.Remove(path);
}

}  // namespace norvale
