#pragma once

#include "math/Function.h"
#include "math/SweptRing.h"

namespace Vorin::Math {

template <>
struct TSweptValueForm<double> {
    static bool Write(Serialization::IWriteDataStream& stream, const char* name, double value) {
        return stream.WriteDouble(name, value);
    }
    static bool Read(const Serialization::IReadDataStream& stream, const char* name,
                     double& value) {
        return stream.ReadDouble(name, value);
    }
};

/// A value over past time, as a function: x is the time in seconds relative to the newest point, 0
/// or negative.
///
/// Between points it is linear; from the newest on it is that point's value; before the second
/// oldest one, for NaN, and without points it is the default value, at first 0. An evaluation takes
/// nearly the same time however many points there are. A new one holds one point.
///
/// One thread at a time. A copy copies all points.
class CSweptValues : public virtual IFunction {
public:
    static constexpr const char* kIdentifier = "{852FDB81-5DDA-4440-9598-AF98A8CFBC3D}";

    /// As many points as the power of two that is at least `count`, which counts as no less than 1
    /// and no more than 1,048,576. Forgets all points. Allocates 16 bytes a point.
    void SetCapacity(int count) { ring.SetCapacity(count); }
    int GetCapacity() const { return ring.GetCapacity(); }
    int GetPointsCount() const { return ring.GetPointsCount(); }
    double GetPointsPerSecond() const { return ring.GetPointsPerSecond(); }

    /// How much time is to be seen, in seconds, kept for readers; points older than that stay.
    /// Negative and NaN count as 0.
    void SetDuration(double seconds) { ring.SetDuration(seconds); }
    double GetDuration() const { return ring.GetDuration(); }

    /// The value where there are no points.
    void SetDefaultValue(double value) { defaultValue = value; }
    double GetDefaultValue() const { return defaultValue; }

    /// Adds the newest point, over the oldest one when all slots are taken; `time` in seconds.
    /// False, with nothing changed, when it is not later than the newest point or not finite.
    bool AddPoint(double time, double value) {
        double* place = ring.Add(time);
        if (place) {
            *place = value;
        }
        return place;
    }

    const char* GetType() const override { return kIdentifier; }

    double Evaluate(double x) const override {
        TSweptRing<double>::CPlace place;
        if (!ring.Find(x, place)) {
            return defaultValue;
        }
        if (place.from == place.to) {
            return *place.from;
        }
        return *place.from + (*place.to - *place.from) * place.fraction;
    }

    IFunction* Clone() const override { return new CSweptValues(*this); }

    bool Serialize(Serialization::IWriteDataStream& stream) const override {
        return ring.Serialize(stream) && stream.WriteDouble("defaultValue", defaultValue);
    }
    bool DeSerialize(const Serialization::IReadDataStream& stream) override {
        double read = defaultValue;
        if (!stream.ReadDouble("defaultValue", read) && !stream.IsTolerant()) {
            return false;
        }
        if (!ring.DeSerialize(stream)) {
            return false;
        }
        defaultValue = read;
        return true;
    }

private:
    TSweptRing<double> ring;
    double defaultValue = 0.0;
};

} // namespace Vorin::Math
