// Runs the benchmarks of a program that measures forms: off-screen where no platform is named, in the light look.
#include <benchmark/benchmark.h>

#include <QApplication>

#include "desktop/frm_look.h"

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  norvale::ApplyLook(app, norvale::Look::Light);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
