/// \file
/// Reports that earlier crashes have left.
#pragma once

#include <kyr/core/KyrPlatform.h>

#include <QString>

#include <cstdint>
#include <optional>

namespace Kyr {

/// A crash of a process of this user.
/// \threadsafety a value
struct CrashReport {
  QString path;              ///< of the file with the report, which may hold other output, too
  QString dump;              ///< path of the dump; empty when there is none, or none any more
  QString application;       ///< its plain English name
  QString version;           ///< of the application; empty when not known
  QString fault;             ///< what broke, as the first line of the report says it
  std::int64_t seconds = 0;  ///< when, since 1970-01-01 00:00 UTC
  std::int64_t process = 0;  ///< its number; 0 when not known
  bool isWhole = false;      ///< whether the report came to its end
  bool isSeen = false;       ///< whether CrashReports::acknowledge() was called for it
  /// For later versions.
  std::uintptr_t spare[4] = {};
};

/// Finds the reports of crashes, so that an application can offer to send the last one of its own.
///
/// Reports lie in the files to which the start of the library sends standard error: that of each
/// process in the temporary directory, and the one that KYR_CONSOLE names. Programs whose streams
/// stay as they are leave none, unless they ask for it (StartOptions::keepReport). A file counts
/// only if it is a plain one of this user, without a second name; links are not followed. What
/// processes that still run are writing, and what an application merely prints, is no report.
/// \code
/// if (const std::optional<CrashReport> last = KyrInit::lastCrash(); last && !last->isSeen) {
///   std::printf("%s\n%s\n", qPrintable(last->fault), qPrintable(last->path));
///   CrashReports::acknowledge(*last);
/// }
/// \endcode
/// \threadsafety any thread
class KYR_EXPORT CrashReports {
 public:
  CrashReports() = delete;

  /// The newest report. Looks at the last half MiB of the 100 newest files of output.
  /// \param application whose; empty for any of this user
  /// \return nothing when there is none, or no file can be read
  static std::optional<CrashReport> newest(const QString& application = {});

  /// Remembers that somebody has dealt with a report: isSeen is set whenever it is found from now
  /// on, for all applications of this user on this machine. The last 100 such notes are kept, in
  /// crashes-seen.txt of KyrInit::ConfigNonRoaming.
  /// \throws Exception when that file cannot be written
  static void acknowledge(const CrashReport& report);
};

}  // namespace Kyr
