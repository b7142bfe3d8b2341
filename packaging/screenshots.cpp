// Takes a picture of every form: norvale_screenshots DIR light|dark [POINTS]
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFont>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QStyleFactory>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <cstdio>
#include <functional>

#include "base/files.h"
#include "data/batch_store.h"
#include "data/folder_start.h"
#include "data/plan_type.h"
#include "desktop/frm_help.h"
#include "desktop/frm_look.h"
#include "desktop/frm_mbox.h"
#include "desktop/frm_text.h"
#include "entry/frm_calc.h"
#include "entry/frm_checklst.h"
#include "entry/frm_display.h"
#include "entry/frm_estsave.h"
#include "entry/frm_newest.h"
#include "entry/frm_roof.h"
#include "entry/plan_form.h"
#include "entry/screens.h"
#include "prices/delivered.h"
#include "prices/exchange.h"
#include "prices/frm_mat_default.h"
#include "prices/frm_price_preview.h"
#include "prices/frm_price_table.h"
#include "prices/frm_prices.h"
#include "prices/frm_waste.h"
#include "prices/new_folder.h"
#include "printing/frm_live_list.h"
#include "printing/frm_preview.h"
#include "printing/frm_prtsel.h"
#include "shell/frm_address.h"
#include "shell/frm_menu.h"
#include "shell/frm_restore.h"
#include "shell/frm_start.h"
#include "shell/status_line.h"

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

EstimateRecord Sample(const char* file) {
  const std::string path = std::string(NORVALE_SOURCE_DIR "/samples/") + file;
  return ImportTables(ReadWholeFile(path)).plans.front();
}

class Camera {
 public:
  Camera(QString folder, QString ending) : folder_(std::move(folder)), ending_(std::move(ending)) {}

  void Take(QWidget& form, const char* name) {
    form.show();
    form.activateWindow();
    if (!QTest::qWaitForWindowActive(&form)) std::fprintf(stderr, "%s is not active\n", name);
    QTest::qWait(30);
    Save(form.grab(), FileOf(name));
  }

  /// The modal form that `open` opens, with `keys` typed into it, over the form below.
  void TakeOver(QWidget& below, const char* keys, const char* name, const std::function<void()>& open) {
    QTimer::singleShot(50, &below, [&] {
      QWidget* const above = QApplication::activeModalWidget();
      QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(keys));
      QTest::qWait(30);
      QPixmap picture = below.grab();
      const QPixmap over = above->grab();
      QPainter painter(&picture);
      const QRect place(QPoint(below.width() - above->width(), below.height() - above->height()) * 4 / 5, above->size());
      painter.drawPixmap(place, over);
      painter.setPen(ColoursOfLook().edge);
      painter.drawRect(place);
      painter.end();
      Save(picture, FileOf(name));
      above->close();
    });
    open();
  }

 private:
  [[nodiscard]] QString FileOf(const char* name) const {
    return QStringLiteral("%1/%2%3.png").arg(folder_, QString::fromLatin1(name), ending_);
  }

  static void Save(const QPixmap& picture, const QString& file) {
    if (!picture.save(file)) std::fprintf(stderr, "%s cannot be written\n", qPrintable(file));
  }

  QString folder_;
  QString ending_;
};

// All eleven screens of a plan.
void TakeScreens(Camera& camera, Program& program, const char* file, const std::string& name) {
  program.session.CurrentEstimate = Sample(file);
  PlanForm form = OpenPlanForm(PlanMode::Existing, false, program.session.CurrentEstimate, DeliveredScreenLines(), DeliveredMaterialRows());
  frmDisplay display(program, form, false,
                     {.printEstimate = [](const PlanForm&, QWidget*) {},
                      .keepDraft = {},
                      .makeLivePanel = [&](QWidget* parent) { return new LiveList(program, parent); }});
  display.resize(1024, 700);
  camera.Take(display, (name + "-1").c_str());
  for (int screen = 1; screen <= ScreenCount; ++screen) {
    display.findChild<QAbstractButton*>(QStringLiteral("cmdScreen_%1").arg(screen))->click();
    camera.Take(display, (name + "-" + std::to_string(screen + 1)).c_str());
  }
  display.findChild<QPushButton*>(QStringLiteral("cmdLive"))->click();
  camera.Take(display, (name + "-live").c_str());
  display.hide();
}

void TakePrices(Camera& camera, Program& program) {
  frmPrices form(program, [](const PriceList&, QWidget*) {});
  camera.Take(form, "prices");
  form.findChild<QPushButton*>(QStringLiteral("cmdFind"))->click();
  camera.Take(form, "prices-find");
  form.hide();
  PriceEditor prices = OpenPrices(program.folder.Folder());
  PriceHistory history;
  frmPriceTable table(program, prices, history, 4);
  camera.Take(table, "prices-table");
  QTest::keyClick(table.findChild<QTableView*>(), Qt::Key_F2);
  camera.Take(table, "prices-table-cell");
  table.hide();
  const PriceCsv csv = ReadPriceCsv(
      "SKU,Item,Price 1,Price 2,Vendor\nLBR-2X6-08-SYP2,2X6 8 SYP,7.45,\"$1,006.95\",A\nLBR-2X6-08-SPF2,2X6 8 SPF,7.25,6.875,A\n"
      "LBR-2X6-08-HF2,2X6 8 HF,7.34,0,A\nPL-999,GREENBOARD,14.10,13.90,B\nLBR-2X6-08-DFL2,2X6 8 DF,call,8.10,A\n");
  frmPricePreview preview(QStringLiteral("Prices from june.csv"), prices.Items(), csv);
  camera.Take(preview, "prices-preview");
  preview.findChild<QTabWidget*>()->setCurrentIndex(1);
  camera.Take(preview, "prices-preview-not-taken");
}

// The roof calculator with none, one, five (one of each type) and 64 sections, and its ceiling joists.
void TakeRoof(Camera& camera, Program& program) {
  const EstimateRecord sample = Sample("plan-crawl-stick-roof.json");
  for (const std::size_t count : {0, 1, 5, 64}) {
    EstimateRecord plan = sample;
    for (std::size_t i = 0; i < kRoofPlanes; ++i) plan.RoofPlanes[i] = i < count ? sample.RoofPlanes[i % 5] : RoofPlane{};
    PlanForm dataEntry;
    frmROOF form(program, plan, dataEntry);
    form.resize(1024, 700);
    camera.Take(form, ("roof-" + std::to_string(count)).c_str());
    if (count != 5) continue;
    for (const char* const type : {"gable", "gable-valley", "hip", "hip-valley", "shed"}) {
      camera.Take(form, (std::string("roof-") + type).c_str());
      form.findChild<QPushButton*>(QStringLiteral("cmdNEXT"))->click();
    }
    form.findChild<QPushButton*>(QStringLiteral("cmdDONE"))->click();
    camera.Take(form, "roof-joists");
  }
}

void TakeCalculator(Camera& camera, Program& program) {
  program.session.CurrentEstimate = Sample("plan-crawl-stick-roof.json");
  PlanForm form = OpenPlanForm(PlanMode::Existing, false, program.session.CurrentEstimate, DeliveredScreenLines(), DeliveredMaterialRows());
  frmDisplay display(program, form, false, {.printEstimate = [](const PlanForm&, QWidget*) {}, .keepDraft = {}, .makeLivePanel = {}});
  display.resize(1024, 700);
  display.findChild<QAbstractButton*>(QStringLiteral("cmdScreen_1"))->click();
  display.show();
  CalculatorPlace place;
  camera.TakeOver(display, "28*2+30*2=", "calculator", [&] {
    OpenCalculator(program.messages, display.findChild<QWidget*>(QStringLiteral("txtExtWallLftFirstFloor")), Shown(kCalculatorHint), place);
  });
  display.hide();
}

void TakeMaterials(Camera& camera, Program& program) {
  {
    frmMatDefault form(program);
    camera.Take(form, "material-lists");
    form.findChild<QListWidget*>(QStringLiteral("lstLists"))->setCurrentRow(35);
    form.findChild<QLineEdit*>(QStringLiteral("txtAddItem"))->setFocus();
    form.findChild<QLineEdit*>(QStringLiteral("txtAddItem"))->setText(QStringLiteral("7-1/4X12' FIBER CEMENT"));
    camera.Take(form, "material-lists-row");
  }
  {
    frmWaste form(program);
    camera.Take(form, "waste");
    for (const char* const panel : {"cmd2nd", "cmdroof", "cmdextrim", "cmdFSIT"}) {
      form.findChild<QPushButton*>(QString::fromLatin1(panel))->click();
      camera.Take(form, (std::string("waste-") + panel).c_str());
    }
  }
}

void TakeBackups(Camera& camera, Program& program) {
  const auto day = std::chrono::local_days(std::chrono::year(2025) / 3 / 14) + std::chrono::hours(7) + std::chrono::minutes(52);
  for (const int i : {0, 1, 2}) {
    const std::vector<EstimateRecord> plans(static_cast<std::size_t>(i));
    StoreAll(program.folder, {}, plans);
    (void)MakeBackup(program.folder, i == 1 ? BackupReason::Change : BackupReason::Start, day + std::chrono::hours(3 * i));
  }
  frmRestore form(program);
  camera.Take(form, "backup");
}

void TakePrinting(Camera& camera, Program& program) {
  const ExchangeTables tables =
      ImportTables(ReadWholeFile(std::filesystem::path(NORVALE_SOURCE_DIR) / "samples/plan-pier-tall-studs.json"));
  program.session.CurrentEstimate = tables.plans.front();
  SystemPrinters printers;
  const std::pair<const char*, PrintKind> kinds[] = {{"print-customers", PrintKind::CustomerList},
                                                     {"print-estimates", PrintKind::EstimateList},
                                                     {"print-worksheet", PrintKind::Worksheet},
                                                     {"print-estimate", PrintKind::Estimate}};
  for (const auto& [name, kind] : kinds) {
    frmPrtSel form(program, kind, nullptr, printers);
    if (kind == PrintKind::Estimate) form.findChild<QCheckBox*>(QStringLiteral("chkPrtSel_10"))->click();
    camera.Take(form, name);
    if (kind != PrintKind::Estimate) continue;
    const Prints prints = MakePrints(program.folder, program.session, form.Request(), "01-15-2026");
    frmPreview preview(prints.document, {}, {});
    preview.resize(1024, 700);
    preview.show();
    preview.findChild<PageView*>()->GoToPage(1);
    camera.Take(preview, "preview");
  }
  LiveList list(program);
  list.resize(list.minimumWidth(), 640);
  list.show();
  list.ShowPlan(program.session.CurrentEstimate);
  camera.Take(list, "live-list");
}

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

  const QTemporaryDir scratch;
  DataFolder folder(Typed(scratch.path()));
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
  TakeScreens(camera, program, "plan-slab-brick.json", "plan-slab");
  TakeScreens(camera, program, "plan-crawl-field-framed.json", "plan-crawl");
  {
    PlanForm form = OpenPlanForm(PlanMode::New, false, program.session.CurrentEstimate, DeliveredScreenLines(), DeliveredMaterialRows());
    Frmnewest sheet(program, form);
    const char* const entries[] = {"1640", "120", "", "", "6", "168", "64", "12", "5"};
    for (int i = 0; i < 9; ++i) {
      auto* const box = sheet.findChild<QLineEdit*>(QStringLiteral("txtfootage_%1").arg(i));
      box->setFocus();
      if (box->isEnabled()) QTest::keyClicks(box, QString::fromLatin1(entries[i]));
    }
    QTest::keyClick(sheet.findChild<QLineEdit*>(QStringLiteral("txtfootage_8")), Qt::Key_Tab);
    camera.Take(sheet, "preliminary");
    sheet.hide();
  }
  TakeRoof(camera, program);
  TakeCalculator(camera, program);
  frmEstsave save(PlanMode::Existing);
  camera.Take(save, "save");
  save.hide();
  EstimateRecord plan = BlankPlan();
  plan.CustomerNumber = 1;
  plan.PlanNumber.Assign("Ridge 1840-B");
  plan.PlanDate.Assign("11-23-2026");
  plan.PlanType = kTwoLevelCrawl | kAttachedGarage | kPorch | kAtticTrussHalfStory | kBrickVeneer;
  StoreAll(folder, {}, std::array{plan});
  const std::pair<const char*, ChecklistPurpose> checklists[] = {{"checklist", ChecklistPurpose::ExistingPlans},
                                                                 {"checklist-new", ChecklistPurpose::NewPlan},
                                                                 {"checklist-print", ChecklistPurpose::PrintPlans}};
  for (const auto& [name, purpose] : checklists) {
    frmChecklst form(program, purpose, {});
    camera.Take(form, name);
    if (purpose != ChecklistPurpose::ExistingPlans) continue;
    form.findChild<QPushButton*>(QStringLiteral("cmdFind"))->click();
    camera.Take(form, "checklist-find");
  }
  TakePrices(camera, program);
  TakeMaterials(camera, program);
  TakeBackups(camera, program);
  TakePrinting(camera, program);
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
