// Every call to the disk fails once, and from then on: the data survives, and the operator hears which file and why.
#include <gtest/gtest.h>

#include "support/data_fixture.h"

namespace norvale {
namespace {

class DiskErrorTest : public testing::TestWithParam<bool> {};

TEST_P(DiskErrorTest, LeavesTheOldDataAndNamesTheFile) {
  const bool failsOn = GetParam();
  const auto sample = SampleDisk();
  const FolderBytes before = BytesOf(*sample);
  for (const Operation& operation : AllOperations()) {
    FolderBytes after;
    int calls = 0;
    {
      const auto whole = sample->Copy();
      DataFolder folder("", *whole);
      Session session;
      whole->calls = 0;
      operation.run(folder, session);
      calls = whole->calls;
      after = BytesOf(*whole);
    }
    ASSERT_GT(calls, 10) << operation.name;
    for (int fail = 0; fail < calls; ++fail) {
      SCOPED_TRACE(std::string(operation.name) + ", call " + std::to_string(fail));
      const auto disk = sample->Copy();
      {
        DataFolder folder("", *disk);
        Session session;
        disk->calls = 0;
        disk->failCall = fail;
        disk->failsOn = failsOn;
        try {
          operation.run(folder, session);
          ADD_FAILURE() << "the error was swallowed";
        } catch (const FileError& error) {
          EXPECT_EQ(error.File(), disk->failedFile);
          EXPECT_EQ(error.Reason(), "No space left on device");
        }
        disk->failCall = -1;
        // The disk is well again: the same program goes on, on whole files.
        session.CurrentEstimate = PlanOf(8, "NEXT");
        AddEstimate(folder, session);
        EXPECT_TRUE(CheckFolder(*disk, "").empty());
        session.EstimateCursor = 1;
        ASSERT_TRUE(FindEstimateOfPlan(folder, session, 8, "NEXT"));
        EXPECT_EQ(DeleteEstimate(folder, session), EstimateChange::Done);
      }
      // The delete has brought the records into index order; the same is done to what is expected.
      const auto inOrder = [](const FolderBytes& bytes) {
        MemoryDisk ordered;
        for (const auto& [name, content] : bytes) ordered.SetBytes(name, content);
        DataFolder folder("", ordered);
        Session session;
        session.CurrentEstimate = PlanOf(8, "NEXT");
        AddEstimate(folder, session);
        (void)DeleteEstimate(folder, session);
        return BytesOf(ordered);
      };
      const FolderBytes found = BytesOf(*disk);
      EXPECT_TRUE(found == inOrder(before) || found == inOrder(after));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Once, DiskErrorTest, testing::Values(false));
INSTANTIATE_TEST_SUITE_P(FromThenOn, DiskErrorTest, testing::Values(true));

// One failing call, and a disk that is well again at once: what was changed in place is taken back before the error is told.
TEST(DiskError, AFailedChangeInPlaceIsTakenBack) {
  const auto sample = SampleDisk();
  for (const Operation& operation : AllOperations()) {
    if (!Has(operation.name, "add") && !Has(operation.name, "update") && !Has(operation.name, "batch")) continue;
    bool failed = true;
    for (int fail = 0; failed; ++fail) {
      const auto disk = sample->Copy();
      failed = false;
      {
        DataFolder folder("", *disk);
        Session session;
        const FolderBytes before = BytesOf(*disk);
        disk->calls = 0;
        disk->failCall = fail;
        try {
          operation.run(folder, session);
        } catch (const FileError&) {
          failed = true;
          EXPECT_TRUE(BytesOf(*disk) == before) << operation.name << ", call " << fail;
          EXPECT_FALSE(session.customerIsNew);
        }
      }
    }
  }
}

}  // namespace
}  // namespace norvale
