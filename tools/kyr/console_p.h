/// \file
/// What the tool needs of the platform's standard streams.
#pragma once

#include <cstddef>

namespace KyrTool {

enum Stream_t { StandardInput = 0, StandardOutput = 1, StandardError = 2 };

/// Makes the standard streams binary, and a reader that has gone away an ordinary error. Streams
/// that are closed fail when used; no file that is opened later takes their place.
void prepareStandardStreams();

/// Writes bytes to standard output, past all buffers.
/// \return how many it took, at least one; 0 or less on failure, whose reason is in errno
std::ptrdiff_t writeToOutput(const char* bytes, std::size_t count);

/// Waits until standard input has something to read, or its end, or until work is to stop. Where
/// the system's reading ends by Ctrl-C anyway, it does not wait.
void awaitInput();

/// Whether people sit behind a stream.
bool isTerminal(Stream_t stream);

/// Whether a stream leads to a terminal that shows colours.
bool showsColours(Stream_t stream);

/// How many characters fit into a line of the terminal on standard output.
/// \return 0 where that is no terminal
unsigned outputWidth();

/// Whether the last write failed because its reader has gone away; asks errno.
bool readerHasLeft();

}  // namespace KyrTool
