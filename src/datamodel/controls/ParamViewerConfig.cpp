#include "datamodel/controls/ParamViewerConfig.h"

#include "datamodel/controls/ToInt.h"
#include "math/LibraryFunction.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

namespace Vorin::DataModel::Controls {

using Objects::IConstParamInfo;

namespace {

constexpr double kLargest = std::numeric_limits<double>::max();

/// Less or greater, deliberately not `!=`: a NaN never replaces a number.
bool Differs(double a, double b) { return a < b || a > b; }

double ZeroUnlessFinite(double value) { return std::isfinite(value) ? value : 0.0; }

double LimitToFinite(double value) { return std::clamp(value, -kLargest, kLargest); }

/// The largest power of `base` within `value`, both above 1 or `value` 1.
double FindPowerWithin(double value, double base) {
    const double exponent = std::floor(std::log(value) / std::log(base));
    const double power = std::pow(base, exponent);
    // The quotient of the logarithms is off by a rounding: that of 1000 and 10 falls short of 3.
    if (power > value) {
        return std::pow(base, exponent - 1.0);
    }
    return power * base <= value ? power * base : power;
}

const Math::IFunction* OrIdentity(const Math::IFunction* function) {
    return function ? function : Math::GetNeutralFunction<Math::IFunction>();
}

bool IsIdentity(const Math::IFunction* function) {
    using CIdentity = Math::TFunction<&Math::FunctionsLibrary::Identity>;
    return dynamic_cast<const CIdentity*>(function) != nullptr;
}

} // namespace

CParamViewerConfig::CParamViewerConfig(const IConstParamInfo& source)
    : info(&source), forward(OrIdentity(nullptr)), inverse(forward) {
    info->GetInfoChangedEvents().Connect(recompute);
    Recompute();
}

CParamViewerConfig::~CParamViewerConfig() { info->GetInfoChangedEvents().Disconnect(recompute); }

void CParamViewerConfig::SetInfo(const IConstParamInfo& source) {
    info->GetInfoChangedEvents().Disconnect(recompute);
    info = &source;
    info->GetInfoChangedEvents().Connect(recompute);
    Recompute();
    infoEvents.Notify();
}

template <class T>
void CParamViewerConfig::Store(T& field, T value) {
    if (field != value) {
        field = value;
        CacheFactors();
        configEvents.Notify();
    }
}

void CParamViewerConfig::SetReversed(bool reverse) {
    if (reverse != reversed) {
        reversed = reverse;
        CacheFactors();
        reverseEvents.Notify();
        configEvents.Notify();
    }
}

void CParamViewerConfig::SetResponseCurve(Objects::EParamValueCurve curve) {
    curveFunctions = Objects::CreateParamValueCurveFunctions(curve);
    forward = curveFunctions.forward.get();
    inverse = curveFunctions.inverse.get();
    CacheFactors();
    configEvents.Notify();
}

void CParamViewerConfig::SetResponseFunctions(const Math::IFunction* forwardFunction,
                                              const Math::IFunction* inverseFunction) {
    forward = OrIdentity(forwardFunction);
    inverse = OrIdentity(inverseFunction);
    curveFunctions = {};
    CacheFactors();
    configEvents.Notify();
}

void CParamViewerConfig::SetLogScale(bool enable) { Store(logScale, enable); }

void CParamViewerConfig::SetUseParameterCurve(bool enable) { Store(useParameterCurve, enable); }

void CParamViewerConfig::SetEnablePositionsZoom(bool enable) { Store(enablePositionsZoom, enable); }

void CParamViewerConfig::SetPositionsZoomBaseFactor(int factor) {
    Store(positionsZoomBaseFactor, static_cast<double>(factor));
}

void CParamViewerConfig::SetMaxPositionsZoom(int maximum) {
    Store(maxPositionsZoom, static_cast<double>(maximum));
}

void CParamViewerConfig::SetZoom(double newZoom) {
    if (Differs(newZoom, zoom)) {
        zoom = std::clamp(newZoom, 1.0, kLargest);
        CacheFactors();
        zoomEvents.Notify();
        configEvents.Notify();
    }
}

void CParamViewerConfig::SetZoomPosition(double newZoomPosition) {
    if (Differs(newZoomPosition, zoomPosition)) {
        zoomPosition = LimitToFinite(newZoomPosition);
        CacheFactors();
        zoomPositionEvents.Notify();
        configEvents.Notify();
    }
}

void CParamViewerConfig::SetPositionsCount(int count) {
    if (type != Objects::kParamReal) {
        const int natural = GetNaturalCount();
        if (count > natural || count < 0) {
            count = natural;
        }
    }
    const int stored = count < 0 ? kContinuous : std::max(count, 1);
    if (stored != positionsCount) {
        positionsCount = stored;
        CacheFactors();
        configEvents.Notify();
    }
}

int CParamViewerConfig::GetZoomedPositionsCount() const {
    const std::int64_t count =
        std::int64_t{ToInt(positionsZoom)} * (std::int64_t{positionsCount} - 1) + 1;
    return static_cast<int>(std::clamp<std::int64_t>(count, std::numeric_limits<int>::min(),
                                                     std::numeric_limits<int>::max()));
}

double CParamViewerConfig::GetVisiblePositionsCount() const {
    if (positionsCount < 0) {
        return -1.0;
    }
    return static_cast<double>(positionsCount - 1) * inverseZoom * positionsZoom + 1.0;
}

void CParamViewerConfig::ResetPositionsCount() { SetPositionsCount(GetNaturalCount()); }

double CParamViewerConfig::GetDefaultPosition(bool clamp) const {
    return ValueToPosition(clamp, info->GetDefault());
}

double CParamViewerConfig::GetMinPosition(bool clamp) const {
    return ValueToPosition(clamp, reversed ? max : min);
}

double CParamViewerConfig::GetMaxPosition(bool clamp) const {
    return ValueToPosition(clamp, reversed ? min : max);
}

// The range before the steps: the listeners that a new count has see a mapping of one piece.
void CParamViewerConfig::Recompute() {
    CacheRange();
    const int natural = GetNaturalCount();
    const bool takesNatural =
        positionsCount == kContinuous || (natural != kContinuous && natural < positionsCount);
    CParamViewerConfig::SetPositionsCount(takesNatural ? natural : positionsCount);
    configEvents.Notify();
}

void CParamViewerConfig::CacheRange() {
    type = info->GetType();
    min = info->GetMin();
    max = info->GetMax();
    inverseRange = Differs(max, min) ? ZeroUnlessFinite(1.0 / (max - min)) : 0.0;
    ratio = min != 0.0 ? ZeroUnlessFinite(max / min) : 0.0;
    inverseLogRatio = ratio > 0.0 && ratio != 1.0 ? ZeroUnlessFinite(1.0 / std::log(ratio)) : 0.0;
    CacheFactors();
}

void CParamViewerConfig::CacheFactors() {
    zoomOffset = LimitToFinite((zoom - 1.0) * zoomPosition);
    inverseZoom = 1.0 / zoom;
    positionsZoom = ComputePositionsZoom();
    isPlain = type == Objects::kParamReal && inverseRange != 0.0 && !logScale &&
              (!useParameterCurve || HasLinearMapper()) && HasIdentityResponse() && !reversed &&
              positionsCount == kContinuous;
}

bool CParamViewerConfig::HasIdentityResponse() const {
    return IsIdentity(forward) && IsIdentity(inverse);
}

/// Whether the mapper is the line from min to max, with nothing rounded.
bool CParamViewerConfig::HasLinearMapper() const {
    const auto* linear =
        dynamic_cast<const Objects::CLinearPositionMapper*>(&info->GetPositionMapper());
    return linear && linear->GetType() == Objects::kParamReal && linear->GetMin() == min &&
           linear->GetMax() == max;
}

int CParamViewerConfig::GetNaturalCount() const {
    switch (type) {
    case Objects::kParamBoolean:
    case Objects::kParamSwitch:
        return 2;
    case Objects::kParamInteger:
        return ToInt(max + 1.0 - min);
    case Objects::kParamReal:
        break;
    }
    return kContinuous;
}

double CParamViewerConfig::ComputePositionsZoom() const {
    if (!enablePositionsZoom) {
        return 1.0;
    }
    double factor = positionsZoomBaseFactor > 1.0 ? FindPowerWithin(zoom, positionsZoomBaseFactor)
                                                  : std::floor(zoom);
    if (maxPositionsZoom != kNoMaxPositionsZoom) {
        factor = std::min(factor, maxPositionsZoom);
    }
    return std::max(factor, 1.0);
}

/// A position in the whole range, before zoom.
double CParamViewerConfig::MapToPosition(double value) const {
    const double response = inverse->Evaluate(Normalise(value));
    const double position = reversed ? 1.0 - response : response;
    return positionsCount == kContinuous ? position : ToStep(position);
}

double CParamViewerConfig::MapToValue(double position) const {
    if (positionsCount != kContinuous) {
        position = ToStep(position);
    }
    return ToType(Denormalise(forward->Evaluate(reversed ? 1.0 - position : position)));
}

/// Where a value stands in the range, before response and steps.
double CParamViewerConfig::Normalise(double value) const {
    if (inverseRange == 0.0) {
        return 0.0; // an empty range, whatever the mapper makes of it
    }
    if (logScale) {
        if (inverseLogRatio == 0.0) {
            return 0.0;
        }
        const double quotient = value / min;
        // A value on the other side of 0 is as far below as 0 itself.
        return std::log(quotient < 0.0 ? 0.0 : quotient) * inverseLogRatio;
    }
    if (useParameterCurve) {
        return info->GetPositionMapper().ValueToPosition(value);
    }
    return (value - min) * inverseRange;
}

double CParamViewerConfig::Denormalise(double position) const {
    if (inverseRange == 0.0) {
        return min;
    }
    if (logScale) {
        return ratio > 0.0 ? std::pow(ratio, position) * min : min;
    }
    if (useParameterCurve) {
        return info->GetPositionMapper().PositionToValue(position);
    }
    return (max - min) * position + min;
}

/// The position of the nearest step.
double CParamViewerConfig::ToStep(double position) const {
    const int count = GetZoomedPositionsCount();
    if (count < 2) {
        return 0.0;
    }
    const double last = static_cast<double>(count) - 1.0;
    return ToInt(last * position + 0.5) / last;
}

double CParamViewerConfig::ToType(double value) const {
    switch (type) {
    case Objects::kParamReal:
        return value;
    case Objects::kParamBoolean:
    case Objects::kParamSwitch:
        // Deliberately half the span, not the middle of the range: where both values lie above it,
        // every position means max.
        return value > (max - min) * 0.5 ? max : min;
    case Objects::kParamInteger:
        break;
    }
    return std::round(value) + 0.0; // not -0, which reads as "-0"
}

} // namespace Vorin::DataModel::Controls
