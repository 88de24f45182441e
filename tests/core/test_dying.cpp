// What comes out of a process that has no memory left.
#include "support/Support.h"

using namespace Kyr;
using namespace KyrTest;

namespace {

/// Takes what earlier tests have left free; never gives it back.
void fillHeap() {
  try {
    for (;;) {
      reallocateStorage(nullptr, 1U << 16U);
    }
  } catch (const std::bad_alloc&) {
    return;
  }
}

}  // namespace

TEST(ProgError, ReportsATextThatTheHeapCannotConvert) {
  KYR_SKIP_SANITIZERS("they themselves end a process that is out of memory");
  const QString text = QString(1 << 17, 'x') + QChar(0xFC);
  const auto ended = inChild([&text] {
    limitMemory(true);
    fillHeap();
    try {
      throw ProgError(text);
    } catch (const std::bad_alloc&) {
      std::_Exit(3);
    }
  });
  EXPECT_TRUE(ended.faulted && ended.errors.endsWith("x?\n\n")) << ended.code << " outlived it";
}

TEST(StructVector, TriesAgainWhenTheNewHandlerFreedMemory) {
  const auto ended = inChild([] {
    StructVector<int> vector(3, 42);
    std::set_new_handler([] { limitMemory(false); });
    limitMemory(true);
    vector.reserve(std::size_t(1) << 26U);
    std::_Exit(vector[2]);
  });
  EXPECT_EQ(ended.code, 42) << ended.errors.toStdString();
}
