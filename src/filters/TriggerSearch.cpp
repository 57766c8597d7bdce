#include "filters/TriggerSearch.h"

namespace PluginsFilters {

namespace {

/// A walk backward over a circle that ends after a little more than one round.
class CWalk {
public:
    CWalk(const float* circle, int size, int start) : samples(circle), count(size), index(start) {}

    /// Steps back for as long as `goesOn` holds for the sample at the walk's place.
    template <class Predicate>
    void While(Predicate goesOn) {
        while (steps <= count) {
            if (HoldsForRun(goesOn)) {
                Step(kRun);
            } else if (goesOn(samples[index])) {
                Step(1);
            } else {
                return;
            }
        }
    }

    /// The place behind the one that the walk has come to, -1 when it went all the way round.
    int GetPlace() const {
        if (steps >= count) {
            return -1;
        }
        const int place = index + 1;
        return place > count ? place - count : place;
    }

private:
    static constexpr int kRun = 32;

    /// Tests a run of samples at once, without a branch between them, so that it becomes vector
    /// code.
    template <class Predicate>
    bool HoldsForRun(Predicate goesOn) const {
        if (index < kRun - 1 || steps + kRun > count) {
            return false;
        }
        const float* run = samples + (index - (kRun - 1));
        int holds = 0;
        for (int i = 0; i < kRun; ++i) {
            holds += goesOn(run[i]) ? 1 : 0;
        }
        return holds == kRun;
    }

    void Step(int distance) {
        index -= distance;
        if (index < 0) {
            index += count;
        }
        steps += distance;
    }

    const float* samples;
    int count;
    int index;
    int steps = 0;
};

} // namespace

int FindTrigger(const float* samples, int count, int newest, float level, bool down) {
    const float x = samples[newest];
    if (x == level) {
        return 1;
    }
    CWalk walk(samples, count, newest);
    if (down) {
        if (x > level) {
            walk.While([level](float b) { return b >= level; });
        }
        // Neither comparison holds for NaN, which then ends a walk where it stands.
        if (x > level || x < level) {
            walk.While([level](float b) { return b < level; });
        }
    } else {
        if (x < level) {
            walk.While([level](float b) { return b <= level; });
        }
        if (x > level || x < level) {
            walk.While([level](float b) { return b > level; });
        }
    }
    return walk.GetPlace();
}

} // namespace PluginsFilters
