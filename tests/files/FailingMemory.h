// Memory that runs out at a chosen moment.
#pragma once

namespace KyrTest {

/// Lets operator new fail from one call on.
/// \param calls that succeed before; negative: all
void failAfter(long calls);

/// Whether one has failed since.
bool hasFailed();

}  // namespace KyrTest
