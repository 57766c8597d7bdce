// Lines at all slopes, plain and smooth; points; origin and clip; frames, fills and pen styles; all
// depths.

#include "Scene.h"

#include <cmath>
#include <numbers>

#include "graphics/DIBBitmap.h"

namespace Vorin::Graphics::Testing {
namespace {

constexpr int kRays = 48;

C2DFloatPoint OnCircle(float radius, int ray) {
    const double angle = 2.0 * std::numbers::pi * ray / kRays;
    return {80.0f + radius * static_cast<float>(std::cos(angle)),
            80.0f + radius * static_cast<float>(std::sin(angle))};
}

Core::C2DPoint ToWhole(const C2DFloatPoint& point) {
    return {static_cast<int>(std::lround(point.x)), static_cast<int>(std::lround(point.y))};
}

void DrawLineFan(IDrawSurface& surface) {
    FillGround(surface);
    for (int ray = 0; ray < kRays; ++ray) {
        surface.SetPenColor(ray % 2 ? kAccent : kWarm);
        surface.DrawLine(ToWhole(OnCircle(14.0f, ray)), ToWhole(OnCircle(74.0f, ray)));
    }
}

void DrawSmoothLineFan(IDrawSurface& surface) {
    FillGround(surface);
    for (int ray = 0; ray < kRays; ++ray) {
        surface.SetPenColor(ray % 2 ? kAccent : kWarm);
        surface.DrawSmoothLine(OnCircle(14.0f, ray), OnCircle(74.0f, ray));
    }
}

// The fan as Cairo strokes it.
void DrawPlatformLineFan(IDrawSurface& surface) {
    FillGround(surface);
    CDrawSurface platform(surface.GetContext()->GetBitmapContext());
    for (int ray = 0; ray < kRays; ++ray) {
        platform.SetPenColor(ray % 2 ? kAccent : kWarm);
        platform.DrawSmoothLine(OnCircle(14.0f, ray), OnCircle(74.0f, ray));
    }
}

void DrawCurves(IDrawSurface& surface) {
    FillGround(surface);
    std::vector<C2DFloatPoint> smooth;
    std::vector<Core::C2DPoint> whole;
    std::vector<C2DFloatPoint> dots;
    for (int i = 0; i <= 400; ++i) {
        const float x = 4.0f + 0.48f * static_cast<float>(i);
        const auto y = static_cast<float>(std::sin(i * 0.05) * std::exp(-i * 0.004));
        smooth.push_back({x, 30.0f - 24.0f * y});
        whole.push_back({static_cast<int>(x), static_cast<int>(std::lround(90.0f - 24.0f * y))});
        if (i % 8 == 0)
            dots.push_back({x, 140.0f - 24.0f * y});
    }
    surface.SetPenColor(kAccent);
    surface.DrawSmoothPolyline(smooth.data(), static_cast<int>(smooth.size()));
    surface.SetPenColor(kInk);
    surface.DrawPolyline(whole.data(), static_cast<int>(whole.size()));
    surface.SetPenColor(kWarm);
    surface.DrawSmoothPoints(dots.data(), static_cast<int>(dots.size()));
}

void DrawClips(IDrawSurface& surface) {
    FillGround(surface);
    for (int i = 0; i < 4; ++i) {
        surface.SaveState();
        surface.SetOrigin({10 + i % 2 * 75, 10 + i / 2 * 75});
        surface.IntersectClip({0, 0, 65, 65});
        FillGround(surface, {44, 52, 66});
        surface.SetPenColor(i % 2 ? kWarm : kAccent);
        for (int y = -60; y < 130; y += 9) {
            if (i / 2)
                surface.DrawSmoothLine({-20.0f, static_cast<float>(y)},
                                       {90.0f, static_cast<float>(y) + 37.5f});
            else
                surface.DrawLine({-20, y}, {90, y + 37});
        }
        surface.IntersectClip({20, 20, 25, 25});
        FillGround(surface, {90, 40, 60});
        surface.RestoreState();
    }
}

void DrawFrames(IDrawSurface& surface) {
    FillGround(surface);
    for (int style = 0; style < 5; ++style) {
        surface.SetPenColor(kInk);
        surface.SetPenStyle(style);
        surface.DrawLine({8, 8 + 6 * style}, {152, 8 + 6 * style});
    }
    for (int i = 0; i < 7; ++i) {
        surface.SetPenColor(i % 2 ? kAccent : kWarm);
        surface.DrawRectangle({8 + 4 * i, 44 + 4 * i, 60 - 8 * i, 60 - 8 * i});
    }
    for (int i = 0; i < 8; ++i) {
        surface.SetFillColor(
            {static_cast<std::uint8_t>(30 * i), 90, static_cast<std::uint8_t>(240 - 30 * i)});
        surface.FillRectangle({84 + 8 * i, 44, 8, 60 - 6 * i});
        surface.DrawRectangle({84 + 8 * i, 106, 1 + i, 1 + i});
    }
}

// What is drawn by both sides, in the four depths.
void DrawDepths(IDrawSurface& surface) {
    FillGround(surface);
    int place = 0;
    for (const int bits : {8, 16, 24, 32}) {
        CDIBBitmap bitmap({70, 70}, bits);
        const auto part = bitmap.CreateSurface();
        for (int x = 0; x < 70; ++x) {
            part->SetFillColor({static_cast<std::uint8_t>(x * 3),
                                static_cast<std::uint8_t>(120 - x),
                                static_cast<std::uint8_t>(255 - x * 3)});
            part->FillRectangle({x, 0, 1, 70});
        }
        part->SetPenColor({255, 255, 255});
        part->DrawSmoothLine({3.0f, 10.0f}, {66.0f, 30.0f});
        part->DrawLine({3, 40}, {66, 60});
        part->SetFillColor({255, 200, 0});
        part->FillRectangle({28, 22, 14, 26});
        part->SetPenColor({0, 0, 0});
        part->DrawRectangle({28, 22, 14, 26});
        surface.DrawBitmap(bitmap, {0, 0}, {7 + place % 2 * 76, 7 + place / 2 * 76}, {70, 70});
        ++place;
    }
}

} // namespace

std::vector<CScene> GetLineScenes() {
    return {{"lines", {160, 160}, DrawLineFan},
            {"smooth-lines", {160, 160}, DrawSmoothLineFan},
            {"platform-lines", {160, 160}, DrawPlatformLineFan},
            {"curves", {200, 170}, DrawCurves},
            {"clips", {160, 160}, DrawClips},
            {"frames-and-fills", {160, 120}, DrawFrames},
            {"depths", {160, 160}, DrawDepths}};
}

} // namespace Vorin::Graphics::Testing
