#include "audio/plugin/midi/MIDICCMapping.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace Vorin::Audio::Plugin {

using namespace DataModel::Objects;

namespace {

/// The functions of all curves, and the identity behind them for numbers outside the table.
class CCurves {
public:
    CCurves() {
        for (std::size_t i = 0; i < functions.size(); ++i) {
            functions[i] = CreateParamValueCurveFunctions(static_cast<EParamValueCurve>(i));
        }
    }

    const CParamValueCurveFunctions& Get(EParamValueCurve curve) const {
        const bool isKnown = curve >= 0 && curve < kParamValueCurvesCount;
        return functions[static_cast<std::size_t>(isKnown ? curve : kParamValueCurvesCount)];
    }

private:
    std::array<CParamValueCurveFunctions, kParamValueCurvesCount + 1> functions;
};

// Made while the program or library is loaded, since the audio thread must not make it.
const CCurves curves;

double EndOf(const IConstParamInfo& info, double end) {
    return Quantize(info.GetType(), end, info.GetMin(), info.GetMax());
}

} // namespace

double ToValue(const IConstParamInfo& info, const IMIDICCSetting& setting, double position) {
    const double min = setting.GetMin();
    const double max = setting.GetMax();
    if (!(position > 0.0)) {
        return EndOf(info, min);
    }
    if (position >= 1.0) {
        return EndOf(info, max);
    }
    const IParamPositionMapper& mapper = info.GetPositionMapper();
    const double low = mapper.ValueToPosition(min);
    const double high = mapper.ValueToPosition(max);
    const double y = curves.Get(setting.GetCurve()).forward->Evaluate(position);
    const double value = mapper.PositionToValue(low + (high - low) * y);
    return std::isfinite(value) ? value : EndOf(info, y < 0.5 ? min : max);
}

double FromValue(const IConstParamInfo& info, const IMIDICCSetting& setting, double value) {
    const IParamPositionMapper& mapper = info.GetPositionMapper();
    const double low = mapper.ValueToPosition(setting.GetMin());
    const double range = mapper.ValueToPosition(setting.GetMax()) - low;
    double y = mapper.ValueToPosition(value) - low;
    if (range < 0.0 || range > 0.0) {
        y /= range;
    }
    // NaN is not above 0.
    y = y > 0.0 ? std::min(y, 1.0) : 0.0;
    return curves.Get(setting.GetCurve()).inverse->Evaluate(y);
}

} // namespace Vorin::Audio::Plugin
