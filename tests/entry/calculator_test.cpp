#include "entry/calculator.h"

#include <gtest/gtest.h>

#include "entry/entry_form.h"
#include "entry/roof.h"
#include "entry/screens.h"

namespace norvale {
namespace {

// C: CE, D: Cancel; anything else is its own key.
std::string Press(Calculator& calculator, std::string_view keys) {
  std::string message;
  for (const char key : keys) message += PressKey(calculator, key == 'C' ? 8 : key == 'D' ? 127 : key).message;
  return message;
}

TEST(Calculator, ReckonsChains) {
  struct Case {
    const char* keys;
    const char* readout;
  };
  for (const Case& c : {Case{"", "0"},
                        Case{"12", "12"},
                        Case{"007", "7"},
                        Case{"5+3=", "8"},
                        Case{"5+3*2=", "16"},
                        Case{"9-12=", "-3"},
                        Case{"7*6=", "42"},
                        Case{"1/4=", "0.25"},
                        Case{"5+3=4+1=", "5"},
                        Case{"5+3=+2=", "10"},
                        Case{"5+3===", "8"},
                        Case{"2+3+", "5"},
                        Case{"5+-3=", "2"},
                        Case{"5*=", "5"},
                        Case{"+5=", "5"},
                        Case{".5+.5=", "1"},
                        Case{"1.2.3", "1.23"},
                        Case{"5+.5=", "5.5"},
                        Case{"1.5+2.5=.5", "0.5"},
                        Case{"0.1+0.2=", "0.3"},
                        Case{"8+3C4=", "12"},
                        Case{"8+3C=", "8"},
                        Case{"8C5=", "5"},
                        Case{"8+3C", "0"},
                        Case{"8+3D", "0"},
                        Case{"8+3D4+1=", "5"},
                        Case{"200+10%=", "220"},
                        Case{"200-10%=", "180"},
                        Case{"200*10%=", "20"},
                        Case{"50/20%=", "250"},
                        Case{"50%", "0.5"},
                        Case{"200+10%", "20"},
                        Case{"200+10%5=", "205"},
                        Case{"200+10%+1=", "221"},
                        Case{"10/3*3=", "10"},
                        Case{"10/3=*3=", "10"},
                        Case{"1/100000=", "0.00001"},
                        Case{"1/3/1000000000/1000000000=", "0"},
                        Case{"1000*1000=", "1000000"},
                        Case{"1234567890123456", "123456789012345"},
                        Case{"12x!q", "12"},
                        Case{"3\r", "3"},
                        Case{"3+4\r", "7"}}) {
    Calculator calculator;
    EXPECT_EQ(Press(calculator, c.keys), "") << c.keys;
    EXPECT_EQ(calculator.readout, c.readout) << c.keys;
  }
}

TEST(Calculator, ANewNumberMayHaveItsOwnPoint) {
  for (const char* keys : {"1.5+2.5", "1.5C2.5", "1.5D2.5", "1.5=2.5", "1.5%2.5"}) {
    Calculator calculator;
    Press(calculator, keys);
    EXPECT_EQ(calculator.readout, "2.5") << keys;
  }
}

TEST(Calculator, NothingIsDividedByZero) {
  for (const char* keys : {"5/0=", "5/0+", "5/0.0="}) {
    Calculator calculator;
    EXPECT_EQ(Press(calculator, keys), "0 Can't divide by zero|") << keys;
    EXPECT_EQ(calculator.readout, "0") << keys;
    EXPECT_EQ(Press(calculator, "6/2="), "") << keys;
    EXPECT_EQ(calculator.readout, "3") << "goes on after " << keys;
  }
}

TEST(Calculator, AResultOfTooManyDigitsIsTold) {
  Calculator calculator;
  EXPECT_EQ(Press(calculator, "999999999999999+1="), "0 This Entry is TOO LARGE for calculations!|");
  EXPECT_EQ(calculator.readout, "0");
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

TEST(Calculator, EscapeLeavesAndNothingElseDoes) {
  for (int key = 0; key < 256; ++key) {
    Calculator calculator;
    EXPECT_EQ(PressKey(calculator, key).leaves, key == 27) << key;
  }
}

TEST(Calculator, ItsResultFitsTheBoxesItIsCarriedTo) {
  Calculator calculator{.decimalSign = ','};
  Press(calculator, "25/2=");
  EXPECT_EQ(ReadLength(CarriedText(calculator)).inches, 150);
  PlanForm form = NewForm(kOneStoryCrawl);
  SetNumberText(form, 0, CarriedText(calculator));
  EXPECT_EQ(LeaveNumberBox(form, 0).message, "");
  EXPECT_EQ(form.TxtDisp[0].text, "13");
}

}  // namespace
}  // namespace norvale
