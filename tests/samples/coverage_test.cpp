// Nothing goes untested unseen: the sample plans together print every row that the sections' sources hold.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "row_probe.h"
#include "row_statements.h"
#include "samples.h"

namespace norvale {

namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

const SectionSources& Sources() {
  static const SectionSources sources = ReadSectionSources(std::filesystem::path(NORVALE_SOURCE_DIR) / "src" / "takeoff");
  return sources;
}

std::string Name(const RowStatement& row) {
  return row.file + ":" + std::to_string(row.line) + " " + row.label + (row.item.empty() ? ", no item" : ", item " + row.item);
}

// What the plans of a set printed.
struct Printed {
  std::set<std::pair<std::string, int>> rows;
  std::vector<PrintedLine> lines;
  std::string paper;
};

Printed Print(const std::vector<EstimateRecord>& plans) {
  Printed printed;
  PrintedRows().clear();
  for (const EstimateRecord& plan : plans) {
    Page page;
    EstimateTotals totals = PrintSample(RepositorySamples(), plan, page);
    std::move(totals.lines.begin(), totals.lines.end(), std::back_inserter(printed.lines));
    printed.paper += page.Utf8();
  }
  printed.rows = PrintedRows();
  return printed;
}

std::vector<std::string> UnreachedRows(const Printed& printed) {
  std::vector<std::string> names;
  for (const RowStatement& row : Sources().rows)
    if (printed.rows.count({row.file, row.line}) == 0) names.push_back(Name(row));
  return names;
}

// One statement may print several texts, chosen ahead of it. A line counts for the text that says most about it.
std::vector<std::string> UnreachedTexts(const Printed& printed) {
  std::vector<const RowText*> unreached;
  for (const RowText& text : Sources().texts) unreached.push_back(&text);
  for (const PrintedLine& line : printed.lines) {
    const RowText* best = nullptr;
    for (const RowText& text : Sources().texts) {
      if (text.label != line.label || !(text.complete ? line.description == text.fixed : line.description.starts_with(text.fixed)))
        continue;
      if (best == nullptr || text.fixed.size() > best->fixed.size()) best = &text;
    }
    std::erase(unreached, best);
  }
  std::vector<std::string> names;
  for (const RowText* text : unreached)
    names.push_back(text->file + ":" + std::to_string(text->line) + " " + text->label + " \"" + text->fixed + "\"");
  return names;
}

std::vector<EstimateRecord> AllPlansBut(std::string_view planNumber) {
  std::vector<EstimateRecord> plans = RepositorySamples().plans;
  std::erase_if(plans, [&](const EstimateRecord& plan) { return plan.PlanNumber.Trimmed() == planNumber; });
  return plans;
}

// The sources are read as text, so the reading itself must not lose anything: each section has rows, each row a label, and
// each place that printed is one that was read.
TEST(RowStatements, AreAllRead) {
  std::map<std::string, int> rowsOfFile;
  for (const RowStatement& row : Sources().rows) {
    ++rowsOfFile[row.file];
    EXPECT_NE(row.label, "") << Name(row);
  }
  for (const char* const section :
       {"first_floor_floor_system.cpp", "first_floor_wall_system.cpp", "second_floor_floor_system.cpp", "second_floor_wall_system.cpp",
        "roof_system.cpp", "exterior_trim.cpp", "flooring.cpp", "sheetrock.cpp", "interior_trim.cpp"})
    EXPECT_GT(rowsOfFile[section], 0) << section;
  const Printed printed = Print(RepositorySamples().plans);
  for (const auto& place : printed.rows)
    EXPECT_TRUE(std::any_of(Sources().rows.begin(), Sources().rows.end(),
                            [&](const RowStatement& row) { return row.file == place.first && row.line == place.second; }))
        << place.first << ":" << place.second << " prints a row and was not read as one";
}

TEST(SamplePlans, PrintEveryRowOfEverySection) {
  const Printed printed = Print(RepositorySamples().plans);
  EXPECT_THAT(UnreachedRows(printed), IsEmpty());
  EXPECT_THAT(UnreachedTexts(printed), IsEmpty());
}

TEST(SamplePlans, PrintEveryRowOfTheSpecificationsSheet) {
  const Printed printed = Print(RepositorySamples().plans);
  ASSERT_THAT(Sources().captions, Not(IsEmpty()));
  for (const std::string& caption : Sources().captions) EXPECT_THAT(printed.paper, HasSubstr("\n                " + caption + " "));
}

// The test above is worth something only while it notices a row that is gone.
TEST(SamplePlans, WithoutOneOfThemItsOwnRowsAreNamed) {
  const struct {
    std::string_view plan;
    const char* row;  // what no other plan prints
  } cases[] = {
      {"LAUREL RIDGE", "roof_system.cpp:.* \\(Hip/Valley Rafter\\), item 44"},
      {"FIELDSTONE", "second_floor_floor_system.cpp:.* \\(Solid Bridging\\), item 28"},
      {"TRUSS 2200", "second_floor_floor_system.cpp:.* \\(Strong Backs\\), item 32"},
      {"CABIN B", "exterior_trim.cpp:.* \\(Ext. Sdg.-1 Fl.\\), item 69"},
  };
  for (const auto& [plan, row] : cases) {
    const std::vector<EstimateRecord> others = AllPlansBut(plan);
    ASSERT_EQ(others.size() + 1, RepositorySamples().plans.size()) << plan;
    EXPECT_THAT(UnreachedRows(Print(others)), Contains(testing::ContainsRegex(row))) << plan;
  }
}

}  // namespace

}  // namespace norvale
