// The look of the whole program: one palette and one style sheet, light and dark.
#pragma once

#include <QColor>
#include <QString>

class QApplication;
class QLabel;
class QPainter;
class QRectF;

namespace norvale {

enum class Look { Light, Dark };

/// The look that goes with the application's palette: the system's until `ApplyLook` has dressed the program.
Look LookInUse();

/// Dresses the program. Call once, before the first form is made.
void ApplyLook(QApplication& app, Look look);

/// The colours that a control draws with by itself.
struct Colours {
  QColor band;  // behind titles and behind the buttons of a message
  QColor bandText;
  QColor bandQuiet;  // lines, and what is of no use at the moment, on the band
  QColor ring;       // around the control that has the focus, on the band
  QColor focus;      // the same elsewhere
  QColor card;       // a menu button
  QColor cardOver;   // under the mouse
  QColor cardDown;   // pressed
  QColor edge;       // around it
  QColor text;
  QColor quietText;
  QColor warning;  // what was typed and cannot be used
};
const Colours& ColoursOfLook();

/// Sets the label in the type of a title.
void MakeTitle(QLabel* label);

/// Draws one of the program's pictures, by its name without folder and ending, into the middle of `area`.
void DrawPicture(QPainter& painter, const QString& name, const QRectF& area);

}  // namespace norvale
