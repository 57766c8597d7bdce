// The curve routines beside Cairo's, on the same points and a picture of the same format and size;
// then images beside the libraries that they stand on.
//
// Ends with one line per ratio: for curves, how many times longer Cairo takes; for images, how many
// times as long as the library alone we take. The two sides take turns, and each is judged by its
// fastest pass.

#include <benchmark/benchmark.h>
#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include "bench/ImagePeers.h"
#include "bench/Ratio.h"
#include "graphics/DIBBitmap.h"
#include "graphics/images/ImageFile.h"
#include "graphics/images/ImageGraphics.h"
#include "graphics/images/MultiFilmStripDrawer.h"

namespace {

using Vorin::Core::C2DPoint;
using Vorin::Graphics::C2DFloatPoint;
using Vorin::Graphics::CDIBBitmap;
using Vorin::Graphics::IDrawSurface;
using Vorin::Graphics::RGB;

constexpr int kWidth = 800;
constexpr int kHeight = 300;
constexpr int kPoints = 1600; // two a pixel
constexpr RGB kColor{40, 220, 120};

struct Curve {
    const char* name;
    std::vector<C2DFloatPoint> smooth;
    std::vector<C2DPoint> whole;
};

template <class F>
Curve MakeCurve(const char* name, F getY) {
    Curve curve{name, {}, {}};
    for (int i = 0; i < kPoints; ++i) {
        const float x = 0.5f * static_cast<float>(i) * (kWidth - 1) / (kWidth - 0.5f);
        const float y = static_cast<float>(std::clamp(getY(i), 0.0, kHeight - 1.0));
        curve.smooth.push_back({x, y});
        curve.whole.push_back({static_cast<int>(x + 0.5f), static_cast<int>(y + 0.5f)});
    }
    return curve;
}

// A tone with some noise on it, as a wave form shows it.
Curve MakeSine() {
    std::mt19937 random(1);
    std::normal_distribution<double> noise(0.0, 4.0);
    return MakeCurve("sine", [&](int i) {
        return kHeight * 0.5 + 120.0 * std::sin(i * 2.0 * std::numbers::pi * 7.0 / kPoints) +
               noise(random);
    });
}

// White noise over the full height: the longest segments there can be.
Curve MakeNoise() {
    std::mt19937 random(2);
    std::uniform_real_distribution<double> noise(0.0, kHeight - 1.0);
    return MakeCurve("noise", [&](int) { return noise(random); });
}

const std::vector<Curve>& GetCurves() {
    static const std::vector<Curve> curves{MakeSine(), MakeNoise()};
    return curves;
}

class OwnPicture {
public:
    OwnPicture() : bitmap({kWidth, kHeight}, 32), surface(bitmap.CreateSurface()) {
        surface->SetPenColor(kColor);
    }
    void DrawSmooth(const Curve& curve) {
        surface->DrawSmoothPolyline(curve.smooth.data(), kPoints);
    }
    void DrawWhole(const Curve& curve) { surface->DrawPolyline(curve.whole.data(), kPoints); }

private:
    CDIBBitmap bitmap;
    std::unique_ptr<IDrawSurface> surface;
};

class CairoPicture {
public:
    CairoPicture()
        : picture(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kWidth, kHeight)),
          context(cairo_create(picture)) {
        cairo_set_line_width(context, 1.0);
        cairo_set_source_rgb(context, kColor.red / 255.0, kColor.green / 255.0,
                             kColor.blue / 255.0);
    }
    ~CairoPicture() {
        cairo_destroy(context);
        cairo_surface_destroy(picture);
    }
    CairoPicture(const CairoPicture&) = delete;
    CairoPicture& operator=(const CairoPicture&) = delete;

    void DrawSmooth(const Curve& curve) { Stroke(curve.smooth, CAIRO_ANTIALIAS_DEFAULT); }
    void DrawWhole(const Curve& curve) { Stroke(curve.whole, CAIRO_ANTIALIAS_NONE); }

private:
    // Pixel centres lie half a pixel in.
    template <class Points>
    void Stroke(const Points& points, cairo_antialias_t antialias) {
        cairo_set_antialias(context, antialias);
        cairo_move_to(context, points[0].x + 0.5, points[0].y + 0.5);
        for (std::size_t i = 1; i < points.size(); ++i)
            cairo_line_to(context, points[i].x + 0.5, points[i].y + 0.5);
        cairo_stroke(context);
        if (cairo_status(context) != CAIRO_STATUS_SUCCESS)
            std::abort();
    }

    cairo_surface_t* picture;
    cairo_t* context;
};

template <class Picture, void (Picture::*Draw)(const Curve&)>
void DrawCurve(benchmark::State& state) {
    const Curve& curve = GetCurves()[static_cast<std::size_t>(state.range(0))];
    Picture picture;
    for (auto _ : state)
        (picture.*Draw)(curve);
    state.SetLabel(curve.name);
    state.SetItemsProcessed(state.iterations() * (kPoints - 1));
}

BENCHMARK(DrawCurve<OwnPicture, &OwnPicture::DrawSmooth>)->Arg(0)->Arg(1);
BENCHMARK(DrawCurve<CairoPicture, &CairoPicture::DrawSmooth>)->Arg(0)->Arg(1);
BENCHMARK(DrawCurve<OwnPicture, &OwnPicture::DrawWhole>)->Arg(0)->Arg(1);
BENCHMARK(DrawCurve<CairoPicture, &CairoPicture::DrawWhole>)->Arg(0)->Arg(1);

/// How many times as fast as Cairo we draw.
template <class OwnDraw, class CairoDraw>
void PrintRatio(const std::string& name, double limit, OwnDraw own, CairoDraw cairo) {
    Bench::PrintRatio(name.c_str(), Bench::MeasureRatio(cairo, 2, own, 20), limit);
}

void PrintRatios() {
    OwnPicture own;
    CairoPicture cairo;
    for (const Curve& curve : GetCurves())
        PrintRatio(
            std::string("DrawSmoothPolyline/") + curve.name, 15.0, [&] { own.DrawSmooth(curve); },
            [&] { cairo.DrawSmooth(curve); });
    for (const Curve& curve : GetCurves())
        PrintRatio(
            std::string("DrawPolyline/") + curve.name, 10.0, [&] { own.DrawWhole(curve); },
            [&] { cairo.DrawWhole(curve); });
}

void PrintPngRatio() {
    const Bench::CBenchFile file("graphics_bench.png", Bench::MakePng(2000, 2000));
    const double ratio = Bench::MeasureRatio(
        [&] { Bench::MustHold(Vorin::Graphics::LoadImageFile(file.path.c_str()).hasAlpha); }, 1,
        [&] { Bench::DecodeBare(file.path); }, 1);
    Bench::PrintRatio("LoadPng/2000x2000", ratio, 1.3);
}

std::unique_ptr<Vorin::Graphics::CImageElement>
MakeElement(const std::shared_ptr<Vorin::Graphics::CPlatformImage>& image, bool opaque) {
    auto handle = std::make_unique<Vorin::Graphics::CImage>(image);
    if (opaque) {
        return std::make_unique<Vorin::Graphics::CNormalImageElement>(std::move(handle));
    }
    return std::make_unique<Vorin::Graphics::CAlphaImageElement>(std::move(handle), 255);
}

/// A knob of 64 frames, redrawn in one frame after the other.
void PrintFilmStripRatio(int side, bool opaque) {
    constexpr int kFrames = 64;
    const auto strip = Bench::MakeBenchImage({side, side * kFrames}, opaque);
    Vorin::Graphics::CMultiFilmStripDrawer drawer;
    drawer.GetCatalog().SetCount(1);
    drawer.GetCatalog().SetElement(0, MakeElement(strip, opaque));
    drawer.SetFrameCount(kFrames);
    drawer.FitToImages();
    CDIBBitmap bitmap({kWidth, kHeight}, 32);
    const auto surface = bitmap.CreateSurface();
    Bench::CBareCairo cairo(kWidth, kHeight);
    int frame = 0;
    int cairoFrame = 0;
    const double ratio = Bench::MeasureRatio(
        [&] {
            drawer.SetCurrentFrame(++frame % kFrames);
            drawer.Draw(*surface, nullptr);
        },
        512,
        [&] {
            cairo.Blit(strip->GetCairoSurface(), 0, ++cairoFrame % kFrames * side, 0, 0, side,
                       side);
        },
        512, 100);
    const std::string name = "FilmStripFrame/" + std::to_string(side) + (opaque ? "" : "/alpha");
    Bench::PrintRatio(name.c_str(), ratio, 1.3);
}

/// A background of tiles, all of it and a dirty part.
void PrintTilesRatio(int side, bool opaque, const Vorin::Core::C2DRectangle& dirty) {
    const auto tile = Bench::MakeBenchImage({side, side}, opaque);
    Vorin::Graphics::CImageGraphics graphics;
    graphics.SetElement(MakeElement(tile, opaque));
    graphics.SetDrawMode(Vorin::Graphics::CImageGraphics::kRepeat);
    graphics.SetSize({kWidth, kHeight});
    const Vorin::Graphics::CSimple2DRegion region(dirty);
    CDIBBitmap bitmap({kWidth, kHeight}, 32);
    const auto surface = bitmap.CreateSurface();
    Bench::CBareCairo cairo(kWidth, kHeight);
    const double ratio = Bench::MeasureRatio(
        [&] { graphics.Draw(*surface, &region); }, 100,
        [&] { cairo.Repeat(tile->GetCairoSurface(), dirty.x, dirty.y, dirty.width, dirty.height); },
        100);
    const std::string name = "Tiles/" + std::to_string(side) + "/" + std::to_string(dirty.width) +
                             "x" + std::to_string(dirty.height) + (opaque ? "" : "/alpha");
    Bench::PrintRatio(name.c_str(), ratio, 1.5);
}

void PrintImageRatios() {
    PrintPngRatio();
    for (const bool opaque : {true, false}) {
        for (const int side : {32, 64, 128}) {
            PrintFilmStripRatio(side, opaque);
        }
        for (const int side : {4, 16, 64, 256}) {
            PrintTilesRatio(side, opaque, {0, 0, kWidth, kHeight});
            PrintTilesRatio(side, opaque, {37, 53, 100, 60});
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    if (!Bench::RunBenchmarks(argc, argv)) {
        return 1;
    }
    PrintRatios();
    PrintImageRatios();
    return 0;
}
