/// \file
/// What OS asks of the platforms about the environment; names and values come here checked.
#pragma once

#include <QMap>
#include <QString>

#include <mutex>

namespace Kyr::Platform {

/// Held by whoever changes the environment or reads all of it: the C library leaves that to its
/// users. The C++ library's own mutex, as this room does without those of sync.
std::mutex& environmentMutex();

// Platform files define these.

bool setVariable(const char* name, const QString& value);
bool unsetVariable(const char* name);
QMap<QString, QString> readEnvironment();

}  // namespace Kyr::Platform
