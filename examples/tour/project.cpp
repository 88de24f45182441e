#include "project.h"

#include "page.h"

#include <kyr/core/KyrException.h>
#include <kyr/pack/KyrZipStream.h>
#include <kyr/time/KyrTime.h>

#include <QFile>

#include <cstring>
#include <filesystem>
#include <system_error>

namespace Tour {

namespace {

using Kyr::ZipInStream;

/// Appends the lowest bytes of a number, the least significant first.
void put(std::vector<char>& bytes, std::uint64_t number, int count) {
  for (int shift = 0; shift < 8 * count; shift += 8) {
    bytes.push_back(static_cast<char>(number >> shift));
  }
}

void put(std::vector<char>& bytes, double number) {
  std::uint64_t bits = 0;
  static_assert(sizeof bits == sizeof number);
  std::memcpy(&bits, &number, sizeof bits);
  put(bytes, bits, 8);
}

std::filesystem::path path(const QString& fileName) {
  return std::filesystem::u8path(fileName.toStdString());
}

/// \param words with %1 for the byte of the file and %2 for the bytes of content before it
QString placed(const char* words, const ZipInStream& in) {
  const Kyr::ZipStatistics statistics = in.getStatistics();
  return QString(words).arg(counted(static_cast<qint64>(statistics.offset)),
                            counted(static_cast<qint64>(statistics.plainBytes)));
}

QString problemOf(const ZipInStream& in) {
  switch (in.getState()) {
    case ZipInStream::StreamComplete:
      return {};
    case ZipInStream::StreamRefused:
      return in.getHeaderErrorText();
    case ZipInStream::StreamDamaged:
      return placed(
          "the file is damaged, as byte %1 shows; what was read before (%2 bytes) may be wrong",
          in);
    case ZipInStream::StreamCutShort:
      return placed("the file ends too early, at byte %1; the first %2 bytes of content are good",
                    in);
    case ZipInStream::StreamOpen:
      break;
  }
  return "reading stopped early";
}

}  // namespace

std::vector<char> toBytes(const Mesh& mesh) {
  std::vector<char> bytes;
  bytes.reserve(16 + mesh.points.size() * 24 + mesh.triangles.size() * 12);
  put(bytes, mesh.points.size(), 8);
  put(bytes, mesh.triangles.size(), 8);
  for (const Point& point : mesh.points) {
    for (const double coordinate : point) {
      put(bytes, coordinate);
    }
  }
  for (const Triangle& triangle : mesh.triangles) {
    for (const std::uint32_t corner : triangle) {
      put(bytes, corner, 4);
    }
  }
  return bytes;
}

void writeProject(const QString& fileName, const std::vector<char>& content) {
  const QString unfinished = fileName + ".part";
  Kyr::ZipOutStream out(unfinished, projectVersion);
  out.write(content.data(), static_cast<std::streamsize>(content.size()));
  out.close();
  std::error_code renamed;
  if (out) {
    std::filesystem::rename(path(unfinished), path(fileName), renamed);
  }
  if (!out || renamed) {
    std::error_code ignored;
    std::filesystem::remove(path(unfinished), ignored);
    throw Kyr::Exception(QString("cannot write %1").arg(fileName));
  }
}

Reading readProject(const QString& fileName, unsigned newestVersion) {
  constexpr std::size_t piece = std::size_t{256} * 1024;
  Reading reading;
  ZipInStream in(fileName, newestVersion);
  while (in) {
    const std::size_t before = reading.content.size();
    reading.content.resize(before + piece);
    in.read(reading.content.data() + before, static_cast<std::streamsize>(piece));
    reading.content.resize(before + static_cast<std::size_t>(in.gcount()));
  }
  reading.problem = problemOf(in);
  if (in.getHeaderError() == ZipInStream::HeaderGood) {
    reading.written = Kyr::Time(in.getHeaderInfo().time, 0).getTimeString(false);
  }
  return reading;
}

}  // namespace Tour
