#pragma once

#include "runtime/DynamicObject.h"

namespace Vorin::Runtime {

/// Objects by identifier, to look up.
class IDynamicObjectsDictionary {
public:
    /// The object, or null. It stays with whoever owns it.
    virtual IDynamicObject* Get(const char* id) const = 0;
    virtual ~IDynamicObjectsDictionary() = default;
};

} // namespace Vorin::Runtime
