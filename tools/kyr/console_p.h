/// \file
/// What the tool needs of the platform's standard streams.
#pragma once

namespace KyrTool {

/// Makes the standard streams binary, and a reader that has gone away an ordinary error. Streams
/// that are closed fail when used; no file that is opened later takes their place.
void prepareStandardStreams();

/// Whether the last write failed because its reader has gone away; asks errno.
bool readerHasLeft();

}  // namespace KyrTool
