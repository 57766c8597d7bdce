#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

#include "graphics/images/ImageFile.h"

namespace Vorin::Graphics::Testing {

// A folder for files, gone with the object.
class CImageFolder {
public:
    CImageFolder() {
        std::string name =
            (std::filesystem::temp_directory_path() / "ondara-images-XXXXXX").string();
        path = mkdtemp(name.data());
    }
    ~CImageFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    CImageFolder(const CImageFolder&) = delete;
    CImageFolder& operator=(const CImageFolder&) = delete;

    std::string GetPath(const std::string& name) const { return (path / name).string(); }
    std::string Write(const std::string& name, const std::string& bytes) const {
        std::ofstream(GetPath(name), std::ios::binary) << bytes;
        return GetPath(name);
    }

private:
    std::filesystem::path path;
};

inline CLoadedImage DecodePngText(const std::string& bytes) {
    const void* data = bytes.data();
    return DecodePng(static_cast<const std::uint8_t*>(data), bytes.size());
}
inline CLoadedImage DecodeForeignText(const std::string& bytes) {
    const void* data = bytes.data();
    return DecodeForeignImage(static_cast<const std::uint8_t*>(data), bytes.size());
}

// A pixel of a loaded image: 0xAARRGGBB, premultiplied.
inline std::uint32_t GetWord(const CPlatformImage& image, int x, int y) {
    const auto& bitmap = image.GetBitmapContext();
    std::uint32_t word;
    std::memcpy(&word, bitmap->BeginReading() + y * bitmap->GetStrideBytes() + x * 4, sizeof word);
    return word;
}

} // namespace Vorin::Graphics::Testing
