#include "shell/working_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "base/files.h"
#include "data/folder_check.h"
#include "desktop/desktop_fixture.h"
#include "prices/delivered.h"
#include "prices/new_folder.h"

namespace norvale {
namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;
namespace fs = std::filesystem;

std::vector<std::string> FilesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder))
    if (entry.path().filename() != kLockFile && entry.path().filename() != kJournalFile) names.push_back(entry.path().filename().string());
  return names;
}

void Write(const fs::path& path, std::string_view bytes) { std::ofstream(path, std::ios::binary) << bytes; }

class WorkingFolder : public testing::Test {
 protected:
  // Opens the folder and gives it back. Returns whether the program would go on.
  bool Opens() { return OpenWorkingFolder(scratch.Path(), session, asked, disk) != nullptr; }
  void Lay() {
    asked.Expect(LayQuestion({}, true), Answer::Yes);
    ASSERT_TRUE(Opens());
  }

  ScratchFolder scratch;
  RefusingDisk disk;
  Session session;
  AskedMessages asked;
};

TEST_F(WorkingFolder, AnEmptyOneIsLaidOnlyWhenWanted) {
  asked.Expect(LayQuestion({}, true), Answer::No);
  EXPECT_FALSE(Opens());
  EXPECT_THAT(FilesIn(scratch.Path()), IsEmpty());

  Lay();
  EXPECT_THAT(FilesIn(scratch.Path()), UnorderedElementsAre("NVdata01.idx", "NVdata02.idx", "NVdata03.db", "customer.db", "customer.ix",
                                                            "estimate.dbr", "estimate.ix"));
  EXPECT_EQ(fs::file_size(scratch.Path() / "customer.db"), 293U);
  EXPECT_EQ(fs::file_size(scratch.Path() / "customer.ix"), 6U);
  EXPECT_EQ(ReadWholeFile(scratch.Path() / "NVdata03.db"), DeliveredPriceFile());
  EXPECT_TRUE(Opens()) << "no question the second time";
}

TEST_F(WorkingFolder, SaysWhichFilesAreMissing) {
  Lay();
  Write(scratch.Path() / "NVdata02.idx", "mine");
  fs::remove(scratch.Path() / "NVdata03.db");
  fs::remove(scratch.Path() / "estimate.dbr");
  const std::string question = LayQuestion({"NVdata03.db", "estimate.dbr"}, false);
  EXPECT_THAT(question, testing::HasSubstr("NVdata03.db and estimate.dbr."));
  asked.Expect(question, Answer::No);
  EXPECT_FALSE(Opens());
  EXPECT_FALSE(fs::exists(scratch.Path() / "NVdata03.db"));
  EXPECT_FALSE(fs::exists(scratch.Path() / "estimate.dbr"));
  asked.Expect(question, Answer::Yes);
  EXPECT_TRUE(Opens());
  EXPECT_EQ(ReadWholeFile(scratch.Path() / "NVdata03.db"), DeliveredPriceFile());
  EXPECT_EQ(ReadWholeFile(scratch.Path() / "NVdata02.idx"), "mine") << "what is there is not touched";
}

TEST_F(WorkingFolder, ALostIndexIsMadeAgainWithoutAWord) {
  Lay();
  {
    DataFolder folder(scratch.Path());
    const std::vector customers = {Customer(5, "Reed"), Customer(2, "Hill"), Customer(0, "Norvale Lumber")};
    StoreAll(folder, customers, {});
  }
  const std::string index = ReadWholeFile(scratch.Path() / "customer.ix");
  for (const std::string_view left : {std::string_view(), std::string_view("x")}) {
    Write(scratch.Path() / "customer.ix", left);
    EXPECT_TRUE(Opens());
    EXPECT_EQ(ReadWholeFile(scratch.Path() / "customer.ix"), index);
    EXPECT_EQ(session.CompanyRecord.CustomerName.Trimmed(), "Norvale Lumber");
    EXPECT_EQ(session.CustomerCursor, 7);
  }
}

TEST_F(WorkingFolder, DamageIsToldAndMendedOnlyWhenWanted) {
  Lay();
  const fs::path plans = scratch.Path() / "estimate.dbr";
  Write(plans, "half a plan");
  const std::string question =
      "2 The customer and plan files are damaged:\n\nestimate.dbr: the last 11 bytes, from position 1, are no whole record\n\n"
      "Mend them now? No record is lost. With NO the program ends and changes nothing.|Damaged Files";
  asked.Expect(question, Answer::No);
  EXPECT_FALSE(Opens());
  EXPECT_EQ(ReadWholeFile(plans), "half a plan");
  asked.Expect(question, Answer::Yes);
  EXPECT_TRUE(Opens());
  EXPECT_EQ(fs::file_size(plans), 0U);
  EXPECT_EQ(ReadWholeFile(scratch.Path() / kEstimateLeftovers), "half a plan");
}

TEST_F(WorkingFolder, TwoCustomersOfOneNumberAreToldAndNoHindrance) {
  Lay();
  const std::string records = ReadWholeFile(scratch.Path() / "customer.db");
  const std::string twin = Encoded(Customer(4, "Twin"), CustomerRecordSize);
  Write(scratch.Path() / "customer.db", records + twin + twin);
  asked.Expect(
      "0 Something in the files needs your eye:\n\ncustomer.db: the record at position 587 has the number 4 of the customer at position "
      "294; give one of them another number|Norvale Help Notice");
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
  for (const char* const reason : {"Permission denied", "Read-only file system", "No space left on device"}) {
    disk.reason = reason;
    asked.Expect(refusal("norvale.lck", reason));
    EXPECT_FALSE(Opens()) << reason;
  }
  disk.reason.clear();
  EXPECT_TRUE(Opens()) << "nothing was left behind";
}

}  // namespace
}  // namespace norvale
