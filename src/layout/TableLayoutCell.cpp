#include "layout/TableLayoutCell.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <numeric>

namespace Vorin::Layout {

using Core::C2DPoint;
using Core::C2DSize;
using Core::SaturateToInt;

class CTableLayoutCell::CRow final : public ITableLayoutRow {
public:
    CRow(CTableLayoutCell& ownerTable, const CRowSettings& rowSettings)
        : table(ownerTable), settings(rowSettings) {}

    void Remove() override { table.RemoveRow(this); }

    bool HasFixedHeight() const { return settings.fixedHeight >= 0; }
    bool HasFraction() const { return !HasFixedHeight() && settings.heightFraction >= 0.0F; }
    int GetCellCount() const { return static_cast<int>(cells.size()); }

    CTableLayoutCell& table;
    const CRowSettings settings;
    Cells cells;
};

CTableLayoutCell::CTableLayoutCell(int horizontalMargin, int verticalMargin, int columnSpacing,
                                   int rowSpacing)
    : CBaseGroupLayoutCell(horizontalMargin, verticalMargin), hSpacing(columnSpacing),
      vSpacing(rowSpacing) {}

CTableLayoutCell::~CTableLayoutCell() {
    // A cell that is not owned may be gone already: it is not touched.
    for (const auto& row : rows) {
        for (CLayoutChild& child : row->cells) {
            DisconnectChild(child);
            if (child.ownership == Core::kOwn) {
                delete child.cell;
            }
        }
    }
}

void CTableLayoutCell::Clear() {
    for (const auto& row : rows) {
        ReleaseCells(*row);
    }
    rows.clear();
    columnCount = 0;
    MoveInsertPointsToEnd();
    Invalidate();
}

ITableLayoutRow* CTableLayoutCell::AddRow(const CRowSettings& settings) {
    const auto added = rows.insert(rowInsertPoint, std::make_unique<CRow>(*this, settings));
    cellInsertPoint = (*added)->cells.end();
    Invalidate();
    return added->get();
}

void CTableLayoutCell::RemoveRow(ITableLayoutRow* row) {
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [row](const auto& each) { return each.get() == row; });
    if (found == rows.end()) {
        MoveInsertPointsToEnd();
        return;
    }
    const std::unique_ptr<CRow> removed = std::move(*found);
    rows.erase(found);
    MoveInsertPointsToEnd();
    CountColumns();
    ReleaseCells(*removed);
    Invalidate();
}

void CTableLayoutCell::SetInsertRowAfter(ITableLayoutRow* row) {
    if (GetInsertRowAfter() == row) {
        return;
    }
    rowInsertPoint = rows.begin();
    while (row && rowInsertPoint != rows.end() && rowInsertPoint->get() != row) {
        ++rowInsertPoint;
    }
    if (row && rowInsertPoint != rows.end()) {
        ++rowInsertPoint;
    }
    if (CRow* current = GetCurrentRow()) {
        cellInsertPoint = current->cells.end();
    }
}

ITableLayoutRow* CTableLayoutCell::GetInsertRowAfter() const { return GetCurrentRow(); }

ILayoutOptions* CTableLayoutCell::AddCell(ILayoutCell* cell, const CLayoutOptions& options,
                                          Core::EOwnership ownership) {
    CRow* row = GetCurrentRow();
    if (!cell || !row) {
        return nullptr;
    }
    cellInsertPoint = row->cells.emplace(cellInsertPoint, cell, options, ownership);
    columnCount = std::max(columnCount, row->GetCellCount());
    CLayoutChild& child = *cellInsertPoint;
    ConnectChild(child);
    ++cellInsertPoint;
    return &child.options;
}

void CTableLayoutCell::RemoveCell(ILayoutCell* cell, bool destroy) {
    for (const auto& row : rows) {
        const auto found =
            std::find_if(row->cells.begin(), row->cells.end(),
                         [cell](const CLayoutChild& child) { return child.cell == cell; });
        if (found == row->cells.end()) {
            continue;
        }
        DisconnectChild(*found);
        const bool dies = destroy && found->ownership == Core::kOwn;
        row->cells.erase(found);
        cellInsertPoint = GetCurrentRow() ? GetCurrentRow()->cells.end() : Cells::iterator();
        CountColumns();
        if (dies) {
            delete cell;
        } else {
            cell->SetParent(nullptr);
        }
        Invalidate();
        break;
    }
    if (CRow* current = GetCurrentRow()) {
        cellInsertPoint = current->cells.end();
    }
}

void CTableLayoutCell::SetInsertCellAfter(ILayoutCell* cell) {
    CRow* current = GetCurrentRow();
    if (!current || GetInsertCellAfter() == cell) {
        return;
    }
    cellInsertPoint = cell ? current->cells.end() : current->cells.begin();
    for (auto row = rows.begin(); cell && row != rows.end(); ++row) {
        Cells& cells = (*row)->cells;
        const auto found = std::find_if(cells.begin(), cells.end(),
                                        [cell](const auto& child) { return child.cell == cell; });
        if (found != cells.end()) {
            rowInsertPoint = std::next(row);
            cellInsertPoint = std::next(found);
            return;
        }
    }
}

ILayoutCell* CTableLayoutCell::GetInsertCellAfter() const {
    const CRow* row = GetCurrentRow();
    const Cells::const_iterator point = cellInsertPoint;
    return row && point != row->cells.begin() ? std::prev(point)->cell : nullptr;
}

void CTableLayoutCell::SetHSpacing(int pixels) {
    if (pixels != hSpacing) {
        hSpacing = pixels;
        Invalidate();
    }
}

void CTableLayoutCell::SetVSpacing(int pixels) {
    if (pixels != vSpacing) {
        vSpacing = pixels;
        Invalidate();
    }
}

/// The row that cells are added to: the one before the row insert point.
CTableLayoutCell::CRow* CTableLayoutCell::GetCurrentRow() const {
    const Rows::const_iterator point = rowInsertPoint;
    return point == rows.begin() ? nullptr : std::prev(point)->get();
}

void CTableLayoutCell::MoveInsertPointsToEnd() {
    rowInsertPoint = rows.end();
    if (CRow* last = GetCurrentRow()) {
        cellInsertPoint = last->cells.end();
    }
}

void CTableLayoutCell::CountColumns() {
    columnCount = 0;
    for (const auto& row : rows) {
        columnCount = std::max(columnCount, row->GetCellCount());
    }
}

void CTableLayoutCell::ReleaseCells(CRow& row) {
    for (CLayoutChild& child : row.cells) {
        DisconnectChild(child);
        if (child.ownership == Core::kOwn) {
            delete child.cell;
        } else {
            child.cell->SetParent(nullptr);
        }
    }
    row.cells.clear();
}

void CTableLayoutCell::VisitChildren(const ChildVisitor& visit) const {
    for (const auto& row : rows) {
        for (const CLayoutChild& child : row->cells) {
            visit(*child.cell);
        }
    }
}

bool CTableLayoutCell::HasCurrentCounts() const {
    return columnWidths.size() == static_cast<std::size_t>(columnCount) &&
           rowHeights.size() == rows.size();
}

void CTableLayoutCell::ComputeMinSize(bool recompute) {
    if (columnCount == 0) {
        return;
    }
    columnWidths.assign(static_cast<std::size_t>(columnCount), 0);
    rowHeights.resize(rows.size());
    std::int64_t height =
        (static_cast<std::int64_t>(rows.size()) - 1) * vSpacing + 2 * std::int64_t{GetVMargin()};
    auto rowHeight = rowHeights.begin();
    for (const auto& row : rows) {
        const bool followsCells = !row->HasFixedHeight() && !row->HasFraction();
        // The height of a row with a fraction is found when the table is placed: until then it
        // needs nothing, and from then on it counts as it was found.
        if (row->HasFixedHeight()) {
            *rowHeight = row->settings.fixedHeight;
        } else if (followsCells || recompute) {
            *rowHeight = 0;
        }
        auto columnWidth = columnWidths.begin();
        for (const CLayoutChild& child : row->cells) {
            if (child.cell->IsVisible()) {
                const C2DSize cellSize = MeasureChild(child, recompute);
                *columnWidth = std::max(*columnWidth, cellSize.width);
                ++columnWidth;
                *rowHeight = followsCells ? std::max(*rowHeight, cellSize.height) : *rowHeight;
            }
        }
        // A row of no height has none either when flex gave it some.
        height += row->HasFraction() && row->settings.heightFraction == 0.0F ? 0 : *rowHeight;
        ++rowHeight;
    }
    const std::int64_t width = std::accumulate(columnWidths.begin(), columnWidths.end(),
                                               (std::int64_t{columnCount} - 1) * hSpacing +
                                                   2 * std::int64_t{GetHMargin()});
    StoreMinSize({SaturateToInt(width), SaturateToInt(height)});
}

bool CTableLayoutCell::PlaceContent(const C2DPoint& origin) {
    if (!HasCurrentCounts()) {
        ComputeMinSize(true);
        if (!HasCurrentCounts()) {
            return false;
        }
    }
    if (ApplyFractions()) {
        MeasureGivenSizes();
    }
    const bool rowsChanged = ApplyRowFlex();
    const bool cellsChanged = ApplyColumnFlex(GetColumnFlex());
    if (rowsChanged || cellsChanged) {
        MeasureGivenSizes();
    }
    PlaceRows(origin);
    return true;
}

bool CTableLayoutCell::ApplyFractions() {
    bool changed = false;
    auto rowHeight = rowHeights.begin();
    for (const auto& row : rows) {
        if (row->HasFraction()) {
            *rowHeight = TakeFraction(GetSize().height, GetVMargin(), row->settings.heightFraction);
            changed = true;
        }
        for (const CLayoutChild& child : row->cells) {
            if (!child.cell->IsVisible()) {
                continue;
            }
            C2DSize cellSize = child.cell->GetSize();
            const auto& horizontal = child.options.GetAxis(EAxis::kHorizontal);
            if (horizontal.HasFraction()) {
                cellSize.width = TakeFraction(GetSize().width, GetHMargin(), horizontal.fraction);
            }
            const auto& vertical = child.options.GetAxis(EAxis::kVertical);
            if (vertical.HasFraction()) {
                cellSize.height = TakeFraction(*rowHeight, 0, vertical.fraction);
            }
            changed |= ResizeChild(child, cellSize);
        }
        ++rowHeight;
    }
    return changed;
}

/// The largest factor in each column of shown cells.
std::vector<float> CTableLayoutCell::GetColumnFlex() const {
    std::vector<float> columnFlex(static_cast<std::size_t>(columnCount), 0.0F);
    for (const auto& row : rows) {
        auto flex = columnFlex.begin();
        for (const CLayoutChild& child : row->cells) {
            if (child.cell->IsVisible()) {
                *flex = std::max(*flex, child.options.GetFlex());
                ++flex;
            }
        }
    }
    return columnFlex;
}

bool CTableLayoutCell::ApplyRowFlex() {
    const int room = Core::SaturatedDifference(GetSize().height, GetMinSize().height);
    float flexSum = 0.0F;
    for (const auto& row : rows) {
        flexSum += row->settings.flex;
    }
    if (flexSum == 0.0F || room == 0) {
        return false;
    }
    CFlexShares shares(static_cast<float>(room) / flexSum);
    bool changed = false;
    auto rowHeight = rowHeights.begin();
    for (const auto& row : rows) {
        if (row->settings.flex != 0.0F) {
            *rowHeight = Core::SaturatedSum(*rowHeight, shares.Take(row->settings.flex));
            changed = true;
        }
        ++rowHeight;
    }
    return changed;
}

bool CTableLayoutCell::ApplyColumnFlex(const std::vector<float>& columnFlex) {
    const float flexSum = std::accumulate(columnFlex.begin(), columnFlex.end(), 0.0F);
    const int room = Core::SaturatedDifference(GetSize().width, GetMinSize().width);
    const float pixelsPerFlex = flexSum == 0.0F ? 0.0F : static_cast<float>(room) / flexSum;
    bool changed = false;
    auto rowHeight = rowHeights.begin();
    for (const auto& row : rows) {
        CFlexShares shares(pixelsPerFlex);
        // Counts every cell, hidden ones too, deliberately: see the header.
        std::size_t column = 0;
        for (const CLayoutChild& child : row->cells) {
            if (child.cell->IsVisible()) {
                C2DSize cellSize = child.cell->GetSize();
                if (const float flex = child.options.GetFlex(); flex != 0.0F) {
                    const int share = shares.Take(flex);
                    const float part = static_cast<float>(columnWidths[column]) * flex;
                    cellSize.width =
                        Core::SaturatedSum(RoundToInt(part / columnFlex[column]), share);
                }
                if (const auto& vertical = child.options.GetAxis(EAxis::kVertical);
                    vertical.HasFraction()) {
                    cellSize.height = TakeFraction(*rowHeight, 0, vertical.fraction);
                }
                changed |= ResizeChild(child, cellSize);
            }
            ++column;
        }
        ++rowHeight;
    }
    return changed;
}

void CTableLayoutCell::PlaceRows(const C2DPoint& origin) {
    const int x =
        SaturateToInt(std::int64_t{origin.x} + GetHMargin() + GetInternalShift(EAxis::kHorizontal));
    std::int64_t y = std::int64_t{origin.y} + GetVMargin() + GetInternalShift(EAxis::kVertical);
    auto rowHeight = rowHeights.begin();
    for (const auto& row : rows) {
        PlaceRow(*row, {x, SaturateToInt(y)}, *rowHeight, origin);
        y += std::int64_t{*rowHeight} + vSpacing;
        ++rowHeight;
    }
}

void CTableLayoutCell::PlaceRow(const CRow& row, const C2DPoint& start, int height,
                                const C2DPoint& origin) {
    const auto align = [](std::int64_t corner, int box, int extent, int alignment) {
        const std::int64_t room = std::int64_t{box} - extent;
        return SaturateToInt(alignment == kAlignStart ? corner
                             : alignment == kAlignEnd ? corner + room
                                                      : corner + room / 2);
    };
    std::int64_t x = start.x;
    auto columnWidth = columnWidths.begin();
    for (const CLayoutChild& child : row.cells) {
        if (!child.cell->IsVisible()) {
            PlaceHiddenChild(child);
            continue;
        }
        const C2DSize cellSize = child.cell->GetSize();
        PlaceChild(child,
                   {align(x, *columnWidth, cellSize.width, child.options.GetHAlign()),
                    align(start.y, height, cellSize.height, child.options.GetVAlign())},
                   origin);
        x += std::int64_t{*columnWidth} + hSpacing;
        ++columnWidth;
    }
}

} // namespace Vorin::Layout
