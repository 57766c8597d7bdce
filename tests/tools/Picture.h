#pragma once

#include <array>
#include <string>
#include <vector>

namespace WorkbenchTests {

/// A decoded PNG file.
struct CPicture {
    using Pixel = std::array<unsigned char, 4>; ///< red, green, blue, alpha

    int width = 0;
    int height = 0;
    bool hasAlpha = false; ///< as the file announces it
    std::vector<Pixel> pixels = {};

    const Pixel& At(int x, int y) const {
        return pixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                         static_cast<std::size_t>(x));
    }
};

/// Throws a std::runtime_error on what is no PNG.
CPicture ReadPng(const std::string& bytes);

} // namespace WorkbenchTests
