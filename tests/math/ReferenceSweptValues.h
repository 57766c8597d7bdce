#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace Vorin::Math {

/// The plain twin of CSweptValues: a ring in two vectors, read by a guess and a walk of any length.
class CReferenceSweptValues {
public:
    void SetCapacity(int count) {
        int capacity = 1;
        while (capacity < count) {
            capacity *= 2;
        }
        values.assign(static_cast<std::size_t>(capacity), 0.0);
        times = values;
        mask = capacity - 1;
        currentIndex = -1;
        pointsCount = 0;
    }

    bool AddPoint(double time, double value) {
        if (currentIndex != -1 && time <= At(times, currentIndex)) {
            return false;
        }
        currentIndex = (currentIndex + 1) & mask;
        pointsCount = std::min(pointsCount + 1, mask + 1);
        At(values, currentIndex) = value;
        At(times, currentIndex) = time;
        if (pointsCount >= 2) {
            pointsPerSecond = static_cast<double>(static_cast<float>(pointsCount - 1)) /
                              (time - At(times, currentIndex - pointsCount + 1));
        }
        return true;
    }

    double Evaluate(double x) {
        if (pointsCount == 0) {
            return defaultValue;
        }
        if (x >= 0.0) {
            return At(values, currentIndex);
        }
        if (pointsCount == 1) {
            return defaultValue;
        }
        const double t = x + At(times, currentIndex);
        const int oldest = currentIndex - pointsCount + 1;
        const double offset = std::max(x * pointsPerSecond + 0.5, -1.0 * pointsCount);
        int i = std::max(currentIndex + static_cast<int>(offset), oldest + 1);
        while (t > At(times, i) && i < currentIndex - 1) {
            ++i;
        }
        while (At(times, i) > t) {
            --i;
            if (i == oldest) {
                return defaultValue;
            }
        }
        if (i == currentIndex) { // x vanishes beside the newest time
            return At(values, i);
        }
        const double share = (t - At(times, i)) / (At(times, i + 1) - At(times, i));
        return At(values, i) + (At(values, i + 1) - At(values, i)) * share;
    }

    double defaultValue = 0.0;
    double pointsPerSecond = 0.0;

private:
    double& At(std::vector<double>& ring, int index) {
        return ring[static_cast<std::size_t>(index & mask)];
    }

    std::vector<double> values = {0.0};
    std::vector<double> times = {0.0};
    int currentIndex = -1;
    int mask = 0;
    int pointsCount = 0;
};

} // namespace Vorin::Math
