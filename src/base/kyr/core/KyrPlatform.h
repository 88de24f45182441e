/// \file
/// The one place that knows compilers and platforms by their macros.
#pragma once

/// What the library exports: a class with all its members, a function or a variable.
#if defined(_WIN32)
#if defined(KYR_BUILDING_LIBRARY)
#define KYR_EXPORT __declspec(dllexport)
#else
#define KYR_EXPORT __declspec(dllimport)
#endif
#else
#define KYR_EXPORT __attribute__((visibility("default")))
#endif

/// For what is private inside of an exported class, and otherwise is exported with it: classes,
/// functions that are not virtual, and data, unless inline code of public headers needs them.
#if defined(_WIN32)
#define KYR_HIDDEN
#else
#define KYR_HIDDEN __attribute__((visibility("hidden")))
#endif

/// An attribute of Clang's static lock checks (-Wthread-safety), on which the macros below stand;
/// other compilers see nothing of it.
#if defined(__clang__)
#define KYR_THREAD_ATTRIBUTE(x) __attribute__((x))
#else
#define KYR_THREAD_ATTRIBUTE(x)
#endif
/// A class whose objects are locks; \a name is what Clang calls them in its messages.
#define KYR_CAPABILITY(name) KYR_THREAD_ATTRIBUTE(capability(name))
/// A class whose objects hold a lock from their construction to their end.
#define KYR_SCOPED_CAPABILITY KYR_THREAD_ATTRIBUTE(scoped_lockable)
/// A variable that is used only while \a mutex is held.
#define KYR_GUARDED_BY(mutex) KYR_THREAD_ATTRIBUTE(guarded_by(mutex))
/// A function that is called only while these locks are held.
#define KYR_REQUIRES(...) KYR_THREAD_ATTRIBUTE(requires_capability(__VA_ARGS__))
/// A function that takes these locks, or its own object, and keeps them.
#define KYR_ACQUIRE(...) KYR_THREAD_ATTRIBUTE(acquire_capability(__VA_ARGS__))
/// A function that gives these locks back, or its own object.
#define KYR_RELEASE(...) KYR_THREAD_ATTRIBUTE(release_capability(__VA_ARGS__))
/// A function that has taken the lock if it returns the first argument.
#define KYR_TRY_ACQUIRE(...) KYR_THREAD_ATTRIBUTE(try_acquire_capability(__VA_ARGS__))
/// As KYR_ACQUIRE, for reading: other readers may hold the lock as well.
#define KYR_ACQUIRE_SHARED(...) KYR_THREAD_ATTRIBUTE(acquire_shared_capability(__VA_ARGS__))
/// As KYR_RELEASE, for what KYR_ACQUIRE_SHARED has taken.
#define KYR_RELEASE_SHARED(...) KYR_THREAD_ATTRIBUTE(release_shared_capability(__VA_ARGS__))
/// A function whose body Clang does not check, as it cannot follow which locks are held there.
#define KYR_NO_THREAD_SAFETY_ANALYSIS KYR_THREAD_ATTRIBUTE(no_thread_safety_analysis)

/// For the deliberate null write of an internal program error.
#if defined(__clang__)
#define KYR_NO_NULL_CHECK __attribute__((no_sanitize("null")))
#elif defined(__GNUC__)
#define KYR_NO_NULL_CHECK __attribute__((no_sanitize("null", "address")))
#else
#define KYR_NO_NULL_CHECK
#endif

#if defined(__SANITIZE_THREAD__)
#define KYR_THREAD_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define KYR_THREAD_SANITIZER 1
#endif
#endif

#if defined(__SANITIZE_ADDRESS__)
#define KYR_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KYR_ADDRESS_SANITIZER 1
#endif
#endif

#if defined(KYR_THREAD_SANITIZER)
// ThreadSanitizer's own functions.
extern "C" void __tsan_acquire(void* address);
extern "C" void __tsan_release(void* address);
#endif

namespace Kyr::Platform {

/// Whether this build runs under ThreadSanitizer.
#if defined(KYR_THREAD_SANITIZER)
constexpr bool threadsAreWatched = true;
#else
constexpr bool threadsAreWatched = false;
#endif

/// Tells ThreadSanitizer, behind taking a lock of Qt, that what follows comes after what others did
/// under it: Qt is not built for the sanitizer, which misses that. In other builds it is empty.
/// \threadsafety any thread
inline void orderedAfter([[maybe_unused]] void* lock) {
#if defined(KYR_THREAD_SANITIZER)
  __tsan_acquire(lock);
#endif
}
/// The counterpart of orderedAfter(), in front of giving the lock back.
/// \threadsafety any thread
inline void orderedBefore([[maybe_unused]] void* lock) {
#if defined(KYR_THREAD_SANITIZER)
  __tsan_release(lock);
#endif
}

}  // namespace Kyr::Platform
