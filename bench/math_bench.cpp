// What functions cost: a tree for 0.5*sin(2*pi*x)+min(x,0.25)^2 beside muParser on the same text
// and beside the same expression compiled, and swept values of a million points beside those of a
// thousand.
//
// Ends with one line per ratio: `ratio NAME VALUE (limit LIMIT)`. The tree beside muParser says how
// many times faster it is, so the limit is the least; the others say how many times longer it
// takes, so the limit is the most. The two sides take turns, and the best turn of each counts: what
// else the machine does falls on both.

#include "bench/Ratio.h"
#include "math/Constant.h"
#include "math/FunctionsCombination.h"
#include "math/FunctionsComposition.h"
#include "math/SweptValues.h"

#include <benchmark/benchmark.h>
#include <muParser.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

using namespace Vorin;
using namespace Vorin::Math;

constexpr int kEvaluations = 2000;
constexpr double kPi = 3.141592653589793;

using Library = FunctionsLibrary;

/// F(a, b), which owns both.
template <double (*F)(double, double)>
IFunction* Combine(IFunction* a, IFunction* b) {
    auto* combination = new CFunctionsCombination;
    combination->SetFunc1(a, Core::kOwn);
    combination->SetFunc2(b, Core::kOwn);
    combination->SetCombineFunction(new TBinaryFunction<F>, Core::kOwn);
    return combination;
}

IFunction* Constant(double value) { return new CConstantFunction(value); }
IFunction* X() { return new TFunction<&Library::Identity>; }

/// As a formula is built: node by node, with nothing folded.
std::unique_ptr<IFunction> MakeTree() {
    auto* sine = new CFunctionsComposition;
    sine->SetCount(2);
    sine->SetFunction(
        0,
        Combine<&Library::Product>(Combine<&Library::Product>(Constant(2.0), Constant(kPi)), X()),
        Core::kOwn);
    sine->SetFunction(1, new TFunction<&Library::Sin>, Core::kOwn);
    return std::unique_ptr<IFunction>(Combine<&Library::Sum>(
        Combine<&Library::Product>(Constant(0.5), sine),
        Combine<&Library::Power>(Combine<&Library::Min>(X(), Constant(0.25)), Constant(2.0))));
}

class CTreeSide {
public:
    double Evaluate(double x) { return tree->Evaluate(x); }

private:
    std::unique_ptr<IFunction> tree = MakeTree();
};

class CMuParserSide {
public:
    CMuParserSide() {
        parser.DefineVar("x", &variable);
        parser.DefineConst("pi", kPi);
        parser.SetExpr("0.5*sin(2*pi*x)+min(x,0.25)^2");
    }
    double Evaluate(double x) {
        variable = x;
        return parser.Eval();
    }

private:
    mu::Parser parser;
    double variable = 0.0;
};

class CCompiledSide {
public:
    [[gnu::noinline]] double Evaluate(double x) {
        return 0.5 * std::sin(2 * kPi * x) + std::pow(std::min(x, 0.25), 2.0);
    }
};

/// Over the window that a viewer shows, a point per pixel, from `begin` to `end`.
template <class Side>
double Sweep(Side& side, double begin, double end) {
    double sum = 0.0;
    for (int i = 0; i < kEvaluations; ++i) {
        sum += side.Evaluate(begin + (end - begin) * i / kEvaluations);
    }
    benchmark::DoNotOptimize(sum);
    return sum;
}

template <class Side>
void BM_Expression(benchmark::State& state) {
    Side side;
    for (auto _ : state) {
        Sweep(side, -1.0, 1.0);
    }
    state.SetItemsProcessed(state.iterations() * kEvaluations);
}
BENCHMARK(BM_Expression<CTreeSide>);
BENCHMARK(BM_Expression<CMuParserSide>);
BENCHMARK(BM_Expression<CCompiledSide>);

/// Points 1 ms apart on the whole; uneven ones in two halves, the older ten times as far apart.
class CSweptSide {
public:
    CSweptSide(int points, bool isUneven) {
        swept.SetCapacity(points);
        double time = 0.0;
        for (int i = 0; i < points; ++i) {
            time += isUneven && i < points / 2 ? 0.01 : 0.001;
            swept.AddPoint(time, std::sin(time));
        }
        seconds = time;
    }

    double Evaluate(double x) { return swept.Evaluate(x); }
    double GetSeconds() const { return seconds; }

private:
    CSweptValues swept;
    double seconds = 0.0;
};

void BM_Swept(benchmark::State& state) {
    CSweptSide side(static_cast<int>(state.range(0)), state.range(1) != 0);
    for (auto _ : state) {
        Sweep(side, -side.GetSeconds(), 0.0);
    }
    state.SetItemsProcessed(state.iterations() * kEvaluations);
}
BENCHMARK(BM_Swept)->Args({1000, 0})->Args({1000000, 0})->Args({1000, 1})->Args({1000000, 1});

constexpr int kRounds = 10;
constexpr int kTurns = 40;

void PrintSweptRatio(const char* name, bool isUneven) {
    CSweptSide million(1000000, isUneven);
    CSweptSide thousand(1000, isUneven);
    Bench::PrintRatio(
        name,
        Bench::MeasureRatio([&] { Sweep(million, -million.GetSeconds(), 0.0); }, kRounds,
                            [&] { Sweep(thousand, -thousand.GetSeconds(), 0.0); }, kRounds, kTurns),
        3.0);
}

} // namespace

int main(int argc, char** argv) {
    if (!Bench::RunBenchmarks(argc, argv)) {
        return 1;
    }
    CTreeSide tree;
    CMuParserSide parser;
    CCompiledSide compiled;
    const auto runTree = [&] { Sweep(tree, -1.0, 1.0); };
    const auto runParser = [&] { Sweep(parser, -1.0, 1.0); };
    const auto runCompiled = [&] { Sweep(compiled, -1.0, 1.0); };
    Bench::PrintRatio("math_tree_beside_muparser",
                      Bench::MeasureRatio(runParser, kRounds, runTree, kRounds, kTurns), 1.5);
    Bench::PrintRatio("math_tree_beside_compiled",
                      Bench::MeasureRatio(runTree, kRounds, runCompiled, kRounds, kTurns), 4.0);
    PrintSweptRatio("swept_million_beside_thousand", false);
    PrintSweptRatio("swept_uneven_million_beside_thousand", true);
    return 0;
}
