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
  const std::string tooLong = " " + std::string(100, 'x');
  line.Set(tooLong, StatusMode::Hint);
  line.Set(tooLong, StatusMode::Tail);
  EXPECT_EQ(line.Text(), std::string(65, 'x') + " " + std::string(14, 'x'));
  line.Set(tooLong, StatusMode::Message);
  EXPECT_EQ(line.Text(), std::string(80, 'x'));
  line.Set("", StatusMode::Message);
  EXPECT_EQ(line.Text(), "");
}

TEST(Clock, RunsOnTwelveHours) {
  std::tm now{};
  now.tm_min = 5;
  now.tm_sec = 9;
  const char* const times[] = {"12:05:09am", "01:05:09am", "11:05:09am", "12:05:09pm", "01:05:09pm", "11:05:09pm"};
  const int hours[] = {0, 1, 11, 12, 13, 23};
  for (std::size_t i = 0; i < std::size(hours); ++i) {
    now.tm_hour = hours[i];
    EXPECT_EQ(ClockTime(now), times[i]);
  }
  now.tm_year = 126;
  now.tm_mday = 7;
  EXPECT_EQ(ClockDate(now), "01-07-2026");
}

}  // namespace
}  // namespace norvale
