#pragma once

#include "core/2DSize.h"
#include "core/ArgEventProvider.h"
#include "core/Geometry.h"
#include "graphics/DrawSurface.h"
#include "graphics/Simple2DRegion.h"

namespace Vorin::Graphics {

/// Something that draws itself. GUI thread only.
class I2DDrawer {
public:
    /// Coordinates are the object's own. `region` is what has to be drawn, in these coordinates;
    /// null means the whole object. The caller has set the clip: drawing more than the region does
    /// no harm.
    virtual void Draw(IDrawSurface& surface, const ISimple2DRegion* region) = 0;

    virtual ~I2DDrawer() = default;
};

/// An area that draws itself, knows its shape, and tells when it looks different.
///
/// GUI thread only. SetSize stores the size, negative sides as 0, and fires the size event when it
/// differs.
class I2DGraphics : public virtual I2DDrawer, public virtual I2DSize {
public:
    /// True when the point, in the object's own coordinates, belongs to the object.
    virtual bool HitTest(const Core::C2DPoint& point) = 0;

    /// Fires with the area that needs redrawing.
    virtual Core::TIArgEventProvider<const Core::C2DRectangle&>& GetInvalidatedEvent() = 0;

    /// True when what lies behind the object can show through it.
    virtual bool IsTransparent() const = 0;
};

/// What the objects have in common. (0, 0) large at first.
class C2DGraphicsBase : public virtual I2DGraphics {
public:
    void SetSize(const Core::C2DSize& newSize) override;
    Core::C2DSize GetSize() const override { return ownSize; }
    Core::IEventProvider& GetSizeChangedEvent() override { return sizeChanged; }
    Core::TIArgEventProvider<const Core::C2DRectangle&>& GetInvalidatedEvent() override {
        return invalidated;
    }

protected:
    Core::C2DRectangle GetArea() const { return {Core::C2DPoint{}, ownSize}; }

    /// What `Draw` is asked for: the bounding box of the region, or the whole object.
    Core::C2DRectangle GetArea(const ISimple2DRegion* region) const {
        return region ? region->GetBounds() : GetArea();
    }

    /// Fires the invalidated event with the whole object.
    void Invalidate() { invalidated.Notify(GetArea()); }

    /// Stores a value; when it differs, invalidates.
    template <class T>
    void Change(T& stored, const T& value) {
        if (!(stored == value)) {
            stored = value;
            Invalidate();
        }
    }

private:
    Core::C2DSize ownSize;
    Core::CEventProvider sizeChanged;
    Core::TArgEventProvider<const Core::C2DRectangle&> invalidated;
};

} // namespace Vorin::Graphics
