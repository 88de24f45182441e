#include "commands.h"
#include "input.h"
#include "json.h"
#include "output.h"
#include "pieces.h"
#include "target.h"

#include <kyr/core/KyrException.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/jobs/KyrProgressScope.h>
#include <kyr/jobs/KyrStopToken.h>
#include <kyr/os/KyrOS.h>
#include <kyr/pack/KyrZippedTar.h>

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QJsonArray>

#include <iostream>
#include <memory>
#include <new>
#include <streambuf>
#include <vector>

namespace KyrTool {

namespace {

using Bytes = Kyr::StructVector<unsigned char>;

/// How long the steps take beside each other, of an archive like most; to read it is 1.
constexpr std::uint64_t unpackWeight = 8, extractWeight = 4;

/// \throws FileError, Kyr::Stopped
Bytes readAll(const QString& name) {
  Input input(name);
  constexpr std::size_t pieceSize = 1U << 20U;
  Bytes all;
  Bytes piece;
  do {
    input.read(piece, pieceSize);
    all.append(piece.data(), piece.size());
  } while (piece.size() == pieceSize);
  return all;
}

/// Reads and unpacks the archive.
/// \throws FileError, Kyr::Stopped
Kyr::ZippedTarReader read(const Arguments& arguments) {
  constexpr unsigned mebibyte = 1U << 20U;
  Kyr::ZippedTarLimits limits;
  const auto byDefault = static_cast<unsigned>(limits.totalSize / mebibyte);
  limits.totalSize = std::uint64_t(arguments.number("limit", 1, 1U << 20U, byDefault)) * mebibyte;
  const Bytes packed = readAll(arguments[0]);
  Kyr::ProgressScope progress("unpack", packed.size(), unpackWeight);
  return Kyr::ZippedTarReader(packed, limits, [&](std::uint64_t bytes, unsigned) {
    progress.step(bytes);
    Kyr::throwIfStopped();
  });
}

std::uint64_t sizeOf(const Kyr::ZippedTarReader& reader) {
  std::uint64_t size = 0;
  for (unsigned i = 0; i < reader.size(); ++i) {
    size += reader.getContents(i).size();
  }
  return size;
}

/// \throws FileError, Kyr::Stopped
void extract(const Kyr::ZippedTarReader& reader, const Arguments& arguments) {
  Kyr::ProgressScope progress("extract", sizeOf(reader), extractWeight);
  unsigned filesDone = 0;
  try {
    reader.extractTo(arguments.count() > 1 ? arguments[1] : QString("."),
                     arguments.has("force") ? Kyr::OS::ReplaceExisting : Kyr::OS::KeepExisting,
                     [&](std::uint64_t bytes, unsigned files) {
                       filesDone = files;
                       progress.step(bytes);
                       Kyr::throwIfStopped();
                     });
  } catch (const Kyr::Stopped&) {
    printError(Kyr::translate("Kyr_tool", "%1: files that are written: %2 of %3")
                   .arg(arguments[0], QString::number(filesDone), QString::number(reader.size())));
    throw;
  } catch (const Kyr::Exception& error) {
    throw FileError{printable(error.getText())};
  }
}

FileError damaged(const QString& name) {
  return {Kyr::translate("Kyr_tool", "%1: no complete tar.gz, or larger than --limit allows")
              .arg(printable(name))};
}

QString timeOf(const Kyr::ZippedTarReader& reader, unsigned index) {
  // The years 1 to 9999 are shown; an archive may claim any.
  constexpr qint64 earliest = -62135596800, latest = 253402300799;
  const qint64 seconds = qBound(earliest, qint64(reader.getModificationTime(index)), latest);
  return QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC).toString(Qt::ISODate);
}

void showFile(const Kyr::ZippedTarReader& reader, unsigned index) {
  print(QString("%1  %2  %3\n")
            .arg(reader.getContents(index).size(), 10)
            .arg(timeOf(reader, index), printable(reader.getName(index))));
}

QJsonObject jsonOf(const QString& archive, const Kyr::ZippedTarReader& reader) {
  QJsonArray files;
  for (unsigned i = 0; i < reader.size(); ++i) {
    files += QJsonObject{{"name", reader.getName(i)},
                         {"size", jsonNumber(reader.getContents(i).size())},
                         {"modified", timeOf(reader, i)}};
  }
  QJsonArray leftOut;
  for (const Kyr::ZippedTarLoss& loss : reader.getLosses()) {
    leftOut += QJsonObject{{"name", loss.name}, {"reason", loss.reason}};
  }
  return {
      {"file", archive}, {"complete", reader.isValid()}, {"files", files}, {"leftOut", leftOut}};
}

/// What a file or directory is called in the archive: never by a name that leads out of the
/// directory into which somebody extracts it.
QString nameInArchive(const QString& path) {
  QString name = QDir::cleanPath(QDir::fromNativeSeparators(path));
  for (int start = -1; start != 0;) {
    const bool hasDrive = name.size() > 1 && name[0].isLetter() && name[1] == ':';
    start = hasDrive ? 2 : name.startsWith('/') ? 1 : name.startsWith("../") ? 3 : 0;
    name.remove(0, start);
  }
  return name.isEmpty() || name == ".." ? QString(".") : name;
}

void add(Kyr::ZippedTarWriter& writer, const QString& path) {
  Kyr::OS::FileStatus status;
  if (Kyr::OS::stat(path, &status) && status.isDirectory) {
    writer.addDirectory(path, true, nameInArchive(path));
  } else {
    writer.addFile(path, nameInArchive(path));
  }
}

/// Names on standard error what an archive is without.
void report(const std::vector<Kyr::ZippedTarLoss>& losses) {
  for (const Kyr::ZippedTarLoss& loss : losses) {
    printError(loss.name + ": " + loss.reason);
  }
}

std::unique_ptr<Kyr::ZippedTarWriter> makeWriter(std::ostream& output, const Arguments& arguments) {
  return wantsPieces(arguments)
             ? std::make_unique<Kyr::ZippedTarWriter>(&output, piecesOf(arguments))
             : std::make_unique<Kyr::ZippedTarWriter>(&output);
}

/// How many bytes the files below a path have; of files that grow or go meanwhile, about.
std::uint64_t sizeOf(const QString& path) {
  std::uint64_t size = static_cast<std::uint64_t>(QFileInfo(path).size());
  QDirIterator below(path, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
  while (below.hasNext() && !Kyr::isStopped()) {
    below.next();
    size += static_cast<std::uint64_t>(below.fileInfo().size());
  }
  return size;
}

std::uint64_t sizeOfAll(const Arguments& arguments) {
  std::uint64_t size = 0;
  for (int i = 1; i < arguments.count(); ++i) {
    size += sizeOf(arguments[i]);
  }
  return size;
}

/// Writes an archive of whatever can be read, and names the rest.
/// \param output takes the archive; whoever looks after it reports its failures
/// \return whether nothing is missing
/// \throws FileError when there is no memory, or nothing for the archive
bool create(const Arguments& arguments, std::ostream& output, const QStringList& leftOut) {
  const std::unique_ptr<Kyr::ZippedTarWriter> made = makeWriter(output, arguments);
  Kyr::ZippedTarWriter& writer = *made;
  writer.setTaking(Kyr::ZippedTarWriter::TakeAll);
  for (const QString& name : leftOut) {
    writer.leaveOut(name);
  }
  Kyr::ProgressScope progress("pack", sizeOfAll(arguments));
  writer.setWatcher([&](std::uint64_t bytes) { progress.step(bytes); });
  for (int i = 1; i < arguments.count(); ++i) {
    Kyr::ProgressScope::setText(arguments[i]);
    add(writer, arguments[i]);
  }
  report(writer.getLosses());
  if (writer.getFileCount() == 0 && !writer.getLosses().empty()) {
    throw FileError{
        Kyr::translate("Kyr_tool", "%1: not written, as nothing is left for it").arg(arguments[0])};
  }
  writer.addEof();
  writer.flush();
  return writer.getLosses().empty();
}

/// \return as create(); true when the output has failed, which is reported later
bool tryToCreate(const Arguments& arguments, std::ostream& output, const QStringList& leftOut) {
  try {
    return create(arguments, output, leftOut);
  } catch (const std::bad_alloc&) {
    if (output) {
      throw FileError{
          Kyr::translate("Kyr_tool", "%1: there is not enough memory").arg(arguments[0])};
    }
  } catch (const Kyr::Exception& error) {
    if (output) {
      throw FileError{printable(error.getText())};
    }
  }
  return true;
}

/// Passes bytes on to another buffer, until work is to stop: then it fails.
class StoppableBuffer : public std::streambuf {
 public:
  explicit StoppableBuffer(std::streambuf* target) : _target(target) {}

 protected:
  int_type overflow(int_type character) override {
    return Kyr::isStopped() ? traits_type::eof()
                            : _target->sputc(traits_type::to_char_type(character));
  }
  std::streamsize xsputn(const char* bytes, std::streamsize count) override {
    return Kyr::isStopped() ? 0 : _target->sputn(bytes, count);
  }
  int sync() override { return _target->pubsync(); }

 private:
  std::streambuf* const _target;
};

/// \throws Kyr::Stopped
bool createUntilStopped(const Arguments& arguments, std::ostream& target,
                        const QStringList& leftOut) {
  StoppableBuffer buffer(target.rdbuf());
  std::ostream output(&buffer);
  const bool isWhole = tryToCreate(arguments, output, leftOut);
  Kyr::throwIfStopped();
  target.setstate(output.rdstate());
  return isWhole;
}

int createFile(const Arguments& arguments) {
  for (int i = 1; i < arguments.count(); ++i) {
    expectOtherFile(arguments[i], arguments[0]);
  }
  Kyr::OS::FileStatus older;
  const bool isThere = Kyr::OS::stat(arguments[0], &older) && older.size > 0;
  Target target(arguments[0]);
  const bool isFile = !target.temporaryName().isEmpty();
  const bool isWhole = createUntilStopped(
      arguments, target.stream(),
      isFile ? QStringList{arguments[0], target.temporaryName()} : QStringList());
  if (!isWhole && isThere && !arguments.has("force")) {
    throw FileError{
        Kyr::translate("Kyr_tool",
                       "%1: stays as it was, as the new archive misses what is named above; "
                       "--force replaces it")
            .arg(arguments[0])};
  }
  target.complete();
  return isWhole ? Fine : FileAtFault;
}

}  // namespace

int tarList(const Arguments& arguments) {
  const Kyr::ProgressScope progress("list", 1 + unpackWeight);
  const Kyr::ZippedTarReader reader = read(arguments);
  if (arguments.has("json")) {
    printJson(jsonOf(arguments[0], reader));
  } else {
    for (unsigned i = 0; i < reader.size(); ++i) {
      showFile(reader, i);
    }
  }
  report(reader.getLosses());
  if (!reader.isValid()) {
    throw damaged(arguments[0]);
  }
  return reader.getLosses().empty() ? Fine : FileAtFault;
}

int tarCreate(const Arguments& arguments) {
  piecesOf(arguments);  // wrong usage shows before a file is touched
  if (arguments[0] != "-") {
    return createFile(arguments);
  }
  // Failures of standard output are reported when the tool ends.
  return createUntilStopped(arguments, std::cout, {}) ? Fine : FileAtFault;
}

int tarExtract(const Arguments& arguments) {
  const Kyr::ProgressScope progress("extract", 1 + unpackWeight + extractWeight);
  const Kyr::ZippedTarReader reader = read(arguments);
  if (!reader.isValid()) {
    throw damaged(arguments[0]);
  }
  extract(reader, arguments);
  report(reader.getLosses());
  return reader.getLosses().empty() ? Fine : FileAtFault;
}

}  // namespace KyrTool
