#include "data/folder_start.h"

#include <gtest/gtest.h>

#include "data/folder_reader.h"
#include "data/journal.h"
#include "support/data_fixture.h"

namespace norvale {
namespace {

FolderStart Start(MemoryDisk& disk) {
  DataFolder folder("", disk);
  Session session;
  return StartFolder(folder, session);
}

TEST(FolderStart, AnEmptyFolderGetsTheBlankCompany) {
  for (const char* index : {"", "x"}) {  // one byte counts as none
    MemoryDisk disk;
    disk.SetBytes(CustomerIndexFile, index);
    const FolderStart start = Start(disk);
    EXPECT_TRUE(start.madeCompany && start.MayWork());
    EXPECT_EQ(disk.Bytes(CustomerDataFile), std::string(291, ' ') + std::string(2, '\0'));
    EXPECT_EQ(disk.Bytes(CustomerIndexFile), std::string("\0\0\1\0\0\0", 6));
    EXPECT_TRUE(disk.Has(EstimateDataFile) && disk.Has(EstimateIndexFile));
    EXPECT_FALSE(Start(disk).madeCompany);
  }
}

TEST(FolderStart, ALostIndexComesBackWithTheCompanyAndEveryCustomer) {
  const auto sample = SampleDisk();
  for (const char* left : {"", "x", "\0\0\1\0\0"}) {
    const auto disk = sample->Copy();
    disk->SetBytes(CustomerIndexFile, left);
    disk->SetBytes(EstimateIndexFile, "");
    const FolderStart start = Start(*disk);
    EXPECT_TRUE(start.rebuiltCustomerIndex && start.rebuiltEstimateIndex && !start.madeCompany);
    EXPECT_TRUE(BytesOf(*disk) == BytesOf(*sample));
  }
}

// Records that are gone are no reason to start over: their index is all that is left of them.
TEST(FolderStart, LostRecordsAreToldNotForgotten) {
  const auto disk = SampleDisk();
  disk->SetBytes(CustomerDataFile, "");
  const FolderStart start = Start(*disk);
  EXPECT_FALSE(start.MayWork() || start.madeCompany || start.rebuiltCustomerIndex);
  EXPECT_EQ(disk->Bytes(CustomerIndexFile).size(), 5 * CustomerIndexEntrySize);
}

// What a change has not finished is not read while the one who makes it is still there.
TEST(FolderReader, DoesNotReadAHalfFinishedChange) {
  std::unique_ptr<MemoryDisk> disk;
  for (int cut = 0; !disk || !Journal::IsPending(*disk, ""); ++cut) {
    const auto dying = SampleDisk();
    dying->cutBefore = dying->changes + cut;
    (void)ErrorOf([&] { AllOperations().front()(*dying); });
    disk = dying->AfterPowerCut(Survival::Everything, 0);
  }
  disk->isLocked = true;
  EXPECT_EQ(ErrorOf([&] { (void)ReadAllCustomers("", *disk); }), ": another program is changing the customers and plans of this folder");
}

TEST(FolderReader, FindsTheFirstOfSeveralAndNothingWhereNothingIs) {
  const auto disk = SampleDisk();
  const auto mark = [&](int customer, std::string_view plan) {
    const auto found = FindEstimate("", customer, plan, *disk);
    return found ? found->RoofSqFt : -1;
  };
  EXPECT_EQ(mark(7, "A"), 3);
  EXPECT_EQ(mark(7, " C"), 8);
  EXPECT_EQ(mark(7, "C"), -1);
  EXPECT_EQ(mark(7, "A234567890123456"), -1);
  EXPECT_EQ(mark(65543, "A"), -1);  // 7 in 16 bits
  EXPECT_EQ(ReadEstimatesOfCustomer("", 7, *disk).size(), 4U);
  EXPECT_TRUE(ReadEstimatesOfCustomer("", 1, *disk).empty());
  EXPECT_EQ(FindCustomerRecord("", 0, *disk)->CustomerRecordNumber, 0);
  EXPECT_EQ(FindCustomerRecord("", 4, *disk), std::nullopt);

  std::string index = disk->Bytes(CustomerIndexFile);
  EncodeValue(index.data() + CustomerIndexEntrySize + 2, std::int32_t{295});
  disk->SetBytes(CustomerIndexFile, index);
  EXPECT_EQ(ErrorOf([&] { (void)FindCustomerRecord("", 3, *disk); }),
            "customer.ix: the entry at position 7 points to no record of customer.db");
  EXPECT_EQ(FindCustomerRecord("", 5, *disk)->CustomerName.Trimmed(), "Reed");

  MemoryDisk empty;
  EXPECT_TRUE(ReadAllCustomers("", empty).empty());
  EXPECT_EQ(FindEstimate("", 7, "A", empty), std::nullopt);
  EXPECT_FALSE(empty.Has(EstimateIndexFile));  // reading makes no files
}

}  // namespace
}  // namespace norvale
