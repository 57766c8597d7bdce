#pragma once

#include "Outcome.h"
#include "ScopeOptions.h"

#include "audio/plugin/BlockProcessor.h"
#include "audio/plugin/FilterHost.h"
#include "audio/plugin/HostParam.h"

#include <string>
#include <vector>

namespace Workbench {

struct CPoint {
    double x = 0.0;
    double y = 0.0;
};

/// One published curve, read at even distances over its whole range, both ends included.
struct CCurve {
    std::string name;
    std::string unitX;
    double minY = 0.0;
    double maxY = 0.0;
    std::vector<CPoint> points;
};

/// The plug-in with a sound going through it, block by block, as a host would drive it. Every block
/// counts as sound: whether one is silent would depend on where its borders fall.
class CScopeRun {
public:
    explicit CScopeRun(const CScopeOptions& options);

    /// Sets the parameters and makes everything ready for a sample rate in Hz.
    COutcome Begin(double sampleRate);

    /// One block of at most the block size.
    void Process(float* left, float* right, int frames);

    /// One update and publication more, wherever the pacing stands.
    void Flush();

    /// What the readers of the outputs see now.
    CCurve ReadCurve(int index, int points);
    int GetCurvesCount() const;

private:
    const CScopeOptions& options;
    Vorin::Audio::Plugin::CFilterHost internals;
    Vorin::Audio::Plugin::CHostParams inputValues{internals.GetInputInfos()};
    Vorin::Audio::Plugin::CBlockProcessor processor{internals};
};

} // namespace Workbench
