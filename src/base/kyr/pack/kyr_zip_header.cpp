#include <kyr/pack/zip_header_p.h>

#include <kyr/core/KyrVersion.h>

#include <algorithm>
#include <cstring>

namespace Kyr::ZipFormat {

namespace {

/// Where a field lies in the header.
struct Field {
  std::size_t offset;
  std::size_t size;
  constexpr std::size_t end() const { return offset + size; }
};
constexpr Field constantField{0, constantSize}, fileVersionField{48, 4}, transferCheckField{52, 12},
    timeField{64, 4}, sizeField{68, 4}, libraryVersionField{72, 32};

static_assert(fileVersionField.offset == constantField.end());
static_assert(transferCheckField.offset == fileVersionField.end());
static_assert(timeField.offset == transferCheckField.end());
static_assert(sizeField.offset == timeField.end());
static_assert(libraryVersionField.offset == sizeField.end());
static_assert(libraryVersionField.end() == headerSize, "readers of every version expect 104 bytes");

// The zeros that end these literals belong to the file.
constexpr char constantBlock[constantSize] = "Kyr-V5.x\0HEADER\0Kyr-ZIP-Stream";
constexpr char olderMark[] = "Kyr-ZIP";
constexpr std::size_t olderHeaderSize = 12;
/// CR LF, LF, CR and LF CR, parted by zeros: whatever a text-mode transfer rewrites, it changes
/// these bytes or moves them.
constexpr char transferCheck[] = {0x0D, 0x0A, 0, 0x0A, 0, 0x0D, 0, 0x0A, 0x0D, 0, 0, 0};
static_assert(sizeof(transferCheck) == transferCheckField.size);

void storeUInt32(char* bytes, std::uint32_t value) {
  storeUInt16(bytes, value & 0xFFFFU);
  storeUInt16(bytes + 2, value >> 16U);
}

std::uint32_t loadUInt32(const char* bytes) {
  return loadUInt16(bytes) | (static_cast<std::uint32_t>(loadUInt16(bytes + 2)) << 16U);
}

/// Whether the part of a field that lies within \a count bytes has the expected bytes.
bool fits(const char* bytes, std::size_t count, Field field, const char* expected) {
  const std::size_t reached = std::min(count, field.end());
  return reached <= field.offset ||
         std::memcmp(bytes + field.offset, expected, reached - field.offset) == 0;
}

}  // namespace

void storeUInt16(char* bytes, unsigned value) {
  bytes[0] = static_cast<char>(value & 0xFFU);
  bytes[1] = static_cast<char>((value >> 8U) & 0xFFU);
}

unsigned loadUInt16(const char* bytes) {
  return static_cast<unsigned char>(bytes[0]) |
         (static_cast<unsigned>(static_cast<unsigned char>(bytes[1])) << 8U);
}

Header makeHeader(unsigned fileVersion, std::uint32_t seconds) {
  Header header{};
  char* const bytes = header.data();
  std::memcpy(bytes, constantBlock, constantSize);
  storeUInt32(bytes + fileVersionField.offset, fileVersion);
  std::memcpy(bytes + transferCheckField.offset, transferCheck, sizeof(transferCheck));
  storeUInt32(bytes + timeField.offset, seconds);
  storeUInt32(bytes + sizeField.offset, headerSize);
  const char* const version = libraryVersion();
  std::copy_n(version, std::min(std::strlen(version), libraryVersionField.size),
              bytes + libraryVersionField.offset);
  return header;
}

bool constantBlockFits(const char* bytes, std::size_t count) {
  return fits(bytes, count, constantField, constantBlock);
}

bool transferCheckFits(const char* bytes, std::size_t count) {
  return fits(bytes, count, transferCheckField, transferCheck);
}

bool sizeFieldFits(const char* bytes, std::size_t count) {
  char expected[4];
  storeUInt32(expected, headerSize);
  return fits(bytes, count, sizeField, expected);
}

bool beginsWithOlderMark(const char* bytes, std::size_t count) {
  return count >= olderHeaderSize && std::memcmp(bytes, olderMark, sizeof(olderMark)) == 0;
}

ZipHeaderInfo describe(const Header& header) {
  const char* const version = header.data() + libraryVersionField.offset;
  // A hostile file may have no zero byte behind the text.
  const char* const end = std::find(version, version + libraryVersionField.size, '\0');
  ZipHeaderInfo info;
  info.fileVersion = loadUInt32(header.data() + fileVersionField.offset);
  info.time = loadUInt32(header.data() + timeField.offset);
  info.headerSize = loadUInt32(header.data() + sizeField.offset);
  info.libraryVersion = QString::fromLatin1(version, static_cast<int>(end - version));
  return info;
}

}  // namespace Kyr::ZipFormat
