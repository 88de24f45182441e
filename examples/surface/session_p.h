/// \file
/// What the start of the examples asks of the system; one whole file for each.
#pragma once

namespace Surface {

/// Makes Qt read and print names and texts as UTF-8 where the system's locale knows nothing but
/// ASCII, because none is set or the one that is set is not installed.
void assumeUtf8();

}  // namespace Surface
