// A list as rows and columns for other programs: comma-separated values or JSON.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace norvale {

/// One cell. Texts are Windows-1252; a number keeps the decimal form that it was given.
class TableCell {
 public:
  TableCell() = default;  // nothing: an empty field, null
  static TableCell Text(std::string_view text) { return {Kind::Text, std::string(text)}; }
  static TableCell Whole(int number) { return {Kind::Number, std::to_string(number)}; }
  static TableCell Flag(bool flag) { return {Kind::Flag, flag ? "true" : "false"}; }

  /// With as many decimals as it has, to the sixth.
  static TableCell Quantity(double number);

  /// Rounded to cents as the paper rounds, so that a 32-bit price reads 12.35 and not 12.3500003814697.
  static TableCell Money(double amount);

 private:
  friend struct Table;
  enum class Kind { Nothing, Text, Number, Flag };
  TableCell(Kind kind, std::string text) : kind_(kind), text_(std::move(text)) {}

  Kind kind_ = Kind::Nothing;
  std::string text_;
};

struct TableColumn {
  std::string_view heading;  // of the CSV column
  std::string_view name;     // of the JSON member
};

struct Table {
  std::vector<TableColumn> columns;
  std::vector<std::vector<TableCell>> rows;  // a cell for each column

  /// RFC 4180: UTF-8, CR LF, with a heading row.
  [[nodiscard]] std::string Csv() const;

  /// An array of objects, one a line, in UTF-8.
  [[nodiscard]] std::string Json() const;
};

}  // namespace norvale
