// That the guard sees what it is there to see: one call of each function that it watches.

#include "audio/plugin/realtime/RealTimeGuard.h"

#include <gtest/gtest.h>

#include <malloc.h>
#include <poll.h>
#include <pthread.h>
#include <sched.h>
#include <semaphore.h>
#include <sys/mman.h>
#include <sys/select.h>
#include <sys/syscall.h>
#include <time.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <mutex>
#include <new>
#include <string>
#include <thread>
#include <vector>

namespace {

/// What the compiler must not reason about.
template <class T>
T Opaque(T value) {
    asm volatile("" : "+r"(value) : : "memory");
    return value;
}

constexpr timespec kPast{1, 0};
constexpr timespec kNoTime{0, 0};

struct CControl {
    const char* name; ///< of the function that the call makes first
    void (*call)();
};

struct alignas(64) CWide {
    char bytes[64];
};

void* block = nullptr;
CWide* wide = nullptr;
std::string* object = nullptr;
std::string* objects = nullptr;

pthread_mutex_t mutex = PTHREAD_MUTEX_INITIALIZER;
pthread_rwlock_t rwlock = PTHREAD_RWLOCK_INITIALIZER;

/// A lock that is free; the call under test has taken it.
template <class F>
void LockMutex(F lock) {
    if (lock() == 0) {
        pthread_mutex_unlock(&mutex);
    }
}

template <class F>
void LockRW(F lock) {
    if (lock() == 0) {
        pthread_rwlock_unlock(&rwlock);
    }
}

/// A wait for a condition that is over at once, its time being past. The mutex is taken by trying,
/// which the guard allows.
template <class F>
void WaitTimed(F wait) {
    pthread_cond_t condition = PTHREAD_COND_INITIALIZER;
    if (pthread_mutex_trylock(&mutex) == 0) {
        wait(&condition);
        pthread_mutex_unlock(&mutex);
    }
}

template <class F>
void WithSemaphore(F wait) {
    sem_t semaphore;
    sem_init(&semaphore, 0, 1);
    wait(&semaphore);
    sem_destroy(&semaphore);
}

template <class F>
void WithPipe(F use) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    use(ends[0], ends[1]);
    close(ends[0]);
    close(ends[1]);
}

const CControl kControls[] = {
    {"malloc", [] { block = Opaque(std::malloc(Opaque(std::size_t{8}))); }},
    {"realloc", [] { block = Opaque(std::realloc(Opaque(block), Opaque(std::size_t{4000}))); }},
    {"free", [] { std::free(Opaque(block)); }},
    {"calloc", [] { block = Opaque(std::calloc(Opaque(std::size_t{8}), 8)); }},
    {"free", [] { std::free(Opaque(block)); }},
    {"aligned_alloc", [] { block = Opaque(std::aligned_alloc(64, Opaque(std::size_t{64}))); }},
    {"free", [] { std::free(Opaque(block)); }},
    {"memalign", [] { block = Opaque(memalign(64, Opaque(std::size_t{64}))); }},
    {"free", [] { std::free(Opaque(block)); }},
    {"posix_memalign", [] { EXPECT_EQ(posix_memalign(&block, 64, Opaque(std::size_t{64})), 0); }},
    {"free", [] { std::free(Opaque(block)); }},
    {"operator new", [] { object = Opaque(new std::string); }},
    {"operator delete sized", [] { delete Opaque(object); }},
    {"operator new[]", [] { objects = Opaque(new std::string[2]); }},
    {"operator delete[] sized", [] { delete[] Opaque(objects); }},
    {"operator new nothrow", [] { object = Opaque(new (std::nothrow) std::string); }},
    {"operator delete sized", [] { delete Opaque(object); }},
    {"operator new[] nothrow", [] { objects = Opaque(new (std::nothrow) std::string[2]); }},
    {"operator delete[] sized", [] { delete[] Opaque(objects); }},
    {"operator new aligned", [] { wide = Opaque(new CWide); }},
    {"operator delete sized aligned", [] { delete Opaque(wide); }},
    {"operator new[] aligned", [] { wide = Opaque(new CWide[2]); }},
    {"operator delete[] aligned", [] { delete[] Opaque(wide); }},
    {"operator new", [] { block = Opaque(::operator new(Opaque(std::size_t{8}))); }},
    {"operator delete", [] { ::operator delete(Opaque(block)); }},
    {"operator new[]", [] { block = Opaque(::operator new[](Opaque(std::size_t{8}))); }},
    {"operator delete[]", [] { ::operator delete[](Opaque(block)); }},
    {"pthread_mutex_lock", [] { LockMutex([] { return pthread_mutex_lock(&mutex); }); }},
    {"pthread_mutex_lock", [] { std::mutex().lock(); }},
    {"pthread_mutex_timedlock",
     [] { LockMutex([] { return pthread_mutex_timedlock(&mutex, &kPast); }); }},
    {"pthread_mutex_clocklock",
     [] { LockMutex([] { return pthread_mutex_clocklock(&mutex, CLOCK_MONOTONIC, &kPast); }); }},
    {"pthread_cond_timedwait",
     [] { WaitTimed([](pthread_cond_t* c) { pthread_cond_timedwait(c, &mutex, &kPast); }); }},
    {"pthread_cond_clockwait",
     [] {
         WaitTimed(
             [](pthread_cond_t* c) { pthread_cond_clockwait(c, &mutex, CLOCK_MONOTONIC, &kPast); });
     }},
    {"pthread_rwlock_rdlock", [] { LockRW([] { return pthread_rwlock_rdlock(&rwlock); }); }},
    {"pthread_rwlock_timedrdlock",
     [] { LockRW([] { return pthread_rwlock_timedrdlock(&rwlock, &kPast); }); }},
    {"pthread_rwlock_wrlock", [] { LockRW([] { return pthread_rwlock_wrlock(&rwlock); }); }},
    {"pthread_rwlock_timedwrlock",
     [] { LockRW([] { return pthread_rwlock_timedwrlock(&rwlock, &kPast); }); }},
    {"pthread_spin_lock",
     [] {
         pthread_spinlock_t spin;
         pthread_spin_init(&spin, PTHREAD_PROCESS_PRIVATE);
         pthread_spin_lock(&spin);
         pthread_spin_unlock(&spin);
         pthread_spin_destroy(&spin);
     }},
    {"pthread_barrier_wait",
     [] {
         pthread_barrier_t barrier;
         pthread_barrier_init(&barrier, nullptr, 1);
         pthread_barrier_wait(&barrier);
         pthread_barrier_destroy(&barrier);
     }},
    {"sem_wait", [] { WithSemaphore([](sem_t* s) { sem_wait(s); }); }},
    {"sem_timedwait", [] { WithSemaphore([](sem_t* s) { sem_timedwait(s, &kPast); }); }},
    {"sem_clockwait",
     [] { WithSemaphore([](sem_t* s) { sem_clockwait(s, CLOCK_MONOTONIC, &kPast); }); }},
    {"nanosleep", [] { nanosleep(&kNoTime, nullptr); }},
    {"clock_nanosleep", [] { clock_nanosleep(CLOCK_MONOTONIC, 0, &kNoTime, nullptr); }},
    {"usleep", [] { usleep(0); }},
    {"sleep", [] { sleep(0); }},
    {"sched_yield", [] { sched_yield(); }},
    {"poll", [] { poll(nullptr, 0, 0); }},
    {"select",
     [] {
         timeval none{0, 0};
         select(0, nullptr, nullptr, nullptr, &none);
     }},
    {"write", [] { WithPipe([](int, int end) { EXPECT_EQ(write(end, "x", 1), 1); }); }},
    {"read",
     [] {
         char byte = 0;
         EXPECT_EQ(read(-1, Opaque(&byte), 1), -1);
     }},
    {"mmap",
     [] {
         block = mmap(nullptr, 4096, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
         EXPECT_NE(block, MAP_FAILED);
     }},
    {"munmap", [] { munmap(block, 4096); }},
    {"syscall", [] { EXPECT_EQ(syscall(SYS_getpid), getpid()); }},
};

TEST(RealTimeGuardTest, SeesEachFunctionThatItWatches) {
    for (const CControl& control : kControls) {
        RealTime::Forget();
        {
            const RealTime::CGuard guard;
            control.call();
        }
        EXPECT_GT(RealTime::GetViolationsCount(), 0) << control.name;
        EXPECT_STREQ(RealTime::GetFirstViolation(), control.name);
    }
    RealTime::Forget();
}

TEST(RealTimeGuardTest, SeesAWaitForACondition) {
    pthread_cond_t condition = PTHREAD_COND_INITIALIZER;
    bool isOver = false;
    pthread_mutex_lock(&mutex);
    // It needs the mutex to end the wait, so it cannot do so before the wait has begun.
    std::thread other([&] {
        pthread_mutex_lock(&mutex);
        isOver = true;
        pthread_cond_signal(&condition);
        pthread_mutex_unlock(&mutex);
    });
    RealTime::Forget();
    {
        const RealTime::CGuard guard;
        while (!isOver) {
            pthread_cond_wait(&condition, &mutex);
        }
    }
    pthread_mutex_unlock(&mutex);
    EXPECT_STREQ(RealTime::GetFirstViolation(), "pthread_cond_wait");
    other.join();
    RealTime::Forget();
}

TEST(RealTimeGuardTest, SeesTheEndOfAThreadBeingWaitedFor) {
    std::thread other([] {});
    RealTime::Forget();
    {
        const RealTime::CGuard guard;
        other.join();
    }
    EXPECT_STREQ(RealTime::GetFirstViolation(), "pthread_join");
    RealTime::Forget();
}

TEST(RealTimeGuardTest, SeesWhatTheLibraryDoesInside) {
    RealTime::Forget();
    {
        const RealTime::CGuard guard;
        std::vector<float> grown;
        grown.resize(Opaque(std::size_t{100}));
        Opaque(grown.data());
    }
    EXPECT_EQ(RealTime::GetViolationsCount(), 2);
    EXPECT_STREQ(RealTime::GetFirstViolation(), "operator new");
    RealTime::Forget();
}

TEST(RealTimeGuardTest, AllowsATryForALock) {
    RealTime::Forget();
    {
        const RealTime::CGuard guard;
        ASSERT_EQ(pthread_mutex_trylock(&mutex), 0);
        pthread_mutex_unlock(&mutex);
    }
    EXPECT_EQ(RealTime::GetViolationsCount(), 0);
    EXPECT_STREQ(RealTime::GetFirstViolation(), "");
}

TEST(RealTimeGuardTest, WatchesItsOwnThreadWhileItExists) {
    RealTime::Forget();
    block = Opaque(std::malloc(8));
    {
        const RealTime::CGuard outer;
        { const RealTime::CGuard inner; }
        std::free(Opaque(block));
    }
    std::free(Opaque(std::malloc(8)));
    EXPECT_EQ(RealTime::GetViolationsCount(), 1);
    int others = -1;
    std::thread([&others] {
        std::free(Opaque(std::malloc(8)));
        others = RealTime::GetViolationsCount();
    }).join();
    EXPECT_EQ(others, 0);
    RealTime::Forget();
}

TEST(RealTimeGuardTest, CountsTheBytesInUse) {
    const std::int64_t before = RealTime::GetLiveBytes();
    auto bytes = std::make_unique<char[]>(100000);
    Opaque(bytes.get());
    EXPECT_NEAR(static_cast<double>(RealTime::GetLiveBytes() - before), 100000.0, 64.0);
    bytes.reset();
    EXPECT_EQ(RealTime::GetLiveBytes(), before);
}

} // namespace
