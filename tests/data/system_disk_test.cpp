// The computer's own files: what the tests in memory take for granted.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "data/folder_reader.h"
#include "support/data_fixture.h"
#include "support/scratch_folder.h"

namespace norvale {
namespace {

class SystemDiskTest : public testing::Test {
 protected:
  ScratchFolder scratch_;
  const std::filesystem::path folder_ = scratch_.Path();
};

TEST_F(SystemDiskTest, OperationsGiveTheSameFilesAsInMemory) {
  for (const Operation& operation : AllOperations()) {
    const auto memory = SampleDisk();
    for (const auto name : {CustomerDataFile, CustomerIndexFile, EstimateDataFile, EstimateIndexFile}) {
      const auto file = SystemDisk().Open(folder_ / name, Opening::Fresh);
      file->WriteAt(0, memory->Bytes(name));
    }
    {
      DataFolder inMemory("", *memory);
      DataFolder onDisk(folder_);
      Session one;
      Session other;
      operation.run(inMemory, one);
      operation.run(onDisk, other);
    }
    for (const auto name : {CustomerDataFile, CustomerIndexFile, EstimateDataFile, EstimateIndexFile}) {
      const auto file = SystemDisk().Open(folder_ / name, Opening::Read);
      ASSERT_NE(file, nullptr);
      std::string bytes(static_cast<std::size_t>(file->Size()), '\0');
      ReadExactly(*file, name, 0, bytes.data(), bytes.size());
      EXPECT_TRUE(bytes == memory->Bytes(name)) << operation.name << ": " << name;
    }
    // Nothing of the operation is left lying about.
    std::size_t files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
      ++files;
      EXPECT_TRUE(entry.path().filename() != kJournalFile || entry.file_size() == 0);
    }
    EXPECT_EQ(files, 6U) << operation.name;
  }
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
  EXPECT_THROW(DataFolder{folder_}, FileError);
  EXPECT_TRUE(ReadAllCustomers(folder_).empty());  // reading asks for no lock
  ::kill(child, SIGKILL);
  ::waitpid(child, nullptr, 0);
  EXPECT_NO_THROW(DataFolder{folder_});
  ::close(ready[0]);
  ::close(ready[1]);
}

TEST_F(SystemDiskTest, ErrorsNameFileAndReason) {
  const auto reasonOf = [](auto call) -> std::string {
    try {
      call();
    } catch (const FileError& error) {
      return error.what();
    }
    return "no error";
  };
  const auto missing = folder_ / "missing";
  EXPECT_EQ(SystemDisk().Open(missing, Opening::Read), nullptr);
  EXPECT_EQ(SystemDisk().Open(missing, Opening::Update), nullptr);
  EXPECT_NO_THROW(SystemDisk().Remove(missing));
  EXPECT_EQ(reasonOf([&] { SystemDisk().Rename(missing, folder_ / "x"); }), missing.string() + ": No such file or directory");
  EXPECT_EQ(reasonOf([&] { DataFolder{missing}; }), (missing / kLockFile).string() + ": No such file or directory");
  EXPECT_EQ(reasonOf([&] { (void)SystemDisk().Open(folder_, Opening::Create); }), folder_.string() + ": Is a directory");
  EXPECT_EQ(reasonOf([&] { (void)SystemDisk().Open(missing / "x", Opening::Create); }),
            (missing / "x").string() + ": No such file or directory");
  const auto read = SystemDisk().Open(folder_ / "r", Opening::Create);
  char byte = 0;
  EXPECT_EQ(reasonOf([&] { ReadExactly(*read, "r", 0, &byte, 1); }), "r: the file ended while it was being read");
  EXPECT_EQ(reasonOf([&] { SystemDisk().Open("/dev/full", Opening::Update)->WriteAt(0, "x"); }), "/dev/full: No space left on device");
}

}  // namespace
}  // namespace norvale
