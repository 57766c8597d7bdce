#pragma once

#include "runtime/DynamicObject.h"

namespace Vorin::Serialization {

class IReadDataStream;
class IWriteDataStream;

/// Writes itself as named values, not knowing the medium.
class ISerialize {
public:
    /// False when something could not be written; the stream then holds a part.
    virtual bool Serialize(IWriteDataStream& stream) const = 0;
    virtual ~ISerialize() = default;
};

/// Reads itself from named values, which may come from strangers: whatever stands there, the
/// object stays usable.
class IDeSerialize {
public:
    /// False when something needed is missing or is not fit. On a tolerant stream a missing value
    /// is no failure: what stood in the object stays.
    virtual bool DeSerialize(const IReadDataStream& stream) = 0;
    virtual ~IDeSerialize() = default;
};

/// Does both.
class ISerializable : public virtual ISerialize, public virtual IDeSerialize {};

/// An object that a reader finds again by the identifier of its class.
class ITypeSerializable : public virtual Runtime::IDynamicObject, public virtual ISerializable {
public:
    /// The class identifier that the objects factory knows the class by: static text, or null for
    /// a class that nobody can make.
    virtual const char* GetType() const = 0;
};

/// The interface identifier that the objects factory knows `T` by, as `kValue`. An interface whose
/// objects are read by type specialises it beside its own declaration.
template <class T>
struct TInterfaceIdentifier;

} // namespace Vorin::Serialization
