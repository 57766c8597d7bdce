// What threads cost: a notification under a lock beside one without, both to ten listeners; and a
// call through a message loop on another thread and back, beside the least that such a round trip
// can be: two condition variables.
//
// The program ends with one line per ratio: `ratio NAME VALUE (limit LIMIT)`.

#include "bench/Ratio.h"
#include "system/MTEventProvider.h"
#include "system/MessageLoop.h"

#include <benchmark/benchmark.h>

#include <array>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

namespace {

using namespace Vorin::Core;
using namespace Vorin::System;

constexpr int listenerCount = 10;

// Not inlined: what a listener does lies elsewhere, for all sides alike.
class CListener {
public:
    [[gnu::noinline]] void OnChanged() { benchmark::DoNotOptimize(++calls); }

    TCommand<CListener> command{this, &CListener::OnChanged};

private:
    int calls = 0;
};

template <class Provider>
class CNotifySide {
public:
    static constexpr int rounds = 200000;

    CNotifySide() {
        for (CListener& listener : listeners) {
            provider.Connect(listener.command);
        }
    }
    void Run() { provider.Notify(); }

private:
    Provider provider;
    std::array<CListener, listenerCount> listeners;
};

class CLoopSide {
public:
    static constexpr int rounds = 2000;

    void Run() { loop.InvokeSync(&listener.command, kDontOwn); }

private:
    CListener listener;
    CMessageLoopThread loop;
};

// The floor: a thread that waits for a turn, makes the call and gives the turn back.
class CConditionVariableSide {
public:
    static constexpr int rounds = 2000;

    ~CConditionVariableSide() {
        Give(kEnd);
        thread.join();
    }

    void Run() {
        Give(kThere);
        std::unique_lock held(mutex);
        back.wait(held, [this] { return turn == kBack; });
    }

private:
    enum ETurn { kBack, kThere, kEnd };

    void Give(ETurn next) {
        const std::lock_guard held(mutex);
        turn = next;
        there.notify_one();
    }

    void Serve() {
        std::unique_lock held(mutex);
        while (true) {
            there.wait(held, [this] { return turn != kBack; });
            if (turn == kEnd) {
                return;
            }
            listener.OnChanged();
            turn = kBack;
            back.notify_one();
        }
    }

    CListener listener;
    std::mutex mutex;
    std::condition_variable there;
    std::condition_variable back;
    ETurn turn = kBack; // under the mutex
    std::thread thread{[this] { Serve(); }};
};

template <class Side>
void BM_Run(benchmark::State& state) {
    const auto side = std::make_unique<Side>();
    for (auto _ : state) {
        side->Run();
    }
}
BENCHMARK(BM_Run<CNotifySide<CEventProvider>>);
BENCHMARK(BM_Run<CNotifySide<CMTEventProvider>>);
BENCHMARK(BM_Run<CConditionVariableSide>)->UseRealTime();
BENCHMARK(BM_Run<CLoopSide>)->UseRealTime();

template <class Measured, class Floor>
double MeasureRatio() {
    Measured measured;
    Floor floor;
    return Bench::MeasureRatio([&] { measured.Run(); }, Measured::rounds, [&] { floor.Run(); },
                               Floor::rounds);
}

} // namespace

int main(int argc, char** argv) {
    if (!Bench::RunBenchmarks(argc, argv)) {
        return 1;
    }
    Bench::PrintRatio("locked_notify_ten_listeners",
                      MeasureRatio<CNotifySide<CMTEventProvider>, CNotifySide<CEventProvider>>(),
                      3.0);
    Bench::PrintRatio("message_loop_round_trip", MeasureRatio<CLoopSide, CConditionVariableSide>(),
                      3.0);
    return 0;
}
