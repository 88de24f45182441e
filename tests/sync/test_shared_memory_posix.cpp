#include "app/home.h"

#include <kyr/sync/KyrSharedMemory.h>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Kyr::SharedMemory;
using KyrTest::inChild;

// Sanitizers report faults in the place of the library, and release nothing.
#if defined(KYR_THREAD_SANITIZER) || defined(KYR_ADDRESS_SANITIZER)
constexpr bool crashesAreReported = false;
#else
constexpr bool crashesAreReported = true;
#endif

void crash() {
  KyrTest::Home().start({});
  std::raise(SIGSEGV);
}

bool canAttach(unsigned size, int id) {
  try {
    return SharedMemory(size, id).getId() == id;
  } catch (const Kyr::Exception&) {
    return false;
  }
}

TEST(SharedMemory, IsSeenByAnotherProcess) {
  std::array<char, 5000> bytes{};
  SharedMemory own(5000);
  EXPECT_TRUE(own.getDataPointer() && own.copyFrom(bytes.data(), 5000));
  EXPECT_EQ(bytes, (std::array<char, 5000>{})) << "bytes of somebody else";
  const auto ended = inChild([&own] {
    SharedMemory there(5000, own.getId());
    static_cast<char*>(there.getDataPointer())[4999] = 'c';
    const SharedMemory first(1);  // looks for the blocks of dead processes
    throw Kyr::ProgError();       // the block is not the child's, nor is its copy of "own"
  });
  EXPECT_TRUE(ended.faulted && own.copyFrom(bytes.data(), 5000));
  EXPECT_EQ(bytes[4999], 'c');
  EXPECT_TRUE(canAttach(5000, own.getId())) << "a child or a visitor took the block along";
  EXPECT_FALSE(canAttach(5001, own.getId())) << "beyond the end there is no memory";
  EXPECT_FALSE(canAttach(1, own.getId() ^ 1) || canAttach(1, -2)) << "no such block";
}

TEST(SharedMemory, KeepsToItsUserAndToItsNames) {
  const int other = ::shm_open("/kyr-other", O_RDWR | O_CREAT, S_IRUSR | S_IWUSR);
  const auto ended = inChild([] {
    const SharedMemory own(1);
    const int file = ::shm_open(("/kyr-" + std::to_string(own.getId())).c_str(), O_RDWR, 0);
    const bool given = ::fchown(file, 1, 1) == 0;  // only root can
    std::printf("%s", given && canAttach(1, own.getId()) ? "attached" : "");
  });
  EXPECT_EQ(ended.output, "") << "another user can take the memory away";
  EXPECT_TRUE(::close(other) == 0 && ::shm_unlink("/kyr-other") == 0) << "another program's memory";
}

TEST(SharedMemory, CopiesWhatFits) {
  SharedMemory own(4);
  std::array<char, 5> bytes{"abcd"};
  EXPECT_TRUE(own.copyTo("abcd", 4) && own.copyFrom(bytes.data(), 4));
  EXPECT_FALSE(own.copyTo(bytes.data(), 5) || own.copyFrom(bytes.data(), 5));
  auto copy = std::make_unique<SharedMemory>(own);
  SharedMemory assigned(100);
  const int oldId = assigned.getId();
  assigned = own;
  own.releaseResources();
  copy.reset();
  EXPECT_TRUE(own.copyTo(nullptr, 0) && !own.copyTo("a", 1) && !own.getDataPointer());
  EXPECT_TRUE(assigned.copyFrom(bytes.data(), 4) && bytes[3] == 'd' && assigned.getSize() == 4);
  EXPECT_TRUE(canAttach(4, own.getId()) && !canAttach(1, oldId)) << "the block ends with its last";
  assigned.releaseResources();
  EXPECT_FALSE(canAttach(4, own.getId()));
  EXPECT_TRUE(SharedMemory(0).copyTo(nullptr, 0)) << "an empty block";
}

TEST(SharedMemory, LeavesNothingBehind) {
  const struct {
    void (*end)();
    bool staysAtFirst;
    const char* catches;
  } rows[] = {
      {[] {}, false, "the destructor keeps the name"},
      {[] { throw Kyr::ProgError("x", true); }, false, "a ProgError leaves the name"},
      {&crash, !crashesAreReported, "a crash leaves the name"},
      {[] { std::raise(SIGKILL); }, true, "the next process does not clear up after the dead"},
  };
  const KyrTest::Home home;  // of the crash
  for (const auto& row : rows) {
    const auto ended = inChild([&row] {
      const SharedMemory own(10);
      std::printf("%d", own.getId());
      std::fflush(stdout);
      row.end();
    });
    const int id = ended.output.toInt();
    EXPECT_EQ(canAttach(10, id), row.staysAtFirst) << row.catches;
    inChild([] { const SharedMemory first(1); });
    EXPECT_FALSE(canAttach(10, id)) << row.catches;
  }
}

TEST(SharedMemory, MayBeInUseWhenTheProcessEnds) {
  const auto ended = inChild([] {
    static const SharedMemory* const block = new SharedMemory(1);
    static const auto use = [] { const SharedMemory copy(*block); };
    static std::atomic<bool> frozen{false};
    std::signal(SIGUSR1, [](int) {
      while (frozen) {
      }
    });
    std::thread user([] {
      while (true) {
        use();
      }
    });
    bool isHeld = false;
    for (int attempts = 0; !isHeld && attempts < 1000; ++attempts) {
      frozen = false;
      std::this_thread::yield();
      frozen = true;
      ::pthread_kill(user.native_handle(), SIGUSR1);
      isHeld = KyrTest::hangs(use);
    }
    SharedMemory::freeSharedMemoryResources();
    std::exit(9);
  });
  EXPECT_EQ(std::pair(ended.code, ended.errors), std::pair(9, QByteArray()));
}

}  // namespace
