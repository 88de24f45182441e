/// \file
/// What a damaged zip stream still holds.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/pack/KyrZipPieces.h>
#include <kyr/pack/KyrZipStream.h>

#include <QString>

#include <cstdint>
#include <istream>
#include <memory>
#include <vector>

namespace Kyr {

/// A part of a zip stream that is read in spite of damage.
/// \threadsafety a value
struct ZipPart {
  /// How far its bytes can be trusted.
  enum State_t {
    Checked = 0,    ///< its bytes are those that were written
    Unchecked = 1,  ///< its bytes may be wrong: without an index nobody knows
    Lost = 2,       ///< it has no bytes
  };
  State_t state = Lost;      ///< says whether there are bytes, and whether they are the right ones
  std::uint64_t offset = 0;  ///< where it begins in the stream, from the header's first byte
  std::uint64_t size = 0;    ///< of it in the stream; 0 when what is lost is not even there
  std::uint64_t plainOffset =
      0;                        ///< of its content; what is lost in an unknown size counts as none
  std::uint64_t plainSize = 0;  ///< of its content
  bool isSizeKnown = true;      ///< whether plainSize is; only of what is lost it may be not
  bool isUnreadable = false;    ///< lost because the source failed there: a copy, or another try,
                                ///< may give it
  std::vector<char> bytes;      ///< of its content; none when it is lost
};

/// Reads everything that is left of a zip stream, part by part.
///
/// Of a stream in pieces, each piece is checked against the index, also when the header is bad. A
/// stream without an index is read up to the damage, and from each place behind it where a piece
/// seems to begin; nothing of that is checked, unless the whole stream turns out to be good.
/// \code
/// ZipSalvage salvage(name);
/// for (ZipPart part; salvage.next(&part);) {
///   if (part.state == ZipPart::Lost) {
///     std::cerr << part.plainSize << " bytes are lost\n";
///   } else {
///     save(part.bytes.data(), std::streamsize(part.bytes.size()));
///   }
/// }
/// \endcode
/// \threadsafety one thread at a time
class KYR_EXPORT ZipSalvage {
 public:
  /// Opens a file; a failure shows in getHeaderError().
  /// \throws std::bad_alloc
  explicit ZipSalvage(const QString& fileName);
  /// \param source binary, where the stream begins; must outlive this object. From one that cannot
  /// be
  ///        moved to other places only what is in front of the damage is read
  /// \throws std::bad_alloc
  explicit ZipSalvage(std::istream* source);
  ~ZipSalvage();
  ZipSalvage(const ZipSalvage&) = delete;
  ZipSalvage& operator=(const ZipSalvage&) = delete;

  /// Lets several threads decompress ahead; only those of an index can be.
  /// \throws std::bad_alloc
  void setWorkers(const ZipPieces& pieces);

  /// Reads the next part: a piece, up to 256 KiB of a stream without an index, or a loss.
  /// \param part gets it; its memory is used again
  /// \return false when there is no more
  /// \throws std::bad_alloc; the part may be asked for again
  bool next(ZipPart* part);

  /// What is wrong with the header. A stream without an index then has no parts.
  ZipInStream::HeaderError_t getHeaderError() const;
  /// The error for people, translated; empty for a good header.
  QString getHeaderErrorText() const;
  /// The number of pieces in the index; 0 without one.
  std::uint64_t getPieceCount() const;
  /// Whether the stream has an index that could be read, so that its pieces can be checked.
  bool hasIndex() const;
  /// Whether all content was read and is what was written, also that of a stream without an index.
  /// Before next() has given false it is not.
  bool isWhole() const;

 private:
  class Reader;
  const std::unique_ptr<Reader> _reader;
};

}  // namespace Kyr
