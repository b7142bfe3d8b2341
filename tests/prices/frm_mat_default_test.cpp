#include "prices/frm_mat_default.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QComboBox>
#include <QListWidget>

#include "desktop/desktop_fixture.h"
#include "desktop/form_driver.h"
#include "prices/delivered.h"
#include "prices/printed_rafters.h"

namespace norvale {
namespace {

using testing::ElementsAre;
using Texts = std::vector<std::string>;

constexpr const char* kCancelQuestion = "2 Cancel Changes and Exit ?|CANCEL";

class frmMatDefaultTest : public DesktopTest {
 protected:
  template <typename Drive>
  void Run(Drive drive) {
    frmMatDefault form(program);
    DriveModal<frmMatDefault>([&] { form.exec(); }, drive);
  }

  // Lays the rows as "list text", a "*" before the text of a default.
  void Lay(const Texts& rows) {
    std::string bytes;
    for (const std::string& text : rows) {
      const std::size_t blank = text.find(' ');
      MaterialRow row{.ListNumber = static_cast<std::int16_t>(std::stoi(text))};
      const bool isDefault = blank + 1 < text.size() && text[blank + 1] == '*';
      row.ListText.Assign(text.substr(blank + (isDefault ? 2 : 1)));
      row.ListDefaultFlag = static_cast<std::int16_t>(isDefault ? -1 : 0);
      bytes.resize(bytes.size() + MaterialRowSize);
      EncodeValue(bytes.data() + bytes.size() - MaterialRowSize, row);
    }
    WriteBytes(scratch / kMaterialFileName, bytes);
  }

  // The same of what lies on the disk, for the lists below 3.
  [[nodiscard]] Texts RowsOnDisk() const {
    Texts found;
    for (const MaterialRow& row : LoadMaterialRows(scratch.Path()))
      if (row.ListNumber < 3)
        found.push_back(std::to_string(row.ListNumber) + (row.ListDefaultFlag == -1 ? " *" : " ") + row.ListText.Trimmed());
    return found;
  }
  [[nodiscard]] std::string Bytes(std::string_view name) const { return ReadFileIfPresent(scratch / name).value_or("no file"); }

  static std::string Label(QWidget& form, const char* name) { return Find<QLabel>(form, name)->text().toStdString(); }
  static Texts Rows(QWidget& form) {
    const auto* const combo = Find<QComboBox>(form, "cboSelDefault");
    const auto* const list = Find<QListWidget>(form, "lstComboLst");
    Texts rows;
    for (int i = 0; i < list->count(); ++i) {
      rows.push_back(list->item(i)->text().toStdString());
      EXPECT_EQ(combo->itemText(i).toStdString(), rows.back());
    }
    EXPECT_EQ(combo->count(), list->count());
    return rows;
  }
  static std::string Default(QWidget& form) { return Find<QComboBox>(form, "cboSelDefault")->currentText().toStdString(); }
  static void ClickRow(QWidget& form, int row) {
    auto* const list = Find<QListWidget>(form, "lstComboLst");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row)).center());
  }

  const Texts small{"0 *SYP", "0 SPF", "0 List End", "1 OSB", "1 *PLYWOOD", "1 List End", "2 STANDARD", "2 List End", "28 *NO", "28 YES"};
};

TEST_F(frmMatDefaultTest, TheWalkShowsEveryListOnceAndStaysAtBothEnds) {
  Run([this](QWidget& form) {
    Texts wanted;
    Texts shown;
    for (const ScreenLine& line : DeliveredScreenLines())
      if (ListOfLine(line) && ListOfLine(line) != 28) wanted.push_back(CaptionName(line));
    EXPECT_EQ(wanted.size(), 39U);
    Click(form, "cmdPREV");
    EXPECT_EQ(Label(form, "lblHint"), "This is the first list.");
    for (std::size_t i = 0; i < wanted.size(); ++i) {
      shown.push_back(Label(form, "lblListName"));
      EXPECT_EQ(Find<QListWidget>(form, "lstLists")->currentItem()->text().toStdString(), shown.back());
      Click(form, "cmdNEXT");
    }
    EXPECT_EQ(shown, wanted);
    EXPECT_EQ(Label(form, "lblListName"), "Height of panel siding");
    Key(Qt::Key_P, Qt::AltModifier);
    EXPECT_EQ(Label(form, "lblListName"), "Corner boards or vinyl corners");
    Find<QListWidget>(form, "lstLists")->setFocus();
    Keys("shoe");
    EXPECT_EQ(Label(form, "lblListName"), "Shoe-plates");
    EXPECT_THAT(Rows(form), ElementsAre("STANDARD & BETTER", "#2 & BETTER", "UTILITY & BETTER", "List End"));
    EXPECT_EQ(Default(form), "STANDARD & BETTER");
    asked.Expect(kCancelQuestion, Answer::Yes);
    Key(Qt::Key_Escape);
  });
}

TEST_F(frmMatDefaultTest, ThePickedRowIsTheOnlyDefaultAndListEndIsNone) {
  Lay(small);
  Run([](QWidget& form) {
    Find(form, "cboSelDefault")->setFocus();
    Key(Qt::Key_Down);
    Key(Qt::Key_Down);
    EXPECT_EQ(Default(form), "SPF") << "by key";
    Find<QComboBox>(form, "cboSelDefault")->setCurrentIndex(2);
    EXPECT_EQ(Default(form), "SPF") << "the shown row jumps back";
    ClickRow(form, 2);
    EXPECT_EQ(Default(form), "SPF");
    Click(form, "cmdNEXT");
    ClickRow(form, 0);
    EXPECT_EQ(Default(form), "OSB") << "by mouse";
    Click(form, "cmdNEXT");
    EXPECT_EQ(Default(form), "") << "a list may have none";
    Find(form, "lstComboLst")->setFocus();
    Key(Qt::Key_Down);
    EXPECT_EQ(Default(form), "") << "looking is not picking";
    Key(Qt::Key_Return);
    EXPECT_EQ(Default(form), "STANDARD");
    Click(form, "cmdSave");
  });
  EXPECT_THAT(RowsOnDisk(), ElementsAre("0 SYP", "0 *SPF", "0 List End", "1 *OSB", "1 PLYWOOD", "1 List End", "2 *STANDARD", "2 List End"));
}

TEST_F(frmMatDefaultTest, ARowIsAddedBeforeListEndWhenItsBoxIsLeft) {
  Lay(small);
  const std::string question =
      "2 Floor sheathing\n\nThe take-off goes by the place of the rows in this list. A row that is added gets floor adhesive and no "
      "felt underlay, like every row from the third on.\n\nAdd \"FOAM\" all the same ?|Add Item";
  Run([&](QWidget& form) {
    Click(form, "cmdNEXT");
    asked.Expect(question, Answer::No);
    Type(form, "txtAddItem", "FOAM");
    Key(Qt::Key_Tab);
    EXPECT_THAT(Rows(form), ElementsAre("OSB", "PLYWOOD", "List End"));
    asked.Expect(question, Answer::Yes);
    Type(form, "txtAddItem", "FOAM");
    Click(form, "cmdNEXT");
    EXPECT_EQ(Label(form, "lblListName"), "Shoe-plates") << "and the row is in the list for which it was typed";
    Type(form, "txtAddItem", "  12345678901234567890");
    EXPECT_FALSE(Find(form, "lblWidth")->font().bold());
    Keys("1");
    EXPECT_EQ(Label(form, "lblWidth"), "21 characters: a plan keeps the first 20 only.");
    Keys("2345");
    Key(Qt::Key_Return);
    EXPECT_EQ(Focus(), "cmdAddItem");
    EXPECT_EQ(Text(form, "txtAddItem"), "");
    EXPECT_THAT(Rows(form), ElementsAre("STANDARD", "1234567890123456789012", "List End"));
    Type(form, "txtAddItem", "CAF");
    Letter(QStringLiteral("\u00c9"));
    Click(form, "cmdSave");
  });
  EXPECT_THAT(RowsOnDisk(), ElementsAre("0 *SYP", "0 SPF", "0 List End", "1 OSB", "1 *PLYWOOD", "1 FOAM", "1 List End", "2 STANDARD",
                                        "2 1234567890123456789012", "2 CAF\xc9", "2 List End"));
}

TEST_F(frmMatDefaultTest, WhatIsNoRowIsNotAdded) {
  Run([this](QWidget& form) {
    Click(form, "cmdNEXT");
    Click(form, "cmdNEXT");
    const Texts before = Rows(form);
    Type(form, "txtAddItem", "   ");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Label(form, "lblComboLst"), "List &Default");
    EXPECT_TRUE(Find(form, "cboSelDefault")->isVisible() && Find(form, "lstComboLst")->isVisible());
    for (const char* const text : {"List End", " list end"}) {
      asked.Expect(Notice("\"List End\" closes each list and cannot be added as a row."));
      Type(form, "txtAddItem", text);
      Key(Qt::Key_Tab);
    }
    asked.Expect(Notice("The material lists cannot hold that character. Type it another way."));
    Type(form, "txtAddItem", "OSB");
    Letter(QStringLiteral("\u03a9"));
    EXPECT_EQ(Text(form, "txtAddItem"), "OSB");
    asked.Expect(kCancelQuestion, Answer::No);
    SlowClick(form, "cmdCANCEL");
    EXPECT_EQ(Rows(form), before) << "Cancel does not add first";
    EXPECT_EQ(Text(form, "txtAddItem") + " " + Focus(), "OSB txtAddItem");
    Type(form, "txtAddItem", "");
    Click(form, "cmdDelItem");
    EXPECT_EQ(Rows(form), before);
    EXPECT_THAT(Label(form, "lblHint"), testing::StartsWith("Rows cannot be removed"));
    asked.Expect(kCancelQuestion, Answer::Yes);
    form.close();
  });
  EXPECT_EQ(Bytes(kMaterialFileName), DeliveredMaterialFile());
  EXPECT_EQ(Bytes(kMaterialBackupName), "no file");
}

TEST_F(frmMatDefaultTest, ASaveMendsTheListsAndKeepsTheFileFromBefore) {
  Lay({"0 *SYP", "0  ", "0 SPF", "0 List End", "28 *NO", "2 STANDARD", "1 OSB", "2 #2", "2 List End", "2 behind"});
  const std::string first = Bytes(kMaterialFileName);
  Run([](QWidget& form) {
    EXPECT_THAT(Rows(form), ElementsAre("SYP", "", "SPF", "List End"));
    Click(form, "cmdNEXT");
    EXPECT_THAT(Rows(form), ElementsAre("OSB", "List End")) << "supplied";
    Click(form, "cmdNEXT");
    EXPECT_THAT(Rows(form), ElementsAre("STANDARD", "#2", "List End")) << "as the screens read it";
    Click(form, "cmdSave");
  });
  EXPECT_THAT(RowsOnDisk(),
              ElementsAre("0 *SYP", "0 SPF", "0 List End", "2 STANDARD", "1 OSB", "1 List End", "2 #2", "2 List End", "2 behind"));
  EXPECT_EQ(Bytes(kMaterialBackupName), first);
  const std::string second = Bytes(kMaterialFileName);
  Run([](QWidget& form) {
    ClickRow(form, 1);
    Click(form, "cmdSave");
  });
  EXPECT_EQ(Bytes(kMaterialBackupName), second) << "the result of the first save";
  Run([&](QWidget& form) {
    ClickRow(form, 0);
    disk.reason = "No space left on device";
    asked.Expect(FileErrorNotice(FileError("NVdata02.idx.new", disk.reason)));
    Click(form, "cmdSave");
    EXPECT_EQ(Bytes(kMaterialBackupName), second);
    disk.reason.clear();
    Click(form, "cmdSave");
  });
  EXPECT_THAT(RowsOnDisk(), testing::Contains("0 *SYP"));
}

TEST_F(frmMatDefaultTest, UnusableFilesAreLeftAlone) {
  const std::string lines = DeliveredScreenFile();
  for (const auto& [file, bytes] : std::vector<std::pair<std::string_view, std::string>>{
           {kScreenFileName, lines + lines.substr(0, ScreenLineSize)}, {kScreenFileName, ""}, {kMaterialFileName, "half a row"}}) {
    const std::string before = Bytes(file);
    WriteBytes(scratch / file, bytes);
    EXPECT_THROW(frmMatDefault{program}, FileError) << file;
    EXPECT_EQ(Bytes(file), bytes);
    WriteBytes(scratch / file, before);
  }
  std::filesystem::remove(scratch / kMaterialFileName);
  EXPECT_THROW(frmMatDefault{program}, FileError);
  EXPECT_EQ(Bytes(kMaterialFileName), "no file") << "a backup beside it may be the only copy";
}

TEST_F(frmMatDefaultTest, ASavedRowIsInTheNextPrint) {
  Lay({"0 #2 SYP", "0 #2 SPF", "0 #2 HEM-FIR", "0 List End"});
  const Texts before = PrintedRafters(scratch.Path());
  const std::string question =
      "2 Framing lumber species and grade\n\nThe take-off goes by the place of the rows in this list. A row that is added is not known to "
      "the roof calculator, which goes by the first four rows.\n\nAdd \"#1 CEDAR\" all the same ?|Add Item";
  for (const bool isSaved : {false, true}) {
    asked.Expect(question, Answer::Yes);
    if (!isSaved) asked.Expect(kCancelQuestion, Answer::Yes);
    Run([&](QWidget& form) {
      Type(form, "txtAddItem", "#1 CEDAR");
      Key(Qt::Key_Tab);
      Click(form, isSaved ? "cmdSave" : "cmdCANCEL");
    });
    if (!isSaved) {
      EXPECT_EQ(PrintedRafters(scratch.Path()), before);
    }
  }
  EXPECT_THAT(PrintedRafters(scratch.Path()), ElementsAre(testing::HasSubstr("#1 CEDAR")));
}

}  // namespace
}  // namespace norvale
