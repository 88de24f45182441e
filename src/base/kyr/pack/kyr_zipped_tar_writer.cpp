#include <kyr/pack/KyrZippedTar.h>

#include <kyr/core/KyrException.h>
#include <kyr/os/KyrOS.h>
#include <kyr/os/os_file_p.h>
#include <kyr/pack/tar_files_p.h>
#include <kyr/pack/tar_header_p.h>
#include <kyr/pack/tar_target_p.h>

#include <QDir>

#include <algorithm>
#include <cstring>

namespace Kyr {

namespace {

constexpr auto binaryInput = std::ios_base::in | std::ios_base::binary;

/// Reads as much as there is, and fills the rest of the room with zeros.
/// \return whether there was enough
bool fill(std::ifstream& in, unsigned char* room, std::size_t count) {
  in.read(reinterpret_cast<char*>(room), static_cast<std::streamsize>(count));
  const auto got = static_cast<std::size_t>(in.gcount());
  std::memset(room + got, 0, count - got);
  return got == count;
}

}  // namespace

ZippedTarWriter::ZippedTarWriter(StructVector<unsigned char>* out)
    : _target(TarTarget::inMemory(out)) {}

ZippedTarWriter::ZippedTarWriter(const QString& fileName) : _target(TarTarget::inFile(fileName)) {
  leaveOut(fileName);
}

ZippedTarWriter::ZippedTarWriter(std::ostream* target)
    : _target(TarTarget::onStream(target, "archive")) {}

ZippedTarWriter::~ZippedTarWriter() {
  try {
    flush();
  } catch (...) {
    // Without its end the archive is visibly incomplete.
  }
}

bool ZippedTarWriter::addStream(std::ifstream& in, const QString& name, std::int64_t modified,
                                std::int64_t size) {
  Tar::Block header;
  if (name.contains(QChar::Null) || !Tar::makeHeader(header, name.toUtf8(), modified, size)) {
    return false;
  }
  _target->write(header.data(), header.size());
  return copyContent(in, size);
}

/// Writes what the header has promised, whatever has become of the file.
bool ZippedTarWriter::copyContent(std::ifstream& in, std::int64_t size) {
  bool complete = true;
  for (std::int64_t left = size; left > 0;) {
    const auto portion =
        static_cast<std::size_t>(std::min<std::int64_t>(left, std::int64_t(_target->roomSize())));
    complete = fill(in, _target->room(), portion) && complete;
    _target->added(portion);
    left -= std::int64_t(portion);
  }
  constexpr Tar::Block zeros{};
  const auto rest = static_cast<std::size_t>(size % Tar::blockSize);
  _target->write(zeros.data(), rest > 0 ? Tar::blockSize - rest : 0);
  return complete;
}

void ZippedTarWriter::addFile(const QString& path, const QString& name) {
  TarFiles::Facts facts;
  if (!TarFiles::examine(path, facts) || !addIfReadable(path, facts, name)) {
    throw Exception(path);
  }
}

/// \return false when it is no plain file, where opening a pipe would wait for its writer, or
///         cannot be opened
bool ZippedTarWriter::addIfReadable(const QString& path, const TarFiles::Facts& facts,
                                    const QString& name) {
  std::ifstream in;
  // Not by OS, which would look once more whether it is a directory.
  if (!facts.isFile || !Platform::openBuffer(*in.rdbuf(), path, binaryInput, true)) {
    return false;
  }
  if (!addStream(in, name, facts.modified, facts.size)) {
    throw Exception(path);
  }
  ++_fileCount;
  return true;
}

void ZippedTarWriter::addDirectory(const QString& dir, bool recursive, const QString& prefix) {
  QStringList entries;
  if (!OS::readDirectory(dir, &entries)) {
    throw Exception(dir);
  }
  addEntries(TarFiles::absolute(dir), entries, recursive, prefix);
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
  const bool isThere = TarFiles::examine(path, facts);
  const bool isToBeListed = facts.isDirectory && recursive && !facts.isLink;
  if (isToBeListed && OS::readDirectory(path, &entries)) {
    addEntries(path, entries, recursive, name);
  } else if (!isThere || isToBeListed || (facts.isFile && !addIfReadable(path, facts, name))) {
    _unread.append(path);
  }
}

void ZippedTarWriter::addEof() {
  constexpr Tar::Block zeros{};
  _target->write(zeros.data(), zeros.size());
  _target->write(zeros.data(), zeros.size());
}

void ZippedTarWriter::flush() {
  _target->finish();
}

void ZippedTarWriter::addContents(const QString& name, const QByteArray& contents,
                                  std::int64_t modified) {
  Tar::Block header;
  if (name.contains(QChar::Null) ||
      !Tar::makeHeader(header, name.toUtf8(), modified, contents.size())) {
    throw Exception(name);
  }
  const auto size = static_cast<std::size_t>(contents.size());
  constexpr Tar::Block zeros{};
  _target->write(header.data(), header.size());
  _target->write(reinterpret_cast<const unsigned char*>(contents.constData()), size);
  _target->write(zeros.data(), (Tar::blockSize - size % Tar::blockSize) % Tar::blockSize);
  ++_fileCount;
}

}  // namespace Kyr
