#include "entry/calculator.h"

#include <algorithm>
#include <cmath>

#include "base/numbers.h"
#include "entry/number_entry.h"

namespace norvale {

namespace {

constexpr std::string_view kZeroDivisor = "0 Can't divide by zero|";
constexpr std::ptrdiff_t kMostDigits = 15;  // more than a number can hold exactly are not taken
constexpr double kTooManyDigits = 1e15;     // nor are they shown
constexpr double kSmall = 1e-4;             // shown with fixed decimals from here on down

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

double ReadoutValue(const Calculator& calculator) { return Val(CarriedText(calculator)); }

std::string SmallNumber(double value) {
  std::string text = FormatNumber(value, {.wholeDigits = 1, .decimals = 12});
  while (text.back() == '0') text.pop_back();
  if (text.back() == '.') text.pop_back();
  return text;
}

void ShowNumber(Calculator& calculator, double value) {
  calculator.readout = std::abs(value) < kSmall ? SmallNumber(value) : Digits(value);
  std::replace(calculator.readout.begin(), calculator.readout.end(), '.', calculator.decimalSign);
}

bool BeginsNumber(const Calculator& calculator) { return calculator.LastInput != CalcInput::NUMS || calculator.startsAfresh; }

void BeginNumber(Calculator& calculator, std::string_view readout) {
  calculator.readout = readout;
  calculator.DecimalFlag = false;
  calculator.startsAfresh = false;
}

double Result(char key, double first, double second) {
  switch (key) {
    case '+':
      return first + second;
    case '-':
      return first - second;
    case '*':
      return first * second;
    case '/':
      return first / second;
    default:
      return second;  // behind "=" a new chain begins with the number typed
  }
}

}  // namespace

void PressDigit(Calculator& calculator, int digit) {
  if (BeginsNumber(calculator)) BeginNumber(calculator, "");
  calculator.LastInput = CalcInput::NUMS;
  if (std::count_if(calculator.readout.begin(), calculator.readout.end(), IsDigit) >= kMostDigits) return;
  if (calculator.readout == "0") calculator.readout.clear();
  calculator.readout.push_back(static_cast<char>('0' + digit));
}

void PressDecimal(Calculator& calculator) {
  if (BeginsNumber(calculator)) BeginNumber(calculator, "0");
  calculator.LastInput = CalcInput::NUMS;
  if (calculator.DecimalFlag) return;
  calculator.readout.push_back(calculator.decimalSign);
  calculator.DecimalFlag = true;
}

std::string PressOperator(Calculator& calculator, char key) {
  // Only a number that was typed is read from the readout: a result is known more exactly than it can be shown.
  if (calculator.LastInput == CalcInput::NUMS) ++calculator.OperandCount;
  if (calculator.LastInput == CalcInput::NUMS && calculator.OperandCount == 1) {
    calculator.FirstOperand = ReadoutValue(calculator);
  } else if (calculator.LastInput == CalcInput::CE && calculator.PendingOperator == '=') {
    calculator.FirstOperand = 0;  // behind a result CE has cleared the result
  } else if (calculator.OperandCount == 2) {
    calculator.SecondOperand = ReadoutValue(calculator);
    if (calculator.PendingOperator == '/' && calculator.SecondOperand == 0) {
      PressCancel(calculator);
      return std::string(kZeroDivisor);
    }
    calculator.FirstOperand = Result(calculator.PendingOperator, calculator.FirstOperand, calculator.SecondOperand);
    calculator.OperandCount = 1;
    if (!(std::abs(calculator.FirstOperand) < kTooManyDigits)) {
      PressCancel(calculator);
      return std::string(kEntryTooLarge);
    }
  }
  ShowNumber(calculator, calculator.FirstOperand);
  calculator.LastInput = CalcInput::OPS;
  calculator.PendingOperator = key;
  return {};
}

void PressPercent(Calculator& calculator) {
  const double value = ReadoutValue(calculator);
  const bool isShare = calculator.OperandCount == 1 && (calculator.PendingOperator == '+' || calculator.PendingOperator == '-');
  BeginNumber(calculator, "");
  ShowNumber(calculator, isShare ? calculator.FirstOperand * value / 100 : value / 100);
  calculator.LastInput = CalcInput::NUMS;
  calculator.startsAfresh = true;
}

void PressCancelEntry(Calculator& calculator) {
  BeginNumber(calculator, "0");
  calculator.LastInput = CalcInput::CE;
}

void PressCancel(Calculator& calculator) { calculator = Calculator{.decimalSign = calculator.decimalSign}; }

CalcKey PressKey(Calculator& calculator, int key) {
  constexpr int kBackspace = 8;
  constexpr int kEnter = 13;
  constexpr int kEscape = 27;
  constexpr int kDelete = 127;
  CalcKey pressed;
  if (key >= '0' && key <= '9') {
    PressDigit(calculator, key - '0');
    return pressed;
  }
  switch (key) {
    case '+':
    case '-':
    case '*':
    case '/':
    case '=':
      pressed.message = PressOperator(calculator, static_cast<char>(key));
      break;
    case kEnter:
      pressed.message = PressOperator(calculator, '=');
      break;
    case '.':
    case ',':
      PressDecimal(calculator);
      break;
    case '%':
      PressPercent(calculator);
      break;
    case kBackspace:
      PressCancelEntry(calculator);
      break;
    case kDelete:
      PressCancel(calculator);
      break;
    case kEscape:
      pressed.leaves = true;
      break;
    default:
      break;
  }
  return pressed;
}

std::string CarriedText(const Calculator& calculator) {
  std::string text = calculator.readout;
  std::replace(text.begin(), text.end(), calculator.decimalSign, '.');
  return text;
}

}  // namespace norvale
