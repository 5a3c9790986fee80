// Macros for clang's thread safety analysis: which mutex guards a member, and which one a function
// needs, takes or must not hold. Empty for other compilers.
#pragma once

#if defined(__clang__)
#define VELA_THREAD_ANNOTATION(attribute) __attribute__((attribute))
#else
#define VELA_THREAD_ANNOTATION(attribute)
#endif

// The first marks a class that is a mutex, the second a class that holds a mutex while it lives.
#define VELA_CAPABILITY VELA_THREAD_ANNOTATION(capability("mutex"))
#define VELA_SCOPED_CAPABILITY VELA_THREAD_ANNOTATION(scoped_lockable)

// Marks a member that is read and written only while the mutex is held.
#define VELA_GUARDED_BY(mutex) VELA_THREAD_ANNOTATION(guarded_by(mutex))

// These mark a function. In this order: its caller holds the mutex; its caller does not hold it;
// the function locks it; the function unlocks it.
#define VELA_REQUIRES(...) VELA_THREAD_ANNOTATION(requires_capability(__VA_ARGS__))
#define VELA_EXCLUDES(...) VELA_THREAD_ANNOTATION(locks_excluded(__VA_ARGS__))
#define VELA_ACQUIRE(...) VELA_THREAD_ANNOTATION(acquire_capability(__VA_ARGS__))
#define VELA_RELEASE(...) VELA_THREAD_ANNOTATION(release_capability(__VA_ARGS__))

// Marks a function that returns a reference to the mutex.
#define VELA_RETURN_CAPABILITY(mutex) VELA_THREAD_ANNOTATION(lock_returned(mutex))
