#include "serialization/KeyText.h"

#include "serialization/Utf8.h"
#include "serialization/XmlText.h"

#include <cstring>

namespace Vorin::Serialization {

namespace {

constexpr char kKeyDigits[] = "0123456789ABCDEF";

bool IsHexDigit(char c) { return c && std::strchr(kKeyDigits, c); }

/// Whether an escape would be read here.
bool IsLikeEscape(const char* text) {
    return text[0] == '_' && text[1] == 'x' && IsHexDigit(text[2]) && IsHexDigit(text[3]);
}

bool FitsIni(std::uint32_t codePoint, bool isFirst, bool isLast) {
    switch (codePoint) {
    case '=':
    case ']':
    case '/':
    case 0x7f:
        return false;
    case '[':
    case ';':
    case '#':
    case 0xfeff: // would be taken for the mark at the start of a file
        return !isFirst;
    case ' ':
        return !isFirst && !isLast;
    default:
        return codePoint >= 0x20;
    }
}

bool Fits(EKeyForm form, std::uint32_t codePoint, bool isFirst, bool isLast) {
    switch (form) {
    case kXmlNameKey:
        return isFirst ? IsXmlNameStart(codePoint) : IsXmlNameCharacter(codePoint);
    case kXmlTextKey:
        return IsXmlCharacter(codePoint);
    default:
        return FitsIni(codePoint, isFirst, isLast);
    }
}

void AppendEscape(std::string& target, char byte) {
    const auto bits = static_cast<unsigned char>(byte);
    target += "_x";
    target += kKeyDigits[bits >> 4];
    target += kKeyDigits[bits & 15];
    target += '_';
}

} // namespace

CKeyText::CKeyText(const char* key, EKeyForm form) : text(key) {
    const char* end = key + std::strlen(key);
    if (key == end) {
        text = form == kXmlTextKey ? key : "_x00_";
        return;
    }
    for (const char* at = key; at != end;) {
        const char* character = at;
        const std::uint32_t codePoint = NextCodePoint(at, end);
        const bool fits = Fits(form, codePoint, character == key, at == end) &&
                          !(codePoint == '_' && IsLikeEscape(character));
        if (fits) {
            if (text != key) {
                storage.append(character, at);
            }
            continue;
        }
        if (text == key) {
            storage.assign(key, character);
            text = nullptr;
        }
        for (; character != at; ++character) {
            AppendEscape(storage, *character);
        }
    }
    if (text != key) {
        text = storage.c_str();
    }
}

} // namespace Vorin::Serialization
