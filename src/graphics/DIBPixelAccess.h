#pragma once

#include <cstddef>
#include <memory>
#include <utility>

#include "graphics/BitmapContext.h"
#include "graphics/DIBIterator.h"
#include "graphics/PixelAccess.h"

namespace Vorin::Graphics {

/// Single pixels of a bitmap in the format of `Iterator`.
template <class Iterator>
class TDIBPixelAccess : public IRGBPixelAccess {
public:
    using Unit = typename Iterator::Unit;

    /// `bitmapContext` has that format, or is null.
    explicit TDIBPixelAccess(std::shared_ptr<CBitmapContext> bitmapContext)
        : context(std::move(bitmapContext)),
          area(Core::C2DPoint{}, context ? context->GetSize() : Core::C2DSize{}),
          stride(Iterator::GetStride(area.width)) {}

    RGB GetPixel(const Core::C2DPoint& point) const override {
        const Core::C2DPoint moved = point + origin;
        if (!area.Contains(moved)) {
            return {};
        }
        const void* pixels = context->BeginReading();
        return Iterator::Read(AsUnits<Iterator>(pixels) + GetOffset(moved));
    }

    void SetPixel(const Core::C2DPoint& point, const RGB& color) override {
        const Core::C2DPoint moved = point + origin;
        if (area.Contains(moved)) {
            void* pixels = context->BeginPixels({moved, {1, 1}});
            Iterator::Write(AsUnits<Iterator>(pixels) + GetOffset(moved), color);
        }
    }

    void SetOrigin(const Core::C2DVector& newOrigin) override { origin = newOrigin; }
    Core::C2DVector GetOrigin() const override { return origin; }

private:
    std::ptrdiff_t GetOffset(const Core::C2DPoint& point) const {
        return point.y * stride + point.x * Iterator::kUnitsPerPixel;
    }

    const std::shared_ptr<CBitmapContext> context;
    const Core::C2DRectangle area;
    const std::ptrdiff_t stride;
    Core::C2DVector origin;
};

} // namespace Vorin::Graphics
