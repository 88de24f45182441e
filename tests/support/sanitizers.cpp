// What test and example programs tell the sanitizers; other builds never call it.
#include <kyr/core/KyrPlatform.h>

// The end of a QThread wakes its waiters and the destructor then deletes the condition that it
// woke them through. Qt orders the two by a mutex that ThreadSanitizer cannot see. By another
// such mutex it orders what it does with its lists of posted events.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the name is ThreadSanitizer's
extern "C" KYR_EXPORT const char* __tsan_default_suppressions() {
  return "race:^QWaitCondition::~QWaitCondition\n"
         "called_from_lib:libQt5Core.so\n";
}

// A repeated test forks its child while threads of its last run may not be quite gone. And the
// heap shall say no as the C heap does, where it would otherwise end the process.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the name is ThreadSanitizer's
extern "C" KYR_EXPORT const char* __tsan_default_options() {
  return "die_after_fork=0:allocator_may_return_null=1";
}
