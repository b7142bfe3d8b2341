// The price list while the dealer works on it: the file's lines as they were read, the items as they are now, and the record
// that the form for one item shows.
#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/disk.h"
#include "prices/price_list.h"

namespace norvale {

/// The columns of a price table, in the order in which it shows them.
enum class PriceColumn : std::size_t { Description, Sku, Level1, Level2, Level3, Level4, Level5, OptionalText };
inline constexpr std::size_t kPriceColumns = 8;

/// The column of a price level, from 0 to 4.
PriceColumn ColumnOfLevel(std::size_t level);

/// The price level of a column, from 0; nothing for a column of texts.
std::optional<std::size_t> LevelOf(PriceColumn column);

/// How the column is called in tables and in the heading of an exported file.
std::string_view CaptionOf(PriceColumn column);

/// The most characters that the column holds.
std::size_t WidthOf(PriceColumn column);

const std::string& TextOf(const PriceItem& item, PriceColumn column);
std::string& TextOf(PriceItem& item, PriceColumn column);

/// The number that a text begins with, as a price is shown: at least one digit, the point, two decimals.
std::string FormatPrice(std::string_view text);

/// Whether a shown price has a place in the file: 7 digits before the point.
bool FitsPriceFile(std::string_view price);

/// What the operator is told about a price that has none.
std::string PriceTooLong(std::string_view price);

/// Whether a price box takes the key: digits, the point, backspace and delete, and no eighth digit before the point.
/// `before` and `behind` are the text of the box on both sides of the cursor, a selection left out.
bool TakesPriceKey(std::string_view before, char key, std::string_view behind);

/// Whether every word of `words` stands somewhere in `text`, capitals or not; no words stand in every text.
bool HoldsWords(std::string_view text, std::string_view words);

/// A line of the price file that does not have its 130 characters.
struct OddLine {
  std::size_t width = 0;
  std::string printedText;  // what an estimate prints as its optional description
};

/// The items of a price file. What is not touched keeps its bytes.
class PriceEditor {
 public:
  /// `bytes` of a price file. Throws FileError for `name` where it has more than 1400 lines.
  PriceEditor(std::string_view bytes, const std::string& name);

  [[nodiscard]] const std::vector<PriceItem>& Items() const { return items_; }

  /// Puts `text` into a column of an item; the description is fixed.
  void SetText(std::size_t item, PriceColumn column, std::string text);

  /// Puts an item's texts in as they are; its line is then written in full, whether or not they are new.
  void Store(std::size_t item, PriceItem texts);

  /// The line of an item, where it is not 130 characters long and not going to be written in full. A line of less than 106
  /// has no optional description here, though an estimate prints its last 25 characters as one.
  [[nodiscard]] std::optional<OddLine> OddLineOf(std::size_t item) const;

  /// The bytes of the file as it stands: items that are stored or changed in lines of 130 characters, all others as they were read.
  [[nodiscard]] std::string FileBytes() const;

 private:
  std::vector<PriceItem> items_;
  std::vector<PriceItem> asRead_;
  std::vector<std::string> lines_;  // with their ends
  std::vector<bool> isStored_;
};

/// Reads the price file of a working folder. Throws FileError where it is missing, unreadable or too long.
PriceEditor OpenPrices(const std::filesystem::path& folder);

/// Writes the file beside the old one and renames it. Throws FileError and leaves the old one.
void SavePrices(Disk& disk, const std::filesystem::path& folder, const PriceEditor& prices);

/// The boxes of the form for one item. Texts are Windows-1252, as in the file.
struct PriceBoxes {
  std::string sku;
  std::array<std::string, kPriceLevels> prices;
  std::string optionalText;
};

/// The form for one item.
struct PriceForm {
  PriceEditor editor;
  std::size_t CurrentPriceItem = 0;  // from 0; of no meaning in an empty list
  bool PriceFindMode = false;
  PriceBoxes boxes;

  [[nodiscard]] bool IsEmpty() const { return editor.Items().empty(); }
};

/// Shows the first item.
PriceForm OpenPriceForm(PriceEditor editor);

/// The item's description with its first "&" doubled, for a label.
std::string DescriptionLabel(const PriceForm& form);

/// Puts the current item into the boxes, prices with two decimals.
void ShowCurrentItem(PriceForm& form);

/// The price box whose text has no place in the file; nothing where all have.
std::optional<std::size_t> BoxTooLong(const PriceForm& form);

enum class Blanks { Trim, Keep };  // at the ends of SKU and optional description

/// The current item as the boxes have it.
PriceItem ItemOnScreen(const PriceForm& form, Blanks blanks);

/// Stores the boxes in the current item. Call `BoxTooLong` first.
void StoreScreen(PriceForm& form, Blanks blanks);

/// Store the boxes and show the next or previous item; past the last comes the first, before the first the last.
void ShowNext(PriceForm& form);
void ShowPrevious(PriceForm& form);

/// Stores the boxes and waits for a SKU.
void BeginFind(PriceForm& form);

/// Ends the search and shows the first item whose SKU holds `sku`, case counting. Where there is none, or `sku` is blank, the
/// item from before is shown again. Returns whether there is one.
bool FindSku(PriceForm& form, std::string_view sku);

/// Ends the search and shows the next item, after the current one and round the end, whose description holds all words.
/// Returns whether there is one; else the item from before is shown again.
bool FindDescription(PriceForm& form, std::string_view words);

/// The list as it would be printed now, with what stands in the boxes.
PriceList ListOnScreen(const PriceForm& form);

}  // namespace norvale
