// What every test program tells the sanitizers; other builds never call it.
#include <kyr/core/KyrPlatform.h>

// The end of a QThread wakes its waiters and the destructor then deletes the condition that it
// woke them through. Qt orders the two by a mutex that ThreadSanitizer cannot see.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the name is ThreadSanitizer's
extern "C" KYR_EXPORT const char* __tsan_default_suppressions() {
  return "race:^QWaitCondition::~QWaitCondition\n";
}
