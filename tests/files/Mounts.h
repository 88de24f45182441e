// Mounts that only one process sees.
#pragma once

namespace KyrTest {

/// For a child process. Who is not root stays who he is, but may mount.
/// \return whether mounts of this process stay its own from here on
bool mayMount();

}  // namespace KyrTest
