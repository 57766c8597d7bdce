#pragma once

#include <cstddef>

#include "graphics/DIBIterator.h"
#include "graphics/PixelAccess.h"

namespace Vorin::Graphics {

/// Single pixels of a memory bitmap in the format of `Iterator`. It does not own the memory.
template <class Iterator>
class TDIBPixelAccess : public IRGBPixelAccess {
public:
    using Unit = typename Iterator::Unit;

    /// `memory`: the first row, the rows Iterator::GetStride(size.width) units apart; null allowed.
    TDIBPixelAccess(Unit* memory, const Core::C2DSize& size)
        : pixels(memory), area(Core::C2DPoint{}, memory ? size : Core::C2DSize{}),
          stride(Iterator::GetStride(area.width)) {}

    RGB GetPixel(const Core::C2DPoint& point) const override {
        const Core::C2DPoint moved = point + origin;
        return area.Contains(moved) ? Iterator::Read(At(moved)) : RGB{};
    }

    void SetPixel(const Core::C2DPoint& point, const RGB& color) override {
        const Core::C2DPoint moved = point + origin;
        if (area.Contains(moved)) {
            Iterator::Write(At(moved), color);
        }
    }

    void SetOrigin(const Core::C2DVector& newOrigin) override { origin = newOrigin; }
    Core::C2DVector GetOrigin() const override { return origin; }

private:
    Unit* At(const Core::C2DPoint& point) const {
        return pixels + point.y * stride + point.x * Iterator::kUnitsPerPixel;
    }

    Unit* const pixels;
    const Core::C2DRectangle area;
    const std::ptrdiff_t stride;
    Core::C2DVector origin;
};

} // namespace Vorin::Graphics
