#include "support/memory_disk.h"

#include <algorithm>

namespace norvale {

namespace {

std::string NameOf(const std::filesystem::path& path) { return path.filename().string(); }

class MemoryLock final : public DiskLock {
 public:
  explicit MemoryLock(MemoryDisk& disk) : disk_(disk) { disk_.isLocked = true; }
  ~MemoryLock() override { disk_.isLocked = false; }

 private:
  MemoryDisk& disk_;
};

}  // namespace

class MemoryFile final : public DiskFile {
 public:
  MemoryFile(MemoryDisk& disk, std::string name, std::shared_ptr<MemoryDisk::Content> content)
      : disk_(disk), name_(std::move(name)), content_(std::move(content)) {}

  std::uint64_t Size() override {
    disk_.Call(name_);
    return content_->now.size();
  }

  std::size_t ReadAt(std::uint64_t offset, char* to, std::size_t size) override {
    disk_.Call(name_);
    if (offset >= content_->now.size()) return 0;
    return content_->now.copy(to, size, static_cast<std::size_t>(offset));
  }

  void WriteAt(std::uint64_t offset, std::string_view bytes) override {
    const bool torn = disk_.Change(name_, true);
    if (torn) bytes = bytes.substr(0, bytes.size() / 2);
    Do({offset, std::string(bytes), false});
    if (torn) throw PowerCut();
  }

  void Resize(std::uint64_t size) override {
    disk_.Change(name_);
    Do({size, "", true});
  }

  void Sync() override {
    disk_.Change(name_);
    if (disk_.LeavesOut()) return;
    content_->synced = content_->now;
    content_->pending.clear();
  }

 private:
  void Do(MemoryDisk::Pending change) {
    MemoryDisk::Apply(content_->now, change);
    content_->pending.push_back(std::move(change));
  }

  MemoryDisk& disk_;
  std::string name_;
  std::shared_ptr<MemoryDisk::Content> content_;
};

void MemoryDisk::Apply(std::string& content, const Pending& change) {
  const auto offset = static_cast<std::size_t>(change.offset);
  if (change.isResize) return content.resize(offset, '\0');
  if (content.size() < offset + change.bytes.size()) content.resize(offset + change.bytes.size(), '\0');
  std::copy(change.bytes.begin(), change.bytes.end(), content.begin() + static_cast<std::ptrdiff_t>(offset));
}

void MemoryDisk::Call(const std::string& name) {
  if (isDead_) throw PowerCut();
  const int call = calls++;
  if (failCall >= 0 && (call == failCall || (failsOn && call > failCall))) {
    if (call == failCall) failedFile = name;
    throw FileError(name, "No space left on device");
  }
}

bool MemoryDisk::Change(const std::string& name, bool isWrite) {
  Call(name);
  if (changes++ != cutBefore) return false;
  isDead_ = true;
  if (isWrite && tearsWrite) return true;
  throw PowerCut();
}

std::unique_ptr<DiskFile> MemoryDisk::Open(const std::filesystem::path& path, Opening opening) {
  const std::string name = NameOf(path);
  const auto found = names_.find(name);
  const bool isThere = found != names_.end();
  if (!isThere && (opening == Opening::Read || opening == Opening::Update)) {
    Call(name);
    return nullptr;
  }
  if (!isThere) {
    Change(name);
    auto content = std::make_shared<Content>();
    names_[name] = content;
    pendingNames_.emplace_back([name, content](Names& names) { names[name] = content; });
    return std::make_unique<MemoryFile>(*this, name, content);
  }
  auto file = std::make_unique<MemoryFile>(*this, name, found->second);
  if (opening == Opening::Fresh)
    file->Resize(0);
  else
    Call(name);
  return file;
}

void MemoryDisk::Rename(const std::filesystem::path& from, const std::filesystem::path& to) {
  Change(NameOf(from));
  const auto rename = [from = NameOf(from), to = NameOf(to)](Names& names) {
    const auto found = names.find(from);
    if (found == names.end()) return;
    names[to] = found->second;
    names.erase(from);
  };
  if (!names_.contains(NameOf(from))) throw FileError(NameOf(from), "No such file or directory");
  rename(names_);
  pendingNames_.emplace_back(rename);
}

void MemoryDisk::Remove(const std::filesystem::path& path) {
  Change(NameOf(path));
  const auto remove = [name = NameOf(path)](Names& names) { names.erase(name); };
  remove(names_);
  pendingNames_.emplace_back(remove);
}

void MemoryDisk::SyncFolder(const std::filesystem::path& folder) {
  Change(NameOf(folder));
  if (LeavesOut()) return;
  syncedNames_ = names_;
  pendingNames_.clear();
}

std::unique_ptr<DiskLock> MemoryDisk::TryLock(const std::filesystem::path& path) {
  Call(NameOf(path));
  if (isLocked) return nullptr;
  return std::make_unique<MemoryLock>(*this);
}

std::unique_ptr<MemoryDisk> MemoryDisk::Copy() const {
  auto copy = std::make_unique<MemoryDisk>();
  for (const auto& [name, content] : names_) copy->SetBytes(name, content->now);
  return copy;
}

std::unique_ptr<MemoryDisk> MemoryDisk::AfterPowerCut(Survival survival, unsigned seed) const {
  if (survival == Survival::Everything) return Copy();
  constexpr std::size_t kPiece = 64;  // smaller than any real disk's, so that one record can be torn as well
  std::minstd_rand chance(seed);
  const auto survives = [&] { return survival == Survival::Something && chance() % 2 == 0; };
  Names names = syncedNames_;
  for (const auto& change : pendingNames_)
    if (survives()) change(names);
  auto after = std::make_unique<MemoryDisk>();
  for (const auto& [name, content] : names) {
    std::string bytes = content->synced;
    for (const Pending& change : content->pending) {
      if (change.isResize) {
        if (survives()) Apply(bytes, change);
        continue;
      }
      for (std::size_t at = 0; at < change.bytes.size(); at += kPiece)
        if (survives()) Apply(bytes, {change.offset + at, change.bytes.substr(at, kPiece), false});
    }
    after->SetBytes(name, bytes);
  }
  return after;
}

std::string MemoryDisk::Bytes(std::string_view name) const {
  const auto found = names_.find(std::string(name));
  return found == names_.end() ? std::string() : found->second->now;
}

void MemoryDisk::SetBytes(std::string_view name, std::string bytes) {
  auto content = std::make_shared<Content>();
  content->now = content->synced = std::move(bytes);
  names_[std::string(name)] = content;
  syncedNames_[std::string(name)] = content;
}

}  // namespace norvale
