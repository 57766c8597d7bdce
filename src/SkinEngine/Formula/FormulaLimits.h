#pragma once

namespace Vorin::AppEngine {

/// What a formula may be. A longer or deeper one is invalid.
struct FormulaLimits {
    static constexpr int kLength = 65536; ///< bytes
    static constexpr int kNesting = 128;  ///< parentheses within each other, those of calls too

    /// Operations below each other: what is built, evaluated, copied and destroyed takes stack for
    /// each. A chain such as a+b+c+d is as deep as it has operators.
    static constexpr int kDepth = 1024;
};

} // namespace Vorin::AppEngine
