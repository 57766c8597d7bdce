// What a value costs on its way through links: a chain of a thousand, beside one of a hundred.
//
// The program ends with one line: `ratio NAME VALUE (limit LIMIT)`, the time per link of the long
// chain over that of the short one.

#include "bench/Ratio.h"
#include "datamodel/links/CaptureParamLink.h"
#include "datamodel/objects/CaptureParam.h"

#include <benchmark/benchmark.h>

#include <cstddef>
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

} // namespace

int main(int argc, char** argv) {
    if (!Bench::RunBenchmarks(argc, argv)) {
        return 1;
    }
    CChain longChain(1000);
    CChain shortChain(100);
    // Ten times the links: a tenth of it is the time of a link.
    const double ratio =
        Bench::MeasureRatio([&] { longChain.Run(); }, 200, [&] { shortChain.Run(); }, 2000);
    Bench::PrintRatio("link_chain_1000_to_100", ratio / 10.0, 2.0);
    return 0;
}
