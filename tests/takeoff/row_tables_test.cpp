// The rows of every section, by the tables in `rows/`, which tell how they are written.
#include <fstream>
#include <functional>
#include <map>

#include "base/numbers.h"
#include "takeoff/takeoff_fixture.h"

namespace norvale {
namespace {

Texts Split(std::string_view text, std::string_view at) {
  Texts parts;
  for (std::size_t end = 0; end != std::string_view::npos; text.remove_prefix(std::min(text.size(), end + at.size()))) {
    end = text.find(at);
    const auto part = Trim(text.substr(0, end));
    if (!part.empty()) parts.emplace_back(part);
  }
  return parts;
}

std::vector<std::int16_t> Numbers(const std::string& text, std::string_view at) {
  std::vector<std::int16_t> numbers;
  for (const std::string& number : Split(text, at)) numbers.push_back(static_cast<std::int16_t>(Val(number)));
  return numbers;
}

void Put(const std::string& text, std::int16_t& value) { value = Numbers(text, ",").at(0); }
void Put(const std::string& text, FiveRows& value) {
  for (std::size_t i = 0; i < value.size(); ++i) value[i] = Numbers(text, ",").at(i);
}
template <std::size_t Width>
void Put(const std::string& text, FixedText<Width>& value) {
  ASSERT_LE(text.size(), Width + 2) << text;
  value.Assign(text.substr(1, text.size() - 2));
}
void Put(const std::string& text, std::array<RoofPlane, kRoofPlanes>&) { FAIL() << text; }

// The rows of the specifications sheet as "caption=value"; every value ends at column 62.
Texts SheetRows(const Page& page) {
  Texts rows;
  for (const std::string& line : LinesOf(page.Text())) {
    if (line.size() < 17 || line[16] == ' ' || !Has(line, ":")) continue;
    const std::size_t end = line.find(':', 16);
    EXPECT_TRUE(line.size() == end + 1 || line.size() == 62U) << line;
    rows.push_back(line.substr(16, end - 16) + "=" + std::string(Trim(std::string_view(line).substr(end + 1))));
  }
  return rows;
}

struct Case {
  EstimateRecord plan;
  WasteFactors waste{};
  bool withPrices = true;
  std::size_t roofs = 0;
  Texts parts;
  Texts rows;

  void Assign(const std::string& name, const std::string& value) {
    if (name == "prices") {
      withPrices = value != "0";
    } else if (name == "roof") {
      const auto n = Numbers(value, ".");
      const auto code = [&](std::size_t i) { return static_cast<std::uint8_t>(n.at(i)); };
      plan.RoofPlanes.at(roofs++) = {code(0), code(1), code(2), code(3), n.at(4), n.at(5), n.at(6)};
    } else if (name[0] == '%') {
      Put(value, waste.percent.at(static_cast<std::size_t>(Val(name.substr(1)))));
    } else {
      bool known = false;
      ForEachField(RecordFields<EstimateRecord>::table, [&](const auto& field) {
        if (field.name != name) return;
        Put(value, plan.*field.member);
        known = true;
      });
      EXPECT_TRUE(known) << name;
    }
  }

  // FIELD=VALUE ..., texts in quotes.
  void AssignAll(std::string_view text) {
    for (text = Trim(text); !text.empty(); text = Trim(text)) {
      const std::size_t equals = text.find('=');
      ASSERT_LT(equals + 1, text.size()) << text;
      const bool quoted = text[equals + 1] == '\'';
      const std::size_t end = quoted ? text.find('\'', equals + 2) + 1 : std::min(text.find(' ', equals), text.size());
      Assign(std::string(text.substr(0, equals)), std::string(text.substr(equals + 1, end - equals - 1)));
      text.remove_prefix(end);
    }
  }

  void Check(const Section* section) const {
    SectionRun printed(plan, kWholeMask, {}, withPrices);
    printed.waste = waste;
    for (const char* grade : {"#2 SYP", "#2 SPF", "List End"}) printed.lists.emplace_back().ListText.Assign(grade);
    if (section == nullptr)
      PrintSpecifications(printed.run);
    else
      PrintRows(printed.run, *section);
    Texts found = section == nullptr ? SheetRows(printed.page) : printed.Rows();
    std::erase_if(found, [&](const std::string& row) {
      return !parts.empty() && std::none_of(parts.begin(), parts.end(), [&](const std::string& part) { return Has(row, part); });
    });
    EXPECT_EQ(found, rows);
    if (parts.empty() && rows.empty()) {
      EXPECT_EQ(printed.page.Text(), "");
    }
  }
};

class RowTable : public testing::TestWithParam<const char*> {};

TEST_P(RowTable, EveryCasePrintsItsRows) {
  std::ifstream file(std::string(NORVALE_SOURCE_DIR "/tests/takeoff/rows/") + GetParam() + ".txt");
  ASSERT_TRUE(file.is_open());
  const Section* section = nullptr;
  Case base;
  Case now;
  std::string title;
  int cases = 0;
  const auto finish = [&] {
    if (title.empty()) return;
    SCOPED_TRACE(title);
    now.Check(section);
    title.clear();
    ++cases;
  };
  std::string line;
  for (int number = 1; std::getline(file, line); ++number) {
    if (line.empty() || line[0] == '#') continue;
    if (line[0] == ' ') {
      for (const std::string& row : Split(line, " ; ")) now.rows.push_back(row);
      continue;
    }
    finish();
    if (line.starts_with("section ")) {
      section = FindSection(line.substr(8));
      ASSERT_TRUE(section != nullptr || line == "section SPECIFICATIONS") << line;
      base = {};
    } else if (line.starts_with("plan:")) {
      base.AssignAll(line.substr(5));
    } else {
      ASSERT_EQ(line[0], '>') << line;
      title = "line " + std::to_string(number) + ": " + line;
      const std::size_t arrow = line.find("=>");
      ASSERT_NE(arrow, std::string::npos) << line;
      const std::string head = line.substr(1, arrow - 1);
      const std::size_t mark = head.find(" ? ");
      now = base;
      if (Trim(head.substr(0, mark)) == "nothing")
        now.plan = {};
      else
        now.AssignAll(head.substr(0, mark));
      if (mark != std::string::npos) now.parts = Split(head.substr(mark + 3), " / ");
      now.rows = Split(line.substr(arrow + 2), " ; ");
    }
  }
  finish();
  EXPECT_GT(cases, 10);
}

INSTANTIATE_TEST_SUITE_P(Sections, RowTable,
                         testing::Values("floor_systems", "wall_systems", "roof_system", "exterior_trim", "interior", "specifications"),
                         [](const auto& table) { return std::string(table.param); });

}  // namespace
}  // namespace norvale
