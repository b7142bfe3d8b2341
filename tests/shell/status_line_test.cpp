#include "shell/status_line.h"

#include <gtest/gtest.h>

namespace norvale {
namespace {

TEST(StatusLine, ModesShareTheLine) {
  StatusLine line;
  line.Set("  Choose a plan  ", StatusMode::Message);
  EXPECT_EQ(line.Text(), "Choose a plan");
  line.Set("Sheet 3 of 11", StatusMode::Tail);
  EXPECT_EQ(line.Text(), "Choose a plan" + std::string(53, ' ') + "Sheet 3 of 11");
  line.Set(" TAB ", StatusMode::Hint);  // over what stood there, up to the tail
  EXPECT_EQ(line.Text(), "TAB" + std::string(63, ' ') + "Sheet 3 of 11");
  line.Set("", StatusMode::Message);
  EXPECT_EQ(line.Text(), "");
}

TEST(StatusLine, EachModeCutsAtItsOwnWidth) {
  const struct {
    StatusMode mode;
    std::size_t width;
  } rows[] = {{StatusMode::Message, 80}, {StatusMode::Hint, 65}, {StatusMode::Tail, 14}};
  for (const auto& row : rows) {
    StatusLine line;
    line.Set(" " + std::string(100, 'x'), row.mode);
    const std::string text = line.Text();
    EXPECT_EQ(std::count(text.begin(), text.end(), 'x'), static_cast<std::ptrdiff_t>(row.width));
    EXPECT_EQ(text.size(), row.mode == StatusMode::Tail ? 80U : row.width);
  }
}

// Both hints must come through whole: a menu's letters with the keys behind them, and the keys alone.
TEST(StatusLine, HintsFit) {
  StatusLine line;
  line.Set(EntryHint, StatusMode::Hint);
  EXPECT_EQ(line.Text(), EntryHint);
  line.Set("W,E,L,C,X " + std::string(EntryHint), StatusMode::Message);
  EXPECT_EQ(line.Text(), "W,E,L,C,X or TAB To Move; ENTER=Execute F1=Help ALT+F2=Calculator  ESC=Exit");
}

TEST(Clock, RunsOnTwelveHours) {
  const struct {
    int hour;
    const char* text;
  } rows[] = {{0, "12:05:09am"}, {1, "01:05:09am"}, {11, "11:05:09am"}, {12, "12:05:09pm"}, {13, "01:05:09pm"}, {23, "11:05:09pm"}};
  for (const auto& row : rows) {
    std::tm now{};
    now.tm_hour = row.hour;
    now.tm_min = 5;
    now.tm_sec = 9;
    EXPECT_EQ(ClockTime(now), row.text);
  }
  std::tm day{};
  day.tm_year = 126;
  day.tm_mon = 0;
  day.tm_mday = 7;
  EXPECT_EQ(ClockDate(day), "01-07-2026");
}

}  // namespace
}  // namespace norvale
