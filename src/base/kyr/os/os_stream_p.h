/// \file
/// What the library asks of C streams beyond the C standard; each platform has its own file.
#pragma once

#include <cstdint>
#include <cstdio>

namespace Kyr::Stream {

/// As fgets(), without its lock where the platform allows that: no other thread uses the stream.
bool readLine(char* buffer, int size, std::FILE* stream);

/// The stream's position in bytes, also beyond 2 GiB where `long` has 32 bits.
/// \return negative where the stream has no position, as a pipe
std::int64_t position(std::FILE* stream);

/// Moves the stream and clears its end-of-file mark.
/// \param position in bytes, from what \a origin says as for fseek
/// \return false where the stream cannot be moved; it then stands where it stood
bool moveTo(std::FILE* stream, std::int64_t position, int origin = SEEK_SET);

}  // namespace Kyr::Stream
