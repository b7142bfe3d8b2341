#include "prices/frm_waste.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/numbers.h"
#include "desktop/desktop_fixture.h"
#include "desktop/form_driver.h"
#include "prices/delivered.h"
#include "prices/printed_rafters.h"

namespace norvale {
namespace {

using testing::ElementsAre;
using Numbers = std::vector<int>;

class frmWasteTest : public DesktopTest {
 protected:
  template <typename Drive>
  void Run(Drive drive) {
    frmWaste form(program);
    DriveModal<frmWaste>([&] { form.exec(); }, drive);
  }
  static std::string Box(int item) { return "txtWF_" + std::to_string(item); }
  static void SetText(QWidget& form, int item, const char* text) {
    Find<QLineEdit>(form, Box(item).c_str())->setText(QString::fromUtf8(text));
  }

  // The stored percentages from item `first` on.
  [[nodiscard]] Numbers Stored(int first, int count) const {
    const WasteFactors factors = LoadWasteFactors(scratch.Path());
    return {factors.percent.begin() + first, factors.percent.begin() + first + count};
  }
  [[nodiscard]] std::string Bytes() const { return ReadFileIfPresent(scratch / kWasteFileName).value_or("no file"); }
};

TEST_F(frmWasteTest, ThePanelsShowTheirItems) {
  const struct {
    const char* button;
    const char* panel;
    const char* title;
    int items;
  } panels[] = {{"cmd2nd", "pct2nd", "2nd Floor", 14},
                {"cmdroof", "pctRoof", "Roof System", 15},
                {"cmdextrim", "pctTrim", "Exterior & Trim", 26},
                {"cmdFSIT", "pctFSIT", "Flooring, Sheetrock, Interior Trim", 12},
                {"cmd1st", "pct1st", "1st Floor", 28}};
  Run([&](QWidget& form) {
    EXPECT_EQ(Find<QLabel>(form, "lbldisplay")->text().toStdString(), "1st Floor");
    EXPECT_EQ(Focus(), Box(1));
    for (const auto& panel : panels) {
      Click(form, panel.button);
      EXPECT_EQ(Find<QLabel>(form, "lbldisplay")->text().toStdString(), panel.title);
      for (const auto& other : panels) EXPECT_EQ(Find(form, other.panel)->isVisible(), &other == &panel) << panel.panel << other.panel;
      int visible = 0;
      for (int item = 0; item < 95; ++item) visible += Find(form, Box(item).c_str())->isVisible() ? 1 : 0;
      EXPECT_EQ(visible, panel.items) << panel.panel;
    }
    for (int item = 0; item < 95; ++item)
      EXPECT_EQ(Text(form, Box(item).c_str()), std::to_string(DesignTimeWasteFactors().percent[static_cast<std::size_t>(item)])) << item;
    EXPECT_EQ(Bytes(), "") << "a missing file is made, empty";
    Find(form, Box(1).c_str())->setFocus();
    Key(Qt::Key_Return);
    EXPECT_EQ(Focus(), Box(94)) << "down the column";
    Key(Qt::Key_PageDown);
    EXPECT_EQ(Focus(), Box(27));
    Key(Qt::Key_3, Qt::AltModifier);
    EXPECT_TRUE(Find(form, Box(46).c_str())->isVisible());
    EXPECT_EQ(Find(form, Box(46).c_str())->accessibleName(), QStringLiteral("Truss Bracing, item 46, Roof System"));
    EXPECT_EQ(Find<QLabel>(form, "lblHead")->text(), QStringLiteral("Item                    Adjustment      Item                     "
                                                                    "Adjustment       Item                    Adjustment"));
    Key(Qt::Key_Escape);
  });
}

TEST_F(frmWasteTest, WhatIsTypedIsBroughtIntoTheRangeAndTold) {
  const struct {
    const char* typed;
    int stored;
    bool isTold;
  } cases[] = {{"12.5", 12, true}, {"13.5", 14, true}, {"250", 100, true},   {"-250", -100, true},    {"-100", -100, false},
               {"abc", 0, true},   {"", 0, false},     {"100.4", 100, true}, {"-99.5", -100, true},   {" +7 ", 7, false},
               {"8.0", 8, false},  {"5%", 5, true},    {"1,5", 1, true},     {"99999999", 100, true}, {"0.5|x", 0, true}};
  std::string told = "The factors are stored. What was not a whole number from -100 to 100 was made one:\n";
  Numbers wanted;
  Run([&](QWidget& form) {
    int item = 56;  // on one panel, in a row
    for (const auto& c : cases) {
      if (c.isTold)
        for (const WasteItem& at : DeliveredWasteItems())
          if (at.item == item) told += "\n" + at.label + ": \"" + c.typed + "\" was stored as " + std::to_string(c.stored);
      SetText(form, item++, c.typed);
      wanted.push_back(c.stored);
    }
    asked.Expect(Notice(told));
    Click(form, "cmdStore");
    EXPECT_FALSE(form.isVisible());
  });
  EXPECT_EQ(Stored(56, static_cast<int>(wanted.size())), wanted);
  EXPECT_EQ(Bytes().size(), 190U);
  Run([](QWidget& form) {
    EXPECT_EQ(Text(form, "txtWF_57"), "14") << "read again at each opening";
    Key(Qt::Key_S, Qt::AltModifier);
  });
  EXPECT_EQ(Stored(56, static_cast<int>(wanted.size())), wanted) << "without a word";
}

TEST_F(frmWasteTest, RestoreWritesNothingUntilItIsStored) {
  WriteBytes(scratch / kWasteFileName, std::string("\x05\0\xff\xff", 4));
  const std::string before = Bytes();
  Run([](QWidget& form) {
    Click(form, "cmdrestore");
    for (int item = 0; item < 95; ++item) EXPECT_EQ(Text(form, Box(item).c_str()), "0") << item;
    Click(form, "Command1");
  });
  EXPECT_EQ(Bytes(), before);
  Run([](QWidget& form) {
    Click(form, "cmdrestore");
    Click(form, "cmdStore");
  });
  EXPECT_EQ(Bytes(), std::string(190, '\0'));
}

TEST_F(frmWasteTest, ShortOddAndOverlongFiles) {
  for (const std::size_t length : {3U, 2U, 0U}) {
    WriteBytes(scratch / kWasteFileName, std::string("\x2c\x01\x07", length));
    Run([&](QWidget& form) {
      EXPECT_EQ(Text(form, "txtWF_0"), length < 2 ? "10" : "300") << "shown as it is stored";
      EXPECT_EQ(Text(form, "txtWF_1"), "10");
      Key(Qt::Key_Escape);
    });
  }
  for (const std::size_t length : {191U, 192U}) {
    WriteBytes(scratch / kWasteFileName, std::string(length, '\x01'));
    EXPECT_THROW(frmWaste{program}, FileError);
    EXPECT_EQ(Bytes().size(), length);
  }
}

TEST_F(frmWasteTest, AFileThatCannotBeWrittenIsToldAndTheTypingStays) {
  Run([this](QWidget& form) {
    Type(form, "txtWF_1", "33");
    disk.reason = "Permission denied";
    asked.Expect(FileErrorNotice(FileError("NVdata04.dat.new", disk.reason)));
    Click(form, "cmdStore");
    EXPECT_EQ(Text(form, "txtWF_1"), "33");
    EXPECT_EQ(Bytes(), "");
    disk.reason.clear();
    Click(form, "cmdStore");
  });
  EXPECT_EQ(Stored(1, 1), Numbers{33});
}

TEST_F(frmWasteTest, AStoredFactorIsInTheNextPrint) {
  const auto before = PrintedRafters(scratch.Path());
  ASSERT_EQ(before.size(), 1U);
  Run([&](QWidget& form) {
    SetText(form, 45, "50");
    EXPECT_EQ(PrintedRafters(scratch.Path()), before) << "typed, not stored";
    Key(Qt::Key_Escape);
  });
  EXPECT_EQ(PrintedRafters(scratch.Path()), before);
  Run([](QWidget& form) {
    SetText(form, 45, "50");
    Click(form, "cmdStore");
  });
  const auto after = PrintedRafters(scratch.Path());
  ASSERT_EQ(after.size(), 1U);
  EXPECT_EQ(Val(after[0]), Val(before[0]) + Int(0.5 * Val(before[0])));
  EXPECT_TRUE(Has(after[0], "*(Rafter)")) << "marked as adjusted";
}

}  // namespace
}  // namespace norvale
