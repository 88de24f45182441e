#include <kyr/text/KyrBase64.h>

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <new>
#include <string_view>

namespace Kyr {

namespace {

constexpr std::string_view alphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

/// Two characters for each value of twelve bits.
using Pair = std::array<char, 2>;

constexpr std::array<Pair, 4096> makePairs() {
  std::array<Pair, 4096> made = {};
  for (std::size_t value = 0; value < made.size(); ++value) {
    made[value] = {alphabet[value >> 6U], alphabet[value & 63U]};
  }
  return made;
}

constexpr std::array<Pair, 4096> pairs = makePairs();

/// Stands for a character that is none of the alphabet; above all values of a group.
constexpr std::uint32_t foreign = 1U << 24U;

using Places = std::array<std::uint32_t, 256>;

/// The value of each character, in each of the four places of a group.
constexpr std::array<Places, 4> makeValues() {
  std::array<Places, 4> made = {};
  for (std::size_t place = 0; place < 4; ++place) {
    for (std::uint32_t& value : made[place]) {
      value = foreign;
    }
    for (unsigned value = 0; value < alphabet.size(); ++value) {
      made[place][static_cast<unsigned char>(alphabet[value])] = value << (18 - 6 * place);
    }
  }
  return made;
}

constexpr std::array<Places, 4> values = makeValues();

std::uint32_t groupValue(const unsigned char* in) {
  return values[0][in[0]] | values[1][in[1]] | values[2][in[2]] | values[3][in[3]];
}

void writePair(std::uint64_t value, unsigned char* out) {
  std::memcpy(out, pairs[value & 4095U].data(), sizeof(Pair));
}

/// Encodes whole steps of six bytes, each out of a read of eight.
/// \return the number of bytes that were encoded
std::size_t encodeSteps(const unsigned char* in, std::size_t size, unsigned char* out) {
  std::size_t done = 0;
  for (; size - done >= 8; done += 6, out += 8) {
    const auto bits = qFromBigEndian<quint64>(in + done);
    writePair(bits >> 52U, out);
    writePair(bits >> 40U, out + 2);
    writePair(bits >> 28U, out + 4);
    writePair(bits >> 16U, out + 6);
  }
  return done;
}

/// Decodes whole steps of two groups, as long as all is of the alphabet.
/// \param out eight bytes are written for each step, of which six count
/// \return the number of characters that were decoded
std::size_t decodeSteps(const unsigned char* in, std::size_t size, unsigned char* out) {
  std::size_t done = 0;
  for (; size - done >= 8; done += 8, out += 6) {
    const std::uint32_t first = groupValue(in + done);
    const std::uint32_t second = groupValue(in + done + 4);
    if ((first | second) >= foreign) {
      break;
    }
    qToBigEndian<quint64>(std::uint64_t(first) << 40U | std::uint64_t(second) << 16U, out);
  }
  return done;
}

/// Sizes a vector for more bytes than it shall keep in the end.
/// \return the place for them
unsigned char* extend(StructVector<unsigned char>& out, std::size_t count) {
  constexpr auto most = static_cast<std::size_t>(std::numeric_limits<std::ptrdiff_t>::max());
  const std::size_t before = out.size();
  if (count > most - before) {
    throw std::bad_alloc();
  }
  out.setSize(before + count);
  return out.data() + before;
}

std::size_t encodedSize(std::size_t size) {
  return (size / 3 + (size % 3 != 0 ? 1 : 0)) * 4;
}

/// Steps write eight bytes, of which six count.
constexpr std::size_t spare = 2;

/// What decoding may write, whatever the text is.
std::size_t decodedRoom(std::size_t size) {
  return (size / 4 + 1) * 3 + spare;
}

const unsigned char* bytesOf(const QByteArray& array) {
  return reinterpret_cast<const unsigned char*>(array.constData());
}

/// \throws std::bad_alloc for more than an array can hold, which Qt itself does not notice
QByteArray arrayOf(std::size_t size) {
  constexpr std::size_t head = 64;  // what Qt adds to the bytes
  if (size > std::size_t(std::numeric_limits<int>::max()) - head) {
    throw std::bad_alloc();
  }
  return {static_cast<int>(size), Qt::Uninitialized};
}

}  // namespace

void Base64::encodeBlock(unsigned char* in, unsigned char* out, unsigned int count) {
  writePair(std::uint64_t(in[0]) << 4U | in[1] >> 4U, out);
  writePair(std::uint64_t(in[1]) << 8U | in[2], out + 2);
  for (unsigned i = count + 1; i < 4; ++i) {
    out[i] = '=';
  }
}

void Base64::encodeAll(const unsigned char* from, std::size_t size, unsigned char* to) {
  std::size_t done = encodeSteps(from, size, to);
  for (to += done / 3 * 4; done < size; done += 3, to += 4) {
    const std::size_t count = std::min<std::size_t>(size - done, 3);
    unsigned char block[3] = {};
    std::memcpy(block, from + done, count);
    encodeBlock(block, to, static_cast<unsigned>(count));
  }
}

void Base64::encode(const StructVector<unsigned char>& in, StructVector<unsigned char>* out) {
  const std::size_t size = in.size();
  unsigned char* const to = extend(*out, encodedSize(size));
  encodeAll(in.data(), size, to);  // extend() has moved the bytes if out is the same vector
}

QByteArray Base64::encode(const QByteArray& in) {
  const auto size = static_cast<std::size_t>(in.size());
  QByteArray out = arrayOf(encodedSize(size));
  encodeAll(bytesOf(in), size, reinterpret_cast<unsigned char*>(out.data()));
  return out;
}

void Base64::decodeBlock(unsigned char* in, unsigned char* out) {
  out[0] = static_cast<unsigned char>(in[0] << 2U | in[1] >> 4U);
  out[1] = static_cast<unsigned char>(in[1] << 4U | in[2] >> 2U);
  out[2] = static_cast<unsigned char>(in[2] << 6U | in[3]);
}

/// Decodes a group of any characters.
/// \return the number of bytes that count, of three written
unsigned int Base64::decodeGroup(const unsigned char* in, unsigned char* out) {
  unsigned char bits[4] = {};
  unsigned found = 0;
  for (unsigned i = 0; i < 4; ++i) {
    const std::uint32_t value = values[3][in[i]];
    if (value != foreign) {
      bits[i] = static_cast<unsigned char>(value);
      ++found;
    }
  }
  decodeBlock(bits, out);
  return found > 2 ? found - 1 : 1;
}

/// \param to has the decodedRoom()
/// \return the end of what was written
unsigned char* Base64::decodeAll(const unsigned char* from, std::size_t size, unsigned char* to) {
  const unsigned char* const end = from + size;
  while (end - from >= 4) {
    const std::size_t done = decodeSteps(from, static_cast<std::size_t>(end - from), to);
    from += done;
    to += done / 4 * 3;
    if (end - from >= 4) {
      to += decodeGroup(from, to);
      from += 4;
    }
  }
  if (from != end) {
    unsigned char group[4] = {};  // zero bytes are none of the alphabet
    std::memcpy(group, from, std::min<std::size_t>(static_cast<std::size_t>(end - from), 3));
    to += decodeGroup(group, to);
  }
  return to;
}

void Base64::decode(const StructVector<unsigned char>& in, StructVector<unsigned char>* out) {
  const std::size_t size = in.size();
  unsigned char* const to = extend(*out, decodedRoom(size));
  // extend() has moved the text if out is the same vector.
  const unsigned char* const end = decodeAll(in.data(), size, to);
  out->setSize(static_cast<std::size_t>(end - out->data()));
}

QByteArray Base64::decode(const QByteArray& in) {
  const auto size = static_cast<std::size_t>(in.size());
  QByteArray out = arrayOf(decodedRoom(size));
  auto* const to = reinterpret_cast<unsigned char*>(out.data());
  out.resize(static_cast<int>(decodeAll(bytesOf(in), size, to) - to));
  return out;
}

}  // namespace Kyr
