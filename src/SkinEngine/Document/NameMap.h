#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace Vorin::AppEngine {

/// Looks at a text without making a string of it.
struct CNameHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view name) const {
        return std::hash<std::string_view>()(name);
    }
};

/// A hash map from name to `V`. Its hash is not as easily met on purpose as that of `TTextMap`: a
/// document may declare a hundred thousand names.
template <class V>
using TNameMap = std::unordered_map<std::string, V, CNameHash, std::equal_to<>>;

} // namespace Vorin::AppEngine
