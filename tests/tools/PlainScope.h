#pragma once

#include "Sounds.h"

#include <string>
#include <vector>

namespace WorkbenchTests {

enum EView { kFlow, kLoop, kTrigger };

/// What the program is told to do with a sound.
struct CScopeSettings {
    EView view = kFlow;
    double delayMilliseconds = 0.0;
    double triggerValue = 0.0;
    bool triggerDown = false;
    bool midSide = false;
    bool bypass = false;
    int block = 512;
    double refreshHz = 50.0;
    bool flush = false;

    /// The same as options.
    std::vector<std::string> GetOptions() const;
};

/// How many of `frames` frames are in what was last published; 0 for none.
int CountPublished(int frames, int rate, const CScopeSettings& settings);

/// One channel's curves, worked out from the whole of its samples at once, where the program keeps
/// rings and counts as it goes.
class CPlainChannel {
public:
    /// `samples` are those that the last publication has seen.
    CPlainChannel(const std::vector<float>& samples, int rate, const CScopeSettings& settings);

    double GetWaveform(double x) const;
    double GetHistogram(double x) const;

private:
    void PlaceView(const CScopeSettings& settings);
    int FindTriggerSteps(float level, bool down) const;
    int FirstSteps(int start, float level, bool above, bool orEqual) const;
    float Newest(int steps) const;
    float Entry(int index) const;
    bool IsHidden(float position) const;

    int count; // samples of the circle
    int head;  // where the next sample would go
    int offset = 0;
    int limit = 0;
    std::vector<float> circle;
    std::vector<int> bins;
    int tallest = 0;
};

/// Both channels of a sound.
class CPlainScope {
public:
    CPlainScope(const CSound& sound, const CScopeSettings& settings);

    /// In the program's order: waveform and histogram of the first channel, then of the second.
    double Evaluate(int curve, double x) const;

private:
    std::vector<CPlainChannel> channels;
};

} // namespace WorkbenchTests
