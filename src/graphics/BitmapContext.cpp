#include "graphics/BitmapContext.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "graphics/DIBIterator.h"

namespace Vorin::Graphics {

namespace {

using Core::C2DRectangle;

// The smallest rectangle that holds both. Both lie within a bitmap.
C2DRectangle Bound(const C2DRectangle& a, const C2DRectangle& b) {
    if (a.IsEmpty() || b.IsEmpty()) {
        return a.IsEmpty() ? b : a;
    }
    const int left = std::min(a.x, b.x);
    const int top = std::min(a.y, b.y);
    return {left, top, std::max(a.x + a.width, b.x + b.width) - left,
            std::max(a.y + a.height, b.y + b.height) - top};
}

// The channels of a pixel at 8 bits. The way there and back leaves every pixel as it was.
template <class Iterator>
std::uint32_t ToWord(const typename Iterator::Unit* pixel) {
    RGB color = Iterator::Read(pixel);
    if constexpr (Iterator::kFormat == EPixelFormat::kBGR16) {
        const auto widen = [](std::uint8_t v) {
            return static_cast<std::uint8_t>((v << 3) | (v >> 2));
        };
        color = {widen(color.red), widen(color.green), widen(color.blue)};
    }
    return 0xFF000000u | (std::uint32_t{color.red} << 16) | (std::uint32_t{color.green} << 8) |
           color.blue;
}

/// Visits each pixel of `area` in the memory of a format and in Cairo's picture beside it.
template <class F>
void ForEachPixel(EPixelFormat format, std::uint8_t* memory, int memoryStride,
                  std::uint8_t* picture, int pictureStride, const C2DRectangle& area, F function) {
    WithIterator(format, [&]<class Iterator>(Iterator) {
        for (int y = area.y; y < area.y + area.height; ++y) {
            auto* pixel = AsUnits<Iterator>(static_cast<void*>(
                              memory + static_cast<std::ptrdiff_t>(y) * memoryStride)) +
                          area.x * Iterator::kUnitsPerPixel;
            auto* word = AsUnits<CDIB32BGRIterator>(static_cast<void*>(
                             picture + static_cast<std::ptrdiff_t>(y) * pictureStride)) +
                         area.x;
            for (int x = 0; x < area.width; ++x, ++word, pixel += Iterator::kUnitsPerPixel) {
                function(Iterator{}, pixel, word);
            }
        }
    });
}

} // namespace

bool IsBitmapSize(const Core::C2DSize& size) {
    return !size.IsEmpty() && size.width <= kMaxBitmapSide && size.height <= kMaxBitmapSide &&
           std::int64_t{size.width} * size.height <= kMaxBitmapPixels;
}

std::optional<EPixelFormat> CBitmapContext::GetFormatOfDepth(int bitsPerPixel) {
    switch (bitsPerPixel) {
    case 8:
        return EPixelFormat::kMono8;
    case 16:
        return EPixelFormat::kBGR16;
    case 24:
        return EPixelFormat::kBGR32;
    case 32:
        return EPixelFormat::kBGRA32;
    default:
        return std::nullopt;
    }
}

int CBitmapContext::GetStrideBytes(EPixelFormat format, int width) {
    return WithIterator(format, [width]<class Iterator>(Iterator) {
        return Iterator::GetStride(width) * static_cast<int>(sizeof(typename Iterator::Unit));
    });
}

std::shared_ptr<CBitmapContext> CBitmapContext::Create(const Core::C2DSize& size,
                                                       int bitsPerPixel) {
    const std::optional<EPixelFormat> format = GetFormatOfDepth(bitsPerPixel);
    if (!format || !IsBitmapSize(size)) {
        return nullptr;
    }
    std::unique_ptr<std::uint8_t, FreeMemory> memory(static_cast<std::uint8_t*>(
        std::calloc(static_cast<std::size_t>(size.height),
                    static_cast<std::size_t>(GetStrideBytes(*format, size.width)))));
    std::shared_ptr<CBitmapContext> context = CreateOver(memory.get(), size, *format);
    if (context) {
        context->ownMemory = std::move(memory);
    }
    return context;
}

std::shared_ptr<CBitmapContext> CBitmapContext::CreateOver(void* memory, const Core::C2DSize& size,
                                                           EPixelFormat format) {
    if (!memory || !IsBitmapSize(size)) {
        return nullptr;
    }
    return std::shared_ptr<CBitmapContext>(
        new (std::nothrow) CBitmapContext(static_cast<std::uint8_t*>(memory), size, format));
}

CBitmapContext::CBitmapContext(std::uint8_t* memory, const Core::C2DSize& bitmapSize,
                               EPixelFormat pixelFormat)
    : size(bitmapSize), format(pixelFormat), strideBytes(GetStrideBytes(format, size.width)),
      pixels(memory) {}

CBitmapContext::~CBitmapContext() {
    if (surface && IsShared()) {
        // Whoever still holds the surface must not reach the memory that goes now.
        cairo_surface_finish(surface.get());
    }
}

int CBitmapContext::GetBitsPerPixel() const {
    return WithIterator(format, []<class Iterator>(Iterator) { return Iterator::kBitsPerPixel; });
}

std::size_t CBitmapContext::GetByteCount() const {
    return static_cast<std::size_t>(strideBytes) * static_cast<std::size_t>(size.height);
}

void CBitmapContext::Clear() { std::memset(BeginPixels(GetArea()), 0, GetByteCount()); }

const std::uint8_t* CBitmapContext::BeginReading() {
    if (!drawnByCairo.IsEmpty()) {
        TakeFromCairo();
    }
    return pixels;
}

std::uint8_t* CBitmapContext::BeginPixels(const Core::C2DRectangle& area) {
    if (!drawnByCairo.IsEmpty()) {
        TakeFromCairo();
    }
    drawnByHand = Bound(drawnByHand, area.Intersect(GetArea()));
    return pixels;
}

void CBitmapContext::BeginCairo(const Core::C2DRectangle& area) {
    if (!drawnByHand.IsEmpty()) {
        GiveToCairo();
    }
    drawnByCairo = Bound(drawnByCairo, area.Intersect(GetArea()));
}

cairo_surface_t* CBitmapContext::GetCairoSurface() {
    if (!surface) {
        if (IsShared()) {
            surface.reset(cairo_image_surface_create_for_data(
                pixels, format == EPixelFormat::kBGRA32 ? CAIRO_FORMAT_ARGB32 : CAIRO_FORMAT_RGB24,
                size.width, size.height, strideBytes));
        } else {
            surface.reset(cairo_image_surface_create(CAIRO_FORMAT_RGB24, size.width, size.height));
            drawnByHand = GetArea();
        }
        if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) {
            surface.reset();
        }
    }
    return surface.get();
}

void CBitmapContext::TakeFromCairo() {
    if (surface) {
        cairo_surface_flush(surface.get());
        if (!IsShared()) {
            ForEachPixel(format, pixels, strideBytes, cairo_image_surface_get_data(surface.get()),
                         cairo_image_surface_get_stride(surface.get()), drawnByCairo,
                         []<class Iterator>(Iterator, auto* pixel, const std::uint32_t* word) {
                             Iterator::Write(pixel, CDIB32BGRIterator::Read(word));
                         });
        }
    }
    drawnByCairo = {};
}

void CBitmapContext::GiveToCairo() {
    if (surface) {
        if (!IsShared()) {
            cairo_surface_flush(surface.get());
            ForEachPixel(format, pixels, strideBytes, cairo_image_surface_get_data(surface.get()),
                         cairo_image_surface_get_stride(surface.get()), drawnByHand,
                         []<class Iterator>(Iterator, const auto* pixel, std::uint32_t* word) {
                             *word = ToWord<Iterator>(pixel);
                         });
        }
        cairo_surface_mark_dirty_rectangle(surface.get(), drawnByHand.x, drawnByHand.y,
                                           drawnByHand.width, drawnByHand.height);
    }
    drawnByHand = {};
}

} // namespace Vorin::Graphics
