/// \file
/// What support wants to know about a machine, and the archive that carries it there.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/diagnostics/KyrCrashReports.h>
#include <kyr/os/KyrOS.h>

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace Kyr {

/// A report about the machine, the process and the suite's settings and logs.
///
/// An application collects what the library knows, adds sections and files of its own, and writes
/// it all as one tar.gz that holds an index page, the same as plain text, and the files. What
/// cannot be found out is a remark in its section; the report is never lost for it. Its texts are
/// English, whoever writes it: support reads them. The format: docs/formats/support-archive.md.
///
/// \code
/// SystemReport report;
/// report.collect();
/// report.add("Licence", [](SystemReport::Section& section) { section.add("kind", "floating"); });
/// report.write(report.name() + ".tar.gz");
/// \endcode
///
/// Secrets are left out as far as names show them: see blankSecrets(). Files are packed as they
/// are.
/// \threadsafety one thread at a time per object
class KYR_EXPORT SystemReport {
 public:
  /// A table of the report.
  struct Section {
    QString title;                  ///< the heading above the table
    QStringList columns;            ///< headings; empty for pairs of a name and a value
    std::vector<QStringList> rows;  ///< cells; as many as columns, or two
    QStringList remarks;            ///< what a reader has to know, as where lists were cut
    QStringList missing;            ///< those of the remarks that name what could not be had

    /// Appends a pair; one without a value is left out.
    KYR_EXPORT void add(const QString& name, const QString& value);
    /// Adds to the remarks and to what is missing.
    KYR_EXPORT void miss(const QString& what);
  };

  /// What collect() gathers; a sum of these.
  enum Part_t : unsigned {
    PartSystem = 1,         ///< name, version, architecture, uptime, proxies, removable media
    PartProcessor = 2,      ///< model, number, and the number that the suite uses
    PartMemory = 4,         ///< of the process and of the machine
    PartDisplays = 8,       ///< screens with their modes, and graphics cards
    PartVersions = 16,      ///< of the application, of the library and of what it uses
    PartDirectories = 32,   ///< where the suite keeps what, and how much room is left there
    PartSettings = 64,      ///< the suite's settings in the registry or in ORV.conf
    PartEnvironment = 128,  ///< the environment variables
    PartModules = 256,      ///< what the process has loaded
    PartFiles = 512,        ///< names and sizes of the files in the settings' directories
    PartLogs = 1024,        ///< output of the suite's processes, which is packed, and their dumps
    AllParts = 2047,        ///< their sum
  };

  /// How much of the files of the suite's processes is packed; the newest come first.
  struct Limits {
    unsigned logs = 20;                ///< files
    std::int64_t logSize = 1 << 20;    ///< bytes of each; of a longer one its end
    unsigned dumps = 0;                ///< files; they hold memory of the process, with secrets
    std::int64_t dumpSize = 64 << 20;  ///< bytes; a larger dump is left out
    /// For later versions.
    std::uintptr_t spare[4] = {};
  };

  /// A file that the archive will hold.
  struct File {
    QString name;           ///< in the archive
    QByteArray contents;    ///< as they are packed
    std::int64_t modified;  ///< seconds since 1970-01-01 00:00 UTC
  };

  /// An empty report of the present moment.
  /// \throws std::bad_alloc; Qt's locale must not be used afterwards, which waits for ever then
  SystemReport();

  /// Appends a section for each part, in the order of their numbers. Without
  /// KyrInit::InitLibrary() the directories are those that it would settle.
  ///
  /// When memory runs out in a section, those behind it only say so: Qt may have kept locks.
  void collect(unsigned parts = AllParts);
  void collect(unsigned parts, const Limits& limits);

  /// Appends a section that a function fills. When it throws, the section keeps what it has, and
  /// the reason is among what is missing.
  void add(const QString& title, const std::function<void(Section&)>& fill);
  /// Reads a file that the archive will hold; one that cannot be read, or is too large, becomes
  /// a remark.
  /// \param name in the archive, below "files/", at most 40 bytes of UTF-8; parts divided by "/",
  ///        without any that leads elsewhere
  /// \param most bytes that are accepted
  void addFile(const QString& path, const QString& name, std::int64_t most = 16 << 20);
  /// Adds a file that the archive will hold; one of a wrong name becomes a remark.
  /// \param name as for addFile()
  void addContents(const QString& name, const QByteArray& contents);

  /// What was collected and added so far, in that order.
  const std::vector<Section>& sections() const { return _sections; }
  /// The files that write() will pack beside the page and the text.
  const std::vector<File>& files() const { return _files; }
  /// The newest crash of this user, of whatever application, as far as the logs were collected; it
  /// stands on top of the page and of the text.
  const std::optional<CrashReport>& crash() const { return _crash; }
  /// What is missing of the files, and why.
  const QStringList& remarks() const { return _remarks; }
  /// All that could not be had, of the sections with their titles in front, and of the files;
  /// empty for a whole report. What limits leave out, and what is no file of this user, is not
  /// missing.
  QStringList missing() const;

  /// The name of this report, "ORV-report-2026-11-21-115110-4711" with the local time and the
  /// process id: on this machine only reports that a process makes in one second share it.
  QString name() const;

  /// All sections as plain text for people. Characters without a glyph stand there as numbers.
  QString toText() const;
  /// The index page, a complete document of HTML that is well-formed XML.
  QString toHtml() const;
  /// Writes the archive. It appears complete or not at all, readable by its owner only; on
  /// Windows the folder decides who may read it.
  /// \param fileName never replaced when it is there
  /// \throws Exception for people with the name and the reason; nothing is left behind
  void write(const QString& fileName) const;
  /// The same, in the place of an older file if that is wanted, which stays until the new one is
  /// whole.
  void write(const QString& fileName, OS::Existing_t existing) const;

  /// The value of a variable or setting as it may leave the machine.
  ///
  /// Of a name that tells of a secret (TOKEN, KEY, SECRET, PASS, ...) the value is blanked, of
  /// others whatever stands in front of an "@" as user and password do, and behind words like
  /// "password=".
  /// \threadsafety any thread
  static QString blankSecrets(const QString& name, const QString& value);

 private:
  KYR_HIDDEN void findCrash();
  KYR_HIDDEN void addFile(const QString& name, const QByteArray& contents, std::int64_t modified);
  KYR_HIDDEN QString textName(std::size_t index) const;
  KYR_HIDDEN void pack(const QString& fileName) const;

  std::int64_t _seconds;  // when it was made
  bool _isOutOfMemory = false;
  std::optional<CrashReport> _crash;
  std::vector<Section> _sections;
  std::vector<File> _files;
  QStringList _remarks;
  // What later versions need besides.
  std::shared_ptr<void> _more;
};

}  // namespace Kyr
