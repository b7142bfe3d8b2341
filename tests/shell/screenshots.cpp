// Takes a picture of every form: norvale_screenshots DIR light|dark [POINTS]
#include <QApplication>
#include <QDir>
#include <QFont>
#include <QPushButton>
#include <QStyleFactory>
#include <QTest>
#include <cstdio>

#include "data/batch_store.h"
#include "data/folder_start.h"
#include "desktop/frm_help.h"
#include "desktop/frm_look.h"
#include "desktop/frm_mbox.h"
#include "prices/new_folder.h"
#include "shell/frm_address.h"
#include "shell/frm_menu.h"
#include "shell/frm_start.h"
#include "support/scratch_folder.h"

namespace norvale {
namespace {

CustomerRecord Person(std::int16_t number, std::string_view name, std::string_view street, std::string_view city) {
  CustomerRecord customer;
  customer.CustomerRecordNumber = number;
  customer.CustomerName.Assign(name);
  customer.AddressLine1.Assign(street);
  customer.City.Assign(city);
  customer.State.Assign("DE");
  customer.Zip.Assign("19901");
  customer.Telephone.Assign("302-555-0142");
  customer.Fax.Assign("302-555-0143");
  customer.Contact.Assign("Pat Reed");
  customer.Note1.Assign("Delivery to the site by the north gate only");
  return customer;
}

class NoMessages final : public Messages {
 public:
  Answer ShowMessage(const std::string& text) override { return ParseMessage(text).escape; }
};

class Camera {
 public:
  Camera(QString folder, QString ending) : folder_(std::move(folder)), ending_(std::move(ending)) {}

  void Take(QWidget& form, const char* name) {
    form.show();
    form.activateWindow();
    if (!QTest::qWaitForWindowActive(&form)) std::fprintf(stderr, "%s is not active\n", name);
    QTest::qWait(30);
    const QString file = QStringLiteral("%1/%2%3.png").arg(folder_, QString::fromLatin1(name), ending_);
    if (!form.grab().save(file)) std::fprintf(stderr, "%s cannot be written\n", qPrintable(file));
  }

 private:
  QString folder_;
  QString ending_;
};

int Run(QApplication& app, const QStringList& words) {
  if (words.size() < 3) return std::fputs("norvale_screenshots DIR light|dark [POINTS]\n", stderr), 2;
  const bool isDark = words[2] == QLatin1String("dark");
  QString ending = isDark ? QStringLiteral("-dark") : QString();
  if (words.size() > 3) {
    QFont font = QApplication::font();
    font.setPointSize(words[3].toInt());
    QApplication::setFont(font);
    ending += QLatin1Char('-') + words[3];
  }
  ApplyLook(app, isDark ? Look::Dark : Look::Light);
  QDir().mkpath(words[1]);
  Camera camera(words[1], ending);

  const ScratchFolder scratch;
  DataFolder folder(scratch.Path());
  Session session;
  NoMessages messages;
  LayDeliveredFiles(folder);
  (void)StartFolder(folder, session);
  const std::vector customers = {Person(0, "Norvale Lumber", "1 Mill Road", "Dover"), Person(1, "Hill Homes", "12 Hill Street", "Dover"),
                                 Person(2, "Oak Street Builders", "40 Oak Street", "Milford")};
  StoreAll(folder, customers, {});
  Program program{folder, session, messages};

  frmStart start;
  camera.Take(start, "start");
  start.hide();
  frmMenu menu(program, [](MenuChoice, QWidget*) {});
  menu.resize(1024, 700);  // the screen of a machine without one is smaller
  camera.Take(menu, "menu");
  for (const char* const name : {"Estimate", "Customer", "Print", "Utility"}) {
    menu.ShowMenu(name);
    camera.Take(menu, (std::string("menu-") + QString::fromLatin1(name).toLower().toStdString()).c_str());
  }
  menu.hide();
  const std::pair<const char*, const char*> texts[] = {
      {"message", "2 Delete this Customer?"},
      {"message-notice", "0 The value 0 is reserved,  use a number from 1 to 32767!|Norvale Help Notice"},
      {"message-three", "1 The estimate has changed. Save it before going on to the next one?|Save"},
      {"message-error",
       "0 The last step could not be finished, and nothing that was on file is lost.\n\ncustomer.db: No space left on device|Norvale "
       "Help Notice"}};
  for (const auto& [name, text] : texts) {
    frmMbox box(ParseMessage(text));
    camera.Take(box, name);
  }
  {
    frmAddress form(program, CustomerFormMode::Customer);
    camera.Take(form, "customers");
    form.findChild<QPushButton*>(QStringLiteral("cmdAddress_2"))->click();
    camera.Take(form, "customers-find");
    form.close();
  }
  {
    frmAddress form(program, CustomerFormMode::Company);
    camera.Take(form, "company");
    form.close();
  }
  frmHelp help(QStringLiteral("customers"));
  camera.Take(help, "help");
  return 0;
}

}  // namespace
}  // namespace norvale

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  return norvale::Run(app, QApplication::arguments());
}
