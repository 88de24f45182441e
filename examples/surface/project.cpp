#include "surface/project.h"

#include "surface/abort.h"
#include "surface/words.h"

#include <kyr/core/KyrException.h>
#include <kyr/files/KyrSafeFile.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/os/KyrOS.h>
#include <kyr/os/KyrOpenFile.h>
#include <kyr/pack/KyrZipSalvage.h>
#include <kyr/pack/KyrZipStream.h>
#include <kyr/time/KyrTime.h>

#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <ostream>
#include <utility>

namespace Surface {

namespace {

using Kyr::ZipInStream;

constexpr std::size_t countsSize = 16;
constexpr std::size_t pointSize = 24;
constexpr std::size_t triangleSize = 12;

/// The bytes that are read or written between two looks at the abort flag.
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

/// A message with the place that a reader has come to.
/// \param text its forms, with %1 for the byte of the file and %2 for the bytes of content
///        before it, by which the form is chosen
QString placed(const Thing& text, const ZipInStream& in) {
  const Kyr::ZipStatistics statistics = in.getStatistics();
  return Kyr::translate("Surface", text.one, text.many, statistics.plainBytes)
      .arg(counted(static_cast<qint64>(statistics.offset)),
           counted(static_cast<qint64>(statistics.plainBytes)));
}

Kyr::ZipPieces allProcessors() {
  Kyr::ZipPieces pieces;
  pieces.workers = Kyr::OS::getNumberOfCPUs();
  return pieces;
}

/// Reads all pieces of a damaged file that are good.
void readRest(const QString& fileName, Reading& reading) {
  Kyr::ZipSalvage salvage(fileName);
  salvage.setWorkers(allProcessors());
  std::size_t lost = 0;
  reading.content.clear();
  for (Kyr::ZipPart part; salvage.next(&part);) {
    stopIfAborted();
    const std::size_t begin = reading.content.size();
    reading.content.insert(reading.content.end(), part.bytes.begin(), part.bytes.end());
    if (part.state == Kyr::ZipPart::Lost) {
      reading.content.resize(begin + static_cast<std::size_t>(part.plainSize));
      reading.gaps.push_back({begin, reading.content.size()});
      lost += static_cast<std::size_t>(part.plainSize);
    }
  }
  reading.problem = Kyr::translate("Surface",
                                   "the file is damaged: %1 of its %2 bytes of content is lost; "
                                   "the others were checked and are good",
                                   "the file is damaged: %1 of its %2 bytes of content are lost; "
                                   "the others were checked and are good",
                                   lost)
                        .arg(counted(static_cast<qint64>(lost)),
                             counted(static_cast<qint64>(reading.content.size())));
}

QString problemOf(const ZipInStream& in) {
  constexpr Thing damaged = QT_TRANSLATE_N_NOOP3(
      "Surface",
      "the file is damaged, as byte %1 shows; what was read before (%2 byte) may be wrong",
      "the file is damaged, as byte %1 shows; what was read before (%2 bytes) may be wrong");
  constexpr Thing cutShort = QT_TRANSLATE_N_NOOP3(
      "Surface", "the file ends too early, at byte %1; the first %2 byte of content is good",
      "the file ends too early, at byte %1; the first %2 bytes of content are good");
  switch (in.getState()) {
    case ZipInStream::StreamComplete:
      return {};
    case ZipInStream::StreamRefused:
      return in.getHeaderErrorText();
    case ZipInStream::StreamDamaged:
      return placed(damaged, in);
    case ZipInStream::StreamCutShort:
      return placed(cutShort, in);
    case ZipInStream::StreamUnreadable:
    case ZipInStream::StreamOpen:
      break;
  }
  return Kyr::translate("Surface", "reading stopped early");
}

/// Takes the bytes of a mesh apart, and checks all that they say.
class Bytes {
 public:
  Bytes(const std::vector<char>& content, const std::vector<Gap>& gaps)
      : _content(content), _next(content.data()), _gap(gaps.begin()), _gapsEnd(gaps.end()) {
    if (content.size() < countsSize || isLost(countsSize)) {
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

  // Both numbers fit: so many elements are in memory.
  std::size_t pointCount() const { return static_cast<std::size_t>(_points); }
  std::size_t triangleCount() const { return static_cast<std::size_t>(_triangles); }

  /// Whether some of the next bytes are.
  bool isLost(std::size_t count) {
    const auto place = static_cast<std::size_t>(_next - _content.data());
    while (_gap != _gapsEnd && _gap->end <= place) {
      ++_gap;
    }
    return _gap != _gapsEnd && _gap->begin < place + count;
  }

  void skip(std::size_t count) { _next += count; }

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

  const std::vector<char>& _content;
  const char* _next;
  std::vector<Gap>::const_iterator _gap;  // the first that does not lie before the next byte
  const std::vector<Gap>::const_iterator _gapsEnd;
  std::uint64_t _points = 0;
  std::uint64_t _triangles = 0;
};

/// Whether a file is a project, by its bytes or by its name: a damaged project must not be taken
/// for a scan.
bool isProject(const QString& fileName) {
  Kyr::OpenFile opened(fileName);
  std::istream& file = opened.stream();
  std::vector<char> beginning(128);
  file.read(beginning.data(), static_cast<std::streamsize>(beginning.size()));
  beginning.resize(static_cast<std::size_t>(file.gcount()));
  return ZipInStream::isZipStream(beginning) ||
         QFileInfo(fileName).suffix().compare("kyr", Qt::CaseInsensitive) == 0;
}

/// Writes the content compressed; a failure of the compression marks the file's stream as bad.
void writeContent(std::ostream& file, const std::vector<char>& content) {
  Kyr::ZipOutStream out(&file, projectVersion, allProcessors());
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

/// What is left of a mesh.
/// \throws Kyr::Exception that names the damage, if there is one, and not what follows from it
Rest restOf(const QString& fileName, const Reading& reading) {
  try {
    return restFromBytes(reading.content, reading.gaps);
  } catch (const Aborted&) {
    throw;
  } catch (const Kyr::Exception& refusal) {
    const QString& problem = reading.problem.isEmpty() ? refusal.getText() : reading.problem;
    throw Kyr::Exception(QString("%1: %2").arg(fileName, problem));
  }
}

Mesh readMesh(const QString& fileName, Kyr::ErrorLog& log) {
  const Reading reading = readProject(fileName);
  if (!reading.isChecked) {
    throw Kyr::Exception(QString("%1: %2").arg(fileName, reading.problem));
  }
  Rest rest = restOf(fileName, reading);
  if (!reading.problem.isEmpty()) {
    log << QString("%1: %2; %3").arg(fileName, reading.problem, missingOf(rest)) << Kyr::END_LOG;
  }
  return std::move(rest.mesh);
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
  return restFromBytes(content, {}).mesh;
}

Rest restFromBytes(const std::vector<char>& content, const std::vector<Gap>& gaps) {
  constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();
  Bytes bytes(content, gaps);
  Rest rest;
  Mesh& mesh = rest.mesh;
  mesh.points.reserve(bytes.pointCount());
  mesh.triangles.reserve(bytes.triangleCount());
  std::vector<std::uint32_t> numbers(bytes.pointCount(), none);  // among the points that are left
  forEachIndex(numbers.size(), [&](std::size_t index) {
    if (bytes.isLost(pointSize)) {
      bytes.skip(pointSize);
    } else {
      numbers[index] = static_cast<std::uint32_t>(mesh.points.size());
      mesh.points.push_back(bytes.nextPoint());
    }
  });
  forEachIndex(bytes.triangleCount(), [&](std::size_t) {
    if (bytes.isLost(triangleSize)) {
      return bytes.skip(triangleSize);
    }
    const Triangle old = bytes.nextTriangle();
    const Triangle triangle{numbers[old[0]], numbers[old[1]], numbers[old[2]]};
    if (std::count(triangle.begin(), triangle.end(), none) == 0) {
      mesh.triangles.push_back(triangle);
    }
  });
  rest.lostPoints = numbers.size() - mesh.points.size();
  rest.lostTriangles = bytes.triangleCount() - mesh.triangles.size();
  return rest;
}

QString missingOf(const Rest& rest) {
  return Kyr::translate("Surface", "missing are %1 and %2")
      .arg(counted(static_cast<qint64>(rest.lostPoints), Things::point),
           counted(static_cast<qint64>(rest.lostTriangles), Things::triangle));
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
  in.setWorkers(allProcessors());
  do {
    stopIfAborted();
    const std::size_t before = reading.content.size();
    reading.content.resize(before + piece);
    in.clear();  // what stands before a damage is read as well
    in.read(reading.content.data() + before, static_cast<std::streamsize>(piece));
    reading.content.resize(before + static_cast<std::size_t>(in.gcount()));
  } while (!in.eof());
  const bool isFaulty =
      in.getState() == ZipInStream::StreamDamaged || in.getState() == ZipInStream::StreamUnreadable;
  const bool hasLoss = isFaulty && in.getStatistics().pieces > 0;
  if (hasLoss) {
    readRest(fileName, reading);
  } else {
    reading.problem = problemOf(in);
  }
  reading.isChecked = hasLoss || reading.problem.isEmpty();
  if (in.getHeaderError() == ZipInStream::HeaderGood) {
    reading.written = Kyr::Time(in.getHeaderInfo().time, 0).getTimeString(false);
  }
  return reading;
}

Mesh readSurface(const QString& fileName, double millimetresPerUnit, Kyr::ErrorLog& log,
                 ReadingNotes& notes) {
  Mesh mesh = isProject(fileName) ? readMesh(fileName, log)
                                  : readScan(fileName, millimetresPerUnit, log, notes);
  if (mesh.triangles.empty()) {
    throw Kyr::Exception(Kyr::translate("Surface", "%1 holds no surface").arg(fileName));
  }
  return mesh;
}

}  // namespace Surface
