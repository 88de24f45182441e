#include "commands.h"
#include "input.h"
#include "output.h"

#include <kyr/core/KyrException.h>
#include <kyr/os/KyrOS.h>
#include <kyr/pack/KyrZippedTar.h>

#include <QDateTime>
#include <QDir>

#include <filesystem>
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

std::filesystem::path pathOf(const QString& name) {
  return name.toStdU16String();
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

/// \param output how failures call the archive
void addAll(Kyr::ZippedTarWriter& writer, const Arguments& arguments, const QString& output) {
  try {
    for (int i = 1; i < arguments.count(); ++i) {
      add(writer, arguments[i]);
    }
    writer.addEof();
    writer.flush();
  } catch (const Kyr::Exception& error) {
    const QString what = error.getText();
    throw FileError{what == output
                        ? QString("%1: cannot be written (is the disk full?)").arg(what)
                        : QString("%1: cannot be read, or its name in the archive has more than "
                                  "99 bytes")
                              .arg(printable(what))};
  }
}

/// Writes beside an older archive, which stays until the new one is complete.
void createFile(const Arguments& arguments) {
  const QString& output = arguments[0];
  const QString part = output + ".part";
  try {
    Kyr::ZippedTarWriter writer(part);
    writer.leaveOut(output);
    addAll(writer, arguments, part);
  } catch (const Kyr::Exception&) {
    throw FileError{QString("%1: cannot be written").arg(output)};
  } catch (const FileError&) {
    Kyr::OS::unlink(part);
    throw;
  }
  std::error_code error;
  std::filesystem::rename(pathOf(part), pathOf(output), error);
  if (error) {
    Kyr::OS::unlink(part);
    throw FileError{QString("%1: cannot be replaced").arg(output)};
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
    Kyr::ZippedTarWriter writer(&std::cout);
    addAll(writer, arguments, "standard output");
  } else {
    createFile(arguments);
  }
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
