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
  const auto expect = [](double value, std::initializer_list<const char*> texts) {
    for (const char* text : texts) EXPECT_EQ(Val(text), value) << text;
  };
  expect(12.5, {"12.50", "12.5.3", "  12.5 6"});
  expect(12, {"12-6", "12,345.50"});
  expect(-5, {"-5%"});
  expect(0.5, {"+.5x"});
  expect(200, {"2E2"});
  expect(2, {"2E", "2e-x"});
  expect(0, {"abc", "", "-", ".", "$5", "\t5"});
  EXPECT_GT(Val("1e999"), 1e300);
}

TEST(Numbers, MoneyRoundsItsDecimalFormHalfAwayFromZero) {
  const auto expect = [](const char* text, std::initializer_list<double> values) {
    for (const double value : values) EXPECT_EQ(FormatNumber(value, kMoney), text) << value;
  };
  expect("0.00", {0, -0.0, 0.004999, -0.001, 1e-20});
  expect("0.01", {0.005});
  expect("1.01", {1.005});
  expect("-1.01", {-1.005});
  expect("2.68", {2.675});
  expect("2.67", {2.675F});
  expect("12.35", {12.35F});
  expect("1,000.00", {999.995});
  expect("100,000.00", {99999.995});
  expect("1,234,567.89", {1234567.891});
  expect("26,716,371,599.11", {26716371599.104977});  // ...599.1050 in 15 digits
  expect("123,456,789,012.50", {123456789012.5});
  expect("1,000,000,000,000,000.00", {1e15});
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
