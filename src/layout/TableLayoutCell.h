#pragma once

#include "layout/BaseGroupLayoutCell.h"

#include <list>
#include <memory>
#include <vector>

namespace Vorin::Layout {

/// A row of a table, as who added it sees it.
class ITableLayoutRow {
public:
    virtual ~ITableLayoutRow() = default;

    /// Takes the row with its cells out of the table and destroys it.
    virtual void Remove() = 0;
};

/// Cells in rows and columns. A column is as wide as its widest cell, a row as high as its highest
/// one, if nothing else is said of it. GUI thread only.
///
/// A hidden cell takes no column: its neighbours move up, and it is placed at (0, 0). Only for flex
/// it still counts as a column, so that the cells behind it share by the factors of the columns one
/// further on. Skins are drawn with that in view; it stays.
///
/// Positions have no effect; alignment, fractions and flex have. Of a cell's fractions the width is
/// taken of the table, the height of the row.
///
/// The flex of a row shows where the row has a height fraction, or cells that fill its height: any
/// other row is measured again by its cells. Without a cell the table keeps the size that it had.
///
/// The destructor does as that of `CGroupLayoutCell`.
class CTableLayoutCell : public CBaseGroupLayoutCell {
public:
    /// What is said of a row's height. A negative value says nothing.
    struct CRowSettings {
        float heightFraction = -1.0F; ///< of the table's inner height, 1 for all of it
        int fixedHeight = -1;         ///< in pixels; goes before the fraction
        float flex = 0.0F;
    };

    /// Margins, and the spacings between columns and between rows, in pixels.
    CTableLayoutCell(int hMargin, int vMargin, int hSpacing, int vSpacing);
    ~CTableLayoutCell() override;

    void Clear() override;
    void ComputeMinSize(bool recompute) override;

    /// Destroys the row and its owned cells. Both insert points go to the end.
    virtual void RemoveRow(ITableLayoutRow* row);
    /// Moves the row insert point behind `row`: to the start for null, to the end for an unknown
    /// one. Cells are then added at the end of the row before it.
    virtual void SetInsertRowAfter(ITableLayoutRow* row);
    /// The row before the row insert point, or null.
    virtual ITableLayoutRow* GetInsertRowAfter() const;

    /// Adds a cell to the row before the row insert point; null without such a row. The rest is as
    /// in `AddChild`.
    virtual ILayoutOptions* AddCell(ILayoutCell* cell, const CLayoutOptions& options,
                                    Core::EOwnership ownership);
    virtual void RemoveCell(ILayoutCell* cell, bool destroy);
    /// Also moves the row insert point, behind the row of `cell`.
    virtual void SetInsertCellAfter(ILayoutCell* cell);
    virtual ILayoutCell* GetInsertCellAfter() const;

    /// Adds a row at the row insert point. It lives until it is removed.
    ITableLayoutRow* AddRow(const CRowSettings& settings);

    ILayoutOptions* AddChild(ILayoutCell* cell, const CLayoutOptions& options,
                             Core::EOwnership ownership) override {
        return AddCell(cell, options, ownership);
    }
    void RemoveChild(ILayoutCell* cell, bool destroy) override { RemoveCell(cell, destroy); }
    void SetInsertAfter(ILayoutCell* cell) override { SetInsertCellAfter(cell); }
    ILayoutCell* GetInsertAfter() const override { return GetInsertCellAfter(); }

    virtual void SetHSpacing(int pixels);
    virtual int GetHSpacing() const { return hSpacing; }
    virtual void SetVSpacing(int pixels);
    virtual int GetVSpacing() const { return vSpacing; }

protected:
    void VisitChildren(const ChildVisitor& visit) const override;
    bool PlaceContent(const Core::C2DPoint& origin) override;

private:
    class CRow;
    using Rows = std::list<std::unique_ptr<CRow>>;
    using Cells = std::list<CLayoutChild>;

    bool HasCurrentCounts() const;
    CRow* GetCurrentRow() const;
    void MoveInsertPointsToEnd();
    void CountColumns();
    void ReleaseCells(CRow& row);

    bool ApplyFractions();
    std::vector<float> GetColumnFlex() const;
    bool ApplyRowFlex();
    bool ApplyColumnFlex(const std::vector<float>& columnFlex);
    void PlaceRows(const Core::C2DPoint& origin);
    void PlaceRow(const CRow& row, const Core::C2DPoint& start, int height,
                  const Core::C2DPoint& origin);

    Rows rows;
    Rows::iterator rowInsertPoint = rows.end(); ///< the next row goes before this one
    Cells::iterator cellInsertPoint;            ///< in the current row, while there is one
    int hSpacing;
    int vSpacing;
    int columnCount = 0; ///< the most cells of any row, hidden ones included
    // The sizes found last. Their counts lag behind until ComputeMinSize runs.
    std::vector<int> columnWidths;
    std::vector<int> rowHeights;
};

} // namespace Vorin::Layout
