// Words for clang's thread safety analysis: which mutex guards a member, and which one a function
// needs, takes or must not hold. Empty for other compilers.
#pragma once

#if defined(__clang__)
#define VELA_THREAD_ANNOTATION(attribute) __attribute__((attribute))
#else
#define VELA_THREAD_ANNOTATION(attribute)
#endif

// Of a class that is a mutex, and of one that holds a mutex for as long as it lives.
#define VELA_CAPABILITY VELA_THREAD_ANNOTATION(capability("mutex"))
#define VELA_SCOPED_CAPABILITY VELA_THREAD_ANNOTATION(scoped_lockable)

// Of a member: read and written only while the mutex is held.
#define VELA_GUARDED_BY(mutex) VELA_THREAD_ANNOTATION(guarded_by(mutex))

// Of a function: the caller holds the mutex, does not hold it, or has it taken or given back.
#define VELA_REQUIRES(...) VELA_THREAD_ANNOTATION(requires_capability(__VA_ARGS__))
#define VELA_EXCLUDES(...) VELA_THREAD_ANNOTATION(locks_excluded(__VA_ARGS__))
#define VELA_ACQUIRE(...) VELA_THREAD_ANNOTATION(acquire_capability(__VA_ARGS__))
#define VELA_RELEASE(...) VELA_THREAD_ANNOTATION(release_capability(__VA_ARGS__))

// Of a function that returns a reference to the mutex.
#define VELA_RETURN_CAPABILITY(mutex) VELA_THREAD_ANNOTATION(lock_returned(mutex))
