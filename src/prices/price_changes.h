// Many prices changed at once: what would change, what cannot, and the way back.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "prices/price_editor.h"

namespace norvale {

/// One text of one item, as it is and as it would be. Texts are Windows-1252, as in the price file.
struct PriceChange {
  std::size_t item = 0;  // in the list, from 0
  PriceColumn column{};
  std::string before;
  std::string after;
  std::size_t line = 0;  // of the imported file; 0 where there is none
  std::string note;      // what the dealer should know of this one; UTF-8

  /// By how many percent a price changes; nothing for texts and from a price of 0.
  [[nodiscard]] std::optional<double> Percent() const;
};

enum class NotTakenKind { UnknownItem, Duplicate, Unreadable, DoesNotFit, Unclear };

/// Something that changes nothing, and why. Texts are UTF-8.
struct NotTaken {
  NotTakenKind kind{};
  std::size_t line = 0;  // of the imported file; 0 where there is none
  std::string name;      // the item as the file calls it
  std::string cell;      // what stands there
  std::string reason;
};

/// What is shown before anything is changed.
struct PriceUpdate {
  std::vector<PriceChange> changes;  // in the order of the price list
  std::vector<NotTaken> notTaken;    // in the order of the file
  std::size_t sameAsBefore = 0;      // prices that are given and equal
  std::size_t blankOrZero = 0;       // prices left alone because the new one is blank or zero
  std::size_t textsLeft = 0;         // SKUs and optional descriptions that differ and are left alone
  std::size_t itemsNamed = 0;        // items of the price list that the update knows
};

/// How many prices and texts of how many items change, and what is not taken, in one sentence or two.
std::string SummaryOf(const PriceUpdate& update);

/// How a kind of refusal is called.
std::string_view CaptionOf(NotTakenKind kind);

/// The whole preview as text, UTF-8, lines ended by LF.
std::string PreviewText(const PriceUpdate& update, const std::vector<PriceItem>& items);

/// A percentage as typed: a number with a point, a sign and a "%" or none, above -100 and at most 1000.
std::optional<double> ReadPercent(std::string_view text);

/// Raises (or lowers) the price of a level, from 0, by `percent` for the items at `rows`, rounded to the cent, a half cent up.
/// Prices of 0 stay.
PriceUpdate ChangeByPercent(const std::vector<PriceItem>& items, const std::vector<std::size_t>& rows, std::size_t level, double percent);

void ApplyChanges(PriceEditor& editor, const std::vector<PriceChange>& changes);

/// Takes changes back. A text that has been changed again since keeps what it is. Returns how many do.
std::size_t UndoChanges(PriceEditor& editor, const std::vector<PriceChange>& changes);

/// What has been changed at once since the list was opened, the last one behind.
struct AppliedChanges {
  std::string what;  // "import", for the operator
  std::vector<PriceChange> changes;
};
using PriceHistory = std::vector<AppliedChanges>;

}  // namespace norvale
