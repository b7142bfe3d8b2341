// Files of any length and with any bytes are read, refused or mended; never a crash, and never a lost record.
#include <gtest/gtest.h>

#include <random>

#include "data/folder_reader.h"
#include "support/damage_probe.h"
#include "support/data_fixture.h"

namespace norvale {
namespace {

std::string Whole(const std::vector<Fault>& faults) {
  std::string text;
  for (const Fault& fault : faults) text += fault.text + "\n";
  return text;
}

std::string WithEntry(const MemoryDisk& disk, std::size_t entry, std::int32_t recordPosition) {
  std::string bytes = disk.Bytes(EstimateIndexFile);
  EncodeValue(bytes.data() + entry * EstimateIndexEntrySize + 20, recordPosition);
  return bytes;
}

struct Damage {
  const char* what;
  std::string_view file;
  std::function<std::string(const MemoryDisk&)> bytes;
  const char* faults;  // as `check` tells them
  bool atStart;        // whether the start mends it by itself
};

TEST(DamagedFiles, EachFaultIsNamedWithFileAndPosition) {
  const auto sample = SampleDisk();
  const std::string db = sample->Bytes(CustomerDataFile);
  const std::vector<Damage> damages = {
      {"outside", EstimateIndexFile, [](const MemoryDisk& d) { return WithEntry(d, 1, 1462 * 9 + 1); },
       "estimate.ix: the entry at position 25 points to no record of estimate.dbr\n"
       "estimate.dbr: the record at position 11697 has no entry in estimate.ix\n",
       true},
      {"middle", EstimateIndexFile, [](const MemoryDisk& d) { return WithEntry(d, 0, 2); },
       "estimate.ix: the entry at position 1 points into the middle of a record of estimate.dbr\n"
       "estimate.dbr: the record at position 7311 has no entry in estimate.ix\n",
       true},
      {"twice", EstimateIndexFile, [](const MemoryDisk& d) { return WithEntry(d, 1, 7311); },
       "estimate.ix: the entry at position 25 names the same record as the one at position 1\n"
       "estimate.dbr: the record at position 11697 has no entry in estimate.ix\n",
       true},
      {"being deleted", EstimateIndexFile, [](const MemoryDisk& d) { return WithEntry(d, 1, 0); },
       "estimate.ix: the entry at position 25 is marked as being deleted\n"
       "estimate.dbr: the record at position 11697 has no entry in estimate.ix\n",
       true},
      {"order and key", EstimateIndexFile,
       [](const MemoryDisk& d) {
         std::string bytes = d.Bytes(EstimateIndexFile);
         bytes[24 + 4] = '1';
         return bytes;
       },
       "estimate.ix: the entry at position 25 has another key than its record\n", true},
      {"length of an index", EstimateIndexFile, [](const MemoryDisk& d) { return d.Bytes(EstimateIndexFile) + "xyz"; },
       "estimate.ix: the last 3 bytes, from position 217, are no whole entry\n", true},
      {"length of a record file", EstimateDataFile, [](const MemoryDisk& d) { return d.Bytes(EstimateDataFile) + "xyz"; },
       "estimate.dbr: the last 3 bytes, from position 13159, are no whole record\n", false},
      {"no company", CustomerDataFile,
       [&](const MemoryDisk&) { return db.substr(0, 291) + "\x09" + std::string(1, '\0') + db.substr(293); },
       "customer.db: the company is missing, the record with the number 0 at position 1\n"
       "customer.ix: the entry at position 1 has another key than its record\n",
       false},
      {"a second company", CustomerDataFile, [&](const MemoryDisk&) { return db + db.substr(0, 293); },
       "customer.db: the record at position 1466 has the number 0 of the company, which stands at position 1\n"
       "customer.db: the record at position 1466 has no entry in customer.ix\n",
       false},
      {"company elsewhere", CustomerDataFile, [&](const MemoryDisk&) { return db.substr(293) + db.substr(0, 293); }, nullptr, false},
      {"impossible number", CustomerDataFile, [&](const MemoryDisk&) { return db.substr(0, 584) + "\xFE\xFF" + db.substr(586); },
       "customer.db: the record at position 294 has the number -2, which no customer can have\n"
       "customer.ix: the entry at position 19 has another key than its record\n",
       false},
  };
  for (const Damage& damage : damages) {
    SCOPED_TRACE(damage.what);
    const auto disk = sample->Copy();
    disk->SetBytes(damage.file, damage.bytes(*sample));
    const auto faults = CheckFolder(*disk, "");
    if (damage.faults != nullptr) {
      EXPECT_EQ(Whole(faults), damage.faults);
    }
    EXPECT_FALSE(faults.empty());
    {
      const auto started = disk->Copy();
      DataFolder folder("", *started);
      Session session;
      EXPECT_EQ(StartFolder(folder, session).MayWork(), damage.atStart);
      EXPECT_EQ(BytesOf(*started) == BytesOf(*sample), damage.atStart);
    }
    ProbeDamagedFolder(*disk);
  }
}

TEST(DamagedFiles, ARepairKeepsWhatItCutsOffAndNumbersWhoHadNone) {
  const auto disk = SampleDisk();
  const std::string db = disk->Bytes(CustomerDataFile);
  disk->SetBytes(CustomerDataFile, db.substr(293) + "tail");  // the company is gone
  disk->SetBytes(kCustomerLeftovers, "earlier ");
  DataFolder folder("", *disk);
  EXPECT_EQ(Whole(RepairFolder(folder)), "");
  EXPECT_EQ(disk->Bytes(kCustomerLeftovers), "earlier tail");
  const auto customers = ReadAllCustomers("", *disk);
  ASSERT_EQ(customers.size(), 5U);
  EXPECT_EQ(customers[0].CustomerName.Trimmed(), "");
  EXPECT_EQ(customers[1].CustomerName.Trimmed(), "Hill Homes");

  // A second company becomes the first customer whose number is free; two of one number are left to the operator.
  StoreAll(folder, std::vector{Customer(1, "One")}, {});
  std::string twice = disk->Bytes(CustomerDataFile) + Encoded(Customer(0, "Zero"), 293) + Encoded(Customer(3, "Twin"), 293);
  disk->SetBytes(CustomerDataFile, twice);
  EXPECT_EQ(Whole(RepairFolder(folder)),
            "customer.db: the record at position 2052 has the number 3 of the customer at position 587; give one of them another number\n");
  EXPECT_EQ(FindCustomerRecord("", 2, *disk)->CustomerName.Trimmed(), "Zero");
}

TEST(DamagedFiles, EveryLengthUpToTwoRecords) {
  const auto sample = SampleDisk();
  for (const auto file : {CustomerDataFile, CustomerIndexFile, EstimateDataFile, EstimateIndexFile}) {
    const std::string whole = sample->Bytes(file);
    const std::size_t longest = file == CustomerDataFile   ? 2 * CustomerRecordSize
                                : file == EstimateDataFile ? 2 * EstimateRecordSize
                                                           : whole.size();
    for (std::size_t length = 0; length <= longest; ++length) {
      const auto disk = sample->Copy();
      disk->SetBytes(file, whole.substr(0, length));
      ASSERT_NO_THROW(ProbeDamagedFolder(*disk)) << file << " of " << length << " bytes";
    }
  }
}

TEST(DamagedFiles, RandomFlipsAndRandomBytes) {
  const auto sample = SampleDisk();
  std::mt19937 random(7);
  const std::array<std::string_view, 5> files = {CustomerDataFile, CustomerIndexFile, EstimateDataFile, EstimateIndexFile, kJournalFile};
  for (int round = 0; round < 400; ++round) {
    const auto disk = sample->Copy();
    for (int flips = static_cast<int>(random() % 4); flips >= 0; --flips) {
      const auto file = files[random() % files.size()];
      std::string bytes = disk->Bytes(file);
      if (round % 4 == 0 || bytes.empty()) {
        bytes.assign(random() % 600, '\0');
        for (char& byte : bytes) byte = static_cast<char>(random());
      } else {
        bytes[random() % bytes.size()] ^= static_cast<char>(1U << random() % 8);
      }
      disk->SetBytes(file, bytes);
    }
    ASSERT_NO_THROW(ProbeDamagedFolder(*disk)) << "round " << round;
  }
}

TEST(DamagedFiles, AReaderNamesTheEntryThatPointsNowhere) {
  const auto disk = SampleDisk();
  std::string index = disk->Bytes(CustomerIndexFile);
  EncodeValue(index.data() + 6 + 2, std::int32_t{295});
  disk->SetBytes(CustomerIndexFile, index);
  try {
    (void)FindCustomerRecord("", 3, *disk);
    FAIL() << "no error";
  } catch (const FileError& error) {
    EXPECT_STREQ(error.what(), "customer.ix: the entry at position 7 points to no record of customer.db");
  }
  EXPECT_EQ(FindCustomerRecord("", 5, *disk)->CustomerName.Trimmed(), "Reed");
}

}  // namespace
}  // namespace norvale
