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

constexpr const char* kZero = "0 Can't divide by zero|Norvale Help Notice";

class frmCalcTest : public DesktopTest {
 protected:
  frmCalcTest() {
    keys.SetCalculator([this](QWidget* control) { OpenCalculator(asked, control, QStringLiteral("<ESC>=Exit"), place); });
  }
  ~frmCalcTest() override { QLocale::setDefault(QLocale::c()); }

  // ALT+F2 where the focus is.
  template <typename Drive>
  void Open(Drive drive) {
    DriveModal<frmCalc>([] { Key(Qt::Key_F2, Qt::AltModifier); }, drive);
  }

  static std::string Readout(QWidget& form) { return Find<QLabel>(form, "lblReadout")->text().toStdString(); }
  static void CarryBack() { Key(Qt::Key_Insert, Qt::ShiftModifier); }

  CalculatorPlace place;
  FormKeys keys;
};

TEST_F(frmCalcTest, KeysAndButtonsReckonAlike) {
  QLineEdit box;
  ShowActive(box);
  Open([this](frmCalc& form) {
    EXPECT_EQ(Focus(), "pctKeyTrap");
    Keys("12.5*4=");
    EXPECT_EQ(Readout(form), "50");
    Keys("1q2 +x3");
    Key(Qt::Key_Return);
    EXPECT_EQ(Readout(form), "15");
    Key(Qt::Key_Return);
    EXPECT_EQ(Readout(form), "15") << "\"=\" once more does nothing";
    Keys("7");
    Key(Qt::Key_Backspace);
    EXPECT_EQ(Readout(form), "0");
    Key(Qt::Key_Delete);
    const char* const chain[] = {"cmdNumbr_2", "cmdNumbr_0",   "cmdNumbr_0",     "cmdOperate_1", "cmdNumbr_1",
                                 "cmdNumbr_0", "cmdPercent",   "cmdOperate_4",   "cmdOperate_3", "cmdNumbr_8",
                                 "cmdDecimal", "cmdNumbr_5",   "cmdCancelEntry", "cmdNumbr_9",   "cmdOperate_2",
                                 "cmdNumbr_6", "cmdOperate_0", "cmdNumbr_3",     "cmdOperate_4"};
    for (const char* const button : chain) Click(form, button);
    EXPECT_EQ(Readout(form), "123") << "(200 - 10%) / 9 * 6 + 3";
    EXPECT_EQ(Focus(), "pctKeyTrap") << "Enter is \"=\" whatever was clicked";
    Click(form, "cmdCANCEL");
    EXPECT_EQ(Readout(form), "0");
    asked.Expect(kZero);
    Keys("5/0=");
    asked.ExpectAllAsked();
    Keys("6/4=");
    EXPECT_EQ(Readout(form), "1.5");
    Key(Qt::Key_F2, Qt::AltModifier);  // it is open already
    Click(form, "cmdleave");
  });
  EXPECT_EQ(box.text(), "");
}

TEST_F(frmCalcTest, WritesTheDecimalSignOfTheLocaleAndCarriesAPoint) {
  QLocale::setDefault(QLocale(QLocale::German));
  QLineEdit box;
  ShowActive(box);
  for (const char* const sum : {"1,5+1,25=", "1.5+1.25="})
    Open([&](frmCalc& form) {
      EXPECT_EQ(Find<QPushButton>(form, "cmdDecimal")->text(), ",");
      Keys(sum);
      EXPECT_EQ(Readout(form), "2,75");
      CarryBack();
    });
  EXPECT_EQ(box.text(), "2.75") << "and not twice";
}

// Into a length box and into a number box, which see an entry.
TEST_F(frmCalcTest, CarriesItsResultIntoTheBoxAtHand) {
  EstimateRecord plan = BlankPlan();
  PlanForm dataEntry = NewForm(kOneStoryCrawl);
  plan.RoofPlanes[0] = {.SectionType = 1, .SectionLength = 120, .RafterRun = 12};
  frmROOF roof(program, plan, dataEntry);
  DriveModal<frmROOF>([&] { roof.exec(); },
                      [&](frmROOF& form) {
                        Find(form, "txtRafterRun")->setFocus();
                        Open([](frmCalc&) {
                          Keys("25/2=");
                          Key(Qt::Key_Escape);
                        });
                        EXPECT_EQ(Text(form, "txtRafterRun"), "1.") << "Esc carries nothing";
                        Open([](frmCalc& calculator) {
                          Keys("25/2=");
                          Click(calculator, "cmdInsert");
                        });
                        EXPECT_EQ(Focus(), "txtRafterRun");
                        EXPECT_EQ(Text(form, "txtRafterRun"), "12.5");
                        EXPECT_EQ(Find<QLabel>(form, "lblsqft")->text(), "129 SF of 129 SF") << "as if it had been typed";
                        Click(form, "cmdDONE");
                        Find(form, "txtTWOxSIX_0")->setFocus();
                        Open([](frmCalc&) {
                          Keys("100/3=");
                          CarryBack();
                        });
                        EXPECT_EQ(Text(form, "txtTWOxSIX_0"), "33.333333333") << "as many decimals as the box has room for";
                        Key(Qt::Key_Return);
                        EXPECT_EQ(Text(form, "txtTWOxSIX_0"), "34");
                        asked.Expect("2 Transfer Square Footage of Roof Area to Data Entry Screen?|UPDATE ROOF AREA?", Answer::No);
                        Click(form, "cmdJOIST");
                      });
  EXPECT_EQ(plan.RoofPlanes[0].RafterRun, 150);
  EXPECT_EQ(plan.CeilingJoistLft2X6[0], 34);
}

// The cell's own box closes when another form takes the focus.
TEST_F(frmCalcTest, CarriesItsResultIntoTheCellOfATable) {
  QTableWidget table(2, 1);
  table.setItem(0, 0, new QTableWidgetItem(QStringLiteral("5")));
  table.setCurrentCell(0, 0);
  ShowActive(table);
  for (const bool isEditing : {false, true}) {
    if (isEditing) Keys("7");
    Open([](frmCalc&) {
      Keys("25/2=");
      CarryBack();
    });
    ASSERT_NE(qobject_cast<QLineEdit*>(QApplication::focusWidget()), nullptr) << isEditing;
    Key(Qt::Key_Tab);
    EXPECT_EQ(table.item(0, 0)->text(), "12.5");
    table.item(0, 0)->setText(QStringLiteral("5"));
    table.setCurrentCell(0, 0);
  }
}

TEST_F(frmCalcTest, TellsWhereNoBoxTakesTheNumber) {
  const auto refuses = [this](const char* sum, const std::string& message) {
    Open([&](frmCalc& form) {
      Keys(sum);
      asked.Expect(message);
      CarryBack();
      asked.ExpectAllAsked();
      EXPECT_TRUE(form.isVisible());
      Key(Qt::Key_Escape);
    });
  };
  const char* const noBox = "0 There is no box to take the number. Go to a box, then open the calculator with ALT+F2.|Norvale Help Notice";
  {
    QPushButton button;
    ShowActive(button);
    refuses("1", noBox);
  }
  QLineEdit box(QStringLiteral("7"));
  box.setReadOnly(true);
  ShowActive(box);
  refuses("1", noBox);
  box.setReadOnly(false);
  box.setMaxLength(4);
  refuses("12345", "0 The box cannot take the number 12345.|Norvale Help Notice");
  refuses("100/3=", "0 The box cannot take the number 33.3333333333333.|Norvale Help Notice");
  const QRegularExpressionValidator digits(QRegularExpression(QStringLiteral("[0-9]*")));
  box.setValidator(&digits);
  refuses("3/2=", "0 The box cannot take the number 1.5.|Norvale Help Notice");
  EXPECT_EQ(box.text(), "7");
}

TEST_F(frmCalcTest, OpensWhereItStoodBeside) {
  QLineEdit box;
  box.move(20, 20);
  ShowActive(box);
  QSize size;
  Open([&](frmCalc& form) {
    size = form.size();
    EXPECT_FALSE(form.frameGeometry().intersects(box.geometry())) << "the box stays in sight";
    form.move(300, 200);
    Key(Qt::Key_Escape);
  });
  Open([&](frmCalc& form) {
    EXPECT_EQ(form.pos(), QPoint(300, 200));
    EXPECT_EQ(form.size(), size);
    Key(Qt::Key_Escape);
  });
  EXPECT_EQ(QApplication::focusWidget(), &box);
}

}  // namespace
}  // namespace norvale
