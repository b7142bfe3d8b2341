#include "takeoff/takeoff_fixture.h"

namespace norvale {
namespace {

PriceItem Item(std::string key, std::string price, std::string sku = "S-1", std::string text = {}) {
  return {std::move(key), std::move(sku), {std::move(price)}, std::move(text)};
}

std::string At(std::size_t column, std::string line, std::string_view text) {
  line.resize(column - 1, ' ');
  return line.append(text);
}

// Three rolls of felt, 20 sheets of particleboard, 8 of underlayment.
EstimateRecord Floor() {
  EstimateRecord plan;
  plan.PlanType = plan.SecondFloorType = 2;
  plan.HeatedSqFtSecondFloor = 1000;
  plan.OakFlooringSqFt = 200;
  return plan;
}

TEST(PriceLine, PriceAndExtensionAre32BitAndCutOnTheLeft) {
  struct Case {
    const char* price;
    const char* shown;  // 8 characters
    const char* extended;
    double total;
  };
  const Case cases[] = {
      {"12.35", "   12.35", "     37.05", 37.05000305175781},
      {"0.1", "    0.10", "      0.30", 0.30000001192092896},
      {"1.005", "    1.00", "      3.01", 3.0149998664855957},  // as a 32-bit number it is below 1.005
      {"1234.5", "1,234.50", "  3,703.50", 3703.5},
      {"123456.78", "3,456.78", "370,370.34", 370370.34375},
      {"1234567", "4,567.00", "703,701.00", 3703701},
      {"abc", "    0.00", "      0.00", 0},
      {"", "    0.00", "      0.00", 0},
      {"7.5 a roll", "    7.50", "     22.50", 22.5},
      {"-2", "   -2.00", "     -6.00", -6},
  };
  for (const Case& c : cases) {
    SectionRun section(Floor(), kAllSections, {Item("#15 FELT ROLL", c.price, "FELT15", "by the roll")});
    PrintRows(section.run, *FindSection("FLOORING"));
    const std::string wanted = At(69, At(50, At(25, "    FELT15", "by the roll"), c.shown), c.extended);
    const Texts lines = LinesOf(section.page.Text());
    ASSERT_GE(lines.size(), 4U);
    EXPECT_EQ(lines[3], wanted) << c.price;
    EXPECT_EQ(section.run.GrandTotal, c.total) << c.price;
    // The subtotal is set back only where it is printed.
    EXPECT_EQ(section.run.SectionSubTotal, c.total > 0 ? 0 : c.total) << c.price;
    EXPECT_EQ(section.run.LineCount, 2 + 3 * 2 + 1 + (c.total > 0 ? 3 + 2 : 0)) << c.price;
  }
}

TEST(PriceLine, TheFirstEntryOfTheKeyInThePlansLevel) {
  struct Case {
    const char* name;
    const char* level;
    std::vector<PriceItem> items;
    double total;
  };
  const PriceItem levels{"#15 FELT ROLL", "", {"1", "2", "3", "4", "5"}, ""};
  const Case cases[] = {
      {"level 1", "1", {levels}, 3},
      {"level 5", "5", {levels}, 15},
      {"level 0 is 1", "0", {levels}, 3},
      {"level 6 is 1", "6", {levels}, 3},
      {"no level is 1", "", {levels}, 3},
      {"a level that is no number is 1", "x", {levels}, 3},
      {"blanks around the key", "", {Item("  #15 FELT ROLL ", "2")}, 6},
      {"case counts", "", {Item("#15 felt roll", "2")}, 0},
      {"the whole key", "", {Item("#15 FELT", "2"), Item("#15 FELT ROLLS", "2")}, 0},
      {"the first of two", "", {Item("#15 FELT ROLL", "2"), Item("#15 FELT ROLL", "9")}, 6},
      {"also where it is 0", "", {Item("#15 FELT ROLL", ""), Item("#15 FELT ROLL", "9")}, 0},
      {"each row at its own quantity", "", {Item("#15 FELT ROLL", "1"), Item("4X8 UNDERLAYMENT", "10")}, 83},
  };
  for (const Case& c : cases) {
    EstimateRecord plan = Floor();
    plan.PriceLevel.Assign(c.level);
    SectionRun section(plan, kAllSections, c.items);
    PrintRows(section.run, *FindSection("FLOORING"));
    EXPECT_EQ(section.run.GrandTotal, c.total) << c.name;
  }
  // A blank key finds a blank entry: the sheathing that a plan does not name.
  SectionRun blank(EstimateRecord{}, kAllSections, {Item("", "5")});
  PrintRows(blank.run, *FindSection("1st FLOOR - FLOOR SYSTEM"));
  EXPECT_EQ(With("S-1", LinesOf(blank.page.Text())).size(), 1U);
}

TEST(PriceLine, AWrappedFasciaIsPricedOnceMoreWhereItIsVinyl) {
  struct Case {
    const char* wrap;
    std::vector<PriceItem> items;
    Texts skus;
    double total;
  };
  const auto board = Item("1X6 #2 SYP", "1", "BOARD");
  const auto vinyl = Item("1X6 VINYL", "2", "VINYL");
  const auto coil = Item("1X6 COIL", "2", "COIL");
  for (const Case& c :
       {Case{"VINYL", {board, vinyl}, {"BOARD", "VINYL"}, 345}, Case{"VINYL", {vinyl}, {"VINYL"}, 230},
        Case{"VINYL", {board}, {"BOARD"}, 115}, Case{"COIL", {board, coil}, {"BOARD"}, 115}, Case{"PINE", {board}, {}, 0}}) {
    EstimateRecord plan;
    plan.FasciaLft = 100;  // 115 feet of board
    plan.FramingGrade.Assign("#2 SYP");
    plan.ExteriorTrim.Assign(c.wrap);
    plan.FasciaBoard.Assign("1X6");
    SectionRun section(plan, kAllSections, c.items);
    PrintRows(section.run, *FindSection("EXTERIOR TRIM"));
    Texts skus;
    for (const std::string& line : LinesOf(section.page.Text()))
      if (line.starts_with("    ") && line.size() == 78 && line[4] != ' ') skus.push_back(line.substr(4, line.find(' ', 4) - 4));
    EXPECT_EQ(skus, c.skus) << c.wrap << c.items.size();
    EXPECT_EQ(section.run.GrandTotal, c.total) << c.wrap << c.items.size();
    // A wrap that is not listed leaves no line behind, and one that is stands at the board's place.
    const auto& lines = section.run.lines;
    const auto boards =
        std::count_if(lines.begin(), lines.end(), [&](const PrintedLine& line) { return line.description == "1X6 #2 SYP"; });
    EXPECT_EQ(boards, c.wrap == std::string("PINE") ? 0 : c.items.back().PriceItemSku == "VINYL" ? 2 : 1) << c.wrap << c.items.size();
  }
}

}  // namespace
}  // namespace norvale
