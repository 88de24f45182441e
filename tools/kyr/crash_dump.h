/// \file
/// Minidumps, as minidumpapiset.h declares them.
#pragma once

#include <QByteArray>
#include <QString>

namespace KyrTool {

bool isDump(const QByteArray& bytes);

/// What a dump knows, in the words of a crash report: the fault, where each thread stood, and the
/// modules. The callers are known of threads of 32-bit Windows only, whose frames are chained.
/// \param name of the file, for messages
/// \throws FileError when it is cut short, or of another kind of machine
QString textOfDump(const QByteArray& bytes, const QString& name);

}  // namespace KyrTool
