#include "layout/LayoutCell.h"

#include "layout/BaseGroupLayoutCell.h"

namespace Vorin::Layout {

using Core::C2DPoint;
using Core::C2DSize;
using Core::C2DVector;

void CLayoutCell::SetSize(const C2DSize& newSize) {
    if (newSize == size || (widthForced && heightForced)) {
        return;
    }
    if (!heightForced) {
        size.height = newSize.height;
    }
    if (!widthForced) {
        size.width = newSize.width;
    }
    // Also where only the forced side differs: what has been asked for is another size.
    needsLayout = true;
    sizeChanged.Notify();
}

void CLayoutCell::PlaceAt(const C2DPoint& newPosition) {
    ComputeSize();
    Place(newPosition, {0, 0});
}

void CLayoutCell::Place(const C2DPoint& newPosition, const C2DPoint& newRelativePosition) {
    StorePlace(newPosition);
    StoreRelativePosition(newRelativePosition);
}

void CLayoutCell::StoreRelativePosition(const C2DPoint& newPosition) {
    if (newPosition != relativePosition) {
        relativePosition = newPosition;
        positionChanged.Notify();
    }
}

void CLayoutCell::Detach() {
    if (parent) {
        parent->RemoveChild(this, false);
        parent = nullptr;
    }
}

void CLayoutCell::SetVisible(bool show) {
    if (show != visible) {
        visible = show;
        visibilityChanged = true;
        Invalidate();
    }
}

bool CLayoutCell::IsVisibleInTree() const {
    return visible && (!parent || parent->IsVisibleInTree());
}

void CLayoutCell::EnableUpdates(bool enable) {
    const bool switchedOn = enable && !updatesEnabled;
    updatesEnabled = enable;
    if (switchedOn && needsLayout) {
        Invalidate();
    }
}

void CLayoutCell::Invalidate() {
    // A size that somebody gave may be, by chance, the one that the cell computes now. The parent
    // must hear of it all the same: it shared out its room by what the cell computed before.
    const bool sizeWasGiven = needsLayout;
    needsLayout = true;
    if (!updatesEnabled) {
        return;
    }
    const bool eventsWereEnabled = EnableEvents(false);
    const C2DSize oldSize = size;
    ComputeSize();
    if (parent && (visibilityChanged || sizeWasGiven || size != oldSize)) {
        parent->Invalidate();
    } else {
        Place(position, relativePosition);
    }
    visibilityChanged = false;
    if (eventsWereEnabled) {
        EnableEvents(true);
    }
}

bool CLayoutCell::EnableEvents(bool enable) {
    if (enable == eventsEnabled) {
        return eventsEnabled;
    }
    eventsEnabled = enable;
    sizeChanged.SetEnabled(enable);
    positionChanged.SetEnabled(enable);
    if (!enable) {
        cachedSize = size;
        cachedPosition = relativePosition;
        return true;
    }
    // Both compared before the first listener runs: what it changes fires by itself.
    const bool sizeDiffers = size != cachedSize;
    const bool positionDiffers = relativePosition != cachedPosition;
    if (sizeDiffers) {
        sizeChanged.Notify();
    }
    if (positionDiffers) {
        positionChanged.Notify();
    }
    return false;
}

void CLayoutCell::SetFixedSize(const C2DSize& fixedSize) {
    widthForced = true;
    heightForced = true;
    StoreFixedSize(fixedSize);
}

void CLayoutCell::SetFixedHeight(int height) {
    heightForced = true;
    StoreFixedSize({size.width, height});
}

void CLayoutCell::SetFixedWidth(int width) {
    widthForced = true;
    StoreFixedSize({width, size.height});
}

void CLayoutCell::StoreFixedSize(const C2DSize& fixedSize) {
    if (fixedSize != size) {
        size = fixedSize;
        OnFixedSizeChanged();
    } else if (needsLayout) {
        // So far the side was only given; as a fixed one it counts in the parent's own size.
        Invalidate();
    }
}

void CLayoutCell::SetOffset(const C2DVector& distance) {
    if (distance != offset) {
        offset = distance;
        Place(position, relativePosition);
    }
}

void CLayoutCell::OnFixedSizeChanged() {
    needsLayout = true;
    sizeChanged.Notify();
    if (!updatesEnabled) {
        return;
    }
    if (parent) {
        parent->Invalidate();
    } else {
        Place(position, relativePosition);
    }
}

} // namespace Vorin::Layout
