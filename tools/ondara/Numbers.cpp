#include "Numbers.h"

#include <array>
#include <charconv>
#include <cmath>

namespace Workbench {

void AppendNumber(std::string& text, double value) {
    if (std::isnan(value)) {
        text += "nan";
        return;
    }
    std::array<char, 32> digits;
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    text.append(digits.data(), result.ptr);
}

bool ParseNumber(const std::string& text, double& value) {
    const char* end = text.data() + text.size();
    double parsed = 0.0;
    const auto result = std::from_chars(text.data(), end, parsed);
    if (result.ec != std::errc() || result.ptr != end || !std::isfinite(parsed)) {
        return false;
    }
    value = parsed;
    return true;
}

} // namespace Workbench
