#include <kyr/changelog/KyrChangeLog.h>

#include <kyr/core/KyrVersion.h>
#include <kyr/i18n/KyrTranslate.h>

#include <QtGlobal>

namespace Kyr::ChangeLog {

namespace {

constexpr const char* descriptions = "KyrLibraryHistory";  // the context of the descriptions

/// Makes the library's entries: the functions for that are for derived classes.
class LibraryEntry : public LogEntry {
 public:
  static LogEntry created(const char* folder, const VersionNumber& version, const char* element,
                          const char* description) {
    const QString text = description ? translate(descriptions, description) : QString();
    return elementCreated(folder, version, element, text);
  }
};

/// An element that came with a version.
struct NewElement {
  const char* folder;  ///< the room of the element's header
  const char* name;    ///< in the namespace Kyr
  const char* description = nullptr;
};

/// This code base begins with the sixth package of 6.2.0. Elements stand in the order of the
/// rooms; tests/changelog/test_own_log.py misses every exported class that is not here.
const NewElement firstElements[] = {
    {"core", "Exception"},
    {"core", "FileParse::Place"},
    {"core", "FileParse::Error"},
    {"core", "FileParse::EndOfFile"},
    {"core", "ProgError",
     QT_TRANSLATE_NOOP("KyrLibraryHistory", "Reports a broken invariant and ends the process.")},
    {"core", "setFatalErrorHook()"},
    {"core", "StructVector<T>"},
    {"core", "Application_t"},
    {"core", "applicationProperties()"},
    {"core", "libraryVersion()"},
    {"text", "KString"},
    {"text", "NumString", QT_TRANSLATE_NOOP("KyrLibraryHistory", "Sorts item9 before item10.")},
    {"text", "TextCodec_t"},
    {"text", "qstringToDouble()",
     QT_TRANSLATE_NOOP("KyrLibraryHistory",
                       "With its kin for other numbers, the same under every locale.")},
    {"text", "toQuotedShellString()"},
    {"text", "quotePythonString()"},
    {"text", "tokenizeRT()"},
    {"text", "Base64"},
    {"text", "CRC16"},
    {"sync", "Mutex"},
    {"sync", "AutoMutex"},
    {"sync", "Condition"},
    {"sync", "MutexReadWrite"},
    {"sync", "AutoMutexRead"},
    {"sync", "AutoMutexWrite"},
    {"sync", "LockDoctor"},
    {"sync", "Thread"},
    {"sync", "SharedMemory", QT_TRANSLATE_NOOP("KyrLibraryHistory", "On Linux only.")},
    {"recorder", "FlightRecorder"},
    {"os", "OS"},
    {"os", "OpenFile"},
    {"os", "Process"},
    {"trace", "Trace"},
    {"trace", "TraceSpan"},
    {"trace", "TraceLife"},
    {"time", "Time"},
    {"log", "LogText"},
    {"log", "ErrorLog"},
    {"log", "OutputErrorLog"},
    {"log", "SyncErrorLog"},
    {"log", "SyncOutputErrorLog"},
    {"log", "SyncSystemErrorLog"},
    {"log", "Journal"},
    {"files", "FileParse::File"},
    {"files", "Filename::Name"},
    {"files", "Filename::NameWithNumber"},
    {"files", "Filename::Series",
     QT_TRANSLATE_NOOP("KyrLibraryHistory", "Finds the next free number of a series of files.")},
    {"files", "LockingManager"},
    {"files", "ExclusiveLock",
     QT_TRANSLATE_NOOP("KyrLibraryHistory", "Gives way when its owner no longer lives.")},
    {"files", "SafeFile"},
    {"files", "deleteDirectoryTree()"},
    {"units", "Unit"},
    {"units", "UnitLinear"},
    {"units", "UnitDiff"},
    {"units", "UnitLength"},
    {"units", "UnitTemp"},
    {"units", "UnitAngle"},
    {"units", "UnitTime"},
    {"units", "UnitStrain"},
    {"units", "UnitPress"},
    {"units", "UnitShutter"},
    {"units", "UnitFigure"},
    {"units", "UnitVelocity"},
    {"units", "UnitAcceleration"},
    {"units", "UnitStrainVelocity"},
    {"units", "UnitStrainAcceleration"},
    {"units", "UnitArea"},
    {"units", "UnitVolume"},
    {"units", "UnitFraction"},
    {"units", "UnitCurvature"},
    {"units", "UnitAngleVelocity"},
    {"units", "UnitAngleAcceleration"},
    {"units", "UnitTempDifference"},
    {"units", "QuantityText",
     QT_TRANSLATE_NOOP("KyrLibraryHistory", "Reads and writes quantities as people do.")},
    {"units", "UnitSet"},
    {"jobs", "PoolThread"},
    {"jobs", "PoolForThreads"},
    {"jobs", "JobManager"},
    {"jobs", "Worker"},
    {"jobs", "CatchingWorker",
     QT_TRANSLATE_NOOP("KyrLibraryHistory",
                       "Hands an exception of its work to the thread that waits for it.")},
    {"jobs", "parallelFor()"},
    {"jobs", "parallelInvoke()"},
    {"jobs", "Progress"},
    {"jobs", "ProgressScope"},
    {"jobs", "StopToken"},
    {"jobs", "StopScope"},
    {"jobs", "StopCallback"},
    {"jobs", "Stopped"},
    {"jobs", "GUIThreadEvent"},
    {"jobs", "GUIThreadEventCreator"},
    {"i18n", "Translator"},
    {"i18n", "translate()"},
    {"i18n", "userLocale()"},
    {"terminal", "InterruptWatch"},
    {"terminal", "TerminalProgress"},
    {"pack", "Compress"},
    {"pack", "Decompress"},
    {"pack", "ZipOutStream"},
    {"pack", "ZipOutStreamBuffer"},
    {"pack", "ZipPieces"},
    {"pack", "ZipInStream",
     QT_TRANSLATE_NOOP("KyrLibraryHistory", "Tells at which byte a file is damaged or cut short.")},
    {"pack", "ZipInStreamBuffer"},
    {"pack", "ZipSalvage"},
    {"pack", "ZippedTarWriter"},
    {"pack", "ZippedTarReader",
     QT_TRANSLATE_NOOP("KyrLibraryHistory", "Bounded in memory by ZippedTarLimits.")},
    {"values", "Font"},
    {"values", "Colour"},
    {"values", "Sound"},
    {"changelog", "ChangeLog::VersionNumber"},
    {"changelog", "ChangeLog::LogEntry"},
    {"changelog", "ChangeLog::Log"},
    {"changelog", "ChangeLog::libraryChangeLog()"},
    {"undo", "RecordManagerBase"},
    {"undo", "StructRecordVectorBase"},
    {"crash", "NewHandler"},
    {"crash", "Heartbeat"},
    {"diagnostics", "CrashReports"},
    {"diagnostics", "SystemReport"},
    {"diagnostics", "MemoryObserver"},
    {"diagnostics", "DebugTimer"},
    {"app", "KyrInit"},
    {"app", "StartOptions"},
};

}  // namespace

Log libraryChangeLog() {
  const VersionNumber first = VersionNumber::version620(6);
  Log log;
  for (const NewElement& element : firstElements) {
    log.addEntry(LibraryEntry::created(element.folder, first, element.name, element.description));
  }
  return log;
}

QString libraryChangeLogTitle() {
  return translate("KyrLibraryHistory", "libKyr %1: changes of the interface")
      .arg(libraryVersion());
}

}  // namespace Kyr::ChangeLog
