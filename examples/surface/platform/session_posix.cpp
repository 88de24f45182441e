#include "surface/session.h"
#include "surface/session_p.h"

#include <kyr/core/KyrQtVersion.h>

#include <cstring>

#include <fcntl.h>
#include <langinfo.h>
#include <unistd.h>

namespace Surface {

// The streams are opened for the wrong direction: using one fails, as with a closed stream.
void keepStandardStreams() {
  for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
    if (::fcntl(stream, F_GETFD) == -1) {
      // The file gets the lowest free number, which is this one; children inherit it.
      ::open("/dev/null",  // NOLINT(android-cloexec-open)
             stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
  }
}

void assumeUtf8() {
  if (std::strcmp(::nl_langinfo(CODESET), "ANSI_X3.4-1968") == 0) {
    Kyr::QtVersion::setLocalEncoding("UTF-8");
  }
}

}  // namespace Surface
