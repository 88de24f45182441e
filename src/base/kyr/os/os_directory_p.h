/// \file
/// What OS asks of the platforms about files and directories; names come here checked. Whoever
/// answers false leaves the reason in lastError().
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
/// As above, but only of names that begin with \a start: much quicker where most do not.
/// \param start in ASCII
/// \param all receives how many names there are
bool readEntries(const QString& name, const QByteArray& start, QStringList& entries, int& all);

/// Copies a file to a name that nothing else has.
/// \return false also when the name is taken, whatever by; nothing is left of a copy that failed
bool copyFile(const QString& from, const QString& to);

/// Whether it is a directory, and not only a link to one.
bool isRealDirectory(const QString& name);

/// Gives something a name that nothing else has.
/// \return false when the name is taken, whatever by
bool renameToFree(const QString& from, const QString& to);
/// Replaces a file that is there, in one step.
bool renameOver(const QString& from, const QString& to);

/// Removes what is no directory; never follows a link.
bool removeFile(const QString& name);
/// Removes a directory that is empty.
bool removeDirectory(const QString& name);

}  // namespace Kyr::Platform
