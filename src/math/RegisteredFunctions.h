#pragma once

#include <vector>

namespace Vorin::Math {

/// What the objects factory makes of this folder: a class and the interface it is seen as. Static
/// texts.
struct CRegisteredFunction {
    const char* classId;
    const char* interfaceId;
};

/// All of them, in the order of their registration.
const std::vector<CRegisteredFunction>& GetRegisteredFunctions();

} // namespace Vorin::Math
