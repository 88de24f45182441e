// Takes the place of operator new in the whole program, libraries included.
#include "pack/Bytes.h"

#include <zlib.h>

namespace {

std::atomic<bool> isScarce{false};
std::atomic<bool> isGone{false};
std::atomic<unsigned> refused{0};
const std::thread::id owner = std::this_thread::get_id();

/// An object with zlib's state: the tools of a worker.
constexpr std::size_t toolSize = sizeof(void*) + sizeof(z_stream);

}  // namespace

void* operator new(std::size_t size) {
  const bool isRefused =
      isGone || (isScarce && size == toolSize && std::this_thread::get_id() != owner);
  refused += isRefused ? 1 : 0;
  void* const memory = isRefused ? nullptr : std::malloc(size);
  if (!memory) {
    throw std::bad_alloc();
  }
  return memory;
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace {

TEST(ZipPieces, TheOwnerDoesWhatHisHelpersHaveNoMemoryFor) {
  const std::string plain = KyrTest::noisy(5000000);
  const Kyr::ZipPieces three = KyrTest::piecesBy(3);
  isScarce = true;
  std::istringstream source(KyrTest::zippedInPieces(plain, three));
  EXPECT_GT(refused.exchange(0), 0U) << "nobody writes without memory";
  Kyr::ZipInStream in(&source, 1);
  in.setWorkers(three);
  std::string read;
  for (std::string room(70000, '\0'); !in.eof() && read.size() <= plain.size();) {
    in.read(room.data(), std::streamsize(room.size()));
    read.append(room, 0, std::size_t(in.gcount()));
    ASSERT_FALSE(in.bad());
  }
  isScarce = false;
  EXPECT_GT(refused, 0U) << "nobody reads without memory";
  EXPECT_TRUE(read == plain);
}

TEST(ZipPieces, AreReadWithoutMoreMemoryThanThatOfTheBeginning) {
  const std::string plain = KyrTest::noisy(1000000);
  for (const unsigned workers : {1U, 3U}) {
    std::istringstream source(KyrTest::zippedInPieces(plain));
    Kyr::ZipInStream in(&source, 1);
    in.setWorkers(KyrTest::piecesBy(workers));
    std::string room(plain.size(), '\0');
    isGone = true;
    in.read(room.data(), 300000).seekg(0).read(room.data(), std::streamsize(room.size()));
    isGone = false;
    EXPECT_TRUE(in.good() && room == plain) << workers << " after " << in.gcount();
  }
}

}  // namespace
