/// \file
/// How the system report gathers what it says.
#pragma once

#include <kyr/diagnostics/KyrSystemReport.h>
#include <kyr/diagnostics/report_secrets_p.h>

#include <QRegularExpression>
#include <QSettings>
#include <QString>

#include <cstdint>
#include <memory>
#include <vector>

namespace Kyr::Report {

using Section = SystemReport::Section;

/// The most that is packed of one file, whatever the caller wants: more does not fit into memory.
constexpr std::int64_t mostBytes = 1 << 30;

// ---- the parts: kyr_report_parts.cpp, kyr_report_files.cpp --------------------------------------

void describeSystem(Section& section);
void describeProcessor(Section& section);
void describeMemory(Section& section);
void describeVersions(Section& section);
void describeDirectories(Section& section);
void describeSettings(Section& section);
void describeEnvironment(Section& section);
void describeModules(Section& section);
void describeFiles(Section& section);
/// Lists logs and dumps of the suite's processes.
/// \param packed gets what is to be packed of them
void describeLogs(Section& section, const SystemReport::Limits& limits,
                  std::vector<SystemReport::File>& packed);

/// What is known of a crash, for the top of the report.
/// \param packed the files of the archive, one of which may be the report
Section describeCrash(const CrashReport& crash, const std::vector<SystemReport::File>& packed);

/// A place of the suite's own.
struct Directory {
  const char* name;
  QString path;  ///< may be empty
};
/// The directories that KyrInit has settled, or would settle.
std::vector<Directory> directories();

// ---- texts: kyr_report_text.cpp -----------------------------------------------------------------

/// The text with a number in the place of every character without a glyph, but for line feeds.
QString visible(const QString& text);
/// A regular expression, of which the pattern is known to be good.
/// \throws std::bad_alloc; Qt's own keeps such a failure, and finds nothing for ever
QRegularExpression expression(const QString& pattern,
                              QRegularExpression::PatternOptions options = {});
/// What an expression finds from a place on, also in texts with halves of characters.
/// \throws std::bad_alloc when the search could not be finished, which Qt takes for nothing found
QRegularExpressionMatch search(const QRegularExpression& pattern, const QString& text,
                               QString::size_type from = 0);
/// A size for people, as "1.5 MiB".
QString sizeText(std::uint64_t bytes);
/// A moment in the user's time zone, as "2026-11-21 11:51:10 +00:00".
QString timeText(std::int64_t seconds);
/// A section as plain text.
QString textOf(const Section& section);

// ---- the platform: platform/report_*.cpp --------------------------------------------------------

/// How long the system has been running.
/// \return seconds; negative when the system does not tell
std::int64_t secondsSinceStart();
/// The C library, or what stands in its place; empty when unknown.
QString runtimeVersion();

/// Screens and graphics cards.
void describeDisplays(Section& section);

/// A file of code that the process has loaded.
struct Module {
  QString path;
  std::uint64_t address = 0;
  std::uint64_t size = 0;
  QString version;   ///< as the file says it; may be empty
  QString identity;  ///< of the build; may be empty
};
std::vector<Module> modules();

/// A place of the suite's settings.
struct SettingsPlace {
  QString name;
  std::unique_ptr<QSettings> settings;
};
std::vector<SettingsPlace> settingsPlaces();

/// What a file of this user ends with.
struct OwnFile {
  QByteArray end;
  std::int64_t size = 0;
  std::int64_t modified = 0;  ///< seconds since 1970-01-01 00:00 UTC
};
/// What became of reading a file.
enum class Reading_t {
  Done,
  Foreign,  ///< it is no plain file with a single name that belongs to the user
  Failed,   ///< it cannot be known what it is, or it could not be read
};
/// Reads a plain file that belongs to the user. Links are not followed, pipes not waited for.
/// \param most bytes from its end
Reading_t readOwnFile(const QString& path, std::int64_t most, OwnFile& file);

}  // namespace Kyr::Report
