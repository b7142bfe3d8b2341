#include "printing/frm_dispatch.h"

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QRadioButton>
#include <QTreeWidget>
#include <set>

#include "base/text.h"
#include "delivered/sample_house.h"
#include "desktop/desktop_fixture.h"
#include "desktop/form_driver.h"
#include "desktop/frm_text.h"
#include "printing/frm_preview.h"
#include "printing/frm_prtsel.h"
#include "recording_printers.h"

namespace norvale {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class PrintDispatchTest : public DesktopTest {
 protected:
  void Print(PrintKind kind, const std::function<void(frmPrtSel&)>& drive) {
    DriveModal<frmPrtSel>([&] { PrintDispatch(program, kind, nullptr, nullptr, printers); }, drive);
  }

  RecordingPrinters printers;
};

// The frames of a dialog that are in sight.
std::vector<std::string> Frames(QWidget& form) {
  std::vector<std::string> names;
  for (const char* const name : {"fraCustRange", "fraPlanType", "fraWorkSheet", "FraPrintSelect"})
    if (!Find<QGroupBox>(form, name)->isHidden()) names.emplace_back(name);
  return names;
}

TEST_F(PrintDispatchTest, EachKindShowsItsOwnFrames) {
  const struct {
    PrintKind kind;
    std::vector<std::string> frames;
    const char* focus;
    bool hasCopies;
  } rows[] = {
      {PrintKind::CustomerList, {"fraCustRange"}, "optCustAll", false},
      {PrintKind::EstimateList, {"fraCustRange"}, "optCustAll", false},
      {PrintKind::Worksheet, {"fraPlanType", "fraWorkSheet"}, "chkPlanDesc_0", false},
      {PrintKind::Estimate, {"FraPrintSelect"}, "chkPrtSel_0", true},
  };
  session.CurrentEstimate = NewPlan(4);
  for (const auto& row : rows)
    Print(row.kind, [&row](frmPrtSel& form) {
      EXPECT_EQ(form.windowTitle(), QStringLiteral("Print"));
      EXPECT_EQ(Frames(form), row.frames);
      EXPECT_EQ(Focus(), row.focus);
      EXPECT_EQ(Text(form, "txtPrintCopies"), "1");
      EXPECT_EQ(!Find(form, "txtPrintCopies")->isHidden(), row.hasCopies);
      EXPECT_EQ(Text(form, "txtCustFrom"), " 1");
      EXPECT_EQ(Text(form, "txtCustTo"), " LAST");
      EXPECT_TRUE(Find<QPushButton>(form, "cmdPrintOK")->isDefault());
      Key(Qt::Key_Escape);
    });
  EXPECT_THAT(printers.jobs, IsEmpty());
}

// The plan's own customer stands on the paper, whoever was looked at last; a summary names the stock even without prices.
TEST_F(PrintDispatchTest, EnterPrintsWhatIsTicked) {
  StoreSamples();
  session.CurrentCustomer = OnDisk(3);
  session.CurrentEstimate = NewPlan(4);
  session.CurrentEstimate.CustomerNumber = 12;
  Measure(session.CurrentEstimate);
  for (const int list : {0, 1}) {
    printers.jobs.clear();
    Print(PrintKind::Estimate, [list](frmPrtSel& form) {
      Type(form, "txtPrintCopies", "2");
      Find(form, "chkPrtSel_4")->setFocus();
      QApplication::processEvents();
      Find<QComboBox>(form, "cboList")->setCurrentIndex(list);
      Key(Qt::Key_Return);
    });
    ASSERT_THAT(printers.jobs, SizeIs(2));
    EXPECT_THAT(DocumentText(printers.jobs[1]),
                AllOf(HasSubstr("CUSTOMER NAME:  Smith & Oakley"), HasSubstr(list == 0 ? "1st FLOOR - FLOOR SYSTEM" : "  LBR-")));
  }
}

TEST_F(PrintDispatchTest, ThePriceListIsPrintedFromItsPreview) {
  const PriceList prices({PriceItem{"PLYCLIPS", "", {"1"}, ""}});
  DriveModal<frmPreview>([&] { PrintPriceList(program, prices, nullptr, printers); }, [](frmPreview& form) { Click(form, "cmdPrint"); });
  ASSERT_THAT(printers.jobs, SizeIs(1));
  EXPECT_THAT(DocumentText(printers.jobs[0]), HasSubstr("PLYCLIPS"));
}

// A two-level house on a crawl space has every part. The headings on the page are the captions in capitals.
TEST_F(PrintDispatchTest, EachBoxAlonePrintsThePartOfItsCaption) {
  session.CurrentEstimate = NewPlan(8 + 16 + 128);
  Measure(session.CurrentEstimate);
  std::set<std::string> captions;
  for (const std::size_t box : kPrintBoxesOnScreen) captions.insert(UpperCase(CaptionOfPrintBox(box)));
  for (std::size_t alone = 0; alone < kPrintBoxes; ++alone) {
    std::string caption;
    printers.jobs.clear();
    Print(PrintKind::Estimate, [&](frmPrtSel& form) {
      for (std::size_t i = 0; i < kPrintBoxes; ++i) {
        auto* const box = form.findChild<QCheckBox*>(InArray("chkPrtSel", i));
        if (box->isChecked() != (i == alone)) QTest::keyClick(box, Qt::Key_Space);
        if (i == alone) caption = UpperCase(box->text().toStdString());
      }
      Click(form, "cmdPrintOK");
    });
    ASSERT_THAT(printers.jobs, SizeIs(1));
    std::set<std::string> headings;
    for (const PageText& page : printers.jobs[0].pages)
      for (const std::string& line : page)
        if (const std::string text = UpperCase(Trim(line)); captions.count(text) != 0) headings.insert(text);
    if (alone == kPricingBox)
      EXPECT_THAT(headings, IsEmpty());
    else
      EXPECT_THAT(headings, ElementsAre(caption));
  }
}

TEST_F(PrintDispatchTest, LinesWithoutAPriceAreListedBeforeTheyGoOut) {
  session.CurrentEstimate = NewPlan(4);
  Measure(session.CurrentEstimate);
  Choose(session.CurrentEstimate, SelectionList::RoofSheathing, 1);
  session.CurrentEstimate.RoofSheathing.Assign("STRAW BALES");
  Print(PrintKind::Estimate, [this](frmPrtSel& form) {
    auto* const list = Find<QTreeWidget>(form, "lstUnpriced");
    EXPECT_TRUE(list->isHidden());
    QTest::keyClick(Find(form, "chkPrtSel_10"), Qt::Key_Space);
    EXPECT_FALSE(list->isHidden());
    std::vector<std::string> descriptions;
    for (int row = 0; row < list->topLevelItemCount(); ++row) descriptions.push_back(list->topLevelItem(row)->text(1).toStdString());
    EXPECT_THAT(descriptions, Contains(HasSubstr("STRAW BALES")));
    // With its part left out, a line is no longer of concern.
    QTest::keyClick(Find(form, "chkPrtSel_4"), Qt::Key_Space);
    EXPECT_LT(list->topLevelItemCount(), static_cast<int>(descriptions.size()));
    DriveModal<frmPreview>([&form] { Click(form, "cmdPreview"); },
                           [&](frmPreview& preview) {
                             EXPECT_EQ(preview.findChild<QLabel*>(QStringLiteral("lblMarks")) != nullptr, list->topLevelItemCount() > 0);
                             Click(preview, "cmdPrint");
                           });
  });
  EXPECT_THAT(printers.jobs, SizeIs(1));
}

TEST_F(PrintDispatchTest, AFailedPrintBringsTheDialogBackAsItWas) {
  session.CurrentEstimate = NewPlan(4);
  printers.failingCopy = 0;
  int shown = 0;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, [&] {
    auto* const form = qobject_cast<frmPrtSel*>(QApplication::activeModalWidget());
    if (form == nullptr) return;
    look.stop();  // what follows lets other timers run
    ++shown;
    EXPECT_EQ(Find<QCheckBox>(*form, "chkPrtSel_4")->isChecked(), shown == 1);
    Find<QCheckBox>(*form, "chkPrtSel_4")->setChecked(false);
    Find<QLineEdit>(*form, "txtPrintCopies")->setText(shown == 1 ? QStringLiteral("3") : QStringLiteral("0"));
    if (shown == 1) look.start(5);
    Click(*form, "cmdPrintOK");
  });
  look.start(5);
  asked.Expect(
      Notice("The printer Front desk cannot be used: no paper. 0 of 3 copies went to the printer. What you chose is kept: select another "
             "printer, or save the pages as a PDF."));
  PrintDispatch(program, PrintKind::Estimate, nullptr, nullptr, printers);
  EXPECT_EQ(shown, 2);
  EXPECT_THAT(printers.jobs, SizeIs(1));  // no copies are one
}

TEST_F(PrintDispatchTest, AWorksheetNeedsAFoundation) {
  asked.Expect(WithTitle("0 Please Select a Valid PLAN TYPE.|"));
  Print(PrintKind::Worksheet, [](frmPrtSel& form) {
    Click(form, "cmdPrintOK");
    EXPECT_EQ(Focus(), "chkPlanDesc_0");
    // A half story needs two levels, and one foundation clears the others.
    for (const auto& [pressed, ticked] : {std::pair{10, ""}, {0, "0"}, {3, "3"}, {10, "3 10"}, {4, "3 4 10"}}) {
      QTest::keyClick(Find(form, InArray("chkPlanDesc", static_cast<std::size_t>(pressed)).toLatin1().constData()), Qt::Key_Space);
      QStringList found;
      for (std::size_t i = 0; i < kPlanChecks; ++i)
        if (form.findChild<QCheckBox*>(InArray("chkPlanDesc", i))->isChecked()) found.append(QString::number(i));
      EXPECT_EQ(found.join(QLatin1Char(' ')), QLatin1String(ticked)) << pressed;
    }
    Find<QRadioButton>(form, "optWorkSheet_2")->click();
    Click(form, "cmdPrintOK");
  });
  ASSERT_THAT(printers.jobs, SizeIs(1));
  const std::string text = DocumentText(printers.jobs[0]);
  EXPECT_THAT(text, HasSubstr("1-1/2S Crawl W/ Att Garage"));
  EXPECT_THAT(text, HasSubstr("Measurements Only"));
}

TEST_F(PrintDispatchTest, AnEmptyCustomerFileSaysSo) {
  asked.Expect(WithTitle("0 Customer File Is EMPTY!|"));
  Print(PrintKind::CustomerList, [](frmPrtSel& form) { Click(form, "cmdPrintOK"); });
  EXPECT_THAT(printers.jobs, IsEmpty());
}

TEST_F(PrintDispatchTest, TheListsTakeTheirRange) {
  StoreSamples();
  const auto titles = [this](PrintKind kind, const std::function<void(frmPrtSel&)>& drive) {
    printers.jobs.clear();
    Print(kind, drive);
    std::vector<std::string> found;
    for (const Document& job : printers.jobs)
      for (const std::string& line : job.pages.at(0))
        if (line.starts_with("0") || line.starts_with("CUSTOMER NAME") || line.starts_with("ESTIMATE")) found.push_back(line.substr(0, 31));
    return found;
  };
  const auto all = [](frmPrtSel& form) { Click(form, "cmdPrintOK"); };
  EXPECT_THAT(titles(PrintKind::CustomerList, all), ElementsAre("0003  Hill Homes", "0007  Oak Street Builders", "0012  Smith & Oakley"));
  // The company has a plan of its own.
  EXPECT_THAT(titles(PrintKind::EstimateList, all),
              ElementsAre("ESTIMATE LIST: Customer 1 to LA", "CUSTOMER NAME: 0000", "CUSTOMER NAME: 0003  Hill Homes",
                          "CUSTOMER NAME: 0007  Oak Street", "CUSTOMER NAME: 0012  Smith & Oa"));
  const auto some = [](frmPrtSel& form) {
    QTest::keyClick(Find(form, "optCustAll"), Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(Focus(), "txtCustFrom");
    Keys("4");
    Key(Qt::Key_Return);
    EXPECT_EQ(Focus(), "txtCustTo");
    Find<QLineEdit>(form, "txtCustTo")->selectAll();
    Keys("7");
    Click(form, "cmdPrintOK");
  };
  EXPECT_THAT(titles(PrintKind::EstimateList, some), ElementsAre("ESTIMATE LIST: Customer 4 to 7 ", "CUSTOMER NAME: 0007  Oak Street"));
}

TEST_F(PrintDispatchTest, AWrongRangeIsRefusedWhereItIsTyped) {
  StoreSamples();
  constexpr const char* kOutOfRange = "0 Valid Values range from 1 to 32767,  Please re-Enter a Valid Value|";
  const struct {
    const char* box;
    const char* typed;
    const char* message;
    const char* after;
  } rows[] = {
      {"txtCustFrom", "0", kOutOfRange, "1"},
      {"txtCustFrom", "32768", kOutOfRange, "1"},
      {"txtCustTo", "x", kOutOfRange, "32767"},
      {"txtCustTo", "5", nullptr, "5"},
      {"txtCustTo", "4", "0 Value needs to be Equal To or Greater Than the print from value,  Please re-Enter a larger Value|", "4"},
      {"txtCustTo", "last", nullptr, "last"},
  };
  Print(PrintKind::CustomerList, [&](frmPrtSel& form) {
    Find<QRadioButton>(form, "optCustSel")->click();
    for (const auto& row : rows) {
      Type(form, "txtCustFrom", "5");
      if (row.message != nullptr) asked.Expect(WithTitle(row.message));
      Type(form, row.box, row.typed);
      Find(form, "optCustSel")->setFocus();
      QApplication::processEvents();
      asked.ExpectAllAsked();
      EXPECT_EQ(Text(form, row.box), row.after);
      EXPECT_EQ(Focus(), row.message != nullptr ? row.box : "optCustSel");
    }
    Key(Qt::Key_Escape);
  });
}

}  // namespace
}  // namespace norvale
