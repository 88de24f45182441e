/// \file
/// The command line tool kyr: a look into files, and values in other units.

#include "commands.h"
#include "console_p.h"
#include "output.h"

#include <kyr/core/KyrVersion.h>

#include <QCoreApplication>
#include <QTextCodec>

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <iterator>
#include <new>

namespace {

using namespace KyrTool;

struct Command {
  const char* name;
  const char* arguments;
  const char* summary;
  int fewest;
  int most;
  QStringList options;
  int (*run)(const Arguments&);
  QStringList flags = {};
};

const Command commands[] = {
    {"convert",
     "VALUE FROM TO [--kind KIND] [--digits N] [--dpi N]",
     "converts a value, as in: kyr convert 25.4 mm in",
     3,
     3,
     {"kind", "digits", "dpi"},
     convert},
    {"units", "[KIND]", "lists the kinds of quantities, or the units of one", 0, 1, {}, units},
    {"zip info", "FILE", "shows the header and the blocks of a zip stream", 1, 1, {}, zipInfo},
    {"zip verify", "FILE", "says whether a zip stream is complete", 1, 1, {}, zipVerify},
    {"zip cat", "FILE", "writes the content of a zip stream", 1, 1, {}, zipCat},
    {"zip pack",
     "FILE OUTPUT [--file-version N]",
     "makes a zip stream of a file",
     2,
     2,
     {"file-version"},
     zipPack},
    {"tar list", "FILE [--limit MIB]", "lists the files of a tar.gz", 1, 1, {"limit"}, tarList},
    {"tar create",
     "OUTPUT PATH... [--force]",
     "makes a tar.gz of files and directories; keeps an older one if files are missing",
     2,
     10000,
     {},
     tarCreate,
     {"force"}},
    {"tar extract",
     "FILE [DIRECTORY] [--limit MIB] [--force]",
     "unpacks a tar.gz, of at most 512 MiB unless told, and replaces no files",
     1,
     2,
     {"limit"},
     tarExtract,
     {"force"}},
    {"base64 encode", "FILE", "writes a file as Base64, in one line", 1, 1, {}, base64Encode},
    {"base64 decode",
     "FILE",
     "writes the bytes of Base64 with any line ends",
     1,
     1,
     {},
     base64Decode},
    {"crc16", "FILE...", "writes the CRC-16/XMODEM of each file", 1, 10000, {}, crc16},
    {"sort", "[FILE]", "sorts lines in natural order: item9 before item10", 0, 1, {}, sortLines},
    {"next", "FILE", "names the next free file of a series, as img0007.tif", 1, 1, {}, nextName},
    {"changelog",
     "[OUTPUT] [--group context|version|none] [--language LANGUAGE]",
     "renders the library's change log as a page of HTML",
     0,
     1,
     {"group", "language"},
     changelog},
    {"report",
     "[FILE] [--dumps N]",
     "writes an archive for support, with the N newest dumps",
     0,
     1,
     {"dumps"},
     writeReport},
    {"info", "", "shows versions, directories and the machine", 0, 0, {}, showInfo},
};

QString usageOf(const Command& command) {
  return QString("kyr %1 %2").arg(command.name, command.arguments);
}

void showHelp() {
  print("kyr looks into files and converts values.\n\n");
  for (const Command& command : commands) {
    print(QString("  %1\n      %2\n").arg(usageOf(command), command.summary));
  }
  print(
      "  kyr --help\n"
      "  kyr --version\n\n"
      "FILE may be - for standard input, OUTPUT - for standard output. Units that are\n"
      "hard to type have other spellings: um for µm, degC for °C, mm2 for mm²; see\n"
      "kyr units KIND.\n\n"
      "Exit codes: 0 all is well, 1 a file is at fault, 2 wrong usage.\n");
}

int complain(const QString& fault, const QString& usage) {
  printError(fault);
  std::cerr << "usage: " << usage.toUtf8().constData() << '\n';
  return WrongUsage;
}

int run(const Command& command, const QStringList& words) {
  try {
    return command.run(
        Arguments(words, command.options, command.flags, command.fewest, command.most));
  } catch (const UsageError& error) {
    return complain(error.fault, usageOf(command));
  } catch (const FileError& error) {
    printError(error.fault);
    return FileAtFault;
  }
}

const Command* find(const QString& name) {
  const auto found = std::find_if(std::begin(commands), std::end(commands),
                                  [&](const Command& command) { return name == command.name; });
  return found == std::end(commands) ? nullptr : found;
}

/// The second words of the commands whose first word this is; empty for a command of one word.
QStringList membersOf(const QString& group) {
  QStringList members;
  for (const Command& command : commands) {
    const QString name = command.name;
    if (name.startsWith(group + ' ')) {
      members += name.mid(group.size() + 1);
    }
  }
  return members;
}

int dispatch(const QStringList& words) {
  const QString first = words.value(0);
  if (words.mid(0, words.indexOf("--")).contains("--help")) {
    showHelp();
    return Fine;
  }
  if (first == "--version") {
    print(QString("kyr %1\n").arg(Kyr::libraryVersion()));
    return Fine;
  }
  const QStringList members = membersOf(first);
  const int length = members.isEmpty() ? 1 : 2;
  const QString name = QStringList(words.mid(0, length)).join(' ');
  if (const Command* const command = find(name)) {
    return run(*command, words.mid(length));
  }
  const bool half = name == first && !members.isEmpty();
  const QString fault = name.isEmpty() ? QString("a command is missing")
                        : half         ? QString("%1 needs one of %2").arg(name, members.join(", "))
                                       : QString("unknown command \"%1\"").arg(name);
  return complain(fault, "kyr COMMAND ...   (kyr --help explains)");
}

/// Neither Qt nor the heap can be trusted any more, and what the end of a process calls needs both.
[[noreturn]] void endWithoutMemory() {
  std::cout.flush();
  std::cerr << "kyr: not enough memory\n";
  std::_Exit(FileAtFault);
}

std::terminate_handler byDefault = nullptr;

/// An exception is lost in functions, of Qt too, that must not throw.
[[noreturn]] void terminate() {
  try {
    if (const std::exception_ptr error = std::current_exception()) {
      std::rethrow_exception(error);
    }
  } catch (const std::bad_alloc&) {
    endWithoutMemory();
  } catch (...) {
    byDefault();
  }
  byDefault();
  std::abort();
}

int runTool(int argc, char** argv) {
  prepareStandardStreams();
  std::ios_base::sync_with_stdio(false);
  prepareOutput();
  // Names of files and units are the same whatever the user's locale is.
  QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
  const QCoreApplication application(argc, argv);
  const int code = dispatch(QCoreApplication::arguments().mid(1));
  return finishOutput() ? code : std::max<int>(code, FileAtFault);
}

}  // namespace

int main(int argc, char** argv) {
  byDefault = std::set_terminate(&terminate);
  try {
    return runTool(argc, argv);
  } catch (const std::bad_alloc&) {
    endWithoutMemory();
  }
}
