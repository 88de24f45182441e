#include "archive.h"

#include "surface/abort.h"
#include "surface/words.h"

#include <kyr/core/KyrException.h>
#include <kyr/files/KyrSafeFile.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/jobs/KyrProgress.h>
#include <kyr/pack/KyrZippedTar.h>

#include <QFileInfo>
#include <QTemporaryFile>

#include <ostream>
#include <streambuf>
#include <vector>

namespace Tour {

namespace {

using namespace Surface;
using Kyr::translate;

/// Passes bytes on until the user wants to stop; then it fails as on a full disk.
class UntilAborted : public std::streambuf {
 public:
  explicit UntilAborted(std::streambuf* target) : _target(target) {}

 protected:
  int_type overflow(int_type character) override {
    return Kyr::Progress::getAbortFlag() ? traits_type::eof()
                                         : _target->sputc(traits_type::to_char_type(character));
  }
  std::streamsize xsputn(const char* bytes, std::streamsize count) override {
    return Kyr::Progress::getAbortFlag() ? 0 : _target->sputn(bytes, count);
  }
  int sync() override { return _target->pubsync(); }

 private:
  std::streambuf* _target;
};

Kyr::Exception cannotWrite(const QString& fileName) {
  return Kyr::Exception(translate("Tour", "cannot write %1").arg(fileName));
}

/// Writes a text into a file, as archives are made of files.
void fill(QTemporaryFile& file, const QString& text) {
  const QByteArray bytes = text.toUtf8();
  if (!file.open() || file.write(bytes) != bytes.size() || !file.flush()) {
    throw cannotWrite(file.fileTemplate());
  }
  file.close();
}

/// What goes into the archive, and what it is called there.
struct Entry {
  QString path;
  QString name;
};

std::vector<Entry> entriesOf(const Options& options, const QString& logFile) {
  const QFileInfo scan(options.scan);
  const QString base = scan.completeBaseName();
  std::vector<Entry> entries;
  if (scan.isFile()) {
    entries.push_back({options.scan, "input/" + scan.fileName()});
  }
  entries.push_back({options.project(), base + ".kyr"});
  entries.push_back({logFile, base + ".log"});
  return entries;
}

void write(std::ostream& file, const std::vector<Entry>& entries) {
  UntilAborted buffer(file.rdbuf());
  std::ostream stream(&buffer);
  Kyr::ZippedTarWriter writer(&stream);
  writer.setTaking(Kyr::ZippedTarWriter::TakeAll);  // scans have names in any letters
  for (const Entry& entry : entries) {
    writer.addFile(entry.path, entry.name);
  }
  if (!writer.getLosses().empty()) {
    throw Kyr::Exception(writer.getLosses().front().name);
  }
  writer.addEof();
  writer.flush();
}

void writeWhole(const QString& fileName, const std::vector<Entry>& entries) {
  try {
    Kyr::SafeFile archive(fileName);
    write(archive.stream(), entries);
    archive.commit();
  } catch (const Kyr::Exception& failure) {
    stopIfAborted();
    for (const Entry& entry : entries) {
      if (failure.getText() == entry.path) {
        throw Kyr::Exception(translate("Tour", "cannot pack %1").arg(entry.path));
      }
    }
    throw cannotWrite(fileName);
  }
}

QString listOf(const std::vector<Entry>& entries) {
  QStringList lines;
  for (const Entry& entry : entries) {
    lines << entry.name + ", " + bytes(QFileInfo(entry.path).size());
  }
  return lines.join('\n');
}

}  // namespace

void packArchive(const Options& options, const Kyr::ErrorLog& log, Page& page) {
  QTemporaryFile logFile;
  fill(logFile, log.getLog() + '\n');
  const std::vector<Entry> entries = entriesOf(options, logFile.fileName());
  writeWhole(options.archive, entries);
  page.row(translate("Tour", "file"), options.archive);
  page.row(translate("Tour", "holds"), listOf(entries));
  page.row(translate("Tour", "packed"), bytes(QFileInfo(options.archive).size()));
}

}  // namespace Tour
