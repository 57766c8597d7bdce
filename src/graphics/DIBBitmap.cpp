#include "graphics/DIBBitmap.h"

#include <cstring>
#include <new>

#include "graphics/DIBIterator.h"
#include "graphics/DIBPixelAccess.h"
#include "graphics/DIBSurface.h"

namespace Vorin::Graphics {

namespace {

constexpr int kMaxSide = 8192;
constexpr std::int64_t kMaxPixels = 16'000'000;

bool IsUsableSize(const Core::C2DSize& size) {
    return !size.IsEmpty() && size.width <= kMaxSide && size.height <= kMaxSide &&
           std::int64_t{size.width} * size.height <= kMaxPixels;
}

// Calls `function` with the iterator of the depth; false when there is none.
template <class F>
bool WithIterator(int bitsPerPixel, F function) {
    switch (bitsPerPixel) {
    case CDIB32BGRIterator::kBitsPerPixel:
        function(CDIB32BGRIterator{});
        return true;
    case CDIB24BGRIterator::kBitsPerPixel:
        function(CDIB24BGRIterator{});
        return true;
    case CDIB16BGRIterator::kBitsPerPixel:
        function(CDIB16BGRIterator{});
        return true;
    case CDIB8MonoIterator::kBitsPerPixel:
        function(CDIB8MonoIterator{});
        return true;
    default:
        return false;
    }
}

int GetStrideBytes(int bitsPerPixel, int width) {
    int bytes = 0;
    WithIterator(bitsPerPixel, [&]<class Iterator>(Iterator) {
        bytes = Iterator::GetStride(width) * static_cast<int>(sizeof(typename Iterator::Unit));
    });
    return bytes;
}

// The memory comes from calloc, which aligns it for every unit.
template <class Iterator>
typename Iterator::Unit* AsUnits(std::uint8_t* memory) {
    return static_cast<typename Iterator::Unit*>(static_cast<void*>(memory));
}

} // namespace

CDIBBitmap::CDIBBitmap(const Core::C2DSize& requestedSize, int requestedBits)
    : bitsPerPixel(requestedBits) {
    if (!IsUsableSize(requestedSize)) {
        return;
    }
    const int stride = Graphics::GetStrideBytes(bitsPerPixel, requestedSize.width);
    if (stride == 0) {
        return;
    }
    pixels.reset(static_cast<std::uint8_t*>(std::calloc(
        static_cast<std::size_t>(requestedSize.height), static_cast<std::size_t>(stride))));
    if (!pixels) {
        return;
    }
    size = requestedSize;
    strideBytes = stride;
}

void CDIBBitmap::Clear() {
    if (pixels) {
        std::memset(pixels.get(), 0, GetByteCount());
    }
}

std::unique_ptr<IRGBPixelAccess> CDIBBitmap::CreatePixelAccess() {
    std::unique_ptr<IRGBPixelAccess> access;
    WithIterator(bitsPerPixel, [&]<class Iterator>(Iterator) {
        access.reset(new (std::nothrow)
                         TDIBPixelAccess<Iterator>(AsUnits<Iterator>(pixels.get()), size));
    });
    return access;
}

std::unique_ptr<IDrawSurface> CDIBBitmap::CreateSurface() {
    std::unique_ptr<IDrawSurface> surface;
    WithIterator(bitsPerPixel, [&]<class Iterator>(Iterator) {
        surface.reset(new (std::nothrow)
                          TDIBSurface<Iterator>(AsUnits<Iterator>(pixels.get()), size));
    });
    return surface;
}

std::size_t CDIBBitmap::GetByteCount() const {
    return static_cast<std::size_t>(strideBytes) * static_cast<std::size_t>(size.height);
}

} // namespace Vorin::Graphics
