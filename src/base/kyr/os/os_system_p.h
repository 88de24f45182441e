/// \file
/// What OS asks of the platforms about files and directories; names come here without zero
/// characters. OS's members about places, the environment and processes, which nothing precedes,
/// are defined by the platforms themselves.
#pragma once

#include <kyr/os/KyrOS.h>

namespace Kyr::Platform {

/// \return false when there is nothing of this name
bool readStatus(const QString& name, OS::FileStatus& status);

/// Makes one directory.
bool makeDirectory(const QString& name, bool ownerOnly);

/// Appends the names in a directory, in any order, "." and ".." or not.
/// \return false when it cannot be read to its end
bool readEntries(const QString& name, QStringList& entries);

/// Copies a file to a name that is free.
bool copyFile(const QString& from, const QString& to);

/// Removes what is no directory; never follows a link.
bool removeFile(const QString& name);

}  // namespace Kyr::Platform
