#include <kyr/diagnostics/report_p.h>

#include <kyr/core/forever_p.h>
#include <kyr/os/KyrOS.h>

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace Kyr {

namespace {

constexpr int mostFiles = 500;  // of each directory
constexpr int deepest = 4;

/// Names in a directory and below it; links are named, not followed.
class Listing {
 public:
  Listing(Report::Section& section, const Report::Directory& directory)
      : _section(section), _directory(directory) {
    list(QString(), 1);
    if (_count > mostFiles) {
      section.remarks +=
          QString("Only %1 files of %2 are listed.").arg(mostFiles).arg(directory.path);
    }
  }

 private:
  void list(const QString& below, int depth) {
    QStringList entries;
    if (!OS::readDirectory(_directory.path + "/" + below, &entries)) {
      _section.miss(_directory.path + "/" + below + " cannot be read.");
    }
    for (int i = 0; i < entries.size() && _count <= mostFiles; ++i) {
      add(below + entries[i], depth);
    }
  }

  void add(const QString& name, int depth) {
    OS::FileStatus status;
    OS::stat(_directory.path + "/" + name, &status);
    if (status.isDirectory && !status.isLink && depth < deepest) {
      list(name + "/", depth + 1);
    } else if (++_count <= mostFiles) {
      _section.rows.push_back(
          {_directory.name, name, sizeOf(status), Report::timeText(status.modified / 1000)});
    }
  }

  static QString sizeOf(const OS::FileStatus& status) {
    return status.isLink        ? QString("link")
           : status.isDirectory ? QString("directory")
                                : QString::number(status.size);
  }

  Report::Section& _section;
  const Report::Directory& _directory;
  int _count = 0;
};

/// A log or dump in the temporary directory.
struct Candidate {
  QString name;
  QString path;
  std::int64_t size;
  std::int64_t modified;
  bool isDump;
};

/// The logs and dumps of a directory, the newest first.
std::vector<Candidate> findCandidates(const QString& directory, Report::Section& section) {
  static const Forever<QRegularExpression> pattern(
      Report::expression(R"(\AORV-[A-Za-z0-9_.\-]{1,40}\.(log|dmp)\z)"));
  QStringList entries;
  if (!OS::readDirectory(directory, &entries)) {
    section.miss(directory + " cannot be read.");
  }
  std::vector<Candidate> found;
  for (const QString& entry : entries) {
    if (!Report::search(pattern.object, entry).hasMatch()) {
      continue;
    }
    const QString path = QDir(directory).filePath(entry);
    Report::OwnFile file;
    switch (Report::readOwnFile(path, 0, file)) {
      case Report::Reading_t::Done:
        found.push_back({entry, path, file.size, file.modified, entry.endsWith(".dmp")});
        break;
      case Report::Reading_t::Foreign:
        section.remarks += path + " is not packed: it is no plain file of this user.";
        break;
      case Report::Reading_t::Failed:
        section.miss(path + " cannot be read.");
        break;
    }
  }
  std::stable_sort(found.begin(), found.end(), [](const Candidate& left, const Candidate& right) {
    return left.modified > right.modified;
  });
  return found;
}

/// What is packed of the files of one kind.
struct Quota {
  unsigned files;
  std::int64_t size;
  bool whole;  ///< whether a file is of no use in part
};

/// Packs a log or a dump, if the quota allows.
/// \return where it is packed, or why it is not
QString pack(const Candidate& candidate, Quota& quota, std::vector<SystemReport::File>& packed,
             Report::Section& section) {
  Report::OwnFile file;
  if (quota.files == 0) {
    return "not packed";
  }
  if (quota.whole && candidate.size > quota.size) {
    return "not packed, too large";
  }
  if (Report::readOwnFile(candidate.path, quota.size, file) != Report::Reading_t::Done) {
    section.miss(candidate.path + " cannot be read any more.");
    return "not packed, cannot be read any more";
  }
  --quota.files;
  const QString name = "logs/" + candidate.name;
  const bool isCut = file.end.size() < file.size;
  packed.push_back({name, file.end, file.modified});
  return isCut ? QString("%1 (its last %2)")
                     .arg(name, Report::sizeText(std::uint64_t(file.end.size())))
               : name;
}

}  // namespace

Report::Section Report::describeCrash(const CrashReport& crash,
                                      const std::vector<SystemReport::File>& packed) {
  const QString name = "logs/" + QFileInfo(crash.path).fileName();
  const bool isPacked = std::any_of(packed.begin(), packed.end(),
                                    [&](const auto& each) { return each.name == name; });
  Section section;
  section.title = "Newest crash";
  section.add("fault", SystemReport::blankSecrets("", crash.fault));
  section.add("application", QString(crash.application + ' ' + crash.version).trimmed());
  section.add("time", timeText(crash.seconds));
  section.add("process", crash.process != 0 ? QString::number(crash.process) : QString());
  section.add("report", isPacked ? QString("%1 (%2)").arg(name, crash.path) : crash.path);
  section.add("dump", crash.dump);
  if (!crash.isWhole) {
    section.remarks += "The report of this crash did not come to its end.";
  }
  return section;
}

void Report::describeFiles(Section& section) {
  section.columns = QStringList{"directory", "file", "bytes", "changed"};
  QStringList done;
  for (const Directory& each : directories()) {
    const bool isOfSettings = QString(each.name).startsWith("settings");
    const bool isNew = std::none_of(done.begin(), done.end(), [&](const QString& other) {
      return (each.path + "/").startsWith(other + "/");
    });
    if (isOfSettings && isNew && OS::stat(each.path)) {
      const Listing listing(section, each);
      done += each.path;
    }
  }
}

void Report::describeLogs(Section& section, const SystemReport::Limits& limits,
                          std::vector<SystemReport::File>& packed) {
  section.columns = QStringList{"file", "bytes", "changed", "packed as"};
  Quota logs{limits.logs, std::min(limits.logSize, mostBytes), false};
  Quota dumps{limits.dumps, std::min(limits.dumpSize, mostBytes), true};
  for (const Candidate& each : findCandidates(OS::getTempDirectory(), section)) {
    section.rows.push_back({each.name, QString::number(each.size), timeText(each.modified),
                            pack(each, each.isDump ? dumps : logs, packed, section)});
  }
}

}  // namespace Kyr
