#include "base/numbers.h"

#include <gtest/gtest.h>

namespace norvale {
namespace {

TEST(Numbers, RoundingsDifferOnHalvesAndNegatives) {
  struct Row {
    double x, asInt, asRnd, asEven;
  };
  for (const Row& row :
       {Row{-2.5, -3, -2, -2}, {2.5, 2, 3, 2}, {3.5, 3, 4, 4}, {-0.15, -1, 0, 0}, {210 * 1.15, 241, 241, 241}, {0, 0, 0, 0}}) {
    EXPECT_EQ(Int(row.x), row.asInt) << row.x;
    EXPECT_EQ(Rnd(row.x), row.asRnd) << row.x;
    EXPECT_EQ(RoundEven(row.x), row.asEven) << row.x;
  }
}

TEST(Numbers, QuotientRoundsBothSidesAndCutsTowardZero) {
  EXPECT_EQ(IntegerQuotient(110.00000000000001, 100), 1);
  EXPECT_EQ(IntegerQuotient(12.5, 4), 3);  // 12 \ 4
  EXPECT_EQ(IntegerQuotient(13.5, 4), 3);  // 14 \ 4
  EXPECT_EQ(IntegerQuotient(-7, 2), -3);
  EXPECT_EQ(IntegerQuotient(7, 0.4), 0);
}

TEST(Numbers, ValReadsTheLeadingNumber) {
  struct Row {
    const char* text;
    double value;
  };
  for (const Row& row : {Row{"12.50", 12.5},
                         {"   12", 12},
                         {"12 6", 12},
                         {"12-6", 12},
                         {"-5%", -5},
                         {"+.5x", 0.5},
                         {"1.2.3", 1.2},
                         {"1,234.50", 1},
                         {"2E2", 200},
                         {"2E", 2},
                         {"2e-x", 2},
                         {"abc", 0},
                         {"", 0},
                         {"-", 0},
                         {".", 0},
                         {"$5", 0},
                         {"\t5", 0}})
    EXPECT_EQ(Val(row.text), row.value) << row.text;
  EXPECT_GT(Val("1e999"), 1e300);
}

TEST(Numbers, MoneyRoundsItsDecimalFormHalfAwayFromZero) {
  struct Row {
    double value;
    const char* text;
  };
  for (const Row& row : {Row{0, "0.00"},
                         {-0.0, "0.00"},
                         {0.005, "0.01"},
                         {0.004999, "0.00"},
                         {1.005, "1.01"},
                         {2.675, "2.68"},
                         {2.675F, "2.67"},
                         {-1.005, "-1.01"},
                         {-0.001, "0.00"},
                         {999.995, "1,000.00"},
                         {1234567.891, "1,234,567.89"},
                         {12.35F, "12.35"},
                         {99999.995, "100,000.00"},
                         {123456789012.5, "123,456,789,012.50"},
                         {1e15, "1,000,000,000,000,000.00"},
                         {1e-20, "0.00"}})
    EXPECT_EQ(FormatNumber(row.value, kMoney), row.text) << row.value;
  EXPECT_EQ(FormatNumber(0, {.wholeDigits = 2}), "00");
  EXPECT_EQ(FormatNumber(-5, {.wholeDigits = 2}), "-05");
  EXPECT_EQ(FormatNumber(48, {.wholeDigits = 2}), "48");
}

TEST(Numbers, PrintedNumbersHaveABlankOrASignBeforeThem) {
  EXPECT_EQ(PrintedNumber(14), " 14 ");
  EXPECT_EQ(PrintedNumber(-14), "-14 ");
  EXPECT_EQ(PrintedNumber(-0.0), " 0 ");
  EXPECT_EQ(PlainNumber(1234567890123.0), " 1234567890123");
  EXPECT_EQ(PlainNumber(0.0 / 0.0), " 0");
  EXPECT_EQ(RightAligned("12,345.67", 8), "2,345.67");
  EXPECT_EQ(RightAligned("5.00", 8), "    5.00");
}

}  // namespace
}  // namespace norvale
