#include "graphics/images/MultiFilmStripDrawer.h"

#include <cstdint>

namespace Vorin::Graphics {

void CMultiFilmStripDrawer::FitToImages() { SetSize(GetFrameSize(catalog.GetLargestSize())); }

Core::C2DSize CMultiFilmStripDrawer::GetFrameSize(const Core::C2DSize& strip) const {
    return vertical ? Core::C2DSize{strip.width, strip.height / frameCount}
                    : Core::C2DSize{strip.width / frameCount, strip.height};
}

Core::C2DRectangle CMultiFilmStripDrawer::GetFrameArea() const {
    return {Core::C2DPoint{}, GetFrameSize(catalog.GetElementSize(currentImage))};
}

Core::C2DVector CMultiFilmStripDrawer::GetFrameOffset() const {
    const Core::C2DSize strip = catalog.GetElementSize(currentImage);
    const std::int64_t dimension = vertical ? strip.height : strip.width;
    const int offset = Core::SaturateToInt(currentFrame * dimension / frameCount);
    return vertical ? Core::C2DVector{0, offset} : Core::C2DVector{offset, 0};
}

void CMultiFilmStripDrawer::Draw(IDrawSurface& surface, const ISimple2DRegion* region) {
    const Core::C2DRectangle area = GetArea(region).Intersect(GetFrameArea());
    if (!area.IsEmpty()) {
        catalog.Draw(currentImage, surface, area, area.GetPosition() + GetFrameOffset());
    }
}

bool CMultiFilmStripDrawer::HitTest(const Core::C2DPoint& point) {
    return GetFrameArea().Contains(point) &&
           catalog.HitTest(currentImage, point + GetFrameOffset(), {}, kHitThreshold);
}

} // namespace Vorin::Graphics
