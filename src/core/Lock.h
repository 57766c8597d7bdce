#pragma once

namespace Vorin::Core {

/// Something that one thread holds at a time.
class ILock {
public:
    virtual void Lock() = 0;
    virtual void Unlock() = 0;
    virtual ~ILock() = default;
};

/// Holds a lock for a scope.
class [[nodiscard]] CAutoLock {
public:
    explicit CAutoLock(ILock& held) : lock(held) { lock.Lock(); }
    ~CAutoLock() { lock.Unlock(); }

    CAutoLock(const CAutoLock&) = delete;
    CAutoLock& operator=(const CAutoLock&) = delete;

private:
    ILock& lock;
};

} // namespace Vorin::Core
