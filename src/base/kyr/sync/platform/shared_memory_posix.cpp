#include <kyr/sync/shared_memory_p.h>

#include <kyr/core/KyrException.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <memory>
#include <random>
#include <string>

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Kyr {

namespace {

constexpr const char* prefix = "kyr-";

/// The name of a block in the system, as "/kyr-4711".
class Name {
 public:
  explicit Name(int id) { std::snprintf(_text.data(), _text.size(), "/%s%d", prefix, id); }
  const char* text() const { return _text.data(); }

 private:
  std::array<char, 32> _text{};
};

/// Whether a name of the system, without its slash, is that of a block.
bool isName(const std::string& name) {
  const std::size_t start = std::string(prefix).size();
  return name.rfind(prefix, 0) == 0 && name.size() > start &&
         name.find_first_not_of("0123456789", start) == std::string::npos;
}

/// A file descriptor that closes itself.
class Descriptor {
 public:
  explicit Descriptor(int number) : _number(number) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (_number >= 0) {
      ::close(_number);
    }
  }
  int number() const { return _number; }
  bool isOpen() const { return _number >= 0; }

 private:
  int _number;
};

/// Names the system's error by its number: the system's texts follow the user's language.
Exception failure(const QString& text, int error) {
  return QString("%1 (error %2)").arg(text).arg(error);
}

/// The system maps no block of zero bytes.
std::size_t mappedSize(unsigned size) {
  return std::max(size, 1U);
}

/// Sets the memory of a block aside: otherwise a full system ends the process at the first write,
/// by SIGBUS.
int reserveMemory(int descriptor, unsigned size) {
  int error = EINTR;
  while (error == EINTR) {
    error = ::posix_fallocate(descriptor, 0, static_cast<off_t>(mappedSize(size)));
  }
  return error;
}

/// Takes the lock by which others see that the owner of a block's file lives. Waits for whoever is
/// looking just now.
/// \return 0 or the system's error
int lock(int descriptor) {
  int result = ::flock(descriptor, LOCK_EX);
  while (result != 0 && errno == EINTR) {
    result = ::flock(descriptor, LOCK_EX);
  }
  return result == 0 ? 0 : errno;
}

class MappedBlock : public SharedBlock {
 public:
  MappedBlock(unsigned size, int id) : SharedBlock(id), _mappedSize(mappedSize(size)) {}
  ~MappedBlock() override {
    if (_data) {
      ::munmap(_data, _mappedSize);
    }
  }
  void removeName() noexcept override {}

 protected:
  /// \return 0 or the system's error
  int map(int descriptor) {
    void* const data =
        ::mmap(nullptr, _mappedSize, PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
    _data = data == MAP_FAILED ? nullptr : data;
    return _data ? 0 : errno;
  }

 private:
  std::size_t _mappedSize;
};

/// Memory that another process has made.
class AttachedBlock : public MappedBlock {
 public:
  using MappedBlock::MappedBlock;

  /// \return 0 or the system's error
  int find(unsigned size) {
    const Descriptor file(::shm_open(Name(_id).text(), O_RDWR, 0));
    struct stat status = {};
    if (!file.isOpen() || ::fstat(file.number(), &status) != 0) {
      return errno;
    }
    if (status.st_uid != ::geteuid()) {
      return EACCES;  // another user could cut the file while this process uses the memory
    }
    const auto found = static_cast<std::uintmax_t>(status.st_size);
    return found < mappedSize(size) ? EINVAL : map(file.number());
  }
};

/// Memory that this process has made. Holds a lock on its file as long as the process lives, by
/// which others know that it does.
class CreatedBlock : public MappedBlock {
 public:
  CreatedBlock(unsigned size, int id)
      : MappedBlock(size, id),
        _file(::shm_open(Name(id).text(), O_RDWR | O_CREAT | O_EXCL, S_IRUSR | S_IWUSR)),
        _hasName(_file.isOpen()),
        _error(errno) {}
  ~CreatedBlock() override { removeCreated(); }
  void removeName() noexcept override { removeCreated(); }

  /// \return 0, EEXIST when another number is to be tried, or the system's error
  int make(unsigned size) {
    if (!_file.isOpen()) {
      return _error;
    }
    struct stat status = {};
    const int unlocked = lock(_file.number());
    if (unlocked != 0) {
      return unlocked;
    }
    if (::fstat(_file.number(), &status) != 0 || status.st_nlink == 0) {
      _hasName = false;  // before the lock was held, somebody took the file for a dead process's
      return EEXIST;
    }
    const int error = reserveMemory(_file.number(), size);
    return error == 0 ? map(_file.number()) : error;
  }

 private:
  void removeCreated() noexcept {
    // A forked child has a copy of the object, but the number is its parent's to end.
    if (_process == ::getpid() && _hasName.exchange(false)) {
      ::shm_unlink(Name(_id).text());
    }
  }

  Descriptor _file;
  pid_t _process = ::getpid();
  std::atomic<bool> _hasName;
  int _error;
};

/// Removes a name whose owner was killed: nobody holds the lock on its file.
void removeIfDead(const std::string& name) {
  const Descriptor file(::shm_open(name.c_str(), O_RDWR, 0));
  if (file.isOpen() && ::flock(file.number(), LOCK_EX | LOCK_NB) == 0) {
    ::shm_unlink(name.c_str());
  }
}

void removeAllDead() {
  // The C++ library's iterator would end the process when it has no memory for a name.
  const std::unique_ptr<DIR, int (*)(DIR*)> folder(::opendir("/dev/shm"), &::closedir);
  while (const dirent* const entry = folder ? ::readdir(folder.get()) : nullptr) {
    const std::string name = entry->d_name;
    if (isName(name)) {
      removeIfDead("/" + name);
    }
  }
}

/// Sweeps at the first block of each process, a forked child being another one.
void removeAllDeadOnce() {
  static std::atomic<pid_t> doneBy{0};
  const pid_t self = ::getpid();
  if (doneBy.exchange(self) != self) {
    removeAllDead();
  }
}

int anyId() {
  std::random_device random;
  return std::uniform_int_distribution<int>(0, std::numeric_limits<int>::max())(random);
}

}  // namespace

std::shared_ptr<SharedBlock> SharedBlock::create(unsigned size) {
  constexpr int attempts = 100;
  removeAllDeadOnce();
  int error = EEXIST;
  for (int i = 0; i < attempts && error == EEXIST; ++i) {
    const auto block = std::make_shared<CreatedBlock>(size, anyId());
    error = block->make(size);
    if (error == 0) {
      return block;
    }
  }
  throw failure(QString("cannot create %1 bytes of shared memory").arg(size), error);
}

std::shared_ptr<SharedBlock> SharedBlock::attach(unsigned size, int id) {
  const auto block = std::make_shared<AttachedBlock>(size, id);
  const int error = id < 0 ? EINVAL : block->find(size);
  if (error != 0) {
    throw failure(QString("cannot attach %1 bytes of shared memory %2").arg(size).arg(id), error);
  }
  return block;
}

}  // namespace Kyr
