#pragma once

#include <cairo.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

#include "graphics/DIBBitmap.h"

namespace Vorin::Graphics::Testing {

/// How many pixels of a bitmap of 32 bits differ from the picture `goldens/NAME.png`; all of them
/// when there is no such picture of its size. A bitmap that differs is written to the folder that
/// the tests are built in, to be looked at and, when it is right, put in the golden's place.
inline int CountDifferences(const CDIBBitmap& bitmap, const std::string& name) {
    const Core::C2DSize size = bitmap.GetSize();
    const std::string golden = std::string(ONDARA_TEXT_GOLDENS) + "/" + name + ".png";
    cairo_surface_t* expected = cairo_image_surface_create_from_png(golden.c_str());
    int differences = size.width * size.height;
    if (cairo_surface_status(expected) == CAIRO_STATUS_SUCCESS &&
        cairo_image_surface_get_width(expected) == size.width &&
        cairo_image_surface_get_height(expected) == size.height) {
        differences = 0;
        for (int y = 0; y < size.height; ++y) {
            const unsigned char* row = cairo_image_surface_get_data(expected) +
                                       y * cairo_image_surface_get_stride(expected);
            const std::uint8_t* own = bitmap.GetPixels() + y * bitmap.GetStrideBytes();
            for (int x = 0; x < size.width; ++x) {
                differences += std::memcmp(row + 4 * x, own + 4 * x, 3) != 0 ? 1 : 0;
            }
        }
    }
    cairo_surface_destroy(expected);
    if (differences > 0) {
        cairo_surface_t* actual =
            cairo_image_surface_create(CAIRO_FORMAT_RGB24, size.width, size.height);
        for (int y = 0; y < size.height; ++y) {
            std::memcpy(cairo_image_surface_get_data(actual) +
                            y * cairo_image_surface_get_stride(actual),
                        bitmap.GetPixels() + y * bitmap.GetStrideBytes(),
                        static_cast<std::size_t>(size.width) * 4);
        }
        cairo_surface_mark_dirty(actual);
        const std::string path = std::string(ONDARA_TEXT_PICTURES) + "/" + name + ".png";
        cairo_surface_write_to_png(actual, path.c_str());
        cairo_surface_destroy(actual);
    }
    return differences;
}

} // namespace Vorin::Graphics::Testing
