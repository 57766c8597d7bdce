#pragma once

#include "core/EventCounter.h"
#include "layout/GroupLayoutCell.h"
#include "layout/TableLayoutCell.h"

#include <list>
#include <memory>
#include <ostream>
#include <string>

namespace Vorin::Core {

inline std::ostream& operator<<(std::ostream& out, const C2DSize& size) {
    return out << size.width << 'x' << size.height;
}
inline std::ostream& operator<<(std::ostream& out, const C2DPoint& point) {
    return out << '(' << point.x << ", " << point.y << ')';
}

} // namespace Vorin::Core

namespace LayoutTest {

using Vorin::CEventCounter;
using Vorin::Core::C2DPoint;
using Vorin::Core::C2DSize;
using Vorin::Core::C2DVector;
using namespace Vorin::Layout;

/// Counts its passes and remembers where the last one put it. `Cell` is a group or a table.
template <class Cell>
class TWatched : public Cell {
public:
    using Cell::Cell;

    void Place(const C2DPoint& newPlace, const C2DPoint& newRelativePlace) override {
        ++placeCount;
        place = newPlace;
        Cell::Place(newPlace, newRelativePlace);
    }

    int placeCount = 0;
    C2DPoint place;
};

using CWatchedGroup = TWatched<CGroupLayoutCell>;
using CWatchedTable = TWatched<CTableLayoutCell>;

/// A cell of a set size without content, as one that carries a widget.
class CLeaf : public CWatchedGroup {
public:
    explicit CLeaf(const C2DSize& ownSize) : CWatchedGroup(0, 0, 0, kLayoutRow) {
        SetFitSize(false);
        SetContentSize(ownSize);
    }
};

/// Options by the name of what differs from their defaults.
inline CLayoutOptions WithFlex(float flex) {
    CLayoutOptions options;
    options.SetFlex(flex);
    return options;
}
inline CLayoutOptions WithFractions(float width, float height) {
    CLayoutOptions options;
    options.SetWidthFraction(width);
    options.SetHeightFraction(height);
    return options;
}
inline CLayoutOptions WithAlign(int horizontal, int vertical) {
    CLayoutOptions options;
    options.SetHAlign(horizontal);
    options.SetVAlign(vertical);
    return options;
}
inline CLayoutOptions WithHPosition(int position) {
    CLayoutOptions options;
    options.SetHPosition(position);
    return options;
}
inline CLayoutOptions WithVPosition(int position) {
    CLayoutOptions options;
    options.SetVPosition(position);
    return options;
}

/// Adds an owned leaf to a group.
inline CLeaf& AddLeaf(IGroupLayoutCell& group, const C2DSize& size,
                      const CLayoutOptions& options = {}) {
    auto* leaf = new CLeaf(size);
    group.AddChild(leaf, options, Vorin::Core::kOwn);
    return *leaf;
}

/// Gives a group a set size instead of its content's.
inline void SetSetSize(CBaseGroupLayoutCell& group, const C2DSize& size) {
    group.SetFitSize(false);
    group.SetContentSize(size);
}

/// The steps with which a built tree starts.
inline void Start(ILayoutCell& root, const C2DPoint& position = {0, 0}) {
    root.EnableUpdates(true);
    root.PlaceAt(position);
}

} // namespace LayoutTest
