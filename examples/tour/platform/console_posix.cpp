#include "console_p.h"

#include <sys/resource.h>
#include <unistd.h>

namespace Tour {

bool standardOutputIsTerminal() {
  return isatty(STDOUT_FILENO) == 1;
}

void prepareStandardStreams() {}

QByteArray encoded(const QString& text) {
  return text.toLocal8Bit();
}

double userSeconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_utime.tv_sec) +
         static_cast<double>(usage.ru_utime.tv_usec) / 1e6;
}

}  // namespace Tour
