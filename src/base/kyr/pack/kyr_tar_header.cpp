#include <kyr/pack/tar_header_p.h>
#include <kyr/text/utf8_p.h>

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
constexpr Field linkField{157, 100};
constexpr Field magicField{257, 6};
constexpr Field versionField{263, 2};
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

/// The text of a field, up to its first zero byte.
QByteArray textIn(const Block& block, Field field) {
  const QByteArray bytes = bytesIn(block, field);
  const auto end = bytes.indexOf('\0');
  return end < 0 ? bytes : bytes.left(end);
}

constexpr int longestName = static_cast<int>(nameField.size) - 1;
/// The largest size or time that the octal digits of a header hold.
constexpr std::int64_t largest = (std::int64_t{1} << 3U * (sizeField.size - 1)) - 1;
static_assert(sizeField.size == timeField.size);

QByteArray octal(std::int64_t number, int digits) {
  return QByteArray::number(static_cast<qlonglong>(number), 8).rightJustified(digits, '0');
}

/// The sum of a header's bytes, of which those of the checksum count as blanks.
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

/// A number that octal digits cannot hold, as GNU tar writes it: lowest byte last, the highest bit
/// set, and the next one for a negative number.
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

/// The number of octal digits among blanks; 0 of an empty field, as some programs leave fields
/// empty that do not matter.
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
  const qlonglong number = text.mid(0, text.indexOf('.')).toLongLong(&ok);
  return ok ? std::optional<std::int64_t>(number) : std::nullopt;
}

/// Applies what GNU tar says about sparse files, in all its versions.
/// \param key without the beginning that all such keys have
bool applySparse(const QByteArray& key, const QByteArray& value, SparseMap& map,
                 std::uint64_t& left) {
  map.isThere = true;
  if (key == "name") {
    map.name = value;
  } else if (key == "size" || key == "realsize") {
    map.size = wholeNumber(value).value_or(-1);
  } else if (key == "major") {
    map.isInContent = value == "1";
  } else if (key == "map" || key == "offset" || key == "numbytes") {
    return value.isEmpty() || readNumbers(value, ',', map.numbers, left);
  }
  return true;
}

bool apply(const QByteArray& key, const QByteArray& value, Record& record, std::uint64_t& left) {
  const QByteArray sparse = "GNU.sparse.";
  if (key == "path") {
    record.path = value;
  } else if (key == "linkpath") {
    record.linkPath = value;
  } else if (key == "size") {
    record.size = wholeNumber(value);
    return record.size.has_value() && *record.size >= 0;
  } else if (key == "mtime") {
    record.modified = wholeNumber(value);
  } else if (key.startsWith(sparse)) {
    return applySparse(key.mid(sparse.size()), value, record.sparse, left);
  }
  return true;
}

QByteArray recordOf(const QByteArray& key, const QByteArray& value) {
  const QByteArray rest = ' ' + key + '=' + value + '\n';
  auto length = rest.size() + 1;
  while (length != rest.size() + QByteArray::number(length).size()) {
    ++length;
  }
  return QByteArray::number(length) + rest;
}

/// The first letters of a text in UTF-8 that take at most so many bytes.
QByteArray startOf(const QByteArray& text, int size) {
  return text.left(
      int(Utf8::lengthOfStart(text.constData(), std::size_t(text.size()), std::size_t(size))));
}

/// As much of a name as a header has room for. It does not end in a separator, which would make it
/// the name of a directory for readers that look no further.
QByteArray nameForHeader(const QByteArray& name) {
  QByteArray start = startOf(name, longestName);
  while (start.endsWith('/')) {
    start.chop(1);
  }
  return start;
}

/// Fills a header, but for the checksum.
void fillHeader(Block& block, const Entry& entry, const QByteArray& type) {
  block.fill(0);
  store(block, nameField, entry.name);
  store(block, modeField, "0000644");
  store(block, ownerField, "0000000");
  store(block, groupField, "0000000");
  store(block, sizeField, octal(entry.size, sizeField.size - 1));
  store(block, timeField, octal(entry.modified, timeField.size - 1));
  store(block, typeField, type);
}

void storeChecksum(Block& block, std::int64_t sum) {
  store(block, checksumField, octal(sum, checksumDigits) + '\0' + ' ');
}

/// Sets the checksum: the signed sum, which the library's oldest versions take only, while all
/// others take both. It cannot be written when it is negative, and then is the unsigned one.
QByteArray finished(Block& block) {
  const std::int64_t sum = sumOf<signed char>(block);
  storeChecksum(block, sum < 0 ? sumOf<unsigned char>(block) : sum);
  return {reinterpret_cast<const char*>(block.data()), static_cast<int>(block.size())};
}

void markAsPosix(Block& block) {
  store(block, magicField, "ustar");
  store(block, versionField, "00");
}

/// An entry whose content is records about the next one.
QByteArray attributes(const Entry& about, const QByteArray& records) {
  const QByteArray folder = "PaxHeaders/";
  const Entry entry{folder + startOf(about.name, longestName - static_cast<int>(folder.size())),
                    about.modified, records.size()};
  Block block;
  fillHeader(block, entry, "x");
  markAsPosix(block);
  const auto blocks = (records.size() + int{blockSize} - 1) / int{blockSize};
  return finished(block) + records.leftJustified(blocks * int{blockSize}, '\0');
}

}  // namespace

const char* makeHeader(Block& block, const Entry& entry) {
  if (entry.name.size() > longestName) {
    return "its name in the archive has over 99 bytes";
  }
  if (entry.size < 0 || entry.size > largest) {
    return "it has 8 GiB or more";
  }
  if (entry.modified < 0 || entry.modified > largest) {
    return "it was changed before 1970 or after 2242";
  }
  fillHeader(block, entry, "0");
  // The signed sum, as ever: old readers of the library's archives know no other.
  const std::int64_t sum = sumOf<signed char>(block);
  if (sum < 0) {
    return "its name in the archive has so many letters beyond ASCII that the header's checksum is "
           "negative";
  }
  storeChecksum(block, sum);
  return nullptr;
}

QByteArray makeHeaders(const Entry& entry) {
  const Entry plain{nameForHeader(entry.name), std::clamp<std::int64_t>(entry.modified, 0, largest),
                    std::min(entry.size, largest)};
  QByteArray records;
  if (plain.name != entry.name) {
    records += recordOf("path", entry.name);
  }
  if (plain.size != entry.size) {
    records += recordOf("size", QByteArray::number(qlonglong{entry.size}));
  }
  if (plain.modified != entry.modified) {
    records += recordOf("mtime", QByteArray::number(qlonglong{entry.modified}));
  }
  Block block;
  fillHeader(block, plain, "0");
  if (records.isEmpty()) {
    return finished(block);
  }
  markAsPosix(block);
  return attributes(plain, records) + finished(block);
}

bool checksumFits(const Block& block) {
  const std::optional<std::int64_t> checksum = numberIn(block, checksumField);
  return checksum &&
         (*checksum == sumOf<unsigned char>(block) || *checksum == sumOf<signed char>(block));
}

bool isZero(const Block& block) {
  return std::all_of(block.begin(), block.end(), [](unsigned char byte) { return byte == 0; });
}

Kind_t kindOf(const Block& block) {
  switch (typeOf(block)) {
    case '\0':
    case '0':
    case '7':
      return File;
    case '1':
      return HardLink;
    case '2':
      return SoftLink;
    case '3':
    case '4':
      return Device;
    case '5':
      return Directory;
    case '6':
      return Pipe;
    case 'L':
      return LongName;
    case 'K':
      return LongLink;
    case 'x':
      return Attributes;
    case 'S':
      return SparseFile;
    case 'X':
    case 'g':
      return Aside;
    case 'D':
    case 'V':
      return NoFile;
    default:
      return Unknown;
  }
}

char typeOf(const Block& block) {
  return static_cast<char>(block[typeField.offset]);
}

QByteArray nameIn(const Block& block) {
  const QByteArray name = textIn(block, nameField);
  const bool isPosix = bytesIn(block, magicField) == QByteArray("ustar\0", 6);
  const QByteArray prefix = isPosix ? textIn(block, prefixField) : QByteArray();
  return prefix.isEmpty() ? name : prefix + '/' + name;
}

QByteArray linkIn(const Block& block) {
  return textIn(block, linkField);
}

std::optional<std::int64_t> sizeIn(const Block& block) {
  const std::optional<std::int64_t> size = numberIn(block, sizeField);
  return size && *size >= 0 ? size : std::nullopt;
}

std::int64_t modifiedIn(const Block& block) {
  return numberIn(block, timeField).value_or(0);
}

bool readSparseBlock(const Block& block, bool isFirst, SparseMap& map) {
  constexpr unsigned numberSize = 12;
  constexpr Field realSize{483, numberSize};
  const Field numbers = isFirst ? Field{386, 8 * numberSize} : Field{0, 42 * numberSize};
  const unsigned end = numbers.offset + numbers.size;  // this byte says whether more blocks follow
  for (unsigned at = numbers.offset; at < end && block[at] != 0; at += numberSize) {
    map.numbers.push_back(numberIn(block, {at, numberSize}).value_or(-1));
  }
  if (isFirst) {
    map.size = numberIn(block, realSize).value_or(-1);
  }
  return block[end] != 0;
}

// Each record is "25 path=directory/name\n", the number being its own length.
bool readRecords(const QByteArray& bytes, Record& record, std::uint64_t& left) {
  for (QByteArray::size_type start = 0; start < bytes.size();) {
    const auto blank = bytes.indexOf(' ', start);
    bool ok = false;
    const int length =
        bytes.mid(start, std::min<QByteArray::size_type>(blank - start, 10)).toInt(&ok);
    const auto equals = bytes.indexOf('=', blank);
    if (left == 0 || blank < 0 || !ok || length > bytes.size() - start || equals < 0 ||
        equals >= start + length || bytes[start + length - 1] != '\n') {
      return false;
    }
    const QByteArray key = bytes.mid(blank + 1, equals - blank - 1);
    --left;
    if (!apply(key, bytes.mid(equals + 1, start + length - equals - 2), record, left)) {
      return false;
    }
    start += length;
  }
  return true;
}

}  // namespace Kyr::Tar
