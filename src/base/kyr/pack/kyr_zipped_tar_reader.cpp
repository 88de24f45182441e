#include <kyr/pack/KyrZippedTar.h>

#include <kyr/core/KyrException.h>
#include <kyr/core/KyrProgError.h>
#include <kyr/os/KyrOS.h>
#include <kyr/pack/gzip_source_p.h>
#include <kyr/pack/tar_files_p.h>
#include <kyr/pack/tar_header_p.h>

#include <QDir>

#include <algorithm>
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
            std::vector<ZippedTarReader::File>& files)
      : _source(data, limits.totalSize), _entriesLeft(limits.entries), _files(files) {}

  /// \return whether the archive is good to its end
  bool run() {
    while (nextHeader()) {
      if (!readEntry()) {
        return false;
      }
    }
    return _good && _source.isComplete();
  }

 private:
  /// \return false at the end of the archive, and at a fault, which clears _good
  bool nextHeader() {
    const std::size_t count = _source.read(_header.data(), _header.size());
    if (count == 0) {
      return false;  // an archive without a mark of its end is whole if its gzip file is
    }
    if (count == _header.size() && Tar::isZero(_header)) {
      _source.drain();
      return false;
    }
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
    switch (Tar::kindOf(_header)) {
      case Tar::LongName:
        return readMetadata(count, _name);
      case Tar::Attributes:
        return readRecords(count);
      case Tar::File:
        return (_record.isSparse ? skip(count) : readFile(count)) && forget();
      case Tar::SparseFile:
        return skipSparseHeaders() && skip(count) && forget();
      case Tar::Aside:
        return skip(count);
      case Tar::WithContent:
        return skip(count) && forget();
      case Tar::WithoutContent:
        return forget();
    }
    return false;
  }

  std::optional<std::int64_t> sizeOfContent() const {
    return _record.size ? _record.size : Tar::sizeIn(_header);
  }

  bool readFile(std::uint64_t count) {
    const QByteArray name = !_record.path.isEmpty() ? _record.path
                            : !_name.isEmpty()      ? _name
                                                    : Tar::nameIn(_header);
    std::vector<unsigned char> contents;
    if (!readPadded(count, contents)) {
      return false;
    }
    _files.push_back({QString::fromUtf8(name), std::move(contents),
                      _record.modified.value_or(Tar::modifiedIn(_header))});
    return true;
  }

  bool readRecords(std::uint64_t count) {
    QByteArray bytes;
    return readMetadata(count, bytes) && Tar::readRecords(bytes, _record);
  }

  bool readMetadata(std::uint64_t count, QByteArray& bytes) {
    constexpr std::uint64_t largest = 1U << 20U;
    std::vector<unsigned char> contents;
    if (count > largest || !readPadded(count, contents)) {
      return false;
    }
    bytes = QByteArray(reinterpret_cast<const char*>(contents.data()), static_cast<int>(count));
    if (Tar::kindOf(_header) == Tar::LongName) {
      bytes.truncate(static_cast<int>(qstrnlen(bytes.constData(), static_cast<uint>(count))));
    }
    return true;
  }

  /// Reads a content and what fills its last block up.
  bool readPadded(std::uint64_t count, std::vector<unsigned char>& contents) {
    if (!_source.canHold(count) || count > contents.max_size()) {
      return false;
    }
    contents.resize(static_cast<std::size_t>(count));
    return _source.read(contents.data(), contents.size()) == count &&
           _source.skip(paddingOf(count));
  }

  bool skip(std::uint64_t count) {
    return _source.canHold(count) && _source.skip(count + paddingOf(count));
  }

  bool skipSparseHeaders() {
    bool goesOn = Tar::sparseHeaderGoesOn(_header, true);
    while (goesOn) {
      if (_source.read(_header.data(), _header.size()) < _header.size()) {
        return false;
      }
      goesOn = Tar::sparseHeaderGoesOn(_header, false);
    }
    return true;
  }

  /// What was said about an entry does not hold for the next one.
  bool forget() {
    _name.clear();
    _record = {};
    return true;
  }

  static std::uint64_t paddingOf(std::uint64_t count) {
    return (Tar::blockSize - count % Tar::blockSize) % Tar::blockSize;
  }

  GzipSource _source;
  unsigned _entriesLeft;
  std::vector<ZippedTarReader::File>& _files;
  Tar::Block _header{};
  QByteArray _name;
  Tar::Record _record;
  bool _good = true;
};

namespace {

/// Parts that some system takes for the directory above: "..", but also ".. " and "...".
bool leadsUp(const QString& part) {
  return part.size() > 1 &&
         std::all_of(part.begin(), part.end(), [](QChar c) { return c == '.' || c == ' '; });
}

/// Whether a name stays below the directory that it is put into, on every system.
bool isHarmless(const QString& name) {
  const QStringList parts = OS::convertSeparatorsToUnix(name).split('/');
  const bool hasDrive = name.size() > 1 && name[0].isLetter() && name[1] == ':';
  return !hasDrive && !parts.first().isEmpty() && !parts.last().isEmpty() && parts.last() != "." &&
         !name.contains(QChar::Null) && std::none_of(parts.begin(), parts.end(), leadsUp);
}

/// Whether files here can have such a name; harmless ones that cannot are devices, for example.
bool isPossible(const QString& name) {
  const QStringList parts = OS::convertSeparatorsToUnix(name).split('/');
  return std::all_of(parts.begin(), parts.end(), TarFiles::canBeName);
}

[[noreturn]] void refuse(const char* fault, const QString& what) {
  throw Exception(QString("%1: %2").arg(fault, what));
}

/// Makes room for a file: whatever is no plain file there, a link that leads elsewhere included,
/// must not be written to.
void makeRoom(const QString& path) {
  TarFiles::Facts facts;
  OS::mkdir(path.left(path.lastIndexOf('/')));
  if (TarFiles::examine(path, facts) && (facts.isLink || !facts.isFile)) {
    OS::unlink(path);
  }
}

bool writeFile(const QString& path, const std::vector<unsigned char>& contents) {
  std::ofstream stream;
  OS::openStdStream(stream, path, OS::OpenWrite, true);
  stream.write(reinterpret_cast<const char*>(contents.data()),
               static_cast<std::streamsize>(contents.size()));
  stream.close();
  return stream.good();
}

}  // namespace

ZippedTarReader::ZippedTarReader(const StructVector<unsigned char>& data,
                                 const ZippedTarLimits& limits) {
  try {
    _valid = TarParser(data, limits, _files).run();
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

void ZippedTarReader::extractTo(const QString& directory) const {
  if (!isValid()) {
    throw Exception("the archive is damaged or larger than allowed");
  }
  for (const File& file : _files) {
    if (!isHarmless(file.name)) {
      refuse("a name in the archive leads out of the directory", file.name);
    }
    if (!isPossible(file.name)) {
      refuse("this system has no files of such a name", file.name);
    }
  }
  if (!OS::mkdir(directory)) {
    refuse("cannot make the directory", directory);
  }
  for (const File& file : _files) {
    const QString path = directory + "/" + QDir::fromNativeSeparators(file.name);
    makeRoom(path);
    if (!writeFile(path, file.contents)) {
      refuse("cannot write", path);
    }
    TarFiles::setModified(path, file.modified);
  }
}

}  // namespace Kyr
