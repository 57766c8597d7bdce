#pragma once

#include <memory>
#include <vector>

#include "graphics/images/ImageElement.h"

namespace Vorin::Graphics {

/// The images of a widget by index: of its states, say. Slots may be empty.
///
/// GUI thread only. An index out of range is as good as that of an empty slot: it draws nothing,
/// has the size (0, 0), is not hit, and counts as transparent.
class CImageCatalog {
public:
    /// `count` empty slots; none when it is negative.
    explicit CImageCatalog(int count);
    virtual ~CImageCatalog() = default;
    CImageCatalog(const CImageCatalog&) = delete;
    CImageCatalog& operator=(const CImageCatalog&) = delete;

    int GetCount() const { return static_cast<int>(elements.size()); }

    /// Null for an empty slot. Belongs to the catalog.
    CImageElement* GetElement(int index) const;
    IImage* GetImage(int index) const;

    /// Draws the part of the image that begins at `source` into `rectangle`, unscaled.
    void Draw(int index, IDrawSurface& surface, const Core::C2DRectangle& rectangle,
              const Core::C2DPoint& source) const;

    Core::C2DSize GetElementSize(int index) const;
    bool IsTransparent(int index) const;
    bool HaveSameSize(int first, int second) const;

    /// Whether the element is hit at `point` when its top left corner lies at `origin`; see
    /// CImageElement::HitTest.
    bool HitTest(int index, const Core::C2DPoint& point, const Core::C2DPoint& origin,
                 double threshold) const;

    /// The largest width and the largest height of all elements.
    Core::C2DSize GetLargestSize() const;

protected:
    std::vector<std::unique_ptr<CImageElement>> elements;
};

/// A catalog that is filled, and may grow and shrink.
class CDynamicImageCatalog : public CImageCatalog {
public:
    explicit CDynamicImageCatalog(int count = 0) : CImageCatalog(count) {}

    /// New slots are empty; the elements of those that go are destroyed.
    void SetCount(int count);

    /// Destroys the element that was there. An index out of range destroys `element`.
    void SetElement(int index, std::unique_ptr<CImageElement> element);
};

/// How bright a pixel of a mask must be for widgets to be hit there.
inline constexpr double kHitThreshold = 0.2;

} // namespace Vorin::Graphics
