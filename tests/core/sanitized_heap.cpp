#include <kyr/core/KyrPlatform.h>

// The sanitizer's heap ends the process where the C heap says no, unless told otherwise.
extern "C" KYR_EXPORT const char* __asan_default_options() {
  return "allocator_may_return_null=1";
}
