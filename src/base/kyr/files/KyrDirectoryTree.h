/// \file
/// Whole directories.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/log/KyrErrorLog.h>

#include <QString>

namespace Kyr {

/// Removes a directory with everything in it. Goes on after a failure. Removes links, never what
/// they lead to, also when somebody exchanges directories for links meanwhile; leaves alone what is
/// mounted inside. A link to a directory is only removed.
/// \param log receives one message for each entry that stays, with its path and the reason; a
///        directory that stays only because an entry does has none. May be null
/// \return whether nothing is left; true also when there was nothing
/// \threadsafety any thread
KYR_EXPORT bool deleteDirectoryTree(const QString& directory, ErrorLog* log);

}  // namespace Kyr
