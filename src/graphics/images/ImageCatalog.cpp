#include "graphics/images/ImageCatalog.h"

#include <algorithm>
#include <utility>

namespace Vorin::Graphics {

CImageCatalog::CImageCatalog(int count) : elements(static_cast<std::size_t>(std::max(count, 0))) {}

CImageElement* CImageCatalog::GetElement(int index) const {
    return index >= 0 && index < GetCount() ? elements[static_cast<std::size_t>(index)].get()
                                            : nullptr;
}

IImage* CImageCatalog::GetImage(int index) const {
    const CImageElement* element = GetElement(index);
    return element ? element->GetImage() : nullptr;
}

void CImageCatalog::Draw(int index, IDrawSurface& surface, const Core::C2DRectangle& rectangle,
                         const Core::C2DPoint& source) const {
    if (CImageElement* element = GetElement(index)) {
        element->Draw(surface, source, rectangle.GetPosition(), rectangle.GetSize());
    }
}

Core::C2DSize CImageCatalog::GetElementSize(int index) const {
    const CImageElement* element = GetElement(index);
    return element ? element->GetSize() : Core::C2DSize{};
}

bool CImageCatalog::IsTransparent(int index) const {
    const CImageElement* element = GetElement(index);
    return !element || !element->GetImage() || element->IsTransparent();
}

bool CImageCatalog::HaveSameSize(int first, int second) const {
    return GetElementSize(first) == GetElementSize(second);
}

bool CImageCatalog::HitTest(int index, const Core::C2DPoint& point, const Core::C2DPoint& origin,
                            double threshold) const {
    const CImageElement* element = GetElement(index);
    return element && element->HitTest(Core::C2DPoint{} + (point - origin), threshold);
}

Core::C2DSize CImageCatalog::GetLargestSize() const {
    Core::C2DSize largest;
    for (int i = 0; i < GetCount(); ++i) {
        const Core::C2DSize size = GetElementSize(i);
        largest = {std::max(largest.width, size.width), std::max(largest.height, size.height)};
    }
    return largest;
}

void CDynamicImageCatalog::SetCount(int count) {
    elements.resize(static_cast<std::size_t>(std::max(count, 0)));
}

void CDynamicImageCatalog::SetElement(int index, std::unique_ptr<CImageElement> element) {
    if (index >= 0 && index < GetCount()) {
        elements[static_cast<std::size_t>(index)] = std::move(element);
    }
}

} // namespace Vorin::Graphics
