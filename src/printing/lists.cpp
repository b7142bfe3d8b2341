#include "printing/lists.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>

#include "data/plan_type.h"

namespace norvale {

namespace {

constexpr std::size_t kLinesOnPage = 60;  // of the 66 that a sheet holds
constexpr std::size_t kPageNumberColumn = 73;

std::string Digits(int number, const char* format) {
  char text[16];
  std::snprintf(text, sizeof text, format, number);
  return text;
}

// Pages with a heading. A block of lines that no longer fits goes to the next page as a whole.
class ListWriter {
 public:
  ListWriter(Page& page, std::string title, std::string columns) : page_(page), title_(std::move(title)), columns_(std::move(columns)) {
    Head();
  }
  ~ListWriter() { page_.NewPage(); }
  ListWriter(const ListWriter&) = delete;
  ListWriter& operator=(const ListWriter&) = delete;

  // Makes room for `lines` more. Returns whether that took a new page.
  bool Reserve(std::size_t lines) {
    if (line_ + lines <= kLinesOnPage) return false;
    page_.NewPage();
    Head();
    return true;
  }

  void Line(std::string_view text = {}) {
    page_.PrintLine(text);
    ++line_;
  }

 private:
  void Head() {
    line_ = 0;
    page_.Print(title_);
    page_.Tab(kPageNumberColumn);
    Line("Page " + Digits(++number_, "%02d"));
    Line();
    if (columns_.empty()) return;
    Line(columns_);
    Line();
  }

  Page& page_;
  std::string title_;
  std::string columns_;
  std::size_t line_ = 0;
  int number_ = 0;
};

// `text` in lines of at most `width`, parted at blanks where there are any.
std::vector<std::string> Wrapped(std::string_view text, std::size_t width) {
  std::vector<std::string> lines;
  while (text.size() > width) {
    std::size_t end = text.substr(0, width + 1).rfind(' ');
    if (end == std::string_view::npos || end == 0) end = width;
    lines.emplace_back(TrimRight(text.substr(0, end)));
    text = Trim(text.substr(end));
  }
  lines.emplace_back(text);
  return lines;
}

struct Column {
  std::size_t at;  // from 1
  std::size_t width;
  std::string_view heading;
};

constexpr std::array<Column, 5> kCustomerColumns = {{
    {1, 4, "  #"},
    {6, 27, "Customer Name"},
    {34, 16, "Contact"},
    {51, 14, "Telephone #"},
    {66, 14, "Fax #"},
}};

std::string InColumns(const std::array<std::string, kCustomerColumns.size()>& texts) {
  std::string line;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    line.resize(kCustomerColumns[i].at - 1, ' ');
    line += texts[i];
  }
  return line;
}

void PrintCustomerRow(const CustomerRecord& customer, ListWriter& list) {
  const std::array<std::string, kCustomerColumns.size()> texts = {Digits(customer.CustomerRecordNumber, "%04d"),
                                                                  customer.CustomerName.Trimmed(), customer.Contact.Trimmed(),
                                                                  customer.Telephone.Trimmed(), customer.Fax.Trimmed()};
  std::array<std::vector<std::string>, kCustomerColumns.size()> lines;
  std::size_t height = 1;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    lines[i] = Wrapped(texts[i], i == 0 ? texts[i].size() : kCustomerColumns[i].width);  // a number is never parted
    height = std::max(height, lines[i].size());
  }
  list.Reserve(height);
  for (std::size_t row = 0; row < height; ++row) {
    std::array<std::string, kCustomerColumns.size()> cells;
    for (std::size_t i = 0; i < cells.size(); ++i)
      if (row < lines[i].size()) cells[i] = lines[i][row];
    list.Line(InColumns(cells));
  }
}

std::string CityLine(const CustomerRecord& customer) {
  std::string line = customer.City.Trimmed();
  if (const std::string state = customer.State.Trimmed(); !state.empty()) line += (line.empty() ? "" : ", ") + state;
  if (const std::string zip = customer.Zip.Trimmed(); !zip.empty()) line += "  " + zip;
  return line;
}

std::vector<std::string> CustomerHeading(const CustomerRecord& customer) {
  std::vector<std::string> lines;
  lines.push_back("CUSTOMER NAME: " + Digits(customer.CustomerRecordNumber, "%04d") + "  " + customer.CustomerName.Trimmed());
  lines.push_back("      ADDRESS: " + customer.AddressLine1.Trimmed());
  if (const std::string second = customer.AddressLine2.Trimmed(); !second.empty()) lines.push_back(std::string(15, ' ') + second);
  lines.push_back("CITY, ST  ZIP: " + CityLine(customer));
  return lines;
}

// The plan's number and date stand at the end of the row's last line.
std::vector<std::string> PlanRow(const EstimateRecord& plan) {
  constexpr std::size_t kNumberColumn = 26;
  constexpr std::size_t kLineWidth = 80;
  constexpr std::string_view kLabel = " PLAN: ";
  std::vector<std::string> lines = Wrapped(PlanDescription(plan.PlanType), kLineWidth - kLabel.size());
  for (std::size_t i = 0; i < lines.size(); ++i) lines[i].insert(0, i == 0 ? std::string(kLabel) : std::string(kLabel.size(), ' '));
  if (lines.back().size() >= kNumberColumn) lines.emplace_back();
  std::string& last = lines.back();
  last.resize(kNumberColumn - 1, ' ');
  last += "  PLAN NUMBER: " + std::string(TrimRight(plan.PlanNumber.Padded()));
  last.resize(std::max<std::size_t>(last.size(), kNumberColumn - 1 + 30), ' ');
  last += " DATE OF PLAN: " + plan.PlanDate.Trimmed();
  return lines;
}

}  // namespace

void PrintCustomerList(const std::vector<CustomerRecord>& customers, CustomerRange range, Page& page) {
  std::array<std::string, kCustomerColumns.size()> headings;
  std::transform(kCustomerColumns.begin(), kCustomerColumns.end(), headings.begin(),
                 [](const Column& c) { return std::string(c.heading); });
  ListWriter list(page, "CUSTOMER LIST", InColumns(headings));
  for (const CustomerRecord& customer : customers)
    if (range.Holds(customer.CustomerRecordNumber)) PrintCustomerRow(customer, list);
}

void PrintEstimateList(const std::vector<CustomerPlans>& customers, CustomerRange range, Page& page) {
  const std::string to = range.PrintTo == CustomerRange{}.PrintTo ? "LAST" : std::to_string(range.PrintTo);
  ListWriter list(page, "ESTIMATE LIST: Customer " + std::to_string(range.PrintFrom) + " to " + to, "");
  for (const auto& [customer, plans] : customers) {
    if (!range.Holds(customer.CustomerRecordNumber)) continue;
    const std::vector<std::string> heading = CustomerHeading(customer);
    // A customer's heading stays with his first plan.
    list.Reserve(heading.size() + (plans.empty() ? 0 : PlanRow(plans.front()).size()));
    for (const std::string& line : heading) list.Line(line);
    for (const EstimateRecord& plan : plans) {
      const std::vector<std::string> row = PlanRow(plan);
      if (list.Reserve(row.size())) list.Line(heading.front());
      for (const std::string& line : row) list.Line(line);
    }
    if (!list.Reserve(1)) list.Line();
  }
}

}  // namespace norvale
