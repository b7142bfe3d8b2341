#include "base/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace norvale {

namespace {

// Below this a scaled number and the one of its 15 significant digits are less apart than what is left out around the half.
constexpr double kFastLimit = 1e12;
constexpr int kSignificantDigits = 15;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// The digits of |value| scaled by 10^decimals and rounded, as a whole number's text; from the 15-digit decimal form.
std::string ScaledDigits(double magnitude, int decimals) {
  const double scaled = magnitude * std::pow(10.0, decimals);
  if (scaled < kFastLimit) {
    const double whole = std::floor(scaled);
    const double rest = scaled - whole;
    // Away from the half, the binary value and its decimal form round alike.
    if (std::abs(rest - 0.5) > 1e-3) return std::to_string(static_cast<std::int64_t>(rest > 0.5 ? whole + 1 : whole));
  }
  std::array<char, 64> buffer{};
  const auto end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, std::chars_format::scientific, kSignificantDigits - 1).ptr;
  const std::string_view form(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  const std::size_t mark = form.find('e');
  int exponent = 0;
  const std::string_view power = form.substr(mark + 1);
  std::from_chars(power.data() + (power.front() == '+' ? 1 : 0), power.data() + power.size(), exponent);
  std::string digits(1, form.front());
  digits.append(form.substr(2, mark - 2));
  const int kept = exponent + 1 + decimals;  // digits before the place where the number is cut
  if (kept < 0) return "0";
  const auto keep = static_cast<std::size_t>(kept);
  if (keep >= digits.size()) return digits.append(keep - digits.size(), '0');
  const bool up = digits[keep] >= '5';
  digits.resize(keep);
  if (up) {
    std::size_t at = digits.size();
    while (at > 0 && digits[at - 1] == '9') digits[--at] = '0';
    if (at == 0)
      digits.insert(digits.begin(), '1');
    else
      ++digits[at - 1];
  }
  return digits.empty() ? "0" : digits;
}

}  // namespace

double Int(double x) { return std::floor(x); }

double Rnd(double x) { return std::floor(x + 0.5); }

double RoundEven(double x) { return std::nearbyint(x); }  // the default rounding direction is to the even neighbour

double IntegerQuotient(double dividend, double divisor) {
  const double whole = RoundEven(divisor);
  return whole == 0.0 ? 0.0 : std::trunc(RoundEven(dividend) / whole);
}

double Sqr(double x) { return x > 0.0 ? std::sqrt(x) : 0.0; }

double Val(std::string_view text) {
  std::size_t at = 0;
  while (at < text.size() && text[at] == ' ') ++at;
  const std::size_t start = at;
  if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
  const std::size_t digitsStart = at;
  bool point = false;
  std::size_t digits = 0;
  for (; at < text.size() && (IsDigit(text[at]) || (text[at] == '.' && !point)); ++at) {
    if (text[at] == '.')
      point = true;
    else
      ++digits;
  }
  if (digits == 0) return 0.0;
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    std::size_t power = at + 1;
    if (power < text.size() && (text[power] == '+' || text[power] == '-')) ++power;
    if (power < text.size() && IsDigit(text[power])) {
      while (power < text.size() && IsDigit(text[power])) ++power;
      at = power;
    }
  }
  double value = 0.0;
  const char* const first = text.data() + digitsStart;
  const char* const last = text.data() + at;
  const auto read = std::from_chars(first, last, value);
  if (read.ec == std::errc::result_out_of_range) value = std::strtod(std::string(first, last).c_str(), nullptr);
  return text[start] == '-' ? -value : value;
}

std::string FormatNumber(double value, NumberFormat format) {
  if (!std::isfinite(value)) value = 0.0;
  std::string digits = ScaledDigits(std::abs(value), format.decimals);
  const auto needed = static_cast<std::size_t>(format.wholeDigits) + static_cast<std::size_t>(format.decimals);
  const bool negative = value < 0.0 && digits.find_first_not_of('0') != std::string::npos;
  if (digits.size() < needed) digits.insert(0, needed - digits.size(), '0');
  const std::size_t whole = digits.size() - static_cast<std::size_t>(format.decimals);
  std::string text;
  text.reserve(digits.size() + digits.size() / 3 + 2);
  if (negative) text.push_back('-');
  for (std::size_t i = 0; i < whole; ++i) {
    if (format.thousands && i > 0 && (whole - i) % 3 == 0) text.push_back(',');
    text.push_back(digits[i]);
  }
  if (format.decimals > 0) {
    text.push_back('.');
    text.append(digits, whole);
  }
  return text;
}

std::string PlainNumber(double value) {
  if (!std::isfinite(value) || value == 0.0) return " 0";
  std::array<char, 40> buffer{};
  buffer[0] = value < 0.0 ? '-' : ' ';
  const double magnitude = std::abs(value);
  char* const first = buffer.data() + 1;
  char* const last = buffer.data() + buffer.size();
  const bool whole = magnitude < 1e15 && magnitude == std::floor(magnitude);
  char* const end = whole ? std::to_chars(first, last, static_cast<std::int64_t>(magnitude)).ptr
                          : std::to_chars(first, last, magnitude, std::chars_format::general, kSignificantDigits).ptr;
  return {buffer.data(), static_cast<std::size_t>(end - buffer.data())};
}

std::string Digits(double value) {
  std::string text = PlainNumber(value);
  if (text.front() == ' ') text.erase(0, 1);
  return text;
}

std::string PrintedNumber(double value) { return PlainNumber(value) + ' '; }

std::string RightAligned(std::string_view text, std::size_t width) {
  if (text.size() >= width) return std::string(text.substr(text.size() - width));
  return std::string(width - text.size(), ' ').append(text);
}

}  // namespace norvale
