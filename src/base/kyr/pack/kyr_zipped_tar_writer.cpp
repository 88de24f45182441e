#include <kyr/pack/KyrZippedTar.h>

#include <kyr/core/KyrException.h>
#include <kyr/os/KyrOS.h>
#include <kyr/os/os_file_p.h>
#include <kyr/os/os_reason_p.h>
#include <kyr/pack/tar_files_p.h>
#include <kyr/pack/tar_header_p.h>
#include <kyr/pack/tar_target_p.h>

#include <QDir>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ios>
#include <new>

namespace Kyr {

namespace {

constexpr auto binaryInput = std::ios_base::in | std::ios_base::binary;

/// Reads as much as there is, and fills the rest of the room with zeros.
/// \return whether there was enough
bool fill(std::filebuf& in, unsigned char* room, std::size_t count) {
  std::size_t got = 0;
  try {
    // The buffer is read and not the stream, which would keep the lack of memory to itself.
    const auto wanted = static_cast<std::streamsize>(count);
    got = static_cast<std::size_t>(in.sgetn(reinterpret_cast<char*>(room), wanted));
  } catch (const std::ios_base::failure&) {
    got = 0;  // the library's way to say that reading failed
  }
  std::memset(room + got, 0, count - got);
  return got == count;
}

/// The system's reason; to be asked for right after the failure.
/// \throws std::bad_alloc for the lack of memory, which is no fault of a file
QString reasonOfFailure() {
  const Platform::SystemError error = Platform::lastError();
  if (error.known == ENOMEM) {
    throw std::bad_alloc();
  }
  return "cannot be read: " + Platform::inWords(error);
}

/// Why something is no file that could be added.
QString reasonOf(const TarFiles::Facts& facts) {
  if (facts.isBroken) {
    return "a link that cannot be followed: " + Platform::inWords(Platform::lastError());
  }
  if (facts.isDirectory) {
    return facts.isLink ? "a link to a directory, which is not followed" : "a directory";
  }
  return "neither a file nor a directory";
}

}  // namespace

ZippedTarWriter::ZippedTarWriter(StructVector<unsigned char>* out)
    : _target(TarTarget::inMemory(out)) {}

ZippedTarWriter::ZippedTarWriter(const QString& fileName) : _target(TarTarget::inFile(fileName)) {
  _traced.setDetail(fileName);
  leaveOut(fileName);
}

ZippedTarWriter::ZippedTarWriter(std::ostream* target)
    : _target(TarTarget::onStream(target, "archive")) {}

ZippedTarWriter::ZippedTarWriter(StructVector<unsigned char>* out, const ZipPieces& pieces)
    : _target(TarTarget::inMemory(out, &pieces)) {}

ZippedTarWriter::ZippedTarWriter(const QString& fileName, const ZipPieces& pieces)
    : _target(TarTarget::inFile(fileName, &pieces)) {
  _traced.setDetail(fileName);
  leaveOut(fileName);
}

ZippedTarWriter::ZippedTarWriter(std::ostream* target, const ZipPieces& pieces)
    : _target(TarTarget::onStream(target, "archive", &pieces)) {}

ZippedTarWriter::~ZippedTarWriter() {
  try {
    _hasEnd ? flush() : _target->abandon();
  } catch (...) {
    // An archive without its end is visibly incomplete.
  }
}

/// Writes an entry's header.
/// \return why the entry does not fit; empty when it was written
QString ZippedTarWriter::writeHeader(const QString& name, std::int64_t modified,
                                     std::int64_t size) {
  if (_hasEnd) {
    return "the archive has its end already";
  }
  const Tar::Entry entry{name.toUtf8(), modified, size};
  if (name.contains(QChar::Null)) {
    return "its name in the archive holds a zero";
  }
  if (_taking == TakeAll) {
    if (name.isEmpty() || name.endsWith('/')) {
      return "its name in the archive is that of a directory";
    }
    const QByteArray headers = Tar::makeHeaders(entry);
    _target->write(reinterpret_cast<const unsigned char*>(headers.constData()),
                   static_cast<std::size_t>(headers.size()));
    return {};
  }
  Tar::Block header;
  if (const char* const reason = Tar::makeHeader(header, entry)) {
    return reason;
  }
  _target->write(header.data(), header.size());
  return {};
}

QString ZippedTarWriter::addStream(std::ifstream& in, const QString& name, std::int64_t modified,
                                   std::int64_t size) {
  QString reason = writeHeader(name, modified, size);
  if (!reason.isEmpty()) {
    return reason;
  }
  return copyContent(in, size)
             ? QString()
             : "cannot be read to the size that it had: its end in the archive is "
               "filled up with zeros";
}

/// Writes as many bytes as the header has promised, whatever has become of the file.
bool ZippedTarWriter::copyContent(std::ifstream& in, std::int64_t size) {
  bool complete = true;
  for (std::int64_t left = size; left > 0;) {
    const auto portion =
        static_cast<std::size_t>(std::min<std::int64_t>(left, std::int64_t(_target->roomSize())));
    complete = fill(*in.rdbuf(), _target->room(), portion) && complete;
    _target->added(portion);
    left -= std::int64_t(portion);
    if (_watcher) {
      _watcher(portion);
    }
  }
  fillLastBlock(size);
  return complete;
}

/// Fills the last block of an entry with zeros.
/// \param size of the content that has been written
void ZippedTarWriter::fillLastBlock(std::int64_t size) {
  constexpr Tar::Block zeros{};
  const auto rest = static_cast<std::size_t>(size % Tar::blockSize);
  _target->write(zeros.data(), rest > 0 ? Tar::blockSize - rest : 0);
}

/// Notes the loss of an entry for a reason, if there is one; throws unless all is taken.
/// \return whether the entry was added
bool ZippedTarWriter::expectAdded(const QString& path, const QString& reason) {
  if (reason.isEmpty()) {
    return true;
  }
  _losses.push_back({path, reason});
  if (_taking == RefuseUnfit) {
    throw Exception(path);
  }
  return false;
}

void ZippedTarWriter::addFile(const QString& path, const QString& name) {
  TarFiles::Facts facts;
  const QString unexamined = TarFiles::examine(path, facts) ? QString() : reasonOfFailure();
  if (expectAdded(path, unexamined)) {
    expectAdded(path, addIfReadable(path, facts, name));
  }
}

/// Adds a file that can be opened.
/// \return why it cannot be opened; empty otherwise
/// \throws as addFile() what comes afterwards
QString ZippedTarWriter::addIfReadable(const QString& path, const TarFiles::Facts& facts,
                                       const QString& name) {
  if (!facts.isFile) {
    return reasonOf(facts);  // opening a pipe would wait for its writer
  }
  std::ifstream in;
  // OS would look once more whether it is a directory.
  if (!Platform::openBuffer(*in.rdbuf(), path, binaryInput, true)) {
    return reasonOfFailure();
  }
  if (expectAdded(path, addStream(in, name, facts.modified, facts.size))) {
    ++_fileCount;
  }
  return {};
}

void ZippedTarWriter::addDirectory(const QString& dir, bool recursive, const QString& prefix) {
  QStringList entries;
  const QString unread = OS::readDirectory(dir, &entries) ? QString() : reasonOfFailure();
  if (expectAdded(dir, unread)) {
    addEntries(TarFiles::absolute(dir), entries, recursive, prefix);
  }
}

void ZippedTarWriter::addEntries(const QString& dir, const QStringList& entries, bool recursive,
                                 const QString& prefix) {
  const QString start = dir.endsWith('/') ? dir : dir + '/';
  for (const QString& entry : entries) {
    addEntry(start + entry, recursive, prefix + "/" + entry);
  }
}

void ZippedTarWriter::leaveOut(const QString& fileName) {
  _leftOut.append(QDir::cleanPath(TarFiles::absolute(fileName)));
}

void ZippedTarWriter::addEntry(const QString& path, bool recursive, const QString& name) {
  if (_leftOut.contains(QDir::cleanPath(path))) {
    return;
  }
  TarFiles::Facts facts;
  QStringList entries;
  QString unread;
  if (!TarFiles::examine(path, facts)) {
    unread = reasonOfFailure();
  } else if (facts.isFile) {
    unread = addIfReadable(path, facts, name);
  } else if (facts.isDirectory && !facts.isLink) {
    unread = !recursive || OS::readDirectory(path, &entries) ? QString() : reasonOfFailure();
    addEntries(path, entries, recursive, name);
  } else if (_taking == TakeAll && (recursive || !facts.isDirectory)) {
    _losses.push_back({path, reasonOf(facts)});
  }
  if (!unread.isEmpty()) {
    _unread.append(path);
    _losses.push_back({path, unread});
  }
}

void ZippedTarWriter::addEof() {
  constexpr Tar::Block zeros{};
  _target->write(zeros.data(), zeros.size());
  _target->write(zeros.data(), zeros.size());
  _hasEnd = true;
}

void ZippedTarWriter::flush() {
  _target->finish();
  _traced.end();
}

void ZippedTarWriter::addContents(const QString& name, const QByteArray& contents,
                                  std::int64_t modified) {
  if (expectAdded(name, writeHeader(name, modified, contents.size()))) {
    _target->write(reinterpret_cast<const unsigned char*>(contents.constData()),
                   static_cast<std::size_t>(contents.size()));
    fillLastBlock(contents.size());
    ++_fileCount;
  }
}

}  // namespace Kyr
