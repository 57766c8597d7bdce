#include "layout/BaseGroupLayoutCell.h"

namespace Vorin::Layout {

using Core::C2DPoint;
using Core::C2DSize;

CBaseGroupLayoutCell::CBaseGroupLayoutCell(int horizontalMargin, int verticalMargin)
    : hMargin(horizontalMargin), vMargin(verticalMargin) {}

void CBaseGroupLayoutCell::ComputeSize() {
    if (!NeedsLayout()) {
        return;
    }
    ComputeMinSize(true);
    sizesGiven = false;
    SetSize({fitWidth ? minSize.width : contentSize.width,
             fitHeight ? minSize.height : contentSize.height});
    ClearNeedsLayout();
}

void CBaseGroupLayoutCell::Place(const C2DPoint& newPosition, const C2DPoint& newRelativePosition) {
    StorePlace(newPosition);
    StoreRelativePosition(newRelativePosition);

    // The events of the first child decide for all. A cell that joined with its events off stays
    // so only at the head of its group; those who hide a whole group's changes rely on it.
    bool isFirst = true;
    bool firstEnabled = false;
    VisitChildren([&](ILayoutCell& child) {
        const bool enabled = child.EnableEvents(false);
        firstEnabled = isFirst ? enabled : firstEnabled;
        isFirst = false;
    });
    if (sizesGiven) {
        // Room is shared out anew from what the children need by themselves: shares on top of the
        // shares of an earlier pass would depend on how many passes there were.
        ComputeMinSize(true);
        sizesGiven = false;
    }
    if (PlaceContent(newPosition + GetOffset()) && firstEnabled) {
        VisitChildren([](ILayoutCell& child) { child.EnableEvents(true); });
    }
}

void CBaseGroupLayoutCell::EnableUpdates(bool enable) {
    VisitChildren([enable](ILayoutCell& child) { child.EnableUpdates(enable); });
    CLayoutCell::EnableUpdates(enable);
}

bool CBaseGroupLayoutCell::EnableEvents(bool enable) {
    VisitChildren([enable](ILayoutCell& child) { child.EnableEvents(enable); });
    return CLayoutCell::EnableEvents(enable);
}

void CBaseGroupLayoutCell::SetInternalAlignment(const CAlignment& alignment) {
    Store(internalAlign, alignment);
}

void CBaseGroupLayoutCell::SetInternalHAlign(int align) { Store(internalAlign.horizontal, align); }
void CBaseGroupLayoutCell::SetInternalVAlign(int align) { Store(internalAlign.vertical, align); }

void CBaseGroupLayoutCell::SetFitWidth(bool fit) { Store(fitWidth, fit); }
void CBaseGroupLayoutCell::SetFitHeight(bool fit) { Store(fitHeight, fit); }

void CBaseGroupLayoutCell::SetFitSize(bool fit) {
    if (fitWidth != fit || fitHeight != fit) {
        fitWidth = fit;
        fitHeight = fit;
        Invalidate();
    }
}

void CBaseGroupLayoutCell::SetContentSize(const C2DSize& newSize) { Store(contentSize, newSize); }

void CBaseGroupLayoutCell::SetHMargin(int margin) { Store(hMargin, margin); }
void CBaseGroupLayoutCell::SetVMargin(int margin) { Store(vMargin, margin); }

C2DSize CBaseGroupLayoutCell::MeasureChild(const CLayoutChild& child, bool recompute) {
    if (!recompute) {
        return child.cell->GetSize();
    }
    child.cell->ComputeSize();
    C2DSize childSize = child.cell->GetSize();
    for (const EAxis axis : {EAxis::kHorizontal, EAxis::kVertical}) {
        if (child.options.GetAxis(axis).HasFraction()) {
            On(axis, childSize) = 0;
        }
    }
    return childSize;
}

bool CBaseGroupLayoutCell::ResizeChild(const CLayoutChild& child, const C2DSize& size) {
    if (size == child.cell->GetSize()) {
        return false;
    }
    child.cell->SetSize(size);
    return true;
}

void CBaseGroupLayoutCell::PlaceChild(const CLayoutChild& child, const C2DPoint& place,
                                      const C2DPoint& origin) const {
    const auto inContent = [](int coordinate, int corner, int margin) {
        return Core::SaturateToInt(std::int64_t{coordinate} - corner - margin);
    };
    child.cell->Place(
        place, {inContent(place.x, origin.x, hMargin), inContent(place.y, origin.y, vMargin)});
}

void CBaseGroupLayoutCell::PlaceHiddenChild(const CLayoutChild& child) {
    child.cell->Place({0, 0}, {0, 0});
}

void CBaseGroupLayoutCell::ConnectChild(CLayoutChild& child) {
    child.cell->SetParent(this);
    Invalidate();
    child.options.GetChangedEvent().Connect(invalidateCommand);
}

void CBaseGroupLayoutCell::DisconnectChild(CLayoutChild& child) {
    child.options.GetChangedEvent().Disconnect(invalidateCommand);
}

void CBaseGroupLayoutCell::MeasureGivenSizes() {
    ComputeMinSize(false);
    sizesGiven = true;
}

std::int64_t CBaseGroupLayoutCell::GetInternalShift(EAxis axis) const {
    const std::int64_t room = std::int64_t{On(axis, GetSize())} - On(axis, minSize);
    switch (axis == EAxis::kHorizontal ? internalAlign.horizontal : internalAlign.vertical) {
    case kAlignCenter:
        return room / 2;
    case kAlignEnd:
        return room;
    default:
        return 0;
    }
}

} // namespace Vorin::Layout
