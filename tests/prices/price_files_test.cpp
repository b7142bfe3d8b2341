#include <gtest/gtest.h>

#include "base/file_error.h"
#include "prices/delivered.h"
#include "prices/material_editor.h"
#include "prices/price_list.h"
#include "prices/waste_factors.h"
#include "support/memory_disk.h"
#include "support/scratch_folder.h"

namespace norvale {
namespace {

std::string Padded(std::string text, std::size_t width) {
  text.resize(width, ' ');
  return text;
}

TEST(PriceFile, LinesAndTheirEnds) {
  const PriceItem felt{"#15 FELT ROLL", "FELT15", {"1.00", "2", "3", "4", "5"}, "by the roll"};
  const PriceItem clips{"PLYCLIPS", "", {}, ""};
  const std::string first = Padded(" #15 FELT ROLL", 35) + Padded("FELT15 ", 20) + "1.00      2         3         4         5         " +
                            Padded("  by the roll", 25);
  const std::string second = Padded("PLYCLIPS", 130);
  const struct {
    const char* name;
    std::string text;
    std::vector<PriceItem> items;
  } cases[] = {
      {"CR LF", first + "\r\n" + second + "\r\n", {felt, clips}},
      {"LF and no last end", first + "\n" + second, {felt, clips}},
      {"empty", "", {}},
      {"an empty line is an item without a key", "\n" + first + "\n\r\n", {PriceItem{}, felt, PriceItem{}}},
      {"zero bytes are blanks", "PLYCLIPS" + std::string(122, '\0') + "\r\n", {clips}},
      // The optional text is the last 25 characters of what is there.
      {"a line of 35 columns", Padded("4X8 UNDERLAYMENT", 35), {PriceItem{"4X8 UNDERLAYMENT", "", {}, "AYMENT"}}},
      {"a line of 12 columns", "4X8 UNDERLAY", {PriceItem{"4X8 UNDERLAY", "", {}, "4X8 UNDERLAY"}}},
      {"a line that ends in the second price",
       Padded("KEY", 35) + Padded("SKU", 20) + "12.50     13.5",
       {PriceItem{"KEY", "SKU", {"12.50", "13.5"}, "12.50     13.5"}}},
      {"a line of 132 columns",
       first + "##",
       {PriceItem{felt.PriceItemKey, felt.PriceItemSku, felt.PriceItemPrice, "by the roll            ##"}}},
  };
  for (const auto& c : cases) EXPECT_EQ(ParsePriceList(c.text, "prices").Items(), c.items) << c.name;
}

TEST(PriceFile, AtMost1400Lines) {
  std::string text;
  for (int i = 0; i < 1400; ++i) text += "ITEM " + std::to_string(i % 1399) + "\r\n";
  const PriceList list = ParsePriceList(text, "prices");
  ASSERT_EQ(list.Items().size(), 1400U);
  EXPECT_EQ(list.Find("ITEM 0"), &list.Items().front()) << "the first one of a key";
  EXPECT_EQ(list.Find("ITEM 1398"), &list.Items()[1398]);
  EXPECT_EQ(list.Find("ITEM 1399"), nullptr);
  EXPECT_THROW((void)ParsePriceList(text + "x", "prices"), FileError);
}

TEST(PriceFile, WrittenLinesHave130ColumnsAndReadBack) {
  const PriceItem item{"A KEY", "SKU", {"1", "", "abc", "4.5", "1234567890"}, "text"};
  const PriceItem wide{std::string(40, 'k'), std::string(30, 's'), {std::string(12, '9')}, std::string(30, 't')};
  const PriceItem cut{std::string(35, 'k'), std::string(20, 's'), {std::string(10, '9')}, std::string(25, 't')};
  const std::string text = EncodePriceList({item, wide, {}});
  EXPECT_EQ(text.substr(0, 132),
            Padded("A KEY", 35) + Padded("SKU", 20) + "1                   abc       4.5       1234567890" + Padded("text", 25) + "\r\n");
  EXPECT_EQ(text.size(), 3 * 132U);
  EXPECT_EQ(ParsePriceList(text, "").Items(), (std::vector<PriceItem>{item, cut, {}}));
}

TEST(WasteFile, WhatIsNotStoredIsAsDelivered) {
  ScratchFolder folder;
  EXPECT_EQ(LoadWasteFactors(folder.Path()), DesignTimeWasteFactors());
  EXPECT_EQ(DesignTimeWasteFactors().percent[10], -10);
  std::string bytes;
  for (std::size_t i = 0; i < 190; ++i) bytes.push_back(static_cast<char>(i * 37 + 0x83));  // also far beyond 100
  for (const std::size_t size : {0U, 1U, 2U, 7U, 189U, 190U}) {
    WriteBytes(folder / kWasteFileName, bytes.substr(0, size));
    const std::string delivered = EncodeWasteFactors(DesignTimeWasteFactors());
    EXPECT_EQ(EncodeWasteFactors(LoadWasteFactors(folder.Path())), bytes.substr(0, size / 2 * 2) + delivered.substr(size / 2 * 2));
  }
}

TEST(MaterialLists, RowsAreFoundByListAndPosition) {
  ScratchFolder folder;
  EXPECT_TRUE(LoadMaterialRows(folder.Path()).empty());
  WriteBytes(folder / kMaterialFileName, std::string("\0\0#2 SYP                  \xFF\xFF\x01\0half a row", 40));
  std::vector<MaterialRow> rows = LoadMaterialRows(folder.Path());
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0].ListDefaultFlag, -1);
  const std::pair<int, std::string> more[] = {{1, "OSB"}, {0, " #2 SPF"}, {1, {"PLY\0\0", 5}}, {0, "List End"}, {0, "behind"}};
  for (const auto& [list, text] : more) {
    rows.push_back({.ListNumber = static_cast<std::int16_t>(list)});
    rows.back().ListText.Assign(text);
  }
  struct Case {
    int list, position;
    const char* text;
  };
  for (const Case& c :
       {Case{0, 0, "#2 SYP"}, {0, 1, " #2 SPF"}, {0, 2, ""}, {0, 3, ""}, {1, 0, "OSB"}, {1, 1, "PLY"}, {1, 2, ""}, {3, 0, ""}, {0, -1, ""}})
    EXPECT_EQ(ListRowText(rows, c.list, c.position), c.text) << c.list << " " << c.position;
}

// Saves forty rows of that text and returns the file.
std::string Save(MemoryDisk& disk, std::string_view text) {
  std::vector<MaterialRow> rows(40);
  for (MaterialRow& row : rows) row.ListText.Assign(text);
  SaveMaterialRows(disk, "", rows);
  return disk.Bytes(kMaterialFileName);
}

TEST(MaterialSave, APowerCutLeavesTheOldOrTheNewListsAndAWholeBackup) {
  MemoryDisk before;
  const std::string older = Save(before, "older");
  const std::string old = Save(before, "old");
  const std::string changed = Save(*before.Copy(), "new");
  bool isDone = false;
  for (int cut = 0; !isDone; ++cut)
    for (const bool torn : {false, true}) {
      const auto disk = before.Copy();
      disk->cutBefore = cut;
      disk->tearsWrite = torn;
      try {
        isDone = Save(*disk, "new") == changed;
      } catch (const PowerCut&) {
      }
      for (const Survival survival : {Survival::Nothing, Survival::Everything, Survival::Something}) {
        const auto found = disk->AfterPowerCut(survival, static_cast<unsigned>(cut));
        const std::string lists = found->Bytes(kMaterialFileName);
        const std::string backup = found->Bytes(kMaterialBackupName);
        EXPECT_TRUE(lists == changed || (lists == old && !isDone)) << cut;
        EXPECT_TRUE(backup == old || (backup == older && lists == old)) << cut;
      }
    }
}

}  // namespace
}  // namespace norvale
