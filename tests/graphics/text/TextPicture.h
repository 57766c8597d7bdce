#pragma once

#include <algorithm>
#include <memory>
#include <ostream>

#include "graphics/TestPicture.h"
#include "graphics/text/SharedFont.h"
#include "graphics/text/TextDrawer.h"

namespace Vorin::Core {

inline std::ostream& operator<<(std::ostream& out, const C2DSize& size) {
    return out << size.width << 'x' << size.height;
}
inline std::ostream& operator<<(std::ostream& out, const C2DRectangle& rectangle) {
    return out << '(' << rectangle.x << ", " << rectangle.y << ") " << rectangle.GetSize();
}

} // namespace Vorin::Core

namespace Vorin::Graphics::Testing {

/// The font of all tests, which CI installs.
inline CFontValues MakeFont(int height, float escapement = 0.0F) {
    CFontValues values;
    values.face = "DejaVu Sans";
    values.height = height;
    values.escapement = escapement;
    return values;
}

/// The smallest rectangle around all that is not black.
inline Core::C2DRectangle GetInk(const CTestPicture& picture, const Core::C2DSize& size) {
    int left = size.width;
    int top = size.height;
    int right = 0;
    int bottom = 0;
    for (int y = 0; y < size.height; ++y) {
        for (int x = 0; x < size.width; ++x) {
            if (!(picture.GetColor(x, y) == RGB{})) {
                left = std::min(left, x);
                top = std::min(top, y);
                right = std::max(right, x + 1);
                bottom = std::max(bottom, y + 1);
            }
        }
    }
    return right == 0 ? Core::C2DRectangle()
                      : Core::C2DRectangle(left, top, right - left, bottom - top);
}

/// The ink of a text in white on black, drawn in a rectangle.
inline Core::C2DRectangle GetInkOfText(const CFontValues& font, const char* text,
                                       const Core::C2DSize& size,
                                       const Core::C2DRectangle& rectangle,
                                       const CTextFormat& format = {}) {
    CTestPicture picture(size);
    CSharedFont shared(font);
    picture->SetFont(&shared);
    picture->SetTextMode(1);
    picture->DrawTextInRect(text, rectangle, format);
    return GetInk(picture, size);
}

} // namespace Vorin::Graphics::Testing
