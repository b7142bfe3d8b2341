// What customers and plans have in common: a change of one entry's place, and the rewrite of both files of a pair.
#pragma once

#include <optional>

#include "data/change.h"
#include "data/index_file.h"

namespace norvale {

/// Throws FileError where a file of the pair does not end with a whole record or entry, or is full.
template <typename Files>
void RequireWholeFiles(DiskFile& records, DiskFile& index) {
  const auto refuse = [](DataFile file, const std::string& why) { throw FileError(std::string(NameOf(file)), why); };
  if (records.Size() % Files::kRecordSize != 0) refuse(Files::kRecords, "the file ends in the middle of a record; a check can repair it");
  if (index.Size() % Files::kEntrySize != 0) refuse(Files::kIndex, "the file ends in the middle of an entry; a check can repair it");
}

/// The position for a record at the end of the file. Throws FileError where the file is full.
template <typename Files>
std::int32_t NextRecordPosition(DiskFile& records) {
  const std::uint64_t count = records.Size() / Files::kRecordSize;
  if (count >= kMostRecords<Files>) throw FileError(std::string(NameOf(Files::kRecords)), "the file is full");
  return PositionOfRecord<Files>(count);
}

/// The texts of a fresh record hold bytes of 0; on the disk they are blanks. `ReservedText` stays as it is.
template <typename Record>
void PadTexts(Record& record) {
  ForEachField(RecordFields<Record>::table, [&record](const auto& field) {
    if constexpr (requires { (record.*field.member).Padded(); })
      if (field.name != "ReservedText") (record.*field.member).Assign((record.*field.member).Padded());
  });
}

/// Where the entry `at` belongs once it is `entry`: before those above it, behind those below it, and no further than
/// that among equals.
template <typename Files>
std::size_t NewPlace(IndexFile<Files>& index, std::size_t at, const typename Files::Entry& entry) {
  const auto key = Files::KeyOf(entry);
  if (at > 0) {
    const auto before = index.At(at - 1);
    if (key < Files::KeyOf(before)) return index.UpperBound(key, 0, at);
  }
  if (at + 1 < index.Count()) {
    const auto behind = index.At(at + 1);
    if (Files::KeyOf(behind) < key) return index.LowerBound(key, at + 1, index.Count()) - 1;
  }
  return at;
}

/// Announces that the entry `from` will move to `to`.
template <typename Files>
void KeepMove(InPlaceChange& change, std::size_t from, std::size_t to) {
  change.Keep(Files::kIndex, std::min(from, to) * Files::kEntrySize, (std::max(from, to) - std::min(from, to) + 1) * Files::kEntrySize);
}

/// Moves the entry `from` to `to`, where it is `entry`; those between move up by one.
template <typename Files>
void MoveEntry(IndexFile<Files>& index, std::size_t from, std::size_t to, const typename Files::Entry& entry) {
  if (to < from) index.Move(to, from, to + 1);
  if (to > from) index.Move(from + 1, to + 1, from);
  index.Put(to, {entry});
}

/// Writes both files of a pair afresh into `newRecords` and `newIndex`, in the order of the index and without the entry
/// `without` and those that are marked as being deleted.
template <typename Files>
void RewriteWithout(DataFolder& folder, std::size_t without, DiskFile& newRecords, DiskFile& newIndex) {
  const auto indexFile = OpenDataFile(folder, Files::kIndex);
  const auto records = OpenDataFile(folder, Files::kRecords);
  RequireWholeFiles<Files>(*records, *indexFile);
  const std::uint64_t size = records->Size();
  IndexFile<Files> index(*indexFile);
  PieceWriter recordWriter(newRecords);
  PieceWriter indexWriter(newIndex);

  // Records that follow one another in the old file as well are read in one piece.
  std::uint64_t runStart = 0;
  std::size_t runSize = 0;
  const auto copyRun = [&] {
    if (runSize > 0) ReadExactly(*records, NameOf(Files::kRecords), runStart, recordWriter.Room(runSize), runSize);
    runSize = 0;
  };
  std::uint64_t count = 0;
  index.ForEach(0, index.Count(), [&](std::size_t number, typename Files::Entry entry) {
    if (number == without || entry.RecordPosition == 0) return true;
    RequireRecord<Files>(size, number, entry);
    const auto start = static_cast<std::uint64_t>(entry.RecordPosition) - 1;
    if (start != runStart + runSize || runSize + Files::kRecordSize > kPieceSize) {
      copyRun();
      runStart = start;
    }
    runSize += Files::kRecordSize;
    entry.RecordPosition = PositionOfRecord<Files>(count++);
    EncodeValue(indexWriter.Room(Files::kEntrySize), entry);
    return true;
  });
  copyRun();
  recordWriter.Finish();
  indexWriter.Finish();
}

}  // namespace norvale
