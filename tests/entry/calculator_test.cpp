#include "entry/calculator.h"

#include <gtest/gtest.h>

namespace norvale {
namespace {

// C: CE, D: Cancel; anything else is its own key.
std::string Press(Calculator& calculator, std::string_view keys) {
  std::string message;
  for (const char key : keys) message += PressKey(calculator, key == 'C' ? 8 : key == 'D' ? 127 : key).message;
  return message;
}

// The keys that are pressed, and what they come to.
void ExpectChain(std::string_view chain) {
  const std::size_t end = chain.find(' ');
  Calculator calculator;
  EXPECT_EQ(Press(calculator, chain.substr(0, end)), "") << chain;
  EXPECT_EQ(calculator.readout, chain.substr(end + 1)) << chain;
}

TEST(Calculator, ReckonsChains) {
  for (const std::string_view chain :
       {"1.5+2.5 2.5", "1.5C2.5 2.5",  "1.5D2.5 2.5",  "1.5=2.5 2.5", "1.5%2.5 2.5", "1.2.3 1.23", ".5+.5= 1",     "0.1+0.2= 0.3",
        "5+3*2= 16",   "9-12= -3",     "1/4= 0.25",    "5+-3= 2",     "2+3+ 5",      "3+4\r 7",    "5+3=== 8",     "5+3=4+1= 5",
        "5+3=+2= 10",  "10/3*3= 10",   "10/3=*3= 10",  "8+3C4= 12",   "8+3C= 8",     "8+3C 0",     "8+3D 0",       "8+3D4+1= 5",
        "200+10% 20",  "200+10%= 220", "200-10%= 180", "200*10%= 20", "50/20%= 250", "50% 0.5",    "200+10%5= 205"})
    ExpectChain(chain);
  for (const std::string_view chain : {" 0", "007 7", "12x!q 12", "5*= 5", "+5= 5", "8C5= 5", "5=C+2= 2"}) ExpectChain(chain);
  for (const std::string_view chain :
       {"200+10%+1= 221", "1000*1000= 1000000", "1/100000= 0.00001", "1/3/1000000000/1000000000= 0", "1234567890123456 123456789012345"})
    ExpectChain(chain);
}

TEST(Calculator, WhatHasNoResultIsToldAndClears) {
  const std::string tooLarge = "999999999999999+1=";
  for (const std::string& keys : {std::string("5/0="), std::string("5/0+"), std::string("5/0.0="), tooLarge}) {
    Calculator calculator;
    EXPECT_EQ(Press(calculator, keys), keys == tooLarge ? "0 This Entry is TOO LARGE for calculations!|" : "0 Can't divide by zero|");
    EXPECT_EQ(calculator.readout, "0") << keys;
    EXPECT_EQ(Press(calculator, "6/2="), "") << keys;
    EXPECT_EQ(calculator.readout, "3") << "goes on after " << keys;
  }
}

TEST(Calculator, FollowsTheDecimalSignOfTheLocale) {
  for (const char* keys : {"1,5+1,25=", "1.5+1.25="}) {
    Calculator calculator{.decimalSign = ','};
    Press(calculator, keys);
    EXPECT_EQ(calculator.readout, "2,75") << keys;
    EXPECT_EQ(CarriedText(calculator), "2.75") << keys;
    Press(calculator, "D,5");
    EXPECT_EQ(calculator.readout, "0,5") << "Cancel keeps the sign";
  }
}

}  // namespace
}  // namespace norvale
