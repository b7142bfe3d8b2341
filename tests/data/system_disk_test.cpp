// The computer's own files: what the tests in memory take for granted.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "data/folder_reader.h"
#include "support/data_fixture.h"
#include "support/scratch_folder.h"

namespace norvale {
namespace {

class SystemDiskTest : public testing::Test {
 protected:
  const ScratchFolder scratch_;
  const std::filesystem::path& folder_ = scratch_.Path();
};

TEST_F(SystemDiskTest, OperationsGiveTheSameFilesAsInMemory) {
  for (const Operation& operation : AllOperations()) {
    const auto memory = SampleDisk();
    for (const auto& [name, bytes] : BytesOf(*memory)) SystemDisk().Open(folder_ / name, Opening::Fresh)->WriteAt(0, bytes);
    operation(*memory);
    DataFolder onDisk(folder_);
    Session session;
    operation.run(onDisk, session);
    for (const auto& [name, bytes] : BytesOf(*memory)) EXPECT_TRUE(ReadBytes(folder_ / name) == bytes) << operation.name << ": " << name;
  }
  // Nothing of the operations is left lying about.
  EXPECT_EQ(SystemDisk().Names(folder_).size(), 6U);
  EXPECT_EQ(ReadBytes(folder_ / kJournalFile), "");
}

TEST_F(SystemDiskTest, TheLockOfAProgramThatDiedIsFree) {
  std::array<int, 2> ready{};
  ASSERT_EQ(::pipe(ready.data()), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    const DataFolder held(folder_);
    (void)!::write(ready[1], "x", 1);
    ::pause();
    ::_exit(0);
  }
  char byte = 0;
  ASSERT_EQ(::read(ready[0], &byte, 1), 1);
  EXPECT_EQ(ErrorOf([&] { DataFolder{folder_}; }), folder_.string() + ": the folder is in use by another program; close it there first");
  EXPECT_TRUE(ReadAllCustomers(folder_).empty());  // reading asks for no lock
  ::kill(child, SIGKILL);
  ::waitpid(child, nullptr, 0);
  EXPECT_EQ(ErrorOf([&] { DataFolder{folder_}; }), "");
  ::close(ready[0]);
  ::close(ready[1]);
}

TEST_F(SystemDiskTest, ErrorsNameFileAndReason) {
  const auto missing = folder_ / "missing";
  EXPECT_EQ(SystemDisk().Open(missing, Opening::Read), nullptr);
  EXPECT_EQ(SystemDisk().Open(missing, Opening::Update), nullptr);
  SystemDisk().Remove(missing);  // no error
  EXPECT_EQ(ErrorOf([&] { SystemDisk().Rename(missing, folder_ / "x"); }), missing.string() + ": No such file or directory");
  EXPECT_EQ(ErrorOf([&] { DataFolder{missing}; }), (missing / kLockFile).string() + ": No such file or directory");
  for (const Opening opening : {Opening::Create, Opening::Update})
    EXPECT_EQ(ErrorOf([&] { (void)SystemDisk().Open(folder_, opening); }), folder_.string() + ": Is a directory");
  EXPECT_EQ(ErrorOf([&] { (void)SystemDisk().Open(missing / "x", Opening::Create); }),
            (missing / "x").string() + ": No such file or directory");
  const auto read = SystemDisk().Open(folder_ / "r", Opening::Create);
  char byte = 0;
  EXPECT_EQ(ErrorOf([&] { ReadExactly(*read, "r", 0, &byte, 1); }), "r: the file ended while it was being read");
  EXPECT_EQ(ErrorOf([&] { SystemDisk().Open("/dev/full", Opening::Update)->WriteAt(0, "x"); }), "/dev/full: No space left on device");
}

}  // namespace
}  // namespace norvale
