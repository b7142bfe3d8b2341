#include "data/journal.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <vector>

#include "base/checksum.h"
#include "base/file_error.h"

namespace norvale {

namespace {

constexpr std::string_view kMagic = "NVJRNL01";
constexpr std::size_t kHeaderSize = 32;  // magic, length of the list, its checksum, the checksum of these
constexpr std::size_t kStepSize = 24;    // kind, file, 6 bytes of 0, offset, length; then the bytes
constexpr std::size_t kBlock = 256 * 1024;
static_assert(kBlock % kChecksumPiece == 0, "the checksum goes by whole words");

constexpr std::uint64_t kLargestFile = 1ULL << 31;  // positions in the files are 32-bit

constexpr std::uint8_t kSetLength = 1;
constexpr std::uint8_t kPutBytes = 2;
constexpr std::uint8_t kRename = 3;
constexpr std::uint8_t kRemove = 4;
constexpr std::size_t kLongestNames = 1024;  // of both names of a step

// A name that lies in the folder itself, whatever the system.
bool IsPlainName(std::string_view name) {
  return !name.empty() && name.front() != '.' && name.find_first_of(std::string_view("/\\:\0", 4)) == std::string_view::npos;
}

std::array<char, kHeaderSize> Header(std::uint64_t length, std::uint64_t checksum) {
  std::array<char, kHeaderSize> header{};
  std::copy(kMagic.begin(), kMagic.end(), header.begin());
  PutNumber(header.data() + 8, length);
  PutNumber(header.data() + 16, checksum);
  PutNumber(header.data() + 24, Checksum(0, {header.data(), 24}));
  return header;
}

// The length of the sealed list in the file, or nothing where the file holds none.
std::optional<std::uint64_t> SealedLength(DiskFile& file) {
  std::array<char, kHeaderSize> header{};
  if (file.ReadAt(0, header.data(), kHeaderSize) != kHeaderSize) return std::nullopt;
  const std::uint64_t length = GetNumber(header.data() + 8);
  if (header != Header(length, GetNumber(header.data() + 16))) return std::nullopt;
  const std::uint64_t size = file.Size();
  if (length > size - kHeaderSize) return std::nullopt;

  std::string block(static_cast<std::size_t>(std::min<std::uint64_t>(length, kBlock)), '\0');
  std::uint64_t sum = 0;
  for (std::uint64_t at = 0; at < length;) {
    const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(kBlock, length - at));
    if (file.ReadAt(kHeaderSize + at, block.data(), wanted) != wanted) return std::nullopt;
    sum = Checksum(sum, std::string_view(block).substr(0, wanted));
    at += wanted;
  }
  if (sum != GetNumber(header.data() + 16)) return std::nullopt;
  return length;
}

}  // namespace

Journal::Journal(Disk& disk, std::filesystem::path folder)
    : disk_(disk), folder_(std::move(folder)), path_(folder_ / kJournalFile), file_(disk_.Open(path_, Opening::Update)) {
  if (!file_) {
    file_ = disk_.Open(path_, Opening::Create);
    isNewFile_ = true;
  }
}

Journal::Journal(Disk& disk, std::filesystem::path folder, std::unique_ptr<DiskFile> file)
    : disk_(disk), folder_(std::move(folder)), path_(folder_ / kJournalFile), file_(std::move(file)) {}

void Journal::Append(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t fits = std::min(bytes.size(), kBlock - buffer_.size());
    buffer_.append(bytes.substr(0, fits));
    bytes.remove_prefix(fits);
    if (buffer_.size() == kBlock) Flush();
  }
}

void Journal::Flush() {
  checksum_ = Checksum(checksum_, buffer_);
  file_->WriteAt(kHeaderSize + written_, buffer_);
  written_ += buffer_.size();
  buffer_.clear();
}

void Journal::AddStep(std::uint8_t kind, DataFile file, std::uint64_t offset, std::uint64_t length) {
  std::array<char, kStepSize> step{};
  step[0] = static_cast<char>(kind);
  step[1] = static_cast<char>(file);
  PutNumber(step.data() + 8, offset);
  PutNumber(step.data() + 16, length);
  Append({step.data(), step.size()});
}

void Journal::AddLength(DataFile file, std::uint64_t length) { AddStep(kSetLength, file, length, 0); }

void Journal::AddBytes(DataFile file, std::uint64_t offset, std::string_view bytes) {
  AddStep(kPutBytes, file, offset, bytes.size());
  Append(bytes);
}

void Journal::AddNames(std::uint8_t kind, std::string_view names) {
  AddStep(kind, DataFile{}, 0, names.size());
  Append(names);
}

void Journal::AddRename(std::string_view from, std::string_view to) { AddNames(kRename, std::string(from) + '/' + std::string(to)); }

void Journal::AddRemove(std::string_view name) { AddNames(kRemove, name); }

void Journal::AddBytesOf(DataFile file, DiskFile& from, std::uint64_t offset, std::uint64_t length) {
  AddStep(kPutBytes, file, offset, length);
  std::string block(static_cast<std::size_t>(std::min<std::uint64_t>(length, kBlock)), '\0');
  while (length > 0) {
    const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(kBlock, length));
    ReadExactly(from, NameOf(file), offset, block.data(), wanted);
    Append(std::string_view(block).substr(0, wanted));
    offset += wanted;
    length -= wanted;
  }
}

void Journal::Seal() {
  state_ = State::Sealing;
  if (written_ == 0) {
    // A short list goes out with its header in one write.
    const auto header = Header(buffer_.size(), Checksum(0, buffer_));
    checksum_ = Checksum(0, buffer_);
    file_->WriteAt(0, std::string(header.data(), header.size()) + buffer_);
    written_ = buffer_.size();
    buffer_.clear();
  } else {
    if (!buffer_.empty()) Flush();
    WriteHeader();
  }
  file_->Sync();
  if (isNewFile_) disk_.SyncFolder(folder_);
  isNewFile_ = false;
  state_ = State::Sealed;
}

void Journal::SealAgain() {
  WriteHeader();
  file_->Sync();
}

void Journal::WriteHeader() {
  const auto header = Header(written_, checksum_);
  file_->WriteAt(0, {header.data(), header.size()});
}

void Journal::TakeSteps(bool* begun) {
  const std::uint64_t end = kHeaderSize + written_;
  std::map<DataFile, std::unique_ptr<DiskFile>> files;
  bool renamed = false;
  const auto open = [&](DataFile file) -> DiskFile& {
    auto& opened = files[file];
    if (!opened) {
      opened = disk_.Open(folder_ / NameOf(file), Opening::Create);
      renamed = true;  // it may be a new name
    }
    return *opened;
  };
  const auto change = [&] {
    if (begun != nullptr) *begun = true;
  };
  const auto damaged = [&] { return FileError(path_.string(), "a step of the list is none that this program writes"); };

  // A file that was written by an earlier step is whole before its name changes.
  const auto closeAll = [&files] {
    for (const auto& [file, opened] : files) opened->Sync();
    files.clear();
  };
  const auto rename = [&](std::string_view from, std::string_view to) {
    if (!disk_.Open(folder_ / from, Opening::Read)) return;  // done by an earlier try
    closeAll();
    change();
    disk_.Rename(folder_ / from, folder_ / to);
    renamed = true;
  };
  const auto remove = [&](const std::string& name) {
    if (!disk_.Open(folder_ / name, Opening::Read)) return;
    closeAll();
    change();
    disk_.Remove(folder_ / name);
    renamed = true;
  };

  std::string block;
  for (std::uint64_t at = kHeaderSize; at < end;) {
    std::array<char, kStepSize> step{};
    ReadExactly(*file_, kJournalFile, at, step.data(), step.size());
    at += kStepSize;
    const auto kind = static_cast<std::uint8_t>(step[0]);
    const auto number = static_cast<std::uint8_t>(step[1]);
    std::uint64_t offset = GetNumber(step.data() + 8);
    std::uint64_t length = GetNumber(step.data() + 16);
    if (number >= kDataFileNames.size() || length > end - at) throw damaged();
    if (offset > kLargestFile || length > kLargestFile) throw damaged();
    const auto file = static_cast<DataFile>(number);

    if (kind == kSetLength) {
      DiskFile& opened = open(file);
      if (opened.Size() == offset) continue;
      change();
      opened.Resize(offset);
    } else if (kind == kPutBytes) {
      DiskFile& opened = open(file);
      change();
      block.resize(static_cast<std::size_t>(std::min<std::uint64_t>(length, kBlock)));
      while (length > 0) {
        const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(kBlock, length));
        ReadExactly(*file_, kJournalFile, at, block.data(), wanted);
        opened.WriteAt(offset, std::string_view(block).substr(0, wanted));
        at += wanted;
        offset += wanted;
        length -= wanted;
      }
    } else if ((kind == kRename || kind == kRemove) && length <= kLongestNames) {
      block.resize(static_cast<std::size_t>(length));
      ReadExactly(*file_, kJournalFile, at, block.data(), block.size());
      at += length;
      const std::size_t cut = kind == kRename ? block.find('/') : block.size();
      const std::string first = block.substr(0, cut);
      const std::string second = cut < block.size() ? block.substr(cut + 1) : std::string();
      if (!IsPlainName(first) || (kind == kRename && !IsPlainName(second))) throw damaged();
      if (kind == kRename)
        rename(first, second);
      else
        remove(first);
    } else {
      throw damaged();
    }
  }
  closeAll();
  if (renamed) disk_.SyncFolder(folder_);
}

void Journal::Retire() {
  constexpr std::array<char, kHeaderSize> kNothing{};
  state_ = State::Retiring;
  file_->WriteAt(0, {kNothing.data(), kNothing.size()});
  file_->Sync();
  state_ = State::Empty;
}

bool Journal::Recover(Disk& disk, const std::filesystem::path& folder) {
  if (!IsPending(disk, folder)) return false;
  auto file = disk.Open(folder / kJournalFile, Opening::Update);
  if (!file) return false;
  const auto length = SealedLength(*file);
  Journal journal(disk, folder, std::move(file));
  if (length) {
    journal.written_ = *length;
    journal.TakeSteps();
  }
  journal.Retire();
  return length.has_value();
}

bool Journal::IsPending(Disk& disk, const std::filesystem::path& folder) {
  const auto file = disk.Open(folder / kJournalFile, Opening::Read);
  if (!file) return false;
  std::array<char, kHeaderSize> header{};
  return file->ReadAt(0, header.data(), header.size()) > 0 && header != std::array<char, kHeaderSize>{};
}

}  // namespace norvale
