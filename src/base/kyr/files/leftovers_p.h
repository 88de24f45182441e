/// \file
/// What killed processes have left behind.
#pragma once

#include <QString>

namespace Kyr::Leftovers {

/// Removes the temporary files of saves and locks whose processes have ended.
///
/// A directory with many entries is looked at only once by each process: looking takes longer than
/// the save or the lock for which it is done. One that cannot be read keeps what is in it.
/// \param directory with "/" at its end
void sweep(const QString& directory);

}  // namespace Kyr::Leftovers
