#include "graphics/Simple2DRegion.h"

#include <algorithm>
#include <cstdint>

namespace Vorin::Graphics {

namespace {

// The part of a rectangle within the range in which no sum of two coordinates overflows.
cairo_rectangle_int_t ToNearPart(const Core::C2DRectangle& rectangle) {
    const auto near = [](std::int64_t value) {
        constexpr std::int64_t kFarthest = (std::int64_t{1} << 30) - 1;
        return static_cast<int>(std::clamp<std::int64_t>(value, -kFarthest, kFarthest));
    };
    if (rectangle.IsEmpty()) {
        return {0, 0, 0, 0};
    }
    const int left = near(rectangle.x);
    const int top = near(rectangle.y);
    return {left, top, near(rectangle.GetRight()) - left, near(rectangle.GetBottom()) - top};
}

} // namespace

CSimple2DRegion::CSimple2DRegion(const Core::C2DRectangle& rectangle) {
    CSimple2DRegion::UnionRectangle(rectangle);
}

std::unique_ptr<ISimple2DRegion> CSimple2DRegion::Clone() const {
    auto clone = std::make_unique<CSimple2DRegion>();
    clone->shape.reset(shape ? cairo_region_copy(shape.get()) : cairo_region_create());
    return clone;
}

void CSimple2DRegion::IntersectRectangle(const Core::C2DRectangle& rectangle) {
    if (shape) {
        const cairo_rectangle_int_t part = ToNearPart(rectangle);
        cairo_region_intersect_rectangle(shape.get(), &part);
    }
}

void CSimple2DRegion::UnionRectangle(const Core::C2DRectangle& rectangle) {
    if (rectangle.IsEmpty()) {
        return;
    }
    if (!shape) {
        shape.reset(cairo_region_create());
    }
    const cairo_rectangle_int_t part = ToNearPart(rectangle);
    cairo_region_union_rectangle(shape.get(), &part);
}

Core::C2DRectangle CSimple2DRegion::GetBounds() const {
    if (IsEmpty()) {
        return {};
    }
    cairo_rectangle_int_t bounds;
    cairo_region_get_extents(shape.get(), &bounds);
    return {bounds.x, bounds.y, bounds.width, bounds.height};
}

bool CSimple2DRegion::Intersects(const Core::C2DRectangle& rectangle) const {
    const cairo_rectangle_int_t part = ToNearPart(rectangle);
    return shape && part.width > 0 && part.height > 0 &&
           cairo_region_contains_rectangle(shape.get(), &part) != CAIRO_REGION_OVERLAP_OUT;
}

bool CSimple2DRegion::IsEmpty() const { return !shape || cairo_region_is_empty(shape.get()); }

} // namespace Vorin::Graphics
