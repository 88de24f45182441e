#include "symbolizer.h"

#include "arguments.h"
#include "output.h"

#include <kyr/core/KyrException.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/jobs/KyrStopToken.h>
#include <kyr/os/KyrOS.h>
#include <kyr/os/KyrProcess.h>

#include <cstdlib>
#include <memory>

#include <cxxabi.h>

namespace KyrTool {

namespace {

/// A program and what makes it answer as addr2line does: the address, then two lines for each
/// function.
struct Symbolizer {
  QString program;
  QStringList words;
};

Symbolizer findSymbolizer() {
  // It counts inlined functions more exactly than addr2line does.
  QStringList names{"llvm-symbolizer"};
  constexpr int oldest = 14, newest = 25;
  for (int version = newest; version >= oldest; --version) {
    names += QString("llvm-symbolizer-%1").arg(version);
  }
  for (const QString& name : names) {
    const QString program = Kyr::OS::findExecutable(name);
    if (!program.isEmpty()) {
      return {program, {"--output-style=GNU", "-a", "-i", "-f", "-C", "--obj"}};
    }
  }
  const QString program = Kyr::OS::findExecutable("addr2line");
  if (program.isEmpty()) {
    throw FileError{
        Kyr::translate("Kyr_tool",
                       "neither llvm-symbolizer nor addr2line is installed, one of which reads "
                       "debug information")};
  }
  return {program, {"-a", "-i", "-f", "-C", "-e"}};
}

/// The name as the source has it. Files for Windows have one underscore less or more in front.
QString plainName(const QString& name) {
  for (const QString& symbol : {name, '_' + name, name.mid(1)}) {
    if (symbol.startsWith("_Z")) {
      int status = 0;
      const std::unique_ptr<char, void (*)(void*)> plain(
          abi::__cxa_demangle(symbol.toUtf8().constData(), nullptr, nullptr, &status), &std::free);
      if (plain) {
        return QString::fromUtf8(plain.get());
      }
    }
  }
  return name;
}

Place placeOf(const QString& function, QString where) {
  where = where.section(" (discriminator", 0, 0);
  Place place;
  place.function = function == "??" ? QString() : plainName(function);
  place.line = where.section(':', -1).toInt();
  place.file = place.line > 0 ? where.section(':', 0, -2) : QString();
  return place;
}

QByteArray run(const QString& fileName, const QByteArray& input) {
  constexpr int look = 100;  // milliseconds
  const Symbolizer symbolizer = findSymbolizer();
  Kyr::Process process(symbolizer.program, symbolizer.words + QStringList{fileName});
  process.setEnv("DEBUGINFOD_URLS", QString());  // nothing is fetched
  process.setInput(input);
  process.start();
  while (!process.wait(look)) {
    if (Kyr::isStopped()) {
      process.terminate(0);
      throw Kyr::Stopped();
    }
  }
  const Kyr::ProcessResult result = process.getResult();
  if (!result.isGood()) {
    throw FileError{Kyr::translate("Kyr_tool", "%1: %2 cannot read it: %3")
                        .arg(fileName, symbolizer.program,
                             printable(QString::fromLocal8Bit(result.errors).trimmed()))};
  }
  return result.output;
}

/// Whether the line is the address, in whatever width.
bool isAddress(const QString& line, std::uint64_t address) {
  constexpr int hexadecimal = 16;
  bool isNumber = false;
  return line.startsWith("0x") && line.mid(2).toULongLong(&isNumber, hexadecimal) == address &&
         isNumber;
}

}  // namespace

std::vector<std::vector<Place>> placesOf(const QString& fileName,
                                         const std::vector<std::uint64_t>& addresses) {
  QByteArray input;
  for (const std::uint64_t address : addresses) {
    input += "0x" + QByteArray::number(qulonglong(address), 16) + '\n';
  }
  QStringList lines;
  try {
    lines = QString::fromUtf8(run(fileName, input)).split('\n');
  } catch (const Kyr::Stopped&) {
    throw;
  } catch (const Kyr::Exception& error) {
    throw FileError{error.getText()};
  }
  std::vector<std::vector<Place>> found;
  for (int i = 0; i + 1 < lines.size();) {
    if (found.size() < addresses.size() && isAddress(lines[i], addresses[found.size()])) {
      found.emplace_back();
      ++i;
    } else if (!found.empty()) {
      found.back().push_back(placeOf(lines[i].trimmed(), lines[i + 1].trimmed()));
      i += 2;
    } else {
      break;
    }
  }
  if (found.size() != addresses.size()) {
    throw FileError{
        Kyr::translate("Kyr_tool", "%1: its debug information cannot be read").arg(fileName)};
  }
  for (std::vector<Place>& places : found) {
    while (!places.empty() && places.back().function.isEmpty()) {
      places.pop_back();
    }
  }
  return found;
}

}  // namespace KyrTool
