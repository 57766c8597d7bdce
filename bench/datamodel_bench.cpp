// What a value costs on its way through links: a chain of a thousand, beside one of a hundred.
//
// The program ends with one line: `ratio NAME VALUE (limit LIMIT)`, the time per link of the long
// chain over that of the short one.

#include "datamodel/links/CaptureParamLink.h"
#include "datamodel/objects/CaptureParam.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <vector>

namespace {

using namespace Vorin::DataModel::Objects;

class CChain {
public:
    explicit CChain(int linkCount) {
        const CParamInfo info(kParamReal, "", "", "", nullptr, nullptr, 0.0, 1.0, 0.0);
        params.push_back(std::make_unique<CCaptureParam>(info));
        for (int i = 0; i < linkCount; ++i) {
            params.push_back(std::make_unique<CCaptureParam>(info));
            links.push_back(std::make_unique<CCaptureParamLink>());
            links.back()->SetSource(params[params.size() - 2].get());
            links.back()->SetTarget(params.back().get());
            links.back()->SetEnabled(true);
        }
    }

    ~CChain() {
        for (const auto& link : links) {
            link->Disconnect();
        }
    }

    CChain(const CChain&) = delete;
    CChain& operator=(const CChain&) = delete;

    /// One change from end to end.
    void Run() {
        value = value < 0.5 ? 0.75 : 0.25;
        params.front()->SetValue(value);
        benchmark::DoNotOptimize(params.back()->GetValue());
    }

private:
    std::vector<std::unique_ptr<CCaptureParam>> params;
    std::vector<std::unique_ptr<CCaptureParamLink>> links;
    double value = 0.0;
};

void BM_Chain(benchmark::State& state) {
    CChain chain(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        chain.Run();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_Chain)->Arg(100)->Arg(1000);

// As many links in all for a chain of any length.
double TimePass(CChain& chain, int length) {
    const int rounds = 200000 / length;
    const auto begin = std::chrono::steady_clock::now();
    for (int round = 0; round < rounds; ++round) {
        chain.Run();
    }
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

// The chains take turns, and the best turn of each counts: what else the machine does falls on
// both.
double MeasureRatio() {
    CChain shortChain(100);
    CChain longChain(1000);
    double bestShort = TimePass(shortChain, 100);
    double bestLong = TimePass(longChain, 1000);
    for (int turn = 0; turn < 15; ++turn) {
        bestShort = std::min(bestShort, TimePass(shortChain, 100));
        bestLong = std::min(bestLong, TimePass(longChain, 1000));
    }
    return bestLong / bestShort;
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    std::printf("ratio link_chain_1000_to_100 %.2f (limit 2)\n", MeasureRatio());
    return 0;
}
