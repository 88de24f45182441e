/// \file
/// A checksum of 16 bits.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/core/KyrStructVector.h>

#include <cstddef>

namespace Kyr {

/// The cyclic redundancy check known as CRC-16/XMODEM: polynomial 0x1021, initial value 0, most
/// significant bit first, no final XOR. Never instantiated; it has no state.
/// \code
/// const unsigned short sum = CRC16::compute(StructVector<unsigned char>{'1', '2', '3'});
/// \endcode
/// \threadsafety any thread
class KYR_EXPORT CRC16 {
 public:
  /// \return 0 for no bytes, 0x31C3 for the ASCII digits 1 to 9
  static unsigned short compute(const StructVector<unsigned char>& data);
  /// The checksum of bytes that come in pieces.
  /// \param before the checksum of the bytes before these
  static unsigned short compute(const unsigned char* bytes, std::size_t count,
                                unsigned short before = 0);

 private:
  CRC16() = delete;
};

}  // namespace Kyr
