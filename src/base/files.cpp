#include "base/files.h"

#include <cerrno>
#include <fstream>
#include <system_error>

#include "base/file_error.h"

namespace norvale {

namespace {

std::string SystemReason(int code) { return std::generic_category().message(code); }

std::filesystem::path Beside(std::filesystem::path path) { return path += ".new"; }

void WriteBeside(Disk& disk, const std::filesystem::path& path, std::string_view bytes) {
  // A rename would pass over the mark of a file that may not be written.
  (void)disk.Open(path, Opening::Update);
  try {
    const auto file = disk.Open(Beside(path), Opening::Fresh);
    file->WriteAt(0, bytes);
    file->Sync();
  } catch (...) {
    disk.Remove(Beside(path));
    throw;
  }
}

void TakePlace(Disk& disk, const std::filesystem::path& path) {
  try {
    disk.Rename(Beside(path), path);
  } catch (const FileError&) {  // another program may have it open
    disk.Remove(Beside(path));
    throw;
  }
  disk.SyncFolder(path.parent_path());
}

}  // namespace

std::filesystem::path PathFromUtf8(std::string_view utf8) { return std::u8string(utf8.begin(), utf8.end()); }

std::optional<std::string> ReadFileIfPresent(const std::filesystem::path& path) {
  errno = 0;
  std::ifstream file(path, std::ios::binary);
  if (!file.is_open()) {
    if (errno == ENOENT) return std::nullopt;
    throw FileError(path.string(), SystemReason(errno));
  }
  // One byte more than fits now, so that a file that grows meanwhile is read to its end as well.
  std::error_code unknown;
  const auto size = std::filesystem::file_size(path, unknown);
  std::string bytes;
  bytes.resize(unknown || size > kLargestWholeFile ? 4096 : static_cast<std::size_t>(size) + 1);
  std::size_t used = 0;
  for (;;) {
    errno = 0;
    file.read(bytes.data() + used, static_cast<std::streamsize>(bytes.size() - used));
    if (file.bad()) throw FileError(path.string(), SystemReason(errno));
    used += static_cast<std::size_t>(file.gcount());
    if (used < bytes.size()) break;
    if (used > kLargestWholeFile) throw FileError(path.string(), "the file is far too long to be one of this program's");
    bytes.resize(bytes.size() * 2);
  }
  bytes.resize(used);
  return bytes;
}

std::string ReadWholeFile(const std::filesystem::path& path) {
  auto bytes = ReadFileIfPresent(path);
  if (!bytes) throw FileError(path.string(), SystemReason(ENOENT));
  return *std::move(bytes);
}

void ReplaceFile(Disk& disk, const std::filesystem::path& path, std::string_view bytes) {
  WriteBeside(disk, path, bytes);
  TakePlace(disk, path);
}

void ReplaceFileWithBackup(Disk& disk, const std::filesystem::path& path, const std::filesystem::path& backup, std::string_view bytes) {
  WriteBeside(disk, path, bytes);
  try {
    if (const auto before = disk.Open(path, Opening::Read)) {
      std::string kept(static_cast<std::size_t>(before->Size()), '\0');
      ReadExactly(*before, path.string(), 0, kept.data(), kept.size());
      ReplaceFile(disk, backup, kept);
    }
  } catch (...) {
    disk.Remove(Beside(path));
    throw;
  }
  TakePlace(disk, path);
}

}  // namespace norvale
