#include "support/Support.h"
#include "support/support_p.h"

#include <gtest/gtest.h>

#include <QFile>

#include <array>

#include <sys/resource.h>
#include <unistd.h>

namespace KyrTest {

Stream temporaryStream() {
  return {std::tmpfile(), &std::fclose};
}

Stream pipeStream(const QByteArray& bytes) {
  std::array<int, 2> ends{};
  EXPECT_EQ(::pipe(ends.data()), 0);
  EXPECT_EQ(::write(ends[1], bytes.data(), static_cast<std::size_t>(bytes.size())), bytes.size());
  ::close(ends[1]);
  return {::fdopen(ends[0], "rb"), &std::fclose};
}

QString fullDevice() {
  const QString full = "/dev/full";
  return QFile::exists(full) ? full : QString();
}

void limitMemory(bool limited) {
  rlimit limit{};
  ::getrlimit(RLIMIT_AS, &limit);
  limit.rlim_cur = limited ? 4096 : limit.rlim_max;
  ::setrlimit(RLIMIT_AS, &limit);
}

const char* Platform::localeName(const char* name) {
  return name;
}

}  // namespace KyrTest
