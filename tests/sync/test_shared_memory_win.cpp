#include "support/Support.h"

#include <kyr/sync/KyrSharedMemory.h>

TEST(SharedMemory, IsRefused) {
  const std::string report = "\nInternal program error: Not implemented for Windows\n\n";
  EXPECT_EQ(reportProblem(KyrTest::inChild([] { Kyr::SharedMemory(1); }), report), "");
  EXPECT_EQ(reportProblem(KyrTest::inChild([] { Kyr::SharedMemory(1, 1); }), report), "");
}
