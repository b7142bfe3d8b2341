#include "prices/frm_waste.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/numbers.h"
#include "desktop/desktop_fixture.h"
#include "desktop/form_driver.h"
#include "prices/delivered.h"
#include "prices/frm_mat_default.h"
#include "takeoff/print_estimate.h"
#include "takeoff/sections.h"

namespace norvale {
namespace {

class frmWasteTest : public DesktopTest {
 protected:
  template <typename Drive>
  void Run(Drive drive) {
    frmWaste form(program);
    DriveModal<frmWaste>([&] { form.exec(); }, drive);
  }
  static std::string Box(std::size_t item) { return "txtWF_" + std::to_string(item); }
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
    EXPECT_EQ(Text(form, "lbldisplay"), "1st Floor");
    EXPECT_EQ(Focus(), Box(1));
    for (const auto& panel : panels) {
      Click(form, panel.button);
      EXPECT_EQ(Text(form, "lbldisplay"), panel.title);
      for (const auto& other : panels) EXPECT_EQ(Find(form, other.panel)->isVisible(), &other == &panel) << panel.panel << other.panel;
      int visible = 0;
      for (std::size_t item = 0; item < kWasteItems; ++item) visible += Find(form, Box(item).c_str())->isVisible() ? 1 : 0;
      EXPECT_EQ(visible, panel.items) << panel.panel;
    }
    for (std::size_t item = 0; item < kWasteItems; ++item)
      EXPECT_EQ(Text(form, Box(item).c_str()), std::to_string(DesignTimeWasteFactors().percent[item])) << item;
    EXPECT_EQ(Bytes(), "") << "a missing file is made, empty";
    Find(form, Box(1).c_str())->setFocus();
    Keys("<Return>");
    EXPECT_EQ(Focus(), Box(94)) << "down the column";
    EXPECT_EQ(Find(form, Box(94).c_str())->x(), Find(form, Box(1).c_str())->x());
    Keys("<PgDown>");
    EXPECT_EQ(Focus(), Box(27));
    Keys("<Alt+3>");
    EXPECT_TRUE(Find(form, Box(46).c_str())->isVisible());
    EXPECT_EQ(Find(form, Box(46).c_str())->accessibleName(), QStringLiteral("Truss Bracing, item 46, Roof System"));
    EXPECT_EQ(Text(form, "lblHead"),
              "Item                    Adjustment      Item                     Adjustment       Item                    Adjustment");
    Keys("<Esc>");
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
  constexpr std::size_t kFirst = 56;  // on one panel, in a row
  WasteFactors wanted = DesignTimeWasteFactors();
  std::string told = "The factors are stored. What was not a whole number from -100 to 100 was made one:\n";
  Run([&](QWidget& form) {
    std::size_t item = kFirst;
    for (const auto& c : cases) {
      if (c.isTold)
        for (const WasteItem& at : DeliveredWasteItems())
          if (at.item == static_cast<int>(item))
            told += "\n" + at.label + ": \"" + c.typed + "\" was stored as " + std::to_string(c.stored);
      Find<QLineEdit>(form, Box(item).c_str())->setText(QString::fromUtf8(c.typed));
      wanted.percent[item++] = static_cast<std::int16_t>(c.stored);
    }
    disk.reason = "Permission denied";
    asked.Expect(FileErrorNotice(FileError("NVdata04.dat.new", disk.reason)));
    Click(form, "cmdStore");
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(Text(form, Box(kFirst).c_str()), "12.5") << "the typing stays";
    EXPECT_EQ(Bytes(), "");
    disk.reason.clear();
    asked.Expect(Notice(told));
    Click(form, "cmdStore");
    EXPECT_FALSE(form.isVisible());
  });
  EXPECT_EQ(Bytes(), EncodeWasteFactors(wanted));
  Run([](QWidget& form) {
    EXPECT_EQ(Text(form, "txtWF_57"), "14") << "read again at each opening";
    Keys("<Alt+S>");
  });
  EXPECT_EQ(Bytes(), EncodeWasteFactors(wanted)) << "without a word";
}

TEST_F(frmWasteTest, RestoreWritesNothingUntilItIsStored) {
  const std::string before("\x2c\x01\xff\xff\x07", 5);
  WriteBytes(scratch / kWasteFileName, before);
  for (const char* const way : {"Command1", "cmdStore"}) {
    EXPECT_EQ(Bytes(), before);
    Run([&](QWidget& form) {
      EXPECT_EQ(Text(form, "txtWF_0") + Text(form, "txtWF_1") + Text(form, "txtWF_2"), "300-110") << "shown as it is stored";
      Click(form, "cmdrestore");
      for (std::size_t item = 0; item < kWasteItems; ++item) EXPECT_EQ(Text(form, Box(item).c_str()), "0") << item;
      Click(form, way);
    });
  }
  EXPECT_EQ(Bytes(), std::string(190, '\0'));
  WriteBytes(scratch / kWasteFileName, std::string(191, '\x01'));
  EXPECT_THROW(frmWaste{program}, FileError);
  EXPECT_EQ(Bytes(), std::string(191, '\x01'));
}

// The printed line of 12-foot rafters under 40 feet of gable roof, in the last of the four delivered species.
std::string PrintedRafters(const std::filesystem::path& folder) {
  EstimatePrint print;
  print.date = "01-02-2026";
  print.sectionMask = FindSection("ROOF SYSTEM")->bit;
  print.plan.PlanType = 4;
  print.plan.CeilingJoistLft2X6[0] = 40;  // stick-framed
  print.plan.RoofPlanes[0] = {
      .SectionType = 1, .FramingType = 3, .PitchIndex = 2, .RafterIndex = 1, .SectionLength = 480, .RafterRun = 130};
  Page page;
  PrintEstimate(print, LoadTakeoffData(folder, print.sectionMask), page);
  const std::string text = page.Text();
  const std::size_t at = text.find("(Rafter)");
  const std::size_t from = text.rfind('\n', at) + 1;
  return text.substr(from, text.find('\n', at) - from);
}

TEST_F(DesktopTest, ASavedWasteFactorAndASavedRowAreInTheNextPrint) {
  const std::string before = PrintedRafters(scratch.Path());
  frmWaste waste(program);
  DriveModal<frmWaste>([&] { waste.exec(); },
                       [](QWidget& form) {
                         Find<QLineEdit>(form, "txtWF_45")->setText(QStringLiteral("50"));
                         Click(form, "cmdStore");
                       });
  const std::string wasted = PrintedRafters(scratch.Path());
  EXPECT_EQ(Val(wasted), Val(before) + Int(0.5 * Val(before)));
  EXPECT_TRUE(Has(wasted, "*(Rafter)")) << "marked as adjusted";

  // The roof calculator goes by four rows; a list of three gets its fourth.
  MaterialEditor lists = LoadMaterialEditor(scratch.Path());
  std::erase_if(lists.MaterialRows, [&, row = 0](const MaterialRow& at) mutable { return at.ListNumber == 0 && row++ == 3; });
  SaveMaterialRows(disk, scratch.Path(), lists.MaterialRows);
  asked.Expect(
      "2 Framing lumber species and grade\n\nThe take-off goes by the place of the rows in this list. A row that is added is not known "
      "to the roof calculator, which goes by the first four rows.\n\nAdd \"#1 CEDAR\" all the same ?|Add Item",
      Answer::Yes);
  frmMatDefault rows(program);
  DriveModal<frmMatDefault>([&] { rows.exec(); }, [](QWidget& form) { Type(form, "txtAddItem", "#1 CEDAR<Alt+S>"); });
  EXPECT_TRUE(Has(PrintedRafters(scratch.Path()), "#1 CEDAR"));
}

}  // namespace
}  // namespace norvale
