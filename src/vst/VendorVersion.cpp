#include "vst/VendorVersion.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstring>
#include <string_view>

namespace VorinExt::VSTPlugin {

namespace {

/// The text up to the next ".", taken off the front.
std::string_view TakePart(std::string_view& text) {
    const std::size_t end = std::min(text.find('.'), text.size());
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return part;
}

int ToNumber(std::string_view digits) {
    int value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return std::clamp(value, 0, 999'999);
}

int CountDigits(int value) {
    int count = 1;
    while (value >= 10) {
        value /= 10;
        ++count;
    }
    return count;
}

/// 10 to the number of places that a part takes beyond its first.
int ScaleOf(std::string_view part) {
    const std::size_t zeros = std::min(part.find_first_not_of('0'), part.size());
    const int places =
        static_cast<int>(std::min<std::size_t>(zeros, 9)) + CountDigits(ToNumber(part)) - 1;
    int scale = 1;
    for (int i = 0; i < places && scale < 100'000'000; ++i) {
        scale *= 10;
    }
    return scale;
}

} // namespace

VstInt32 ToVendorVersion(const char* version) {
    constexpr int kFirstWeight = 1000;
    std::string_view text = version ? version : "";
    VstInt32 result = ToNumber(TakePart(text)) * kFirstWeight;
    int weight = kFirstWeight / 10;
    while (!text.empty() && weight >= 1) {
        const std::string_view part = TakePart(text);
        const int scale = ScaleOf(part);
        result += weight * ToNumber(part) / scale;
        weight = weight / 10 / scale;
    }
    return result;
}

} // namespace VorinExt::VSTPlugin
