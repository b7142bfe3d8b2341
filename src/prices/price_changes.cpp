#include "prices/price_changes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

#include "base/numbers.h"
#include "base/text.h"

namespace norvale {

namespace {

constexpr double kMostPercent = 1000;

std::string Counted(std::size_t count, std::string_view one, std::string_view many) {
  return std::to_string(count) + " " + std::string(count == 1 ? one : many);
}

std::size_t ItemsOf(const std::vector<PriceChange>& changes) {
  std::vector<std::size_t> items;
  for (const PriceChange& change : changes) items.push_back(change.item);
  std::sort(items.begin(), items.end());
  return static_cast<std::size_t>(std::unique(items.begin(), items.end()) - items.begin());
}

std::string OrBlank(std::string_view text) { return text.empty() ? "(blank)" : ToUtf8(text); }

}  // namespace

std::optional<double> PriceChange::Percent() const {
  const double old = Val(before);
  if (!LevelOf(column) || old == 0.0) return std::nullopt;
  return (Val(after) - old) / old * 100;
}

std::string_view CaptionOf(NotTakenKind kind) {
  static constexpr std::array<std::string_view, 5> kCaptions = {"Unknown item", "Duplicate", "Unreadable", "Does not fit", "Unclear"};
  return kCaptions[static_cast<std::size_t>(kind)];
}

std::string SummaryOf(const PriceUpdate& update) {
  const auto prices = static_cast<std::size_t>(std::count_if(update.changes.begin(), update.changes.end(),
                                                             [](const PriceChange& change) { return LevelOf(change.column).has_value(); }));
  const std::size_t texts = update.changes.size() - prices;
  std::string summary = update.changes.empty() ? "Nothing changes" : "";
  if (prices > 0) summary += Counted(prices, "price", "prices");
  if (texts > 0) summary += (prices > 0 ? " and " : "") + Counted(texts, "text", "texts");
  if (!update.changes.empty())
    summary += " of " + Counted(ItemsOf(update.changes), "item", "items") + (update.changes.size() == 1 ? " changes" : " change");
  if (update.sameAsBefore > 0) summary += "; " + std::to_string(update.sameAsBefore) + " stay as they are";
  if (update.blankOrZero > 0) summary += "; " + std::to_string(update.blankOrZero) + " blank or zero, left alone";
  if (update.textsLeft > 0) summary += "; " + Counted(update.textsLeft, "other text", "other texts") + " left alone";
  summary += ".";
  if (!update.notTaken.empty()) summary += " " + Counted(update.notTaken.size(), "entry is", "entries are") + " not taken.";
  return summary;
}

std::string PreviewText(const PriceUpdate& update, const std::vector<PriceItem>& items) {
  std::string text;
  for (const PriceChange& change : update.changes) {
    const PriceItem& item = items[change.item];
    text += ToUtf8(item.PriceItemKey);
    if (!item.PriceItemSku.empty()) text += " (" + ToUtf8(item.PriceItemSku) + ")";
    text += ", " + std::string(CaptionOf(change.column)) + ": " + OrBlank(change.before) + " -> " + OrBlank(change.after);
    if (!change.note.empty()) text += ", " + change.note;
    text += "\n";
  }
  for (const NotTaken& entry : update.notTaken) {
    text += std::string(CaptionOf(entry.kind));
    if (entry.line > 0) text += ", line " + std::to_string(entry.line);
    text += ": " + entry.name;
    if (!entry.cell.empty()) text += ", \"" + entry.cell + "\"";
    text += ": " + entry.reason + "\n";
  }
  return text + SummaryOf(update) + "\n";
}

std::optional<double> ReadPercent(std::string_view text) {
  text = Trim(text);
  if (text.ends_with('%')) text = TrimRight(text.substr(0, text.size() - 1));
  std::string_view digits = text;
  if (digits.starts_with('-') || digits.starts_with('+')) digits.remove_prefix(1);
  const bool isNumber = digits.find_first_not_of("0123456789.") == std::string_view::npos &&
                        digits.find_first_of("0123456789") != std::string_view::npos && std::count(digits.begin(), digits.end(), '.') <= 1;
  const double percent = Val(text);
  if (!isNumber || percent <= -100 || percent > kMostPercent) return std::nullopt;
  return percent;
}

PriceUpdate ChangeByPercent(const std::vector<PriceItem>& items, const std::vector<std::size_t>& rows, std::size_t level, double percent) {
  PriceUpdate update;
  update.itemsNamed = rows.size();
  for (const std::size_t row : rows) {
    const PriceItem& item = items[row];
    const std::string& before = item.PriceItemPrice[level];
    const double price = Val(before);
    std::string after = FormatPrice(Digits(price * (100 + percent) / 100));
    if (price == 0.0) {
      ++update.blankOrZero;
    } else if (Val(after) == price) {
      ++update.sameAsBefore;
    } else if (!FitsPriceFile(after)) {
      update.notTaken.push_back({NotTakenKind::DoesNotFit, 0, ToUtf8(item.PriceItemKey), after, PriceTooLong(after)});
    } else {
      update.changes.push_back({row, ColumnOfLevel(level), before, std::move(after), 0, {}});
    }
  }
  std::sort(update.changes.begin(), update.changes.end(), [](const PriceChange& a, const PriceChange& b) { return a.item < b.item; });
  return update;
}

void ApplyChanges(PriceEditor& editor, const std::vector<PriceChange>& changes) {
  for (const PriceChange& change : changes) editor.SetText(change.item, change.column, change.after);
}

std::size_t UndoChanges(PriceEditor& editor, const std::vector<PriceChange>& changes) {
  std::size_t kept = 0;
  for (const PriceChange& change : changes) {
    if (TextOf(editor.Items()[change.item], change.column) == change.after)
      editor.SetText(change.item, change.column, change.before);
    else
      ++kept;
  }
  return kept;
}

}  // namespace norvale
