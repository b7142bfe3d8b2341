// What the menu's choices open. A form that is new to the program gets its line here and nowhere else.
#pragma once

#include "desktop/program.h"
#include "shell/menu_table.h"

class QWidget;

namespace norvale {

struct CalculatorPlace;

/// Shows the form of the choice and returns when it has closed.
void RunTask(Program& program, MenuChoice choice, QWidget* menu);

/// Asks about a plan that the program was ended over, and goes on with it where the operator wants. Nothing without one.
void OfferUnsavedPlan(Program& program);

/// Opens the calculator above the control that asked for it, where it stood before.
void RunCalculator(Program& program, QWidget* control, CalculatorPlace& place);

}  // namespace norvale
