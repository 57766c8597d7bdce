#include "SkinEngine/Model/ObjectsUsage.h"

#include <algorithm>
#include <array>

namespace Vorin::AppEngine {

namespace {

/// What comes with an object, under its identifier and a word.
constexpr std::array<std::string_view, 11> kDerivedWords = {
    "info", "x_info", "y_info",      "z_info",        "default",       "min",
    "max",  "paused", "enum_values", "x_enum_values", "y_enum_values",
};

bool IsDerived(std::string_view word) {
    return word == "z_enum_values" ||
           std::find(kDerivedWords.begin(), kDerivedWords.end(), word) != kDerivedWords.end();
}

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

} // namespace

std::string GetUsageName(std::string_view id) {
    std::string name;
    name.reserve(id.size());
    for (std::size_t i = 0; i < id.size(); ++i) {
        name += id[i];
        if (id[i] != '[') {
            continue;
        }
        std::size_t end = i + 1;
        while (end < id.size() && IsDigit(id[end])) {
            ++end;
        }
        if (end > i + 1 && end < id.size() && id[end] == ']') {
            name += '*';
            i = end - 1;
        }
    }
    return name;
}

void CObjectsUsage::Declare(const char* id) {
    if (!id || !*id) {
        return;
    }
    if (std::string_view(id) == "*") {
        isEverythingUsed = true;
        return;
    }
    std::string name = GetUsageName(id);
    ++uses[name];
    const std::size_t point = name.rfind('.');
    if (point != std::string::npos && IsDerived(std::string_view(name).substr(point + 1))) {
        name.resize(point);
        ++uses[name];
    }
}

int CObjectsUsage::GetUseCount(const char* id) const {
    const auto found = id ? uses.find(GetUsageName(id)) : uses.end();
    const int count = found == uses.end() ? 0 : found->second;
    return isEverythingUsed ? std::max(count, 1) : count;
}

} // namespace Vorin::AppEngine
