// Numbers as the take-off counts and prints them. All arithmetic is 64-bit floating point; these are the only roundings.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace norvale {

/// The largest whole number that is not above `x`: Int(-2.5) is -3.
double Int(double x);

/// To the nearest whole number, a half upward: Int(x + 0.5).
double Rnd(double x);

/// To the nearest whole number, a half to the even neighbour; how a value becomes a "whole" one in the working tables.
double RoundEven(double x);

/// The quotient of two numbers that are first rounded to whole ones (a half to the even neighbour), cut toward 0.
/// A divisor that rounds to 0 gives 0.
double IntegerQuotient(double dividend, double divisor);

/// The square root; 0 for a negative number, which no entry can give.
double Sqr(double x);

/// The number at the beginning of `text`: leading blanks, an optional sign, digits with at most one point, an optional
/// exponent. 0 where none begins. Never fails; what follows the number is ignored.
double Val(std::string_view text);

/// How `FormatNumber` writes: the fewest digits before the point, the digits behind it, commas between thousands.
struct NumberFormat {
  int wholeDigits = 1;
  int decimals = 0;
  bool thousands = false;
};

inline constexpr NumberFormat kMoney{.wholeDigits = 1, .decimals = 2, .thousands = true};

/// Writes the 15-significant-digit decimal form of `value`, rounded to the format's decimals, a half away from zero.
/// A result of zero has no minus sign.
std::string FormatNumber(double value, NumberFormat format);

/// The number as text: a blank or a minus sign, then the digits (whole numbers in full, others to 15 significant digits).
std::string PlainNumber(double value);

/// The number's digits, after a minus sign where it is negative; no blanks.
std::string Digits(double value);

/// The number as the page shows it: `PlainNumber` with one blank behind it.
std::string PrintedNumber(double value);

/// The last `width` characters of `text`, filled with blanks on its left. What is too wide loses its leading characters.
std::string RightAligned(std::string_view text, std::size_t width);

}  // namespace norvale
