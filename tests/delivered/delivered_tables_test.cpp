#include <gtest/gtest.h>

#include <map>
#include <set>

#include "base/numbers.h"
#include "delivered/sample_house.h"
#include "prices/delivered_tables.h"
#include "takeoff/joists.h"

namespace norvale {
namespace {

// The fields of a delivered table as they are written, before any width cuts them.
std::vector<std::vector<std::string>> Fields(std::string_view table) {
  std::vector<std::vector<std::string>> rows;
  while (!table.empty()) {
    const std::size_t end = table.find('\n');
    std::string_view line = table.substr(0, end);
    table.remove_prefix(end == std::string_view::npos ? table.size() : end + 1);
    if (line.empty()) continue;
    auto& row = rows.emplace_back();
    for (std::size_t tab = 0; tab != std::string_view::npos;) {
      tab = line.find('\t');
      row.emplace_back(line.substr(0, tab));
      if (tab != std::string_view::npos) line.remove_prefix(tab + 1);
    }
  }
  rows.erase(rows.begin());  // the heading
  return rows;
}

TEST(DeliveredTables, NoTextIsWiderThanItsField) {
  for (const auto& row : Fields(kDeliveredScreens)) {
    EXPECT_LE(row[2].size(), 48U) << row[2];
    EXPECT_LE(row[4].size(), 35U) << row[4];
  }
  for (const auto& row : Fields(kDeliveredLists)) EXPECT_LE(row[2].size(), 24U) << row[2];
  for (const auto& row : Fields(kDeliveredPrices)) {
    EXPECT_LE(row[0].size(), kPriceKeyWidth) << row[0];
    EXPECT_LE(row[1].size(), kPriceSkuWidth) << row[1];
    EXPECT_LE(row[7].size(), kPriceOptionalWidth) << row[7];
  }
}

TEST(DeliveredTables, ARowThatThePlanKeepsIsKeptWhole) {
  constexpr std::size_t kFirstFloorJoists = 24;
  constexpr std::size_t kSecondFloorJoists = 30;
  int completed = 0;
  for (std::size_t list = 0; list < kSelectionLists; ++list) {
    if (kPlanChoices[list].text == nullptr) continue;
    for (const std::string& row : DeliveredLists()[list].rows) {
      if (list != kFirstFloorJoists && list != kSecondFloorJoists) {
        EXPECT_LE(row.size(), 20U) << "list " << list << " " << row;
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
  for (const auto& [number, count] : ends) {
    EXPECT_EQ(count, 1) << "list " << number;
    EXPECT_EQ(defaults[number], 1) << "list " << number;
  }
  EXPECT_EQ(DeliveredMaterialRows().size(), 229U);
}

TEST(DeliveredTables, RowsThatTheRulesGoByStandInTheirPlaces) {
  const auto& lists = DeliveredLists();
  using Rows = std::vector<std::string>;
  // The roof calculator stores the place of a species in this list.
  EXPECT_EQ(Rows(lists[0].rows.begin(), lists[0].rows.begin() + 4), (Rows{"#2 SYP", "#2 SPF", "#2 HEM-FIR", "#2 DOUG FIR-LARCH"}));
  EXPECT_EQ(lists[5].rows[0], "1X4-12 #2 SYP");
  EXPECT_EQ(lists[5].rows[1], "DIAG. METAL BRACING");
  EXPECT_EQ(lists[10].rows[4], "VINYL");
  EXPECT_EQ(lists[15].rows[0], "FINISHED");
  EXPECT_EQ(lists[17].rows, (Rows{"NONE", "DOUBLE", "TRIPLE", "QUADRUPLE", "SGL BEAM"}));
  EXPECT_EQ(lists[34].rows.size(), 5U);
  for (std::size_t row = 0; row < lists[4].rows.size(); ++row) EXPECT_EQ(Has(lists[4].rows[row], "OSB"), row == 2) << lists[4].rows[row];
  // Stud lengths stand in pairs: 8, 9, 10 feet of 2X4, then of 2X6; upstairs 8 and 9 feet.
  const auto studs = [](const std::string& size, const Rows& lengths) {
    Rows made;
    for (const std::string& length : lengths) made.push_back(size + "-" + length + " INCH");
    return made;
  };
  Rows first = studs("2X4", {"92 5/8", "93", "104 5/8", "105", "116 5/8", "117"});
  for (const std::string& row : studs("2X6", {"92 5/8", "93", "104 5/8", "105", "116 5/8", "117"})) first.push_back(row);
  EXPECT_EQ(lists[3].rows, first);
  Rows second = studs("2X4", {"92 5/8", "93", "104 5/8", "105"});
  for (const std::string& row : studs("2X6", {"92 5/8", "93", "104 5/8", "105"})) second.push_back(row);
  EXPECT_EQ(lists[32].rows, second);
}

TEST(DeliveredTables, EveryScreenLineHasItsControl) {
  // First line and controls of each run: the lines go on counting, and so do the controls.
  struct Run {
    int line;
    char kind;
    int from;
    int to;
  };
  const std::vector<Run> runs = {{0, 'C', 0, 12},   {13, 'T', 0, 3},   {17, 'C', 13, 18}, {23, 'T', 4, 13},  {33, 'C', 19, 20},
                                 {35, 'T', 14, 18}, {40, 'C', 21, 22}, {42, 'T', 19, 23}, {47, 'C', 23, 24}, {49, 'T', 24, 30},
                                 {56, 'C', 25, 26}, {58, 'T', 31, 34}, {62, 'C', 27, 27}, {63, 'T', 35, 36}, {65, 'C', 28, 31},
                                 {69, 'T', 37, 43}, {76, 'C', 32, 32}, {77, 'T', 44, 47}, {81, 'C', 33, 38}, {87, 'T', 48, 49},
                                 {89, 'C', 39, 39}, {90, 'T', 50, 53}};
  const auto& lines = DeliveredScreenLines();
  ASSERT_EQ(lines.size(), kScreenLines);
  std::size_t checked = 0;
  for (const Run& run : runs)
    for (int n = run.from; n <= run.to; ++n, ++checked) {
      const auto line = static_cast<std::size_t>(run.line + n - run.from);
      const std::string code = std::string(1, run.kind) + ":" + (n < 10 ? "0" : "") + std::to_string(n);
      EXPECT_EQ(lines[line].LineNumber, static_cast<int>(line));
      EXPECT_EQ(lines[line].ControlCode.Trimmed(), code) << "line " << line;
    }
  EXPECT_EQ(checked, kScreenLines);
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

TEST(DeliveredFiles, HaveTheirSizes) {
  EXPECT_EQ(DeliveredScreenFile().size(), 94U * 91U);
  EXPECT_EQ(DeliveredMaterialFile().size(), 229U * 28U);
  const std::string prices = DeliveredPriceFile();
  EXPECT_EQ(prices.size(), DeliveredPrices().Items().size() * 132U);
  for (std::size_t line = 0; line < prices.size(); line += 132) EXPECT_EQ(prices.substr(line + 130, 2), "\r\n");
  EXPECT_EQ(ParsePriceList(prices, "").Items(), DeliveredPrices().Items());
}

TEST(DeliveredWaste, HasEveryItemOnceWithItsPanel) {
  std::map<std::string, int> panels;
  for (const WasteItem& item : DeliveredWasteItems()) ++panels[item.panel];
  EXPECT_EQ(panels, (std::map<std::string, int>{{"pct1st", 28}, {"pct2nd", 14}, {"pctRoof", 15}, {"pctTrim", 26}, {"pctFSIT", 12}}));
  const WasteFactors& factors = DesignTimeWasteFactors();
  struct Row {
    std::size_t item;
    int percent;
  };
  for (const Row& row : {Row{0, 10}, {1, 10}, {8, 1}, {9, 0}, {10, -10}, {11, 1}, {30, 0}, {41, 10}, {49, 0}, {54, 10}, {93, 0}, {94, 10}})
    EXPECT_EQ(factors.percent[row.item], row.percent) << row.item;
}

}  // namespace
}  // namespace norvale
