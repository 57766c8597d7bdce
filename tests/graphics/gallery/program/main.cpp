// Writes the pictures of the gallery: graphics_gallery FOLDER [ZOOM]
// To keep what it draws as what is right, look at each picture first, then give it the folder
// tests/graphics/gallery/goldens.

#include <cairo.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "graphics/DIBBitmap.h"
#include "scenes/Scene.h"

namespace {

using namespace Vorin::Graphics;

bool WritePicture(CDIBBitmap& bitmap, const std::string& path) {
    bitmap.GetContext()->BeginCairo({});
    return cairo_surface_write_to_png(bitmap.GetContext()->GetCairoSurface(), path.c_str()) ==
           CAIRO_STATUS_SUCCESS;
}

// Each pixel as a square of `zoom` pixels.
void Enlarge(CDIBBitmap& picture, CDIBBitmap& target, int zoom) {
    const auto from = picture.CreatePixelAccess();
    const auto surface = target.CreateSurface();
    for (int y = 0; y < picture.GetSize().height; ++y)
        for (int x = 0; x < picture.GetSize().width; ++x) {
            surface->SetFillColor(from->GetPixel({x, y}));
            surface->FillRectangle({x * zoom, y * zoom, zoom, zoom});
        }
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2 || argc > 3) {
        std::fputs("usage: graphics_gallery FOLDER [ZOOM]\n", stderr);
        return 2;
    }
    const int zoom = std::clamp(argc == 3 ? std::atoi(argv[2]) : 1, 1, 16);
    for (const Testing::CScene& scene : Testing::GetScenes()) {
        CDIBBitmap bitmap(scene.size, 32);
        scene.draw(*bitmap.CreateSurface());
        CDIBBitmap large({scene.size.width * zoom, scene.size.height * zoom}, 32);
        Enlarge(bitmap, large, zoom);
        const std::string path = std::string(argv[1]) + "/" + scene.name + ".png";
        if (!WritePicture(zoom > 1 ? large : bitmap, path)) {
            std::fprintf(stderr, "%s: cannot be written\n", path.c_str());
            return 1;
        }
    }
    return 0;
}
