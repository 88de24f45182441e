/// \file
/// Bytes as text.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/core/KyrStructVector.h>

#include <QByteArray>

#include <cstddef>

namespace Kyr {

/// Base64 in the standard alphabet of RFC 4648, with padding. Never instantiated; it has no state.
/// \code
/// const QByteArray letters = Base64::encode("foo");   // "Zm9v"
/// const QByteArray bytes = Base64::decode(letters);  // "foo"
/// \endcode
/// \threadsafety any thread, each with its own vectors
class KYR_EXPORT Base64 {
 public:
  /// Appends the text of all bytes, without line breaks.
  /// \param out keeps what it holds; may be \a in itself
  /// \throws std::bad_alloc; \a out is unchanged then
  static void encode(const StructVector<unsigned char>& in, StructVector<unsigned char>* out);
  /// The text of all bytes, without line breaks.
  /// \throws std::bad_alloc, also when the text is longer than a QByteArray
  static QByteArray encode(const QByteArray& in);

  /// Appends the bytes of a text, which counts in groups of four characters from its start.
  ///
  /// Nothing is refused. What is not in the alphabet, or is missing from a last short group,
  /// counts as "=" wherever it stands: as zero bits, and as one byte less of its group, of which
  /// always one comes out. So line breaks have to be removed before.
  /// \param out keeps what it holds; may be \a in itself
  /// \throws std::bad_alloc; \a out is unchanged then
  static void decode(const StructVector<unsigned char>& in, StructVector<unsigned char>* out);
  /// The bytes of a text; reads as the other decode().
  static QByteArray decode(const QByteArray& in);

 private:
  Base64() = delete;
  KYR_HIDDEN static void encodeAll(const unsigned char* from, std::size_t size, unsigned char* to);
  KYR_HIDDEN static unsigned char* decodeAll(const unsigned char* from, std::size_t size,
                                             unsigned char* to);
  KYR_HIDDEN static void encodeBlock(unsigned char* in, unsigned char* out, unsigned int count);
  KYR_HIDDEN static void decodeBlock(unsigned char* in, unsigned char* out);
  KYR_HIDDEN static unsigned int decodeGroup(const unsigned char* in, unsigned char* out);
};

}  // namespace Kyr
