/// \file
/// The 104 bytes at the front of a zip stream.
#pragma once

#include <kyr/pack/KyrZipStream.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace Kyr::ZipFormat {

constexpr std::size_t headerSize = 104;
/// Bytes at the front that never change; a text-mode transfer leaves them alone.
constexpr std::size_t constantSize = 48;
/// From this many bytes on a header can be told from other files.
constexpr std::size_t certainSize = 52;
/// No block is longer, whatever its length field could hold.
constexpr unsigned blockSize = 8192;
constexpr unsigned lengthSize = 2;

using Header = std::array<char, headerSize>;

/// Numbers lie in the file with their lowest byte first, on every machine.
void storeUInt16(char* bytes, unsigned value);
unsigned loadUInt16(const char* bytes);

/// The header of a stream that is written now by this library.
/// \param seconds since 1970-01-01 00:00 UTC
Header makeHeader(unsigned fileVersion, std::uint32_t seconds);

/// The three questions about bytes that may be a header. Only the first \a count bytes are
/// looked at; a field that lies behind them counts as good.
bool constantBlockFits(const char* bytes, std::size_t count);
bool transferCheckFits(const char* bytes, std::size_t count);
bool sizeFieldFits(const char* bytes, std::size_t count);

/// Whether bytes begin with the mark of the older form of the header.
bool beginsWithOlderMark(const char* bytes, std::size_t count);

/// The fields of a header; takes any values.
ZipHeaderInfo describe(const Header& header);

}  // namespace Kyr::ZipFormat
