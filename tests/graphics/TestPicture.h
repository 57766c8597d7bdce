#pragma once

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>

#include "graphics/DIBBitmap.h"

namespace Vorin::Graphics::Testing {

// A black bitmap with a surface and a white pen, and the looks at its pixels that tests need.
class CTestPicture {
public:
    explicit CTestPicture(const Core::C2DSize& size, int bitsPerPixel = 32)
        : bitmap(size, bitsPerPixel), surface(bitmap.CreateSurface()),
          access(bitmap.CreatePixelAccess()) {
        surface->SetPenColor({255, 255, 255});
    }

    CDIBBitmap& GetBitmap() { return bitmap; }
    IDrawSurface& operator*() { return *surface; }
    IDrawSurface* operator->() { return surface.get(); }

    RGB GetColor(int x, int y) const { return access->GetPixel({x, y}); }
    void SetColor(int x, int y, const RGB& color) { access->SetPixel({x, y}, color); }

    // The value that every channel of a grey pixel has.
    int GetGrey(int x, int y) const { return GetColor(x, y).green; }

    // The word of a pixel of 32 bits.
    std::uint32_t GetWord(int x, int y) const {
        std::uint32_t word;
        std::memcpy(&word, bitmap.GetPixels() + y * bitmap.GetStrideBytes() + x * 4, sizeof word);
        return word;
    }

    // The picture as text: '#' for each pixel that is not black, '.' for the others.
    std::string GetText() const {
        std::string text;
        for (int y = 0; y < bitmap.GetSize().height; ++y) {
            for (int x = 0; x < bitmap.GetSize().width; ++x)
                text += GetColor(x, y) == RGB{} ? '.' : '#';
            text += '\n';
        }
        return text;
    }

    bool IsBlack() const { return GetText().find('#') == std::string::npos; }

private:
    CDIBBitmap bitmap;
    std::unique_ptr<IDrawSurface> surface;
    std::unique_ptr<IRGBPixelAccess> access;
};

} // namespace Vorin::Graphics::Testing
