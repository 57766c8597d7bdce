#pragma once

#include "containers/TextMap.h"
#include "core/Ownership.h"

namespace Vorin::Runtime {

/// The base of whatever the objects factory can make.
///
/// Derived from virtually; who gets one narrows it with `dynamic_cast` to the interface asked for.
class IDynamicObject {
public:
    virtual ~IDynamicObject() = default;
};

/// A dictionary of attached objects, looked up by name. No locks.
class CDynamicObject : public virtual IDynamicObject {
public:
    CDynamicObject() = default;
    CDynamicObject(const CDynamicObject&) = delete;
    CDynamicObject& operator=(const CDynamicObject&) = delete;

    /// The attached object, or null. It stays with this dictionary.
    virtual IDynamicObject* GetObject(const char* name);
    virtual const IDynamicObject* GetObject(const char* name) const;

    /// Attaches `object` under `name` and lets go of what was there. A null object removes the
    /// name. A null name attaches nothing: false, and the object stays the caller's.
    virtual bool SetObject(const char* name, IDynamicObject* object, Core::EOwnership ownership);

    /// Lets go of the object, deleting it when owned. False when the name is not there.
    virtual bool RemoveObject(const char* name);

    virtual int GetObjectCount() const { return objects.GetCount(); }

private:
    Containers::TTextMap<Core::TOwnership<IDynamicObject>> objects;
};

} // namespace Vorin::Runtime
