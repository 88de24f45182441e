/// \file
/// Colours and fonts of the program.
#pragma once

#include <QColor>
#include <QFont>

class QApplication;

namespace Viewer::Theme {

/// Gives the whole program its look.
void apply(QApplication& application);

QColor text();
QColor dimText();
QColor quiet();    ///< shapes that say little
QColor accent();   ///< what can be acted on
QColor control();  ///< ground of what is clicked
QColor controlEdge();
QColor glass();  ///< ground of what lies on the picture
QColor glassEdge();

QFont strong(QFont font);
QFont small(const QFont& font);

}  // namespace Viewer::Theme
