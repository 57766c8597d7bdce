#pragma once

#include <cstddef>
#include <cstdint>

#include "graphics/PixelFormat.h"
#include "graphics/RGB.h"

/// The pixel formats: one stateless type each, the parameter of everything that works on pixels.
///
/// `Unit` is the memory word that addresses are counted in, a pixel is kUnitsPerPixel of them, and
/// GetStride gives the units from one row to the next. Read and Write turn a pixel into a colour
/// and back.
///
/// For blending a pixel travels as lanes: its channels, at the format's own depth, 16 bits apart in
/// one 64-bit word, so that one multiplication by up to 256 serves all channels. Load and Store
/// move a pixel between memory and lanes; ToLanes gives the lanes of a colour. Store does what a
/// write must do besides: an alpha byte becomes 0xFF.

namespace Vorin::Graphics {

/// Little-endian words 0xAARRGGBB.
struct CDIB32BGRIterator {
    using Unit = std::uint32_t;
    static constexpr int kBitsPerPixel = 32;
    static constexpr EPixelFormat kFormat = EPixelFormat::kBGRA32;
    static constexpr std::ptrdiff_t kUnitsPerPixel = 1;
    static constexpr std::uint64_t kLanes = 0x00FF00FF00FF00FF; // from the top: alpha, G, R, B

    static constexpr int GetStride(int width) { return width; }

    static RGB Read(const Unit* pixel) {
        return {static_cast<std::uint8_t>(*pixel >> 16), static_cast<std::uint8_t>(*pixel >> 8),
                static_cast<std::uint8_t>(*pixel)};
    }
    static void Write(Unit* pixel, const RGB& color) { Store(pixel, ToLanes(color)); }

    static constexpr std::uint64_t Spread(Unit word) {
        return (word | (std::uint64_t{word} << 24)) & kLanes;
    }
    static constexpr std::uint64_t ToLanes(const RGB& color) {
        return Spread(
            static_cast<Unit>(0xFF000000u | (color.red << 16) | (color.green << 8) | color.blue));
    }
    static std::uint64_t Load(const Unit* pixel) { return Spread(*pixel); }
    static void Store(Unit* pixel, std::uint64_t lanes) {
        *pixel = static_cast<Unit>(lanes | (lanes >> 24)) | 0xFF000000u;
    }
};

/// Bytes B, G, R; rows rounded up to 4 bytes.
struct CDIB24BGRIterator {
    using Unit = std::uint8_t;
    static constexpr int kBitsPerPixel = 24;
    static constexpr EPixelFormat kFormat = EPixelFormat::kBGR24;
    static constexpr std::ptrdiff_t kUnitsPerPixel = 3;
    static constexpr std::uint64_t kLanes = 0x000000FF00FF00FF; // R, G, B

    static constexpr int GetStride(int width) { return (width * 3 + 3) & ~3; }

    static RGB Read(const Unit* pixel) { return {pixel[2], pixel[1], pixel[0]}; }
    static void Write(Unit* pixel, const RGB& color) { Store(pixel, ToLanes(color)); }

    static constexpr std::uint64_t ToLanes(const RGB& color) {
        return (std::uint64_t{color.red} << 32) | (std::uint64_t{color.green} << 16) | color.blue;
    }
    static std::uint64_t Load(const Unit* pixel) { return ToLanes(Read(pixel)); }
    static void Store(Unit* pixel, std::uint64_t lanes) {
        pixel[0] = static_cast<Unit>(lanes);
        pixel[1] = static_cast<Unit>(lanes >> 16);
        pixel[2] = static_cast<Unit>(lanes >> 32);
    }
};

/// Words 0RRRRRGGGGGBBBBB; rows rounded up to an even number of pixels. Read gives the 5-bit values
/// as they are, Write drops the three low bits of each channel.
struct CDIB16BGRIterator {
    using Unit = std::uint16_t;
    static constexpr int kBitsPerPixel = 16;
    static constexpr EPixelFormat kFormat = EPixelFormat::kBGR16;
    static constexpr std::ptrdiff_t kUnitsPerPixel = 1;
    static constexpr std::uint64_t kLanes = 0x0000001F001F001F; // R, G, B

    static constexpr int GetStride(int width) { return (width + 1) & ~1; }

    static RGB Read(const Unit* pixel) {
        return {static_cast<std::uint8_t>((*pixel & 0x7C00) >> 10),
                static_cast<std::uint8_t>((*pixel & 0x3E0) >> 5),
                static_cast<std::uint8_t>(*pixel & 0x1F)};
    }
    static void Write(Unit* pixel, const RGB& color) { Store(pixel, ToLanes(color)); }

    static constexpr std::uint64_t ToLanes(const RGB& color) {
        return (std::uint64_t{color.red} >> 3 << 32) | (std::uint64_t{color.green} >> 3 << 16) |
               (std::uint64_t{color.blue} >> 3);
    }
    static std::uint64_t Load(const Unit* pixel) {
        const std::uint64_t word = *pixel;
        return ((word & 0x7C00) << 22) | ((word & 0x3E0) << 11) | (word & 0x1F);
    }
    static void Store(Unit* pixel, std::uint64_t lanes) {
        *pixel =
            static_cast<Unit>(((lanes >> 22) & 0x7C00) | ((lanes >> 11) & 0x3E0) | (lanes & 0x1F));
    }
};

/// One grey byte; rows rounded up to 4 bytes. A colour is reduced to grey before anything else.
struct CDIB8MonoIterator {
    using Unit = std::uint8_t;
    static constexpr int kBitsPerPixel = 8;
    static constexpr EPixelFormat kFormat = EPixelFormat::kMono8;
    static constexpr std::ptrdiff_t kUnitsPerPixel = 1;
    static constexpr std::uint64_t kLanes = 0xFF;

    static constexpr int GetStride(int width) { return (width + 3) & ~3; }

    static RGB Read(const Unit* pixel) { return {*pixel, *pixel, *pixel}; }
    static void Write(Unit* pixel, const RGB& color) { Store(pixel, ToLanes(color)); }

    static constexpr std::uint64_t ToLanes(const RGB& color) {
        return static_cast<std::uint64_t>((color.red + 2 * color.green + color.blue) >> 2);
    }
    static std::uint64_t Load(const Unit* pixel) { return *pixel; }
    static void Store(Unit* pixel, std::uint64_t lanes) { *pixel = static_cast<Unit>(lanes); }
};

/// Calls `function` with the iterator of a format.
template <class F>
auto WithIterator(EPixelFormat format, F function) {
    switch (format) {
    case EPixelFormat::kMono8:
        return function(CDIB8MonoIterator{});
    case EPixelFormat::kBGR16:
        return function(CDIB16BGRIterator{});
    case EPixelFormat::kBGR24:
        return function(CDIB24BGRIterator{});
    case EPixelFormat::kBGR32:
    case EPixelFormat::kBGRA32:
        break;
    }
    return function(CDIB32BGRIterator{});
}

/// Pixel memory as the units of a format. It is aligned for them.
template <class Iterator>
typename Iterator::Unit* AsUnits(void* memory) {
    return static_cast<typename Iterator::Unit*>(memory);
}
template <class Iterator>
const typename Iterator::Unit* AsUnits(const void* memory) {
    return static_cast<const typename Iterator::Unit*>(memory);
}

} // namespace Vorin::Graphics
