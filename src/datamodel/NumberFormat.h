#pragma once

#include "containers/CharString.h"

namespace Vorin::DataModel::Objects {

/// A printf format for one double that is safe to run, whoever wrote it.
///
/// Accepted is text with "%%" and exactly one conversion out of e E f F g G a A, with any of the
/// flags
/// "-+ #0" and a width and a precision of at most two digits each. No "*", no length modifier, no
/// other conversion. A new one is "%.2f".
class CNumberFormat {
public:
    CNumberFormat();

    /// False, with nothing changed, when `text` is null or not accepted.
    bool Set(const char* text);

    /// The format as it was set.
    const char* Get() const { return format.Get(); }

    /// Appends the formatted value. The decimal point is that of the calling thread's locale.
    void Write(double value, Containers::CCharString& out) const;

private:
    Containers::CCharString format;
    Containers::CCharString before; // literal text with "%%" already undone
    Containers::CCharString conversion;
    Containers::CCharString after;
};

} // namespace Vorin::DataModel::Objects
