// Images in the three modes, with alpha; film strips; masks; layers.

#include "Scene.h"

#include <algorithm>
#include <cmath>

#include "graphics/DrawLayer.h"
#include "graphics/TestImage.h"
#include "graphics/images/ImageGraphics.h"
#include "graphics/images/MultiFilmStripDrawer.h"

namespace Vorin::Graphics::Testing {
namespace {

std::uint32_t Premultiplied(double alpha, const RGB& color) {
    const double a = std::clamp(alpha, 0.0, 1.0);
    const auto channel = [a](std::uint8_t value) {
        return static_cast<std::uint32_t>(std::lround(value * a));
    };
    return static_cast<std::uint32_t>(std::lround(255 * a)) << 24 | channel(color.red) << 16 |
           channel(color.green) << 8 | channel(color.blue);
}

// A round knob with soft edges, its hand at `turn` of the way from left below to right below.
std::uint32_t GetKnobPixel(int x, int y, int side, double turn) {
    const double radius = side / 2.0;
    const double dx = x + 0.5 - radius;
    const double dy = y + 0.5 - radius;
    const double angle = (0.75 + 1.5 * turn) * 3.14159265358979;
    const double along = dx * std::cos(angle) + dy * std::sin(angle);
    const double across = std::abs(dy * std::cos(angle) - dx * std::sin(angle));
    const bool isHand = along > radius * 0.2 && along < radius * 0.8 && across < side / 20.0;
    const auto shade = static_cast<std::uint8_t>(150 - 80 * dy / radius);
    return Premultiplied(radius - std::hypot(dx, dy),
                         isHand ? kWarm : RGB{shade, shade, static_cast<std::uint8_t>(shade + 20)});
}

std::unique_ptr<CImage> MakeKnobStrip(int side, int frames) {
    return MakeImage({side * frames, side}, [=](int x, int y) {
        return GetKnobPixel(x % side, y, side, static_cast<double>(x / side) / (frames - 1));
    });
}

// An opaque picture with a corner of its own on each side.
std::unique_ptr<CImage> MakeTile() {
    return MakeImage({32, 24}, [](int x, int y) {
        const bool isEdge = x == 0 || y == 0;
        const bool isCorner = x < 8 && y < 8;
        return isEdge     ? 0xFF5EE2CDu
               : isCorner ? 0xFFFFB35Cu
                          : 0xFF203040u + static_cast<unsigned>(x * 3) * 0x10000u +
                                static_cast<unsigned>(y * 4) * 0x100u;
    });
}

void DrawChecker(IDrawSurface& surface) {
    const Core::C2DRectangle area = surface.GetClipBox();
    for (int y = 0; y < area.height; y += 8)
        for (int x = 0; x < area.width; x += 8) {
            const bool isLight = (x + y) / 8 % 2 == 0;
            surface.SetFillColor(isLight ? RGB{110, 110, 110} : RGB{70, 70, 70});
            surface.FillRectangle({x, y, 8, 8});
        }
}

void DrawMode(IDrawSurface& surface, int mode) {
    DrawChecker(surface);
    CImageGraphics graphics;
    graphics.SetElement(std::make_unique<CNormalImageElement>(MakeTile()));
    graphics.SetDrawMode(mode);
    graphics.SetSize({140, 100});
    surface.SetOrigin({10, 10});
    graphics.Draw(surface, nullptr);
}

void DrawPlainImage(IDrawSurface& surface) { DrawMode(surface, CImageGraphics::kPlain); }
void DrawTiles(IDrawSurface& surface) { DrawMode(surface, CImageGraphics::kRepeat); }
void DrawStretched(IDrawSurface& surface) { DrawMode(surface, CImageGraphics::kStretch); }

// Only a part, which begins in the middle of a tile.
void DrawTilesInPart(IDrawSurface& surface) {
    DrawChecker(surface);
    CImageGraphics graphics;
    graphics.SetElement(std::make_unique<CNormalImageElement>(MakeTile()));
    graphics.SetDrawMode(CImageGraphics::kRepeat);
    graphics.SetSize({160, 120});
    const CSimple2DRegion region(Core::C2DRectangle{48, 37, 70, 50});
    graphics.Draw(surface, &region);
}

void DrawAlpha(IDrawSurface& surface) {
    DrawChecker(surface);
    int x = 6;
    for (const int alpha : {255, 170, 85, 20}) {
        CAlphaImageElement element(MakeKnobStrip(36, 2), alpha);
        element.Draw(surface, {0, 0}, {x, 6}, {36, 36});
        element.Stretch(surface, {36, 0, 36, 36}, {x, 48, 36, 50});
        x += 40;
    }
    CNormalImageElement(MakeKnobStrip(36, 2)).Stretch(surface, {0, 0, 36, 36}, {6, 104, 12, 12});
    CNormalImageElement(MakeKnobStrip(36, 2)).Stretch(surface, {0, 0, 36, 36}, {24, 104, 120, 12});
}

void DrawStrip(IDrawSurface& surface) {
    FillGround(surface);
    CMultiFilmStripDrawer drawer;
    drawer.GetCatalog().SetCount(1);
    drawer.GetCatalog().SetElement(
        0, std::make_unique<CAlphaImageElement>(MakeKnobStrip(40, 12), 255));
    drawer.SetFrameCount(12);
    drawer.SetVertical(false);
    drawer.FitToImages();
    for (int frame = 0; frame < 12; ++frame) {
        surface.SaveState();
        surface.SetOrigin({8 + frame % 4 * 48, 8 + frame / 4 * 48});
        drawer.SetCurrentFrame(frame);
        drawer.Draw(surface, nullptr);
        surface.RestoreState();
    }
}

// Where the knob is hit by the mouse: a point wherever it is.
void DrawMask(IDrawSurface& surface) {
    FillGround(surface);
    CNormalImageElement element(MakeKnobStrip(60, 2));
    element.SetMask(MakeImage({60, 60}, [](int x, int y) {
        const double distance = std::hypot(x - 29.5, y - 29.5);
        return 0xFF000000u |
               static_cast<unsigned>(std::clamp(255 - distance * 7, 0.0, 255.0)) * 0x010101u;
    }));
    element.Draw(surface, {0, 0}, {10, 10}, {60, 60});
    surface.DrawImage(*element.GetMask(), {0, 0}, {80, 10}, {60, 60});
    surface.SetPenColor(kAccent);
    for (int y = 0; y < 60; y += 2)
        for (int x = 0; x < 60; x += 2)
            if (element.HitTest({x, y}, kHitThreshold)) {
                surface.DrawPoint({10 + x, 10 + y});
                surface.DrawPoint({80 + x, 10 + y});
            }
}

void DrawLayers(IDrawSurface& surface) {
    DrawChecker(surface);
    CDrawLayer layer({60, 60});
    const auto sheet = layer.CreateSurface();
    sheet->SetFillColor({94, 226, 205});
    sheet->FillRectangle({0, 0, 40, 40});
    sheet->SetFillColor({255, 179, 92});
    sheet->FillRectangle({20, 20, 40, 40});
    sheet->SetPenColor({255, 255, 255});
    sheet->DrawSmoothLine({2.0f, 5.0f}, {57.0f, 52.0f});
    surface.DrawLayer(layer, {10, 10});
    surface.DrawLayerAlpha(layer, {80, 10}, 128);
    surface.StretchLayer(layer, {10, 80, 130, 30});
}

} // namespace

std::vector<CScene> GetImageScenes() {
    return {{"image-plain", {160, 120}, DrawPlainImage},
            {"image-repeat", {160, 120}, DrawTiles},
            {"image-repeat-part", {160, 120}, DrawTilesInPart},
            {"image-stretch", {160, 120}, DrawStretched},
            {"image-alpha", {168, 122}, DrawAlpha},
            {"film-strip", {200, 152}, DrawStrip},
            {"mask", {150, 80}, DrawMask},
            {"layers", {150, 120}, DrawLayers}};
}

} // namespace Vorin::Graphics::Testing
