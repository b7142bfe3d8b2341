// A plan goes through one section; what is printed comes back as rows that a table of expectations can hold.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "base/numbers.h"
#include "base/text.h"
#include "data/plan_type.h"
#include "takeoff/print_estimate.h"
#include "takeoff/sections.h"

namespace norvale {

using Edit = void (*)(EstimateRecord&);
using Texts = std::vector<std::string>;

inline Texts LinesOf(std::string_view text) {
  Texts lines;
  std::istringstream stream{std::string(text)};
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

/// The pages of a printed text, without their form feeds.
inline Texts PagesOf(std::string_view text) {
  Texts pages;
  while (!text.empty()) {
    const std::size_t end = text.find('\f');
    pages.emplace_back(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return pages;
}

/// The rows in which `part` stands; all of them for an empty part.
inline Texts With(std::string_view part, const Texts& rows) {
  Texts found;
  for (const std::string& row : rows)
    if (Has(row, part)) found.push_back(row);
  return found;
}

/// Prints the rows of a section as if the plan had an upper floor and a finished inside, so that a table of rows need not say so.
inline void PrintRows(TakeoffRun& run, const Section& section) {
  EstimateRecord house = run.plan;
  house.SlabInterior.Assign(kFinishedInterior);
  if (section.part == HousePart::SecondFloor) house.SecondFloorType = 2;
  if (HasPart(house, section.part)) {
    BeginSection(run, section.heading, section.column);
    section.rows(run);
  }
  EndSection(run, section.heading);
}

/// One section on a plan: all waste factors are 0 until a test sets them, the price list is empty.
struct SectionRun {
  EstimateRecord plan;
  WasteFactors waste;
  std::vector<MaterialRow> lists;
  PriceList prices;
  Page page;
  TakeoffRun run;

  explicit SectionRun(const EstimateRecord& estimate, int mask = kAllSections, std::vector<PriceItem> items = {}, bool withPrices = true)
      : plan(estimate), waste{}, prices(std::move(items)), run(plan, waste, lists, withPrices ? &prices : nullptr, mask, page) {}

  Texts Print(std::string_view heading) {
    PrintRows(run, *FindSection(heading));
    return Rows();
  }

  /// The material lines of a run without price lines, as the paper shows them: "quantity and unit | description | label |
  /// item", and behind that the price key where it is not the description. A label that is repeated on a line of its own is
  /// "again: label". The columns are those of the paper, so that a text in a wrong column does not match.
  [[nodiscard]] Texts Rows() const {
    Texts rows;
    std::size_t next = 0;
    for (std::string line : LinesOf(page.Text())) {
      line.resize(std::max<std::size_t>(line.size(), 60), ' ');
      const std::string label(TrimRight(line.substr(line[58] == ' ' ? 59 : 58)));
      const std::string_view front = std::string_view(line).substr(0, 58);
      if (Trim(front).empty()) {
        if (!label.empty()) rows.push_back("again: " + label);
        continue;
      }
      if (Trim(front.substr(0, 14)).empty()) continue;  // a heading
      const std::string quantity(TrimRight(front.substr(front[0] == ' ' ? 1 : 0, front[0] == ' ' ? 13 : 14)));
      std::string row = quantity + " | " + std::string(TrimRight(front.substr(14))) + " | " + label;
      if (next < run.lines.size()) {
        const PrintedLine& noted = run.lines[next++];
        row += " | " + (noted.item == kNoItem ? std::string("-") : std::to_string(noted.item));
        if (Trim(noted.priceKey) != Trim(noted.description)) row += " | " + noted.priceKey;
        EXPECT_TRUE(Has(front, TrimRight(noted.description))) << noted.description;
        EXPECT_TRUE(quantity.ends_with(" " + noted.unit)) << quantity << ", noted in " << noted.unit;
        EXPECT_EQ(noted.quantity, Val(quantity)) << row;
        EXPECT_EQ(noted.adjusted, line[58] == '*') << row;
      }
      rows.push_back(row);
    }
    EXPECT_EQ(next, run.lines.size()) << "lines that are not on the paper";
    return rows;
  }
};

}  // namespace norvale
