#include "layout/LayoutOptions.h"

namespace Vorin::Layout {

void CLayoutOptions::StoreAlign(CAxisOptions& axis, int align) {
    if (align != axis.align) {
        axis.align = align;
        changed.Notify();
    }
}

void CLayoutOptions::StorePosition(CAxisOptions& axis, int position) {
    // The first position is a change even where it is the 0 that stands there already.
    if (position != axis.position || !axis.hasPosition) {
        axis.position = position;
        axis.hasPosition = true;
        changed.Notify();
    }
}

void CLayoutOptions::StoreFloat(float& stored, float value) {
    // Deliberately not `!=`: NaN is neither less nor greater, and so is never stored.
    if (value < stored || value > stored) {
        stored = value;
        changed.Notify();
    }
}

} // namespace Vorin::Layout
