// The desktop program. It works in the current folder.
#include <QApplication>
#include <QTimer>

#include "desktop/frm_keys.h"
#include "desktop/frm_look.h"
#include "desktop/frm_mbox.h"
#include "entry/frm_calc.h"
#include "shell/backup_keeper.h"
#include "shell/frm_menu.h"
#include "shell/frm_start.h"
#include "shell/frm_tasks.h"
#include "shell/working_folder.h"

int main(int argc, char** argv) {
  using namespace norvale;
  QApplication app(argc, argv);
  QApplication::setApplicationName(QStringLiteral("norvale"));
  QApplication::setApplicationDisplayName(QString());
  QApplication::setQuitOnLastWindowClosed(false);  // forms come and go before the menu is there
  ApplyLook(app, LookInUse());
  ScreenMessages messages;
  FormKeys keys;

  frmStart().exec();
  Session session;
  const auto path = std::filesystem::current_path();
  WatchedDisk disk(SystemDisk(), path);
  const auto folder = OpenWorkingFolder(path, session, messages, disk);
  if (!folder) return 1;
  BackupKeeper backups(*folder, disk);
  backups.BackUpStart(LocalNow());
  Program program{*folder, session, messages};
  CalculatorPlace calculator;
  keys.SetCalculator([&program, &calculator](QWidget* control) { RunCalculator(program, control, calculator); });
  OfferUnsavedPlan(program);
  frmMenu menu(program, [&program](MenuChoice choice, QWidget* form) { RunTask(program, choice, form); });
  // Between two events nothing is half done. A notice waits until nobody is typing.
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, [&] {
    backups.BackUpChange(LocalNow());
    if (QApplication::activeModalWidget() != &menu) return;
    if (const auto failure = backups.TakeFailure()) messages.ShowMessage(*failure);
  });
  look.start(1000);
  menu.exec();
  return 0;
}
