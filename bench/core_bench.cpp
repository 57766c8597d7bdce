// What an event costs: CEventProvider::Notify to ten listeners, beside a loop over a vector of ten
// std::function that make the same calls.
//
// The program ends with one line per ratio: `ratio NAME VALUE (limit LIMIT)`.

#include "core/EventProvider.h"
#include "core/Value.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

namespace {

using namespace Vorin::Core;

constexpr int listenerCount = 10;

// Not inlined: what a listener does lies elsewhere, for both sides alike.
class CListener {
public:
    [[gnu::noinline]] void OnChanged() { benchmark::DoNotOptimize(++calls); }

private:
    int calls = 0;
};

class CCommandListener : public CListener {
public:
    TCommand<CListener> command{this, &CListener::OnChanged};
};

class CNotifySide {
public:
    CNotifySide() {
        for (CCommandListener& listener : listeners) {
            provider.Connect(listener.command);
        }
    }
    void Run() { provider.Notify(); }

private:
    CEventProvider provider;
    std::array<CCommandListener, listenerCount> listeners;
};

class CFunctionSide {
public:
    CFunctionSide() {
        for (CListener& listener : listeners) {
            functions.emplace_back([&listener] { listener.OnChanged(); });
        }
    }
    void Run() {
        for (const std::function<void()>& function : functions) {
            function();
        }
    }

private:
    std::vector<std::function<void()>> functions;
    std::array<CListener, listenerCount> listeners;
};

template <class Side>
void BM_TenListeners(benchmark::State& state) {
    const auto side = std::make_unique<Side>();
    for (auto _ : state) {
        side->Run();
    }
}
BENCHMARK(BM_TenListeners<CNotifySide>);
BENCHMARK(BM_TenListeners<CFunctionSide>);

void BM_SetUnchangedDouble(benchmark::State& state) {
    TValue<double> value(0.5);
    TIValue<double>* seen = &value;
    benchmark::DoNotOptimize(seen);
    for (auto _ : state) {
        seen->SetValue(0.5);
    }
}
BENCHMARK(BM_SetUnchangedDouble);

template <class Side>
double TimeRounds(Side& side) {
    constexpr int rounds = 200000;
    const auto begin = std::chrono::steady_clock::now();
    for (int round = 0; round < rounds; ++round) {
        side.Run();
        benchmark::ClobberMemory();
    }
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

// The sides take turns, and the best turn of each counts: what else the machine does falls on both.
double MeasureRatio() {
    CNotifySide notify;
    CFunctionSide function;
    double bestNotify = TimeRounds(notify);
    double bestFunction = TimeRounds(function);
    for (int turn = 0; turn < 15; ++turn) {
        bestNotify = std::min(bestNotify, TimeRounds(notify));
        bestFunction = std::min(bestFunction, TimeRounds(function));
    }
    return bestNotify / bestFunction;
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    std::printf("ratio notify_ten_listeners %.2f (limit 1.5)\n", MeasureRatio());
    return 0;
}
