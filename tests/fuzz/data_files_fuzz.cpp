// A folder from arbitrary bytes: five lengths of 16 bits, low byte first, then the customers, their index, the plans, their
// index and the journal.
#include <array>

#include "data/journal.h"
#include "fuzz/fuzz_target.h"
#include "support/damage_probe.h"
#include "support/data_fixture.h"

namespace norvale {
namespace {

constexpr std::array<std::string_view, 5> kFiles = {CustomerDataFile, CustomerIndexFile, EstimateDataFile, EstimateIndexFile, kJournalFile};

std::string Packed(const MemoryDisk& disk) {
  std::string lengths;
  std::string contents;
  for (const auto name : kFiles) {
    const std::string bytes = disk.Bytes(name);
    lengths += static_cast<char>(bytes.size() & 0xFF);
    lengths += static_cast<char>(bytes.size() >> 8);
    contents += bytes;
  }
  return lengths + contents;
}

// The folder at each moment of an operation, journal and all.
std::vector<std::string> MomentsOf(const MemoryDisk& before, const Operation& operation) {
  std::vector<std::string> moments;
  for (int cut = 0;; ++cut) {
    const auto disk = before.Copy();
    disk->cutBefore = cut;
    try {
      DataFolder folder("", *disk);
      Session session;
      operation.run(folder, session);
      return moments;
    } catch (const PowerCut&) {
      moments.push_back(Packed(*disk->AfterPowerCut(Survival::Everything, 0)));
    }
  }
}

}  // namespace
}  // namespace norvale

std::vector<std::string> FuzzSeeds() {
  using namespace norvale;
  const auto sample = SampleDisk();
  std::vector<std::string> seeds = {Packed(*sample), Packed(MemoryDisk())};
  for (const Operation& operation : AllOperations())
    for (std::string& moment : MomentsOf(*sample, operation)) seeds.push_back(std::move(moment));
  return seeds;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace norvale;
  if (size < 2 * kFiles.size()) return 0;
  MemoryDisk disk;
  std::size_t at = 2 * kFiles.size();
  for (std::size_t i = 0; i < kFiles.size(); ++i) {
    const std::size_t length = std::min<std::size_t>(data[2 * i] + 256U * data[2 * i + 1], size - at);
    if (length > 0 || i + 1 < kFiles.size()) disk.SetBytes(kFiles[i], {reinterpret_cast<const char*>(data) + at, length});
    at += length;
  }
  // A journal that is sound restores the folder: what it undoes is no loss, so the folder is judged as it is after that.
  if (Journal::IsPending(disk, "")) (void)DataFolder("", disk);
  ProbeDamagedFolder(disk);
  return 0;
}
