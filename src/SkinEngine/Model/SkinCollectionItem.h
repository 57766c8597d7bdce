#pragma once

#include "containers/Count.h"
#include "containers/NamedAttributes.h"
#include "core/Disconnect.h"

namespace Vorin::AppEngine {

/// One live item of a collection. `Disconnect` takes its objects out of the model around it.
class ISkinCollectionItem : public virtual Core::IDisconnect {};

/// Makes the items of one collection, and keeps them by index. Slots may be empty.
class ISkinCollectionItemFactory : public virtual Containers::IConstCount {
public:
    /// Adds so many empty slots, or as many as there may be; 0 and less does nothing.
    virtual void Reserve(int delta) = 0;

    /// Fills a slot, with what the attributes say in the place of the template's parameters. False
    /// when no item can be made.
    virtual bool CreateItem(int index, const Containers::IConstNamedAttributes& attributes) = 0;

    /// Empties a slot.
    virtual void DestroyItem(int index) = 0;

    /// Null for an empty slot, and beyond the last one.
    virtual ISkinCollectionItem* GetItem(int index) = 0;

    /// Takes as many slots away as `delta` is below 0; otherwise does nothing.
    virtual void Release(int delta) = 0;
};

} // namespace Vorin::AppEngine
