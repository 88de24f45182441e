// What every program of a build with sanitizers tells them.

// The end of a QThread wakes its waiters and the destructor then deletes the condition that it
// woke them through. Qt orders the two by a mutex that ThreadSanitizer cannot see, and so it does
// with changes of its lists of posted events.
extern "C" __attribute__((visibility("default"))) const char* __tsan_default_suppressions() {
  return "race:^QWaitCondition::~QWaitCondition\n"
         "called_from_lib:libQt5Core.so\n";
}

// Threads may be alive at a fork: a repeated test forks its child while those of its last run may
// not be quite gone. The heap answers as the C heap does when there is no memory, instead of ending
// the process.
extern "C" __attribute__((visibility("default"))) const char* __tsan_default_options() {
  return "die_after_fork=0:allocator_may_return_null=1";
}
