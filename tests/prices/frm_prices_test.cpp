#include "prices/frm_prices.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QTableView>

#include "desktop/desktop_fixture.h"
#include "desktop/form_driver.h"
#include "desktop/frm_look.h"
#include "desktop/frm_mbox.h"
#include "prices/frm_price_preview.h"
#include "prices/frm_price_table.h"

namespace norvale {
namespace {

using testing::HasSubstr;

constexpr const char* kCancel = "2 Cancel All Price File Changes and Exit ?|CANCEL PRICE EDIT";
constexpr const char* kPrint = "3 This printout is over 60 pages long!!   Press OK to print, cancel to abort!|PRINT ITEM PRICING LIST";
const std::string kTooLong = Notice("The price 12345678.00 is too long for the price file, which has room for 7 digits before the point.");

std::string Padded(std::string text, std::size_t width) {
  text.resize(width, ' ');
  return text;
}

std::string Line(const std::string& key, const std::string& sku, std::vector<std::string> prices, const std::string& text) {
  std::string line = Padded(key, 35) + Padded(sku, 20);
  prices.resize(5);
  for (const std::string& price : prices) line += Padded(price, 10);
  return line + Padded(text, 25) + "\r\n";
}

class frmPricesTest : public DesktopTest {
 protected:
  // Four items; the third line has lost its trailing blanks and the last one its end.
  const std::vector<std::string> lines = {Line("2X4- 8 STUD", "STUD-100", {"3.50", "3.3", "", "abc", "12.345"}, "kiln dried"),
                                          Line("A & B & C", "STUD", {"1", "2", "3", "4", "5"}, ""),
                                          Padded("FELT", 35) + Padded("FLT", 20) + "12.50     13.5\n", "2X4- 10 SPF"};
  const std::string whole = lines[0] + lines[1] + lines[2] + lines[3];

  void SetUp() override { WriteBytes(scratch / "NVdata03.db", whole); }
  [[nodiscard]] std::string OnDisk() const { return ReadBytes(scratch / "NVdata03.db"); }

  // Opens the form and drives it until it closes.
  template <typename Drive>
  void Run(Drive drive) {
    frmPrices form(program, [this](const PriceList& list, QWidget*) { printed.push_back(list.Items()); });
    DriveModal<frmPrices>([&] { form.exec(); }, drive);
  }
  // The same with steps alone, of which the last one closes it.
  void Walk(const std::vector<Step>& steps) {
    Run([&](QWidget& form) { TakeSteps(steps, asked, [&form] { return Seen(form); }); });
  }
  // The item and what stands in the control that has the focus; nothing once it is closed.
  static std::string Seen(QWidget& form) {
    return form.isVisible() ? Text(form, "lblDesc") + " " + Focus() + "=" + Text(form, Focus().c_str()) : std::string();
  }
  static void Paste(QWidget& form, const char* box, const char* text) {
    QApplication::clipboard()->setText(QString::fromUtf8(text));
    Type(form, box, "<Ctrl+V>");
  }

  template <typename Drive>
  static void InTable(frmPrices& form, Drive drive) {
    const auto driveAndClose = [&](frmPriceTable& table) {
      drive(table);
      Click(table, "cmdClose");
    };
    DriveModal<frmPriceTable>([&] { Click(form, "cmdTable"); }, driveAndClose);
  }
  // Goes to a cell of the table by its row and column as they are shown, and types.
  static void TypeInto(frmPriceTable& form, int row, PriceColumn column, const char* keys) {
    auto* const table = Find<QTableView>(form, "tblPrices");
    table->setFocus();
    table->setCurrentIndex(table->model()->index(row, static_cast<int>(column)));
    Keys(keys);
  }
  static std::string Cell(QWidget& form, const char* table, int row, int column) {
    return Find<QTableView>(form, table)->model()->index(row, column).data().toString().toStdString();
  }
  // The first two prices of each row that is shown.
  static std::string Prices(frmPriceTable& form) {
    std::string prices;
    for (int row = 0; row < Find<QTableView>(form, "tblPrices")->model()->rowCount(); ++row)
      prices += Cell(form, "tblPrices", row, 2) + " " + Cell(form, "tblPrices", row, 3) + ", ";
    return prices;
  }
  static void Tick(QWidget& form, const char* box) {
    Find(form, box)->setFocus();
    Keys("<Space>");
  }
  // Presses the button and picks the file in the dialog that it opens.
  void PickFile(frmPriceTable& table, const char* button, const char* file) {
    DriveModal<QFileDialog>([&] { Click(table, button); },
                            [&](QFileDialog& dialog) {
                              const std::string path = (scratch / file).string();
                              dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(QString::fromStdString(path));
                              Keys("<Return>");
                            });
  }

  std::vector<std::vector<PriceItem>> printed;
};

TEST_F(frmPricesTest, EnterWalksThroughTheBoxesAndOnToTheNextItem) {
  Walk({{"", "2X4- 8 STUD txtInum=STUD-100"},
        {"<Return>", "2X4- 8 STUD txtprices_0=3.50"},
        {"<Return>", "2X4- 8 STUD txtprices_1=3.30"},
        {"<Return>", "2X4- 8 STUD txtprices_2=0.00"},
        {"<Return>", "2X4- 8 STUD txtprices_3=0.00"},
        {"<Return>", "2X4- 8 STUD txtprices_4=12.35"},
        {"<Return>", "2X4- 8 STUD txtdescnew=kiln dried"},
        {"<Return>", "2X4- 8 STUD cmdNEXT=&Next  >>"},
        {"<Return>", "A && B & C cmdNEXT=&Next  >>"},  // only the first one is doubled
        {"<PgUp><PgUp>", "2X4- 10 SPF cmdNEXT=&Next  >>"},
        {"<Alt+N><Backtab><Backtab>", "2X4- 8 STUD txtprices_4=12.35"},
        {"<PgUp><PgUp>", "FELT txtprices_4=0.00"},
        {"<Esc>", "FELT txtprices_4=0.00", kCancel, Answer::No},
        {"<Alt+C>", "", kCancel, Answer::Yes}});
  EXPECT_EQ(OnDisk(), whole);
}

TEST_F(frmPricesTest, PricesTypedPastedAndLeft) {
  const struct {
    bool isPasted;
    const char* text;
    const char* left;
  } rows[] = {
      {false, "12.5", "12.50"},
      {false, "abc-7,5x", "75.00"},
      {false, "1.2.3", "1.20"},
      {false, "", "0.00"},
      {false, "12.345", "12.35"},
      {false, "12345678", "1234567.00"},
      {false, "1234567.891", "1234567.89"},
      {true, "abc", "0.00"},
      {true, "$5", "0.00"},
      {true, "-4 each", "-4.00"},
      {true, " 6.005 ", "6.01"},
      {true, "1e3", "1000.00"},
      {true, "9999999.99", "9999999.99"},
  };
  Run([&](frmPrices& form) {
    for (const auto& row : rows) {
      row.isPasted ? Paste(form, "txtprices_1", row.text) : Type(form, "txtprices_1", row.text);
      Keys("<Tab>");
      EXPECT_EQ(Text(form, "txtprices_1"), row.left) << row.text;
    }
    // One that has no room is told, wherever one goes with it, and never cut.
    Paste(form, "txtprices_1", "12345678");
    TakeSteps({{"<Tab>", "2X4- 8 STUD txtprices_1=12345678", kTooLong}}, asked, [&] { return Seen(form); });
    for (const char* const button : {"cmdNEXT", "cmdPREV", "cmdFind", "cmdprint", "cmdTable", "cmdSave"}) {
      asked.Expect(kTooLong);
      Click(form, button);
      asked.ExpectAllAsked();
      EXPECT_EQ(Seen(form), "2X4- 8 STUD txtprices_1=12345678");
    }
    asked.Expect(kCancel, Answer::Yes);
    form.close();
  });
}

TEST_F(frmPricesTest, TextsThatHaveNoRoomAreRefusedWhole) {
  QApplication::clipboard()->setText(QStringLiteral("abcdefghijklmnopqrstuvwxyz"));
  const std::string tooLong = Notice("Optional description takes 25 characters. The text is 26 long and is not taken.");
  Walk({{"<Ctrl+A>12345678901234567890X", "2X4- 8 STUD txtInum=12345678901234567890"},
        {"<Tab><Tab><Tab><Tab><Tab><Tab><Ctrl+V>", "2X4- 8 STUD txtdescnew=kiln dried", tooLong},
        {"\u03a9", "2X4- 8 STUD txtdescnew=kiln dried", Notice("The price file cannot hold that character. Type it another way.")},
        {"<Ctrl+A>caf\u00e9 abcdefghijklmnopqrst<Alt+S>", ""}});
  EXPECT_EQ(OnDisk(),
            Line("2X4- 8 STUD", "12345678901234567890", {"3.50", "3.30", "0.00", "0.00", "12.35"}, "caf\xE9 abcdefghijklmnopqrst") +
                lines[1] + lines[2] + lines[3]);
}

TEST_F(frmPricesTest, SaveKeepsTheBytesOfItemsThatWereNotShown) {
  const std::string first = Line("2X4- 8 STUD", "STUD-100", {"3.50", "3.30", "0.00", "0.00", "12.35"}, "kiln dried");
  disk.reason = "No space left on device";
  const std::string isFull = FileErrorNotice(FileError("NVdata03.db.new", disk.reason));
  Run([&](frmPrices& form) {
    TakeSteps({{"<Alt+S>", "2X4- 8 STUD cmdSave=&Save / Exit", isFull}}, asked, [&] { return Seen(form); });
    EXPECT_EQ(OnDisk(), whole);
    disk.reason.clear();
    Keys("<Return>");
  });
  EXPECT_EQ(OnDisk(), first + lines[1] + lines[2] + lines[3]);
  // The short line is told of before it is shown, and written in full after it was.
  Run([](frmPrices& form) {
    EXPECT_THAT(Text(form, "lblWarning"), HasSubstr("items 3, 4."));
    Keys("<PgDown><PgDown>");
    EXPECT_THAT(Text(form, "lblWarning"), HasSubstr("12.50     13.5"));
    EXPECT_EQ(Text(form, "txtdescnew"), "");
    Type(form, "txtInum", "  F1 <Alt+S>");
  });
  const std::string second = Line("A & B & C", "STUD", {"1.00", "2.00", "3.00", "4.00", "5.00"}, "");
  EXPECT_EQ(OnDisk(), first + second + Line("FELT", "F1", {"12.50", "13.50", "0.00", "0.00", "0.00"}, "") + lines[3]);
}

TEST_F(frmPricesTest, FindsBySkuAndByWordsOfTheDescription) {
  Run([this](frmPrices& form) {
    const auto see = [&form] { return (Find(form, "lblmsgfind")->isVisible() ? "Find: " : "") + Seen(form); };
    TakeSteps({{"<Alt+N><Alt+F>", "Find: A && B & C txtInum="}}, asked, see);
    EXPECT_EQ(Text(form, "lblmsgfind"), "Type in the SKU to find then press  <Enter> to locate.");
    for (const char* const box : {"txtprices_0", "txtprices_4", "txtdescnew"}) EXPECT_FALSE(Find(form, box)->isEnabled()) << box;
    for (const char* const button : {"cmdNEXT", "cmdprint", "cmdSave", "cmdCANCEL"})
      EXPECT_FALSE(Find(form, button)->isVisible()) << button;
    TakeSteps({{"STUD<Return>", "2X4- 8 STUD txtprices_0=3.50"},  // a longer one ahead of the exact one
               {"<Alt+F>FLT<Enter>", "FELT txtprices_0=12.50"},
               {"<Backtab><Ctrl+A>KEPT<Alt+F>flt<Return>", "FELT txtInum=KEPT"},  // case counts; nothing says that it failed
               {"<Alt+F><Return>", "FELT txtInum=KEPT"},
               {"<Alt+F>STUD<Esc>", "FELT txtInum=KEPT"},
               {"<Alt+F>STUD<Tab>", "2X4- 8 STUD txtprices_0=3.50"},  // to the other box, but an SKU is typed
               {"<Alt+F><Tab>2x4<Return>", "2X4- 10 SPF txtprices_0=0.00"},
               {"<Alt+F><Tab>2x4<Return>", "2X4- 8 STUD txtprices_0=3.50"},
               {"<Alt+F><Tab>stud 2x4<Return>", "2X4- 8 STUD txtprices_0=3.50"},
               {"<Alt+F><Tab>no such<Return>", "2X4- 8 STUD txtInum=STUD-100"}},
              asked, see);
    EXPECT_EQ(Text(form, "lblWarning"), "No description holds “no such”.");
    Keys("<Alt+S>");
  });
  EXPECT_THAT(OnDisk(), HasSubstr(Padded("FELT", 35) + "KEPT ")) << "a search keeps what was typed before it";
}

TEST_F(frmPricesTest, PrintsTheFormAndAsksFirst) {
  Run([this](frmPrices& form) {
    asked.Expect(kPrint, Answer::Cancel);
    Click(form, "cmdprint");
    EXPECT_TRUE(printed.empty());
    Type(form, "txtprices_0", "99");
    asked.Expect(kPrint, Answer::Ok);
    Click(form, "cmdprint");
    asked.Expect(kCancel, Answer::Yes);
    Click(form, "cmdCANCEL");
  });
  ASSERT_EQ(printed.size(), 1U);
  EXPECT_EQ(printed[0][0].PriceItemPrice[0] + " " + printed[0][1].PriceItemPrice[0], "99.00 1");
  EXPECT_EQ(OnDisk(), whole) << "what an estimate prints";
}

TEST_F(frmPricesTest, AnEmptyFileLeavesOnlyCancelAndAMissingOneNothing) {
  WriteBytes(scratch / "NVdata03.db", "");
  Run([this](frmPrices& form) {
    for (const char* const name : {"txtInum", "txtprices_0", "txtdescnew", "cmdNEXT", "cmdFind", "cmdprint", "cmdTable", "cmdSave"})
      EXPECT_FALSE(Find(form, name)->isEnabled()) << name;
    TakeSteps({{"<PgDown>", " cmdCANCEL=&Cancel"}, {"<Return>", "", kCancel, Answer::Yes}}, asked, [&] { return Seen(form); });
  });
  std::filesystem::remove(scratch / "NVdata03.db");
  asked.Expect(FileErrorNotice(FileError((scratch / "NVdata03.db").string(), "No such file or directory")));
  EXPECT_EQ(frmPrices(program, {}).exec(), QDialog::Rejected);
  EXPECT_FALSE(std::filesystem::exists(scratch / "NVdata03.db"));
}

TEST_F(frmPricesTest, TheTableSortsFiltersAndEditsInPlace) {
  Run([this](frmPrices& form) {
    Type(form, "txtprices_0", "4");
    InTable(form, [this](frmPriceTable& table) {
      EXPECT_EQ(Prices(table), "4.00 3.30, 1.00 2.00, 12.50 13.50, 0.00 0.00, ") << "as typed on the form";
      Type(table, "txtFilter", "flt<Return>");
      EXPECT_EQ(Focus() + ": " + Prices(table) + Text(table, "lblCount"), "tblPrices: 12.50 13.50, 1 of 4 items");
      Find<QLineEdit>(table, "txtFilter")->clear();
      auto* const sort = Find<QComboBox>(table, "cboSort");
      sort->setFocus();
      sort->setCurrentIndex(sort->findText(QStringLiteral("Price level 1")));
      emit sort->activated(sort->currentIndex());
      EXPECT_EQ(Prices(table), "0.00 0.00, 1.00 2.00, 4.00 3.30, 12.50 13.50, ");
      // Typing begins at once, Enter goes on below; the row does not jump to where its new price belongs.
      TypeInto(table, 0, PriceColumn::Level1, "x88.5<Return>2<Return>");
      EXPECT_EQ(Prices(table), "88.50 0.00, 2.00 2.00, 4.00 3.30, 12.50 13.50, ");
      asked.Expect(kTooLong);
      QApplication::clipboard()->setText(QStringLiteral("12345678"));
      TypeInto(table, 3, PriceColumn::Level1, "<Return><Ctrl+V><Return>");
      asked.ExpectAllAsked();
      TypeInto(table, 3, PriceColumn::Description, "<F2>no");
      TypeInto(table, 3, PriceColumn::OptionalText, "<F2> by the roll <Esc><F2> the roll <Return>");
    });
    EXPECT_EQ(Text(form, "lblDesc"), "FELT") << "the row of the table";
    Click(form, "cmdPREV");
    Click(form, "cmdSave");
  });
  EXPECT_EQ(OnDisk(), Line("2X4- 8 STUD", "STUD-100", {"4.00", "3.30", "0.00", "0.00", "12.35"}, "kiln dried") +
                          Line("A & B & C", "STUD", {"2.00", "2.00", "3.00", "4.00", "5.00"}, "") +
                          Line("FELT", "FLT", {"12.50", "13.50", "0.00", "0.00", "0.00"}, "the roll") +
                          Line("2X4- 10 SPF", "", {"88.50"}, ""));
}

// A message takes the focus, and with it the cell closes its box.
TEST_F(frmPricesTest, ACellOutlivesTheMessageThatItsTextBrings) {
  ScreenMessages screen;
  Program shown{folder, session, screen};
  PriceEditor prices = OpenPrices(scratch.Path());
  PriceHistory history;
  frmPriceTable table(shown, prices, history, 0);
  ShowActive(table);
  const auto expectMessage = [](const char* keys) {
    const auto type = [keys] {
      Keys(keys);
      QApplication::processEvents();  // the message comes behind the cell's end
    };
    DriveModal<frmMbox>(type, [](frmMbox&) { Keys("<Return>"); });
  };
  TypeInto(table, 1, PriceColumn::Sku, "AB");
  expectMessage("\u03a9");
  QApplication::clipboard()->setText(QStringLiteral("99999999"));
  TypeInto(table, 2, PriceColumn::Level1, "<F2><Ctrl+V>");
  expectMessage("<Return>");
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "told once";
  EXPECT_EQ(prices.Items()[1].PriceItemSku + " " + prices.Items()[2].PriceItemPrice[0], "AB 12.50");
}

TEST_F(frmPricesTest, AnImportShowsWhatItChangesAndIsUndoneAsAWhole) {
  const std::string before = "3.50 3.30, 1.00 2.00, 12.50 13.50, 0.00 0.00, ";
  const std::string imported = "3.75 3.30, 2.00 5.00, 12.50 14.00, 0.00 0.00, ";
  WriteBytes(scratch / "no.csv", "no heading\n");
  WriteBytes(scratch / "update.csv",
             "SKU,Price 1,Price 2,Unit,Optional text\nSTUD-100,3.75,0,ea,by the piece\nSTUD,2,5,ea\nNONE,1,1,ea\nFLT,call,14,rl\n");
  Run([&](frmPrices& form) {
    InTable(form, [&](frmPriceTable& table) {
      const auto rows = [](frmPricePreview& preview) { return Text(preview, "lblSummary").substr(0, 11); };
      const auto import = [&](const std::function<void(frmPricePreview&)>& drive) {
        DriveModal<frmPricePreview>([&] { PickFile(table, "cmdImport", "update.csv"); }, drive);
      };
      asked.Expect(
          Notice("no.csv: no row names the columns: SKU or Description, and one of Price level 1 to Price level 5. An exported "
                 "price list shows how"));
      PickFile(table, "cmdImport", "no.csv");
      import([&](frmPricePreview& preview) {
        EXPECT_EQ(Find<QComboBox>(preview, "cboMatch")->currentText(), QStringLiteral("SKU"));
      EXPECT_EQ(Text(preview, "lblUnused"), "Columns not used: Unit");
      EXPECT_EQ(rows(preview), "4 prices of");
      EXPECT_EQ(Cell(preview, "tblChanges", 0, 3) + " to " + Cell(preview, "tblChanges", 0, 4), "3.50 to 3.75");
      const QModelIndex doubled = Find<QTableView>(preview, "tblChanges")->model()->index(1, 5);
      EXPECT_EQ(doubled.data().toString() + doubled.data(Qt::ForegroundRole).value<QColor>().name(),
                QStringLiteral("+100.0 %") + ColoursOfLook().warning.name());
      EXPECT_EQ(Cell(preview, "tblNotTaken", 0, 2) + " " + Cell(preview, "tblNotTaken", 1, 3), "NONE call");
      Tick(preview, "chkZero");
      EXPECT_EQ(rows(preview), "5 prices of");
      Tick(preview, "chkTexts");
      EXPECT_EQ(rows(preview), "5 prices an");
      Keys("<Esc>");
    });
    EXPECT_EQ(Prices(table), before) << "given up";
    EXPECT_FALSE(Find(table, "cmdUndo")->isEnabled());
      import([](frmPricePreview& preview) { Click(preview, "cmdOK");
  });
  EXPECT_EQ(Prices(table), imported);
  // On top of it, a percentage for what the filter shows.
  Type(table, "txtFilter", "stud");
  Find<QComboBox>(table, "cboLevel")->setCurrentIndex(1);
  Type(table, "txtPercent", "10");
  DriveModal<frmPricePreview>([&] { Click(table, "cmdPercent"); }, [&](frmPricePreview& preview) { Click(preview, "cmdOK"); });
  EXPECT_EQ(Prices(table), "3.75 3.63, 2.00 5.50, ");
  PickFile(table, "cmdExport", "all.csv");
  EXPECT_THAT(ReadBytes(scratch / "all.csv"), testing::AllOf(HasSubstr("STUD-100,3.75,3.63,"), HasSubstr("FELT,FLT,12.50,14.00,")));
});
// The way back is there when the table is opened again.
InTable(form, [&](frmPriceTable& table) {
  TypeInto(table, 1, PriceColumn::Level1, "7<Return>");
  Click(table, "cmdUndo");
  EXPECT_EQ(Prices(table), "3.75 3.30, 7.00 5.00, 12.50 14.00, 0.00 0.00, ");
  Click(table, "cmdUndo");
  EXPECT_EQ(Prices(table), "3.50 3.30, 7.00 2.00, 12.50 13.50, 0.00 0.00, ") << "what was changed by hand since stays";
  EXPECT_FALSE(Find(table, "cmdUndo")->isEnabled());
  TypeInto(table, 0, PriceColumn::Level1, "");  // what the form shows is written in full
});
Click(form, "cmdSave");
});
EXPECT_THAT(OnDisk(), testing::EndsWith(lines[2] + lines[3])) << "undone to the byte";
}

}  // namespace
}  // namespace norvale
