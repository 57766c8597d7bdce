#pragma once

#include "containers/Count.h"
#include "core/ArgEventProvider.h"
#include "core/EventProvider.h"

namespace Vorin::DataModel {

/// A number of items that come and go, to watch. The items themselves are found by their names.
class IConstCollection : public virtual Containers::IConstCount {
public:
    /// Fired before items come or go, with the count that will be.
    virtual Core::TIArgEventProvider<int>& GetCountChangingEvents() = 0;

    /// Fired after they came or went.
    virtual Core::IEventProvider& GetCountChangedEvents() = 0;
};

/// The same with a count that can be set.
class ICollection : public virtual IConstCollection, public virtual Containers::ICount {};

} // namespace Vorin::DataModel
