// What it costs to paint a text again: a text of 20 characters through the shared font, beside the
// text library's own drawing of a layout that was prepared for it.
//
// The program ends with one line per ratio: `ratio NAME VALUE (limit LIMIT)`.

#include "bench/Ratio.h"
#include "graphics/DIBBitmap.h"
#include "graphics/text/SharedFont.h"

#include <benchmark/benchmark.h>
#include <pango/pangocairo.h>

#include <memory>
#include <string>

namespace {

using namespace Vorin;
using namespace Vorin::Graphics;

constexpr char kText[] = "Trigger level 0.5 dB";
static_assert(sizeof(kText) - 1 == 20);
constexpr int kFontSize = 12;
const Core::C2DRectangle kArea(10, 10, 200, 20);

CFontValues MakeFont() {
    CFontValues values;
    values.face = "DejaVu Sans";
    values.height = kFontSize;
    return values;
}

/// A surface with the shared font, as a text widget paints on it.
class CSharedFontSide {
public:
    CSharedFontSide() {
        surface->SetFont(&font);
        surface->SetTextMode(1);
    }

    void DrawText() { surface->DrawText(kText, {10, 10}); }
    void DrawTextInRect() { surface->DrawTextInRect(kText, kArea, {}); }
    /// All that a widget does at a paint.
    void PaintWidget() {
        surface->SaveState();
        surface->SetPenColor({255, 255, 255});
        surface->SetTextMode(1);
        surface->SetFont(&font);
        surface->DrawTextInRect(kText, kArea, {});
        surface->RestoreState();
    }
    /// A text that was not seen before.
    void DrawNewText() {
        const std::string text = "Trigger level " + std::to_string(100000 + counter++ % 100000);
        surface->DrawText(text.c_str(), {10, 10});
    }

private:
    CDIBBitmap bitmap{{320, 200}, 32};
    std::unique_ptr<IDrawSurface> surface{bitmap.CreateSurface()};
    CSharedFont font{MakeFont()};
    int counter = 0;
};

/// The same by hand.
class CPreparedLayoutSide {
public:
    CPreparedLayoutSide() {
        surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 320, 200);
        cairo = cairo_create(surface);
        layout = pango_cairo_create_layout(cairo);
        PangoFontDescription* font = pango_font_description_from_string("DejaVu Sans");
        pango_font_description_set_absolute_size(font, kFontSize * PANGO_SCALE);
        pango_layout_set_font_description(layout, font);
        pango_font_description_free(font);
        pango_layout_set_text(layout, kText, -1);
    }
    ~CPreparedLayoutSide() {
        g_object_unref(layout);
        cairo_destroy(cairo);
        cairo_surface_destroy(surface);
    }
    CPreparedLayoutSide(const CPreparedLayoutSide&) = delete;
    CPreparedLayoutSide& operator=(const CPreparedLayoutSide&) = delete;

    void Draw() {
        cairo_set_source_rgb(cairo, 0.0, 0.0, 0.0);
        cairo_move_to(cairo, 10.0, 10.0);
        pango_cairo_show_layout(cairo, layout);
    }

private:
    cairo_surface_t* surface;
    cairo_t* cairo;
    PangoLayout* layout;
};

void BM_SharedFont(benchmark::State& state) {
    CSharedFontSide side;
    for (auto _ : state) {
        side.DrawText();
    }
}
BENCHMARK(BM_SharedFont);

void BM_SharedFontInRect(benchmark::State& state) {
    CSharedFontSide side;
    for (auto _ : state) {
        side.DrawTextInRect();
    }
}
BENCHMARK(BM_SharedFontInRect);

void BM_Widget(benchmark::State& state) {
    CSharedFontSide side;
    for (auto _ : state) {
        side.PaintWidget();
    }
}
BENCHMARK(BM_Widget);

void BM_NewText(benchmark::State& state) {
    CSharedFontSide side;
    for (auto _ : state) {
        side.DrawNewText();
    }
}
BENCHMARK(BM_NewText);

void BM_PreparedLayout(benchmark::State& state) {
    CPreparedLayoutSide side;
    for (auto _ : state) {
        side.Draw();
    }
}
BENCHMARK(BM_PreparedLayout);

} // namespace

int main(int argc, char** argv) {
    if (!Bench::RunBenchmarks(argc, argv)) {
        return 1;
    }
    CSharedFontSide shared;
    CPreparedLayoutSide prepared;
    const auto draw = [&] { prepared.Draw(); };
    Bench::PrintRatio("text_draw_to_prepared_layout",
                      Bench::MeasureRatio([&] { shared.DrawText(); }, 2000, draw, 2000), 1.5);
    Bench::PrintRatio("text_draw_in_rect_to_prepared_layout",
                      Bench::MeasureRatio([&] { shared.DrawTextInRect(); }, 2000, draw, 2000), 1.5);
    return 0;
}
