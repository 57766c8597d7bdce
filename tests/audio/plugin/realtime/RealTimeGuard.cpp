#include "audio/plugin/realtime/RealTimeGuard.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <malloc.h>
#include <poll.h>
#include <pthread.h>
#include <sched.h>
#include <semaphore.h>
#include <sys/mman.h>
#include <sys/select.h>
#include <time.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <new>

// The allocator of the C library under its own names: reaching it by dlsym would allocate.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);
}

namespace RealTime {

namespace {

thread_local int depth = 0;
thread_local int violations = 0;
thread_local const char* firstViolation = "";

std::atomic<std::int64_t> liveBytes{0};

void Note(const char* function) {
    if (depth == 0) {
        return;
    }
    if (violations == 0) {
        firstViolation = function;
    }
    ++violations;
}

void* Count(void* block) {
    if (block) {
        liveBytes += static_cast<std::int64_t>(malloc_usable_size(block));
    }
    return block;
}

void Discount(void* block) {
    if (block) {
        liveBytes -= static_cast<std::int64_t>(malloc_usable_size(block));
    }
}

void* Allocate(const char* function, std::size_t size) {
    Note(function);
    return Count(__libc_malloc(size));
}

void* AllocateAligned(const char* function, std::size_t alignment, std::size_t size) {
    Note(function);
    return Count(__libc_memalign(alignment, size));
}

void Release(const char* function, void* block) {
    Note(function);
    Discount(block);
    __libc_free(block);
}

void* OrThrow(void* block) {
    if (!block) {
        throw std::bad_alloc();
    }
    return block;
}

/// The function that this program's one stands before.
template <class F>
F* Next(const char* name) {
    return reinterpret_cast<F*>(dlsym(RTLD_NEXT, name));
}

} // namespace

CGuard::CGuard() { ++depth; }

CGuard::~CGuard() { --depth; }

int GetViolationsCount() { return violations; }

const char* GetFirstViolation() { return firstViolation; }

void Forget() {
    violations = 0;
    firstViolation = "";
}

std::int64_t GetLiveBytes() { return liveBytes; }

} // namespace RealTime

using namespace RealTime;

// The program is built with hidden symbols; these have to be seen by the libraries.
#pragma GCC visibility push(default)

extern "C" {

void* malloc(std::size_t size) noexcept { return Allocate("malloc", size); }

void* calloc(std::size_t count, std::size_t size) noexcept {
    Note("calloc");
    return Count(__libc_calloc(count, size));
}

void* realloc(void* block, std::size_t size) noexcept {
    Note("realloc");
    Discount(block);
    void* moved = __libc_realloc(block, size);
    Count(moved || size == 0 ? moved : block);
    return moved;
}

void free(void* block) noexcept { Release("free", block); }

void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
    return AllocateAligned("aligned_alloc", alignment, size);
}

void* memalign(std::size_t alignment, std::size_t size) noexcept {
    return AllocateAligned("memalign", alignment, size);
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size) noexcept {
    *block = AllocateAligned("posix_memalign", alignment, size);
    return *block ? 0 : ENOMEM;
}

// Replaces a function by one that notes the call and makes it.
#define ONDARA_WATCH(result, name, parameters, arguments, ...)                                     \
    result name parameters __VA_ARGS__ {                                                           \
        Note(#name);                                                                               \
        static const auto next = Next<result parameters>(#name);                                   \
        return next arguments;                                                                     \
    }

ONDARA_WATCH(int, pthread_mutex_lock, (pthread_mutex_t * m), (m), noexcept)
ONDARA_WATCH(int, pthread_mutex_timedlock, (pthread_mutex_t * m, const timespec* t), (m, t),
             noexcept)
ONDARA_WATCH(int, pthread_mutex_clocklock, (pthread_mutex_t * m, clockid_t c, const timespec* t),
             (m, c, t), noexcept)
ONDARA_WATCH(int, pthread_cond_wait, (pthread_cond_t * v, pthread_mutex_t* m), (v, m))
ONDARA_WATCH(int, pthread_cond_timedwait,
             (pthread_cond_t * v, pthread_mutex_t* m, const timespec* t), (v, m, t))
ONDARA_WATCH(int, pthread_cond_clockwait,
             (pthread_cond_t * v, pthread_mutex_t* m, clockid_t c, const timespec* t), (v, m, c, t))
ONDARA_WATCH(int, pthread_rwlock_rdlock, (pthread_rwlock_t * l), (l), noexcept)
ONDARA_WATCH(int, pthread_rwlock_timedrdlock, (pthread_rwlock_t * l, const timespec* t), (l, t),
             noexcept)
ONDARA_WATCH(int, pthread_rwlock_wrlock, (pthread_rwlock_t * l), (l), noexcept)
ONDARA_WATCH(int, pthread_rwlock_timedwrlock, (pthread_rwlock_t * l, const timespec* t), (l, t),
             noexcept)
ONDARA_WATCH(int, pthread_spin_lock, (pthread_spinlock_t * l), (l), noexcept)
ONDARA_WATCH(int, pthread_barrier_wait, (pthread_barrier_t * b), (b), noexcept)
ONDARA_WATCH(int, pthread_join, (pthread_t thread, void** result), (thread, result))
ONDARA_WATCH(int, sem_wait, (sem_t * s), (s))
ONDARA_WATCH(int, sem_timedwait, (sem_t * s, const timespec* t), (s, t))
ONDARA_WATCH(int, sem_clockwait, (sem_t * s, clockid_t c, const timespec* t), (s, c, t))
ONDARA_WATCH(int, nanosleep, (const timespec* t, timespec* left), (t, left))
ONDARA_WATCH(int, clock_nanosleep, (clockid_t c, int flags, const timespec* t, timespec* left),
             (c, flags, t, left))
ONDARA_WATCH(int, usleep, (useconds_t t), (t))
ONDARA_WATCH(unsigned, sleep, (unsigned seconds), (seconds))
ONDARA_WATCH(int, sched_yield, (), (), noexcept)
ONDARA_WATCH(int, poll, (pollfd * list, nfds_t count, int timeout), (list, count, timeout))
ONDARA_WATCH(int, select, (int count, fd_set* r, fd_set* w, fd_set* e, timeval* t),
             (count, r, w, e, t))
ONDARA_WATCH(ssize_t, read, (int file, void* bytes, std::size_t count), (file, bytes, count))
ONDARA_WATCH(ssize_t, write, (int file, const void* bytes, std::size_t count), (file, bytes, count))
ONDARA_WATCH(void*, mmap, (void* at, std::size_t size, int access, int flags, int file, off_t from),
             (at, size, access, flags, file, from), noexcept)
ONDARA_WATCH(int, munmap, (void* at, std::size_t size), (at, size), noexcept)

/// Atomics of the library wait by this one. Nobody tells how many arguments there are: it hands on
/// as many as a call of the system can have.
long syscall(long number, ...) noexcept {
    Note("syscall");
    static const auto next = Next<long(long, ...)>("syscall");
    std::va_list list;
    va_start(list, number);
    long arguments[6];
    for (long& argument : arguments) {
        argument = va_arg(list, long);
    }
    va_end(list);
    return next(number, arguments[0], arguments[1], arguments[2], arguments[3], arguments[4],
                arguments[5]);
}

} // extern "C"

void* operator new(std::size_t size) { return OrThrow(Allocate("operator new", size)); }

void* operator new[](std::size_t size) { return OrThrow(Allocate("operator new[]", size)); }

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return Allocate("operator new nothrow", size);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return Allocate("operator new[] nothrow", size);
}

void* operator new(std::size_t size, std::align_val_t alignment) {
    const auto bytes = static_cast<std::size_t>(alignment);
    return OrThrow(AllocateAligned("operator new aligned", bytes, size));
}

void* operator new[](std::size_t size, std::align_val_t alignment) {
    const auto bytes = static_cast<std::size_t>(alignment);
    return OrThrow(AllocateAligned("operator new[] aligned", bytes, size));
}

void operator delete(void* block) noexcept { Release("operator delete", block); }

void operator delete[](void* block) noexcept { Release("operator delete[]", block); }

void operator delete(void* block, std::size_t) noexcept { Release("operator delete sized", block); }

void operator delete[](void* block, std::size_t) noexcept {
    Release("operator delete[] sized", block);
}

void operator delete(void* block, std::align_val_t) noexcept {
    Release("operator delete aligned", block);
}

void operator delete[](void* block, std::align_val_t) noexcept {
    Release("operator delete[] aligned", block);
}

void operator delete(void* block, std::size_t, std::align_val_t) noexcept {
    Release("operator delete sized aligned", block);
}

void operator delete[](void* block, std::size_t, std::align_val_t) noexcept {
    Release("operator delete[] sized aligned", block);
}

#pragma GCC visibility pop
