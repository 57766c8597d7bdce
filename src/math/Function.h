#pragma once

#include "serialization/DataStream.h"
#include "serialization/Serializable.h"

namespace Vorin::Math {

/// A value without arguments. Constants, functions and binary functions are immutable while they
/// are shared; threads exchange clones.
class IConstant : public virtual Serialization::ITypeSerializable {
public:
    bool Serialize(Serialization::IWriteDataStream& stream) const override = 0;

    ~IConstant() override = default;

    /// The class identifier, which the objects factory and data files know the class by. Static
    /// text.
    const char* GetType() const override = 0;

    /// Never fails and never allocates: a division by zero or the logarithm of a negative number
    /// gives what floating point gives. [any]
    virtual double Evaluate() const = 0;

    /// A deep copy, owned by the caller and freed with delete.
    virtual IConstant* Clone() const = 0;

    /// False leaves the object as it was.
    bool DeSerialize(const Serialization::IReadDataStream& stream) override = 0;
};

/// A curve, y = f(x). The rules of IConstant hold.
class IFunction : public virtual Serialization::ITypeSerializable {
public:
    bool Serialize(Serialization::IWriteDataStream& stream) const override = 0;
    ~IFunction() override = default;

    const char* GetType() const override = 0;
    virtual double Evaluate(double x) const = 0;
    virtual IFunction* Clone() const = 0;
    bool DeSerialize(const Serialization::IReadDataStream& stream) override = 0;
};

/// A surface, z = f(x, y). The rules of IConstant hold.
class IBinaryFunction : public virtual Serialization::ITypeSerializable {
public:
    bool Serialize(Serialization::IWriteDataStream& stream) const override = 0;
    ~IBinaryFunction() override = default;

    const char* GetType() const override = 0;
    virtual double Evaluate(double x, double y) const = 0;
    virtual IBinaryFunction* Clone() const = 0;
    bool DeSerialize(const Serialization::IReadDataStream& stream) override = 0;
};

/// Interface identifiers, for Runtime::CObjectsFactory. They are part of the file format.
inline constexpr char kFunctionInterface[] = "{EC7456EE-AA8C-421c-B49E-3E5CA6519665}";
inline constexpr char kBinaryFunctionInterface[] = "{C3FE0CFA-7AAC-413b-B803-A9B885B86EE1}";
inline constexpr char kConstantInterface[] = "{EAD44198-7EE3-4880-BC12-476597EF40AA}";

/// Registers every class of this folder with the objects factory; further calls do nothing. Always
/// true.
bool RegisterFunctions();

/// Registers the classes before main in every program that knows the interfaces. It has to stand in
/// a header: this reference is what keeps a linker from dropping the registering object file, which
/// nothing else calls, out of the static library.
inline const bool kFunctionsRegistered = RegisterFunctions();

} // namespace Vorin::Math

namespace Vorin::Serialization {

template <>
struct TInterfaceIdentifier<Math::IFunction> {
    static constexpr const char* kValue = Math::kFunctionInterface;
};
template <>
struct TInterfaceIdentifier<Math::IBinaryFunction> {
    static constexpr const char* kValue = Math::kBinaryFunctionInterface;
};
template <>
struct TInterfaceIdentifier<Math::IConstant> {
    static constexpr const char* kValue = Math::kConstantInterface;
};

} // namespace Vorin::Serialization
