#include "base/disk.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <string>
#include <system_error>

#include "base/file_error.h"

#ifdef _WIN32
#ifndef NOMINMAX  // some compilers set it by themselves
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace norvale {

namespace {

std::string ReasonOf(const std::error_code& error);

// What the standard library does alike on every system.
class FolderCalls : public Disk {
 public:
  std::vector<std::string> Names(const std::filesystem::path& folder) override {
    std::error_code error;
    std::vector<std::string> names;
    const std::filesystem::path& named = folder.empty() ? std::filesystem::path(".") : folder;
    for (std::filesystem::directory_iterator at(named, error), end; !error && at != end; at.increment(error))
      names.push_back(at->path().filename().string());
    if (error && error != std::errc::no_such_file_or_directory) throw FileError(named.string(), ReasonOf(error));
    std::sort(names.begin(), names.end());
    return names;
  }

  void MakeFolder(const std::filesystem::path& folder) override {
    std::error_code error;
    std::filesystem::create_directory(folder, error);
    if (error) throw FileError(folder.string(), ReasonOf(error));
  }

  void RemoveFolder(const std::filesystem::path& folder) override {
    std::error_code error;
    std::filesystem::remove(folder, error);
    if (error) throw FileError(folder.string(), ReasonOf(error));
  }
};

#ifdef _WIN32

// In UTF-8, without the period and the line end that the system puts behind its sentences.
std::string SystemReason(DWORD code) {
  std::array<wchar_t, 512> text{};
  DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK, nullptr, code,
                                0, text.data(), static_cast<DWORD>(text.size()), nullptr);
  while (length > 0 && (text[length - 1] == L' ' || text[length - 1] == L'.')) --length;
  if (length == 0) return "error " + std::to_string(code);
  const std::u8string utf8 = std::filesystem::path(text.data(), text.data() + length).u8string();
  return {utf8.begin(), utf8.end()};
}

std::string ReasonOf(const std::error_code& error) {
  return error.category() == std::system_category() ? SystemReason(static_cast<DWORD>(error.value())) : error.message();
}

[[noreturn]] void Fail(const std::filesystem::path& path) {
  const DWORD code = GetLastError();
  throw FileError(path.string(), SystemReason(code));
}

bool IsMissing(DWORD code) { return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND; }

class Handle {
 public:
  explicit Handle(HANDLE handle) : handle_(handle) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() { CloseHandle(handle_); }
  [[nodiscard]] HANDLE Get() const { return handle_; }

 private:
  HANDLE handle_;
};

OVERLAPPED At(std::uint64_t offset) {
  OVERLAPPED at{};
  at.Offset = static_cast<DWORD>(offset);
  at.OffsetHigh = static_cast<DWORD>(offset >> 32);
  return at;
}

constexpr std::size_t kLargestTransfer = 1U << 30;

class SystemFile final : public DiskFile {
 public:
  SystemFile(HANDLE handle, std::filesystem::path path) : handle_(handle), path_(std::move(path)) {}

  std::uint64_t Size() override {
    LARGE_INTEGER size;
    if (!GetFileSizeEx(handle_.Get(), &size)) Fail(path_);
    return static_cast<std::uint64_t>(size.QuadPart);
  }

  std::size_t ReadAt(std::uint64_t offset, char* to, std::size_t size) override {
    std::size_t done = 0;
    while (done < size) {
      OVERLAPPED at = At(offset + done);
      DWORD got = 0;
      if (!ReadFile(handle_.Get(), to + done, static_cast<DWORD>(std::min(size - done, kLargestTransfer)), &got, &at)) {
        if (GetLastError() == ERROR_HANDLE_EOF) break;
        Fail(path_);
      }
      if (got == 0) break;
      done += got;
    }
    return done;
  }

  void WriteAt(std::uint64_t offset, std::string_view bytes) override {
    while (!bytes.empty()) {
      OVERLAPPED at = At(offset);
      DWORD put = 0;
      if (!WriteFile(handle_.Get(), bytes.data(), static_cast<DWORD>(std::min(bytes.size(), kLargestTransfer)), &put, &at)) Fail(path_);
      offset += put;
      bytes.remove_prefix(put);
    }
  }

  void Resize(std::uint64_t size) override {
    FILE_END_OF_FILE_INFO end{};
    end.EndOfFile.QuadPart = static_cast<LONGLONG>(size);
    if (!SetFileInformationByHandle(handle_.Get(), FileEndOfFileInfo, &end, sizeof end)) Fail(path_);
  }

  void Sync() override {
    if (!FlushFileBuffers(handle_.Get())) Fail(path_);
  }

 private:
  Handle handle_;
  std::filesystem::path path_;
};

class SystemLock final : public DiskLock {
 public:
  explicit SystemLock(HANDLE handle) : handle_(handle) {}

 private:
  Handle handle_;  // not shared while it is open
};

class SystemFiles final : public FolderCalls {
 public:
  std::unique_ptr<DiskFile> Open(const std::filesystem::path& path, Opening opening) override {
    const DWORD access = opening == Opening::Read ? GENERIC_READ : GENERIC_READ | GENERIC_WRITE;
    const DWORD how = opening == Opening::Create ? OPEN_ALWAYS : opening == Opening::Fresh ? CREATE_ALWAYS : OPEN_EXISTING;
    const DWORD share = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE handle = CreateFileW(path.c_str(), access, share, nullptr, how, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle != INVALID_HANDLE_VALUE) return std::make_unique<SystemFile>(handle, path);
    if (how == OPEN_EXISTING && IsMissing(GetLastError())) return nullptr;
    Fail(path);
  }

  void Rename(const std::filesystem::path& from, const std::filesystem::path& to) override {
    if (!MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) Fail(from);
  }

  void Remove(const std::filesystem::path& path) override {
    if (!DeleteFileW(path.c_str()) && !IsMissing(GetLastError())) Fail(path);
  }

  void SyncFolder(const std::filesystem::path&) override {}  // names are written through by the calls above

  std::unique_ptr<DiskLock> TryLock(const std::filesystem::path& path) override {
    const HANDLE handle = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle != INVALID_HANDLE_VALUE) return std::make_unique<SystemLock>(handle);
    if (GetLastError() == ERROR_SHARING_VIOLATION) return nullptr;
    Fail(path);
  }
};

#else

std::string ReasonOf(const std::error_code& error) { return error.message(); }

[[noreturn]] void Fail(const std::filesystem::path& path) { throw FileError(path.string(), std::generic_category().message(errno)); }

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { ::close(number_); }  // what counts was synced before, and its error told there
  [[nodiscard]] int Get() const { return number_; }

 private:
  int number_;
};

template <typename Call>
auto Retried(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

class SystemFile final : public DiskFile {
 public:
  SystemFile(int descriptor, std::filesystem::path path) : file_(descriptor), path_(std::move(path)) {}

  std::uint64_t Size() override {
    struct stat about {};
    if (::fstat(file_.Get(), &about) != 0) Fail(path_);
    return static_cast<std::uint64_t>(about.st_size);
  }

  std::size_t ReadAt(std::uint64_t offset, char* to, std::size_t size) override {
    std::size_t done = 0;
    while (done < size) {
      const auto got = Retried([&] { return ::pread(file_.Get(), to + done, size - done, static_cast<off_t>(offset + done)); });
      if (got < 0) Fail(path_);
      if (got == 0) break;
      done += static_cast<std::size_t>(got);
    }
    return done;
  }

  void WriteAt(std::uint64_t offset, std::string_view bytes) override {
    while (!bytes.empty()) {
      const auto put = Retried([&] { return ::pwrite(file_.Get(), bytes.data(), bytes.size(), static_cast<off_t>(offset)); });
      if (put < 0) Fail(path_);
      offset += static_cast<std::uint64_t>(put);
      bytes.remove_prefix(static_cast<std::size_t>(put));
    }
  }

  void Resize(std::uint64_t size) override {
    if (Retried([&] { return ::ftruncate(file_.Get(), static_cast<off_t>(size)); }) != 0) Fail(path_);
  }

  void Sync() override {
#ifdef __APPLE__
    if (::fcntl(file_.Get(), F_FULLFSYNC) != 0) Fail(path_);
#else
    if (Retried([&] { return ::fdatasync(file_.Get()); }) != 0) Fail(path_);
#endif
  }

 private:
  Descriptor file_;
  std::filesystem::path path_;
};

class SystemLock final : public DiskLock {
 public:
  explicit SystemLock(int descriptor) : file_(descriptor) {}
  [[nodiscard]] int Get() const { return file_.Get(); }

 private:
  Descriptor file_;  // closing it gives the lock back
};

class SystemFiles final : public FolderCalls {
 public:
  std::unique_ptr<DiskFile> Open(const std::filesystem::path& path, Opening opening) override {
    int flags = O_CLOEXEC | (opening == Opening::Read ? O_RDONLY : O_RDWR);
    if (opening == Opening::Create || opening == Opening::Fresh) flags |= O_CREAT;
    if (opening == Opening::Fresh) flags |= O_TRUNC;
    const int descriptor = Retried([&] { return ::open(path.c_str(), flags, 0666); });
    if (descriptor >= 0) return std::make_unique<SystemFile>(descriptor, path);
    if (errno == ENOENT && (flags & O_CREAT) == 0) return nullptr;
    Fail(path);
  }

  void Rename(const std::filesystem::path& from, const std::filesystem::path& to) override {
    if (::rename(from.c_str(), to.c_str()) != 0) Fail(from);
  }

  void Remove(const std::filesystem::path& path) override {
    if (::unlink(path.c_str()) != 0 && errno != ENOENT) Fail(path);
  }

  void SyncFolder(const std::filesystem::path& folder) override {
    const std::filesystem::path& named = folder.empty() ? std::filesystem::path(".") : folder;
    const int descriptor = Retried([&] { return ::open(named.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
    if (descriptor < 0) Fail(named);
    const Descriptor opened(descriptor);
    // A shared folder may know no such call for folders (EINVAL): its server writes names when it gets them.
    if (Retried([&] { return ::fsync(opened.Get()); }) != 0 && errno != EINVAL) Fail(named);
  }

  std::unique_ptr<DiskLock> TryLock(const std::filesystem::path& path) override {
    const int descriptor = Retried([&] { return ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666); });
    if (descriptor < 0) Fail(path);
    auto lock = std::make_unique<SystemLock>(descriptor);
    if (Retried([&] { return ::flock(descriptor, LOCK_EX | LOCK_NB); }) == 0) return lock;
    if (errno == EWOULDBLOCK) return nullptr;
    Fail(path);
  }
};

#endif

}  // namespace

Disk& SystemDisk() {
  static SystemFiles disk;
  return disk;
}

void ReadExactly(DiskFile& file, std::string_view name, std::uint64_t offset, char* to, std::size_t size) {
  if (file.ReadAt(offset, to, size) != size) throw FileError(std::string(name), "the file ended while it was being read");
}

}  // namespace norvale
