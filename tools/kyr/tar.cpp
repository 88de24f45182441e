#include "commands.h"
#include "input.h"
#include "output.h"
#include "target.h"

#include <kyr/core/KyrException.h>
#include <kyr/os/KyrOS.h>
#include <kyr/pack/KyrZippedTar.h>

#include <QDateTime>
#include <QDir>

#include <iostream>
#include <new>
#include <vector>

namespace KyrTool {

namespace {

using Bytes = Kyr::StructVector<unsigned char>;

Bytes readAll(Input& input) {
  constexpr std::size_t pieceSize = 1U << 20U;
  Bytes all;
  Bytes piece;
  do {
    input.read(piece, pieceSize);
    all.append(piece.data(), piece.size());
  } while (piece.size() == pieceSize);
  return all;
}

Kyr::ZippedTarReader read(const Arguments& arguments) {
  constexpr unsigned mebibyte = 1U << 20U;
  Kyr::ZippedTarLimits limits;
  const auto byDefault = static_cast<unsigned>(limits.totalSize / mebibyte);
  limits.totalSize = std::uint64_t(arguments.number("limit", 1, 1U << 20U, byDefault)) * mebibyte;
  Input input(arguments[0]);
  return Kyr::ZippedTarReader(readAll(input), limits);
}

FileError damaged(const QString& name) {
  return {QString("%1: no complete tar.gz, or larger than --limit allows").arg(printable(name))};
}

void showFile(const Kyr::ZippedTarReader& reader, unsigned index) {
  // From the year 1 to 9999: an archive may claim anything.
  constexpr qint64 earliest = -62135596800, latest = 253402300799;
  const qint64 seconds = qBound(earliest, qint64(reader.getModificationTime(index)), latest);
  const QString time = QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC).toString(Qt::ISODate);
  print(QString("%1  %2  %3\n")
            .arg(reader.getContents(index).size(), 10)
            .arg(time, printable(reader.getName(index))));
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

/// What an archive is without, on standard error.
void report(const std::vector<Kyr::ZippedTarLoss>& losses) {
  for (const Kyr::ZippedTarLoss& loss : losses) {
    printError(loss.name + ": " + loss.reason);
  }
}

/// Writes an archive of whatever can be read, and names the rest.
/// \param output takes the archive; whoever looks after it reports its failures
/// \return whether nothing is missing
/// \throws FileError when there is no memory, or nothing for the archive
bool create(const Arguments& arguments, std::ostream& output, const QStringList& leftOut) {
  Kyr::ZippedTarWriter writer(&output);
  writer.setTaking(Kyr::ZippedTarWriter::TakeAll);
  for (const QString& name : leftOut) {
    writer.leaveOut(name);
  }
  for (int i = 1; i < arguments.count(); ++i) {
    add(writer, arguments[i]);
  }
  report(writer.getLosses());
  if (writer.getFileCount() == 0 && !writer.getLosses().empty()) {
    throw FileError{QString("%1: not written, as nothing is left for it").arg(arguments[0])};
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
      throw FileError{QString("%1: there is not enough memory").arg(arguments[0])};
    }
  } catch (const Kyr::Exception& error) {
    if (output) {
      throw FileError{printable(error.getText())};
    }
  }
  return true;
}

int createFile(const Arguments& arguments) {
  for (int i = 1; i < arguments.count(); ++i) {
    expectOtherFile(arguments[i], arguments[0]);
  }
  Kyr::OS::FileStatus older;
  const bool isThere = Kyr::OS::stat(arguments[0], &older) && older.size > 0;
  Target target(arguments[0]);
  const bool isFile = !target.temporaryName().isEmpty();
  const bool isWhole =
      tryToCreate(arguments, target.stream(),
                  isFile ? QStringList{arguments[0], target.temporaryName()} : QStringList());
  if (!isWhole && isThere && !arguments.has("force")) {
    throw FileError{QString("%1: stays as it was, as the new archive misses what is named above; "
                            "--force replaces it")
                        .arg(arguments[0])};
  }
  target.complete();
  return isWhole ? Fine : FileAtFault;
}

}  // namespace

int tarList(const Arguments& arguments) {
  const Kyr::ZippedTarReader reader = read(arguments);
  for (unsigned i = 0; i < reader.size(); ++i) {
    showFile(reader, i);
  }
  report(reader.getLosses());
  if (!reader.isValid()) {
    throw damaged(arguments[0]);
  }
  return reader.getLosses().empty() ? Fine : FileAtFault;
}

int tarCreate(const Arguments& arguments) {
  if (arguments[0] != "-") {
    return createFile(arguments);
  }
  // Its own failure is standard output's.
  return tryToCreate(arguments, std::cout, {}) ? Fine : FileAtFault;
}

int tarExtract(const Arguments& arguments) {
  const Kyr::ZippedTarReader reader = read(arguments);
  if (!reader.isValid()) {
    throw damaged(arguments[0]);
  }
  const bool replaces = arguments.has("force");
  try {
    reader.extractTo(arguments.count() > 1 ? arguments[1] : QString("."),
                     replaces ? Kyr::OS::ReplaceExisting : Kyr::OS::KeepExisting);
  } catch (const Kyr::Exception& error) {
    throw FileError{printable(error.getText())};
  }
  report(reader.getLosses());
  return reader.getLosses().empty() ? Fine : FileAtFault;
}

}  // namespace KyrTool
