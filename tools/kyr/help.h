/// \file
/// What the tool says of itself.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace KyrTool {

/// What people have to know of all commands; English, of the context "Kyr_tool".
const std::vector<const char*>& notes();

/// Shows all commands, each with what it does.
void showOverview();

/// Shows what a command or a group of commands does, with its arguments and options.
/// \param name as "zip pack" or "zip"
/// \return false when there is neither
bool showHelpOn(const QString& name);

/// What somebody may have meant: "; did you mean zip pack?", or nothing when no word is near.
QString suggestion(const QString& word, const QStringList& known);

}  // namespace KyrTool
