// What every printed text owes to the page, checked on the kept ones: line ends, form feeds, blanks, width.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "case_file.h"

namespace norvale {

namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::Not;

constexpr std::size_t kPaperWidth = 80;

constexpr std::size_t kPaperLines = 66;

std::vector<SampleCase> TextCases() {
  const std::filesystem::path tests = std::filesystem::path(NORVALE_SOURCE_DIR) / "tests";
  std::vector<SampleCase> cases = ReadCases(tests / "samples");
  for (SampleCase& other : ReadCases(tests / "printing")) cases.push_back(std::move(other));
  std::erase_if(cases, [](const SampleCase& sample) { return !sample.IsText(); });
  return cases;
}

// Characters, not bytes: the text is UTF-8.
std::size_t Width(std::string_view line) {
  return static_cast<std::size_t>(std::count_if(line.begin(), line.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

std::vector<std::string> Split(std::string_view text, char end) {
  std::vector<std::string> parts;
  while (!text.empty()) {
    const std::size_t at = std::min(text.find(end), text.size());
    parts.emplace_back(text.substr(0, at));
    text.remove_prefix(std::min(at + 1, text.size()));
  }
  return parts;
}

class ExpectedTexts : public testing::Test {
 protected:
  void SetUp() override { ASSERT_THAT(cases, Not(IsEmpty())); }

  static std::string Text(const SampleCase& sample) { return ReadBytes(sample.folder / "expected.txt"); }

  const std::vector<SampleCase> cases = TextCases();
};

TEST_F(ExpectedTexts, HoldNothingButLinesAndPages) {
  for (const SampleCase& sample : cases) {
    const std::string text = Text(sample);
    for (const char other : {'\r', '\t', '\0'}) EXPECT_EQ(text.find(other), std::string::npos) << sample.name << ": " << int{other};
    for (const char* const blankAtEnd : {" \n", " \f"}) EXPECT_EQ(text.find(blankAtEnd), std::string::npos) << sample.name;
  }
}

TEST_F(ExpectedTexts, EndEachPageRightBehindItsLastLine) {
  for (const SampleCase& sample : cases) {
    const std::string text = Text(sample);
    ASSERT_TRUE(text.ends_with("\n\f")) << sample.name;
    for (std::size_t at = text.find('\f'); at != std::string::npos; at = text.find('\f', at + 1)) {
      ASSERT_GT(at, 0U) << sample.name;
      EXPECT_EQ(text[at - 1], '\n') << sample.name << ": the form feed at byte " << at;
    }
  }
}

TEST_F(ExpectedTexts, BeginEachPageWithDateAndNumber) {
  for (const SampleCase& sample : cases) {
    if (!sample.IsEstimate()) continue;
    const std::string copiesAsked = sample.Option("copies");
    const int copies = copiesAsked.empty() ? 1 : std::stoi(copiesAsked);
    const std::vector<std::string> pages = Split(Text(sample), '\f');
    ASSERT_EQ(pages.size() % static_cast<std::size_t>(copies), 0U) << sample.name;
    const std::size_t pagesOfCopy = pages.size() / static_cast<std::size_t>(copies);
    for (std::size_t i = 0; i < pages.size(); ++i) {
      const std::string first = Split(pages[i], '\n').front();
      EXPECT_TRUE(first.starts_with(sample.Option("date") + " ")) << sample.name << ": " << first;
      // The number stands behind the word at column 74 and begins afresh with each copy.
      ASSERT_GT(first.size(), 73U) << sample.name << ": " << first;
      EXPECT_EQ(first.substr(73), "Page:" + std::to_string(i % pagesOfCopy + 1)) << sample.name;
    }
  }
}

TEST_F(ExpectedTexts, KeepToThePaperButForLongAddresses) {
  // A customer's address has two fields of 35 characters on one line, and neither is cut.
  const std::string address = "     ADDRESS:        2700 Old Granary Square Boulevard, Building 4B, Rear Loading Entrance";
  ASSERT_GT(Width(address), kPaperWidth);
  for (const SampleCase& sample : cases) {
    std::vector<std::string> tooLong;
    for (const std::string& page : Split(Text(sample), '\f')) {
      const std::vector<std::string> lines = Split(page, '\n');
      EXPECT_LE(lines.size(), kPaperLines) << sample.name;
      for (const std::string& line : lines)
        if (Width(line) > kPaperWidth) tooLong.push_back(line);
    }
    const bool hasLongAddress = sample.IsEstimate() && sample.Option("customer") == "2";
    EXPECT_THAT(tooLong, ElementsAreArray(hasLongAddress ? std::vector<std::string>{address} : std::vector<std::string>{})) << sample.name;
  }
}

}  // namespace

}  // namespace norvale
