/// \file
/// What tests of a few rooms share; Support.h has what most of them need.
#pragma once

#include "support/Support.h"

namespace KyrTest {

/// Does the work in so many threads at once and waits for them.
/// \param work called with the number of its thread, from 0 on
template <class Work>
void inThreads(int count, const Work& work) {
  std::vector<std::thread> threads;
  for (int i = 0; i < count; ++i) {
    threads.emplace_back([&work, i] { work(i); });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
}

/// An application object without arguments, as long as it lives.
struct Program {
  int count = 1;
  char name[4] = "app";
  char* arguments[2] = {name, nullptr};
  const QCoreApplication application{count, arguments};
};

/// How many files and directories this process has open; 0 where the system does not tell.
inline unsigned openFiles() {
  return QDir::separator() == '/' ? QDir("/proc/self/fd").count() : 0U;
}

}  // namespace KyrTest
