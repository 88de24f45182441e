#include <kyr/app/start_p.h>

#include <kyr/os/KyrOS.h>
#include <kyr/os/os_file_p.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <iostream>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace Kyr {

namespace {

/// 1024, the first message that the system leaves to programs, with its lowest byte first.
constexpr std::array<unsigned char, 4> mainWindowStarted{0x00, 0x04, 0x00, 0x00};

/// Removes what has the name, and creates a file anew. In the temporary directory, which belongs to
/// everybody, the link or file of another user cannot be removed, and then nothing is opened.
int createOwnFile(const char* path) {
  ::unlink(path);
  return ::open(path, O_WRONLY | O_APPEND | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
}

int openNamedFile(const char* path) {
  return ::open(path, O_WRONLY | O_APPEND | O_CREAT | O_NOCTTY | O_CLOEXEC, 0666);
}

/// Sets the address of a socket.
/// \return false for a name that does not fit
bool setAddress(sockaddr_un& address, const std::string& path) {
  address.sun_family = AF_UNIX;
  const bool fits = path.size() < sizeof address.sun_path;
  std::memcpy(address.sun_path, path.c_str(), fits ? path.size() + 1 : 0);
  return fits;
}

/// Sends the message without waiting: a launcher that does not read must not hold up the
/// application.
bool sendMessage(const sockaddr_un& address) {
  const int sender = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  const ssize_t sent = ::sendto(sender, mainWindowStarted.data(), mainWindowStarted.size(),
                                MSG_DONTWAIT | MSG_NOSIGNAL,
                                reinterpret_cast<const sockaddr*>(&address), sizeof address);
  if (sender >= 0) {
    ::close(sender);
  }
  return sent == static_cast<ssize_t>(mainWindowStarted.size());
}

}  // namespace

void Start::setSmallBlockThreshold() noexcept {}

// Standard input, output and error are left free, where they are closed.
std::intptr_t Start::keepErrors() noexcept {
  const int kept = ::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  return kept > 0 ? kept : 0;
}

void Start::dropErrors(std::intptr_t kept) noexcept {
  if (kept != 0) {
    ::close(static_cast<int>(kept));
  }
}

// The descriptor is exchanged below the stream, which so keeps its old target on failure.
bool Start::redirectOutput(const QString& path, Target_t target) {
  const std::string name = Platform::nativePath(path).native();
  const int file =
      target == Target_t::Own ? createOwnFile(name.c_str()) : openNamedFile(name.c_str());
  std::cout.flush();
  std::fflush(stdout);
  // Where standard output was closed, the file has got its number; dup2() does nothing then, and
  // the mark that would close it for children is taken away.
  const bool redirected = file >= 0 && ::dup2(file, STDOUT_FILENO) == STDOUT_FILENO &&
                          ::fcntl(STDOUT_FILENO, F_SETFD, 0) == 0;
  if (file > STDERR_FILENO) {
    ::close(file);
  }
  return redirected;
}

// Standard error shares the open file of standard output. The name may lead elsewhere by now, and
// two writers of one open file never overwrite each other.
bool Start::redirectErrors(const QString& /*path*/) {
  std::cerr.flush();
  std::fflush(stderr);
  return ::dup2(STDOUT_FILENO, STDERR_FILENO) == STDERR_FILENO;
}

bool Start::namesIgnoreCase() noexcept {
  return false;
}

bool Start::openConsole() {
  return false;
}

// The socket lies in the session's folder, where no other user can listen in the launcher's place.
bool Start::tellLauncher(const QString& name) {
  const QString folder = OS::getEnv("XDG_RUNTIME_DIR");
  sockaddr_un address = {};
  return folder.startsWith('/') &&
         setAddress(address, Platform::nativePath(folder + "/" + name).native()) &&
         sendMessage(address);
}

}  // namespace Kyr
