// The pop-up calculator: four functions and percent on two operands.
#pragma once

#include <string>
#include <string_view>

namespace norvale {

/// What was pressed last. NUMS: the readout is a number that counts as an operand.
enum class CalcInput { NONE, NUMS, OPS, CE };

struct Calculator {
  std::string readout = "0";  // with the decimal sign of the locale
  char decimalSign = '.';     // '.' or ','
  CalcInput LastInput = CalcInput::NONE;
  int OperandCount = 0;
  double FirstOperand = 0;
  double SecondOperand = 0;
  char PendingOperator = 0;   // '+', '-', '*', '/' or '='; 0: none
  bool DecimalFlag = false;   // the readout has its decimal sign
  bool startsAfresh = false;  // the next digit begins a new number although the readout counts as one
};

// What a press came to: a message for the operator, without its title, or nothing.

void PressDigit(Calculator& calculator, int digit);
void PressDecimal(Calculator& calculator);

/// '+', '-', '*', '/' or '='. A divisor of 0, and a result of more than 15 digits, is told and clears the calculator.
std::string PressOperator(Calculator& calculator, char key);

/// The percentage of the first operand before + and -, a hundredth otherwise.
void PressPercent(Calculator& calculator);

void PressCancelEntry(Calculator& calculator);
void PressCancel(Calculator& calculator);

/// What a key came to.
struct CalcKey {
  bool leaves = false;  // Esc
  std::string message;
};
/// Keys by their character: digits, the operators, "=" or Enter (13), "%", backspace (8) for CE, delete (127) for Cancel,
/// Esc (27), and the point or the comma for the decimal sign. Any other does nothing.
CalcKey PressKey(Calculator& calculator, int key);

/// The readout as the boxes take it, with a point.
std::string CarriedText(const Calculator& calculator);

}  // namespace norvale
