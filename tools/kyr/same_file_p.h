/// \file
/// What the tool asks of the platform about names of files.
#pragma once

#include <QString>

namespace KyrTool {

/// Whether both mean one and the same plain file, by whatever names and links.
/// \param input may be "-" for standard input
/// \param output may be "-" for standard output
/// \return false also when either is missing
bool isSameFile(const QString& input, const QString& output);

}  // namespace KyrTool
