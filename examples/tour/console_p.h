/// \file
/// What the tour asks of the system that it runs on; one set of whole files for each system.
#pragma once

#include <QByteArray>
#include <QString>

namespace Tour {

/// Whether somebody watches standard output, so that a line may be drawn over and over.
bool standardOutputIsTerminal();

/// Makes the standard streams take bytes as they are, and a console show what encoded() gives.
void prepareStandardStreams();

/// A text as readers of the standard streams expect it: in the user's encoding; on Windows in
/// UTF-8, because code pages lack half of the units.
QByteArray encoded(const QString& text);

/// The time that all threads of this process have spent computing for it, in seconds.
double userSeconds();

}  // namespace Tour
