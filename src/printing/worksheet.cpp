#include "printing/worksheet.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/text.h"
#include "data/plan_type.h"
#include "entry/field_rules.h"
#include "entry/plan_form.h"
#include "printing/page_writer.h"

namespace norvale {

namespace {

constexpr std::string_view kAnswer = "__________";
constexpr std::string_view kShortAnswer = "______";
constexpr std::string_view kPreliminaryHeading = " Preliminary Roof and Gable Measurements";
constexpr std::string_view kWidths = "    Widths:  ______ ______ ______ ______ ______ ______ ______";

struct PreliminaryLine {
  std::string_view caption;
  int bit = 0;  // asked for on plans with it; 0: on all
};

constexpr std::array<PreliminaryLine, 10> kPreliminary = {{
    {"Square footage of detached garage:", kDetachedGarage},
    {"Square footage of heated area first floor:"},
    {"Square footage of all porches:", kPorch},
    {"Square footage of carport:", kCarport},
    {"Square footage of garage:", kAttachedGarage},
    {"Pitch of roof in inches per foot:"},
    {"Total linear footage of eaves:"},
    {"Total lineal footage of rakes with fascia:"},
    {"Roof overhang in inches:"},
    {" Total number of gables from all elevations:"},
}};

std::string_view TextOf(WorksheetMark mark) {
  switch (mark) {
    case WorksheetMark::NotRequired:
      return "*";
    case WorksheetMark::Calculated:
      return "**";
    case WorksheetMark::None:
      break;
  }
  return {};
}

// A caption as a window shows it: "&&" stands for one "&".
std::string Shown(std::string caption) {
  for (std::size_t at = caption.find("&&"); at != std::string::npos; at = caption.find("&&", at + 1)) caption.erase(at, 1);
  return caption;
}

// The form as the plan type alone leaves it. It is opened like a stored plan without any choice, because the rows that a
// new plan starts with would shut lines.
PlanForm BlankForm(std::int16_t planType, const std::vector<ScreenLine>& screenLines, const std::vector<MaterialRow>& rows) {
  EstimateRecord blank;
  PlanForm form;
  PlaceLines(form, screenLines);
  LoadPlanIntoForm(form, PlanMode::Existing, blank, rows);
  form.PlanType = planType;
  ApplyPlanTypeRules(form, blank);
  return form;
}

bool Asks(WorksheetKind kind, LineField field) {
  switch (kind) {
    case WorksheetKind::Specifications:
      return field.IsList();
    case WorksheetKind::Measurements:
      return field.IsNumber();
    case WorksheetKind::Both:
      break;
  }
  return field.kind != LineField::Kind::None;
}

std::string_view SubTitle(WorksheetKind kind) {
  switch (kind) {
    case WorksheetKind::Specifications:
      return "Specifications Only";
    case WorksheetKind::Measurements:
      return "Measurements Only";
    case WorksheetKind::Both:
      break;
  }
  return "Specifications and Measurements";
}

void PrintLine(PageWriter& pages, const WorksheetLine& line) {
  constexpr std::size_t kMarkEnd = 3;
  constexpr std::size_t kCaptionColumn = 5;
  constexpr std::size_t kAnswerColumn = 56;
  std::string first;
  PutAt(first, kMarkEnd + 1 - line.mark.size(), line.mark);
  PutAt(first, kCaptionColumn + (line.isIndented ? 2 : 0), line.caption);
  std::vector<std::string> block;
  if (line.choices.empty()) {
    PutAt(first, kAnswerColumn, kAnswer);
    if (line.asksForJoists) first.append("  ").append(kShortAnswer);
  }
  block.push_back(std::move(first));
  for (const std::string& choice : line.choices) block.push_back("            (  ) " + choice);
  pages.Gap();
  pages.Block(block);
  if (!line.mark.empty()) pages.OweFoot();
}

}  // namespace

Worksheet MakeWorksheet(std::int16_t planType, WorksheetKind kind, const std::vector<ScreenLine>& screenLines,
                        const std::vector<MaterialRow>& rows) {
  Worksheet worksheet{.PlanType = planType, .kind = kind, .preliminary = {}, .lines = {}};
  if (kind != WorksheetKind::Specifications)
    for (const PreliminaryLine& line : kPreliminary)
      if (line.bit == 0 || (planType & line.bit) != 0) {
        WorksheetLine& asked = worksheet.preliminary.emplace_back();
        asked.caption = line.caption;
      }
  const PlanForm form = BlankForm(planType, screenLines, rows);
  for (int line = 0; line <= form.LastLine; ++line) {
    const LineState& shown = form.lines[static_cast<std::size_t>(line)];
    if (!shown.enabled || !Asks(kind, shown.field)) continue;
    WorksheetLine& asked = worksheet.lines.emplace_back();
    asked.line = line;
    asked.mark = TextOf(shown.field.Mark());
    asked.caption = Shown(shown.caption);
    asked.isIndented = shown.isIndented;
    if (shown.field.IsList())
      asked.choices = form.lists[shown.field.List()].rows;
    else
      asked.asksForJoists = JoistBoxBehind(shown.field.Number()).has_value();
  }
  return worksheet;
}

Document WorksheetDocument(const Worksheet& worksheet) {
  std::vector<std::string> heading = {Centred("ESTIMATE WORKSHEET"), Centred(SubTitle(worksheet.kind)), ""};
  const std::vector<std::string> description = Labelled("DESCRIPTION: ", PlanDescription(worksheet.PlanType));
  heading.insert(heading.end(), description.begin(), description.end());
  heading.emplace_back();
  PageWriter pages(std::move(heading), {"", "  * = Not required if preliminary measurements are completed.",
                                        " ** = Calculated value if preliminary measurements are completed."});
  if (!worksheet.preliminary.empty()) pages.Line(kPreliminaryHeading);
  for (const WorksheetLine& line : worksheet.preliminary) PrintLine(pages, line);
  if (!worksheet.preliminary.empty()) {
    pages.Gap();
    pages.Line(kWidths);
  }
  for (const WorksheetLine& line : worksheet.lines) PrintLine(pages, line);
  return pages.Finish("ESTIMATE WORKSHEET");
}

Table WorksheetTable(const Worksheet& worksheet) {
  Table table{.columns = {{"mark", "mark"}, {"question", "question"}, {"choice", "choice"}, {"answer", "answer"}}, .rows = {}};
  const auto add = [&table](const WorksheetLine& line, std::string_view choice) {
    table.rows.push_back({TableCell::Text(line.mark), TableCell::Text(line.caption), TableCell::Text(choice), {}});
  };
  for (const auto* part : {&worksheet.preliminary, &worksheet.lines})
    for (const WorksheetLine& line : *part) {
      if (line.choices.empty()) add(line, {});
      for (const std::string& choice : line.choices) add(line, choice);
    }
  return table;
}

}  // namespace norvale
