// How long a data-entry screen takes to change, painted and all, and a key to be taken, beside a bare stack of pages with as
// many boxes.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTest>

#include "base/files.h"
#include "data/batch_store.h"
#include "entry/frm_display.h"
#include "entry/plan_form.h"
#include "entry/screens.h"
#include "prices/delivered.h"
#include "prices/exchange.h"

namespace norvale {
namespace {


class NoMessages final : public Messages {
 public:
  Answer ShowMessage(const std::string& text) override { return ParseMessage(text).escape; }
};

// A two-level plan on a crawl space: most lines are open.
struct OpenPlan {
  OpenPlan() {
    const std::string file = NORVALE_SOURCE_DIR "/samples/plan-crawl-field-framed.json";
    session.CurrentEstimate = ImportTables(ReadWholeFile(file)).plans.front();
    form = OpenPlanForm(PlanMode::Existing, false, session.CurrentEstimate, DeliveredScreenLines(), DeliveredMaterialRows());
  }

  DataFolder folder{"."};
  Session session;
  NoMessages messages;
  Program program{folder, session, messages};
  PlanForm form;
};

void ShowAtOnce(QWidget& window) {
  window.resize(1024, 700);
  window.show();
  QApplication::setActiveWindow(&window);
  QApplication::processEvents();
}

void NextScreen(benchmark::State& state) {
  state.SetLabel("beside NextPageOfABareStack");
  OpenPlan plan;
  frmDisplay display(plan.program, plan.form, false, {});
  ShowAtOnce(display);
  int screen = 0;
  for (auto _ : state) {
    screen = (screen + 1) % static_cast<int>(kScreens);
    display.findChild<QAbstractButton*>(QStringLiteral("cmdScreen_%1").arg(screen))->click();
    display.repaint();
  }
}
BENCHMARK(NextScreen)->Unit(benchmark::kMillisecond);

void NextPageOfABareStack(benchmark::State& state) {
  const OpenPlan plan;
  QWidget window;
  auto* const layout = new QVBoxLayout(&window);
  auto* const pages = new QStackedWidget(&window);
  layout->addWidget(pages);
  for (int screen = 0; screen <= ScreenCount; ++screen) {
    auto* const page = new QWidget;
    auto* const grid = new QGridLayout(page);
    const auto [first, last] = LinesOn(plan.form, screen);
    for (int number = first; number <= last; ++number) {
      const LineState& line = plan.form.lines[static_cast<std::size_t>(number)];
      grid->addWidget(new QLabel(QString::fromStdString(line.caption)), number, 0);
      grid->addWidget(line.field.IsList() ? static_cast<QWidget*>(new QComboBox) : new QLineEdit, number, 1);
      grid->addWidget(new QLabel(QString::fromStdString(line.hint)), number, 2);
    }
    pages->addWidget(page);
  }
  ShowAtOnce(window);
  int screen = 0;
  for (auto _ : state) {
    screen = (screen + 1) % static_cast<int>(kScreens);
    pages->setCurrentIndex(screen);
    window.repaint();
  }
}
BENCHMARK(NextPageOfABareStack)->Unit(benchmark::kMillisecond);

template <typename Window>
void TypeInto(benchmark::State& state, Window& window, QLineEdit* box) {
  ShowAtOnce(window);
  box->setFocus();
  for (auto _ : state) {
    QTest::keyClick(box, Qt::Key_7);
    QTest::keyClick(box, Qt::Key_Backspace);
    box->repaint();
  }
}

void TwoKeysInABox(benchmark::State& state) {
  state.SetLabel("beside TwoKeysInABareBox");
  OpenPlan plan;
  frmDisplay display(plan.program, plan.form, false, {});
  display.findChild<QAbstractButton*>(QStringLiteral("cmdScreen_2"))->click();
  TypeInto(state, display, display.findChild<QLineEdit*>(QStringLiteral("txtOutsideCornersFirstFloor")));
}
BENCHMARK(TwoKeysInABox)->Unit(benchmark::kMillisecond);

void TwoKeysInABareBox(benchmark::State& state) {
  QLineEdit box;
  TypeInto(state, box, &box);
}
BENCHMARK(TwoKeysInABareBox)->Unit(benchmark::kMillisecond);

void OpenTheForm(benchmark::State& state) {
  OpenPlan plan;
  for (auto _ : state) {
    frmDisplay display(plan.program, plan.form, false, {});
    display.show();
    display.repaint();
  }
}
BENCHMARK(OpenTheForm)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace norvale
