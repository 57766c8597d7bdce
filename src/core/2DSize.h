#pragma once

#include "core/EventProvider.h"
#include "core/Geometry.h"

/// Drawn things and layout cells have a size in common and nothing else, so what both of them are
/// stands here, below either.
namespace Vorin::Graphics {

/// Something with a size in pixels. GUI thread only.
class IConst2DSize {
public:
    virtual Core::C2DSize GetSize() const = 0;

    /// Fires after the size changed.
    virtual Core::IEventProvider& GetSizeChangedEvent() = 0;
    virtual ~IConst2DSize() = default;
};

/// The same with a size that can be set. What becomes of a negative side is the implementer's.
class I2DSize : public virtual IConst2DSize {
public:
    virtual void SetSize(const Core::C2DSize& size) = 0;
};

} // namespace Vorin::Graphics
