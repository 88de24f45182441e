#include <kyr/crash/crash_throw_p.h>

#include <dlfcn.h>

namespace Kyr {

void* Crash::findThrowFunction() noexcept {
  return ::dlsym(RTLD_NEXT, "__cxa_throw");
}

}  // namespace Kyr
