// What it costs that a parameter changes which a formula reads, and what it costs to parse one.
//
// The program ends with a line per figure: `ratio NAME VALUE (limit LIMIT)`. A change comes from a
// bound parameter, through its events; the peer sets the constant of the same formula by its name
// and tells the formula's listeners. The formulas have one open name, and a thousand.

#include "SkinEngine/Formula/ParseFormula.h"
#include "bench/Ratio.h"
#include "datamodel/objects/CaptureParam.h"
#include "datamodel/objects/ParametrizedCaptureObject.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

namespace {

using namespace Vorin;
using namespace Vorin::AppEngine;
using namespace Vorin::DataModel::Objects;

CParamInfo MakeInfo() { return {kParamReal, "", "", "", nullptr, nullptr, 0.0, 1.0, 0.0}; }

std::string NameOf(int index) { return "dsp.input" + std::to_string(index); }

/// The sum of so many names.
std::string MakeFormula(int names) {
    std::string text = NameOf(0);
    for (int i = 1; i < names; ++i) {
        text += '+';
        text += NameOf(i);
    }
    return text;
}

/// Who listens to the formula.
class CFormulaListener {
public:
    explicit CFormulaListener(Core::IEventProvider& source) : events(source) {
        events.Connect(changed);
    }
    ~CFormulaListener() { events.Disconnect(changed); }
    CFormulaListener(const CFormulaListener&) = delete;
    CFormulaListener& operator=(const CFormulaListener&) = delete;

    long count = 0;

private:
    void OnChanged() { ++count; }

    Core::IEventProvider& events;
    Core::TCommand<CFormulaListener> changed{this, &CFormulaListener::OnChanged};
};

/// A formula with each of its names bound to a parameter.
class CBoundFormula {
public:
    explicit CBoundFormula(int names)
        : formula(MakeInfo(), ParseParametrizedConstant(MakeFormula(names).c_str()).release()),
          listener(formula.GetValueChangedEvents()) {
        for (int i = 0; i < names; ++i) {
            sources.push_back(std::make_unique<CCaptureParam>(MakeInfo()));
            formula.Connect(NameOf(i).c_str(), *sources.back());
        }
        changedSource = sources[sources.size() / 2].get();
    }

    /// A change of one source.
    void Run() {
        value = value < 0.5 ? 0.75 : 0.25;
        changedSource->SetValue(value);
    }

    ~CBoundFormula() { formula.Disconnect(); }
    CBoundFormula(const CBoundFormula&) = delete;
    CBoundFormula& operator=(const CBoundFormula&) = delete;

private:
    std::vector<std::unique_ptr<CCaptureParam>> sources;
    CParametrizedCaptureParam formula;
    CFormulaListener listener;
    CCaptureParam* changedSource = nullptr;
    double value = 0.0;
};

/// The same formula without sources, set by hand.
class CDirectFormula : public CConstantToCaptureParamAdapter {
public:
    explicit CDirectFormula(int names)
        : CDirectFormula(names, ParseParametrizedConstant(MakeFormula(names).c_str())) {}

    void Run() {
        value = value < 0.5 ? 0.75 : 0.25;
        if (function->SetConstant(name.c_str(), value)) {
            NotifyValueChanged();
        }
    }

private:
    CDirectFormula(int names, std::unique_ptr<TParametrizedFunction<Math::IConstant>> parsed)
        : CConstantToCaptureParamAdapter(MakeInfo(), parsed->GetFunction(), Core::kDontOwn),
          function(std::move(parsed)), name(NameOf(names / 2)), listener(GetValueChangedEvents()) {}

    const std::unique_ptr<TParametrizedFunction<Math::IConstant>> function;
    const std::string name;
    CFormulaListener listener;
    double value = 0.0;
};

void BM_Change(benchmark::State& state) {
    CBoundFormula formula(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        formula.Run();
    }
}
BENCHMARK(BM_Change)->Arg(1)->Arg(10)->Arg(1000);

void BM_SetConstant(benchmark::State& state) {
    CDirectFormula formula(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        formula.Run();
    }
}
BENCHMARK(BM_SetConstant)->Arg(1)->Arg(10)->Arg(1000);

void BM_Parse(benchmark::State& state) {
    const std::string text = MakeFormula(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(ParseParametrizedConstant(text.c_str()));
    }
}
BENCHMARK(BM_Parse)->Arg(1)->Arg(10)->Arg(1000);

void PrintChange(const char* figure, int names) {
    constexpr int kRounds = 20000;
    CBoundFormula bound(names);
    CDirectFormula direct(names);
    const double ratio =
        Bench::MeasureRatio([&] { bound.Run(); }, kRounds, [&] { direct.Run(); }, kRounds);
    Bench::PrintRatio(figure, ratio, 2.0);
}

} // namespace

int main(int argc, char** argv) {
    if (!Bench::RunBenchmarks(argc, argv)) {
        return 1;
    }
    PrintChange("formula_change_1_name", 1);
    PrintChange("formula_change_1000_names", 1000);
    return 0;
}
