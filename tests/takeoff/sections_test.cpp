// What the tables of rows do not show: empty lines, counts of lines.
#include "takeoff/takeoff_fixture.h"

namespace norvale {
namespace {

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
    plan.FasciaBoard.Assign(c.fascia);
    SectionRun section(plan);
    section.Print("ROOF SYSTEM");
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

}  // namespace
}  // namespace norvale
