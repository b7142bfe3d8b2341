#include "prices/price_csv.h"

#include <algorithm>
#include <map>
#include <string>
#include <unordered_map>

#include "base/numbers.h"
#include "base/text.h"

namespace norvale {

namespace {

constexpr std::size_t kRowsBetweenReports = 1000;
constexpr std::size_t kRowsBeforeHeading = 20;

// ---- cells ----

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

constexpr std::array<std::string_view, 4> kBlanks = {" ", "\t", "\n", "\xC2\xA0"};  // the last one is a no-break space
constexpr std::array<std::string_view, 3> kCurrencies = {"$", "\xE2\x82\xAC", "\xC2\xA3"};

template <std::size_t N>
std::string_view Stripped(std::string_view text, const std::array<std::string_view, N>& ends) {
  for (bool again = true; again;) {
    again = false;
    for (const std::string_view end : ends) {
      if (text.starts_with(end)) text.remove_prefix(end.size()), again = true;
      if (text.ends_with(end)) text.remove_suffix(end.size()), again = true;
    }
  }
  return text;
}

// The text of a cell, blanks at its ends and the guard aside; empty where the row is too short.
std::string_view TextIn(const PriceCsv& csv, const CsvRow& row, PriceColumn column) {
  const auto cell = csv.cellOf[static_cast<std::size_t>(column)];
  if (!cell || *cell >= row.cells.size()) return {};
  return WithoutGuard(Stripped(std::string_view(row.cells[*cell]), kBlanks));
}

template <typename Use>
void ForEachRow(const PriceCsv& csv, const Progress& progress, Use use) {
  for (std::size_t i = 0; i < csv.rows.size(); ++i) {
    if (progress && i % kRowsBetweenReports == 0) progress(static_cast<double>(i) / static_cast<double>(csv.rows.size()));
    use(csv.rows[i]);
  }
}

// ---- numbers ----

// The number with its digits in groups of three, or in none, as digits and a point; nothing where it is written otherwise.
std::optional<std::string> PlainDigits(std::string_view text, char group, char decimal) {
  const std::size_t point = text.find(decimal);
  const std::string_view whole = text.substr(0, point);
  const std::string_view decimals = point == std::string_view::npos ? std::string_view{} : text.substr(point + 1);
  std::string plain;
  std::size_t run = 0;
  bool grouped = false;
  for (const char c : whole) {
    if (IsDigit(c)) {
      plain.push_back(c);
      ++run;
    } else if (c == group && run > 0 && (grouped ? run == 3 : run <= 3)) {
      grouped = true;
      run = 0;
    } else {
      return std::nullopt;
    }
  }
  if (grouped && run != 3) return std::nullopt;
  if (!std::all_of(decimals.begin(), decimals.end(), IsDigit) || (plain.empty() && decimals.empty())) return std::nullopt;
  return plain.append(1, '.').append(decimals);
}

// A price without the signs of currency around it.
std::string_view Amount(std::string_view cell) {
  if (cell.starts_with('\'')) cell.remove_prefix(1);  // how a spreadsheet marks a number as text
  return Stripped(Stripped(Stripped(cell, kBlanks), kCurrencies), kBlanks);
}

struct Amounts {
  std::optional<std::string> withPoint;
  std::optional<std::string> withComma;
};

Amounts AmountsOf(std::string_view amount) { return {PlainDigits(amount, ',', '.'), PlainDigits(amount, '.', ',')}; }

// The decimal sign of those prices that can only be read in one way.
DecimalSign DecimalsOf(const PriceCsv& csv) {
  bool point = false;
  bool comma = false;
  for (const CsvRow& row : csv.rows) {
    for (std::size_t level = 0; level < kPriceLevels; ++level) {
      const Amounts read = AmountsOf(Amount(TextIn(csv, row, ColumnOfLevel(level))));
      point = point || (read.withPoint && !read.withComma);
      comma = comma || (read.withComma && !read.withPoint);
    }
  }
  if (point == comma) return DecimalSign::Unknown;
  return point ? DecimalSign::Point : DecimalSign::Comma;
}

struct Price {
  std::string digits;  // "1234.5"; of no meaning with a reason
  std::string reason;  // why it cannot be read
};

Price ReadPrice(std::string_view cell, DecimalSign decimals) {
  const std::string_view amount = Amount(cell);
  const Amounts read = AmountsOf(amount);
  if (amount.starts_with('-') || amount.ends_with('-') || (amount.starts_with('(') && amount.ends_with(')')))
    return {{}, "a price below zero"};
  if (decimals == DecimalSign::Unknown && read.withPoint && read.withComma && Val(*read.withPoint) != Val(*read.withComma))
    return {{}, "this may be " + Digits(Val(*read.withPoint)) + " or " + Digits(Val(*read.withComma))};
  const auto& digits = decimals == DecimalSign::Point   ? read.withPoint
                       : decimals == DecimalSign::Comma ? read.withComma
                       : read.withPoint                 ? read.withPoint
                                                        : read.withComma;
  if (!digits) return {{}, "this is no price"};
  return {*digits, {}};
}

// ---- the heading ----

// Small letters and digits; "#" is a number.
std::string HeadingKey(std::string_view caption) {
  std::string key;
  for (const char c : caption) {
    if (c >= 'A' && c <= 'Z')
      key.push_back(static_cast<char>(c - 'A' + 'a'));
    else if (IsDigit(c) || (c >= 'a' && c <= 'z'))
      key.push_back(c);
    else if (c == '#')
      key += "number";
  }
  return key;
}

std::optional<PriceColumn> ColumnNamed(std::string_view caption) {
  static const std::map<std::string, PriceColumn, std::less<>> columns = [] {
    std::map<std::string, PriceColumn, std::less<>> made;
    for (std::size_t i = 0; i < kPriceColumns; ++i)
      made.emplace(HeadingKey(CaptionOf(static_cast<PriceColumn>(i))), static_cast<PriceColumn>(i));
    for (const char* const name : {"key", "item", "itemdescription", "stockdescription", "material", "materialitem"})
      made.emplace(name, PriceColumn::Description);
    for (const char* const name : {"code", "itemcode", "itemno", "itemnumber", "partno", "partnumber", "productcode", "productno",
                                   "productnumber", "skuno", "skunumber", "skuitemnumberproductcode"})
      made.emplace(name, PriceColumn::Sku);
    for (std::size_t level = 0; level < kPriceLevels; ++level)
      for (const char* const name : {"level", "price", "pricelevel", "l"})
        made.emplace(name + std::to_string(level + 1), ColumnOfLevel(level));
    made.emplace("price", PriceColumn::Level1);
    for (const char* const name : {"optionaltext", "optionaldescriptiontoprintoutonmaterialestimate"})
      made.emplace(name, PriceColumn::OptionalText);
    return made;
  }();
  const auto found = columns.find(HeadingKey(caption));
  return found == columns.end() ? std::nullopt : std::optional(found->second);
}

// Understands a row as the heading. False where it names neither item nor price.
bool TakeHeading(PriceCsv& csv, const CsvRow& heading) {
  csv = {};
  csv.cells = heading.cells.size();
  for (std::size_t i = 0; i < csv.cells; ++i) {
    const std::string caption(Stripped(std::string_view(heading.cells[i]), kBlanks));
    const auto column = ColumnNamed(caption);
    if (!column) {
      if (!caption.empty()) csv.unused.push_back(caption);
      continue;
    }
    auto& cell = csv.cellOf[static_cast<std::size_t>(*column)];
    if (cell)
      throw CsvError("two columns, \"" + heading.cells[*cell] + "\" and \"" + caption + "\", would both be " +
                     std::string(CaptionOf(*column)));
    cell = i;
  }
  bool hasPrice = false;
  for (std::size_t level = 0; level < kPriceLevels; ++level) hasPrice = hasPrice || csv.Has(ColumnOfLevel(level));
  return hasPrice && (csv.Has(PriceColumn::Sku) || csv.Has(PriceColumn::Description));
}

// ---- names ----

std::string NameOf(const PriceItem& item, PriceMatch match) {
  return std::string(Trim(match == PriceMatch::Sku ? item.PriceItemSku : item.PriceItemKey));
}

PriceColumn ColumnOf(PriceMatch match) { return match == PriceMatch::Sku ? PriceColumn::Sku : PriceColumn::Description; }

// What is left of a name that a spreadsheet or a hand has rewritten: no blanks, no leading zeros, capitals.
std::string Loosely(std::string_view name) {
  std::string loose = UpperCase(name);
  loose.erase(std::remove(loose.begin(), loose.end(), ' '), loose.end());
  return loose.erase(0, std::min(loose.find_first_not_of('0'), loose.size()));
}

using ItemsByName = std::unordered_map<std::string, std::vector<std::size_t>>;

ItemsByName ItemsNamed(const std::vector<PriceItem>& items, PriceMatch match) {
  ItemsByName named;
  for (std::size_t i = 0; i < items.size(); ++i)
    if (std::string name = NameOf(items[i], match); !name.empty()) named[std::move(name)].push_back(i);
  return named;
}

// ---- the preview ----

class Import {
 public:
  Import(const PriceCsv& csv, const std::vector<PriceItem>& items, const ImportOptions& options)
      : csv_(csv), items_(items), options_(options), named_(ItemsNamed(items, options.match)) {}

  PriceUpdate Preview(const Progress& progress) {
    std::map<std::string, std::vector<const CsvRow*>> rowsOf;  // of items in the list, so there are not many
    ForEachRow(csv_, progress, [&](const CsvRow& row) {
      if (const auto name = NameIn(row)) rowsOf[*name].push_back(&row);
    });
    for (const auto& [name, rows] : rowsOf)
      if (const CsvRow* const row = OnlyRow(rows)) TakeRow(*row, named_.at(name));
    std::stable_sort(update_.changes.begin(), update_.changes.end(),
                     [](const PriceChange& a, const PriceChange& b) { return std::pair(a.item, a.column) < std::pair(b.item, b.column); });
    std::stable_sort(update_.notTaken.begin(), update_.notTaken.end(),
                     [](const NotTaken& a, const NotTaken& b) { return a.line < b.line; });
    return std::move(update_);
  }

 private:
  void Refuse(NotTakenKind kind, const CsvRow& row, std::string_view cell, std::string reason) {
    update_.notTaken.push_back(
        {kind, row.line, std::string(TextIn(csv_, row, ColumnOf(options_.match))), std::string(cell), std::move(reason)});
  }

  // The name of an item of the list; nothing for a row that is refused.
  std::optional<std::string> NameIn(const CsvRow& row) {
    const auto hasText = [](const std::string& cell) { return !Stripped(std::string_view(cell), kBlanks).empty(); };
    if (row.lastLine > row.line) {
      Refuse(NotTakenKind::Unreadable, row, {},
             "lines " + std::to_string(row.line) + " to " + std::to_string(row.lastLine) +
                 " are one row; a quotation mark is missing, or one too many");
      return std::nullopt;
    }
    if (row.cells.size() > csv_.cells &&
        std::any_of(row.cells.begin() + static_cast<std::ptrdiff_t>(csv_.cells), row.cells.end(), hasText)) {
      Refuse(NotTakenKind::Unreadable, row, row.cells.back(),
             "the row has more cells than the heading; is a comma in a number not quoted?");
      return std::nullopt;
    }
    if (row.isUnclear) {
      Refuse(NotTakenKind::Unreadable, row, {}, "a quotation mark in the row makes it unclear where its cells end");
      return std::nullopt;
    }
    const std::string_view shown = TextIn(csv_, row, ColumnOf(options_.match));
    if (shown.empty()) {
      Refuse(NotTakenKind::UnknownItem, row, {}, options_.match == PriceMatch::Sku ? "the row has no SKU" : "the row has no description");
      return std::nullopt;
    }
    const auto name = FromUtf8(shown);
    if (name && named_.contains(*name)) return name;
    Refuse(NotTakenKind::UnknownItem, row, {}, name ? UnknownReason(*name) : "it holds a character that the price file cannot hold");
    return std::nullopt;
  }

  std::string UnknownReason(const std::string& name) {
    if (loosely_.empty())
      for (const auto& [known, items] : named_) loosely_.emplace(Loosely(known), known);
    const std::string what = options_.match == PriceMatch::Sku ? "no item has this SKU" : "no item has this description";
    const std::size_t exponent = name.find("E+");
    if (exponent != std::string::npos && exponent > 0 && name.find_first_not_of("0123456789.E+") == std::string::npos)
      return what + "; it looks like a code that a spreadsheet has turned into a number";
    const auto near = loosely_.find(Loosely(name));
    return near == loosely_.end() ? what : what + "; there is \"" + ToUtf8(near->second) + "\"";
  }

  // Whether the rows may change the column.
  [[nodiscard]] bool Takes(PriceColumn column) const {
    if (LevelOf(column)) return csv_.Has(column);
    return options_.texts && column != ColumnOf(options_.match) && column != PriceColumn::Description;
  }

  // The one row of those with the same name that counts; none where they disagree.
  const CsvRow* OnlyRow(const std::vector<const CsvRow*>& rows) {
    if (rows.size() == 1) return rows.front();
    const auto saysTheSame = [&](const CsvRow* row) {
      for (std::size_t i = 0; i < kPriceColumns; ++i) {
        const auto column = static_cast<PriceColumn>(i);
        if (Takes(column) && TextIn(csv_, *row, column) != TextIn(csv_, *rows.front(), column)) return false;
      }
      return true;
    };
    if (std::all_of(rows.begin(), rows.end(), saysTheSame)) {
      for (std::size_t i = 1; i < rows.size(); ++i)
        Refuse(NotTakenKind::Duplicate, *rows[i], {}, "the same as on line " + std::to_string(rows.front()->line) + ", which is taken");
      return rows.front();
    }
    std::string lines;
    for (const CsvRow* const row : rows) lines += (lines.empty() ? "" : row == rows.back() ? " and " : ", ") + std::to_string(row->line);
    for (const CsvRow* const row : rows)
      Refuse(NotTakenKind::Duplicate, *row, {}, "lines " + lines + " say different things of it; none is taken");
    return nullptr;
  }

  // Two items of one SKU with different prices are sold by different units.
  bool CostTheSame(const std::vector<std::size_t>& items) const {
    for (std::size_t level = 0; level < kPriceLevels; ++level)
      for (const std::size_t item : items)
        if (csv_.Has(ColumnOfLevel(level)) && Val(items_[item].PriceItemPrice[level]) != Val(items_[items.front()].PriceItemPrice[level]))
          return false;
    return true;
  }

  void TakeRow(const CsvRow& row, const std::vector<std::size_t>& items) {
    if (!CostTheSame(items)) {
      Refuse(NotTakenKind::Unclear, row, {},
             std::to_string(items.size()) + " items go by this name and their prices differ; " +
                 (options_.match == PriceMatch::Sku ? "match by description, or change them by hand" : "change them by hand"));
      return;
    }
    update_.itemsNamed += items.size();
    for (std::size_t level = 0; level < kPriceLevels; ++level)
      if (csv_.Has(ColumnOfLevel(level))) TakePrice(row, items, level);
    if (options_.match == PriceMatch::Description) TakeText(row, items, PriceColumn::Sku);
    TakeText(row, items, PriceColumn::OptionalText);
  }

  void TakePrice(const CsvRow& row, const std::vector<std::size_t>& items, std::size_t level) {
    const std::string_view cell = TextIn(csv_, row, ColumnOfLevel(level));
    Price read{"0", {}};
    // A lone "-" is how spreadsheets show 0 as an amount.
    if (!cell.empty() && Amount(cell) != "-") read = ReadPrice(cell, csv_.decimals);
    if (!read.reason.empty()) {
      if (cell != ToUtf8(items_[items.front()].PriceItemPrice[level])) return Refuse(NotTakenKind::Unreadable, row, cell, read.reason);
      update_.sameAsBefore += items.size();
      return;
    }
    const double price = Val(read.digits);
    const std::string after = FormatPrice(read.digits);
    if (!FitsPriceFile(after)) return Refuse(NotTakenKind::DoesNotFit, row, cell, PriceTooLong(after));
    for (const std::size_t item : items) {
      const std::string& before = items_[item].PriceItemPrice[level];
      if (Val(before) == price || Val(before) == Val(after)) {
        ++update_.sameAsBefore;
      } else if (Val(after) == 0.0 && !options_.zeroPrices) {
        ++update_.blankOrZero;
      } else {
        const std::string note = Val(after) == price ? std::string() : "rounded from " + Digits(price);
        update_.changes.push_back({item, ColumnOfLevel(level), before, after, row.line, note});
      }
    }
  }

  void TakeText(const CsvRow& row, const std::vector<std::size_t>& items, PriceColumn column) {
    const std::string_view cell = TextIn(csv_, row, column);
    if (cell.empty()) return;
    const auto text = FromUtf8(cell);
    const auto isNew = [&](std::size_t item) { return !text || TextOf(items_[item], column) != *text; };
    const auto differing = static_cast<std::size_t>(std::count_if(items.begin(), items.end(), isNew));
    if (differing == 0) return;
    if (!options_.texts) {
      update_.textsLeft += differing;
    } else if (!text) {
      Refuse(NotTakenKind::DoesNotFit, row, cell, "it holds a character that the price file cannot hold");
    } else if (text->size() > WidthOf(column)) {
      Refuse(NotTakenKind::DoesNotFit, row, cell,
             std::string(CaptionOf(column)) + " takes " + std::to_string(WidthOf(column)) + " characters, this has " +
                 std::to_string(text->size()));
    } else if (const std::string& old = TextOf(items_[items.front()], column);
               column == PriceColumn::Sku && old.size() > text->size() && Loosely(old) == Loosely(*text)) {
      Refuse(NotTakenKind::Unclear, row, cell, "it is \"" + ToUtf8(old) + "\" without its zeros or blanks");
    } else {
      for (const std::size_t item : items)
        if (isNew(item)) update_.changes.push_back({item, column, TextOf(items_[item], column), *text, row.line, {}});
    }
  }

  const PriceCsv& csv_;
  const std::vector<PriceItem>& items_;
  ImportOptions options_;
  ItemsByName named_;
  std::unordered_map<std::string, std::string> loosely_;
  PriceUpdate update_;
};

}  // namespace

std::string ExportPrices(const std::vector<PriceItem>& items) {
  std::string csv = "\xEF\xBB\xBF";
  const auto append = [&csv](std::size_t column, const std::string& text) {
    csv.append(CsvCell(text)).append(column + 1 == kPriceColumns ? "\r\n" : ",");
  };
  for (std::size_t i = 0; i < kPriceColumns; ++i) append(i, std::string(CaptionOf(static_cast<PriceColumn>(i))));
  for (const PriceItem& item : items)
    for (std::size_t i = 0; i < kPriceColumns; ++i) append(i, WithGuard(ToUtf8(TextOf(item, static_cast<PriceColumn>(i)))));
  return csv;
}

PriceCsv ReadPriceCsv(std::string_view bytes, const Progress& progress) {
  CsvTable table = ReadCsv(DecodeText(bytes), progress);
  if (table.rows.empty()) throw CsvError("the file is empty");
  PriceCsv csv;
  std::size_t heading = 0;
  const std::size_t last = std::min(table.rows.size(), kRowsBeforeHeading + 1);
  while (heading < last && !TakeHeading(csv, table.rows[heading])) ++heading;
  if (heading == last)
    throw CsvError(
        "no row names the columns: SKU or Description, and one of Price level 1 to Price level 5. An exported price list shows how");
  table.rows.erase(table.rows.begin(), table.rows.begin() + static_cast<std::ptrdiff_t>(heading) + 1);
  csv.rows = std::move(table.rows);
  csv.decimals = table.separator == ',' ? DecimalSign::Point : DecimalsOf(csv);
  return csv;
}

PriceMatch BestMatch(const PriceCsv& csv, const std::vector<PriceItem>& items, const Progress& progress) {
  if (!csv.Has(PriceColumn::Description)) return PriceMatch::Sku;
  if (!csv.Has(PriceColumn::Sku)) return PriceMatch::Description;
  const ItemsByName skus = ItemsNamed(items, PriceMatch::Sku);
  const ItemsByName descriptions = ItemsNamed(items, PriceMatch::Description);
  std::size_t bySku = 0;
  std::size_t byDescription = 0;
  ForEachRow(csv, progress, [&](const CsvRow& row) {
    const auto sku = FromUtf8(TextIn(csv, row, PriceColumn::Sku));
    const auto description = FromUtf8(TextIn(csv, row, PriceColumn::Description));
    bySku += sku && skus.contains(*sku) ? 1 : 0;
    byDescription += description && descriptions.contains(*description) ? 1 : 0;
  });
  return bySku > byDescription ? PriceMatch::Sku : PriceMatch::Description;
}

PriceUpdate PreviewImport(const PriceCsv& csv, const std::vector<PriceItem>& items, const ImportOptions& options,
                          const Progress& progress) {
  if (!csv.Has(ColumnOf(options.match)))
    throw CsvError("the file has no column " + std::string(CaptionOf(ColumnOf(options.match))) + " to match by");
  return Import(csv, items, options).Preview(progress);
}

}  // namespace norvale
