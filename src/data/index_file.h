// One of the two index files, open: entries of a fixed size in ascending order of their key.
#pragma once

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "base/disk.h"
#include "base/file_error.h"
#include "data/data_files.h"

namespace norvale {

/// The largest piece of an index or a record file that an operation holds in memory.
inline constexpr std::size_t kPieceSize = 256 * 1024;

template <typename Record>
Record Decoded(const char* bytes) {
  Record record;
  DecodeValue(bytes, record);
  return record;
}

/// The packed bytes of a record or an index entry.
template <typename Record>
std::string Encoded(const Record& record, std::size_t size) {
  std::string bytes(size, '\0');
  EncodeValue(bytes.data(), record);
  return bytes;
}

/// Entries are counted from 0 here. `PositionOf` gives the place as the cursors hold it, in bytes from 1.
template <typename Files>
class IndexFile {
 public:
  using Entry = typename Files::Entry;
  using Key = typename Files::Key;

  /// A last entry that is not whole does not count.
  explicit IndexFile(DiskFile& file) : file_(file), count_(static_cast<std::size_t>(file.Size() / Files::kEntrySize)) {}

  [[nodiscard]] std::size_t Count() const { return count_; }

  static std::int32_t PositionOf(std::size_t entry) { return static_cast<std::int32_t>(entry * Files::kEntrySize + 1); }

  [[nodiscard]] Entry At(std::size_t entry) {
    std::array<char, Files::kEntrySize> bytes{};
    ReadExactly(file_, NameOf(Files::kIndex), entry * Files::kEntrySize, bytes.data(), bytes.size());
    return Decoded<Entry>(bytes.data());
  }

  /// Calls `visit(number, entry)` for the entries `from` to `end`, reading them in large pieces, until it returns false.
  template <typename Visit>
  void ForEach(std::size_t from, std::size_t end, Visit visit) {
    std::string piece;
    for (std::size_t at = from; at < end;) {
      const std::size_t count = std::min(end - at, kPieceSize / Files::kEntrySize);
      piece.resize(count * Files::kEntrySize);
      ReadExactly(file_, NameOf(Files::kIndex), at * Files::kEntrySize, piece.data(), piece.size());
      for (std::size_t i = 0; i < count; ++i)
        if (!visit(at + i, Decoded<Entry>(piece.data() + i * Files::kEntrySize))) return;
      at += count;
    }
  }

  /// The entries `from` to `end`.
  [[nodiscard]] std::vector<Entry> Range(std::size_t from, std::size_t end) {
    std::vector<Entry> entries;
    entries.reserve(end - from);
    ForEach(from, end, [&](std::size_t, const Entry& entry) {
      entries.push_back(entry);
      return true;
    });
    return entries;
  }

  /// The first entry of `from` to `end` whose key is not below `key`; `end` where there is none.
  [[nodiscard]] std::size_t LowerBound(Key key, std::size_t from, std::size_t end) {
    return FirstNot(key, from, end, [&](const Entry& entry) { return Files::KeyOf(entry) < key; });
  }

  /// The first entry of `from` to `end` whose key is above `key`; `end` where there is none.
  [[nodiscard]] std::size_t UpperBound(Key key, std::size_t from, std::size_t end) {
    return FirstNot(key, from, end, [&](const Entry& entry) { return !(key < Files::KeyOf(entry)); });
  }

  /// Writes entries over those from `at`, or behind the last.
  void Put(std::size_t at, const std::vector<Entry>& entries) {
    const std::size_t most = kPieceSize / Files::kEntrySize;
    std::string piece;
    for (std::size_t done = 0; done < entries.size();) {
      const std::size_t count = std::min(entries.size() - done, most);
      piece.resize(count * Files::kEntrySize);
      for (std::size_t i = 0; i < count; ++i) EncodeValue(piece.data() + i * Files::kEntrySize, entries[done + i]);
      file_.WriteAt((at + done) * Files::kEntrySize, piece);
      done += count;
    }
    count_ = std::max(count_, at + entries.size());
  }

  /// Moves the entries `from` to `end` so that they begin at `to`, over what stood there, in large pieces.
  void Move(std::size_t from, std::size_t end, std::size_t to) {
    constexpr std::size_t kMost = kPieceSize / Files::kEntrySize;
    std::string piece;
    const auto move = [&](std::size_t at, std::size_t count) {
      piece.resize(count * Files::kEntrySize);
      ReadExactly(file_, NameOf(Files::kIndex), at * Files::kEntrySize, piece.data(), piece.size());
      file_.WriteAt((at - from + to) * Files::kEntrySize, piece);
    };
    if (to < from) {
      for (std::size_t at = from; at < end; at += kMost) move(at, std::min(kMost, end - at));
    } else if (to > from) {
      for (std::size_t left = end - from; left > 0;) {
        const std::size_t count = std::min(kMost, left);
        left -= count;
        move(from + left, count);
      }
    }
    count_ = std::max(count_, to + (end - from));
  }

 private:
  // The entries that lie close together are read at once.
  static constexpr std::size_t kClose = 4096 / Files::kEntrySize;

  // Customers' numbers are spread fairly evenly over the index: a guess or two lands near a key's place, where halving
  // would read ten times. What the guesses have not found is halved.
  template <typename IsBefore>
  std::size_t FirstNot(Key key, std::size_t from, std::size_t end, IsBefore isBefore) {
    std::array<char, kClose * Files::kEntrySize> close;
    const auto entryOf = [&close](std::size_t i) { return Decoded<Entry>(close.data() + i * Files::kEntrySize); };
    const auto readClose = [&](std::size_t at, std::size_t count) {
      ReadExactly(file_, NameOf(Files::kIndex), at * Files::kEntrySize, close.data(), count * Files::kEntrySize);
    };
    const auto within = [&](std::size_t low, std::size_t high) {
      while (low < high) {
        const std::size_t middle = low + (high - low) / 2;
        if (isBefore(entryOf(middle)))
          low = middle + 1;
        else
          high = middle;
      }
      return low;
    };
    constexpr int kGuesses = 3;
    int lowest = 0;
    int highest = 0;
    for (int guess = 0; guess < kGuesses && end - from > kClose; ++guess) {
      if (guess == 0) {
        const Entry last = At(end - 1);
        if (isBefore(last)) return end;
        highest = Files::NumberOf(Files::KeyOf(last));
      }
      const double share = highest > lowest ? static_cast<double>(Files::NumberOf(key) - lowest) / (highest - lowest) : 0.5;
      const std::size_t middle = from + static_cast<std::size_t>(std::clamp(share, 0.0, 1.0) * static_cast<double>(end - from));
      const std::size_t begin = std::min(middle - std::min(middle - from, kClose / 2), end - kClose);
      readClose(begin, kClose);
      const Entry first = entryOf(0);
      const Entry last = entryOf(kClose - 1);
      if (!isBefore(first)) {
        end = begin;
        highest = Files::NumberOf(Files::KeyOf(first));
      } else if (isBefore(last)) {
        from = begin + kClose;
        lowest = Files::NumberOf(Files::KeyOf(last));
      } else {
        return begin + within(1, kClose - 1);
      }
    }
    while (end - from > kClose) {
      const std::size_t middle = from + (end - from) / 2;
      if (isBefore(At(middle)))
        from = middle + 1;
      else
        end = middle;
    }
    readClose(from, end - from);
    return from + within(0, end - from);
  }

  DiskFile& file_;
  std::size_t count_;
};

/// Throws FileError, naming the index and the entry's position, where the entry names no record of a file of `size` bytes.
template <typename Files>
void RequireRecord(std::uint64_t size, std::size_t entryNumber, const typename Files::Entry& entry) {
  if (PointsToRecord<Files>(entry.RecordPosition, size)) return;
  throw FileError(std::string(NameOf(Files::kIndex)), "the entry at position " + std::to_string(IndexFile<Files>::PositionOf(entryNumber)) +
                                                          " points to no record of " + std::string(NameOf(Files::kRecords)));
}

/// The record that the entry names. Throws FileError as `RequireRecord` does where there is none.
template <typename Files>
typename Files::Record ReadRecord(DiskFile& records, std::size_t entryNumber, const typename Files::Entry& entry) {
  RequireRecord<Files>(records.Size(), entryNumber, entry);
  std::array<char, Files::kRecordSize> bytes{};
  ReadExactly(records, NameOf(Files::kRecords), static_cast<std::uint64_t>(entry.RecordPosition) - 1, bytes.data(), bytes.size());
  return Decoded<typename Files::Record>(bytes.data());
}

}  // namespace norvale
