/// \file
/// What the commands say about a zip stream that they have read.
#pragma once

#include "input.h"

#include <kyr/pack/KyrZipStream.h>

#include <QString>

#include <cstddef>
#include <cstdint>
#include <functional>

namespace KyrTool {

/// Every version of an application's format: the tool looks at the frame only.
constexpr unsigned anyVersion = 0xFFFFFFFFU;

/// Gets the content piece by piece.
/// \return false when it wants no more
using Taker = std::function<bool(const char* bytes, std::size_t count)>;

/// Reads the whole content, up to a damage if there is one.
/// \return whether all of it was taken
bool readToEnd(Kyr::ZipInStream& zip, const Taker& take);
/// As above, and throws the content away.
void readToEnd(Kyr::ZipInStream& zip);

/// The bytes of the input that were not read yet, and now are. Bytes behind the end of a stream
/// do no harm, but whoever looks for a fault wants to know of them.
std::uint64_t countRest(Input& input);

/// "complete", "cut short at byte 4711", "damaged at byte 4711", or the header's error.
QString stateText(const Kyr::ZipInStream& zip);

/// The exit code for a stream that was read to its end.
int codeOf(const Kyr::ZipInStream& zip);

}  // namespace KyrTool
