// The blank worksheet: what the estimator fills in at the plan table before there is a plan to type.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "entry/form_fields.h"
#include "prices/material_lists.h"
#include "printing/document.h"
#include "printing/table.h"

namespace norvale {

/// In the order of the three options of the print dialog.
enum class WorksheetKind { Both, Specifications, Measurements };

/// One question of the worksheet. Texts are Windows-1252.
struct WorksheetLine {
  int line = -1;          // of the data-entry screens; -1: one of the preliminary measurements
  std::string_view mark;  // "*", "**" or nothing
  std::string caption;
  bool isIndented = false;           // stands in under the line above
  std::vector<std::string> choices;  // to be ticked; without any the answer is written
  bool asksForJoists = false;        // a second answer: the length of the joists
};

struct Worksheet {
  std::int16_t PlanType = 0;
  WorksheetKind kind = WorksheetKind::Both;
  std::vector<WorksheetLine> preliminary;
  std::vector<WorksheetLine> lines;
};

/// The questions for a plan type, those of the data-entry screens in their order. What only a choice would shut is asked
/// for: on paper every choice is still open.
Worksheet MakeWorksheet(std::int16_t planType, WorksheetKind kind, const std::vector<ScreenLine>& screenLines,
                        const std::vector<MaterialRow>& rows);

Document WorksheetDocument(const Worksheet& worksheet);

/// One row a question with an answer to write, one a choice of the others.
Table WorksheetTable(const Worksheet& worksheet);

}  // namespace norvale
