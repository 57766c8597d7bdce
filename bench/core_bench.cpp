// What an event costs: CEventProvider::Notify to ten listeners, beside a loop over a vector of ten
// std::function that make the same calls.
//
// The program ends with one line per ratio: `ratio NAME VALUE (limit LIMIT)`.

#include "bench/Ratio.h"
#include "core/EventProvider.h"
#include "core/Value.h"

#include <benchmark/benchmark.h>

#include <array>
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

} // namespace

int main(int argc, char** argv) {
    if (!Bench::RunBenchmarks(argc, argv)) {
        return 1;
    }
    constexpr int rounds = 200000;
    CNotifySide notify;
    CFunctionSide function;
    Bench::PrintRatio(
        "notify_ten_listeners",
        Bench::MeasureRatio([&] { notify.Run(); }, rounds, [&] { function.Run(); }, rounds), 1.5);
    return 0;
}
