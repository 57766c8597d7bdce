#pragma once

#include "containers/Count.h"
#include "containers/Iterator.h"

namespace Vorin::Containers {

/// A forward list, walked with a cursor.
template <class T>
class IConstList : public virtual IConstCount {
public:
    /// A new cursor at the first item; the caller deletes it.
    virtual IConstIterator<T>* CreateIterator() const = 0;
};

} // namespace Vorin::Containers
