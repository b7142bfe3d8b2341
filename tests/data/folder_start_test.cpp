#include "data/folder_start.h"

#include <gtest/gtest.h>

#include "data/folder_reader.h"
#include "support/data_fixture.h"

namespace norvale {
namespace {

FolderStart Start(MemoryDisk& disk, Session& session) {
  DataFolder folder("", disk);
  return StartFolder(folder, session);
}

TEST(FolderStart, AnEmptyFolderGetsTheBlankCompany) {
  for (const char* index : {"", "x"}) {  // one byte counts as none
    MemoryDisk disk;
    disk.SetBytes(CustomerIndexFile, index);
    Session session;
    const FolderStart start = Start(disk, session);
    EXPECT_TRUE(start.madeCompany);
    EXPECT_TRUE(start.MayWork());
    EXPECT_EQ(disk.Bytes(CustomerDataFile), std::string(291, ' ') + std::string(2, '\0'));
    EXPECT_EQ(disk.Bytes(CustomerIndexFile), std::string("\0\0\1\0\0\0", 6));
    EXPECT_TRUE(disk.Has(EstimateDataFile) && disk.Has(EstimateIndexFile));
    EXPECT_FALSE(Start(disk, session).madeCompany);
  }
}

TEST(FolderStart, ALostIndexComesBackWithTheCompanyAndEveryCustomer) {
  const auto sample = SampleDisk();
  for (const char* left : {"", "x", "\0\0\1\0\0"}) {
    const auto disk = sample->Copy();
    disk->SetBytes(CustomerIndexFile, left);
    disk->SetBytes(EstimateIndexFile, "");
    Session session;
    const FolderStart start = Start(*disk, session);
    EXPECT_TRUE(start.rebuiltCustomerIndex && start.rebuiltEstimateIndex);
    EXPECT_FALSE(start.madeCompany);
    EXPECT_TRUE(BytesOf(*disk) == BytesOf(*sample));
  }
}

// Records that are gone are no reason to start over: their index is all that is left of them.
TEST(FolderStart, LostRecordsAreToldNotForgotten) {
  const auto disk = SampleDisk();
  disk->SetBytes(CustomerDataFile, "");
  Session session;
  const FolderStart start = Start(*disk, session);
  EXPECT_FALSE(start.MayWork());
  EXPECT_FALSE(start.madeCompany || start.rebuiltCustomerIndex);
  EXPECT_EQ(disk->Bytes(CustomerIndexFile).size(), 5 * CustomerIndexEntrySize);
}

TEST(FolderStart, ReadsTheCompany) {
  const auto disk = SampleDisk();
  Session session;
  {
    DataFolder folder("", *disk);
    OpenCompany(folder, session);
    session.CurrentCustomer.CustomerName.Assign("Norvale Lumber");
    SaveCompany(folder, session);
    CloseCompany(folder, session);
    EXPECT_EQ(session.CustomerCursor, kFirstCustomerPosition);
    EXPECT_EQ(session.CurrentCustomer.CustomerName.Trimmed(), "Hill Homes");
  }
  Session fresh;
  EXPECT_TRUE(Start(*disk, fresh).MayWork());
  EXPECT_EQ(fresh.CompanyRecord.CustomerName.Trimmed(), "Norvale Lumber");
  EXPECT_EQ(fresh.CompanyRecord, session.CompanyRecord);
}

TEST(FolderStart, ASecondProgramIsRefusedAndAFreeFolderTaken) {
  MemoryDisk disk;
  {
    const DataFolder first("folder", disk);
    try {
      const DataFolder second("folder", disk);
      ADD_FAILURE() << "two programs on one folder";
    } catch (const FileError& error) {
      EXPECT_STREQ(error.what(), "folder: the folder is in use by another program; close it there first");
    }
  }
  EXPECT_NO_THROW(DataFolder("folder", disk));
}

// The reader deals with an interrupted operation as a start would.
TEST(FolderStart, AReaderRecoversFirst) {
  const auto sample = SampleDisk();
  int recovered = 0;
  for (int cut = 0; cut < 12; ++cut) {
    const auto disk = sample->Copy();
    disk->cutBefore = cut;
    try {
      DataFolder folder("", *disk);
      Session session;
      session.CurrentEstimate = PlanOf(0, " ", 1);
      AddEstimate(folder, session);
    } catch (const PowerCut&) {
    }
    const auto survivor = disk->AfterPowerCut(Survival::Everything, 0);
    recovered += Journal::IsPending(*survivor, "") ? 1 : 0;
    const std::size_t plans = ReadAllEstimates("", *survivor).size();
    EXPECT_TRUE(plans == 9 || plans == 10) << cut;
    EXPECT_TRUE(CheckFolder(*survivor, "").empty()) << cut;
  }
  EXPECT_GT(recovered, 2);
}

TEST(FolderReader, FindsTheFirstOfSeveralAndNothingWhereNothingIs) {
  const auto disk = SampleDisk();
  EXPECT_EQ(FindEstimate("", 7, "A", *disk)->RoofSqFt, 3);
  EXPECT_EQ(FindEstimate("", 7, " C", *disk)->RoofSqFt, 8);
  EXPECT_EQ(FindEstimate("", 7, "C", *disk), std::nullopt);
  EXPECT_EQ(FindEstimate("", 7, "A234567890123456", *disk), std::nullopt);
  EXPECT_EQ(FindEstimate("", 65543, "A", *disk), std::nullopt);  // 7 in 16 bits
  EXPECT_EQ(ReadEstimatesOfCustomer("", 7, *disk).size(), 4U);
  EXPECT_TRUE(ReadEstimatesOfCustomer("", 1, *disk).empty());
  EXPECT_EQ(FindCustomerRecord("", 0, *disk)->CustomerRecordNumber, 0);
  EXPECT_EQ(FindCustomerRecord("", 4, *disk), std::nullopt);
  MemoryDisk empty;
  EXPECT_TRUE(ReadAllCustomers("", empty).empty());
  EXPECT_EQ(FindEstimate("", 7, "A", empty), std::nullopt);
  EXPECT_FALSE(empty.Has(EstimateIndexFile));  // reading makes no files
}

}  // namespace
}  // namespace norvale
