// What becomes of a print: copies, a printer that fails, an operator who has enough, no printer at all, a file.
#include "printing/frm_print_out.h"

#include <gmock/gmock.h>

#include <QComboBox>
#include <QFileDialog>
#include <QProgressDialog>
#include <QThread>

#include "desktop/desktop_fixture.h"
#include "desktop/form_driver.h"
#include "printing/frm_preview.h"
#include "recording_printers.h"

namespace norvale {
namespace {

using testing::SizeIs;
using testing::StartsWith;

// The formats by their places in the list.
constexpr int kPdf = 0;
constexpr int kText = 1;
constexpr int kCsv = 2;

class PrintOutTest : public DesktopTest {
 protected:
  bool Out(int copies) { return PrintOut(program, prints, copies, setup, printers, nullptr); }

  /// Presses Cancel behind the first copy, once the progress is in sight, on a printer that takes its time.
  void CancelWhenShown() {
    printers.onPage = [this] {
      QThread::msleep(5);
      if (printers.jobs.empty()) return;
      for (QWidget* const window : QApplication::topLevelWidgets())
        if (auto* const progress = qobject_cast<QProgressDialog*>(window); progress != nullptr && progress->isVisible())
          QTest::mouseClick(progress->findChild<QPushButton*>(), Qt::LeftButton);
    };
  }

  /// Saves under a name in the scratch folder, in a format by its place in the list.
  void Save(int format, const char* name) {
    const auto answer = [&](QFileDialog& dialog) {
      // Where the name is not taken, the dialog comes back.
      QObject::connect(&dialog, &QDialog::finished, &dialog, [&dialog] { QTimer::singleShot(0, &dialog, &QDialog::reject); });
      auto* const formats = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
      formats->setFocus();
      Key(Qt::Key_Home);
      for (int row = 0; row < format; ++row) Key(Qt::Key_Down);
      dialog.setDirectory(QString::fromStdString(scratch.Path().string()));
      dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(QString::fromLatin1(name));
      static_cast<QDialog&>(dialog).accept();
    };
    DriveModal<QFileDialog>([this] { SavePrints(program, prints, setup.paper, nullptr); }, answer);
  }

  Prints prints{.document = {.title = "A/12 \"Oak\"", .pages = {{"first"}, {"second"}, {"third"}, {"fourth"}}, .marks = {}},
                .unpriced = {},
                .csv = "quantity\r\n1\r\n",
                .refusal = {}};
  PrintSetup setup;
  RecordingPrinters printers;
};

TEST_F(PrintOutTest, EachCopyIsAWholeJobOfItsOwn) {
  EXPECT_TRUE(Out(3));
  ASSERT_THAT(printers.jobs, SizeIs(3));
  for (const Document& job : printers.jobs) EXPECT_EQ(job.pages, prints.document.pages);
}

TEST_F(PrintOutTest, APrinterThatFailsIsToldOnce) {
  const struct {
    int copies;
    int failing;
    const char* went;
  } rows[] = {{1, 0, ""}, {3, 0, " 0 of 3 copies went to the printer."}, {3, 2, " 2 of 3 copies went to the printer."}};
  for (const auto& row : rows) {
    printers.jobs.clear();
    printers.begun = 0;
    printers.failingCopy = row.failing;
    asked.Expect(Notice(std::string("The printer Front desk cannot be used: no paper.") + row.went +
                        " What you chose is kept: select another printer, or save the pages as a PDF."));
    EXPECT_FALSE(Out(row.copies));
    asked.ExpectAllAsked();
    EXPECT_EQ(printers.begun, row.failing + 1);
    EXPECT_THAT(printers.jobs, SizeIs(row.failing));
  }
}

// A printer of the system's that is not there, without a stand-in.
TEST_F(PrintOutTest, APrinterThatIsGoneIsNotReplacedInSilence) {
  SystemPrinters system;
  setup.printer = QStringLiteral("Front desk");
  const PrintOutcome outcome = system.Print(prints.document, setup, [](std::size_t) { return true; });
  EXPECT_EQ(outcome.end, PrintEnd::Failed);
  EXPECT_EQ(outcome.copies, 0);
  EXPECT_EQ(outcome.reason, "The printer Front desk cannot be used: it is not installed any more.");
}

TEST_F(PrintOutTest, ALongPrintCanBeCancelledHalfWay) {
  CancelWhenShown();
  struct : Messages {
    std::string shown;
    Answer ShowMessage(const std::string& text) override { return shown = text, Answer::Ok; }
  } messages;
  Program listening{folder, session, messages};
  EXPECT_FALSE(PrintOut(listening, prints, 999, setup, printers, nullptr));
  EXPECT_GT(printers.jobs.size(), 0U);
  EXPECT_LT(printers.jobs.size(), 999U);
  EXPECT_EQ(messages.shown,
            Notice("Printing was stopped. " + std::to_string(printers.jobs.size()) + " of 999 copies went to the printer."));
}

TEST_F(PrintOutTest, WithoutAPrinterThePagesAreShown) {
  printers.hasAny = false;
  const std::string question =
      "2 No printer is installed on this computer. Look at the pages on the screen instead? They can be saved there as a PDF.|Print";
  asked.Expect(question, Answer::No);
  EXPECT_FALSE(Out(1));
  asked.Expect(question, Answer::Yes);
  DriveModal<frmPreview>([this] { EXPECT_FALSE(Out(1)); },
                         [this](frmPreview& preview) {
                           EXPECT_EQ(Find<QLabel>(preview, "lblPage")->text(), QStringLiteral("Page 1 of 4"));
                           asked.Expect(Notice(kNoPrinter));
                           Click(preview, "cmdPrint");
                           EXPECT_TRUE(preview.isVisible());
                           Key(Qt::Key_Escape);
                         });
}

TEST_F(PrintOutTest, ThePreviewIsPagedThroughByKeysAndKeepsItsPaper) {
  DriveModal<frmPreview>([this] { EXPECT_TRUE(ShowPreview(program, prints, setup, printers, nullptr)); },
                         [](frmPreview& preview) {
                           const auto page = [&preview] { return Find<QLabel>(preview, "lblPage")->text().toStdString(); };
                           Key(Qt::Key_PageDown, Qt::ControlModifier);
                           EXPECT_EQ(page(), "Page 2 of 4");
                           Key(Qt::Key_End);
                           EXPECT_EQ(page(), "Page 4 of 4");
                           EXPECT_FALSE(Find(preview, "cmdNext")->isEnabled());
                           Key(Qt::Key_PageUp, Qt::ControlModifier);
                           Key(Qt::Key_Home);
                           EXPECT_EQ(page(), "Page 1 of 4");
                           Click(preview, "cmdLast");
                           EXPECT_EQ(page(), "Page 4 of 4");
                           EXPECT_EQ(Focus(), "pctPages");
                           auto* const view = Find<PageView>(preview, "pctPages");
                           const qreal wide = view->Factor();
                           Key(Qt::Key_Plus);
                           EXPECT_GT(view->Factor(), wide);
                           EXPECT_EQ(page(), "Page 4 of 4");
                           Key(Qt::Key_2, Qt::ControlModifier);
                           EXPECT_LT(view->Factor(), wide);
                           EXPECT_EQ(page(), "Page 4 of 4");
                           auto* const paper = Find<QComboBox>(preview, "cboPaper");
                           paper->setFocus();
                           Keys("A");
                           Click(preview, "cmdPrint");
                         });
  EXPECT_EQ(setup.paper.size, QPageSize::A4);
  EXPECT_EQ(LoadPrintSetup().paper, setup.paper);
  SavePrintSetup({});
}

TEST_F(PrintOutTest, SavesUnderTheEndingOfTheFormat) {
  Save(kPdf, "a.pdf");
  EXPECT_THAT(ReadBytes(scratch / "a.pdf"), StartsWith("%PDF-"));
  Save(kText, "b");
  EXPECT_EQ(ReadBytes(scratch / "b.txt"), "first\n\fsecond\n\fthird\n\ffourth\n\f");
  Save(kCsv, "c.csv");
  EXPECT_EQ(ReadBytes(scratch / "c.csv"), "quantity\r\n1\r\n");
}

// Neither a data file nor an earlier print goes by a slip of the hand, and a full disk leaves what was there.
TEST_F(PrintOutTest, SavesOverNothingUnasked) {
  const std::vector<std::string> before = BytesOnDisk();
  Save(kText, "customer.db");
  EXPECT_EQ(BytesOnDisk(), before);
  EXPECT_EQ(ReadBytes(scratch / "customer.db.txt").substr(0, 5), "first");
  WriteBytes(scratch / "d.pdf", "an earlier print");
  asked.Expect("2 d.pdf is there already. Replace it?|Save As", Answer::No);
  Save(kPdf, "d");
  EXPECT_EQ(ReadBytes(scratch / "d.pdf"), "an earlier print");
  disk.reason = "No space left on device";
  asked.Expect("2 d.pdf is there already. Replace it?|Save As", Answer::Yes);
  asked.Expect(FileErrorNotice(FileError("d.pdf.new", disk.reason)));
  Save(kPdf, "d.pdf");
  EXPECT_EQ(ReadBytes(scratch / "d.pdf"), "an earlier print");
}

}  // namespace
}  // namespace norvale
