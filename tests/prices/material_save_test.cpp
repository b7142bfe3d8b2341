// Whatever the moment at which the power fails, the lists and their backup are whole.
#include <gtest/gtest.h>

#include "prices/material_editor.h"
#include "support/memory_disk.h"

namespace norvale {
namespace {

std::vector<MaterialRow> Rows(std::string_view text) {
  std::vector<MaterialRow> rows(40);
  for (MaterialRow& row : rows) row.ListText.Assign(text);
  return rows;
}

TEST(MaterialSave, APowerCutLeavesTheOldOrTheNewListsAndAWholeBackup) {
  MemoryDisk before;
  const auto bytesAfter = [&](std::string_view text) {
    SaveMaterialRows(before, "", Rows(text));
    return before.Bytes(kMaterialFileName);
  };
  const std::string older = bytesAfter("older");
  const std::string old = bytesAfter("old");
  EXPECT_EQ(before.Bytes(kMaterialBackupName), older);
  bool isDone = false;
  for (int cut = 0; !isDone; ++cut)
    for (const bool torn : {false, true}) {
      const auto disk = before.Copy();
      disk->cutBefore = cut;
      disk->tearsWrite = torn;
      try {
        SaveMaterialRows(*disk, "", Rows("new"));
        isDone = true;
      } catch (const PowerCut&) {
      }
      for (const Survival survival : {Survival::Nothing, Survival::Everything, Survival::Something}) {
        const auto found = disk->AfterPowerCut(survival, static_cast<unsigned>(cut));
        const bool isNew = found->Bytes(kMaterialFileName) != old;
        const std::string backup = found->Bytes(kMaterialBackupName);
        if (isNew || isDone) {
          EXPECT_EQ(found->Bytes(kMaterialFileName).substr(2, 3), "new") << cut;
          EXPECT_EQ(found->Bytes(kMaterialFileName).size(), 40 * MaterialRowSize) << cut;
          EXPECT_EQ(backup, old) << cut;
        }
        EXPECT_TRUE(backup == older || backup == old) << cut;
      }
    }
}

}  // namespace
}  // namespace norvale
