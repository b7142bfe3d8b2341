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
#include "desktop/frm_mbox.h"
#include "prices/frm_price_preview.h"
#include "prices/frm_price_table.h"

namespace norvale {
namespace {

using testing::ElementsAre;

constexpr const char* kCancel = "2 Cancel All Price File Changes and Exit ?|CANCEL PRICE EDIT";
constexpr const char* kPrint = "3 This printout is over 60 pages long!!   Press OK to print, cancel to abort!|PRINT ITEM PRICING LIST";

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

  void SetUp() override { WritePrices(lines[0] + lines[1] + lines[2] + lines[3]); }
  void WritePrices(const std::string& bytes) const { WriteBytes(scratch / "NVdata03.db", bytes); }
  [[nodiscard]] std::string OnDisk() const { return ReadBytes(scratch / "NVdata03.db"); }

  // Opens the form and drives it until it closes.
  template <typename Drive>
  void Run(Drive drive) {
    frmPrices form(program, [this](const PriceList& list, QWidget*) { printed.push_back(list.Items()); });
    DriveModal<frmPrices>([&] { form.exec(); }, drive);
  }
  // The same, left by Save.
  template <typename Drive>
  void Save(Drive drive) {
    Run([&](frmPrices& form) {
      drive(form);
      Click(form, "cmdSave");
    });
  }
  template <typename Drive>
  static void InTable(frmPrices& form, Drive drive) {
    DriveModal<frmPriceTable>([&] { Click(form, "cmdTable"); },
                              [&](frmPriceTable& table) {
                                drive(table);
                                Click(table, "cmdClose");
                              });
  }
  void Abandon(frmPrices& form) {
    asked.Expect(kCancel, Answer::Yes);
    Click(form, "cmdCANCEL");
  }
  static std::string Item(QWidget& form) { return Find<QLabel>(form, "lblDesc")->text().toStdString(); }

  static void Paste(QWidget& form, const char* box, const char* text) {
    QApplication::clipboard()->setText(QString::fromUtf8(text));
    Find<QLineEdit>(form, box)->setFocus();
    Find<QLineEdit>(form, box)->selectAll();
    Key(Qt::Key_V, Qt::ControlModifier);
  }
  // Goes to a cell of the table by its row and column as they are shown.
  static void GoTo(frmPriceTable& form, int row, PriceColumn column) {
    auto* const table = Find<QTableView>(form, "tblPrices");
    table->setFocus();
    table->setCurrentIndex(table->model()->index(row, static_cast<int>(column)));
  }
  static std::string Cell(frmPriceTable& form, int row, PriceColumn column) {
    return Find<QTableView>(form, "tblPrices")->model()->index(row, static_cast<int>(column)).data().toString().toStdString();
  }
  void Import(frmPriceTable& table, const std::string& csv, const std::function<void(frmPricePreview&)>& drive) {
    WriteBytes(scratch / "update.csv", csv);
    const auto pickFile = [&](QFileDialog& dialog) {
      dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(QString::fromStdString((scratch / "update.csv").string()));
      Key(Qt::Key_Return);
    };
    DriveModal<frmPricePreview>([&] { DriveModal<QFileDialog>([&] { Click(table, "cmdImport"); }, pickFile); }, drive);
  }

  std::vector<std::vector<PriceItem>> printed;
};

TEST_F(frmPricesTest, ShowsAnItemAndWalksAround) {
  Run([this](frmPrices& form) {
    const char* const boxes[] = {"txtInum", "txtprices_0", "txtprices_1", "txtprices_2", "txtprices_3", "txtprices_4", "txtdescnew"};
    std::vector<std::string> shown;
    for (const char* const box : boxes) shown.push_back(Text(form, box));
    EXPECT_THAT(shown, ElementsAre("STUD-100", "3.50", "3.30", "0.00", "0.00", "12.35", "kiln dried"));
    // Enter runs through the boxes and on to the next item.
    for (std::size_t i = 1; i < std::size(boxes); ++i) {
      Key(Qt::Key_Return);
      EXPECT_EQ(Focus(), boxes[i]);
    }
    Key(Qt::Key_Return);
    EXPECT_EQ(Focus(), "cmdNEXT");
    Key(Qt::Key_Return);
    EXPECT_EQ(Item(form), "A && B & C") << "only the first one is doubled";
    EXPECT_EQ(Find(form, "lblDesc")->accessibleName().toStdString(), "A & B & C");
    Click(form, "cmdPREV");
    Click(form, "cmdPREV");
    EXPECT_EQ(Item(form), "2X4- 10 SPF");
    Key(Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(Item(form), "2X4- 8 STUD");
    Find(form, "txtprices_2")->setFocus();
    Key(Qt::Key_PageUp);
    Key(Qt::Key_PageUp);
    EXPECT_EQ(Item(form), "FELT");
    EXPECT_EQ(Focus(), "txtprices_2");
    Abandon(form);
  });
  EXPECT_EQ(OnDisk(), lines[0] + lines[1] + lines[2] + lines[3]);
}

TEST_F(frmPricesTest, PricesTypedPastedAndLeft) {
  const struct {
    const char* typed;
    const char* pasted;
    const char* left;
  } rows[] = {
      {"12.5", nullptr, "12.50"},   {"abc-7,5x", nullptr, "75.00"}, {"1.2.3", nullptr, "1.20"},
      {"", nullptr, "0.00"},        {"12.345", nullptr, "12.35"},   {"12345678", nullptr, "1234567.00"},
      {nullptr, "abc", "0.00"},     {nullptr, "$5", "0.00"},        {nullptr, "-4 each", "-4.00"},
      {nullptr, " 6.005 ", "6.01"}, {nullptr, "1e3", "1000.00"},    {nullptr, "9999999.99", "9999999.99"},
  };
  Run([&](frmPrices& form) {
    for (const auto& row : rows) {
      if (row.typed != nullptr)
        Type(form, "txtprices_1", row.typed);
      else
        Paste(form, "txtprices_1", row.pasted);
      Key(Qt::Key_Tab);
      EXPECT_EQ(Text(form, "txtprices_1"), row.left) << (row.typed != nullptr ? row.typed : row.pasted);
    }
    // One that has no room is told, wherever one goes with it, and never cut.
    const char* const tooLong =
        "0 The price 12345678.00 is too long for the price file, which has room for 7 digits before the point.|Norvale Help Notice";
    Paste(form, "txtprices_1", "12345678");
    asked.Expect(tooLong);
    Key(Qt::Key_Tab);
    EXPECT_TRUE(QTest::qWaitFor([] { return Focus() == "txtprices_1"; }, kLongestWait)) << Focus();
    asked.ExpectAllAsked();
    for (const char* const button : {"cmdNEXT", "cmdPREV", "cmdFind", "cmdprint", "cmdTable", "cmdSave"}) {
      asked.Expect(tooLong);
      Click(form, button);
      asked.ExpectAllAsked();
      EXPECT_EQ(Focus(), "txtprices_1");
    }
    EXPECT_EQ(Item(form), "2X4- 8 STUD");
    Abandon(form);
  });
}

TEST_F(frmPricesTest, TextsThatHaveNoRoomAreRefusedWhole) {
  Save([this](frmPrices& form) {
    Type(form, "txtInum", "12345678901234567890X");
    EXPECT_EQ(Text(form, "txtInum"), "12345678901234567890");
    asked.Expect("0 Optional description takes 25 characters. The text is 26 long and is not taken.|Norvale Help Notice");
    Paste(form, "txtdescnew", "abcdefghijklmnopqrstuvwxyz");
    EXPECT_EQ(Text(form, "txtdescnew"), "kiln dried");
    asked.Expect("0 The price file cannot hold that character. Type it another way.|Norvale Help Notice");
    Letter(QStringLiteral("\u03a9"));
    Paste(form, "txtdescnew", "caf\xC3\xA9 abcdefghijklmnopqrst");
  });
  EXPECT_EQ(OnDisk(),
            Line("2X4- 8 STUD", "12345678901234567890", {"3.50", "3.30", "0.00", "0.00", "12.35"}, "caf\xE9 abcdefghijklmnopqrst") +
                lines[1] + lines[2] + lines[3]);
}

TEST_F(frmPricesTest, SaveKeepsTheBytesOfItemsThatWereNotShown) {
  const std::string first = Line("2X4- 8 STUD", "STUD-100", {"3.50", "3.30", "0.00", "0.00", "12.35"}, "kiln dried");
  Save([](frmPrices&) {});
  EXPECT_EQ(OnDisk(), first + lines[1] + lines[2] + lines[3]);
  // The short line is told of before it is shown, and written in full after it was.
  Save([](frmPrices& form) {
    auto* const warning = Find<QLabel>(form, "lblWarning");
    EXPECT_THAT(warning->text().toStdString(), testing::HasSubstr("items 3, 4."));
    Click(form, "cmdNEXT");
    Click(form, "cmdNEXT");
    EXPECT_THAT(warning->text().toStdString(), testing::HasSubstr("12.50     13.5"));
    EXPECT_EQ(Text(form, "txtdescnew"), "");
    Type(form, "txtInum", "  F1 ");
  });
  const std::string second = Line("A & B & C", "STUD", {"1.00", "2.00", "3.00", "4.00", "5.00"}, "");
  EXPECT_EQ(OnDisk(), first + second + Line("FELT", "F1", {"12.50", "13.50", "0.00", "0.00", "0.00"}, "") + lines[3]);
}

TEST_F(frmPricesTest, AFullDiskLosesNothing) {
  Run([this](frmPrices& form) {
    Type(form, "txtInum", "NEW");
    disk.reason = "No space left on device";
    asked.Expect(
        "0 The last step could not be finished, and nothing that was on file is lost.\n\nNVdata03.db.new: No space left on device|Norvale "
        "Help Notice");
    Click(form, "cmdSave");
    asked.ExpectAllAsked();
    EXPECT_EQ(OnDisk(), lines[0] + lines[1] + lines[2] + lines[3]);
    EXPECT_EQ(Text(form, "txtInum"), "NEW");
    disk.reason.clear();
    Click(form, "cmdSave");
  });
  EXPECT_THAT(OnDisk(), testing::HasSubstr("2X4- 8 STUD                        NEW     "));
}

TEST_F(frmPricesTest, CancelAsks) {
  Run([this](frmPrices& form) {
    Type(form, "txtprices_0", "99");
    for (const bool byKey : {false, true}) {
      asked.Expect(kCancel, Answer::No);
      byKey ? Key(Qt::Key_Escape) : Click(form, "cmdCANCEL");
      asked.ExpectAllAsked();
      EXPECT_TRUE(form.isVisible());
    }
    EXPECT_EQ(Text(form, "txtprices_0"), "99.00");
    asked.Expect(kCancel, Answer::Yes);
    form.close();
    EXPECT_FALSE(form.isVisible());
  });
  EXPECT_EQ(OnDisk(), lines[0] + lines[1] + lines[2] + lines[3]);
}

TEST_F(frmPricesTest, FindsTheFirstSkuThatHoldsTheText) {
  const struct {
    const char* from;
    const char* typed;
    Qt::Key end;
    const char* item;
    const char* focus;
  } rows[] = {
      {"cmdNEXT", "STUD", Qt::Key_Return, "2X4- 8 STUD", "txtprices_0"},  // a longer one ahead of the exact one
      {"cmdPREV", "FLT", Qt::Key_Enter, "FELT", "txtprices_0"},
      {"cmdNEXT", "flt", Qt::Key_Return, "A && B & C", "txtInum"},  // case counts; nothing says that it failed
      {"cmdNEXT", "", Qt::Key_Return, "A && B & C", "txtInum"},
      {"cmdNEXT", "FLT", Qt::Key_Escape, "A && B & C", "txtInum"},
      {"cmdNEXT", "FLT", Qt::Key_Tab, "FELT", "txtprices_0"},  // to the other box, but an SKU is typed
  };
  for (const auto& row : rows)
    Run([&](frmPrices& form) {
      Click(form, row.from);
      auto* const hint = Find<QLabel>(form, "lblmsgfind");
      EXPECT_FALSE(hint->isVisible());
      Click(form, "cmdFind");
      EXPECT_EQ(hint->text(), QStringLiteral("Type in the SKU to find then press  <Enter> to locate."));
      EXPECT_TRUE(hint->isVisible());
      EXPECT_EQ(Focus() + Text(form, "txtInum"), "txtInum");
      for (const char* const box : {"txtprices_0", "txtprices_4", "txtdescnew"}) EXPECT_FALSE(Find(form, box)->isEnabled()) << box;
      for (const char* const button : {"cmdNEXT", "cmdPREV", "cmdprint", "cmdSave", "cmdCANCEL"})
        EXPECT_FALSE(Find(form, button)->isVisible()) << button;
      Keys(row.typed);
      Key(row.end);
      EXPECT_TRUE(QTest::qWaitFor([&] { return !hint->isVisible(); }, kLongestWait)) << row.typed;
      EXPECT_EQ(Item(form), row.item) << row.typed;
      EXPECT_EQ(Focus(), row.focus) << row.typed;
      EXPECT_NE(Text(form, "txtInum"), "") << row.typed;
      EXPECT_TRUE(Find(form, "txtdescnew")->isEnabled() && Find(form, "cmdSave")->isVisible());
      Abandon(form);
    });
}

TEST_F(frmPricesTest, FindsByWordsOfTheDescriptionAndGoesOn) {
  Save([](frmPrices& form) {
    const auto find = [&](const char* words) {
      Click(form, "cmdFind");
      Key(Qt::Key_Tab);
      EXPECT_EQ(Focus(), "txtFindText");
      Keys(words);
      Key(Qt::Key_Return);
    };
    Type(form, "txtInum", "KEPT");
    find("2x4");
    EXPECT_EQ(Item(form), "2X4- 10 SPF");
    find("stud 2x4");
    EXPECT_EQ(Item(form), "2X4- 8 STUD");
    EXPECT_EQ(Text(form, "txtInum"), "KEPT");
    find("no such");
    EXPECT_EQ(Item(form), "2X4- 8 STUD");
    EXPECT_EQ(Find<QLabel>(form, "lblWarning")->text(), QStringLiteral("No description holds “no such”."));
  });
  EXPECT_TRUE(OnDisk().starts_with(Padded("2X4- 8 STUD", 35) + "KEPT ")) << "a search keeps what was typed before it";
}

TEST_F(frmPricesTest, PrintsTheFormAndAsksFirst) {
  Run([this](frmPrices& form) {
    asked.Expect(kPrint, Answer::Cancel);
    Click(form, "cmdprint");
    EXPECT_TRUE(printed.empty());
    Type(form, "txtprices_0", "99");
    asked.Expect(kPrint, Answer::Ok);
    Click(form, "cmdprint");
    Abandon(form);
  });
  ASSERT_EQ(printed.size(), 1U);
  EXPECT_EQ(printed[0][0].PriceItemPrice[0], "99.00");
  EXPECT_EQ(printed[0][1].PriceItemPrice[0], "1");
  EXPECT_EQ(LoadPriceList(scratch.Path()).Items()[0].PriceItemPrice[0], "3.50") << "what an estimate prints";
}

TEST_F(frmPricesTest, AnEmptyFileLeavesOnlyCancel) {
  WritePrices("");
  Run([this](frmPrices& form) {
    for (const char* const name :
         {"txtInum", "txtprices_0", "txtdescnew", "cmdNEXT", "cmdPREV", "cmdFind", "cmdprint", "cmdTable", "cmdSave"})
      EXPECT_FALSE(Find(form, name)->isEnabled()) << name;
    EXPECT_EQ(Item(form) + Text(form, "txtprices_0"), "");
    EXPECT_EQ(Focus(), "cmdCANCEL");
    Key(Qt::Key_PageDown);
    Abandon(form);
  });
  std::filesystem::remove(scratch / "NVdata03.db");
  asked.Expect("0 The last step could not be finished, and nothing that was on file is lost.\n\n" + (scratch / "NVdata03.db").string() +
               ": No such file or directory|Norvale Help Notice");
  EXPECT_EQ(frmPrices(program, {}).exec(), QDialog::Rejected);
  EXPECT_FALSE(std::filesystem::exists(scratch / "NVdata03.db"));
}

TEST_F(frmPricesTest, TheTableSortsFiltersAndEditsInPlace) {
  Save([this](frmPrices& form) {
    Type(form, "txtprices_0", "4");
    InTable(form, [this](frmPriceTable& table) {
      EXPECT_EQ(Cell(table, 0, PriceColumn::Level1), "4.00") << "as typed on the form";
      Find<QLineEdit>(table, "txtFilter")->setFocus();
      Keys("2x4");
      EXPECT_EQ(Find<QTableView>(table, "tblPrices")->model()->rowCount(), 2);
      EXPECT_EQ(Find<QLabel>(table, "lblCount")->text(), QStringLiteral("2 of 4 items"));
      Key(Qt::Key_Return);
      EXPECT_EQ(Focus(), "tblPrices");
      Find<QLineEdit>(table, "txtFilter")->clear();
      auto* const sort = Find<QComboBox>(table, "cboSort");
      sort->setFocus();
      sort->setCurrentIndex(sort->findText(QStringLiteral("Price level 1")));
      emit sort->activated(sort->currentIndex());
      EXPECT_EQ(Cell(table, 3, PriceColumn::Description), "FELT");
      // Typing begins at once, Enter goes on below; the row does not jump to where its new price belongs.
      GoTo(table, 0, PriceColumn::Level2);
      Keys("x88.5");
      Key(Qt::Key_Return);
      EXPECT_EQ(Cell(table, 0, PriceColumn::Level2), "88.50");
      EXPECT_EQ(Find<QTableView>(table, "tblPrices")->currentIndex().row(), 1);
      GoTo(table, 3, PriceColumn::Level1);
      asked.Expect(
          "0 The price 99999999.00 is too long for the price file, which has room for 7 digits before the point.|Norvale Help Notice");
      QApplication::clipboard()->setText(QStringLiteral("99999999"));
      Key(Qt::Key_Return);
      Key(Qt::Key_V, Qt::ControlModifier);
      Key(Qt::Key_Return);
      EXPECT_EQ(Cell(table, 3, PriceColumn::Level1), "12.50");
      GoTo(table, 3, PriceColumn::Description);
      Key(Qt::Key_F2);
      Keys("no");
      EXPECT_EQ(Cell(table, 3, PriceColumn::Description), "FELT");
      GoTo(table, 3, PriceColumn::OptionalText);
      Key(Qt::Key_F2);
      Keys(" by the roll ");
      Key(Qt::Key_Escape);
      Key(Qt::Key_F2);
      Keys(" the roll ");
      Key(Qt::Key_Return);
    });
    EXPECT_EQ(Item(form), "FELT") << "the row of the table";
    Click(form, "cmdPREV");
  });
  const PriceList saved = LoadPriceList(scratch.Path());
  EXPECT_EQ(saved.Items()[0].PriceItemPrice[0], "4.00");
  EXPECT_EQ(saved.Items()[2].PriceItemOptionalText, "the roll");
  EXPECT_EQ(saved.Items()[3].PriceItemPrice[1], "88.50");
}

// A message takes the focus, and with it the cell closes its box.
TEST_F(frmPricesTest, ACellOutlivesTheMessageThatItsTextBrings) {
  ScreenMessages screen;
  Program shown{folder, session, screen};
  PriceEditor prices = OpenPrices(scratch.Path());
  PriceHistory history;
  frmPriceTable table(shown, prices, history, 0);
  ShowActive(table);
  GoTo(table, 1, PriceColumn::Sku);
  Keys("AB");
  DriveModal<frmMbox>([] { Letter(QStringLiteral("\u03a9")); }, [](frmMbox&) { Key(Qt::Key_Return); });
  GoTo(table, 2, PriceColumn::Level1);
  Key(Qt::Key_F2);
  QApplication::clipboard()->setText(QStringLiteral("99999999"));
  Key(Qt::Key_V, Qt::ControlModifier);
  DriveModal<frmMbox>(
      [] {
        Key(Qt::Key_Return);
        QApplication::processEvents();  // the message comes behind the cell's end
      },
      [](frmMbox&) { Key(Qt::Key_Return); });
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "told once";
  EXPECT_EQ(Cell(table, 1, PriceColumn::Sku) + " " + Cell(table, 2, PriceColumn::Level1), "AB 12.50");
}

TEST_F(frmPricesTest, AnImportShowsWhatItChangesAndIsUndoneAsAWhole) {
  const std::string csv = "SKU,Price 1,Price 2,Unit\nSTUD-100,3.75,0,ea\nSTUD,2,5,ea\nNONE,1,1,ea\nFLT,call,14,rl\n";
  Run([&](frmPrices& form) {
    InTable(form, [&](frmPriceTable& table) {
      const auto rows = [](frmPricePreview& preview, const char* name) { return Find<QTableView>(preview, name)->model()->rowCount(); };
      Import(table, csv, [&](frmPricePreview& preview) {
        EXPECT_EQ(Find<QComboBox>(preview, "cboMatch")->currentText(), QStringLiteral("SKU"));
        EXPECT_EQ(rows(preview, "tblChanges"), 4);
        EXPECT_EQ(rows(preview, "tblNotTaken"), 2);
        EXPECT_EQ(Find<QLabel>(preview, "lblUnused")->text(), QStringLiteral("Columns not used: Unit"));
        QTest::mouseClick(Find<QCheckBox>(preview, "chkZero"), Qt::LeftButton, {}, QPoint(8, Find(preview, "chkZero")->height() / 2));
        EXPECT_EQ(rows(preview, "tblChanges"), 5);
        Key(Qt::Key_Escape);
      });
      EXPECT_EQ(Cell(table, 0, PriceColumn::Level1), "3.50") << "given up";
      EXPECT_FALSE(Find(table, "cmdUndo")->isEnabled());
      Import(table, csv, [](frmPricePreview& preview) { Click(preview, "cmdOK"); });
      EXPECT_EQ(Cell(table, 0, PriceColumn::Level1) + Cell(table, 0, PriceColumn::Level2), "3.753.30");
      EXPECT_EQ(Cell(table, 2, PriceColumn::Level1) + Cell(table, 2, PriceColumn::Level2), "12.5014.00");
      // On top of it, a percentage for what the filter shows.
      Find<QLineEdit>(table, "txtFilter")->setFocus();
      Keys("stud");
      Type(table, "txtPercent", "10");
      DriveModal<frmPricePreview>([&] { Click(table, "cmdPercent"); },
                                  [&](frmPricePreview& preview) {
                                    EXPECT_EQ(rows(preview, "tblChanges"), 2);
                                    Click(preview, "cmdOK");
                                  });
      EXPECT_EQ(Cell(table, 0, PriceColumn::Level1) + Cell(table, 1, PriceColumn::Level1), "4.132.20");
    });
    // The way back is there when the table is opened again.
    InTable(form, [](frmPriceTable& table) {
      GoTo(table, 1, PriceColumn::Level2);
      Keys("7");
      Key(Qt::Key_Return);
      Click(table, "cmdUndo");
      EXPECT_EQ(Cell(table, 0, PriceColumn::Level1) + Cell(table, 1, PriceColumn::Level1), "3.752.00");
      Click(table, "cmdUndo");
      EXPECT_EQ(Cell(table, 0, PriceColumn::Level1) + Cell(table, 1, PriceColumn::Level1), "3.501.00");
      EXPECT_EQ(Cell(table, 1, PriceColumn::Level2), "7.00") << "changed by hand since";
      EXPECT_EQ(Cell(table, 2, PriceColumn::Level2), "13.50");
      EXPECT_FALSE(Find(table, "cmdUndo")->isEnabled());
      GoTo(table, 0, PriceColumn::Level1);  // what the form shows is written in full
    });
    Click(form, "cmdSave");
  });
  EXPECT_THAT(OnDisk(), testing::EndsWith(lines[2] + lines[3])) << "undone to the byte";
}

}  // namespace
}  // namespace norvale
