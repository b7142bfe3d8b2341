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
      : disk_(disk), name_(std::move(name)), content_(std::move(content)) {
    ++content_->opened;
  }
  ~MemoryFile() override { --content_->opened; }

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

MemoryDisk::Entry MemoryDisk::At(const std::filesystem::path& path) const {
  Entry entry{nullptr, root_};
  for (const auto& name : path) {
    if (name == ".") continue;
    if (entry.folder == nullptr || !entry.folder->now.contains(name.string())) return {};
    entry = Entry(entry.folder->now.at(name.string()));
  }
  return entry;
}

std::shared_ptr<MemoryDisk::Folder> MemoryDisk::Parent(const std::filesystem::path& path) const {
  auto folder = At(path.parent_path()).folder;
  if (folder == nullptr) throw FileError(NameOf(path), "No such file or directory");
  return folder;
}

void MemoryDisk::ChangeNames(Folder& folder, std::function<void(Entries&)> change) {
  change(folder.now);
  folder.pending.push_back(std::move(change));
}

std::unique_ptr<DiskFile> MemoryDisk::Open(const std::filesystem::path& path, Opening opening) {
  const std::string name = NameOf(path);
  if (const auto content = At(path).file) {
    auto file = std::make_unique<MemoryFile>(*this, name, content);
    if (opening == Opening::Fresh)
      file->Resize(0);
    else
      Call(name);
    return file;
  }
  if (opening == Opening::Read || opening == Opening::Update) {
    Call(name);
    return nullptr;
  }
  const auto folder = Parent(path);
  Change(name);
  auto content = std::make_shared<Content>();
  ChangeNames(*folder, [name, content](Entries& names) { names[name] = {content, nullptr}; });
  return std::make_unique<MemoryFile>(*this, name, content);
}

void MemoryDisk::RequireClosed(const std::filesystem::path& path) const {
  if (const auto file = At(path).file; file != nullptr && file->opened > 0)
    throw std::logic_error(NameOf(path) + " is renamed, replaced or deleted while it is open");
}

void MemoryDisk::Rename(const std::filesystem::path& from, const std::filesystem::path& to) {
  RequireClosed(from);
  RequireClosed(to);
  Change(NameOf(from));
  const auto folder = Parent(from);
  if (!folder->now.contains(NameOf(from))) throw FileError(NameOf(from), "No such file or directory");
  if (Parent(to) != folder) throw std::logic_error("names move within one folder only");
  ChangeNames(*folder, [from = NameOf(from), to = NameOf(to)](Entries& names) {
    const auto found = names.find(from);
    if (found == names.end()) return;
    names[to] = found->second;
    names.erase(from);
  });
}

void MemoryDisk::Remove(const std::filesystem::path& path) {
  RequireClosed(path);
  Change(NameOf(path));
  ChangeNames(*Parent(path), [name = NameOf(path)](Entries& names) { names.erase(name); });
}

void MemoryDisk::SyncFolder(const std::filesystem::path& folder) {
  Change(NameOf(folder));
  if (LeavesOut()) return;
  const auto synced = At(folder).folder;
  synced->synced = synced->now;
  synced->pending.clear();
}

std::vector<std::string> MemoryDisk::Names(const std::filesystem::path& folder) {
  Call(NameOf(folder));
  std::vector<std::string> names;
  if (const auto read = At(folder).folder)
    for (const auto& [name, entry] : read->now) names.push_back(name);
  return names;
}

void MemoryDisk::MakeFolder(const std::filesystem::path& folder) {
  if (At(folder).folder != nullptr) return Call(NameOf(folder));
  Change(NameOf(folder));
  auto made = std::make_shared<Folder>();
  ChangeNames(*Parent(folder), [name = NameOf(folder), made](Entries& names) { names[name] = {nullptr, made}; });
}

void MemoryDisk::RemoveFolder(const std::filesystem::path& folder) {
  const auto removed = At(folder).folder;
  if (removed != nullptr && !removed->now.empty()) throw FileError(NameOf(folder), "Directory not empty");
  Remove(folder);
}

std::unique_ptr<DiskLock> MemoryDisk::TryLock(const std::filesystem::path& path) {
  Call(NameOf(path));
  if (isLocked) return nullptr;
  return std::make_unique<MemoryLock>(*this);
}

std::unique_ptr<MemoryDisk> MemoryDisk::AfterPowerCut(Survival survival, unsigned seed) const {
  constexpr std::size_t kPiece = 64;  // smaller than any real disk's, so that one record can be torn as well
  std::minstd_rand chance(seed);
  const auto survives = [&] { return survival == Survival::Everything || (survival == Survival::Something && chance() % 2 == 0); };
  const std::function<std::shared_ptr<Folder>(const Folder&)> after = [&](const Folder& folder) {
    auto left = std::make_shared<Folder>();
    left->now = folder.synced;
    for (const auto& change : folder.pending)
      if (survives()) change(left->now);
    for (auto& [name, entry] : left->now) {
      if (entry.folder != nullptr) {
        entry.folder = after(*entry.folder);
        continue;
      }
      std::string bytes = entry.file->synced;
      for (const Pending& change : entry.file->pending) {
        if (change.isResize) {
          if (survives()) Apply(bytes, change);
          continue;
        }
        for (std::size_t at = 0; at < change.bytes.size(); at += kPiece)
          if (survives()) Apply(bytes, {change.offset + at, change.bytes.substr(at, kPiece), false});
      }
      entry.file = std::make_shared<Content>();
      entry.file->now = entry.file->synced = std::move(bytes);
    }
    left->synced = left->now;
    return left;
  };
  auto disk = std::make_unique<MemoryDisk>();
  disk->root_ = after(*root_);
  return disk;
}

std::string MemoryDisk::Bytes(const std::filesystem::path& path) const {
  const auto file = At(path).file;
  return file != nullptr ? file->now : std::string();
}

void MemoryDisk::SetBytes(const std::filesystem::path& path, std::string bytes) {
  auto content = std::make_shared<Content>();
  content->now = content->synced = std::move(bytes);
  const auto folder = Parent(path);
  folder->now[NameOf(path)] = {content, nullptr};
  folder->synced = folder->now;
  folder->pending.clear();
}

std::map<std::string, std::string> MemoryDisk::FilesIn(const std::filesystem::path& path) const {
  std::map<std::string, std::string> files;
  if (const auto folder = At(path).folder)
    for (const auto& [name, entry] : folder->now)
      if (entry.file != nullptr) files[name] = entry.file->now;
  return files;
}

}  // namespace norvale
