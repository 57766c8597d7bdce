#pragma once

#include "core/EventProvider.h"
#include "layout/LayoutArithmetic.h"

namespace Vorin::Layout {

/// Where a cell stands in the room it has: the values of alignments.
enum { kAlignStart = 0, kAlignCenter = 1, kAlignEnd = 2 };

/// What a cell asks of the group it lies in. GUI thread only.
///
/// Setters compare, store and fire the changed event.
class ILayoutOptions {
public:
    virtual ~ILayoutOptions() = default;

    /// One of `kAlignStart` (left, top), `kAlignCenter` and `kAlignEnd` (right, bottom).
    virtual void SetHAlign(int align) = 0;
    virtual int GetHAlign() const = 0;
    virtual void SetVAlign(int align) = 0;
    virtual int GetVAlign() const = 0;

    /// A fixed place on one axis, in pixels from the edge of the group. Once set, a position stays:
    /// the cell does not return into the run of its neighbours. Without effect in a table.
    virtual void SetHPosition(int position) = 0;
    virtual int GetHPosition() const = 0;
    virtual bool HasHPosition() const = 0;
    virtual void SetVPosition(int position) = 0;
    virtual int GetVPosition() const = 0;
    virtual bool HasVPosition() const = 0;

    /// The part of the group's inner extent that the cell takes, 1 for all of it; negative for
    /// the cell's own extent. NaN is not taken.
    virtual void SetWidthFraction(float fraction) = 0;
    virtual float GetWidthFraction() const = 0;
    virtual void SetHeightFraction(float fraction) = 0;
    virtual float GetHeightFraction() const = 0;

    /// The cell's part of what room is left, in relation to the factors of its neighbours; 0 for
    /// none. NaN is not taken.
    virtual void SetFlex(float factor) = 0;
    virtual float GetFlex() const = 0;

    virtual Core::IEventProvider& GetChangedEvent() = 0;
};

/// The options of one cell. A copy starts without listeners.
class CLayoutOptions : public virtual ILayoutOptions {
public:
    /// What is said of one axis.
    struct CAxisOptions {
        int align = kAlignCenter;
        int position = 0;
        bool hasPosition = false;
        float fraction = -1.0F;

        bool HasFraction() const { return fraction >= 0.0F; }
    };

    void SetHAlign(int align) override { StoreAlign(horizontal, align); }
    int GetHAlign() const override { return horizontal.align; }
    void SetVAlign(int align) override { StoreAlign(vertical, align); }
    int GetVAlign() const override { return vertical.align; }

    void SetHPosition(int position) override { StorePosition(horizontal, position); }
    int GetHPosition() const override { return horizontal.position; }
    bool HasHPosition() const override { return horizontal.hasPosition; }
    void SetVPosition(int position) override { StorePosition(vertical, position); }
    int GetVPosition() const override { return vertical.position; }
    bool HasVPosition() const override { return vertical.hasPosition; }

    void SetWidthFraction(float fraction) override { StoreFloat(horizontal.fraction, fraction); }
    float GetWidthFraction() const override { return horizontal.fraction; }
    void SetHeightFraction(float fraction) override { StoreFloat(vertical.fraction, fraction); }
    float GetHeightFraction() const override { return vertical.fraction; }

    void SetFlex(float factor) override { StoreFloat(flex, factor); }
    float GetFlex() const override { return flex; }

    Core::IEventProvider& GetChangedEvent() override { return changed; }

    const CAxisOptions& GetAxis(EAxis axis) const {
        return axis == EAxis::kHorizontal ? horizontal : vertical;
    }

private:
    void StoreAlign(CAxisOptions& axis, int align);
    void StorePosition(CAxisOptions& axis, int position);
    void StoreFloat(float& stored, float value);

    CAxisOptions horizontal;
    CAxisOptions vertical;
    float flex = 0.0F;
    Core::CEventProvider changed;
};

} // namespace Vorin::Layout
