#include "entry/frm_calc.h"

#include <gtest/gtest.h>

#include <QLocale>
#include <QRegularExpressionValidator>
#include <QTableWidget>

#include "desktop/desktop_fixture.h"
#include "desktop/form_driver.h"
#include "desktop/frm_keys.h"
#include "entry/entry_form.h"
#include "entry/frm_roof.h"

namespace norvale {
namespace {

class frmCalcTest : public DesktopTest {
 protected:
  frmCalcTest() {
    keys.SetCalculator([this](QWidget* control) { OpenCalculator(asked, control, QStringLiteral("<ESC>=Exit"), place); });
  }
  ~frmCalcTest() override { QLocale::setDefault(QLocale::c()); }

  // ALT+F2 where the focus is.
  template <typename Drive>
  void Open(Drive drive) {
    DriveModal<frmCalc>([] { Keys("<Alt+F2>"); }, drive);
  }
  // Reckons and carries the result back.
  void Carry(const char* sum) {
    Open([sum](frmCalc&) { Keys(sum), Keys("<Shift+Ins>"); });
  }

  CalculatorPlace place;
  FormKeys keys;
};

TEST_F(frmCalcTest, KeysAndButtonsReckonAlike) {
  QLineEdit box;
  box.move(20, 20);
  ShowActive(box);
  QSize size;
  Open([&](frmCalc& form) {
    EXPECT_FALSE(form.frameGeometry().intersects(box.geometry())) << "the box stays in sight";
    form.move(300, 200);
    size = form.size();
    EXPECT_EQ(Focus(), "pctKeyTrap");
    const auto readout = [&form] { return Text(form, "lblReadout"); };
    TakeSteps({{"1q2 +x3<Return>", "15"}, {"7<Backspace>", "0"}, {"<Del>", "0"}}, asked, readout);
    const char* const chain[] = {"cmdNumbr_2", "cmdNumbr_0",   "cmdNumbr_0",     "cmdOperate_1", "cmdNumbr_1",
                                 "cmdNumbr_0", "cmdPercent",   "cmdOperate_4",   "cmdOperate_3", "cmdNumbr_8",
                                 "cmdDecimal", "cmdNumbr_5",   "cmdCancelEntry", "cmdNumbr_9",   "cmdOperate_2",
                                 "cmdNumbr_6", "cmdOperate_0", "cmdNumbr_3",     "cmdOperate_4"};
    for (const char* const button : chain) Click(form, button);
    EXPECT_EQ(readout(), "123") << "(200 - 10%) / 9 * 6 + 3";
    EXPECT_EQ(Focus(), "pctKeyTrap") << "Enter is \"=\" whatever was clicked";
    Click(form, "cmdCANCEL");
    TakeSteps({{"", "0"}, {"5/0=", "0", "0 Can't divide by zero|Norvale Help Notice"}}, asked, readout);
    Keys("<Alt+F2>");  // it is open already
    Click(form, "cmdleave");
  });
  EXPECT_EQ(box.text(), "");
  EXPECT_EQ(QApplication::focusWidget(), &box);
  QLocale::setDefault(QLocale(QLocale::German));
  Open([&](frmCalc& form) {
    EXPECT_EQ(QRect(form.pos(), form.size()), QRect(QPoint(300, 200), size)) << "where it stood";
    EXPECT_EQ(Text(form, "cmdDecimal"), ",");
    Keys("1,5+1,25=");
    EXPECT_EQ(Text(form, "lblReadout"), "2,75");
    Click(form, "cmdInsert");
  });
  EXPECT_EQ(box.text(), "2.75");
  Carry("3");
  EXPECT_EQ(box.text(), "3") << "in place of what stands there";
}

// Into a length box and into a number box, which see an entry.
TEST_F(frmCalcTest, CarriesItsResultIntoTheBoxAtHand) {
  EstimateRecord plan = BlankPlan();
  PlanForm dataEntry = NewForm(kOneStoryCrawl);
  plan.RoofPlanes[0] = {.SectionType = 1, .SectionLength = 120, .RafterRun = 12};
  frmROOF roof(program, plan, dataEntry);
  const auto drive = [this](frmROOF& form) {
    Find(form, "txtRafterRun")->setFocus();
    Open([](frmCalc&) { Keys("25/2=<Esc>"); });
    EXPECT_EQ(Text(form, "txtRafterRun"), "1.") << "Esc carries nothing";
    Carry("25/2=");
    EXPECT_EQ(Focus() + Text(form, "txtRafterRun"), "txtRafterRun12.5");
    EXPECT_EQ(Text(form, "lblsqft"), "129 SF of 129 SF") << "as if it had been typed";
    Click(form, "cmdDONE");
    Carry("100/3=");
    EXPECT_EQ(Text(form, "txtTWOxSIX_0"), "33.333333333") << "as many decimals as the box has room for";
    Keys("<Return>");
    EXPECT_EQ(Text(form, "txtTWOxSIX_0"), "34");
    asked.Expect(std::string(kTransferAreaQuestion), Answer::No);
    Click(form, "cmdJOIST");
  };
  DriveModal<frmROOF>([&] { roof.exec(); }, drive);
  EXPECT_EQ(plan.RoofPlanes[0].RafterRun, 150);
}

// The cell's own box closes when another form takes the focus.
TEST_F(frmCalcTest, CarriesItsResultIntoTheCellOfATable) {
  QTableWidget table(2, 1);
  ShowActive(table);
  for (const bool isEditing : {false, true}) {
    table.setItem(0, 0, new QTableWidgetItem(QStringLiteral("5")));
    table.setCurrentCell(0, 0);
    if (isEditing) Keys("7");
    Carry("25/2=");
    ASSERT_NE(qobject_cast<QLineEdit*>(QApplication::focusWidget()), nullptr) << isEditing;
    Keys("<Tab>");
    EXPECT_EQ(table.item(0, 0)->text(), "12.5");
  }
}

TEST_F(frmCalcTest, TellsWhereNoBoxTakesTheNumber) {
  const auto refuses = [this](const char* sum, const std::string& message) {
    Open([&](frmCalc& form) {
      Keys(sum);
      asked.Expect("0 " + message + "|Norvale Help Notice");
      Click(form, "cmdInsert");
      asked.ExpectAllAsked();
      EXPECT_TRUE(form.isVisible());
      Keys("<Esc>");
    });
  };
  QLineEdit box(QStringLiteral("7"));
  box.setReadOnly(true);
  ShowActive(box);
  refuses("1", "There is no box to take the number. Go to a box, then open the calculator with ALT+F2.");
  box.setReadOnly(false);
  box.setMaxLength(4);
  refuses("12345", "The box cannot take the number 12345.");
  refuses("100/3=", "The box cannot take the number 33.3333333333333.");
  const QRegularExpressionValidator digits(QRegularExpression(QStringLiteral("[0-9]*")));
  box.setValidator(&digits);
  refuses("3/2=", "The box cannot take the number 1.5.");
  EXPECT_EQ(box.text(), "7");
}

}  // namespace
}  // namespace norvale
