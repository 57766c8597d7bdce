#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Vorin::Graphics {

/// How much of a text is laid out.
struct CTextLimits {
    int lineCharacters = 0;
    int textCharacters = 0;
    int lines = 0;
};

/// The limits at a font size in pixels: texts stay within what the text library can measure, and
/// within reasonable memory.
CTextLimits GetTextLimits(int fontSize);

/// A text as it can be laid out: valid UTF-8 with '\n' between its lines, of which there is one
/// when `multiline` is not set, with spaces in the place of control characters, and within
/// the limits. Nothing for a text that is no UTF-8.
std::optional<std::string> MakeDrawableText(std::string_view text, bool multiline,
                                            const CTextLimits& limits);

} // namespace Vorin::Graphics
