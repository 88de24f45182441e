// What the tests with a user interface tell LeakSanitizer; other builds never call it.
#include <kyr/core/KyrPlatform.h>

// The library that finds fonts keeps what it has read of its settings until the process ends.
extern "C" KYR_EXPORT const char* __lsan_default_suppressions() {
  return "leak:libfontconfig\n";
}
