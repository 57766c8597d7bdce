#include "layout/GroupLayoutCell.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <utility>

namespace Vorin::Layout {

using Core::C2DPoint;
using Core::C2DSize;
using Core::SaturateToInt;

CGroupLayoutCell::CGroupLayoutCell(int horizontalMargin, int verticalMargin, int childSpacing,
                                   int type)
    : CBaseGroupLayoutCell(horizontalMargin, verticalMargin), spacing(childSpacing),
      layoutType(type) {}

CGroupLayoutCell::~CGroupLayoutCell() {
    // A child that is not owned may be gone already: it is not touched.
    for (CLayoutChild& child : children) {
        DisconnectChild(child);
        if (child.ownership == Core::kOwn) {
            delete child.cell;
        }
    }
}

void CGroupLayoutCell::Clear() {
    Children removed = std::move(children);
    children.clear();
    insertPoint = children.end();
    for (CLayoutChild& child : removed) {
        DisconnectChild(child);
        if (child.ownership == Core::kOwn) {
            delete child.cell;
        } else {
            child.cell->SetParent(nullptr);
        }
    }
    Invalidate();
}

ILayoutOptions* CGroupLayoutCell::AddChild(ILayoutCell* cell, const CLayoutOptions& options,
                                           Core::EOwnership ownership) {
    if (!cell) {
        return nullptr;
    }
    insertPoint = children.emplace(insertPoint, cell, options, ownership);
    CLayoutChild& child = *insertPoint;
    ConnectChild(child);
    ++insertPoint;
    return &child.options;
}

void CGroupLayoutCell::RemoveChild(ILayoutCell* cell, bool destroy) {
    if (const auto found = Find(cell); found != children.end()) {
        DisconnectChild(*found);
        const bool dies = destroy && found->ownership == Core::kOwn;
        children.erase(found);
        insertPoint = children.end();
        if (dies) {
            delete cell;
        } else {
            cell->SetParent(nullptr);
        }
        Invalidate();
    }
    insertPoint = children.end();
}

void CGroupLayoutCell::SetInsertAfter(ILayoutCell* cell) {
    if (GetInsertAfter() == cell) {
        return;
    }
    if (!cell) {
        insertPoint = children.begin();
        return;
    }
    insertPoint = Find(cell);
    if (insertPoint != children.end()) {
        ++insertPoint;
    }
}

ILayoutCell* CGroupLayoutCell::GetInsertAfter() const {
    const Children::const_iterator point = insertPoint;
    return point == children.begin() ? nullptr : std::prev(point)->cell;
}

void CGroupLayoutCell::SetSpacing(int pixels) {
    if (pixels != spacing) {
        spacing = pixels;
        Invalidate();
    }
}

void CGroupLayoutCell::SetLayoutType(int type) {
    if (type != layoutType) {
        layoutType = type;
        Invalidate();
    }
}

CGroupLayoutCell::Children::iterator CGroupLayoutCell::Find(const ILayoutCell* cell) {
    return std::find_if(children.begin(), children.end(),
                        [cell](const CLayoutChild& child) { return child.cell == cell; });
}

void CGroupLayoutCell::VisitChildren(const ChildVisitor& visit) const {
    for (const CLayoutChild& child : children) {
        visit(*child.cell);
    }
}

void CGroupLayoutCell::ComputeMinSize(bool recompute) {
    StoreMinSize(IsLine() ? MeasureLine(recompute) : MeasureStack(recompute));
}

C2DSize CGroupLayoutCell::MeasureLine(bool recompute) const {
    const EAxis line = GetLineAxis();
    const EAxis across = Across(line);
    std::int64_t length = GetMargin(line);
    std::int64_t thickness = 0;
    bool isEmpty = true;
    for (const CLayoutChild& child : children) {
        if (!child.cell->IsVisible()) {
            continue;
        }
        const C2DSize childSize = MeasureChild(child, recompute);
        const auto& alongOptions = child.options.GetAxis(line);
        // A position begins the run anew, also where that makes it shorter.
        length = alongOptions.hasPosition ? alongOptions.position : length;
        length += std::int64_t{On(line, childSize)} + spacing;
        const auto& acrossOptions = child.options.GetAxis(across);
        const std::int64_t before =
            acrossOptions.hasPosition ? acrossOptions.position : GetMargin(across);
        thickness = std::max(thickness, before + On(across, childSize) + GetMargin(across));
        isEmpty = false;
    }
    length += GetMargin(line) - (isEmpty ? 0 : std::int64_t{spacing});
    C2DSize needed;
    On(line, needed) = SaturateToInt(length);
    On(across, needed) = SaturateToInt(thickness);
    return needed;
}

C2DSize CGroupLayoutCell::MeasureStack(bool recompute) const {
    C2DSize needed;
    for (const CLayoutChild& child : children) {
        if (!child.cell->IsVisible()) {
            continue;
        }
        const C2DSize childSize = MeasureChild(child, recompute);
        for (const EAxis axis : {EAxis::kHorizontal, EAxis::kVertical}) {
            const auto& options = child.options.GetAxis(axis);
            const std::int64_t before = options.hasPosition ? options.position : GetMargin(axis);
            On(axis, needed) = std::max(
                On(axis, needed), SaturateToInt(before + On(axis, childSize) + GetMargin(axis)));
        }
    }
    return needed;
}

bool CGroupLayoutCell::PlaceContent(const C2DPoint& origin) {
    ApplyFractions();
    if (IsLine()) {
        ApplyFlex();
        PlaceLine(origin);
    } else {
        PlaceStack(origin);
    }
    return true;
}

void CGroupLayoutCell::ApplyFractions() {
    const C2DSize own = GetSize();
    bool changed = false;
    for (const CLayoutChild& child : children) {
        if (!child.cell->IsVisible()) {
            continue;
        }
        C2DSize childSize = child.cell->GetSize();
        for (const EAxis axis : {EAxis::kHorizontal, EAxis::kVertical}) {
            if (const auto& options = child.options.GetAxis(axis); options.HasFraction()) {
                On(axis, childSize) =
                    TakeFraction(On(axis, own), GetMargin(axis), options.fraction);
            }
        }
        changed |= ResizeChild(child, childSize);
    }
    if (changed) {
        MeasureGivenSizes();
    }
}

void CGroupLayoutCell::ApplyFlex() {
    const EAxis line = GetLineAxis();
    float flexSum = 0.0F;
    for (const CLayoutChild& child : children) {
        flexSum += child.cell->IsVisible() ? child.options.GetFlex() : 0.0F;
    }
    const int room = Core::SaturatedDifference(On(line, GetSize()), On(line, GetMinSize()));
    if (flexSum == 0.0F || room == 0) {
        return;
    }
    CFlexShares shares(static_cast<float>(room) / flexSum);
    bool changed = false;
    for (const CLayoutChild& child : children) {
        const float flex = child.options.GetFlex();
        if (child.cell->IsVisible() && flex != 0.0F) {
            C2DSize childSize = child.cell->GetSize();
            On(line, childSize) = Core::SaturatedSum(On(line, childSize), shares.Take(flex));
            changed |= ResizeChild(child, childSize);
        }
    }
    if (changed) {
        MeasureGivenSizes();
    }
}

void CGroupLayoutCell::PlaceLine(const C2DPoint& origin) {
    const EAxis line = GetLineAxis();
    std::int64_t run = std::int64_t{On(line, origin)} + GetMargin(line) + GetInternalShift(line);
    for (const CLayoutChild& child : children) {
        if (!child.cell->IsVisible()) {
            PlaceHiddenChild(child);
            continue;
        }
        const auto& options = child.options.GetAxis(line);
        // The run goes on behind a child with a position, wherever that is.
        run = options.hasPosition ? std::int64_t{On(line, origin)} + options.position : run;
        C2DPoint place;
        On(line, place) = SaturateToInt(run);
        On(Across(line), place) = AlignChild(child, Across(line), origin);
        PlaceChild(child, place, origin);
        run += std::int64_t{On(line, child.cell->GetSize())} + spacing;
    }
}

void CGroupLayoutCell::PlaceStack(const C2DPoint& origin) {
    for (const CLayoutChild& child : children) {
        // Hidden ones too: they stand where they will be shown.
        PlaceChild(child,
                   {AlignChild(child, EAxis::kHorizontal, origin),
                    AlignChild(child, EAxis::kVertical, origin)},
                   origin);
    }
}

/// Where a child stands in the whole of the cell by its position or alignment.
int CGroupLayoutCell::AlignChild(const CLayoutChild& child, EAxis axis,
                                 const C2DPoint& origin) const {
    const auto& options = child.options.GetAxis(axis);
    const std::int64_t corner = On(axis, origin);
    const std::int64_t room = std::int64_t{On(axis, GetSize())} - On(axis, child.cell->GetSize());
    if (options.hasPosition) {
        return SaturateToInt(corner + options.position);
    }
    switch (options.align) {
    case kAlignStart:
        return SaturateToInt(corner + GetMargin(axis));
    case kAlignEnd:
        return SaturateToInt(corner + room - GetMargin(axis));
    default: // in the middle of the whole, margins or not
        return SaturateToInt(corner + room / 2);
    }
}

} // namespace Vorin::Layout
