#include "symbol_files.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <array>
#include <cstring>

namespace KyrTool {

namespace {

constexpr std::uint64_t page = 4096;

/// The numbers of a file at their offsets, lowest byte first. What lies behind its end is 0.
class Numbers {
 public:
  explicit Numbers(const QString& fileName) : _file(fileName) { _file.open(QIODevice::ReadOnly); }

  QByteArray bytes(std::uint64_t offset, int count) {
    const bool isInside = offset < std::uint64_t(_file.size());
    return isInside && _file.seek(qint64(offset)) ? _file.read(count) : QByteArray();
  }
  template <class Number>
  Number at(std::uint64_t offset) {
    const QByteArray read = bytes(offset, sizeof(Number));
    Number number = 0;
    std::memcpy(&number, read.constData(), read.size() == sizeof number ? sizeof number : 0);
    return number;
  }
  std::uint16_t half(std::uint64_t offset) { return at<std::uint16_t>(offset); }
  std::uint32_t word(std::uint64_t offset) { return at<std::uint32_t>(offset); }
  std::uint64_t wide(std::uint64_t offset) { return at<std::uint64_t>(offset); }

 private:
  QFile _file;
};

// ---- ELF: System V ABI, Elf64 -----------------------------------------------------------------

/// The content of the note that holds the build id, if there is one.
QString buildIdOfNotes(const QByteArray& notes) {
  constexpr std::uint32_t buildIdNote = 3;
  constexpr std::uint64_t head = 12, longest = 64;
  const auto size = std::uint64_t(notes.size());
  for (std::uint64_t at = 0; at + head <= size;) {
    std::array<std::uint32_t, 3> words{};  // the lengths of name and content, and the kind
    std::memcpy(words.data(), notes.constData() + at, head);
    const std::uint64_t begin = at + head + (std::uint64_t{words[0]} + 3) / 4 * 4;
    if (words[2] == buildIdNote && notes.mid(int(at + head), 4) == QByteArray("GNU", 4) &&
        words[1] <= longest && begin <= size) {
      return notes.mid(int(begin), int(words[1])).toHex();
    }
    at = begin + (std::uint64_t{words[1]} + 3) / 4 * 4;
  }
  return {};
}

FileIdentity identityOfElf(Numbers& file) {
  constexpr std::uint32_t notes = 7, loaded = 1;
  constexpr unsigned mostSections = 1000;  // a damaged file may tell any number
  FileIdentity identity;
  const std::uint64_t sections = file.wide(40), size = file.half(58);
  const unsigned count = std::min<unsigned>(file.half(60), mostSections);
  for (unsigned i = 0; i < count && identity.buildId.isEmpty(); ++i) {
    const std::uint64_t at = sections + i * size;
    if (file.word(at + 4) == notes) {
      const std::uint64_t length = std::min(file.wide(at + 32), page);
      identity.buildId = buildIdOfNotes(file.bytes(file.wide(at + 24), int(length)));
    }
  }
  // The segments are in the order of their addresses.
  for (unsigned i = 0; i < file.half(56); ++i) {
    const std::uint64_t at = file.wide(32) + i * std::uint64_t{file.half(54)};
    if (file.word(at) == loaded) {
      identity.base = file.wide(at + 16) / page * page;
      break;
    }
  }
  return identity;
}

// ---- PE: Microsoft's "PE Format" --------------------------------------------------------------

/// Where an address that counts from the module's beginning lies in the file; 0 for nowhere.
std::uint64_t offsetInFile(Numbers& file, std::uint64_t sections, unsigned count,
                           std::uint64_t address) {
  for (unsigned i = 0; i < count; ++i) {
    const std::uint64_t at = sections + i * 40ULL;
    const std::uint64_t begin = file.word(at + 12), size = file.word(at + 16);
    if (address >= begin && address < begin + size) {
      return file.word(at + 20) + (address - begin);
    }
  }
  return 0;
}

/// The GUID of a CodeView record, its bytes in the order in which people write them.
QString buildIdOfCodeView(Numbers& file, std::uint64_t record) {
  constexpr std::array<int, 16> order = {3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};
  const QByteArray bytes = file.bytes(record, 4 + int(order.size()));
  if (bytes.size() != 4 + int(order.size()) || !bytes.startsWith("RSDS")) {
    return {};
  }
  QByteArray guid;
  for (const int place : order) {
    guid += bytes[4 + place];
  }
  return guid.toHex();
}

FileIdentity identityOfPe(Numbers& file, std::uint64_t head) {
  constexpr std::uint32_t codeView = 2;
  constexpr std::uint64_t entrySize = 28, most = 16;
  const bool is64 = file.half(head + 24) == 0x20b;
  FileIdentity identity;
  identity.base = is64 ? file.wide(head + 24 + 24) : file.word(head + 24 + 28);
  const std::uint64_t directory = head + 24 + (is64 ? 112 : 96) + 6 * 8ULL;
  const std::uint64_t sections = head + 24 + file.half(head + 20);
  const std::uint64_t list =
      offsetInFile(file, sections, file.half(head + 6), file.word(directory));
  const std::uint64_t count = std::min(file.word(directory + 4) / entrySize, most);
  for (std::uint64_t i = 0; list != 0 && i < count && identity.buildId.isEmpty(); ++i) {
    const std::uint64_t entry = list + i * entrySize;
    if (file.word(entry + 12) == codeView) {
      identity.buildId = buildIdOfCodeView(file, file.word(entry + 24));
    }
  }
  return identity;
}

// ---- folders ----------------------------------------------------------------------------------

/// A file that may hold what is looked for.
using Candidates = QStringList;

QString byBuildId(const QString& folder, const QString& buildId) {
  return folder + "/.build-id/" + buildId.left(2) + '/' + buildId.mid(2) + ".debug";
}

/// The builds of a program that a folder's list names.
QStringList listedBuilds(const QString& folder, const QString& name) {
  QStringList builds;
  QFile list(folder + "/modules.txt");
  list.open(QIODevice::ReadOnly);
  while (list.isOpen() && !list.atEnd()) {
    const QString line = QString::fromUtf8(list.readLine(page)).trimmed();
    if (line.section(' ', 1).compare(name, Qt::CaseInsensitive) == 0) {
      builds += line.section(' ', 0, 0);
    }
  }
  return builds;
}

Candidates candidatesIn(const QString& folder, const QString& name, const QString& buildId) {
  Candidates files;
  if (!buildId.isEmpty()) {
    files += byBuildId(folder, buildId);
  }
  for (const QString& build : listedBuilds(folder, name)) {
    files += byBuildId(folder, build);
  }
  return files << folder + '/' + name + ".debug" << folder + '/' + name;
}

}  // namespace

std::optional<FileIdentity> identityOf(const QString& fileName) {
  constexpr unsigned char elfWide[] = {0x7f, 'E', 'L', 'F', 2, 1};
  Numbers file(fileName);
  const QByteArray begin = file.bytes(0, sizeof elfWide);
  if (begin == QByteArray(reinterpret_cast<const char*>(elfWide), sizeof elfWide)) {
    return identityOfElf(file);
  }
  const std::uint64_t head = file.word(0x3c);
  if (begin.startsWith("MZ") && file.bytes(head, 4) == QByteArray("PE\0", 4)) {
    return identityOfPe(file, head);
  }
  return {};
}

SymbolFile findSymbols(const QStringList& folders, const QString& name, const QString& buildId) {
  SymbolFile found;
  for (const QString& folder : folders) {
    for (const QString& fileName : candidatesIn(folder, name, buildId)) {
      const std::optional<FileIdentity> identity = identityOf(fileName);
      if (!identity) {
        continue;
      }
      if (!buildId.isEmpty() && identity->buildId == buildId) {
        return {SymbolsFound, fileName, {}, identity->base};
      }
      if (!found.buildIds.contains(identity->buildId)) {
        found.buildIds += identity->buildId;
        found.fileName = fileName;
        found.base = identity->base;
      }
    }
  }
  if (buildId.isEmpty() && found.buildIds.size() == 1) {
    found.state = SymbolsNotChecked;
    return found;
  }
  found.state = found.buildIds.isEmpty() ? SymbolsMissing : SymbolsOfOther;
  found.fileName.clear();
  return found;
}

}  // namespace KyrTool
