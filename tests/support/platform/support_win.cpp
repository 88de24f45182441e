#include "support/Support.h"
#include "support/support_p.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace KyrTest {

// tmpfile() would want to write to the root of the drive.
Stream temporaryStream() {
  static int count = 0;
  const QString name = QString("/kyr-test-%1-%2").arg(::GetCurrentProcessId()).arg(++count);
  return {::_wfopen((QDir::tempPath() + name).toStdWString().c_str(), L"w+bTD"), &std::fclose};
}

Stream pipeStream(const QByteArray& bytes) {
  std::array<int, 2> ends{};
  EXPECT_EQ(::_pipe(ends.data(), 4096, _O_BINARY), 0);
  EXPECT_EQ(::_write(ends[1], bytes.data(), static_cast<unsigned>(bytes.size())), bytes.size());
  ::_close(ends[1]);
  return {::_fdopen(ends[0], "rb"), &std::fclose};
}

QString fullDevice() {
  return {};
}

bool takeNothing() {
  return false;
}

// This system has no limit to lower. An address space of 32 bits is soon reserved whole, for which
// the system sets no memory aside.
void limitMemory(bool limited) {
  static std::vector<void*> taken;
  for (void* const block : taken) {
    ::VirtualFree(block, 0, MEM_RELEASE);
  }
  taken.clear();
  taken.reserve(limited ? 1U << 16U : 0);
  for (std::size_t size = 1U << 30U; limited && size >= 1U << 16U; size /= 2) {
    while (void* const block = ::VirtualAlloc(nullptr, size, MEM_RESERVE, PAGE_NOACCESS)) {
      taken.push_back(block);
    }
  }
}

const char* Platform::localeName(const char* name) {
  return std::strcmp(name, "de_DE.UTF-8") == 0 ? "German_Germany.1252" : name;
}

}  // namespace KyrTest
