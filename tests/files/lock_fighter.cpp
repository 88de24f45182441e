// A process that asks for an ExclusiveLock whenever a line of its input says so.
#include <kyr/files/KyrLockingManager.h>

#include <iostream>
#include <string>

int main(int /*count*/, char** words) {
  Kyr::ExclusiveLock lock(QString::fromUtf8(words[1]));
  for (std::string order; std::getline(std::cin, order);) {
    if (order == "try") {
      std::cout << (lock.tryLock() ? "taken" : "refused") << std::endl;
    } else {
      lock.unlock();
      std::cout << "free" << std::endl;
    }
  }
  return 0;
}
