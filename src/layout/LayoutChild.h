#pragma once

#include "core/Ownership.h"
#include "layout/LayoutOptions.h"

namespace Vorin::Layout {

class ILayoutCell;

/// A cell in a group or in the row of a table, with what it asks for there.
struct CLayoutChild {
    CLayoutChild(ILayoutCell* childCell, const CLayoutOptions& childOptions,
                 Core::EOwnership childOwnership)
        : cell(childCell), options(childOptions), ownership(childOwnership) {}

    ILayoutCell* cell; ///< never null
    CLayoutOptions options;
    Core::EOwnership ownership; ///< whether the group destroys the cell
};

} // namespace Vorin::Layout
