#include "printing/table.h"

#include <nlohmann/json.hpp>

#include "base/csv.h"
#include "base/numbers.h"
#include "base/text.h"

namespace norvale {

namespace {

std::string Quoted(std::string_view text) { return CsvCell(ToUtf8(text)); }

}  // namespace

TableCell TableCell::Quantity(double number) {
  std::string text = FormatNumber(number, {.wholeDigits = 1, .decimals = 6});
  text.resize(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return {Kind::Number, std::move(text)};
}

TableCell TableCell::Money(double amount) { return {Kind::Number, FormatNumber(amount, {.wholeDigits = 1, .decimals = 2})}; }

std::string Table::Csv() const {
  std::string csv;
  const auto end = [&csv] { csv.back() = '\r', csv.push_back('\n'); };
  for (const TableColumn& column : columns) csv.append(Quoted(column.heading)).push_back(',');
  end();
  for (const std::vector<TableCell>& row : rows) {
    for (const TableCell& cell : row) csv.append(cell.kind_ == TableCell::Kind::Text ? Quoted(cell.text_) : cell.text_).push_back(',');
    end();
  }
  return csv;
}

std::string Table::Json() const {
  using Json = nlohmann::ordered_json;
  std::string text = "[";
  for (const std::vector<TableCell>& row : rows) {
    Json object;
    for (std::size_t i = 0; i < row.size(); ++i) {
      const TableCell& cell = row[i];
      Json& member = object[std::string(columns[i].name)];
      if (cell.kind_ == TableCell::Kind::Text)
        member = ToUtf8(cell.text_);
      else if (cell.kind_ != TableCell::Kind::Nothing)
        member = Json::parse(cell.text_);
    }
    text.append(text.size() > 1 ? ",\n  " : "\n  ").append(object.dump());
  }
  return text.append(rows.empty() ? "]\n" : "\n]\n");
}

}  // namespace norvale
