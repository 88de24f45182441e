#include <kyr/pack/KyrZippedTar.h>

#include <kyr/core/KyrProgError.h>
#include <kyr/pack/gzip_source_p.h>
#include <kyr/pack/tar_header_p.h>
#include <kyr/trace/KyrTrace.h>

#include <QHash>

#include <new>
#include <utility>

namespace Kyr {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr unsigned GetFile = 121, GetName = 130, GetContents = 134, GetModificationTime = 138;
constexpr const char* File = "kyr_zipped_tar_reader";
}  // namespace site

/// Splits the stream of an archive into its files.
class TarParser {
 public:
  TarParser(const StructVector<unsigned char>& data, const ZippedTarLimits& limits,
            ZippedTarReader& reader, const ZippedTarReader::Watcher& watcher)
      : _source(data, limits.totalSize,
                [&reader, &watcher](std::size_t bytes) { watcher(bytes, reader.size()); }),
        _entriesLeft(limits.entries),
        _recordsLeft(limits.records),
        _reader(reader) {}

  /// \return whether the archive is good to the mark of its end
  bool run() {
    while (nextHeader()) {
      if (!readEntry()) {
        return false;
      }
    }
    return _good && _source.isComplete();
  }

 private:
  static constexpr std::uint64_t largestMetadata = 1U << 20U;

  /// \return false at the end of the archive, and at a fault, which clears _good
  bool nextHeader() {
    const std::size_t count = _source.read(_header.data(), _header.size());
    if (count == _header.size() && Tar::isZero(_header)) {
      _source.drain();
      return false;
    }
    // An archive that ends with the gzip data, without the mark of its end, was not finished.
    _good = count == _header.size() && _entriesLeft > 0 && Tar::checksumFits(_header);
    --_entriesLeft;
    return _good;
  }

  bool readEntry() {
    const std::optional<std::int64_t> size = sizeOfContent();
    if (!size) {
      return false;
    }
    const auto count = static_cast<std::uint64_t>(*size);
    switch (kind()) {
      case Tar::LongName:
        return readText(count, _name);
      case Tar::LongLink:
        return readText(count, _link);
      case Tar::Attributes:
        return readRecords(count);
      case Tar::File:
        return (_record.sparse.isThere ? readSparse(count) : readFile(count)) && forget();
      case Tar::SparseFile:
        return readSparseHeaders() && readSparse(count) && forget();
      case Tar::HardLink:
        return copyEarlierFile() && forget();
      case Tar::Directory:
        _reader._directories.push_back(QString::fromUtf8(name()));
        return forget();
      case Tar::Aside:
        return skip(count);
      case Tar::NoFile:
        return skip(count) && forget();
      case Tar::SoftLink:
        return lose("a link to " + QString::fromUtf8(link())) && forget();
      case Tar::Device:
        return lose("a device") && forget();
      case Tar::Pipe:
        return lose("a pipe") && forget();
      case Tar::Unknown:
        return skip(count) && lose(unknownType()) && forget();
    }
    return false;
  }

  /// What the entry is. The oldest programs know directories by a separator at the end of their
  /// names; the whole name counts, as a header may hold the start of a longer one, up to a
  /// separator.
  Tar::Kind_t kind() const {
    const Tar::Kind_t kind = Tar::kindOf(_header);
    return kind == Tar::File && name().endsWith('/') ? Tar::Directory : kind;
  }

  std::optional<std::int64_t> sizeOfContent() const {
    return _record.size ? _record.size : Tar::sizeIn(_header);
  }

  QByteArray name() const {
    return !_record.sparse.name.isEmpty() ? _record.sparse.name
           : !_record.path.isEmpty()      ? _record.path
           : !_name.isEmpty()             ? _name
                                          : Tar::nameIn(_header);
  }

  QByteArray link() const {
    return !_record.linkPath.isEmpty() ? _record.linkPath
           : !_link.isEmpty()          ? _link
                                       : Tar::linkIn(_header);
  }

  QString unknownType() const {
    return QString("an entry of the unknown type %1")
        .arg(static_cast<unsigned char>(Tar::typeOf(_header)));
  }

  bool lose(const QString& reason) {
    _reader._losses.push_back({QString::fromUtf8(name()), reason});
    return true;
  }

  bool addFile(std::vector<unsigned char>&& contents) {
    const QByteArray file = name();
    _indices[file] = _reader._files.size();
    _reader._files.push_back({QString::fromUtf8(file), std::move(contents),
                              _record.modified.value_or(Tar::modifiedIn(_header))});
    return true;
  }

  bool readFile(std::uint64_t count) {
    std::vector<unsigned char> contents;
    return readPadded(count, contents) && addFile(std::move(contents));
  }

  /// Adds a hard link as a file of its own, as it counts when it is written.
  bool copyEarlierFile() {
    const auto found = _indices.constFind(link());
    if (found == _indices.constEnd()) {
      return lose(QString("a further name of %1, which is no file in the archive before it")
                      .arg(QString::fromUtf8(link())));
    }
    const std::vector<unsigned char>& original = _reader._files[*found].contents;
    return _source.spend(original.size()) && addFile(std::vector<unsigned char>(original));
  }

  bool readSparseHeaders() {
    Tar::SparseMap& map = _record.sparse;
    bool goesOn = Tar::readSparseBlock(_header, true, map);
    Tar::Block more{};
    while (goesOn && map.numbers.size() <= _recordsLeft) {
      if (_source.read(more.data(), more.size()) < more.size()) {
        return false;
      }
      goesOn = Tar::readSparseBlock(more, false, map);
    }
    const bool isAllowed = map.numbers.size() <= _recordsLeft;
    _recordsLeft -= isAllowed ? map.numbers.size() : 0;
    return isAllowed;
  }

  /// Reads the data of a sparse file to their places among zeros.
  /// \param count of the bytes in the archive, which may begin with the map
  bool readSparse(std::uint64_t count) {
    Tar::SparseMap& map = _record.sparse;
    if ((map.isInContent && !readMap(count)) || !Tar::fits(map, static_cast<std::int64_t>(count))) {
      return skip(count) && lose("a sparse file of a kind that is not known here");
    }
    std::vector<unsigned char> contents;
    const auto size = static_cast<std::uint64_t>(map.size);
    if (!_source.spend(size - count) || !_source.canHold(count) || !setSize(contents, size)) {
      return false;
    }
    for (std::size_t i = 0; i < map.numbers.size(); i += 2) {
      const auto portion = static_cast<std::size_t>(map.numbers[i + 1]);
      if (portion > 0 &&
          _source.read(&contents[static_cast<std::size_t>(map.numbers[i])], portion) < portion) {
        return false;
      }
    }
    return _source.skip(paddingOf(count)) && addFile(std::move(contents));
  }

  /// Reads how many parts there are, and then where; in lines that fill whole blocks.
  bool readMap(std::uint64_t& count) {
    QByteArray text;
    std::uint64_t lines = 0;
    std::uint64_t wanted = 1;
    while (lines < wanted) {
      Tar::Block block{};
      if (count < block.size() || text.size() > int{largestMetadata} ||
          _source.read(block.data(), block.size()) < block.size()) {
        return false;
      }
      count -= block.size();
      for (auto byte = block.begin(); byte != block.end() && lines < wanted; ++byte) {
        text += static_cast<char>(*byte);
        if (*byte == '\n' && ++lines == 1) {
          wanted += 2 * std::uint64_t{text.trimmed().toUInt()};
        }
      }
    }
    text.chop(1);
    std::vector<std::int64_t>& numbers = _record.sparse.numbers;
    numbers.clear();
    const bool isRead = Tar::readNumbers(text, '\n', numbers, _recordsLeft);
    numbers.erase(numbers.begin(), numbers.begin() + (isRead ? 1 : 0));
    return isRead;
  }

  bool readRecords(std::uint64_t count) {
    QByteArray bytes;
    return readMetadata(count, bytes) && Tar::readRecords(bytes, _record, _recordsLeft);
  }

  /// Reads a text that a zero may end.
  bool readText(std::uint64_t count, QByteArray& text) {
    const bool isRead = readMetadata(count, text);
    text.truncate(static_cast<int>(qstrnlen(text.constData(), static_cast<uint>(text.size()))));
    return isRead;
  }

  bool readMetadata(std::uint64_t count, QByteArray& bytes) {
    std::vector<unsigned char> contents;
    if (count > largestMetadata || !readPadded(count, contents)) {
      return false;
    }
    bytes = QByteArray(reinterpret_cast<const char*>(contents.data()), static_cast<int>(count));
    return true;
  }

  /// Reads a content and what fills its last block up.
  bool readPadded(std::uint64_t count, std::vector<unsigned char>& contents) {
    return _source.canHold(count) && setSize(contents, count) &&
           _source.read(contents.data(), contents.size()) == count &&
           _source.skip(paddingOf(count));
  }

  static bool setSize(std::vector<unsigned char>& contents, std::uint64_t size) {
    const bool isPossible = size <= contents.max_size();
    contents.resize(isPossible ? static_cast<std::size_t>(size) : 0);
    return isPossible;
  }

  bool skip(std::uint64_t count) {
    return _source.canHold(count) && _source.skip(count + paddingOf(count));
  }

  /// Drops what was said about an entry, which does not hold for the next one.
  bool forget() {
    _name.clear();
    _link.clear();
    _record = {};
    return true;
  }

  static std::uint64_t paddingOf(std::uint64_t count) {
    return (Tar::blockSize - count % Tar::blockSize) % Tar::blockSize;
  }

  GzipSource _source;
  unsigned _entriesLeft;
  std::uint64_t _recordsLeft;
  ZippedTarReader& _reader;
  // The index of each name among the files so far, the last of several of one name. By the bytes of
  // the name: as texts, names that are no UTF-8 look alike.
  QHash<QByteArray, std::size_t> _indices;
  Tar::Block _header{};
  QByteArray _name;
  QByteArray _link;
  Tar::Record _record;
  bool _good = true;
};

ZippedTarReader::ZippedTarReader(const StructVector<unsigned char>& data,
                                 const ZippedTarLimits& limits)
    : ZippedTarReader(data, limits, [](std::uint64_t, unsigned) {}) {}

ZippedTarReader::ZippedTarReader(const StructVector<unsigned char>& data,
                                 const ZippedTarLimits& limits, const Watcher& watcher) {
  const TraceSpan span("ZippedTarReader", "read");
  try {
    _valid = TarParser(data, limits, *this, watcher).run();
  } catch (const std::bad_alloc&) {
    _valid = false;
  }
}

ZippedTarReader::~ZippedTarReader() = default;

const ZippedTarReader::File& ZippedTarReader::at(unsigned int index, const char* function,
                                                 unsigned line) const {
  if (index >= _files.size()) {
    throw ProgError(function, site::File, line, "Invalid file index");
  }
  return _files[index];
}

void ZippedTarReader::getFile(unsigned int index, QString* name,
                              std::vector<unsigned char>* contents) const {
  const File& file = at(index, "Kyr::ZippedTarReader::getFile", site::GetFile);
  *name = file.name;
  *contents = file.contents;
}

const QString& ZippedTarReader::getName(unsigned int index) const {
  return at(index, "Kyr::ZippedTarReader::getName", site::GetName).name;
}

const std::vector<unsigned char>& ZippedTarReader::getContents(unsigned int index) const {
  return at(index, "Kyr::ZippedTarReader::getContents", site::GetContents).contents;
}

std::int64_t ZippedTarReader::getModificationTime(unsigned int index) const {
  return at(index, "Kyr::ZippedTarReader::getModificationTime", site::GetModificationTime).modified;
}

}  // namespace Kyr
