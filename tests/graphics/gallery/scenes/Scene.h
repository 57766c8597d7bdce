#pragma once

#include <vector>

#include "core/Geometry.h"
#include "graphics/DrawSurface.h"

// The gallery: one small picture for each thing that can be drawn, to be looked at, and to be
// compared with the picture that was found good.

namespace Vorin::Graphics::Testing {

struct CScene {
    const char* name; // of the file, without ".png"
    Core::C2DSize size;
    void (*draw)(IDrawSurface& surface);
};

// The pictures of each file of this folder.
std::vector<CScene> GetLineScenes();
std::vector<CScene> GetImageScenes();

// All of them.
std::vector<CScene> GetScenes();

// The ground that most scenes begin with.
inline constexpr RGB kGround{24, 28, 36};
inline constexpr RGB kInk{230, 236, 245};
inline constexpr RGB kAccent{94, 226, 205};
inline constexpr RGB kWarm{255, 179, 92};

inline void FillGround(IDrawSurface& surface, const RGB& color = kGround) {
    surface.SetFillColor(color);
    surface.FillRectangle(surface.GetClipBox());
}

} // namespace Vorin::Graphics::Testing
