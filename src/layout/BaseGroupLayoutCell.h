#pragma once

#include "core/Command.h"
#include "layout/LayoutCell.h"
#include "layout/LayoutChild.h"

#include <functional>

namespace Vorin::Layout {

/// A cell with children. GUI thread only.
class IGroupLayoutCell : public virtual ILayoutCell {
public:
    /// Adds `cell` at the insert point, with a copy of `options`, and moves the insert point behind
    /// it. With `kOwn` the group destroys the cell. Gives the cell's options, to be changed later;
    /// they live as long as the cell is in the group. Null for a null cell.
    virtual ILayoutOptions* AddChild(ILayoutCell* cell, const CLayoutOptions& options,
                                     Core::EOwnership ownership) = 0;

    /// Takes `cell` out, and destroys it when it is owned and `destroy` is set. The insert point
    /// goes to the end, also when the cell is not in the group.
    virtual void RemoveChild(ILayoutCell* cell, bool destroy) = 0;

    /// Moves the insert point behind `cell`: to the start for null, to the end for a cell that is
    /// not in the group.
    virtual void SetInsertAfter(ILayoutCell* cell) = 0;

    /// The cell before the insert point, or null.
    virtual ILayoutCell* GetInsertAfter() const = 0;
};

/// What rows, columns, stacks and tables share: margins, the choice between the content's extent
/// and a set one on each axis, and the frame of a layout pass.
///
/// Setters compare, store and invalidate.
class CBaseGroupLayoutCell : public CLayoutCell, public virtual IGroupLayoutCell {
public:
    /// How the content stands in a cell that is larger or smaller: `kAlignStart` and so on.
    struct CAlignment {
        int horizontal = kAlignStart;
        int vertical = kAlignStart;

        friend constexpr bool operator==(const CAlignment&, const CAlignment&) = default;
    };

    /// Margins in pixels, kept on both sides of the content.
    CBaseGroupLayoutCell(int hMargin, int vMargin);

    void ComputeSize() override;
    void Place(const Core::C2DPoint& newPosition,
               const Core::C2DPoint& newRelativePosition) override;
    void EnableUpdates(bool enable) override;
    bool EnableEvents(bool enable) override;

    virtual void SetInternalAlignment(const CAlignment& alignment);
    virtual void SetInternalHAlign(int align);
    virtual int GetInternalHAlign() const { return internalAlign.horizontal; }
    virtual void SetInternalVAlign(int align);
    virtual int GetInternalVAlign() const { return internalAlign.vertical; }

    /// Whether the width follows the content; else it is that of `SetContentSize`.
    virtual void SetFitWidth(bool fit);
    /// Both axes.
    virtual void SetFitSize(bool fit);
    virtual void SetFitHeight(bool fit);
    /// The size on an axis where fit is off.
    virtual void SetContentSize(const Core::C2DSize& size);

    virtual void SetHMargin(int margin);
    virtual int GetHMargin() const { return hMargin; }
    virtual void SetVMargin(int margin);
    virtual int GetVMargin() const { return vMargin; }

    /// Finds the size that the visible content needs, margins included. With `recompute` the
    /// children compute their own sizes first, and one that takes a fraction needs nothing on that
    /// axis; else their sizes count as they stand.
    virtual void ComputeMinSize(bool recompute) = 0;

protected:
    using ChildVisitor = std::function<void(ILayoutCell&)>;

    /// All children in order, visible or not.
    virtual void VisitChildren(const ChildVisitor& visit) const = 0;
    /// Sizes and places the children in the cell as large as it is now, its corner at `origin`.
    /// False when it could not: then the events of the children stay off.
    virtual bool PlaceContent(const Core::C2DPoint& origin) = 0;

    /// A child's size for `ComputeMinSize`.
    static Core::C2DSize MeasureChild(const CLayoutChild& child, bool recompute);
    /// Gives a child another size; false when it has it already.
    static bool ResizeChild(const CLayoutChild& child, const Core::C2DSize& size);
    /// Places a child whose corner is at `place`, with the cell's corner at `origin`.
    void PlaceChild(const CLayoutChild& child, const Core::C2DPoint& place,
                    const Core::C2DPoint& origin) const;
    /// What a hidden child gets.
    static void PlaceHiddenChild(const CLayoutChild& child);

    /// Connects the cell to what `child` asks for, and the other way round.
    void ConnectChild(CLayoutChild& child);
    void DisconnectChild(CLayoutChild& child);

    /// To be called by `PlaceContent` after it gave sizes to children.
    void MeasureGivenSizes();
    /// How far the content is moved along `axis` where it leaves room or lacks it.
    std::int64_t GetInternalShift(EAxis axis) const;

    int GetMargin(EAxis axis) const { return axis == EAxis::kHorizontal ? hMargin : vMargin; }
    const Core::C2DSize& GetMinSize() const { return minSize; }
    void StoreMinSize(const Core::C2DSize& needed) { minSize = needed; }

private:
    template <class T>
    void Store(T& stored, const T& value) {
        if (!(value == stored)) {
            stored = value;
            Invalidate();
        }
    }

    Core::TCommand<CLayoutCell> invalidateCommand{this, &CLayoutCell::Invalidate};
    int hMargin;
    int vMargin;
    Core::C2DSize contentSize;
    CAlignment internalAlign;
    bool fitWidth = true;
    bool fitHeight = true;
    Core::C2DSize minSize;
    // Set while children have sizes that `PlaceContent` gave them.
    bool sizesGiven = false;
};

} // namespace Vorin::Layout
