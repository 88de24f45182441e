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
  const qint64 seconds = reader.getModificationTime(index);
  const QString time = QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC).toString(Qt::ISODate);
  print(QString("%1  %2  %3\n")
            .arg(reader.getContents(index).size(), 10)
            .arg(time, printable(reader.getName(index))));
}

/// What a file or directory is called in the archive: never by a name that leads out of the
/// directory into which somebody extracts it.
QString nameInArchive(const QString& path) {
  QStringList parts = QDir::cleanPath(QDir::fromNativeSeparators(path)).split('/');
  while (parts.size() > 1 &&
         (parts.first().isEmpty() || parts.first() == ".." || parts.first().endsWith(':'))) {
    parts.removeFirst();
  }
  const bool isAbove = parts.first() == ".." || parts.first().isEmpty();
  return isAbove ? QString(".") : parts.join('/');
}

void add(Kyr::ZippedTarWriter& writer, const QString& path) {
  Kyr::OS::FileStatus status;
  if (Kyr::OS::stat(path, &status) && status.isDirectory) {
    writer.addDirectory(path, true, nameInArchive(path));
  } else {
    writer.addFile(path, nameInArchive(path));
  }
}

void addAll(Kyr::ZippedTarWriter& writer, const Arguments& arguments) {
  for (int i = 1; i < arguments.count(); ++i) {
    add(writer, arguments[i]);
  }
  writer.addEof();
  writer.flush();
}

/// \param output takes the archive; whoever looks after it reports its failures
void create(const Arguments& arguments, std::ostream& output, const QStringList& leftOut) {
  Kyr::ZippedTarWriter writer(&output);
  for (const QString& name : leftOut) {
    writer.leaveOut(name);
  }
  try {
    addAll(writer, arguments);
  } catch (const Kyr::Exception& error) {
    if (output) {
      throw FileError{QString("%1: cannot be read, or its name in the archive has more than "
                              "99 bytes")
                          .arg(printable(error.getText()))};
    }
  }
}

}  // namespace

int tarList(const Arguments& arguments) {
  const Kyr::ZippedTarReader reader = read(arguments);
  for (unsigned i = 0; i < reader.size(); ++i) {
    showFile(reader, i);
  }
  if (!reader.isValid()) {
    throw damaged(arguments[0]);
  }
  return Fine;
}

int tarCreate(const Arguments& arguments) {
  if (arguments[0] == "-") {
    create(arguments, std::cout, {});  // a failure is reported with standard output's
    return Fine;
  }
  Target target(arguments[0]);
  const bool isFile = !target.temporaryName().isEmpty();
  create(arguments, target.stream(),
         isFile ? QStringList{arguments[0], target.temporaryName()} : QStringList());
  target.complete();
  return Fine;
}

int tarExtract(const Arguments& arguments) {
  const Kyr::ZippedTarReader reader = read(arguments);
  if (!reader.isValid()) {
    throw damaged(arguments[0]);
  }
  try {
    reader.extractTo(arguments.count() > 1 ? arguments[1] : QString("."));
  } catch (const Kyr::Exception& error) {
    throw FileError{printable(error.getText())};
  }
  return Fine;
}

}  // namespace KyrTool
