#pragma once

#include <cstdint>

/// Watches what must not happen on the audio thread: this program replaces the allocator, and the
/// functions of the system that can wait, by its own, which note their name and go on to the
/// original.
namespace RealTime {

/// While one exists, the calls of its thread are noted. They nest.
class CGuard {
public:
    CGuard();
    CGuard(const CGuard&) = delete;
    CGuard& operator=(const CGuard&) = delete;
    ~CGuard();
};

/// How many calls this thread has made under a guard since the last Forget.
int GetViolationsCount();

/// The first of them by name, or "" when there is none.
const char* GetFirstViolation();

void Forget();

/// The bytes of all blocks of the allocator that are in use now, in the whole program.
std::int64_t GetLiveBytes();

} // namespace RealTime
