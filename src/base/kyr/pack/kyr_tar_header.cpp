#include <kyr/pack/tar_header_p.h>

#include <algorithm>
#include <numeric>

namespace Kyr::Tar {

namespace {

struct Field {
  unsigned offset;
  unsigned size;
};

constexpr Field nameField{0, 100};
constexpr Field modeField{100, 8};
constexpr Field ownerField{108, 8};
constexpr Field groupField{116, 8};
constexpr Field sizeField{124, 12};
constexpr Field timeField{136, 12};
constexpr Field checksumField{148, 8};
constexpr Field typeField{156, 1};
constexpr Field magicField{257, 6};
constexpr Field prefixField{345, 155};
static_assert(prefixField.offset + prefixField.size <= blockSize);

constexpr int checksumDigits = 6;

void store(Block& block, Field field, const QByteArray& bytes) {
  std::copy(bytes.begin(), bytes.end(), block.begin() + field.offset);
}

QByteArray bytesIn(const Block& block, Field field) {
  const char* const start = reinterpret_cast<const char*>(block.data()) + field.offset;
  return {start, static_cast<int>(field.size)};
}

/// The field up to its first zero byte.
QByteArray textIn(const Block& block, Field field) {
  const QByteArray bytes = bytesIn(block, field);
  const int end = bytes.indexOf('\0');
  return end < 0 ? bytes : bytes.left(end);
}

/// \return empty when there are more digits
QByteArray octal(std::int64_t number, int digits) {
  const QByteArray text = QByteArray::number(static_cast<qulonglong>(number), 8);
  return text.size() > digits ? QByteArray() : text.rightJustified(digits, '0');
}

/// Bytes of a header as a sum; those of the checksum count as blanks.
template <class Byte>
std::int64_t sumOf(const Block& block) {
  const auto add = [](std::int64_t sum, unsigned char byte) {
    return sum + static_cast<Byte>(byte);
  };
  const auto checksum = block.begin() + checksumField.offset;
  const std::int64_t blanks = std::int64_t(' ') * checksumField.size;
  const std::int64_t front = std::accumulate(block.begin(), checksum, blanks, add);
  return std::accumulate(checksum + checksumField.size, block.end(), front, add);
}

/// A number of GNU tar that octal digits cannot hold: lowest byte last, the highest bit set, and
/// the next one for a negative number.
std::optional<std::int64_t> binaryNumber(const QByteArray& bytes) {
  constexpr std::int64_t most = INT64_MAX / 256;
  const int first = static_cast<unsigned char>(bytes[0]) & 0x7F;
  std::int64_t number = first < 0x40 ? first : first - 0x80;
  for (const char byte : bytes.mid(1)) {
    if (number > most || number < -most) {
      return {};
    }
    number = number * 256 + static_cast<unsigned char>(byte);
  }
  return number;
}

bool isEnd(char character) {
  return character == ' ' || character == '\0';
}

/// Octal digits among blanks; an empty field is 0, as some programs leave what does not matter.
std::optional<std::int64_t> numberIn(const Block& block, Field field) {
  const QByteArray bytes = bytesIn(block, field);
  if ((static_cast<unsigned char>(bytes[0]) & 0x80U) != 0) {
    return binaryNumber(bytes);
  }
  const auto* digit = std::find_if_not(bytes.begin(), bytes.end(), [](char c) { return c == ' '; });
  std::int64_t number = 0;
  for (; digit != bytes.end() && *digit >= '0' && *digit <= '7'; ++digit) {
    number = number * 8 + (*digit - '0');
  }
  const bool good = digit == bytes.end() || isEnd(*digit);
  return good ? std::optional<std::int64_t>(number) : std::nullopt;
}

/// The digits at the start of a decimal number.
std::optional<std::int64_t> wholeNumber(const QByteArray& text) {
  bool ok = false;
  const qlonglong number = text.split('.').first().toLongLong(&ok);
  return ok ? std::optional<std::int64_t>(number) : std::nullopt;
}

bool apply(const QByteArray& key, const QByteArray& value, Record& record) {
  if (key == "path") {
    record.path = value;
  } else if (key == "size") {
    record.size = wholeNumber(value);
    return record.size.has_value() && *record.size >= 0;
  } else if (key == "mtime") {
    record.modified = wholeNumber(value);
  } else if (key.startsWith("GNU.sparse.")) {
    record.isSparse = true;
  }
  return true;
}

}  // namespace

bool makeHeader(Block& block, const QByteArray& name, std::int64_t modified, std::int64_t size) {
  block.fill(0);
  const QByteArray sizeDigits = octal(size, sizeField.size - 1);
  const QByteArray timeDigits = octal(modified, timeField.size - 1);
  if (name.size() >= int(nameField.size) || sizeDigits.isEmpty() || timeDigits.isEmpty()) {
    return false;
  }
  store(block, nameField, name);
  store(block, modeField, "0000644");
  store(block, ownerField, "0000000");
  store(block, groupField, "0000000");
  store(block, sizeField, sizeDigits);
  store(block, timeField, timeDigits);
  store(block, typeField, "0");
  // Signed, as it has always been: readers of the library's archives may know no other sum.
  const QByteArray checksum = octal(sumOf<signed char>(block), checksumDigits);
  store(block, checksumField, checksum + '\0' + ' ');
  return !checksum.isEmpty();
}

bool checksumFits(const Block& block) {
  const std::optional<std::int64_t> checksum = numberIn(block, checksumField);
  return checksum &&
         (*checksum == sumOf<unsigned char>(block) || *checksum == sumOf<signed char>(block));
}

bool isZero(const Block& block) {
  return std::all_of(block.begin(), block.end(), [](unsigned char byte) { return byte == 0; });
}

Kind kindOf(const Block& block) {
  switch (block[typeField.offset]) {
    case '\0':
    case '0':
    case '7':
      // The oldest programs know directories by their names alone.
      return nameIn(block).endsWith('/') ? WithoutContent : File;
    case '1':
    case '2':
    case '3':
    case '4':
    case '5':
    case '6':
      return WithoutContent;
    case 'L':
      return LongName;
    case 'x':
      return Attributes;
    case 'S':
      return SparseFile;
    case 'K':
    case 'X':
    case 'g':
      return Aside;
    default:
      return WithContent;
  }
}

QByteArray nameIn(const Block& block) {
  const QByteArray name = textIn(block, nameField);
  const bool isPosix = bytesIn(block, magicField) == QByteArray("ustar\0", 6);
  const QByteArray prefix = isPosix ? textIn(block, prefixField) : QByteArray();
  return prefix.isEmpty() ? name : prefix + '/' + name;
}

std::optional<std::int64_t> sizeIn(const Block& block) {
  const std::optional<std::int64_t> size = numberIn(block, sizeField);
  return size && *size >= 0 ? size : std::nullopt;
}

std::int64_t modifiedIn(const Block& block) {
  return numberIn(block, timeField).value_or(0);
}

bool sparseHeaderGoesOn(const Block& block, bool isFirst) {
  constexpr unsigned inFirst = 482;
  constexpr unsigned inOthers = 504;
  return block[isFirst ? inFirst : inOthers] != 0;
}

// Each record is "25 path=directory/name\n", the number being its own length.
bool readRecords(const QByteArray& bytes, Record& record) {
  for (int start = 0; start < bytes.size();) {
    const int blank = bytes.indexOf(' ', start);
    bool ok = false;
    const int length = bytes.mid(start, std::min(blank - start, 10)).toInt(&ok);
    const int equals = bytes.indexOf('=', blank);
    if (blank < 0 || !ok || length > bytes.size() - start || equals < 0 ||
        equals >= start + length || bytes[start + length - 1] != '\n') {
      return false;
    }
    const QByteArray key = bytes.mid(blank + 1, equals - blank - 1);
    if (!apply(key, bytes.mid(equals + 1, start + length - equals - 2), record)) {
      return false;
    }
    start += length;
  }
  return true;
}

}  // namespace Kyr::Tar
