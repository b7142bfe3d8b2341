#include "prices/frm_mat_default.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QComboBox>
#include <QListWidget>

#include "desktop/desktop_fixture.h"
#include "desktop/form_driver.h"
#include "prices/delivered.h"

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
  void Take(QWidget& form, const std::vector<Step>& steps) {
    TakeSteps(steps, asked, [&form] { return Seen(form); });
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

  // The list and its rows, the default with a "*" before it; nothing once the form is closed.
  static std::string Seen(QWidget& form) {
    if (!form.isVisible()) return {};
    const auto* const combo = Find<QComboBox>(form, "cboSelDefault");
    const auto* const list = Find<QListWidget>(form, "lstComboLst");
    EXPECT_EQ(combo->count(), list->count());
    std::string seen = Text(form, "lblListName") + ":";
    for (int i = 0; i < list->count(); ++i) {
      EXPECT_EQ(combo->itemText(i), list->item(i)->text());
      seen += (i == combo->currentIndex() ? " *" : " ") + list->item(i)->text().toStdString() + (i + 1 < list->count() ? "," : "");
    }
    return seen;
  }
  static void ClickRow(QWidget& form, int row) {
    auto* const list = Find<QListWidget>(form, "lstComboLst");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row)).center());
  }

  const Texts small{"0 *SYP", "0 SPF", "0 List End", "1 OSB", "1 *PLYWOOD", "1 List End", "2 STANDARD", "2 List End", "28 *NO", "28 YES"};
};

TEST_F(frmMatDefaultTest, TheWalkShowsEveryListOnceAndStaysAtBothEnds) {
  Run([this](QWidget& form) {
    Click(form, "cmdPREV");
    EXPECT_EQ(Text(form, "lblHint"), "This is the first list.");
    for (const ScreenLine& line : DeliveredScreenLines()) {
      if (!ListOfLine(line) || ListOfLine(line) == 28) continue;
      EXPECT_EQ(Text(form, "lblListName"), CaptionName(line));
      EXPECT_EQ(Find<QListWidget>(form, "lstLists")->currentItem()->text().toStdString(), CaptionName(line));
      Click(form, "cmdNEXT");
    }
    EXPECT_EQ(Text(form, "lblListOf"), "List 39 of 39");
    Keys("<Alt+P>");
    EXPECT_EQ(Text(form, "lblListName"), "Corner boards or vinyl corners");
    Find(form, "lstLists")->setFocus();
    Take(form, {{"shoe", "Shoe-plates: *STANDARD & BETTER, #2 & BETTER, UTILITY & BETTER, List End"},
                {"<Esc>", "", kCancelQuestion, Answer::Yes}});
  });
}

TEST_F(frmMatDefaultTest, ThePickedRowIsTheOnlyDefaultAndListEndIsNone) {
  Lay(small);
  Run([this](QWidget& form) {
    Find(form, "cboSelDefault")->setFocus();
    Take(form, {{"", "Framing lumber species and grade: *SYP, SPF, List End"},
                {"<Down><Down>", "Framing lumber species and grade: SYP, *SPF, List End"}});
    Find<QComboBox>(form, "cboSelDefault")->setCurrentIndex(2);
    ClickRow(form, 2);
    Take(form, {{"", "Framing lumber species and grade: SYP, *SPF, List End"}, {"<Alt+N>", "Floor sheathing: OSB, *PLYWOOD, List End"}});
    ClickRow(form, 0);
    Take(form, {{"", "Floor sheathing: *OSB, PLYWOOD, List End"}, {"<Alt+N>", "Shoe-plates: STANDARD, List End"}});
    Find(form, "lstComboLst")->setFocus();
    Take(form, {{"<Down>", "Shoe-plates: STANDARD, List End"},  // looking is not picking
                {"<Return>", "Shoe-plates: *STANDARD, List End"},
                {"<Alt+S>", ""}});
  });
  EXPECT_THAT(RowsOnDisk(), ElementsAre("0 SYP", "0 *SPF", "0 List End", "1 *OSB", "1 PLYWOOD", "1 List End", "2 *STANDARD", "2 List End"));
}

TEST_F(frmMatDefaultTest, ARowIsAddedBeforeListEndWhenItsBoxIsLeft) {
  Lay(small);
  const std::string question =
      "2 Floor sheathing\n\nThe take-off goes by the place of the rows in this list. A row that is added gets floor adhesive and no "
      "felt underlay, like every row from the third on.\n\nAdd \"FOAM\" all the same ?|Add Item";
  Run([&](QWidget& form) {
    Take(form, {{"<Alt+N><Alt+W>FOAM<Tab>", "Floor sheathing: OSB, *PLYWOOD, List End", question, Answer::No},
                // The row goes to the list for which it was typed.
                {"<Alt+W>FOAM<Alt+N>", "Shoe-plates: STANDARD, List End", question, Answer::Yes}});
    Keys("<Alt+W>  12345678901234567890");
    EXPECT_FALSE(Find(form, "lblWidth")->font().bold());
    Keys("1");
    EXPECT_EQ(Text(form, "lblWidth"), "21 characters: a plan keeps the first 20 only.");
    Take(form, {{"2345<Return>", "Shoe-plates: STANDARD, 1234567890123456789012, List End"}});
    EXPECT_EQ(Focus() + Text(form, "txtAddItem"), "cmdAddItem");
    Take(form, {{"<Alt+W>CAF\u00c9<Alt+P>", "Floor sheathing: OSB, *PLYWOOD, FOAM, List End"},
                {"<Alt+W>FOAM<Alt+S>", "", question, Answer::Yes}});
  });
  EXPECT_THAT(RowsOnDisk(), ElementsAre("0 *SYP", "0 SPF", "0 List End", "1 OSB", "1 *PLYWOOD", "1 FOAM", "1 FOAM", "1 List End",
                                        "2 STANDARD", "2 1234567890123456789012", "2 CAF\xc9", "2 List End"));
}

TEST_F(frmMatDefaultTest, WhatIsNoRowIsNotAdded) {
  const std::string before = "Shoe-plates: *STANDARD & BETTER, #2 & BETTER, UTILITY & BETTER, List End";
  const std::string isListEnd = Notice("\"List End\" closes each list and cannot be added as a row.");
  Run([&](QWidget& form) {
    Take(form, {{"<Alt+N><Alt+N><Alt+W>   <Tab>", before},
                {"<Alt+W>List End<Tab>", before, isListEnd},
                {"<Alt+W> list end<Tab>", before, isListEnd},
                {"<Alt+W>OSB\u03a9", before, Notice("The material lists cannot hold that character. Type it another way.")}});
    asked.Expect(kCancelQuestion, Answer::No);
    SlowClick(form, "cmdCANCEL");
    EXPECT_EQ(Seen(form), before) << "Cancel does not add first";
    EXPECT_EQ(Text(form, "txtAddItem") + " " + Focus(), "OSB txtAddItem");
    Take(form, {{"<Ctrl+A><Del><Alt+D>", before}});
    EXPECT_THAT(Text(form, "lblHint"), testing::StartsWith("Rows cannot be removed"));
    Take(form, {{kCloseWindow, "", kCancelQuestion, Answer::Yes}});
  });
  EXPECT_EQ(Bytes(kMaterialFileName), DeliveredMaterialFile());
  EXPECT_EQ(Bytes(kMaterialBackupName), "no file");
}

TEST_F(frmMatDefaultTest, ASaveMendsTheListsAndKeepsTheFileFromBefore) {
  Lay({"0 *SYP", "0  ", "0 SPF", "0 List End", "28 *NO", "2 STANDARD", "1 OSB", "2 #2", "2 List End", "2 behind"});
  const std::string first = Bytes(kMaterialFileName);
  disk.reason = "No space left on device";
  const std::string isFull = FileErrorNotice(FileError("NVdata02.idx.new", disk.reason));
  Run([&](QWidget& form) {
    Take(form, {{"", "Framing lumber species and grade: *SYP, , SPF, List End"},
                {"<Alt+N>", "Floor sheathing: OSB, List End"},       // supplied
                {"<Alt+N>", "Shoe-plates: STANDARD, #2, List End"},  // as the screens read it
                {"<Alt+S>", "Shoe-plates: STANDARD, #2, List End", isFull}});
    EXPECT_EQ(Bytes(kMaterialFileName) + Bytes(kMaterialBackupName), first + "no file");
    disk.reason.clear();
    Take(form, {{"<Alt+S>", ""}});
  });
  EXPECT_THAT(RowsOnDisk(),
              ElementsAre("0 *SYP", "0 SPF", "0 List End", "2 STANDARD", "1 OSB", "1 List End", "2 #2", "2 List End", "2 behind"));
  EXPECT_EQ(Bytes(kMaterialBackupName), first);
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

}  // namespace
}  // namespace norvale
