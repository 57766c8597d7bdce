#include "ScopePicture.h"

#include <algorithm>
#include <cmath>

namespace Workbench {

using namespace Vorin::Graphics;
using Vorin::Core::C2DRectangle;
using Vorin::Core::C2DSize;

namespace {

constexpr RGB kBackground{13, 16, 22};
constexpr RGB kPanel{18, 23, 31};
constexpr RGB kGrid{38, 47, 61};
constexpr RGB kAxis{66, 80, 101};
constexpr RGB kMark{96, 112, 134};

/// What a channel is drawn in.
struct CChannelColors {
    RGB line;
    RGB glow; ///< under the line, one pixel to each side
    RGB bar;
};

constexpr CChannelColors kChannels[] = {
    {{94, 226, 205}, {27, 74, 74}, {38, 104, 100}},
    {{255, 179, 92}, {82, 58, 34}, {120, 82, 42}},
};

constexpr int kPointsPerPixel = 8;
constexpr int kTimeDivisions = 10; // tenths of a second
constexpr int kLevelDivisions = 4; // halves of full scale, from -1 to 1
constexpr int kMarkLength = 5;

struct CLayout {
    explicit CLayout(const C2DSize& size) {
        margin = std::clamp(std::min(size.width, size.height) / 40, 4, 14);
        const int rowHeight = (size.height - 3 * margin) / 2;
        const int inner = size.width - 3 * margin;
        const int histogramWidth = std::clamp(inner / 5, 24, 260);
        for (int row = 0; row < 2; ++row) {
            const int y = margin + row * (rowHeight + margin);
            waveforms[row] = {margin, y, inner - histogramWidth, rowHeight};
            histograms[row] = {2 * margin + inner - histogramWidth, y, histogramWidth, rowHeight};
        }
    }

    int margin;
    C2DRectangle waveforms[2];
    C2DRectangle histograms[2];
};

/// Where a value of the range [min, max] falls over a length of pixels.
float Place(double value, double min, double max, int length) {
    return static_cast<float>((value - min) / (max - min) * (length - 1));
}

/// The row of a level: 1 at the top of a panel, -1 at its bottom.
float RowOf(double level, int height) {
    return static_cast<float>(height - 1) - Place(level, -1.0, 1.0, height);
}

int Rounded(float place) { return static_cast<int>(std::lround(place)); }

class CPanel {
public:
    /// The panel's own coordinates and clip hold while it lives.
    CPanel(IDrawSurface& target, const C2DRectangle& place)
        : surface(target), width(place.width), height(place.height) {
        surface.SaveState();
        surface.SetOrigin({place.x, place.y});
        surface.IntersectClip({0, 0, width, height});
        surface.SetFillColor(kPanel);
        surface.FillRectangle({0, 0, width, height});
    }
    CPanel(const CPanel&) = delete;
    CPanel& operator=(const CPanel&) = delete;
    ~CPanel() { surface.RestoreState(); }

    void DrawLevelGrid() {
        for (int i = 0; i <= kLevelDivisions; ++i) {
            const double level = -1.0 + 2.0 * i / kLevelDivisions;
            const int y = Rounded(RowOf(level, height));
            surface.SetPenColor(level == 0.0 ? kAxis : kGrid);
            surface.DrawLine({0, y}, {width - 1, y});
        }
    }

    void DrawTimeGrid() {
        for (int i = 0; i <= kTimeDivisions; ++i) {
            const int x = Rounded(Place(i, 0.0, kTimeDivisions, width));
            surface.SetPenColor(kGrid);
            surface.DrawLine({x, 0}, {x, height - 1});
        }
    }

    /// Short marks: time along the zero line and the bottom, twice as fine as the grid; levels
    /// along the left edge, in tenths.
    void DrawMarks() {
        surface.SetPenColor(kMark);
        const int zero = Rounded(RowOf(0.0, height));
        for (int i = 0; i <= 2 * kTimeDivisions; ++i) {
            const int x = Rounded(Place(i, 0.0, 2 * kTimeDivisions, width));
            const int length = i % 2 == 0 ? kMarkLength : kMarkLength / 2;
            surface.DrawLine({x, zero - length / 2}, {x, zero + length / 2});
            surface.DrawLine({x, height - length}, {x, height - 1});
        }
        for (int i = -10; i <= 10; ++i) {
            const int y = Rounded(RowOf(i / 10.0, height));
            surface.DrawLine({0, y}, {i % 5 == 0 ? kMarkLength : kMarkLength / 2, y});
        }
    }

    void DrawTrace(const CCurve& curve, const CChannelColors& colors) {
        std::vector<C2DFloatPoint> trace;
        trace.reserve(curve.points.size());
        for (const float shift : {-1.0F, 1.0F}) {
            ForEachRun(curve, trace, shift, colors.glow);
        }
        ForEachRun(curve, trace, 0.0F, colors.line);
    }

    /// Bars that lie on their side: their length is the share of the samples at the level of the
    /// row.
    void DrawDistribution(const CCurve& curve, const CChannelColors& colors) {
        std::vector<C2DFloatPoint> outline;
        const int count = static_cast<int>(curve.points.size());
        surface.SetFillColor(colors.bar);
        for (int y = 0; y < height; ++y) {
            const double level = 1.0 - 2.0 * y / (height - 1);
            const int index = std::clamp(Rounded(Place(level, -1.0, 1.0, count)), 0, count - 1);
            const double share =
                std::clamp(curve.points[static_cast<std::size_t>(index)].y, 0.0, 1.0);
            // The square root lets small shares be seen beside a tall one.
            const float length = static_cast<float>(std::sqrt(share) * (width - kMarkLength));
            surface.FillRectangle({0, y, Rounded(length), 1});
            outline.push_back({length, static_cast<float>(y)});
        }
        surface.SetPenColor(colors.line);
        surface.DrawSmoothPolyline(outline.data(), static_cast<int>(outline.size()));
    }

private:
    /// Draws the runs of a trace between the values that are no numbers.
    void ForEachRun(const CCurve& curve, std::vector<C2DFloatPoint>& trace, float shift,
                    const RGB& color) {
        surface.SetPenColor(color);
        trace.clear();
        const int count = static_cast<int>(curve.points.size());
        for (int i = 0; i < count; ++i) {
            const double value = curve.points[static_cast<std::size_t>(i)].y;
            if (std::isfinite(value)) {
                trace.push_back({Place(i, 0.0, count - 1, width), RowOf(value, height) + shift});
            }
            if (!std::isfinite(value) || i == count - 1) {
                surface.DrawSmoothPolyline(trace.data(), static_cast<int>(trace.size()));
                trace.clear();
            }
        }
    }

    IDrawSurface& surface;
    int width;
    int height;
};

} // namespace

int GetPicturePoints(const C2DSize& size) {
    return CLayout(size).waveforms[0].width * kPointsPerPixel;
}

void DrawScope(const std::vector<CCurve>& curves, CDIBBitmap& bitmap) {
    const auto surface = bitmap.CreateSurface();
    if (!surface) {
        return;
    }
    const C2DSize size = bitmap.GetSize();
    const CLayout layout(size);
    surface->SetFillColor(kBackground);
    surface->FillRectangle({0, 0, size.width, size.height});
    for (std::size_t channel = 0; channel < 2 && 2 * channel + 1 < curves.size(); ++channel) {
        {
            CPanel panel(*surface, layout.waveforms[channel]);
            panel.DrawTimeGrid();
            panel.DrawLevelGrid();
            panel.DrawMarks();
            panel.DrawTrace(curves[2 * channel], kChannels[channel]);
        }
        CPanel panel(*surface, layout.histograms[channel]);
        panel.DrawLevelGrid();
        panel.DrawDistribution(curves[2 * channel + 1], kChannels[channel]);
    }
}

} // namespace Workbench
