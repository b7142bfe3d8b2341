#include "data/data_folder.h"

#include "base/file_error.h"
#include "data/journal.h"

namespace norvale {

DataFolder::DataFolder(std::filesystem::path folder, Disk& disk)
    : disk_(disk), folder_(std::move(folder)), lock_(disk_.TryLock(folder_ / kLockFile)) {
  if (!lock_) throw FileError(folder_.string(), "the folder is in use by another program; close it there first");
  wasInterrupted_ = Journal::Recover(disk_, folder_);
}

DataFolder::~DataFolder() {
  // An empty journal may be as long as its longest list was. Giving the room back is a courtesy: no error matters.
  try {
    if (!Journal::IsPending(disk_, folder_))
      if (const auto journal = disk_.Open(folder_ / kJournalFile, Opening::Update)) journal->Resize(0);
  } catch (const FileError&) {
  }
}

std::unique_ptr<DiskFile> OpenDataFile(const DataFolder& folder, DataFile file) {
  return folder.Files().Open(folder.PathOf(file), Opening::Create);
}

}  // namespace norvale
