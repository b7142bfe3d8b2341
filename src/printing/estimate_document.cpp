#include "printing/estimate_document.h"
#include "takeoff/sections.h"

#include <algorithm>

namespace norvale {

std::vector<UnpricedLine> UnpricedLines(const std::vector<PrintedLine>& lines) {
  std::vector<UnpricedLine> unpriced;
  for (auto row = lines.begin(); row != lines.end();) {
    // A row with two keys is charged for where one of them has a price.
    const auto next = std::find_if(row, lines.end(), [&](const PrintedLine& line) { return line.place != row->place; });
    if (std::none_of(row, next, [](const PrintedLine& line) { return line.stock != nullptr && line.price > 0; }))
      unpriced.push_back({.section = row->section,
                          .quantity = row->quantity,
                          .unit = row->unit,
                          .description = row->description,
                          .label = row->label,
                          .isListed = std::any_of(row, next, [](const PrintedLine& line) { return line.stock != nullptr; }),
                          .place = row->place});
    row = next;
  }
  return unpriced;
}

EstimateDocument MakeEstimateDocument(const EstimatePrint& print, const TakeoffData& data, int copies) {
  Page page;
  EstimateDocument made;
  made.totals = PrintEstimate(print, data, page);
  made.document = MakeDocument("Estimate " + print.plan.PlanNumber.Trimmed(), page);
  if ((print.sectionMask & kWithPrices) != 0)
    for (const UnpricedLine& line : UnpricedLines(made.totals.lines)) made.document.marks.push_back(line.place);
  const Document copy = made.document;
  for (int more = 1; more < copies; ++more) Append(made.document, copy);
  return made;
}

}  // namespace norvale
