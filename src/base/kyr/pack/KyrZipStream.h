/// \file
/// Standard streams that compress what is written to a file and decompress what is read.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/pack/KyrZipPieces.h>
#include <kyr/trace/KyrTrace.h>

#include <QString>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <exception>
#include <fstream>
#include <istream>
#include <memory>
#include <ostream>
#include <streambuf>
#include <vector>

namespace Kyr {

class DeflateEngine;
class InflateEngine;
class ZipBlockReader;
class ZipInStreamBuffer;
class ZipPieceReader;
class ZipPieceWriter;

/// The buffer behind ZipOutStream; an application needs it only under a stream of its own.
///
/// Compresses in pieces of 8192 bytes, whatever the sizes of the writes: the same bytes give the
/// same file. After a failure everything that is written fails. Not copyable.
/// \threadsafety one thread at a time
class KYR_EXPORT ZipOutStreamBuffer : public std::streambuf {
 public:
  /// Creates or empties a file and writes the header. A failure shows in isOpen().
  /// \param fileVersion the version of the caller's own format, for the header
  /// \throws std::bad_alloc
  ZipOutStreamBuffer(const QString& fileName, unsigned fileVersion);
  /// Writes the header to a stream of the caller's.
  /// \param target must outlive this object; null is a failure
  /// \throws std::bad_alloc
  ZipOutStreamBuffer(std::ostream* target, unsigned fileVersion);
  /// The same two in pieces; see ZipOutStream.
  ZipOutStreamBuffer(const QString& fileName, unsigned fileVersion, const ZipPieces& pieces);
  ZipOutStreamBuffer(std::ostream* target, unsigned fileVersion, const ZipPieces& pieces);
  /// Closes, a failure stays unnoticed; but abandons when it goes because of an exception.
  ~ZipOutStreamBuffer() override;
  ZipOutStreamBuffer(const ZipOutStreamBuffer&) = delete;
  ZipOutStreamBuffer& operator=(const ZipOutStreamBuffer&) = delete;

  /// Whether there is a target and nothing has failed yet.
  bool isOpen() const;

  /// Finishes the compressed stream, and closes the file or flushes the caller's stream.
  /// \return whether the target took everything, from the header on; the same when called again
  bool close();

  /// Ends the stream without completing it; every reader says that its end is missing. After
  /// close() it does nothing.
  void abandon();

 protected:
  int_type overflow(int_type character) override;
  /// Compresses what is waiting. The end of it may stay within deflate: only close() completes.
  int sync() override;
  std::streamsize xsputn(const char* bytes, std::streamsize count) override;

 private:
  friend class ZipOutStream;
  KYR_HIDDEN void start(unsigned fileVersion, const ZipPieces* pieces);
  KYR_HIDDEN bool startPieces(const ZipPieces& pieces);
  KYR_HIDDEN bool addPiece();
  KYR_HIDDEN bool compress(const char* bytes, unsigned length, bool finish);
  KYR_HIDDEN bool compressPutArea(bool finish);
  KYR_HIDDEN bool finish();
  KYR_HIDDEN bool send(const char* bytes, std::size_t count);
  KYR_HIDDEN bool sendBlock(unsigned length, bool withEndMark);
  KYR_HIDDEN void sendWhatIsHeld();
  KYR_HIDDEN bool settleTarget();
  KYR_HIDDEN void provideRoom();
  KYR_HIDDEN void release();
  bool hasRoom(std::streamsize count) const { return count <= epptr() - pptr(); }
  void store(const char* bytes, std::streamsize count);

  TraceLife _traced{"ZipOutStream", "save"};
  std::unique_ptr<std::ofstream> _file;
  std::ostream* _target = nullptr;
  std::unique_ptr<char[]> _putArea;
  std::unique_ptr<char[]> _block;
  std::unique_ptr<DeflateEngine> _engine;
  std::unique_ptr<ZipPieceWriter> _pieces;  ///< in place of the three above
  const int _exceptionsBefore = std::uncaught_exceptions();
  bool _failed = true;
};

/// An output stream whose bytes land compressed in a zip stream file.
///
/// Write to it as to any stream, then call close() and look at the state: data is still on its
/// way until then, and a full disk may show only there. When the content does not become whole,
/// leave with an exception or call abandon(): nobody takes what is there for all of it then.
/// The file's format is described in docs/formats/zip-stream.md.
/// \code
/// ZipOutStream out(name, 1);
/// out.write(room, sizeof room);
/// out.close();
/// if (!out) {
///   throw Exception("cannot write " + name);
/// }
/// \endcode
///
/// A stream may be written in pieces of 256 KiB with an index behind its end, so that several
/// processors compress, and what is not damaged can be read: see ZipInStream and ZipSalvage.
/// Readers from before there were pieces read it as any other. Nothing may be written behind it:
/// the index is found at the end of the file. A failure shows at the latest when the piece after it
/// is full, and at close(). Flushing does nothing but tell of one.
/// \threadsafety one thread at a time
class KYR_EXPORT ZipOutStream : public std::ostream {
 public:
  /// Creates or empties a file and writes the header; the state is bad when that failed.
  /// \param fileVersion the version of the caller's own format: readers refuse files that are
  ///        newer than they know
  /// \throws std::bad_alloc
  ZipOutStream(const QString& fileName, unsigned fileVersion);
  /// Writes into a stream of the caller's, from its present position on.
  /// \param target binary; must outlive this object
  /// \throws std::bad_alloc
  ZipOutStream(std::ostream* target, unsigned fileVersion);
  /// The same two, in pieces.
  /// \throws std::bad_alloc
  ZipOutStream(const QString& fileName, unsigned fileVersion, const ZipPieces& pieces);
  ZipOutStream(std::ostream* target, unsigned fileVersion, const ZipPieces& pieces);
  /// Closes, if that was not done; a failure stays unnoticed. When an exception that was thrown
  /// during the stream's life is on its way, abandons instead.
  ~ZipOutStream() override;
  ZipOutStream(const ZipOutStream&) = delete;
  ZipOutStream& operator=(const ZipOutStream&) = delete;

  /// As std::ostream::write(), only faster for small records.
  ZipOutStream& write(const char* bytes, std::streamsize count);

  /// Completes the file: badbit is set unless the target took everything. Whatever is written
  /// later fails.
  void close();
  /// Ends the stream without completing it, and sets badbit: every reader says that the end is
  /// missing. After close() it does nothing.
  void abandon();

 private:
  KYR_HIDDEN void start();

  const std::unique_ptr<ZipOutStreamBuffer> _buffer;
};

inline void ZipOutStreamBuffer::store(const char* bytes, std::streamsize count) {
  std::memcpy(pptr(), bytes, static_cast<std::size_t>(count));
  pbump(static_cast<int>(count));
}

inline ZipOutStream& ZipOutStream::write(const char* bytes, std::streamsize count) {
  const bool plain = good() && !tie() && !(flags() & unitbuf) && rdbuf() == _buffer.get();
  if (plain && count > 0 && _buffer->hasRoom(count)) {
    _buffer->store(bytes, count);
  } else {
    std::ostream::write(bytes, count);
  }
  return *this;
}

/// What the header of a zip stream says; not to be trusted.
/// \threadsafety a value
struct ZipHeaderInfo {
  unsigned fileVersion = 0;  ///< the version of the application's own format
  unsigned time = 0;         ///< time of writing, seconds since 1970-01-01 00:00 UTC
  unsigned headerSize = 0;   ///< in bytes
  QString libraryVersion;    ///< of the library that wrote it; any text of up to 32 characters
};

/// How far a reader has come.
/// \threadsafety a value
struct ZipStatistics {
  std::uint64_t blocks = 0;           ///< whole blocks that were read
  std::uint64_t compressedBytes = 0;  ///< bytes within blocks
  std::uint64_t plainBytes = 0;       ///< bytes that came out of them
  /// Bytes of the stream that were used, header included; in a damaged stream the place of the
  /// damage, in one that was cut short the place where it ends.
  std::uint64_t offset = 0;
  std::uint64_t pieces = 0;  ///< that the index knows; 0 without one
  bool hasIndex = false;     ///< whether there is one, if only of no pieces
  /// For later versions.
  std::uintptr_t spare[4] = {};
};

/// What the index says of a piece. Places are counted from the first byte of the header.
/// \threadsafety a value
struct ZipPieceInfo {
  std::uint64_t offset = 0;       ///< where it begins in the stream
  std::uint64_t size = 0;         ///< of it in the stream, in bytes
  std::uint64_t plainOffset = 0;  ///< bytes of content in front of it
  std::uint32_t plainSize = 0;    ///< of its content, in bytes
  std::uint32_t crc = 0;          ///< CRC-32 of its content
};

/// An input stream that gives back what was written into a zip stream file.
///
/// A plain end sets eofbit. When the file is cut short or damaged, badbit is set as soon as that
/// is known, and getState() says which it was. Damage that changes data without breaking the
/// compression shows only at the end, in the checksum; so that also those learn of it who read no
/// more than the records that they expect, the reader is always 8 KiB ahead of them. With a bad
/// header nothing is read: badbit and eofbit are set from the start.
///
/// What was good before the damage is delivered as well, to whoever goes on in spite of it; eofbit
/// ends it:
/// \code
/// do {
///   in.clear();
///   in.read(room, sizeof room);
///   save(room, in.gcount());
/// } while (!in.eof());
/// \endcode
///
/// A stream that was written in pieces has an index, which is found by itself when the source can
/// be moved to other places. Then each piece is checked before its first byte is delivered: no
/// wrong byte ever is. seekg() and tellg() count bytes of content, several threads can decompress,
/// and the source is moved while this object lives. After seekg() the state is StreamOpen again,
/// and what it says later is about what was read since; a place behind the content is refused. A
/// damaged piece ends the reading, but seekg() goes past it; ZipSalvage reads all others. Without
/// an index nothing of this is so: seekg() and tellg() fail. A reader that has asked for exceptions
/// at badbit gets one from the operation that meets the damage. What that operation had taken in by
/// then is lost, but for read(), whose room holds gcount() bytes.
/// \threadsafety one thread at a time
class KYR_EXPORT ZipInStream : public std::istream {
 public:
  /// What is wrong with the header.
  enum HeaderError_t {
    HeaderGood = 0,        ///< of a version that this application reads
    HeaderUnreadable = 1,  ///< no file, no permission, or shorter than a header
    HeaderInvalid = 2,     ///< no zip stream, or one that went through a text-mode transfer
    HeaderFromNewer = 3,   ///< written by an application newer than this one
  };
  /// How the stream's content stands; all but StreamOpen are final.
  enum State_t {
    StreamOpen = 0,      ///< no end seen so far; reading on leads to one of the others
    StreamComplete = 1,  ///< the end was met, which is ahead of the reader; the checksum fits
    StreamCutShort = 2,  ///< the source ended before the stream
    StreamDamaged = 3,   ///< bytes that no writer writes, a wrong checksum included
    StreamRefused = 4,   ///< nothing was read because of the header
    /// The source did not give bytes that the index promises, as on a bad disk. seekg() to the same
    /// place asks for them again. Without an index this looks as if the source ended.
    StreamUnreadable = 5,
  };

  /// Opens a file and checks its header.
  /// \param newestVersion the newest version of the caller's own format that it can read
  /// \throws std::bad_alloc
  ZipInStream(const QString& fileName, unsigned newestVersion);
  /// Reads from a stream of the caller's, from its present position to the end mark.
  /// \param source binary; must outlive this object
  /// \throws std::bad_alloc
  ZipInStream(std::istream* source, unsigned newestVersion);
  ~ZipInStream() override;
  ZipInStream(const ZipInStream&) = delete;
  ZipInStream& operator=(const ZipInStream&) = delete;

  /// As std::istream::read(), only faster for small records.
  ZipInStream& read(char* room, std::streamsize count);

  /// Lets several threads decompress ahead, from now on. Without an index it does nothing.
  /// \throws std::bad_alloc; the stream goes on as before then
  void setWorkers(const ZipPieces& pieces);

  /// What is wrong with the header; known from the constructor on, and never changes.
  HeaderError_t getHeaderError() const;
  /// The error for people, translated; empty for a good header.
  QString getHeaderErrorText() const;
  /// The header's fields; all zero when the error is HeaderUnreadable or HeaderInvalid.
  ZipHeaderInfo getHeaderInfo() const;
  /// How the content stands where the reader looks, which is ahead of what was delivered.
  State_t getState() const;
  /// How far the reader has come.
  ZipStatistics getStatistics() const;
  /// What the index says of a piece.
  /// \param number below getStatistics().pieces, from 0
  /// \throws std::out_of_range
  ZipPieceInfo getPiece(std::uint64_t number) const;

  /// Whether bytes from the start of a file look like a zip stream, the older form included.
  /// \param bytes at least 52 for a certain answer; more make it stricter
  static bool isZipStream(const std::vector<char>& bytes);

  /// Decompresses the beginning of a stream, so that an application can look at the header of
  /// its own format before it opens the file.
  /// \param in bytes from the start of a file: the zip header and any part of what follows it
  /// \param out gets the plain bytes that these hold, in place of its contents
  /// \param limit of the plain bytes; damage within 16 KiB behind them may count as well. A few
  ///        bytes can hold a thousand times as many
  /// \return whether the zip header is good, of whatever version, and no damage was met; that
  ///         \a in ends before the stream does is no damage
  /// \throws std::bad_alloc
  static bool decompressHeader(const std::vector<char>& in, std::vector<char>& out,
                               std::size_t limit);
  /// As above, with mostHeaderBytes as the limit.
  static bool decompressHeader(const std::vector<char>& in, std::vector<char>& out);
  /// The limit of decompressHeader() unless another is given: 16 MiB.
  static constexpr std::size_t mostHeaderBytes = std::size_t{16} << 20U;

 private:
  KYR_HIDDEN void start();

  struct Count;
  friend class ZipInStreamBuffer;

  const std::unique_ptr<ZipInStreamBuffer> _buffer;
};

/// The buffer behind ZipInStream; an application needs it only under a stream of its own, and
/// then learns of damage from state(), since reading just ends there. Not copyable.
/// \threadsafety one thread at a time
class KYR_EXPORT ZipInStreamBuffer : public std::streambuf {
 public:
  /// The parameters are those of ZipInStream.
  /// \throws std::bad_alloc
  ZipInStreamBuffer(const QString& fileName, unsigned newestVersion);
  ZipInStreamBuffer(std::istream* source, unsigned newestVersion);
  ~ZipInStreamBuffer() override;
  ZipInStreamBuffer(const ZipInStreamBuffer&) = delete;
  ZipInStreamBuffer& operator=(const ZipInStreamBuffer&) = delete;

  /// As ZipInStream::getHeaderError().
  ZipInStream::HeaderError_t headerError() const { return _headerError; }
  /// As ZipInStream::getHeaderErrorText().
  const QString& headerErrorText() const { return _headerErrorText; }
  /// As ZipInStream::getHeaderInfo().
  const ZipHeaderInfo& headerInfo() const { return _headerInfo; }
  /// As ZipInStream::getState().
  ZipInStream::State_t state() const { return _state; }
  /// As ZipInStream::getStatistics().
  ZipStatistics statistics() const;
  /// As ZipInStream::getPiece().
  /// \throws std::out_of_range
  ZipPieceInfo piece(std::uint64_t number) const;
  /// As ZipInStream::setWorkers().
  /// \throws std::bad_alloc; the buffer goes on as before then
  void setWorkers(const ZipPieces& pieces);

 protected:
  int_type underflow() override;
  std::streamsize xsgetn(char* room, std::streamsize count) override;
  pos_type seekoff(off_type offset, std::ios_base::seekdir from,
                   std::ios_base::openmode which) override;
  pos_type seekpos(pos_type position, std::ios_base::openmode which) override;

 private:
  friend class ZipInStream;
  KYR_HIDDEN void start(unsigned newestVersion);
  KYR_HIDDEN void readHeader(unsigned newestVersion);
  KYR_HIDDEN void refuse(ZipInStream::HeaderError_t error, const QString& text);
  KYR_HIDDEN std::size_t producePieces(char* room, std::size_t length);
  KYR_HIDDEN void judgeFrame();
  KYR_HIDDEN void goTo(std::uint64_t position);
  KYR_HIDDEN void lookAhead();
  KYR_HIDDEN std::size_t takeAhead();
  KYR_HIDDEN std::size_t produce(char* room, std::size_t length);
  KYR_HIDDEN void inflateOnce();
  KYR_HIDDEN void provideInput();
  KYR_HIDDEN void judgeEnd();
  KYR_HIDDEN bool fillGetArea();
  bool holds(std::streamsize count) const { return count <= egptr() - gptr(); }
  void fetch(char* room, std::streamsize count);
  KYR_HIDDEN std::streamsize fillAreas(char* room, std::streamsize count);
  KYR_HIDDEN void keepForUnget(char last);
  KYR_HIDDEN bool isFaulty() const;
  KYR_HIDDEN void reportFault(std::streamsize delivered, std::streamsize wanted);

  TraceLife _traced{"ZipInStream", "read"};
  std::unique_ptr<std::ifstream> _file;
  std::istream* _source = nullptr;
  ZipInStream* _reader = nullptr;
  std::unique_ptr<char[]> _getArea;
  std::unique_ptr<char[]> _aheadArea;
  std::unique_ptr<ZipBlockReader> _blocks;
  std::unique_ptr<InflateEngine> _engine;
  std::unique_ptr<ZipPieceReader> _pieces;  ///< in place of the two above
  std::uint64_t _position = 0;              ///< in the content, behind what was produced
  std::size_t _inPiece = 0;                 ///< bytes of the piece at hand that were produced
  std::uint64_t _pieceBlocks = 0;           ///< blocks of whole pieces, and bytes in them
  std::uint64_t _pieceBytes = 0;
  ZipInStream::HeaderError_t _headerError = ZipInStream::HeaderGood;
  QString _headerErrorText;
  ZipHeaderInfo _headerInfo;
  ZipInStream::State_t _state = ZipInStream::StreamOpen;
  std::uint64_t _offset = 0;
  std::uint64_t _plainBytes = 0;
  unsigned _inputSize = 0;
  std::uint16_t _aheadSize = 0;  ///< bytes in the area behind the get area
  bool _needsInput = true;
  bool _ended = false;
  std::streamsize* _count = nullptr;  ///< the reader's gcount(); null where it cannot be set
};

inline void ZipInStreamBuffer::fetch(char* room, std::streamsize count) {
  std::memcpy(room, gptr(), static_cast<std::size_t>(count));
  gbump(static_cast<int>(count));
}

inline ZipInStream& ZipInStream::read(char* room, std::streamsize count) {
  const bool plain = good() && !tie() && rdbuf() == _buffer.get() && _buffer->_count;
  if (plain && count > 0 && _buffer->holds(count)) {
    *_buffer->_count = count;
    _buffer->fetch(room, count);
  } else {
    std::istream::read(room, count);
  }
  return *this;
}

}  // namespace Kyr
