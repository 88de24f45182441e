// The smallest program on top of an installed library: uses its data, a function and a class
// with a virtual table. It includes all headers, and one by the path that it had in earlier
// versions.
#include <kyr/Kyr.h>
#include <kyr/app/KyrNewHandler.h>

#include <cstdio>

int main() {
  try {
    throw Kyr::FileParse::EndOfFile("caught");
  } catch (const Kyr::Exception& error) {
    std::printf("%s %s\n", Kyr::libraryVersion(), error.what());
  }
  return 0;
}
