#include "damage.h"

#include "surface/abort.h"
#include "surface/project.h"
#include "surface/words.h"

#include <kyr/core/KyrException.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/pack/KyrZipSalvage.h>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstddef>

namespace Tour {

namespace {

using namespace Surface;
using Kyr::translate;

QByteArray readAll(const QString& fileName) {
  QFile file(fileName);
  QByteArray bytes;
  if (file.open(QIODevice::ReadOnly)) {
    bytes = file.readAll();
  }
  if (file.error() != QFile::NoError) {
    throw Kyr::Exception(translate("Tour", "cannot read %1: %2").arg(fileName, file.errorString()));
  }
  return bytes;
}

constexpr int headerSize = 104;

QByteArray cutShort(const QByteArray& whole) {
  return whole.left(headerSize + (whole.size() - headerSize) * 3 / 5);
}

/// A file as a transfer in text mode between different systems leaves it.
QByteArray asTextTransfer(QByteArray whole) {
  return whole.replace("\r\n", "\n");
}

/// A file with newer versions in its header: that of the content stands at byte 48, that of the
/// writing library at byte 72.
QByteArray fromNewerProgram(QByteArray whole) {
  whole[48] = static_cast<char>(projectVersion + 1);
  whole.replace(72, 8, QByteArray("7.0.0-1").append('\0'));
  return whole;
}

QByteArray withFlippedBit(QByteArray whole) {
  const auto middle = headerSize + (whole.size() - headerSize) / 2;
  whole[middle] = static_cast<char>(whole[middle] ^ 0x10);
  return whole;
}

/// Shows what readers say of damaged copies of one file.
class Damages {
 public:
  Damages(const QString& fileName, Page& page)
      : _whole(readAll(fileName)), _content(readProject(fileName).content), _page(page) {
    if (!_directory.isValid()) {
      throw Kyr::Exception(translate("Tour", "cannot make a folder in %1 for temporary files")
                               .arg(QDir::tempPath()));
    }
  }

  const QByteArray& whole() const { return _whole; }
  bool noneTaken() const { return _noneTaken; }

  void show(const QString& what, const QByteArray& bytes) {
    stopIfAborted();
    const QString copy = _directory.filePath("copy");
    write(copy, bytes);
    const Reading reading = readProject(copy);
    _page.row(what, verdict(reading));
    if (!reading.gaps.empty()) {
      _page.row(translate("Tour", "saved of it"), savedOf(copy) + "; " + restOf(reading));
    }
  }

 private:
  static void write(const QString& copy, const QByteArray& bytes) {
    QFile file(copy);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush()) {
      throw Kyr::Exception(translate("Tour", "cannot write %1: %2").arg(copy, file.errorString()));
    }
  }

  QString verdict(const Reading& reading) {
    if (!reading.problem.isEmpty()) {
      return reading.problem;
    }
    if (reading.content == _content) {
      return translate("Tour", "harmless here: the content is the same");
    }
    _noneTaken = false;
    return translate("Tour", "TAKEN FOR GOOD DATA");
  }

  /// Takes the pieces of a copy that are good, and compares them with what was written.
  QString savedOf(const QString& copy) {
    Kyr::ZipSalvage salvage(copy);
    qint64 saved = 0;
    for (Kyr::ZipPart part; salvage.next(&part);) {
      const auto begin = _content.begin() + static_cast<std::ptrdiff_t>(part.plainOffset);
      saved += part.state == Kyr::ZipPart::Checked ? 1 : 0;
      _noneTaken = _noneTaken && std::equal(part.bytes.begin(), part.bytes.end(), begin);
    }
    const std::uint64_t pieces = salvage.getPieceCount();
    return (_noneTaken ? translate("Tour", "%1 of %2 piece, equal to what was written",
                                   "%1 of %2 pieces, equal to what was written", pieces)
                       : translate("Tour", "%1 of %2 piece, NOT WHAT WAS WRITTEN",
                                   "%1 of %2 pieces, NOT WHAT WAS WRITTEN", pieces))
        .arg(counted(saved), counted(static_cast<qint64>(pieces)));
  }

  static QString restOf(const Reading& reading) {
    try {
      return missingOf(restFromBytes(reading.content, reading.gaps));
    } catch (const Aborted&) {
      throw;
    } catch (const Kyr::Exception& refusal) {
      return refusal.getText();  // the counts were in the piece that is lost
    }
  }

  const QByteArray _whole;
  const std::vector<char> _content;
  const QTemporaryDir _directory;
  Page& _page;
  bool _noneTaken = true;
};

}  // namespace

bool showDamage(const QString& fileName, Page& page) {
  Damages damages(fileName, page);
  damages.show(translate("Tour", "cut short"), cutShort(damages.whole()));
  damages.show(translate("Tour", "one bit flipped"), withFlippedBit(damages.whole()));
  damages.show(translate("Tour", "sent as text"), asTextTransfer(damages.whole()));
  damages.show(translate("Tour", "newer program"), fromNewerProgram(damages.whole()));
  return damages.noneTaken();
}

}  // namespace Tour
