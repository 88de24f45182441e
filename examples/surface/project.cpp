#include "surface/project.h"

#include "surface/abort.h"
#include "surface/words.h"

#include <kyr/core/KyrException.h>
#include <kyr/files/KyrSafeFile.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/os/KyrOS.h>
#include <kyr/pack/KyrZipStream.h>
#include <kyr/time/KyrTime.h>

#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <ostream>

namespace Surface {

namespace {

using Kyr::ZipInStream;

constexpr std::size_t countsSize = 16;
constexpr std::size_t pointSize = 24;
constexpr std::size_t triangleSize = 12;

/// What is read or written between two looks at the abort flag.
constexpr std::size_t piece = std::size_t{256} * 1024;

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

/// \param text with %1 for the byte of the file and %2 for the bytes of content before it
QString placed(const QString& text, const ZipInStream& in) {
  const Kyr::ZipStatistics statistics = in.getStatistics();
  return text.arg(counted(static_cast<qint64>(statistics.offset)),
                  counted(static_cast<qint64>(statistics.plainBytes)));
}

QString problemOf(const ZipInStream& in) {
  switch (in.getState()) {
    case ZipInStream::StreamComplete:
      return {};
    case ZipInStream::StreamRefused:
      return in.getHeaderErrorText();
    case ZipInStream::StreamDamaged:
      return placed(Kyr::translate("Surface",
                                   "the file is damaged, as byte %1 shows; "
                                   "what was read before (%2 bytes) may be wrong"),
                    in);
    case ZipInStream::StreamCutShort:
      return placed(Kyr::translate("Surface",
                                   "the file ends too early, at byte %1; "
                                   "the first %2 bytes of content are good"),
                    in);
    case ZipInStream::StreamOpen:
      break;
  }
  return Kyr::translate("Surface", "reading stopped early");
}

/// Takes the bytes of a mesh apart; does not believe them.
class Bytes {
 public:
  explicit Bytes(const std::vector<char>& content) : _next(content.data()) {
    if (content.size() < countsSize) {
      refuse();
    }
    _points = number(8);
    _triangles = number(8);
    const std::uint64_t rest = content.size() - countsSize;
    if (_points > rest / pointSize || (rest - _points * pointSize) % triangleSize != 0 ||
        (rest - _points * pointSize) / triangleSize != _triangles) {
      refuse();
    }
  }

  // Both fit: that many elements are in memory.
  std::size_t pointCount() const { return static_cast<std::size_t>(_points); }
  std::size_t triangleCount() const { return static_cast<std::size_t>(_triangles); }

  Point nextPoint() {
    Point point{};
    for (double& coordinate : point) {
      const std::uint64_t bits = number(8);
      std::memcpy(&coordinate, &bits, sizeof coordinate);
      if (!std::isfinite(coordinate)) {
        refuse();
      }
    }
    return point;
  }

  Triangle nextTriangle() {
    Triangle triangle{};
    for (std::uint32_t& corner : triangle) {
      corner = static_cast<std::uint32_t>(number(4));
      if (corner >= _points) {
        refuse();
      }
    }
    return triangle;
  }

 private:
  [[noreturn]] static void refuse() {
    throw Kyr::Exception(Kyr::translate("Surface", "the content is no surface of this program"));
  }

  std::uint64_t number(int count) {
    std::uint64_t result = 0;
    for (int shift = 0; shift < 8 * count; shift += 8) {
      result |= std::uint64_t{static_cast<unsigned char>(*_next++)} << shift;
    }
    return result;
  }

  const char* _next;
  std::uint64_t _points = 0;
  std::uint64_t _triangles = 0;
};

/// A damaged project must not be taken for a scan: its name counts as well as its bytes.
bool isProject(const QString& fileName) {
  std::ifstream file;
  Kyr::OS::openStdStream(file, fileName, Kyr::OS::OpenRead, true);
  std::vector<char> beginning(128);
  file.read(beginning.data(), static_cast<std::streamsize>(beginning.size()));
  beginning.resize(static_cast<std::size_t>(file.gcount()));
  return ZipInStream::isZipStream(beginning) ||
         QFileInfo(fileName).suffix().compare("kyr", Qt::CaseInsensitive) == 0;
}

/// A failure of the compression alone marks the file's stream as bad, too.
void writeContent(std::ostream& file, const std::vector<char>& content) {
  Kyr::ZipOutStream out(&file, projectVersion);
  for (std::size_t done = 0; done < content.size(); done += piece) {
    stopIfAborted();
    const std::size_t size = std::min(piece, content.size() - done);
    out.write(content.data() + done, static_cast<std::streamsize>(size));
  }
  out.close();
  if (!out) {
    file.setstate(std::ios_base::badbit);
  }
}

Mesh readMesh(const QString& fileName) {
  const Reading reading = readProject(fileName);
  if (!reading.problem.isEmpty()) {
    throw Kyr::Exception(QString("%1: %2").arg(fileName, reading.problem));
  }
  try {
    return fromBytes(reading.content);
  } catch (const Aborted&) {
    throw;
  } catch (const Kyr::Exception& refusal) {
    throw Kyr::Exception(QString("%1: %2").arg(fileName, refusal.getText()));
  }
}

}  // namespace

std::vector<char> toBytes(const Mesh& mesh) {
  std::vector<char> bytes;
  bytes.reserve(countsSize + mesh.points.size() * pointSize + mesh.triangles.size() * triangleSize);
  put(bytes, mesh.points.size(), 8);
  put(bytes, mesh.triangles.size(), 8);
  forEachIndex(mesh.points.size(), [&](std::size_t index) {
    for (const double coordinate : mesh.points[index]) {
      put(bytes, coordinate);
    }
  });
  forEachIndex(mesh.triangles.size(), [&](std::size_t index) {
    for (const std::uint32_t corner : mesh.triangles[index]) {
      put(bytes, corner, 4);
    }
  });
  return bytes;
}

Mesh fromBytes(const std::vector<char>& content) {
  Bytes bytes(content);
  Mesh mesh;
  mesh.points.resize(bytes.pointCount());
  mesh.triangles.resize(bytes.triangleCount());
  forEachIndex(mesh.points.size(),
               [&](std::size_t index) { mesh.points[index] = bytes.nextPoint(); });
  forEachIndex(mesh.triangles.size(),
               [&](std::size_t index) { mesh.triangles[index] = bytes.nextTriangle(); });
  return mesh;
}

void writeProject(const QString& fileName, const std::vector<char>& content) {
  try {
    Kyr::SafeFile file(fileName);
    writeContent(file.stream(), content);
    file.commit();
  } catch (const Aborted&) {
    throw;
  } catch (const Kyr::Exception&) {
    throw Kyr::Exception(Kyr::translate("Surface", "cannot write %1").arg(fileName));
  }
}

Reading readProject(const QString& fileName, unsigned newestVersion) {
  Reading reading;
  ZipInStream in(fileName, newestVersion);
  do {
    stopIfAborted();
    const std::size_t before = reading.content.size();
    reading.content.resize(before + piece);
    in.clear();  // also what stands before a damage is shown
    in.read(reading.content.data() + before, static_cast<std::streamsize>(piece));
    reading.content.resize(before + static_cast<std::size_t>(in.gcount()));
  } while (!in.eof());
  reading.problem = problemOf(in);
  if (in.getHeaderError() == ZipInStream::HeaderGood) {
    reading.written = Kyr::Time(in.getHeaderInfo().time, 0).getTimeString(false);
  }
  return reading;
}

Mesh readSurface(const QString& fileName, double millimetresPerUnit, Kyr::ErrorLog& log,
                 ReadingNotes& notes) {
  Mesh mesh =
      isProject(fileName) ? readMesh(fileName) : readScan(fileName, millimetresPerUnit, log, notes);
  if (mesh.triangles.empty()) {
    throw Kyr::Exception(Kyr::translate("Surface", "%1 holds no surface").arg(fileName));
  }
  return mesh;
}

}  // namespace Surface
