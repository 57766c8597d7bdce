#include "system/CriticalSection.h"

namespace Vorin::System {

CCriticalSection::CCriticalSection() {
    pthread_mutexattr_t attributes;
    pthread_mutexattr_init(&attributes);
    pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
    pthread_mutexattr_setprotocol(&attributes, PTHREAD_PRIO_INHERIT);
    pthread_mutex_init(&mutex, &attributes);
    pthread_mutexattr_destroy(&attributes);
}

CCriticalSection::~CCriticalSection() { pthread_mutex_destroy(&mutex); }

void CCriticalSection::Lock() { pthread_mutex_lock(&mutex); }

void CCriticalSection::Unlock() { pthread_mutex_unlock(&mutex); }

bool CCriticalSection::TryLock() { return pthread_mutex_trylock(&mutex) == 0; }

} // namespace Vorin::System
