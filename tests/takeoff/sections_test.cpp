// What the tables of rows do not show: long lists of choices, empty lines, counts of lines.
#include "takeoff/takeoff_fixture.h"

namespace norvale {
namespace {

TEST(Sections, GarageBoardsFollowThePlanClass) {
  // Stud choice 0 to 12, one digit each for the height of the board in feet.
  struct Case {
    std::int16_t planType, finish;
    const char* heights;
  };
  for (const Case& c : {Case{2, 4, "8889988889988"}, Case{1, 1, "8889988889988"}, Case{4, 3, "9999988999988"}, Case{8, 0, "9999988999988"}})
    for (std::int16_t choice = 0; choice <= 12; ++choice) {
      EstimateRecord plan;
      plan.PlanType = c.planType;
      plan.Combo34Index = c.finish;
      plan.PreCutStudsIndex = choice;
      plan.GarageWallLftA = 60;
      const std::string height(1, c.heights[choice]);
      EXPECT_EQ(With("INS. BD.", SectionRun(plan).Print(PrintFirstFloorWallSystem)),
                Texts{"15 pcs. | 4X" + height + "- 1/2 REG. INS. BD. | (Wall Sheathing) | 23 | 4X" + height + "- 1/2 REGULAR"})
          << c.planType << " finish " << c.finish << " studs " << choice;
    }
}

TEST(Sections, SheetrockFollowsTheStudChoices) {
  // 1500 square feet with walls 0, 8, 9 or 10 feet high; 1000 square feet above at 3.75 or 4.1.
  const char* const first[] = {"32", "113", "113", "123", "123", "133", "133", "113", "113", "123", "123", "133", "133", "32"};
  const char* const second[] = {"", "78", "78", "85", "85", "78", "78", "85", "85", "", "", "", "", ""};
  for (std::int16_t studs = 0; studs <= 13; ++studs) {
    EstimateRecord plan;
    plan.SecondFloorType = plan.Combo26Index = 2;
    plan.HeatedSqFtA = 1500;
    plan.HeatedSqFtB = 1000;
    plan.ExtWallLftFirstFloor = 200;
    plan.IntWallLftFirstFloor = 130;
    plan.PreCutStudsIndex = plan.PreCutStudsSecondFloorIndex = studs;
    Texts rows = {std::string(first[studs]) + " pcs. | 1/2-4X12 SHEETROCK | (Wallboard) | 85"};
    if (*second[studs] != '\0') rows.push_back(std::string(second[studs]) + " pcs. | 1/2-4X12 SHEETROCK | (Wallboard-2fl.) | 86");
    EXPECT_EQ(SectionRun(plan).Print(PrintSheetrock), rows) << studs;
  }
}

TEST(Sections, ClipsGoByTheBox) {
  struct Case {
    std::int16_t roof, percent;
    const char* text;
    double priced;
  };
  const Case cases[] = {{1996, 0, " 1 Box", 1},           {2000, 0, " 1 Box", 1},       // 250, and 250.5 to the even 250
                        {2004, 0, " 2 Boxes", 2},         {3988, 0, " 2 Boxes", 2},     // 251 and 499
                        {3996, 0, " 2 Boxes", 2},         {4996, 0, " 3 Boxes", 3},     // 500 and 625
                        {1996, 1, " 2 Boxes", 2},         {2000, -100, " 1 Box", 1},    // 252 and 0
                        {2000, -250, " 1 Box", 1},        {32760, 0, " 16 Boxes", 16},  // below 0, and 4095.5 to 4096
                        {1996, 32767, " 329 Boxes", 329},                               // 250 + 81917
                        {2001, 0, " 2 Boxes", 2},         {4992, 0, " 2 Boxes", 2}};    // 250.6 to 251; 624.5 to the even 624
  for (const Case& c : cases) {
    EstimateRecord plan;
    plan.RoofSqFt = c.roof;
    SectionRun section(plan);
    section.waste.percent[52] = c.percent;
    section.Print(PrintRoofSystem);
    std::string wanted(c.text);
    wanted.resize(14, ' ');
    wanted += "PLYCLIPS";
    wanted.resize(58, ' ');
    wanted += c.percent == 0 ? " (Sheathing Clips)" : "*(Sheathing Clips)";
    EXPECT_EQ(With("PLYCLIPS", LinesOf(section.page.Text())), Texts{wanted});
    for (const PrintedLine& line : section.run.lines) {
      if (line.label != "(Sheathing Clips)") continue;
      EXPECT_EQ(line.quantity, c.priced) << c.roof << " at " << c.percent;
    }
  }
}

TEST(Sections, TheBandBlockHasItsOwnEmptyLines) {
  struct Case {
    const char* fascia;
    const char* layout;  // between bracing and roof sheathing: the first digit of a row's quantity, "." an empty line
    int count;
  };
  for (const Case& c : {Case{"", "..", 2}, Case{"2X10", "..", 2}, Case{"1x6", "..", 2}, Case{"1X6", ".28.", 2}, Case{"1X8", ".16.14.", 4},
                        Case{"2X8", ".16.", 2}, Case{"1X6, 2X6", ".28+16.", 2}, Case{"1X6 1X8 2X6 2X8", ".28+16.14+16.", 4}}) {
    EstimateRecord plan;
    plan.FasciaLft = 200;
    plan.Combo09Text.Assign(c.fascia);
    SectionRun section(plan);
    section.Print(PrintRoofSystem);
    std::string layout;
    bool inside = false;
    for (const std::string& line : LinesOf(section.page.Text())) {
      if (Has(line, "(Roof Sheathing)")) break;
      if (inside && line.empty()) layout += '.';
      if (inside && !line.empty()) layout.append(layout.back() == '.' ? "" : "+").append(line, 1, 2);
      inside = inside || Has(line, "(Truss Bracing)");
    }
    EXPECT_EQ(layout, c.layout) << c.fascia;
    EXPECT_EQ(section.run.LineCount, 2 + 2 + c.count + 5 * 2) << c.fascia;  // heading, bracing, the block, five rows
  }
}

TEST(Sections, HeadingsSelectionAndRepeatedLabels) {
  struct Case {
    Section section;
    int bit;
    std::size_t column;
    const char* heading;
    int repeated;  // labels on lines of their own, which do not count
  };
  EstimateRecord plan;
  plan.PlanType = 8;
  plan.Combo34Index = 5;
  plan.Combo09Text.Assign("2X8");
  for (const Case& c :
       {Case{PrintFirstFloorFloorSystem, 1, 29, "1st FLOOR - FLOOR SYSTEM", 0},
        Case{PrintFirstFloorWallSystem, 2, 29, "1st FLOOR - WALL SYSTEM", 0},
        Case{PrintSecondFloorFloorSystem, 4, 29, "2nd FLOOR - FLOOR SYSTEM", 0},
        Case{PrintSecondFloorWallSystem, 8, 30, "2nd FLOOR - WALL SYSTEM", 1}, Case{PrintRoofSystem, 16, 35, "ROOF SYSTEM", 0},
        Case{PrintExteriorTrim, 256, 34, "EXTERIOR TRIM", 1}, Case{PrintFlooring, 32, 29, "FLOORING", 0},
        Case{PrintSheetrock, 64, 29, "SHEETROCK", 0}, Case{PrintInteriorTrim, 128, 29, "INTERIOR TRIM", 0}}) {
    SectionRun selected(plan, c.bit);
    const Texts rows = selected.Print(c.section);
    EXPECT_TRUE(selected.page.Text().starts_with(std::string(c.column - 1, ' ').append(c.heading).append("\n\n"))) << selected.page.Text();
    EXPECT_EQ(With("again: ", rows).size(), static_cast<std::size_t>(c.repeated)) << c.heading;
    EXPECT_EQ(selected.run.LineCount, 2 + 2 * static_cast<int>(selected.run.lines.size())) << c.heading;
    SectionRun others(plan, kWholeMask - c.bit);
    others.Print(c.section);
    EXPECT_EQ(others.page.Text(), "") << c.heading;
  }
}

TEST(Sections, TheSpecificationsSheet) {
  EstimateRecord plan;
  plan.ExtWallLftFirstFloor = 200;
  SectionRun sheet(plan, kSpecifications);
  PrintSpecifications(sheet.run);
  const std::string& text = sheet.page.Text();
  EXPECT_TRUE(text.starts_with(std::string(32, ' ').append("SPECIFICATIONS\n\n").append(16, ' ').append("Floor area 1fl. heated:")))
      << text;
  EXPECT_TRUE(Has(text, std::string("LFT. exterior walls:").append(22, ' ').append(" 200\n"))) << text;
  EXPECT_TRUE(text.ends_with(std::string("Pre cut studs:\n\n").append(15, ' ').append(" End of Specifications\n\n"))) << text;
  EXPECT_EQ(sheet.run.LineCount, 3 * 2 + 15);
}

}  // namespace
}  // namespace norvale
