#pragma once

#include <cairo.h>

#include <memory>

#include "core/Geometry.h"

namespace Vorin::Graphics {

/// A set of pixels, made of rectangles: what has to be redrawn. GUI thread only.
///
/// Rectangles may have any value; nothing farther than 2^30 - 1 pixels from (0, 0) belongs to a
/// region.
class ISimple2DRegion {
public:
    virtual ~ISimple2DRegion() = default;

    /// A copy, owned by the caller.
    virtual std::unique_ptr<ISimple2DRegion> Clone() const = 0;

    /// Leaves what lies in `rectangle` too. An empty rectangle leaves nothing.
    virtual void IntersectRectangle(const Core::C2DRectangle& rectangle) = 0;
    /// Adds the pixels of `rectangle`. An empty one adds nothing.
    virtual void UnionRectangle(const Core::C2DRectangle& rectangle) = 0;

    /// The smallest rectangle around the region; that of an empty one is (0, 0, 0, 0).
    virtual Core::C2DRectangle GetBounds() const = 0;
    /// True when `rectangle` and the region have a pixel in common.
    virtual bool Intersects(const Core::C2DRectangle& rectangle) const = 0;
    virtual bool IsEmpty() const = 0;
};

/// The platform's region. Empty at first.
class CSimple2DRegion : public ISimple2DRegion {
public:
    CSimple2DRegion() = default;
    explicit CSimple2DRegion(const Core::C2DRectangle& rectangle);

    std::unique_ptr<ISimple2DRegion> Clone() const override;
    void IntersectRectangle(const Core::C2DRectangle& rectangle) override;
    void UnionRectangle(const Core::C2DRectangle& rectangle) override;
    Core::C2DRectangle GetBounds() const override;
    bool Intersects(const Core::C2DRectangle& rectangle) const override;
    bool IsEmpty() const override;

    /// The region as Cairo knows it; null for one that never had a pixel. Belongs to the region.
    const cairo_region_t* GetCairoRegion() const { return shape.get(); }

private:
    struct FreeRegion {
        void operator()(cairo_region_t* region) const { cairo_region_destroy(region); }
    };

    std::unique_ptr<cairo_region_t, FreeRegion> shape; // null: empty
};

} // namespace Vorin::Graphics
