#include "printing/worksheet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/plan_type.h"
#include "entry/entry_form.h"
#include "prices/delivered.h"

namespace norvale {
namespace {

TEST(Worksheets, KeepToThePaper) {
  for (const int type : PlanTypes())
    for (const WorksheetKind kind : {WorksheetKind::Both, WorksheetKind::Specifications, WorksheetKind::Measurements}) {
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
  std::vector<MaterialRow> rows = DeliveredMaterialRows();
  for (int i = 0; i < 70; ++i) {
    rows.insert(rows.begin(), rows.front());
    rows.front().ListNumber = 7;
    rows.front().ListText.Assign("COLOUR " + std::to_string(i));
  }
  const Document document = WorksheetDocument(MakeWorksheet(kOneStorySlab, WorksheetKind::Specifications, lines, rows));
  std::vector<std::string> all;
  for (const PageText& page : document.pages) {
    EXPECT_LE(page.size(), kPaperLines);
    all.insert(all.end(), page.begin(), page.end());
  }
  EXPECT_THAT(all, testing::Contains("    Roofing & flashing:"));
  for (int i = 0; i < 70; ++i) EXPECT_THAT(all, testing::Contains("            (  ) COLOUR " + std::to_string(i)));
}

}  // namespace
}  // namespace norvale
