/// \file
/// What killed processes have left behind.
#pragma once

#include <QString>

namespace Kyr::Leftovers {

/// Removes the temporary files of saves and locks whose processes have ended.
///
/// A directory with many entries is looked at once by each process: it would take longer than what
/// the process came for. One that cannot be read keeps what is in it.
/// \param directory with "/" at its end
void sweep(const QString& directory);

}  // namespace Kyr::Leftovers
