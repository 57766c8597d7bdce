#include "Png.h"

#include <png.h>

namespace Workbench {

COutcome EncodePng(const Vorin::Graphics::CDIBBitmap& bitmap, std::string& bytes) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(bitmap.GetSize().width);
    image.height = static_cast<png_uint_32>(bitmap.GetSize().height);
    image.format = PNG_FORMAT_BGRA;
    png_alloc_size_t size = 0;
    const int stride = bitmap.GetStrideBytes();
    if (!bitmap.GetPixels() ||
        !png_image_write_get_memory_size(image, size, 0, bitmap.GetPixels(), stride, nullptr)) {
        return COutcome::BadInput(std::string("the picture cannot be encoded: ") + image.message);
    }
    bytes.resize(size);
    if (!png_image_write_to_memory(&image, bytes.data(), &size, 0, bitmap.GetPixels(), stride,
                                   nullptr)) {
        return COutcome::BadInput(std::string("the picture cannot be encoded: ") + image.message);
    }
    bytes.resize(size);
    return {};
}

} // namespace Workbench
