#pragma once

#include <cstdint>

namespace Vorin::Serialization {

/// What `NextCodePoint` gives for a byte that begins no character.
inline constexpr std::uint32_t kNoCodePoint = 0xffffffffu;

/// Takes one character of UTF-8 from `text`, which moves behind it; `text` is not at `end`. From
/// bytes that are no UTF-8 (too long a form, a surrogate, cut short, above U+10FFFF) it takes one.
inline std::uint32_t NextCodePoint(const char*& text, const char* end) {
    const auto first = static_cast<unsigned char>(*text++);
    if (first < 0x80) {
        return first;
    }
    const int following = first >= 0xf0 ? 3 : first >= 0xe0 ? 2 : 1;
    if (first < 0xc2 || first > 0xf4 || end - text < following) {
        return kNoCodePoint;
    }
    std::uint32_t codePoint = first & (0x3fu >> following);
    for (int i = 0; i < following; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xc0) != 0x80) {
            return kNoCodePoint;
        }
        codePoint = codePoint << 6 | (byte & 0x3fu);
    }
    const bool isTooLong =
        (following == 2 && codePoint < 0x800) || (following == 3 && codePoint < 0x10000);
    if (isTooLong || codePoint > 0x10ffff || (codePoint >= 0xd800 && codePoint <= 0xdfff)) {
        return kNoCodePoint;
    }
    text += following;
    return codePoint;
}

} // namespace Vorin::Serialization
