// What the menu's choices open. A form that is new to the program gets its line here and nowhere else.
#pragma once

#include "desktop/program.h"
#include "shell/menu_table.h"

class QWidget;

namespace norvale {

struct CalculatorPlace;

/// Shows the form of the choice and returns when it has closed.
void RunTask(Program& program, MenuChoice choice, QWidget* menu);

/// Opens the calculator above the control that asked for it, where it stood before.
void RunCalculator(Program& program, QWidget* control, CalculatorPlace& place);

}  // namespace norvale
