#include "data/backup.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <ctime>
#include <sstream>

#include "base/checksum.h"
#include "base/file_error.h"
#include "data/change.h"
#include "data/folder_check.h"
#include "data/index_file.h"
#include "data/journal.h"

namespace norvale {

namespace {

namespace fs = std::filesystem;
using std::chrono::local_seconds;

constexpr std::array<std::string_view, 4> kReasonWords = {"start", "change", "restore", "hand"};
constexpr std::string_view kUnfinished = ".new";   // a backup that is being made
constexpr std::string_view kGoing = ".gone";       // one that is being removed
constexpr std::string_view kStaged = ".restored";  // a file on its way back into the working folder
constexpr std::string_view kListTitle = "Norvale backup, files: ";
static_assert(kPieceSize % kChecksumPiece == 0);

struct CopiedFile {
  std::string name;
  std::uint64_t size = 0;
  std::uint64_t checksum = 0;

  bool operator==(const CopiedFile&) const = default;
};
using Contents = std::vector<CopiedFile>;

std::string Digits(std::int64_t number, std::size_t width) {
  std::string digits = std::to_string(number);
  return std::string(width - std::min(width, digits.size()), '0') + digits;
}

struct ClockFace {
  explicit ClockFace(local_seconds time)
      : date(std::chrono::floor<std::chrono::days>(time)), clock(time - std::chrono::floor<std::chrono::days>(time)) {}
  [[nodiscard]] std::string Year() const { return Digits(static_cast<int>(date.year()), 4); }
  [[nodiscard]] std::string Month() const { return Digits(static_cast<unsigned>(date.month()), 2); }
  [[nodiscard]] std::string Day() const { return Digits(static_cast<unsigned>(date.day()), 2); }
  [[nodiscard]] std::string Hour() const { return Digits(clock.hours().count(), 2); }
  [[nodiscard]] std::string Minute() const { return Digits(clock.minutes().count(), 2); }
  [[nodiscard]] std::string Second() const { return Digits(clock.seconds().count(), 2); }

  std::chrono::year_month_day date;
  std::chrono::hh_mm_ss<std::chrono::seconds> clock;
};

std::string NameFor(local_seconds made, BackupReason reason) {
  const ClockFace face(made);
  return face.Year() + '-' + face.Month() + '-' + face.Day() + '-' + face.Hour() + face.Minute() + face.Second() + '-' +
         std::string(kReasonWords[static_cast<std::size_t>(reason)]);
}

// What the name of a backup's folder tells; nothing for any other name.
std::optional<Backup> FromName(std::string_view name) {
  constexpr std::string_view kForm = "0000-00-00-000000-";
  if (name.size() <= kForm.size()) return std::nullopt;
  const auto number = [&](std::size_t from, std::size_t width) {
    int value = 0;
    std::from_chars(name.data() + from, name.data() + from + width, value);
    return value;
  };
  const std::chrono::year_month_day date{std::chrono::year(number(0, 4)), std::chrono::month(static_cast<unsigned>(number(5, 2))),
                                         std::chrono::day(static_cast<unsigned>(number(8, 2)))};
  const auto word = std::find(kReasonWords.begin(), kReasonWords.end(), name.substr(kForm.size()));
  if (!date.ok() || word == kReasonWords.end()) return std::nullopt;
  Backup backup;
  backup.name = name;
  backup.reason = static_cast<BackupReason>(word - kReasonWords.begin());
  backup.made = std::chrono::local_days(date) + std::chrono::hours(number(11, 2)) + std::chrono::minutes(number(13, 2)) +
                std::chrono::seconds(number(15, 2));
  // Whatever is not digits and hyphens in their places does not come out as it went in.
  return NameFor(backup.made, backup.reason) == name ? std::optional(backup) : std::nullopt;
}

std::string ListText(const Contents& contents) {
  std::string text = std::string(kListTitle) + std::to_string(contents.size()) + '\n';
  for (const auto& [name, size, checksum] : contents) text += name + ' ' + std::to_string(size) + ' ' + std::to_string(checksum) + '\n';
  return text;
}

// The list of a backup's files; nothing where it is missing or not as this program writes it.
std::optional<Contents> ReadList(Disk& disk, const fs::path& backup) {
  constexpr std::uint64_t kLargestList = 64 * 1024;
  const auto file = disk.Open(backup / kBackupList, Opening::Read);
  if (!file || file->Size() > kLargestList) return std::nullopt;
  std::string text(static_cast<std::size_t>(file->Size()), '\0');
  ReadExactly(*file, kBackupList, 0, text.data(), text.size());
  Contents contents;
  std::istringstream lines(text);
  lines.ignore(static_cast<std::streamsize>(kLargestList), '\n');
  for (CopiedFile copied; lines >> copied.name >> copied.size >> copied.checksum;) contents.push_back(copied);
  if (ListText(contents) != text) return std::nullopt;
  for (const CopiedFile& copied : contents)
    if (!IsKept(copied.name)) return std::nullopt;
  return contents;
}

const CopiedFile* FindIn(const Contents& contents, std::string_view name) {
  const auto found = std::find_if(contents.begin(), contents.end(), [name](const CopiedFile& file) { return file.name == name; });
  return found == contents.end() ? nullptr : &*found;
}

void Count(Backup& backup, const Contents& contents) {
  const CopiedFile* const customers = FindIn(contents, CustomerDataFile);
  const CopiedFile* const plans = FindIn(contents, EstimateDataFile);
  if (customers != nullptr && customers->size >= CustomerRecordSize) backup.customers = customers->size / CustomerRecordSize - 1;
  if (plans != nullptr) backup.plans = plans->size / EstimateRecordSize;
}

// Calls `visit` with the file's bytes, piece by piece.
template <typename Visit>
void ForEachPiece(DiskFile& file, std::string_view name, Visit visit) {
  const std::uint64_t size = file.Size();
  std::string piece;
  for (std::uint64_t at = 0; at < size; at += piece.size()) {
    piece.resize(static_cast<std::size_t>(std::min<std::uint64_t>(kPieceSize, size - at)));
    ReadExactly(file, name, at, piece.data(), piece.size());
    visit(at, piece);
  }
}

CopiedFile SumOf(DiskFile& file, const std::string& name) {
  CopiedFile sum{name, 0, 0};
  ForEachPiece(file, name, [&](std::uint64_t at, const std::string& piece) {
    sum.size = at + piece.size();
    sum.checksum = Checksum(sum.checksum, piece);
  });
  return sum;
}

void CopyBytes(DiskFile& from, std::string_view name, DiskFile& to) {
  ForEachPiece(from, name, [&](std::uint64_t at, const std::string& piece) { to.WriteAt(at, piece); });
}

bool HasSameBytes(DiskFile& one, DiskFile& other, std::string_view name) {
  if (one.Size() != other.Size()) return false;
  bool same = true;
  std::string second;
  ForEachPiece(one, name, [&](std::uint64_t at, const std::string& piece) {
    second.resize(piece.size());
    same = same && other.ReadAt(at, second.data(), second.size()) == piece.size() && second == piece;
  });
  return same;
}

std::unique_ptr<DiskFile> OpenToRead(Disk& disk, const fs::path& path) {
  auto file = disk.Open(path, Opening::Read);
  if (!file) throw FileError(path.string(), "the file is gone");
  return file;
}

std::vector<std::string> KeptFiles(Disk& disk, const fs::path& folder) {
  std::vector<std::string> names = disk.Names(folder);
  std::erase_if(names, [](const std::string& name) { return !IsKept(name); });
  return names;
}

// Whether the backup holds the working folder as it is now, byte for byte.
bool HoldsFolder(const DataFolder& folder, const Backup& backup, const std::vector<std::string>& files) {
  const fs::path path = folder.Folder() / kBackupFolder / backup.name;
  const auto contents = ReadList(folder.Files(), path);
  if (!contents || contents->size() != files.size()) return false;
  for (const std::string& name : files) {
    const auto copy = folder.Files().Open(path / name, Opening::Read);
    if (!copy || !HasSameBytes(*OpenToRead(folder.Files(), folder.Folder() / name), *copy, name)) return false;
  }
  return true;
}

void RequireSound(Disk& disk, const fs::path& path) {
  for (const Fault& fault : CheckFolder(disk, path))
    if (fault.kind == FaultKind::Records) throw FileError(path.string(), fault.text);
}

void RemoveBackupFiles(Disk& disk, const fs::path& path) {
  disk.Remove(path / kBackupList);
  for (const std::string& name : KeptFiles(disk, path)) disk.Remove(path / name);
  disk.RemoveFolder(path);
}

// Takes away what interrupted backups and restores have left. Nothing depends on it: where it cannot be done, it waits.
void ClearLeftovers(const DataFolder& folder) {
  Disk& disk = folder.Files();
  try {
    const fs::path backups = folder.Folder() / kBackupFolder;
    for (const std::string& name : disk.Names(backups))
      for (const std::string_view ending : {kUnfinished, kGoing})
        if (name.ends_with(ending) && FromName(name.substr(0, name.size() - ending.size()))) RemoveBackupFiles(disk, backups / name);
    for (const std::string& name : disk.Names(folder.Folder()))
      if (name.ends_with(kStaged) && IsKept(name.substr(0, name.size() - kStaged.size()))) disk.Remove(folder.Folder() / name);
  } catch (const FileError&) {
  }
}

// The same for the oldest backups. A clock that was once wrong must not make new ones count as old.
void RemoveOldest(const DataFolder& folder, local_seconds now) {
  Disk& disk = folder.Files();
  try {
    std::vector<Backup> backups = ListBackups(disk, folder.Folder());
    std::stable_partition(backups.begin(), backups.end(), [now](const Backup& backup) { return backup.made <= now; });
    for (std::size_t i = kBackupsKept; i < backups.size(); ++i) {
      const fs::path path = folder.Folder() / kBackupFolder / backups[i].name;
      fs::path going = path;
      going += kGoing;
      disk.Rename(path, going);
      RemoveBackupFiles(disk, going);
    }
  } catch (const FileError&) {
  }
}

Contents CopyInto(const DataFolder& folder, const std::vector<std::string>& files, const fs::path& to, BackupReason reason) {
  Disk& disk = folder.Files();
  disk.MakeFolder(to);
  Contents contents;
  for (const std::string& name : files) {
    const auto from = OpenToRead(disk, folder.Folder() / name);
    const auto copy = disk.Open(to / name, Opening::Fresh);
    CopyBytes(*from, name, *copy);
    copy->Sync();
    contents.push_back(SumOf(*copy, name));
    if (!HasSameBytes(*from, *copy, name)) throw FileError((to / name).string(), "the copy does not read back as it was written");
  }
  const auto list = disk.Open(to / kBackupList, Opening::Fresh);
  list->WriteAt(0, ListText(contents));
  list->Sync();
  disk.SyncFolder(to);
  if (ReadList(disk, to) != contents) throw FileError((to / kBackupList).string(), "the list does not read back as it was written");
  // What is damaged already is kept as it is when another state takes its place; else a copy of it would be none to rely on.
  if (reason != BackupReason::Restore) RequireSound(disk, to);
  return contents;
}

std::optional<Backup> CopyFolder(DataFolder& folder, BackupReason reason, local_seconds now) {
  Disk& disk = folder.Files();
  Journal::Recover(disk, folder.Folder());
  ClearLeftovers(folder);
  const std::vector<std::string> files = KeptFiles(disk, folder.Folder());
  const std::vector<Backup> backups = ListBackups(disk, folder.Folder());
  if (!backups.empty() && HoldsFolder(folder, backups.front(), files)) return std::nullopt;

  const auto isTaken = [&backups](local_seconds time) {
    return std::any_of(backups.begin(), backups.end(), [time](const Backup& backup) { return backup.made == time; });
  };
  while (isTaken(now)) now += std::chrono::seconds(1);
  Backup backup{NameFor(now, reason), now, reason};
  const fs::path all = folder.Folder() / kBackupFolder;
  fs::path unfinished = all / backup.name;
  unfinished += kUnfinished;
  if (disk.Names(all).empty()) {
    disk.MakeFolder(all);
    disk.SyncFolder(folder.Folder());
  }
  try {
    Count(backup, CopyInto(folder, files, unfinished, reason));
    disk.Rename(unfinished, all / backup.name);
  } catch (const FileError&) {
    ClearLeftovers(folder);  // a full disk must have its room back
    throw;
  }
  disk.SyncFolder(all);
  return backup;
}

}  // namespace

local_seconds LocalNow() {
  const std::time_t now = std::time(nullptr);
  const std::tm local = *std::localtime(&now);
  const std::chrono::year_month_day date{std::chrono::year(local.tm_year + 1900),
                                         std::chrono::month(static_cast<unsigned>(local.tm_mon + 1)),
                                         std::chrono::day(static_cast<unsigned>(local.tm_mday))};
  return std::chrono::local_days(date) + std::chrono::hours(local.tm_hour) + std::chrono::minutes(local.tm_min) +
         std::chrono::seconds(std::min(local.tm_sec, 59));
}

std::string DateOf(const Backup& backup) {
  const ClockFace face(backup.made);
  return face.Month() + '-' + face.Day() + '-' + face.Year();
}

std::string TimeOf(const Backup& backup) {
  const ClockFace face(backup.made);
  return face.Hour() + ':' + face.Minute();
}

bool IsKept(std::string_view name) {
  for (const std::string_view kept :
       {CustomerDataFile, CustomerIndexFile, EstimateDataFile, EstimateIndexFile, kCustomerLeftovers, kEstimateLeftovers})
    if (name == kept) return true;
  return name.starts_with("NVdata") && !name.ends_with(".new") && !name.ends_with(kStaged);
}

std::vector<Backup> ListBackups(Disk& disk, const fs::path& folder) {
  std::vector<Backup> backups;
  for (const std::string& name : disk.Names(folder / kBackupFolder)) {
    auto backup = FromName(name);
    if (!backup) continue;
    const auto contents = ReadList(disk, folder / kBackupFolder / name);
    if (!contents) continue;
    Count(*backup, *contents);
    backups.push_back(*std::move(backup));
  }
  std::sort(backups.begin(), backups.end(), [](const Backup& one, const Backup& other) { return one.name > other.name; });
  return backups;
}

std::optional<Backup> MakeBackup(DataFolder& folder, BackupReason reason, local_seconds now) {
  auto backup = CopyFolder(folder, reason, now);
  RemoveOldest(folder, backup ? backup->made : now);
  return backup;
}

void RestoreBackup(DataFolder& folder, std::string_view name, local_seconds now) {
  Disk& disk = folder.Files();
  const fs::path path = folder.Folder() / kBackupFolder / name;
  const auto contents = FromName(name) ? ReadList(disk, path) : std::nullopt;
  if (!contents) throw FileError(std::string(name), "there is no backup of that name");
  for (const CopiedFile& copied : *contents)
    if (SumOf(*OpenToRead(disk, path / copied.name), copied.name) != copied)
      throw FileError((path / copied.name).string(), "the file is not as it was when the backup was made");
  RequireSound(disk, path);
  const auto before = CopyFolder(folder, BackupReason::Restore, now);

  Replacement change(folder);
  for (const CopiedFile& copied : *contents) {
    const auto staged = change.Create(copied.name + std::string(kStaged), copied.name);
    CopyBytes(*OpenToRead(disk, path / copied.name), copied.name, *staged);
    if (SumOf(*staged, copied.name) != copied) throw FileError(copied.name, "the copy does not read back as it was written");
  }
  for (const std::string& there : KeptFiles(disk, folder.Folder()))
    if (FindIn(*contents, there) == nullptr) change.Remove(there);
  change.Commit();
  RemoveOldest(folder, before ? before->made : now);
}

}  // namespace norvale
