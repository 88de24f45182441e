// A process that asks for an ExclusiveLock at the moments that its input names: all ask at once,
// as pipes alone would let one after the other go.
#include <kyr/files/KyrLockingManager.h>

#include <chrono>
#include <iostream>
#include <string>

int main(int /*count*/, char** words) {
  Kyr::ExclusiveLock lock(QString::fromUtf8(words[1]));
  for (std::string order; std::getline(std::cin, order);) {
    if (order != "leave") {
      while (std::chrono::system_clock::now().time_since_epoch().count() < std::stoll(order)) {
      }
      std::cout << (lock.tryLock() ? "taken" : "refused") << std::endl;
    } else {
      lock.unlock();
      std::cout << "free" << std::endl;
    }
  }
  return 0;
}
