#include "commands.h"
#include "crash_dump.h"
#include "crash_report.h"
#include "input.h"
#include "json.h"
#include "output.h"
#include "symbol_files.h"
#include "symbolizer.h"

#include <kyr/i18n/KyrTranslate.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>

#include <algorithm>
#include <set>

namespace KyrTool {

namespace {

constexpr std::size_t most = std::size_t{512} << 20;  // bytes of a report or a dump

QByteArray readWhole(Input& input) {
  constexpr std::size_t pieceSize = std::size_t{1} << 20;
  QByteArray whole;
  Kyr::StructVector<unsigned char> piece;
  do {
    input.read(piece, pieceSize);
    whole.append(reinterpret_cast<const char*>(piece.data()), int(piece.size()));
    if (std::size_t(whole.size()) > most) {
      throw FileError{
          Kyr::translate("Kyr_tool", "%1: is too large for a report or a dump").arg(input.name())};
    }
  } while (piece.size() == pieceSize);
  return whole;
}

/// Where symbols are looked for: where the user says, else beside the tool and in the system.
QStringList foldersOf(const Arguments& arguments) {
  QStringList folders = arguments.all("symbols");
  for (const QString& folder : folders) {
    if (!QFileInfo(folder).isDir()) {
      throw FileError{Kyr::translate("Kyr_tool", "%1: is no folder").arg(folder)};
    }
  }
  if (folders.isEmpty()) {
    folders << QDir::cleanPath(QCoreApplication::applicationDirPath() + "/../lib/debug")
            << "/usr/lib/debug";
  }
  return folders;
}

/// A module with its debug information.
struct Symbols {
  SymbolFile file;
  bool isUsed = false;  ///< a frame lies in it
};

/// The address as the linker has placed it, of the instruction that is looked for.
std::uint64_t linkedAddress(const CrashFrame& frame, const SymbolFile& file) {
  return file.base + frame.offset - (frame.isCall ? 1 : 0);
}

/// Asks for all frames of one module that the report gives no line for.
void name(CrashReport& report, std::size_t module, const SymbolFile& file) {
  std::vector<CrashFrame*> frames;
  std::vector<std::uint64_t> addresses;
  for (CrashFrame& frame : report.frames) {
    if (frame.module == int(module) && frame.hasOffset && !frame.isNamed) {
      frames.push_back(&frame);
      addresses.push_back(linkedAddress(frame, file));
    }
  }
  if (frames.empty()) {
    return;
  }
  std::vector<std::vector<Place>> places = placesOf(file.fileName, addresses);
  for (std::size_t i = 0; i < frames.size(); ++i) {
    frames[i]->places = std::move(places[i]);
  }
}

std::vector<Symbols> nameAll(CrashReport& report, const QStringList& folders) {
  std::vector<Symbols> symbols(report.modules.size());
  for (const CrashFrame& frame : report.frames) {
    if (frame.module >= 0) {
      symbols[std::size_t(frame.module)].isUsed = true;
    }
  }
  for (std::size_t i = 0; i < symbols.size(); ++i) {
    if (symbols[i].isUsed) {
      symbols[i].file = findSymbols(folders, report.modules[i].name, report.modules[i].buildId);
    }
    if (!symbols[i].file.fileName.isEmpty()) {
      name(report, i, symbols[i].file);
    }
  }
  return symbols;
}

const char* stateOf(const SymbolFile& file) {
  switch (file.state) {
    case SymbolsFound:
      return "found";
    case SymbolsNotChecked:
      return "not checked";
    case SymbolsOfOther:
      return "other build";
    case SymbolsMissing:
      break;
  }
  return "missing";
}

/// What a reader has to know of a module.
QString remarkOn(const CrashModule& module, const SymbolFile& file) {
  const QString others = file.buildIds.join(", ");
  if (module.buildId.isEmpty()) {
    return file.state == SymbolsNotChecked
               ? Kyr::translate("Kyr_tool", "%1 (no build id: not checked)").arg(file.fileName)
           : file.state == SymbolsOfOther
               ? Kyr::translate("Kyr_tool", "no build id; there are the builds %1").arg(others)
               : Kyr::translate("Kyr_tool", "no build id");
  }
  return file.state == SymbolsFound ? file.fileName
         : file.state == SymbolsOfOther
             ? Kyr::translate("Kyr_tool", "%1 crashed, there is %2").arg(module.buildId, others)
             : module.buildId;
}

void printModules(const CrashReport& report, const std::vector<Symbols>& symbols) {
  constexpr int state = 12, name = 20;
  print('\n' + Kyr::translate("Kyr_tool", "symbols:") + '\n');
  std::set<QString> printed;
  for (std::size_t i = 0; i < symbols.size(); ++i) {
    const CrashModule& module = report.modules[i];
    const QString line = QString(stateOf(symbols[i].file)).leftJustified(state) +
                         printable(module.name).leftJustified(name) + ' ' +
                         printable(remarkOn(module, symbols[i].file));
    if (symbols[i].isUsed && printed.insert(line).second) {
      print(line + '\n');
    }
  }
}

QString hexadecimal(std::uint64_t number) {
  return "0x" + QString::number(number, 16);
}

QJsonObject jsonOf(const CrashReport& report, const CrashFrame& frame, const Place& place,
                   bool isInlined) {
  QJsonObject object{{"address", hexadecimal(frame.address)}, {"inlined", isInlined}};
  if (frame.module >= 0) {
    object["module"] = report.modules[std::size_t(frame.module)].name;
  }
  if (frame.hasOffset) {
    object["offset"] = hexadecimal(frame.offset);
  }
  if (!place.function.isEmpty()) {
    object["function"] = place.function;
  }
  if (place.line > 0) {
    object["file"] = place.file;
    object["line"] = place.line;
  }
  return object;
}

QJsonArray jsonOfFrames(const CrashReport& report, int stack) {
  QJsonArray frames;
  for (const CrashFrame& frame : report.frames) {
    if (frame.stack != stack) {
      continue;
    }
    for (std::size_t i = 0; i < frame.places.size(); ++i) {
      frames += jsonOf(report, frame, frame.places[i], i + 1 < frame.places.size());
    }
    if (frame.places.empty()) {
      frames += jsonOf(report, frame, frame.given, frame.isInlined);
    }
  }
  return frames;
}

void printAsJson(const CrashReport& report, const std::vector<Symbols>& symbols) {
  QJsonArray modules, stacks;
  for (std::size_t i = 0; i < symbols.size(); ++i) {
    const CrashModule& module = report.modules[i];
    if (symbols[i].isUsed) {
      modules += QJsonObject{{"name", module.name},
                             {"buildId", module.buildId},
                             {"state", stateOf(symbols[i].file)},
                             {"file", symbols[i].file.fileName},
                             {"others", QJsonArray::fromStringList(symbols[i].file.buildIds)}};
    }
  }
  for (int i = 0; i < report.stacks.size(); ++i) {
    stacks += QJsonObject{{"heading", report.stacks[i]}, {"frames", jsonOfFrames(report, i)}};
  }
  printJson({{"modules", modules}, {"stacks", stacks}});
}

/// Whether debug information was refused because it is of another build.
bool isRefused(const std::vector<Symbols>& symbols) {
  return std::any_of(symbols.begin(), symbols.end(), [](const Symbols& each) {
    return each.isUsed && each.file.state == SymbolsOfOther;
  });
}

}  // namespace

int symbolize(const Arguments& arguments) {
  const QStringList folders = foldersOf(arguments);
  Input input(arguments[0]);
  const QByteArray bytes = readWhole(input);
  CrashReport report =
      parseReport(isDump(bytes) ? textOfDump(bytes, input.name()) : QString::fromUtf8(bytes));
  if (report.frames.empty()) {
    throw FileError{
        Kyr::translate("Kyr_tool", "%1: holds no backtrace, and is no dump").arg(input.name())};
  }
  const std::vector<Symbols> symbols = nameAll(report, folders);
  if (arguments.has("json")) {
    printAsJson(report, symbols);
  } else {
    QStringList lines = linesOf(report);
    while (!lines.isEmpty() && lines.last().isEmpty()) {
      lines.removeLast();
    }
    for (const QString& line : lines) {
      print(printable(line) + '\n');
    }
    printModules(report, symbols);
  }
  return isRefused(symbols) ? FileAtFault : Fine;
}

}  // namespace KyrTool
