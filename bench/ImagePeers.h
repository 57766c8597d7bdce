#pragma once

#include <cairo.h>
#include <png.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "graphics/DIBBitmap.h"
#include "graphics/Image.h"

/// What images are measured against: the libraries alone, on the same work.
namespace Bench {

inline void MustHold(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// A PNG of some size as a skin has it: smooth shapes with soft edges, and a little noise.
inline std::string MakePng(int width, int height) {
    std::vector<std::uint8_t> pixels(static_cast<std::size_t>(width) * height * 4);
    std::mt19937 random(3);
    std::size_t at = 0;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const int dx = x % 200 - 100;
            const int dy = y % 200 - 100;
            const int distance = dx * dx + dy * dy;
            pixels[at++] = static_cast<std::uint8_t>(x * 255 / width);
            pixels[at++] = static_cast<std::uint8_t>(y * 255 / height);
            pixels[at++] = static_cast<std::uint8_t>(90 + random() % 8);
            pixels[at++] =
                static_cast<std::uint8_t>(distance < 8000    ? 255
                                          : distance > 10000 ? 0
                                                             : (10000 - distance) * 255 / 2000);
        }
    }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = PNG_FORMAT_RGBA;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
    std::string bytes(size, '\0');
    MustHold(png_image_write_to_memory(&image, bytes.data(), &size, 0, pixels.data(), 0, nullptr));
    bytes.resize(size);
    return bytes;
}

/// A file for as long as the object lives.
class CBenchFile {
public:
    CBenchFile(std::string filePath, const std::string& bytes) : path(std::move(filePath)) {
        std::FILE* file = std::fopen(path.c_str(), "wb");
        MustHold(file && std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size());
        std::fclose(file);
    }
    ~CBenchFile() { std::remove(path.c_str()); }
    CBenchFile(const CBenchFile&) = delete;
    CBenchFile& operator=(const CBenchFile&) = delete;
    const std::string path;
};

/// libpng's bare decode of an RGBA file: rows into memory, nothing more.
inline void DecodeBare(const std::string& path) {
    std::FILE* file = std::fopen(path.c_str(), "rb");
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_init_io(png, file);
    png_read_info(png, info);
    const auto height = png_get_image_height(png, info);
    const auto stride = png_get_rowbytes(png, info);
    const std::unique_ptr<std::uint8_t, decltype(&std::free)> memory(
        static_cast<std::uint8_t*>(std::calloc(height, stride)), std::free);
    std::vector<png_bytep> rows(height);
    for (std::size_t y = 0; y < height; ++y) {
        rows[y] = memory.get() + y * stride;
    }
    png_read_image(png, rows.data());
    png_destroy_read_struct(&png, &info, nullptr);
    std::fclose(file);
}

/// A picture of noise, opaque or with alpha.
inline std::shared_ptr<Vorin::Graphics::CPlatformImage>
MakeBenchImage(const Vorin::Core::C2DSize& size, bool opaque) {
    const auto pixels = Vorin::Graphics::CBitmapContext::Create(size, 32);
    std::uint8_t* byte = pixels->BeginPixels({{}, size});
    std::mt19937 random(4);
    for (std::size_t i = 0; i < pixels->GetByteCount(); i += 4, byte += 4) {
        const unsigned alpha = opaque ? 255 : random() % 256;
        for (int channel = 0; channel < 3; ++channel) {
            byte[channel] = static_cast<std::uint8_t>(random() % (alpha + 1));
        }
        byte[3] = static_cast<std::uint8_t>(alpha);
    }
    return Vorin::Graphics::CPlatformImage::Create(pixels, opaque);
}

/// A picture that Cairo alone draws on.
class CBareCairo {
public:
    CBareCairo(int width, int height)
        : surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height)),
          cairo(cairo_create(surface)) {}
    ~CBareCairo() {
        cairo_destroy(cairo);
        cairo_surface_destroy(surface);
    }
    CBareCairo(const CBareCairo&) = delete;
    CBareCairo& operator=(const CBareCairo&) = delete;

    /// One part of a picture to (x, y).
    void Blit(cairo_surface_t* source, int sourceX, int sourceY, int x, int y, int width,
              int height) {
        cairo_set_source_surface(cairo, source, x - sourceX, y - sourceY);
        cairo_rectangle(cairo, x, y, width, height);
        cairo_fill(cairo);
    }

    /// A picture over and over, within an area.
    void Repeat(cairo_surface_t* tile, int x, int y, int width, int height) {
        cairo_pattern_t* pattern = cairo_pattern_create_for_surface(tile);
        cairo_pattern_set_extend(pattern, CAIRO_EXTEND_REPEAT);
        cairo_set_source(cairo, pattern);
        cairo_pattern_destroy(pattern);
        cairo_rectangle(cairo, x, y, width, height);
        cairo_fill(cairo);
    }

private:
    cairo_surface_t* surface;
    cairo_t* cairo;
};

} // namespace Bench
