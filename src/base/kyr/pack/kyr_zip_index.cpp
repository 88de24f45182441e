#include <kyr/pack/zip_index_p.h>

#include <kyr/pack/piece_engine_p.h>
#include <kyr/pack/zip_header_p.h>

#include <algorithm>
#include <cstring>

namespace Kyr {

using ZipFormat::storeUInt16;

namespace {

constexpr char mark[8] = "Kyr-IDX";
constexpr std::uint64_t version = 1;
constexpr std::size_t frontSize = 32, entrySize = 16, tailSize = 20;

/// The largest piece that readers take. No index makes them use more memory than a few of these.
constexpr std::uint32_t largestPlain = 1048576;
/// More than deflate needs for the same number of plain bytes, lengths of blocks included.
constexpr std::uint64_t largestPacked(std::uint32_t plainSize) {
  return std::uint64_t{plainSize} + plainSize / 4 + 4096;
}

/// The most content that deflate can put into one byte.
constexpr std::uint32_t mostPlainPerByte = 1032;
/// The largest index that is read, of 4 TiB of content in usual pieces: in a sparse file it takes
/// no bytes to claim more than there is memory.
constexpr std::uint64_t largestIndex = 268435456;

void append(std::string& bytes, std::uint64_t value, unsigned size) {
  for (unsigned i = 0; i < size; ++i) {
    bytes += static_cast<char>((value >> 8U * i) & 0xFFU);
  }
}

std::uint64_t load(const char* bytes, unsigned size) {
  std::uint64_t value = 0;
  for (unsigned i = size; i > 0; --i) {
    value = (value << 8U) | static_cast<unsigned char>(bytes[i - 1]);
  }
  return value;
}

std::uint32_t crcOf(const char* bytes, std::size_t size) {
  return plainCrc(reinterpret_cast<const unsigned char*>(bytes), size);
}

std::string adlerText(std::uint32_t adler) {
  return {static_cast<char>(adler >> 24U), static_cast<char>((adler >> 16U) & 0xFFU),
          static_cast<char>((adler >> 8U) & 0xFFU), static_cast<char>(adler & 0xFFU)};
}

std::string block(const std::string& bytes) {
  char length[ZipFormat::lengthSize];
  storeUInt16(length, static_cast<unsigned>(bytes.size()));
  return std::string(length, sizeof(length)) + bytes;
}

/// The bytes of an index whose mark, length and checksum are right; empty otherwise.
std::string loadIndex(std::streambuf& source, std::streamoff end) {
  char tail[tailSize];
  if (end < std::streamoff{frontSize + tailSize} ||
      !seekTo(source, end - std::streamoff{tailSize}) ||
      readFrom(source, tail, tailSize) < tailSize || std::memcmp(tail + 8, mark, 8) != 0) {
    return {};
  }
  const std::uint64_t length = load(tail, 8);
  if (length < frontSize + tailSize || length > static_cast<std::uint64_t>(end) ||
      length > largestIndex) {
    return {};
  }
  std::string bytes(static_cast<std::size_t>(length), '\0');
  const bool isRead = seekTo(source, end - static_cast<std::streamoff>(length)) &&
                      readFrom(source, bytes.data(), bytes.size()) == bytes.size();
  const std::size_t checked = bytes.size() - 4;
  return isRead && crcOf(bytes.data(), checked) == load(&bytes[checked], 4) ? bytes : std::string();
}

bool decode(const std::string& bytes, ZipIndex& index) {
  const std::uint64_t count = load(&bytes[16], 8);
  if (std::memcmp(bytes.data(), mark, 8) != 0 || load(&bytes[8], 4) != version ||
      count != (bytes.size() - frontSize - tailSize) / entrySize ||
      (bytes.size() - frontSize - tailSize) % entrySize != 0) {
    return false;
  }
  index.adler = static_cast<std::uint32_t>(load(&bytes[12], 4));
  index.endPlace = load(&bytes[24], 8);
  index.pieces.reserve(static_cast<std::size_t>(count));
  for (std::size_t at = frontSize; at < bytes.size() - tailSize; at += entrySize) {
    index.add(load(&bytes[at], 8), static_cast<std::uint32_t>(load(&bytes[at + 8], 4)),
              static_cast<std::uint32_t>(load(&bytes[at + 12], 4)));
  }
  return true;
}

/// Whether the pieces lie one behind the other and have sizes that pieces may have.
bool isSound(const ZipIndex& index) {
  std::uint64_t expected = ZipFormat::headerSize + ZipIndex::front().size();
  for (std::size_t i = 0; i < index.pieces.size(); ++i) {
    const ZipIndex::Piece& piece = index.pieces[i];
    const std::uint64_t end =
        i + 1 < index.pieces.size() ? index.pieces[i + 1].place : index.endPlace;
    if (piece.place != expected || piece.plainSize == 0 || piece.plainSize > largestPlain ||
        end <= piece.place || end - piece.place > largestPacked(piece.plainSize) ||
        end - piece.place < piece.plainSize / mostPlainPerByte) {
      return false;
    }
    expected = end;
  }
  return index.endPlace == expected;
}

}  // namespace

void ZipIndex::add(std::uint64_t place, std::uint32_t size, std::uint32_t crc) {
  pieces.push_back({place, plainSize, size, crc});
  plainSize += size;
}

std::string ZipIndex::encode() const {
  std::string bytes(mark, sizeof(mark));
  bytes.reserve(frontSize + pieces.size() * entrySize + tailSize);
  append(bytes, version, 4);
  append(bytes, adler, 4);
  append(bytes, pieces.size(), 8);
  append(bytes, endPlace, 8);
  for (const Piece& piece : pieces) {
    append(bytes, piece.place, 8);
    append(bytes, piece.plainSize, 4);
    append(bytes, piece.crc, 4);
  }
  append(bytes, bytes.size() + tailSize, 8);
  bytes.append(mark, sizeof(mark));
  append(bytes, crcOf(bytes.data(), bytes.size()), 4);
  return bytes;
}

std::optional<ZipIndex> ZipIndex::find(std::streambuf& source, std::streamoff start) {
  const std::optional<std::streamoff> end = endOf(source);
  const std::string bytes = end ? loadIndex(source, *end) : std::string();
  std::optional<ZipIndex> index(std::in_place);
  if (bytes.empty() || !decode(bytes, *index) || !isSound(*index)) {
    return std::nullopt;
  }
  const auto indexPlace = static_cast<std::uint64_t>(*end - start) - bytes.size();
  return *end >= start && index->endPlace + index->end().size() == indexPlace ? index
                                                                              : std::nullopt;
}

std::uint64_t ZipIndex::sizeOf(std::size_t piece) const {
  return (piece + 1 < pieces.size() ? pieces[piece + 1].place : endPlace) - pieces[piece].place;
}

std::size_t ZipIndex::pieceAt(std::uint64_t plainPlace) const {
  const auto behind =
      std::upper_bound(pieces.begin(), pieces.end(), plainPlace,
                       [](std::uint64_t at, const Piece& piece) { return at < piece.plainPlace; });
  const auto number = static_cast<std::size_t>(behind - pieces.begin());
  return plainPlace < plainSize ? number - 1 : pieces.size();
}

std::size_t ZipIndex::largestPiece() const {
  std::uint64_t size = 0;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    size = std::max(size, sizeOf(i));
  }
  return static_cast<std::size_t>(size);
}

std::size_t ZipIndex::largestPlainPiece() const {
  std::uint32_t size = 0;
  for (const Piece& piece : pieces) {
    size = std::max(size, piece.plainSize);
  }
  return size;
}

std::string ZipIndex::front() {
  return block("\x78\x01");
}

std::string ZipIndex::end() const {
  const char* const final = reinterpret_cast<const char*>(emptyFinalBlock);
  constexpr std::size_t endMarkSize = ZipFormat::lengthSize;
  return block(std::string(final, sizeof(emptyFinalBlock)) + adlerText(adler)) +
         std::string(endMarkSize, '\0');
}

bool seekTo(std::streambuf& source, std::streamoff place) noexcept {
  try {
    // Always by an offset, never by a position: a source that moves by offsets only is read, too.
    return source.pubseekoff(place, std::ios_base::beg, std::ios_base::in) == std::streampos(place);
  } catch (...) {
    return false;
  }
}

std::size_t readFrom(std::streambuf& source, char* room, std::size_t count) noexcept {
  try {
    return static_cast<std::size_t>(source.sgetn(room, static_cast<std::streamsize>(count)));
  } catch (...) {
    return 0;
  }
}

namespace {

std::optional<std::streamoff> movedTo(std::streambuf& source,
                                      std::ios_base::seekdir from) noexcept {
  try {
    const std::streamoff place = source.pubseekoff(0, from, std::ios_base::in);
    return place >= 0 ? std::optional<std::streamoff>(place) : std::nullopt;
  } catch (...) {
    return std::nullopt;
  }
}

}  // namespace

std::optional<std::streamoff> endOf(std::streambuf& source) noexcept {
  return movedTo(source, std::ios_base::end);
}

std::optional<std::streamoff> placeOf(std::streambuf& source) noexcept {
  return movedTo(source, std::ios_base::cur);
}

}  // namespace Kyr
