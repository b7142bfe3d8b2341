// The run as a whole: header, page turns, what is called when, totals and footnotes.
#include <filesystem>

#include "base/file_error.h"
#include "takeoff/takeoff_fixture.h"

namespace norvale {
namespace {

struct PlanRun {
  EstimatePrint print;
  TakeoffData data;

  PlanRun(int mask, std::int16_t planType) {
    print.sectionMask = mask;
    print.date = "03-07-2026";
    print.plan.PlanType = planType;
    print.plan.PlanNumber.Assign("A-17");
  }

  EstimateTotals totals;
  std::string Text() {
    Page page;
    totals = PrintEstimate(print, data, page);
    return page.Text();
  }
};

// `rafters` rows of 12-foot rafters or longer behind one ceiling joist row, each 2 lines on the page.
void AddRoofRows(PlanRun& run, std::size_t rafters) {
  run.print.plan.CeilingJoistLft2X6[0] = 40;
  for (std::size_t i = 0; i < rafters; ++i)
    run.print.plan.RoofPlanes[i] = {
        5, static_cast<std::uint8_t>(i % 4), 6, static_cast<std::uint8_t>(i / 4 % 4), 240, static_cast<std::int16_t>(96 + 24 * (i / 16)),
        0};
}

const std::string kRule(80, '-');
const std::string kFootnote = "\n* Indicates formula adjusted +/- from standard\n";

TEST(PrintRun, ThePageTurnsAbove55Lines) {
  struct Case {
    const char* name;
    std::size_t rafters;
    const char* secondAddressLine;
    std::vector<std::size_t> rows;  // on each page
  };
  // A list title and a heading take 4 of the first page's lines, each row 2; there are 6 rows beside the rafters.
  const Case cases[] = {{"17 + 4 + 17 * 2 = 55 stays", 16, "", {18, 4}},
                        {"17 + 4 + 18 * 2 = 57 turns; later pages begin at 5", 60, "", {18, 26, 22}},
                        {"18 + 4 + 17 * 2 = 56 turns", 60, "Building B", {17, 26, 23}}};
  for (const Case& c : cases) {
    PlanRun run(FindSection("ROOF SYSTEM")->bit, 1);
    AddRoofRows(run, c.rafters);
    run.print.plan.RoofingIndex = 4;
    run.print.company.AddressLine2.Assign(c.secondAddressLine);
    std::vector<std::size_t> rows;
    run.print.company.CustomerName.Assign("Hill Lumber");  // the plan is the company's own
    EXPECT_TRUE(Has(run.Text(), "CUSTOMER NAME:  Hill Lumber\n"));
    EXPECT_EQ(Has(run.Text(), "\n     Building B\n"), *c.secondAddressLine != '\0');
    for (const std::string& page : PagesOf(run.Text())) {
      std::size_t count = 0;
      for (const std::string& line : LinesOf(page)) count += line.size() > 60 && line[59] == '(' ? 1 : 0;
      rows.push_back(count);
    }
    EXPECT_EQ(rows, c.rows) << c.name;
  }
}

TEST(PrintRun, FootnotesStandOnThePagesThatHoldMarks) {
  PlanRun run(FindSection("ROOF SYSTEM")->bit, 1);
  AddRoofRows(run, 60);
  const auto footnotes = [&] {
    std::string found;
    for (const std::string& page : PagesOf(run.Text())) {
      EXPECT_EQ(Has(page, kFootnote), page.ends_with(kFootnote)) << page;
      found += Has(page, kFootnote) ? '*' : '-';
    }
    return found;
  };
  EXPECT_EQ(footnotes(), "---");
  run.data.waste.percent[42] = 1;  // the ceiling joist, first page; Int(0.33) more
  EXPECT_EQ(footnotes(), "*--");
  run.data.waste.percent[45] = -3;  // the rafters, all pages
  EXPECT_EQ(footnotes(), "***");
  run.data.waste.percent[42] = run.data.waste.percent[45] = 0;
  run.data.waste.percent[51] = 5;  // the sheathing, last page
  EXPECT_EQ(footnotes(), "--*");
}

TEST(PrintRun, AnAdjustmentIsRoundedDown) {
  EstimateRecord plan;
  struct Case {
    std::int16_t percent;
    double base, adjusted;
  };
  for (const Case& c : {Case{-5, 3, 2}, Case{1, 10, 10}, Case{-100, 7, 0}, Case{10, -5, -6}, Case{32767, 1, 328}, Case{50, 2.5, 3.5}}) {
    SectionRun section(plan);
    section.waste.percent[1] = c.percent;
    EXPECT_EQ(Adjusted(section.run, c.base, 1), c.adjusted) << c.percent << "% of " << c.base;
    EXPECT_EQ(AdjustmentMark(section.run, 1), "*");
  }
}

TEST(PrintRun, WhichSectionsPrint) {
  const std::string title = "ITEMIZED LIST";
  struct Case {
    int mask;
    std::int16_t planType, floors;
    const char* finish;
    Texts headings;
  };
  const Texts outer = {"1st FLOOR - WALL SYSTEM", "ROOF SYSTEM", "EXTERIOR TRIM"};
  const Case cases[] = {
      {511, 4, 1, "", {"1st FLOOR - FLOOR SYSTEM", outer[0], outer[1], outer[2], "FLOORING", "SHEETROCK", "INTERIOR TRIM"}},
      {511,
       2,
       2,
       "FINISHED",
       {outer[0], "2nd FLOOR - FLOOR SYSTEM", "2nd FLOOR - WALL SYSTEM", outer[1], outer[2], "FLOORING", "SHEETROCK", "INTERIOR TRIM"}},
      {511, 1, 1, "FINISHED", {outer[0], outer[1], outer[2], "SHEETROCK", "INTERIOR TRIM"}},
      {511, 2, 1, "UNFINISHED", outer},
      {224, 1, 2, "Finished", {}},
      {12, 8, 1, "", {}},
      {12, 8, 3, "", {}},
      {4 + 128, 8, 2, " FINISHED", {"2nd FLOOR - FLOOR SYSTEM", "INTERIOR TRIM"}},
      {1 + 64, 8, 2, "", {"1st FLOOR - FLOOR SYSTEM", "SHEETROCK"}},
      {2 + 32, 8, 2, "", {outer[0], "FLOORING"}},
      {8 + 256, 8, 2, "", {"2nd FLOOR - WALL SYSTEM", outer[2]}},
      {16 + 1024, 8, 2, "", {outer[1]}},
      {512, 8, 2, "", {"SPECIFICATIONS"}},
      {0, 8, 2, "", {}},
  };
  for (const Case& c : cases) {
    PlanRun run(c.mask, c.planType);
    run.print.plan.SecondFloorType = c.floors;
    run.print.plan.SlabInterior.Assign(c.finish);
    const std::string text = run.Text();
    Texts headings;
    for (const std::string& line : LinesOf(text))
      if (line.size() > 28 && line.find_first_not_of(' ') >= 28 && line.find_first_not_of(' ') < 36) headings.emplace_back(Trim(line));
    EXPECT_EQ(headings, c.headings) << c.mask << " type " << c.planType << " floors " << c.floors << " " << c.finish;
    EXPECT_EQ(Has(text, title), (c.mask & 511) != 0);
    EXPECT_TRUE(text.ends_with("\n\f"));
    EXPECT_FALSE(Has(text, "\f\f"));
  }
}

TEST(PrintRun, TotalsAreCarriedAndTheGrandTotalIsAboveZero) {
  struct Case {
    const char* felt;
    const char* board;
    const char* flooringTotal;  // null: no block
    const char* sheetrockTotal;
    const char* grand;
  };
  // 3 rolls of felt, 85 boards; a total of 0 or less goes on into the next block.
  const Case cases[] = {{"-2", "1", nullptr, "     79.00", "      79.00"}, {"2", "1", "      6.00", "     85.00", "      91.00"},
                        {"2", "-1", "      6.00", nullptr, nullptr},       {"0", "0", nullptr, nullptr, nullptr},
                        {"-85", "3", nullptr, nullptr, nullptr},           {"1", "20000", "      3.00", "700,000.00", ",700,003.00"}};
  for (const Case& c : cases) {
    PlanRun run(FindSection("FLOORING")->bit + FindSection("SHEETROCK")->bit + kWithPrices, 2);
    run.print.plan.SecondFloorType = 2;
    run.print.plan.HeatedSqFtSecondFloor = 1000;
    run.print.plan.PreCutStudsSecondFloorIndex = 3;
    run.print.plan.GarageOrStorageIndex = 2;
    run.print.plan.SlabInterior.Assign("FINISHED");
    run.data.prices = PriceList({PriceItem{"#15 FELT ROLL", "", {c.felt}, ""}, PriceItem{"1/2-4X12 SHEETROCK", "", {c.board}, ""}});
    const std::string text = run.Text();
    const auto block = [&](const std::string& label, std::size_t column, const char* figures) {
      const Texts found = With(label, LinesOf(text));
      Texts wanted;
      if (figures != nullptr) {
        wanted.push_back(std::string(19, ' ') + label);
        wanted[0].resize(column - 1, ' ');
        wanted[0] += figures;
      }
      EXPECT_EQ(found, wanted);
    };
    block("Sub Total for FLOORING", 69, c.flooringTotal);
    block("Sub Total for SHEETROCK", 69, c.sheetrockTotal);
    block("GRAND TOTAL ----------------", 68, c.grand);
    if (c.grand != nullptr) {
      EXPECT_TRUE(text.ends_with(std::string(c.grand) + "\n" + kRule + "\n\n\f")) << text;
    }
  }
}

TEST(PrintRun, AnEmptyPriceListPrintsTheListWithoutPrices) {
  PlanRun priced(kAllSections + kWithPrices, 8);
  PlanRun plain(kAllSections, 8);
  priced.print.plan.SecondFloorType = plain.print.plan.SecondFloorType = 2;
  priced.print.plan.SillPlate.Assign("2X6");
  plain.print.plan.SillPlate.Assign("2X6");
  EXPECT_EQ(priced.Text(), plain.Text());
  plain.data.prices = PriceList({PriceItem{"PLYCLIPS", "", {"5"}, ""}});
  EXPECT_FALSE(Has(plain.Text(), "5.00"));
  EXPECT_EQ(plain.totals.GrandTotal, 0);
}

TEST(PrintRun, OnlyARunWithPricesReadsThePriceFile) {
  const auto folder = std::filesystem::temp_directory_path() / "norvale_no_such_folder";
  EXPECT_NO_THROW((void)LoadTakeoffData(folder, kAllSections + kSpecifications));
  EXPECT_THROW((void)LoadTakeoffData(folder, kWithPrices), FileError);
  EXPECT_FALSE(std::filesystem::exists(folder));
}

}  // namespace
}  // namespace norvale
