#include "datamodel/PositionMapper.h"

#include <cmath>

namespace Vorin::DataModel::Objects {

const char* GetDefaultFormat(EParamType type) {
    switch (type) {
    case kParamBoolean:
    case kParamInteger:
    case kParamSwitch:
        return "%.0f";
    case kParamReal:
        break;
    }
    return "%.2f";
}

namespace {

double RoundToInteger(double value) {
    if (value > 0.0) {
        return std::floor(value + 0.5);
    }
    if (value < 0.0) {
        // Subtracted rather than negated: -0 would read as "-0".
        return 0.0 - std::floor(-value + 0.5);
    }
    return value;
}

} // namespace

double Quantize(EParamType type, double value, double min, double max) {
    switch (type) {
    case kParamBoolean:
    case kParamSwitch:
        return value - min <= (max - min) * 0.5 ? min : max;
    case kParamInteger:
        return RoundToInteger(value);
    case kParamReal:
        break;
    }
    return value;
}

CLinearPositionMapper::CLinearPositionMapper(EParamType paramType, double rangeMin, double rangeMax)
    : type(paramType), min(rangeMin), max(rangeMax), inverseRange(1.0) {
    UpdateRange();
}

double CLinearPositionMapper::ValueToPosition(double value) const {
    return (Quantize(type, value, min, max) - min) * inverseRange;
}

double CLinearPositionMapper::PositionToValue(double position) const {
    return Quantize(type, min + (max - min) * position, min, max);
}

void CLinearPositionMapper::SetMin(double newMin) {
    min = newMin;
    UpdateRange();
}

void CLinearPositionMapper::SetMax(double newMax) {
    max = newMax;
    UpdateRange();
}

void CLinearPositionMapper::UpdateRange() {
    const double range = max - min;
    inverseRange = range < 0.0 || range > 0.0 ? 1.0 / range : 1.0;
}

} // namespace Vorin::DataModel::Objects
