// What the tests of processes have to end.
#include <atomic>

int main() {
  for (const std::atomic<bool> stays{true}; stays;) {
  }
}
