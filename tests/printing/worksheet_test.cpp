#include "printing/worksheet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "data/plan_type.h"
#include "entry/entry_form.h"
#include "prices/delivered.h"

namespace norvale {
namespace {

using testing::ElementsAreArray;

constexpr WorksheetKind kKinds[] = {WorksheetKind::Both, WorksheetKind::Specifications, WorksheetKind::Measurements};

bool IsChoiceLine(std::size_t line) { return DeliveredScreenLines()[line].ControlCode.Padded().front() == 'C'; }

// What a house has none of, told by the numbers of the lines.
std::set<int> LinesWithout(int type) {
  std::set<int> without = {18, 57, 62};  // fixed by the plan type
  const auto take = [&without](bool isShut, int first, int last) {
    for (int line = first; isShut && line <= last; ++line) without.insert(line);
  };
  const bool noLevelAbove = (type & (kOneStorySlab | kOneStoryCrawl)) != 0;
  take((type & kSlab) != 0, 20, 48);          // foundation, girders, sills, joists
  take((type & kSlab) != 0, 51, 55);          // bays
  take((type & kOneStorySlab) != 0, 0, 1);    // no wooden floor: no species, no sheathing
  take((type & kOneStorySlab) != 0, 56, 58);  // and no oak on it
  take((type & kCrawlSpace) != 0, 19, 19);    // the inside of a slab building
  take(true, 65, 65);                         // the second floor itself is fixed
  take(noLevelAbove, 66, 77);                 // its framing, walls, studs, area
  take(noLevelAbove, 88, 88);                 // its siding
  take(noLevelAbove, 90, 90);                 // its corners
  take((type & kAttachedGarage) == 0, 59, 61);
  take((type & (kCarport | kPorch)) == 0, 63, 64);
  take((type & kBrickVeneer) != 0, 82, 89);
  take((type & kHalfStory) == 0, 92, 93);
  take((type & kAtticTrussHalfStory) != 0, 92, 92);
  return without;
}

// The questions of a printed worksheet: the captions, with "[n]" behind those that have choices to tick.
std::vector<std::string> PrintedQuestions(const Document& document) {
  std::vector<std::string> questions;
  int choices = 0;
  const auto close = [&] {
    if (choices > 0) questions.back() += "[" + std::to_string(choices) + "]";
    choices = 0;
  };
  for (const PageText& page : document.pages) {
    for (std::size_t i = 5; i < page.size(); ++i) {
      const std::string& line = page[i];
      if (line.starts_with("            (  ) ")) ++choices;
      const std::size_t colon = line.find(':');
      if (line.size() < 6 || colon == std::string::npos || line.find('=') != std::string::npos) continue;
      close();
      questions.emplace_back(Trim(line.substr(4, colon - 3)));
    }
  }
  close();
  return questions;
}

std::vector<std::string> ExpectedQuestions(int type, WorksheetKind kind) {
  std::vector<std::string> questions;
  if (kind != WorksheetKind::Specifications) {
    if ((type & kDetachedGarage) != 0) questions.emplace_back("Square footage of detached garage:");
    questions.emplace_back("Square footage of heated area first floor:");
    if ((type & kPorch) != 0) questions.emplace_back("Square footage of all porches:");
    if ((type & kCarport) != 0) questions.emplace_back("Square footage of carport:");
    if ((type & kAttachedGarage) != 0) questions.emplace_back("Square footage of garage:");
    for (const char* always :
         {"Pitch of roof in inches per foot:", "Total linear footage of eaves:", "Total lineal footage of rakes with fascia:",
          "Roof overhang in inches:", "Total number of gables from all elevations:", "Widths:"})
      questions.emplace_back(always);
  }
  const std::set<int> without = LinesWithout(type);
  for (std::size_t line = 0; line < DeliveredScreenLines().size(); ++line) {
    if (without.count(static_cast<int>(line)) > 0) continue;
    if (kind == (IsChoiceLine(line) ? WorksheetKind::Measurements : WorksheetKind::Specifications)) continue;
    std::string question = DeliveredScreenLines()[line].Caption.Trimmed();
    if (IsChoiceLine(line)) {
      const int list = std::stoi(DeliveredScreenLines()[line].ControlCode.Padded().substr(2));
      int rows = -1;  // its end is no choice
      for (const MaterialRow& row : DeliveredMaterialRows()) rows += row.ListNumber == list ? 1 : 0;
      question += "[" + std::to_string(rows) + "]";
    }
    questions.push_back(std::move(question));
  }
  return questions;
}

TEST(Worksheets, HoldExactlyWhatAHouseOfThePlanTypeHas) {
  for (const int type : PlanTypes())
    for (const WorksheetKind kind : kKinds) {
      const Document document =
          WorksheetDocument(MakeWorksheet(static_cast<std::int16_t>(type), kind, DeliveredScreenLines(), DeliveredMaterialRows()));
      EXPECT_THAT(PrintedQuestions(document), ElementsAreArray(ExpectedQuestions(type, kind))) << type;
    }
}

TEST(Worksheets, KeepToThePaper) {
  for (const int type : PlanTypes())
    for (const WorksheetKind kind : kKinds) {
      const Document document =
          WorksheetDocument(MakeWorksheet(static_cast<std::int16_t>(type), kind, DeliveredScreenLines(), DeliveredMaterialRows()));
      for (const PageText& page : document.pages) {
        EXPECT_LE(page.size(), kPaperLines);
        EXPECT_TRUE(page.at(0).starts_with("                               ESTIMATE WORKSHEET")) << page.at(0);
        std::string description;
        std::size_t line = 3;
        for (; !page.at(line).empty(); ++line) description.append(description.empty() ? "" : " ").append(Trim(page[line]));
        EXPECT_EQ(description, "DESCRIPTION: " + PlanDescription(static_cast<std::int16_t>(type)));
        EXPECT_FALSE(page.at(line + 1).starts_with("            (  ) ")) << "a list goes on behind the end of a page";
        for (const std::string& text : page) EXPECT_LE(text.size(), kPaperColumns) << text;
      }
    }
}

TEST(Worksheets, ALongListAndADoubledAmpersandAreTheDealersOwn) {
  std::vector<ScreenLine> lines = DeliveredScreenLines();
  lines[7].Caption.Assign("Roofing && flashing:");
  std::vector<MaterialRow> rows;
  for (const MaterialRow& row : DeliveredMaterialRows()) {
    if (row.ListNumber == 7 && row.ListText.Trimmed() == kListEnd)
      for (int i = 0; i < 70; ++i) {
        rows.push_back(row);
        rows.back().ListText.Assign("COLOUR " + std::to_string(i));
      }
    rows.push_back(row);
  }
  const Document document = WorksheetDocument(MakeWorksheet(kOneStorySlab, WorksheetKind::Specifications, lines, rows));
  const std::vector<std::string> questions = PrintedQuestions(document);
  EXPECT_THAT(questions, testing::Contains("Roofing & flashing:[76]"));
  for (const PageText& page : document.pages) EXPECT_LE(page.size(), kPaperLines);
}

}  // namespace
}  // namespace norvale
