// Works in the whole program at random, as fast as it goes: norvale_long_run [OPERATIONS] [SEED]
//
// Every form that a menu leads to is used by its own keys and buttons. Afterwards the folder must check clean, the program
// must have come back to its menu with every form gone, and memory must be where it was.
#include <malloc.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QTimer>
#include <cstdio>
#include <map>
#include <random>

#include "desktop/frm_keys.h"
#include "desktop/frm_look.h"
#include "desktop/frm_mbox.h"
#include "entry/frm_calc.h"
#include "prices/new_folder.h"
#include "shell/frm_menu.h"
#include "shell/frm_tasks.h"
#include "support/data_fixture.h"
#include "support/scratch_folder.h"

namespace norvale {
namespace {

/// The operator. After each deed he looks at what is in front now; a deed that opens a form returns when that form is gone.
class RandomOperator : public QObject {
 public:
  RandomOperator(unsigned seed, frmMenu& menu) : random_(seed), menu_(menu) {}

  void Work(int operations) {
    left_ = operations;
    Next();
    // He may leave the program, and starts it again.
    do {
      menu_.ShowMenu("Main");
      menu_.exec();
    } while (left_ > 0);
  }

  [[nodiscard]] const std::map<std::string, int>& Visits() const { return visits_; }

 private:
  int Below(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }

  // The next deed is asked for before this one is done: this one may not return for long.
  void Next() {
    QTimer::singleShot(0, this, [this] {
      QWidget* const form = QApplication::activePopupWidget() != nullptr   ? QApplication::activePopupWidget()
                            : QApplication::activeModalWidget() != nullptr ? QApplication::activeModalWidget()
                                                                           : &menu_;
      if (left_ <= 0 && form == &menu_) {
        menu_.done(0);
        return;
      }
      Next();
      if (left_-- > 0)
        Do(*form);
      else
        Leave(*form);
    });
  }

  // Out of everything, giving up what is unsaved.
  void Leave(QWidget& form) {
    for (const char* const out : {"cmdYES", "pctSaveOpt_2"})
      if (auto* const button = form.findChild<QPushButton*>(QString::fromLatin1(out)); button != nullptr && button->isVisible())
        return button->click();
    if (left_ < -1000)
      form.close();
    else
      QTest::keyClick(&form, Qt::Key_Escape);
  }

  void Do(QWidget& form) {
    ++visits_[form.objectName().isEmpty() ? form.metaObject()->className() : form.objectName().toStdString()];
    // The system's own dialogs, for printers and files, are not what is tried here.
    if (form.metaObject()->className()[0] == 'Q') {
      QTest::keyClick(&form, Qt::Key_Escape);
      return;
    }
    QApplication::setActiveWindow(&form);
    static constexpr Qt::Key kKeys[] = {Qt::Key_Return, Qt::Key_Tab,  Qt::Key_Tab, Qt::Key_Down,   Qt::Key_Up, Qt::Key_Space,
                                        Qt::Key_Escape, Qt::Key_Home, Qt::Key_F4,  Qt::Key_PageUp, Qt::Key_F1, Qt::Key_PageDown};
    QWidget* const focus = QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : &form;
    // The menu is only the way to the forms.
    if (&form == &menu_ && Below(6) != 0) {
      PressAny(form);
      return;
    }
    switch (Below(9)) {
      case 0:
      case 1:
        QTest::keyClick(focus, kKeys[Below(std::size(kKeys))]);
        break;
      case 2:
      case 3:
        PressAny(form);
        break;
      case 4:
        if (Below(10) == 0)
          QTest::keyClick(focus, Below(2) == 0 ? Qt::Key_F2 : Qt::Key_Insert, Below(2) == 0 ? Qt::AltModifier : Qt::ShiftModifier);
        break;
      case 5:
        ChooseAny(form);
        break;
      default:
        TypeAnywhere(form);
        break;
    }
  }

  template <typename Control>
  Control* AnyOf(QWidget& form) {
    QList<Control*> usable;
    for (Control* const control : form.findChildren<Control*>())
      if (control->isEnabled() && control->isVisibleTo(&form)) usable.append(control);
    return usable.isEmpty() ? nullptr : usable[Below(static_cast<int>(usable.size()))];
  }

  void PressAny(QWidget& form) {
    if (auto* const button = AnyOf<QAbstractButton>(form)) {
      button->setFocus(Qt::MouseFocusReason);
      button->click();
    }
  }

  void ChooseAny(QWidget& form) {
    if (auto* const list = AnyOf<QComboBox>(form)) {
      list->setFocus();
      for (int steps = Below(4); steps >= 0; --steps) QTest::keyClick(list, Below(3) == 0 ? Qt::Key_Up : Qt::Key_Down);
    }
  }

  void TypeAnywhere(QWidget& form) {
    auto* const box = AnyOf<QLineEdit>(form);
    if (box == nullptr) return;
    static constexpr const char* kTexts[] = {"1", "12", "144", "1.5", "12-6", "-4", "40000", "", "Oak", "H", "7/8 \"", "99999", "0"};
    box->setFocus();
    if (Below(3) != 0) box->selectAll();
    QTest::keyClicks(box, QString::fromLatin1(kTexts[Below(std::size(kTexts))]));
    QTest::keyClick(box, Below(2) == 0 ? Qt::Key_Return : Qt::Key_Tab);
  }

  std::mt19937 random_;
  frmMenu& menu_;
  int left_ = 0;
  std::map<std::string, int> visits_;
};

int Run(int argc, char** argv) {
  const int operations = argc > 1 ? std::atoi(argv[1]) : 2000;
  const unsigned seed = argc > 2 ? static_cast<unsigned>(std::atoi(argv[2])) : 1;
  QApplication app(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  ApplyLook(app, Look::Light);
  FormKeys keys;
  const ScratchFolder scratch;
  std::filesystem::current_path(scratch.Path());
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, QString::fromStdString(scratch.Path().string()));
  std::vector<Fault> faults;
  {
    DataFolder folder(scratch.Path());
    Session session;
    ScreenMessages messages;
    LayDeliveredFiles(folder);
    (void)StartFolder(folder, session);
    std::vector plans = {PlanOf(1, "A"), PlanOf(2, "B")};
    for (EstimateRecord& plan : plans) {
      plan.PlanDate.Assign("03-14-2026");
      plan.PlanType = static_cast<std::int16_t>(plan.CustomerNumber == 1 ? 1 : 8 + 16);
      plan.PriceLevel.Assign("1");
    }
    StoreAll(folder, std::array{Customer(1, "Hill Homes"), Customer(2, "Oak Street Builders")}, plans);
    Program program{folder, session, messages};
    CalculatorPlace calculator;
    keys.SetCalculator([&program, &calculator](QWidget* control) { RunCalculator(program, control, calculator); });
    frmMenu menu(program, [&program](MenuChoice choice, QWidget* form) { RunTask(program, choice, form); });
    menu.resize(1024, 700);
    RandomOperator hand(seed, menu);

    // The first part fills what the program keeps for good; from there on nothing may grow.
    hand.Work(operations / 4);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const auto widgets = QApplication::allWidgets().size();
    const auto memory = mallinfo2().uordblks;
    hand.Work(operations - operations / 4);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const auto grown = static_cast<double>(mallinfo2().uordblks) - static_cast<double>(memory);
    faults = CheckFolder(SystemDisk(), scratch.Path());

    for (const auto& [form, deeds] : hand.Visits()) std::printf("%6d %s\n", deeds, form.c_str());
    std::printf("%d operations, seed %u: %zu faults, %+lld controls, %+.1f MB\n", operations, seed, faults.size(),
                static_cast<long long>(QApplication::allWidgets().size() - widgets), grown / 1e6);
    for (const Fault& fault : faults) std::printf("%s\n", fault.text.c_str());
    const bool isFlat = QApplication::allWidgets().size() <= widgets && grown < 4e6;
    return faults.empty() && isFlat ? 0 : 1;
  }
}

}  // namespace
}  // namespace norvale

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("CUPS_SERVER", "localhost:1");  // nothing is to come out of a printer
  return norvale::Run(argc, argv);
}
