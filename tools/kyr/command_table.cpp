#include "command_table.h"

#include "commands.h"

#include <QtGlobal>

#include <algorithm>
#include <limits>

namespace KyrTool {

namespace {

constexpr int anyNumber = std::numeric_limits<int>::max();

const Option workers = {
    "workers", "N", QT_TRANSLATE_NOOP("Kyr_tool", "how many threads work, 1 to 64; 1 unless told")};
const Option engine = {"engine", "zlib|fastest",
                       QT_TRANSLATE_NOOP("Kyr_tool", "what compresses; zlib unless told")};
const Option limit = {
    "limit", "MIB",
    QT_TRANSLATE_NOOP("Kyr_tool", "how much may come out of the archive, in MiB; 512 unless told")};

const Option json = {"json", "", QT_TRANSLATE_NOOP("Kyr_tool", "writes JSON, for programs")};

Option force(const char* description) {
  return {"force", "", description, CompleteNothing, 'f'};
}

const std::vector<Command> table = {
    {"convert",
     "VALUE FROM TO | QUANTITY TO",
     QT_TRANSLATE_NOOP("Kyr_tool",
                       "converts a value, as in: kyr convert 25.4 mm in, kyr convert 25.4mm inch"),
     2,
     3,
     {{"kind", "KIND", QT_TRANSLATE_NOOP("Kyr_tool", "the kind of both units, as LENGTH"),
       CompleteKinds},
      {"digits", "N", QT_TRANSLATE_NOOP("Kyr_tool", "decimals of the result, 0 to 60")},
      {"dpi", "N", QT_TRANSLATE_NOOP("Kyr_tool", "pixels of an inch, for figures")},
      json},
     convert,
     Quick,
     CompleteUnits},
    {"units",
     "[KIND]",
     QT_TRANSLATE_NOOP("Kyr_tool", "lists the kinds of quantities, or the units of one"),
     0,
     1,
     {json},
     units,
     Quick,
     CompleteKinds},
    {"zip info",
     "FILE",
     QT_TRANSLATE_NOOP(
         "Kyr_tool",
         "shows the header, the blocks and the pieces of a zip stream; of many pieces not all"),
     1,
     1,
     {{"all", "", QT_TRANSLATE_NOOP("Kyr_tool", "all pieces, also of many")}, json},
     zipInfo,
     Long},
    {"zip verify",
     "FILE",
     QT_TRANSLATE_NOOP("Kyr_tool",
                       "says whether a zip stream is complete, and which pieces are damaged"),
     1,
     1,
     {workers, engine, json},
     zipVerify,
     Long},
    {"zip cat",
     "FILE",
     QT_TRANSLATE_NOOP("Kyr_tool", "writes the content of a zip stream"),
     1,
     1,
     {workers, engine},
     zipCat,
     LongOnOutput},
    {"zip salvage",
     "FILE OUTPUT",
     QT_TRANSLATE_NOOP("Kyr_tool",
                       "writes what a damaged zip stream still holds; zeros where it is known "
                       "how much is lost"),
     2,
     2,
     {{"leave-out", "", QT_TRANSLATE_NOOP("Kyr_tool", "no zeros for what is lost")},
      workers,
      engine},
     zipSalvage,
     Long},
    {"zip pack",
     "FILE OUTPUT",
     QT_TRANSLATE_NOOP(
         "Kyr_tool",
         "makes a zip stream of a file; in pieces, when workers or an engine are named"),
     2,
     2,
     {{"file-version", "N",
       QT_TRANSLATE_NOOP("Kyr_tool", "the version of the content, 0 to 4294967295; 0 unless told")},
      workers,
      engine},
     zipPack,
     Long},
    {"tar list",
     "FILE",
     QT_TRANSLATE_NOOP("Kyr_tool", "lists the files of a tar.gz"),
     1,
     1,
     {limit, json},
     tarList,
     Long},
    {"tar create",
     "OUTPUT PATH...",
     QT_TRANSLATE_NOOP(
         "Kyr_tool",
         "makes a tar.gz of files and directories; keeps an older one if files are missing"),
     2,
     anyNumber,
     {force(
          QT_TRANSLATE_NOOP("Kyr_tool", "replaces an older archive also by one that misses files")),
      workers, engine},
     tarCreate,
     Long},
    {"tar extract",
     "FILE [DIRECTORY]",
     QT_TRANSLATE_NOOP("Kyr_tool",
                       "unpacks a tar.gz, of at most 512 MiB unless told, and replaces no files"),
     1,
     2,
     {limit, force(QT_TRANSLATE_NOOP("Kyr_tool", "replaces files that are there already"))},
     tarExtract,
     Long},
    {"base64 encode",
     "FILE",
     QT_TRANSLATE_NOOP("Kyr_tool", "writes a file as Base64, in one line"),
     1,
     1,
     {},
     base64Encode,
     LongOnOutput},
    {"base64 decode",
     "FILE",
     QT_TRANSLATE_NOOP("Kyr_tool", "writes the bytes of Base64 with any line ends"),
     1,
     1,
     {},
     base64Decode,
     LongOnOutput},
    {"crc16",
     "FILE...",
     QT_TRANSLATE_NOOP("Kyr_tool", "writes the CRC-16/XMODEM of each file"),
     1,
     anyNumber,
     {},
     crc16,
     Long},
    {"sort",
     "[FILE]",
     QT_TRANSLATE_NOOP("Kyr_tool", "sorts lines in natural order: item9 before item10"),
     0,
     1,
     {},
     sortLines,
     LongOnOutput},
    {"next",
     "FILE",
     QT_TRANSLATE_NOOP("Kyr_tool", "names the next free file of a series, as img0007.tif"),
     1,
     1,
     {},
     nextName},
    {"changelog",
     "[OUTPUT]",
     QT_TRANSLATE_NOOP("Kyr_tool", "renders the library's change log as a page of HTML"),
     0,
     1,
     {{"group", "context|version|none",
       QT_TRANSLATE_NOOP("Kyr_tool", "what belongs together; context unless told")},
      {"language", "en|de|fr|jp|cn|pt",
       QT_TRANSLATE_NOOP("Kyr_tool", "of the page; English unless told")}},
     changelog},
    {"report",
     "[FILE]",
     QT_TRANSLATE_NOOP("Kyr_tool", "writes an archive for support, with the N newest dumps"),
     0,
     1,
     {{"dumps", "N",
       QT_TRANSLATE_NOOP("Kyr_tool",
                         "how many dumps go along, 0 to 1000; they hold memory, with secrets")},
      force(QT_TRANSLATE_NOOP("Kyr_tool", "replaces an older file"))},
     writeReport,
     Long},
    {"symbolize",
     "REPORT|DUMP",
     QT_TRANSLATE_NOOP(
         "Kyr_tool",
         "names the functions and lines of a crash report, from the debug information "
         "of the build that crashed"),
     1,
     1,
     {{"symbols", "DIR",
       QT_TRANSLATE_NOOP("Kyr_tool", "where debug information lies; may stand several times"),
       CompleteFiles},
      json},
     symbolize,
     Long},
    {"trace summary",
     "FILE",
     QT_TRANSLATE_NOOP("Kyr_tool", "shows where the time of a program went that KYR_TRACE traced"),
     1,
     1,
     {},
     traceSummary,
     Long},
    {"info",
     "",
     QT_TRANSLATE_NOOP("Kyr_tool", "shows versions, directories and the machine"),
     0,
     0,
     {json},
     showInfo,
     Quick,
     CompleteNothing},
};

}  // namespace

QString Option::text() const {
  return "--" + QString(name) + (isFlag() ? QString() : ' ' + QString(value));
}

QStringList Option::choices() const {
  const QStringList parts = QString(value).split('|');
  return parts.size() > 1 ? parts : QStringList();
}

const std::vector<Command>& commands() {
  return table;
}

const std::vector<Option>& commonOptions() {
  static const std::vector<Option> common = {
      {"help", "", QT_TRANSLATE_NOOP("Kyr_tool", "explains the command"), CompleteNothing, 'h'},
  };
  return common;
}

std::vector<Option> optionsOf(const Command& command) {
  std::vector<Option> options = command.options;
  options.insert(options.end(), commonOptions().begin(), commonOptions().end());
  return options;
}

const Command* findCommand(const QString& name) {
  const auto found = std::find_if(commands().begin(), commands().end(),
                                  [&](const Command& command) { return name == command.name; });
  return found == commands().end() ? nullptr : &*found;
}

QStringList membersOf(const QString& group) {
  QStringList members;
  for (const Command& command : commands()) {
    const QString name = command.name;
    if (name.startsWith(group + ' ')) {
      members += name.mid(group.size() + 1);
    }
  }
  return members;
}

QString usageOf(const Command& command) {
  QStringList words = {"kyr", command.name};
  if (*command.arguments != '\0') {
    words += command.arguments;
  }
  for (const Option& option : command.options) {
    words += '[' + option.text() + ']';
  }
  return words.join(' ');
}

}  // namespace KyrTool
