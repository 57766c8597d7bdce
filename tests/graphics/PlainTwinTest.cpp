// The optimised pixel routines against their plain twin: seeded random drawing in every format,
// with and without a clip and an origin, compared byte for byte, padding and guard zones included:
// a hundred thousand cases in all.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "GuardedMemory.h"
#include "PlainPicture.h"

namespace Vorin::Graphics::Testing {
namespace {

constexpr Core::C2DSize kSize{61, 47};

// Coordinates of every kind that matters: inside, across the border, on the border, on and between
// pixels, far away.
class CRandomDrawing {
public:
    explicit CRandomDrawing(unsigned seed) : random(seed) {}

    int GetInt(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); }

    float GetFloat(float low, float high) {
        return std::uniform_real_distribution<float>(low, high)(random);
    }

    RGB GetColor() {
        const auto channel = [this] { return static_cast<std::uint8_t>(GetInt(0, 255)); };
        return {channel(), channel(), channel()};
    }

    int GetWhole(int side, int kind) {
        switch (kind) {
        case 0:
            return GetInt(0, side - 1);
        case 1:
            return GetInt(-side, 2 * side);
        case 2:
            return GetInt(-5, 5) + (GetInt(0, 1) ? side - 1 : 0);
        case 3:
            return GetInt(-40000, 40000);
        default:
            return GetInt(-2147467264, 2147467264);
        }
    }
    Core::C2DPoint GetPoint() {
        const int kind = GetInt(0, 4);
        return {GetWhole(kSize.width, kind), GetWhole(kSize.height, kind)};
    }

    float GetBroken(int side, int kind) {
        const float end = static_cast<float>(side - 1);
        switch (kind) {
        case 0:
            return GetFloat(0.0f, end);
        case 1:
            return GetFloat(-end, 2.0f * end);
        case 2: // on the border or near it
            return GetFloat(-1.5f, 1.5f) + (GetInt(0, 1) ? end : 0.0f);
        case 3: // exact halves and quarters
            return 0.25f * static_cast<float>(GetInt(-8, 4 * side + 8));
        case 4: // almost on a pixel
            return static_cast<float>(GetInt(0, side - 1)) + GetFloat(-0.006f, 0.006f);
        default:
            return std::ldexp(GetFloat(-1.0f, 1.0f), GetInt(0, 40));
        }
    }
    C2DFloatPoint GetFloatPoint() {
        const int kind = GetInt(0, 5);
        return {GetBroken(kSize.width, kind), GetBroken(kSize.height, kind)};
    }
    // Nearly flat and nearly steep lines are rare by chance.
    C2DFloatPoint GetNeighbour(const C2DFloatPoint& point) {
        const float along = GetFloat(-30.0f, 30.0f);
        const float across = GetInt(0, 2) ? along * GetFloat(-0.006f, 0.006f) : 0.0f;
        return GetInt(0, 1) ? C2DFloatPoint{point.x + along, point.y + across}
                            : C2DFloatPoint{point.x + across, point.y + along};
    }

    Core::C2DRectangle GetClip() {
        const int left = GetInt(0, kSize.width - 1);
        const int top = GetInt(0, kSize.height - 1);
        return {left, top, GetInt(1, kSize.width - left), GetInt(1, kSize.height - top)};
    }

private:
    std::mt19937 random;
};

// A picture and its twin with the same random content.
template <class Iterator>
class PlainTwinTest : public testing::Test {
protected:
    PlainTwinTest() : random(20240229), memory(kSize), twin(kSize, Iterator::kBitsPerPixel) {
        for (auto& byte : twin.GetBytes())
            byte = static_cast<std::uint8_t>(random.GetInt(0, 255));
        // The unused top bit of a 16-bit pixel is dropped by the first write in both.
        memory.SetBytes(twin.GetBytes());
    }

    TDIBSurface<Iterator>& GetSurface() { return memory.GetSurface(); }

    void UseColor(const RGB& color) {
        GetSurface().SetPenColor(color);
        twin.SetPen(color);
    }

    void ExpectSame(int round) {
        ASSERT_EQ(memory.GetBytes(), twin.GetBytes()) << "round " << round;
        ASSERT_TRUE(memory.AreGuardsIntact()) << "round " << round;
    }

    // Runs `draw` under a new colour, and every other round under a new clip.
    template <class F>
    void DrawRounds(int rounds, F draw) {
        for (int round = 0; round < rounds; ++round) {
            UseColor(random.GetColor());
            const Core::C2DRectangle clip =
                round % 2 ? random.GetClip() : Core::C2DRectangle({}, kSize);
            GetSurface().SaveState();
            GetSurface().IntersectClip(clip);
            twin.SetClip(clip);
            draw();
            GetSurface().RestoreState();
            ExpectSame(round);
            if (this->HasFatalFailure())
                return;
        }
    }

    CRandomDrawing random;
    TGuardedMemory<Iterator> memory;
    CPlainPicture twin;
};

using Formats =
    testing::Types<CDIB32BGRIterator, CDIB24BGRIterator, CDIB16BGRIterator, CDIB8MonoIterator>;
TYPED_TEST_SUITE(PlainTwinTest, Formats);

TYPED_TEST(PlainTwinTest, LinesMatch) {
    this->DrawRounds(6000, [this] {
        const Core::C2DPoint from = this->random.GetPoint();
        const Core::C2DPoint to = this->random.GetPoint();
        this->GetSurface().DrawLine(from, to);
        this->twin.DrawLine(from, to);
    });
}

TYPED_TEST(PlainTwinTest, PolylinesMatchTheirLines) {
    this->DrawRounds(300, [this] {
        std::vector<Core::C2DPoint> points;
        for (int i = this->random.GetInt(2, 30); i > 0; --i)
            points.push_back(this->random.GetPoint());
        this->GetSurface().DrawPolyline(points.data(), static_cast<int>(points.size()));
        for (std::size_t i = 1; i < points.size(); ++i)
            this->twin.DrawLine(points[i - 1], points[i]);
    });
}

TYPED_TEST(PlainTwinTest, SmoothLinesMatch) {
    this->DrawRounds(8000, [this] {
        const C2DFloatPoint from = this->random.GetFloatPoint();
        const C2DFloatPoint to = this->random.GetInt(0, 1) ? this->random.GetFloatPoint()
                                                           : this->random.GetNeighbour(from);
        this->GetSurface().DrawSmoothLine(from, to);
        this->twin.DrawSmoothLine(from, to);
    });
}

TYPED_TEST(PlainTwinTest, SmoothPolylinesMatchTheirLines) {
    this->DrawRounds(300, [this] {
        std::vector<C2DFloatPoint> points{this->random.GetFloatPoint()};
        for (int i = this->random.GetInt(1, 30); i > 0; --i)
            points.push_back(this->random.GetInt(0, 1) ? this->random.GetFloatPoint()
                                                       : this->random.GetNeighbour(points.back()));
        this->GetSurface().DrawSmoothPolyline(points.data(), static_cast<int>(points.size()));
        for (std::size_t i = 1; i < points.size(); ++i)
            this->twin.DrawSmoothLine(points[i - 1], points[i]);
    });
}

TYPED_TEST(PlainTwinTest, SmoothPointsMatch) {
    this->DrawRounds(4000, [this] {
        const C2DFloatPoint point = this->random.GetFloatPoint();
        this->GetSurface().DrawSmoothPoint(point);
        this->twin.DrawSmoothPoint(point);
    });
}

TYPED_TEST(PlainTwinTest, AnOriginMovesLines) {
    this->DrawRounds(6500, [this] {
        const Core::C2DVector origin{this->random.GetInt(-50, 50), this->random.GetInt(-50, 50)};
        const Core::C2DPoint from = this->random.GetPoint();
        const Core::C2DPoint to = this->random.GetPoint();
        const C2DFloatPoint smoothFrom = this->random.GetFloatPoint();
        const C2DFloatPoint smoothTo = this->random.GetFloatPoint();
        const auto moved = [&](const C2DFloatPoint& point) {
            return C2DFloatPoint{point.x + static_cast<float>(origin.x),
                                 point.y + static_cast<float>(origin.y)};
        };
        this->GetSurface().SetOrigin(origin);
        this->GetSurface().DrawLine(from - origin, to - origin);
        this->GetSurface().DrawSmoothLine(smoothFrom, smoothTo);
        this->GetSurface().DrawSmoothPoint(smoothFrom);
        this->twin.DrawLine(from - origin + origin, to - origin + origin);
        this->twin.DrawSmoothLine(moved(smoothFrom), moved(smoothTo));
        this->twin.DrawSmoothPoint(moved(smoothFrom));
    });
}

// Coordinates that no picture asks for on purpose: not a number, infinite, at the ends of the
// range.
TYPED_TEST(PlainTwinTest, HostileCoordinatesStayInsideClipAndMemory) {
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    const float floats[] = {std::numeric_limits<float>::quiet_NaN(),
                            kInfinity,
                            -kInfinity,
                            std::numeric_limits<float>::max(),
                            std::numeric_limits<float>::lowest(),
                            std::numeric_limits<float>::denorm_min(),
                            1e30f,
                            -1e30f,
                            1e9f,
                            -2147483648.0f,
                            2147483648.0f,
                            -0.0f,
                            -0.5f,
                            17.3f,
                            46.0f,
                            46.5f,
                            60.49999f,
                            61.0f};
    constexpr int kMin = std::numeric_limits<int>::min();
    constexpr int kMax = std::numeric_limits<int>::max();
    const int ints[] = {kMin, kMin + 1, -65536, -1, 0, 17, 46, 47, 60, 61, 65536, kMax - 1, kMax};
    const Core::C2DRectangle clip{5, 7, 40, 30};
    auto& surface = this->GetSurface();
    surface.IntersectClip(clip);
    surface.SetPenColor({255, 255, 255});
    for (const Core::C2DVector origin : {Core::C2DVector{}, {9, -3}, {kMax, kMin}, {kMin, kMax}}) {
        surface.SaveState();
        surface.SetOrigin(origin);
        for (float x1 : floats)
            for (float y1 : floats)
                for (float x2 : floats)
                    for (float y2 : floats)
                        surface.DrawSmoothLine({x1, y1}, {x2, y2});
        for (float x : floats)
            for (float y : floats)
                surface.DrawSmoothPoint({x, y});
        for (int x1 : ints)
            for (int y1 : ints)
                for (int x2 : ints)
                    for (int y2 : ints) {
                        surface.DrawLine({x1, y1}, {x2, y2});
                        surface.DrawRectangle({x1, y1, x2, y2});
                        surface.FillRectangle({x1, y1, x2, y2});
                    }
        surface.RestoreState();
    }
    ASSERT_TRUE(this->memory.AreGuardsIntact());

    // Outside the clip nothing changed.
    auto before = this->twin.GetBytes();
    auto after = this->memory.GetBytes();
    const auto stride = static_cast<int>(before.size()) / kSize.height;
    const int pixelBytes = TypeParam::kBitsPerPixel / 8;
    bool drewInside = false;
    for (int y = 0; y < kSize.height; ++y)
        for (int i = 0; i < stride; ++i) {
            const auto at = static_cast<std::size_t>(y * stride + i);
            if (clip.Contains({i / pixelBytes, y}))
                drewInside = drewInside || before[at] != after[at];
            else
                ASSERT_EQ(before[at], after[at]) << "byte " << i << " of row " << y;
        }
    EXPECT_TRUE(drewInside);
}

} // namespace
} // namespace Vorin::Graphics::Testing
