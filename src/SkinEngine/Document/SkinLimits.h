#pragma once

#include "serialization/Limits.h"

namespace Vorin::AppEngine {

/// What a skin may hold at most. A document comes from strangers and can ask for more than any
/// machine has, by a few lines that repeat each other; reaching a limit is an error at the place
/// where it happens, and ends the parse.
struct SkinLimits {
    // Of one file, as it stands on the disk.
    static constexpr int kFileBytes = Serialization::kMaximumDocumentBytes;
    static constexpr int kFileDepth = Serialization::kMaximumDepth;
    static constexpr int kFileElements = Serialization::kMaximumElements;
    static constexpr int kAttributes = Serialization::kMaximumAttributes;
    static constexpr int kTextBytes = Serialization::kMaximumTextBytes; ///< of one value

    // Of the whole document, as templates, repeats and includes expand it.
    static constexpr int kIncludesNested = 32; ///< the root document is not counted
    static constexpr int kExpandedElements = 1'000'000;
    static constexpr int kExpandedDepth = 1024;               ///< elements and template calls
    static constexpr long kExpandedBytes = 64L * 1024 * 1024; ///< of all names and values
    static constexpr long kReadBytes = 2L * kFileBytes;       ///< of all files
    static constexpr int kDefinitionsChained = 64;            ///< base types of base types

    // What takes longer than an element counts as so many of them.
    static constexpr int kFileCost = 200;
    static constexpr int kFormulaCost = 50; ///< and one more for two bytes
};

} // namespace Vorin::AppEngine
