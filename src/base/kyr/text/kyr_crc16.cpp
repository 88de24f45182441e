#include <kyr/text/KyrCRC16.h>

#include <array>
#include <cstdint>

namespace Kyr {

namespace {

constexpr unsigned polynomial = 0x1021;
constexpr std::size_t stride = 16;

using Table = std::array<std::uint16_t, 256>;

/// The register after a byte in its high half has been shifted out.
constexpr std::uint16_t shiftedOut(unsigned byte) {
  unsigned remainder = byte << 8U;
  for (int bit = 0; bit < 8; ++bit) {
    remainder = (remainder << 1U) ^ ((remainder & 0x8000U) != 0 ? polynomial : 0);
  }
  return static_cast<std::uint16_t>(remainder);
}

/// Table k has the register after a byte and k zero bytes behind it. A checksum being linear,
/// the bytes of a stride are looked up independently of each other.
constexpr std::array<Table, stride> makeTables() {
  std::array<Table, stride> made = {};
  for (unsigned byte = 0; byte < 256; ++byte) {
    made[0][byte] = shiftedOut(byte);
  }
  for (std::size_t k = 1; k < stride; ++k) {
    for (unsigned byte = 0; byte < 256; ++byte) {
      const unsigned before = made[k - 1][byte];
      made[k][byte] = static_cast<std::uint16_t>(before << 8U ^ made[0][before >> 8U]);
    }
  }
  return made;
}

constexpr std::array<Table, stride> tables = makeTables();
static_assert(tables[0][1] == 0x1021 && tables[0][2] == 0x2042 && tables[0][3] == 0x3063);

unsigned addStride(unsigned remainder, const unsigned char* bytes) {
  unsigned sum = tables[stride - 1][bytes[0] ^ remainder >> 8U] ^
                 tables[stride - 2][bytes[1] ^ (remainder & 0xFFU)];
  for (std::size_t i = 2; i < stride; ++i) {
    sum ^= tables[stride - 1 - i][bytes[i]];
  }
  return sum;
}

unsigned addByte(unsigned remainder, unsigned byte) {
  return (remainder & 0xFFU) << 8U ^ tables[0][remainder >> 8U ^ byte];
}

}  // namespace

unsigned short CRC16::compute(const StructVector<unsigned char>& data) {
  return compute(data.data(), data.size());
}

unsigned short CRC16::compute(const unsigned char* bytes, std::size_t count,
                              unsigned short before) {
  unsigned remainder = before;
  for (; count >= stride; count -= stride, bytes += stride) {
    remainder = addStride(remainder, bytes);
  }
  for (; count > 0; --count) {
    remainder = addByte(remainder, *bytes++);
  }
  return static_cast<unsigned short>(remainder);
}

}  // namespace Kyr
