/// \file
/// What the commands say about a zip stream that they have read.
#pragma once

#include "input.h"

#include <kyr/pack/KyrZipSalvage.h>
#include <kyr/pack/KyrZipStream.h>

#include <QString>

#include <cstddef>
#include <cstdint>
#include <functional>

namespace KyrTool {

/// The newest version of content that is read: any, as the tool looks at the frame only.
constexpr unsigned anyVersion = 0xFFFFFFFFU;

/// A function that gets the content piece by piece.
/// \return false when it wants no more
using Taker = std::function<bool(const char* bytes, std::size_t count)>;

/// Reads the whole content, up to a damage if there is one.
/// \return whether all of it was taken
bool readToEnd(Kyr::ZipInStream& zip, const Taker& take);
/// Reads the whole content and drops it.
void readToEnd(Kyr::ZipInStream& zip);

/// Reads the rest of the input and counts its bytes. Bytes behind the end of a stream do no harm,
/// but whoever looks for a fault wants to know of them.
std::uint64_t countRest(Input& input);

/// What is counted.
enum Thing_t { Byte, Block, Piece, CheckedPiece };
/// "1 byte", "2 bytes".
QString counted(std::uint64_t number, Thing_t thing);

/// Which bytes a lost part had, and where it is in the file.
QString lossText(const Kyr::ZipPart& part);

/// "complete", "cut short at byte 4711", "damaged at byte 4711", or the header's error.
QString stateText(const Kyr::ZipInStream& zip);

/// The state for programs: "complete", "cut short", "damaged", "refused".
QString stateName(const Kyr::ZipInStream& zip);

/// The exit code for a stream that was read to its end.
int codeOf(const Kyr::ZipInStream& zip);

}  // namespace KyrTool
