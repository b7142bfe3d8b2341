#include "data/change.h"

#include "base/file_error.h"
#include "data/index_file.h"

namespace norvale {

namespace {

// An operation that failed with the journal sealed has left it to the next one.
DataFolder& Recovered(DataFolder& folder) {
  Journal::Recover(folder.Files(), folder.Folder());
  return folder;
}

}  // namespace

InPlaceChange::InPlaceChange(DataFolder& folder) : folder_(Recovered(folder)), journal_(folder.Files(), folder.Folder()) {}

InPlaceChange::~InPlaceChange() {
  const Journal::State state = journal_.Where();
  if (state == Journal::State::Listing || state == Journal::State::Empty) return;
  // Where the disk refuses this as well, the journal stays and the next to open the folder does it.
  try {
    if (state != Journal::State::Sealing) {
      journal_.SealAgain();
      journal_.TakeSteps();
    }
    journal_.Retire();
  } catch (const FileError&) {
  }
}

DiskFile& InPlaceChange::Open(DataFile file) {
  auto& opened = files_[file];
  if (!opened) opened = folder_.Files().Open(folder_.PathOf(file), Opening::Update);
  if (!opened) {
    opened = OpenDataFile(folder_, file);
    hasNewFile_ = true;
  }
  return *opened;
}

void InPlaceChange::KeepLength(DataFile file) {
  if (changed_.insert(file).second) journal_.AddLength(file, Open(file).Size());
}

void InPlaceChange::Keep(DataFile file, std::uint64_t offset, std::uint64_t length) {
  KeepLength(file);
  DiskFile& opened = Open(file);
  const std::uint64_t size = opened.Size();
  if (offset >= size) return;
  length = std::min(length, size - offset);
  if (length > 0) journal_.AddBytesOf(file, opened, offset, length);
}

void InPlaceChange::Seal() { journal_.Seal(); }

void InPlaceChange::Commit() {
  for (const DataFile file : changed_) Open(file).Sync();
  if (hasNewFile_) folder_.Files().SyncFolder(folder_.Folder());
  journal_.Retire();
}

Replacement::Replacement(DataFolder& folder) : folder_(Recovered(folder)), journal_(folder.Files(), folder.Folder()) {}

Replacement::~Replacement() {
  if (begun_) return;
  try {
    if (journal_.Where() != Journal::State::Listing) journal_.Retire();  // else the next to open the folder would need the working files
    for (const auto& [working, target] : files_) folder_.Files().Remove(folder_.Folder() / working);
  } catch (const FileError&) {
  }
}

std::unique_ptr<DiskFile> Replacement::Create(DataFile working, DataFile target) {
  return Create(std::string(NameOf(working)), std::string(NameOf(target)));
}

std::unique_ptr<DiskFile> Replacement::Create(std::string working, std::string target) {
  files_.push_back({std::move(working), std::move(target)});
  return folder_.Files().Open(folder_.Folder() / files_.back().working, Opening::Fresh);
}

void Replacement::Write(DataFile file, std::uint64_t offset, std::string_view bytes) { journal_.AddBytes(file, offset, bytes); }

void Replacement::Commit() {
  for (const auto& [working, target] : files_) {
    folder_.Files().Open(folder_.Folder() / working, Opening::Create)->Sync();
    journal_.AddRename(working, target);
  }
  folder_.Files().SyncFolder(folder_.Folder());
  journal_.Seal();
  journal_.TakeSteps(&begun_);
  journal_.Retire();
}

char* PieceWriter::Room(std::size_t size) {
  if (piece_.size() + size > kPieceSize) Finish();
  piece_.resize(piece_.size() + size);
  return piece_.data() + piece_.size() - size;
}

void PieceWriter::Finish() {
  if (!piece_.empty()) file_.WriteAt(at_, piece_);
  at_ += piece_.size();
  piece_.clear();
}

}  // namespace norvale
