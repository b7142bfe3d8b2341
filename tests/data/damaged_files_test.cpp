// Files of any length and with any bytes are read, refused or mended; never a crash, and never a lost record.
#include <gtest/gtest.h>

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

TEST(DamagedFiles, EachFaultIsNamedWithFileAndPosition) {
  const auto sample = SampleDisk();
  const std::string db = sample->Bytes(CustomerDataFile);
  const std::string index = sample->Bytes(EstimateIndexFile);
  const auto withEntry = [&index](std::size_t entry, std::int32_t recordPosition) {
    std::string bytes = index;
    EncodeValue(bytes.data() + entry * EstimateIndexEntrySize + 20, recordPosition);
    return bytes;
  };
  const std::string without = "estimate.dbr: the record at position 11697 has no entry in estimate.ix\n";
  const struct {
    std::string_view file;
    std::string bytes;
    std::string faults;   // as `check` tells them
    bool atStart = true;  // whether the start mends it by itself
  } damages[] = {
      {EstimateIndexFile, withEntry(1, 1462 * 9 + 1),
       "estimate.ix: the entry at position 25 points to no record of estimate.dbr\n" + without},
      {EstimateIndexFile, withEntry(1, 2),
       "estimate.ix: the entry at position 25 points into the middle of a record of estimate.dbr\n" + without},
      {EstimateIndexFile, withEntry(1, 7311),
       "estimate.ix: the entry at position 25 names the same record as the one at position 1\n" + without},
      {EstimateIndexFile, withEntry(1, 0), "estimate.ix: the entry at position 25 is marked as being deleted\n" + without},
      {EstimateIndexFile, index.substr(0, 28) + "9" + index.substr(29),
       "estimate.ix: the entry at position 25 has another key than its record\n"
       "estimate.ix: the entry at position 49 stands behind one with a higher key\n"},
      {EstimateIndexFile, index + "xyz", "estimate.ix: the last 3 bytes, from position 217, are no whole entry\n"},
      {EstimateDataFile, sample->Bytes(EstimateDataFile) + "xyz",
       "estimate.dbr: the last 3 bytes, from position 13159, are no whole record\n", false},
      {CustomerDataFile, db.substr(0, 291) + "\x09" + std::string(1, '\0') + db.substr(293),
       "customer.db: the company is missing, the record with the number 0 at position 1\n"
       "customer.ix: the entry at position 1 has another key than its record\n",
       false},
      {CustomerDataFile, db + db.substr(0, 293),
       "customer.db: the record at position 1466 has the number 0 of the company, which stands at position 1\n"
       "customer.db: the record at position 1466 has no entry in customer.ix\n",
       false},
      {CustomerDataFile, db.substr(0, 291) + db.substr(584, 2) + db.substr(293, 291) + db.substr(291, 2) + db.substr(586),
       "customer.db: the record at position 294 is the company, which must be the first\n"
       "customer.ix: the entry at position 1 has another key than its record\n"
       "customer.ix: the entry at position 19 has another key than its record\n",
       false},
      {CustomerDataFile, db.substr(0, 584) + "\xFE\xFF" + db.substr(586),
       "customer.db: the record at position 294 has the number -2, which no customer can have\n"
       "customer.ix: the entry at position 19 has another key than its record\n",
       false},
  };
  for (const auto& damage : damages) {
    SCOPED_TRACE(damage.faults);
    const auto disk = sample->Copy();
    disk->SetBytes(damage.file, damage.bytes);
    EXPECT_EQ(Whole(CheckFolder(*disk, "")), damage.faults);
    ProbeDamagedFolder(*disk);
    const auto damaged = disk->Copy();
    DataFolder folder("", *disk);
    Session session;
    EXPECT_EQ(StartFolder(folder, session).MayWork(), damage.atStart);
    EXPECT_TRUE(BytesOf(*disk) == BytesOf(damage.atStart ? *sample : *damaged));
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
  std::string twice = disk->Bytes(CustomerDataFile) + Encoded(Customer(0, "Zero"), 293) + Encoded(Customer(-5, "Minus"), 293) +
                      Encoded(Customer(3, "Twin"), 293);
  disk->SetBytes(CustomerDataFile, twice);
  EXPECT_EQ(Whole(RepairFolder(folder)),
            "customer.db: the record at position 2345 has the number 3 of the customer at position 587; give one of them another number\n");
  EXPECT_EQ(FindCustomerRecord("", 2, *disk)->CustomerName.Trimmed(), "Zero");
  EXPECT_EQ(FindCustomerRecord("", 4, *disk)->CustomerName.Trimmed(), "Minus");
  Session session;
  EXPECT_TRUE(StartFolder(folder, session).MayWork());
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

}  // namespace
}  // namespace norvale
