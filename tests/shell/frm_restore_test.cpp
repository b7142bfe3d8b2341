#include "shell/frm_restore.h"

#include <gtest/gtest.h>

#include <QTreeWidget>

#include "desktop/desktop_fixture.h"
#include "desktop/form_driver.h"

namespace norvale {
namespace {

const std::chrono::local_seconds kMorning = std::chrono::local_days(std::chrono::year(2025) / 3 / 14) + std::chrono::hours(8);
constexpr const char* kQuestion =
    "2 Bring back the backup of 03-14-2025, 08:00, with 3 customers and 5 plans?\n\nCustomers, plans, prices, material lists and waste "
    "factors become what they were then. What is on file now is kept as a backup of its own.|Bring Back a Backup";

class frmRestoreTest : public DesktopTest {
 protected:
  frmRestoreTest() {
    StoreSamples();
    (void)MakeBackup(folder, BackupReason::Start, kMorning);
    session.CurrentEstimate = PlanOf(3, "LATER");
    AddEstimate(folder, session);
    (void)MakeBackup(folder, BackupReason::Change, kMorning + std::chrono::hours(2));
  }
  static std::string Row(QWidget& form, int row) {
    const auto* const item = Find<QTreeWidget>(form, "lstBackups")->topLevelItem(row);
    std::string text;
    for (int column = 0; item != nullptr && column < item->columnCount(); ++column) text += item->text(column).toStdString() + "|";
    return text;
  }
};

TEST_F(frmRestoreTest, BringsTheChosenOneBackByKeys) {
  frmRestore form(program);
  ShowActive(form);
  EXPECT_EQ(Focus(), "lstBackups");
  EXPECT_EQ(Row(form, 0), "03-14-2025|10:00|After the first change of the day|3|6|");
  EXPECT_EQ(Row(form, 1), "03-14-2025|08:00|At the start|3|5|");
  session.CustomerSearchText = "HILL";
  asked.Expect(kQuestion, Answer::No);
  Keys("<Down><Alt+K>");
  EXPECT_EQ(PlansOnDisk().size(), 6U);

  EXPECT_EQ(Focus(), "cmdRestore");
  asked.Expect(kQuestion, Answer::Yes);
  asked.Expect(Notice("The backup of 03-14-2025, 08:00 is back. What was on file before is in the list as well."));
  Keys("<Return>");
  EXPECT_EQ(PlansOnDisk().size(), 5U);
  EXPECT_EQ(session.CustomerSearchText, "") << "the session is a fresh one";
  EXPECT_EQ(session.CurrentCustomer.CustomerName.Trimmed(), "Hill Homes");

  Click(form, "cmdBackUp");
  EXPECT_EQ(Row(form, 0).substr(16), "|By hand|3|5|");
  asked.Expect(Notice("Nothing has changed since the backup of " + Row(form, 0).substr(0, 10) + ", " + Row(form, 0).substr(11, 5) +
                      ". It holds all there is."));
  Click(form, "cmdBackUp");
  Keys("<Esc>");
  EXPECT_FALSE(form.isVisible());
}

TEST_F(frmRestoreTest, AFullDiskChangesNothing) {
  frmRestore form(program);
  ShowActive(form);
  const auto before = BytesOnDisk();
  disk.reason = "No space left on device";
  asked.Expect(kQuestion, Answer::Yes);
  asked.Expect(FileErrorNotice(FileError("NVdata01.idx.restored", disk.reason)));
  Keys("<Down><Alt+K>");
  disk.reason.clear();
  EXPECT_EQ(BytesOnDisk(), before);
  EXPECT_EQ(session.CurrentCustomer.CustomerName.Trimmed(), "Hill Homes");
}

TEST_F(frmRestoreTest, AnEmptyListOffersOnlyToMakeOne) {
  std::filesystem::remove_all(scratch / "backups");
  frmRestore form(program);
  ShowActive(form);
  EXPECT_TRUE(Find(form, "lblNone")->isVisible());
  EXPECT_FALSE(Find(form, "cmdRestore")->isEnabled());
  Click(form, "cmdBackUp");
  EXPECT_EQ(Row(form, 0).substr(16), "|By hand|3|6|");
  EXPECT_TRUE(Find(form, "cmdRestore")->isEnabled());
}

}  // namespace
}  // namespace norvale
