// Price lists on their way to a spreadsheet and back.
#include "prices/price_csv.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/text.h"

namespace norvale {
namespace {

const std::vector<PriceItem> kItems = {
    {"2X4- 8 STUD", "00123", {"3.50", "3.3", "", "abc"}, ""},
    {"4X8- 7/16 OSB", "OSB", {"17.19", "16.00"}, "sheet"},
    {"4X8-7/16 OSB", "OSB", {"17.19", "16.00"}, ""},
    {"Lft. 2X2 #2", "STK", {"0.40"}, ""},
    {"2X2- 8 #2", "STK", {"3.20"}, ""},
    {"=SUM(A1)", "+1-2", {"1234.50", "-1.00"}, "@home"},
    {"'QUOTED", "\t9", {"9999999.99"}, "'=x"},
    {"NAIL 3\" \"RING\", 5 lb; box", "1E5", {"12.50"}, "caf\xE9 \x80 5"},
};

struct ImportCase {
  const char* name;
  std::string file;
  const char* preview;
  ImportOptions options{.match = PriceMatch::Sku};
};

TEST(PriceCsv, ImportsAsSpreadsheetsAndSuppliersWrite) {
  const std::string utf16("\xFF\xFES\0K\0U\0\t\0P\0r\0i\0c\0e\0\n\0O\0S\0B\0\t\0\x31\0\x38\0,\0\x35\0", 38);
  const char* const osb =
      "4X8- 7/16 OSB (OSB), Price level 1: 17.19 -> 18.50\n4X8-7/16 OSB (OSB), Price level 1: 17.19 -> 18.50\n"
      "2 prices of 2 items change.\n";
  const ImportCase cases[] = {
      {"plain", "SKU,Price\nOSB,18.50\n", osb},
      {"names in any order and case, other columns", "UOM,price LEVEL 1,Item #\r\nea,18.5,OSB\r\n", osb},
      {"byte-order mark, quotes, CR LF, blank rows", "\xEF\xBB\xBF\"SKU\",\"Price\"\r\n\r\n\"OSB\",\"18.50\"\r\n,\r\n\"\",\"\"\r\n", osb},
      {"titles above the heading", "Prices of 2X4 and sheets 6\"\n\nJune;;\nSKU;Price;\nOSB;18.50;\n", osb},
      {"CR alone", "SKU,Price\rOSB,18.50\r", osb},
      {"UTF-16 with tabs and a decimal comma", utf16, osb},
      {"the separator is said", "sep=;\nSKU;Price\nOSB;18,50\n", osb},
      {"currency and thousands", "SKU,Price\nOSB,\"$1,234.50\"\n",
       "4X8- 7/16 OSB (OSB), Price level 1: 17.19 -> 1234.50\n4X8-7/16 OSB (OSB), Price level 1: 17.19 -> 1234.50\n"
       "2 prices of 2 items change.\n"},
      {"decimal comma, thousands by points", "Code;L1;L2\n00123;3,50;\"1.234,5 \xE2\x82\xAC\"\n",
       "2X4- 8 STUD (00123), Price level 2: 3.3 -> 1234.50\n1 price of 1 item changes; 1 stay as they are.\n"},
      {"points in a semicolon file", "SKU;Price\nOSB;18.50\n", osb},
      {"nothing tells which sign 1.234 has", "SKU;Price\nOSB;1.234\n",
       "Unreadable, line 2: OSB, \"1.234\": this may be 1.234 or 1234\nNothing changes. 1 entry is not taken.\n"},
      {"the other prices tell", "SKU;Price\nOSB;1.234\n00123;3,50\n",
       "4X8- 7/16 OSB (OSB), Price level 1: 17.19 -> 1234.00\n4X8-7/16 OSB (OSB), Price level 1: 17.19 -> 1234.00\n"
       "2 prices of 2 items change; 1 stay as they are.\n"},
      {"rounded to the cent, a half up", "SKU,Price\n00123,3.515\n",
       "2X4- 8 STUD (00123), Price level 1: 3.50 -> 3.52, rounded from 3.515\n1 price of 1 item changes.\n"},
      {"what is no price",
       "SKU,Price 1,Price 2,Price 3,Price 4,Price 5\n00123,call,-5,(5),\"12,50\",1.2E+03\nOSB,10000000.00,1 2,$,..5,\"1234,567\"\n",
       "Unreadable, line 2: 00123, \"call\": this is no price\nUnreadable, line 2: 00123, \"-5\": a price below zero\n"
       "Unreadable, line 2: 00123, \"(5)\": a price below zero\nUnreadable, line 2: 00123, \"12,50\": this is no price\n"
       "Unreadable, line 2: 00123, \"1.2E+03\": this is no price\n"
       "Does not fit, line 3: OSB, \"10000000.00\": The price 10000000.00 is too long for the price file, which has room for 7 digits "
       "before the point.\n"
       "Unreadable, line 3: OSB, \"1 2\": this is no price\nUnreadable, line 3: OSB, \"$\": this is no price\n"
       "Unreadable, line 3: OSB, \"..5\": this is no price\nUnreadable, line 3: OSB, \"1234,567\": this is no price\n"
       "Nothing changes. 10 entries are not taken.\n"},
      {"blank and zero", "SKU,Price 1,Price 2\n00123,0.00,\nOSB,$ -,-\n", "Nothing changes; 6 blank or zero, left alone.\n"},
      {"blank and zero, ticked",
       "SKU,Price 1,Price 2\n00123,0.00,\n",
       "2X4- 8 STUD (00123), Price level 1: 3.50 -> 0.00\n2X4- 8 STUD (00123), Price level 2: 3.3 -> 0.00\n2 prices of 1 item change.\n",
       {.match = PriceMatch::Sku, .zeroPrices = true}},
      {"codes are texts", "SKU,Price\n123,9\n1.23E+05,9\nosb,9\n000123,9\n",
       "Unknown item, line 2: 123: no item has this SKU; there is \"00123\"\n"
       "Unknown item, line 3: 1.23E+05: no item has this SKU; it looks like a code that a spreadsheet has turned into a number\n"
       "Unknown item, line 4: osb: no item has this SKU; there is \"OSB\"\n"
       "Unknown item, line 5: 000123: no item has this SKU; there is \"00123\"\nNothing changes. 4 entries are not taken.\n"},
      {"duplicates", "SKU,Price\nOSB,18\n00123,3\nOSB,19\nOSB,18\n00123,3\n",
       "2X4- 8 STUD (00123), Price level 1: 3.50 -> 3.00\n"
       "Duplicate, line 2: OSB: lines 2, 4 and 5 say different things of it; none is taken\n"
       "Duplicate, line 4: OSB: lines 2, 4 and 5 say different things of it; none is taken\n"
       "Duplicate, line 5: OSB: lines 2, 4 and 5 say different things of it; none is taken\n"
       "Duplicate, line 6: 00123: the same as on line 3, which is taken\n1 price of 1 item changes. 4 entries are not taken.\n"},
      {"one SKU by the foot and by the piece", "SKU,Price\nSTK,3.40\n",
       "Unclear, line 2: STK: 2 items go by this name and their prices differ; match by description, or change them by hand\n"
       "Nothing changes. 1 entry is not taken.\n"},
      {"a comma that is not quoted, a row without a code, a code beyond the files' letters", "SKU,Price\nOSB,1,234.50\n,5\n\xCE\xA9,5\n",
       "Unreadable, line 2: OSB, \"234.50\": the row has more cells than the heading; is a comma in a number not quoted?\n"
       "Unknown item, line 3: : the row has no SKU\n"
       "Unknown item, line 4: \xCE\xA9: it holds a character that the price file cannot hold\nNothing changes. 3 entries are not taken.\n"},
      {"inch marks that are not doubled", "SKU,Name,Price\n00123,\"3\" NAIL\",3.60\nOSB,7/16\" OSB,18.50\n",
       "2X4- 8 STUD (00123), Price level 1: 3.50 -> 3.60\n4X8- 7/16 OSB (OSB), Price level 1: 17.19 -> 18.50\n"
       "4X8-7/16 OSB (OSB), Price level 1: 17.19 -> 18.50\n3 prices of 3 items change.\n"},
      // The cell of the first row would swallow the second one, and its price with it.
      {"inch marks that hide where a cell ends",
       "SKU,Name,Price\n00123,\"NAIL 3\"\",3.60\nOSB,\"OSB\",18.50\nSTK,\"PIPE 3\"\",9,\"ea\",1\n",
       "Unreadable, line 2: 00123: lines 2 to 3 are one row; a quotation mark is missing, or one too many\n"
       "Unreadable, line 4: STK: a quotation mark in the row makes it unclear where its cells end\n"
       "Nothing changes. 2 entries are not taken.\n"},
      {"texts are left alone",
       "Description,SKU,Price,Optional text\n4X8-7/16 OSB,NEW,17.19,by the sheet\n",
       "Nothing changes; 1 stay as they are; 2 other texts left alone.\n",
       {.match = PriceMatch::Description}},
      {"texts, ticked",
       "Description,SKU,Price,Optional text\n4X8-7/16 OSB,NEW,17.19,by the sheet\n2X4- 8 STUD,123,,a text of 26 characters, so\n"
       "2X2- 8 #2,A code of 21 letters.,,\xCE\xA9\n",
       "4X8-7/16 OSB (OSB), SKU: OSB -> NEW\n4X8-7/16 OSB (OSB), Optional description: (blank) -> by the sheet\n"
       "Unreadable, line 3: 2X4- 8 STUD, \" so\": the row has more cells than the heading; is a comma in a number not quoted?\n"
       "Does not fit, line 4: 2X2- 8 #2, \"A code of 21 letters.\": SKU takes 20 characters, this has 21\n"
       "Does not fit, line 4: 2X2- 8 #2, \"\xCE\xA9\": it holds a character that the price file cannot hold\n"
       "2 texts of 1 item change; 1 stay as they are; 1 blank or zero, left alone. 3 entries are not taken.\n",
       {.match = PriceMatch::Description, .texts = true}},
      {"a SKU without its zeros",
       "Description,SKU,Price\n2X4- 8 STUD,123,3.50\n",
       "Unclear, line 2: 2X4- 8 STUD, \"123\": it is \"00123\" without its zeros or blanks\n"
       "Nothing changes; 1 stay as they are. 1 entry is not taken.\n",
       {.match = PriceMatch::Description, .texts = true}},
  };
  for (const ImportCase& c : cases)
    EXPECT_EQ(PreviewText(PreviewImport(ReadPriceCsv(c.file), kItems, c.options), kItems), c.preview) << c.name;
}

TEST(PriceCsv, RefusesWhatIsNoPriceTable) {
  const struct {
    std::string file;
    const char* reason;
  } cases[] = {
      {"", "the file is empty"},
      {"\n\n", "the file is empty"},
      {std::string("PK\x03\x04...", 7), "this is no text file"},
      {std::string("S\0K\0", 4), "this is no text file"},
      {"OSB,18.50\n", "no row names the columns"},
      {"SKU,Name\nOSB,x\n", "no row names the columns"},
      {"Price\n18.50\n", "no row names the columns"},
      {"SKU,Price,Level 1\n", "two columns, \"Price\" and \"Level 1\", would both be Price level 1"},
      {"SKU,Price\nA,1\n\"OSB,18.50\n", "the quotation mark before a cell on line 3 has no closing one"},
  };
  for (const auto& c : cases) {
    try {
      (void)ReadPriceCsv(c.file);
      ADD_FAILURE() << "taken: " << c.file;
    } catch (const CsvError& error) {
      EXPECT_TRUE(std::string_view(error.what()).starts_with(c.reason)) << error.what();
    }
  }
  EXPECT_THROW((void)PreviewImport(ReadPriceCsv("SKU,Price\nA,1\n"), kItems, {.match = PriceMatch::Description}), CsvError);
}

// The exported file as a spreadsheet of another country saves it.
std::string SavedAgain(char separator, bool decimalComma) {
  std::string file;
  for (const CsvRow& row : ReadCsv(DecodeText(ExportPrices(kItems))).rows)
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
      std::string cell = row.cells[i];
      if (decimalComma && i >= 2 && i < 7 && cell.find_first_not_of("0123456789.") == std::string::npos)
        std::replace(cell.begin(), cell.end(), '.', ',');
      file += CsvCell(cell) + (i + 1 < row.cells.size() ? separator : '\n');
    }
  return file;
}

TEST(PriceCsv, WhatIsExportedComesBackAsItWas) {
  const std::string exported = ExportPrices(kItems);
  EXPECT_TRUE(
      exported.starts_with("\xEF\xBB\xBF"
                           "Description,SKU,Price level 1,"));
  // No cell can run, whatever separator a spreadsheet takes for the one.
  for (const CsvRow& row : ReadCsv(DecodeText(exported)).rows)
    for (const std::string& cell : row.cells) EXPECT_EQ(cell.find_first_of("=+-@\t"), cell.find_first_of("=+-@\t", 1)) << cell;
  std::vector<PriceItem> twoUnits = kItems;  // of one SKU
  twoUnits[3].PriceItemSku = "FT";
  twoUnits[4].PriceItemSku = "PC";
  for (const std::string& file : {exported, SavedAgain(';', true), SavedAgain('\t', false), *FromUtf8(SavedAgain(',', false))}) {
    const PriceCsv csv = ReadPriceCsv(file);
    EXPECT_EQ(BestMatch(csv, kItems), PriceMatch::Description);
    const PriceUpdate update = PreviewImport(csv, kItems, {.match = PriceMatch::Description, .zeroPrices = true, .texts = true});
    EXPECT_TRUE(update.changes.empty() && update.notTaken.empty()) << PreviewText(update, kItems);
    const PriceUpdate bySku = PreviewImport(csv, twoUnits, {.match = PriceMatch::Sku, .zeroPrices = true});
    EXPECT_TRUE(bySku.changes.empty()) << PreviewText(bySku, twoUnits);
    EXPECT_EQ(bySku.itemsNamed, kItems.size() - 2);
  }
}

TEST(PriceChanges, PercentagesAreRoundedToTheCent) {
  const struct {
    const char* price;
    const char* percent;
    const char* after;  // empty: unchanged
  } cases[] = {
      {"10.50", "5", "11.03"}, {"10.50", "-5 %", "9.98"}, {"1.005", "0", "1.01"},    {"12.5", "+2.5", "12.81"},
      {"0.01", "10", ""},      {"0.05", "10", "0.06"},    {"9999999.99", "1", ""},   {"", "5", ""},
      {"0.00", "100", ""},     {"abc", "5", ""},          {"100", "-99.99", "0.01"}, {"9090909.08", "10", "9999999.99"},
  };
  for (const auto& c : cases) {
    const std::vector<PriceItem> items = {{}, {"A", "", {"1", c.price}, ""}};
    const auto percent = ReadPercent(c.percent);
    ASSERT_TRUE(percent) << c.percent;
    const PriceUpdate update = ChangeByPercent(items, {1}, 1, *percent);
    EXPECT_EQ(update.changes.empty() ? "" : update.changes.front().after, c.after) << c.price << " by " << c.percent;
    EXPECT_EQ(update.changes.size() + update.notTaken.size() + update.blankOrZero + update.sameAsBefore, 1U) << c.price;
  }
  for (const char* const text : {"", "%", "five", "-100", "1001", "1,5", "1.2.3", "--5", "5e1"}) EXPECT_FALSE(ReadPercent(text)) << text;
}

TEST(PriceChanges, UndoTakesAllBackButWhatWasChangedSince) {
  PriceEditor prices(EncodePriceList(kItems), "");
  const PriceUpdate update = PreviewImport(ReadPriceCsv("SKU,Price,Price 2\nOSB,18.50,17\n"), prices.Items(), {.match = PriceMatch::Sku});
  ApplyChanges(prices, update.changes);
  EXPECT_EQ(prices.Items()[2].PriceItemPrice[1], "17.00");
  prices.SetText(1, PriceColumn::Level1, "19.00");
  EXPECT_EQ(UndoChanges(prices, update.changes), 1U);
  EXPECT_EQ(prices.Items()[1].PriceItemPrice[0], "19.00");
  prices.SetText(1, PriceColumn::Level1, "17.19");
  EXPECT_EQ(prices.FileBytes(), EncodePriceList(kItems));
}

}  // namespace
}  // namespace norvale
