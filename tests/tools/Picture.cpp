#include "Picture.h"

#include <png.h>
#include <stdexcept>

namespace WorkbenchTests {

CPicture ReadPng(const std::string& bytes) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_memory(&image, bytes.data(), bytes.size())) {
        throw std::runtime_error(std::string("PNG: ") + image.message);
    }
    CPicture picture;
    picture.width = static_cast<int>(image.width);
    picture.height = static_cast<int>(image.height);
    picture.hasAlpha = (image.format & PNG_FORMAT_FLAG_ALPHA) != 0;
    image.format = PNG_FORMAT_RGBA;
    picture.pixels.resize(static_cast<std::size_t>(image.width) * image.height);
    if (!png_image_finish_read(&image, nullptr, picture.pixels.data(), 0, nullptr)) {
        throw std::runtime_error(std::string("PNG: ") + image.message);
    }
    return picture;
}

} // namespace WorkbenchTests
