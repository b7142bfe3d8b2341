#include <gtest/gtest.h>

#include <QApplication>

#include "desktop/frm_keys.h"
#include "desktop/frm_look.h"

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_SCALE_FACTOR", "1");  // sizes are compared in these tests
  testing::InitGoogleTest(&argc, argv);
  QApplication app(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  norvale::ApplyLook(app, norvale::Look::Light);
  const norvale::FormKeys keys;  // as in the program
  return RUN_ALL_TESTS();
}
