#include "takeoff/print_estimate.h"

#include "base/numbers.h"
#include "takeoff/sections.h"

namespace norvale {

namespace {

void PrintGrandTotal(TakeoffRun& run) {
  constexpr std::size_t kFigures = 11;
  AdvanceLine(run);
  run.page.Tab(20);
  run.page.Print("GRAND TOTAL ----------------");
  run.page.Tab(68);
  run.page.PrintLine(RightAligned(FormatNumber(run.GrandTotal, kMoney), kFigures));
  PrintRule(run.page);
  run.LineCount += 2;
  AdvanceLine(run);
}

}  // namespace

TakeoffData LoadTakeoffData(const std::filesystem::path& folder, int sectionMask) {
  TakeoffData data;
  data.waste = LoadWasteFactors(folder);
  data.lists = LoadMaterialRows(folder);
  if ((sectionMask & kWithPrices) != 0) data.prices = LoadPriceList(folder);
  return data;
}

EstimateTotals PrintEstimate(const EstimatePrint& print, const TakeoffData& data, Page& page) {
  TakeoffRun run(print.plan, data.waste, data.lists, (print.sectionMask & kWithPrices) != 0 ? &data.prices : nullptr, print.sectionMask,
                 page);
  run.company = print.company;
  run.customer = print.plan.CustomerNumber == kCompanyNumber ? print.company : print.customer;
  run.date = print.date;
  run.lines.reserve(128);

  PrintPageHeader(run);
  PrintSpecifications(run);
  if ((print.sectionMask & kAllSections) != 0) {
    page.Tab(14);
    page.PrintLine(" ITEMIZED LIST OF LUMBER & BUILDING SUPPLY MATERIALS");
    AdvanceLine(run);
  }
  for (const Section& section : kSections) PrintSection(run, section);
  if (run.GrandTotal > 0 && run.PrintPrices()) PrintGrandTotal(run);
  PrintFootnote(run);
  page.NewPage();
  return {.lines = std::move(run.lines), .GrandTotal = run.GrandTotal};
}

}  // namespace norvale
