#pragma once

namespace TestHost {

/// What the command line asks for beyond the usual: longer runs, and other ones.
struct COptions {
    double seconds = 0.0; ///< of the runs that have a length in time; 0: the short default
    unsigned seed = 1;    ///< of the random runs; the same one gives the same operations
};

/// As main has read them.
const COptions& GetOptions();

} // namespace TestHost
