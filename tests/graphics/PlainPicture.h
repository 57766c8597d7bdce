#pragma once

#include <cmath>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

#include "core/Geometry.h"
#include "graphics/FloatPoint.h"
#include "graphics/RGB.h"

// The plain twin of the pixel routines: slow, one pixel at a time, each tested against the clip,
// and sharing no code with them. What it draws is what they must draw, byte for byte.

namespace Vorin::Graphics::Testing {

class CPlainPicture {
public:
    CPlainPicture(const Core::C2DSize& size, int bitsPerPixel)
        : bits(bitsPerPixel), strideBytes(GetStrideBytes(size.width, bitsPerPixel)),
          bytes(static_cast<std::size_t>(strideBytes * size.height)), left(0), top(0),
          right(size.width - 1), bottom(size.height - 1) {}

    // `clip` is not empty and inside the picture.
    void SetClip(const Core::C2DRectangle& clip) {
        left = clip.x;
        top = clip.y;
        right = clip.x + clip.width - 1;
        bottom = clip.y + clip.height - 1;
    }

    void SetPen(const RGB& color) { pen = color; }
    std::vector<std::uint8_t>& GetBytes() { return bytes; }

    void SetPixel(int x, int y) {
        if (!IsInClip(x, y))
            return;
        switch (bits) {
        case 32:
            SetWord<std::uint32_t>(x, y, 0xFF000000u | GetPenWord32());
            break;
        case 16:
            SetWord<std::uint16_t>(x, y, static_cast<std::uint16_t>(GetPenWord16()));
            break;
        case 24:
            At(x, y)[0] = pen.blue;
            At(x, y)[1] = pen.green;
            At(x, y)[2] = pen.red;
            break;
        default:
            At(x, y)[0] = GetPenGrey();
        }
    }

    void BlendPixel(int x, int y, int a) {
        if (!IsInClip(x, y))
            return;
        switch (bits) {
        case 32: {
            const std::int64_t word = GetWord<std::uint32_t>(x, y);
            const std::int64_t src = GetPenWord32();
            const std::int64_t result = BlendMasked(word, src, a, 0xFF0000) |
                                        BlendMasked(word, src, a, 0xFF00) |
                                        BlendMasked(word, src, a, 0xFF);
            SetWord<std::uint32_t>(x, y, static_cast<std::uint32_t>(result | 0xFF000000));
            break;
        }
        case 16: {
            const std::int64_t word = GetWord<std::uint16_t>(x, y);
            const std::int64_t src = GetPenWord16();
            const std::int64_t result = BlendMasked(word, src, a, 0x7C00) |
                                        BlendMasked(word, src, a, 0x3E0) |
                                        BlendMasked(word, src, a, 0x1F);
            SetWord<std::uint16_t>(x, y, static_cast<std::uint16_t>(result));
            break;
        }
        case 24:
            BlendByte(At(x, y)[0], pen.blue, a);
            BlendByte(At(x, y)[1], pen.green, a);
            BlendByte(At(x, y)[2], pen.red, a);
            break;
        default:
            BlendByte(At(x, y)[0], GetPenGrey(), a);
        }
    }

    void DrawLine(const Core::C2DPoint& from, const Core::C2DPoint& to) {
        Wide x1 = from.x, y1 = from.y, x2 = to.x, y2 = to.y;
        if (!Clip<Wide>(x1, y1, x2, y2))
            return;
        const bool steep = Abs(y2 - y1) > Abs(x2 - x1);
        if (steep) {
            std::swap(x1, y1);
            std::swap(x2, y2);
        }
        if (x1 > x2) {
            std::swap(x1, x2);
            std::swap(y1, y2);
        }
        const Wide dx = x2 - x1;
        const Wide dy = Abs(y2 - y1);
        const Wide ystep = y1 < y2 ? 1 : -1;
        Wide err = dx / 2;
        Wide y = y1;
        for (Wide x = x1; x <= x2; ++x) {
            if (steep)
                SetPixel(static_cast<int>(y), static_cast<int>(x));
            else
                SetPixel(static_cast<int>(x), static_cast<int>(y));
            err -= dy;
            if (err < 0) {
                y += ystep;
                err += dx;
            }
        }
    }

    void DrawSmoothLine(const C2DFloatPoint& from, const C2DFloatPoint& to) {
        float x1 = from.x, y1 = from.y, x2 = to.x, y2 = to.y;
        if (!std::isfinite(x1) || !std::isfinite(y1) || !std::isfinite(x2) || !std::isfinite(y2))
            return;
        if (!Clip<float>(x1, y1, x2, y2))
            return;
        const float l = static_cast<float>(left), r = static_cast<float>(right);
        const float t = static_cast<float>(top), b = static_cast<float>(bottom);
        if (!(l <= x1 && x1 <= r && l <= x2 && x2 <= r && t <= y1 && y1 <= b && t <= y2 && y2 <= b))
            return;

        const bool steep = std::fabs(double{y2} - double{y1}) > std::fabs(double{x2} - double{x1});
        if (steep) {
            std::swap(x1, y1);
            std::swap(x2, y2);
        }
        if (x1 > x2) {
            std::swap(x1, x2);
            std::swap(y1, y2);
        }
        const double dx = double{x2} - double{x1};
        const double dy = double{y2} - double{y1};
        const double g = dx == 0 ? 0.0 : dy / dx;

        const float xs = x1 + 0.5f;
        const int ix1 = static_cast<int>(std::trunc(xs));
        const double y = y1 + (ix1 - double{x1}) * g;
        DrawEnd(steep, ix1, y, 1 - (double{xs} - std::trunc(xs)));

        const float xe = x2 + 0.5f;
        const int ix2 = static_cast<int>(std::trunc(xe));
        DrawEnd(steep, ix2, y2 + (ix2 - double{x2}) * g, double{xe} - std::trunc(xe));

        if (std::fabs(g) < 0.003921569) {
            const double row = std::trunc(double{y1} + 0.5);
            for (int x = ix1 + 1; x < ix2; ++x) {
                if (std::fabs(y1 - row) < 0.003921568859368563)
                    PlotSolid(steep, x, static_cast<int>(row));
                else
                    PlotPair(steep, x, y1);
            }
        } else {
            double middle = y + g;
            for (int x = ix1 + 1; x < ix2; ++x) {
                PlotPair(steep, x, middle);
                middle += g;
            }
        }
    }

    void DrawSmoothPoint(const C2DFloatPoint& point) {
        const float x = point.x, y = point.y;
        if (!(std::fabs(x) < 1e6f && std::fabs(y) < 1e6f))
            return;
        const int ix = static_cast<int>(std::trunc(x));
        const int iy = static_cast<int>(std::trunc(y));
        const float fx = x - static_cast<float>(ix);
        const float fy = y - static_cast<float>(iy);
        const bool firstColumn = left < ix && ix < right;
        const bool secondColumn = left < ix + 1 && ix + 1 < right;
        const bool firstRow = top < iy && iy < bottom;
        const bool secondRow = top < iy + 1 && iy + 1 < bottom;
        if (firstColumn && firstRow)
            BlendPixel(ix, iy, static_cast<int>(255 * fx * fy) & 255);
        if (secondColumn && firstRow)
            BlendPixel(ix + 1, iy, static_cast<int>((1 - fx) * fy * 255) & 255);
        if (firstColumn && secondRow)
            BlendPixel(ix, iy + 1, static_cast<int>(255 * fx * (1 - fy)) & 255);
        if (secondColumn && secondRow)
            BlendPixel(ix + 1, iy + 1, static_cast<int>((1 - fx) * 255 * (1 - fy)) & 255);
    }

private:
    // Wide enough for every product of two differences of ints.
    __extension__ typedef __int128 Wide;

    static int GetStrideBytes(int width, int bits) {
        switch (bits) {
        case 32:
            return width * 4;
        case 24:
            return (width * 3 + 3) / 4 * 4;
        case 16:
            return (width + 1) / 2 * 2 * 2;
        default:
            return (width + 3) / 4 * 4;
        }
    }

    static Wide Abs(Wide value) { return value < 0 ? -value : value; }

    bool IsInClip(int x, int y) const { return x >= left && x <= right && y >= top && y <= bottom; }

    std::uint8_t* At(int x, int y) { return bytes.data() + y * strideBytes + x * (bits / 8); }

    template <class Word>
    Word GetWord(int x, int y) {
        Word word;
        std::memcpy(&word, At(x, y), sizeof word);
        return word;
    }
    template <class Word>
    void SetWord(int x, int y, Word word) {
        std::memcpy(At(x, y), &word, sizeof word);
    }

    std::uint32_t GetPenWord32() const {
        return static_cast<std::uint32_t>(pen.red * 65536 + pen.green * 256 + pen.blue);
    }
    std::uint32_t GetPenWord16() const {
        return static_cast<std::uint32_t>(pen.red / 8 * 1024 + pen.green / 8 * 32 + pen.blue / 8);
    }
    std::uint8_t GetPenGrey() const {
        return static_cast<std::uint8_t>((pen.red + 2 * pen.green + pen.blue) / 4);
    }

    static std::int64_t BlendMasked(std::int64_t word, std::int64_t src, int a, std::int64_t mask) {
        const std::int64_t dst = word & mask;
        return (dst + ((((src & mask) - dst) * a) >> 8)) & mask;
    }
    static void BlendByte(std::uint8_t& byte, int src, int a) {
        byte = static_cast<std::uint8_t>(byte + (((src - byte) * a) >> 8));
    }

    template <class T>
    int GetCode(T x, T y) const {
        int code = 0;
        if (y > static_cast<T>(bottom))
            code |= 1;
        if (y < static_cast<T>(top))
            code |= 2;
        if (x > static_cast<T>(right))
            code |= 4;
        if (x < static_cast<T>(left))
            code |= 8;
        return code;
    }

    template <class T>
    bool Clip(T& x1, T& y1, T& x2, T& y2) const {
        for (int round = 0; round <= 8; ++round) {
            const int code1 = GetCode(x1, y1);
            const int code2 = GetCode(x2, y2);
            if (code1 == 0 && code2 == 0)
                return true;
            if ((code1 & code2) != 0 || round == 8)
                return false;
            const int code = code1 != 0 ? code1 : code2;
            T x{}, y{};
            if (code & 1) {
                y = static_cast<T>(bottom);
                x = x1 + (y - y1) * (x2 - x1) / (y2 - y1);
            } else if (code & 2) {
                y = static_cast<T>(top);
                x = x1 + (y - y1) * (x2 - x1) / (y2 - y1);
            } else if (code & 4) {
                x = static_cast<T>(right);
                y = y1 + (x - x1) * (y2 - y1) / (x2 - x1);
            } else {
                x = static_cast<T>(left);
                y = y1 + (x - x1) * (y2 - y1) / (x2 - x1);
            }
            if (code1 != 0) {
                x1 = x;
                y1 = y;
            } else {
                x2 = x;
                y2 = y;
            }
        }
        return false;
    }

    void PlotSolid(bool steep, int x, int y) { steep ? SetPixel(y, x) : SetPixel(x, y); }

    void PlotWeighted(bool steep, int x, int y, int a) {
        if (a == 0)
            return;
        steep ? BlendPixel(y, x, a) : BlendPixel(x, y, a);
    }

    void DrawEnd(bool steep, int x, double y, double gap) {
        const double row = std::floor(y);
        const double fy = y - row;
        const int iy = static_cast<int>(row);
        PlotWeighted(steep, x, iy, static_cast<int>(((1 - fy) * gap) * 255));
        PlotWeighted(steep, x, iy + 1, static_cast<int>((fy * gap) * 255));
    }

    void PlotPair(bool steep, int x, double y) {
        const double row = std::floor(y);
        const int iy = static_cast<int>(row);
        const int a = static_cast<int>((y - row) * 255);
        PlotWeighted(steep, x, iy + 1, a);
        PlotWeighted(steep, x, iy, 255 - a);
    }

    int bits;
    int strideBytes;
    std::vector<std::uint8_t> bytes;
    int left;
    int top;
    int right;
    int bottom;
    RGB pen;
};

} // namespace Vorin::Graphics::Testing
