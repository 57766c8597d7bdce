#include "serialization/XmlText.h"

#include "serialization/Utf8.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace Vorin::Serialization {

namespace {

struct CRange {
    std::uint32_t first;
    std::uint32_t last;
};

constexpr CRange kCharacters[] = {
    {0x9, 0xa}, {0xd, 0xd}, {0x20, 0xd7ff}, {0xe000, 0xfffd}, {0x10000, 0x10ffff}};

constexpr CRange kNameStarts[] = {
    {':', ':'},       {'A', 'Z'},       {'_', '_'},       {'a', 'z'},
    {0xc0, 0xd6},     {0xd8, 0xf6},     {0xf8, 0x2ff},    {0x370, 0x37d},
    {0x37f, 0x1fff},  {0x200c, 0x200d}, {0x2070, 0x218f}, {0x2c00, 0x2fef},
    {0x3001, 0xd7ff}, {0xf900, 0xfdcf}, {0xfdf0, 0xfffd}, {0x10000, 0xeffff}};

constexpr CRange kOtherNameCharacters[] = {
    {'-', '.'}, {'0', '9'}, {0xb7, 0xb7}, {0x300, 0x36f}, {0x203f, 0x2040}};

template <std::size_t N>
bool IsIn(const CRange (&ranges)[N], std::uint32_t codePoint) {
    return std::any_of(std::begin(ranges), std::end(ranges), [codePoint](const CRange& range) {
        return codePoint >= range.first && codePoint <= range.last;
    });
}

bool IsPlain(unsigned char byte) { return byte >= 0x20 && byte < 0x80; }

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

/// What stands for a character of the text, null for the character itself.
const char* EscapeOf(char c) {
    switch (c) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case '\t':
        return "&#9;";
    case '\n':
        return "&#10;";
    case '\r':
        return "&#13;";
    case ' ':
        return "&#32;";
    default:
        return nullptr;
    }
}

void AppendEscaped(std::string& target, const char* text, const char* escaped) {
    for (;;) {
        const std::size_t run = std::strcspn(text, escaped);
        target.append(text, run);
        text += run;
        if (!*text) {
            return;
        }
        target += EscapeOf(*text++);
    }
}

} // namespace

bool IsXmlCharacter(std::uint32_t codePoint) { return IsIn(kCharacters, codePoint); }

bool IsXmlNameStart(std::uint32_t codePoint) { return IsIn(kNameStarts, codePoint); }

bool IsXmlNameCharacter(std::uint32_t codePoint) {
    return IsXmlNameStart(codePoint) || IsIn(kOtherNameCharacters, codePoint);
}

const char* CleanXmlText(const char* text, std::string& storage) {
    const char* plain = text;
    while (IsPlain(static_cast<unsigned char>(*plain))) {
        ++plain;
    }
    const char* end = plain + std::strlen(plain);
    bool isClean = true;
    for (const char* at = plain; at != end && isClean;) {
        isClean = IsXmlCharacter(NextCodePoint(at, end));
    }
    if (isClean) {
        return text;
    }
    storage.assign(text, plain);
    while (plain != end) {
        const char* character = plain;
        if (IsXmlCharacter(NextCodePoint(plain, end))) {
            storage.append(character, plain);
        } else {
            storage += "\xef\xbf\xbd";
        }
    }
    return storage.c_str();
}

void AppendXmlAttribute(std::string& target, const char* text) {
    AppendEscaped(target, text, "&<>\"\t\n\r");
}

void AppendXmlContent(std::string& target, const char* text) {
    // A parser drops content of nothing but blanks, unless one of them stands there by number.
    const char* behind = text;
    while (IsBlank(*behind)) {
        ++behind;
    }
    if (!*behind && *text) {
        target += EscapeOf(*text++);
    }
    AppendEscaped(target, text, "&<>\r");
}

} // namespace Vorin::Serialization
