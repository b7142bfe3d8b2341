#include <gtest/gtest.h>

#include "base/file_error.h"
#include "prices/delivered.h"
#include "prices/material_lists.h"
#include "prices/price_list.h"
#include "prices/waste_factors.h"
#include "support/scratch_folder.h"

namespace norvale {
namespace {

std::string Padded(std::string text, std::size_t width) {
  text.resize(width, ' ');
  return text;
}

std::string Line(const std::string& key, const std::string& sku, const std::string& prices, const std::string& text) {
  return Padded(key, 35) + Padded(sku, 20) + Padded(prices, 50) + Padded(text, 25);
}

const std::string kPrices = "1.00      2         3         4         5         ";

TEST(PriceFile, LinesAndTheirEnds) {
  const PriceItem felt{"#15 FELT ROLL", "FELT15", {"1.00", "2", "3", "4", "5"}, "by the roll"};
  const PriceItem clips{"PLYCLIPS", "", {}, ""};
  const std::string first = Line(" #15 FELT ROLL", "FELT15 ", kPrices, "  by the roll");
  const std::string second = Line("PLYCLIPS", "", "", "");
  struct Case {
    const char* name;
    std::string text;
    std::vector<PriceItem> items;
  };
  std::string zeros = second;
  for (char& c : zeros)
    if (c == ' ') c = '\0';
  const Case cases[] = {
      {"CR LF", first + "\r\n" + second + "\r\n", {felt, clips}},
      {"LF", first + "\n" + second + "\n", {felt, clips}},
      {"no last end", first + "\n" + second, {felt, clips}},
      {"empty", "", {}},
      {"an empty line is an item without a key", "\n" + first + "\n\r\n", {PriceItem{}, felt, PriceItem{}}},
      {"zero bytes are blanks", zeros + "\r\n", {clips}},
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
  for (const Case& c : cases) EXPECT_EQ(ParsePriceList(c.text, "prices").Items(), c.items) << c.name;
}

TEST(PriceFile, AtMost1400Lines) {
  std::string text;
  for (int i = 0; i < 1400; ++i) text += "ITEM " + std::to_string(i) + "\r\n";
  const PriceList list = ParsePriceList(text, "prices");
  EXPECT_EQ(list.Items().size(), 1400U);
  ASSERT_NE(list.Find("ITEM 1399"), nullptr);
  EXPECT_EQ(list.Find("ITEM 1400"), nullptr);
  try {
    (void)ParsePriceList(text + "x", "the price file");
    FAIL() << "1401 lines were taken";
  } catch (const FileError& error) {
    EXPECT_EQ(error.File(), "the price file");
    EXPECT_NE(error.Reason().find("line 1401"), std::string::npos) << error.Reason();
  }
}

TEST(PriceFile, WrittenLinesHave130ColumnsAndReadBack) {
  const std::vector<PriceItem> items = {{"A KEY", "SKU", {"1", "", "abc", "4.5", "1234567890"}, "text"},
                                        {std::string(40, 'k'), std::string(30, 's'), {std::string(12, '9')}, std::string(30, 't')},
                                        {}};
  const std::string text = EncodePriceList(items);
  EXPECT_EQ(text.substr(0, 132),
            Padded("A KEY", 35) + Padded("SKU", 20) + "1                   abc       4.5       1234567890" + Padded("text", 25) + "\r\n");
  ASSERT_EQ(text.size(), 3 * 132U);
  const std::vector<PriceItem> cut = {
      items[0], {std::string(35, 'k'), std::string(20, 's'), {std::string(10, '9')}, std::string(25, 't')}, {}};
  EXPECT_EQ(ParsePriceList(text, "").Items(), cut);
  EXPECT_EQ(EncodePriceList(ParsePriceList(text, "").Items()), text);
}

TEST(WasteFile, StoredValuesThenDesignTimeValues) {
  // What a fresh program has: 10 percent on the sills, 0 on the vapor barrier, -10 on the joists.
  const WasteFactors& design = DesignTimeWasteFactors();
  EXPECT_EQ(design.percent[0], 10);
  EXPECT_EQ(design.percent[8], 1);
  EXPECT_EQ(design.percent[10], -10);
  EXPECT_EQ(design.percent[15], 0);
  EXPECT_EQ(design.percent[54], 10);
  EXPECT_EQ(design.percent[94], 10);

  ScratchFolder folder;
  EXPECT_EQ(LoadWasteFactors(folder.Path()), design);
  EXPECT_FALSE(std::filesystem::exists(folder / "NVdata04.dat"));
  for (const std::size_t size : {0U, 1U, 2U, 7U, 189U, 190U}) {
    std::string bytes;
    WasteFactors wanted = design;
    for (std::size_t i = 0; i < size; ++i) bytes.push_back(static_cast<char>(i * 37 + 0x83));  // also far beyond 100
    for (std::size_t i = 0; i < size / 2; ++i)
      wanted.percent[i] =
          static_cast<std::int16_t>(static_cast<unsigned char>(bytes[2 * i]) + 256 * static_cast<signed char>(bytes[2 * i + 1]));
    WriteBytes(folder / "NVdata04.dat", bytes);
    const WasteFactors loaded = LoadWasteFactors(folder.Path());
    EXPECT_EQ(loaded, wanted) << size;
    if (size == 190) {
      EXPECT_EQ(EncodeWasteFactors(loaded), bytes);
    }
  }
  for (const std::size_t size : {191U, 192U, 4000U}) {
    WriteBytes(folder / "NVdata04.dat", std::string(size, '\0'));
    try {
      (void)LoadWasteFactors(folder.Path());
      FAIL() << size << " bytes were taken";
    } catch (const FileError& error) {
      EXPECT_EQ(error.File(), (folder / "NVdata04.dat").string());
    }
  }
}

TEST(MaterialLists, RowsAreFoundByListAndPosition) {
  const auto row = [](int list, const std::string& text) {
    MaterialRow made;
    made.ListNumber = static_cast<std::int16_t>(list);
    made.ListText.Assign(text);
    return made;
  };
  const std::vector<MaterialRow> rows = {
      row(0, "#2 SYP"),   row(1, "OSB"),    row(0, " #2 SPF"),           row(1, std::string("PLY\0\0", 5)),
      row(0, "List End"), row(0, "behind"), row(2, std::string(24, 'x'))};
  struct Case {
    int list, position;
    std::string text;
  };
  for (const Case& c : {Case{0, 0, "#2 SYP"}, Case{0, 1, " #2 SPF"}, Case{0, 2, ""}, Case{0, 3, ""}, Case{1, 0, "OSB"}, Case{1, 1, "PLY"},
                        Case{1, 2, ""}, Case{2, 0, std::string(24, 'x')}, Case{3, 0, ""}, Case{0, -1, ""}})
    EXPECT_EQ(ListRowText(rows, c.list, c.position), c.text) << c.list << " " << c.position;

  ScratchFolder folder;
  EXPECT_TRUE(LoadMaterialRows(folder.Path()).empty());
  WriteBytes(folder / "NVdata02.idx", std::string("\0\0#2 SYP                  \xFF\xFF\x01\0half a row", 40));
  const auto loaded = LoadMaterialRows(folder.Path());
  ASSERT_EQ(loaded.size(), 1U);
  EXPECT_EQ(ListRowText(loaded, 0, 0), "#2 SYP");
  EXPECT_EQ(loaded[0].ListDefaultFlag, -1);
}

}  // namespace
}  // namespace norvale
