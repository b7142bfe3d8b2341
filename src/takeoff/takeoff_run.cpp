#include "takeoff/takeoff_run.h"

#include <cmath>
#include <limits>
#include <utility>

#include "base/numbers.h"
#include "base/text.h"
#include "data/plan_type.h"

namespace norvale {

namespace {

// The columns of a material line and its price line.
constexpr std::size_t kMarkColumn = 59;
constexpr std::size_t kLabelColumn = 60;
constexpr std::size_t kNailDescriptionColumn = 35;
constexpr std::size_t kOptionalTextColumn = 25;
constexpr std::size_t kPriceColumn = 50;
constexpr std::size_t kPriceFigures = 8;
constexpr std::size_t kExtensionColumn = 69;
constexpr std::size_t kExtensionFigures = 10;
constexpr std::size_t kSubTotalColumn = 20;

constexpr int kMostLines = 55;  // the page turns above this count

constexpr std::string_view kRule = "--------------------------------------------------------------------------------";
static_assert(kRule.size() == 80);

void PrintAt(Page& page, std::size_t column, std::string_view text) {
  page.Tab(column);
  page.Print(text);
}

void PrintLineAt(Page& page, std::size_t column, std::string_view text) {
  PrintAt(page, column, text);
  page.EndLine();
}

// Prints mark and label. A row without an item has no mark; its label keeps its column.
void PrintLabel(TakeoffRun& run, std::string_view label, int item) {
  if (item == kNoItem) {
    PrintAt(run.page, kLabelColumn, label);
  } else {
    PrintAt(run.page, kMarkColumn, AdjustmentMark(run, item));
    run.page.Print(label);
  }
  run.page.EndLine();
}

// The level of a plan that stores none is the first.
std::size_t PriceLevelIndex(const EstimateRecord& plan) {
  const double level = Val(plan.PriceLevel.Padded());
  return level >= 1 && level <= static_cast<double>(kPriceLevels) ? static_cast<std::size_t>(level) - 1 : 0;
}

// Prices are held as 32-bit floats. A number that none can hold is no price: it would leave no total of the list readable.
float Held(double number) {
  return std::abs(number) <= static_cast<double>(std::numeric_limits<float>::max()) ? static_cast<float>(number) : 0.0F;
}

// The price line of the last of run.lines, where the list has its key.
void PriceLine(TakeoffRun& run) {
  PrintedLine& line = run.lines.back();
  run.PriceKey = line.priceKey;
  if (!run.PrintPrices()) return;
  const PriceItem* const found = run.prices->Find(line.priceKey);
  if (found == nullptr) return;
  line.stock = found;
  line.price = Held(Val(found->PriceItemPrice[PriceLevelIndex(run.plan)]));
  line.extension = Held(static_cast<double>(line.price) * line.quantity);
  run.SectionSubTotal += line.extension;
  run.GrandTotal += line.extension;
  run.page.Print("    ");
  run.page.Print(found->PriceItemSku);
  PrintAt(run.page, kOptionalTextColumn, found->PriceItemOptionalText);
  PrintAt(run.page, kPriceColumn, RightAligned(FormatNumber(line.price, kMoney), kPriceFigures));
  PrintAt(run.page, kExtensionColumn, RightAligned(FormatNumber(line.extension, kMoney), kExtensionFigures));
  run.page.EndLine();
  CountLine(run);
}

// Notes a row printed at `place` for the outputs that are no paper, and prices it.
void Finish(TakeoffRun& run, MaterialLine line, double quantity, PagePlace place) {
  PrintedLine& printed = run.lines.emplace_back();
  printed.place = place;
  printed.section = run.section;
  printed.quantity = quantity;
  printed.unit = TrimRight(line.unit);
  printed.label = line.label;
  printed.item = line.item;
  printed.adjusted = line.item != kNoItem && run.Percent(line.item) != 0;
  printed.priceKey = line.priceKey ? *std::move(line.priceKey) : line.description;
  printed.description = std::move(line.description);
  PriceLine(run);
}

void PrintCompany(TakeoffRun& run) {
  Page& page = run.page;
  const CustomerRecord& company = run.company;
  page.PrintLine("  Prepared By: ");
  PrintLineAt(page, 6, company.CustomerName.Padded());
  PrintLineAt(page, 6, company.AddressLine1.Padded());
  run.LineCount = 5;
  const std::string second = company.AddressLine2.Padded();
  if (second > std::string(second.size(), ' ')) {
    PrintLineAt(page, 6, second);
    CountLine(run);
  }
  PrintLineAt(page, 6, company.City.Trimmed() + "   " + company.State.Padded() + "   " + company.Zip.Padded());
  CountLine(run);
  PrintAt(page, 6, "Phone: " + company.Telephone.Padded());
  PrintLineAt(page, 45, "Fax: " + company.Fax.Padded());
  CountLine(run);
}

void PrintCustomer(TakeoffRun& run) {
  Page& page = run.page;
  const CustomerRecord& customer = run.customer;
  PrintLineAt(page, 6, "CUSTOMER NAME:  " + customer.CustomerName.Trimmed());
  CountLine(run);
  std::string address = "ADDRESS:        " + customer.AddressLine1.Trimmed();
  if (!customer.AddressLine2.Trimmed().empty()) address += ", " + customer.AddressLine2.Padded();
  PrintLineAt(page, 6, address);
  CountLine(run);
  PrintLineAt(page, 6, "CITY  ST  ZIP:  " + customer.City.Trimmed() + "  " + customer.State.Trimmed() + "   " + customer.Zip.Trimmed());
  CountLine(run);
}

void PrintCounted(TakeoffRun& run, std::string_view text) {
  run.page.PrintLine(text);
  CountLine(run);
}

}  // namespace

void PrintRule(Page& page) { page.PrintLine(kRule); }

void PrintFootnote(TakeoffRun& run) {
  if (run.AdjustedFlag) {
    run.page.EndLine();
    run.page.PrintLine("* Indicates formula adjusted +/- from standard");
  }
  run.AdjustedFlag = false;
}

void CountLine(TakeoffRun& run) { ++run.LineCount; }

void PrintPageHeader(TakeoffRun& run) {
  const bool first = !run.HeaderDone;
  ++run.PageNumber;
  run.page.Print(run.date);
  PrintLineAt(run.page, 74, "Page:" + std::to_string(run.PageNumber));
  run.LineCount = 0;
  if (first) {
    PrintRule(run.page);
    PrintCompany(run);
  }
  PrintCounted(run, kRule);
  if (first) {
    PrintCounted(run, "  Plan Information: ");
    PrintCounted(run, "     DATE OF PLAN:   " + run.plan.PlanDate.Trimmed());
  }
  PrintCounted(run, "     PLAN NUMBER:    " + run.plan.PlanNumber.Trimmed());
  PrintCounted(run, "     DESCRIPTION:    " + PlanDescription(run.plan.PlanType));
  if (first) {
    PrintCustomer(run);
    run.HeaderDone = true;
  }
  PrintCounted(run, kRule);
  PrintCounted(run, {});
}

void AdvanceLine(TakeoffRun& run) {
  run.page.EndLine();
  run.LineCount += 2;
  if (run.LineCount <= kMostLines) return;
  PrintFootnote(run);
  run.page.NewPage();
  PrintPageHeader(run);
}

double Adjusted(const TakeoffRun& run, double quantity, int item) {
  if (item == kNoItem) return quantity;
  return quantity + Int(run.Percent(item) / 100 * quantity);
}

std::string_view AdjustmentMark(TakeoffRun& run, int item) {
  if (run.Percent(item) == 0) return " ";
  run.AdjustedFlag = true;
  return "*";
}

void BeginSection(TakeoffRun& run, std::string_view heading, std::size_t column) {
  run.section = heading;
  run.PriceKey.clear();
  PrintLineAt(run.page, column, heading);
  AdvanceLine(run);
}

void EndSection(TakeoffRun& run, std::string_view heading) {
  if (!run.PrintPrices() || run.SectionSubTotal <= 0) return;
  PrintRule(run.page);
  PrintAt(run.page, kSubTotalColumn, "Sub Total for ");
  run.page.Print(heading);
  PrintLineAt(run.page, kExtensionColumn, RightAligned(FormatNumber(run.SectionSubTotal, kMoney), kExtensionFigures));
  PrintRule(run.page);
  run.SectionSubTotal = 0;
  run.LineCount += 3;
  AdvanceLine(run);
}

double PrintMaterialLine(TakeoffRun& run, MaterialLine line) {
  const double quantity = Adjusted(run, line.quantity, line.item);
  const PagePlace place = run.page.Place();
  run.page.Print(PrintedNumber(quantity));
  run.page.Print(line.unit);
  run.page.NextZone();
  run.page.Print(line.description);
  PrintLabel(run, line.label, line.item);
  if (!line.secondLabel.empty()) PrintLineAt(run.page, kLabelColumn, line.secondLabel);
  Finish(run, std::move(line), quantity, place);
  return quantity;
}

double Emit(TakeoffRun& run, MaterialLine line) {
  const double quantity = PrintMaterialLine(run, std::move(line));
  AdvanceLine(run);
  return quantity;
}

void EmitNails(TakeoffRun& run, const NailLine& line) {
  const double pounds = Adjusted(run, line.pounds, line.item);
  const PagePlace place = run.page.Place();
  run.page.Print(PrintedNumber(pounds));
  run.page.Print("lbs.");
  run.page.NextZone();
  // The count follows the pounds before the waste percentage, and takes the same percentage by itself.
  run.page.Print(PrintedNumber(RoundEven(Adjusted(run, line.pounds * line.countPerPound, line.item))));
  run.page.Print("AG Count");
  PrintAt(run.page, kNailDescriptionColumn, line.description);
  PrintLabel(run, line.label, line.item);
  Finish(run, {.unit = "lbs.", .description = std::string(line.description), .label = line.label, .item = line.item}, pounds, place);
  AdvanceLine(run);
}

void PrintTextLine(TakeoffRun& run, std::string_view text, MaterialLine line) {
  const PagePlace place = run.page.Place();
  run.page.Print(text);
  run.page.NextZone();
  run.page.Print(line.description);
  PrintLabel(run, line.label, line.item);
  const double quantity = line.quantity;
  Finish(run, std::move(line), quantity, place);
}

void PriceAgain(TakeoffRun& run, std::string key) {
  PrintedLine again = run.lines.back();
  again.priceKey = std::move(key);
  again.stock = nullptr;
  run.lines.push_back(std::move(again));
  PriceLine(run);
  // A key that is not in the list leaves no trace: the row stands once.
  if (run.lines.back().stock == nullptr) run.lines.pop_back();
}

}  // namespace norvale
