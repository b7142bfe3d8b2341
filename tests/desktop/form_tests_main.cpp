#include <gtest/gtest.h>

#include <QApplication>
#include <QSettings>

#include "desktop/frm_keys.h"
#include "desktop/frm_look.h"
#include "support/scratch_folder.h"

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_SCALE_FACTOR", "1");        // sizes are compared in these tests
  qputenv("CUPS_SERVER", "localhost:1");  // nothing is to come out of a printer
  testing::InitGoogleTest(&argc, argv);
  const norvale::ScratchFolder settings;  // not the user's own
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, QString::fromStdString(settings.Path().string()));
  QApplication app(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  norvale::ApplyLook(app, norvale::Look::Light);
  const norvale::FormKeys keys;  // as in the program
  return RUN_ALL_TESTS();
}
