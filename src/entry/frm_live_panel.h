// The panel beside the data-entry screens that shows the list of the plan as it is typed.
#pragma once

#include <QWidget>

namespace norvale {

struct EstimateRecord;

class LivePanel : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;

  /// Shows what the plan comes to. Called often: it should be done within the time between two keys.
  virtual void ShowPlan(const EstimateRecord& plan) = 0;
};

}  // namespace norvale
