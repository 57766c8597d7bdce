#pragma once

#include "runtime/DynamicObject.h"

namespace Vorin::DataModel::Objects {

/// A value of a type that only plug-in code knows. Immutable while it is shared; threads exchange
/// clones.
class IDynamicPropertyValue : public virtual Runtime::IDynamicObject {
public:
    /// The class identifier. Static text.
    virtual const char* GetType() const = 0;

    /// A deep copy, owned by the caller and freed with delete.
    virtual IDynamicPropertyValue* Clone() const = 0;
};

/// The null object: a value of no type.
class CEmptyDynamicPropertyValue : public IDynamicPropertyValue {
public:
    /// Null: there is no class to make it again from.
    const char* GetType() const override { return nullptr; }
    IDynamicPropertyValue* Clone() const override { return new CEmptyDynamicPropertyValue; }
};

} // namespace Vorin::DataModel::Objects
