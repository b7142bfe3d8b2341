#include "desktop/frm_progress.h"

#include "desktop/form_driver.h"

namespace norvale {
namespace {

TEST(frmProgress, GivingUpEndsTheJobAtItsNextReport) {
  frmProgress progress(QStringLiteral("Reading"), nullptr);
  const auto report = progress.Report();
  report(0);
  EXPECT_FALSE(progress.isVisible()) << "a job that is over in a blink shows nothing";
  ShowActive(progress);
  report(0.5);
  EXPECT_EQ(progress.value(), 49);
  report(1);
  EXPECT_TRUE(progress.isVisible()) << "the job ends it, not its last report";
  Key(Qt::Key_Escape);
  EXPECT_THROW(report(1), GivenUp);
}

}  // namespace
}  // namespace norvale
