#pragma once

#include "core/2DSize.h"
#include "core/EventProvider.h"
#include "core/Geometry.h"
#include "core/Ownership.h"

namespace Vorin::Layout {

class IGroupLayoutCell;
class CLayoutOptions;
class ILayoutOptions;

/// A node of the layout tree: a rectangle with a size, a place and a visibility.
///
/// GUI thread only; nothing locks. Coordinates are pixels, y growing downwards.
///
/// To lay out a tree:
/// 1. Build it. Cells start with updates off, so nothing is computed yet.
/// 2. Call `EnableUpdates(true)` on the root.
/// 3. Call `PlaceAt` on the root.
/// From there on every change of a cell, its options or its children lays out again what it
/// touches. A cell that is added later gets its own `EnableUpdates(true)`.
///
/// Sizes may be negative inside a layout; who shows a cell takes a negative side as 0. Listeners of
/// the two events may change any setting, but must not add or remove cells.
class ILayoutCell : public virtual Graphics::I2DSize {
public:
    /// Where a side is forced it stays. The given size holds until the next time the cell computes
    /// its own.
    void SetSize(const Core::C2DSize& size) override = 0;

    /// Removes all children and destroys the owned ones.
    virtual void Clear() = 0;

    /// Computes the size, then places the cell and all below it.
    virtual void PlaceAt(const Core::C2DPoint& position) = 0;
    /// The same where the cell stands.
    virtual void Relayout() = 0;

    /// Brings the size up to date when something changed.
    virtual void ComputeSize() = 0;
    /// Puts the cell at `position` in the coordinates of its drawing space, which is at
    /// `relativePosition` within its parent's content, and places its children.
    virtual void Place(const Core::C2DPoint& position, const Core::C2DPoint& relativePosition) = 0;

    virtual bool HasParent() const = 0;
    /// For the parent alone: tells the cell which group it lies in, or null. Not owned.
    virtual void SetParent(IGroupLayoutCell* parent) = 0;
    /// Leaves the parent, if there is one. The caller owns the cell from here on.
    virtual void Detach() = 0;

    virtual void SetVisible(bool visible) = 0;
    virtual bool IsVisible() const = 0;
    /// True when all above the cell are visible too.
    virtual bool IsVisibleInTree() const = 0;

    /// Switches layout passes for the cell and all below it. Switched on, what was changed in
    /// between is made up for.
    virtual void EnableUpdates(bool enable) = 0;
    virtual bool UpdatesEnabled() const = 0;

    /// Something changed: lays out again, as far up as sizes change.
    virtual void Invalidate() = 0;

    /// Switches the two events of the cell and of all below it, and returns what was set. Switched
    /// on, each event fires once when its value is another one than at switching off.
    virtual bool EnableEvents(bool enable) = 0;

    /// Within the parent's content.
    virtual Core::C2DPoint GetPosition() const = 0;
    virtual Core::IEventProvider& GetPositionChangedEvent() = 0;

    /// Sets sides that no layout changes any more.
    virtual void SetFixedSize(const Core::C2DSize& size) = 0;
    virtual void SetFixedHeight(int height) = 0;
    virtual void SetFixedWidth(int width) = 0;

    /// A distance that is added to the place which the parent gives.
    virtual Core::C2DVector GetOffset() const = 0;
    virtual void SetOffset(const Core::C2DVector& offset) = 0;

    /// Called by the three operations above when a fixed side changed.
    virtual void OnFixedSizeChanged() = 0;
};

/// What all cells share: size, place, visibility and the way a change takes. `ComputeSize` is left
/// to those who know what a size comes from.
class CLayoutCell : public virtual ILayoutCell {
public:
    CLayoutCell() = default;
    CLayoutCell(const CLayoutCell&) = delete;
    CLayoutCell& operator=(const CLayoutCell&) = delete;

    Core::C2DSize GetSize() const override { return size; }
    Core::IEventProvider& GetSizeChangedEvent() override { return sizeChanged; }
    void SetSize(const Core::C2DSize& newSize) override;
    void Clear() override {}
    void PlaceAt(const Core::C2DPoint& newPosition) override;
    void Relayout() override { PlaceAt(position); }
    void Place(const Core::C2DPoint& newPosition,
               const Core::C2DPoint& newRelativePosition) override;
    bool HasParent() const override { return parent != nullptr; }
    void SetParent(IGroupLayoutCell* group) override { parent = group; }
    void Detach() override;
    void SetVisible(bool show) override;
    bool IsVisible() const override { return visible; }
    bool IsVisibleInTree() const override;
    void EnableUpdates(bool enable) override;
    bool UpdatesEnabled() const override { return updatesEnabled; }
    void Invalidate() override;
    bool EnableEvents(bool enable) override;
    Core::C2DPoint GetPosition() const override { return relativePosition; }
    Core::IEventProvider& GetPositionChangedEvent() override { return positionChanged; }
    void SetFixedSize(const Core::C2DSize& fixedSize) override;
    void SetFixedHeight(int height) override;
    void SetFixedWidth(int width) override;
    Core::C2DVector GetOffset() const override { return offset; }
    void SetOffset(const Core::C2DVector& distance) override;
    void OnFixedSizeChanged() override;

protected:
    bool NeedsLayout() const { return needsLayout; }
    void ClearNeedsLayout() { needsLayout = false; }

    /// Where the last `Place` put the cell, without the offset.
    const Core::C2DPoint& GetPlace() const { return position; }
    void StorePlace(const Core::C2DPoint& newPosition) { position = newPosition; }
    /// Fires when it differs.
    void StoreRelativePosition(const Core::C2DPoint& newPosition);

private:
    void StoreFixedSize(const Core::C2DSize& fixedSize);

    bool needsLayout = true; ///< something changed since the cell computed its size
    Core::C2DVector offset;
    Core::C2DPoint position;
    Core::C2DPoint relativePosition;
    Core::C2DSize size;
    Core::C2DPoint cachedPosition; ///< as it was when the events were switched off
    Core::C2DSize cachedSize;
    IGroupLayoutCell* parent = nullptr;
    Core::CEventProvider sizeChanged;
    Core::CEventProvider positionChanged;
    bool eventsEnabled = true;
    bool updatesEnabled = false;
    bool visible = true;
    bool visibilityChanged = false;
    bool widthForced = false;
    bool heightForced = false;
};

} // namespace Vorin::Layout
