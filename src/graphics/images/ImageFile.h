#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "graphics/PlatformImage.h"

namespace Vorin::Graphics {

/// No larger image file is read.
inline constexpr std::size_t kMaxImageFileBytes = std::size_t{32} * 1024 * 1024;

/// What became of an image file.
struct CLoadedImage {
    /// Null when the image could not be loaded.
    std::shared_ptr<CPlatformImage> image;
    /// Whether some pixel is not fully opaque. False without an image.
    bool hasAlpha = false;
    /// Without an image: what is wrong, and what to do, to stand behind the path.
    std::string problem;
};

/// Images come from strangers: one that is not right, or beyond the limits of BitmapContext.h and
/// above, is refused as a whole, and nothing is printed. GUI thread only.

/// Reads a file: as PNG when its name ends in ".png", in whatever case; any other as JPEG, GIF,
/// BMP, TIFF or PNG, by its content. Only regular files are opened.
CLoadedImage LoadImageFile(const char* path);

/// Decodes what such a file holds.
CLoadedImage DecodePng(const std::uint8_t* data, std::size_t size);
CLoadedImage DecodeForeignImage(const std::uint8_t* data, std::size_t size);

} // namespace Vorin::Graphics
