#include "core/Lock.h"

#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Core;

class CLoggingLock : public ILock {
public:
    void Lock() override { log += 'L'; }
    void Unlock() override { log += 'U'; }

    std::string log;
};

TEST(LockTest, AutoLockHoldsForItsScope) {
    CLoggingLock lock;
    {
        const CAutoLock held(lock);
        EXPECT_EQ(lock.log, "L");
        {
            const CAutoLock again(lock);
            EXPECT_EQ(lock.log, "LL");
        }
        EXPECT_EQ(lock.log, "LLU");
    }
    EXPECT_EQ(lock.log, "LLUU");
}

} // namespace
