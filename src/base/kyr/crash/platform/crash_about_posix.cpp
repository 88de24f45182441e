#include <kyr/crash/crash_posix_p.h>
#include <kyr/sync/thread_sites_p.h>

#include <ctime>
#include <string_view>

#include <poll.h>
#include <sys/utsname.h>
#include <unistd.h>

namespace Kyr {

namespace {

using namespace Crash;

/// What the list of mappings puts behind the name of a file that was removed or replaced.
constexpr std::string_view removedMark = " (deleted)";

/// Bytes of a text that are shown at most.
using Piece = std::array<char, 200>;

/// Reads a text, as far as there is memory: its owner may have released it.
void readText(const Memory& memory, const char* text, Piece& piece) noexcept {
  const auto address = reinterpret_cast<std::uintptr_t>(text);
  std::size_t length = 0;
  while (length < piece.size() - 1 && memory.read(address + length, &piece[length], 1) &&
         piece[length] != '\0') {
    ++length;
  }
  piece[length] = '\0';
}

/// The system's name of a thread, without the line feed behind it.
void readName(int thread, Piece& name) noexcept {
  Text path;
  path << "/proc/self/task/";
  path.decimal(thread) << "/comm";
  const std::size_t length = readSystemFile(path.data(), name.data(), name.size() - 1);
  name[length > 0 ? length - 1 : 0] = '\0';
}

void printSystem() noexcept {
  utsname system{};
  Text text;
  if (::uname(&system) == 0) {
    text << "system: " << system.sysname << " " << system.release << " " << system.machine << ", ";
    text.decimal(::sysconf(_SC_NPROCESSORS_ONLN)) << " processors\n";
    text.print();
  }
}

void printThread(int thread, const Memory& memory) noexcept {
  Piece name{};
  Piece function{};
  Piece file{};
  ThreadSite site{};
  readName(thread, name);
  if (findThreadSite(static_cast<std::uint64_t>(thread), site)) {
    readText(memory, site.function, function);
    readText(memory, site.file, file);
  }
  threadLine(static_cast<std::uint64_t>(thread), name.data(), function.data(), file.data(),
             site.line)
      .print();
}

void printModule(const LoadedModule& module, const Memory& memory) noexcept {
  Text text;
  text << "module ";
  text.hexadecimal(module.begin) << " ";
  text.hexadecimal(module.end) << " ";
  BuildId id{};
  const std::size_t length = readBuildId(memory, module.begin, id);
  appendBytes(text, id.data(), length);
  text << (length > 0 ? " " : "no-build-id ");
  const std::string_view path(module.path, module.pathLength);
  const std::size_t mark = path.rfind(removedMark);
  const bool isRemoved = mark != std::string_view::npos && mark + removedMark.size() == path.size();
  appendPath(text, path.data(), isRemoved ? mark : path.size());
  text << "\n";
  text.print();
}

}  // namespace

void Crash::printAbout(const Text& fault, const char* dump, const Threads& threads,
                       const Memory& memory, const MetModules& met) noexcept {
  Text text;
  text << "\n\nabout this crash:\nfault: ";
  appendVisible(text, fault.data(), fault.length());
  text.print();
  text = Text();
  text << "\ntime: ";
  appendMoment(text, ::time(nullptr));
  text << "\nprocess: ";
  text.decimal(::getpid()) << "\n";
  text.print();
  Crash::print(preparedLines());
  printSystem();
  text = Text();
  if (*dump != '\0') {
    text << "dump: " << dump << "\n";
  }
  text << "\nthreads:\n";
  text.print();
  for (const FoundThread& thread : threads) {
    if (thread.id != 0) {
      printThread(thread.id, memory);
    }
  }
  Crash::print("\nmodules of the backtraces:\n");
  LoadedModule module{};
  for (const std::uint64_t begin : met) {
    if (findModule(memory, begin, module)) {
      printModule(module, memory);
    }
  }
}

void Crash::showNotice(const char* dump) noexcept {
  constexpr int patience = 1000;  // milliseconds
  std::intptr_t place = -1;
  Text text = takeNotice(dump, place);
  pollfd waiting = {static_cast<int>(place), POLLOUT, 0};
  if (text.length() > 0 && ::poll(&waiting, 1, patience) == 1) {
    text << "\n";
    const ssize_t written = ::write(waiting.fd, text.data(), text.length());
    static_cast<void>(written);  // nobody is left to be told of a failure
  }
}

}  // namespace Kyr
