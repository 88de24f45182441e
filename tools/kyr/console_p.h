/// \file
/// What the tool needs of the platform's standard streams.
#pragma once

#include <cstddef>

namespace KyrTool {

/// Makes the standard streams binary, and a reader that has gone away an ordinary error. Streams
/// that are closed fail when used; no file that is opened later takes their place.
void prepareStandardStreams();

/// Writes bytes to standard output, past all buffers.
/// \return how many it took, at least one; 0 or less on failure, whose reason is in errno
std::ptrdiff_t writeToOutput(const char* bytes, std::size_t count);

/// Whether the last write failed because its reader has gone away; asks errno.
bool readerHasLeft();

}  // namespace KyrTool
