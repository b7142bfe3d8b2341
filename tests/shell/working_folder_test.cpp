#include "shell/working_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/files.h"
#include "data/folder_check.h"
#include "prices/delivered.h"
#include "prices/new_folder.h"
#include "support/asked_messages.h"
#include "support/data_fixture.h"
#include "support/refusing_disk.h"
#include "support/scratch_folder.h"

namespace norvale {
namespace {

class WorkingFolder : public testing::Test {
 protected:
  // Opens the folder and gives it back. Returns whether the program would go on.
  bool Opens() {
    const bool opens = OpenWorkingFolder(scratch.Path(), session, asked, disk) != nullptr;
    asked.ExpectAllAsked();
    return opens;
  }
  void Lay() {
    asked.Expect(LayQuestion({}, true), Answer::Yes);
    ASSERT_TRUE(Opens());
  }
  // The question is asked at each start: NO changes nothing, and YES goes on.
  void ExpectQuestion(const std::string& question, const std::string& file) {
    const auto before = ReadFileIfPresent(scratch / file);
    asked.Expect(question, Answer::No);
    EXPECT_FALSE(Opens());
    EXPECT_EQ(ReadFileIfPresent(scratch / file), before);
    asked.Expect(question, Answer::Yes);
    EXPECT_TRUE(Opens());
  }

  ScratchFolder scratch;
  RefusingDisk disk;
  Session session;
  AskedMessages asked;
};

TEST_F(WorkingFolder, AnEmptyOneIsLaidOnlyWhenWanted) {
  ExpectQuestion(LayQuestion({}, true), "NVdata03.db");
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(scratch.Path())) names.push_back(entry.path().filename().string());
  EXPECT_THAT(names, testing::UnorderedElementsAre("NVdata01.idx", "NVdata02.idx", "NVdata03.db", "customer.db", "customer.ix",
                                                   "estimate.dbr", "estimate.ix", kLockFile, kJournalFile));
  EXPECT_EQ(ReadBytes(scratch / "customer.db").size(), 293U);
  EXPECT_EQ(ReadBytes(scratch / "customer.ix").size(), 6U);
  EXPECT_EQ(ReadBytes(scratch / "NVdata03.db"), DeliveredPriceFile());
  std::filesystem::remove(scratch / "customer.ix");
  EXPECT_TRUE(Opens()) << "no question the second time, and none for an index, which is made from its records";
  EXPECT_EQ(ReadBytes(scratch / "customer.ix").size(), 6U);
}

TEST_F(WorkingFolder, SaysWhichFilesAreMissing) {
  Lay();
  WriteBytes(scratch / "NVdata02.idx", "mine");
  std::filesystem::remove(scratch / "NVdata03.db");
  std::filesystem::remove(scratch / "NVdata01.idx");
  std::filesystem::remove(scratch / "estimate.dbr");
  const std::string question = LayQuestion({"NVdata01.idx", "NVdata03.db", "estimate.dbr"}, false);
  EXPECT_THAT(question, testing::HasSubstr("NVdata01.idx, NVdata03.db and estimate.dbr."));
  ExpectQuestion(question, "NVdata03.db");
  EXPECT_EQ(ReadBytes(scratch / "NVdata03.db"), DeliveredPriceFile());
  EXPECT_EQ(ReadBytes(scratch / "NVdata02.idx"), "mine") << "what is there is not touched";
}

TEST_F(WorkingFolder, DamageIsToldAndMendedOnlyWhenWanted) {
  Lay();
  WriteBytes(scratch / "estimate.dbr", "half a plan");
  ExpectQuestion(
      "2 The customer and plan files are damaged:\n\nestimate.dbr: the last 11 bytes, from position 1, are no whole record\n\n"
      "Mend them now? No record is lost. With NO the program ends and changes nothing.|Damaged Files",
      "estimate.dbr");
  EXPECT_EQ(ReadBytes(scratch / "estimate.dbr"), "");
  EXPECT_EQ(ReadBytes(scratch / kEstimateLeftovers), "half a plan");
}

TEST_F(WorkingFolder, CustomersOfOneNumberAreToldAndNoHindrance) {
  Lay();
  std::string records = ReadBytes(scratch / "customer.db");
  std::string told = "Something in the files needs your eye:\n";
  for (int twin = 0; twin < 7; ++twin) {
    if (twin > 0 && twin < 6)
      told += "\ncustomer.db: the record at position " + std::to_string(1 + records.size()) +
              " has the number 4 of the customer at position 294; give one of them another number";
    records += Encoded(Customer(4, "Twin"), CustomerRecordSize);
  }
  WriteBytes(scratch / "customer.db", records);
  asked.Expect(Notice(told + "\nand 1 more"));
  EXPECT_TRUE(Opens());
}

TEST_F(WorkingFolder, IsRefusedInOneMessage) {
  Lay();
  const auto refusal = [this](const std::string& file, const std::string& reason) {
    return Notice("Norvale cannot work in this folder.\n\n" + file + ": " + reason);
  };
  {
    const DataFolder other(scratch.Path());
    asked.Expect(refusal(scratch.Path().string(), "the folder is in use by another program; close it there first"));
    EXPECT_FALSE(Opens());
  }
  disk.reason = "Read-only file system";
  asked.Expect(refusal("norvale.lck", disk.reason));
  EXPECT_FALSE(Opens());
  disk.reason.clear();
  EXPECT_TRUE(Opens()) << "nothing was left behind";
}

}  // namespace
}  // namespace norvale
