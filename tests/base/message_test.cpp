#include "base/message.h"

#include <gtest/gtest.h>

namespace norvale {
namespace {

TEST(Message, KindChoosesButtonsAndEscape) {
  const std::vector<Answer> all = {Answer::Ok, Answer::Yes, Answer::No, Answer::Cancel};
  const struct {
    const char* text;
    std::vector<Answer> buttons;
    Answer escape;
  } rows[] = {
      {"0 A", {Answer::Ok}, Answer::Ok},
      {"1 A", {Answer::Yes, Answer::No, Answer::Cancel}, Answer::Cancel},
      {"2 A", {Answer::Yes, Answer::No}, Answer::No},
      {"3 A", {Answer::Ok, Answer::Cancel}, Answer::Cancel},
      {"4 A", all, Answer::Cancel},
      {"", all, Answer::Cancel},
  };
  for (const auto& row : rows) {
    const Message message = ParseMessage(row.text);
    EXPECT_EQ(message.buttons, row.buttons) << row.text;
    EXPECT_EQ(message.escape, row.escape) << row.text;
  }
}

TEST(Message, FirstBarBeginsTheTitle) {
  const struct {
    const char* text;
    const char* message;
    const char* title;
  } rows[] = {
      {"2 Delete this Customer?", "Delete this Customer?", "Norvale Message"},
      {"2 Leave NORVALE Program ? |End Program", "Leave NORVALE Program ? ", "End Program"},
      {"0 End Of File|", "End Of File", ""},
      {"0 A|B|C", "A", "B|C"},
      {"0 |T", "", "T"},
      {"0", "", "Norvale Message"},
      {"0|T", "T", "Norvale Message"},  // the bar stands where the blank belongs
  };
  for (const auto& row : rows) {
    const Message message = ParseMessage(row.text);
    EXPECT_EQ(message.text, row.message) << row.text;
    EXPECT_EQ(message.title, row.title) << row.text;
  }
}

TEST(Message, TypedBarsSplitNothing) {
  EXPECT_EQ(Notice("A|B"), "0 A B|Norvale Help Notice");
  EXPECT_EQ(WithTitle("0 No more A|B matches found. Try NEXT.|"), "0 No more A B matches found. Try NEXT.|Norvale Help Notice");
  EXPECT_EQ(WithTitle("0 End Of File"), "0 End Of File|Norvale Help Notice");
  EXPECT_EQ(FileErrorNotice(FileError("a|b.db", "No space left on device")),
            "0 The last step could not be finished, and nothing that was on file is lost.\n\na b.db: No space left on "
            "device|Norvale Help Notice");
}

}  // namespace
}  // namespace norvale
