#include "graphics/text/DrawableText.h"

#include <algorithm>
#include <cstdint>

#include "serialization/Utf8.h"

namespace Vorin::Graphics {

namespace {

/// True for what the text library would break a line at, or show as a box.
bool IsControlCharacter(std::uint32_t codePoint) {
    return (codePoint < 0x20 && codePoint != '\t') || (codePoint >= 0x7f && codePoint < 0xa0) ||
           codePoint == 0x2028 || codePoint == 0x2029;
}

} // namespace

CTextLimits GetTextLimits(int fontSize) {
    // The text library counts in 1/1024 pixels, in 32 bits: it ends at two million pixels.
    const int longest = 500'000 / std::max(fontSize, 1);
    return {std::min(longest, 16'384), std::min(longest, 65'536), 8192};
}

std::optional<std::string> MakeDrawableText(std::string_view text, bool multiline,
                                            const CTextLimits& limits) {
    std::string drawable;
    drawable.reserve(std::min<std::size_t>(text.size(), 1024));
    int lineLength = 0;
    int textLength = 0;
    int lineCount = 1;
    const char* next = text.data();
    const char* const end = next + text.size();
    while (next != end) {
        const char* const character = next;
        const std::uint32_t codePoint = Serialization::NextCodePoint(next, end);
        if (codePoint == Serialization::kNoCodePoint) {
            return std::nullopt; // looked for beyond the limits too
        }
        const bool endsLine = codePoint == '\n' && multiline;
        const bool isFirstOfTwo = codePoint == '\r' && next != end && *next == '\n';
        const bool isBeyondLimits =
            textLength >= limits.textCharacters ||
            (endsLine ? lineCount >= limits.lines : lineLength >= limits.lineCharacters);
        if (isFirstOfTwo || isBeyondLimits) {
            continue;
        }
        ++textLength;
        lineCount += endsLine ? 1 : 0;
        lineLength = endsLine ? 0 : lineLength + 1;
        if (endsLine) {
            drawable += '\n';
        } else if (IsControlCharacter(codePoint)) {
            drawable += ' ';
        } else {
            drawable.append(character, next);
        }
    }
    return drawable;
}

} // namespace Vorin::Graphics
