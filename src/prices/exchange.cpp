#include "prices/exchange.h"

#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>
#include <set>

#include "base/text.h"
#include "prices/delivered_tables.h"

namespace norvale {

namespace {

using Json = nlohmann::ordered_json;

// ---- out ----

Json ToJson(std::uint8_t value) { return value; }
Json ToJson(std::int16_t value) { return value; }

template <std::size_t Width>
Json ToJson(const FixedText<Width>& text) {
  // Only blanks go: bytes of 0 stand for themselves, so that the record comes back as it was.
  return ToUtf8(TrimRight(text.Raw()));
}

Json ToJson(const RoofPlane& plane) {
  Json object = Json::object();
  ForEachField(RecordFields<RoofPlane>::table, [&](const auto& field) { object[std::string(field.name)] = ToJson(plane.*field.member); });
  return object;
}

template <typename T, std::size_t N>
Json ToJson(const std::array<T, N>& values) {
  Json array = Json::array();
  for (const T& value : values) array.push_back(ToJson(value));
  return array;
}

Json ToJson(const std::array<RoofPlane, kRoofPlanes>& planes) {
  std::size_t used = planes.size();
  while (used > 0 && planes[used - 1] == RoofPlane{}) --used;
  Json array = Json::array();
  for (std::size_t i = 0; i < used; ++i) array.push_back(ToJson(planes[i]));
  return array;
}

// One field a line, so that a person can read and compare it.
template <typename Record>
void AppendRecord(std::string& text, const Record& record) {
  text.append("    {");
  bool first = true;
  ForEachField(RecordFields<Record>::table, [&](const auto& field) {
    text.append(first ? "\n" : ",\n").append("      ").append(Json(std::string(field.name)).dump()).append(": ");
    text.append(ToJson(record.*field.member).dump());
    first = false;
  });
  text.append("\n    }");
}

template <typename Record>
void AppendRecords(std::string& text, std::string_view name, const std::vector<Record>& records) {
  text.append("  \"").append(name).append("\": [");
  for (std::size_t i = 0; i < records.size(); ++i) {
    text.append(i == 0 ? "\n" : ",\n");
    AppendRecord(text, records[i]);
  }
  text.append(records.empty() ? "]" : "\n  ]");
}

// ---- in ----

[[noreturn]] void Refuse(const std::string& place, const std::string& reason) { throw ExchangeError(place + ": " + reason); }

std::string At(const std::string& place, std::string_view name) {
  return place.empty() ? std::string(name) : place + "." + std::string(name);
}

std::string At(const std::string& place, std::size_t index) { return place + "[" + std::to_string(index) + "]"; }

// A value as a message shows it: not a whole list or object, which may be of any length and depth.
std::string Shown(const Json& json) { return json.is_structured() ? std::string("an ") + json.type_name() : json.dump(); }

template <typename Number>
Number NumberFrom(const Json& json, const std::string& place, std::int64_t least = std::numeric_limits<Number>::min(),
                  std::int64_t most = std::numeric_limits<Number>::max()) {
  if (!json.is_number_integer()) Refuse(place, "a whole number is wanted, not " + Shown(json));
  const bool huge = json.is_number_unsigned() && json.get<std::uint64_t>() > static_cast<std::uint64_t>(most);
  const auto value = huge ? most : json.get<std::int64_t>();
  if (huge || value < least || value > most)
    Refuse(place, json.dump() + " is not from " + std::to_string(least) + " to " + std::to_string(most));
  return static_cast<Number>(value);
}

std::string TextFrom(const Json& json, const std::string& place, std::size_t width) {
  if (!json.is_string()) Refuse(place, "a text is wanted, not " + Shown(json));
  const auto text = FromUtf8(json.get_ref<const std::string&>());
  if (!text) Refuse(place, "the text " + json.dump() + " holds a character that the data files cannot hold");
  if (text->size() > width) Refuse(place, "the text " + json.dump() + " is longer than " + std::to_string(width) + " characters");
  return *text;
}

const Json& ArrayFrom(const Json& json, const std::string& place) {
  if (!json.is_array()) Refuse(place, "a list is wanted");
  return json;
}

const Json& ObjectFrom(const Json& json, const std::string& place) {
  if (!json.is_object()) Refuse(place, "an object of fields by their names is wanted");
  return json;
}

template <typename Record>
void RecordFrom(const Json& json, const std::string& place, Record& record);

void ValueFrom(const Json& json, const std::string& place, std::uint8_t& value) { value = NumberFrom<std::uint8_t>(json, place); }
void ValueFrom(const Json& json, const std::string& place, std::int16_t& value) { value = NumberFrom<std::int16_t>(json, place); }
template <std::size_t Width>
void ValueFrom(const Json& json, const std::string& place, FixedText<Width>& text) {
  text.Assign(TextFrom(json, place, Width));
}
void ValueFrom(const Json& json, const std::string& place, FiveRows& rows) {
  if (ArrayFrom(json, place).size() != rows.size()) Refuse(place, std::to_string(rows.size()) + " numbers are wanted");
  for (std::size_t i = 0; i < rows.size(); ++i) rows[i] = NumberFrom<std::int16_t>(json[i], At(place, i));
}
void ValueFrom(const Json& json, const std::string& place, std::array<RoofPlane, kRoofPlanes>& planes) {
  if (ArrayFrom(json, place).size() > planes.size()) Refuse(place, "there are at most " + std::to_string(planes.size()) + " roof sections");
  for (std::size_t i = 0; i < json.size(); ++i) RecordFrom(json[i], At(place, i), planes[i]);
}

void Blank(std::uint8_t& value) { value = 0; }
void Blank(std::int16_t& value) { value = 0; }
template <std::size_t Width>
void Blank(FixedText<Width>& text) {
  text.Assign({});
}
template <typename T, std::size_t N>
void Blank(std::array<T, N>& values) {
  values = {};
}

// The name that a field has today: files that were exported under its former name stay readable.
std::string_view PresentFieldName(std::string_view name) {
  static const std::map<std::string_view, std::string_view> present = [] {
    std::map<std::string_view, std::string_view> names;
    std::string_view rows = kDeliveredRenamed;
    for (std::size_t end = rows.find('\n'); end != std::string_view::npos; end = rows.find('\n')) {
      const std::string_view row = rows.substr(0, end);
      const std::size_t tab = row.find('\t');
      names.emplace(row.substr(0, tab), row.substr(tab + 1));
      rows.remove_prefix(end + 1);
    }
    return names;
  }();
  const auto found = present.find(name);
  return found == present.end() ? name : found->second;
}

template <typename Record>
void RecordFrom(const Json& json, const std::string& place, Record& record) {
  ObjectFrom(json, place);
  std::size_t known = 0;
  ForEachField(RecordFields<Record>::table, [&](const auto& field) {
    Blank(record.*field.member);
    const auto found = json.find(std::string(field.name));
    if (found == json.end()) return;
    ValueFrom(*found, At(place, field.name), record.*field.member);
    ++known;
  });
  if (known == json.size()) return;
  for (const auto& member : json.items()) {
    const std::string_view name = PresentFieldName(member.key());
    bool exists = false;
    ForEachField(RecordFields<Record>::table, [&](const auto& field) {
      if (field.name != name) return;
      exists = true;
      if (name == member.key()) return;
      if (json.contains(std::string(name))) Refuse(At(place, member.key()), "the field stands there as " + std::string(name) + " too");
      ValueFrom(member.value(), At(place, member.key()), record.*field.member);
    });
    if (!exists) Refuse(At(place, member.key()), "there is no such field");
  }
}

template <typename Record>
std::vector<Record> RecordsFrom(const Json& json, const std::string& place) {
  std::vector<Record> records(ArrayFrom(json, place).size());
  for (std::size_t i = 0; i < records.size(); ++i) RecordFrom(json[i], At(place, i), records[i]);
  return records;
}

void CheckCustomerNumbers(const std::vector<CustomerRecord>& customers) {
  constexpr std::int16_t kHighestNumber = 32767;  // the form refuses it, but a folder may have it on file
  std::set<std::int16_t> seen;
  for (std::size_t i = 0; i < customers.size(); ++i) {
    const std::int16_t number = customers[i].CustomerRecordNumber;
    const std::string place = At(At("customers", i), "CustomerRecordNumber");
    if (number < kCompanyNumber || number > kHighestNumber)
      Refuse(place, std::to_string(number) + " is not from 0, the company, to " + std::to_string(kHighestNumber));
    if (!seen.insert(number).second) Refuse(place, std::to_string(number) + " stands twice");
  }
}

std::map<std::size_t, std::int16_t> WasteFactorsFrom(const Json& json, const std::string& place) {
  std::map<std::size_t, std::int16_t> percents;
  for (const auto& member : ObjectFrom(json, place).items()) {
    const std::string& item = member.key();
    const bool digits =
        !item.empty() && item.size() <= 2 && std::all_of(item.begin(), item.end(), [](char c) { return c >= '0' && c <= '9'; });
    const std::size_t number = digits ? std::stoul(item) : kWasteItems;
    if (number >= kWasteItems) Refuse(At(place, item), "items are numbered from 0 to " + std::to_string(kWasteItems - 1));
    percents[number] = NumberFrom<std::int16_t>(member.value(), At(place, item), -100, 100);
  }
  return percents;
}

PriceItem PriceItemFrom(const Json& json, const std::string& place) {
  PriceItem item;
  for (const auto& member : ObjectFrom(json, place).items()) {
    const std::string at = At(place, member.key());
    if (member.key() == "PriceItemKey") {
      item.PriceItemKey = TextFrom(member.value(), at, kPriceKeyWidth);
    } else if (member.key() == "PriceItemSku") {
      item.PriceItemSku = TextFrom(member.value(), at, kPriceSkuWidth);
    } else if (member.key() == "PriceItemOptionalText") {
      item.PriceItemOptionalText = TextFrom(member.value(), at, kPriceOptionalWidth);
    } else if (member.key() == "PriceItemPrice") {
      if (ArrayFrom(member.value(), at).size() != kPriceLevels) Refuse(at, std::to_string(kPriceLevels) + " prices are wanted");
      for (std::size_t level = 0; level < kPriceLevels; ++level)
        item.PriceItemPrice[level] = TextFrom(member.value()[level], At(at, level), kPriceWidth);
    } else {
      Refuse(at, "there is no such field");
    }
  }
  return item;
}

std::vector<PriceItem> PricesFrom(const Json& json, const std::string& place) {
  if (ArrayFrom(json, place).size() > kMostPriceItems)
    Refuse(place, "a price list has at most " + std::to_string(kMostPriceItems) + " items");
  std::vector<PriceItem> items;
  for (std::size_t i = 0; i < json.size(); ++i) items.push_back(PriceItemFrom(json[i], At(place, i)));
  return items;
}

std::string LineOf(std::string_view text, std::size_t byte) {
  const std::string_view before = text.substr(0, std::min(byte, text.size()));
  return "line " + std::to_string(1 + std::count(before.begin(), before.end(), '\n'));
}

// Parses a file and refuses one that gives a field twice: nobody could say which of the two is meant.
Json Parse(std::string_view text) {
  std::vector<std::set<std::string>> open;
  const auto watch = [&open](int, Json::parse_event_t event, Json& parsed) {
    if (event == Json::parse_event_t::object_start) open.emplace_back();
    if (event == Json::parse_event_t::object_end) open.pop_back();
    if (event == Json::parse_event_t::key && !open.back().insert(parsed.get<std::string>()).second)
      Refuse(parsed.get<std::string>(), "the field stands twice in one object");
    return true;
  };
  return Json::parse(text, watch);
}

}  // namespace

std::string ExportTables(const std::vector<CustomerRecord>& customers, const std::vector<EstimateRecord>& plans) {
  std::string text = "{\n";
  AppendRecords(text, "customers", customers);
  text.append(",\n");
  AppendRecords(text, "plans", plans);
  return text.append("\n}\n");
}

WasteFactors ExchangeTables::WasteOver(WasteFactors before) const {
  for (const auto& [item, percent] : wasteFactors) before.percent[item] = percent;
  return before;
}

ExchangeTables ImportTables(std::string_view text) {
  Json json;
  try {
    json = Parse(text);
  } catch (const Json::parse_error& error) {
    throw ExchangeError(LineOf(text, error.byte) + ": this is no JSON");
  } catch (const Json::out_of_range&) {
    throw ExchangeError("the file: a number in it is too large for any field");
  }
  ExchangeTables tables;
  for (const auto& member : ObjectFrom(json, "the file").items()) {
    if (member.key() == "customers")
      tables.customers = RecordsFrom<CustomerRecord>(member.value(), member.key());
    else if (member.key() == "plans")
      tables.plans = RecordsFrom<EstimateRecord>(member.value(), member.key());
    else if (member.key() == "wasteFactors")
      tables.wasteFactors = WasteFactorsFrom(member.value(), member.key());
    else if (member.key() == "prices")
      tables.prices = PricesFrom(member.value(), member.key());
    else
      Refuse(member.key(), "there is no such table");
  }
  CheckCustomerNumbers(tables.customers);
  return tables;
}

}  // namespace norvale
