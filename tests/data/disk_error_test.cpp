// Every call to the disk fails once, and from then on: the data survives, and the operator hears which file and why.
#include <gtest/gtest.h>

#include "data/journal.h"
#include "support/data_fixture.h"

namespace norvale {
namespace {

// Adds a plan and deletes it, which brings the records into index order.
void AddAndDelete(DataFolder& folder, Session& session) {
  session.CurrentEstimate = PlanOf(8, "NEXT");
  AddEstimate(folder, session);
  EXPECT_TRUE(CheckFolder(folder.Files(), "").empty());
  session.EstimateCursor = 1;
  ASSERT_TRUE(FindEstimateOfPlan(folder, session, 8, "NEXT"));
  EXPECT_EQ(DeleteEstimate(folder, session), EstimateChange::Done);
}

TEST(DiskError, LeavesTheOldDataAndNamesTheFile) {
  const auto sample = SampleDisk();
  const FolderBytes before = BytesOf(*sample);
  const Operation settle{"settle", AddAndDelete};
  const auto untouched = sample->Copy();
  settle(*untouched);
  for (const Operation& operation : AllOperations()) {
    const auto done = sample->Copy();
    operation(*done);
    settle(*done);
    const bool isInPlace = Has(operation.name, "add") || Has(operation.name, "update") || Has(operation.name, "batch");
    for (const bool failsOn : {false, true}) {
      bool failed = true;
      for (int fail = 0; failed; ++fail) {
        SCOPED_TRACE(std::string(operation.name) + ", call " + std::to_string(fail) + (failsOn ? " and all later" : ""));
        const auto disk = sample->Copy();
        DataFolder folder("", *disk);
        Session session;
        disk->calls = 0;
        disk->failCall = fail;
        disk->failsOn = failsOn;
        try {
          operation.run(folder, session);
          EXPECT_GT(fail, 10);
          failed = false;
          EXPECT_LE(disk->calls, fail) << "the error was swallowed";
        } catch (const FileError& error) {
          EXPECT_EQ(error.File(), disk->failedFile);
          EXPECT_EQ(error.Reason(), "No space left on device");
          if (isInPlace && !failsOn) {
            // Where the disk is well again at once, what was changed is taken back before the error is told.
            EXPECT_TRUE(BytesOf(*disk) == before);
            EXPECT_FALSE(session.customerIsNew);
          }
        }
        // The disk is well again: the same program goes on, on whole files.
        disk->failCall = -1;
        if (!failsOn && !Journal::IsPending(*disk, "")) {  // what was begun takes no room; a sort clears away its own the next time
          for (const auto& [name, bytes] : disk->FilesIn(""))
            EXPECT_TRUE(IsKept(name) || name == kJournalFile || Has(name, "sort")) << name;
        }
        AddAndDelete(folder, session);
        EXPECT_TRUE(BytesOf(*disk) == BytesOf(*untouched) || BytesOf(*disk) == BytesOf(*done));
      }
    }
  }
}

}  // namespace
}  // namespace norvale
