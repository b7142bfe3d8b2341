#include "base/text.h"

#include <gtest/gtest.h>

namespace norvale {
namespace {

TEST(Text, EveryByteHasACharacterOfItsOwn) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string text(1, static_cast<char>(byte));
    EXPECT_EQ(FromUtf8(ToUtf8(text)), text) << byte;
  }
  EXPECT_EQ(ToUtf8("caf\xE9 \x80 5"), "caf\u00E9 \u20AC 5");
}

TEST(Text, RefusesWhatHasNoByte) {
  for (const char* utf8 : {"\u0150", "\u4E00", "\U0001F600", "\xC3", "\xE2\x82", "\xC0\xAF", "\xE0\x80\xAF", "\x80", "\xFF", "a\xC3(b"})
    EXPECT_EQ(FromUtf8(utf8), std::nullopt) << utf8;
}

TEST(Text, FixedTextCutsPadsAndCountsZerosAsBlanks) {
  FixedText<5> text;
  EXPECT_EQ(text.Trimmed(), "");
  EXPECT_EQ(text.Padded(), "     ");
  text.Assign("ABCDEFG");
  EXPECT_EQ(text.Raw(), "ABCDE");
  text.Assign(" B");
  EXPECT_EQ(text.Raw(), " B   ");
  EXPECT_EQ(text.Trimmed(), "B");
  text.bytes = {'A', '\0', 'C', '\0', '\0'};
  EXPECT_EQ(text.Trimmed(), "A C");
}

TEST(Text, UpperCaseTakesAccentsAlong) { EXPECT_EQ(UpperCase("Vinyl \xE9\x9A\xFF\xF7"), "VINYL \xC9\x8A\x9F\xF7"); }

}  // namespace
}  // namespace norvale
