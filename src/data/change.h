// A change of the data files that happens wholly or not at all, whatever ends the program.
//
// `InPlaceChange` writes into the files: what is overwritten goes to the journal first. `Replacement` writes new files aside
// and renames them over the old ones. A change that is not committed leaves the files as they were.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "data/data_folder.h"
#include "data/journal.h"

namespace norvale {

class InPlaceChange {
 public:
  explicit InPlaceChange(DataFolder& folder);
  ~InPlaceChange();
  InPlaceChange(const InPlaceChange&) = delete;
  InPlaceChange& operator=(const InPlaceChange&) = delete;

  /// The file, open for reading and writing; a missing one is created empty. It may be written to where `Keep` or `KeepLength`
  /// has named it and `Seal` has returned.
  DiskFile& Open(DataFile file);

  /// Announces that the file will grow.
  void KeepLength(DataFile file);

  /// Announces that these bytes will be overwritten. Those beyond the file's end need not be kept.
  void Keep(DataFile file, std::uint64_t offset, std::uint64_t length);

  /// Returns when all that was announced is safe. From here on the files may be written.
  void Seal();

  /// Returns when the change is on the disk. Throws FileError where it cannot be; then it has not happened.
  void Commit();

 private:
  DataFolder& folder_;
  Journal journal_;
  std::map<DataFile, std::unique_ptr<DiskFile>> files_;
  std::set<DataFile> changed_;
  bool hasNewFile_ = false;
};

class Replacement {
 public:
  explicit Replacement(DataFolder& folder);
  ~Replacement();
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  /// A working file, empty, that takes the place of `target` with the commit. Close it before.
  std::unique_ptr<DiskFile> Create(DataFile working, DataFile target);

  /// The same for any file of the folder, by its name without a path.
  std::unique_ptr<DiskFile> Create(std::string working, std::string target);

  /// A file that is gone with the commit.
  void Remove(std::string_view name) { journal_.AddRemove(name); }

  /// Bytes to be written over those of a file with the commit; they must lie within it. For a few bytes only.
  void Write(DataFile file, std::uint64_t offset, std::string_view bytes);

  /// Returns when the change is on the disk. Throws FileError where it cannot be: then it has not happened, or, when the
  /// disk fails between two of the last steps, it will have when the folder is opened next.
  void Commit();

 private:
  struct NewFile {
    std::string working;
    std::string target;
  };

  DataFolder& folder_;
  Journal journal_;
  std::vector<NewFile> files_;
  bool begun_ = false;
};

/// Writes a file from its beginning, in large pieces.
class PieceWriter {
 public:
  explicit PieceWriter(DiskFile& file, std::uint64_t at = 0) : file_(file), at_(at) {}

  /// Room for `size` bytes behind those written so far, to be filled before the next call.
  char* Room(std::size_t size);
  void Append(std::string_view bytes) { bytes.copy(Room(bytes.size()), bytes.size()); }

  /// Where the next byte goes, counted from 0.
  [[nodiscard]] std::uint64_t Position() const { return at_ + piece_.size(); }

  /// Writes what is still held back.
  void Finish();

 private:
  DiskFile& file_;
  std::uint64_t at_;
  std::string piece_;
};

}  // namespace norvale
