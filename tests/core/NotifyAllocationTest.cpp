// Counts the allocations of the whole program: the reason why these tests have a file.

#include "core/ArgEventProvider.h"
#include "core/EventProvider.h"
#include "core/Value.h"

#include <atomic>
#include <cstdlib>
#include <new>

#include <gtest/gtest.h>

namespace {

std::atomic<int> allocations{0};
std::atomic<int> releases{0};

void Release(void* block) {
    releases += block ? 1 : 0;
    std::free(block);
}

} // namespace

void* operator new(std::size_t size) {
    ++allocations;
    if (void* block = std::malloc(size ? size : 1)) {
        return block;
    }
    throw std::bad_alloc();
}
void operator delete(void* block) noexcept { Release(block); }
void operator delete(void* block, std::size_t) noexcept { Release(block); }

namespace {

using namespace Vorin::Core;

class CLeavingCounter {
public:
    void OnChanged() {
        ++calls;
        if (provider && calls < 10) {
            provider->Notify();
        }
    }
    void Leave() {
        provider->Disconnect(leave);
        argProvider->Disconnect(argLeave);
    }
    void LeaveWith(int) { Leave(); }
    void OnArgument(int) { ++calls; }

    CEventProvider* provider = nullptr;
    TArgEventProvider<int>* argProvider = nullptr;
    int calls = 0;
    TCommand<CLeavingCounter> command{this, &CLeavingCounter::OnChanged};
    TArgCommand<CLeavingCounter, int> argCommand{this, &CLeavingCounter::OnArgument};
    TCommand<CLeavingCounter> leave{this, &CLeavingCounter::Leave};
    TArgCommand<CLeavingCounter, int> argLeave{this, &CLeavingCounter::LeaveWith};
};

TEST(NotifyAllocationTest, ConnectAllocatesSoTheCounterWorks) {
    CEventProvider provider;
    CLeavingCounter counter;
    const int before = allocations;
    provider.Connect(counter.command);
    EXPECT_GT(allocations, before);
    provider.Disconnect(counter.command);
}

TEST(NotifyAllocationTest, NotifyAllocatesNothingNestedOrNot) {
    CEventProvider provider;
    CLeavingCounter first;
    CLeavingCounter second;
    first.provider = &provider;
    second.provider = &provider;
    provider.Connect(first.command);
    provider.Connect(second.command);
    const int before = allocations;
    provider.Notify();
    const int after = allocations;
    EXPECT_EQ(after, before);
    EXPECT_EQ(first.calls + second.calls, 2);
}

TEST(NotifyAllocationTest, ArgumentNotifyAndNumberValuesAllocateNothing) {
    TArgEventProvider<int> provider;
    TValue<double> value;
    CLeavingCounter counter;
    provider.Connect(counter.argCommand);
    value.GetValueChangedEvents().Connect(counter.command);
    const int before = allocations;
    provider.Notify(3);
    value.SetValue(2.0);
    const int after = allocations;
    EXPECT_EQ(after, before);
    EXPECT_EQ(counter.calls, 2);
}

TEST(NotifyAllocationTest, NodesTakenOutDuringAWalkAreFreedWhenItEnds) {
    CEventProvider provider;
    TArgEventProvider<int> argProvider;
    CLeavingCounter counter;
    counter.provider = &provider;
    counter.argProvider = &argProvider;
    provider.Connect(counter.leave);
    int before = releases;
    provider.Notify();
    int after = releases;
    EXPECT_EQ(after, before + 1);

    argProvider.Connect(counter.argLeave);
    before = releases;
    argProvider.Notify(1);
    after = releases;
    EXPECT_EQ(after, before + 1);
}

} // namespace
