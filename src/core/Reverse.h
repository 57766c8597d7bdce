#pragma once

#include "core/EventProvider.h"

namespace Vorin::Core {

/// Something that works in either of two directions, and tells when the direction changes.
class IReverse {
public:
    virtual bool IsReversed() const = 0;
    virtual IEventProvider& GetReverseEvents() = 0;
    virtual ~IReverse() = default;
    virtual void SetReversed(bool reverse) = 0;
};

} // namespace Vorin::Core
