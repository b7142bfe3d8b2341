// The journal: what makes a change of several files all or nothing.
//
// A journal is a list of steps that may be taken twice: set a file's length, put bytes at a place, rename or remove a file. An
// operation that changes files in place first lists the steps that undo it; one that writes files aside lists the steps that
// finish it. Once the list is sealed, whoever opens the folder next takes its steps, as often as it needs; a list that was
// not sealed has never been acted upon and is ignored. The format is told in docs/file_formats.md.
#pragma once

#include <memory>
#include <string>

#include "base/disk.h"
#include "data/data_files.h"

namespace norvale {

class Journal {
 public:
  /// Opens the folder's journal and empties it. A sealed one must have been dealt with by `Recover`.
  Journal(Disk& disk, std::filesystem::path folder);

  /// Lists a step. Nothing is promised before `Seal`.
  void AddLength(DataFile file, std::uint64_t length);
  void AddBytes(DataFile file, std::uint64_t offset, std::string_view bytes);
  void AddRename(std::string_view from, std::string_view to);  // names without a path
  void AddRemove(std::string_view name);

  /// Lists the bytes as they stand in `from` now, in pieces: the range may be as long as the file.
  void AddBytesOf(DataFile file, DiskFile& from, std::uint64_t offset, std::uint64_t length);

  /// Returns when the list is on the disk.
  void Seal();

  /// How far the journal is. While sealing or emptying it, an error leaves open whether the disk has the list.
  enum class State { Listing, Sealing, Sealed, Retiring, Empty };
  [[nodiscard]] State Where() const { return state_; }

  /// Makes a sealed list valid once more where emptying it has failed.
  void SealAgain();

  /// Takes the steps of the sealed list and returns when what they did is on the disk. `begun`, where given, becomes true
  /// with the first step that changes a file.
  void TakeSteps(bool* begun = nullptr);

  /// Empties the list, on the disk.
  void Retire();

  /// Takes the steps of a sealed journal that an interrupted operation has left in the folder, and empties it. Returns
  /// whether there was one. Being interrupted and called again does no harm.
  static bool Recover(Disk& disk, const std::filesystem::path& folder);

  /// Whether the folder holds a journal that is not empty.
  static bool IsPending(Disk& disk, const std::filesystem::path& folder);

 private:
  Journal(Disk& disk, std::filesystem::path folder, std::unique_ptr<DiskFile> file);

  void Append(std::string_view bytes);
  void Flush();
  void WriteHeader();
  void AddNames(std::uint8_t kind, std::string_view names);
  void AddStep(std::uint8_t kind, DataFile file, std::uint64_t offset, std::uint64_t length);

  Disk& disk_;
  std::filesystem::path folder_;
  std::filesystem::path path_;
  std::unique_ptr<DiskFile> file_;
  std::string buffer_;          // the end of the list that is not yet written
  std::uint64_t written_ = 0;   // bytes of the list in the file
  std::uint64_t checksum_ = 0;  // of those
  bool isNewFile_ = false;
  State state_ = State::Listing;
};

}  // namespace norvale
