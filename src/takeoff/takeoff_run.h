// The state of one print run and the steps that all its sections share: a material line, its price line, the page count
// and the subtotal.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/customer_record.h"
#include "data/estimate_record.h"
#include "prices/material_lists.h"
#include "prices/price_list.h"
#include "prices/waste_factors.h"
#include "takeoff/page.h"

namespace norvale {

/// An item number of no row: no waste factor and no mark.
inline constexpr int kNoItem = -1;

/// One row of a section's rule table.
struct MaterialLine {
  double quantity = 0;  // before the waste percentage
  std::string_view unit = {};
  std::string description = {};
  std::string_view label = {};               // what the line is for
  int item = kNoItem;                        // waste factor; kNoItem: no adjustment, no mark
  std::optional<std::string> priceKey = {};  // unset: the description is the key
  std::string_view secondLabel = {};         // printed once more on a line of its own, which does not count
};

/// A row of nails: pounds are priced, the count of nails is told beside them.
struct NailLine {
  double pounds = 0;  // before the waste percentage
  double countPerPound = 0;
  std::string_view description;
  std::string_view label;
  int item = kNoItem;
};

/// What a material line came to, for the outputs that are no paper. Texts are Windows-1252.
struct PrintedLine {
  std::string_view section;
  double quantity = 0;  // adjusted
  std::string unit;
  std::string description;
  std::string_view label;
  int item = kNoItem;
  bool adjusted = false;  // carries the mark "*"
  std::string priceKey;
  const PriceItem* stock = nullptr;  // where the price list has the key; null in a run without prices
  float price = 0;
  float extension = 0;
  PagePlace place;  // of the line on the paper; rows that are priced under two keys stand at one place
};

/// The state of a run. A section reads the plan, the factors and the lists, and writes through the functions below.
struct TakeoffRun {
  TakeoffRun(const EstimateRecord& estimate, const WasteFactors& factors, const std::vector<MaterialRow>& rows, const PriceList* priceList,
             int mask, Page& paper)
      : plan(estimate), waste(factors), lists(rows), prices(priceList), sectionMask(mask), page(paper) {}

  const EstimateRecord plan;  // a copy of its own: what is edited meanwhile does not reach the paper
  const WasteFactors& waste;
  const std::vector<MaterialRow>& lists;
  const PriceList* prices;  // null: a run without prices
  int sectionMask;  // a sum of the bits of sections.h
  Page& page;

  // Who prints, and for whom; the header needs them.
  CustomerRecord company;
  CustomerRecord customer;
  std::string date;

  int PageNumber = 0;
  bool HeaderDone = false;
  int LineCount = 0;
  bool AdjustedFlag = false;
  double SectionSubTotal = 0;
  double GrandTotal = 0;

  std::string_view section;  // the heading of the section in print
  std::string PriceKey;      // of the row before; some rows fall back on it
  std::vector<PrintedLine> lines;

  [[nodiscard]] bool PrintPrices() const { return prices != nullptr; }
  [[nodiscard]] double Percent(int item) const { return waste.percent.at(static_cast<std::size_t>(item)); }
};

/// Starts a page: the long header on the first one, the plan's number and description alone on the later ones.
void PrintPageHeader(TakeoffRun& run);

/// The footnote, where a line since the last one carries the mark.
void PrintFootnote(TakeoffRun& run);

/// A line of 80 hyphens.
void PrintRule(Page& page);

/// Adds a line to the count of the page.
void CountLine(TakeoffRun& run);

/// Ends a material line: an empty line, two more on the count, and a new page above 55.
void AdvanceLine(TakeoffRun& run);

/// `quantity` with the waste percentage of `item` on it: base + Int(percent / 100 * base).
double Adjusted(const TakeoffRun& run, double quantity, int item);

/// "*" for an item whose percentage is not 0 (and the footnote is owed), otherwise a blank.
std::string_view AdjustmentMark(TakeoffRun& run, int item);

/// Begins a section: its heading at `column`, and a fresh price key.
void BeginSection(TakeoffRun& run, std::string_view heading, std::size_t column);

/// Ends a section: the block "Sub Total for `heading`", where anything was priced.
void EndSection(TakeoffRun& run, std::string_view heading);

/// Prints a row with its price line. Gives back the adjusted quantity.
double PrintMaterialLine(TakeoffRun& run, MaterialLine line);

/// `PrintMaterialLine` and `AdvanceLine`: what nearly every row of a table stands for.
double Emit(TakeoffRun& run, MaterialLine line);

/// A row of nails.
void EmitNails(TakeoffRun& run, const NailLine& line);

/// The parts of a row for those few that are laid out by hand: `text` in the place of quantity and unit, the description
/// at the next print zone, the mark (where `item` has one) and the label at its column, the price line of `quantity`.
/// The key of the row is `line.priceKey`, else its description. `line.quantity` is taken as it is.
void PrintTextLine(TakeoffRun& run, std::string_view text, MaterialLine line);

/// One more attempt at a price for the row before, under another key.
void PriceAgain(TakeoffRun& run, std::string key);

}  // namespace norvale
