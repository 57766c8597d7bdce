#pragma once

#include "layout/BaseGroupLayoutCell.h"

#include <list>

namespace Vorin::Layout {

/// How a group arranges its children.
enum ELayoutType {
    kLayoutRow = 0,    ///< side by side, left to right
    kLayoutColumn = 1, ///< above one another, top to bottom
    kLayoutStack = 2,  ///< all in the same box, each aligned alone
};

/// A row, a column or a stack of cells. GUI thread only.
///
/// In rows and columns a hidden child takes no room, and is placed at (0, 0). In a stack it is
/// placed like a shown one.
///
/// The destructor destroys the owned children. One that is not owned must have been removed, or
/// not be used any more: it still takes the group for its parent.
class CGroupLayoutCell : public CBaseGroupLayoutCell {
public:
    /// Margins and the spacing between two children in pixels. An unknown type counts as a stack.
    CGroupLayoutCell(int hMargin, int vMargin, int spacing, int layoutType);
    ~CGroupLayoutCell() override;

    void Clear() override;
    void ComputeMinSize(bool recompute) override;

    ILayoutOptions* AddChild(ILayoutCell* cell, const CLayoutOptions& options,
                             Core::EOwnership ownership) override;
    void RemoveChild(ILayoutCell* cell, bool destroy) override;
    void SetInsertAfter(ILayoutCell* cell) override;
    ILayoutCell* GetInsertAfter() const override;

    virtual void SetSpacing(int pixels);
    virtual int GetSpacing() const { return spacing; }
    virtual void SetLayoutType(int type);
    virtual int GetLayoutType() const { return layoutType; }

protected:
    void VisitChildren(const ChildVisitor& visit) const override;
    bool PlaceContent(const Core::C2DPoint& origin) override;

private:
    using Children = std::list<CLayoutChild>;

    bool IsLine() const { return layoutType == kLayoutRow || layoutType == kLayoutColumn; }
    EAxis GetLineAxis() const {
        return layoutType == kLayoutRow ? EAxis::kHorizontal : EAxis::kVertical;
    }
    Children::iterator Find(const ILayoutCell* cell);

    Core::C2DSize MeasureLine(bool recompute) const;
    Core::C2DSize MeasureStack(bool recompute) const;
    void ApplyFractions();
    void ApplyFlex();
    void PlaceLine(const Core::C2DPoint& origin);
    void PlaceStack(const Core::C2DPoint& origin);
    int AlignChild(const CLayoutChild& child, EAxis axis, const Core::C2DPoint& origin) const;

    Children children;
    Children::iterator insertPoint = children.end(); ///< the next child goes before this one
    int spacing;
    int layoutType;
};

} // namespace Vorin::Layout
