#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sstream>

#include "base/numbers.h"
#include "delivered/sample_house.h"
#include "prices/delivered_tables.h"
#include "takeoff/joists.h"

namespace norvale {
namespace {

// The widest text of a column as it is written, before any width cuts it.
std::size_t WidestOf(std::string_view table, std::size_t column) {
  std::istringstream lines{std::string(table)};
  std::size_t widest = 0;
  std::string line;
  std::getline(lines, line);  // the heading
  while (std::getline(lines, line)) {
    std::istringstream cells(line);
    std::string cell;
    for (std::size_t i = 0; i <= column; ++i) std::getline(cells, cell, '\t');
    widest = std::max(widest, cell.size());
  }
  return widest;
}

TEST(DeliveredTables, NoTextIsWiderThanItsField) {
  EXPECT_LE(WidestOf(kDeliveredScreens, 1), 48U);
  EXPECT_LE(WidestOf(kDeliveredScreens, 3), 35U);
  EXPECT_LE(WidestOf(kDeliveredLists, 2), 24U);
  EXPECT_LE(WidestOf(kDeliveredPrices, 0), kPriceKeyWidth);
  EXPECT_LE(WidestOf(kDeliveredPrices, 1), kPriceSkuWidth);
  EXPECT_LE(WidestOf(kDeliveredPrices, 7), kPriceOptionalWidth);
}

TEST(DeliveredTables, ARowThatThePlanKeepsIsKeptWhole) {
  int completed = 0;
  for (const SelectionList list : kAllSelectionLists) {
    if (RowOf(list).text == nullptr) continue;
    for (const std::string& row : DeliveredLists()[list].rows) {
      if (list != SelectionList::FloorJoistSize && list != SelectionList::SecondFloorJoistSize) {
        EXPECT_LE(row.size(), 20U) << RowOf(list).name << " " << row;
        continue;
      }
      // The take-off completes the joist texts that the record cuts.
      EXPECT_EQ(CompleteJoistText(Trim(row.substr(0, 20))), row);
      completed += row.size() > 20 ? 1 : 0;
    }
  }
  EXPECT_EQ(completed, 8);
}

TEST(DeliveredTables, EachListEndsOnceAndHasOneDefault) {
  std::map<int, int> defaults;
  std::map<int, int> ends;
  int list = -1;
  for (const MaterialRow& row : DeliveredMaterialRows()) {
    EXPECT_TRUE(row.ListNumber == list || row.ListNumber == list + 1) << "list " << row.ListNumber << " stands apart";
    EXPECT_TRUE(row.ListNumber != list || ends[list] == 0) << "a row behind the end of list " << list;
    list = row.ListNumber;
    EXPECT_NE(row.ListText.Trimmed(), "") << "list " << list;
    const bool end = row.ListText.Trimmed() == kListEnd;
    ends[list] += end ? 1 : 0;
    if (row.ListDefaultFlag != 0) {
      ++defaults[list];
      EXPECT_FALSE(end) << "list " << list;
    }
  }
  ASSERT_EQ(ends.size(), kSelectionLists);
  EXPECT_EQ(DeliveredMaterialRows().size(), 229U);
  for (const auto& [number, count] : ends) EXPECT_TRUE(count == 1 && defaults[number] == 1) << "list " << number;
}

TEST(DeliveredTables, RowsThatTheRulesGoByStandInTheirPlaces) {
  const auto& lists = DeliveredLists();
  using Rows = std::vector<std::string>;
  // The roof calculator stores the place of a species in this list.
  EXPECT_EQ(Rows(lists[SelectionList::FramingGrade].rows.begin(), lists[SelectionList::FramingGrade].rows.begin() + 4),
            (Rows{"#2 SYP", "#2 SPF", "#2 HEM-FIR", "#2 DOUG FIR-LARCH"}));
  EXPECT_EQ(lists[SelectionList::CornerBracing].rows[0], "1X4-12 #2 SYP");
  EXPECT_EQ(lists[SelectionList::CornerBracing].rows[1], "DIAG. METAL BRACING");
  EXPECT_EQ(lists[SelectionList::SoffitMaterial].rows[4], "VINYL");
  EXPECT_EQ(lists[SelectionList::SlabInterior].rows[0], "FINISHED");
  EXPECT_EQ(lists[SelectionList::GirderPly].rows, (Rows{"NONE", "DOUBLE", "TRIPLE", "QUADRUPLE", "SGL BEAM"}));
  EXPECT_EQ(lists[SelectionList::WallFinish].rows.size(), 5U);
  for (std::size_t row = 0; row < lists[SelectionList::WallSheathing].rows.size(); ++row)
    EXPECT_EQ(Has(lists[SelectionList::WallSheathing].rows[row], "OSB"), row == 2) << lists[SelectionList::WallSheathing].rows[row];
  // Stud lengths stand in pairs: 8, 9, 10 feet of 2X4, then of 2X6; upstairs 8 and 9 feet.
  Rows first;
  Rows second;
  for (const char* const size : {"2X4-", "2X6-"})
    for (const char* const length : {"92 5/8", "93", "104 5/8", "105", "116 5/8", "117"}) {
      first.push_back(std::string(size) + length + " INCH");
      if (!std::string_view(length).starts_with("11")) second.push_back(first.back());
    }
  EXPECT_EQ(lists[SelectionList::PreCutStuds].rows, first);
  EXPECT_EQ(lists[SelectionList::PreCutStudsSecondFloor].rows, second);
}

TEST(DeliveredTables, EveryScreenLineHasItsControl) {
  // The last control of each run: lists and boxes take turns, and both go on counting.
  std::vector<std::string> codes;
  int next[] = {0, 0};
  bool isBox = false;
  for (const int last : {12, 3, 18, 13, 20, 18, 22, 23, 24, 30, 26, 34, 27, 36, 31, 43, 32, 47, 38, 49, 39, 53}) {
    for (int& n = next[isBox ? 1 : 0]; n <= last; ++n) codes.push_back((isBox ? "T:" : "C:") + FormatNumber(n, {.wholeDigits = 2}));
    isBox = !isBox;
  }
  ASSERT_EQ(codes.size(), kScreenLines);
  const auto& lines = DeliveredScreenLines();
  ASSERT_EQ(lines.size(), kScreenLines);
  for (std::size_t line = 0; line < kScreenLines; ++line) {
    EXPECT_EQ(lines[line].LineNumber, static_cast<int>(line));
    EXPECT_EQ(lines[line].ControlCode.Trimmed(), codes[line]) << "line " << line;
  }
}

TEST(DeliveredTables, CaptionsTellWhatABoxMeansAndItsUnit) {
  std::set<std::string> captions;
  for (const ScreenLine& line : DeliveredScreenLines()) {
    const std::string caption = line.Caption.Trimmed();
    EXPECT_TRUE(captions.insert(caption).second) << caption << " stands twice";
    EXPECT_EQ(caption.find('&'), std::string::npos) << caption;
    // The list editor names a list by its caption up to the first colon.
    EXPECT_EQ(caption.find(':'), caption.size() - 1) << caption;
    if (line.ControlCode.Raw().front() != 'T') continue;
    bool unit = false;
    for (const char* const sign : {"LFT.", "SQ. FT.", "feet", "Number of"}) unit = unit || Has(caption, sign);
    EXPECT_TRUE(unit) << caption;
  }
}

TEST(DeliveredTables, PricesAreNumbersThatFallFromLevelToLevel) {
  std::set<std::string> keys;
  std::set<std::string> skus;
  EXPECT_LE(DeliveredPrices().Items().size(), kMostPriceItems);
  for (const PriceItem& item : DeliveredPrices().Items()) {
    EXPECT_TRUE(keys.insert(item.PriceItemKey).second) << item.PriceItemKey;
    EXPECT_TRUE(skus.insert(item.PriceItemSku).second && !item.PriceItemSku.empty()) << item.PriceItemSku;
    double above = 1e7;
    for (const std::string& price : item.PriceItemPrice) {
      EXPECT_EQ(FormatNumber(Val(price), {.wholeDigits = 1, .decimals = 2}), price) << item.PriceItemKey;
      EXPECT_LT(Val(price), above) << item.PriceItemKey;
      EXPECT_GT(Val(price), 0) << item.PriceItemKey;
      above = Val(price);
    }
  }
}

TEST(DeliveredWaste, HasEveryItemOnceWithItsPanel) {
  std::map<std::string, int> panels;
  for (const WasteItem& item : DeliveredWasteItems()) ++panels[item.panel];
  EXPECT_EQ(panels, (std::map<std::string, int>{{"pct1st", 28}, {"pct2nd", 14}, {"pctRoof", 15}, {"pctTrim", 26}, {"pctFSIT", 12}}));
  const WasteFactors& factors = DesignTimeWasteFactors();
  const std::set<std::size_t> tens = {0, 1, 2, 3, 4, 5, 6, 7, 12, 16, 17, 18, 19, 27, 28, 29, 31, 32, 34, 36, 37, 41, 54, 94};
  const std::map<std::size_t, int> others = {{8, 1}, {10, -10}, {11, 1}};
  for (std::size_t item = 0; item < factors.percent.size(); ++item)
    EXPECT_EQ(factors.percent[item], tens.contains(item) ? 10 : others.contains(item) ? others.at(item) : 0) << item;
}

}  // namespace
}  // namespace norvale
