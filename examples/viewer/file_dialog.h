/// \file
/// The question for a file.
#pragma once

#include <QFileDialog>
#include <QString>

namespace Viewer {

/// Asks the user for the name of one file, in the dialog of the desktop, or in Qt's where there is
/// none.
/// \param filters as QFileDialog takes them
/// \return empty when there is none
QString askForFile(QWidget& parent, const QString& title, const QString& filters,
                   QFileDialog::AcceptMode mode);

}  // namespace Viewer
