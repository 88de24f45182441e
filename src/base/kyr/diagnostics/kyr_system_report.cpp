#include <kyr/diagnostics/KyrSystemReport.h>

#include <kyr/core/KyrException.h>
#include <kyr/core/forever_p.h>
#include <kyr/diagnostics/report_p.h>
#include <kyr/files/KyrSafeFile.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/os/KyrOS.h>
#include <kyr/os/os_file_p.h>
#include <kyr/os/os_process_p.h>
#include <kyr/os/os_reason_p.h>
#include <kyr/pack/KyrZippedTar.h>
#include <kyr/time/KyrTime.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTemporaryFile>

#include <algorithm>
#include <exception>
#include <filesystem>
#include <new>

namespace Kyr {

namespace {

/// Bytes of a file's name in UTF-8: the name of an archive's entry has 99, of which the name of the
/// report takes half.
constexpr int longestName = 40;
constexpr int longestTextName = 30;
constexpr std::int64_t latestTime = 077777777777;   // seconds that an archive's header can hold
constexpr std::int64_t mostOfKernelFile = 1 << 16;  // bytes

struct Part {
  unsigned number;
  const char* title;
  void (*describe)(Report::Section& section);  ///< null for the logs, which need more
};

constexpr Part knownParts[] = {
    {SystemReport::PartSystem, "System", Report::describeSystem},
    {SystemReport::PartProcessor, "Processor", Report::describeProcessor},
    {SystemReport::PartMemory, "Memory", Report::describeMemory},
    {SystemReport::PartDisplays, "Displays and graphics", Report::describeDisplays},
    {SystemReport::PartVersions, "Versions", Report::describeVersions},
    {SystemReport::PartDirectories, "Directories", Report::describeDirectories},
    {SystemReport::PartSettings, "Settings", Report::describeSettings},
    {SystemReport::PartEnvironment, "Environment", Report::describeEnvironment},
    {SystemReport::PartModules, "Loaded modules", Report::describeModules},
    {SystemReport::PartFiles, "Files of settings", Report::describeFiles},
    {SystemReport::PartLogs, "Logs and crash dumps", nullptr},
};

/// Whether a name stays below the folder that somebody unpacks it in, on every system. Devices of
/// Windows are in every folder, with every ending.
bool isHarmless(const QString& name) {
  static const Forever<QRegularExpression> reserved(
      Report::expression(R"([\\:*?"<>|\p{C}]|(?:^|/)(?:con|prn|aux|nul|(?:com|lpt)\d) *(?:[./]|$))",
                         QRegularExpression::CaseInsensitiveOption));
  const QStringList elements = name.split('/');
  return name.toUtf8().size() <= longestName && !Report::search(reserved.object, name).hasMatch() &&
         std::none_of(elements.begin(), elements.end(), [](const QString& each) {
           return each.isEmpty() || each.endsWith('.') || each.endsWith(' ');
         });
}

QString reasonOf(const std::exception& error) {
  const auto* const known = dynamic_cast<const Exception*>(&error);
  return known ? known->getText() : QString::fromLocal8Bit(error.what());
}

/// Whether two names cannot be in one folder: they are equal on Windows, or the one is a folder of
/// the other.
bool areInTheWay(const QString& left, const QString& right) {
  return (left + '/').startsWith(right + '/', Qt::CaseInsensitive) ||
         (right + '/').startsWith(left + '/', Qt::CaseInsensitive);
}

Exception cannotWrite(const QString& fileName, const QString& reason) {
  return translate("Kyr_diagnostics", "%1 cannot be written: %2")
      .arg(QDir::toNativeSeparators(fileName), reason);
}

/// An empty file of a free name beside another, for its owner alone; removed unless it was renamed.
/// The file of a process that was killed is removed by the next SafeFile in the directory.
/// QTemporaryFile keeps its file open, which Windows then does not rename.
class TemporaryName {
 public:
  explicit TemporaryName(const QString& fileName) {
    QTemporaryFile file(TemporaryFile::besideOf(fileName) + "XXXXXX");
    file.setAutoRemove(false);
    if (!file.open()) {
      throw cannotWrite(fileName, file.errorString());
    }
    _path = file.fileName();
    _nativePath = Platform::nativePath(_path);
  }
  TemporaryName(const TemporaryName&) = delete;
  TemporaryName& operator=(const TemporaryName&) = delete;
  ~TemporaryName() {
    std::error_code ignored;
    std::filesystem::remove(_nativePath, ignored);  // needs no memory
  }
  const QString& path() const { return _path; }

 private:
  QString _path;
  std::filesystem::path _nativePath;
};

}  // namespace

void SystemReport::Section::add(const QString& name, const QString& value) {
  if (!value.isEmpty()) {
    rows.push_back({name, value});
  }
}

void SystemReport::Section::miss(const QString& what) {
  remarks += what;
  missing += what;
}

// Asks Qt for the user's locale first. Qt does so under a lock that it keeps when memory runs out:
// then whoever needs a locale, as files do, waits for ever. After one success Qt never asks again.
SystemReport::SystemReport() : _seconds(Time::currentTime().wholeSeconds()) {
  QLocale::system();
}

// ---- contents ----

void SystemReport::collect(unsigned parts) {
  collect(parts, Limits());
}

void SystemReport::collect(unsigned parts, const Limits& limits) {
  for (const Part& part : knownParts) {
    if ((parts & part.number) == 0) {
      continue;
    }
    add(part.title, [&](Section& section) {
      if (_isOutOfMemory) {
        section.miss("This part is left out: an earlier one ran out of memory.");
        return;
      }
      part.describe ? part.describe(section) : Report::describeLogs(section, limits, _files);
    });
  }
  if ((parts & PartLogs) != 0 && !_isOutOfMemory) {
    findCrash();
  }
}

/// Finds the newest crash, without which the report is as good as before.
void SystemReport::findCrash() {
  try {
    _crash = CrashReports::newest();
  } catch (const std::bad_alloc&) {
    _isOutOfMemory = true;
    _remarks += "Whether there was a crash cannot be found out: there is no memory.";
  }
}

void SystemReport::add(const QString& title, const std::function<void(Section&)>& fill) {
  Section section;
  section.title = title;
  try {
    fill(section);
  } catch (const std::exception& error) {
    _isOutOfMemory = _isOutOfMemory || dynamic_cast<const std::bad_alloc*>(&error) != nullptr;
    section.miss("This part is not complete: " + reasonOf(error));
  }
  _sections.push_back(std::move(section));
}

void SystemReport::addFile(const QString& path, const QString& name, std::int64_t most) {
  QFile file(path);
  OS::FileStatus status;
  const bool isOpen = OS::stat(path, &status) && status.isFile && file.open(QIODevice::ReadOnly);
  if (isOpen && file.size() > std::min(most, Report::mostBytes)) {
    _remarks += QString("%1 is not packed: it has %2.")
                    .arg(path, Report::sizeText(std::uint64_t(file.size())));
    return;
  }
  // Qt allocates as much as it is asked to read, so the size of the file is the bound. The kernel's
  // own files say that they are empty.
  const std::int64_t wanted = file.size() > 0 ? file.size() : std::min(most, mostOfKernelFile);
  const QByteArray contents = isOpen ? file.read(wanted) : QByteArray();
  if (!isOpen || file.error() != QFileDevice::NoError) {
    _remarks += QString("%1 cannot be read.").arg(path);
  } else {
    addFile(name, contents, status.modified / 1000);
  }
}

void SystemReport::addContents(const QString& name, const QByteArray& contents) {
  addFile(name, contents, _seconds);
}

void SystemReport::addFile(const QString& name, const QByteArray& contents, std::int64_t modified) {
  const QString whole = "files/" + name;
  const bool isThere = std::any_of(_files.begin(), _files.end(),
                                   [&](const File& each) { return areInTheWay(each.name, whole); });
  if (isThere || !isHarmless(name)) {
    _remarks += QString("A file is not packed, as its name \"%1\" is %2.")
                    .arg(name, isThere ? "taken" : "not possible in the archive");
  } else {
    _files.push_back({whole, contents, modified});
  }
}

QStringList SystemReport::missing() const {
  QStringList all;
  for (const Section& section : _sections) {
    for (const QString& each : section.missing) {
      all += section.title + ": " + each;
    }
  }
  return all + _remarks;
}

QString SystemReport::name() const {
  const QDateTime local = QDateTime::fromSecsSinceEpoch(_seconds);
  return QString("ORV-report-%1-%2")
      .arg(QLocale::c().toString(local, "yyyy-MM-dd-HHmmss"), QString::number(OS::getPID()));
}

// ---- the archive ----

QString SystemReport::textName(std::size_t index) const {
  QString title;
  for (const QChar each : _sections[index].title.toLower()) {
    const bool isPlain = (each >= 'a' && each <= 'z') || (each >= '0' && each <= '9');
    title += isPlain ? QString(each) : title.endsWith('-') ? QString() : QString('-');
  }
  return QString("text/%1-%2.txt")
      .arg(index + 1, 2, 10, QLatin1Char('0'))
      .arg(title.left(longestTextName));
}

/// Writes the archive into a file, whose permissions stay, and brings it to the disk. The parts
/// come from memory: in a folder of their own they could be lost, or read by others.
void SystemReport::pack(const QString& fileName) const {
  const QString folder = name() + "/";
  SafeFile file(fileName);
  ZippedTarWriter archive(&file.stream());
  archive.setTaking(ZippedTarWriter::TakeAll);  // names of any letters
  try {
    archive.addContents(folder + "index.html", toHtml().toUtf8(), _seconds);
    for (std::size_t i = 0; i < _sections.size(); ++i) {
      archive.addContents(folder + textName(i), Report::textOf(_sections[i]).toUtf8(), _seconds);
    }
    for (const File& each : _files) {
      archive.addContents(folder + each.name, each.contents,
                          qBound(std::int64_t{0}, each.modified, latestTime));
    }
    archive.addEof();
    archive.flush();
  } catch (const Exception&) {
    file.stream().setstate(std::ios_base::badbit);  // commit() knows the reason
  }
  file.commit();
}

void SystemReport::write(const QString& fileName) const {
  write(fileName, OS::KeepExisting);
}

void SystemReport::write(const QString& fileName, OS::Existing_t existing) const {
  if (existing == OS::KeepExisting && OS::stat(fileName)) {
    throw Exception(translate("Kyr_diagnostics", "%1 exists already and is not replaced")
                        .arg(QDir::toNativeSeparators(fileName)));
  }
  if (!Platform::isName(fileName)) {
    throw cannotWrite(fileName, Platform::badName);
  }
  const TemporaryName part(fileName);
  try {
    pack(part.path());
    OS::rename(part.path(), fileName, existing);
  } catch (const Exception& error) {
    throw cannotWrite(fileName, error.getText());
  }
}

}  // namespace Kyr
