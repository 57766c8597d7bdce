#pragma once

#include "math/Function.h"
#include "math/LibraryFunction.h"

namespace Vorin::Math {

/// A value that does not depend on anything, as an object. A new one is 0.
class CConstant : public virtual IConstant {
public:
    static constexpr const char* kIdentifier = "{8794ACBA-1CC8-4ab8-902F-3A2C352E66CE}";

    explicit CConstant(double initial = 0.0) : value(initial) {}

    const char* GetType() const override { return kIdentifier; }
    double Evaluate() const override { return value; }
    IConstant* Clone() const override { return new CConstant(value); }

    bool Serialize(Serialization::IWriteDataStream& stream) const override {
        return stream.WriteDouble("value", value);
    }
    bool DeSerialize(const Serialization::IReadDataStream& stream) override {
        return stream.ReadDouble("value", value) || stream.IsTolerant();
    }

    double GetValue() const { return value; }
    void SetValue(double newValue) { value = newValue; }

private:
    double value;
};

/// The neutral constant: 0, which nobody can set, since all share it. It is written as a CConstant.
class CNeutralConstant final : public virtual IConstant {
public:
    const char* GetType() const override { return CConstant::kIdentifier; }
    double Evaluate() const override { return 0.0; }
    IConstant* Clone() const override { return new CConstant(0.0); }

    bool Serialize(Serialization::IWriteDataStream& stream) const override {
        return stream.WriteDouble("value", 0.0);
    }
    bool DeSerialize(const Serialization::IReadDataStream&) override { return true; }
};

template <>
inline IConstant* GetNeutralFunction<IConstant>() {
    static CNeutralConstant zero;
    return &zero;
}

/// f(x) = value. A new one is 0.
class CConstantFunction : public virtual IFunction {
public:
    static constexpr const char* kIdentifier = "{72E2E475-5248-41cb-BBE2-9E1F1E4BAF30}";

    explicit CConstantFunction(double initial = 0.0) : value(initial) {}

    const char* GetType() const override { return kIdentifier; }
    double Evaluate(double) const override { return value; }
    IFunction* Clone() const override { return new CConstantFunction(value); }

    bool Serialize(Serialization::IWriteDataStream& stream) const override {
        return stream.WriteDouble("value", value);
    }
    bool DeSerialize(const Serialization::IReadDataStream& stream) override {
        return stream.ReadDouble("value", value) || stream.IsTolerant();
    }

    double GetValue() const { return value; }
    void SetValue(double newValue) { value = newValue; }

private:
    double value;
};

/// f(x, y) = value. A new one is 0.
class CConstantBinaryFunction : public virtual IBinaryFunction {
public:
    static constexpr const char* kIdentifier = "{D21815E0-885C-4996-B493-90E08E953055}";

    explicit CConstantBinaryFunction(double initial = 0.0) : value(initial) {}

    const char* GetType() const override { return kIdentifier; }
    double Evaluate(double, double) const override { return value; }
    IBinaryFunction* Clone() const override { return new CConstantBinaryFunction(value); }

    bool Serialize(Serialization::IWriteDataStream& stream) const override {
        return stream.WriteDouble("value", value);
    }
    bool DeSerialize(const Serialization::IReadDataStream& stream) override {
        return stream.ReadDouble("value", value) || stream.IsTolerant();
    }

    double GetValue() const { return value; }
    void SetValue(double newValue) { value = newValue; }

private:
    double value;
};

} // namespace Vorin::Math
