#include "SkinEngine/Document/XMLNamedAttributes.h"

#include <cstdint>

namespace Vorin::AppEngine {

namespace {

void AppendUtf8(std::string& text, std::uint32_t codePoint) {
    if (codePoint < 0x80) {
        text += static_cast<char>(codePoint);
        return;
    }
    const int following = codePoint < 0x800 ? 1 : codePoint < 0x10000 ? 2 : 3;
    const std::uint32_t lead = 0xff00u >> (following + 1) & 0xffu; // 110, 1110 or 11110
    text += static_cast<char>(lead | codePoint >> (6 * following));
    for (int i = following - 1; i >= 0; --i) {
        text += static_cast<char>(0x80u | (codePoint >> (6 * i) & 0x3fu));
    }
}

} // namespace

void TranscodeXMLText(const XMLCh* source, std::string& text) {
    text.clear();
    for (; *source; ++source) {
        std::uint32_t unit = *source;
        const bool isPair =
            unit >= 0xd800 && unit < 0xdc00 && source[1] >= 0xdc00 && source[1] < 0xe000;
        if (isPair) {
            ++source;
            unit = 0x10000u + ((unit - 0xd800u) << 10) + (*source - 0xdc00u);
        }
        AppendUtf8(text, unit);
    }
}

void CXMLNamedAttributes::AddXMLAttribute(const XMLCh* qualifiedName, const XMLCh* value) {
    if (!qualifiedName || !value) {
        return;
    }
    TranscodeXMLText(qualifiedName, nameText);
    TranscodeXMLText(value, valueText);
    SetValue(nameText.c_str(), valueText.c_str());
}

} // namespace Vorin::AppEngine
