#include "printing/estimate_output.h"

#include <nlohmann/json.hpp>

#include "base/numbers.h"
#include "base/text.h"

namespace norvale {

namespace {

constexpr NumberFormat kPlainMoney{.wholeDigits = 1, .decimals = 2};
constexpr NumberFormat kPlainWhole{};

std::string Quoted(std::string_view text) {
  std::string utf8 = ToUtf8(text);
  if (utf8.find_first_of(",\"\r\n") == std::string::npos && Trim(utf8).size() == utf8.size()) return utf8;
  std::string quoted = "\"";
  for (const char c : utf8) {
    if (c == '"') quoted.push_back('"');
    quoted.push_back(c);
  }
  quoted.push_back('"');
  return quoted;
}

}  // namespace

std::string EstimateCsv(const std::vector<PrintedLine>& lines) {
  std::string csv = "section,quantity,unit,description,label,adjusted,item,price key,SKU,optional text,price,extension\r\n";
  for (const PrintedLine& line : lines) {
    const std::string item = line.item == kNoItem ? std::string() : std::to_string(line.item);
    for (const std::string& field :
         {Quoted(line.section), FormatNumber(line.quantity, kPlainWhole), Quoted(line.unit), Quoted(line.description), Quoted(line.label),
          std::string(line.adjusted ? "true" : "false"), item, Quoted(line.priceKey)})
      csv.append(field).push_back(',');
    if (line.stock != nullptr)
      csv.append(Quoted(line.stock->PriceItemSku) + ',' + Quoted(line.stock->PriceItemOptionalText) + ',' +
                 FormatNumber(line.price, kPlainMoney) + ',' + FormatNumber(line.extension, kPlainMoney));
    else
      csv.append(",,,");
    csv.append("\r\n");
  }
  return csv;
}

std::string EstimateJson(const std::vector<PrintedLine>& lines) {
  using Json = nlohmann::ordered_json;
  std::string text = "[";
  for (const PrintedLine& line : lines) {
    Json row;
    row["section"] = ToUtf8(line.section);
    row["quantity"] = Json::parse(FormatNumber(line.quantity, kPlainWhole));
    row["unit"] = ToUtf8(line.unit);
    row["description"] = ToUtf8(line.description);
    row["label"] = ToUtf8(line.label);
    row["adjusted"] = line.adjusted;
    row["item"] = line.item == kNoItem ? Json() : Json(line.item);
    row["priceKey"] = ToUtf8(line.priceKey);
    const bool priced = line.stock != nullptr;
    row["sku"] = priced ? Json(ToUtf8(line.stock->PriceItemSku)) : Json();
    row["optionalText"] = priced ? Json(ToUtf8(line.stock->PriceItemOptionalText)) : Json();
    // Through the decimal form of the paper, so that a 32-bit price reads 12.35 and not 12.3500003814697.
    row["price"] = priced ? Json::parse(FormatNumber(line.price, kPlainMoney)) : Json();
    row["extension"] = priced ? Json::parse(FormatNumber(line.extension, kPlainMoney)) : Json();
    text.append(text.size() > 1 ? ",\n  " : "\n  ").append(row.dump());
  }
  return text.append(lines.empty() ? "]\n" : "\n]\n");
}

}  // namespace norvale
