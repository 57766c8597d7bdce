#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <limits>

/// What the programs of this folder share: they run their benchmarks, then print for each figure
/// that is held to a limit one line `ratio NAME VALUE (limit LIMIT)`.
namespace Bench {

/// Runs what the command line asks for; false when it cannot be understood.
inline bool RunBenchmarks(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return false;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return true;
}

/// The seconds that so many calls take.
template <class Run>
double TimeRounds(Run& run, int rounds) {
    const auto begin = std::chrono::steady_clock::now();
    for (int round = 0; round < rounds; ++round) {
        run();
        benchmark::ClobberMemory();
    }
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

/// How many times as long a call of `measured` takes as one of `peer`. The two take turns of so
/// many calls each, and the best turn of each counts: what else the machine does falls on both.
template <class Measured, class Peer>
double MeasureRatio(Measured measured, int rounds, Peer peer, int peerRounds, int turns = 16) {
    double bestMeasured = std::numeric_limits<double>::max();
    double bestPeer = bestMeasured;
    for (int turn = 0; turn < turns; ++turn) {
        bestMeasured = std::min(bestMeasured, TimeRounds(measured, rounds));
        bestPeer = std::min(bestPeer, TimeRounds(peer, peerRounds));
    }
    return (bestMeasured / rounds) / (bestPeer / peerRounds);
}

inline void PrintRatio(const char* name, double ratio, double limit) {
    std::printf("ratio %s %.2f (limit %g)\n", name, ratio, limit);
}

} // namespace Bench
