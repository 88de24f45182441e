#include "crash_dump.h"

#include "arguments.h"

#include <kyr/i18n/KyrTranslate.h>

#include <QDateTime>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <map>
#include <vector>

namespace KyrTool {

namespace {

/// What a stream of the file holds.
enum StreamType_t : std::uint32_t {
  Threads = 3,
  Modules = 4,
  Exception = 6,
  System = 7,
  Misc = 15
};

struct DumpModule {
  std::uint64_t begin;
  std::uint64_t end;
  QString buildId;
  QString path;
  bool isUsed = false;  ///< a frame lies in it
};

/// The registers that lead through a stack.
struct Registers {
  std::uint64_t instruction;
  std::uint64_t frame;  ///< of the calling function's frame pointer and return address
};

class Dump {
 public:
  Dump(const QByteArray& bytes, const QString& name) : _bytes(bytes), _name(name) {
    constexpr std::uint32_t mostStreams = 4096, entry = 12;
    const std::uint32_t count = word(8), directory = word(12);
    for (std::uint32_t i = 0; i < count && i < mostStreams; ++i) {
      const std::uint64_t at = directory + std::uint64_t{entry} * i;
      _streams[word(at)] = word(at + 8);
    }
  }

  QStringList lines() {
    readModules();
    readMachine();
    QStringList lines = head();
    const std::uint32_t crashing = has(Exception) ? word(stream(Exception)) : 0;
    addThreads(lines, crashing);
    lines << QString() << "modules of the backtraces:";
    for (const DumpModule& module : _modules) {
      if (!module.isUsed) {
        continue;
      }
      lines += "module " + hexadecimal(module.begin) + ' ' + hexadecimal(module.end) + ' ' +
               module.buildId + ' ' + module.path;
    }
    return lines;
  }

 private:
  static constexpr std::uint16_t intel32 = 0, amd64 = 9;

  [[noreturn]] void fail() const {
    throw FileError{Kyr::translate("Kyr_tool", "%1: the dump is cut short or damaged").arg(_name)};
  }

  template <class Number>
  Number at(std::uint64_t offset) const {
    Number number = 0;
    if (offset + sizeof number > std::uint64_t(_bytes.size())) {
      fail();
    }
    std::memcpy(&number, _bytes.constData() + offset, sizeof number);
    return number;
  }
  std::uint16_t half(std::uint64_t offset) const { return at<std::uint16_t>(offset); }
  std::uint32_t word(std::uint64_t offset) const { return at<std::uint32_t>(offset); }
  std::uint64_t wide(std::uint64_t offset) const { return at<std::uint64_t>(offset); }

  /// Bytes of the file itself, not a copy.
  QByteArray piece(std::uint64_t offset, std::uint64_t size) const {
    if (offset + size > std::uint64_t(_bytes.size())) {
      fail();
    }
    return QByteArray::fromRawData(_bytes.constData() + offset, int(size));
  }

  /// The number of entries of a list, of which a damaged file may tell any.
  std::uint32_t countAt(std::uint64_t list) const {
    constexpr std::uint32_t most = 10000;
    const std::uint32_t count = word(list);
    if (count > most) {
      fail();
    }
    return count;
  }

  bool has(StreamType_t type) const { return _streams.count(type) != 0; }
  std::uint64_t stream(StreamType_t type) const {
    const auto found = _streams.find(type);
    if (found == _streams.end()) {
      fail();
    }
    return found->second;
  }

  static QString hexadecimal(std::uint64_t number) { return "0x" + QString::number(number, 16); }

  void readMachine() {
    _machine = half(stream(System));
    if (_machine != intel32 && _machine != amd64) {
      throw FileError{
          Kyr::translate("Kyr_tool", "%1: is the dump of an unknown kind of machine").arg(_name)};
    }
  }

  // ---- modules ----

  QString nameAt(std::uint64_t offset) const {
    constexpr std::uint32_t longest = 1 << 16;
    const std::uint32_t size = word(offset);
    if (size > longest) {
      fail();
    }
    const QByteArray letters = piece(offset + 4, size);
    QString name(int(size / 2), QChar());
    std::memcpy(name.data(), letters.constData(), std::size_t(size / 2) * 2);
    // Nothing in a name may end its line; halves of characters become question marks as well.
    name = QString::fromUtf8(name.toUtf8()).replace('\\', '/');
    std::replace_if(
        name.begin(), name.end(), [](QChar letter) { return letter < ' ' || letter == 0x7f; }, '?');
    return name;
  }

  /// The digits under which crash reports name the build.
  static QString buildIdOf(const QByteArray& record) {
    constexpr std::array<int, 16> order = {3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};
    if (record.startsWith("LEpB") && record.size() > 4) {
      return record.mid(4).toHex();
    }
    if (!record.startsWith("RSDS") || record.size() < 4 + int(order.size())) {
      return "no-build-id";
    }
    QByteArray guid;
    for (const int place : order) {
      guid += record[4 + place];
    }
    return guid.toHex();
  }

  void readModules() {
    constexpr std::uint64_t size = 108;
    const std::uint64_t list = stream(Modules);
    for (std::uint32_t i = 0; i < countAt(list); ++i) {
      const std::uint64_t entry = list + 4 + size * i;
      const std::uint64_t begin = wide(entry);
      _modules.push_back({begin, begin + word(entry + 8),
                          buildIdOf(piece(word(entry + 80), word(entry + 76))),
                          nameAt(word(entry + 20)), false});
    }
  }

  DumpModule* moduleAt(std::uint64_t address) {
    for (DumpModule& module : _modules) {
      if (address >= module.begin && address < module.end) {
        return &module;
      }
    }
    return nullptr;
  }

  // ---- threads ----

  QStringList head() const {
    QStringList lines;
    if (has(Misc)) {
      lines += "process: " + QString::number(word(stream(Misc) + 8));
    }
    lines += "time: " + QDateTime::fromSecsSinceEpoch(word(20), Qt::UTC).toString(Qt::ISODate);
    if (has(Exception)) {
      const std::uint64_t fault = stream(Exception);
      lines += "caught exception: " + hexadecimal(word(fault + 8));
      lines += "at address " + hexadecimal(registersAt(word(fault + 164)).instruction);
    }
    return lines;
  }

  Registers registersAt(std::uint64_t context) const {
    return _machine == amd64 ? Registers{wide(context + 0xF8), 0}
                             : Registers{word(context + 0xB8), word(context + 0xB4)};
  }

  void addThreads(QStringList& lines, std::uint32_t crashing) {
    constexpr std::uint64_t size = 48;
    const std::uint64_t list = stream(Threads);
    for (const bool isCrashing : {true, false}) {
      for (std::uint32_t i = 0; i < countAt(list); ++i) {
        const std::uint64_t thread = list + 4 + size * i;
        if ((word(thread) == crashing) == isCrashing) {
          addThread(lines, thread, isCrashing);
        }
      }
    }
  }

  void addThread(QStringList& lines, std::uint64_t thread, bool isCrashing) {
    lines << QString();
    if (isCrashing) {
      lines += "backtrace of the crashing thread " + hexadecimal(word(thread)) + ':';
    } else {
      lines += QString();
      lines += "next thread: " + hexadecimal(word(thread)) + ", priority " +
               QString::number(int(word(thread + 12)));
    }
    // Of the crashing thread the registers at the fault count, not those in which it wrote the
    // dump.
    const Registers registers =
        isCrashing ? registersAt(word(stream(Exception) + 164)) : registersAt(word(thread + 44));
    const QByteArray stack = piece(word(thread + 36), word(thread + 32));
    addFrames(lines, registers, wide(thread + 24), stack);
  }

  void addFrames(QStringList& lines, const Registers& registers, std::uint64_t begin,
                 const QByteArray& stack) {
    constexpr int mostFrames = 1000, mostOfAll = 100000;
    int number = 0;
    addFrame(lines, number++, registers.instruction);
    for (std::uint64_t frame = registers.frame; frame >= begin;) {
      const std::uint64_t place = frame - begin;
      if (place + 8 > std::uint64_t(stack.size()) || number == mostFrames ||
          lines.size() > mostOfAll) {
        break;
      }
      std::array<std::uint32_t, 2> saved{};  // the caller's frame pointer, the return address
      std::memcpy(saved.data(), stack.constData() + place, sizeof saved);
      if (!moduleAt(saved[1])) {
        break;
      }
      addFrame(lines, number++, saved[1]);
      if (saved[0] <= frame) {  // callers lie further outwards
        break;
      }
      frame = saved[0];
    }
  }

  void addFrame(QStringList& lines, int number, std::uint64_t address) {
    DumpModule* const module = moduleAt(address);
    if (module) {
      module->isUsed = true;
    }
    lines += '#' + QString::number(number).leftJustified(2) + ' ' + hexadecimal(address) + ' ' +
             (module ? module->path.section('/', -1) + '+' + hexadecimal(address - module->begin)
                     : QString("?"));
  }

  const QByteArray& _bytes;
  const QString& _name;
  std::map<std::uint32_t, std::uint32_t> _streams;
  std::uint16_t _machine = 0;
  std::vector<DumpModule> _modules;
};

}  // namespace

bool isDump(const QByteArray& bytes) {
  return bytes.startsWith("MDMP");
}

QString textOfDump(const QByteArray& bytes, const QString& name) {
  return Dump(bytes, name).lines().join('\n');
}

}  // namespace KyrTool
