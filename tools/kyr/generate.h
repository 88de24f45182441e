/// \file
/// What is made from the table of commands when the tool is built, and what its completion asks
/// for.
#pragma once

#include <QString>

namespace KyrTool {

/// The manual page, in roff.
QString manualPage();
/// The completion of bash.
QString bashCompletion();
/// The completion of zsh.
QString zshCompletion();

/// Answers words that people do not type: "--generate manual|bash|zsh", and "--complete
/// kinds|units", whose names stand in lines.
/// \return false for other words
bool generate(const QStringList& words);

}  // namespace KyrTool
