#include "audio/dsp/MidSideMatrix.h"

#include "audio/dsp/StreamOperations.h"

#include <cmath>

namespace Vorin::Audio::DSP {

namespace {

/// The two weights that a mode stands for.
struct CWeights {
    explicit CWeights(double mode) {
        const float a = static_cast<float>(mode);
        // Zero and denormals alike mean Mid-Side.
        if (std::fpclassify(a) != FP_ZERO && std::fpclassify(a) != FP_SUBNORMAL) {
            p = 1.0F + a;
            q = 1.0F - a;
        }
    }

    float p = 1.0F;
    float q = 1.0F;
};

/// The mode from frame to frame, by forward differences.
class CRunningMode {
public:
    using Polynomial = std::array<double, CMidSideMatrix::kMaxOrder + 1>;

    CRunningMode(const Polynomial& start, int highest) : c(start), order(highest), weights(c[0]) {}

    const CWeights& Get() const { return weights; }

    void Step() {
        if (order == 0) {
            return;
        }
        // From the highest order down, so that each takes the one above it as it has just become.
        for (auto k = static_cast<std::size_t>(order); k-- > 0;) {
            c[k] += c[k + 1];
        }
        weights = CWeights(c[0]);
    }

private:
    Polynomial c;
    int order;
    CWeights weights;
};

/// A standing mode over plain arrays: the common case, which the compiler turns into vector code.
void ApplyStanding(CWeights weights, const float* left, const float* right, float* first,
                   float* second, int frames) {
    for (int i = 0; i < frames; ++i) {
        const float l = left[i];
        const float r = right[i];
        first[i] = (weights.p * r + weights.q * l) * 0.5F;
        second[i] = (weights.q * r - weights.p * l) * 0.5F;
    }
}

} // namespace

void CMidSideMatrix::SetOrder(int index, double value) {
    if (index < 0 || index > kMaxOrder) {
        return;
    }
    c[static_cast<std::size_t>(index)] = value;
    order = index;
}

void CMidSideMatrix::Apply(const IAudioStream& left, const IAudioStream& right, IAudioStream& first,
                           IAudioStream& second, int frames) const {
    if (!left.GetConstData() || !right.GetConstData() || !first.GetData() || !second.GetData()) {
        return;
    }
    CRunningMode mode(c, order);
    if (order == 0 && mode.Get().p == 0.0F) {
        // Left-Right passes through as it is. The products with 0 would turn a NaN or an infinity
        // of one channel into a NaN of the other.
        StreamOperations::Copy(&left, &first, frames);
        StreamOperations::Copy(&right, &second, frames);
        return;
    }
    const bool plain = left.GetStride() == 1 && right.GetStride() == 1 && first.GetStride() == 1 &&
                       second.GetStride() == 1;
    if (order == 0 && plain) {
        ApplyStanding(mode.Get(), left.GetConstData(), right.GetConstData(), first.GetData(),
                      second.GetData(), frames);
        return;
    }
    for (std::ptrdiff_t i = 0; i < frames; ++i) {
        const float l = left.GetConstData()[i * left.GetStride()];
        const float r = right.GetConstData()[i * right.GetStride()];
        const auto [p, q] = mode.Get();
        first.GetData()[i * first.GetStride()] = (p * r + q * l) * 0.5F;
        second.GetData()[i * second.GetStride()] = (q * r - p * l) * 0.5F;
        mode.Step();
    }
}

void CMidSideMatrix::ApplyInverse(IAudioStream& first, IAudioStream& second, int frames) const {
    CRunningMode mode(c, order);
    const bool untouched = order == 0 && mode.Get().p == 0.0F;
    if (untouched || !first.GetData() || !second.GetData()) {
        return;
    }
    for (std::ptrdiff_t i = 0; i < frames; ++i) {
        float& m = first.GetData()[i * first.GetStride()];
        float& s = second.GetData()[i * second.GetStride()];
        const auto [p, q] = mode.Get();
        // The determinant of the doubled matrix: at least 2, since p + q is 2.
        const float scale = 2.0F / (p * p + q * q);
        const float l = (q * m - p * s) * scale;
        const float r = (p * m + q * s) * scale;
        m = l;
        s = r;
        mode.Step();
    }
}

} // namespace Vorin::Audio::DSP
