#pragma once

#include "datamodel/ParamType.h"

namespace Vorin::DataModel::Objects {

/// Maps a parameter's value to a position and back, where 0 to 1 spans its range. Nothing is
/// clamped: the model object clamps its value.
class IParamPositionMapper {
public:
    virtual double ValueToPosition(double value) const = 0;
    virtual double PositionToValue(double position) const = 0;

    /// A copy of its own, owned by the caller and freed with delete.
    virtual IParamPositionMapper* Clone() const = 0;

    virtual ~IParamPositionMapper() = default;
};

/// The value that a parameter of this type can hold nearest to `value`: min or max for the
/// two-state types, where the exact middle is min; the nearest integer, halves away from zero; else
/// the value itself. A NaN stays one, but is max for the two-state types.
double Quantize(EParamType type, double value, double min, double max);

/// The straight line from min to max, quantized by type in both directions.
class CLinearPositionMapper final : public virtual IParamPositionMapper {
public:
    CLinearPositionMapper() : CLinearPositionMapper(kParamReal, 0.0, 0.0) {}
    CLinearPositionMapper(EParamType paramType, double rangeMin, double rangeMax);

    double ValueToPosition(double value) const override;
    double PositionToValue(double position) const override;
    IParamPositionMapper* Clone() const override { return new CLinearPositionMapper(*this); }

    EParamType GetType() const { return type; }
    double GetMin() const { return min; }
    double GetMax() const { return max; }

    void SetType(EParamType newType) { type = newType; }
    void SetMin(double newMin);
    void SetMax(double newMax);

private:
    void UpdateRange();

    EParamType type;
    double min;
    double max;
    double inverseRange; // 1 for an empty range, so that every value maps to 0
};

} // namespace Vorin::DataModel::Objects
