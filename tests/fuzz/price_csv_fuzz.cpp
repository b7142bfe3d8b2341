// A price table from arbitrary bytes: whatever it says, no text is cut and no other line touched, and undo brings every byte back.
#include <stdexcept>

#include "fuzz/fuzz_target.h"
#include "prices/price_csv.h"

namespace norvale {
namespace {

const std::vector<PriceItem>& Items() {
  static const std::vector<PriceItem> items = {{"2X4- 8 STUD", "00123", {"3.50", "3.3", "", "abc"}, ""},
                                               {"4X8- 7/16 OSB", "OSB", {"17.19", "16.00"}, "sheet"},
                                               {"4X8-7/16 OSB", "OSB", {"17.19", "16.00"}, ""},
                                               {"=SUM(A1)", "+1-2", {"1234.50", "-1.00"}, "@home"},
                                               {"NAIL 3\" \"RING\", 5 lb; box", "1E5", {"12.50"}, "caf\xE9"}};
  return items;
}

void Require(bool holds, const char* what) {
  if (!holds) throw std::logic_error(what);
}

void Import(const PriceCsv& csv, const ImportOptions& options) {
  const std::string file = EncodePriceList(Items());
  PriceEditor editor(file, "");
  const PriceUpdate update = PreviewImport(csv, editor.Items(), options);
  Require(!PreviewText(update, editor.Items()).empty(), "there is always something to tell");
  for (const PriceChange& change : update.changes)
    Require(change.after.size() <= WidthOf(change.column) && change.before != change.after, "a change fits and changes something");
  ApplyChanges(editor, update.changes);
  const PriceEditor again(editor.FileBytes(), "");
  Require(again.Items() == editor.Items(), "what is stored is what was shown");
  Require(UndoChanges(editor, update.changes) == 0 && editor.FileBytes() == file, "undo brings every byte back");
}

}  // namespace
}  // namespace norvale

std::vector<std::string> FuzzSeeds() {
  using namespace norvale;
  return {ExportPrices(Items()), "SKU;Price;Level 2\r\n00123;3,50;\"1.234,5 \xE2\x82\xAC\"\r\nOSB;1.234;\r\n",
          "sep=\t\nDescription\tSKU\tPrice 1\tOptional text\n4X8-7/16 OSB\tNEW\t$1,234.505\tby \"sheet\"\n",
          std::string("\xFF\xFES\0K\0U\0,\0P\0r\0i\0c\0e\0\n\0O\0S\0B\0,\0\x31\0\x38\0", 34)};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace norvale;
  try {
    const PriceCsv csv = ReadPriceCsv({reinterpret_cast<const char*>(data), size});
    for (const PriceMatch match : {PriceMatch::Sku, PriceMatch::Description})
      if (csv.Has(match == PriceMatch::Sku ? PriceColumn::Sku : PriceColumn::Description))
        for (const bool all : {false, true}) Import(csv, {.match = match, .zeroPrices = all, .texts = all});
  } catch (const CsvError&) {  // told to the operator
  }
  return 0;
}
